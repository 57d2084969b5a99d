// A message is the same whichever way it is written: straight into a roomy buffer, by way of the stack if it
// is short, or measured first if it is long.
#include "framing/message.h"

#include "support/encoded.h"

#include <cstring>
#include <string>

namespace {

using namespace veltoprotocol;

// The answer "Command" with what stands in its response.
std::string answerWith(const std::string& inside) {
    const std::string body = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
                             "<servercommandservice>\n"
                             "    <seqnum>-20481</seqnum>\n"
                             "    <version>1.0.0</version>\n"
                             "    <response name=\"Command\">\n" +
                             inside +
                             "    </response>\n"
                             "</servercommandservice>\n";
    return "HTTP/1.1 200 OK\r\nServer: vtengine\r\nConnection: keep-alive\r\n"
           "Content-Type: text/xml; charset=utf-8\r\nContent-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

template <class Tree>
std::string answered(const Tree& tree, int roomy) {
    const auto encode = [&](char* out, int size) {
        return Response("Command", static_cast<unsigned int>(-20481)).reply(tree, out, size);
    };
    return encoded(encode, roomy).bytes;
}

// A text of a sixth of 8 KiB is the longest that could not need more than 8 KiB.
TEST(MessagePaths, AgreeForATextOfAnyLength) {
    for (std::size_t length = 0; length < 1500; length += length < 80 || length > 1270 ? 1 : 17) {
        const std::string text(length, 'x');
        const auto tree = [&](auto x) { x.value("T", text.c_str()); };
        const std::string want = answerWith("        <T>" + text + "</T>\n");
        for (const int roomy : {static_cast<int>(want.size()), 8192, 20000})
            ASSERT_EQ(answered(tree, roomy), want) << length;
    }
}

TEST(MessagePaths, AgreeForATextOfTheLongestReferences) {
    for (std::size_t length = 0; length < 1500; length += length < 80 || length > 1270 ? 1 : 17) {
        std::string references;
        for (std::size_t i = 0; i < length; ++i) references += "&quot;";
        const std::string text(length, '"');
        const auto tree = [&](auto x) { x.value("T", text.c_str()); };
        const std::string want = answerWith("        <T>" + references + "</T>\n");
        for (const int roomy : {static_cast<int>(want.size()), 10000, 20000})
            ASSERT_EQ(answered(tree, roomy), want) << length;
    }
}

struct Field700 {
    char text[700];
};
constexpr auto wideFields = elements("Wide", field("T", &Field700::text));

// Each record could need 4,200 bytes, so one of them is short and two are not.
TEST(MessagePaths, AgreeForWideFields) {
    for (const std::size_t records : {1U, 2U, 3U})
        for (const std::size_t length : {0U, 1U, 15U, 16U, 47U, 48U, 49U, 64U, 65U, 699U, 700U}) {
            Field700 record = {};
            std::memset(record.text, 'x', length);
            const auto tree = [&](auto x) {
                for (std::size_t i = 0; i < records; ++i) x.element("Wide", wideFields(record));
            };
            std::string inside;
            for (std::size_t i = 0; i < records; ++i)
                inside +=
                    "        <Wide>\n            <T>" + std::string(length, 'x') + "</T>\n        </Wide>\n";
            const std::string want = answerWith(inside);
            for (const int roomy : {static_cast<int>(want.size()), 1 << 16})
                ASSERT_EQ(answered(tree, roomy), want) << records << " of " << length;
        }
}

} // namespace
