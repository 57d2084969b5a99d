// The building blocks of a message, its rendering, and number text.
#include "support/captured.h"
#include "support/decimal_comma.h"
#include "support/read_back.h"

#include <climits>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <tinyxml.h>

namespace {

using namespace veltoprotocol;

// What XmlHeaderEncode's document and one element make, rendered without the declaration's line.
class Root {
  public:
    Root() { doc_->LinkEndChild(element_); }
    TiXmlElement* element() { return element_; }
    std::string text() {
        const std::string text = GetXmlEncode(doc_.get());
        const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n";
        EXPECT_EQ(text.compare(0, declaration.size(), declaration), 0);
        return text.substr(declaration.size());
    }

  private:
    Document doc_{XmlHeaderEncode()};
    TiXmlElement* element_ = new TiXmlElement("root");
};

TEST(XmlHeaderEncode, HoldsOnlyTheDeclaration) {
    const Document doc(XmlHeaderEncode());
    ASSERT_TRUE(doc);
    ASSERT_TRUE(doc->FirstChild());
    EXPECT_EQ(doc->FirstChild(), doc->LastChild());
    const TiXmlDeclaration* const declaration = doc->FirstChild()->ToDeclaration();
    ASSERT_TRUE(declaration);
    EXPECT_STREQ(declaration->Version(), "1.0");
    EXPECT_STREQ(declaration->Encoding(), "UTF-8");
    EXPECT_STREQ(declaration->Standalone(), "");
    EXPECT_EQ(GetXmlEncode(doc.get()), "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n");
}

TEST(XmlHeaderEncode, MakesADocumentOfTheCallersEachTime) {
    const Document one(XmlHeaderEncode()), other(XmlHeaderEncode());
    EXPECT_NE(one.get(), other.get());
}

TEST(GetVeltoHeaderEncode, AppendsSeqnumAndThenVersion) {
    Root root;
    EXPECT_EQ(GetVeltoHeaderEncode(root.element(), 17), 0);
    EXPECT_EQ(root.text(), "<root>\n    <seqnum>17</seqnum>\n    <version>1.0.0</version>\n</root>\n");
}

TEST(GetVeltoHeaderEncode, AppendsBehindWhatIsThere) {
    Root root;
    SetStringValue(root.element(), "first", "1");
    EXPECT_EQ(GetVeltoHeaderEncode(root.element(), 0), 0);
    EXPECT_EQ(
        root.text(),
        "<root>\n    <first>1</first>\n    <seqnum>0</seqnum>\n    <version>1.0.0</version>\n</root>\n");
}

std::string seqnumText(unsigned int seqnum) {
    TiXmlElement root("root");
    EXPECT_EQ(GetVeltoHeaderEncode(&root, seqnum), 0);
    return root.FirstChildElement("seqnum")->GetText();
}

TEST(GetVeltoHeaderEncode, WritesTheLargestSequenceNumberAsMinusOne) {
    EXPECT_EQ(seqnumText(4294967295u), "-1");
}

TEST(GetVeltoHeaderEncode, WritesSequenceNumbersFrom2To31OnAsNegative) {
    EXPECT_EQ(seqnumText(2147483648u), "-2147483648");
    EXPECT_EQ(seqnumText(2147483647u), "2147483647");
}

TEST(GetVeltoHeaderEncode, WritesZeroAsZero) { EXPECT_EQ(seqnumText(0), "0"); }

TEST(GetVeltoHeaderEncode, IsRefusedWithoutARoot) {
    Captured captured;
    const int returned = GetVeltoHeaderEncode(nullptr, 1);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(returned, -1);
}

TEST(SetStringValue, AppendsAnElementWithOneText) {
    Root root;
    TiXmlElement* const first = SetStringValue(root.element(), "b", "1");
    TiXmlElement* const second = SetStringValue(root.element(), "a", "2");
    ASSERT_TRUE(first && second);
    EXPECT_STREQ(first->Value(), "b");
    EXPECT_EQ(first->FirstChild(), first->LastChild());
    EXPECT_FALSE(first->FirstChild()->ToText()->CDATA());
    EXPECT_EQ(root.element()->LastChild(), second); // in the order appended, not sorted
    EXPECT_EQ(root.text(), "<root>\n    <b>1</b>\n    <a>2</a>\n</root>\n");
}

TEST(SetStringValue, AddsAnotherElementOfTheSameName) {
    Root root;
    const TiXmlElement* const first = SetStringValue(root.element(), "a", "1");
    EXPECT_NE(SetStringValue(root.element(), "a", "2"), first);
    EXPECT_EQ(root.text(), "<root>\n    <a>1</a>\n    <a>2</a>\n</root>\n");
}

TEST(SetStringValue, MakesAnEmptyElementOfANullText) {
    Root root;
    const TiXmlElement* const child = SetStringValue(root.element(), "Token", nullptr);
    ASSERT_TRUE(child);
    EXPECT_EQ(child->FirstChild(), nullptr);
    EXPECT_EQ(root.text(), "<root>\n    <Token />\n</root>\n");
}

TEST(SetStringValue, MakesAnEmptyTextOfAnEmptyOne) {
    Root root;
    const TiXmlElement* const child = SetStringValue(root.element(), "Token", "");
    ASSERT_TRUE(child && child->FirstChild());
    EXPECT_STREQ(child->FirstChild()->ToText()->Value(), "");
    EXPECT_EQ(root.text(), "<root>\n    <Token></Token>\n</root>\n");
}

TEST(SetStringValue, IsEscapedWhenRenderedAndComesBackUnescaped) {
    const std::string value = "a & b < c > d \" e ' f &amp; &#x41;";
    Root root;
    const TiXmlElement* const child = SetStringValue(root.element(), "Text", value.c_str());
    EXPECT_EQ(child->GetText(), value);
    EXPECT_EQ(root.text(),
              "<root>\n    <Text>a &amp; b &lt; c &gt; d &quot; e &apos; f &amp;amp; &amp;#x41;</Text>\n"
              "</root>\n");
    const Document doc = parsed(root.text());
    EXPECT_EQ(GetString(doc->RootElement()->FirstChildElement("Text")), value);
}

TEST(SetStringValue, IsNullWithoutAParent) {
    Captured captured;
    const TiXmlElement* const child = SetStringValue(nullptr, "a", "b");
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(child, nullptr);
}

TEST(SetStringValue, IsNullWithoutAName) {
    Root root;
    EXPECT_EQ(SetStringValue(root.element(), nullptr, "b"), nullptr);
    EXPECT_EQ(root.text(), "<root />\n");
}

TEST(SetStringValueAtt, AppendsAnElementWithTheAttributeName) {
    Root root;
    const TiXmlElement* const child = SetStringValueAtt(root.element(), "request", "AddDevice");
    ASSERT_TRUE(child);
    EXPECT_EQ(root.element()->LastChild(), child);
    EXPECT_EQ(root.text(), "<root>\n    <request name=\"AddDevice\" />\n</root>\n");
}

TEST(SetStringValueAtt, HasNoAttributeForANullName) {
    Root root;
    const TiXmlElement* const child = SetStringValueAtt(root.element(), "request", nullptr);
    ASSERT_TRUE(child);
    EXPECT_EQ(child->FirstAttribute(), nullptr);
    EXPECT_EQ(root.text(), "<root>\n    <request />\n</root>\n");
}

TEST(SetStringValueAtt, HasAnEmptyAttributeForAnEmptyName) {
    Root root;
    SetStringValueAtt(root.element(), "request", "");
    EXPECT_EQ(root.text(), "<root>\n    <request name=\"\" />\n</root>\n");
}

TEST(SetStringValueAtt, IsNullWithoutAParent) {
    Captured captured;
    const TiXmlElement* const child = SetStringValueAtt(nullptr, "a", "b");
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(child, nullptr);
}

TEST(SetStringValueAtt, IsNullWithoutAName) {
    Root root;
    EXPECT_EQ(SetStringValueAtt(root.element(), nullptr, "b"), nullptr);
    EXPECT_EQ(root.text(), "<root />\n");
}

TEST(GetXmlEncode, IndentsFourBlanksALevel) {
    Root root;
    TiXmlElement* const request = SetStringValueAtt(root.element(), "request", "R");
    TiXmlElement* const inner = SetStringValue(request, "Inner", nullptr);
    SetStringValue(inner, "Leaf", "text");
    EXPECT_EQ(root.text(), "<root>\n"
                           "    <request name=\"R\">\n"
                           "        <Inner>\n"
                           "            <Leaf>text</Leaf>\n"
                           "        </Inner>\n"
                           "    </request>\n"
                           "</root>\n");
}

TEST(GetXmlEncode, IsEmptyWithoutADocument) {
    Captured captured;
    const std::string text = GetXmlEncode(nullptr);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(text, "");
}

TEST(GetXmlLength, IsMinusOneWithoutADocument) {
    Captured captured;
    const int length = GetXmlLength(nullptr);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(length, -1);
}

TEST(GetXmlLength, IsTheLengthOfTheText) {
    Root root;
    EXPECT_EQ(GetXmlLength(root.element()->GetDocument()), 40 + 9);
    SetStringValue(root.element(), "a", "\xC3\xA4&");
    EXPECT_EQ(GetXmlLength(root.element()->GetDocument()), 40 + 7 + 19 + 8);
    EXPECT_EQ(static_cast<std::size_t>(GetXmlLength(root.element()->GetDocument())),
              GetXmlEncode(root.element()->GetDocument()).size());
    TiXmlDocument empty;
    EXPECT_EQ(GetXmlLength(&empty), 0);
}

TEST(GetXmlLength, IsTheLengthOfTheTextWhateverStandsInIt) {
    const char* const text = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
                             "<!-- a comment -->\n"
                             "<!DOCTYPE a>\n"
                             "<a b=\"1\" c='&quot;'>\n"
                             "    <d>text</d>\n"
                             "    <e>\n"
                             "        <f />\n"
                             "        two\n"
                             "        <!--deep-->\n"
                             "        <![CDATA[<raw>]]>\n"
                             "    </e>\n"
                             "</a>\n";
    const std::unique_ptr<TiXmlDocument, void (*)(TiXmlDocument*)> doc(Decode(text), ReleaseTiXmlDocument);
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(GetXmlLength(doc.get()), 203);
    EXPECT_EQ(GetXmlEncode(doc.get()), text);
}

struct RefusesThePrinter : TiXmlDocument {
    bool Accept(TiXmlVisitor*) const override { return false; }
};
const char* const refused = "TiXmlDocument::Accept error, check the TiXmlDocument(doc)\n";

TEST(GetXmlEncode, IsEmptyIfTheDocumentRefusesThePrinter) {
    RefusesThePrinter doc;
    doc.LinkEndChild(new TiXmlElement("root"));
    Captured captured;
    const std::string text = GetXmlEncode(&doc);
    EXPECT_EQ(captured.text(), refused);
    EXPECT_EQ(text, "");
    EXPECT_STREQ(doc.RootElement()->Value(), "root"); // untouched
}

TEST(GetXmlLength, IsZeroIfTheDocumentRefusesThePrinter) {
    RefusesThePrinter doc;
    doc.LinkEndChild(new TiXmlElement("root"));
    Captured captured;
    const int length = GetXmlLength(&doc);
    EXPECT_EQ(captured.text(), refused);
    EXPECT_EQ(length, 0);
    EXPECT_STREQ(doc.RootElement()->Value(), "root");
}

// As if so much stood in the document: a comment of 16 MiB again and again, then a shorter one.
struct Long : TiXmlDocument {
    explicit Long(std::size_t length) : length_(length) {}
    bool Accept(TiXmlVisitor* visitor) const override {
        constexpr std::size_t around = 8, most = std::size_t(1) << 24; // "<!--", "-->" and the line's end
        TiXmlComment comment(std::string(most - around, 'c').c_str());
        std::size_t left = length_;
        for (; left > most; left -= most) visitor->Visit(comment);
        return visitor->Visit(TiXmlComment(std::string(left - around, 'c').c_str()));
    }
    std::size_t length_;
};

TEST(GetXmlLength, IsMinusOneForATextLongerThanAnIntCanSay) {
    Long longest(INT_MAX), longer(std::size_t{INT_MAX} + 1), far(std::size_t{UINT_MAX} + 40);
    EXPECT_EQ(GetXmlLength(&longest), INT_MAX);
    Captured captured;
    const int returned[] = {GetXmlLength(&longer), GetXmlLength(&far)};
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(returned[0], -1);
    EXPECT_EQ(returned[1], -1);
}

TEST(ItoString, IsDecimalWithALeadingMinus) {
    EXPECT_EQ(ItoString(0), "0");
    EXPECT_EQ(ItoString(7), "7");
    EXPECT_EQ(ItoString(-7), "-7");
    EXPECT_EQ(ItoString(1234567), "1234567");
    EXPECT_EQ(ItoString(INT_MAX), "2147483647");
    EXPECT_EQ(ItoString(INT_MIN), "-2147483648");
}

TEST(UitoString, IsDecimalWithoutASign) {
    EXPECT_EQ(UitoString(0), "0");
    EXPECT_EQ(UitoString(1234567), "1234567");
    EXPECT_EQ(UitoString(2147483648u), "2147483648");
    EXPECT_EQ(UitoString(4294967295u), "4294967295");
}

TEST(NumberText, DoesNotDependOnTheLocale) {
    const DecimalComma comma;
    std::ostringstream stream;
    stream << 1234567;
    ASSERT_EQ(stream.str(), "1.234.567") << "the locale groups digits";
    EXPECT_EQ(ItoString(-1234567), "-1234567");
    EXPECT_EQ(UitoString(4294967295u), "4294967295");
    EXPECT_EQ(seqnumText(1234567), "1234567");
}

} // namespace
