// The item that is read on its own, from two elements beside each other.
#include "support/read_back.h"

#include <LibVeltoProtocol.h>

#include <cstring>
#include <string>

using namespace veltoprotocol;

namespace {

void expectNothingRead(const ReadBack<__tagVtViewItem>& got, const std::string& lines) {
    EXPECT_TRUE(sameBytes(got.record, __tagVtViewItem()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, lines);
}

TEST(GetViewItemParamDecode, ReadsItemAndInfoBesideEachOther) {
    const auto got = readBack(
        R"(<Any><Viewitem id="i-1" displayname="I 1" type="-5" itemnumber="2"><Iteminfo id="no" )"
        R"(cameraid="no" displayname="no" url="no" VideoStreamType="3" /></Viewitem>)"
        R"(<Iteminfo id="f-1" cameraid="m-1" displayname="F 1" url="u" VideoStreamType="3" /></Any>)",
        GetViewItemParamDecode);
    __tagVtViewItem want = __tagVtViewItem();
    std::strcpy(want.id, "i-1");
    std::strcpy(want.displayname, "I 1");
    want.type = -5;
    std::strcpy(want.iteminfo.cameraid, "m-1");
    std::strcpy(want.iteminfo.displayname, "F 1");
    EXPECT_TRUE(sameBytes(got.record, want));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetViewItemParamDecode, ReadsNoCarousels) {
    const auto got = readBack(R"(<Any><Viewitem id="i" displayname="I" type="5" /><Iteminfo cameraid="m" )"
                              R"(displayname="F"><CarouselsCounter>1</CarouselsCounter><Carousels>)"
                              "<Carousel /></Carousels></Iteminfo></Any>",
                              GetViewItemParamDecode);
    EXPECT_EQ(got.record.type, 5);
    EXPECT_EQ(got.record.iteminfo.carousels, nullptr);
    EXPECT_EQ(got.record.iteminfo.carouselcount, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetViewItemParamDecode, NamesChildrenThatAreMissing) {
    expectNothingRead(readBack("<Any />", GetViewItemParamDecode),
                      "xml file -..-Viewitems-Viewitem element not find!\n"
                      "xml file -..-Viewitems-Iteminfo element not find!\n");
    const auto noItem =
        readBack(R"(<Any><Iteminfo cameraid="m" displayname="F" /></Any>)", GetViewItemParamDecode);
    EXPECT_EQ(noItem.printed, "xml file -..-Viewitems-Viewitem element not find!\n");
    EXPECT_STREQ(noItem.record.iteminfo.cameraid, "m");
    EXPECT_EQ(noItem.error, 0);
    const auto nested = readBack(R"(<Any><Viewitem id="i" displayname="I" type="1"><Iteminfo cameraid="m" )"
                                 R"(displayname="F" /></Viewitem></Any>)",
                                 GetViewItemParamDecode);
    EXPECT_EQ(nested.printed, "xml file -..-Viewitems-Iteminfo element not find!\n");
    EXPECT_STREQ(nested.record.id, "i");
    EXPECT_TRUE(sameBytes(nested.record.iteminfo, __tagVtViewItemInfo()));
    EXPECT_EQ(nested.error, 0);
}

// Both elements with texts as long as their fields, or by so many bytes longer.
std::string textsOfLength(std::size_t longer) {
    const auto text = [longer](const std::string& name, std::size_t width) {
        return name + "=\"" + std::string(width + longer, 'x') + "\" ";
    };
    return "<Any><Viewitem " + text("id", 48) + text("displayname", 64) + "type=\"0\" /><Iteminfo " +
           text("cameraid", 48) + text("displayname", 64) + "/></Any>";
}

TEST(GetViewItemParamDecode, NamesAttributesThatAreMissingOrTooLong) {
    expectNothingRead(readBack("<Any><Viewitem /><Iteminfo /></Any>", GetViewItemParamDecode),
                      "xml file -..-Viewitem(id) element not find!\n"
                      "xml file -..-Viewitem(displayname) element not find!\n"
                      "xml file -..-Viewitem(type) element not find!\n"
                      "xml file -..-Iteminfo(cameraid) element not find!\n"
                      "xml file -..-Viewitem(displayname) element not find!\n");
    expectNothingRead(readBack(textsOfLength(1), GetViewItemParamDecode),
                      "xml file -..-Viewitem(id) element too long!\n"
                      "xml file -..-Viewitem(displayname) element too long!\n"
                      "xml file -..-Iteminfo(cameraid) element too long!\n"
                      "xml file -..-Viewitem(displayname) element too long!\n");
}

TEST(GetViewItemParamDecode, FillsAFieldToItsLastByte) {
    const auto got = readBack(textsOfLength(0), GetViewItemParamDecode);
    __tagVtViewItem want = __tagVtViewItem();
    std::memset(want.id, 'x', 48);
    std::memset(want.displayname, 'x', 64);
    std::memset(want.iteminfo.cameraid, 'x', 48);
    std::memset(want.iteminfo.displayname, 'x', 64);
    EXPECT_TRUE(sameBytes(got.record, want));
    EXPECT_EQ(got.printed, "");
}

TEST(GetViewItemParamDecode, RefusesANullElement) {
    int error = 7;
    Captured captured;
    const __tagVtViewItem got = GetViewItemParamDecode(nullptr, &error);
    GetViewItemParamDecode(nullptr, nullptr);
    EXPECT_EQ(captured.text(), "");
    EXPECT_TRUE(sameBytes(got, __tagVtViewItem()));
    EXPECT_EQ(error, -1);
}

TEST(GetViewItemParamDecode, NeedsNoPlaceForTheError) {
    const Document doc = parsed(R"(<Any><Viewitem id="i" displayname="" type="0" /></Any>)");
    Captured captured;
    const __tagVtViewItem got = GetViewItemParamDecode(doc->RootElement(), nullptr);
    EXPECT_EQ(captured.text(), "xml file -..-Viewitems-Iteminfo element not find!\n");
    EXPECT_STREQ(got.id, "i");
}

} // namespace
