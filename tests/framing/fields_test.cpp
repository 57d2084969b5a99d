// A record's one description, written and read: over records of this test's own, so that each irregularity
// stands alone. (written() counts, writes and builds the XML library's tree; the three must agree.)
#include "framing/fields.h"

#include "framing/written.h"
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

template <class List>
auto reader(const List& list) {
    return [&list](TiXmlElement* element, int* error) { return readRecord(element, list, error); };
}

template <class List>
std::string asElement(const List& list, const typename List::Record& record) {
    return written([&](auto x) { x.element("E", list(record)); });
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

struct Odd {
    char text[8];
    char other[8];
    unsigned int position;
};

TEST(UpTo, NarrowsWhatIsReadAndNotWhatIsWritten) {
    constexpr auto list = elements("Odd", field("Text", &Odd::text).upTo(3));
    EXPECT_EQ(asElement(list, Odd{"1234567", "", 0}), "<E>\n    <Text>1234567</Text>\n</E>\n");
    EXPECT_EQ(readBack("<E><Text>123</Text></E>", reader(list)).record.text, std::string("123"));
    const auto longer = readBack("<E><Text>1234</Text></E>", reader(list));
    EXPECT_TRUE(sameBytes(longer.record, Odd()));
    EXPECT_EQ(longer.printed, "xml file -..-Odd-Text element too long!\n");
    EXPECT_EQ(longer.error, 0);
}

TEST(UpTo, IsNeverWiderThanTheMember) {
    EXPECT_EQ(field("Text", &Odd::text).upTo(8).capacity, 8);
    EXPECT_THROW(field("Text", &Odd::text).upTo(9), const char*); // in a constexpr list: does not compile
}

TEST(Labelled, RenamesOneFieldInTheLinesPrinted) {
    constexpr auto list =
        attributes("Odd", field("Text", &Odd::text).labelled("Other"), field("Position", &Odd::position));
    EXPECT_EQ(readBack("<E />", reader(list)).printed, "xml file -..-Other(Text) element not find!\n"
                                                       "xml file -..-Odd(Position) element not find!\n");
    EXPECT_EQ(asElement(list, Odd{"a", "b", 1}), "<E Text=\"a\" Position=\"1\" />\n");
}

TEST(Labelled, RenamesAListInTheLinesPrinted) {
    constexpr auto list =
        elements("Odd", field("Text", &Odd::text).labelled("Kept"), field("Other", &Odd::other));
    constexpr auto renamed = list.labelled("Renamed");
    EXPECT_EQ(readBack("<E />", reader(renamed)).printed, "xml file -..-Kept-Text element not find!\n"
                                                          "xml file -..-Renamed-Other element not find!\n");
}

// One name may be written from one place of a list and read at another.
TEST(ReadOnlyAndWriteOnly, SplitAFieldsPlaces) {
    constexpr auto list = elements("Odd", field("Text", &Odd::text).readOnly(),
                                   field("Position", &Odd::position), field("Text", &Odd::text).writeOnly());
    EXPECT_EQ(asElement(list, Odd{"a", "", 1}),
              "<E>\n    <Position>1</Position>\n    <Text>a</Text>\n</E>\n");
    const auto missing = readBack("<E />", reader(list));
    EXPECT_EQ(missing.printed, "xml file -..-Odd-Text element not find!\n"
                               "xml file -..-Odd-Position element not find!\n");
    const auto got = readBack("<E><Text>t</Text><Position>5</Position></E>", reader(list));
    EXPECT_TRUE(sameBytes(got.record, Odd{"t", "", 5}));
    EXPECT_EQ(got.printed, "");
}

TEST(ReadOnlyAndWriteOnly, MayReadOneNameIntoTwoMembers) {
    constexpr auto list =
        attributes("Odd", field("Text", &Odd::text), field("Other", &Odd::other).writeOnly(),
                   field("Text", &Odd::other).readOnly());
    EXPECT_EQ(asElement(list, Odd{"a", "b", 1}), "<E Text=\"a\" Other=\"b\" />\n");
    const auto got = readBack("<E Text=\"a\" Other=\"b\" />", reader(list));
    EXPECT_TRUE(sameBytes(got.record, Odd{"a", "a", 0}));
    EXPECT_EQ(got.printed, "");
}

TEST(Signed, IsWrittenSignedAndReadUnsigned) {
    constexpr auto inAttribute = attributes("Odd", field("Position", &Odd::position).as<Signed>());
    constexpr auto inElement = elements("Odd", field("Position", &Odd::position).as<Signed>());
    const struct {
        unsigned int value;
        std::string text;
    } cases[] = {
        {0, "0"}, {1, "1"}, {2147483647, "2147483647"}, {2147483648u, "-2147483648"}, {4294967295u, "-1"}};
    for (const auto& c : cases) {
        const Odd record{"", "", c.value};
        const std::string attribute = asElement(inAttribute, record), element = asElement(inElement, record);
        EXPECT_EQ(attribute, "<E Position=\"" + c.text + "\" />\n");
        EXPECT_EQ(element, "<E>\n    <Position>" + c.text + "</Position>\n</E>\n");
        EXPECT_EQ(readBack(attribute, reader(inAttribute)).record.position, c.value);
        EXPECT_EQ(readBack(element, reader(inElement)).record.position, c.value);
    }
}

TEST(Signed, KeepsLabelAndDirection) {
    constexpr auto list =
        attributes("Odd", field("Position", &Odd::position).labelled("Other").readOnly().as<Signed>());
    EXPECT_EQ(asElement(list, Odd{"", "", 1}), "<E />\n");
    EXPECT_EQ(readBack("<E />", reader(list)).printed, "xml file -..-Other(Position) element not find!\n");
}

// A wire form of a test's own: a flag kept in a lone char.
struct YesOrNo {
    static Text onWire(char value) { return value ? Text("yes") : Text(); }
};
struct Lone {
    char flag;
};

TEST(As, ShowsAMemberInAFormOfItsOwn) {
    constexpr auto byAttribute = attributes("Lone", field("Flag", &Lone::flag).as<YesOrNo>());
    constexpr auto byElement = elements("Lone", field("Flag", &Lone::flag).as<YesOrNo>());
    EXPECT_EQ(asElement(byAttribute, Lone{1}), "<E Flag=\"yes\" />\n");
    EXPECT_EQ(asElement(byAttribute, Lone{0}), "<E />\n");
    EXPECT_EQ(asElement(byElement, Lone{1}), "<E>\n    <Flag>yes</Flag>\n</E>\n");
    EXPECT_EQ(asElement(byElement, Lone{0}), "<E>\n    <Flag />\n</E>\n");
    EXPECT_EQ(readBack("<E Flag=\"3\" />", reader(byAttribute)).record.flag, 3);
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
