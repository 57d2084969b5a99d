// What an entry of a list costs does not grow with their number.
#include "properties/cost_growth.h"
#include "properties/cost_lists.h"
#include "support/muted.h"

#include <gtest/gtest.h>

namespace {

using namespace cost;

TEST(Lists, TakeTimeInProportionToTheirEntries) {
    std::string steep;
    {
        const Muted quiet;
        for (const List& list : lists()) {
            const auto make = [&](std::size_t size) { return parsed(list.text(size)); };
            const int entries = static_cast<int>(little / list.entry.size());
            if (list.read(make(little).get()) != entries) steep += list.name + " are not read\n";
            const std::string why = tooSteep(
                make, [&](const Document& doc) { list.read(doc.get()); }, upTo(4 * little));
            if (!why.empty()) steep += list.name + ": " + why;
        }
    }
    EXPECT_EQ(lists().size(), 15u);
    EXPECT_EQ(steep, "");
}

} // namespace
