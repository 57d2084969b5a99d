// The readers of single records.
#include "support/read_back.h"

#include <LibVeltoProtocol.h>

#include <cstring>
#include <string>

using namespace veltoprotocol;

namespace {

TEST(GetViewInfoDecode, ReadsItsAttributesAlone) {
    const auto got =
        readBack(R"(<View id="v-1" displayname="V &lt;1&gt;" viewlayouttype="1" viewscaletype="-2" )"
                 R"(showtime="3" enablecarousel="4" ownerid="x" itemcount="9">)"
                 "<ViewitemsCounter>1</ViewitemsCounter><Viewitems><Viewitem /></Viewitems></View>",
                 GetViewInfoDecode);
    __tagVtViewInfo want = __tagVtViewInfo();
    std::strcpy(want.id, "v-1");
    std::strcpy(want.displayname, "V <1>");
    want.viewlayouttype = 1;
    want.viewscaletype = -2;
    want.showtime = 3;
    want.enablecarousel = 4;
    EXPECT_TRUE(sameBytes(got.record, want));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetViewItemDecode, LeavesItsInfoZero) {
    const auto got = readBack(R"(<Viewitem id="i-1" displayname="I 1" type="5" itemnumber="-2" ownerid="x">)"
                              R"(<Iteminfo id="f-1" cameraid="m-1" displayname="F 1" url="u" )"
                              R"(VideoStreamType="1" /></Viewitem>)",
                              GetViewItemDecode);
    __tagVtViewItem want = __tagVtViewItem();
    std::strcpy(want.id, "i-1");
    std::strcpy(want.displayname, "I 1");
    want.type = 5;
    want.itemnumber = -2;
    EXPECT_TRUE(sameBytes(got.record, want));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetViewItemInfoDecode, ReadsNoCarousels) {
    const auto got =
        readBack(R"(<Iteminfo id="f-1" cameraid="m-1" displayname="F 1" url="http://x/?a&amp;b" )"
                 R"(VideoStreamType="-3" ownerid="x"><CarouselsCounter>1</CarouselsCounter>)"
                 "<Carousels><Carousel /></Carousels></Iteminfo>",
                 GetViewItemInfoDecode);
    __tagVtViewItemInfo want = __tagVtViewItemInfo();
    std::strcpy(want.id, "f-1");
    std::strcpy(want.cameraid, "m-1");
    std::strcpy(want.displayname, "F 1");
    std::strcpy(want.url, "http://x/?a&b");
    want.VideoStreamType = -3;
    EXPECT_TRUE(sameBytes(got.record, want));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetCarouselDecode, ReadsItsAttributes) {
    const auto got = readBack(R"(<Carousel id="k-1" ChannelGuid="c-1" ShowTime="-1" Index="2" )"
                              R"(DisplayName="K 1" VideoStreamType="3" ownerid="x" />)",
                              GetCarouselDecode);
    __tagVtCarouselItem want = __tagVtCarouselItem();
    std::strcpy(want.id, "k-1");
    std::strcpy(want.ChannelGuid, "c-1");
    want.ShowTime = -1;
    want.Index = 2;
    std::strcpy(want.DisplayName, "K 1");
    want.VideoStreamType = 3;
    EXPECT_TRUE(sameBytes(got.record, want));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

template <class Record>
void expectNothingRead(const ReadBack<Record>& got, const std::string& lines) {
    EXPECT_TRUE(sameBytes(got.record, Record()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, lines);
}

TEST(LayoutElements, NameEachAttributeThatIsMissing) {
    expectNothingRead(readBack("<View />", GetViewInfoDecode),
                      "xml file -..-View(id) element not find!\n"
                      "xml file -..-View(displayname) element not find!\n"
                      "xml file -..-View(viewlayouttype) element not find!\n"
                      "xml file -..-View(viewscaletype) element not find!\n"
                      "xml file -..-View(showtime) element not find!\n"
                      "xml file -..-View(enablecarousel) element not find!\n");
    expectNothingRead(readBack("<Viewitem />", GetViewItemDecode),
                      "xml file -..-Viewitem(id) element not find!\n"
                      "xml file -..-Viewitem(displayname) element not find!\n"
                      "xml file -..-Viewitem(type) element not find!\n"
                      "xml file -..-Viewitem(itemnumber) element not find!\n");
    expectNothingRead(readBack("<Iteminfo />", GetViewItemInfoDecode),
                      "xml file -..-Iteminfo(id) element not find!\n"
                      "xml file -..-Iteminfo(cameraid) element not find!\n"
                      "xml file -..-Iteminfo(displayname) element not find!\n"
                      "xml file -..-Iteminfo(url) element not find!\n"
                      "xml file -..-Iteminfo(VideoStreamType) element not find!\n");
    // The last label is another's.
    expectNothingRead(readBack("<Carousel />", GetCarouselDecode),
                      "xml file -..-Carousel(id) element not find!\n"
                      "xml file -..-Carousel(ChannelGuid) element not find!\n"
                      "xml file -..-Carousel(ShowTime) element not find!\n"
                      "xml file -..-Carousel(Index) element not find!\n"
                      "xml file -..-Carousel(DisplayName) element not find!\n"
                      "xml file -..-Iteminfo(VideoStreamType) element not find!\n");
}

TEST(LayoutElements, HaveNamesInOneSpellingOnly) {
    const auto carousel = readBack(
        R"(<Carousel id="" channelguid="c" showtime="1" index="2" displayname="d" VideoStreamType="0" />)",
        GetCarouselDecode);
    expectNothingRead(carousel, "xml file -..-Carousel(ChannelGuid) element not find!\n"
                                "xml file -..-Carousel(ShowTime) element not find!\n"
                                "xml file -..-Carousel(Index) element not find!\n"
                                "xml file -..-Carousel(DisplayName) element not find!\n");
    const auto view = readBack(
        R"(<View id="" DisplayName="d" viewlayouttype="0" viewscaletype="0" ShowTime="1" enablecarousel="0" />)",
        GetViewInfoDecode);
    expectNothingRead(view, "xml file -..-View(displayname) element not find!\n"
                            "xml file -..-View(showtime) element not find!\n");
}

std::string text(const char* name, std::size_t length) {
    return std::string(name) + "=\"" + std::string(length, 'x') + "\" ";
}
// Elements whose texts are as long as their fields, or by so many bytes longer.
std::string viewXml(std::size_t longer) {
    return "<View " + text("id", 48 + longer) + text("displayname", 64 + longer) +
           R"(viewlayouttype="0" viewscaletype="0" showtime="0" enablecarousel="0" />)";
}
std::string itemXml(std::size_t longer) {
    return "<Viewitem " + text("id", 48 + longer) + text("displayname", 64 + longer) +
           R"(type="0" itemnumber="0" />)";
}
std::string infoXml(std::size_t longer) {
    return "<Iteminfo " + text("id", 48 + longer) + text("cameraid", 48 + longer) +
           text("displayname", 64 + longer) + text("url", 1024 + longer) + R"(VideoStreamType="0" />)";
}
std::string carouselXml(std::size_t longer) {
    return "<Carousel " + text("id", 48 + longer) + text("ChannelGuid", 48 + longer) +
           text("DisplayName", 64 + longer) + R"(ShowTime="0" Index="0" VideoStreamType="0" />)";
}

template <class Record, class... Texts>
void expectFilled(const ReadBack<Record>& got, Texts... texts) {
    Record want = Record();
    (std::memset(want.*texts, 'x', sizeof(want.*texts)), ...);
    EXPECT_TRUE(sameBytes(got.record, want));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(LayoutElements, FillAFieldToItsLastByte) {
    using View = __tagVtViewInfo;
    expectFilled(readBack(viewXml(0), GetViewInfoDecode), &View::id, &View::displayname);
    using Item = __tagVtViewItem;
    expectFilled(readBack(itemXml(0), GetViewItemDecode), &Item::id, &Item::displayname);
    using Info = __tagVtViewItemInfo;
    expectFilled(readBack(infoXml(0), GetViewItemInfoDecode), &Info::id, &Info::cameraid, &Info::displayname,
                 &Info::url);
    using Carousel = __tagVtCarouselItem;
    expectFilled(readBack(carouselXml(0), GetCarouselDecode), &Carousel::id, &Carousel::ChannelGuid,
                 &Carousel::DisplayName);
}

TEST(LayoutElements, DropATextThatIsLonger) {
    expectNothingRead(readBack(viewXml(1), GetViewInfoDecode),
                      "xml file -..-View(id) element too long!\n"
                      "xml file -..-View(displayname) element too long!\n");
    expectNothingRead(readBack(itemXml(1), GetViewItemDecode),
                      "xml file -..-Viewitem(id) element too long!\n"
                      "xml file -..-Viewitem(displayname) element too long!\n");
    expectNothingRead(readBack(infoXml(1), GetViewItemInfoDecode),
                      "xml file -..-Iteminfo(id) element too long!\n"
                      "xml file -..-Iteminfo(cameraid) element too long!\n"
                      "xml file -..-Iteminfo(displayname) element too long!\n"
                      "xml file -..-Iteminfo(url) element too long!\n");
    expectNothingRead(readBack(carouselXml(1), GetCarouselDecode),
                      "xml file -..-Carousel(id) element too long!\n"
                      "xml file -..-Carousel(ChannelGuid) element too long!\n"
                      "xml file -..-Carousel(DisplayName) element too long!\n");
}

template <class Record>
void expectRefused(Record (*decode)(TiXmlElement*, int*)) {
    int error = 7;
    Captured captured;
    const Record got = decode(nullptr, &error);
    decode(nullptr, nullptr);
    EXPECT_EQ(captured.text(), "");
    EXPECT_TRUE(sameBytes(got, Record()));
    EXPECT_EQ(error, -1);
}

TEST(LayoutElements, RefuseANullElement) {
    expectRefused(GetViewInfoDecode);
    expectRefused(GetViewItemDecode);
    expectRefused(GetViewItemInfoDecode);
    expectRefused(GetCarouselDecode);
}

TEST(LayoutElements, NeedNoPlaceForTheError) {
    const Document doc = parsed(R"(<Any id="a" />)");
    TiXmlElement* const any = doc->RootElement();
    Captured quiet;
    const __tagVtViewInfo view = GetViewInfoDecode(any, nullptr);
    const __tagVtViewItem item = GetViewItemDecode(any, nullptr);
    const __tagVtViewItemInfo info = GetViewItemInfoDecode(any, nullptr);
    const __tagVtCarouselItem carousel = GetCarouselDecode(any, nullptr);
    quiet.text();
    for (const char* id : {view.id, item.id, info.id, carousel.id}) EXPECT_STREQ(id, "a");
}

} // namespace
