// Base64 in both directions gives what the plain rules give, the NUL behind it included, and writes no byte
// behind the room that the functions ask for. Decoding writes nothing where the rules say so. What was
// encoded comes back.
//
// Input: a byte for the place of the buffers, then the bytes, which are decoded, and encoded and decoded
// again.
#include "framing/inspection_rules.h"
#include "fuzz/target.h"

#include <LibVeltoProtocol.h>

using namespace veltoprotocol;

namespace {

std::string untouched(std::size_t room) { return std::string(room, '#'); }

// All of the room that Base64Decode is promised.
std::string decoded(std::string_view text, std::size_t place) {
    Exact in(text, 0, place);
    const std::size_t room = text.size() / 4 * 3 + 1;
    Exact out(untouched(room), 0, place);
    Base64Decode(out.data(), in.data(), in.length());
    return {out.data(), room};
}

// All of the room that Base64Encode asks for.
std::string encoded(std::string_view bytes, std::size_t place) {
    Exact in(bytes, 0, place);
    const std::size_t room = (bytes.size() + 2) / 3 * 4 + 1;
    Exact out(untouched(room), 0, place);
    requireSame("Base64Encode", Base64Encode(out.data(), in.data(), in.length()), static_cast<int>(room));
    return {out.data(), room};
}

// As the rules have it, in the same room.
std::string expected(std::string_view text) {
    std::string all = untouched(text.size() / 4 * 3 + 1), bytes;
    if (!rules::base64Decode(text.data(), static_cast<int>(text.size()), bytes)) return all;
    bytes += '\0';
    return all.replace(0, bytes.size(), bytes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const std::size_t place = input.byte() % 64;
    const std::string bytes(input.rest());
    requireSame("what is decoded", decoded(bytes, place), expected(bytes));

    const std::string text = encoded(bytes, place);
    requireSame("what is encoded", text, rules::base64Encode(bytes) + '\0');
    if (bytes.empty()) return 0; // its text is too short to be decoded
    const std::string back = decoded({text.data(), text.size() - 1}, place);
    requireSame("what comes back", std::string_view(back).substr(0, bytes.size() + 1), bytes + '\0');
    return 0;
}
