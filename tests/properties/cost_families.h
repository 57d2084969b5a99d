// Documents that are made to cost much: each a front, a unit again and again, and a back, so that it can have
// any length.
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace cost {

// Who makes a document of it.
enum class By {
    scan,   // the library's own scan
    parser, // the XML library; where the front has the usual declaration, after the scan has given up
    nobody  // it is refused
};
inline std::ostream& operator<<(std::ostream& to, By by) {
    return to << (by == By::scan ? "by the scan" : by == By::parser ? "by the parser" : "by nobody");
}

inline std::string times(int count, const std::string& unit) {
    std::string all;
    while (count-- > 0) all += unit;
    return all;
}

struct Family {
    const char* name;
    By by;
    std::string front, unit, back;

    // About so many bytes. "@" stands for a number that no other unit has.
    std::string text(std::size_t size) const {
        std::string text = front;
        text.reserve(size + unit.size() + back.size() + 16);
        const std::size_t mark = unit.find('@');
        if (mark == std::string::npos) {
            const std::string many = times(1000, unit);
            while (text.size() + back.size() + many.size() < size) text += many;
        }
        for (int number = 0; text.size() + back.size() < size; ++number) {
            if (mark == std::string::npos)
                text += unit;
            else
                text.append(unit, 0, mark).append(std::to_string(number)).append(unit, mark + 1);
        }
        return text += back;
    }
};

// As many attributes as an element may have, with names that differ in their last character only.
inline std::string crowded() {
    std::string tag = "<e";
    for (int i = 0; i < 128; ++i) tag += " k" + std::to_string(1000 + i) + "=''";
    return tag + "/>";
}

inline const std::string usual = R"(<?xml version="1.0" encoding="UTF-8" ?>)";

inline std::vector<Family> families() {
    const std::string open = usual + "<a>", close = "</a>";
    const std::string nest = times(127, "<b>") + times(127, "</b>");
    const std::string longName(3000, 'n');
    return {// Elements.
            {"the smallest elements", By::scan, open, "<a/>", close},
            {"the smallest elements, without a declaration", By::parser, "<a>", "<a/>", close},
            {"the smallest elements, an end tag too few", By::nobody, open, "<a/>", ""},
            {"roots", By::scan, usual, "<a/>", ""},
            {"texts between elements", By::scan, open, "x<a/>", close},
            {"texts between elements, without a declaration", By::parser, "<a>", "x<a/>", close},
            {"texts between elements, given up at the end", By::parser, open, "x<a/>", "<!----></a>"},
            {"texts between elements, wrong at the end", By::nobody, open, "x<a/>", "</b>"},
            {"as deep as may be", By::scan, open, nest, close},
            {"as deep as may be, without a declaration", By::parser, "<a>", nest, close},
            {"as deep as may be, never closed", By::nobody, usual + times(127, "<a>"), "<a/>", ""},
            {"start tags alone", By::nobody, usual, "<a>", ""},
            {"start tags alone, without a declaration", By::nobody, "", "<a>", ""},
            {"wrong end tags", By::nobody, open, "</b>", ""},
            {"end tags alone", By::parser, usual, "</a>", ""},
            {"one long name", By::scan, usual + "<", "n", "/>"},
            {"one long name, without a declaration", By::parser, "<", "n", "/>"},
            {"one long name, its tag never closed", By::nobody, "<", "n", ""},
            {"long names, opened and closed", By::scan, open, "<" + longName + "></" + longName + ">", close},
            {"long names, closed wrongly at the end", By::nobody, open,
             "<" + longName + "></" + longName + ">", "<" + longName + "></" + longName + "x>"},
            // Attributes.
            {"as many attributes as may be", By::scan, open, crowded(), close},
            {"as many attributes as may be, without a declaration", By::parser, "<a>", crowded(), close},
            {"one attribute after the other", By::nobody, usual + "<a", " k@=''", "/>"},
            {"one attribute again and again", By::nobody, usual + "<a", " k=''", "/>"},
            {"attributes without quotes", By::parser, open, "<a k=v />", close},
            {"one long attribute", By::scan, usual + "<a k='", "v", "'/>"},
            {"one long attribute, without a declaration", By::parser, "<a k='", "v", "'/>"},
            {"one long attribute, never closed", By::nobody, usual + "<a k='", "v", ""},
            {"one long attribute's name", By::scan, usual + "<a ", "k", "=''/>"},
            {"blanks in a tag", By::scan, usual + "<a", " ", "/>"},
            // Texts.
            {"one long text", By::scan, open, "t", close},
            {"one long text, without a declaration", By::parser, "<a>", "t", close},
            {"one long text, never closed", By::nobody, open, "t", ""},
            {"words", By::scan, open, "w ", close},
            {"words of many bytes a character", By::scan, open, "\xF0\x9F\x98\x80 ", close},
            {"lead bytes", By::nobody, open, "\xF0", close},
            {"lead bytes, without a declaration", By::parser, "<a>", "\xF0", close},
            // References.
            {"&amp;", By::scan, open, "&amp;", close},
            {"&amp; in an attribute", By::scan, usual + "<a k='", "&amp;", "'/>"},
            {"&#x41;", By::scan, open, "&#x41;", close},
            {"&#65;", By::parser, open, "&#65;", close},
            {"& alone", By::parser, open, "&", close},
            {"&# without a semicolon", By::nobody, open, "&#", close},
            {"&#x without a semicolon", By::nobody, open, "&#x", close},
            {"&#x before one semicolon", By::parser, open, "&#x", "1;</a>"},
            {"one reference of many digits", By::parser, open + "&#", "1", ";</a>"},
            {"one reference of many digits and no semicolon", By::nobody, open + "&#", "1", close},
            // What is no element.
            {"<", By::parser, usual, "<", ""},
            {"<!", By::parser, usual, "<!", ""},
            {"<!>", By::parser, open, "<!>", close},
            {"<!--", By::nobody, open, "<!--", ""},
            {"comments", By::parser, open, "<!---->", close},
            {"one comment of hyphens and blanks", By::parser, open + "<!-- ", "- ", "--></a>"},
            {"<![CDATA[", By::nobody, open, "<![CDATA[", ""},
            {"CDATA sections", By::parser, open, "<![CDATA[x]]>", close},
            {"one CDATA section of brackets", By::parser, open + "<![CDATA[", "] ", "]]></a>"},
            {"<?xml", By::parser, "", "<?xml ", ""},
            {"declarations", By::parser, "", "<?xml?>", "<a/>"},
            {"one long declaration", By::parser, "<?xml ", "x ", "?><a/>"},
            // Between the nodes and behind them.
            {"blanks", By::scan, usual, " ", "<a/>"},
            {"blanks alone", By::nobody, "", " ", ""},
            {"line feeds", By::scan, usual, "\n", "<a/>"},
            {"line ends and tabs", By::parser, usual, "\r\n\t", "<a/>"},
            {"byte-order marks", By::parser, usual, "\xEF\xBB\xBF", "<a/>"},
            {"bytes behind the root", By::scan, usual + "<a/>", "\x78\x9C\xED\x9A", ""},
            {"elements behind a text behind the root", By::scan, usual + "<a/>x", "<a>", ""}};
}

} // namespace cost
