#include "framing/inspection_rules.h"
#include "support/captured.h"
#include "support/guarded_page.h"
#include "veltoprotocol/framing.h"

#include <climits>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace veltoprotocol;
using namespace std::string_literals;

// Every inspector sees its bytes flush against a protected page.
template <class Result>
Result inspect(Result (*inspector)(const char*, int), std::string_view bytes) {
    const GuardedPage page(bytes);
    return inspector(page.data(), page.length());
}

// An inspector's answer together with what it printed.
template <class Result>
struct Answer {
    Result value;
    std::string printed;
};
template <class Result>
Answer<Result> heard(Result (*inspector)(const char*, int), std::string_view bytes) {
    Captured captured;
    Result value = inspect(inspector, bytes);
    return {value, captured.text()};
}

const std::string noUri = "not found http uri!\n";
const std::string noUriThrice = noUri + noUri + noUri;

// A head that announces a body of ten bytes.
const std::string head10 = "POST /servercommandservice HTTP/1.1\r\nHost: h\r\nContent-Length: 10\r\n\r\n";

const std::string login = "POST /servercommandservice HTTP/1.1\r\n"
                          "Host: 10.0.0.1:8080\r\n"
                          "Connection: keep-alive\r\n"
                          "Authorization: Basic YWRtaW46c2VjcmV0\r\n"
                          "Content-Type: text/xml; charset=utf-8\r\n"
                          "Content-Length: 17\r\n"
                          "\r\n"
                          "<login a=\"1 2\" />";

// ---------------------------------------------------------------------------------------------------------

TEST(CheckHttp, TakesThreeLettersAndABlankForAGet) { EXPECT_EQ(inspect(CheckHttp, "get "), 0); }

TEST(CheckHttp, RefusesAHeadRequest) { EXPECT_EQ(inspect(CheckHttp, "HEAD"), -1); }

TEST(CheckHttp, NeedsFourBytes) {
    EXPECT_EQ(inspect(CheckHttp, "get"), -2);
    EXPECT_EQ(inspect(CheckHttp, ""), -2);
    EXPECT_EQ(CheckHttp("GET /", 3), -2);
}

TEST(CheckHttp, NeedsABuffer) {
    EXPECT_EQ(CheckHttp(nullptr, 4), -2);
    EXPECT_EQ(CheckHttp(nullptr, 0), -2);
}

TEST(CheckHttp, TakesANegativeLengthForNone) {
    EXPECT_EQ(CheckHttp("GET /", -1), -2);
    EXPECT_EQ(CheckHttp("GET /", INT_MIN), -2);
}

TEST(CheckHttp, ComparesLettersInEitherCase) {
    for (const char* start :
         {"GET ", "Get ", "gEt ", "geT ", "POST", "post", "PoSt", "pOsT", "HTTP", "http", "hTtP"})
        EXPECT_EQ(inspect(CheckHttp, start), 0) << start;
}

TEST(CheckHttp, LooksAtThreeLettersOnlyOfAGet) {
    EXPECT_EQ(inspect(CheckHttp, "GETX"), 0);
    EXPECT_EQ(inspect(CheckHttp, "get\xFF"), 0);
    EXPECT_EQ(inspect(CheckHttp, "get\0"s), 0);
    EXPECT_EQ(inspect(CheckHttp, "POSX"), -1);
    EXPECT_EQ(inspect(CheckHttp, "HTTX"), -1);
}

TEST(CheckHttp, RefusesAnyOtherStart) {
    for (const char* start :
         {"PUT /", "DELETE", "OPTIONS", " GET /", "\r\nGET", "<?xml", "GTE /", "gost", "pttp"})
        EXPECT_EQ(inspect(CheckHttp, start), -1) << start;
}

TEST(CheckHttp, RefusesEveryOtherByteInEveryPlace) {
    for (const std::string start : {"get", "post", "http"})
        for (std::size_t place = 0; place < start.size(); ++place)
            for (int value = 0; value < 256; ++value) {
                std::string bytes = start + "....";
                bytes[place] = static_cast<char>(value);
                const bool letter = value == start[place] || value == start[place] - 'a' + 'A';
                EXPECT_EQ(inspect(CheckHttp, bytes), letter ? 0 : -1) << start << place << ' ' << value;
            }
}

// ---------------------------------------------------------------------------------------------------------

