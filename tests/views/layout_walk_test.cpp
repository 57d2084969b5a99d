// What the levels of a layout tell of each other: errors, owners, carousels, and the order of lines.
#include "views/layouts.h"

#include <cstring>

using namespace layouts;

namespace {

class LayoutWalk : public testing::TestWithParam<Decoder> {
  protected:
    Tree read(const std::string& layout) const { return Tree(GetParam(), layout); }
};
INSTANTIATE_TEST_SUITE_P(Both, LayoutWalk, testing::ValuesIn(decoders),
                         [](const auto& info) { return info.param.name; });

std::string groups(const std::string& entries, const char* count = "9") {
    return counter("GroupsCounter", count) + entries;
}
std::string groupOf(const std::string& views) {
    return wrapped("Groups", group("g", counter("ViewsCounter", "9") + views));
}
std::string viewOf(const std::string& items) {
    return wrapped("Views", view("v", counter("ViewitemsCounter", "9") + items));
}
std::string itemOf(const std::string& carousels) {
    return wrapped("Viewitems", item("i", "5", info("f", counter("CarouselsCounter", "9") + carousels)));
}
const std::string noGroup = wrapped("Groups", "");
const std::string noView = wrapped("Views", "");
const std::string noItem = wrapped("Viewitems", "");
const std::string noInfo = wrapped("Viewitems", item("i", "5", ""));
const std::string noCarousel = wrapped("Carousels", "");
const std::string someCarousel = wrapped("Carousels", carousel("k"));

TEST_P(LayoutWalk, TellsOfTheLastRecordThatWasLookedFor) {
    const std::pair<std::string, int> layouts[] = {
        {counter("GroupsCounter", "0"), 0},
        {groups(""), 0},
        {groups(groupOf(viewOf(itemOf(someCarousel)))), 0},
        {groups(groupOf(viewOf(itemOf("")))), 0},
        // A group is none of the records that are looked for.
        {groups(noGroup), 0},
        {groups(groupOf("") + noGroup), 0},
        {groups(groupOf(viewOf("")) + noGroup), 0},
        {groups(groupOf(noView) + noGroup), -1},
        {groups(groupOf(noView) + groupOf("")), -1},
        {groups(groupOf(noView)), -1},
        {groups(groupOf(viewOf("") + noView)), -1},
        {groups(groupOf(noView) + groupOf(viewOf(""))), 0},
        {groups(groupOf(viewOf(noItem))), -1},
        {groups(groupOf(viewOf(itemOf("") + noItem))), -1},
        {groups(groupOf(viewOf(noItem) + viewOf(""))), 0},
        {groups(groupOf(viewOf(noItem)) + groupOf("")), -1},
        {groups(groupOf(viewOf(noItem)) + groupOf(viewOf(""))), 0},
        {groups(groupOf(viewOf(noInfo))), -1},
        {groups(groupOf(viewOf(noInfo + itemOf("")))), 0},
        {groups(groupOf(viewOf(noInfo + itemOf("")) + noView)), -1},
        {groups(groupOf(viewOf(itemOf("") + noInfo))), -1},
        {groups(groupOf(viewOf(noInfo) + viewOf(""))), 0},
        {groups(groupOf(viewOf(itemOf(noCarousel)))), -1},
        {groups(groupOf(viewOf(itemOf(someCarousel + noCarousel)))), -1},
        {groups(groupOf(viewOf(itemOf(noCarousel + someCarousel)))), -1}, // the level has ended
        {groups(groupOf(viewOf(itemOf(noCarousel) + itemOf("")))), 0},
        {groups(groupOf(viewOf(itemOf(noCarousel)) + viewOf(""))), 0},
        {groups(groupOf(viewOf(itemOf(noCarousel))) + groupOf("")), -1},
    };
    for (const auto& [layout, error] : layouts) {
        SCOPED_TRACE(layout);
        const Tree got = read(layout);
        EXPECT_EQ(got.error, error);
        EXPECT_EQ(got.printed, "");
    }
}

TEST_P(LayoutWalk, GoesOnBehindALevelThatEnded) {
    const Tree got =
        read(groups(groupOf(noView) +
                    groupOf(viewOf(noItem) + viewOf(noInfo + itemOf(noCarousel) + itemOf(someCarousel)))));
    ASSERT_EQ(got.data.groupcount, 9);
    EXPECT_TRUE(sameBytes(got.data.groups[0].views[0], __tagVtViewInfo()));
    const __tagVtViewInfo* views = got.data.groups[1].views;
    EXPECT_STREQ(views[0].id, "v");
    EXPECT_TRUE(sameBytes(views[0].items[0], __tagVtViewItem()));
    const __tagVtViewItem* items = views[1].items;
    EXPECT_STREQ(items[0].id, "i");
    EXPECT_TRUE(sameBytes(items[1].iteminfo.carousels[0], __tagVtCarouselItem()));
    EXPECT_STREQ(items[2].iteminfo.carousels[0].id, "k");
    EXPECT_TRUE(sameBytes(items[3], __tagVtViewItem()));
}

TEST_P(LayoutWalk, LinksAnItemToItsMissingInfo) {
    const Tree got = read(inView(counter("ViewitemsCounter", "1") + noInfo));
    ASSERT_EQ(got.data.groupcount, 1);
    __tagVtViewItemInfo want = __tagVtViewItemInfo();
    std::strcpy(want.ownerid, "i");
    EXPECT_TRUE(sameBytes(got.data.groups[0].views[0].items[0].iteminfo, want));
    EXPECT_EQ(got.printed, ""); // nor of a counter in what is missing
}

TEST_P(LayoutWalk, NeedsNoPlaceForTheError) {
    for (const std::string& views :
         {noView, viewOf(noItem), viewOf(noInfo), viewOf(itemOf(noCarousel)), viewOf(itemOf(someCarousel))}) {
        const Document doc = parsed(GetParam().message(groups(groupOf(views))));
        Layout got = GetParam().decode(doc.get(), nullptr);
        EXPECT_EQ(got.groupcount, 9);
        ReleaseViewGroupDataParam(&got);
    }
}

std::string wide(char first) { return std::string(1, first) + std::string(47, '.'); }

TEST_P(LayoutWalk, CopiesTheWholeIdOfAParent) {
    const std::string steps = counter("CarouselsCounter", "1") + wrapped("Carousels", carousel(wide('k')));
    const std::string items =
        counter("ViewitemsCounter", "1") + wrapped("Viewitems", item(wide('i'), "5", info(wide('f'), steps)));
    const std::string views = counter("ViewsCounter", "1") + wrapped("Views", view(wide('v'), items));
    const Tree got = read(groups(wrapped("Groups", group(wide('g'), views)), "1"));
    ASSERT_EQ(got.data.groupcount, 1);
    const auto text = [](const char(&field)[48]) { return std::string(field, 48); };
    const __tagVtGroupItem& ofGroup = got.data.groups[0];
    const __tagVtViewItem& ofItem = ofGroup.views[0].items[0];
    EXPECT_EQ(text(ofGroup.ownerid), std::string(48, '\0'));
    EXPECT_EQ(text(ofGroup.views[0].ownerid), wide('g'));
    EXPECT_EQ(text(ofItem.ownerid), wide('v'));
    EXPECT_EQ(text(ofItem.iteminfo.ownerid), wide('i'));
    EXPECT_EQ(text(ofItem.iteminfo.carousels[0].ownerid), wide('f'));
}

TEST_P(LayoutWalk, TakesNoOwnerFromTheMessage) {
    const Tree got =
        read(groups(R"(<Groups><Group ownerid="x"><ViewsCounter>1</ViewsCounter><Views><View ownerid="x">)"
                    R"(<ViewitemsCounter>1</ViewitemsCounter><Viewitems><Viewitem ownerid="x" type="5">)"
                    R"(<Iteminfo ownerid="x"><CarouselsCounter>1</CarouselsCounter><Carousels>)"
                    R"(<Carousel ownerid="x" /></Carousels></Iteminfo></Viewitem></Viewitems></View></Views>)"
                    R"(</Group></Groups>)"));
    ASSERT_EQ(got.data.groupcount, 9);
    __tagVtGroupItem& ofGroup = got.data.groups[0];
    __tagVtViewItem& ofItem = ofGroup.views[0].items[0];
    for (const char* owner : {ofGroup.ownerid, ofGroup.views[0].ownerid, ofItem.ownerid,
                              ofItem.iteminfo.ownerid, ofItem.iteminfo.carousels[0].ownerid})
        EXPECT_STREQ(owner, "");
}

TEST_P(LayoutWalk, ReadsCarouselsOfItemsOfType5Alone) {
    const std::string steps = counter("CarouselsCounter", "1") + someCarousel;
    const auto itemOfType = [&](const std::string& type) {
        const Tree got = read(inView(counter("ViewitemsCounter", "1") +
                                     wrapped("Viewitems", item("i", type, info("f", steps)))));
        EXPECT_EQ(got.printed, "");
        EXPECT_EQ(got.error, 0);
        const __tagVtViewItemInfo& shown = got.data.groups[0].views[0].items[0].iteminfo;
        EXPECT_EQ(shown.carouselcount, shown.carousels ? 1 : 0);
        EXPECT_STREQ(shown.ownerid, "i");
        return shown.carousels != nullptr;
    };
    EXPECT_TRUE(itemOfType("5"));
    for (const char* type : {"", "0", "4", "6", "-5", "55"}) EXPECT_FALSE(itemOfType(type)) << type;
}

TEST_P(LayoutWalk, NamesWhatIsMissingInTheOrderOfTheWalk) {
    const Tree got =
        read(R"(<GroupsCounter>2</GroupsCounter><Groups><Group><ViewsCounter>1</ViewsCounter>)"
             R"(<Views><View><ViewitemsCounter>2</ViewitemsCounter><Viewitems><Viewitem type="5">)"
             R"(<Iteminfo><CarouselsCounter>1</CarouselsCounter><Carousels><Carousel /></Carousels>)"
             R"(</Iteminfo></Viewitem></Viewitems><Viewitems><Viewitem type="5"><Iteminfo />)"
             R"(</Viewitem></Viewitems></View></Views></Group></Groups><Groups><Group />)"
             R"(</Groups>)");
    const std::string ofGroup = "xml file -..-Group(id) element not find!\n"
                                "xml file -..-Group(displayname) element not find!\n"
                                "xml file -..-Group(parentguid) element not find!\n";
    const std::string ofItem = "xml file -..-Viewitem(id) element not find!\n"
                               "xml file -..-Viewitem(displayname) element not find!\n"
                               "xml file -..-Viewitem(itemnumber) element not find!\n"
                               "xml file -..-Iteminfo(id) element not find!\n"
                               "xml file -..-Iteminfo(cameraid) element not find!\n"
                               "xml file -..-Iteminfo(displayname) element not find!\n"
                               "xml file -..-Iteminfo(url) element not find!\n"
                               "xml file -..-Iteminfo(VideoStreamType) element not find!\n";
    EXPECT_EQ(got.printed, ofGroup +
                               "xml file -..-View(id) element not find!\n"
                               "xml file -..-View(displayname) element not find!\n"
                               "xml file -..-View(viewlayouttype) element not find!\n"
                               "xml file -..-View(viewscaletype) element not find!\n"
                               "xml file -..-View(showtime) element not find!\n"
                               "xml file -..-View(enablecarousel) element not find!\n" +
                               ofItem +
                               "xml file -..-Carousel(id) element not find!\n"
                               "xml file -..-Carousel(ChannelGuid) element not find!\n"
                               "xml file -..-Carousel(ShowTime) element not find!\n"
                               "xml file -..-Carousel(Index) element not find!\n"
                               "xml file -..-Carousel(DisplayName) element not find!\n"
                               "xml file -..-Iteminfo(VideoStreamType) element not find!\n" +
                               ofItem + "xml file -..-Iteminfo-CarouselsCounter element not find!\n" +
                               ofGroup + "xml file -..-Group-ViewsCounter element not find!\n");
    EXPECT_EQ(got.error, 0);
}

std::string groupOfLength(std::size_t longer) {
    const auto text = [longer](std::size_t width) {
        return "=\"" + std::string(width + longer, 'x') + "\" ";
    };
    return groups("<Groups><Group id" + text(48) + "displayname" + text(64) + "parentguid" + text(48) +
                  "><ViewsCounter>0</ViewsCounter></Group></Groups>");
}

TEST_P(LayoutWalk, FillsTheTextsOfAGroupToTheirLastByte) {
    const Tree got = read(groupOfLength(0));
    ASSERT_EQ(got.data.groupcount, 9);
    __tagVtGroupItem want = __tagVtGroupItem();
    std::memset(want.id, 'x', 48);
    std::memset(want.displayname, 'x', 64);
    std::memset(want.parentguid, 'x', 48);
    EXPECT_TRUE(sameBytes(got.data.groups[0], want));
    EXPECT_EQ(got.printed, "");
}

TEST_P(LayoutWalk, DropsTextsOfAGroupThatAreLonger) {
    const Tree got = read(groupOfLength(1));
    ASSERT_EQ(got.data.groupcount, 9);
    EXPECT_TRUE(sameBytes(got.data.groups[0], __tagVtGroupItem()));
    EXPECT_EQ(got.printed, "xml file -..-Group(id) element too long!\n"
                           "xml file -..-Group(displayname) element too long!\n"
                           "xml file -..-Group(parentguid) element too long!\n");
    EXPECT_EQ(got.error, 0);
}

} // namespace
