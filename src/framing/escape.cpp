#include "framing/escape.h"

namespace veltoprotocol {
namespace {

constexpr auto stops = [](const auto& block) { return block.stops(); };

// The first byte that cannot stand as it is, or the end. A NUL, which no text holds, would be one.
const char* firstSpecial(const char* from, const char* end) { return firstOf(from, end, stops); }

// Copies a text that stands as it is. False for another one, of which some bytes may have been copied.
VELTO_INLINE bool copied(char* to, Text text) {
    if (text.size == 0) return true;
    if (text.size <= ShortText::longest) {
        const ShortText all(text.data, text.size);
        if (all.first<Block>(stops) != text.size) return false;
        all.store(to);
        return true;
    }
    const std::size_t last = text.size - Block::size;
    for (std::size_t at = 0; at < text.size; at += Block::size) {
        const std::size_t begin = std::min(at, last);
        const Block block = Block::load(text.data + begin);
        if (block.stops().any()) return false;
        block.store(to + begin);
    }
    return true;
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

char* writePlain(char* to, Text text) {
    if (text.size > ShortText::longest)
        std::memcpy(to, text.data, text.size);
    else if (text.size > 0)
        ShortText(text.data, text.size).store(to);
    return to + text.size;
}

char* writeEscaped(char* to, Text text) {
    if (copied(to, text)) return to + text.size;
    const char* from = text.data;
    const char* const end = text.data + text.size;
    for (;;) {
        const char* const special = firstSpecial(from, end);
        to = writePlain(to, {from, static_cast<std::size_t>(special - from)});
        if (special == end) return to;
        const Reference reference = referenceTo(static_cast<unsigned char>(*special));
        std::memcpy(to, reference.text, reference.size);
        to += reference.size;
        from = special + 1;
    }
}

// kept: as the XML library prints it
char* writeEscapedAndQuote(char* to, Text text) {
    char quote = '"';
    if (copied(to, text)) {
        to += text.size;
    } else {
        if (std::memchr(text.data, '"', text.size)) to[-1] = quote = '\'';
        to = writeEscaped(to, text);
    }
    *to = quote;
    return to + 1;
}

} // namespace veltoprotocol
