// What a user's first program does: write a message, find it among received bytes, read it. C++11, and only
// what the installed headers give.
#include <LibVeltoProtocol.h>

#include <cstdio>
#include <string>

namespace {

int failures = 0;

void expect(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "not so: %s\n", what);
    ++failures;
}

} // namespace

int main() {
    using namespace veltoprotocol;

    const std::string body = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
                             "<servercommandservice>\n"
                             "    <seqnum>-1</seqnum>\n"
                             "    <version>1.0.0</version>\n"
                             "    <request name=\"Heartbeat\" />\n"
                             "</servercommandservice>\n";
    const std::string message = "POST /servercommandservice HTTP/1.1\r\n"
                                "Host: 127.0.0.1\r\n"
                                "Connection: keep-alive\r\n"
                                "Content-Type: text/xml; charset=utf-8\r\n"
                                "Content-Length: " +
                                std::to_string(body.size()) + "\r\n\r\n" + body;

    char out[1024];
    const int length = GetHeartBeatReqEncode("127.0.0.1", "token", 4294967295u, out, sizeof out);
    expect(length > 0 && std::string(out, static_cast<std::size_t>(length)) == message,
           "the heartbeat's bytes");
    expect(GetHeartBeatReqEncode("127.0.0.1", "token", 0, out, 10) == -1, "too small a buffer gives -1");

    expect(CheckHttp(message.data(), static_cast<int>(message.size())) == 0, "it starts like HTTP");
    expect(GetHttpPacketLength(message.data(), static_cast<int>(message.size())) == length, "it is whole");

    int error = -1;
    TiXmlDocument* const doc = Decode(body.c_str());
    expect(GetRequestNameDecode(doc, &error) == "Heartbeat" && error == 0, "its name");
    expect(GetSeqnumberDecode(doc, &error) == 4294967295u && error == 0, "its sequence number");
    ReleaseTiXmlDocument(doc);

    char text[9];
    expect(Base64Encode(text, "Velto", 5) == 9 && std::string(text) == "VmVsdG8=", "Base64");

    const __tagVtDeviceParam device = __tagVtDeviceParam();
    expect(GetAllDeviceListRespEncode(0, 1, &device, 1, nullptr, 0, out, sizeof out) > 0,
           "a list of one device");

    if (failures == 0) std::puts("a user's program works");
    return failures == 0 ? 0 : 1;
}
