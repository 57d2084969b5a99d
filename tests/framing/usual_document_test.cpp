// The scan against the XML library's parser: what it takes, it takes as the parser does; what it leaves, it
// leaves without a trace.
#include "framing/usual_document.h"

#include "framing/document_limits.h"
#include "framing/parser_limits.h"
#include "framing/random_documents.h"
#include "support/same_tree.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace veltoprotocol;

const std::string utf8 = R"(<?xml version="1.0" encoding="UTF-8" ?>)";

// Whether the scan takes a text, of which nothing but its bytes and a NUL may be read.
bool takes(const std::string& text) {
    const GuardedPage page({text.c_str(), text.size() + 1});
    const auto scanned = usualDocument({page.data(), text.size()});
    if (!scanned) return false;
    TiXmlDocument parsed;
    parsed.Parse(limits::flush(text));
    EXPECT_FALSE(parsed.Error()) << testing::PrintToString(text);
    EXPECT_EQ(exceededLimit(limits::flush(text)), nullptr) << testing::PrintToString(text);
    EXPECT_EQ(trees::outline(*scanned), trees::outline(parsed)) << testing::PrintToString(text);
    return true;
}

bool takesInRoot(const std::string& content) { return takes(utf8 + "\n<a>" + content + "</a>\n"); }
bool takesInTag(const std::string& rest) { return takes(utf8 + "<a" + rest); }

TEST(usualDocument, TakesWhatTheProtocolsWritersMake) {
    EXPECT_TRUE(takes("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
                      "<servercommandservice>\n"
                      "    <seqnum>-1</seqnum>\n"
                      "    <version>1.0.0</version>\n"
                      "    <Token />\n"
                      "    <request name=\"PtzControl\">\n"
                      "        <ChannelGuid></ChannelGuid>\n"
                      "        <Channels  count=\"2\">\n"
                      "            <Ptz Control='\"1\"' Command=\"&lt;&amp;&gt;&apos;&#x0A;\" />\n"
                      "            <Name>Nord &quot;1&quot;, \xE5\x8C\x97 \xF0\x9F\x98\x80</Name>\n"
                      "        </Channels >\n"
                      "    </request>\n"
                      "</servercommandservice>\n"));
    EXPECT_TRUE(takes("<?xml version=\"1.0\" encoding=\"UTF-8\"?><a/>"));
    EXPECT_TRUE(takes(utf8));
    EXPECT_TRUE(takes(utf8 + "<a/><b></b>\n<c />"));
}

TEST(usualDocument, TakesEveryKindOfContent) {
    for (const char* content : {"",
                                " ",
                                "\n  ",
                                "text",
                                " two  words ",
                                "x ",
                                "0123456789abcdef",
                                "0123456789abcdef0123456789abcdef ",
                                "<b/>",
                                "<b></b>",
                                "x<b/>y",
                                " x <b>y</b> z ",
                                "&#x20;",
                                "&#x09;&#x0A; ",
                                "&#x20;x&#x20;",
                                "a &amp; b",
                                "\x7F",
                                ">",
                                "]]>",
                                "\"'",
                                "\xC3\xA9",
                                "\xC3\xA9 \xE5\x8C\x97<b/>",
                                "\xEF\xBC\x8C<b/>\n<c/>",
                                "\xF0\x9F\x98\x80 <b c='\xE5\x8C\x97' d='1'/><e/>"})
        EXPECT_TRUE(takesInRoot(content)) << content;
}

TEST(usualDocument, TakesEveryKindOfTag) {
    for (const char* rest :
         {"/>", " />", "  />", "></a>", " ></a >", " b=\"1\"/>", " b='1'/>", " b=\"1\" c='2'></a>",
          " b=\"1\"c=\"2\" />", " b=\"\"/>", " b='  one  two '/>", " b='\"'/>", " b=\"'\"/>",
          " b='&quot;&#x41;&#x7F;&#x01;'/>", " b='<c>'/>", " b='\xE5\x8C\x97' c='\xC3\xA9' d='1'/>",
          " _b-c.d:e2='1'/>", " b='a value of more than sixteen bytes &amp; more of it'/>"})
        EXPECT_TRUE(takesInTag(rest)) << rest;
}

TEST(usualDocument, LeavesEverythingElseToTheParser) {
    for (const char* text :
         {"", " ", "<", "<a/>", "<?xml version=\"1.0\" ?><a/>", "<?xml version='1.0' encoding='UTF-8'?><a/>",
          "<?xml version=\"1.0\" encoding=\"utf-8\"?><a/>",
          "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"\"?><a/>",
          "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\" ?><a/>"})
        EXPECT_FALSE(takes(text)) << text;
    for (const char* node : {"<!-- c -->",
                             "<![CDATA[x]]>",
                             "<!x>",
                             "<?x?>",
                             "<?xml?>",
                             "< b/>",
                             "<1/>",
                             "<b",
                             "<b>",
                             "</b>",
                             "<\xC3\xA9/>",
                             "<",
                             "&",
                             "&amp",
                             "&#65;",
                             "&#x5;",
                             "&#x00;",
                             "&#x80;",
                             "&#xe9;",
                             "&#xE9;",
                             "&#x041;",
                             "&nbsp;",
                             "\t",
                             "\r\n",
                             "x\ny",
                             "x\ty",
                             "\x01",
                             "\xEF\xBB\xBF",
                             "\xEF\xBF\xBE",
                             "\xEF\xBF\xBD",
                             "\x80",
                             "\xC1\x81",
                             "\xC3",
                             "\xC3<b/>",
                             "\xE5\x8C",
                             "\xF5\x80\x80\x80",
                             "<b></c>",
                             "<b></b",
                             "<b></bb>"})
        EXPECT_FALSE(takesInRoot(node)) << node;
    for (const char* rest : {"",
                             " ",
                             "/",
                             "/ >",
                             " b",
                             " b>",
                             " b=",
                             " b=1/>",
                             " b= '1'/>",
                             " b ='1'/>",
                             " b='1",
                             " b='1'",
                             " b='1' b='2'/>",
                             " b='\n'/>",
                             " b='\t'/>",
                             " b='\x01'/>",
                             "\tb='1'/>",
                             "\nb='1'/>",
                             " 1='1'/>",
                             " b\xC3\xA9='1'/>",
                             " b='\xC3'/>",
                             " b='&'/>",
                             " b='&lt'/>"})
        EXPECT_FALSE(takesInTag(rest)) << rest;
}

