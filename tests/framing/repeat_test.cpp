// The word that writes the same element again and again, and messages that are longer than any buffer, which
// it makes easy to ask for.
#include "framing/message.h"

#include "framing/written.h"
#include "support/encoded.h"

#include <climits>
#include <cstdint>
#include <string>

namespace {

using namespace veltoprotocol;

TEST(Repeat, IsTheSameElementSoManyTimes) {
    const auto tree = [](auto x) { x.value("n", 5); };
    const std::string once = "<Entry>\n    <n>5</n>\n</Entry>\n";
    EXPECT_EQ(written([&](auto x) { x.repeat("Entry", 1, tree); }), once);
    EXPECT_EQ(written([&](auto x) { x.repeat("Entry", 3, tree); }), once + once + once);
    EXPECT_EQ(written([&](auto x) {
                  x.value("Before", 1);
                  x.repeat("Entry", 2, tree);
                  x.value("After", 2);
              }),
              "<Before>1</Before>\n" + once + once + "<After>2</After>\n");
}

TEST(Repeat, IsNothingForACountBelowOne) {
    const auto tree = [](auto x) { x.value("n", 5); };
    for (const int times : {0, -1, INT_MIN}) {
        EXPECT_EQ(written([&](auto x) { x.repeat("Entry", times, tree); }), "");
        EXPECT_EQ(
            written([&](auto x) { x.element("List", [&](auto y) { y.repeat("Entry", times, tree); }); }),
            "<List />\n");
    }
}

TEST(Repeat, HasSelfClosingElementsIfItsTreeAddsNothing) {
    EXPECT_EQ(written([](auto x) { x.repeat("Entry", 2, [](auto) {}); }), "<Entry />\n<Entry />\n");
}

TEST(Repeat, StandsInsideItself) {
    EXPECT_EQ(written([](auto x) {
                  x.repeat("A", 2, [](auto a) { a.repeat("B", 3, [](auto b) { b.value("c", "d"); }); });
              }),
              [] {
                  const std::string b = "    <B>\n        <c>d</c>\n    </B>\n";
                  const std::string a = "<A>\n" + b + b + b + "</A>\n";
                  return a + a;
              }());
}

TEST(Repeat, IsMeasuredOnceHoweverLargeTheCount) {
    for (const int times : {1, 2, 1000, INT_MAX}) {
        int runs = 0;
        Count count;
        Element<Count, 0>(count).repeat("Entry", times, [&](auto x) {
            ++runs;
            x.value("n", 5);
        });
        ASSERT_EQ(runs, 1); // else the last count takes minutes
        // "<Entry>\n", "    <n>5</n>\n" and "</Entry>\n"
        EXPECT_EQ(count.bytes(), static_cast<std::size_t>(times) * (8 + 13 + 9));
    }
}

// An envelope around so many lines of 14 bytes.
auto lines(int count) {
    return [count](auto x) { x.repeat("E", count, [](auto) {}); };
}

TEST(Message, IsMeasuredBeyondTheRangeOfAnInt) {
    const Response response("Command", 1);
    // "    <response name="Command" />\n" grows by its closing tag, of which " /" is no part.
    const std::size_t around = response.xmlLength(lines(0)) + std::string("    </response>\n").size() - 2;
    for (const int count : {1, 153391689, 153391690, 306783379, INT_MAX})
        EXPECT_EQ(response.xmlLength(lines(count)), around + 14 * static_cast<std::size_t>(count));
}

// The counts lie around 2^31 and 2^32 bytes: cut to 32 bits, such a length would seem to fit.
TEST(Message, IsRefusedIfItIsLongerThanAnyBuffer) {
    for (const int count : {153391690, 306783370, 306783379, 306783400, INT_MAX}) {
        const Encoded request = encoded([&](char* out, int size) {
            return Request("Command", 1).post("/", "h", lines(count), out, size);
        });
        EXPECT_EQ(request.returned, -1);
        const Encoded response = encoded(
            [&](char* out, int size) { return Response("Command", 1).reply(lines(count), out, size); });
        EXPECT_EQ(response.returned, -1);
    }
}

TEST(Message, IsNotPrintedIfItIsLongerThanAnyBuffer) {
    const std::string text(1000, 'x');
    const auto endless = [&](auto x) {
        x.repeat("Entry", INT_MAX, [&](auto entry) { entry.value("T", text.c_str()); });
    };
    for (const int room : {1, 4096}) {
        const Encoded request = encoded(
            [&](char* out, int size) {
                return Request("Command", 1).printedAs("Command").post("/", "h", endless, out, size);
            },
            room);
        EXPECT_EQ(request.returned, -1);
        EXPECT_EQ(request.printed, "");
        const Encoded response = encoded(
            [&](char* out, int size) {
                return Response("Command", 1).printedAs("Command").reply(endless, out, size);
            },
            room);
        EXPECT_EQ(response.returned, -1);
        EXPECT_EQ(response.printed, "");
    }
}

} // namespace
