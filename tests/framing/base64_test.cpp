#include "framing/base64.h"
#include "framing/inspection_rules.h"
#include "support/guarded_page.h"
#include "veltoprotocol/framing.h"

#include <climits>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace {

using namespace veltoprotocol;

// RFC 4648, section 10.
const struct {
    const char* plain;
    const char* encoded;
} vectors[] = {
    {"", ""},
    {"f", "Zg=="},
    {"fo", "Zm8="},
    {"foo", "Zm9v"},
    {"foob", "Zm9vYg=="},
    {"fooba", "Zm9vYmE="},
    {"foobar", "Zm9vYmFy"},
};

// Every byte value in order, and its Base64 text.
std::string everyByte() {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    return bytes;
}
const std::string everyByteEncoded =
    "AAECAwQFBgcICQoLDA0ODxAREhMUFRYXGBkaGxwdHh8gISIjJCUmJygpKissLS4vMDEyMzQ1Njc4OTo7"
    "PD0+P0BBQkNERUZHSElKS0xNTk9QUVJTVFVWV1hZWltcXV5fYGFiY2RlZmdoaWprbG1ub3BxcnN0dXZ3"
    "eHl6e3x9fn+AgYKDhIWGh4iJiouMjY6PkJGSk5SVlpeYmZqbnJ2en6ChoqOkpaanqKmqq6ytrq+wsbKz"
    "tLW2t7i5uru8vb6/wMHCw8TFxsfIycrLzM3Oz9DR0tPU1dbX2Nna29zd3t/g4eLj5OXm5+jp6uvs7e7v"
    "8PHy8/T19vf4+fr7/P3+/w==";

std::string randomBytes(std::mt19937& random, std::size_t size) {
    std::string bytes;
    while (bytes.size() < size) bytes += static_cast<char>(random() & 0xFF);
    return bytes;
}

// What Base64Encode writes, with the NUL that it counts, into a buffer of `room` bytes; a byte that it did
// not write stays '#'. Input and output end at protected pages.
std::string encodedInto(std::size_t room, std::string_view plain) {
    const GuardedPage in(plain);
    GuardedPage out(std::string(room, '#'));
    EXPECT_EQ(Base64Encode(out.data(), in.data(), in.length()), static_cast<int>(room));
    return std::string(out.bytes());
}

// All that Base64Decode leaves in a buffer of '#' that has exactly the room it is promised.
std::string decodedInto(std::size_t room, std::string_view text) {
    const GuardedPage in(text);
    GuardedPage out(std::string(room, '#'));
    Base64Decode(out.data(), in.data(), in.length());
    return std::string(out.bytes());
}
std::size_t promisedRoom(std::string_view text) { return text.size() * 3 / 4 + 1; }

// The decoded bytes, given that they and their NUL fill a buffer of exactly that size.
void expectDecoded(std::string_view text, const std::string& plain) {
    SCOPED_TRACE(testing::Message() << "text " << testing::PrintToString(text));
    EXPECT_EQ(decodedInto(plain.size() + 1, text), plain + '\0');
    EXPECT_EQ(decodedBase64Length({text.data(), text.size()}), plain.size());
}

void expectNothingWritten(std::string_view text) {
    SCOPED_TRACE(testing::Message() << "text " << testing::PrintToString(text));
    EXPECT_EQ(decodedInto(promisedRoom(text), text), std::string(promisedRoom(text), '#'));
    EXPECT_EQ(decodedBase64Length({text.data(), text.size()}), 0U);
}

TEST(Base64Encode, WritesTheVectorsOfTheStandardAndTheirNul) {
    for (const auto& vector : vectors) {
        const std::string want = std::string(vector.encoded) + '\0';
        EXPECT_EQ(encodedInto(want.size(), vector.plain), want);
    }
}

TEST(Base64Encode, CountsTheNulForThreeBytes) { EXPECT_EQ(encodedInto(5, "a:b"), std::string("YTpi\0", 5)); }

TEST(Base64Encode, PadsASingleByteTwice) { EXPECT_EQ(encodedInto(5, "a"), std::string("YQ==\0", 5)); }

TEST(Base64Encode, PadsTwoBytesOnce) { EXPECT_EQ(encodedInto(5, "ab"), std::string("YWI=\0", 5)); }