TEST(GetHttpLength, CountsTheBlankLine) {
    EXPECT_EQ(inspect(GetHttpLength, "GET / HTTP/1.1\r\n\r\n"), 18);
    EXPECT_EQ(inspect(GetHttpLength, "GET / HTTP/1.1\r\n\r\nbody"), 18);
    EXPECT_EQ(inspect(GetHttpLength, "\r\n\r\n"), 4);
}

TEST(GetHttpLength, TakesTheFirstBlankLine) { EXPECT_EQ(inspect(GetHttpLength, "a\r\n\r\nb\r\n\r\n"), 5); }

TEST(GetHttpLength, IsMinusOneWithoutABlankLine) {
    for (const char* bytes : {"", "\r", "\r\n", "\r\n\r", "GET / HTTP/1.1\r\nHost: h\r\n", "a\n\nb",
                              "\n\r\n\r", "\r\n \r\n", "\r\r\n\n"})
        EXPECT_EQ(inspect(GetHttpLength, bytes), -1) << testing::PrintToString(bytes);
}

TEST(GetHttpLength, FindsABlankLineBehindHalfOfOne) {
    EXPECT_EQ(inspect(GetHttpLength, "\r\r\n\r\n"), 5);
    EXPECT_EQ(inspect(GetHttpLength, "\r\n\r\r\n\r\n"), 7);
    EXPECT_EQ(inspect(GetHttpLength, "\n\r\n\r\n"), 5);
}

TEST(GetHttpLength, DoesNotStopAtANul) { EXPECT_EQ(inspect(GetHttpLength, "a\0b\r\n\r\n"s), 7); }

TEST(GetHttpLength, LooksAtNothingBehindTheLength) {
    for (int len = 0; len < 4; ++len) EXPECT_EQ(GetHttpLength("\r\n\r\n", len), -1);
    EXPECT_EQ(GetHttpLength("\r\n\r\n", 4), 4);
}

TEST(GetHttpLength, TakesANullBufferForEmptyAndANegativeLengthForNone) {
    EXPECT_EQ(GetHttpLength(nullptr, 100), -1);
    EXPECT_EQ(GetHttpLength(nullptr, 0), -1);
    EXPECT_EQ(GetHttpLength("\r\n\r\n", -4), -1);
    EXPECT_EQ(GetHttpLength("\r\n\r\n", INT_MIN), -1);
}

// ---------------------------------------------------------------------------------------------------------

TEST(GetContentLen, ReadsTheHeader) {
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 417\r\n"), 417);
    EXPECT_EQ(inspect(GetContentLen, login), 17);
}

TEST(GetContentLen, KnowsTheNameInLowerCase) {
    EXPECT_EQ(inspect(GetContentLen, "content-length: 5\r\nX: aaaaaaaaaaaaaaaa"), 5);
}

TEST(GetContentLen, KnowsTheNameInMixedCase) {
    EXPECT_EQ(inspect(GetContentLen, "cONTeNT-lENGTH: 5\r\nX: aaaaaaaaaaaaaaaa"), 5);
}

TEST(GetContentLen, DoesNotKnowTheNameInCapitals) {
    EXPECT_EQ(inspect(GetContentLen, "CONTENT-LENGTH: 5\r\nX: aaaaaaaaaaaaaaaa"), -1);
}

TEST(GetContentLen, DoesNotKnowTheNameWithACapitalFirstE) {
    EXPECT_EQ(inspect(GetContentLen, "ContEnt-Length: 5\r\nX: aaaaaaaaaaaaaaaa"), -1);
    EXPECT_EQ(inspect(GetContentLen, "Content-LEngth: 5\r\nX: aaaaaaaaaaaaaaaa"), 5); // the second may be one
}

TEST(GetContentLen, TakesNothingElseForTheHyphen) {
    // CR, with the bit set that makes a letter lower-case, is a hyphen.
    EXPECT_EQ(inspect(GetContentLen, "Content\rLength: 5\nX: aaaaaaaaaaaaaaaa"), -1);
    EXPECT_EQ(inspect(GetContentLen, "Content Length: 5\r\nX: aaaaaaaaaaaaaaa"), -1);
}

TEST(GetContentLen, RefusesEveryOtherByteInEveryPlaceOfTheName) {
    const std::string name = "content-length";
    for (std::size_t place = 0; place < name.size(); ++place)
        for (int value = 0; value < 256; ++value) {
            std::string bytes = name + ": 5\r\nX: aaaaaaaaaaaaaaaa";
            bytes[place] = static_cast<char>(value);
            const bool same = value == name[place];
            const bool capital = place != 4 && place != 7 && value == name[place] - 'a' + 'A';
            EXPECT_EQ(inspect(GetContentLen, bytes), same || capital ? 5 : -1) << place << ' ' << value;
        }
}

