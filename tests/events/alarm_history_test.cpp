// What the search for past alarms writes.
#include "support/encoded.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

using namespace veltoprotocol;

namespace {

__tagVtSearchAlarmParam search() {
    __tagVtSearchAlarmParam param = __tagVtSearchAlarmParam();
    param.AlarmFlag = 1;
    param.AlarmType = -2;
    param.AlarmLevel = 2147483647;
    std::strcpy(param.BeginTime, "20240101");
    std::memcpy(param.EndTime, "2024-01-02<12:00", 16); // as long as the field
    param.BeginIndex = 10;
    param.EndIndex = -2147483647 - 1;
    return param;
}

// A request around what stands before SearchParam.
std::string searching(const std::string& channels) {
    return wire(
        requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="SearchHistoryAlarm">
)" + channels +
        R"(        <SearchParam BeginTime="20240101" EndTime="2024-01-02&lt;12:00" AlarmFlag="1" AlarmType="-2" AlarmLevel="2147483647" BeginIndex="10" EndIndex="-2147483648" />
    </request>
</servercommandservice>
)");
}

Encoded request(const __tagVtSearchAlarmParam* param) {
    return encoded([&](char* out, int size) {
        return GetSearchHistoryAlarmReqEncode("10.0.0.1", "t-1", 7, param, out, size);
    });
}

