// What is read of a user's maps, and that it is what was sent.
#include "support/read_back.h"
#include "support/received.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

using namespace veltoprotocol;

namespace {

using Map = __tagVtEMapInfo;
using MapItem = __tagVtEMapItemParam;
using UserMaps = __tagVtUserEMapInfo;
using MapsDecoder = UserMaps* (*)(TiXmlDocument*, int*);

// The maps in a document, released at the end.
struct Maps {
    Maps(const std::string& xml, MapsDecoder decode) : Maps(readBackDocument(xml, decode)) {}
    explicit Maps(const ReadBack<UserMaps*>& got)
        : record(got.record), error(got.error), printed(got.printed) {}
    Maps(const Maps&) = delete;
    Maps& operator=(const Maps&) = delete;
    ~Maps() { EMapInfoDecodeRelease(record); }

    UserMaps* const record;
    const int error;
    const std::string printed;
};

std::string command(const std::string& kind, const std::string& children) {
    return "<servercommandservice><" + kind + ">" + children + "</" + kind + "></servercommandservice>";
}
std::string request(const std::string& children) { return command("request", children); }
std::string response(const std::string& children) { return command("response", children); }

// All children, so that nothing is printed. The number makes each map or item another one.
std::string mapXml(int number) {
    const std::string n = std::to_string(number);
    return "<EMapInfo><MapInfoGuid>m-" + n + "</MapInfoGuid><ParentMapGuid>p-" + n +
           "</ParentMapGuid><MapType>1" + n + "</MapType><GisCenterCityName>c-" + n +
           "</GisCenterCityName><GisPosX>+0.5" + n + "0</GisPosX><GisPosY>-00." + n + "</GisPosY><GisZoom>2" +
           n + "</GisZoom><CustomizeImagePath>/" + n + "</CustomizeImagePath><CustomizeImageSize>3" + n +
           "</CustomizeImageSize><CustomizeImageType>4" + n + "</CustomizeImageType><MapName>n-" + n +
           "</MapName><Status>5" + n + "</Status><LastTime>6" + n + "</LastTime></EMapInfo>";
}
Map mapOf(int number) {
    const std::string n = std::to_string(number);
    Map map = Map();
    std::strcpy(map.MapInfoGuid, ("m-" + n).c_str());
    std::strcpy(map.ParentMapGuid, ("p-" + n).c_str());
    map.MapType = 10 + number;
    std::strcpy(map.GisCenterCityName, ("c-" + n).c_str());
    std::strcpy(map.GisPosX, ("+0.5" + n + "0").c_str());
    std::strcpy(map.GisPosY, ("-00." + n).c_str());
    map.GisZoom = 20 + number;
    std::strcpy(map.CustomizeImagePath, ("/" + n).c_str());
    map.CustomizeImageSize = 30 + number;
    map.CustomizeImageType = 40 + number;
    std::strcpy(map.MapName, ("n-" + n).c_str());
    map.Status = 50 + number;
    map.LastTime = 60u + static_cast<unsigned int>(number);
    return map;
}

std::string itemXml(int number) {
    const std::string n = std::to_string(number);
    return "<EMapItem><MapItemGuid>i-" + n + "</MapItemGuid><MapInfoGuid>m-" + n +
           "</MapInfoGuid><ItemContentGuid>c-" + n + "</ItemContentGuid><ItemType>1" + n +
           "</ItemType><DisplayName>n-" + n + "</DisplayName><Discription>d-" + n + "</Discription><PosX>0" +
           n + "</PosX><PosY>" + n + ".0</PosY><Status>2" + n + "</Status></EMapItem>";
}
MapItem itemOf(int number) {
    const std::string n = std::to_string(number);
    MapItem item = MapItem();
    std::strcpy(item.MapItemGuid, ("i-" + n).c_str());
    std::strcpy(item.MapInfoGuid, ("m-" + n).c_str());
    std::strcpy(item.ItemContentGuid, ("c-" + n).c_str());
    item.ItemType = 10 + number;
    std::strcpy(item.DisplayName, ("n-" + n).c_str());
    std::strcpy(item.Discription, ("d-" + n).c_str());
    std::strcpy(item.PosX, ("0" + n).c_str());
    std::strcpy(item.PosY, (n + ".0").c_str());
    item.Status = 20 + number;
    return item;
}

struct Side {
    const char* name;
    MapsDecoder decode;
    std::string (*document)(const std::string& children);
    const char* silent; // what keeps it from printing anything
};
const Side sides[] = {
    {"request", GetSetEMapInfoReqDecode, request, "<UserGuid></UserGuid>"},
    {"response", GetEMapInfoRespDecode, response, ""},
};
class MapsOfAUser : public testing::TestWithParam<Side> {
  protected:
    static std::string document(const std::string& children) {
        return GetParam().document(GetParam().silent + children);
    }
};
INSTANTIATE_TEST_SUITE_P(Each, MapsOfAUser, testing::ValuesIn(sides),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(MapsOfAUser, AreReadWithTheirItems) {
    const Maps got(document("<EMapInfos count=\"2\">" + mapXml(1) + "<Other />" + mapXml(2) +
                            "</EMapInfos><EMapItems count=\"2\">" + itemXml(3) + itemXml(4) + "</EMapItems>"),
                   GetParam().decode);
    ASSERT_NE(got.record, nullptr);
    ASSERT_EQ(got.record->EMapInfoCount, 2);
    EXPECT_TRUE(sameBytes(got.record->EMapInfos[0], mapOf(1)));
    EXPECT_TRUE(sameBytes(got.record->EMapInfos[1], mapOf(2)));
    ASSERT_EQ(got.record->EMapItemCount, 2);
    EXPECT_TRUE(sameBytes(got.record->EMapItems[0], itemOf(3)));
    EXPECT_TRUE(sameBytes(got.record->EMapItems[1], itemOf(4)));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST_P(MapsOfAUser, AreNoMoreThanTheirCountsSay) {
    const Maps got(document("<EMapInfos count=\"2\">" + mapXml(1) + mapXml(2) +
                            "<EMapInfo /></EMapInfos><EMapItems count=\"1\">" + itemXml(3) +
                            "<EMapItem /></EMapItems>"),
                   GetParam().decode);
    ASSERT_EQ(got.record->EMapInfoCount, 2);
    EXPECT_TRUE(sameBytes(got.record->EMapInfos[1], mapOf(2)));
    ASSERT_EQ(got.record->EMapItemCount, 1);
    EXPECT_TRUE(sameBytes(got.record->EMapItems[0], itemOf(3)));
    EXPECT_EQ(got.printed, ""); // the last ones would have been missed
}

TEST_P(MapsOfAUser, LeaveSlotsWithoutAnElementZero) {
    const Maps got(document("<EMapInfos count=\"3\">" + mapXml(1) + "</EMapInfos><EMapItems count=\"2\" />"),
                   GetParam().decode);
    ASSERT_EQ(got.record->EMapInfoCount, 3);
    EXPECT_TRUE(sameBytes(got.record->EMapInfos[0], mapOf(1)));
    EXPECT_TRUE(sameBytes(got.record->EMapInfos[1], Map()));
    EXPECT_TRUE(sameBytes(got.record->EMapInfos[2], Map()));
    ASSERT_EQ(got.record->EMapItemCount, 2);
    EXPECT_TRUE(sameBytes(got.record->EMapItems[0], MapItem()));
    EXPECT_TRUE(sameBytes(got.record->EMapItems[1], MapItem()));
    EXPECT_EQ(got.error, 0);
}

TEST_P(MapsOfAUser, HaveNoArrayForACountBelowOne) {
    for (const int count : {0, -1, -2147483647 - 1}) {
        const std::string n = std::to_string(count);
        const Maps got(document("<EMapInfos count=\"" + n + "\">" + mapXml(1) +
                                "</EMapInfos><EMapItems count=\"" + n + "\">" + itemXml(1) + "</EMapItems>"),
                       GetParam().decode);
        ASSERT_NE(got.record, nullptr);
        EXPECT_EQ(got.record->EMapInfoCount, count);
        EXPECT_EQ(got.record->EMapInfos, nullptr);
        EXPECT_EQ(got.record->EMapItemCount, count);
        EXPECT_EQ(got.record->EMapItems, nullptr);
        EXPECT_EQ(got.error, 0);
        EXPECT_EQ(got.printed, "");
    }
}

TEST_P(MapsOfAUser, HaveNoArrayWithoutACountWhichIsNamed) {
    const Maps got(
        document("<EMapItems>" + itemXml(1) + "</EMapItems><EMapInfos>" + mapXml(1) + "</EMapInfos>"),
        GetParam().decode);
    EXPECT_TRUE(sameBytes(*got.record, UserMaps()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-EMapInfos(count) element not find!\n"
                           "xml file -..-EMapItems(count) element not find!\n");
}

TEST_P(MapsOfAUser, MayHaveOneListOrNone) {
    const Maps mapsOnly(document("<EMapInfos count=\"1\">" + mapXml(1) + "</EMapInfos>"), GetParam().decode);
    EXPECT_TRUE(sameBytes(mapsOnly.record->EMapInfos[0], mapOf(1)));
    EXPECT_EQ(mapsOnly.record->EMapItemCount, 0);
    EXPECT_EQ(mapsOnly.record->EMapItems, nullptr);
    EXPECT_EQ(mapsOnly.printed, "");
    const Maps itemsOnly(document("<EMapItems count=\"1\">" + itemXml(1) + "</EMapItems>"),
                         GetParam().decode);
    EXPECT_EQ(itemsOnly.record->EMapInfoCount, 0);
    EXPECT_EQ(itemsOnly.record->EMapInfos, nullptr);
    EXPECT_TRUE(sameBytes(itemsOnly.record->EMapItems[0], itemOf(1)));
    EXPECT_EQ(itemsOnly.printed, "");
    const Maps none(document(""), GetParam().decode);
    EXPECT_TRUE(sameBytes(*none.record, UserMaps()));
    EXPECT_EQ(none.error, 0);
    EXPECT_EQ(none.printed, "");
}

TEST_P(MapsOfAUser, NameWhatAMapOrAnItemLacks) {
    const Maps got(document("<EMapInfos count=\"1\"><EMapInfo /></EMapInfos>"
                            "<EMapItems count=\"1\"><EMapItem /></EMapItems>"),
                   GetParam().decode);
    std::string lines;
    for (const char* name :
         {"MapInfoGuid", "ParentMapGuid", "MapType", "GisCenterCityName", "GisPosX", "GisPosY", "GisZoom",
          "CustomizeImagePath", "CustomizeImageSize", "CustomizeImageType", "MapName", "Status", "LastTime"})
        lines += "xml file -..-EMapInfo-" + std::string(name) + " element not find!\n";
    for (const char* name : {"MapItemGuid", "MapInfoGuid", "ItemContentGuid", "ItemType", "DisplayName",
                             "Discription", "PosX", "PosY", "Status"})
        lines += "xml file -..-EMapItem-" + std::string(name) + " element not find!\n";
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, lines);
}

TEST_P(MapsOfAUser, AreNothingWithoutAnErrorIfTheWayEnds) {
    const std::string other = std::string(GetParam().name) == "request" ? "response" : "request";
    for (const std::string& xml : {std::string("<other><request /><response /></other>"),
                                   std::string("<servercommandservice />"), command(other, "<UserGuid />")}) {
        const Maps got(xml, GetParam().decode);
        EXPECT_EQ(got.record, nullptr) << xml;
        EXPECT_EQ(got.error, 0);
        EXPECT_EQ(got.printed, "");
    }
}

TEST_P(MapsOfAUser, RefuseANullDocumentAndTakeANullError) {
    const Document whole = parsed(document("<EMapInfos count=\"1\">" + mapXml(1) + "</EMapInfos>"));
    const Document ends = parsed("<other />");
    Captured captured;
    int error = 7;
    const UserMaps* const none = GetParam().decode(nullptr, &error);
    const UserMaps* const noneAgain = GetParam().decode(nullptr, nullptr);
    const UserMaps* const noRoot = GetParam().decode(ends.get(), nullptr);
    UserMaps* const got = GetParam().decode(whole.get(), nullptr);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(error, -1);
    EXPECT_EQ(noneAgain, nullptr);
    EXPECT_EQ(noRoot, nullptr);
    ASSERT_NE(got, nullptr);
    EXPECT_TRUE(sameBytes(got->EMapInfos[0], mapOf(1)));
    EMapInfoDecodeRelease(got);
}

} // namespace
