// Finding a message in a stream: is it HTTP, and is it whole.
#include "all_messages.h"
#include "by_hand/http_head.h"
#include "by_hand/inspection.h"
#include "timing.h"

namespace bench {
namespace {

int framedByLibrary(const char* buf, int len) {
    return veltoprotocol::CheckHttp(buf, len) == 0 ? veltoprotocol::GetHttpPacketLength(buf, len) : -1;
}
int framedBytewise(const char* buf, int len) {
    return by_hand::checkHttp(buf, len) == 0 ? by_hand::packetLength(buf, len) : -1;
}

void registerBoth(const std::string& name, const std::string& bytes, int expected) {
    const auto shared = std::make_shared<const std::string>(bytes);
    const int length = static_cast<int>(bytes.size());
    const auto add = [&](const char* variant, auto framed) {
        if (framed(bytes.data(), length) != expected)
            throw std::runtime_error(name + ": another length by " + variant);
        timed("framing/" + name + '/' + variant, bytes.size(),
              [=] { return framed(shared->data(), length); });
    };
    add("library", framedByLibrary);
    add("bytewise", framedBytewise);
}

// `first` and then `filling`, again and again.
std::string filled(const std::string& first, const std::string& filling, std::size_t length) {
    std::string bytes = first;
    while (bytes.size() < length) bytes += filling;
    bytes.resize(length - 13);
    return bytes + "=============";
}

} // namespace

void registerFraming() {
    const std::string xml = bodyOf(encoded(all().deviceList()));
    std::string message(4096, '\0');
    const int body = 4096 - by_hand::withHead("", 0, &message[0], 4096) - 3; // "0" becomes four digits
    if (by_hand::withHead(xml.data(), static_cast<std::size_t>(body), &message[0], 4096) != 4096)
        throw std::runtime_error("not 4 KiB");
    registerBoth("complete_4KiB", message, 4096);

    const std::string line = "HTTP/1.1 200 OK\r\n";
    constexpr std::size_t mebibyte = 1 << 20;
    registerBoth("no_length_1MiB", filled(line + "\r\n", xml, mebibyte), -1);
    registerBoth("no_blank_line_1MiB", filled(line, xml, mebibyte), -1);
    registerBoth("no_blank_line_CRLF_1MiB",
                 filled(line, "X-Trace: 5f0c2a9e-7d31-4be2-8c11-0a4f6e2b9d70\r\n", mebibyte), -1);
}

} // namespace bench
