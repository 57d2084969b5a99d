// Nearly all text needs no escaping, so it is looked at eight bytes at a time and copied in runs.
#include "framing/escape.h"

#include <cstdint>

namespace veltoprotocol {
namespace {

constexpr std::uint64_t everyByte(unsigned char value) { return 0x0101010101010101u * value; }

// The highest bit of each byte that is zero. Above the first such byte there may be false ones.
constexpr std::uint64_t zeroBytes(std::uint64_t eight) {
    return (eight - everyByte(1)) & ~eight & everyByte(0x80);
}
constexpr std::uint64_t bytesBelow32(std::uint64_t eight) {
    return (eight - everyByte(32)) & ~eight & everyByte(0x80);
}

constexpr bool isSpecial(unsigned char byte) {
    return byte < 32 || byte == '&' || byte == '<' || byte == '>' || byte == '"' || byte == '\'';
}

// The first byte that cannot stand as it is, or the end.
const char* firstSpecial(const char* from, const char* end) {
    for (; end - from >= 8; from += 8) {
        std::uint64_t eight;
        std::memcpy(&eight, from, 8);
        const std::uint64_t special = bytesBelow32(eight) | zeroBytes(eight ^ everyByte('&')) |
                                      zeroBytes(eight ^ everyByte('<')) | zeroBytes(eight ^ everyByte('>')) |
                                      zeroBytes(eight ^ everyByte('"')) | zeroBytes(eight ^ everyByte('\''));
        if (special != 0) break;
    }
    while (from < end && !isSpecial(static_cast<unsigned char>(*from))) ++from;
    return from;
}

struct Reference {
    char text[7]; // the longest, and a NUL
    unsigned char size;
};

constexpr Reference named(unsigned char byte) {
    switch (byte) {
    case '&':
        return {"&amp;", 5};
    case '<':
        return {"&lt;", 4};
    case '>':
        return {"&gt;", 4};
    case '"':
        return {"&quot;", 6};
    default:
        return {"&apos;", 6};
    }
}

constexpr Reference referenceTo(unsigned char byte) {
    if (byte >= 32) return named(byte);
    constexpr char digits[] = "0123456789ABCDEF";
    return {{'&', '#', 'x', digits[byte / 16], digits[byte % 16], ';', '\0'}, 6};
}

} // namespace

std::size_t escapedLength(Text text) {
    const char* const end = text.data + text.size;
    std::size_t length = text.size;
    for (const char* at = firstSpecial(text.data, end); at < end; at = firstSpecial(at + 1, end))
        length += referenceTo(static_cast<unsigned char>(*at)).size - 1u;
    return length;
}

char* writeEscaped(char* to, Text text) {
    const char* from = text.data;
    const char* const end = text.data + text.size;
    while (from < end) {
        const char* const special = firstSpecial(from, end);
        const auto plain = static_cast<std::size_t>(special - from);
        std::memcpy(to, from, plain);
        to += plain;
        if (special == end) break;
        const Reference reference = referenceTo(static_cast<unsigned char>(*special));
        std::memcpy(to, reference.text, reference.size);
        to += reference.size;
        from = special + 1;
    }
    return to;
}

} // namespace veltoprotocol
