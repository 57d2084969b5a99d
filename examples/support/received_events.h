// The receiver's side of events: reads a pushed one, and a page of the history.
#ifndef EXAMPLES_RECEIVED_EVENTS_H
#define EXAMPLES_RECEIVED_EVENTS_H

#include "support/sample_events.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <vector>

namespace example {

inline TiXmlElement* childOf(TiXmlNode* parent, const char* name) {
    return parent ? parent->FirstChildElement(name) : nullptr;
}

// Nothing for a kind that is not known here: newer servers may have more, and a client passes over them.
// Throws std::runtime_error for one that is not as it should be.
inline std::optional<Event> readEvent(TiXmlDocument* document) {
    // begin event
    TiXmlElement* const response = childOf(childOf(document, "servercommandservice"), "response");
    TiXmlElement* const notification = childOf(childOf(response, "Notifications"), "MessageNotification");
    if (!notification) throw std::runtime_error("there is no event");
    int type = 0;
    veltoprotocol::GetIntValueAtt(notification, "MessageNotification", "MessageType", &type);

    int error = -1;
    Event event = {static_cast<veltoprotocol::__enumVtMessageType>(type), {}};
    switch (event.type) {
    case veltoprotocol::VtMessageAlarm:
        event.content = veltoprotocol::GetAlarmDataDecode(childOf(notification, "AlarmData"), &error);
        break;
    case veltoprotocol::VtMessageRecordStatus:
        event.content =
            veltoprotocol::GetRecordStatusDecode(childOf(notification, "RecordingStatus"), &error);
        break;
    case veltoprotocol::VtMessageOnlineStatus:
        event.content = veltoprotocol::GetMessageParamDecode(childOf(notification, "OnlineStatus"), &error);
        break;
    case veltoprotocol::VtMessageChannelDisabled:
        event.content = veltoprotocol::GetMessageParamDecodeChannelDisable(
            childOf(notification, "ChannelDisabled"), &error);
        break;
    case veltoprotocol::VtMessageChannelDeleted:
        event.content = veltoprotocol::GetMessageParamDecodeChannelDelete(
            childOf(notification, "ChannelDeleted"), &error);
        break;
    default:
        return {};
    }
    // end event
    if (error != 0) throw std::runtime_error("an event without content");
    return event;
}

struct AlarmPage {
    int searchCount = 0; // hits in all
    std::vector<veltoprotocol::__tagVtAlarmData> alarms;
};

// Attribute by attribute. GetSearchHistoryAlarmRespDecode does not take such an answer: it looks for "0" in
// the text of the response itself, where GetSearchHistoryAlarmRespEncode writes none, and for children of
// AlarmData, where that writes attributes.
inline veltoprotocol::__tagVtAlarmData readPastAlarm(TiXmlElement* element) {
    veltoprotocol::__tagVtAlarmData alarm = {};
    const auto text = [&](const char* name, auto& field) {
        veltoprotocol::GetStringValueAtt(element, "AlarmData", name, field, sizeof field);
    };
    const auto number = [&](const char* name, int& field) {
        veltoprotocol::GetIntValueAtt(element, "AlarmData", name, &field);
    };
    text("AlarmGuid", alarm.AlarmGuid);
    number("AlarmNo", alarm.AlarmNo);
    text("ChannelGuid", alarm.ChannelGuid);
    number("AlarmFlag", alarm.AlarmFlag);
    number("AlarmType", alarm.AlarmType);
    number("AlarmLevel", alarm.AlarmLevel);
    text("BeginTime", alarm.BeginTime);
    text("EndTime", alarm.EndTime);
    text("ConfirmMessage", alarm.ConfirmMessage);
    text("ConfirmTime", alarm.ConfirmTime);
    number("ConfirmState", alarm.ConfirmState);
    number("HaveRecord", alarm.HaveRecord);
    number("HaveSnapshot", alarm.HaveSnapshot);
    return alarm;
}

// A page without hits has no AlarmInfos, and does not say how many hits there are.
inline AlarmPage readAlarmPage(TiXmlDocument* document) {
    AlarmPage page;
    TiXmlElement* const response = childOf(childOf(document, "servercommandservice"), "response");
    TiXmlElement* const infos = childOf(response, "AlarmInfos");
    if (!infos) return page;
    int count = 0;
    veltoprotocol::GetIntValueAtt(infos, "AlarmInfos", "SearchCount", &page.searchCount);
    veltoprotocol::GetIntValueAtt(infos, "AlarmInfos", "CurCount", &count);
    for (TiXmlElement* alarm = infos->FirstChildElement("AlarmData"); alarm;
         alarm = alarm->NextSiblingElement("AlarmData"))
        page.alarms.push_back(readPastAlarm(alarm));
    if (count < 0 || static_cast<std::size_t>(count) != page.alarms.size())
        throw std::runtime_error("a page with another number of alarms than it says");
    return page;
}

} // namespace example

#endif
