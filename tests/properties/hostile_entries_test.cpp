// Lists whose entries are missing, doubled and in another order, at every level of every list: the order of
// the message is that of the array, and what is missing is missing at its end.
#include "properties/entry_lists.h"
#include "properties/steady.h"
#include "support/muted.h"
#include "support/read_back.h"

#include <algorithm>

namespace {

using entry_lists::List;
using Numbers = std::vector<std::string>;

const Numbers whole = {"1", "2", "3", "4"};

std::string joined(const List& list, const Numbers& numbers) {
    std::string entries;
    for (const std::string& number : numbers) entries += list.entry(number);
    return entries;
}

// As many as the count says: of more the first, of fewer zeroes behind them.
std::string expected(Numbers numbers, std::size_t count) {
    numbers.resize(count, "zero");
    std::string told = std::to_string(count) + ":";
    for (const std::string& number : numbers) told += " " + number;
    return told;
}

class Lists {
  public:
    // What is told of a message, and the error.
    std::string read(const List& list, const std::string& inside) {
        const Document doc = parsed(list.message(inside));
        int error = 7;
        const std::string told = steady(faults, list.name, [&] { return list.read(doc.get(), &error); });
        return told + (error == 0 ? "" : ", error " + std::to_string(error));
    }
    void expect(const List& list, const std::string& inside, const std::string& want, const char* what) {
        const std::string told = read(list, inside);
        if (told != want) faults.add(list.name, std::string(what) + ": " + told + ", not " + want);
        ++tried;
    }
    void expectEntries(const List& list, const Numbers& numbers, const char* what) {
        expect(list, list.list("4", joined(list, numbers)), expected(numbers, 4), what);
    }

    const std::vector<List> all = entry_lists::all();
    Faults faults;
    std::size_t tried = 0;
};

TEST(Entries, AreReadInTheOrderOfTheMessage) {
    Lists lists;
    {
        const Muted quiet;
        for (const List& list : lists.all) {
            Numbers order = whole;
            do lists.expectEntries(list, order, "another order");
            while (std::next_permutation(order.begin(), order.end()));
        }
    }
    EXPECT_EQ(lists.faults.text(), "");
    EXPECT_EQ(lists.tried, 15u * 24);
}

TEST(Entries, ThatAreMissingLeaveTheLastSlotsZero) {
    Lists lists;
    {
        const Muted quiet;
        for (const List& list : lists.all)
            for (unsigned missing = 0; missing < 16; ++missing) {
                Numbers rest;
                for (unsigned i = 0; i < 4; ++i)
                    if (!(missing >> i & 1)) rest.push_back(whole[i]);
                lists.expectEntries(list, rest, "missing");
            }
    }
    EXPECT_EQ(lists.faults.text(), "");
}

TEST(Entries, ThatAreDoubledPushTheLastOut) {
    Lists lists;
    {
        const Muted quiet;
        for (const List& list : lists.all)
            for (std::size_t i = 0; i < 4; ++i)
                for (std::size_t place = 0; place <= 4; ++place) {
                    Numbers more = whole;
                    more.insert(more.begin() + static_cast<std::ptrdiff_t>(place), whole[i]);
                    lists.expectEntries(list, more, "doubled");
                }
    }
    EXPECT_EQ(lists.faults.text(), "");
}

// Neither other elements nor comments between them.
TEST(Entries, AreFoundByTheirName) {
    Lists lists;
    {
        const Muted quiet;
        const std::string between = "<Other id=\"7\">7</Other><!-- 7 -->";
        for (const List& list : lists.all) {
            std::string entries = between;
            for (const std::string& number : whole) entries += list.entry(number) + between;
            lists.expect(list, list.list("4", entries), expected(whole, 4), "others between");
        }
    }
    EXPECT_EQ(lists.faults.text(), "");
}

// A wrapper without what it wraps ends its level.
TEST(Entries, EndAtAnEmptyWrapper) {
    Lists lists;
    std::size_t wrapped = 0;
    {
        const Muted quiet;
        for (const List& list : lists.all) {
            if (list.wrapper.empty()) continue;
            ++wrapped;
            for (std::size_t i = 0; i < 4; ++i) {
                const Numbers before(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(i));
                const Numbers behind(whole.begin() + static_cast<std::ptrdiff_t>(i), whole.end());
                const std::string entries =
                    joined(list, before) + layouts::wrapped(list.wrapper, "") + joined(list, behind);
                const std::string error = list.needsEntry ? ", error -1" : "";
                lists.expect(list, list.list("4", entries), expected(before, 4) + error, "an empty wrapper");
            }
        }
    }
    EXPECT_EQ(lists.faults.text(), "");
    EXPECT_EQ(wrapped, 8u);
}

// The element that holds the list, and its count: the first of them counts, and without one there is no list.
TEST(Entries, AreThoseOfTheFirstListAndItsCount) {
    Lists lists;
    {
        const Muted quiet;
        for (const List& list : lists.all) {
            const std::string entries = joined(list, whole);
            const std::string other = list.list("2", joined(list, {"8", "9"}));
            lists.expect(list, list.list("4", entries) + other, expected(whole, 4), "two lists");
            lists.expect(list, other + list.list("4", entries), "2: 8 9", "two lists");
            lists.expect(list, list.list("0", entries), list.ofZero, "a count of none");
            lists.expect(list, list.list("", entries), list.ofNoCount, "no count");
            lists.expect(list, "", list.ofNoList, "no list");
        }
    }
    EXPECT_EQ(lists.faults.text(), "");
}

} // namespace
