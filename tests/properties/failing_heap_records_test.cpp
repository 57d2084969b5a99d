// Exhausted memory in the decoders whose records live on the heap: each allocation fails in turn, and counts
// ask for more than one call may take. std::bad_alloc is thrown and everything is freed.
#include "support/failing_calls.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <new>
#include <string>

namespace {

using namespace veltoprotocol;

std::string command(const std::string& kind, const std::string& children) {
    return "<servercommandservice><" + kind + ">" + children + "</" + kind + "></servercommandservice>";
}

std::string children(std::initializer_list<const char*> names) {
    std::string xml; // all of them, so that nothing is printed
    for (const std::string name : names) xml += "<" + name + ">1</" + name + ">";
    return xml;
}

const std::string alarm =
    "<AlarmData>" +
    children({"AlarmGuid", "AlarmNo", "ChannelGuid", "DeviceGuid", "NodeID", "AlarmFlag", "AlarmType",
              "AlarmLevel", "AlarmSubTypeCode", "AlarmState", "BeginTime", "EndTime", "AlarmContent",
              "AlarmSource", "ConfirmMessage", "Confirmer", "ConfirmTime"}) +
    "</AlarmData>";
const std::string maps = "<UserGuid>u-1</UserGuid><EMapInfos count=\"2\"><EMapInfo>" +
                         children({"MapInfoGuid", "ParentMapGuid", "MapType", "GisCenterCityName", "GisPosX",
                                   "GisPosY", "GisZoom", "CustomizeImagePath", "CustomizeImageSize",
                                   "CustomizeImageType", "MapName", "Status", "LastTime"}) +
                         "</EMapInfo></EMapInfos><EMapItems count=\"3\"><EMapItem>" +
                         children({"MapItemGuid", "MapInfoGuid", "ItemContentGuid", "ItemType", "DisplayName",
                                   "Discription", "PosX", "PosY", "Status"}) +
                         "</EMapItem></EMapItems>";

TEST(GetSearchHistoryAlarmReqDecode, FreesEverythingWhenMemoryIsExhausted) {
    const Document doc = parsed(
        command("request",
                R"(<Channels count="2"><ChannelGuid>c-1</ChannelGuid></Channels><SearchParam BeginTime="1" )"
                R"(EndTime="2" AlarmFlag="3" AlarmType="4" AlarmLevel="5" BeginIndex="6" EndIndex="7" />)"));
    const auto call = [&] {
        __tagVtSearchAlarmParam* const got = GetSearchHistoryAlarmReqDecode(doc.get(), nullptr);
        const bool whole =
            got && got->channelcount == 2 && got->channels[0].Guid[0] == 'c' && got->EndIndex == 7;
        ReleaseSearchAlarmParam(got);
        return whole;
    };
    EXPECT_EQ(allocationsThatFailed(call), 2); // the record and its array
}

TEST(GetSearchHistoryAlarmRespDecode, FreesEverythingWhenMemoryIsExhausted) {
    const Document doc = parsed(command("response", "0<AlarmInfos SearchCount=\"9\" CurCount=\"2\">" + alarm +
                                                        alarm + "</AlarmInfos>"));
    const auto call = [&] {
        __tagVtSearchAlarmResult* const got = GetSearchHistoryAlarmRespDecode(doc.get(), nullptr);
        const bool whole = got && got->CurCount == 2 && got->alarms[1].AlarmNo == 1;
        ReleaseSearchAlarmParam(got);
        return whole;
    };
    EXPECT_EQ(allocationsThatFailed(call), 2);
}

TEST(MapDecoders, FreeEverythingWhenMemoryIsExhausted) {
    const auto failures = [](const Document& doc, auto decode) {
        return allocationsThatFailed([&] {
            __tagVtUserEMapInfo* const got = decode(doc.get(), nullptr);
            const bool whole = got && got->EMapInfoCount == 2 && got->EMapInfos[0].LastTime == 1 &&
                               got->EMapItemCount == 3 && got->EMapItems[0].Status == 1;
            EMapInfoDecodeRelease(got);
            return whole;
        });
    };
    EXPECT_EQ(failures(parsed(command("request", maps)), GetSetEMapInfoReqDecode), 3); // and two arrays
    EXPECT_EQ(failures(parsed(command("response", maps)), GetEMapInfoRespDecode), 3);
}

std::string counted(const std::string& element, const std::string& attribute, const std::string& count) {
    return "<" + element + " SearchCount=\"1\" " + attribute + "=\"" + count + "\" />";
}

TEST(HeapRecords, RefuseACountBeyondTheBudgetAndFreeTheRecord) {
    const auto channels = [](const std::string& count) {
        return refusal(command("request", counted("Channels", "count", count)), 1,
                       GetSearchHistoryAlarmReqDecode);
    };
    const auto alarms = [](const std::string& count) {
        return refusal(command("response", "0" + counted("AlarmInfos", "CurCount", count)), 1,
                       GetSearchHistoryAlarmRespDecode);
    };
    const auto storedMaps = [](const std::string& count) {
        return refusal(command("request", counted("EMapInfos", "count", count)), 1, GetSetEMapInfoReqDecode);
    };
    const auto items = [](const std::string& count) {
        return refusal(command("response", counted("EMapItems", "count", count)), 1, GetEMapInfoRespDecode);
    };
    const auto expectLimit = [](std::size_t most, auto refusedWith) {
        EXPECT_EQ(refusedWith(std::to_string(most)), Refused::byTheOperator);
        EXPECT_EQ(refusedWith(std::to_string(most + 1)), Refused::byTheBudget);
        EXPECT_EQ(refusedWith("2147483647"), Refused::byTheBudget);
    };
    expectLimit(budget / sizeof(__tagVtChannelParam), channels);
    expectLimit(budget / sizeof(__tagVtAlarmData), alarms);
    expectLimit(budget / sizeof(__tagVtEMapInfo), storedMaps);
    expectLimit(budget / sizeof(__tagVtEMapItemParam), items);
}

TEST(MapDecoders, HaveOneBudgetForBothLists) {
    constexpr std::size_t most = (budget - sizeof(__tagVtEMapInfo)) / sizeof(__tagVtEMapItemParam);
    static_assert(most < budget / sizeof(__tagVtEMapItemParam)); // a map more or less makes the difference
    const auto oneMapAnd = [](std::size_t items) {
        return counted("EMapInfos", "count", "1") + counted("EMapItems", "count", std::to_string(items));
    };
    const auto expectLimit = [&](const char* kind, auto decode) {
        EXPECT_EQ(refusal(command(kind, oneMapAnd(most)), 2, decode), Refused::byTheOperator);
        EXPECT_EQ(refusal(command(kind, oneMapAnd(most + 1)), 2, decode), Refused::byTheBudget);
    };
    expectLimit("request", GetSetEMapInfoReqDecode);
    expectLimit("response", GetEMapInfoRespDecode);
}

// The one array that a caller allocates.
TEST(ReleaseUserInfoParam, FreesTheArrayOnce) {
    const long before = failing::live;
    __tagVtSystemRightsInfo info = __tagVtSystemRightsInfo();
    info.ChannelRights = new __tagVtUserChannelRights[2]();
    info.ChannelCounter = 2;
    ReleaseUserInfoParam(&info);
    EXPECT_EQ(failing::live, before);
    ReleaseUserInfoParam(&info);
    EXPECT_EQ(failing::live, before);
}

} // namespace
