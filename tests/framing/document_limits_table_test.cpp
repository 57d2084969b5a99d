// Texts that rules of XML would judge otherwise than the parser does, each with its verdict.
#include "framing/parser_limits.h"

#include <gtest/gtest.h>

namespace {

using namespace limits;

struct Row {
    const char* what;
    std::string text;
    std::string want;
};

template <std::size_t N>
void expectEach(const Row (&rows)[N]) {
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.what << ": " << testing::PrintToString(row.text));
        EXPECT_EQ(scanSays(row.text), row.want);
        EXPECT_EQ(parserSays(row.text), row.want);
    }
}

const std::string declared = R"(<?xml version="1.0" encoding="UTF-8" ?>)";
const std::string mark = "\xEF\xBB\xBF";

// 128 open elements, then a piece whose "<b>" is the 129th level unless something hides it.
std::string deep(const std::string& piece) { return levels(128) + piece; }
std::string utf8(const std::string& piece) { return declared + levels(128) + piece; }
std::string closed(int count) { return repeated(count, "</a>"); }

TEST(exceededLimit, CountsTheRootAndASelfClosingElementAsLevels) {
    const Row rows[] = {
        {"no text", "", within},
        {"128 levels", levels(128) + closed(128), within},
        {"129 levels", levels(129) + closed(129), tooDeep},
        {"a self-closing element as the 128th", levels(127) + "<a/><a />" + closed(127), within},
        {"a self-closing element as the 129th", deep("<a/>") + closed(128), tooDeep},
        {"many siblings", levels(127) + repeated(1000, "<a/><b></b>") + closed(127), within},
        {"many roots", repeated(1000, "<a/><b></b>"), within},
        {"the second root", levels(128) + closed(128) + levels(129), tooDeep},
        {"up and down", levels(128) + closed(64) + levels(64) + closed(1) + "<a>", within},
        {"up and down one too far", levels(128) + closed(64) + levels(65), tooDeep},
    };
    expectEach(rows);
}

TEST(exceededLimit, CountsAnElementThatTurnsOutMalformed) {
    const Row rows[] = {
        {"a name cut off", deep("<b"), tooDeep},
        {"no name behind a byte-order mark", utf8("<" + mark + "/>"), tooDeep},
        {"an attribute without a value", deep("<b c>"), tooDeep},
        {"a wrong end", deep("<b></c>"), tooDeep},
        {"an underscore", deep("<_>"), tooDeep},
        {"byte 127", deep("<\x7F>"), tooDeep},
        {"a byte that is no character", deep("<\xFF>"), tooDeep},
    };
    expectEach(rows);
}

TEST(exceededLimit, StopsWhereTheParserGivesUp) {
    const Row rows[] = {
        {"an end of another name", "<a></b>" + levels(129), within},
        {"an end that only begins with the name", "<a></ab>" + levels(129), within},
        {"an end with a blank before its name", "<a></ a>" + levels(129), within},
        {"an end with more than its name", "<a></a b>" + levels(129), within},
        {"a slash that does not close", "<a / >" + levels(129), within},
        {"a missing equals sign", "<a b>" + levels(129), within},
        {"a value with a late quote", "<a b=c'>" + levels(129), within},
        {"a repeated attribute", "<a b='1' b='2'>" + levels(129), within},
        {"an attribute without a name", "<a '>" + levels(129), within},
        {"a value that does not end", "<a b='>" + levels(129), within},
        {"a declared version that does not end", "<?xml version='1?>" + levels(129), within},
        {"a declared version without a value", "<?xml version?>" + levels(129), within},
        {"a declared encoding without a value", "<?xml encoding?>" + levels(129), within},
        {"a declared standalone without a value", "<?xml standalone?>" + levels(129), within},
        {"a comment that does not end", "<!--" + levels(129), within},
        {"a CDATA section that does not end", "<a><![CDATA[" + levels(129), within},
    };
    expectEach(rows);
}

