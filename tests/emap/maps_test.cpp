// What the messages write that carry electronic maps.
#include "support/encoded.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

using namespace veltoprotocol;

namespace {

// Noise wherever nothing is set: it would be seen if it were sent.
__tagVtEMapInfo map() {
    __tagVtEMapInfo map;
    std::memset(&map, 'n', sizeof map);
    std::strcpy(map.MapInfoGuid, "m-1");
    std::strcpy(map.ParentMapGuid, "p-1");
    map.MapType = 1;
    std::strcpy(map.GisCenterCityName, "a<b>&\"c\"'d'");
    std::strcpy(map.GisPosX, "-0121.4730100");
    std::strcpy(map.GisPosY, "+31,2304");
    map.GisZoom = -2;
    std::strcpy(map.CustomizeImagePath, "/maps/1.png");
    map.CustomizeImageSize = 2147483647;
    map.CustomizeImageType = -2147483647 - 1;
    std::strcpy(map.MapName, "");
    map.Status = 3;
    map.LastTime = 4294967295u;
    return map;
}

__tagVtEMapItemParam item() {
    __tagVtEMapItemParam item;
    std::memset(&item, 'n', sizeof item);
    std::strcpy(item.MapItemGuid, "i-1");
    std::strcpy(item.MapInfoGuid, "m-1");
    std::strcpy(item.ItemContentGuid, "c-1");
    item.ItemType = -4;
    std::strcpy(item.DisplayName, "door <1>");
    std::strcpy(item.Discription, "the door");
    std::strcpy(item.PosX, "1.50");
    std::strcpy(item.PosY, "-2e3");
    item.Status = 5;
    return item;
}

// Two maps and two items, the second of each all zero.
const char* const bothLists = R"(        <EMapInfos count="2">
            <EMapInfo>
                <MapInfoGuid>m-1</MapInfoGuid>
                <ParentMapGuid>p-1</ParentMapGuid>
                <MapType>1</MapType>
                <GisCenterCityName>a&lt;b&gt;&amp;&quot;c&quot;&apos;d&apos;</GisCenterCityName>
                <GisPosX>-0121.4730100</GisPosX>
                <GisPosY>+31,2304</GisPosY>
                <GisZoom>-2</GisZoom>
                <CustomizeImagePath>/maps/1.png</CustomizeImagePath>
                <CustomizeImageSize>2147483647</CustomizeImageSize>
                <CustomizeImageType>-2147483648</CustomizeImageType>
                <MapName></MapName>
                <Status>3</Status>
                <LastTime>4294967295</LastTime>
            </EMapInfo>
            <EMapInfo>
                <MapInfoGuid></MapInfoGuid>
                <ParentMapGuid></ParentMapGuid>
                <MapType>0</MapType>
                <GisCenterCityName></GisCenterCityName>
                <GisPosX></GisPosX>
                <GisPosY></GisPosY>
                <GisZoom>0</GisZoom>
                <CustomizeImagePath></CustomizeImagePath>
                <CustomizeImageSize>0</CustomizeImageSize>
                <CustomizeImageType>0</CustomizeImageType>
                <MapName></MapName>
                <Status>0</Status>
                <LastTime>0</LastTime>
            </EMapInfo>
        </EMapInfos>
        <EMapItems count="2">
            <EMapItem>
                <MapItemGuid>i-1</MapItemGuid>
                <MapInfoGuid>m-1</MapInfoGuid>
                <ItemContentGuid>c-1</ItemContentGuid>
                <ItemType>-4</ItemType>
                <DisplayName>door &lt;1&gt;</DisplayName>
                <Discription>the door</Discription>
                <PosX>1.50</PosX>
                <PosY>-2e3</PosY>
                <Status>5</Status>
            </EMapItem>
            <EMapItem>
                <MapItemGuid></MapItemGuid>
                <MapInfoGuid></MapInfoGuid>
                <ItemContentGuid></ItemContentGuid>
                <ItemType>0</ItemType>
                <DisplayName></DisplayName>
                <Discription></Discription>
                <PosX></PosX>
                <PosY></PosY>
                <Status>0</Status>
            </EMapItem>
        </EMapItems>
)";

// The maps and items of bothLists.
struct User {
    User() {
        std::memset(&record, 'n', sizeof record);
        std::strcpy(record.UserGuid, "u-1");
        record.EMapInfoCount = 2;
        record.EMapInfos = maps;
        record.EMapItemCount = 2;
        record.EMapItems = items;
    }
    __tagVtEMapInfo maps[2] = {map(), __tagVtEMapInfo()};
    __tagVtEMapItemParam items[2] = {item(), __tagVtEMapItemParam()};
    __tagVtUserEMapInfo record;
};

std::string requesting(const std::string& command, const std::string& seqnum = "7",
                       const std::string& token = "<Token>t-1</Token>") {
    return wire(requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>)" + seqnum +
                R"(</seqnum>
    <version>1.0.0</version>
    )" + token + "\n" +
                command + "</servercommandservice>\n");
}