TEST(GetContentLen, WithoutTheNameReadsTheLastThirteenBytes) {
    EXPECT_EQ(inspect(GetContentLen, "CONTENT-LENGTH: 1\r\n\r\n<id>7<b>8</b>"), 78);
    EXPECT_EQ(inspect(GetContentLen, "................7............"), 7); // the thirteenth from the end
    EXPECT_EQ(inspect(GetContentLen, "...............7............."), -1);
    EXPECT_EQ(inspect(GetContentLen, "............................7"), 7);
    EXPECT_EQ(inspect(GetContentLen, "................12\r3........."), 12);
}

TEST(GetContentLen, ReadsAllOfAShortBuffer) {
    EXPECT_EQ(inspect(GetContentLen, ""), -1);
    EXPECT_EQ(inspect(GetContentLen, "7"), 7);
    EXPECT_EQ(inspect(GetContentLen, "7..........."), 7);    // 12 bytes
    EXPECT_EQ(inspect(GetContentLen, "7............"), 7);   // 13
    EXPECT_EQ(inspect(GetContentLen, "7............."), -1); // 14, so the first is left out
    EXPECT_EQ(inspect(GetContentLen, ".7............"), 7);
}

TEST(GetContentLen, FindsTheNameAlone) {
    EXPECT_EQ(inspect(GetContentLen, "Content-Length"), -1); // 14 bytes
    EXPECT_EQ(inspect(GetContentLen, "Content-Length1"), 1);
    EXPECT_EQ(inspect(GetContentLen, "1Content-Length"), -1);
    EXPECT_EQ(inspect(GetContentLen, "Content-Lengt"), -1); // 13
    EXPECT_EQ(inspect(GetContentLen, "Content-Leng1"), 1);
}

TEST(GetContentLen, FindsTheNameWhereverItStands) {
    EXPECT_EQ(inspect(GetContentLen, "9 X-Content-Length-Y: 5\r\n"), 5);
    EXPECT_EQ(inspect(GetContentLen, "a: 9\r\n\r\n<b>content-length=6</b>\n"), 6);
    EXPECT_EQ(inspect(GetContentLen, "Content-Content-Length: 5\r\nX: aaaaaaaaaa"), 5);
}

TEST(GetContentLen, TakesTheFirstOfTwoNames) {
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 5\r\nContent-Length: 6\r\n"), 5);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: \r\nContent-Length: 6\r\n"), -1);
}

TEST(GetContentLen, JoinsTheDigitsOfTheLine) {
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 1 2\r\n"), 12);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 1a2-3\t4\r\n"), 1234);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length2: 1\r\n"), 21);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 1\0002\xB2\xFF"s + "3\r\n"), 123);
}

TEST(GetContentLen, IgnoresASign) { EXPECT_EQ(inspect(GetContentLen, "Content-Length: -5\r\n"), 5); }

TEST(GetContentLen, StopsAtEitherLineEnd) {
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 1\r2\n3"), 1);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 1\n2\r3"), 1);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 12"), 12);
}

TEST(GetContentLen, CountsSixteenDigitsAndNoMore) {
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 0000000000000042\r\n"), 42);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 00000000000000425\r\n"), 42);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 0000 0000 0000 0042 99999\r\n"), 42);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 000000000000042\r\n"), 42);
}

TEST(GetContentLen, IsMinusOneWithoutADigit) {
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: \r\n1"), -1);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: five\r\n"), -1);
    EXPECT_EQ(inspect(GetContentLen, "GET / HTTP/1.1\r\nHost: hhhhhhhhhh"), -1);
}

TEST(GetContentLen, ReadsZero) { EXPECT_EQ(inspect(GetContentLen, "Content-Length: 0\r\n"), 0); }

TEST(GetContentLen, IsMinusOneAboveTheLargestInt) {
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 2147483647\r\n"), 2147483647);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 2147483648\r\n"), -1);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 4294967297\r\n"), -1);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 9999999999999999\r\n"), -1);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 99999999999999999999999999\r\n"), -1);
}

TEST(GetContentLen, LooksAtNothingBehindTheLength) {
    EXPECT_EQ(GetContentLen("Content-Length: 123", 18), 12);
    EXPECT_EQ(GetContentLen("123", 2), 12);
}