TEST(Base64Encode, WritesANulAloneForAnEmptyOrNegativeLength) {
    for (const int length : {0, -1, INT_MIN}) {
        char out[] = "####";
        EXPECT_EQ(Base64Encode(out, "abc", length), 1);
        EXPECT_EQ(std::string(out, 4), std::string("\0###", 4));
    }
}

TEST(Base64Encode, TakesBytesAsUnsigned) {
    EXPECT_EQ(encodedInto(345, everyByte()), everyByteEncoded + '\0');
    EXPECT_EQ(encodedInto(5, "\xFF\xFF\xFF"), std::string("////\0", 5));
    EXPECT_EQ(encodedInto(5, "\xFB\xEF\xBE"), std::string("++++\0", 5));
    EXPECT_EQ(encodedInto(5, "\x80"), std::string("gA==\0", 5));
}

TEST(Base64Encode, EncodesNulBytesLikeAnyOther) {
    EXPECT_EQ(encodedInto(5, std::string_view("\0\0\0", 3)), std::string("AAAA\0", 5));
    EXPECT_EQ(encodedInto(5, std::string_view("a\0b", 3)), std::string("YQBi\0", 5));
}

TEST(Base64Encode, AgreesWithTheRulesForEveryByteInEveryPlace) {
    for (int value = 0; value < 256; ++value)
        for (std::size_t size = 1; size <= 3; ++size)
            for (std::size_t place = 0; place < size; ++place) {
                std::string plain(size, 'U');
                plain[place] = static_cast<char>(value);
                EXPECT_EQ(encodedInto(5, plain), rules::base64Encode(plain) + '\0');
            }
}

TEST(Base64Encode, NeedsRoomForFourCharactersAGroupAndANul) {
    std::mt19937 random(1);
    for (std::size_t size = 0; size < 200; ++size) {
        const std::string plain = randomBytes(random, size);
        EXPECT_EQ(encodedInto(4 * ((size + 2) / 3) + 1, plain), rules::base64Encode(plain) + '\0');
    }
}

TEST(Base64Encode, CountsANullInputAsEmpty) {
    for (const int length : {-1, 0, 3, INT_MAX}) {
        char out[] = "####";
        EXPECT_EQ(Base64Encode(out, nullptr, length), 1);
        EXPECT_EQ(std::string(out, 4), std::string("\0###", 4));
    }
}

TEST(Base64Encode, Returns0WithoutAnOutput) {
    for (const int length : {-1, 0, 3, INT_MAX}) EXPECT_EQ(Base64Encode(nullptr, "abc", length), 0);
    EXPECT_EQ(Base64Encode(nullptr, nullptr, 0), 0);
}

TEST(Base64Encode, RefusesATextThatNoIntCouldCount) {
    for (const int length : {1610612734, INT_MAX - 1, INT_MAX}) {
        const GuardedPage in("abc");
        GuardedPage out("####");
        EXPECT_EQ(Base64Encode(out.data(), in.data(), length), -1);
        EXPECT_EQ(out.bytes(), "####");
    }
}

TEST(base64Length, IsFourCharactersForEachThreeBytesBegun) {
    EXPECT_EQ(base64Length(0), 0U);
    EXPECT_EQ(base64Length(1), 4U);
    EXPECT_EQ(base64Length(3), 4U);
    EXPECT_EQ(base64Length(4), 8U);
    EXPECT_EQ(base64Length(1610612733), 2147483644U); // the longest that Base64Encode can count
    EXPECT_EQ(base64Length(1610612734), 2147483648U);
}

TEST(encodeBase64, WritesNoNul) {
    for (const auto& vector : vectors) {
        GuardedPage out(std::strlen(vector.encoded));
        EXPECT_EQ(encodeBase64(out.data(), vector.plain), out.size());
        EXPECT_EQ(out.bytes(), vector.encoded);
    }
    char out = '#';
    EXPECT_EQ(encodeBase64(&out, Text{}), 0U);
    EXPECT_EQ(out, '#');
}

TEST(Base64Decode, ReadsTheVectorsOfTheStandard) {
    for (const auto& vector : vectors)
        if (*vector.plain) expectDecoded(vector.encoded, vector.plain);
}

