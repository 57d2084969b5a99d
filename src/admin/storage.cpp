// Where and how channels record.
#include "framing/message.h"
#include "framing/tree.h"
#include "veltoprotocol/recording.h"

#include <cstring>

namespace veltoprotocol {
namespace {

using Storage = __tagVtStorageInfo;

// All that a deletion names.
constexpr auto channelGuidField = elements("Storage", field("ChannelGuid", &Storage::ChannelGuid));

// In three lists, since the path in the middle is read in a way of its own.
// kept: one field serves both paths that are no UNC paths
constexpr auto databaseFields = elements(
    "Storage", field("ChannelGuid", &Storage::ChannelGuid), field("DatabasePath", &Storage::DatabasePath),
    field("DatabasePathNonUNC", &Storage::PathNonUNC), field("ArchivePath", &Storage::ArchivePath));
constexpr auto archivePathField = elements("Storage", field("ArchivePathNonUNC", &Storage::PathNonUNC));
constexpr auto policyFields = elements(
    "Storage", field("DBRepairStrategy", &Storage::DBRepairStrategy), field("ArchiveDb", &Storage::ArchiveDb),
    field("ArchiveWhenDBFull", &Storage::ArchiveWhenDBFull), field("ArchiveMaxAge", &Storage::ArchiveMaxAge),
    field("DbSaveMode", &Storage::DbSaveMode), field("EnableDbPreSecs", &Storage::EnableDbPreSecs),
    field("EnableDbPostSecs", &Storage::EnableDbPostSecs), field("DbPreSecs", &Storage::DbPreSecs),
    field("DbPostSecs", &Storage::DbPostSecs), field("AdminDbPreSecs", &Storage::AdminDbPreSecs),
    field("AdminDbPostSecs", &Storage::AdminDbPostSecs), field("DbLimitType", &Storage::DbLimitType),
    field("DbLimitCount", &Storage::DbLimitCount), field("SaveOnEvent", &Storage::SaveOnEvent),
    field("SaveOnMotion", &Storage::SaveOnMotion), field("SaveStartEvent", &Storage::SaveStartEvent),
    field("SaveStopEvent", &Storage::SaveStopEvent), field("Schedules", &Storage::Schedules),
    field("ManualRecordSecs", &Storage::ManualRecordSecs),
    field("VideoStreamType", &Storage::VideoStreamType));

// `channel` writes the element of an entry. No token; the count goes out as it is.
template <class Channel>
int sendStorage(const char* name, const Storage* storages, int count, const Channel& channel,
                const char* host, unsigned int seqnum, char* out, int size) {
    if (!storages) return -1;
    const auto tree = [&](auto x) {
        x.element("Storage", [&](auto list) {
            list.value("ChannelCounter", count);
            for (const auto& storage : entries(storages, count)) channel(list, storage);
        });
    };
    return Request(name, seqnum).post(managePath, host, tree, out, size);
}

} // namespace

int GetStorageParamEncode(TiXmlElement* element, const Storage* storage) {
    if (!element || !storage) return -1;
    TreeElement x(element);
    x.add(databaseFields(*storage));
    x.add(archivePathField(*storage));
    x.add(policyFields(*storage));
    return 0;
}

Storage GetStorageParamDecode(TiXmlElement* element, int* error) {
    Storage storage = readRecord(element, databaseFields, error);
    if (!element) return storage;
    // What is there replaces all of the other path, also where it is shorter.
    char path[sizeof storage.PathNonUNC] = {};
    if (GetStringValue(element, archivePathField.label, "ArchivePathNonUNC", path, sizeof path) == 0)
        std::memcpy(storage.PathNonUNC, path, sizeof path);
    readFields(element, policyFields, storage);
    return storage;
}

int GetStorageEncode(const Storage* storages, int count, const char* host, unsigned int seqnum, char* out,
                     int size, const char* name) {
    const auto channel = [](auto x, auto& storage) {
        x.element("Channels", databaseFields(storage), archivePathField(storage), policyFields(storage));
    };
    return sendStorage(name, storages, count, channel, host, seqnum, out, size);
}

int GetAddStorageReqEncode(const Storage* storages, int count, const char* host, unsigned int seqnum,
                           char* out, int size) {
    return GetStorageEncode(storages, count, host, seqnum, out, size, "AddStorage");
}

int GetUpdateStorageReqEncode(const Storage* storages, int count, const char* host, unsigned int seqnum,
                              char* out, int size) {
    return GetStorageEncode(storages, count, host, seqnum, out, size, "UpdateStorage");
}

int GetDeleteStorageReqEncode(const Storage* storages, int count, const char* host, unsigned int seqnum,
                              char* out, int size) {
    const auto channel = [](auto x, auto& storage) { x.element("Channels", channelGuidField(storage)); };
    return sendStorage("DeleteStorage", storages, count, channel, host, seqnum, out, size);
}

} // namespace veltoprotocol
