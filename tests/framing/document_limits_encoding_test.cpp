// When the parser takes a text for UTF-8, and what it then counts as a blank.
#include "framing/parser_limits.h"

#include <gtest/gtest.h>

namespace {

using namespace limits;

const std::string mark = "\xEF\xBB\xBF";
const std::string utf8 = R"(<?xml version="1.0" encoding="UTF-8" ?>)";

void expectBoth(const std::string& text, const std::string& want) {
    SCOPED_TRACE(testing::PrintToString(text));
    EXPECT_EQ(scanSays(text), want);
    EXPECT_EQ(parserSays(text), want);
}

// In UTF-8 the lead byte hides the 129th level.
void expectUtf8(const std::string& prologue) { expectBoth(prologue + levels(128) + "\xC3<b>", within); }
void expectNotUtf8(const std::string& prologue) { expectBoth(prologue + levels(128) + "\xC3<b>", tooDeep); }

TEST(exceededLimit, TakesAByteOrderMarkAtTheStartForUtf8) {
    expectNotUtf8("");
    expectUtf8(mark);
    expectUtf8(mark + " " + mark);
    expectUtf8(mark + "<?xml encoding='ISO-8859-1'?>");
}

TEST(exceededLimit, TakesADeclarationWithoutAnEncodingForUtf8) {
    for (const char* prologue : {
             "<?xml?>",
             "<?xml>",
             "<?xml version=\"1.0\"?>",
             "<?xml encoding=\"\"?>",
             "<?xml encoding='ISO-8859-1' encoding=''?>",
             "<?xml xencoding='ISO-8859-1'?>",
             "<?xml encoding='&#0;ISO-8859-1'?>",
         })
        expectUtf8(prologue);
}

TEST(exceededLimit, TakesADeclarationThatNamesUtf8ForUtf8) {
    for (const char* prologue : {
             "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>",
             "<?xml encoding='UTF-8'?>",
             "<?xml encoding='utf-8'?>",
             "<?xml encoding='UTF8'?>",
             "<?xml encoding='Utf8'?>",
             "<?xml encoding='UTF-8859-1'?>",
             "<?xml encoding=UTF-8?>",
             "<?xml encoding=utf8 ?>",
             "<?XML Encoding = \n\"UTF-8\"?>",
             "<?xmlencoding='UTF-8'?>",
             "<?xml encoding-is='UTF-8'?>",
             "<?xml encoding=\"&#85;TF-8\"?>",
             "<?xml encoding='U&#x54;F8'?>",
             "<?xml encoding='&#<b>#85;TF-8'?>",
             "<?xml encoding='ISO-8859-1' encoding='UTF-8'?>",
             "<?xml encoding='UTF-8' version='\xC3'?>",
         })
        expectUtf8(prologue);
}

TEST(exceededLimit, DoesNotTakeAnyOtherEncodingForUtf8) {
    for (const char* prologue : {
             "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>",
             "<?xml version=\"1.0\" encoding=\"UTF_8\" ?>",
             "<?xml version=\"1.1\" encoding=\"UTF-7\" ?>",
             "<?xml encoding=' UTF-8'?>",
             "<?xml encoding='UT'?>",
             "<?xml encoding='UTF-16'?>",
             "<?xml encoding=?>",
             "<?XML ENCODINGS='latin1'?>",
             "<?xmlencoding='latin1'?>",
             "<?xmlx encoding-is='latin1'?>",
             "<?xml encoding='&#<b>#86;TF-8'?>",
             "<?xml encoding='UTF-8' encoding='ISO-8859-1'?>",
             "<?xml encoding='\xC3'?>",
         })
        expectNotUtf8(prologue);
}

TEST(exceededLimit, LetsTheFirstDeclarationAtTheTopDecide) {
    expectUtf8("<!-- x --><a/><?xml?>");
    expectUtf8("<?xml?><?xml encoding='ISO-8859-1'?>");
    expectNotUtf8("<?xml encoding='ISO-8859-1'?><?xml?>");
    expectNotUtf8("<a><?xml?></a>");
    expectNotUtf8("<!-- <?xml?> -->");
}

TEST(exceededLimit, ReadsTheDeclarationItselfByteByByte) {
    expectUtf8("<?xml version='\xC3' standalone='\xF0'?>");
    expectUtf8("<?xml\xC3?>");
}

TEST(exceededLimit, CountsMarksAndNonCharactersAsBlanksInUtf8) {
    for (const char* blank : {"\xEF\xBB\xBF", "\xEF\xBF\xBE", "\xEF\xBF\xBF", "\xEF\xBF\xBE\xEF\xBB\xBF "}) {
        SCOPED_TRACE(testing::PrintToString(blank));
        const std::string tag = levels(127) + "<b " + blank + "/><b " + blank + ">";
        expectBoth(utf8 + tag + "<c>", tooDeep);
        expectBoth(mark + tag + "<c>", tooDeep);
        expectBoth(tag + "<c>", within); // a name without "=" there
        expectBoth("<?xml encoding='ISO-8859-1'?>" + tag + "<c>", within);

        expectBoth(utf8 + blank + levels(129), tooDeep);
        expectBoth(std::string("<!-- -->") + blank + levels(129), within);
        expectBoth(utf8 + levels(127) + "<b></b" + blank + "><b><c>", tooDeep);
        expectBoth(levels(127) + "<b></b" + blank + "><b><c>", within);
        expectBoth(utf8 + levels(127) + "<b c" + blank + "><c>", within);
        expectBoth(utf8 + tagWith(127) + blank + "y=''" + blank + "z" + " " + blank + "=" + blank + "''>",
                   tooMany);
    }
}

TEST(exceededLimit, CountsNoOtherCharacterAsABlank) {
    for (const char* other :
         {"\xEF\xBF\xBD", "\xEF\xBB\xBE", "\xEF\xBB", "\xC2\xA0", "\xE2\x80\x83", "\x01", "\x1F"}) {
        SCOPED_TRACE(testing::PrintToString(other));
        expectBoth(utf8 + levels(127) + "<b " + other + "/><b><c>", within);
        expectBoth(utf8 + other + levels(129), within);
    }
    for (const char* blank : {" ", "\t", "\n", "\v", "\f", "\r"}) {
        expectBoth(levels(127) + "<b" + blank + "/><b><c>", tooDeep);
        expectBoth(blank + levels(129), tooDeep);
    }
}

TEST(exceededLimit, TakesAMarkForPartOfANameOrAValueWhereNoBlankIsLookedFor) {
    expectBoth(utf8 + levels(127) + "<b" + mark + "></b><c><d>", within); // the name goes on through the mark
    expectBoth(utf8 + levels(127) + "<b" + mark + "></b" + mark + "><c><d>", tooDeep);
    expectBoth(utf8 + tagWith(127) + " y=1" + mark + "z=2>", within);
    expectBoth(utf8 + tagWith(127) + " y='1'" + mark + "z=2>", tooMany);
    expectBoth(utf8 + levels(128) + "<" + mark + " b>", tooDeep);
}

} // namespace