TEST(Base64Decode, GivesEveryByteBack) { expectDecoded(everyByteEncoded, everyByte()); }

TEST(Base64Decode, WritesNothingBelowFourCharacters) {
    for (const char* text : {"", "Y", "YQ", "YQ="}) expectNothingWritten(text);
    for (const int len : {3, 0, -1, -4, INT_MIN}) {
        char out[] = "####";
        Base64Decode(out, "YWJj", len);
        EXPECT_STREQ(out, "####");
    }
}

TEST(Base64Decode, WritesNothingForACharacterOutsideTheAlphabet) {
    const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=";
    for (int value = 0; value < 256; ++value)
        for (std::size_t place = 0; place < 7; ++place) { // the last three stand behind the only whole group
            std::string text = "YWJjZGV";
            text[place] = static_cast<char>(value);
            if (alphabet.find(static_cast<char>(value)) == std::string::npos)
                expectNothingWritten(text);
            else
                EXPECT_GT(decodedBase64Length(text.c_str()), 0U);
        }
}

TEST(Base64Decode, KnowsNeitherTheUrlAlphabetNorBlanksNorLineEnds) {
    for (const char* text : {"YW-j", "YW_j", "YW j", "YWJj\r\nYWJj", " YWJj", "YWJj "})
        expectNothingWritten(text);
}

TEST(Base64Decode, EndsAGroupAtItsPaddingAndGoesOn) {
    expectDecoded("YQ==YQ==", "aa");
    expectDecoded("YWI=YWI=", "abab");
    expectDecoded("YQ==YWJjYWI=", "aabcab");
}

TEST(Base64Decode, StopsAtAPaddedThirdCharacterWhateverTheFourthIs) { expectDecoded("YQ=x", "a"); }

TEST(Base64Decode, TakesPaddingElsewhereAsZero) {
    expectDecoded("=QAB", std::string("\x01\x00\x01", 3));
    expectDecoded("E=AB", std::string("\x10\x00\x01", 3));
    expectDecoded("====", std::string(1, '\0'));
}

TEST(Base64Decode, DropsTheBitsLeftOverByPadding) {
    expectDecoded("YR==", "a");
    expectDecoded("YWJ=", "ab");
}

TEST(Base64Decode, IgnoresWhatFollowsTheLastWholeGroup) {
    for (const char* text : {"YWJj", "YWJjZ", "YWJjZG", "YWJjZGU", "YWJj=", "YWJj==="})
        expectDecoded(text, "abc");
}

TEST(Base64Decode, WritesANulBehindTheBytesAndNothingElse) {
    EXPECT_EQ(decodedInto(8, "YWJj"), std::string("abc\0####", 8));
    EXPECT_EQ(decodedInto(8, "YQ=="), std::string("a\0######", 8));
}

TEST(Base64Decode, NeverNeedsMoreThanThreeQuartersAndOneByte) {
    std::mt19937 random(2);
    for (int i = 0; i < 5000; ++i) {
        const std::size_t size = random() % 60;
        std::string text;
        while (text.size() < size) text += "ABYZabyz0189+/=="[random() % 16];
        std::string want;
        if (rules::base64Decode(text.data(), static_cast<int>(size), want)) want += '\0';
        const std::string got = decodedInto(promisedRoom(text), text);
        EXPECT_EQ(got, want + std::string(promisedRoom(text) - want.size(), '#')) << text;
    }
}

TEST(Base64Decode, WritesNothingForANullArgument) {
    char out[] = "####";
    Base64Decode(out, nullptr, 4);
    Base64Decode(nullptr, "YWJj", 4);
    Base64Decode(nullptr, nullptr, 4);
    EXPECT_STREQ(out, "####");
}

TEST(Base64Decode, UndoesBase64Encode) {
    std::mt19937 random(3);
    for (std::size_t size = 1; size < 300; ++size) {
        const std::string plain = randomBytes(random, size);
        std::string text(base64Length(size), '#');
        ASSERT_EQ(encodeBase64(&text[0], {plain.data(), plain.size()}), text.size());
        expectDecoded(text, plain);
    }
}

} // namespace
