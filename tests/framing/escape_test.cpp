#include "framing/escape.h"

#include "support/guarded_page.h"

#include <gtest/gtest.h>
#include <tinyxml.h>

#include <random>
#include <string>

namespace {

using namespace veltoprotocol;

std::string byTheXmlLibrary(const std::string& text) {
    std::string escaped;
    TiXmlBase::EncodeString(text, &escaped);
    return escaped;
}

// Escapes a text that ends at a protected page; a wide store may run over the end of what is written.
std::string escaped(const GuardedPage& text) {
    const Text in{text.data(), text.size()};
    std::string out(text.size() * 6 + 64, '#');
    const auto length = static_cast<std::size_t>(writeEscaped(&out[0], in) - &out[0]);
    EXPECT_EQ(escapedLength(in), length);
    return out.substr(0, length);
}

std::string escaped(const std::string& text) { return escaped(GuardedPage(text)); }

TEST(Escape, ReplacesWhatHasAMeaningInXml) {
    EXPECT_EQ(escaped("&"), "&amp;");
    EXPECT_EQ(escaped("<"), "&lt;");
    EXPECT_EQ(escaped(">"), "&gt;");
    EXPECT_EQ(escaped("\""), "&quot;");
    EXPECT_EQ(escaped("'"), "&apos;");
    EXPECT_EQ(escaped("a<b && \"c\">'d'"), "a&lt;b &amp;&amp; &quot;c&quot;&gt;&apos;d&apos;");
}

TEST(Escape, ReplacesControlCharactersByTwoHexadecimalDigits) {
    EXPECT_EQ(escaped("\x01"), "&#x01;");
    EXPECT_EQ(escaped("\t\n\r"), "&#x09;&#x0A;&#x0D;");
    EXPECT_EQ(escaped("\x1F"), "&#x1F;");
    EXPECT_EQ(escaped("\x10"), "&#x10;");
}

TEST(Escape, LeavesEveryOtherByteAsItIs) {
    EXPECT_EQ(escaped(" ~\x7F"), " ~\x7F");
    EXPECT_EQ(escaped("\x80\xA0\xA6\xBC\xBE\xFF"), "\x80\xA0\xA6\xBC\xBE\xFF"); // specials with the high bit
    EXPECT_EQ(escaped("\xC3\xA4\xE2\x82\xAC"), "\xC3\xA4\xE2\x82\xAC");
}

// What looks like a reference already is text like any other.
TEST(Escape, EscapesAnAmpersandWhateverFollows) {
    EXPECT_EQ(escaped("&#x41;"), "&amp;#x41;");
    EXPECT_EQ(escaped("&#65;"), "&amp;#65;");
    EXPECT_EQ(escaped("&amp;"), "&amp;amp;");
}

TEST(Escape, WritesNothingForEmptyAndAbsentText) {
    EXPECT_EQ(escaped(""), "");
    char out = '#';
    EXPECT_EQ(escapedLength(Text()), 0u);
    EXPECT_EQ(writeEscaped(&out, Text()), &out);
    EXPECT_EQ(out, '#');
}

TEST(Escape, AgreesWithTheXmlLibraryOnEveryByteAtEveryPlace) {
    for (const std::size_t length : {1, 2, 3, 7, 8, 9, 15, 16, 17, 23, 24, 25, 31, 32, 33, 63, 64, 65}) {
        GuardedPage page(std::string(length, 'a'));
        for (std::size_t at = 0; at < length; ++at) {
            for (int byte = 0; byte < 256; ++byte) {
                page.data()[at] = static_cast<char>(byte);
                ASSERT_EQ(escaped(page), byTheXmlLibrary(std::string(page.bytes())))
                    << "byte " << byte << " at " << at << " of " << length;
            }
            page.data()[at] = 'a';
        }
    }
}

// One byte must not change how its neighbour is seen.
TEST(Escape, AgreesWithTheXmlLibraryOnEveryPairOfBytes) {
    GuardedPage page(std::string(24, 'a'));
    for (const std::size_t at : {0, 3, 7, 15, 22})
        for (int pair = 0; pair < 256 * 256; ++pair) {
            page.data()[at] = static_cast<char>(pair / 256);
            page.data()[at + 1] = static_cast<char>(pair % 256);
            const std::string bytes(page.bytes());
            if (escaped(page) != byTheXmlLibrary(bytes)) FAIL() << "bytes " << pair << " at " << at;
            page.data()[at] = page.data()[at + 1] = 'a';
        }
}

TEST(Escape, AgreesWithTheXmlLibraryOnAnyText) {
    std::mt19937 random(1);
    for (int i = 0; i < 3000; ++i) {
        std::string text(random() % 300, '\0');
        const unsigned special = 1 + static_cast<unsigned>(random() % 40); // from dense to rare
        for (char& byte : text)
            byte = random() % special == 0 ? "&<>\"'\x01\n\xFF"[random() % 8]
                                           : static_cast<char>(' ' + random() % 95);
        ASSERT_EQ(escaped(text), byTheXmlLibrary(text));
    }
}

} // namespace
