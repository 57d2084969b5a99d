// Where each member of a layout's records lies: callers fill records that were compiled elsewhere.
#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

using namespace veltoprotocol;

namespace {

template <class... Records>
constexpr bool plain = (... && (std::is_standard_layout_v<Records> && std::is_trivially_copyable_v<Records>));
static_assert(plain<__tagVtViewGroupInfo, __tagVtCarouselItem, __tagVtViewItemInfo, __tagVtViewItem,
                    __tagVtViewInfo, __tagVtGroupItem, __tagVtViewGroupData, __tagVtViewGroup>);

constexpr std::size_t pointer = sizeof(void*);
// The size of what ends at that offset, filled up to whole pointers.
constexpr std::size_t padded(std::size_t end) { return (end + pointer - 1) / pointer * pointer; }

TEST(ViewGroupData, KeepsItsShape) {
    using Layout = __tagVtViewGroupData;
    EXPECT_EQ(offsetof(Layout, groups), 0u);
    EXPECT_EQ(offsetof(Layout, groupcount), pointer);
    EXPECT_EQ(sizeof(Layout), padded(pointer + 4));
    using ViewGroup = __tagVtViewGroup;
    EXPECT_EQ(offsetof(ViewGroup, info), 0u);
    EXPECT_EQ(offsetof(ViewGroup, data), padded(sizeof(__tagVtViewGroupInfo)));
    EXPECT_EQ(sizeof(ViewGroup), offsetof(ViewGroup, data) + sizeof(Layout));
}

TEST(GroupItem, KeepsItsShape) {
    using Group = __tagVtGroupItem;
    EXPECT_EQ(offsetof(Group, id), 0u);
    EXPECT_EQ(offsetof(Group, ownerid), 48u);
    EXPECT_EQ(offsetof(Group, displayname), 96u);
    EXPECT_EQ(offsetof(Group, parentguid), 160u);
    EXPECT_EQ(offsetof(Group, views), 208u);
    EXPECT_EQ(offsetof(Group, viewcount), 208u + pointer);
    EXPECT_EQ(sizeof(Group), padded(208 + pointer + 4));
}

TEST(ViewInfo, KeepsItsShape) {
    using View = __tagVtViewInfo;
    EXPECT_EQ(offsetof(View, id), 0u);
    EXPECT_EQ(offsetof(View, ownerid), 48u);
    EXPECT_EQ(offsetof(View, displayname), 96u);
    EXPECT_EQ(offsetof(View, viewlayouttype), 160u);
    EXPECT_EQ(offsetof(View, viewscaletype), 164u);
    EXPECT_EQ(offsetof(View, items), 168u);
    EXPECT_EQ(offsetof(View, itemcount), 168u + pointer);
    EXPECT_EQ(offsetof(View, showtime), 172u + pointer);
    EXPECT_EQ(offsetof(View, enablecarousel), 176u + pointer);
    EXPECT_EQ(sizeof(View), padded(180 + pointer));
}

TEST(ViewItem, KeepsItsShape) {
    using Item = __tagVtViewItem;
    EXPECT_EQ(offsetof(Item, id), 0u);
    EXPECT_EQ(offsetof(Item, ownerid), 48u);
    EXPECT_EQ(offsetof(Item, displayname), 96u);
    EXPECT_EQ(offsetof(Item, itemnumber), 160u);
    EXPECT_EQ(offsetof(Item, type), 164u);
    EXPECT_EQ(offsetof(Item, iteminfo), 168u);
    EXPECT_EQ(sizeof(Item), 168u + sizeof(__tagVtViewItemInfo));
}

TEST(ViewItemInfo, KeepsItsShape) {
    using Info = __tagVtViewItemInfo;
    EXPECT_EQ(offsetof(Info, id), 0u);
    EXPECT_EQ(offsetof(Info, ownerid), 48u);
    EXPECT_EQ(offsetof(Info, cameraid), 96u);
    EXPECT_EQ(offsetof(Info, url), 144u);
    EXPECT_EQ(offsetof(Info, displayname), 1168u);
    EXPECT_EQ(offsetof(Info, carousels), 1232u);
    EXPECT_EQ(offsetof(Info, carouselcount), 1232u + pointer);
    EXPECT_EQ(offsetof(Info, VideoStreamType), 1236u + pointer);
    EXPECT_EQ(sizeof(Info), padded(1240 + pointer));
}

TEST(CarouselItem, KeepsItsShape) {
    using Carousel = __tagVtCarouselItem;
    EXPECT_EQ(offsetof(Carousel, id), 0u);
    EXPECT_EQ(offsetof(Carousel, ownerid), 48u);
    EXPECT_EQ(offsetof(Carousel, ChannelGuid), 96u);
    EXPECT_EQ(offsetof(Carousel, ShowTime), 144u);
    EXPECT_EQ(offsetof(Carousel, Index), 148u);
    EXPECT_EQ(offsetof(Carousel, DisplayName), 152u);
    EXPECT_EQ(offsetof(Carousel, VideoStreamType), 216u);
    EXPECT_EQ(sizeof(Carousel), 220u);
}

} // namespace
