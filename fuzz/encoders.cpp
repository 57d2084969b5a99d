// Every encoder writes, returns and prints what the XML library makes of the same message: the sources are
// compiled a second time so that each message goes through the library's tree and printer. A buffer of
// exactly the message's length takes the same bytes, and none is written behind it; one that is a byte
// shorter is refused and left as it was.
//
// Input: three bytes for the encoders and the kind of its texts, then what its arguments are drawn from:
// texts with any bytes in them, full fields, null pointers, wrong counts (tests/properties/drawn.h).
#include "fuzz/encoder_rooms.h"
#include "fuzz/target.h"

#include "properties/drawn.h"

#include <vector>

namespace {

constexpr int roomy = 1 << 18;

struct Message {
    std::string name, bytes, printed;
    int returned = 0;
};

Message written(const EncoderCall& call) {
    static std::vector<char> out(roomy);
    Message message;
    const Printed printed;
    message.returned = call.encode(out.data(), roomy);
    message.name = call.name;
    message.bytes.assign(out.data(), static_cast<std::size_t>(message.returned < 0 ? 0 : message.returned));
    message.printed = printed.text();
    return message;
}

void encodeInto(const EncoderCall& call, std::size_t room, int returned, const std::string& want) {
    Exact out(std::string(room, '#'));
    requireSame(call.name + " into " + std::to_string(room) + " bytes", call.encode(out.data(), out.length()),
                returned);
    requireSame(call.name + ", what the buffer holds", {out.data(), room}, want);
}

void keepsToItsBuffer(const EncoderCall& call, const Message& message) {
    const std::size_t length = message.bytes.size();
    encodeInto(call, length, length > 0 ? message.returned : -1, message.bytes);
    if (length > 0) encodeInto(call, length - 1, -1, std::string(length - 1, '#'));
}

void compare(const Message& direct, const Message& throughTree) {
    requireSame("the encoder", direct.name, throughTree.name);
    requireSame(direct.name + ", returned", direct.returned, throughTree.returned);
    requireSame(direct.name + ", bytes", direct.bytes, throughTree.bytes);
    requireSame(direct.name + ", printed", direct.printed, throughTree.printed);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned room = input.byte(), pick = input.byte();
    const Texts texts = input.byte() % 8 == 0 ? Texts::printable : Texts::anyBytes;
    const DrawnBytes bytes(input.rest());
    std::vector<Message> direct, throughTree;
    veltoprotocol::visitPicked(room, pick, texts, [&](const EncoderCall& call) {
        direct.push_back(written(call));
        if (call.isMessage()) keepsToItsBuffer(call, direct.back());
    });
    veltotree::visitPicked(room, pick, texts,
                           [&](const EncoderCall& call) { throughTree.push_back(written(call)); });
    requireSame("the number of messages", static_cast<long long>(direct.size()),
                static_cast<long long>(throughTree.size()));
    for (std::size_t i = 0; i < direct.size(); ++i) compare(direct[i], throughTree[i]);
    return 0;
}
