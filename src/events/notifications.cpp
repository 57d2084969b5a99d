// The subscription to events, and the events as they are pushed.
#include "framing/message.h"
#include "veltoprotocol/events.h"

namespace veltoprotocol {
namespace {

using Alarm = __tagVtAlarmData;
using RecordStatus = __tagVtRecordStatus;
using MessageParam = __tagVtMessageParam;

// The last three fields of an alarm are the history's alone.
constexpr auto alarmFields =
    elements("AlarmData", field("AlarmGuid", &Alarm::AlarmGuid), field("AlarmNo", &Alarm::AlarmNo),
             field("ChannelGuid", &Alarm::ChannelGuid), field("DeviceGuid", &Alarm::DeviceGuid),
             field("NodeID", &Alarm::NodeID), field("AlarmFlag", &Alarm::AlarmFlag),
             field("AlarmType", &Alarm::AlarmType), field("AlarmLevel", &Alarm::AlarmLevel),
             field("AlarmSubTypeCode", &Alarm::AlarmSubTypeCode), field("AlarmState", &Alarm::AlarmState),
             field("BeginTime", &Alarm::BeginTime), field("EndTime", &Alarm::EndTime),
             field("AlarmContent", &Alarm::AlarmContent), field("AlarmSource", &Alarm::AlarmSource),
             field("ConfirmMessage", &Alarm::ConfirmMessage), field("Confirmer", &Alarm::Confirmer),
             field("ConfirmTime", &Alarm::ConfirmTime));

constexpr auto recordStatusFields = elements(
    "RecordingStatus", field("StatusGuid", &RecordStatus::StatusGuid),
    field("ChannelGuid", &RecordStatus::ChannelGuid), field("DeviceGuid", &RecordStatus::DeviceGuid),
    field("RecordType", &RecordStatus::RecordType), field("OccurredTime", &RecordStatus::OccurredTime),
    field("MessageDesc", &RecordStatus::MessageDesc), field("ErrorCode", &RecordStatus::ErrorCode),
    field("Status", &RecordStatus::Status));

constexpr auto messageFields = elements("OnlineStatus", field("DeviceGuid", &MessageParam::DeviceGuid),
                                        field("ChannelGuid", &MessageParam::ChannelGuid),
                                        field("MessageType", &MessageParam::MessageType));

template <class X>
void writeContent(X x, __enumVtMessageType type, const void* content) {
    const auto message = [&] { return messageFields(*static_cast<const MessageParam*>(content)); };
    switch (type) {
    case VtMessageAlarm:
        return x.element("AlarmData", alarmFields(*static_cast<const Alarm*>(content)));
    case VtMessageRecordStatus:
        return x.element("RecordingStatus", recordStatusFields(*static_cast<const RecordStatus*>(content)));
    case VtMessageOnlineStatus:
        return x.element("OnlineStatus", message());
    case VtMessageChannelDisabled:
        return x.element("ChannelDisabled", message());
    case VtMessageChannelDeleted:
        return x.element("ChannelDeleted", message());
    }
    // kept: a kind that is not known is announced all the same, without content
}

} // namespace

// kept: the token comes first, unlike in other requests
int GetNotificationReqEncode(const char* token, const char* host, unsigned int seqnum, char* out, int size) {
    return Request("Notification", seqnum, Token{token}).post(commandPath, host, Empty(), out, size);
}

// kept: a response, although the name says request; the first argument has no use
int GetNotificationContentReqEncode(int, unsigned int seqnum, __enumVtMessageType type, const void* content,
                                    char* out, int size) {
    if (type == 0 || !content) return -1;
    const auto notification = [&](auto x) { writeContent(x, type, content); };
    const auto tree = [&](auto x) {
        x.element("Notifications", [&](auto inside) {
            inside.element("MessageNotification", attribute("MessageType", type), notification);
        });
    };
    return Response("NotificationContent", seqnum).reply(tree, out, size);
}

Alarm GetAlarmDataDecode(TiXmlElement* alarmData, int* error) {
    return readRecord(alarmData, alarmFields, error);
}

RecordStatus GetRecordStatusDecode(TiXmlElement* recordingStatus, int* error) {
    return readRecord(recordingStatus, recordStatusFields, error);
}

MessageParam GetMessageParamDecode(TiXmlElement* onlineStatus, int* error) {
    return readRecord(onlineStatus, messageFields, error);
}

MessageParam GetMessageParamDecodeChannelDisable(TiXmlElement* channelDisabled, int* error) {
    return readRecord(channelDisabled, messageFields.labelled("ChannelDisabled"), error);
}

MessageParam GetMessageParamDecodeChannelDelete(TiXmlElement* channelDeleted, int* error) {
    return readRecord(channelDeleted, messageFields.labelled("ChannelDeleted"), error);
}

} // namespace veltoprotocol
