// The events that the example server pushes, and the alarms of its history: any number, each known by its
// number to both sides, so that the client can tell whether what comes is what was sent.
#ifndef EXAMPLES_SAMPLE_EVENTS_H
#define EXAMPLES_SAMPLE_EVENTS_H

#include "support/sample_inventory.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>

#include <cstdio>
#include <string>
#include <variant>
#include <vector>

namespace example {

using Channels = std::vector<veltoprotocol::__tagVtChannelParam>;

// One pushed event. What its content is, the type says.
struct Event {
    veltoprotocol::__enumVtMessageType type;
    std::variant<veltoprotocol::__tagVtMessageParam, veltoprotocol::__tagVtAlarmData,
                 veltoprotocol::__tagVtRecordStatus>
        content;
};

// What people call it.
inline const char* nameOf(veltoprotocol::__enumVtMessageType type) {
    switch (type) {
    case veltoprotocol::VtMessageChannelDisabled:
        return "channel disabled";
    case veltoprotocol::VtMessageChannelDeleted:
        return "channel deleted";
    case veltoprotocol::VtMessageAlarm:
        return "alarm";
    case veltoprotocol::VtMessageRecordStatus:
        return "recording status";
    case veltoprotocol::VtMessageOnlineStatus:
        return "online status";
    }
    return "unknown";
}

// One a minute, all on one day, as year, month, day, hour, minute, second.
inline std::string sampleTime(unsigned int number) {
    char shown[16];
    std::snprintf(shown, sizeof shown, "20250101%02u%02u%02u", number / 60 % 24, number % 60, number % 59);
    return shown;
}

// The number of an alarm is that of the event, or its place in the history.
inline veltoprotocol::__tagVtAlarmData sampleAlarm(unsigned int number, const Channels& channels) {
    const auto& channel = channels[number % channels.size()];
    const int n = static_cast<int>(number);
    veltoprotocol::__tagVtAlarmData alarm = {};
    fill(alarm.AlarmGuid, guid('1', n));
    alarm.AlarmNo = n;
    fill(alarm.ChannelGuid, text(channel.Guid));
    fill(alarm.DeviceGuid, text(channel.DeviceGuid));
    alarm.NodeID = -n;
    alarm.AlarmFlag = n % 2 + 1;
    alarm.AlarmType = n % 7 + 1;
    alarm.AlarmLevel = n % 3 + 1;
    fill(alarm.AlarmSubTypeCode, "<&" + std::to_string(number % 1000) + ">");
    alarm.AlarmState = n % 5 - 2;
    fill(alarm.BeginTime, sampleTime(number));
    fill(alarm.EndTime, sampleTime(number + 1));
    fill(alarm.AlarmContent, "移动侦测 <Bewegung> & \"mehr\" 🚨");
    fill(alarm.AlarmSource, text(channel.DisplayName));
    fill(alarm.ConfirmMessage, number % 4 == 0 ? "" : "geprüft: O'Brien");
    fill(alarm.Confirmer, "值班员");
    fill(alarm.ConfirmTime, sampleTime(number + 2));
    return alarm;
}

// An alarm of the history says more than a pushed one.
inline veltoprotocol::__tagVtAlarmData samplePastAlarm(unsigned int number, const Channels& channels) {
    veltoprotocol::__tagVtAlarmData alarm = sampleAlarm(number, channels);
    alarm.ConfirmState = number % 4 == 0 ? 0 : 1;
    alarm.HaveRecord = static_cast<int>(number % 2);
    alarm.HaveSnapshot = static_cast<int>(number % 3);
    return alarm;
}

// How many the history has: five for each channel.
inline unsigned int pastAlarms(const Channels& channels) {
    return 5 * static_cast<unsigned int>(channels.size());
}

inline veltoprotocol::__tagVtRecordStatus sampleRecordStatus(unsigned int number, const Channels& channels) {
    const auto& channel = channels[number % channels.size()];
    veltoprotocol::__tagVtRecordStatus status = {};
    fill(status.StatusGuid, guid('2', static_cast<int>(number)));
    fill(status.ChannelGuid, text(channel.Guid));
    fill(status.DeviceGuid, text(channel.DeviceGuid));
    status.RecordType = static_cast<int>(number % 4);
    fill(status.OccurredTime, sampleTime(number));
    fill(status.MessageDesc, "录像停止 & 'Platte <2> voll' 💾");
    status.ErrorCode = -static_cast<int>(number);
    status.Status = static_cast<int>(number % 2);
    return status;
}

inline veltoprotocol::__tagVtMessageParam sampleMessage(unsigned int number, const Channels& channels) {
    const auto& channel = channels[number % channels.size()];
    veltoprotocol::__tagVtMessageParam message = {};
    message.MessageType = static_cast<int>(number) - 3;
    fill(message.DeviceGuid, text(channel.DeviceGuid));
    fill(message.ChannelGuid, text(channel.Guid));
    return message;
}

// The kinds take turns. `channels`, of which there is at least one, are those that the subscriber may see, in
// the order of the device list.
inline Event sampleEvent(unsigned int number, const Channels& channels) {
    switch (number % 5) {
    case 0:
        return {veltoprotocol::VtMessageOnlineStatus, sampleMessage(number, channels)};
    case 1:
        return {veltoprotocol::VtMessageAlarm, sampleAlarm(number, channels)};
    case 2:
        return {veltoprotocol::VtMessageRecordStatus, sampleRecordStatus(number, channels)};
    case 3:
        return {veltoprotocol::VtMessageChannelDisabled, sampleMessage(number, channels)};
    default:
        return {veltoprotocol::VtMessageChannelDeleted, sampleMessage(number, channels)};
    }
}

} // namespace example

#endif