TEST(exceededLimit, GoesOnWhereTheParserIsContent) {
    const Row rows[] = {
        {"an end with blanks behind its name", "<a></a \r\n>" + levels(129), tooDeep},
        {"a value without quotes", "<a b=c>" + levels(128), tooDeep},
        {"an empty value without quotes", "<a b= >" + levels(128), tooDeep},
        {"attributes without a blank between them", "<a b='1'c=\"2\"d=3>" + levels(128), tooDeep},
        {"blanks around the equals sign", "<a b \n = '1'>" + levels(128), tooDeep},
        {"attributes that differ in case", "<a b='1' B='2'>" + levels(128), tooDeep},
        {"two hyphens in a comment", deep("<!-- -- --><b>"), tooDeep},
        {"an ampersand", deep("& && &amp &lt &nothing;<b>"), tooDeep},
        {"nodes it does not know", deep("<!DOCTYPE a><!><><9><? ?><-b><b>"), tooDeep},
        {"a lone end at the top", "</a>" + levels(129), tooDeep},
        {"a document type with a subset", "<!DOCTYPE a [>" + levels(129), tooDeep},
        {"a declaration inside an element", deep("<?xml?><b>"), tooDeep},
    };
    expectEach(rows);
}

TEST(exceededLimit, LooksAtTopLevelNodesOnlyWhileTheNextBeginsWithAnAngle) {
    const Row rows[] = {
        {"text first", "x" + levels(129), within},
        {"text behind the root", "<a/>x" + levels(129), within},
        {"a compressed block behind the root", "<a></a>\x78\x9C\x4B<" + levels(129), within},
        {"a byte-order mark behind a blank", " " + mark + levels(129), within},
        {"a byte-order mark behind the root", "<a/>" + mark + levels(129), within},
        {"the same in UTF-8", declared + "<a/>" + mark + levels(129), tooDeep},
        {"blanks first", " \r\n\t\v\f" + levels(129), tooDeep},
        {"blanks behind the root", "<a/> \n" + levels(129), tooDeep},
        {"a comment behind the root", "<a/><!-- -->" + levels(129), tooDeep},
        {"nothing behind the root", "<a/>", within},
        {"a CDATA section first", "<![CDATA[ ]]>" + levels(129), tooDeep},
    };
    expectEach(rows);
}

TEST(exceededLimit, KnowsWhatHidesATag) {
    const Row rows[] = {
        {"a comment", deep("<!-- <b> -->"), within},
        {"a comment that has its end in its beginning", deep("<!--><b>-->"), within},
        {"the same with one hyphen more", deep("<!---><b>-->"), within},
        {"the shortest comment", deep("<!----><b>"), tooDeep},
        {"a CDATA section", deep("<![CDATA[<b>]]>"), within},
        {"a CDATA section with a bracket more", deep("<![CDATA[]]]><b>"), tooDeep},
        {"a CDATA section in small letters", deep("<![cdata[<b>"), within},
        {"the same with a second tag", deep("<![cdata[<b>]]><b>"), tooDeep},
        {"a lead byte in a CDATA section", utf8("<![CDATA[\xF0]]><b>"), tooDeep},
        {"a lead byte in a comment", utf8("<!--\xF0--><b>"), tooDeep},
        {"a lead byte in an unknown node", utf8("<!\xF0><b>"), tooDeep},
        {"an unknown node", deep("<!DOCTYPE <b>"), within},
        {"an instruction", deep("<?php <b>"), within},
        {"a declared version", deep("<?xml version='<b>'?>"), within},
        {"a declared standalone", deep("<?xml standalone='> <b>'?>"), within},
        {"a name that begins with encoding", deep("<?XML ENCODINGS='<b>'?>"), within},
        {"something else in a declaration", deep("<?xml other='<b>'?>"), within},
        {"the same with a second tag", deep("<?xml other='<b>'?><b>"), tooDeep},
        {"a value in double quotes", levels(127) + "<c d=\"'<b><b>'\">", within},
        {"a value in single quotes", levels(127) + "<c d='\"<b><b>\"'>", within},
        {"a value without quotes", levels(127) + "<c d=<b><b>", tooDeep},
    };
    expectEach(rows);
}

