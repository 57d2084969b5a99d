// A receiver that asks after each read whether the message is whole. The inspectors hold no state: what they
// have to look for, they look for from the buffer's start.
#include "properties/cost_families.h"
#include "properties/cost_growth.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

namespace {

using namespace veltoprotocol;

constexpr std::size_t step = 1024;
constexpr std::size_t whole = cost::optimised ? 8 << 20 : 256 << 10;

// The message as long as it gets.
std::string grown(const std::string& head, const std::string& unit) {
    return cost::Family{"", cost::By::nobody, head, unit, ""}.text(whole).substr(0, whole);
}

// Seconds for asking at each step; `answers` counts those that are not -1.
template <class Inspect>
double secondsOfAll(const std::string& message, const Inspect& inspect, int& answers) {
    answers = 0;
    return cost::secondsOf([&] {
        for (std::size_t length = step; length <= message.size(); length += step)
            answers += inspect(message.data(), static_cast<int>(length)) != -1 ? 1 : 0;
    });
}

struct Inspector {
    const char* name;
    int (*inspect)(const char* buf, int len);
};
int length(const std::string& value) { return static_cast<int>(value.size()); }
const Inspector inspectors[] = {
    {"CheckHttp", CheckHttp},
    {"GetHttpLength", GetHttpLength},
    {"GetContentLen", GetContentLen},
    {"GetHttpPacketLength", GetHttpPacketLength},
    {"GetUri", [](const char* buf, int len) { return length(GetUri(buf, len)); }},
    {"GetHttpStatus", GetHttpStatus},
    {"GetContentType", [](const char* buf, int len) { return length(GetContentType(buf, len)); }},
    {"GetAuthorization", [](const char* buf, int len) { return length(GetAuthorization(buf, len)); }}};

// All that is asked stands in the head, which is found at once.
TEST(GrowingBuffer, IsNotSearchedBehindAHeadWithALength) {
    const std::string start = "POST /servercommandservice HTTP/1.1\r\nAuthorization: Basic YTpi\r\n"
                              "Content-Type: text/xml\r\nContent-Length: ";
    std::string head; // whose number makes the message end where the buffer does
    for (std::size_t body = whole - start.size(); head.size() + body != whole; --body)
        head = start + std::to_string(body - 1) + "\r\n\r\n";
    for (const char* unit : {"x", "\r\n\r\n", "Content-Length: 1\r\n"}) {
        const std::string message = grown(head, unit);
        for (const Inspector& inspector : inspectors) {
            int answers = 0;
            const double seconds = secondsOfAll(message, inspector.inspect, answers);
            EXPECT_LT(seconds, 1) << inspector.name << ", " << unit;
            const bool framing = inspector.inspect == GetHttpPacketLength;
            EXPECT_EQ(answers, framing ? 1 : static_cast<int>(whole / step))
                << inspector.name << ", " << unit;
        }
        EXPECT_EQ(GetHttpPacketLength(message.data(), length(message)), length(message));
    }
}

// Where it is not found, everybody has to search all that has come, at each step.
struct Lacking {
    const char* what;
    std::string front, unit;
};
const Lacking lacking[] = {
    {"neither blank line nor length", "POST", "x"},
    {"names cut off", "POST", "Content-Lengt\r\n"},
    {"a head without a length", "POST /s HTTP/1.1\r\nHost: a\r\n\r\n", "x"},
    {"a head without a length, names cut off", "POST /s HTTP/1.1\r\nHost: a\r\n\r\n", "Content-Lengt\r\n"}};

// Takes as long as that memory is read: 32 GiB for 8 MiB in steps of 1 KiB.
TEST(GrowingBuffer, IsSearchedAgainForWhatHasNotCome) {
    constexpr double bound = 30;
    double most = 0;
    for (const Lacking& lack : lacking) {
        const std::string message = grown(lack.front, lack.unit);
        int answers = 0;
        const double seconds = secondsOfAll(message, GetHttpPacketLength, answers);
        EXPECT_LT(seconds, bound) << lack.what;
        EXPECT_EQ(answers, 0) << lack.what;
        most = std::max(most, seconds);
    }
    RecordProperty("seconds", std::to_string(most));
}

} // namespace
