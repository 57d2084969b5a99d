// Runs over a text as the XML library's parser would, without building anything.
//
// The limits are only safe if both agree on where a tag, a comment or a CDATA section ends, so each function
// here comes to the same end as its counterpart in the parser, errors included: where the parser gives up,
// the scan ends and nothing was exceeded. Null stands for "the parser gives up here" and is passed on by
// every function. What the parser does with names, entities and blanks is kept although XML says otherwise.
#include "framing/document_limits.h"

#include "framing/text.h"

#include <tinyxml.h>

#include <cctype>

namespace veltoprotocol {
namespace {

bool isBlank(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

// kept: every byte from 127 upwards counts as a letter
bool isLetter(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 127 || std::isalpha(byte) != 0;
}
bool startsName(char c) { return isLetter(c) || c == '_'; }
bool continuesName(char c) {
    return startsName(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == ':';
}

bool begins(const char* at, const char* text) {
    while (*text != '\0' && *at == *text) ++at, ++text;
    return *text == '\0';
}
bool beginsInAnyCase(const char* at, const char* lower) {
    while (*lower != '\0' && std::tolower(static_cast<unsigned char>(*at)) == *lower) ++at, ++lower;
    return *lower == '\0';
}

// Behind the next occurrence of `mark`, null if there is none.
const char* behind(const char* at, const char* mark) {
    const char* const found = std::strstr(at, mark);
    return found ? found + std::strlen(mark) : nullptr;
}

const char* nameEnd(const char* at) {
    if (!startsName(*at)) return nullptr;
    while (continuesName(*at)) ++at;
    return at;
}

// Behind "&#123;" or "&#x1F;". kept: the digits are read backwards from the next ";", however far it is, and
// only as far as the last "x" or "#" before it.
const char* characterReferenceEnd(const char* at) {
    const bool hexadecimal = at[2] == 'x';
    const char* const digits = at + (hexadecimal ? 3 : 2);
    const char* const semicolon = std::strchr(digits, ';');
    if (!semicolon) return nullptr;
    for (const char* digit = semicolon - 1; *digit != (hexadecimal ? 'x' : '#'); --digit) {
        const auto byte = static_cast<unsigned char>(*digit);
        if (hexadecimal ? std::isxdigit(byte) == 0 : std::isdigit(byte) == 0) return nullptr;
    }
    return semicolon + 1;
}

bool namesUtf8(const char* declaration, const char* end) {
    static constexpr Text usual{"<?xml version=\"1.0\" encoding=\"UTF-8\" ?>", 39};
    const auto length = static_cast<std::size_t>(end - declaration);
    if (length == usual.size && std::memcmp(declaration, usual.data, length) == 0) return true;
    // The parser itself tells what the declaration says; its own copy ends where the declaration does.
    TiXmlDocument alone;
    alone.Parse((std::string(declaration, length) + std::string(4, '\0')).c_str());
    const TiXmlDeclaration* const parsed = alone.FirstChild() ? alone.FirstChild()->ToDeclaration() : nullptr;
    const char* const encoding = parsed ? parsed->Encoding() : "";
    return *encoding == '\0' || beginsInAnyCase(encoding, "utf-8") || beginsInAnyCase(encoding, "utf8");
}

class Scan {
  public:
    const char* exceeded(const char* text) {
        if (begins(text, "\xEF\xBB\xBF")) utf8_ = encodingKnown_ = true;
        const char* at = skipBlanks(text);
        while (at && *at == '<') {
            const bool declares = beginsInAnyCase(at, "<?xml");
            const char* const end = node(at);
            if (declares && end && !encodingKnown_) {
                utf8_ = namesUtf8(at, end);
                encodingKnown_ = true;
            }
            at = skipBlanks(end);
        }
        return reason_;
    }

  private:
    // Null at the text's end, as everywhere here; blanks up to the end lead to its NUL.
    const char* skipBlanks(const char* at) const {
        if (!at || *at == '\0') return nullptr;
        for (;;) {
            // kept: byte-order marks and two non-characters are blanks in UTF-8
            if (utf8_ &&
                (begins(at, "\xEF\xBB\xBF") || begins(at, "\xEF\xBF\xBE") || begins(at, "\xEF\xBF\xBF")))
                at += 3;
            else if (isBlank(*at))
                ++at;
            else
                return at;
        }
    }

    // Behind one character. kept: a lead byte takes what follows it, be it "<", a quote or the text's NUL.
    const char* skipCharacter(const char* at) const {
        const auto byte = static_cast<unsigned char>(*at);
        if (utf8_ && byte >= 0xC2 && byte <= 0xF4) return at + (byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4);
        return at[0] == '&' && at[1] == '#' ? characterReferenceEnd(at) : at + 1;
    }

    // At the next `mark` in running text, or null if the text ends first.
    const char* textUpTo(const char* at, char mark) const {
        while (at && *at != '\0' && *at != mark) at = skipCharacter(at);
        return at && *at != '\0' ? at : nullptr;
    }

    const char* attributeValue(const char* at) const {
        if (*at == '\'' || *at == '"') {
            const char* const quote = textUpTo(at + 1, *at);
            return quote ? quote + 1 : nullptr;
        }
        // kept: values without quotes are accepted
        for (; *at != '\0' && !isBlank(*at) && *at != '/' && *at != '>'; ++at)
            if (*at == '\'' || *at == '"') return nullptr;
        return at;
    }

    const char* attribute(const char* at, Text& name) const {
        const char* end = nameEnd(at);
        if (!end) return nullptr;
        name = {at, static_cast<std::size_t>(end - at)};
        end = skipBlanks(end);
        if (!end || *end != '=') return nullptr;
        end = skipBlanks(end + 1);
        return end && *end != '\0' ? attributeValue(end) : nullptr;
    }

    const char* declaration(const char* at) const {
        at += 5;
        while (at && *at != '\0') {
            if (*at == '>') return at + 1;
            at = skipBlanks(at);
            if (*at == '\0') break;
            Text name;
            if (beginsInAnyCase(at, "version") || beginsInAnyCase(at, "encoding") ||
                beginsInAnyCase(at, "standalone"))
                at = attribute(at, name);
            else
                while (*at != '\0' && *at != '>' && !isBlank(*at)) ++at;
        }
        return nullptr;
    }

    // Of a node at "<".
    static bool isElement(const char* at) { return startsName(at[1]); }
    // Behind a node that is no element.
    const char* otherNode(const char* at) const {
        if (beginsInAnyCase(at, "<?xml")) return declaration(at);
        if (begins(at, "<!--")) return behind(at + 4, "-->");
        if (begins(at, "<![CDATA[")) return behind(at + 9, "]]>");
        return behind(at + 1, ">");
    }

    bool isRepeated(const Text* names, int count, Text name) const {
        for (int i = 0; i < count; ++i)
            if (names[i].size == name.size && std::memcmp(names[i].data, name.data, name.size) == 0)
                return true;
        return false;
    }

    // Behind a start tag; the element is open then unless the tag closed it.
    const char* startTag(const char* at) {
        if (level_ == deepestLevel) return exceed("Elements nested too deeply");
        const char* const name = skipBlanks(at + 1);
        at = nameEnd(name);
        if (!at) return nullptr;
        const Text elementName{name, static_cast<std::size_t>(at - name)};

        Text names[mostAttributes];
        int count = 0;
        for (;;) {
            at = skipBlanks(at);
            if (!at || *at == '\0') return nullptr;
            if (*at == '/') return at[1] == '>' ? at + 2 : nullptr;
            if (*at == '>') {
                open_[level_++] = elementName;
                return at + 1;
            }
            Text attributeName;
            at = attribute(at, attributeName);
            if (!at || *at == '\0' || isRepeated(names, count, attributeName)) return nullptr;
            if (count == mostAttributes) return exceed("Too many attributes");
            names[count++] = attributeName;
        }
    }

    // Behind the end tag of the innermost element that is open.
    const char* endTag(const char* at) {
        const Text name = open_[level_ - 1];
        at += 2;
        if (std::strncmp(at, name.data, name.size) != 0) return nullptr;
        at = skipBlanks(at + name.size);
        if (!at || *at != '>') return nullptr;
        --level_;
        return at + 1;
    }

    // Behind a top-level node with all that is in it.
    const char* node(const char* at) {
        if (!isElement(at)) return otherNode(at);
        at = startTag(at);
        while (at && level_ > 0) {
            if (*at != '<')
                at = textUpTo(at, '<');
            else if (at[1] == '/')
                at = endTag(at);
            else
                at = isElement(at) ? startTag(at) : otherNode(at);
        }
        return at;
    }

    const char* exceed(const char* reason) {
        reason_ = reason;
        return nullptr;
    }

    bool utf8_ = false, encodingKnown_ = false;
    const char* reason_ = nullptr;
    int level_ = 0;
    Text open_[deepestLevel];
};

} // namespace

const char* exceededLimit(const char* text) { return Scan().exceeded(text); }

} // namespace veltoprotocol
