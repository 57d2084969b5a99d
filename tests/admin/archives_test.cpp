// Archives: what is sent of them, and read back.
#include "admin/recording_requests.h"
#include "support/child_fields.h"
#include "support/received.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

namespace {

using namespace veltoprotocol;

using Archive = __tagVtArchiveinfo;

TEST(ArchiveRecord, LiesInMemoryInTheOrderGiven) {
    EXPECT_TRUE(std::is_standard_layout_v<Archive>);
    EXPECT_TRUE(std::is_trivially_copyable_v<Archive>);
    EXPECT_EQ(offsetof(Archive, Guid), 0u);
    EXPECT_EQ(offsetof(Archive, ArchiveTime), 48u);
    EXPECT_EQ(sizeof(Archive), 64u);
}

// Noise behind each NUL.
Archive archive(const char* guid, const char* time) {
    Archive archive;
    std::memset(&archive, 'N', sizeof archive);
    std::strcpy(archive.Guid, guid);
    std::strcpy(archive.ArchiveTime, time);
    return archive;
}

const Archive three[] = {archive("a-1", "2024-01-31 \"8\""), archive("<a-2>", ""), archive("", "3")};

const std::string ofTheFirst = R"(        <Archives >
            <Archive  Guid="a-1" ArchiveTime='2024-01-31 &quot;8&quot;' />
        </Archives >
)";
const std::string ofTheSecond = R"(        <Archives >
            <Archive  Guid="&lt;a-2&gt;" ArchiveTime="" />
        </Archives >
)";

using Send = int (*)(const Archive*, int, const char*, unsigned int, char*, int);
const struct {
    std::string name;
    Send send;
} requests[] = {{"AddArchiveInfo", GetAddArchiveReqEncode},
                {"UpdateArchiveInfo", GetUpdateArchiveReqEncode},
                {"DeleteArchiveInfo", GetDeleteArchiveReqEncode}};

TEST(GetAddArchiveReqEncode, WrapsEachRecord) {
    const Encoded got = encoded([](char* out, int size) {
        return GetAddArchiveReqEncode(three, 3, "10.0.0.1", 4294967295u, out, size);
    });
    EXPECT_EQ(got.bytes, wire(manageHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <request name="AddArchiveInfo">
        <ArchiveCounter>3</ArchiveCounter>
)" + ofTheFirst + ofTheSecond +
                              R"(        <Archives >
            <Archive  Guid="" ArchiveTime="3" />
        </Archives >
    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

// A deletion, too, carries the whole entries.
TEST(ArchiveRequests, DifferInTheirNamesAlone) {
    for (const auto& request : requests) {
        const Encoded got =
            encoded([&](char* out, int size) { return request.send(three, 2, "10.0.0.1", 7, out, size); });
        EXPECT_EQ(got.bytes,
                  requestWire(" name=\"" + request.name + "\"",
                              "        <ArchiveCounter>2</ArchiveCounter>\n" + ofTheFirst + ofTheSecond));
        EXPECT_EQ(got.printed, "");
    }
}

Encoded archiveRequest(const Archive* archives, int count, const char* host, const char* name) {
    return encoded(
        [&](char* out, int size) { return GetArchiveEncode(archives, count, host, 7, out, size, name); });
}

TEST(GetArchiveEncode, TakesAnyName) {
    const std::string inside = "        <ArchiveCounter>1</ArchiveCounter>\n" + ofTheFirst;
    EXPECT_EQ(archiveRequest(three, 1, "10.0.0.1", "<any>").bytes,
              requestWire(" name=\"&lt;any&gt;\"", inside));
    EXPECT_EQ(archiveRequest(three, 1, "10.0.0.1", "").bytes, requestWire(" name=\"\"", inside));
    const Encoded unnamed = archiveRequest(three, 1, "10.0.0.1", nullptr);
    EXPECT_EQ(unnamed.bytes, requestWire("", inside));
    EXPECT_EQ(unnamed.printed, "");
}

TEST(ArchiveRequests, AreRefusedForAnEmptyList) {
    for (const auto& request : requests) {
        const auto sent = [&](const Archive* archives, int count) {
            return encoded(
                       [&](char* out, int size) { return request.send(archives, count, "h", 7, out, size); })
                .returned;
        };
        for (const int count : {0, -1, INT_MIN}) EXPECT_EQ(sent(three, count), -1);
        EXPECT_EQ(sent(nullptr, 1), -1);
        EXPECT_EQ(sent(nullptr, 0), -1);
    }
    EXPECT_EQ(archiveRequest(three, 0, "h", "Any").returned, -1);
}

TEST(ArchiveRequests, LetNoHostAddALineToTheHead) {
    for (const auto& request : requests)
        expectChecksItsHost([&](const char* host, char* out, int size) {
            return request.send(three, 2, host, 7, out, size);
        });
}

auto read(const std::string& attributes) {
    return readBack("<Archive  " + attributes + " />", GetArchiveParamDecode);
}

TEST(GetArchiveParamDecode, ReadsBothAttributes) {
    const auto got = read(R"(Guid="a-1" ArchiveTime="8  &amp; 9")");
    Archive want = Archive();
    std::strcpy(want.Guid, "a-1");
    std::strcpy(want.ArchiveTime, "8  & 9");
    EXPECT_TRUE(sameBytes(got.record, want));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetArchiveParamDecode, FillsAFieldToItsLastByte) {
    const auto got = read("Guid='" + std::string(48, 'g') + "' ArchiveTime='" + std::string(16, 't') + "'");
    EXPECT_EQ(std::string(got.record.Guid, 48), std::string(48, 'g'));
    EXPECT_EQ(std::string(got.record.ArchiveTime, 16), std::string(16, 't'));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetArchiveParamDecode, DropsATextThatIsLonger) {
    const auto got = read("Guid='" + std::string(49, 'g') + "' ArchiveTime='" + std::string(17, 't') + "'");
    EXPECT_TRUE(sameBytes(got.record, Archive()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-Archive(Guid) element too long!\n"
                           "xml file -..-Archive(ArchiveTime) element too long!\n");
}

TEST(GetArchiveParamDecode, NamesWhatIsMissing) {
    const auto got = read("");
    EXPECT_TRUE(sameBytes(got.record, Archive()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-Archive(Guid) element not find!\n"
                           "xml file -..-Archive(ArchiveTime) element not find!\n");
}

TEST(GetArchiveParamDecode, RefusesANullElement) { expectRefusesANullElement(GetArchiveParamDecode); }

// The blank behind the names is not part of what a reader sees.
TEST(AddArchiveInfo, ComesBackUnderNamesWithoutABlank) {
    Archive sent[2] = {};
    char first = 'a';
    for (Archive& record : sent) {
        fill(record.Guid, first++);
        fill(record.ArchiveTime, first++);
    }
    const Received got(
        [&](char* out, int size) { return GetAddArchiveReqEncode(sent, 2, "h", 1, out, size); });
    EXPECT_EQ(got.child("Archives "), nullptr);
    TiXmlElement* wrapper = got.child("Archives");
    for (const Archive& record : sent) {
        ASSERT_NE(wrapper, nullptr);
        TiXmlElement* const at = wrapper->FirstChildElement("Archive");
        ASSERT_NE(at, nullptr);
        EXPECT_EQ(at->NextSiblingElement(), nullptr);
        int error = 7;
        EXPECT_TRUE(sameBytes(GetArchiveParamDecode(at, &error), record));
        EXPECT_EQ(error, 0);
        wrapper = wrapper->NextSiblingElement();
    }
    EXPECT_EQ(wrapper, nullptr);
}

} // namespace