std::string answering(const std::string& inside) {
    return wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <response name="GetEMapInfo">
)" + inside + R"(    </response>
</servercommandservice>
)");
}

const std::string success = "        <Result>0</Result>\n";

Encoded answer(int result, const __tagVtUserEMapInfo* user) {
    return encoded(
        [&](char* out, int size) { return GetEMapInfoRespEncode(result, 4294967295u, user, out, size); });
}

Encoded store(const __tagVtUserEMapInfo* user, const char* host = "10.0.0.1", const char* token = "t-1",
              unsigned int seqnum = 7) {
    return encoded(
        [&](char* out, int size) { return GetSetEMapInfoReqEncode(user, host, token, seqnum, out, size); });
}

TEST(GetEMapInfoRespEncode, WritesBothListsButNotTheUser) {
    const User user;
    const Encoded got = answer(0, &user.record);
    EXPECT_EQ(got.bytes, answering(success + bothLists));
    EXPECT_EQ(got.printed, "");
}

TEST(GetEMapInfoRespEncode, HoldsTheResultAloneForAFailureOrNothingToSend) {
    User user;
    EXPECT_EQ(answer(-3, &user.record).bytes, answering("        <Result>-3</Result>\n"));
    EXPECT_EQ(answer(1, &user.record).bytes, answering("        <Result>1</Result>\n"));
    EXPECT_EQ(answer(0, nullptr).bytes, answering(success));
    for (const int count : {0, -1, -2147483647 - 1}) {
        user.record.EMapInfoCount = user.record.EMapItemCount = count;
        EXPECT_EQ(answer(0, &user.record).bytes, answering(success)) << count;
    }
}

TEST(GetSetEMapInfoReqEncode, WritesTheUserAndBothLists) {
    const User user;
    const Encoded got = store(&user.record);
    EXPECT_EQ(got.bytes, requesting("    <request name=\"SetEMapInfo\">\n        <UserGuid>u-1</UserGuid>\n" +
                                    std::string(bothLists) + "    </request>\n"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetSetEMapInfoReqEncode, OfNoUserHasNoContent) {
    const Encoded got = store(nullptr, "10.0.0.1", nullptr, 4294967295u);
    EXPECT_EQ(got.bytes, requesting("    <request name=\"SetEMapInfo\" />\n", "-1", "<Token />"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetSetEMapInfoReqEncode, OfNoMapsAndItemsHoldsTheUserAlone) {
    User user;
    for (const int count : {0, -1}) {
        user.record.EMapInfoCount = user.record.EMapItemCount = count;
        EXPECT_EQ(store(&user.record).bytes, requesting(R"(    <request name="SetEMapInfo">
        <UserGuid>u-1</UserGuid>
    </request>
)"));
    }
}

TEST(GetSetEMapInfoReqEncode, WritesANullHostAsEmptyTextAndRefusesALineBreakInIt) {
    EXPECT_NE(store(nullptr, nullptr).bytes.find("\r\nHost: \r\n"), std::string::npos);
    for (const char* host : {"\rh", "h\n"}) {
        EXPECT_EQ(store(nullptr, host).returned, -1);
        EXPECT_EQ(store(nullptr, host).printed, "");
    }
}

TEST(MapLists, StandForThemselves) {
    User user;
    const std::string both = bothLists;
    const std::size_t itemsAt = both.find("        <EMapItems");
    user.record.EMapItemCount = 0;
    EXPECT_EQ(answer(0, &user.record).bytes, answering(success + both.substr(0, itemsAt)));
    user.record.EMapItemCount = 2;
    user.record.EMapInfoCount = 0;
    EXPECT_EQ(answer(0, &user.record).bytes, answering(success + both.substr(itemsAt)));
}

TEST(MapLists, HoldASingleEntry) {
    User user;
    user.record.EMapInfoCount = 0;
    user.record.EMapItemCount = 1;
    const std::string items = "        <EMapItems count=\"1\">\n            <EMapItem>\n",
                      end = "</EMapItem>\n";
    const std::string list = std::string(bothLists).substr(std::string(bothLists).find("        <EMapItems"));
    const std::size_t first = list.find("                <MapItemGuid>i-1"),
                      behind = list.find(end) + end.size();
    EXPECT_EQ(answer(0, &user.record).bytes,
              answering(success + items + list.substr(first, behind - first) + "        </EMapItems>\n"));
}

TEST(MapLists, OfANullArrayHoldTheirCountAlone) {
    User user;
    user.record.EMapInfos = nullptr;
    user.record.EMapInfoCount = 2147483647;
    user.record.EMapItems = nullptr;
    EXPECT_EQ(answer(0, &user.record).bytes,
              answering(success +
                        "        <EMapInfos count=\"2147483647\" />\n        <EMapItems count=\"2\" />\n"));
}

} // namespace
