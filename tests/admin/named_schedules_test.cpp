// Named schedules: what is sent of them, and read back.
#include "admin/recording_requests.h"
#include "support/child_fields.h"
#include "support/received.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <climits>
#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

namespace {

using namespace veltoprotocol;

using Schedule = __tagVtSchedulesInfo;

TEST(ScheduleRecord, LiesInMemoryInTheOrderGiven) {
    EXPECT_TRUE(std::is_standard_layout_v<Schedule>);
    EXPECT_TRUE(std::is_trivially_copyable_v<Schedule>);
    EXPECT_EQ(offsetof(Schedule, Guid), 0u);
    EXPECT_EQ(offsetof(Schedule, Name), 48u);
    EXPECT_EQ(offsetof(Schedule, Schedules), 112u);
    EXPECT_EQ(offsetof(Schedule, SchedulesType), 2160u);
    EXPECT_EQ(sizeof(Schedule), 2164u);
}

// Noise behind each NUL.
Schedule schedule(const char* guid, const char* name, const char* text, int type) {
    Schedule schedule;
    std::memset(static_cast<void*>(&schedule), 'N', sizeof schedule);
    std::strcpy(schedule.Guid, guid);
    std::strcpy(schedule.Name, name);
    std::strcpy(schedule.Schedules, text);
    schedule.SchedulesType = type;
    return schedule;
}

const Schedule three[] = {schedule("s-1", "day & <night>", "mo  8", 4), schedule("s-2", "", "", INT_MIN),
                          schedule("s-3", "the \"third\"", "it's", 0)};

const std::string ofTheFirst =
    "            <schedule Guid=\"s-1\" Name=\"day &amp; &lt;night&gt;\" Schedules=\"mo  8\" "
    "SchedulesType=\"4\" />\n";

Encoded setRequest(int reqType, const Schedule* schedules, int count) {
    return encoded([&](char* out, int size) {
        return GetSetSchedulesReqEncode(static_cast<__enumVtDeviceReqType>(reqType), schedules, count,
                                        "10.0.0.1", 4294967295u, out, size);
    });
}

TEST(GetSetSchedulesReqEncode, SendsEachRecord) {
    const Encoded got = setRequest(VtDeviceReqUpdate, three, 3);
    EXPECT_EQ(got.bytes, wire(manageHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <request name="SetSchedulesInfo">
        <schedules>
            <reqType>2</reqType>
            <scheduleCouner>3</scheduleCouner>
)" + ofTheFirst + R"(            <schedule Guid="s-2" Name="" Schedules="" SchedulesType="-2147483648" />
            <schedule Guid="s-3" Name='the &quot;third&quot;' Schedules="it&apos;s" SchedulesType="0" />
        </schedules>
    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetSetSchedulesReqEncode, WritesAnyKindOfRequest) {
    const struct {
        int reqType;
        const char* text;
    } cases[] = {
        {VtDeviceReqGet, "0"},   {VtDeviceReqAdd, "1"}, {VtDeviceReqDelete, "3"}, {4, "4"}, {-1, "-1"},
        {INT_MIN, "-2147483648"}};
    for (const auto& c : cases)
        EXPECT_EQ(setRequest(c.reqType, three, 1).bytes, wire(manageHead +
                                                              R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <request name="SetSchedulesInfo">
        <schedules>
            <reqType>)" + c.text + R"(</reqType>
            <scheduleCouner>1</scheduleCouner>
)" + ofTheFirst + R"(        </schedules>
    </request>
</servercommandservice>
)"));
}

TEST(GetSetSchedulesReqEncode, RefusesAnEmptyList) {
    for (const int count : {0, -1, INT_MIN}) EXPECT_EQ(setRequest(1, three, count).returned, -1);
    EXPECT_EQ(setRequest(1, nullptr, 1).returned, -1);
    EXPECT_EQ(setRequest(1, nullptr, 0).returned, -1);
}

TEST(GetSetSchedulesReqEncode, LetsNoHostAddALineToTheHead) {
    expectChecksItsHost([](const char* host, char* out, int size) {
        return GetSetSchedulesReqEncode(VtDeviceReqAdd, three, 3, host, 7, out, size);
    });
}

TEST(GeScheduleParamEncode, WritesItsAttributesInTheirOrder) {
    TiXmlElement element("schedule");
    EXPECT_EQ(GeScheduleParamEncode(&element, &three[0]), 0);
    TiXmlPrinter printer;
    element.Accept(&printer);
    EXPECT_EQ(printer.CStr(), ofTheFirst.substr(ofTheFirst.find('<')));
}

TEST(GeScheduleParamEncode, RefusesNullArguments) {
    TiXmlElement element("schedule");
    EXPECT_EQ(GeScheduleParamEncode(nullptr, &three[0]), -1);
    EXPECT_EQ(GeScheduleParamEncode(&element, nullptr), -1);
    EXPECT_EQ(GeScheduleParamEncode(nullptr, nullptr), -1);
    EXPECT_EQ(element.FirstAttribute(), nullptr);
    EXPECT_TRUE(element.NoChildren());
}

TEST(GetScheduleParamDecode, ReadsEachAttribute) {
    const auto got = readBack(R"(<schedule Guid="s-1" Name="day &amp; night" Schedules="mo  8" )"
                              R"(SchedulesType="-5" />)",
                              GetScheduleParamDecode);
    Schedule want = Schedule();
    std::strcpy(want.Guid, "s-1");
    std::strcpy(want.Name, "day & night");
    std::strcpy(want.Schedules, "mo  8");
    want.SchedulesType = -5;
    EXPECT_TRUE(sameBytes(got.record, want));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

const struct {
    std::string name;
    std::size_t width, offset;
} texts[] = {{"Guid", 48, 0}, {"Name", 64, 48}, {"Schedules", 2048, 112}};

// The line of each attribute but this one, which has one of its own or none.
std::string othersMissing(const std::string& there, const std::string& ownLine = "") {
    std::string lines;
    for (const char* name : {"Guid", "Name", "Schedules", "SchedulesType"})
        lines +=
            name == there ? ownLine : "xml file -..-schedule(" + std::string(name) + ") element not find!\n";
    return lines;
}

TEST(GetScheduleParamDecode, FillsAFieldToItsLastByte) {
    for (const auto& text : texts) {
        const auto got = readBack("<schedule " + text.name + "='" + std::string(text.width, 'x') + "' />",
                                  GetScheduleParamDecode);
        Schedule want = Schedule();
        std::memset(reinterpret_cast<char*>(&want) + text.offset, 'x', text.width);
        EXPECT_TRUE(sameBytes(got.record, want));
        EXPECT_EQ(got.error, 0);
        EXPECT_EQ(got.printed, othersMissing(text.name));
    }
}

TEST(GetScheduleParamDecode, DropsATextThatIsLonger) {
    for (const auto& text : texts) {
        const auto got = readBack("<schedule " + text.name + "='" + std::string(text.width + 1, 'x') + "' />",
                                  GetScheduleParamDecode);
        EXPECT_TRUE(sameBytes(got.record, Schedule()));
        EXPECT_EQ(got.error, 0);
        EXPECT_EQ(got.printed,
                  othersMissing(text.name, "xml file -..-schedule(" + text.name + ") element too long!\n"));
    }
}

TEST(GetScheduleParamDecode, NamesWhatIsMissing) {
    const auto got = readBack("<schedule><Guid>no attribute</Guid></schedule>", GetScheduleParamDecode);
    EXPECT_TRUE(sameBytes(got.record, Schedule()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-schedule(Guid) element not find!\n"
                           "xml file -..-schedule(Name) element not find!\n"
                           "xml file -..-schedule(Schedules) element not find!\n"
                           "xml file -..-schedule(SchedulesType) element not find!\n");
}

TEST(GetScheduleParamDecode, RefusesANullElement) { expectRefusesANullElement(GetScheduleParamDecode); }

TEST(SetSchedulesInfo, ComesBackAtTheServer) {
    Schedule sent[2] = {};
    char first = 'A';
    int type = INT_MAX;
    for (Schedule& record : sent) {
        fill(record.Guid, first++);
        fill(record.Name, first++);
        fill(record.Schedules, first++);
        record.SchedulesType = type--;
    }
    const Received got([&](char* out, int size) {
        return GetSetSchedulesReqEncode(VtDeviceReqAdd, sent, 2, "h", 1, out, size);
    });
    TiXmlElement* at = got.child("schedules")->FirstChildElement("schedule");
    for (const Schedule& record : sent) {
        ASSERT_NE(at, nullptr);
        Captured captured;
        int error = 7;
        const Schedule back = GetScheduleParamDecode(at, &error);
        EXPECT_EQ(captured.text(), "");
        EXPECT_TRUE(sameBytes(back, record));
        EXPECT_EQ(error, 0);
        at = at->NextSiblingElement("schedule");
    }
    EXPECT_EQ(at, nullptr);
}

} // namespace
