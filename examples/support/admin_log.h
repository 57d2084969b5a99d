// What the example server keeps, for people: a few words to each record.
#ifndef EXAMPLES_ADMIN_LOG_H
#define EXAMPLES_ADMIN_LOG_H

#include "support/text_fields.h"

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <initializer_list>
#include <string>

namespace example {

inline std::string numbers(std::initializer_list<int> values) {
    std::string list;
    for (const int value : values) list += (list.empty() ? "" : " ") + std::to_string(value);
    return list;
}

// The beginning of a text that may be long, in quotes.
template <std::size_t Width>
std::string excerpt(const char (&field)[Width]) {
    const std::string whole = text(field);
    char start[40] = {};
    fill(start, whole);
    if (text(start) == whole) return "'" + whole + "'";
    return "'" + text(start) + " ...' of " + std::to_string(whole.size()) + " bytes";
}

inline std::string describe(const veltoprotocol::__tagVtDeviceParam& device) {
    return text(device.DisplayName) + " at " + excerpt(device.IPAddress);
}

inline std::string describe(const veltoprotocol::__tagVtServerInfo& server) {
    return text(server.DisplayName) + " at " + text(server.PrivateAddress) + ":" +
           std::to_string(server.PrivatePort);
}

// The numbers in the order of the record.
inline std::string describe(const veltoprotocol::__tagVtStorageInfo& storage) {
    return text(storage.DatabasePath) + ", " + text(storage.ArchivePath) + ", " + text(storage.PathNonUNC) +
           ", " +
           numbers({storage.DBRepairStrategy, storage.ArchiveDb, storage.ArchiveWhenDBFull,
                    storage.ArchiveMaxAge, storage.DbSaveMode, storage.EnableDbPreSecs,
                    storage.EnableDbPostSecs, storage.DbPreSecs, storage.DbPostSecs, storage.AdminDbPreSecs,
                    storage.AdminDbPostSecs, storage.DbLimitType, storage.DbLimitCount, storage.SaveOnEvent,
                    storage.SaveOnMotion, storage.ManualRecordSecs, storage.VideoStreamType}) +
           ", from " + text(storage.SaveStartEvent) + " to " + text(storage.SaveStopEvent) + ", " +
           excerpt(storage.Schedules);
}

inline std::string describe(const veltoprotocol::__tagVtSchedulesInfo& schedule) {
    return text(schedule.Name) + ", type " + std::to_string(schedule.SchedulesType) + ", " +
           excerpt(schedule.Schedules);
}

// The types of the two schedules are not carried; the channel has types of its own for them.
inline std::string describe(const veltoprotocol::__tagVtChannelScheduleInfo& schedules) {
    const auto one = [](int type, const veltoprotocol::__tagVtSchedulesInfo& schedule) {
        return std::to_string(type) + " " + text(schedule.Guid) + " " + text(schedule.Name) + " " +
               excerpt(schedule.Schedules);
    };
    return "online " + one(schedules.OnlineType, schedules.Online) + ", speedup " +
           one(schedules.SpeedupType, schedules.Speedup);
}

inline std::string describe(const veltoprotocol::__tagVtArchiveinfo& archive) {
    return "at " + text(archive.ArchiveTime);
}

} // namespace example

#endif
