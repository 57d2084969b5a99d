// What the first line and the content type say.
#include "framing/inspecting.h"

#include <climits>
#include <gtest/gtest.h>

namespace {

using namespace veltoprotocol;
using namespace std::string_literals;

TEST(GetHttpFirstValue, IsTheTextBetweenTheFirstTwoSpaces) {
    const auto got = heard(GetHttpFirstValue, "GET /a?b=c HTTP/1.1 and more");
    EXPECT_EQ(got.value, "/a?b=c");
    EXPECT_EQ(got.printed, "");
}

TEST(GetHttpFirstValue, PrintsItsLineWithoutASpace) {
    for (const char* bytes : {"", "GET", "GET\t/\tHTTP/1.1\r\n"}) {
        const auto got = heard(GetHttpFirstValue, bytes);
        EXPECT_EQ(got.value, "");
        EXPECT_EQ(got.printed, noUri);
    }
}

TEST(GetHttpFirstValue, PrintsItsLineWithoutASecondSpace) {
    for (const char* bytes : {"GET /", "GET ", "a b\r\n\r\n"}) {
        const auto got = heard(GetHttpFirstValue, bytes);
        EXPECT_EQ(got.value, "");
        EXPECT_EQ(got.printed, noUri);
    }
}

TEST(GetHttpFirstValue, PrintsItsLineForABufferThatBeginsWithItsOnlySpace) {
    for (const char* bytes : {" ", " /uri", " \r\n"}) {
        const auto got = heard(GetHttpFirstValue, bytes);
        EXPECT_EQ(got.value, "");
        EXPECT_EQ(got.printed, noUri);
    }
}

TEST(GetHttpFirstValue, IsEmptyBetweenAdjacentSpacesAndPrintsNothing) {
    for (const char* bytes : {"GET  HTTP/1.1", "  ", "a  "}) {
        const auto got = heard(GetHttpFirstValue, bytes);
        EXPECT_EQ(got.value, "");
        EXPECT_EQ(got.printed, "");
    }
}

TEST(GetHttpFirstValue, ReadsBehindALeadingSpace) {
    const auto got = heard(GetHttpFirstValue, " /a b");
    EXPECT_EQ(got.value, "/a");
    EXPECT_EQ(got.printed, "");
}

TEST(GetHttpFirstValue, DoesNotStopAtLineEnds) {
    EXPECT_EQ(heard(GetHttpFirstValue, "GET /a\r\nHost: h").value, "/a\r\nHost:");
    EXPECT_EQ(heard(GetHttpFirstValue, "GET\r\nHost: /a b").value, "/a");
}

TEST(GetHttpFirstValue, KeepsEveryByteOfTheText) {
    EXPECT_EQ(heard(GetHttpFirstValue, "GET a\0\xFF\tb c"s).value, "a\0\xFF\tb"s);
}

TEST(GetHttpFirstValue, LooksAtNothingBehindTheLength) {
    Captured captured;
    EXPECT_EQ(GetHttpFirstValue("GET /a ", 6), "");
    EXPECT_EQ(GetHttpFirstValue("GET /a ", 7), "/a");
    EXPECT_EQ(captured.text(), noUri);
}

TEST(GetHttpFirstValue, TakesANullBufferForEmptyAndANegativeLengthForNone) {
    Captured captured;
    EXPECT_EQ(GetHttpFirstValue(nullptr, 100), "");
    EXPECT_EQ(GetHttpFirstValue("GET /a ", -7), "");
    EXPECT_EQ(GetHttpFirstValue("GET /a ", INT_MIN), "");
    EXPECT_EQ(captured.text(), noUriThrice);
}

TEST(GetUri, IsThePathOfARequestLine) {
    const auto got = heard(GetUri, "POST /servercommandservice HTTP/1.1");
    EXPECT_EQ(got.value, "/servercommandservice");
    EXPECT_EQ(got.printed, "");
}

TEST(GetUri, PrintsItsLineWhenThereIsNone) {
    for (const char* bytes : {"", "POST", "POST /servercommandservice", " /servercommandservice"}) {
        const auto got = heard(GetUri, bytes);
        EXPECT_EQ(got.value, "");
        EXPECT_EQ(got.printed, noUri);
    }
}

TEST(GetUri, TakesANullBufferForEmptyAndANegativeLengthForNone) {
    Captured captured;
    EXPECT_EQ(GetUri(nullptr, 100), "");
    EXPECT_EQ(GetUri("GET /a ", -7), "");
    EXPECT_EQ(captured.text(), noUri + noUri);
}

TEST(GetHttpStatus, IsTheCodeOfAResponse) {
    const auto got = heard(GetHttpStatus, "HTTP/1.1 401 Unauthorized");
    EXPECT_EQ(got.value, 401);
    EXPECT_EQ(got.printed, "");
    EXPECT_EQ(heard(GetHttpStatus, "HTTP/1.1 200 OK\r\nServer: vtengine\r\n").value, 200);
}

TEST(GetHttpStatus, Is0AndPrintsALineWhenThereIsNone) {
    for (const char* bytes : {"", "HTTP/1.1", "HTTP/1.1 404", " 404"}) {
        const auto got = heard(GetHttpStatus, bytes);
        EXPECT_EQ(got.value, 0);
        EXPECT_EQ(got.printed, noUri);
    }
}

TEST(GetHttpStatus, ReadsTheTextAsAtoiDoes) {
    const struct {
        const char* bytes;
        int want;
    } cases[] = {
        {"a -5 b", -5},
        {"a +7 b", 7},
        {"a 12x b", 12},
        {"a x12 b", 0},
        {"a 0x10 b", 0},
        {"a 010 b", 10},
        {"a \t\r\n9 b", 9},
        {"a  9 b", 0},
        {"a 2147483648 b", INT_MIN},
        {"a 4294967297 b", 1},
        {"a 9223372036854775808 b", -1}, // as strtol saturates, then narrowed
        {"a -9223372036854775809 b", 0},
    };
    for (const auto& c : cases) {
        const auto got = heard(GetHttpStatus, c.bytes);
        EXPECT_EQ(got.value, c.want) << c.bytes;
        EXPECT_EQ(got.printed, "");
    }
    EXPECT_EQ(heard(GetHttpStatus, "a 1\0002 b"s).value, 1);
}

TEST(GetHttpStatus, TakesANullBufferForEmptyAndANegativeLengthForNone) {
    Captured captured;
    EXPECT_EQ(GetHttpStatus(nullptr, 100), 0);
    EXPECT_EQ(GetHttpStatus("a 5 ", -4), 0);
    EXPECT_EQ(captured.text(), noUri + noUri);
}

TEST(GetContentType, IsTheValueOfTheHeader) {
    EXPECT_EQ(inspect(GetContentType, login), "text/xml; charset=utf-8");
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nContent-Type: image/jpg\r\n\r\n"), "image/jpg");
}

TEST(GetContentType, KnowsTheNameInLowerAndMixedCase) {
    EXPECT_EQ(inspect(GetContentType, "GET /\r\ncontent-type: a/b\r\n\r\n"), "a/b");
    EXPECT_EQ(inspect(GetContentType, "GET /\r\ncONTeNT-tYPE: a/b\r\n\r\n"), "a/b");
}

TEST(GetContentType, DoesNotKnowTheNameInCapitals) {
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nCONTENT-TYPE: a/b\r\n\r\n"), "");
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nContEnt-Type: a/b\r\n\r\n"), "");
}

TEST(GetContentType, RefusesEveryOtherByteInEveryPlaceOfTheName) {
    const std::string name = "content-type";
    for (std::size_t place = 0; place < name.size(); ++place)
        for (int value = 0; value < 256; ++value) {
            std::string bytes = "X: 1\r\n" + name + ": a/b\r\n\r\n";
            bytes[6 + place] = static_cast<char>(value);
            const bool same = value == name[place];
            const bool capital = place != 4 && place != 7 && value == name[place] - 'a' + 'A';
            EXPECT_EQ(inspect(GetContentType, bytes), same || capital ? "a/b" : "") << place << ' ' << value;
        }
}

TEST(GetContentType, NeedsAWholeHead) {
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nContent-Type: a/b\r\n"), "");
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nContent-Type: a/b\r\n\r"), "");
    EXPECT_EQ(inspect(GetContentType, ""), "");
}

TEST(GetContentType, LooksAtNothingBehindTheHead) {
    EXPECT_EQ(inspect(GetContentType, "GET / HTTP/1.1\r\n\r\nX: 1\r\nContent-Type: a/b\r\n\r\n"), "");
}

TEST(GetContentType, IsTheFirstLineOfAHeadShorterThanTheName) {
    EXPECT_EQ(inspect(GetContentType, "GET / X\r\n\r\n"), "GET / X"); // 11 bytes
    EXPECT_EQ(inspect(GetContentType, "GET / X\r\n\r\nContent-Type: a/b\r\n\r\n"), "GET / X");
    EXPECT_EQ(inspect(GetContentType, "G\nET\r\r\n\r\n"), "G");
    EXPECT_EQ(inspect(GetContentType, "\r\n\r\n"), "");
    EXPECT_EQ(inspect(GetContentType, "GET / XY\r\n\r\n"), "");  // 12
    EXPECT_EQ(inspect(GetContentType, "GET / XYZ\r\n\r\n"), ""); // 13
}

TEST(GetContentType, IsTheWholeLineForANameAtTheVeryStart) {
    EXPECT_EQ(inspect(GetContentType, "Content-Type: text/xml\r\n\r\n"), "Content-Type: text/xml");
    EXPECT_EQ(inspect(GetContentType, "Content-Type: a\r\nContent-Type: b\r\n\r\n"), "Content-Type: a");
}

TEST(GetContentType, SkipsTwoBytesBehindTheNameWhateverTheyAre) {
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nContent-Type:text/xml\r\n\r\n"), "ext/xml");
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nContent-Type:  text/xml\r\n\r\n"), " text/xml");
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nContent-Type\r\nHost: h\r\n\r\n"), "Host: h");
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nContent-Type:\r\nHost: h\r\n\r\n"), "");
}

TEST(GetContentType, MayBeEmpty) {
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nContent-Type: \r\nHost: h\r\n\r\n"), "");
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nContent-Type\r\n\r\n"), "");
}

TEST(GetContentType, EndsAtEitherLineEnd) {
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nContent-Type: a\nb\r\n\r\n"), "a");
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nContent-Type: a\rb\r\n\r\n"), "a");
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nContent-Type: a\0b\xFF\r\n\r\n"s), "a\0b\xFF"s);
}

TEST(GetContentType, FindsTheNameWhereverItStandsInTheHead) {
    EXPECT_EQ(inspect(GetContentType, "GET /content-type=5 HTTP\r\nContent-Type: a/b\r\n\r\n"), " HTTP");
    EXPECT_EQ(inspect(GetContentType, "GET /\r\nX-Content-Type: a\r\nContent-Type: b\r\n\r\n"), "a");
}

TEST(GetContentType, TakesANullBufferForEmptyAndANegativeLengthForNone) {
    EXPECT_EQ(GetContentType(nullptr, 100), "");
    EXPECT_EQ(GetContentType(login.data(), -1), "");
    EXPECT_EQ(GetContentType(login.data(), INT_MIN), "");
}

} // namespace
