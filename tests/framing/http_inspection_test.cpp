// All inspectors together: truncated messages, and any bytes against a plain transcription of the rules.
#include "framing/expected_by_rules.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace {

using namespace veltoprotocol;
using namespace std::string_literals;

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
    const std::string printed = expectInspectedByTheRules(buf, len);

    std::string decoded;
    const bool written = rules::base64Decode(buf, len, decoded);
    const std::size_t room = bytes.size() / 4 * 3 + 1;
    GuardedPage out(std::string(room, '#'));
    Base64Decode(out.data(), buf, len);
    if (written) decoded += '\0';
    EXPECT_EQ(out.bytes(), decoded + std::string(room - decoded.size(), '#'));
    return printed;
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
