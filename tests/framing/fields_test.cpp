// A record's one description, written and read: over records of this test's own, so that each irregularity
// stands alone. (written() counts, writes and builds the XML library's tree; the three must agree.)
#include "framing/fields.h"

#include "framing/described.h"
#include "support/read_back.h"

#include <climits>

namespace {

using namespace veltoprotocol;

enum Mode : int { off = 0, on = 1 };

struct Sample {
    char text[8];
    int number;
    unsigned int word;
    Mode mode;
    unsigned short small;
    bool flag;
    char spare; // in no list; without it the comparisons below would look at padding
};
constexpr auto byAttributes = attributes(
    "Sample", field("Text", &Sample::text), field("Number", &Sample::number), field("Word", &Sample::word),
    field("Flag", &Sample::flag), field("Small", &Sample::small), field("Mode", &Sample::mode));
constexpr auto byElements = elements("Sample", field("Text", &Sample::text), field("Number", &Sample::number),
                                     field("Word", &Sample::word), field("Flag", &Sample::flag),
                                     field("Small", &Sample::small), field("Mode", &Sample::mode));

Sample sample() {
    Sample made = Sample();
    std::memcpy(made.text, "a\"b'c<d&", 8);
    made.number = INT_MIN;
    made.word = 4294967295u;
    made.flag = true;
    made.small = 65535;
    made.mode = on;
    return made;
}

TEST(Attributes, AreWrittenInTheListsOrder) {
    EXPECT_EQ(asElement(byAttributes, sample()),
              "<E Text='a&quot;b&apos;c&lt;d&amp;' Number=\"-2147483648\" Word=\"4294967295\" Flag=\"1\" "
              "Small=\"65535\" Mode=\"1\" />\n");
}

TEST(Elements, AreWrittenInTheListsOrder) {
    EXPECT_EQ(asElement(byElements, sample()), "<E>\n"
                                               "    <Text>a&quot;b&apos;c&lt;d&amp;</Text>\n"
                                               "    <Number>-2147483648</Number>\n"
                                               "    <Word>4294967295</Word>\n"
                                               "    <Flag>1</Flag>\n"
                                               "    <Small>65535</Small>\n"
                                               "    <Mode>1</Mode>\n"
                                               "</E>\n");
}

TEST(Elements, StandForAnEmptyTextToo) {
    EXPECT_EQ(asElement(byElements, Sample()), "<E>\n"
                                               "    <Text></Text>\n"
                                               "    <Number>0</Number>\n"
                                               "    <Word>0</Word>\n"
                                               "    <Flag>0</Flag>\n"
                                               "    <Small>0</Small>\n"
                                               "    <Mode>0</Mode>\n"
                                               "</E>\n");
}

TEST(ReadRecord, UndoesTheWriting) {
    const auto fromAttributes = readBack(asElement(byAttributes, sample()), reader(byAttributes));
    EXPECT_TRUE(sameBytes(fromAttributes.record, sample()));
    EXPECT_EQ(fromAttributes.error, 0);
    EXPECT_EQ(fromAttributes.printed, "");
    const auto fromElements = readBack(asElement(byElements, sample()), reader(byElements));
    EXPECT_TRUE(sameBytes(fromElements.record, sample()));
    EXPECT_EQ(fromElements.error, 0);
    EXPECT_EQ(fromElements.printed, "");
}

TEST(ReadRecord, TakesItsFieldsInAnyOrder) {
    const auto got = readBack("<E Mode=\"1\" Word=\"2\" Number=\"3\" Text=\"t\" Small=\"4\" Flag=\"0\" />",
                              reader(byAttributes));
    Sample want = Sample();
    want.text[0] = 't', want.number = 3, want.word = 2, want.small = 4, want.mode = on;
    EXPECT_TRUE(sameBytes(got.record, want));
    EXPECT_EQ(got.printed, "");
}

// Of several children of a name the first one counts, wherever the others stand.
TEST(ReadRecord, TakesTheFirstOfSeveralChildren) {
    const std::string text = "<Text>t</Text>", number = "<Number>3</Number>", other = "<Number>4</Number>";
    const std::string rest = "<Word>2</Word><Flag>1</Flag><Small>5</Small><Mode>1</Mode>";
    Sample want = Sample();
    want.text[0] = 't', want.number = 3, want.word = 2, want.flag = true, want.small = 5, want.mode = on;
    for (const std::string& children :
         {text + number + rest, text + number + other + rest, number + text + other + rest,
          number + other + text + rest, "<Else />" + text + number + other + rest,
          number + rest + text + other, text + number + rest + other,
          "<Else />" + number + text + rest + other}) {
        const auto got = readBack("<E>" + children + "</E>", reader(byElements));
        EXPECT_TRUE(sameBytes(got.record, want)) << children;
        EXPECT_EQ(got.printed, "") << children;
    }
}

TEST(ReadRecord, NamesEachMissingFieldAndLeavesItZero) {
    const auto fromAttributes = readBack("<E />", reader(byAttributes));
    EXPECT_TRUE(sameBytes(fromAttributes.record, Sample()));
    EXPECT_EQ(fromAttributes.error, 0);
    EXPECT_EQ(fromAttributes.printed, "xml file -..-Sample(Text) element not find!\n"
                                      "xml file -..-Sample(Number) element not find!\n"
                                      "xml file -..-Sample(Word) element not find!\n"
                                      "xml file -..-Sample(Flag) element not find!\n"
                                      "xml file -..-Sample(Small) element not find!\n"
                                      "xml file -..-Sample(Mode) element not find!\n");
    const auto fromElements = readBack("<E />", reader(byElements));
    EXPECT_TRUE(sameBytes(fromElements.record, Sample()));
    EXPECT_EQ(fromElements.error, 0);
    EXPECT_EQ(fromElements.printed, "xml file -..-Sample-Text element not find!\n"
                                    "xml file -..-Sample-Number element not find!\n"
                                    "xml file -..-Sample-Word element not find!\n"
                                    "xml file -..-Sample-Flag element not find!\n"
                                    "xml file -..-Sample-Small element not find!\n"
                                    "xml file -..-Sample-Mode element not find!\n");
}

TEST(ReadRecord, IsAnErrorOnlyWithoutAnElement) {
    int error = 7;
    Captured captured;
    const Sample record = readRecord(nullptr, byAttributes, &error);
    const Sample unreported = readRecord(nullptr, byElements, nullptr);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(error, -1);
    EXPECT_TRUE(sameBytes(record, Sample()));
    EXPECT_TRUE(sameBytes(unreported, Sample()));
}

TEST(ReadFields, LeavesWhatIsMissingOrTooLongAsItWas) {
    const Document doc = parsed("<E><Text>123456789</Text></E>");
    Sample record = sample();
    Captured captured;
    readFields(doc->RootElement(), byElements, record);
    EXPECT_NE(captured.text().find("xml file -..-Sample-Text element too long!\n"), std::string::npos);
    EXPECT_TRUE(sameBytes(record, sample()));
}

TEST(ReadFields, TakesATextAsLongAsTheField) {
    const auto got = readBack("<E Text=\"12345678\" />", reader(byAttributes));
    EXPECT_EQ(std::string(got.record.text, 8), "12345678");
    const auto longer = readBack("<E Text=\"123456789\" />", reader(byAttributes));
    EXPECT_EQ(std::string(longer.record.text, 8), std::string(8, '\0'));
    EXPECT_EQ(longer.printed.find("xml file -..-Sample(Text) element too long!\n"), 0u);
}

TEST(WriteRecord, WritesToTheElementItself) {
    TiXmlElement element("E");
    const Sample record = sample();
    EXPECT_EQ(writeRecord(&element, byAttributes, &record), 0);
    EXPECT_STREQ(element.Attribute("Text"), "a\"b'c<d&");
    EXPECT_STREQ(element.Attribute("Mode"), "1");
    EXPECT_EQ(element.FirstChild(), nullptr);
    EXPECT_EQ(writeRecord(&element, byElements, &record), 0);
    EXPECT_STREQ(element.FirstChildElement("Word")->GetText(), "4294967295");
}

TEST(WriteRecord, WritesNothingWithoutElementOrRecord) {
    TiXmlElement element("E");
    const Sample record = sample();
    const Sample* const none = nullptr;
    EXPECT_EQ(writeRecord(nullptr, byAttributes, &record), -1);
    EXPECT_EQ(writeRecord(&element, byAttributes, none), -1);
    EXPECT_EQ(element.FirstAttribute(), nullptr);
}

} // namespace