TEST(GetSearchHistoryAlarmReqEncode, WritesTheChannelsUnderANameWithATrailingBlank) {
    __tagVtChannelParam channels[4];
    std::memset(channels, 'n', sizeof channels); // only the GUIDs are sent
    std::strcpy(channels[0].Guid, "c-1");
    std::memcpy(channels[1].Guid, "012345678901234567890123456789012345678901234567", 48);
    std::strcpy(channels[2].Guid, "");
    __tagVtSearchAlarmParam param = search();
    param.channels = channels;
    param.channelcount = 3;
    const Encoded got = request(&param);
    EXPECT_EQ(got.bytes, searching(R"(        <Channels  count="3">
            <ChannelGuid>c-1</ChannelGuid>
            <ChannelGuid>012345678901234567890123456789012345678901234567</ChannelGuid>
            <ChannelGuid></ChannelGuid>
        </Channels >
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetSearchHistoryAlarmReqEncode, WritesASingleChannel) {
    __tagVtChannelParam channel = __tagVtChannelParam();
    std::strcpy(channel.Guid, "c-1");
    __tagVtSearchAlarmParam param = search();
    param.channels = &channel;
    param.channelcount = 1;
    EXPECT_EQ(request(&param).bytes, searching(R"(        <Channels  count="1">
            <ChannelGuid>c-1</ChannelGuid>
        </Channels >
)"));
}

TEST(GetSearchHistoryAlarmReqEncode, LeavesTheListOutForACountBelowOne) {
    __tagVtChannelParam channel = __tagVtChannelParam();
    for (const int count : {0, -1, -2147483647 - 1}) {
        __tagVtSearchAlarmParam param = search();
        param.channels = &channel;
        param.channelcount = count;
        EXPECT_EQ(request(&param).bytes, searching("")) << count;
    }
}

TEST(GetSearchHistoryAlarmReqEncode, OfANullArrayWritesTheCountAlone) {
    __tagVtSearchAlarmParam param = search();
    param.channelcount = 2147483647;
    EXPECT_EQ(request(&param).bytes, searching("        <Channels  count=\"2147483647\" />\n"));
}

TEST(GetSearchHistoryAlarmReqEncode, StopsAtTheWidthOfItsTimes) {
    __tagVtSearchAlarmParam param = search();
    std::memset(param.BeginTime, 'b', sizeof param.BeginTime);
    std::memset(param.EndTime, 'e', sizeof param.EndTime);
    const std::string message = request(&param).bytes;
    EXPECT_NE(message.find(R"( BeginTime="bbbbbbbbbbbbbbbb" EndTime="eeeeeeeeeeeeeeee" AlarmFlag=)"),
              std::string::npos);
}

TEST(GetSearchHistoryAlarmReqEncode, RefusesANullParamAndALineBreakInTheHost) {
    EXPECT_EQ(request(nullptr).returned, -1);
    EXPECT_EQ(request(nullptr).printed, "");
    const __tagVtSearchAlarmParam param = search();
    for (const char* host : {"h\n", "h\rh"}) {
        const Encoded got = encoded([&](char* out, int size) {
            return GetSearchHistoryAlarmReqEncode(host, "t", 1, &param, out, size);
        });
        EXPECT_EQ(got.returned, -1);
        EXPECT_EQ(got.printed, "");
    }
}

TEST(GetSearchHistoryAlarmReqEncode, WritesNullTextsAsEmptyAndTheSequenceNumberSigned) {
    const __tagVtSearchAlarmParam param = __tagVtSearchAlarmParam();
    const Encoded got = encoded([&](char* out, int size) {
        return GetSearchHistoryAlarmReqEncode(nullptr, nullptr, 4294967295u, &param, out, size);
    });
    EXPECT_EQ(got.bytes, wire(R"(POST /servercommandservice HTTP/1.1
)"
                              "Host: \n"
                              R"(Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <Token />
    <request name="SearchHistoryAlarm">
        <SearchParam BeginTime="" EndTime="" AlarmFlag="0" AlarmType="0" AlarmLevel="0" BeginIndex="0" EndIndex="0" />
    </request>
</servercommandservice>
)"));
}

Encoded answer(int result, const __tagVtSearchAlarmResult* found) {
    return encoded([&](char* out, int size) {
        return GetSearchHistoryAlarmRespEncode(result, 4294967295u, found, out, size);
    });
}

std::string answering(const std::string& inside) {
    return wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <response name="SearchHistoryAlarm">
)" + inside + R"(    </response>
</servercommandservice>
)");
}

const std::string success = "        <Result>0</Result>\n";

TEST(GetSearchHistoryAlarmRespEncode, WritesEachAlarmAsAttributesAndNotAllOfIt) {
    __tagVtAlarmData alarms[3];
    std::memset(alarms, 'n', sizeof alarms); // what is not set below would be seen
    std::strcpy(alarms[0].AlarmGuid, "a-1");
    alarms[0].AlarmNo = 1;
    std::strcpy(alarms[0].ChannelGuid, "c-1");
    alarms[0].AlarmFlag = 2;
    alarms[0].AlarmType = 3;
    alarms[0].AlarmLevel = -4;
    std::strcpy(alarms[0].BeginTime, "20240101");
    std::strcpy(alarms[0].EndTime, "20240102");
    std::strcpy(alarms[0].ConfirmMessage, "a<b>&\"c\"'d'\n");
    std::strcpy(alarms[0].ConfirmTime, "20240103");
    alarms[0].ConfirmState = 5;
    alarms[0].HaveRecord = 6;
    alarms[0].HaveSnapshot = 7;
    alarms[1] = __tagVtAlarmData();
    std::memset(alarms[1].AlarmGuid, 'a', 48); // each as long as its field
    std::memset(alarms[1].ChannelGuid, 'c', 48);
    std::memset(alarms[1].BeginTime, 'b', 16);
    std::memset(alarms[1].EndTime, 'e', 16);
    std::memset(alarms[1].ConfirmMessage, 'm', 128);
    std::memset(alarms[1].ConfirmTime, 't', 16);
    const __tagVtSearchAlarmResult found{70, 2, alarms};
    const Encoded got = answer(0, &found);
    EXPECT_EQ(
        got.bytes,
        answering(
            success + R"(        <AlarmInfos SearchCount="70" CurCount="2">
            <AlarmData AlarmGuid="a-1" AlarmNo="1" ChannelGuid="c-1" AlarmFlag="2" AlarmType="3" AlarmLevel="-4" BeginTime="20240101" EndTime="20240102" ConfirmMessage='a&lt;b&gt;&amp;&quot;c&quot;&apos;d&apos;&#x0A;' ConfirmTime="20240103" ConfirmState="5" HaveRecord="6" HaveSnapshot="7" />
            <AlarmData AlarmGuid=")" +
            std::string(48, 'a') + R"(" AlarmNo="0" ChannelGuid=")" + std::string(48, 'c') +
            R"(" AlarmFlag="0" AlarmType="0" AlarmLevel="0" BeginTime="bbbbbbbbbbbbbbbb" EndTime="eeeeeeeeeeeeeeee" ConfirmMessage=")" +
            std::string(128, 'm') +
            R"(" ConfirmTime="tttttttttttttttt" ConfirmState="0" HaveRecord="0" HaveSnapshot="0" />
        </AlarmInfos>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetSearchHistoryAlarmRespEncode, WritesASingleAlarm) {
    __tagVtAlarmData alarm = __tagVtAlarmData();
    std::strcpy(alarm.AlarmGuid, "a-1");
    const __tagVtSearchAlarmResult found{1, 1, &alarm};
    EXPECT_EQ(answer(0, &found).bytes,
              answering(success + R"(        <AlarmInfos SearchCount="1" CurCount="1">
            <AlarmData AlarmGuid="a-1" AlarmNo="0" ChannelGuid="" AlarmFlag="0" AlarmType="0" AlarmLevel="0" BeginTime="" EndTime="" ConfirmMessage="" ConfirmTime="" ConfirmState="0" HaveRecord="0" HaveSnapshot="0" />
        </AlarmInfos>
)"));
}

TEST(GetSearchHistoryAlarmRespEncode, HoldsTheResultAloneForAFailureOrNothingFound) {
    __tagVtAlarmData alarm = __tagVtAlarmData();
    const __tagVtSearchAlarmResult one{1, 1, &alarm}, none{5, 0, &alarm}, negative{5, -1, &alarm};
    EXPECT_EQ(answer(-5, &one).bytes, answering("        <Result>-5</Result>\n"));
    EXPECT_EQ(answer(1, &one).bytes, answering("        <Result>1</Result>\n"));
    EXPECT_EQ(answer(0, nullptr).bytes, answering(success));
    EXPECT_EQ(answer(0, &none).bytes, answering(success));
    EXPECT_EQ(answer(0, &negative).bytes, answering(success));
}

TEST(GetSearchHistoryAlarmRespEncode, OfANullArrayWritesTheCountsAlone) {
    const __tagVtSearchAlarmResult found{-3, 2147483647, nullptr};
    EXPECT_EQ(answer(0, &found).bytes,
              answering(success + "        <AlarmInfos SearchCount=\"-3\" CurCount=\"2147483647\" />\n"));
}

} // namespace
