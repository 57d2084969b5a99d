// Whether bytes are HTTP, and where head and message end.
#include "framing/inspecting.h"

#include <climits>
#include <gtest/gtest.h>

namespace {

using namespace veltoprotocol;
using namespace std::string_literals;

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

} // namespace
