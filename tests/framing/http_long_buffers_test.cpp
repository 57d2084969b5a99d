// The inspectors on long and hostile buffers, against the plain transcription of the rules.
#include "framing/expected_by_rules.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace {

using namespace veltoprotocol;
using namespace std::string_literals;

using Random = std::mt19937;

const std::string& oneOf(Random& random, const std::vector<std::string>& texts) {
    return texts[random() % texts.size()];
}

// A stretch of bytes without meaning: plain, dense in a byte that decides something, or of any bytes.
std::string stretch(Random& random, std::size_t longest) {
    static const std::vector<std::string> patterns = {"x",
                                                      "-",
                                                      "\r",
                                                      "\n",
                                                      "\0"s,
                                                      "-l",
                                                      "e--l",
                                                      "content-",
                                                      "Content-L",
                                                      "\r\r\n\n",
                                                      "\r\nx",
                                                      "\r\n \r",
                                                      "z",
                                                      "uuuz",
                                                      "C\rL",
                                                      "6f9619ff-8b86-d011-b42d-00cf4fc964ff ",
                                                      "<Channel Name=\"a\" />\r\n",
                                                      " ",
                                                      "7x"};
    const std::size_t length = random() % (longest + 1);
    std::string bytes;
    if (random() % 6 == 0) {
        while (bytes.size() < length) bytes += static_cast<char>(random() & 0xFF);
        return bytes;
    }
    const std::string& pattern = oneOf(random, patterns);
    while (bytes.size() < length) bytes += pattern;
    return bytes.substr(0, length);
}

// A header's line with odd spacing, its name perhaps in other letters and its end perhaps cut.
std::string headerLine(Random& random) {
    static const std::vector<std::string> names = {
        "Content-Length",   "content-length", "CONTENT-LENGTH", "cONTeNT-LeNgTh", "Content\rLength",
        "Content-Lengt",    "Content-Type",   "content-type",   "CONTENT-TYPE",   "Content-Typ",
        "X-Content-Length", "Authorization",  "AUTHORIZATION",  "Authorizatio",   "Host",
        "Keep-Alive"};
    static const std::vector<std::string> colons = {":",  ": ", " : ", "", ":\t", ":                    ",
                                                    ": -"};
    static const std::vector<std::string> values = {"0",
                                                    "1",
                                                    "17",
                                                    "1 2",
                                                    "400",
                                                    "1x2x3",
                                                    "2147483647",
                                                    "2147483648",
                                                    "00000000000000012",
                                                    "99999999999999999",
                                                    "text/xml; charset=utf-8",
                                                    "Basic YWRtaW46c2VjcmV0",
                                                    "Basic YQ==",
                                                    "five",
                                                    ""};
    static const std::vector<std::string> ends = {"\r\n", "\r\n",   "\r\n",    "\r",
                                                  "\n",   "\r\r\n", "\0\r\n"s, ""};
    return oneOf(random, names) + oneOf(random, colons) + oneOf(random, values) + oneOf(random, ends);
}

// A message, or what looks like one: the words may be in the body, repeated, or cut at the end.
std::string buffer(Random& random, std::size_t longest) {
    static const std::vector<std::string> starts = {"POST /servercommandservice HTTP/1.1\r\n",
                                                    "HTTP/1.1 200 OK\r\n", "get / \r\n",
                                                    "HEAD / HTTP/1.1\r\n", ""};
    std::string bytes = oneOf(random, starts);
    for (std::size_t lines = random() % 5; lines > 0; --lines) bytes += headerLine(random);
    if (random() % 8 == 0) bytes += stretch(random, longest);
    if (random() % 5 != 0) bytes += "\r\n\r\n";
    bytes += stretch(random, longest);
    for (std::size_t lines = random() % 3; lines > 0; --lines)
        bytes += headerLine(random) + stretch(random, 80);
    if (random() % 3 == 0) bytes += std::to_string(random() % 40) + std::string(random() % 16, '.');
    if (random() % 4 == 0) bytes += "\r\nContent-Length: 12\r\n\r\n"s.substr(0, random() % 25);
    return bytes;
}

