// Documents from a seed, right and wrong, made of what the XML library's parser is odd about. A seed gives
// the same ones whatever the compiler.
#pragma once

#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace limits {

// Words that stand between blanks; "~" is a blank within one.
inline std::vector<std::string> words(const char* list) {
    std::vector<std::string> all;
    std::istringstream in(list);
    for (std::string word; in >> word;) {
        for (char& c : word)
            if (c == '~') c = ' ';
        all.push_back(word);
    }
    return all;
}

class RandomDocuments {
  public:
    explicit RandomDocuments(unsigned seed) : random_(seed) {}

    unsigned below(unsigned n) { return static_cast<unsigned>(random_() % n); }

    // A byte-order mark, a declaration, other nodes before the root, or nothing.
    std::string prologue() {
        std::string text = below(3) ? pick(starts) : "";
        if (below(4) == 0) text += pick(others);
        for (unsigned i = below(3); i > 0; --i) text += declaration();
        return below(4) ? text : text + pick(blanks);
    }

    std::string declaration() { return below(6) ? pick(declarations) : "<?xml" + soup(4) + "?>"; }

    // Pieces in any order.
    std::string soup(unsigned most) {
        std::string text;
        for (unsigned i = below(most + 1); i > 0; --i) text += pick(pieces);
        return text;
    }

    // What may stand inside an element, oddities included, mostly well-formed.
    std::string content(unsigned depth) {
        std::string text;
        for (unsigned i = below(4); i > 0; --i) text += depth > 0 && below(2) ? element(depth - 1) : item();
        return text;
    }

    std::string element(unsigned depth) {
        const std::string name = pick(names);
        std::string text = "<" + name + attributes();
        if (below(4) == 0) return text + "/>";
        text += ">" + content(depth) + "</";
        text += below(12) ? name : pick(names);
        if (below(4) == 0) text += pick(blanks);
        return text + ">";
    }

    std::string attributes() {
        std::string text;
        for (unsigned i = below(4); i > 0; --i) text += attribute();
        return text;
    }

    // The text after up to three changes.
    std::string damaged(std::string text) {
        for (unsigned i = below(4); i > 0 && !text.empty(); --i) {
            const std::size_t at = below(static_cast<unsigned>(text.size()));
            switch (below(4)) {
            case 0:
                text.erase(at, 2);
                break;
            case 1:
                text.insert(at, pick(pieces));
                break;
            case 2:
                text[at] = static_cast<char>(1 + below(255));
                break;
            default:
                text.resize(at);
                break;
            }
        }
        return text;
    }

  private:
    std::string pick(const std::vector<std::string>& list) {
        return list[below(static_cast<unsigned>(list.size()))];
    }

    std::string item() { return below(3) ? pick(texts) : pick(others); }

    std::string attribute() {
        std::string text = below(5) ? " " : pick(blanks);
        text += below(3) ? "n" + std::to_string(below(5)) : pick(names);
        text += below(8) ? "=" : pick(equals);
        const std::string quote = below(4) ? pick(quotes) : "";
        text += quote;
        text += below(3) ? pick(values) : pick(texts);
        return text + quote;
    }

    // clang-format off
    const std::vector<std::string> starts = words("\xEF\xBB\xBF \xEF\xBB\xBF <r/> <!--~<c>~--> ~");
    const std::vector<std::string> blanks = words("~ ~~ \xEF\xBB\xBF \xEF\xBF\xBE \xEF\xBF\xBF ~\xEF\xBB\xBF~");
    const std::vector<std::string> names = words("a b ab _ a.b-c:d9 \xC3\xA9 A xml \x7F a\xEF\xBB\xBF \xF0");
    const std::vector<std::string> equals = words("~=~ \xEF\xBF\xBF= == =~");
    const std::vector<std::string> quotes = words("\" ' \"");
    const std::vector<std::string> values = words("1 x~y a/b a>b <c> &lt; ' \"");
    const std::vector<std::string> texts = words(
        "x ~x~~y~ &lt; &amp & &# &#x &#65; &#x41; &#; &#x; &#6a; &#xg; &#X41; &#<c>#65; &#x<c>x41; &#X<c>x41; "
        "&#'#6; &#x\"x6; ; ]]> --> \xC3&# \xE2&#x \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80 \xC3 \xE2 \xE2\x82 \xF0 "
        "\xF0\x9F \xF4 \xC1 \xC2 \xDF \xE0 \xEF \xF5 \xFF \x80 \xEF\xBB\xBF \xEF\xBF\xBE \xEF\xBF\xBD");
    const std::vector<std::string> others = words(
        "<!--~<c>~--> <!--> <!---> <!----> <!--~--~> <![CDATA[<c>]]> <![CDATA[]]]> <![CDATA[\xF0]]> "
        "<![cdata[<c>]]> <!DOCTYPE~c~[<!ELEMENT~c>]> <!> <> <9> <~c> </> <?pi~c?> <?xml?> <?XML~version='<c>'?> "
        "<!--~ <![CDATA[ <! <?xml");
    const std::vector<std::string> declarations = words(
        "<?xml?> <?xml~version=\"1.0\"?> <?xml~encoding=\"UTF-8\"?> <?XML~ENCODING='utf8'?> <?xml~encoding=''?> "
        "<?xml~encoding=\"&#85;TF-8\"?> <?xml~encoding=\"U&#x54;F8\"~?> <?xml~encoding=\"ISO-8859-1\"?> "
        "<?xml~encoding='&#76;atin1'~standalone=\"y~>\"?> <?xml~encoding=utf-8?> <?xml~encoding=x~encoding=UTF-8~?> "
        "<?xml~encoding=\"&#0;x\"?> <?xml~encoding=\"&#<c>#85;TF-8\"?> <?xml~version=1.0~encoding=\"\xC3\"?> "
        "<?xml~a<b~encodings=\"x\"?>");
    const std::vector<std::string> pieces = words(
        "< > / = ' \" & # x ; ! - ? [ ] ~ <a> <a> <b> <ab <a </a> </a~> </b> </ab> </ /> <a/> <_/> <b~c=1> "
        "~n1=\"1\" ~n2='2' ~n1=1 ~n3 =\" =' <!-- --> <![CDATA[ ]]> <!X <> <?xml ?> <?xml?> ~version=1 "
        "~encoding='UTF-8' &# &#x &#6; &#x6; &lt; x6; #6; \xC2 \xC3 \xDF \xE0 \xE2 \xEF \xF0 \xF4 \xF5 \xC1 \x80 \x7F "
        "\xEF\xBB\xBF \xEF\xBF\xBE \xEF\xBF\xBF \xEF\xBB \xC3\xA9 9 . : _");
    // clang-format on

    std::mt19937 random_;
};

} // namespace limits
