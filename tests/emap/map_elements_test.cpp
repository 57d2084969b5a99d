// A map, and an item on it, as children of one element: written, read, and where their members lie.
#include "support/child_fields.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

using namespace veltoprotocol;

namespace {

using Map = __tagVtEMapInfo;
using MapItem = __tagVtEMapItemParam;
using UserMaps = __tagVtUserEMapInfo;

template <class... Records>
constexpr bool plain = (... && (std::is_standard_layout_v<Records> && std::is_trivially_copyable_v<Records>));
static_assert(plain<Map, MapItem, UserMaps>);

const std::vector<ChildField> mapFields = {
    {"MapInfoGuid", 48, offsetof(Map, MapInfoGuid)},
    {"ParentMapGuid", 48, offsetof(Map, ParentMapGuid)},
    {"MapType", 0, offsetof(Map, MapType)},
    {"GisCenterCityName", 512, offsetof(Map, GisCenterCityName)},
    {"GisPosX", 32, offsetof(Map, GisPosX)},
    {"GisPosY", 32, offsetof(Map, GisPosY)},
    {"GisZoom", 0, offsetof(Map, GisZoom)},
    {"CustomizeImagePath", 1024, offsetof(Map, CustomizeImagePath)}, // the field has 8 bytes more
    {"CustomizeImageSize", 0, offsetof(Map, CustomizeImageSize)},
    {"CustomizeImageType", 0, offsetof(Map, CustomizeImageType)},
    {"MapName", 128, offsetof(Map, MapName)},
    {"Status", 0, offsetof(Map, Status)},
    {"LastTime", 0, offsetof(Map, LastTime)},
};

const std::vector<ChildField> itemFields = {
    {"MapItemGuid", 48, offsetof(MapItem, MapItemGuid)},
    {"MapInfoGuid", 48, offsetof(MapItem, MapInfoGuid)},
    {"ItemContentGuid", 48, offsetof(MapItem, ItemContentGuid)},
    {"ItemType", 0, offsetof(MapItem, ItemType)},
    {"DisplayName", 128, offsetof(MapItem, DisplayName)},
    {"Discription", 1024, offsetof(MapItem, Discription)},
    {"PosX", 32, offsetof(MapItem, PosX)},
    {"PosY", 32, offsetof(MapItem, PosY)},
    {"Status", 0, offsetof(MapItem, Status)},
};

TEST(GetEMapInfoDecode, ReadsEachChildUpToItsLimitAndNamesTheOthers) {
    expectReadsEachChild("EMapInfo", mapFields, GetEMapInfoDecode);
}

TEST(GetEMapItemParamDecode, ReadsEachChildUpToItsLimitAndNamesTheOthers) {
    expectReadsEachChild("EMapItem", itemFields, GetEMapItemParamDecode);
}

TEST(MapElementDecoders, RefuseANullElementInSilence) {
    expectRefusesANullElement(GetEMapInfoDecode);
    expectRefusesANullElement(GetEMapItemParamDecode);
}

// Of the numbers only LastTime is unsigned, and knows hexadecimal and octal digits.
TEST(GetEMapInfoDecode, ReadsTheTimeUnsignedAndTheOtherNumbersInDecimal) {
    const auto read = [](const std::string& number) {
        return readBack("<EMapInfo><MapType>" + number + "</MapType><LastTime>" + number +
                            "</LastTime></EMapInfo>",
                        GetEMapInfoDecode)
            .record;
    };
    EXPECT_EQ(read("4294967295").LastTime, 4294967295u);
    EXPECT_EQ(read("0x10").LastTime, 16u);
    EXPECT_EQ(read("0x10").MapType, 0);
    EXPECT_EQ(read("010").LastTime, 8u);
    EXPECT_EQ(read("010").MapType, 10);
    EXPECT_EQ(read("").LastTime, 0u);
    EXPECT_EQ(read("").MapType, -1);
}

// The children of an element in their order, "name=text;"; a fresh parent with what the writer appends.
template <class Record, class Writer>
std::string childrenOf(const Writer& write, const Record& record) {
    TiXmlElement parent("any");
    SetStringValue(&parent, "before", "b");
    EXPECT_EQ(write(&parent, &record), 0);
    std::string all;
    for (const TiXmlElement* child = parent.FirstChildElement(); child; child = child->NextSiblingElement())
        all += child->ValueStr() + "=" + (child->GetText() ? child->GetText() : "(none)") + ";";
    return all;
}

TEST(GetEMapInfoEncode, AppendsAChildForEachFieldThatIsCarried) {
    Map map;
    std::memset(&map, 'x', sizeof map); // every text as long as its field
    map.MapType = -1;
    map.GisZoom = 2;
    map.CustomizeImageSize = 3;
    map.CustomizeImageType = 4;
    map.Status = 5;
    map.LastTime = 4294967295u;
    const auto x = [](std::size_t count) { return std::string(count, 'x') + ";"; };
    EXPECT_EQ(childrenOf(GetEMapInfoEncode, map),
              "before=b;MapInfoGuid=" + x(48) + "ParentMapGuid=" + x(48) +
                  "MapType=-1;GisCenterCityName=" + x(512) + "GisPosX=" + x(32) + "GisPosY=" + x(32) +
                  "GisZoom=2;CustomizeImagePath=" + x(1032) +
                  "CustomizeImageSize=3;CustomizeImageType=4;MapName=" + x(128) +
                  "Status=5;LastTime=4294967295;");
}

TEST(GetEMapItemParamEncode, AppendsAChildForEachField) {
    MapItem item;
    std::memset(&item, 'x', sizeof item);
    item.ItemType = -1;
    item.Status = 2;
    const auto x = [](std::size_t count) { return std::string(count, 'x') + ";"; };
    EXPECT_EQ(childrenOf(GetEMapItemParamEncode, item),
              "before=b;MapItemGuid=" + x(48) + "MapInfoGuid=" + x(48) + "ItemContentGuid=" + x(48) +
                  "ItemType=-1;DisplayName=" + x(128) + "Discription=" + x(1024) + "PosX=" + x(32) +
                  "PosY=" + x(32) + "Status=2;");
}

TEST(MapElementWriters, RefuseNullAndWriteNothing) {
    TiXmlElement parent("any");
    const Map map = Map();
    const MapItem item = MapItem();
    EXPECT_EQ(GetEMapInfoEncode(nullptr, &map), -1);
    EXPECT_EQ(GetEMapInfoEncode(&parent, nullptr), -1);
    EXPECT_EQ(GetEMapInfoEncode(nullptr, nullptr), -1);
    EXPECT_EQ(GetEMapItemParamEncode(nullptr, &item), -1);
    EXPECT_EQ(GetEMapItemParamEncode(&parent, nullptr), -1);
    EXPECT_EQ(GetEMapItemParamEncode(nullptr, nullptr), -1);
    EXPECT_EQ(parent.FirstChild(), nullptr);
}

// The shape of a map itself is proved where pictures are, its other users.
TEST(EMapItemParam, KeepsItsShape) {
    EXPECT_EQ(offsetof(MapItem, MapItemGuid), 0u);
    EXPECT_EQ(offsetof(MapItem, MapInfoGuid), 48u);
    EXPECT_EQ(offsetof(MapItem, ItemContentGuid), 96u);
    EXPECT_EQ(offsetof(MapItem, ItemType), 144u);
    EXPECT_EQ(offsetof(MapItem, DisplayName), 148u);
    EXPECT_EQ(offsetof(MapItem, Discription), 276u);
    EXPECT_EQ(offsetof(MapItem, PosX), 1300u);
    EXPECT_EQ(offsetof(MapItem, PosY), 1332u);
    EXPECT_EQ(offsetof(MapItem, Status), 1364u);
    EXPECT_EQ(sizeof(MapItem), 1368u);
}

TEST(UserEMapInfo, KeepsItsShape) {
    EXPECT_EQ(offsetof(UserMaps, reserved), 0u);
    EXPECT_EQ(offsetof(UserMaps, UserGuid), 48u);
    EXPECT_EQ(offsetof(UserMaps, EMapInfoCount), 96u);
    EXPECT_EQ(offsetof(UserMaps, EMapInfos), 104u); // 4 of padding before each pointer
    EXPECT_EQ(offsetof(UserMaps, EMapItemCount), 112u);
    EXPECT_EQ(offsetof(UserMaps, EMapItems), 120u);
    EXPECT_EQ(sizeof(UserMaps), 128u);
}

} // namespace
