// What values and texts of documents are spelt with, right and wrong, and documents spelt so.
#pragma once

#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace spelling {

inline const char* piece(unsigned which) {
    static const char* const pieces[] = {"x",
                                         " ",
                                         "  ",
                                         "y z",
                                         "&amp;",
                                         "&lt;",
                                         "&gt;",
                                         "&quot;",
                                         "&apos;",
                                         "&#x0A;",
                                         "&#x01;",
                                         "&#x20;",
                                         "&#x7F;",
                                         "\xC3\xA9",
                                         "\xE2\x82\xAC",
                                         "\xF0\x9F\x98\x80",
                                         "\xEF\xBF\xBD",
                                         "1",
                                         "-",
                                         "]]>",
                                         "\n",
                                         " \n ",
                                         "'",
                                         "\"",
                                         ">",
                                         "\t",
                                         "\r",
                                         "&#x80;",
                                         "&#x00;",
                                         "&#65;",
                                         "&#x0a;",
                                         "&#xA;",
                                         "&#x1F600;",
                                         "&x;",
                                         "&",
                                         "\xC1",
                                         "\xC3",
                                         "\x80",
                                         "\xE2\x82",
                                         "\xEF\xBB\xBF",
                                         "\xEF\xBF\xBE",
                                         "\xEF\xBF\xBF",
                                         "\x7F",
                                         "<!--c-->",
                                         "<![CDATA[ c ]]>"};
    return pieces[which % std::size(pieces)];
}

// A document of which each byte decides a step, so that what is rare in a heap of brackets is frequent here:
// tags that match, and values of many kinds. Seldom is a step wrong on purpose.
class Document {
  public:
    explicit Document(std::string_view steps) {
        for (const char step : steps) take(static_cast<unsigned char>(step));
        if (in_ == inValue) text_ += quote_;
        if (in_ != inContent) text_ += '>';
        while (!open_.empty()) close();
    }
    const std::string& text() const { return text_; }

  private:
    enum { inContent, inTag, inValue } in_ = inContent;

    void take(unsigned step) {
        if (in_ == inValue) return step % 4 == 0 ? endValue() : append(piece(step / 4));
        if (in_ == inTag) return takeInTag(step);
        if (open_.empty() || step % 4 == 0) return begin(step / 4);
        if (step % 4 == 1) return close();
        append(piece(step / 4));
    }
    void takeInTag(unsigned step) {
        switch (step % 4) {
        case 0:
            append(step == 0xFC ? "" : ">");
            in_ = inContent;
            break;
        case 1:
            append(step / 4 % 2 ? "/>" : " />");
            open_.pop_back();
            in_ = inContent;
            break;
        default: // names are repeated only seldom
            quote_ = step % 2 ? '"' : '\'';
            append(step / 4 % 8 ? " " : "\n");
            text_ +=
                "n" + std::to_string(step == 0xFF ? 0 : names_++) + (step == 0xFB ? " = " : "=") + quote_;
            in_ = inValue;
        }
    }
    void begin(unsigned which) {
        static const char* const names[] = {"a", "b", "request", "a.b-c:d9", "_", "\xC3\xA9"};
        open_.push_back(names[which % std::size(names)]);
        append("<");
        append(open_.back());
        in_ = inTag;
    }
    void close() {
        append("</");
        append(open_.back());
        append(">");
        open_.pop_back();
    }
    void endValue() {
        text_ += quote_;
        in_ = inTag;
    }
    void append(const char* text) { text_ += text; }

    std::string text_;
    std::vector<const char*> open_;
    int names_ = 0;
    char quote_ = '"';
};

} // namespace spelling
