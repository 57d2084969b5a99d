// Storage settings as they lie in memory, and read back.
#include "support/child_fields.h"
#include "support/received.h"

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

namespace {

using namespace veltoprotocol;

using Storage = __tagVtStorageInfo;

TEST(StorageRecord, LiesInMemoryInTheOrderGiven) {
    EXPECT_TRUE(std::is_standard_layout_v<Storage>);
    EXPECT_TRUE(std::is_trivially_copyable_v<Storage>);
    EXPECT_EQ(offsetof(Storage, ChannelGuid), 0u);
    EXPECT_EQ(offsetof(Storage, DatabasePath), 48u);
    EXPECT_EQ(offsetof(Storage, reserved), 304u);
    EXPECT_EQ(offsetof(Storage, ArchivePath), 560u);
    EXPECT_EQ(offsetof(Storage, PathNonUNC), 816u);
    EXPECT_EQ(offsetof(Storage, DBRepairStrategy), 1072u);
    EXPECT_EQ(offsetof(Storage, ArchiveDb), 1076u);
    EXPECT_EQ(offsetof(Storage, ArchiveWhenDBFull), 1080u);
    EXPECT_EQ(offsetof(Storage, ArchiveMaxAge), 1084u);
    EXPECT_EQ(offsetof(Storage, DbSaveMode), 1088u);
    EXPECT_EQ(offsetof(Storage, EnableDbPreSecs), 1092u);
    EXPECT_EQ(offsetof(Storage, EnableDbPostSecs), 1093u);
    EXPECT_EQ(offsetof(Storage, DbPreSecs), 1096u);
    EXPECT_EQ(offsetof(Storage, DbPostSecs), 1100u);
    EXPECT_EQ(offsetof(Storage, AdminDbPreSecs), 1104u);
    EXPECT_EQ(offsetof(Storage, AdminDbPostSecs), 1108u);
    EXPECT_EQ(offsetof(Storage, DbLimitType), 1112u);
    EXPECT_EQ(offsetof(Storage, DbLimitCount), 1116u);
    EXPECT_EQ(offsetof(Storage, SaveOnEvent), 1120u);
    EXPECT_EQ(offsetof(Storage, SaveOnMotion), 1121u);
    EXPECT_EQ(offsetof(Storage, SaveStartEvent), 1122u);
    EXPECT_EQ(offsetof(Storage, SaveStopEvent), 1170u);
    EXPECT_EQ(offsetof(Storage, reserved2), 1218u);
    EXPECT_EQ(offsetof(Storage, Schedules), 1332u);
    EXPECT_EQ(offsetof(Storage, reserved3), 3380u);
    EXPECT_EQ(offsetof(Storage, ManualRecordSecs), 3384u);
    EXPECT_EQ(offsetof(Storage, VideoStreamType), 3388u);
    EXPECT_EQ(offsetof(Storage, reserved4), 3392u);
    EXPECT_EQ(sizeof(Storage), 3408u);
}

// A child of Channels, a value of its, and what that leaves in the record.
struct Child {
    const char* name;
    std::size_t offset;
    std::string value;
    std::string bytes;

