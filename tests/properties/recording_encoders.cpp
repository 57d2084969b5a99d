#include "properties/encoder_calls.h"

namespace veltoprotocol {
namespace {

__tagVtStorageInfo drawnStorage(Draw& draw) {
    auto storage = draw.noise<__tagVtStorageInfo>();
    draw.fill(storage.ChannelGuid, storage.DatabasePath, storage.ArchivePath, storage.PathNonUNC,
              storage.DBRepairStrategy, storage.ArchiveDb, storage.ArchiveWhenDBFull, storage.ArchiveMaxAge,
              storage.DbSaveMode, storage.EnableDbPreSecs, storage.EnableDbPostSecs, storage.DbPreSecs,
              storage.DbPostSecs, storage.AdminDbPreSecs, storage.AdminDbPostSecs, storage.DbLimitType,
              storage.DbLimitCount, storage.SaveOnEvent, storage.SaveOnMotion, storage.SaveStartEvent,
              storage.SaveStopEvent, storage.Schedules, storage.ManualRecordSecs, storage.VideoStreamType);
    return storage;
}

__tagVtSchedulesInfo drawnSchedule(Draw& draw) {
    auto schedule = draw.noise<__tagVtSchedulesInfo>();
    draw.fill(schedule.Guid, schedule.Name, schedule.Schedules, schedule.SchedulesType);
    return schedule;
}

__tagVtChannelScheduleInfo drawnChannelSchedule(Draw& draw) {
    auto channel = draw.noise<__tagVtChannelScheduleInfo>();
    draw.fill(channel.ChannelGuid, channel.OnlineType, channel.SpeedupType);
    channel.Online = drawnSchedule(draw);
    channel.Speedup = drawnSchedule(draw);
    return channel;
}

__tagVtArchiveinfo drawnArchive(Draw& draw) {
    auto archive = draw.noise<__tagVtArchiveinfo>();
    draw.fill(archive.Guid, archive.ArchiveTime);
    return archive;
}

struct RecordingArguments : Arguments {
    Array<__tagVtStorageInfo> storages = draw.array(drawnStorage, 1, 1);
    __tagVtStorageInfo storage = drawnStorage(draw);
    Array<__tagVtChannelScheduleInfo> channels = draw.array(drawnChannelSchedule, 1, 1);
    Array<__tagVtSchedulesInfo> schedules = draw.array(drawnSchedule, 1, 1);
    __tagVtSchedulesInfo schedule = drawnSchedule(draw);
    __enumVtDeviceReqType reqType = static_cast<__enumVtDeviceReqType>(draw.number<int>());
    Array<__tagVtArchiveinfo> archives = draw.array(drawnArchive, 1);

    using Arguments::Arguments;
};

} // namespace

void visitRecording(unsigned seed, Texts texts, const Visit& visit) {
    const RecordingArguments a(seed, texts);
    const auto& storages = a.storages;
    const auto& channels = a.channels;
    const auto& archives = a.archives;
    REQUEST(GetStorageEncode, storages.data(), storages.count, a.host, a.seqnum, out, size, a.name);
    REQUEST(GetAddStorageReqEncode, storages.data(), storages.count, a.host, a.seqnum, out, size);
    REQUEST(GetUpdateStorageReqEncode, storages.data(), storages.count, a.host, a.seqnum, out, size);
    REQUEST(GetDeleteStorageReqEncode, storages.data(), storages.count, a.host, a.seqnum, out, size);
    RESPONSE(GetAddStorageRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetUpdateStorageRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDeleteStorageRespEncode, a.result, a.seqnum, out, size);
    ELEMENT(GetStorageParamEncode, element, a.orNull(a.storage));
    PRINTING_REQUEST(GetScheduleEncode, channels.data(), channels.count, a.host, a.seqnum, out, size, a.name);
    PRINTING_REQUEST(GetAddScheduleReqEncode, channels.data(), channels.count, a.host, a.seqnum, out, size);
    PRINTING_REQUEST(GetUpdateScheduleReqEncode, channels.data(), channels.count, a.host, a.seqnum, out,
                     size);
    REQUEST(GetDeleteScheduleReqEncode, channels.data(), channels.count, a.host, a.seqnum, out, size);
    RESPONSE(GetAddScheduleRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetUpdateScheduleRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDeleteScheduleRespEncode, a.result, a.seqnum, out, size);
    REQUEST(GetSetSchedulesReqEncode, a.reqType, a.schedules.data(), a.schedules.count, a.host, a.seqnum, out,
            size);
    ELEMENT(GeScheduleParamEncode, element, a.orNull(a.schedule));
    REQUEST(GetArchiveEncode, archives.data(), archives.count, a.host, a.seqnum, out, size, a.name);
    REQUEST(GetAddArchiveReqEncode, archives.data(), archives.count, a.host, a.seqnum, out, size);
    REQUEST(GetUpdateArchiveReqEncode, archives.data(), archives.count, a.host, a.seqnum, out, size);
    REQUEST(GetDeleteArchiveReqEncode, archives.data(), archives.count, a.host, a.seqnum, out, size);
    RESPONSE(GetAddArchiveRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetUpdateArchiveRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDeleteArchiveRespEncode, a.result, a.seqnum, out, size);
}

} // namespace veltoprotocol
