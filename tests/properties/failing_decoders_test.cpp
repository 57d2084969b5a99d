// Exhausted memory in the decoders of layouts: whatever they had allocated by then is freed, at every level.
#include "support/failing_calls.h"
#include "views/layouts.h"

#include <new>

using namespace layouts;

namespace {

// Two entries at every level, each of them with an array: 1 of groups, 2 of views, 4 of items, 8 of
// carousels.
const std::string everyLevel = [] {
    const auto two = [](const char* name, const char* wrapper, const std::string& inner) {
        return counter(name, "2") + wrapped(wrapper, inner) + wrapped(wrapper, inner);
    };
    const std::string carousels = two("CarouselsCounter", "Carousels", carousel("k"));
    const std::string items = two("ViewitemsCounter", "Viewitems", item("i", "5", info("f", carousels)));
    const std::string views = two("ViewsCounter", "Views", view("v", items));
    return two("GroupsCounter", "Groups", group("g", views));
}();

bool isWhole(const Layout& data) {
    if (data.groupcount != 2) return false;
    const __tagVtViewInfo& last = data.groups[1].views[1];
    return last.items[1].iteminfo.carousels[1].id == std::string("k");
}

TEST(GetViewGroupDataParamDecode, FreesEverythingWhenMemoryIsExhausted) {
    const Document doc = parsed(decoders[0].message(everyLevel));
    const auto call = [&] {
        int error = 7;
        Layout got = GetViewGroupDataParamDecode(doc.get(), &error);
        const bool whole = error == 0 && isWhole(got);
        ReleaseViewGroupDataParam(&got);
        return whole;
    };
    EXPECT_EQ(allocationsThatFailed(call), 15);
}

TEST(GetSetViewGroupData, FreesEverythingWhenMemoryIsExhausted) {
    const Document doc = parsed(decoders[1].message(everyLevel));
    const auto call = [&] {
        int error = 7;
        __tagVtViewGroup got = GetSetViewGroupData(doc.get(), &error);
        const bool whole = error == 0 && isWhole(got.data) && got.info.UserGuid == std::string("u");
        ReleaseSetViewGroupData(&got);
        return whole;
    };
    EXPECT_EQ(allocationsThatFailed(call), 15);
}

// Every level but the first has been read elsewhere in the tree when its last counter asks for too much.
TEST(LayoutDecoders, FreeEverythingWhenACounterIsBeyondTheBudget) {
    for (const Decoder& decoder : decoders)
        for (const Level& level : levels) {
            SCOPED_TRACE(std::string(decoder.name) + ", " + level.counter);
            const std::string modest = counter(level.counter, "2");
            std::string layout = everyLevel;
            layout.replace(layout.rfind(modest), modest.size(), counter(level.counter, "2147483647"));
            const Document doc = parsed(decoder.message(layout));
            bool threw = false;
            const long before = failing::live;
            try {
                decoder.decode(doc.get(), nullptr);
            } catch (const std::bad_alloc&) {
                threw = true;
            }
            const long after = failing::live;
            EXPECT_TRUE(threw);
            EXPECT_EQ(after, before);
        }
}

// What was allocated elsewhere in the tree when the last counter of a level is read.
struct Before {
    std::size_t groups, views, items, carousels;
    long arrays;
    std::size_t bytes() const {
        return groups * sizeof(__tagVtGroupItem) + views * sizeof(__tagVtViewInfo) +
               items * sizeof(__tagVtViewItem) + carousels * sizeof(__tagVtCarouselItem);
    }
};

TEST(LayoutDecoders, ShareOneBudgetAmongAllArraysOfATree) {
    const struct {
        const char* counter;
        std::size_t entry;
        Before before;
    } cases[] = {{"GroupsCounter", sizeof(__tagVtGroupItem), {0, 0, 0, 0, 0}},
                 {"ViewsCounter", sizeof(__tagVtViewInfo), {2, 2, 4, 8, 8}},
                 {"ViewitemsCounter", sizeof(__tagVtViewItem), {2, 4, 6, 12, 12}},
                 {"CarouselsCounter", sizeof(__tagVtCarouselItem), {2, 4, 8, 14, 14}}};
    for (const Decoder& decoder : decoders)
        for (const auto& c : cases) {
            SCOPED_TRACE(std::string(decoder.name) + ", " + c.counter);
            const auto refusedWith = [&](std::size_t count) {
                const std::string modest = counter(c.counter, "2");
                std::string layout = everyLevel;
                layout.replace(layout.rfind(modest), modest.size(),
                               counter(c.counter, std::to_string(count)));
                return refusal(decoder.message(layout), c.before.arrays, decoder.decode);
            };
            const std::size_t most = (budget - c.before.bytes()) / c.entry;
            EXPECT_EQ(refusedWith(most), Refused::byTheOperator);
            EXPECT_EQ(refusedWith(most + 1), Refused::byTheBudget);
        }
}

// Levels that end early leave slots whose pointers are null.
TEST(LayoutDecoders, AttachNothingToSlotsWithoutAnEntry) {
    for (const Decoder& decoder : decoders)
        for (const Level& level : levels) {
            SCOPED_TRACE(std::string(decoder.name) + ", " + level.counter);
            std::string layout = everyLevel;
            layout.insert(layout.find(wrapped("Carousels", carousel("k"))), "<Carousels />");
            layout.insert(layout.rfind("<" + std::string(level.wrapper) + ">"), wrapped(level.wrapper, ""));
            const Document doc = parsed(decoder.message(layout));
            const long before = failing::live;
            Layout got = decoder.decode(doc.get(), nullptr);
            const long decoded = failing::live;
            ReleaseViewGroupDataParam(&got);
            const long released = failing::live;
            EXPECT_GT(decoded, before);
            EXPECT_EQ(released, before);
        }
}

// What an item holds is freed by its pointer: its type does not matter, nor do the counts of empty levels.
TEST(LayoutRelease, FreesEveryArrayThatIsAttached) {
    for (const int count : {1, 0, -1}) {
        const long before = failing::live;
        Layout layout{new __tagVtGroupItem[1](), 1};
        layout.groups[0].views = new __tagVtViewInfo[1]();
        layout.groups[0].viewcount = 1;
        __tagVtViewInfo& view = layout.groups[0].views[0];
        view.items = new __tagVtViewItem[2]();
        view.itemcount = 2;
        for (int i = 0; i < 2; ++i) { // of no type, and of type 5
            view.items[i].type = 5 * i;
            view.items[i].iteminfo.carousels = new __tagVtCarouselItem[1]();
            view.items[i].iteminfo.carouselcount = count;
        }
        EXPECT_EQ(failing::live, before + 5);
        ReleaseViewGroupDataParam(&layout);
        EXPECT_EQ(failing::live, before);

        layout = {new __tagVtGroupItem[2](), 2};
        layout.groups[0].views = new __tagVtViewInfo[1]();
        layout.groups[0].viewcount = count < 1 ? count : 0; // an array, but no entries
        layout.groups[1].views = new __tagVtViewInfo[1]();
        layout.groups[1].viewcount = 1;
        layout.groups[1].views[0].items = new __tagVtViewItem[1]();
        EXPECT_EQ(failing::live, before + 4);
        ReleaseViewGroupDataParam(&layout);
        EXPECT_EQ(failing::live, before);
    }
}

} // namespace
