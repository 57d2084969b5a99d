#include "fuzz/round_trip.h"

using namespace veltoprotocol;

namespace {

Arrived pushed(__enumVtMessageType type, const void* content) {
    return Arrived(
        [&](char* out, int size) { return GetNotificationContentReqEncode(0, 1, type, content, out, size); });
}

TiXmlElement* contentOf(const Arrived& event, const char* name) {
    return event.at({"Notifications", "MessageNotification", name});
}

using Alarm = __tagVtAlarmData;
void alarm(Draw& draw) {
    Trip<Alarm> trip(draw);
    trip.carry(Carrier::elements, &Alarm::AlarmGuid, &Alarm::AlarmNo, &Alarm::ChannelGuid, &Alarm::DeviceGuid,
               &Alarm::NodeID, &Alarm::AlarmFlag, &Alarm::AlarmType, &Alarm::AlarmLevel,
               &Alarm::AlarmSubTypeCode, &Alarm::AlarmState, &Alarm::BeginTime, &Alarm::EndTime,
               &Alarm::AlarmContent, &Alarm::AlarmSource, &Alarm::ConfirmMessage, &Alarm::Confirmer,
               &Alarm::ConfirmTime);
    const Arrived event = pushed(VtMessageAlarm, &trip.sent);
    int error = 7;
    requireSameRecord("an alarm", GetAlarmDataDecode(contentOf(event, "AlarmData"), &error), trip.back);
}

using Status = __tagVtRecordStatus;
void recordStatus(Draw& draw) {
    Trip<Status> trip(draw);
    trip.carry(Carrier::elements, &Status::StatusGuid, &Status::ChannelGuid, &Status::DeviceGuid,
               &Status::RecordType, &Status::OccurredTime, &Status::MessageDesc, &Status::ErrorCode,
               &Status::Status);
    const Arrived event = pushed(VtMessageRecordStatus, &trip.sent);
    int error = 7;
    requireSameRecord("a recording's status",
                      GetRecordStatusDecode(contentOf(event, "RecordingStatus"), &error), trip.back);
}

using Message = __tagVtMessageParam;
void message(Draw& draw) {
    Trip<Message> trip(draw);
    trip.carry(Carrier::elements, &Message::MessageType, &Message::DeviceGuid, &Message::ChannelGuid);
    const struct {
        __enumVtMessageType type;
        const char* name;
        Message (*decode)(TiXmlElement*, int*);
    } kinds[] = {{VtMessageOnlineStatus, "OnlineStatus", GetMessageParamDecode},
                 {VtMessageChannelDisabled, "ChannelDisabled", GetMessageParamDecodeChannelDisable},
                 {VtMessageChannelDeleted, "ChannelDeleted", GetMessageParamDecodeChannelDelete}};
    for (const auto& kind : kinds) {
        const Arrived event = pushed(kind.type, &trip.sent);
        int error = 7;
        requireSameRecord(kind.name, kind.decode(contentOf(event, kind.name), &error), trip.back);
    }
}

using Search = __tagVtSearchAlarmParam;
using Channel = __tagVtChannelParam;
void search(Draw& draw) {
    Trip<Search> trip(draw);
    trip.carry(Carrier::attributes, &Search::AlarmFlag, &Search::AlarmType, &Search::AlarmLevel,
               &Search::BeginTime, &Search::EndTime, &Search::BeginIndex, &Search::EndIndex);
    const auto channels = severalTrips<Channel>(draw, [](Draw& from) {
        Trip<Channel> channel(from);
        channel.carry(Carrier::elements, &Channel::Guid);
        return channel;
    });
    auto sent = sentOf(channels);
    trip.sent.channels = sent.data();
    trip.sent.channelcount = trip.back.channelcount = static_cast<int>(sent.size());
    const Arrived request([&](char* out, int size) {
        return GetSearchHistoryAlarmReqEncode("h", "t", 1, &trip.sent, out, size);
    });
    int error = 7;
    const std::unique_ptr<Search, void (*)(Search*)> got(
        GetSearchHistoryAlarmReqDecode(request.doc.get(), &error), ReleaseSearchAlarmParam);
    require(got != nullptr, "no search for alarms");
    for (std::size_t i = 0; i < channels.size(); ++i)
        requireSameRecord("a channel to be searched", got->channels[i], channels[i].back);
    trip.back.channels = got->channels;
    requireSameRecord("a search for alarms", *got, trip.back);
}

// The counts come back, and nothing of the alarms: attributes are sent, and children are read. The reader
// wants a text of 0 in front, which no writer sends.
using Found = __tagVtSearchAlarmResult;
void found(Draw& draw) {
    auto alarms = sentOf(severalTrips<Alarm>(draw, [](Draw& from) {
        Trip<Alarm> trip(from);
        trip.carry(Carrier::attributes, &Alarm::AlarmGuid, &Alarm::AlarmNo, &Alarm::ChannelGuid,
                   &Alarm::AlarmFlag, &Alarm::AlarmType, &Alarm::AlarmLevel, &Alarm::BeginTime,
                   &Alarm::EndTime, &Alarm::ConfirmMessage, &Alarm::ConfirmTime, &Alarm::ConfirmState,
                   &Alarm::HaveRecord, &Alarm::HaveSnapshot);
        return trip;
    }));
    Found sent = {};
    sent.SearchCount = draw.number<int>();
    sent.CurCount = static_cast<int>(alarms.size());
    sent.alarms = alarms.data();
    const Arrived answer(
        [&](char* out, int size) { return GetSearchHistoryAlarmRespEncode(0, 1, &sent, out, size); });
    TiXmlElement* const response = answer.command();
    int error = 7;
    require(GetSearchHistoryAlarmRespDecode(answer.doc.get(), &error) == nullptr && error == -1,
            "what has no text in front is read");
    response->InsertBeforeChild(response->FirstChild(), TiXmlText("0"));
    error = 7;
    const std::unique_ptr<Found, void (*)(Found*)> got(
        GetSearchHistoryAlarmRespDecode(answer.doc.get(), &error), ReleaseSearchAlarmParam);
    require(got != nullptr, "no alarms found");
    requireSame("past alarms, error", error, 0);
    requireSame("how many were found", got->SearchCount, sent.SearchCount);
    requireSame("how many are sent", got->CurCount, sent.CurCount);
    for (int i = 0; i < got->CurCount; ++i) requireSameRecord("a past alarm", got->alarms[i], Alarm());
}

} // namespace

std::vector<RoundTrip> eventTrips() {
    return {{"an alarm", alarm},
            {"a status", recordStatus},
            {"a message", message},
            {"SearchHistoryAlarm", search},
            {"its answer", found}};
}
