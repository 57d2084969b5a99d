// Compares an event that came with the one that was sent, field by field; and alarms of the history.
#ifndef EXAMPLES_EVENT_COMPARISON_H
#define EXAMPLES_EVENT_COMPARISON_H

#include "support/comparison.h"
#include "support/sample_events.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <type_traits>
#include <variant>

namespace example {

// What a push carries. ConfirmState, HaveRecord and HaveSnapshot are the history's and stay 0.
inline void compare(Comparison& check, const std::string& where,
                    const veltoprotocol::__tagVtAlarmData& wanted,
                    const veltoprotocol::__tagVtAlarmData& found) {
    check.same(where, "AlarmGuid", wanted.AlarmGuid, found.AlarmGuid);
    check.same(where, "AlarmNo", wanted.AlarmNo, found.AlarmNo);
    check.same(where, "ChannelGuid", wanted.ChannelGuid, found.ChannelGuid);
    check.same(where, "DeviceGuid", wanted.DeviceGuid, found.DeviceGuid);
    check.same(where, "NodeID", wanted.NodeID, found.NodeID);
    check.same(where, "AlarmFlag", wanted.AlarmFlag, found.AlarmFlag);
    check.same(where, "AlarmType", wanted.AlarmType, found.AlarmType);
    check.same(where, "AlarmLevel", wanted.AlarmLevel, found.AlarmLevel);
    check.same(where, "AlarmSubTypeCode", wanted.AlarmSubTypeCode, found.AlarmSubTypeCode);
    check.same(where, "AlarmState", wanted.AlarmState, found.AlarmState);
    check.same(where, "BeginTime", wanted.BeginTime, found.BeginTime);
    check.same(where, "EndTime", wanted.EndTime, found.EndTime);
    check.same(where, "AlarmContent", wanted.AlarmContent, found.AlarmContent);
    check.same(where, "AlarmSource", wanted.AlarmSource, found.AlarmSource);
    check.same(where, "ConfirmMessage", wanted.ConfirmMessage, found.ConfirmMessage);
    check.same(where, "Confirmer", wanted.Confirmer, found.Confirmer);
    check.same(where, "ConfirmTime", wanted.ConfirmTime, found.ConfirmTime);
    check.same(where, "ConfirmState", wanted.ConfirmState, found.ConfirmState);
    check.same(where, "HaveRecord", wanted.HaveRecord, found.HaveRecord);
    check.same(where, "HaveSnapshot", wanted.HaveSnapshot, found.HaveSnapshot);
}

inline void compare(Comparison& check, const std::string& where,
                    const veltoprotocol::__tagVtRecordStatus& wanted,
                    const veltoprotocol::__tagVtRecordStatus& found) {
    check.same(where, "StatusGuid", wanted.StatusGuid, found.StatusGuid);
    check.same(where, "ChannelGuid", wanted.ChannelGuid, found.ChannelGuid);
    check.same(where, "DeviceGuid", wanted.DeviceGuid, found.DeviceGuid);
    check.same(where, "RecordType", wanted.RecordType, found.RecordType);
    check.same(where, "OccurredTime", wanted.OccurredTime, found.OccurredTime);
    check.same(where, "MessageDesc", wanted.MessageDesc, found.MessageDesc);
    check.same(where, "ErrorCode", wanted.ErrorCode, found.ErrorCode);
    check.same(where, "Status", wanted.Status, found.Status);
}

inline void compare(Comparison& check, const std::string& where,
                    const veltoprotocol::__tagVtMessageParam& wanted,
                    const veltoprotocol::__tagVtMessageParam& found) {
    check.same(where, "DeviceGuid", wanted.DeviceGuid, found.DeviceGuid);
    check.same(where, "ChannelGuid", wanted.ChannelGuid, found.ChannelGuid);
    check.same(where, "MessageType", wanted.MessageType, found.MessageType);
}

inline void compare(Comparison& check, const std::string& where, const Event& wanted, const Event& found) {
    check.same(where, "type", static_cast<int>(wanted.type), static_cast<int>(found.type));
    // The reader chose the content by the type, so it is the same kind of record now.
    std::visit(
        [&](const auto& content) {
            compare(check, where, content, std::get<std::decay_t<decltype(content)>>(found.content));
        },
        wanted.content);
}

// What the history carries of an alarm, and what it does not, which stays empty.
inline void comparePast(Comparison& check, const std::string& where, veltoprotocol::__tagVtAlarmData wanted,
                        const veltoprotocol::__tagVtAlarmData& found) {
    const auto clear = [](auto& field) { std::fill(std::begin(field), std::end(field), '\0'); };
    clear(wanted.DeviceGuid);
    wanted.NodeID = 0;
    clear(wanted.AlarmSubTypeCode);
    wanted.AlarmState = 0;
    clear(wanted.AlarmContent);
    clear(wanted.AlarmSource);
    clear(wanted.Confirmer);
    compare(check, where, wanted, found);
}

} // namespace example

#endif