TEST(exceededLimit, LetsALeadByteSwallowWhatFollowsInUtf8) {
    const Row rows[] = {
        {"two bytes", utf8("\xC3<b>"), within},
        {"two bytes, the first lead byte", utf8("\xC2<b>"), within},
        {"two bytes, the last lead byte", utf8("\xDF<b>"), within},
        {"three bytes", utf8("\xE0<b>"), within},
        {"three bytes that reach the next tag", utf8("\xEF><b>"), within},
        {"three bytes that do not", utf8("\xEF>><b>"), tooDeep},
        {"four bytes", utf8("\xF0<b<b>"), within},
        {"four bytes that reach the next tag", utf8("\xF4>><b>"), within},
        {"four bytes that do not", utf8("\xF4>>><b>"), tooDeep},
        {"a byte just below the lead bytes", utf8("\xC1<b>"), tooDeep},
        {"a byte just above them", utf8("\xF5<b>"), tooDeep},
        {"a byte that only continues", utf8("\x80<b>"), tooDeep},
        {"the next tag is one again", utf8("\xC3<b><b>"), tooDeep},
        {"without UTF-8", deep("\xC3<b>"), tooDeep},
        {"a quote", declared + levels(127) + "<c d='\xC3'><b>", within},
        {"a quote without UTF-8", levels(127) + "<c d='\xC3'><b>", tooDeep},
        {"not in a value without quotes", declared + levels(127) + "<c d=\xF0><b>", tooDeep},
        {"not in a name", declared + levels(127) + "<\xF0><b>", tooDeep},
        {"an ampersand", utf8("\xC3&#<b>"), tooDeep},
        {"an ampersand without UTF-8", deep("\xC3&#<b>"), within},
        {"the text's end", utf8("\xF0"), within},
        {"the text's end in a value", declared + levels(127) + "<c d='\xF0\x9F", within},
    };
    expectEach(rows);
}

TEST(exceededLimit, ReadsAReferenceBackwardsFromTheNextSemicolon) {
    const Row rows[] = {
        {"decimal", deep("&#65;<b>"), tooDeep},
        {"hexadecimal", deep("&#x4aF;<b>"), tooDeep},
        {"without digits", deep("&#;&#x;<b>"), tooDeep},
        {"too large for any number", deep("&#99999999999999999999999;<b>"), tooDeep},
        {"no semicolon", deep("&#65<b>"), within},
        {"no semicolon, hexadecimal", deep("&#x41<b>"), within},
        {"a semicolon behind the tag", deep("&#65<b>;<b>"), within},
        {"digits behind the tag that belong to nothing", deep("&#65<b>65;<b>"), within},
        {"a second # behind the tag", deep("&#<b>#65;"), within},
        {"and a tag behind that", deep("&#<b>#65;<b>"), tooDeep},
        {"a second x behind the tag", deep("&#x<b>x41;"), within},
        {"and a tag behind it", deep("&#x<b>x41;<b>"), tooDeep},
        {"an x is no end of a decimal one", deep("&#<b>x41;<b>"), within},
        {"a # is no end of a hexadecimal one", deep("&#x<b>#41;<b>"), within},
        {"hexadecimal digits in a decimal one", deep("&#6a;<b>"), within},
        {"no digits at all", deep("&#x6g;<b>"), within},
        {"a capital X", deep("&#X41;<b>"), within},
        {"a capital X and a small one behind the tag", deep("&#X<b>x41;<b>"), within},
        {"one that swallows a quote", levels(127) + "<c d='&#'#39;'><b>", tooDeep},
        {"one that swallows the quote and the tag", levels(127) + "<c d='&#'><b>#39;'>", within},
        {"at the text's end", deep("&#"), within},
        {"hexadecimal at the text's end", deep("&#x"), within},
        {"not in a comment", deep("<!--&#--><b>"), tooDeep},
        {"not in a CDATA section", deep("<![CDATA[&#]]><b>"), tooDeep},
        {"not in a value without quotes", levels(127) + "<c d=&#><b>", tooDeep},
    };
    expectEach(rows);
}

