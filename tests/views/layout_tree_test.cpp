// The walk through a layout at each of its levels, by both decoders.
#include "views/layouts.h"

#include <new>
#include <tuple>

using namespace layouts;

namespace {

using Ids = std::vector<std::string>;

class LayoutLevel : public testing::TestWithParam<std::tuple<Decoder, Level>> {
  protected:
    struct Read {
        Slots slots;
        int error;
        std::string printed;
    };
    Read read(const std::string& layout) const {
        const Tree tree(std::get<Decoder>(GetParam()), layout);
        return {level.slots(tree.data), tree.error, tree.printed};
    }
    const Level& level = std::get<Level>(GetParam());
};
INSTANTIATE_TEST_SUITE_P(Both, LayoutLevel,
                         testing::Combine(testing::ValuesIn(decoders), testing::ValuesIn(levels)),
                         [](const auto& info) {
                             return std::get<Level>(info.param).wrapper + std::string("By") +
                                    std::get<Decoder>(info.param).name;
                         });

TEST_P(LayoutLevel, IsReadInItsOrder) {
    const Read got = read(level.counting("3", level.entry("a") + level.entry("b") + level.entry("c")));
    EXPECT_EQ(got.slots.count, 3);
    EXPECT_EQ(got.slots.ids, (Ids{"a", "b", "c"}));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST_P(LayoutLevel, KeepsItsCountWhenFewerEntriesFollow) {
    const Read got = read(level.counting("3", level.entry("a") + level.entry("b")));
    EXPECT_EQ(got.slots.count, 3);
    EXPECT_EQ(got.slots.ids, (Ids{"a", "b", "zero"}));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
    EXPECT_EQ(read(level.counting("2")).slots.ids, (Ids{"zero", "zero"}));
}

TEST_P(LayoutLevel, ReadsNoMoreEntriesThanItsCount) {
    const Read got = read(level.counting("2", level.entry("a") + level.entry("b") + level.entry("c") +
                                                  wrapped(level.wrapper, "")));
    EXPECT_EQ(got.slots.count, 2);
    EXPECT_EQ(got.slots.ids, (Ids{"a", "b"}));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST_P(LayoutLevel, WithoutACounterHasNoArray) {
    const Read got = read(level.around(level.entry("a")));
    EXPECT_EQ(got.slots.count, 0);
    EXPECT_FALSE(got.slots.array);
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed,
              "xml file -..-" + std::string(level.label) + "-" + level.counter + " element not find!\n");
}

TEST_P(LayoutLevel, OfACountBelowOneHasNoArrayAndKeepsTheCount) {
    const std::pair<const char*, int> counts[] = {
        {"0", 0}, {"-1", -1}, {"-2147483648", -2147483647 - 1}, {"x", 0}, {"", -1}}; // an empty counter is -1
    for (const auto& [text, count] : counts) {
        SCOPED_TRACE(text);
        const Read got = read(level.counting(text, level.entry("a") + wrapped(level.wrapper, "")));
        EXPECT_EQ(got.slots.count, count);
        EXPECT_FALSE(got.slots.array);
        EXPECT_EQ(got.error, 0);
        EXPECT_EQ(got.printed, "");
    }
}

TEST_P(LayoutLevel, EndsAtAWrapperWithoutItsInnerElement) {
    const Read got =
        read(level.counting("4", level.entry("a") + wrapped(level.wrapper, "<Other />") + level.entry("c")));
    EXPECT_EQ(got.slots.count, 4);
    EXPECT_EQ(got.slots.ids, (Ids{"a", "zero", "zero", "zero"}));
    EXPECT_EQ(got.error, level.wrapper == std::string("Groups") ? 0 : -1);
    EXPECT_EQ(got.printed, "");
}

TEST_P(LayoutLevel, ReadsTheFirstInnerElementOfEachWrapper) {
    const std::string two = wrapped(level.wrapper, "<Other />" + level.inner("a") + level.inner("b"));
    const Read got = read(level.counting("3", "<Other />" + two + level.inner("n") + "<Other />" + two));
    EXPECT_EQ(got.slots.ids, (Ids{"a", "a", "zero"}));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST_P(LayoutLevel, TakesTheCounterWhereverItStands) {
    const Read got = read(level.around(level.entry("a") + counter(level.counter, " +2 ") + level.entry("b") +
                                       counter(level.counter, "1")));
    EXPECT_EQ(got.slots.ids, (Ids{"a", "b"}));
    EXPECT_EQ(got.printed, "");
}

TEST_P(LayoutLevel, TakesACountBeyondItsBudgetForExhaustedMemory) {
    for (const char* count : {"2147483647", "100000000"}) {
        SCOPED_TRACE(count);
        EXPECT_THROW(read(level.counting(count, level.entry("a"))), std::bad_alloc);
    }
}

// As many entries as the whole budget holds, one more at the first level: there, nothing was taken before.
TEST_P(LayoutLevel, SharesOneBudgetWithTheLevelsAbove) {
    const std::size_t whole = (std::size_t{1} << 30) / level.size;
    const std::size_t count = level.around == inGroups ? whole + 1 : whole;
    EXPECT_THROW(read(level.counting(std::to_string(count))), std::bad_alloc);
    EXPECT_EQ(read(level.counting("1", level.entry("a"))).slots.ids, Ids{"a"}); // the next call has its own
}

} // namespace
