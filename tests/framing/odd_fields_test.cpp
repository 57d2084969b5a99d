// What a record may do irregularly, each irregularity alone.
#include "framing/described.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using namespace veltoprotocol;

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
    EXPECT_EQ(readBack("<E Flag=\"3\" />", reader(byAttribute)).record.flag, '3'); // read as declared
}

TEST(RunOfOnes, IsAsManyCharactersOfCodeOneAsTheByteSays) {
    constexpr auto byAttribute = attributes("Lone", field("Flag", &Lone::flag).as<RunOfOnes>());
    constexpr auto byElement = elements("Lone", field("Flag", &Lone::flag).as<RunOfOnes>());
    const struct {
        int byte;
        std::size_t ones;
    } cases[] = {{0, 0}, {1, 1}, {2, 2}, {126, 126}, {127, 127}, {-1, 0}, {-127, 0}, {-128, 0}};
    for (const auto& c : cases) {
        const Lone record = {static_cast<char>(c.byte)};
        std::string ones;
        for (std::size_t i = 0; i < c.ones; ++i) ones += "&#x01;";
        EXPECT_EQ(asElement(byAttribute, record), "<E Flag=\"" + ones + "\" />\n") << c.byte;
        EXPECT_EQ(asElement(byElement, record), "<E>\n    <Flag>" + ones + "</Flag>\n</E>\n") << c.byte;
        const char back = c.ones == 1 ? 1 : 0; // more do not fit
        EXPECT_EQ(readBack(asElement(byAttribute, record), reader(byAttribute)).record.flag, back) << c.byte;
        EXPECT_EQ(readBack(asElement(byElement, record), reader(byElement)).record.flag, back) << c.byte;
    }
}

struct Between {
    char before;
    char one;
    char behind;
};

TEST(LoneChar, IsReadAsATextOfOneByte) {
    constexpr auto byAttribute = attributes("Between", field("One", &Between::one).readOnly());
    constexpr auto byElement = elements("Between", field("One", &Between::one).readOnly());
    const struct {
        const char* xml;
        char want;
        const char* line; // what is said of it
    } cases[] = {{"x", 'x', ""},
                 {"7", '7', ""},
                 {"&#x01;", 1, ""},
                 {"", 'k', ""},
                 {"&#x7F;", 127, ""},
                 {"xy", 'k', " element too long!\n"},
                 {"12", 'k', " element too long!\n"}};
    for (const auto& c : cases) {
        const std::string text = c.xml, line = c.line;
        const auto expectRead = [&](const std::string& xml, const auto& list, const std::string& where) {
            const Document doc = parsed(xml);
            Between record = {'b', 'k', 'e'};
            Captured captured;
            readFields(doc->RootElement(), list, record);
            EXPECT_EQ(captured.text(), line.empty() ? "" : "xml file -..-" + where + line);
            EXPECT_TRUE(sameBytes(record, Between{'b', c.want, 'e'})) << xml;
        };
        expectRead("<E One=\"" + text + "\" />", byAttribute, "Between(One)");
        expectRead("<E><One>" + text + "</One></E>", byElement, "Between-One");
    }
    EXPECT_EQ(readBack("<E />", reader(byAttribute)).printed,
              "xml file -..-Between(One) element not find!\n");
    EXPECT_EQ(readBack("<E />", reader(byElement)).printed, "xml file -..-Between-One element not find!\n");
}

} // namespace
