#include "properties/encoder_calls.h"

namespace veltoprotocol {
namespace {

__tagVtAlarmData drawnAlarm(Draw& draw) {
    auto alarm = draw.noise<__tagVtAlarmData>();
    draw.fill(alarm.AlarmGuid, alarm.AlarmNo, alarm.ChannelGuid, alarm.DeviceGuid, alarm.NodeID,
              alarm.AlarmFlag, alarm.AlarmType, alarm.AlarmLevel, alarm.AlarmSubTypeCode, alarm.AlarmState,
              alarm.BeginTime, alarm.EndTime, alarm.AlarmContent, alarm.AlarmSource, alarm.ConfirmMessage,
              alarm.Confirmer, alarm.ConfirmTime, alarm.ConfirmState, alarm.HaveRecord, alarm.HaveSnapshot);
    return alarm;
}

__tagVtRecordStatus drawnRecordStatus(Draw& draw) {
    auto status = draw.noise<__tagVtRecordStatus>();
    draw.fill(status.StatusGuid, status.ChannelGuid, status.DeviceGuid, status.RecordType,
              status.OccurredTime, status.MessageDesc, status.ErrorCode, status.Status);
    return status;
}

// One that its content belongs to, or any other.
int drawnType(Draw& draw) {
    constexpr int known[] = {300, 301, 302, 23, 24};
    return draw.oneIn(8) ? draw.number<int>() : known[draw.below(5)];
}

struct EventArguments : Arguments {
    __tagVtAlarmData alarm = drawnAlarm(draw);
    __tagVtRecordStatus recordStatus = drawnRecordStatus(draw);
    __tagVtMessageParam message = drawn(draw, &__tagVtMessageParam::MessageType,
                                        &__tagVtMessageParam::DeviceGuid, &__tagVtMessageParam::ChannelGuid);
    int type;
    Array<__tagVtChannelParam> channels =
        draw.array([](Draw& from) { return drawn(from, &__tagVtChannelParam::Guid); });
    Array<__tagVtAlarmData> alarms = draw.array(drawnAlarm);
    __tagVtSearchAlarmParam search = {};
    __tagVtSearchAlarmResult found = {};

    EventArguments(unsigned seed, Texts texts) : Arguments(seed, texts), type(drawnType(draw)) {
        if (texts == Texts::printable && type == 0) type = VtMessageAlarm;
        draw.fill(search.AlarmFlag, search.AlarmType, search.AlarmLevel, search.BeginTime, search.EndTime,
                  search.BeginIndex, search.EndIndex, found.SearchCount);
        attach(channels, search.channels, search.channelcount);
        attach(alarms, found.alarms, found.CurCount);
    }

    const void* content() const {
        if (recordMissing) return nullptr;
        if (type == VtMessageAlarm) return &alarm;
        if (type == VtMessageRecordStatus) return &recordStatus;
        return &message;
    }
};

} // namespace

void visitEvents(unsigned seed, Texts texts, const Visit& visit) {
    const EventArguments a(seed, texts);
    const auto type = static_cast<__enumVtMessageType>(a.type);
    REQUEST(GetNotificationReqEncode, a.token, a.host, a.seqnum, out, size);
    RESPONSE(GetNotificationRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetNotificationContentReqEncode, a.number, a.seqnum, type, a.content(), out, size);
    REQUEST(GetSearchHistoryAlarmReqEncode, a.host, a.token, a.seqnum, a.orNull(a.search), out, size);
    RESPONSE(GetSearchHistoryAlarmRespEncode, a.result, a.seqnum, a.orNull(a.found), out, size);
}

} // namespace veltoprotocol
