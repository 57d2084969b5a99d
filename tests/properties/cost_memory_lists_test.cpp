// The costliest document, and then all that a decoder may add to it: below 2 GiB for 10 MB. And what an
// encoder takes that compresses.
#include "properties/cost_alone.h"
#include "properties/cost_growth.h"
#include "properties/cost_lists.h"
#include "support/heap.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>

namespace {

using namespace cost;

constexpr std::size_t longest = 10000000;

// These processes need gibibytes, which a sanitizer multiplies.
TEST(Lists, TakeLessThanTwoGibibytesInTheCostliestDocument) {
    if (!optimised) GTEST_SKIP() << "measured in the release build";
    const auto filler = times(longest / 5 - 100, "x<a/>");
    const auto check = [](const List& list, const std::string& text) {
        const Outcome outcome = alone([&] {
            const Document doc(Decode(text.c_str()));
            if (!doc) return "no document";
            return list.read(doc.get()) == static_cast<int>(list.mostEntries()) ? "entries" : "others";
        });
        EXPECT_EQ(outcome.what, "entries") << list.name;
        EXPECT_LT(outcome.resident, 2 * gibibyte) << list.name;
        EXPECT_GT(outcome.resident, 500 * 1000000L) << list.name;
    };
    const std::vector<List> all = lists();
    check(all[0], usual + all[0].with(all[0].mostEntries(), filler));
    // Of the others it stands beside the list. The processes have it from this one.
    const Document costliest = parsed(usual + "<a>" + filler + "</a>");
    // Where two decoders make the same, they read it through the same reader.
    std::set<std::string> entries;
    for (const List& list : all)
        if (entries.insert(list.entry).second) check(list, usual + list.with(list.mostEntries(), ""));
    EXPECT_EQ(entries.size(), 9u);
}

// A count that is refused costs nothing beside the document.
TEST(Lists, TakeNothingForACountThatIsRefused) {
    if (!optimised) GTEST_SKIP() << "measured in the release build";
    for (const List& list : lists())
        for (const std::size_t count :
             {(std::size_t{1} << 30) / list.entrySize + 1, std::size_t{2147483647}}) {
            const std::string text = list.with(count, "");
            const Outcome outcome = alone([&] {
                const Document doc(Decode(text.c_str()));
                list.read(doc.get());
                return "entries";
            });
            EXPECT_EQ(outcome.what, "std::bad_alloc") << list.name;
            EXPECT_LT(outcome.resident, 100 * 1000000L) << list.name;
        }
}

TEST(GetXmlEncode, TakesLessThanTwoGibibytesForTheCostliestDocument) {
    if (!optimised) GTEST_SKIP() << "measured in the release build";
    const std::string text = usual + "<a>" + times(1990000, "x<a/>") + "</a>";
    const Outcome outcome = alone([&] {
        const Document doc(Decode(text.c_str()));
        return doc && GetXmlEncode(doc.get()).size() > 3 * text.size() ? "printed" : "not printed";
    });
    EXPECT_EQ(outcome.what, "printed");
    EXPECT_LT(outcome.resident, 2 * gibibyte);
    EXPECT_GT(outcome.resident, 500 * 1000000L);
}

struct Found {
    explicit Found(std::size_t count) : records(count) {
        unsigned seed = 1;
        auto* const bytes = reinterpret_cast<unsigned char*>(records.data()); // that compress badly
        for (std::size_t i = 0; i < count * sizeof records[0]; ++i)
            bytes[i] = static_cast<unsigned char>((seed = seed * 1103515245 + 12345) >> 16 | 1);
        found.Records = records.data();
        found.Counter = static_cast<unsigned int>(count);
    }
    std::vector<__tagVtRecordElementParam> records;
    __tagVtRecordParam found = __tagVtRecordParam();
};

// Where the list has room however badly it compresses, it needs none beside the caller's; or else as much as
// the caller has, once more. What zlib itself needs stands beside it.
TEST(GetSearchRecordRespEncode, TakesAtMostTheRoomThatItIsGiven) {
    const Found list(cost::optimised ? 20000 : 500);
    const std::size_t roomy = list.records.size() * sizeof list.records[0] + 4096;
    const std::unique_ptr<char[]> out(new char[roomy]);
    const auto encode = [&](std::size_t room) {
        return GetSearchRecordRespEncode(0, 7, &list.found, out.get(), static_cast<int>(room));
    };
    const heap::Watch watch;
    const int length = encode(roomy);
    const long withRoom = watch.most();
    ASSERT_GT(length, 10000);
    EXPECT_EQ(withRoom, 0);
    const auto exact = static_cast<std::size_t>(length);
    for (const std::size_t room : {exact, exact - 1}) {
        const heap::Watch tight;
        EXPECT_EQ(encode(room), room == exact ? length : -1);
        EXPECT_LE(tight.most(), static_cast<long>(room) + 4096);
        EXPECT_GT(tight.most(), length / 2);
        EXPECT_EQ(tight.leaked(), 0);
    }
    if (!optimised) return; // all of it counted
    const Outcome without = alone([&] { return std::memset(out.get(), 1, roomy) ? "touched" : ""; });
    const Outcome with = alone([&] {
        std::memset(out.get(), 1, roomy);
        return encode(exact) == length ? "written" : "refused";
    });
    EXPECT_EQ(with.what, "written");
    EXPECT_LT(with.resident - without.resident, length + (2L << 20));
}

} // namespace
