// What is sent of storage settings.
#include "admin/recording_requests.h"
#include "support/encoded.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <climits>
#include <cstring>
#include <sstream>
#include <string>

namespace {

using namespace veltoprotocol;

using Storage = __tagVtStorageInfo;

// Noise but for what is carried, so that reserved areas and what stands behind a text's NUL would be seen.
Storage settings() {
    Storage storage;
    std::memset(static_cast<void*>(&storage), 'N', sizeof storage);
    std::strcpy(storage.ChannelGuid, "ch-1");
    std::strcpy(storage.DatabasePath, "\\\\nas\\db & <new>");
    std::strcpy(storage.ArchivePath, "\\\\nas\\\"old\"");
    std::strcpy(storage.PathNonUNC, "D:\\it's");
    storage.DBRepairStrategy = 1;
    storage.ArchiveDb = -2;
    storage.ArchiveWhenDBFull = 3;
    storage.ArchiveMaxAge = INT_MAX;
    storage.DbSaveMode = INT_MIN;
    storage.EnableDbPreSecs = true;
    storage.EnableDbPostSecs = false;
    storage.DbPreSecs = 6;
    storage.DbPostSecs = 7;
    storage.AdminDbPreSecs = 8;
    storage.AdminDbPostSecs = 9;
    storage.DbLimitType = 10;
    storage.DbLimitCount = 11;
    storage.SaveOnEvent = false;
    storage.SaveOnMotion = true;
    std::strcpy(storage.SaveStartEvent, "start");
    std::strcpy(storage.SaveStopEvent, "stop");
    std::strcpy(storage.Schedules, "mo-fr  8");
    storage.ManualRecordSecs = 12;
    storage.VideoStreamType = -13;
    return storage;
}

// All the same of another channel, whose other values are zero.
Storage nothingSet() {
    Storage storage = Storage();
    std::memset(storage.reserved, 'N', sizeof storage.reserved);
    std::strcpy(storage.ChannelGuid, "ch-2");
    return storage;
}

const std::string ofSettings = R"(            <Channels>
                <ChannelGuid>ch-1</ChannelGuid>
                <DatabasePath>\\nas\db &amp; &lt;new&gt;</DatabasePath>
                <DatabasePathNonUNC>D:\it&apos;s</DatabasePathNonUNC>
                <ArchivePath>\\nas\&quot;old&quot;</ArchivePath>
                <ArchivePathNonUNC>D:\it&apos;s</ArchivePathNonUNC>
                <DBRepairStrategy>1</DBRepairStrategy>
                <ArchiveDb>-2</ArchiveDb>
                <ArchiveWhenDBFull>3</ArchiveWhenDBFull>
                <ArchiveMaxAge>2147483647</ArchiveMaxAge>
                <DbSaveMode>-2147483648</DbSaveMode>
                <EnableDbPreSecs>1</EnableDbPreSecs>
                <EnableDbPostSecs>0</EnableDbPostSecs>
                <DbPreSecs>6</DbPreSecs>
                <DbPostSecs>7</DbPostSecs>
                <AdminDbPreSecs>8</AdminDbPreSecs>
                <AdminDbPostSecs>9</AdminDbPostSecs>
                <DbLimitType>10</DbLimitType>
                <DbLimitCount>11</DbLimitCount>
                <SaveOnEvent>0</SaveOnEvent>
                <SaveOnMotion>1</SaveOnMotion>
                <SaveStartEvent>start</SaveStartEvent>
                <SaveStopEvent>stop</SaveStopEvent>
                <Schedules>mo-fr  8</Schedules>
                <ManualRecordSecs>12</ManualRecordSecs>
                <VideoStreamType>-13</VideoStreamType>
            </Channels>
)";
const std::string ofNothingSet = R"(            <Channels>
                <ChannelGuid>ch-2</ChannelGuid>
                <DatabasePath></DatabasePath>
                <DatabasePathNonUNC></DatabasePathNonUNC>
                <ArchivePath></ArchivePath>
                <ArchivePathNonUNC></ArchivePathNonUNC>
                <DBRepairStrategy>0</DBRepairStrategy>
                <ArchiveDb>0</ArchiveDb>
                <ArchiveWhenDBFull>0</ArchiveWhenDBFull>
                <ArchiveMaxAge>0</ArchiveMaxAge>
                <DbSaveMode>0</DbSaveMode>
                <EnableDbPreSecs>0</EnableDbPreSecs>
                <EnableDbPostSecs>0</EnableDbPostSecs>
                <DbPreSecs>0</DbPreSecs>
                <DbPostSecs>0</DbPostSecs>
                <AdminDbPreSecs>0</AdminDbPreSecs>
                <AdminDbPostSecs>0</AdminDbPostSecs>
                <DbLimitType>0</DbLimitType>
                <DbLimitCount>0</DbLimitCount>
                <SaveOnEvent>0</SaveOnEvent>
                <SaveOnMotion>0</SaveOnMotion>
                <SaveStartEvent></SaveStartEvent>
                <SaveStopEvent></SaveStopEvent>
                <Schedules></Schedules>
                <ManualRecordSecs>0</ManualRecordSecs>
                <VideoStreamType>0</VideoStreamType>
            </Channels>
)";