TEST(GetContentLen, TakesANullBufferForEmptyAndANegativeLengthForNone) {
    EXPECT_EQ(GetContentLen(nullptr, 100), -1);
    EXPECT_EQ(GetContentLen(nullptr, 0), -1);
    EXPECT_EQ(GetContentLen("123", -3), -1);
    EXPECT_EQ(GetContentLen("123", INT_MIN), -1);
}

// ---------------------------------------------------------------------------------------------------------

TEST(GetHttpPacketLength, WaitsForTheLastByteOfTheBody) {
    EXPECT_EQ(inspect(GetHttpPacketLength, head10 + "123456789"), -1);
}

TEST(GetHttpPacketLength, IsHeadAndBodyOnceBothAreThere) {
    EXPECT_EQ(head10.size(), 68U);
    EXPECT_EQ(inspect(GetHttpPacketLength, head10 + "1234567890"), 78);
}

TEST(GetHttpPacketLength, LeavesOutWhatFollowsTheMessage) {
    EXPECT_EQ(inspect(GetHttpPacketLength, head10 + "1234567890" + head10), 78);
}

TEST(GetHttpPacketLength, NeverFramesAnEmptyBody) {
    EXPECT_EQ(inspect(GetHttpPacketLength, "GET / HTTP/1.1\r\nContent-Length: 0\r\n\r\n"), -1);
    EXPECT_EQ(inspect(GetHttpPacketLength, "GET / HTTP/1.1\r\nContent-Length: 0\r\n\r\nbody"), -1);
}

TEST(GetHttpPacketLength, NeverFramesAMessageWithoutALength) {
    EXPECT_EQ(inspect(GetHttpPacketLength, "GET / HTTP/1.1\r\nHost: h\r\n\r\nsome body without a number"),
              -1);
}

TEST(GetHttpPacketLength, NeedsAWholeHead) {
    EXPECT_EQ(inspect(GetHttpPacketLength, "Content-Length: 1\r\nHost: h\r\n"), -1);
    EXPECT_EQ(inspect(GetHttpPacketLength, ""), -1);
}

TEST(GetHttpPacketLength, TakesALengthFromTheBodyWhenTheHeadHasNone) {
    EXPECT_EQ(inspect(GetHttpPacketLength, "GET / HTTP/1.1\r\n\r\nContent-Length: 3 "), 21);
    EXPECT_EQ(inspect(GetHttpPacketLength, "GET / HTTP/1.1\r\n\r\n..............5......"), 23);
}

TEST(GetHttpPacketLength, CannotWrap) {
    EXPECT_EQ(inspect(GetHttpPacketLength, "Content-Length: 2147483647\r\n\r\n"), -1);
    EXPECT_EQ(inspect(GetHttpPacketLength, "Content-Length: 2147483620\r\n\r\n"), -1);
    EXPECT_EQ(inspect(GetHttpPacketLength, "Content-Length: 4294967297\r\n\r\nx"), -1);
}

TEST(GetHttpPacketLength, TakesANullBufferForEmptyAndANegativeLengthForNone) {
    const std::string whole = head10 + "1234567890";
    EXPECT_EQ(GetHttpPacketLength(nullptr, 100), -1);
    EXPECT_EQ(GetHttpPacketLength(whole.data(), -78), -1);
    EXPECT_EQ(GetHttpPacketLength(whole.data(), INT_MIN), -1);
}

// ---------------------------------------------------------------------------------------------------------

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

// ---------------------------------------------------------------------------------------------------------

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

// ---------------------------------------------------------------------------------------------------------

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

// ---------------------------------------------------------------------------------------------------------

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

// ---------------------------------------------------------------------------------------------------------

// Only the texts between spaces have a line to print.
TEST(HttpInspection, PrintsNothingElse) {
    Captured captured;
    for (const char* bytes : {"", "x", "GET", "\r\n\r\n", "Content-Length: x\r\n\r\n"}) {
        inspect(CheckHttp, bytes);
        inspect(GetHttpLength, bytes);
        inspect(GetContentLen, bytes);
        inspect(GetHttpPacketLength, bytes);
        inspect(GetContentType, bytes);
        inspect(GetAuthorization, bytes);
        inspect(GetAuthorizationDecode, bytes);
    }
    EXPECT_EQ(captured.text(), "");
}

