// Lines of ordinary length are put together on the stack, longer ones on the heap, and nobody can tell from
// what is printed.
#include "framing/diagnostics.h"

#include "support/failing_calls.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>

namespace {

using namespace veltoprotocol;

constexpr std::size_t ordinary = 2048; // bytes, with the line's end

// How many allocations a line of this length takes, if it then is `line`.
template <class Print>
long allocationsOf(const std::string& line, const Print& print) {
    Captured output;
    print();
    const std::string printed = output.text();
    EXPECT_EQ(printed.size(), line.size());
    EXPECT_EQ(printed, line);
    Captured quiet;
    const long allocations = allocationsThatFailed([&] {
        print();
        return true;
    });
    quiet.text();
    return allocations;
}

// Of a line that is `length` bytes long.
template <class Allocations>
void expectMemoryOnlyBeyondAnOrdinaryLength(const Allocations& allocations) {
    EXPECT_EQ(allocations(100), 0);
    EXPECT_EQ(allocations(ordinary - 1), 0);
    EXPECT_EQ(allocations(ordinary), 0);
    EXPECT_EQ(allocations(ordinary + 1), 1);
    EXPECT_EQ(allocations(100000), 1);
}

TEST(Line, TakesMemoryOnlyBeyondAnOrdinaryLength) {
    expectMemoryOnlyBeyondAnOrdinaryLength([](std::size_t length) {
        const std::string front = "xml file -..-", back = "-Name element not find!\n";
        const std::string label(length - front.size() - back.size(), 'l');
        return allocationsOf(front + label + back, [&] { missingElement(label.c_str(), "Name"); });
    });
}

TEST(RenderedLine, TakesMemoryOnlyBeyondAnOrdinaryLength) {
    expectMemoryOnlyBeyondAnOrdinaryLength([](std::size_t length) {
        const std::string front = "trace xml str:[", back = "]\n";
        const std::string xml(length - front.size() - back.size(), 'x');
        return allocationsOf(front + xml + back, [&] {
            RenderedLine line("trace", xml.size());
            std::memcpy(line.xml(), xml.data(), xml.size());
            line.print();
        });
    });
}

TEST(MissingPath, NamesAtMostEightElements) {
    const char* const names[] = {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"};
    const auto printed = [&](std::size_t count) {
        Captured output;
        missingPath(names, count);
        return output.text();
    };
    EXPECT_EQ(printed(1), "xml file a element not find!\n");
    EXPECT_EQ(printed(2), "xml file a-b element not find!\n");
    EXPECT_EQ(printed(8), "xml file a-b-c-d-e-f-g-h element not find!\n");
    EXPECT_EQ(printed(9), "xml file a-b-c-d-e-f-g-h element not find!\n");
    EXPECT_EQ(printed(10), "xml file a-b-c-d-e-f-g-h element not find!\n");
}

} // namespace