TEST(usualDocument, StopsWhereTheParserStops) {
    for (const std::string rest : {"x", " text", "\x78\x9C\x4B\x4C", "\x78<", "&#", "\x01<b>", "\xC3"})
        EXPECT_TRUE(takes(utf8 + "<a/>\n" + rest)) << rest;
    for (const std::string rest : {"\t", "\r\n", "\xEF\xBB\xBF<", "\xEF", "</a>", "<!-- -->", "<"})
        EXPECT_FALSE(takes(utf8 + "<a/>\n" + rest)) << rest;
}

TEST(usualDocument, KeepsTheLimits) {
    const auto nested = [](int levels, const std::string& inside) {
        return utf8 + limits::repeated(levels, "<a>") + inside + limits::repeated(levels, "</a>");
    };
    EXPECT_TRUE(takes(nested(128, "x")));
    EXPECT_TRUE(takes(nested(127, "<b/><c/>")));
    EXPECT_FALSE(takes(nested(129, "")));
    EXPECT_FALSE(takes(nested(128, "<b/>")));
    EXPECT_TRUE(takes(utf8 + limits::tagWith(128) + "/>"));
    EXPECT_FALSE(takes(utf8 + limits::tagWith(129) + "/>"));
}

TEST(usualDocument, LeavesATextToTheParserWhenBlanksAreNotCondensed) {
    TiXmlBase::SetCondenseWhiteSpace(false);
    const bool taken = takesInRoot("x");
    TiXmlBase::SetCondenseWhiteSpace(true);
    EXPECT_FALSE(taken);
    EXPECT_TRUE(takesInRoot("x"));
}

TEST(usualDocument, TakesNoTextThatIsCutOff) {
    const std::string text =
        utf8 + "\n<a>\n    <b c=\"0123456789abcdef\" d='&lt;\xE5\x8C\x97'>a &amp; \xC3\xA9</b>\n"
               "    <e>0123456789abcdef0123456789abcdef</e>\n</a>";
    EXPECT_TRUE(takes(text));
    for (std::size_t length = utf8.size() + 2; length < text.size(); ++length)
        EXPECT_FALSE(takes(text.substr(0, length))) << length;
}

// Each byte where a text, a value, a name or a tag's end may be, alone and before another.
TEST(usualDocument, AgreesWithTheParserOnEveryByteEverywhere) {
    int taken = 0;
    for (int first = 1; first < 256; ++first)
        for (const char* second : {"", " ", "x", "\x80", "\xBF\xBF", "<", ">", "/", "\"", ";", "="}) {
            const std::string bytes = static_cast<char>(first) + std::string(second);
            for (const std::string& text :
                 {"<a>" + bytes + "</a>", "<a>x" + bytes + "</a>", "<a b=\"" + bytes + "\"/>",
                  "<a" + bytes + "='1'/>", "<a>x</a" + bytes + ">", "<a" + bytes + "/>", "<a/>" + bytes,
                  bytes + "<a/>", "<a>0123456789abcdef" + bytes + "</a>"})
                taken += takes(utf8 + text);
        }
    EXPECT_GT(taken, 5000);
}

template <class Check>
void forEachSequence(const std::vector<std::string>& pieces, int length, const Check& check,
                     const std::string& start = {}) {
    if (length == 0) return check(start);
    for (const std::string& piece : pieces) forEachSequence(pieces, length - 1, check, start + piece);
}

TEST(usualDocument, AgreesWithTheParserOnAllSequences) {
    int taken = 0;
    const auto check = [&taken](const std::string& text) { taken += takes(utf8 + text); };
    auto content =
        limits::words("<b> </b> <b/> </a> x ~ &amp; &#x20; &#x41; \xC3\xA9 \xE5\x8C\x97 <b~c='1'> >");
    content.push_back("\n");
    forEachSequence(content, 4, [&](const std::string& middle) { check("<a>" + middle + "</a>"); });
    const auto tag = limits::words("~ b=\"1\" ~c='2' ' \" = b / > /> </a> <c/> &lt; \xC3\xA9");
    forEachSequence(tag, 4, [&](const std::string& middle) { check("<a" + middle); });
    EXPECT_GT(taken, 2000);
}

TEST(usualDocument, AgreesWithTheParserOnRandomDocuments) {
    limits::RandomDocuments random(7);
    int taken = 0;
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        std::string text = utf8 + "\n";
        text += random.element(4);
        taken += takes(random.below(2) ? random.damaged(text) : text);
    }
    EXPECT_GT(taken, 300);
}

} // namespace
