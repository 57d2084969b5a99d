// The credentials of a message.
#include "framing/inspecting.h"
#include "framing/inspection_rules.h"

#include <climits>
#include <gtest/gtest.h>
#include <random>

namespace {

using namespace veltoprotocol;
using namespace std::string_literals;

TEST(GetAuthorization, IsTheValueOfTheHeader) {
    EXPECT_EQ(inspect(GetAuthorization, login), "Basic YWRtaW46c2VjcmV0");
}

TEST(GetAuthorization, KnowsTheNameInAnyCase) {
    for (const char* name : {"Authorization", "authorization", "AUTHORIZATION", "aUTHORIzATION"})
        EXPECT_EQ(inspect(GetAuthorization, "GET /\r\n"s + name + ": Basic YQ==\r\n\r\n"), "Basic YQ==")
            << name;
}

TEST(GetAuthorization, RefusesEveryOtherByteInEveryPlaceOfTheName) {
    const std::string name = "authorization";
    for (std::size_t place = 0; place < name.size(); ++place)
        for (int value = 0; value < 256; ++value) {
            std::string bytes = "X: 1\r\n" + name + ": a b\r\n\r\n";
            bytes[6 + place] = static_cast<char>(value);
            const bool letter = value == name[place] || value == name[place] - 'a' + 'A';
            EXPECT_EQ(inspect(GetAuthorization, bytes), letter ? "a b" : "") << place << ' ' << value;
        }
}

TEST(GetAuthorization, FindsTheNameAmongOthersLikeIt) {
    EXPECT_EQ(inspect(GetAuthorization,
                      "zZz: ZzZ\r\nAuthorisation: 1\r\nAUTHORIZATIO: 2\r\nauthoriZation: 3\r\nz: Z\r\n\r\n"),
              "3");
    EXPECT_EQ(inspect(GetAuthorization, "GET /\r\nProxy-Authorization: 1\r\nAuthorization: 2\r\n\r\n"), "1");
    EXPECT_EQ(inspect(GetAuthorization, "GET /\r\nAUTHORIZATION: 1\r\nauthorization: 2\r\n\r\n"), "1");
}

TEST(GetAuthorization, NeedsAWholeHead) {
    EXPECT_EQ(inspect(GetAuthorization, "GET /\r\nAuthorization: Basic YQ==\r\n"), "");
    EXPECT_EQ(inspect(GetAuthorization, ""), "");
}

TEST(GetAuthorization, LooksAtNothingBehindTheHead) {
    EXPECT_EQ(inspect(GetAuthorization, "GET / HTTP/1.1\r\n\r\nX: 1\r\nAuthorization: a\r\n\r\n"), "");
}

TEST(GetAuthorization, IsTheFirstLineOfAHeadShorterThanTheName) {
    EXPECT_EQ(inspect(GetAuthorization, "GET / X\r\n\r\n"), "GET / X");   // 11 bytes
    EXPECT_EQ(inspect(GetAuthorization, "GET / XY\r\n\r\n"), "GET / XY"); // 12
    EXPECT_EQ(inspect(GetAuthorization, "GET / XYZ\r\n\r\n"), "");        // 13
    EXPECT_EQ(inspect(GetAuthorization, "\r\n\r\n"), "");
}

TEST(GetAuthorization, IsTheWholeLineForANameAtTheVeryStart) {
    EXPECT_EQ(inspect(GetAuthorization, "Authorization: Basic YQ==\r\n\r\n"), "Authorization: Basic YQ==");
}

TEST(GetAuthorization, SkipsTwoBytesBehindTheNameWhateverTheyAre) {
    EXPECT_EQ(inspect(GetAuthorization, "GET /\r\nAuthorization:Basic YQ==\r\n\r\n"), "asic YQ==");
    EXPECT_EQ(inspect(GetAuthorization, "GET /\r\nAuthorization\r\nHost: h\r\n\r\n"), "Host: h");
}

TEST(GetAuthorization, MayBeEmpty) {
    EXPECT_EQ(inspect(GetAuthorization, "GET /\r\nAuthorization: \r\nHost: h\r\n\r\n"), "");
    EXPECT_EQ(inspect(GetAuthorization, "GET /\r\nHost: h\r\n\r\n"), "");
    EXPECT_EQ(inspect(GetAuthorization, "GET /\r\nAuthorization\r\n\r\n"), "");
}

TEST(GetAuthorization, EndsAtEitherLineEnd) {
    EXPECT_EQ(inspect(GetAuthorization, "GET /\r\nAuthorization: a\nb\r\n\r\n"), "a");
    EXPECT_EQ(inspect(GetAuthorization, "GET /\r\nAuthorization: a\rb\r\n\r\n"), "a");
}

TEST(GetAuthorization, TakesANullBufferForEmptyAndANegativeLengthForNone) {
    EXPECT_EQ(GetAuthorization(nullptr, 100), "");
    EXPECT_EQ(GetAuthorization(login.data(), -1), "");
    EXPECT_EQ(GetAuthorization(login.data(), INT_MIN), "");
}

TEST(GetAuthorizationDecode, IsUserAndPassword) {
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic YWRtaW46c2VjcmV0"), "admin:secret");
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic YWRtaW46"), "admin:");
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic Og=="), ":");
}

TEST(GetAuthorizationDecode, DoesNotAskForTheScheme) {
    EXPECT_EQ(inspect(GetAuthorizationDecode, "x YTpi"), "a:b");
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Bearer YTpi"), "a:b");
}

TEST(GetAuthorizationDecode, IsEmptyForCharactersOutsideTheAlphabet) {
    for (const char* value : {"Basic YWRt!W46", "Basic YTpi*", "Basic YTpi YTpi", "Basic  YTpi",
                              "Basic YTp\xC3\xA4", "Basic YT-i"})
        EXPECT_EQ(inspect(GetAuthorizationDecode, value), "") << value;
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic YTpi\0"s), "");
}

TEST(GetAuthorizationDecode, IsEmptyWithoutBase64Text) {
    for (const char* value :
         {"", "Basic", "Basic ", "YTpiYTpi", "Basic \r\nYTpi", "Basic YTp", "Basic YTp\r\ni"})
        EXPECT_EQ(inspect(GetAuthorizationDecode, value), "") << value;
}

TEST(GetAuthorizationDecode, DoesNotSkipASpaceAtTheStart) {
    for (const char* value : {" ", " YTpi", "  YTpi", " \r\n", " Basic YTpi"})
        EXPECT_EQ(inspect(GetAuthorizationDecode, value), "") << value;
}

TEST(GetAuthorizationDecode, EndsAtEitherLineEnd) {
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic YTpi\r\n!"), "a:b");
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic YTpi\n!"), "a:b");
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic YTpi\rYTpi\n"), "a:b");
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic YTpi\nYTpi\r"), "a:b");
}

TEST(GetAuthorizationDecode, FindsTheSpaceAlsoBehindALineEnd) {
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic\r\nX: YTpi"), "a:b");
}

TEST(GetAuthorizationDecode, ReadsWholeGroupsOnly) {
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic YTpiYTp"), "a:b");
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic YTpi="), "a:b");
}

TEST(GetAuthorizationDecode, GoesOnBehindAPaddedGroup) {
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic YQ==YQ=="), "aa");
}

TEST(GetAuthorizationDecode, EndsAtAnEncodedNul) {
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic YQBi"), "a");
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic AGFi"), "");
}

TEST(GetAuthorizationDecode, IsEmptyAbove1023Bytes) {
    const auto groups = [](int count, const std::string& text) {
        std::string value = "Basic ";
        for (int i = 0; i < count; ++i) value += "YWFh";
        return value + text;
    };
    EXPECT_EQ(inspect(GetAuthorizationDecode, groups(340, "YWE=")), std::string(1022, 'a'));
    EXPECT_EQ(inspect(GetAuthorizationDecode, groups(341, "")), std::string(1023, 'a'));
    EXPECT_EQ(inspect(GetAuthorizationDecode, groups(341, "YWF")),
              std::string(1023, 'a'));                                   // no whole group more
    EXPECT_EQ(inspect(GetAuthorizationDecode, groups(341, "YQ==")), ""); // 1,024
    EXPECT_EQ(inspect(GetAuthorizationDecode, groups(342, "")), "");
    EXPECT_EQ(inspect(GetAuthorizationDecode, groups(100000, "")), "");
    // The NUL that would end the text early does not make it short enough.
    EXPECT_EQ(inspect(GetAuthorizationDecode, "Basic YQBi" + groups(341, "").substr(6)), "");
}

TEST(GetAuthorizationDecode, CountsDecodedBytesNotCharacters) {
    std::string value = "Basic ";
    for (int i = 0; i < 1023; ++i) value += "YQ==";
    EXPECT_EQ(inspect(GetAuthorizationDecode, value), std::string(1023, 'a'));
    EXPECT_EQ(inspect(GetAuthorizationDecode, value + "YQ=="), "");
}

TEST(GetAuthorizationDecode, AgreesWithTheRulesOnAnyBase64Text) {
    std::mt19937 random(1);
    for (int i = 0; i < 3000; ++i) {
        std::string value = "Basic ";
        for (std::size_t size = random() % 1600; size > 0; --size) value += "YWJjZGVm0189+/=="[random() % 16];
        EXPECT_EQ(inspect(GetAuthorizationDecode, value),
                  rules::authorizationDecode(value.data(), static_cast<int>(value.size())));
    }
}

TEST(GetAuthorizationDecode, LooksAtNothingBehindTheLength) {
    EXPECT_EQ(GetAuthorizationDecode("Basic YTpiYTpi", 10), "a:b");
    EXPECT_EQ(GetAuthorizationDecode("Basic YTpi!", 10), "a:b");
}

TEST(GetAuthorizationDecode, TakesANullBufferForEmptyAndANegativeLengthForNone) {
    EXPECT_EQ(GetAuthorizationDecode(nullptr, 100), "");
    EXPECT_EQ(GetAuthorizationDecode("Basic YTpi", -10), "");
    EXPECT_EQ(GetAuthorizationDecode("Basic YTpi", INT_MIN), "");
}

} // namespace
