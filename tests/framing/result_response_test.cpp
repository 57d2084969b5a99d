// The answers that hold a Result alone.
#include "support/encoded.h"
#include "support/wire.h"
#include "veltoprotocol/framing.h"

#include <climits>
#include <gtest/gtest.h>
#include <ostream>
#include <set>

namespace {

using namespace veltoprotocol;

TEST(GetRespEncode, HoldsSeqnumVersionAndResult) {
    const Encoded got = encoded(
        [](char* out, int size) { return GetRespEncode(0, 42, out, size, "AddDevice", "keep-alive"); });
    EXPECT_EQ(got.bytes, wire(R"(HTTP/1.1 200 OK
Server: vtengine
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>42</seqnum>
    <version>1.0.0</version>
    <response name="AddDevice">
        <Result>0</Result>
    </response>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetRespEncode, SaysItsLengthInTheHead) {
    const Encoded got =
        encoded([](char* out, int size) { return GetRespEncode(0, 1, out, size, "N", "close"); });
    // Declaration 40, root 23 + 24, seqnum 23, version 29, response 24 + 16, Result 27.
    EXPECT_EQ(bodyOf(got.bytes).size(), 206u);
    EXPECT_NE(got.bytes.find("\r\nContent-Length: 206\r\n\r\n<?xml"), std::string::npos);
}

TEST(GetRespEncode, WritesANegativeResultUnderStatus200) {
    const Encoded got = encoded(
        [](char* out, int size) { return GetRespEncode(-5, 4294967295u, out, size, "AddDevice", "close"); });
    EXPECT_EQ(got.bytes, wire(R"(HTTP/1.1 200 OK
Server: vtengine
Connection: close
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <response name="AddDevice">
        <Result>-5</Result>
    </response>
</servercommandservice>
)"));
}

TEST(GetRespEncode, WritesEveryResult) {
    const struct {
        int result;
        const char* text;
    } cases[] = {{1, "1"}, {-1, "-1"}, {INT_MAX, "2147483647"}, {INT_MIN, "-2147483648"}};
    for (const auto& c : cases) {
        const Encoded got =
            encoded([&](char* out, int size) { return GetRespEncode(c.result, 1, out, size, "N", "close"); });
        EXPECT_NE(got.bytes.find(std::string("        <Result>") + c.text + "</Result>\n"),
                  std::string::npos);
        EXPECT_EQ(got.bytes.find("HTTP/1.1 200 OK\r\n"), 0u);
    }
}

TEST(GetRespEncode, LeavesOutANullName) {
    const Encoded got =
        encoded([](char* out, int size) { return GetRespEncode(0, 1, out, size, nullptr, "close"); });
    EXPECT_NE(got.bytes.find("    <response>\n        <Result>0</Result>\n    </response>\n"),
              std::string::npos);
}

TEST(GetRespEncode, EscapesItsName) {
    const Encoded got =
        encoded([](char* out, int size) { return GetRespEncode(0, 1, out, size, "a<\"b\"", "close"); });
    EXPECT_NE(got.bytes.find("    <response name='a&lt;&quot;b&quot;'>\n"), std::string::npos);
}

TEST(GetRespEncode, WritesANullConnectionAsAnEmptyOne) {
    const Encoded got =
        encoded([](char* out, int size) { return GetRespEncode(0, 1, out, size, "N", nullptr); });
    EXPECT_NE(got.bytes.find("\r\nServer: vtengine\r\nConnection: \r\nContent-Type"), std::string::npos);
}

TEST(GetRespEncode, RefusesALineEndInItsConnection) {
    for (const char* bad : {"\r", "\n", "close\r\nX: y"})
        EXPECT_EQ(
            encoded([&](char* out, int size) { return GetRespEncode(0, 1, out, size, "N", bad); }).returned,
            -1);
    // The name is no part of the head.
    const Encoded got =
        encoded([](char* out, int size) { return GetRespEncode(0, 1, out, size, "a\nb", "close"); });
    EXPECT_NE(got.bytes.find("<response name=\"a&#x0A;b\">"), std::string::npos);
}

struct ResultOnly {
    const char* name;
    const char* connection;
    int (*encode)(int result, unsigned int seqnum, char* out, int size);
};
std::ostream& operator<<(std::ostream& to, const ResultOnly& answer) { return to << answer.name; }

const ResultOnly resultOnly[] = {
    {"Logout", "close", GetLogoutRespEncode}, // the only one that closes the connection
    {"SetViewGroupData", "keep-alive", GetSetViewGroupDataRespEncode},
    {"AddDevice", "keep-alive", GetAddDeviceRespEncode},
    {"UpdateDevice", "keep-alive", GetUpdateDeviceRespEncode},
    {"DeleteDevice", "keep-alive", GetDeleteDeviceRespEncode},
    {"AddStorage", "keep-alive", GetAddStorageRespEncode},
    {"UpdateStorage", "keep-alive", GetUpdateStorageRespEncode},
    {"DeleteStorage", "keep-alive", GetDeleteStorageRespEncode},
    {"AddSchedule", "keep-alive", GetAddScheduleRespEncode},
    {"UpdateSchedule", "keep-alive", GetUpdateScheduleRespEncode},
    {"DeleteSchedule", "keep-alive", GetDeleteScheduleRespEncode},
    {"PlaybackRecord", "keep-alive", GetPlaybackRecordRespEncode},
    {"PlaybackStop", "keep-alive", GetPlaybackStopRespEncode},
    {"DownloadRecord", "keep-alive", GetDownloadRecordRespEncode},
    {"DownloadStop", "keep-alive", GetDownloadStopRespEncode},
    {"DownloadPicture", "keep-alive", GetDownloadPictureRespEncode},
    {"DownloadEMapPicture", "keep-alive", GetDownloadEMapPictureRespEncode},
    {"ManualRecord", "keep-alive", GetManualRecordRespEncode},
    {"Notification", "keep-alive", GetNotificationRespEncode},
    {"AddArchiveInfo", "keep-alive", GetAddArchiveRespEncode},
    {"UpdateArchiveInfo", "keep-alive", GetUpdateArchiveRespEncode},
    {"DeleteArchiveInfo", "keep-alive", GetDeleteArchiveRespEncode},
    {"StopSearchDevice", "keep-alive", GetStopSearchDeviceRespEncode},
};

class ResultOnlyAnswer : public testing::TestWithParam<ResultOnly> {};

TEST_P(ResultOnlyAnswer, HasItsNameAndConnection) {
    const Encoded got =
        encoded([](char* out, int size) { return GetParam().encode(-7, 2147483648u, out, size); });
    std::string want = R"(HTTP/1.1 200 OK
Server: vtengine
Connection: CONNECTION
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-2147483648</seqnum>
    <version>1.0.0</version>
    <response name="NAME">
        <Result>-7</Result>
    </response>
</servercommandservice>
)";
    want.replace(want.find("CONNECTION"), 10, GetParam().connection);
    want.replace(want.find("NAME"), 4, GetParam().name);
    EXPECT_EQ(got.bytes, wire(want));
    EXPECT_EQ(got.printed, "");
}

INSTANTIATE_TEST_SUITE_P(Each, ResultOnlyAnswer, testing::ValuesIn(resultOnly),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ResultOnlyAnswers, AreTwentyThreeAndOneCloses) {
    EXPECT_EQ(std::size(resultOnly), 23u);
    std::set<std::string> names, closing;
    for (const ResultOnly& answer : resultOnly) {
        names.insert(answer.name);
        const Encoded got = encoded([&](char* out, int size) { return answer.encode(0, 1, out, size); });
        if (got.bytes.find("\r\nConnection: close\r\n") != std::string::npos) closing.insert(answer.name);
    }
    EXPECT_EQ(names.size(), 23u);
    EXPECT_EQ(closing, std::set<std::string>{"Logout"});
}

} // namespace
