// When channels record: the schedules of a channel, and the named schedules that they are chosen from.
#include "framing/message.h"
#include "framing/tree.h"
#include "veltoprotocol/recording.h"

namespace veltoprotocol {
namespace {

using ChannelSchedule = __tagVtChannelScheduleInfo;
using Schedule = __tagVtSchedulesInfo;

constexpr auto scheduleFields =
    attributes("schedule", field("Guid", &Schedule::Guid), field("Name", &Schedule::Name),
               field("Schedules", &Schedule::Schedules), field("SchedulesType", &Schedule::SchedulesType));

// A channel's schedule carries the same record by children of other names, and not its SchedulesType.
constexpr auto chosenFields =
    elements("Schedules", field("ScheduleGuid", &Schedule::Guid), field("Name", &Schedule::Name),
             field("Schedule", &Schedule::Schedules));

// No token; the count goes out as it is.
template <class Tree>
int sendSchedules(const Request& request, int count, const Tree& list, const char* host, char* out,
                  int size) {
    const auto tree = [&](auto x) {
        x.value("ScheduleCounter", count);
        list(x);
    };
    return request.post(managePath, host, tree, out, size);
}

} // namespace

int GetScheduleEncode(const ChannelSchedule* schedules, int count, const char* host, unsigned int seqnum,
                      char* out, int size, const char* name) {
    if (!schedules) return -1;
    const auto channel = [&](auto x) { x.value("ChannelGuid", schedules->ChannelGuid); };
    const auto entry = [&](auto x) {
        x.element("Online", attribute("Type", schedules->OnlineType), channel,
                  chosenFields(schedules->Online));
        x.element("Speedup", attribute("Type", schedules->SpeedupType), channel,
                  chosenFields(schedules->Speedup));
    };
    // kept: each entry is the first record, whatever the array holds
    const auto list = [&](auto x) { x.repeat("Schedules", count, entry); };
    return sendSchedules(Request(name, seqnum).printedAs(name ? name : ""), count, list, host, out, size);
}

int GetAddScheduleReqEncode(const ChannelSchedule* schedules, int count, const char* host,
                            unsigned int seqnum, char* out, int size) {
    return GetScheduleEncode(schedules, count, host, seqnum, out, size, "AddSchedule");
}

int GetUpdateScheduleReqEncode(const ChannelSchedule* schedules, int count, const char* host,
                               unsigned int seqnum, char* out, int size) {
    return GetScheduleEncode(schedules, count, host, seqnum, out, size, "UpdateSchedule");
}

int GetDeleteScheduleReqEncode(const ChannelSchedule* schedules, int count, const char* host,
                               unsigned int seqnum, char* out, int size) {
    if (!schedules) return -1;
    const auto list = [&](auto x) {
        x.list("Schedules", entries(schedules, count),
               [](auto entry, auto& schedule) { entry.value("ChannelGuid", schedule.ChannelGuid); });
    };
    return sendSchedules(Request("DeleteSchedule", seqnum), count, list, host, out, size);
}

int GetSetSchedulesReqEncode(__enumVtDeviceReqType reqType, const Schedule* schedules, int count,
                             const char* host, unsigned int seqnum, char* out, int size) {
    if (!schedules || count < 1) return -1;
    const auto tree = [&](auto x) {
        x.element("schedules", [&](auto list) {
            list.value("reqType", reqType);
            list.value("scheduleCouner", count); // kept: misspelled
            for (const auto& schedule : entries(schedules, count))
                list.element("schedule", scheduleFields(schedule));
        });
    };
    return Request("SetSchedulesInfo", seqnum).post(managePath, host, tree, out, size);
}

// kept: the name is spelled so
int GeScheduleParamEncode(TiXmlElement* element, const Schedule* schedule) {
    return writeRecord(element, scheduleFields, schedule);
}

Schedule GetScheduleParamDecode(TiXmlElement* schedule, int* error) {
    return readRecord(schedule, scheduleFields, error);
}

} // namespace veltoprotocol