// What a Storage element with this counter holds.
std::string storageElement(const std::string& counter, const std::string& channels) {
    return "        <Storage>\n            <ChannelCounter>" + counter + "</ChannelCounter>\n" + channels +
           "        </Storage>\n";
}

const Storage two[] = {settings(), nothingSet()};

TEST(GetAddStorageReqEncode, SendsEachRecord) {
    const Encoded got = encoded([](char* out, int size) {
        return GetAddStorageReqEncode(two, 2, "10.0.0.1", 4294967295u, out, size);
    });
    EXPECT_EQ(got.bytes, wire(manageHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <request name="AddStorage">
        <Storage>
            <ChannelCounter>2</ChannelCounter>
)" + ofSettings + ofNothingSet +
                              R"(        </Storage>
    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetUpdateStorageReqEncode, SendsTheSameUnderItsOwnName) {
    const Encoded got = encoded(
        [](char* out, int size) { return GetUpdateStorageReqEncode(two, 2, "10.0.0.1", 7, out, size); });
    EXPECT_EQ(got.bytes,
              requestWire(" name=\"UpdateStorage\"", storageElement("2", ofSettings + ofNothingSet)));
    EXPECT_EQ(got.printed, "");
}

TEST(GetDeleteStorageReqEncode, SendsTheChannelsAlone) {
    const Encoded got = encoded([](char* out, int size) {
        return GetDeleteStorageReqEncode(two, 2, "10.0.0.1", 4294967295u, out, size);
    });
    EXPECT_EQ(got.bytes, wire(manageHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <request name="DeleteStorage">
        <Storage>
            <ChannelCounter>2</ChannelCounter>
            <Channels>
                <ChannelGuid>ch-1</ChannelGuid>
            </Channels>
            <Channels>
                <ChannelGuid>ch-2</ChannelGuid>
            </Channels>
        </Storage>
    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

Encoded storageRequest(const Storage* storages, int count, const char* host, const char* name) {
    return encoded(
        [&](char* out, int size) { return GetStorageEncode(storages, count, host, 7, out, size, name); });
}

TEST(GetStorageEncode, TakesAnyName) {
    const std::string inside = storageElement("1", ofNothingSet);
    EXPECT_EQ(storageRequest(two + 1, 1, "10.0.0.1", "<any>").bytes,
              requestWire(" name=\"&lt;any&gt;\"", inside));
    EXPECT_EQ(storageRequest(two + 1, 1, "10.0.0.1", "").bytes, requestWire(" name=\"\"", inside));
    const Encoded unnamed = storageRequest(two + 1, 1, "10.0.0.1", nullptr);
    EXPECT_EQ(unnamed.bytes, requestWire("", inside));
    EXPECT_EQ(unnamed.printed, "");
}

using Send = int (*)(const Storage*, int, const char*, unsigned int, char*, int);
const struct {
    const char* name;
    Send send;
} requests[] = {{"AddStorage", GetAddStorageReqEncode},
                {"UpdateStorage", GetUpdateStorageReqEncode},
                {"DeleteStorage", GetDeleteStorageReqEncode}};

TEST(StorageRequests, CountAsTheyAreTold) {
    for (const auto& request : requests)
        for (const int count : {0, -1, INT_MIN}) {
            const Encoded got = encoded(
                [&](char* out, int size) { return request.send(two, count, "10.0.0.1", 7, out, size); });
            EXPECT_EQ(got.bytes, requestWire(" name=\"" + std::string(request.name) + "\"",
                                             storageElement(std::to_string(count), "")));
        }
}

TEST(StorageRequests, AreRefusedWithoutAnArray) {
    for (const auto& request : requests)
        for (const int count : {1, 0, -1})
            EXPECT_EQ(encoded([&](char* out, int size) {
                          return request.send(nullptr, count, "h", 7, out, size);
                      }).returned,
                      -1);
    EXPECT_EQ(storageRequest(nullptr, 0, "h", "AddStorage").returned, -1);
}

TEST(StorageRequests, LetNoHostAddALineToTheHead) {
    for (const auto& request : requests)
        expectChecksItsHost(
            [&](const char* host, char* out, int size) { return request.send(two, 2, host, 7, out, size); });
}

TEST(GetStorageParamEncode, AppendsItsChildrenInTheirOrder) {
    TiXmlElement element("Channels");
    element.SetAttribute("before", 1);
    EXPECT_EQ(GetStorageParamEncode(&element, &two[0]), 0);
    EXPECT_EQ(GetStorageParamEncode(&element, &two[1]), 0);
    TiXmlPrinter printer;
    element.Accept(&printer);
    std::string want = "<Channels before=\"1\">\n";
    std::istringstream lines(ofSettings + ofNothingSet);
    for (std::string line; std::getline(lines, line);) // not so deep, and without the tags of each Channels
        if (line[16] == '<') want += line.substr(12) + '\n';
    EXPECT_EQ(printer.CStr(), want + "</Channels>\n");
}

TEST(GetStorageParamEncode, RefusesNullArguments) {
    TiXmlElement element("Channels");
    EXPECT_EQ(GetStorageParamEncode(nullptr, &two[0]), -1);
    EXPECT_EQ(GetStorageParamEncode(&element, nullptr), -1);
    EXPECT_EQ(GetStorageParamEncode(nullptr, nullptr), -1);
    EXPECT_TRUE(element.NoChildren());
}

} // namespace