// A message that arrives byte by byte: nothing is read that has not arrived yet, and no answer comes early.
TEST(HttpInspection, AnswersForEveryTruncationOfARequest) {
    const std::size_t pathEnd = login.find(" HTTP");
    const std::size_t name = login.find("Content-Length");
    const std::size_t lengthEnd = login.find("17\r") + 2;
    const std::size_t head = login.find("\r\n\r\n") + 4;
    ASSERT_EQ(head + 17, login.size());
    Captured captured;
    std::string printed;
    for (std::size_t size = 0; size <= login.size(); ++size) {
        SCOPED_TRACE(size);
        const GuardedPage page(login.substr(0, size));
        const char* const buf = page.data();
        const int len = page.length();

        EXPECT_EQ(CheckHttp(buf, len), size < 4 ? -2 : 0);
        EXPECT_EQ(GetHttpLength(buf, len), size < head ? -1 : static_cast<int>(head));
        EXPECT_EQ(GetHttpPacketLength(buf, len), size < login.size() ? -1 : static_cast<int>(login.size()));
        if (size >= lengthEnd)
            EXPECT_EQ(GetContentLen(buf, len), 17);
        else if (size >= name + 14)
            EXPECT_EQ(GetContentLen(buf, len), size == lengthEnd - 1 ? 1 : -1);
        else
            EXPECT_EQ(GetContentLen(buf, len), rules::contentLen(login.data(), static_cast<int>(size)));

        const bool path = size > pathEnd;
        EXPECT_EQ(GetHttpFirstValue(buf, len), path ? "/servercommandservice" : "");
        EXPECT_EQ(GetUri(buf, len), path ? "/servercommandservice" : "");
        EXPECT_EQ(GetHttpStatus(buf, len), 0);
        if (!path) printed += noUriThrice;

        EXPECT_EQ(GetContentType(buf, len), size < head ? "" : "text/xml; charset=utf-8");
        EXPECT_EQ(GetAuthorization(buf, len), size < head ? "" : "Basic YWRtaW46c2VjcmV0");
        // A request is not a header's value, and yet its path is Base64 text up to the next blank.
        EXPECT_EQ(GetAuthorizationDecode(buf, len), rules::authorizationDecode(login.data(), len));
    }
    EXPECT_EQ(captured.text(), printed);
}

TEST(HttpInspection, AnswersForEveryTruncationOfAnAuthorizationValue) {
    const std::string value = "Basic YWRtaW46c2VjcmV0";
    const std::string decoded = "admin:secret";
    for (std::size_t size = 0; size <= value.size(); ++size) {
        const std::size_t groups = size < 6 ? 0 : (size - 6) / 4;
        EXPECT_EQ(inspect(GetAuthorizationDecode, value.substr(0, size)), decoded.substr(0, 3 * groups))
            << size;
    }
}

// ---------------------------------------------------------------------------------------------------------

std::size_t below(std::mt19937& random, std::size_t limit) { return random() % limit; }

// The texts between the bars.
std::vector<std::string> split(const std::string& list) {
    std::vector<std::string> texts(1);
    for (const char c : list)
        if (c == '|')
            texts.emplace_back();
        else
            texts.back() += c;
    return texts;
}

// A buffer of what the rules turn on, whole, mutilated and between random bytes.
std::string interesting(std::mt19937& random) {
    static const std::vector<std::string> fragments =
        split("Content-Length|content-length|CONTENT-LENGTH|cONTeNT-lENGTH|Content\rLength|Content-Lengt|"
              "Content-Type|content-type|CONTENT-TYPE|Content-TYPE|Content\rType|Content-Typ|"
              "Authorization|authorization|AUTHORIZATION|AuthoriZation|Authorizatio|"
              "Content-Length: |Content-Type: |Authorization: |text/xml; charset=utf-8|"
              ":|: | |  |\r\n\r\n|\r\n|\r|\n|\r\n\r|\n\r\n|-|z|Z|z-Z|\0|\xFF|"
              "Basic |Basic YTpi|YQ==|YWI=|YWJj|=|+/|GET|get |POST |HTTP/1.1 200 OK|HTTP/1.1 |http|/uri|"
              "0|7|12|-5|2147483647|2147483648|0000000000000000|99999999999999999"s);
    std::string bytes;
    for (std::size_t pieces = below(random, 12); pieces > 0; --pieces) {
        switch (below(random, 8)) {
        case 0:
            for (std::size_t i = below(random, 20); i > 0; --i) bytes += static_cast<char>(random() & 0xFF);
            break;
        case 1:
            for (std::size_t i = below(random, 20); i > 0; --i)
                bytes += static_cast<char>('0' + below(random, 10));
            break;
        case 2:
            for (std::size_t i = below(random, 9); i > 0; --i) bytes += "YWJjQ0189+/="[below(random, 12)];
            break;
        default:
            bytes += fragments[below(random, fragments.size())];
        }
    }
    if (!bytes.empty() && below(random, 4) == 0) {
        char& byte = bytes[below(random, bytes.size())];
        byte = static_cast<char>(below(random, 2) ? byte ^ 0x20 : random() & 0xFF);
    }
    return bytes;
}

