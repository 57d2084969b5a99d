// The readers of attributes, which return -1 on success as well.
#include "framing/value_reading.h"

namespace {

using namespace veltoprotocol;
using namespace values;

TEST(GetStringValueAtt, CopiesATextOfExactlyTheSizeAndReturnsMinus1) {
    const Field got = readText(GetStringValueAtt, attribute("abc"), 3);
    EXPECT_EQ(got.returned, -1);
    EXPECT_EQ(got.bytes, "abc");
    EXPECT_EQ(got.printed, "");
}

TEST(GetStringValueAtt, LeavesTheRestOfAWiderFieldAsItWas) {
    EXPECT_EQ(readText(GetStringValueAtt, attribute("abc"), 5).bytes, "abc##");
    EXPECT_EQ(readText(GetStringValueAtt, attribute(""), 3).bytes, "###");
}

TEST(GetStringValueAtt, DropsATextThatIsOneByteTooLong) {
    const Field got = readText(GetStringValueAtt, attribute("abc"), 2);
    EXPECT_EQ(got.returned, -1);
    EXPECT_EQ(got.bytes, "##");
    EXPECT_EQ(got.printed, longAttribute);
}

TEST(GetStringValueAtt, NamesAMissingAttribute) {
    for (const char* xml : {"<a/>", "<a name='abc'/>", "<a><Name>abc</Name></a>", "<a><b Name='abc'/></a>"}) {
        const Field got = readText(GetStringValueAtt, xml, 3);
        EXPECT_EQ(got.returned, -1);
        EXPECT_EQ(got.bytes, "###");
        EXPECT_EQ(got.printed, missingAttribute);
    }
}

TEST(GetStringValueAtt, ReturnsMinus1InSilenceForNullArgumentsAndSizesBelow1) {
    expectNullArgumentsAndSmallSizes(GetStringValueAtt);
}

TEST(GetStringValueAtt, ShowsANullLabelOrNameAsEmpty) {
    char out[4] = {};
    const auto got = [&](const char* label, const char* name) {
        return read("<a/>", [&](TiXmlElement* root) { return GetStringValueAtt(root, label, name, out, 4); });
    };
    EXPECT_EQ(got(nullptr, "Name").printed, "xml file -..-(Name) element not find!\n");
    EXPECT_EQ(got("Label", nullptr).printed, "xml file -..-Label() element not find!\n");
}

TEST(GetIntValueAtt, WritesTheDecimalValueAndReturnsMinus1) {
    const struct {
        const char* text;
        int want;
    } cases[] = {
        {"12", 12},
        {" \t-12x", -12},
        {"010", 10},
        {"0x10", 0},
        {"x", 0},
        {"", 0},
        {"99999999999", 1215752191},
        {"99999999999999999999", -1},
    };
    for (const auto& c : cases) {
        const auto got = readNumber(GetIntValueAtt, attribute(c.text), 77);
        EXPECT_EQ(got.returned, -1) << c.text;
        EXPECT_EQ(got.value, c.want) << c.text;
        EXPECT_EQ(got.printed, "") << c.text;
    }
}

TEST(GetIntValueAtt, NamesAMissingAttributeAndLeavesTheOutput) {
    const auto got = readNumber(GetIntValueAtt, child("5"), 77);
    EXPECT_EQ(got.returned, -1);
    EXPECT_EQ(got.value, 77);
    EXPECT_EQ(got.printed, missingAttribute);
}

TEST(GetIntValueAtt, ReturnsMinus1InSilenceForNullArguments) {
    int out = 77;
    expectNullArguments(GetIntValueAtt, &out, -1);
    EXPECT_EQ(out, 77);
}

TEST(GetBoolValueAtt, WritesWhetherTheDecimalValueIsNot0AndReturnsMinus1) {
    const struct {
        const char* text;
        bool want;
    } cases[] = {
        {"1", true}, {"0", false}, {"-3", true}, {"true", false}, {"", false}, {"0x1", false}, {"010", true},
    };
    for (const auto& c : cases) {
        const auto got = readNumber(GetBoolValueAtt, attribute(c.text), !c.want);
        EXPECT_EQ(got.returned, -1) << c.text;
        EXPECT_EQ(got.value, c.want) << c.text;
        EXPECT_EQ(got.printed, "") << c.text;
    }
}

TEST(GetBoolValueAtt, NamesAMissingAttributeAndLeavesTheOutput) {
    for (const bool before : {false, true}) {
        const auto got = readNumber(GetBoolValueAtt, "<a/>", before);
        EXPECT_EQ(got.returned, -1);
        EXPECT_EQ(got.value, before);
        EXPECT_EQ(got.printed, missingAttribute);
    }
}

TEST(GetBoolValueAtt, ReturnsMinus1InSilenceForNullArguments) {
    bool out = true;
    expectNullArguments(GetBoolValueAtt, &out, -1);
    EXPECT_TRUE(out);
}

TEST(GetUIntValueAtt, WritesTheUnsignedValueInTheBaseItFindsAndReturnsMinus1) {
    const struct {
        const char* text;
        unsigned int want;
    } cases[] = {
        {"12", 12},
        {"010", 8},
        {"0x10", 16},
        {"-1", UINT_MAX},
        {" +7x", 7},
        {"x", 0},
        {"", 0},
        {"4294967296", 0},
        {"99999999999", 1215752191},
        {"18446744073709551616", UINT_MAX},
    };
    for (const auto& c : cases) {
        const auto got = readNumber(GetUIntValueAtt, attribute(c.text), 77U);
        EXPECT_EQ(got.returned, -1) << c.text;
        EXPECT_EQ(got.value, c.want) << c.text;
        EXPECT_EQ(got.printed, "") << c.text;
    }
}

TEST(GetUIntValueAtt, NamesAMissingAttributeAndLeavesTheOutput) {
    const auto got = readNumber(GetUIntValueAtt, "<a/>", 77U);
    EXPECT_EQ(got.returned, -1);
    EXPECT_EQ(got.value, 77U);
    EXPECT_EQ(got.printed, missingAttribute);
}

TEST(GetUIntValueAtt, Returns0InSilenceForNullArguments) {
    unsigned int out = 77;
    expectNullArguments(GetUIntValueAtt, &out, 0);
    EXPECT_EQ(out, 77U);
}

} // namespace
