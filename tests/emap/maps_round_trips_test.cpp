// Who the maps belong to, and that what was sent comes back: every field distinct, every text as long as its
// reader takes.
#include "support/read_back.h"
#include "support/received.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

using namespace veltoprotocol;

namespace {

struct ReleaseMaps {
    void operator()(__tagVtUserEMapInfo* user) const { EMapInfoDecodeRelease(user); }
};
using OwnedMaps = std::unique_ptr<__tagVtUserEMapInfo, ReleaseMaps>;

std::string command(const std::string& kind, const std::string& children) {
    return "<servercommandservice><" + kind + ">" + children + "</" + kind + "></servercommandservice>";
}

TEST(GetSetEMapInfoReqDecode, TakesAUserGuidOf48BytesAndDropsALongerOne) {
    const std::string guid(48, 'u');
    auto got =
        readBackDocument(command("request", "<UserGuid>" + guid + "</UserGuid>"), GetSetEMapInfoReqDecode);
    OwnedMaps user(got.record);
    __tagVtUserEMapInfo want = __tagVtUserEMapInfo();
    std::memcpy(want.UserGuid, guid.data(), 48);
    EXPECT_TRUE(sameBytes(*user, want));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
    got = readBackDocument(command("request", "<UserGuid>" + guid + "u</UserGuid>"), GetSetEMapInfoReqDecode);
    user.reset(got.record);
    EXPECT_TRUE(sameBytes(*user, __tagVtUserEMapInfo()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-request-UserGuid element too long!\n");
}

TEST(GetSetEMapInfoReqDecode, NamesAMissingUserBeforeItsMaps) {
    const auto got = readBackDocument(command("request", "<EMapInfos />"), GetSetEMapInfoReqDecode);
    const OwnedMaps user(got.record);
    EXPECT_TRUE(sameBytes(*user, __tagVtUserEMapInfo()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-request-UserGuid element not find!\n"
                           "xml file -..-EMapInfos(count) element not find!\n");
}

TEST(GetEMapInfoRespDecode, ReadsNeitherTheUserNorTheResult) {
    const auto got = readBackDocument(command("response", "<Result>-5</Result><UserGuid>u-1</UserGuid>"),
                                      GetEMapInfoRespDecode);
    const OwnedMaps user(got.record);
    ASSERT_NE(user, nullptr);
    EXPECT_TRUE(sameBytes(*user, __tagVtUserEMapInfo()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(EMapInfoDecodeRelease, IgnoresNull) { EMapInfoDecodeRelease(nullptr); }

__tagVtEMapInfo fullMap(int number) {
    __tagVtEMapInfo map;
    std::memset(&map, 'n', sizeof map);
    const char first = static_cast<char>('a' + number);
    fill(map.MapInfoGuid, first);
    fill(map.ParentMapGuid, static_cast<char>(first + 1));
    map.MapType = ++number;
    fill(map.GisCenterCityName, static_cast<char>(first + 2));
    std::memcpy(map.GisPosX, "-0121.47301000000000000000000000", 32); // as long as the field
    std::memcpy(map.GisPosY, "+0031.23040000000000000000000000", 32);
    map.GisZoom = -++number;
    fill(map.CustomizeImagePath, static_cast<char>(first + 3), 1024);
    std::memset(map.CustomizeImagePath + 1024, 0, 8);
    map.CustomizeImageSize = ++number;
    map.CustomizeImageType = ++number;
    fill(map.MapName, static_cast<char>(first + 4));
    map.Status = ++number;
    map.LastTime = 4294967295u - static_cast<unsigned int>(number);
    return map;
}

__tagVtEMapItemParam fullItem(int number) {
    __tagVtEMapItemParam item;
    std::memset(&item, 'n', sizeof item);
    const char first = static_cast<char>('A' + number);
    fill(item.MapItemGuid, first);
    fill(item.MapInfoGuid, static_cast<char>(first + 1));
    fill(item.ItemContentGuid, static_cast<char>(first + 2));
    item.ItemType = ++number;
    fill(item.DisplayName, static_cast<char>(first + 3));
    fill(item.Discription, static_cast<char>(first + 4));
    fill(item.PosX, static_cast<char>(first + 5));
    fill(item.PosY, static_cast<char>(first + 6));
    item.Status = -++number;
    return item;
}

// A user with all that can be carried. The reserved words hold noise.
struct User {
    User() {
        std::memset(&sent, 'n', sizeof sent);
        fill(sent.UserGuid, 'u');
        sent.EMapInfoCount = 2;
        sent.EMapInfos = maps;
        sent.EMapItemCount = 3;
        sent.EMapItems = items;
    }

    void expectIn(const __tagVtUserEMapInfo& back, const char (&userGuid)[48]) const {
        const __tagVtUserEMapInfo zero = __tagVtUserEMapInfo();
        EXPECT_EQ(std::memcmp(back.reserved, zero.reserved, 48), 0);
        EXPECT_EQ(std::memcmp(back.UserGuid, userGuid, 48), 0);
        ASSERT_EQ(back.EMapInfoCount, 2);
        for (int i = 0; i < 2; ++i) {
            __tagVtEMapInfo want = maps[i];
            std::memset(want.reserved, 0, sizeof want.reserved);
            want.reserved2 = want.reserved3 = 0;
            EXPECT_TRUE(sameBytes(back.EMapInfos[i], want)) << i;
        }
        ASSERT_EQ(back.EMapItemCount, 3);
        for (int i = 0; i < 3; ++i) EXPECT_TRUE(sameBytes(back.EMapItems[i], items[i])) << i;
    }

    __tagVtEMapInfo maps[2] = {fullMap(0), fullMap(9)};
    __tagVtEMapItemParam items[3] = {fullItem(1), fullItem(6), fullItem(11)};
    __tagVtUserEMapInfo sent;
};

TEST(SetEMapInfo, ComesBackWithItsUser) {
    const User user;
    const Received message(
        [&](char* out, int size) { return GetSetEMapInfoReqEncode(&user.sent, "h", "t", 1, out, size); });
    const auto got = readBackDocument(message.body, GetSetEMapInfoReqDecode);
    const OwnedMaps back(got.record);
    ASSERT_NE(back, nullptr);
    user.expectIn(*back, user.sent.UserGuid);
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetEMapInfo, ComesBackWithoutItsUser) {
    const User user;
    const Received message(
        [&](char* out, int size) { return GetEMapInfoRespEncode(0, 1, &user.sent, out, size); });
    const auto got = readBackDocument(message.body, GetEMapInfoRespDecode);
    const OwnedMaps back(got.record);
    ASSERT_NE(back, nullptr);
    user.expectIn(*back, __tagVtUserEMapInfo().UserGuid);
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetEMapInfo, AsksForItsUserAsTheStoringRequestNamesIt) {
    const User user;
    const Received message(
        [&](char* out, int size) { return GetEMapInfoReqEncode("h", "t", 1, &user.sent, out, size); });
    const auto got = readBackDocument(message.body, GetSetEMapInfoReqDecode);
    const OwnedMaps back(got.record);
    __tagVtUserEMapInfo want = __tagVtUserEMapInfo();
    std::memcpy(want.UserGuid, user.sent.UserGuid, 48);
    EXPECT_TRUE(sameBytes(*back, want));
    EXPECT_EQ(got.printed, "");
}

TEST(SetEMapInfo, LosesAnImagePathThatIsLongerThanItsReaderTakes) {
    __tagVtEMapInfo map = __tagVtEMapInfo();
    fill(map.CustomizeImagePath, 'p'); // 1032 bytes are written, 1024 would be read
    __tagVtUserEMapInfo sent = __tagVtUserEMapInfo();
    sent.EMapInfoCount = 1;
    sent.EMapInfos = &map;
    const Received message(
        [&](char* out, int size) { return GetSetEMapInfoReqEncode(&sent, "h", "t", 1, out, size); });
    EXPECT_NE(message.body.find(std::string(map.CustomizeImagePath, 1032)), std::string::npos);
    const auto got = readBackDocument(message.body, GetSetEMapInfoReqDecode);
    const OwnedMaps back(got.record);
    EXPECT_TRUE(sameBytes(back->EMapInfos[0], __tagVtEMapInfo()));
    EXPECT_EQ(got.printed, "xml file -..-EMapInfo-CustomizeImagePath element too long!\n");
}

} // namespace
