// One scan that builds the document as it goes, nodes, values and places as the XML library's parser gives
// them.
//
// It takes the declaration that the protocol's writers send, then elements, attributes in quotes, text,
// blanks and line feeds, the references that the library's printer makes, and UTF-8. All of it is
// unambiguous: no locale changes it, nothing in it is an error. At anything else the scan gives up, what it
// has built is dropped, and the parser begins at the text's first byte. So what is odd about the parser is
// not repeated here, and no result or error text can differ.
#include "framing/usual_document.h"

#include "framing/byte_block.h"
#include "framing/document_limits.h"

#include <tinyxml.h>

#include <array>
#include <cctype>
#include <climits>
#include <string_view>

namespace veltoprotocol {
namespace {

// Where nodes and attributes stand in the text is for the parser to write, so it is protected. The standard
// lets a derived class name the member, and through its name it can be reached in any of them.
struct Place : TiXmlBase {
    static constexpr TiXmlCursor TiXmlBase::*cursor = &Place::location;
};

enum : unsigned char { startsName = 1, continuesName = 2 };

constexpr std::array<unsigned char, 256> nameBytes() {
    std::array<unsigned char, 256> kinds = {};
    for (const char c : std::string_view("-.:0123456789"))
        kinds[static_cast<unsigned char>(c)] = continuesName;
    for (const char c : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz"))
        kinds[static_cast<unsigned char>(c)] = startsName | continuesName;
    return kinds;
}
constexpr std::array<unsigned char, 256> nameByte = nameBytes();

bool is(unsigned char kind, char c) { return (nameByte[static_cast<unsigned char>(c)] & kind) != 0; }

bool isBlank(const std::string& value) { return value.find_first_not_of(" \t\n\v\f\r") == std::string::npos; }

// How many bytes a character has whose lead byte this is; 0 if none begins with it.
std::size_t characterSize(unsigned char lead) {
    if (lead < 0xC2 || lead > 0xF4) return 0;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

const char* behindDeclaration(const char* text) {
    for (const std::string_view written :
         {R"(<?xml version="1.0" encoding="UTF-8" ?>)", R"(<?xml version="1.0" encoding="UTF-8"?>)"})
        if (std::strncmp(text, written.data(), written.size()) == 0) return text + written.size();
    return nullptr;
}

// Steps return false where the scan gives up. The NUL behind the text is taken by none of them, so all stop
// there at the latest.
class UsualDocument {
  public:
    // `behind` is where the declaration ends.
    UsualDocument(Text text, const char* behind)
        : at_(behind), end_(text.data + text.size), line_(text.data) {
        (*document_).*Place::cursor = placeOf(line_);
        append(new TiXmlDeclaration("1.0", "UTF-8", ""), line_);
    }

    std::unique_ptr<TiXmlDocument> scanned() { return nodes() ? std::move(document_) : nullptr; }

  private:
    bool skip(std::string_view expected) {
        if (std::strncmp(at_, expected.data(), expected.size()) != 0) return false;
        at_ += expected.size();
        return true;
    }

    // Up to the text's end, or to what is no node and left alone: a compressed block, or text behind the
    // root.
    bool nodes() {
        for (;;) {
            blanks();
            if (*at_ == '<') {
                if (!(at_[1] == '/' ? endTag() : startTag())) return false;
            } else if (level_ == 0) {
                return !isBlankElsewhere(*at_);
            } else if (!text()) {
                return false;
            }
        }
    }

    void blanks() {
        for (;; ++at_)
            if (*at_ == '\n')
                ++row_, line_ = at_ + 1;
            else if (*at_ != ' ')
                return;
    }

    // What the parser skips beside blank and line feed, in some locale, or what a byte-order mark begins
    // with.
    static bool isBlankElsewhere(char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte == 0xEF || std::isspace(byte) != 0;
    }

    bool startTag() {
        const char* const tag = at_++;
        if (level_ == deepestLevel || !name()) return false;
        auto* const element = new TiXmlElement(name_);
        append(element, tag);
        for (int count = 0;; ++count) {
            while (*at_ == ' ') ++at_;
            if (*at_ == '>') {
                ++at_, ++level_;
                parent_ = element;
                return true;
            }
            if (*at_ == '/') return skip("/>");
            if (count == mostAttributes || !attribute(*element)) return false;
        }
    }

    bool attribute(TiXmlElement& element) {
        const TiXmlCursor place = placeOf(at_);
        if (!name() || *at_++ != '=') return false;
        const char quote = *at_++;
        if ((quote != '"' && quote != '\'') || !value(quote)) return false;
        ++at_;
        const TiXmlAttribute* const before = element.LastAttribute();
        element.SetAttribute(name_, value_);
        TiXmlAttribute* const added = element.LastAttribute();
        if (added == before) return false; // a second one of that name, which is an error
        added->SetDocument(document_.get());
        added->*Place::cursor = place;
        return true;
    }

    bool text() {
        const char* const start = at_;
        const TiXmlCursor place = placeOf(start);
        if (!value('<')) return false;
        if (isBlank(value_)) return true; // made of references; the parser drops such a text
        auto* const node = new TiXmlText(value_);
        parent_->LinkEndChild(node);
        node->*Place::cursor = place;
        return true;
    }

    bool endTag() {
        if (level_ == 0) return false;
        at_ += 2;
        if (!skip(parent_->ValueStr())) return false;
        while (*at_ == ' ') ++at_;
        if (*at_++ != '>') return false;
        parent_ = parent_->Parent();
        --level_;
        return true;
    }

    bool name() {
        const char* const start = at_;
        if (!is(startsName, *at_)) return false;
        do ++at_;
        while (is(continuesName, *at_));
        name_.assign(start, at_);
        return true;
    }

    // Up to the quote that ends an attribute's value, or to the "<" behind a text.
    bool value(char mark) {
        const char* const start = at_;
        const auto stops = [mark](const Block& block) {
            return block.equal(mark) | block.equal('&') | block.below32() | block.above127();
        };
        at_ = firstOf(at_, end_, stops);
        const bool plain =
            *at_ == mark && (mark != '<' || !std::memchr(start, ' ', std::size_t(at_ - start)));
        if (plain) return value_.assign(start, at_), true;
        at_ = start;
        value_.clear();
        return spell(mark);
    }

    // The same byte by byte. A run of blanks in a text is one blank, and none before "<".
    bool spell(char mark) {
        for (bool blank = false; *at_ != mark;) {
            const auto byte = static_cast<unsigned char>(*at_);
            if (byte == ' ' && mark == '<') {
                blank = true;
                ++at_;
                continue;
            }
            if (blank) value_ += ' ';
            blank = false;
            if (byte < ' ') return false;
            if (byte >= 0x80) {
                if (!character()) return false;
            } else if (byte == '&') {
                if (!reference()) return false;
            } else {
                value_ += *at_++;
            }
        }
        return true;
    }

    // Of several bytes. The parser counts it as one column.
    bool character() {
        const auto lead = static_cast<unsigned char>(*at_);
        const std::size_t size = characterSize(lead);
        const bool marksOrder =
            lead == 0xEF && (at_[1] == '\xBB' || at_[1] == '\xBF'); // the parser may skip it
        if (size == 0 || marksOrder || std::isspace(lead) != 0) return false;
        for (std::size_t i = 1; i < size; ++i)
            if ((static_cast<unsigned char>(at_[i]) & 0xC0) != 0x80) return false;
        value_.append(at_, size);
        at_ += size;
        line_ += size - 1;
        return true;
    }

    bool reference() {
        static constexpr struct {
            std::string_view written;
            char meant;
        } names[] = {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}};
        for (const auto& name : names)
            if (skip(name.written)) return value_ += name.meant, true;
        return skip("&#x") && hexadecimal();
    }

    // Two digits, as the printer writes them, of a character that is one byte.
    bool hexadecimal() {
        const auto digit = [](char c) {
            return c >= '0' && c <= '9' ? c - '0' : c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
        };
        const int high = digit(at_[0]);
        if (high < 0 || high > 7) return false;
        const int low = digit(at_[1]);
        if (low < 0 || high + low == 0 || at_[2] != ';') return false;
        value_ += static_cast<char>(16 * high + low);
        at_ += 3;
        return true;
    }

    TiXmlCursor placeOf(const char* at) const {
        TiXmlCursor place;
        place.row = row_;
        place.col = static_cast<int>(at - line_);
        return place;
    }
    void append(TiXmlNode* node, const char* at) {
        parent_->LinkEndChild(node);
        node->*Place::cursor = placeOf(at);
    }

    const char* at_;
    const char* const end_;
    const char* line_; // where it would begin if each of its characters were one byte
    int row_ = 0, level_ = 0;
    std::string name_, value_;
    std::unique_ptr<TiXmlDocument> document_ = std::make_unique<TiXmlDocument>();
    TiXmlNode* parent_ = document_.get();
};

} // namespace

std::unique_ptr<TiXmlDocument> usualDocument(Text text) {
    // Rows and columns are counted in an int, and blanks condensed unless somebody has switched that off.
    if (text.size > INT_MAX || !TiXmlBase::IsWhiteSpaceCondensed()) return nullptr;
    const char* const behind = behindDeclaration(text.data);
    return behind ? UsualDocument(text, behind).scanned() : nullptr;
}

} // namespace veltoprotocol
