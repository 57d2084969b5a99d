// The readers of child elements: what they return, write and print.
#include "framing/value_reading.h"

namespace {

using namespace veltoprotocol;
using namespace values;

TEST(GetStringValue, CopiesATextOfExactlyTheSizeWithoutATerminator) {
    const Field got = readText(GetStringValue, child("abc"), 3);
    EXPECT_EQ(got.returned, 0);
    EXPECT_EQ(got.bytes, "abc");
    EXPECT_EQ(got.printed, "");
}

TEST(GetStringValue, LeavesTheRestOfAWiderFieldAsItWas) {
    const Field got = readText(GetStringValue, child("abc"), 5);
    EXPECT_EQ(got.returned, 0);
    EXPECT_EQ(got.bytes, "abc##");
    EXPECT_EQ(got.printed, "");

    char zeroFilled[4] = {};
    read(child("abc"), [&](TiXmlElement* root) { return GetStringValue(root, "", "Name", zeroFilled, 4); });
    EXPECT_STREQ(zeroFilled, "abc");
}

TEST(GetStringValue, DropsATextThatIsOneByteTooLong) {
    const Field got = readText(GetStringValue, child("abc"), 2);
    EXPECT_EQ(got.returned, -1);
    EXPECT_EQ(got.bytes, "##");
    EXPECT_EQ(got.printed, longChild);
}

TEST(GetStringValue, CopiesNothingForAnEmptyChild) {
    for (const char* xml : {"<a><Name/></a>", "<a><Name></Name></a>", "<a><Name b='1'> </Name></a>"}) {
        const Field got = readText(GetStringValue, xml, 3);
        EXPECT_EQ(got.returned, 0);
        EXPECT_EQ(got.bytes, "###");
        EXPECT_EQ(got.printed, "");
    }
}

TEST(GetStringValue, NamesAMissingChild) {
    for (const char* xml : {"<a/>", "<a Name='abc'/>", "<a><name>abc</name></a>",
                            "<a><b><Name>abc</Name></b></a>", "<Name>abc</Name>"}) {
        const Field got = readText(GetStringValue, xml, 3);
        EXPECT_EQ(got.returned, -1);
        EXPECT_EQ(got.bytes, "###");
        EXPECT_EQ(got.printed, missingChild);
    }
}

TEST(GetStringValue, ReadsTheFirstChildOfThatName) {
    const Field got = readText(GetStringValue, "<a>x<b/><Name>one</Name><Name>two</Name></a>", 3);
    EXPECT_EQ(got.bytes, "one");
}

TEST(GetStringValue, CountsBytes) {
    EXPECT_EQ(readText(GetStringValue, child("\xC3\xA9\xC3\xA9"), 4).bytes, "\xC3\xA9\xC3\xA9");
    EXPECT_EQ(readText(GetStringValue, child("\xC3\xA9\xC3\xA9"), 3).printed, longChild);
    EXPECT_EQ(readText(GetStringValue, child("&amp;&lt;&gt;"), 3).bytes, "&<>");
}

TEST(GetStringValue, ReturnsMinus1InSilenceForNullArgumentsAndSizesBelow1) {
    expectNullArgumentsAndSmallSizes(GetStringValue);
}

TEST(GetStringValue, ShowsANullLabelOrNameAsEmpty) {
    char out[4] = {};
    const auto got = [&](const char* label, const char* name) {
        return read("<a/>", [&](TiXmlElement* root) { return GetStringValue(root, label, name, out, 4); });
    };
    EXPECT_EQ(got(nullptr, "Name").printed, "xml file -..--Name element not find!\n");
    EXPECT_EQ(got("Label", nullptr).printed, "xml file -..-Label- element not find!\n");
    EXPECT_EQ(got(nullptr, nullptr).returned, -1);
}

TEST(GetStringValue, PrintsALineOfAnyLengthWhole) {
    char out[4] = {};
    for (const std::size_t length : {1990, 2000, 2010, 2020, 2030, 2048, 5000, 100000})
        for (std::size_t more = 0; more < 10; ++more) {
            const std::string label(length + more, 'l');
            const Read got = read("<a/>", [&](TiXmlElement* root) {
                return GetStringValue(root, label.c_str(), "Name", out, 4);
            });
            EXPECT_EQ(got.printed, "xml file -..-" + label + "-Name element not find!\n");
        }
}

TEST(GetIntValue, WritesGetIntOfTheChild) {
    const struct {
        const char* text;
        int want;
    } cases[] = {
        {"12", 12}, {"-12", -12}, {"010", 10}, {"0x10", 0}, {"x", 0}, {"", -1}, {"99999999999", 1215752191},
    };
    for (const auto& c : cases) {
        const auto got = readNumber(GetIntValue, child(c.text), 77);
        EXPECT_EQ(got.returned, 0) << c.text;
        EXPECT_EQ(got.value, c.want) << c.text;
        EXPECT_EQ(got.printed, "") << c.text;
    }
}

TEST(GetIntValue, NamesAMissingChildAndLeavesTheOutput) {
    const auto got = readNumber(GetIntValue, "<a Name='5'/>", 77);
    EXPECT_EQ(got.returned, -1);
    EXPECT_EQ(got.value, 77);
    EXPECT_EQ(got.printed, missingChild);
}

TEST(GetIntValue, ReturnsMinus1InSilenceForNullArguments) {
    int out = 77;
    expectNullArguments(GetIntValue, &out, -1);
    EXPECT_EQ(out, 77);
}

TEST(GetBoolValue, WritesWhetherGetIntIsNot0) {
    const struct {
        const char* text;
        bool want;
    } cases[] = {
        {"1", true},     {"0", false}, {"2", true},           {"-1", true},   {"00", false},
        {"true", false}, {"", true},   {"4294967296", false}, {"0x1", false},
    };
    for (const auto& c : cases) {
        const auto got = readNumber(GetBoolValue, child(c.text), !c.want);
        EXPECT_EQ(got.returned, 0) << c.text;
        EXPECT_EQ(got.value, c.want) << c.text;
        EXPECT_EQ(got.printed, "") << c.text;
    }
}

TEST(GetBoolValue, NamesAMissingChildAndLeavesTheOutput) {
    for (const bool before : {false, true}) {
        const auto got = readNumber(GetBoolValue, "<a/>", before);
        EXPECT_EQ(got.returned, -1);
        EXPECT_EQ(got.value, before);
        EXPECT_EQ(got.printed, missingChild);
    }
}

TEST(GetBoolValue, ReturnsMinus1InSilenceForNullArguments) {
    bool out = true;
    expectNullArguments(GetBoolValue, &out, -1);
    EXPECT_TRUE(out);
}

TEST(GetUIntValue, WritesGetULongOfTheChild) {
    const struct {
        const char* text;
        unsigned long want;
    } cases[] = {
        {"12", 12},
        {"010", 8},
        {"0x10", 16},
        {"-1", ULONG_MAX},
        {"99999999999", 99999999999},
        {"x", 0},
        {"", 0},
        {"18446744073709551616", ULONG_MAX},
    };
    for (const auto& c : cases) {
        const auto got = readNumber(GetUIntValue, child(c.text), 77UL);
        EXPECT_EQ(got.returned, 0) << c.text;
        EXPECT_EQ(got.value, c.want) << c.text;
        EXPECT_EQ(got.printed, "") << c.text;
    }
}

TEST(GetUIntValue, Returns0ForAMissingChildToo) {
    const auto got = readNumber(GetUIntValue, "<a/>", 77UL);
    EXPECT_EQ(got.returned, 0);
    EXPECT_EQ(got.value, 77U);
    EXPECT_EQ(got.printed, missingChild);
}

TEST(GetUIntValue, ReturnsMinus1InSilenceForNullArguments) {
    unsigned long out = 77;
    expectNullArguments(GetUIntValue, &out, -1);
    EXPECT_EQ(out, 77U);
}

} // namespace
