// The requests that bind schedules to channels. They name several channels and write the first of them again
// and again.
#include "admin/recording_requests.h"
#include "support/encoded.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

namespace {

using namespace veltoprotocol;

using Channel = __tagVtChannelScheduleInfo;

TEST(ChannelScheduleRecord, LiesInMemoryInTheOrderGiven) {
    EXPECT_TRUE(std::is_standard_layout_v<Channel>);
    EXPECT_TRUE(std::is_trivially_copyable_v<Channel>);
    EXPECT_EQ(offsetof(Channel, reserved), 0u);
    EXPECT_EQ(offsetof(Channel, ChannelGuid), 48u);
    EXPECT_EQ(offsetof(Channel, OnlineType), 96u);
    EXPECT_EQ(offsetof(Channel, Online), 100u);
    EXPECT_EQ(offsetof(Channel, SpeedupType), 2264u);
    EXPECT_EQ(offsetof(Channel, Speedup), 2268u);
    EXPECT_EQ(sizeof(Channel), 4432u);
}

// Noise but for what is carried, so that the reserved area, each SchedulesType and what stands behind a
// text's NUL would be seen.
Channel channel(const char* guid, int onlineType, int speedupType) {
    Channel channel;
    std::memset(static_cast<void*>(&channel), 'N', sizeof channel);
    std::strcpy(channel.ChannelGuid, guid);
    channel.OnlineType = onlineType;
    std::strcpy(channel.Online.Guid, "on-1");
    std::strcpy(channel.Online.Name, "day & <night>");
    std::strcpy(channel.Online.Schedules, "mo  \"8\"");
    channel.SpeedupType = speedupType;
    std::strcpy(channel.Speedup.Guid, "fast-1");
    std::strcpy(channel.Speedup.Name, "");
    std::strcpy(channel.Speedup.Schedules, "100%s%n");
    return channel;
}

const Channel two[] = {channel("ch-1", 3, INT_MIN), channel("ch-2", 5, 6)};

const std::string ofTheFirst = R"(        <Schedules>
            <Online Type="3">
                <ChannelGuid>ch-1</ChannelGuid>
                <ScheduleGuid>on-1</ScheduleGuid>
                <Name>day &amp; &lt;night&gt;</Name>
                <Schedule>mo  &quot;8&quot;</Schedule>
            </Online>
            <Speedup Type="-2147483648">
                <ChannelGuid>ch-1</ChannelGuid>
                <ScheduleGuid>fast-1</ScheduleGuid>
                <Name></Name>
                <Schedule>100%s%n</Schedule>
            </Speedup>
        </Schedules>
)";

std::string counter(int count) {
    return "        <ScheduleCounter>" + std::to_string(count) + "</ScheduleCounter>\n";
}

TEST(GetAddScheduleReqEncode, RepeatsTheFirstRecord) {
    const Encoded got = encoded([](char* out, int size) {
        return GetAddScheduleReqEncode(two, 2, "10.0.0.1", 4294967295u, out, size);
    });
    const std::string xml = R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <request name="AddSchedule">
        <ScheduleCounter>2</ScheduleCounter>
)" + ofTheFirst + ofTheFirst +
                            R"(    </request>
</servercommandservice>
)";
    EXPECT_EQ(got.bytes, wire(manageHead + xml));
    EXPECT_EQ(got.printed, "AddSchedule xml str:[" + xml + "]\n");
}

TEST(GetUpdateScheduleReqEncode, SendsTheSameUnderItsOwnName) {
    const Encoded got = encoded(
        [](char* out, int size) { return GetUpdateScheduleReqEncode(two, 1, "10.0.0.1", 7, out, size); });
    const std::string xml = requestXml(" name=\"UpdateSchedule\"", counter(1) + ofTheFirst);
    EXPECT_EQ(got.bytes, wire(manageHead + xml));
    EXPECT_EQ(got.printed, "UpdateSchedule xml str:[" + xml + "]\n");
}