    static Child text(const char* name, std::size_t offset, std::size_t width) {
        return {name, offset, std::string(width, 'x'), std::string(width, 'x')};
    }
    static Child number(const char* name, std::size_t offset, int value) {
        return {name, offset, std::to_string(value),
                std::string(reinterpret_cast<const char*>(&value), sizeof value)};
    }
    static Child flag(const char* name, std::size_t offset) { return {name, offset, "-2", "\1"}; }
    bool isText() const { return value == bytes; }
};

// In the order in which they are read.
const Child children[] = {Child::text("ChannelGuid", 0, 48),
                          Child::text("DatabasePath", 48, 256),
                          Child::text("DatabasePathNonUNC", 816, 256),
                          Child::text("ArchivePath", 560, 256),
                          Child::text("ArchivePathNonUNC", 816, 256),
                          Child::number("DBRepairStrategy", 1072, 1),
                          Child::number("ArchiveDb", 1076, -2),
                          Child::number("ArchiveWhenDBFull", 1080, 3),
                          Child::number("ArchiveMaxAge", 1084, 2147483647),
                          Child::number("DbSaveMode", 1088, -2147483647 - 1),
                          Child::flag("EnableDbPreSecs", 1092),
                          Child::flag("EnableDbPostSecs", 1093),
                          Child::number("DbPreSecs", 1096, 6),
                          Child::number("DbPostSecs", 1100, 7),
                          Child::number("AdminDbPreSecs", 1104, 8),
                          Child::number("AdminDbPostSecs", 1108, 9),
                          Child::number("DbLimitType", 1112, 10),
                          Child::number("DbLimitCount", 1116, 11),
                          Child::flag("SaveOnEvent", 1120),
                          Child::flag("SaveOnMotion", 1121),
                          Child::text("SaveStartEvent", 1122, 48),
                          Child::text("SaveStopEvent", 1170, 48),
                          Child::text("Schedules", 1332, 2048),
                          Child::number("ManualRecordSecs", 3384, 12),
                          Child::number("VideoStreamType", 3388, -13)};

// The line of each child but this one, which has one of its own or none.
std::string othersMissing(const Child* there, const std::string& ownLine = "") {
    std::string lines;
    for (const Child& child : children)
        lines += &child == there ? ownLine : missingChild("Storage", child.name);
    return lines;
}

std::string tagged(const std::string& name, const std::string& value) {
    return "<" + name + ">" + value + "</" + name + ">";
}
auto read(const std::string& inside) { return readBack(tagged("Channels", inside), GetStorageParamDecode); }

TEST(GetStorageParamDecode, ReadsEachChild) {
    for (const Child& child : children) {
        SCOPED_TRACE(child.name);
        const auto got = read(tagged(child.name, child.value));
        Storage want = Storage();
        std::memcpy(reinterpret_cast<char*>(&want) + child.offset, child.bytes.data(), child.bytes.size());
        EXPECT_TRUE(sameBytes(got.record, want));
        EXPECT_EQ(got.error, 0);
        EXPECT_EQ(got.printed, othersMissing(&child));
    }
}

TEST(GetStorageParamDecode, DropsATextThatIsLongerThanItsField) {
    for (const Child& child : children) {
        if (!child.isText()) continue;
        SCOPED_TRACE(child.name);
        const auto got = read(tagged(child.name, child.value + "x"));
        EXPECT_TRUE(sameBytes(got.record, Storage()));
        EXPECT_EQ(got.error, 0);
        EXPECT_EQ(got.printed, othersMissing(&child, "xml file -..-Storage-" + std::string(child.name) +
                                                         " element too long!\n"));
    }
}

TEST(GetStorageParamDecode, OfAnElementWithoutChildrenIsZero) {
    const auto got = readBack("<Channels />", GetStorageParamDecode);
    EXPECT_TRUE(sameBytes(got.record, Storage()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, othersMissing(nullptr));
}

TEST(GetStorageParamDecode, RefusesANullElement) { expectRefusesANullElement(GetStorageParamDecode); }

TEST(GetStorageParamDecode, TakesFlagsAsNumbers) {
    const auto flag = [](const std::string& text) {
        const auto got = read(tagged("SaveOnEvent", text));
        return got.record.SaveOnEvent;
    };
    EXPECT_FALSE(flag("0"));
    EXPECT_FALSE(flag("true"));
    EXPECT_TRUE(flag("1"));
    EXPECT_TRUE(flag("")); // an element without text is -1
    EXPECT_EQ(read("<DbPreSecs />").record.DbPreSecs, -1);
}

// The field that serves both paths, to its last byte.
std::string pathOf(const std::string& inside) {
    const auto got = read(inside);
    EXPECT_EQ(got.error, 0);
    return std::string(got.record.PathNonUNC, 256);
}
std::string padded(const std::string& text) { return text + std::string(256 - text.size(), '\0'); }
std::string database(const std::string& path) { return tagged("DatabasePathNonUNC", path); }
std::string archive(const std::string& path) { return tagged("ArchivePathNonUNC", path); }

TEST(GetStorageParamDecode, PrefersThePathOfTheArchive) {
    EXPECT_EQ(pathOf(database("D:\\db") + archive("E:\\archive")), padded("E:\\archive"));
    EXPECT_EQ(pathOf(archive("E:\\archive") + database("D:\\db")), padded("E:\\archive"));
    EXPECT_EQ(pathOf(archive("E:\\archive")), padded("E:\\archive"));
    EXPECT_EQ(pathOf(database("D:\\db")), padded("D:\\db"));
}

TEST(GetStorageParamDecode, LeavesNothingOfALongerPathOfTheDatabase) {
    EXPECT_EQ(pathOf(database("D:\\database") + archive("E:")), padded("E:"));
    EXPECT_EQ(pathOf(database(std::string(256, 'd')) + archive("E:")), padded("E:"));
    EXPECT_EQ(pathOf(database("D:\\db") + archive(std::string(256, 'e'))), std::string(256, 'e'));
    EXPECT_EQ(pathOf(database("D:\\db") + "<ArchivePathNonUNC />"), padded(""));
    EXPECT_EQ(pathOf(database("D:\\db") + archive("")), padded(""));
}

TEST(GetStorageParamDecode, KeepsThePathOfTheDatabaseIfThatOfTheArchiveIsTooLong) {
    const auto got = read(database("D:\\db") + archive(std::string(257, 'e')));
    EXPECT_EQ(std::string(got.record.PathNonUNC, 256), padded("D:\\db"));
    EXPECT_EQ(got.error, 0);
    EXPECT_NE(got.printed.find("xml file -..-Storage-ArchivePath element not find!\n"
                               "xml file -..-Storage-ArchivePathNonUNC element too long!\n"
                               "xml file -..-Storage-DBRepairStrategy element not find!\n"),
              std::string::npos);
    EXPECT_EQ(pathOf(database(std::string(257, 'd')) + archive("E:")), padded("E:"));
}

// Every text as long as its field, every number another one, and noise wherever nothing is carried.
Storage sent(char first, char noise) {
    Storage storage;
    std::memset(static_cast<void*>(&storage), noise, sizeof storage);
    fill(storage.ChannelGuid, first);
    fill(storage.DatabasePath, static_cast<char>(first + 1));
    fill(storage.ArchivePath, static_cast<char>(first + 2));
    fill(storage.PathNonUNC, static_cast<char>(first + 3));
    int* const numbers[] = {&storage.DBRepairStrategy, &storage.ArchiveDb,      &storage.ArchiveWhenDBFull,
                            &storage.ArchiveMaxAge,    &storage.DbSaveMode,     &storage.DbPreSecs,
                            &storage.DbPostSecs,       &storage.AdminDbPreSecs, &storage.AdminDbPostSecs,
                            &storage.DbLimitType,      &storage.DbLimitCount,   &storage.ManualRecordSecs,
                            &storage.VideoStreamType};
    int next = -5 * first;
    for (int* number : numbers) *number = next += 70001;
    fill(storage.SaveStartEvent, static_cast<char>(first + 4));
    fill(storage.SaveStopEvent, static_cast<char>(first + 5));
    fill(storage.Schedules, static_cast<char>(first + 6));
    storage.EnableDbPreSecs = storage.EnableDbPostSecs = false;
    storage.SaveOnEvent = storage.SaveOnMotion = false;
    return storage;
}

TEST(AddStorage, ComesBackAtTheServer) {
    bool Storage::*const flags[] = {&Storage::EnableDbPreSecs, &Storage::EnableDbPostSecs,
                                    &Storage::SaveOnEvent, &Storage::SaveOnMotion};
    for (bool Storage::*const flag : flags) {
        Storage storages[] = {sent('A', '\xA7'), sent('a', '\xA7')};
        Storage want[] = {sent('A', '\0'), sent('a', '\0')};
        storages[0].*flag = want[0].*flag = true;
        const Received got(
            [&](char* out, int size) { return GetAddStorageReqEncode(storages, 2, "h", 1, out, size); });
        TiXmlElement* channel = got.child("Storage")->FirstChildElement("Channels");
        for (const Storage& wanted : want) {
            ASSERT_NE(channel, nullptr);
            Captured captured;
            int error = 7;
            const Storage back = GetStorageParamDecode(channel, &error);
            EXPECT_EQ(captured.text(), "");
            EXPECT_TRUE(sameBytes(back, wanted));
            EXPECT_EQ(error, 0);
            channel = channel->NextSiblingElement("Channels");
        }
        EXPECT_EQ(channel, nullptr);
    }
}

} // namespace