std::string expectByTheRules(const std::string& bytes) {
    SCOPED_TRACE(testing::Message() << "buffer " << testing::PrintToString(bytes));
    const GuardedPage page(bytes);
    return expectInspectedByTheRules(page.data(), page.length());
}

// Runs a round of comparisons for each seed and checks what they printed.
template <class Round>
void forSeeds(unsigned seeds, Round round) {
    for (unsigned seed = 0; seed < seeds; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        Random random(seed);
        Captured captured;
        const std::string printed = round(random);
        EXPECT_EQ(captured.text(), printed);
        if (testing::Test::HasFailure()) return;
    }
}

TEST(HttpLongBuffers, AgreeWithTheRules) {
    forSeeds(40, [](Random& random) {
        std::string printed;
        for (int i = 0; i < 100; ++i) printed += expectByTheRules(buffer(random, 2500));
        return printed;
    });
}

TEST(HttpLongBuffers, AgreeWithTheRulesAtEveryLengthUpTo64) {
    forSeeds(40, [](Random& random) {
        std::string printed;
        for (std::size_t length = 0; length <= 64; ++length) {
            printed += expectByTheRules(buffer(random, 64).substr(0, length));
            std::string bytes = stretch(random, 64);
            for (const std::string& text : {headerLine(random), "\r\n\r\n"s, stretch(random, 64)})
                bytes += text;
            printed += expectByTheRules(bytes.substr(bytes.size() - std::min(bytes.size(), length)));
        }
        return printed;
    });
}

TEST(HttpLongBuffers, AgreeWithTheRulesAtEveryTruncation) {
    forSeeds(8, [](Random& random) {
        const std::string bytes = buffer(random, 500);
        std::string printed;
        for (std::size_t size = 0; size <= bytes.size(); ++size) {
            printed += expectByTheRules(bytes.substr(0, size));
            printed += expectByTheRules(bytes.substr(size));
        }
        return printed;
    });
}

TEST(HttpLongBuffers, AgreeWithTheRulesAboutAnyStatus) {
    forSeeds(10, [](Random& random) {
        const std::string characters = "+-0019 \t\n\v\f\rx\0"s;
        for (int i = 0; i < 1000; ++i) {
            std::string bytes = "HTTP/1.1 ";
            if (random() % 2)
                for (std::size_t k = random() % 5; k > 0; --k)
                    bytes += characters[random() % characters.size()];
            for (std::size_t k = random() % 25; k > 0; --k) bytes += static_cast<char>('0' + random() % 10);
            bytes += oneOf(random, {" OK", "x OK", "\0 OK"s});
            EXPECT_EQ(inspect(GetHttpStatus, bytes),
                      rules::httpStatus(bytes.data(), static_cast<int>(bytes.size())))
                << testing::PrintToString(bytes);
        }
        return ""s;
    });
}

TEST(HttpLongBuffers, ReadTheStatusAroundTheLimitsAsAtoiDoes) {
    const struct {
        const char* bytes;
        int want;
    } cases[] = {
        {"a +-5 b", 0},
        {"a -+5 b", 0},
        {"a --5 b", 0},
        {"a ++5 b", 0},
        {"a + b", 0},
        {"a - b", 0},
        {"a +\t5 b", 0},
        {"a \v\f-5 b", -5},
        {"a 9223372036854775807 b", -1},
        {"a +9223372036854775808 b", -1},
        {"a -9223372036854775808 b", 0},
        {"a 00000000000000000000000000000000404 b", 404},
    };
    for (const auto& c : cases) EXPECT_EQ(inspect(GetHttpStatus, c.bytes), c.want) << c.bytes;
}

// Digits that stand far behind the name, and no more than sixteen of them.
TEST(HttpLongBuffers, JoinDigitsHoweverFarApart) {
    const std::string far(3000, '.');
    EXPECT_EQ(inspect(GetContentLen, "Content-Length" + far + "4" + far + "1" + far + "7" + far), 417);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length" + far + "4\n" + far + "1"), 4);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length" + far + "\r4"), -1);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length" + far), -1);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length: 000000" + far + "00000000" + far + "42" + far + "5"),
              42);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length0000000000000042" + far + "5"), 42);
    EXPECT_EQ(inspect(GetContentLen, "Content-Length:000000000000042" + far + "5"), 425);
}

} // namespace
