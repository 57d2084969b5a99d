// What is left of a layout that was released. That nothing leaks is told by the tests of exhausted memory.
#include "views/layouts.h"

#include <cstring>

using namespace layouts;

namespace {

const std::string everyLevel = inInfo(counter("CarouselsCounter", "2") + wrapped("Carousels", carousel("k")));

TEST(ReleaseViewGroupDataParam, MayBeCalledTwice) {
    const Document doc = parsed(decoders[0].message(everyLevel));
    Layout got = GetViewGroupDataParamDecode(doc.get(), nullptr);
    ASSERT_NE(got.groups, nullptr);
    for (int call = 1; call <= 2; ++call) {
        ReleaseViewGroupDataParam(&got);
        EXPECT_TRUE(isEmpty(got)) << "call " << call;
    }
}

TEST(ReleaseSetViewGroupData, MayBeCalledTwiceAndLeavesTheHead) {
    const Document doc = parsed(decoders[1].message(everyLevel));
    __tagVtViewGroup got = GetSetViewGroupData(doc.get(), nullptr);
    ASSERT_NE(got.data.groups, nullptr);
    const __tagVtViewGroupInfo head = got.info;
    EXPECT_STREQ(head.UserGuid, "u");
    for (int call = 1; call <= 2; ++call) {
        ReleaseSetViewGroupData(&got);
        EXPECT_TRUE(isEmpty(got.data)) << "call " << call;
        EXPECT_TRUE(sameBytes(got.info, head)) << "call " << call;
    }
}

TEST(LayoutRelease, IgnoresNull) {
    ReleaseViewGroupDataParam(nullptr);
    ReleaseSetViewGroupData(nullptr);
}

TEST(LayoutRelease, LeavesTheCountOfALayoutWithoutGroups) {
    for (const int count : {0, 7, -7}) {
        __tagVtViewGroup group = __tagVtViewGroup();
        group.data.groupcount = count;
        ReleaseViewGroupDataParam(&group.data);
        EXPECT_EQ(group.data.groupcount, count);
        ReleaseSetViewGroupData(&group);
        EXPECT_EQ(group.data.groupcount, count);
        EXPECT_EQ(group.data.groups, nullptr);
    }
}

TEST(LayoutRelease, FollowsNoPointerThatIsNull) {
    for (const int count : {1, -1, 2147483647}) { // a count may be positive where the array is null
        Layout withoutViews{new __tagVtGroupItem[1](), 1};
        withoutViews.groups[0].viewcount = count;
        ReleaseViewGroupDataParam(&withoutViews);
        EXPECT_TRUE(isEmpty(withoutViews));

        Layout withoutItems{new __tagVtGroupItem[1](), 1};
        withoutItems.groups[0].views = new __tagVtViewInfo[1]();
        withoutItems.groups[0].viewcount = 1;
        withoutItems.groups[0].views[0].itemcount = count;
        ReleaseViewGroupDataParam(&withoutItems);
        EXPECT_TRUE(isEmpty(withoutItems));

        Layout withoutCarousels{new __tagVtGroupItem[1](), 1};
        __tagVtViewInfo* const views = new __tagVtViewInfo[1]();
        withoutCarousels.groups[0].views = views;
        withoutCarousels.groups[0].viewcount = 1;
        views[0].items = new __tagVtViewItem[1]();
        views[0].itemcount = 1;
        views[0].items[0].type = 5;
        views[0].items[0].iteminfo.carouselcount = count;
        ReleaseViewGroupDataParam(&withoutCarousels);
        EXPECT_TRUE(isEmpty(withoutCarousels));
    }
}

// An array without entries is an array all the same.
TEST(LayoutRelease, TakesArraysOfCountZero) {
    Layout layout{new __tagVtGroupItem[0](), 0};
    ReleaseViewGroupDataParam(&layout);
    EXPECT_EQ(layout.groups, nullptr);
}

} // namespace
