// The four writers of a single record: attributes of an element that the caller has.
#include "support/captured.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <cstring>
#include <string>

using namespace veltoprotocol;

namespace {

// What a writer makes of an element, as it goes on the wire.
template <class Record>
std::string attributes(int (*write)(TiXmlElement*, const Record*), const Record& record) {
    TiXmlElement element("E");
    Captured captured;
    const int returned = write(&element, &record);
    const std::string printed = captured.text();
    EXPECT_EQ(returned, 0);
    EXPECT_EQ(printed, "");
    TiXmlPrinter printer;
    element.Accept(&printer);
    return printer.Str();
}

template <class Record>
Record noise() {
    Record record;
    std::memset(static_cast<void*>(&record), 'n', sizeof record); // also its pointers: nothing follows them
    return record;
}

TEST(GetViewInfoEncode, SetsItsAttributesInOrder) {
    auto view = noise<__tagVtViewInfo>();
    std::strcpy(view.id, "v-1");
    std::strcpy(view.displayname, "V <1>");
    view.viewlayouttype = 1;
    view.viewscaletype = -2147483647 - 1;
    view.showtime = 2147483647;
    view.enablecarousel = -4;
    EXPECT_EQ(attributes(GetViewInfoEncode, view),
              R"(<E id="v-1" displayname="V &lt;1&gt;" viewlayouttype="1" viewscaletype="-2147483648" )"
              R"(showtime="2147483647" enablecarousel="-4" />)"
              "\n");
}

TEST(GetViewItemEncode, SetsItsAttributesInOrder) {
    auto item = noise<__tagVtViewItem>();
    std::strcpy(item.id, "i-1");
    std::strcpy(item.displayname, "I 1");
    item.type = 5; // its carousel is not written
    item.itemnumber = -2;
    EXPECT_EQ(attributes(GetViewItemEncode, item),
              "<E id=\"i-1\" displayname=\"I 1\" type=\"5\" itemnumber=\"-2\" />\n");
}

TEST(GetViewItemInfoEncode, SetsItsAttributesInOrder) {
    auto info = noise<__tagVtViewItemInfo>();
    std::strcpy(info.id, "f-1");
    std::strcpy(info.cameraid, "m-1");
    std::strcpy(info.url, "http://x/?a&b");
    std::strcpy(info.displayname, "F 1");
    info.VideoStreamType = -3;
    EXPECT_EQ(
        attributes(GetViewItemInfoEncode, info),
        R"(<E id="f-1" cameraid="m-1" displayname="F 1" url="http://x/?a&amp;b" VideoStreamType="-3" />)"
        "\n");
}

TEST(GetCarouselEncode, SetsItsAttributesInOrder) {
    auto carousel = noise<__tagVtCarouselItem>();
    std::strcpy(carousel.id, "k-1");
    std::strcpy(carousel.ChannelGuid, "c-1");
    carousel.ShowTime = -1;
    carousel.Index = 2;
    std::strcpy(carousel.DisplayName, "K 1");
    carousel.VideoStreamType = 3;
    EXPECT_EQ(
        attributes(GetCarouselEncode, carousel),
        R"(<E id="k-1" ChannelGuid="c-1" ShowTime="-1" Index="2" DisplayName="K 1" VideoStreamType="3" />)"
        "\n");
}

// A text of a field's full width has no terminator; what lies behind it is not read.
TEST(LayoutElements, WriteTextsUpToTheirWidth) {
    const auto n = [](std::size_t width) { return std::string(width, 'n'); };
    auto view = noise<__tagVtViewInfo>();
    view.viewlayouttype = view.viewscaletype = view.showtime = view.enablecarousel = 0;
    EXPECT_EQ(attributes(GetViewInfoEncode, view),
              "<E id=\"" + n(48) + "\" displayname=\"" + n(64) +
                  R"(" viewlayouttype="0" viewscaletype="0" showtime="0" enablecarousel="0" />)"
                  "\n");
    auto item = noise<__tagVtViewItem>();
    item.type = item.itemnumber = 0;
    EXPECT_EQ(attributes(GetViewItemEncode, item),
              "<E id=\"" + n(48) + "\" displayname=\"" + n(64) + "\" type=\"0\" itemnumber=\"0\" />\n");
    auto info = noise<__tagVtViewItemInfo>();
    info.VideoStreamType = 0;
    EXPECT_EQ(attributes(GetViewItemInfoEncode, info), "<E id=\"" + n(48) + "\" cameraid=\"" + n(48) +
                                                           "\" displayname=\"" + n(64) + "\" url=\"" +
                                                           n(1024) + "\" VideoStreamType=\"0\" />\n");
    auto carousel = noise<__tagVtCarouselItem>();
    carousel.ShowTime = carousel.Index = carousel.VideoStreamType = 0;
    EXPECT_EQ(attributes(GetCarouselEncode, carousel), "<E id=\"" + n(48) + "\" ChannelGuid=\"" + n(48) +
                                                           "\" ShowTime=\"0\" Index=\"0\" DisplayName=\"" +
                                                           n(64) + "\" VideoStreamType=\"0\" />\n");
}

template <class Record>
void expectRefusals(int (*write)(TiXmlElement*, const Record*)) {
    const Record record = Record();
    TiXmlElement element("E");
    EXPECT_EQ(write(nullptr, &record), -1);
    EXPECT_EQ(write(&element, nullptr), -1);
    EXPECT_EQ(write(nullptr, nullptr), -1);
    EXPECT_EQ(element.FirstAttribute(), nullptr);
    EXPECT_TRUE(element.NoChildren());
}

TEST(LayoutElements, RefuseNullArguments) {
    expectRefusals(GetViewInfoEncode);
    expectRefusals(GetViewItemEncode);
    expectRefusals(GetViewItemInfoEncode);
    expectRefusals(GetCarouselEncode);
}

TEST(LayoutElements, KeepWhatTheElementHolds) {
    TiXmlElement element("E");
    element.SetAttribute("mine", "1");
    element.LinkEndChild(new TiXmlElement("Child"));
    auto item = noise<__tagVtViewItem>();
    std::strcpy(item.id, "i");
    std::strcpy(item.displayname, "");
    item.type = 5;
    item.itemnumber = 1;
    EXPECT_EQ(GetViewItemEncode(&element, &item), 0);
    TiXmlPrinter printer;
    element.Accept(&printer);
    EXPECT_STREQ(printer.CStr(), R"(<E mine="1" id="i" displayname="" type="5" itemnumber="1">
    <Child />
</E>
)");
}

} // namespace
