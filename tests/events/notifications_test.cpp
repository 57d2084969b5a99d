// What the subscription and the pushed events write.
#include "support/encoded.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <type_traits>

using namespace veltoprotocol;

namespace {

static_assert(VtMessageChannelDisabled == 23 && VtMessageChannelDeleted == 24 && VtMessageAlarm == 300 &&
              VtMessageRecordStatus == 301 && VtMessageOnlineStatus == 302);
static_assert(std::is_same_v<std::underlying_type_t<__enumVtMessageType>, int>);

std::string subscription(const std::string& seqnum, const std::string& token) {
    return R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>)" +
           seqnum + R"(</seqnum>
    <version>1.0.0</version>
    )" + token +
           R"(
    <request name="Notification" />
</servercommandservice>
)";
}

TEST(GetNotificationReqEncode, TakesTheTokenFirstAndTheHostSecond) {
    const Encoded got = encoded(
        [](char* out, int size) { return GetNotificationReqEncode("t-1", "10.0.0.1", 7, out, size); });
    EXPECT_EQ(got.bytes, wire(requestHead + subscription("7", "<Token>t-1</Token>")));
    EXPECT_EQ(got.printed, "");
}

TEST(GetNotificationReqEncode, WritesTheSequenceNumberSignedAndANullTokenEmpty) {
    const Encoded got = encoded([](char* out, int size) {
        return GetNotificationReqEncode(nullptr, "10.0.0.1", 4294967295u, out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestHead + subscription("-1", "<Token />")));
}

TEST(GetNotificationReqEncode, WritesANullHostAsEmptyTextAndRefusesALineBreakInIt) {
    const Encoded got =
        encoded([](char* out, int size) { return GetNotificationReqEncode("t-1", nullptr, 7, out, size); });
    EXPECT_NE(got.bytes.find("\r\nHost: \r\nConnection: keep-alive\r\n"), std::string::npos);
    for (const char* host : {"h\r", "\nh", "h\r\nX: y"}) {
        const Encoded refused =
            encoded([&](char* out, int size) { return GetNotificationReqEncode("t-1", host, 7, out, size); });
        EXPECT_EQ(refused.returned, -1);
        EXPECT_EQ(refused.printed, "");
    }
}

Encoded push(__enumVtMessageType type, const void* content, unsigned int seqnum = 7, int ignored = 0) {
    return encoded([&](char* out, int size) {
        return GetNotificationContentReqEncode(ignored, seqnum, type, content, out, size);
    });
}

// Noise wherever nothing is set: it would be seen if it were sent.
template <class Record>
Record noise() {
    Record record;
    std::memset(&record, 'n', sizeof record);
    return record;
}

__tagVtAlarmData alarm() {
    auto alarm = noise<__tagVtAlarmData>();
    std::strcpy(alarm.AlarmGuid, "a-1");
    alarm.AlarmNo = 1;
    std::strcpy(alarm.ChannelGuid, "c-1");
    std::strcpy(alarm.DeviceGuid, "d-1");
    alarm.NodeID = -2;
    alarm.AlarmFlag = 3;
    alarm.AlarmType = -2147483647 - 1;
    alarm.AlarmLevel = 2147483647;
    std::strcpy(alarm.AlarmSubTypeCode, "s-1");
    alarm.AlarmState = 4;
    std::strcpy(alarm.BeginTime, "20240101120000");
    std::strcpy(alarm.EndTime, "20240101130000");
    std::strcpy(alarm.AlarmContent, "a<b>&\"c\"'d'");
    std::strcpy(alarm.AlarmSource, "door");
    std::strcpy(alarm.ConfirmMessage, "seen");
    std::strcpy(alarm.Confirmer, "");
    std::strcpy(alarm.ConfirmTime, "20240101140000");
    return alarm;
}

TEST(GetNotificationContentReqEncode, PushesAnAlarmAsAResponseWithoutTheFieldsOfTheHistory) {
    const __tagVtAlarmData content = alarm();
    const Encoded got = push(VtMessageAlarm, &content);
    EXPECT_EQ(got.bytes, wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="NotificationContent">
        <Notifications>
            <MessageNotification MessageType="300">
                <AlarmData>
                    <AlarmGuid>a-1</AlarmGuid>
                    <AlarmNo>1</AlarmNo>
                    <ChannelGuid>c-1</ChannelGuid>
                    <DeviceGuid>d-1</DeviceGuid>
                    <NodeID>-2</NodeID>
                    <AlarmFlag>3</AlarmFlag>
                    <AlarmType>-2147483648</AlarmType>
                    <AlarmLevel>2147483647</AlarmLevel>
                    <AlarmSubTypeCode>s-1</AlarmSubTypeCode>
                    <AlarmState>4</AlarmState>
                    <BeginTime>20240101120000</BeginTime>
                    <EndTime>20240101130000</EndTime>
                    <AlarmContent>a&lt;b&gt;&amp;&quot;c&quot;&apos;d&apos;</AlarmContent>
                    <AlarmSource>door</AlarmSource>
                    <ConfirmMessage>seen</ConfirmMessage>
                    <Confirmer></Confirmer>
                    <ConfirmTime>20240101140000</ConfirmTime>
                </AlarmData>
            </MessageNotification>
        </Notifications>
    </response>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetNotificationContentReqEncode, PushesAChangeOfARecording) {
    auto content = noise<__tagVtRecordStatus>();
    std::strcpy(content.StatusGuid, "s-1");
    std::strcpy(content.ChannelGuid, "c-1");
    std::strcpy(content.DeviceGuid, "d-1");
    content.RecordType = 1;
    std::strcpy(content.OccurredTime, "20240101120000");
    std::strcpy(content.MessageDesc, "disk full");
    content.ErrorCode = -2;
    content.Status = 3;
    const Encoded got = push(VtMessageRecordStatus, &content, 4294967295u);
    EXPECT_EQ(got.bytes, wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <response name="NotificationContent">
        <Notifications>
            <MessageNotification MessageType="301">
                <RecordingStatus>
                    <StatusGuid>s-1</StatusGuid>
                    <ChannelGuid>c-1</ChannelGuid>
                    <DeviceGuid>d-1</DeviceGuid>
                    <RecordType>1</RecordType>
                    <OccurredTime>20240101120000</OccurredTime>
                    <MessageDesc>disk full</MessageDesc>
                    <ErrorCode>-2</ErrorCode>
                    <Status>3</Status>
                </RecordingStatus>
            </MessageNotification>
        </Notifications>
    </response>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

std::string notification(const std::string& inside) {
    return wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="NotificationContent">
        <Notifications>
)" + inside + R"(        </Notifications>
    </response>
</servercommandservice>
)");
}

// Its MessageType is not the kind of the event.
TEST(GetNotificationContentReqEncode, PushesThreeKindsThatDifferInTheirNamesAlone) {
    auto content = noise<__tagVtMessageParam>();
    content.MessageType = -5;
    std::strcpy(content.DeviceGuid, "d-1");
    std::strcpy(content.ChannelGuid, "c-1");
    EXPECT_EQ(push(VtMessageOnlineStatus, &content).bytes,
              notification(R"(            <MessageNotification MessageType="302">
                <OnlineStatus>
                    <DeviceGuid>d-1</DeviceGuid>
                    <ChannelGuid>c-1</ChannelGuid>
                    <MessageType>-5</MessageType>
                </OnlineStatus>
            </MessageNotification>
)"));
    EXPECT_EQ(push(VtMessageChannelDisabled, &content).bytes,
              notification(R"(            <MessageNotification MessageType="23">
                <ChannelDisabled>
                    <DeviceGuid>d-1</DeviceGuid>
                    <ChannelGuid>c-1</ChannelGuid>
                    <MessageType>-5</MessageType>
                </ChannelDisabled>
            </MessageNotification>
)"));
    EXPECT_EQ(push(VtMessageChannelDeleted, &content).bytes,
              notification(R"(            <MessageNotification MessageType="24">
                <ChannelDeleted>
                    <DeviceGuid>d-1</DeviceGuid>
                    <ChannelGuid>c-1</ChannelGuid>
                    <MessageType>-5</MessageType>
                </ChannelDeleted>
            </MessageNotification>
)"));
}

// The content is then not even looked at.
TEST(GetNotificationContentReqEncode, AnnouncesAnUnknownKindWithoutContent) {
    const GuardedPage nothing(std::size_t{0});
    for (const int type : {25, 22, 1, 299, 303, -1, 2147483647}) {
        const Encoded got = push(static_cast<__enumVtMessageType>(type), nothing.data());
        EXPECT_EQ(got.bytes, notification("            <MessageNotification MessageType=\"" +
                                          std::to_string(type) + "\" />\n"));
        EXPECT_EQ(got.printed, "");
    }
}

TEST(GetNotificationContentReqEncode, IgnoresItsFirstArgument) {
    const __tagVtAlarmData content = alarm();
    const std::string message = push(VtMessageAlarm, &content).bytes;
    for (const int ignored : {1, -1, 300, 2147483647})
        EXPECT_EQ(push(VtMessageAlarm, &content, 7, ignored).bytes, message);
}

TEST(GetNotificationContentReqEncode, RefusesKindZeroAndANullContent) {
    const __tagVtAlarmData content = alarm();
    const Encoded kindless = push(static_cast<__enumVtMessageType>(0), &content);
    EXPECT_EQ(kindless.returned, -1);
    EXPECT_EQ(kindless.printed, "");
    for (const int type : {23, 24, 25, 300, 301, 302}) {
        const Encoded got = push(static_cast<__enumVtMessageType>(type), nullptr);
        EXPECT_EQ(got.returned, -1) << type;
        EXPECT_EQ(got.printed, "");
    }
}

} // namespace
