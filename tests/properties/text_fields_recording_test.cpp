// Each writer stops at a text field's width, also in the records that configure recording.
#include "properties/full_records.h"
#include "properties/sent_fields.h"

namespace {

using namespace veltoprotocol;

const Carried ofStorage = {Carried::byElements,
                           {{"ChannelGuid", 48},
                            {"DatabasePath", 256},
                            {"DatabasePathNonUNC", 256},
                            {"ArchivePath", 256},
                            {"ArchivePathNonUNC", 256},
                            {"SaveStartEvent", 48},
                            {"SaveStopEvent", 48},
                            {"Schedules", 2048}},
                           {"DBRepairStrategy", "ArchiveDb", "ArchiveWhenDBFull", "ArchiveMaxAge",
                            "DbSaveMode", "DbPreSecs", "DbPostSecs", "AdminDbPreSecs", "AdminDbPostSecs",
                            "DbLimitType", "DbLimitCount", "ManualRecordSecs", "VideoStreamType"}};
const Carried ofSchedule = {
    Carried::byAttributes, {{"Guid", 48}, {"Name", 64}, {"Schedules", 2048}}, {"SchedulesType"}};
const Carried ofChosenSchedule = {
    Carried::byElements, {{"ChannelGuid", 48}, {"ScheduleGuid", 48}, {"Name", 64}, {"Schedule", 2048}}, {}};
const Carried ofChannel = {Carried::byElements, {{"ChannelGuid", 48}}, {}};
const Carried ofArchive = {Carried::byAttributes, {{"Guid", 48}, {"ArchiveTime", 16}}, {}};

void setFlags(__tagVtStorageInfo& storage) {
    storage.EnableDbPreSecs = storage.EnableDbPostSecs = true;
    storage.SaveOnEvent = storage.SaveOnMotion = true;
}

// The parsed body of what an encoder sends of a full array.
template <class Record, class Encode>
Document sent(FullRecords<Record>& full, const Encode& encode, int count) {
    const Record* const records = full.records();
    return parsed(bodyOf(
        encoded([&](char* out, int size) { return encode(records, count, "h", 1u, out, size); }).bytes));
}

TEST(TextFields, EndAtTheirWidthInARecordingsElement) {
    FullRecords<__tagVtStorageInfo> storage;
    setFlags(*storage.records());
    TiXmlElement element("Channels");
    EXPECT_EQ(GetStorageParamEncode(&element, storage.records()), 0);
    expectFull(&element, ofStorage);
    expectFull(GeScheduleParamEncode, ofSchedule);
}

TEST(TextFields, EndAtTheirWidthInStorageSettings) {
    FullRecords<__tagVtStorageInfo> storages(2);
    for (int i = 0; i < 2; ++i) setFlags(storages.records()[i]);
    const struct {
        decltype(&GetAddStorageReqEncode) send;
        const Carried& carried;
    } requests[] = {{GetAddStorageReqEncode, ofStorage},
                    {GetUpdateStorageReqEncode, ofStorage},
                    {GetDeleteStorageReqEncode, ofChannel}};
    for (const auto& request : requests) {
        const Document doc = sent(storages, request.send, 2);
        forEach(doc->RootElement()->FirstChildElement("request")->FirstChildElement("Storage"), "Channels", 2,
                [&](const TiXmlElement* at) { expectFull(at, request.carried); });
    }
}

TEST(TextFields, EndAtTheirWidthInTheSchedulesOfAChannel) {
    FullRecords<__tagVtChannelScheduleInfo> one;
    for (const auto send : {GetAddScheduleReqEncode, GetUpdateScheduleReqEncode}) {
        const Document doc = sent(one, send, 3);
        forEach(doc->RootElement()->FirstChildElement("request"), "Schedules", 3, [](const TiXmlElement* at) {
            for (const char* name : {"Online", "Speedup"}) {
                expectFull(at->FirstChildElement(name), ofChosenSchedule);
                EXPECT_STREQ(at->FirstChildElement(name)->Attribute("Type"), "2021161080");
            }
        });
    }
    FullRecords<__tagVtChannelScheduleInfo> two(2);
    const Document doc = sent(two, GetDeleteScheduleReqEncode, 2);
    forEach(doc->RootElement()->FirstChildElement("request"), "Schedules", 2,
            [](const TiXmlElement* at) { expectFull(at, ofChannel); });
}

TEST(TextFields, EndAtTheirWidthInNamedSchedules) {
    FullRecords<__tagVtSchedulesInfo> schedules(2);
    const auto send = [](auto... arguments) {
        return GetSetSchedulesReqEncode(VtDeviceReqAdd, arguments...);
    };
    const Document doc = sent(schedules, send, 2);
    forEach(doc->RootElement()->FirstChildElement("request")->FirstChildElement("schedules"), "schedule", 2,
            [](const TiXmlElement* at) { expectFull(at, ofSchedule); });
}

TEST(TextFields, EndAtTheirWidthInArchives) {
    FullRecords<__tagVtArchiveinfo> archives(2);
    for (const auto send : {GetAddArchiveReqEncode, GetUpdateArchiveReqEncode, GetDeleteArchiveReqEncode}) {
        const Document doc = sent(archives, send, 2);
        forEach(doc->RootElement()->FirstChildElement("request"), "Archives", 2,
                [](const TiXmlElement* at) { expectFull(at->FirstChildElement("Archive"), ofArchive); });
    }
}

} // namespace
