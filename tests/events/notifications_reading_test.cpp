// What is read of a pushed event, and that it is what was sent.
#include "support/child_fields.h"
#include "support/received.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>

using namespace veltoprotocol;

namespace {

using Alarm = __tagVtAlarmData;
using RecordStatus = __tagVtRecordStatus;
using MessageParam = __tagVtMessageParam;

const std::vector<ChildField> alarmFields = {
    {"AlarmGuid", 48, offsetof(Alarm, AlarmGuid)},
    {"AlarmNo", 0, offsetof(Alarm, AlarmNo)},
    {"ChannelGuid", 48, offsetof(Alarm, ChannelGuid)},
    {"DeviceGuid", 48, offsetof(Alarm, DeviceGuid)},
    {"NodeID", 0, offsetof(Alarm, NodeID)},
    {"AlarmFlag", 0, offsetof(Alarm, AlarmFlag)},
    {"AlarmType", 0, offsetof(Alarm, AlarmType)},
    {"AlarmLevel", 0, offsetof(Alarm, AlarmLevel)},
    {"AlarmSubTypeCode", 16, offsetof(Alarm, AlarmSubTypeCode)},
    {"AlarmState", 0, offsetof(Alarm, AlarmState)},
    {"BeginTime", 16, offsetof(Alarm, BeginTime)},
    {"EndTime", 16, offsetof(Alarm, EndTime)},
    {"AlarmContent", 128, offsetof(Alarm, AlarmContent)},
    {"AlarmSource", 128, offsetof(Alarm, AlarmSource)},
    {"ConfirmMessage", 128, offsetof(Alarm, ConfirmMessage)},
    {"Confirmer", 32, offsetof(Alarm, Confirmer)},
    {"ConfirmTime", 16, offsetof(Alarm, ConfirmTime)},
};

const std::vector<ChildField> recordStatusFields = {
    {"StatusGuid", 48, offsetof(RecordStatus, StatusGuid)},
    {"ChannelGuid", 48, offsetof(RecordStatus, ChannelGuid)},
    {"DeviceGuid", 48, offsetof(RecordStatus, DeviceGuid)},
    {"RecordType", 0, offsetof(RecordStatus, RecordType)},
    {"OccurredTime", 16, offsetof(RecordStatus, OccurredTime)},
    {"MessageDesc", 128, offsetof(RecordStatus, MessageDesc)},
    {"ErrorCode", 0, offsetof(RecordStatus, ErrorCode)},
    {"Status", 0, offsetof(RecordStatus, Status)},
};

const std::vector<ChildField> messageFields = {
    {"DeviceGuid", 48, offsetof(MessageParam, DeviceGuid)},
    {"ChannelGuid", 48, offsetof(MessageParam, ChannelGuid)},
    {"MessageType", 0, offsetof(MessageParam, MessageType)},
};

TEST(GetAlarmDataDecode, ReadsEachChildUpToItsWidthAndNamesTheOthers) {
    expectReadsEachChild("AlarmData", alarmFields, GetAlarmDataDecode);
}

TEST(GetRecordStatusDecode, ReadsEachChildUpToItsWidthAndNamesTheOthers) {
    expectReadsEachChild("RecordingStatus", recordStatusFields, GetRecordStatusDecode);
}

TEST(GetMessageParamDecode, DiffersFromItsTwoLikesInTheLinesAlone) {
    expectReadsEachChild("OnlineStatus", messageFields, GetMessageParamDecode);
    expectReadsEachChild("ChannelDisabled", messageFields, GetMessageParamDecodeChannelDisable);
    expectReadsEachChild("ChannelDeleted", messageFields, GetMessageParamDecodeChannelDelete);
}

TEST(EventDecoders, RefuseANullElementInSilence) {
    expectRefusesANullElement(GetAlarmDataDecode);
    expectRefusesANullElement(GetRecordStatusDecode);
    expectRefusesANullElement(GetMessageParamDecode);
    expectRefusesANullElement(GetMessageParamDecodeChannelDisable);
    expectRefusesANullElement(GetMessageParamDecodeChannelDelete);
}

TEST(GetAlarmDataDecode, ReadsNeitherTheFieldsOfTheHistoryNorAttributes) {
    const auto got = readBack(R"(<AlarmData AlarmGuid="a" AlarmNo="1" ConfirmState="2">)"
                              "<ConfirmState>3</ConfirmState><HaveRecord>4</HaveRecord>"
                              "<HaveSnapshot>5</HaveSnapshot></AlarmData>",
                              GetAlarmDataDecode);
    EXPECT_TRUE(sameBytes(got.record, Alarm()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, missingChildren("AlarmData", alarmFields));
}

// A receiver's way to the content of a pushed event.
struct Pushed : Received {
    Pushed(__enumVtMessageType type, const void* content)
        : Received([&](char* out, int size) {
              return GetNotificationContentReqEncode(0, 1, type, content, out, size);
          }) {}
    TiXmlElement* notification() const {
        return child("Notifications")->FirstChildElement("MessageNotification");
    }
};

template <class Record, class Decoder>
void expectComesBack(__enumVtMessageType type, const char* name, const Record& sent, const Record& want,
                     const Decoder& decode) {
    SCOPED_TRACE(name);
    const Pushed got(type, &sent);
    EXPECT_EQ(GetResponseNameDecode(got.doc.get(), nullptr), "NotificationContent");
    int error = 7, kind = 0;
    Captured captured;
    GetIntValueAtt(got.notification(), "MessageNotification", "MessageType", &kind);
    const Record back = decode(got.notification()->FirstChildElement(name), &error);
    const std::string printed = captured.text();
    EXPECT_EQ(kind, type);
    EXPECT_TRUE(sameBytes(back, want));
    EXPECT_EQ(error, 0);
    EXPECT_EQ(printed, "");
}

TEST(AlarmPush, ComesBackWithoutTheFieldsOfTheHistory) {
    Alarm sent;
    std::memset(&sent, 'n', sizeof sent);
    fill(sent.AlarmGuid, 'a');
    sent.AlarmNo = 1;
    fill(sent.ChannelGuid, 'b');
    fill(sent.DeviceGuid, 'c');
    sent.NodeID = -2147483647 - 1;
    sent.AlarmFlag = 2147483647;
    sent.AlarmType = 4;
    sent.AlarmLevel = -5;
    fill(sent.AlarmSubTypeCode, 'd');
    sent.AlarmState = 6;
    fill(sent.BeginTime, 'e');
    fill(sent.EndTime, 'f');
    fill(sent.AlarmContent, 'g');
    fill(sent.AlarmSource, 'h');
    fill(sent.ConfirmMessage, 'i');
    fill(sent.Confirmer, 'j');
    fill(sent.ConfirmTime, 'k');
    Alarm want = sent;
    std::memset(want.reserved, 0, sizeof want.reserved);
    want.ConfirmState = want.HaveRecord = want.HaveSnapshot = 0;
    expectComesBack(VtMessageAlarm, "AlarmData", sent, want, GetAlarmDataDecode);
}

TEST(RecordStatusPush, ComesBackWithEveryField) {
    RecordStatus sent;
    std::memset(&sent, 'n', sizeof sent);
    fill(sent.StatusGuid, 'a');
    fill(sent.ChannelGuid, 'b');
    fill(sent.DeviceGuid, 'c');
    sent.RecordType = 1;
    fill(sent.OccurredTime, 'd');
    fill(sent.MessageDesc, 'e');
    sent.ErrorCode = -2;
    sent.Status = 3;
    expectComesBack(VtMessageRecordStatus, "RecordingStatus", sent, sent, GetRecordStatusDecode);
}

TEST(MessagePush, ComesBackWithEveryFieldInEachOfItsKinds) {
    MessageParam sent;
    fill(sent.DeviceGuid, 'd');
    fill(sent.ChannelGuid, 'c');
    sent.MessageType = -7;
    expectComesBack(VtMessageOnlineStatus, "OnlineStatus", sent, sent, GetMessageParamDecode);
    expectComesBack(VtMessageChannelDisabled, "ChannelDisabled", sent, sent,
                    GetMessageParamDecodeChannelDisable);
    expectComesBack(VtMessageChannelDeleted, "ChannelDeleted", sent, sent,
                    GetMessageParamDecodeChannelDelete);
}

} // namespace