TEST(exceededLimit, CountsTheAttributesOfEachElement) {
    const Row rows[] = {
        {"128", tagWith(128) + ">", within},
        {"129", tagWith(129) + ">", tooMany},
        {"128 and a self-closing end", tagWith(128) + "/>", within},
        {"129 and a self-closing end", tagWith(129) + " />", tooMany},
        {"128 in each of many", repeated(50, tagWith(128) + ">"), within},
        {"128 before, 129 behind", tagWith(128) + "/>" + tagWith(129) + "/>", tooMany},
        {"129 in the depth", levels(127) + tagWith(129) + ">", tooMany},
        {"names that differ in case", tagWith(128) + " K0=''>", tooMany},
        {"names of all kinds", tagWith(124) + " _='' a:b.c-9='' \xC3\xA9='' \xFF='' \x7F=''>", tooMany},
        {"without blanks between them", tagWith(127) + "y='1'z=\"2\">", tooMany},
        {"an empty value without quotes", tagWith(128) + " z=>", tooMany},
        {"the same before a self-closing end", tagWith(128) + " z=/>", tooMany},
        {"a tag that does not end", tagWith(129) + " ", tooMany},
        {"a declaration's are not kept", "<?xml" + repeated(300, " version='1'") + "?><a/>", within},
        {"an unknown node has none", "<!" + repeated(300, " a='1'") + "><a/>", within},
    };
    expectEach(rows);
}

TEST(exceededLimit, CountsAnAttributeOnceTheParserAddsIt) {
    const Row rows[] = {
        {"a repeated name", tagWith(128) + " k127='' z=''>", within},
        {"a repeated name in the middle", tagWith(128) + " k5='' z=''>", within},
        {"a name that is the beginning of another", tagWith(128) + " k='' z=''>", tooMany},
        {"a name cut off", tagWith(128) + " z", within},
        {"no equals sign", tagWith(128) + " z y='1'>", within},
        {"no value", tagWith(128) + " z=", within},
        {"a value that does not end", tagWith(128) + " z='>", within},
        {"a value that ends with the text", tagWith(128) + " z='1'", within},
        {"the same without quotes", tagWith(128) + " z=1", within},
        {"and something behind it", tagWith(128) + " z=1>", tooMany},
        {"a late quote", tagWith(128) + " z=1'>", within},
        {"a value that holds a reference without end", tagWith(128) + " z='&#1'>", within},
    };
    expectEach(rows);
}

TEST(exceededLimit, NamesTheLimitThatIsExceededFirst) {
    const Row rows[] = {
        {"wide, then deep", tagWith(129) + ">" + levels(200), tooMany},
        {"deep, then wide", levels(129) + tagWith(129) + ">", tooDeep},
        {"both at once", levels(128) + tagWith(129) + ">", tooDeep},
        {"a deep root, then a wide one", levels(129) + closed(129) + tagWith(129) + ">", tooDeep},
        {"a wide root, then a deep one", tagWith(129) + "/>" + levels(129), tooMany},
    };
    expectEach(rows);
}

// The parser takes stack for each level, and time by the square of the attributes.
TEST(exceededLimit, EndsAtTheLimitHoweverLongTheText) {
    EXPECT_EQ(scanSays(repeated(300000, "<a>")), tooDeep);
    EXPECT_EQ(scanSays(tagWith(50000) + ">"), tooMany);
}

} // namespace
