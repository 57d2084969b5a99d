#include "framing/escape.h"

namespace veltoprotocol {
namespace {

// The first byte that cannot stand as it is, or the end. A NUL, which no text holds, would be one.
const char* firstSpecial(const char* from, const char* end) {
    return firstOf(from, end, [](const auto& block) { return block.stops(); });
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

// kept: as the XML library prints it
char* writeEscapedAndQuote(char* to, Text text) {
    const bool apostrophes = text.size > 0 && std::memchr(text.data, '"', text.size) != nullptr;
    const char quote = apostrophes ? '\'' : '"';
    to[-1] = quote;
    to = writeEscaped(to, text);
    *to = quote;
    return to + 1;
}

} // namespace veltoprotocol
