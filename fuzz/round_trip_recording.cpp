#include "fuzz/round_trip.h"

using namespace veltoprotocol;

namespace {

using Storage = __tagVtStorageInfo;
Trip<Storage> storage(Draw& draw) {
    Trip<Storage> trip(draw);
    trip.carry(Carrier::elements, &Storage::ChannelGuid, &Storage::DatabasePath, &Storage::ArchivePath,
               &Storage::PathNonUNC, &Storage::DBRepairStrategy, &Storage::ArchiveDb,
               &Storage::ArchiveWhenDBFull, &Storage::ArchiveMaxAge, &Storage::DbSaveMode,
               &Storage::EnableDbPreSecs, &Storage::EnableDbPostSecs, &Storage::DbPreSecs,
               &Storage::DbPostSecs, &Storage::AdminDbPreSecs, &Storage::AdminDbPostSecs,
               &Storage::DbLimitType, &Storage::DbLimitCount, &Storage::SaveOnEvent, &Storage::SaveOnMotion,
               &Storage::SaveStartEvent, &Storage::SaveStopEvent, &Storage::Schedules,
               &Storage::ManualRecordSecs, &Storage::VideoStreamType);
    return trip;
}

void storages(Draw& draw) {
    const auto trips = severalTrips<Storage>(draw, storage);
    const auto sent = sentOf(trips);
    for (const auto encode : {GetAddStorageReqEncode, GetUpdateStorageReqEncode}) {
        const Arrived request([&](char* out, int size) {
            return encode(sent.data(), static_cast<int>(sent.size()), "h", 1, out, size);
        });
        requireBack("a storage", request.all({"Storage", "Channels"}), trips, GetStorageParamDecode);
    }
    requireBackAlone("a storage alone", trips.front(), GetStorageParamEncode, GetStorageParamDecode);
}

using Schedule = __tagVtSchedulesInfo;
void schedules(Draw& draw) {
    const auto trips = severalTrips<Schedule>(draw, [](Draw& from) {
        Trip<Schedule> trip(from);
        trip.carry(Carrier::attributes, &Schedule::Guid, &Schedule::Name, &Schedule::Schedules,
                   &Schedule::SchedulesType);
        return trip;
    });
    const auto sent = sentOf(trips);
    const Arrived request([&](char* out, int size) {
        return GetSetSchedulesReqEncode(VtDeviceReqAdd, sent.data(), static_cast<int>(sent.size()), "h", 1,
                                        out, size);
    });
    requireBack("a schedule", request.all({"schedules", "schedule"}), trips, GetScheduleParamDecode);
    requireBackAlone("a schedule alone", trips.front(), GeScheduleParamEncode, GetScheduleParamDecode);
}

using Archive = __tagVtArchiveinfo;
void archives(Draw& draw) {
    const auto trips = severalTrips<Archive>(draw, [](Draw& from) {
        Trip<Archive> trip(from);
        trip.carry(Carrier::attributes, &Archive::Guid, &Archive::ArchiveTime);
        return trip;
    });
    const auto sent = sentOf(trips);
    for (const auto encode : {GetAddArchiveReqEncode, GetUpdateArchiveReqEncode}) {
        const Arrived request([&](char* out, int size) {
            return encode(sent.data(), static_cast<int>(sent.size()), "h", 1, out, size);
        });
        requireBack("an archive", request.all({"Archives", "Archive"}), trips, GetArchiveParamDecode);
    }
}

} // namespace

std::vector<RoundTrip> recordingTrips() {
    return {{"AddStorage", storages}, {"SetSchedulesInfo", schedules}, {"AddArchiveInfo", archives}};
}