TEST(GetDeleteScheduleReqEncode, NamesEachChannelAndPrintsNothing) {
    const Encoded got = encoded([](char* out, int size) {
        return GetDeleteScheduleReqEncode(two, 2, "10.0.0.1", 4294967295u, out, size);
    });
    EXPECT_EQ(got.bytes, wire(manageHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <request name="DeleteSchedule">
        <ScheduleCounter>2</ScheduleCounter>
        <Schedules>
            <ChannelGuid>ch-1</ChannelGuid>
        </Schedules>
        <Schedules>
            <ChannelGuid>ch-2</ChannelGuid>
        </Schedules>
    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

// A caller that wants one channel's schedules three times has an array of one.
TEST(GetAddScheduleReqEncode, TouchesOnlyTheFirstRecord) {
    GuardedPage page(sizeof(Channel));
    std::memcpy(page.data(), &two[0], sizeof(Channel));
    const auto* const one = reinterpret_cast<const Channel*>(page.data());
    for (const auto send : {GetAddScheduleReqEncode, GetUpdateScheduleReqEncode}) {
        const Encoded got =
            encoded([&](char* out, int size) { return send(one, 3, "10.0.0.1", 7, out, size); });
        const std::string name =
            send == GetAddScheduleReqEncode ? " name=\"AddSchedule\"" : " name=\"UpdateSchedule\"";
        EXPECT_EQ(got.bytes, requestWire(name, counter(3) + ofTheFirst + ofTheFirst + ofTheFirst));
    }
}

Encoded scheduleRequest(const char* name, int roomy = 1 << 20) {
    return encoded(
        [&](char* out, int size) { return GetScheduleEncode(two, 1, "10.0.0.1", 7, out, size, name); },
        roomy);
}

TEST(GetScheduleEncode, PrintsAnyNameAsItIs) {
    const std::string longName(5000, 'n');
    const struct {
        std::string name, attribute;
    } cases[] = {{"%s <&>", " name=\"%s &lt;&amp;&gt;\""},
                 {"", " name=\"\""},
                 {longName, " name=\"" + longName + "\""}};
    for (const auto& c : cases) {
        const Encoded got = scheduleRequest(c.name.c_str());
        const std::string xml = requestXml(c.attribute, counter(1) + ofTheFirst);
        EXPECT_EQ(got.bytes, wire(manageHead + xml));
        EXPECT_EQ(got.printed, c.name + " xml str:[" + xml + "]\n");
    }
}

TEST(GetScheduleEncode, PrintsANullNameAsEmptyText) {
    const Encoded got = scheduleRequest(nullptr);
    const std::string xml = requestXml("", counter(1) + ofTheFirst);
    EXPECT_EQ(got.bytes, wire(manageHead + xml));
    EXPECT_EQ(got.printed, " xml str:[" + xml + "]\n");
}

TEST(GetScheduleEncode, PrintsItsXmlAlsoWhenTheMessageDoesNotFit) {
    const int length = scheduleRequest("AnyName").returned;
    for (const int size : {length - 1, 1}) {
        const Encoded got = scheduleRequest("AnyName", size);
        EXPECT_EQ(got.returned, -1);
        EXPECT_EQ(got.printed,
                  "AnyName xml str:[" + requestXml(" name=\"AnyName\"", counter(1) + ofTheFirst) + "]\n");
    }
}

using Send = int (*)(const Channel*, int, const char*, unsigned int, char*, int);
const struct {
    std::string name;
    Send send;
    bool prints;
} requests[] = {{"AddSchedule", GetAddScheduleReqEncode, true},
                {"UpdateSchedule", GetUpdateScheduleReqEncode, true},
                {"DeleteSchedule", GetDeleteScheduleReqEncode, false}};

TEST(ScheduleRequests, CountAsTheyAreTold) {
    for (const auto& request : requests)
        for (const int count : {0, -1, INT_MIN}) {
            const Encoded got = encoded(
                [&](char* out, int size) { return request.send(two, count, "10.0.0.1", 7, out, size); });
            const std::string xml = requestXml(" name=\"" + request.name + "\"", counter(count));
            EXPECT_EQ(got.bytes, wire(manageHead + xml));
            EXPECT_EQ(got.printed, request.prints ? request.name + " xml str:[" + xml + "]\n" : "");
        }
}

TEST(ScheduleRequests, PrintNothingWhenTheyRefuse) {
    for (const auto& request : requests) {
        SCOPED_TRACE(request.name);
        char out[4096];
        Captured captured;
        const int results[] = {request.send(nullptr, 1, "h", 7, out, sizeof out),
                               request.send(nullptr, 0, "h", 7, out, sizeof out),
                               request.send(two, 1, "h", 7, nullptr, sizeof out),
                               request.send(two, 1, "h", 7, out, 0),
                               request.send(two, 1, "h", 7, out, INT_MIN),
                               request.send(two, 1, "h\rX: 1", 7, out, sizeof out),
                               request.send(two, 0, "h\n", 7, out, sizeof out)};
        EXPECT_EQ(captured.text(), "");
        for (const int result : results) EXPECT_EQ(result, -1);
    }
}

TEST(ScheduleRequests, LetNoHostAddALineToTheHead) {
    for (const auto& request : requests)
        expectChecksItsHost(
            [&](const char* host, char* out, int size) { return request.send(two, 1, host, 7, out, size); });
}

// More than any buffer takes: neither built nor printed.
TEST(ScheduleRequests, RefuseAtOnceWhatIsLongerThanAnyMessage) {
    for (const int count : {INT_MAX, INT_MAX / 2, 10000000})
        for (const auto send : {GetAddScheduleReqEncode, GetUpdateScheduleReqEncode}) {
            const Encoded got =
                encoded([&](char* out, int size) { return send(two, count, "h", 7, out, size); });
            EXPECT_EQ(got.returned, -1);
            EXPECT_EQ(got.printed, "");
        }
}

} // namespace