// A whole message, or what is left of it when it is cut and its bytes are changed.
std::string nearlyAMessage(std::mt19937& random) {
    std::string bytes = login;
    for (std::size_t changes = below(random, 4); changes > 0; --changes) {
        const std::size_t at = below(random, bytes.size() - 20);
        switch (below(random, 4)) {
        case 0:
            bytes[at] = static_cast<char>(bytes[at] ^ 0x20);
            break;
        case 1:
            bytes.erase(at, 1 + below(random, 12));
            break;
        case 2:
            bytes.insert(at, interesting(random));
            break;
        default:
            bytes[at] = static_cast<char>(random() & 0xFF);
        }
    }
    if (below(random, 2)) bytes.erase(0, below(random, bytes.size()));
    return bytes.substr(0, bytes.size() - (below(random, 2) ? below(random, bytes.size() + 1) : 0));
}

// Compares every inspector with the rules; returns the lines that the three of them that print must print.
std::string expectByTheRules(const std::string& bytes) {
    SCOPED_TRACE(testing::Message() << "buffer " << testing::PrintToString(bytes));
    const GuardedPage page(bytes);
    const char* const buf = page.data();
    const int len = page.length();
    EXPECT_EQ(CheckHttp(buf, len), rules::checkHttp(buf, len));
    EXPECT_EQ(GetHttpLength(buf, len), rules::httpLength(buf, len));
    EXPECT_EQ(GetContentLen(buf, len), rules::contentLen(buf, len));
    EXPECT_EQ(GetHttpPacketLength(buf, len), rules::packetLength(buf, len));
    EXPECT_EQ(GetContentType(buf, len), rules::contentType(buf, len));
    EXPECT_EQ(GetAuthorization(buf, len), rules::authorization(buf, len));
    EXPECT_EQ(GetAuthorizationDecode(buf, len), rules::authorizationDecode(buf, len));

    std::string value;
    const bool found = rules::firstValue(buf, len, value);
    EXPECT_EQ(GetHttpFirstValue(buf, len), value);
    EXPECT_EQ(GetUri(buf, len), value);
    EXPECT_EQ(GetHttpStatus(buf, len), rules::httpStatus(buf, len));

    std::string decoded;
    const bool written = rules::base64Decode(buf, len, decoded);
    const std::size_t room = bytes.size() / 4 * 3 + 1;
    GuardedPage out(std::string(room, '#'));
    Base64Decode(out.data(), buf, len);
    if (written) decoded += '\0';
    EXPECT_EQ(out.bytes(), decoded + std::string(room - decoded.size(), '#'));
    return found ? "" : noUriThrice;
}

TEST(HttpInspection, AgreesWithTheRulesOnAnyBytes) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        std::mt19937 random(seed);
        Captured captured;
        std::string printed;
        for (int i = 0; i < 300; ++i) printed += expectByTheRules(interesting(random));
        EXPECT_EQ(captured.text(), printed);
        if (HasFailure()) return;
    }
}

TEST(HttpInspection, AgreesWithTheRulesOnDamagedMessages) {
    for (unsigned seed = 0; seed < 50; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        std::mt19937 random(seed);
        Captured captured;
        std::string printed;
        for (int i = 0; i < 300; ++i) printed += expectByTheRules(nearlyAMessage(random));
        EXPECT_EQ(captured.text(), printed);
        if (HasFailure()) return;
    }
}

// All texts of up to seven bytes over the few that decide about a blank line, a space and a digit.
TEST(HttpInspection, AgreesWithTheRulesOnEveryShortText) {
    const std::string letters = "\r\n 7";
    Captured captured;
    std::string printed;
    for (std::size_t size = 0; size <= 7; ++size)
        for (std::size_t code = 0; code < std::size_t(1) << (2 * size); ++code) {
            std::string bytes;
            for (std::size_t i = 0; i < size; ++i) bytes += letters[code >> (2 * i) & 3];
            printed += expectByTheRules(bytes);
        }
    EXPECT_EQ(captured.text(), printed);
}

} // namespace
