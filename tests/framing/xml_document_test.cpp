// From text to document and back to nothing.
#include "framing/parser_limits.h"
#include "framing/random_documents.h"
#include "support/read_back.h"

#include <map>

namespace {

using namespace veltoprotocol;

const std::string utf8 = R"(<?xml version="1.0" encoding="UTF-8" ?>)";

std::string refusal(const std::string& reason) {
    return "receive xml file format error TiXmlDocument can not Parse,ErrorMsg:" + reason + "\n";
}

struct Outcome {
    Document doc;
    std::string printed;
};

// Of a text whose NUL is the last byte before a page that nobody may touch.
Outcome outcomeOf(const std::string& text) {
    const GuardedPage page({text.c_str(), text.size() + 1});
    Captured captured;
    Document doc(Decode(page.data()));
    return {std::move(doc), captured.text()};
}

void expectAccepted(const std::string& text) {
    const Outcome got = outcomeOf(text);
    EXPECT_TRUE(got.doc) << testing::PrintToString(text);
    EXPECT_EQ(got.printed, "") << testing::PrintToString(text);
}

void expectRefused(const std::string& text, const std::string& reason) {
    const Outcome got = outcomeOf(text);
    EXPECT_FALSE(got.doc) << testing::PrintToString(text);
    EXPECT_EQ(got.printed, refusal(reason)) << testing::PrintToString(text);
}

std::string textIn(const std::string& xml) { return GetString(parsed(xml)->RootElement()); }
std::string attributeIn(const std::string& xml) { return parsed(xml)->RootElement()->Attribute("b"); }

std::string rendered(const TiXmlDocument& doc) {
    TiXmlPrinter printer;
    doc.Accept(&printer);
    return printer.Str();
}

TEST(Decode, ReturnsNullForANullTextAndPrintsNothing) {
    Captured captured;
    TiXmlDocument* const doc = Decode(nullptr);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(doc, nullptr);
}

TEST(Decode, GivesADocumentThatNeedsTheTextNoMore) {
    char text[] = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
                  "<servercommandservice>\n"
                  "    <seqnum>-1</seqnum>\n"
                  "    <request name=\"Login\" />\n"
                  "</servercommandservice>\n";
    const std::string before = text;
    const Document doc(Decode(text));
    EXPECT_EQ(text, before);
    std::memset(text, '#', sizeof text);

    ASSERT_TRUE(doc);
    EXPECT_EQ(rendered(*doc), before);
    ASSERT_TRUE(doc->RootElement());
    EXPECT_EQ(doc->RootElement()->ValueStr(), "servercommandservice");
    EXPECT_EQ(GetString(doc->RootElement()->FirstChildElement("seqnum")), "-1");
}

TEST(Decode, PrintsWhatTheParserFindsWrongAndReturnsNull) {
    expectRefused("", "Error document empty.");
    expectRefused(" \r\n\t", "Error document empty.");
    expectRefused("servercommandservice", "Error document empty.");
    expectRefused("\xEF\xBB\xBF", "Error document empty.");
    expectRefused("<a", "Failed to read Element name");
    expectRefused("<a ", "Error reading Attributes.");
    expectRefused("<a b>", "Error reading Attributes.");
    expectRefused("<a b=c\">", "Error reading Attributes.");
    expectRefused("<a b='1>", "Error parsing Element.");
    expectRefused("<a b='1' b='2'/>", "Error parsing Element.");
    expectRefused("<a/b>", "Error: empty tag.");
    expectRefused("<a>", "Error reading Element value.");
    expectRefused("<a>text", "Error reading Element value.");
    expectRefused("<a>&#65</a>", "Error reading Element value.");
    expectRefused("<a><!-- </a>", "Error reading Element value.");
    expectRefused("<a><![CDATA[</a>", "Error reading Element value.");
    expectRefused("<a> ", "Error reading end tag.");
    expectRefused("<a></b>", "Error reading end tag.");
    expectRefused("<a><b></a></b>", "Error reading end tag.");
    expectRefused("<a></a", "Error reading end tag.");
}

TEST(Decode, LooksAtEveryTopLevelNode) {
    expectAccepted("<a/><b/><!-- c --><d></d>");
    expectRefused("<a/><b>", "Error reading Element value.");
    expectRefused("<a/>\n <b", "Failed to read Element name");
}

TEST(Decode, NeverLooksAtWhatFollowsThem) {
    for (const std::string rest :
         {"x", " text", "\x78\x9C\x4B\x4C", "\x78<", "\xEF\xBB\xBF<", "&#", "\x01<b>"}) {
        expectAccepted("<a></a>" + rest);
        expectAccepted("<a></a>\n" + rest + limits::levels(200));
        expectAccepted("<a></a>" + rest + limits::tagWith(200));
    }
    const Document doc = parsed("<a>1</a>\x78\x9C<b>2</b>");
    EXPECT_EQ(rendered(*doc), "<a>1</a>\n");
}

TEST(Decode, AcceptsWhatTheParserAccepts) {
    expectAccepted("<a/>");
    expectAccepted("<_/>");
    expectAccepted("<!-- no root -->");
    expectAccepted("<!-- never closed");
    expectAccepted("<!DOCTYPE never closed");
    expectAccepted("<?xml version='1.0'");
    expectAccepted("<?xml version='never closed?>");
    expectAccepted("</a>");
    expectAccepted("<>");
    expectAccepted("<a b=c d='e'f=\"g\" h = i/>");
    expectAccepted("<a></a \n>");
    expectAccepted("<a>&nothing; & &#; ]]> ></a>");
    expectAccepted("<a><?xml?><!x><9></a>");
    expectAccepted("<a b='<c>'/>");
}

TEST(Decode, RefusesElementsNestedDeeperThan128Levels) {
    const auto nested = [](int levels) {
        return limits::repeated(levels, "<a>") + "x" + limits::repeated(levels, "</a>");
    };
    expectAccepted(nested(128));
    expectRefused(nested(129), "Elements nested too deeply");
    expectRefused(nested(200000), "Elements nested too deeply");
    expectRefused(limits::repeated(129, "<a>"), "Elements nested too deeply");
    expectAccepted(utf8 + "<!-- x -->" + nested(128) + nested(128));
    expectRefused(utf8 + nested(128) + nested(129), "Elements nested too deeply");
}

TEST(Decode, CountsASelfClosingElementAsALevel) {
    const auto nested = [](int levels) {
        return limits::repeated(levels, "<a>") + "<b/>" + limits::repeated(levels, "</a>");
    };
    expectAccepted(nested(127));
    expectRefused(nested(128), "Elements nested too deeply");
}

TEST(Decode, RefusesAnElementWithMoreThan128Attributes) {
    expectAccepted(limits::tagWith(128) + "/>");
    expectRefused(limits::tagWith(129) + "/>", "Too many attributes");
    expectRefused(limits::tagWith(100000) + "/>", "Too many attributes");
    expectAccepted("<b>" + limits::tagWith(128) + "/>" + limits::tagWith(128) + "></a></b>");
    expectRefused("<b>" + limits::tagWith(129) + "></a></b>", "Too many attributes");
}

TEST(Decode, GivesTheReasonThatComesFirst) {
    expectRefused("<a></b>" + limits::levels(200), "Error reading end tag.");
    expectRefused(limits::tagWith(200) + ">" + limits::levels(200), "Too many attributes");
    expectRefused(limits::levels(200) + limits::tagWith(200) + ">", "Elements nested too deeply");
    expectRefused(limits::levels(128) + "</b>", "Error reading end tag.");
}

TEST(Decode, GivesDocumentsThatCanBeRenderedAndReleased) {
    const Document doc = parsed(limits::repeated(128, "<a>") + limits::repeated(128, "</a>"));
    std::string want;
    for (int level = 0; level < 127; ++level)
        want += std::string(static_cast<std::size_t>(4 * level), ' ') + "<a>\n";
    want += std::string(4 * 127, ' ') + "<a />\n";
    for (int level = 126; level >= 0; --level)
        want += std::string(static_cast<std::size_t>(4 * level), ' ') + "</a>\n";
    EXPECT_EQ(GetXmlEncode(doc.get()), want);
}

// The parser trusts a lead byte, so it goes on behind the NUL of a character that is cut off.
TEST(Decode, ReadsNothingBehindACharacterThatIsCutOffAtTheEnd) {
    const struct {
        const char* where;
        std::string before;
        const char* reason; // null if accepted
    } places[] = {
        {"text", utf8 + "<a>", "Error reading Element value."},
        {"text behind text", utf8 + "<a>x", "Error reading Element value."},
        {"quoted value", utf8 + "<a b='", "Error parsing Element."},
        {"value without quotes", utf8 + "<a b=", "Error parsing Element."},
        {"element name", utf8 + "<", "Failed to read Element name"},
        {"attribute name", utf8 + "<a b", "Error reading Attributes."},
        {"end tag", utf8 + "<a></a", "Error reading end tag."},
        {"CDATA section", utf8 + "<a><![CDATA[", "Error reading Element value."},
        {"comment", utf8 + "<!--", nullptr},
        {"unknown node", utf8 + "<!", nullptr},
        {"behind the root", utf8 + "<a/>", nullptr},
        {"declaration", "<?xml ", nullptr},
        {"text after a mark", "\xEF\xBB\xBF<a>", "Error reading Element value."},
        {"text in another encoding", "<a>", "Error reading Element value."},
    };
    for (const auto& place : places)
        for (const char* cut : {"\xC3", "\xDF", "\xE2", "\xE2\x82", "\xEF", "\xEF\xBB", "\xEF\xBF", "\xF0",
                                "\xF0\x9F", "\xF0\x9F\x98", "\xF4", "\xFF"}) {
            SCOPED_TRACE(place.where);
            if (place.reason)
                expectRefused(place.before + cut, place.reason);
            else
                expectAccepted(place.before + cut);
        }
}

TEST(Decode, TakesAWholeCharacterBeforeTheEnd) {
    EXPECT_EQ(textIn(utf8 + "<a>\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80</a>"),
              "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
}

// What a writer cut off in the middle of a character can do to the message.
TEST(Decode, LetsALeadByteTakeWhatFollowsIt) {
    expectRefused(utf8 + "<a><b>\xC3</b></a>", "Error reading end tag.");
    expectRefused(utf8 + "<a b='\xF0'/>", "Error parsing Element.");
    EXPECT_EQ(textIn("<a>\xC3</a>"), "\xC3");
}

TEST(Decode, CollapsesRunsOfBlanksInElementText) {
    EXPECT_EQ(textIn("<a>  one\n\t two  \r\n three  </a>"), "one two three");
    EXPECT_EQ(textIn("<a>\n    </a>"), "");
    EXPECT_EQ(textIn("<a><![CDATA[ one\n  two ]]></a>"), " one\n  two ");
    EXPECT_EQ(textIn("<a>&#32;&#32;one&#10;&#10;two&#32;</a>"), "  one\n\ntwo ");
}

TEST(Decode, KeepsRunsOfBlanksInAttributes) {
    EXPECT_EQ(attributeIn("<a b='  one\n\t two  '/>"), "  one\n\t two  ");
    EXPECT_EQ(attributeIn("<a b=\"\"/>"), "");
}

TEST(Decode, TranslatesReferences) {
    EXPECT_EQ(textIn("<a>&amp;&lt;&gt;&quot;&apos;</a>"), "&<>\"'");
    EXPECT_EQ(attributeIn("<a b='&amp;&lt;&gt;&quot;&apos;'/>"), "&<>\"'");
    EXPECT_EQ(textIn("<a>&#65;&#x42;&#x6a;</a>"), "ABj");
    EXPECT_EQ(textIn("<a>&amp;amp; &amp;#65;</a>"), "&amp; &#65;");
}

TEST(Decode, FindsOutTheEncoding) {
    EXPECT_EQ(textIn(utf8 + "<a>&#xE9;&#8364;&#x1F600;</a>"), "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(textIn("\xEF\xBB\xBF<a>&#xE9;</a>"), "\xC3\xA9");
    EXPECT_EQ(textIn("<?xml encoding='ISO-8859-1'?><a>&#xE9;</a>"), "\xE9");
    EXPECT_EQ(textIn("<a>&#xE9;</a>"), "\xE9");
}

// The limits apart: the same tree, or the same reason.
TEST(Decode, DoesNotDifferFromTheParserWithinTheLimits) {
    limits::RandomDocuments random(5);
    std::map<std::string, int> answers;
    for (int i = 0; i < 5000 && !HasFailure(); ++i) {
        std::string text = random.prologue();
        text += random.element(4);
        if (random.below(2)) text = random.damaged(text);
        TiXmlDocument plain;
        plain.Parse(limits::flush(text));
        const Outcome got = outcomeOf(text);
        EXPECT_EQ(got.printed, plain.Error() ? refusal(plain.ErrorDesc()) : "")
            << testing::PrintToString(text);
        ASSERT_EQ(got.doc == nullptr, plain.Error()) << testing::PrintToString(text);
        EXPECT_EQ(got.doc ? rendered(*got.doc) : "", plain.Error() ? "" : rendered(plain))
            << testing::PrintToString(text);
        ++answers[plain.ErrorDesc()];
    }
    EXPECT_GT(answers[""], 500);
    EXPECT_GT(answers.size(), 7U);
}

TEST(ReleaseTiXmlDocument, IgnoresNull) {
    Captured captured;
    ReleaseTiXmlDocument(nullptr);
    EXPECT_EQ(captured.text(), "");
}

// Whether all of it is freed is for the leak checker to say.
TEST(ReleaseTiXmlDocument, DeletesWhatDecodeReturned) {
    TiXmlDocument* const doc = Decode("<a b='c'>d<e/><!-- f --></a>");
    ASSERT_NE(doc, nullptr);
    ReleaseTiXmlDocument(doc);
}

} // namespace
