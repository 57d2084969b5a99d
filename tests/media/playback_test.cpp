// What the commands of playback and download write.
#include "support/encoded.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>

#include <cstring>

using namespace veltoprotocol;

namespace {

__tagVtPlayBackParam playback() {
    __tagVtPlayBackParam param = __tagVtPlayBackParam();
    std::strcpy(param.PlaybackGuid, "p-1");
    param.PlaybackMode = 3;
    param.RecordType = -4;
    std::memcpy(param.Speed, "1/2 x<>&", 8); // as long as the field
    param.StartTime = 1;
    param.EndTime = 2;
    return param;
}

__tagVtRecordElementParam record(int number) {
    __tagVtRecordElementParam record = __tagVtRecordElementParam();
    std::strcpy(record.ChannelGuid, "not sent");
    std::strcpy(record.guid, ("g-" + std::to_string(number)).c_str());
    record.RecordType = number + 1;
    record.RecordMode = number + 2;
    record.StartTime = number + 3;
    record.EndTime = number + 4;
    record.RecordSize = number + 5;
    std::strcpy(record.RecordName, ("n-" + std::to_string(number)).c_str());
    std::strcpy(record.PictureGuid, ("i-" + std::to_string(number)).c_str());
    std::strcpy(record.PictureUrl, ("u-" + std::to_string(number)).c_str());
    record.PictureSize = number + 6;
    record.Index = number + 7;
    return record;
}

std::string withoutRecords(const std::string& name) {
    return R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name=")" +
           name + R"(">
        <ChannelGuid>c-1</ChannelGuid>
        <PlaybackGuid>p-1</PlaybackGuid>
        <PlaybackParam StartTime="1" EndTime="2" PlaybackMode="3" RecordType="-4" Speed="1/2 x&lt;&gt;&amp;" />
    </request>
</servercommandservice>
)";
}

TEST(GetRecordReqEncode, OfRecordCounterZeroWritesNoListAtAll) {
    __tagVtPlayBackParam param = playback();
    __tagVtRecordElementParam one = record(1);
    param.Records = &one;
    const Encoded got = encoded([&](char* out, int size) {
        return GetRecordReqEncode("Any", "10.0.0.1", "t-1", 7, "c-1", &param, out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestHead + withoutRecords("Any")));
    EXPECT_EQ(got.printed, "");
}

TEST(GetPlaybackRecordReqEncode, AndDownloadDifferInTheirNameAlone) {
    const __tagVtPlayBackParam param = playback();
    const Encoded play = encoded([&](char* out, int size) {
        return GetPlaybackRecordReqEncode("10.0.0.1", "t-1", 7, "c-1", &param, out, size);
    });
    EXPECT_EQ(play.bytes, wire(requestHead + withoutRecords("PlaybackRecord")));
    const Encoded download = encoded([&](char* out, int size) {
        return GetDownloadRecordReqEncode("10.0.0.1", "t-1", 7, "c-1", &param, out, size);
    });
    EXPECT_EQ(download.bytes, wire(requestHead + withoutRecords("DownloadRecord")));
}

TEST(GetRecordReqEncode, WritesEachRecordWithItsPicture) {
    __tagVtPlayBackParam param = playback();
    __tagVtRecordElementParam records[] = {record(10), record(-20)};
    param.Records = records;
    param.RecordCounter = 2;
    const Encoded got = encoded([&](char* out, int size) {
        return GetRecordReqEncode("PlaybackRecord", "10.0.0.1", "t-1", 7, "c-1", &param, out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="PlaybackRecord">
        <ChannelGuid>c-1</ChannelGuid>
        <PlaybackGuid>p-1</PlaybackGuid>
        <PlaybackParam StartTime="1" EndTime="2" PlaybackMode="3" RecordType="-4" Speed="1/2 x&lt;&gt;&amp;" />
        <RecordCounter>2</RecordCounter>
        <RecordParam>
            <Index>17</Index>
            <RecordInfo guid="g-10" StartTime="13" EndTime="14" RecordType="11" RecordMode="12" RecordSize="15" RecordName="n-10" />
            <PictureInfo guid="i-10" PictureUrl="u-10" PictureSize="16" />
        </RecordParam>
        <RecordParam>
            <Index>-13</Index>
            <RecordInfo guid="g--20" StartTime="-17" EndTime="-16" RecordType="-19" RecordMode="-18" RecordSize="-15" RecordName="n--20" />
            <PictureInfo guid="i--20" PictureUrl="u--20" PictureSize="-14" />
        </RecordParam>
    </request>
</servercommandservice>
)"));
}

TEST(GetRecordReqEncode, OfANullArrayWritesTheCounterAlone) {
    __tagVtPlayBackParam param = playback();
    param.RecordCounter = 4294967295u; // written unsigned
    const Encoded got = encoded([&](char* out, int size) {
        return GetRecordReqEncode("PlaybackRecord", "10.0.0.1", "t-1", 7, "c-1", &param, out, size);
    });
    EXPECT_NE(got.bytes.find("        <RecordCounter>4294967295</RecordCounter>\n    </request>\n"),
              std::string::npos);
}

TEST(GetRecordReqEncode, RefusesANullRecordAndLeavesOutANullName) {
    char out[4096];
    EXPECT_EQ(GetRecordReqEncode("n", "h", "t", 1, "c", nullptr, out, sizeof out), -1);
    EXPECT_EQ(GetPlaybackRecordReqEncode("h", "t", 1, "c", nullptr, out, sizeof out), -1);
    EXPECT_EQ(GetDownloadRecordReqEncode("h", "t", 1, "c", nullptr, out, sizeof out), -1);
    const __tagVtPlayBackParam param = playback();
    const int length = GetRecordReqEncode(nullptr, "h", "t", 1, "c", &param, out, sizeof out);
    ASSERT_GT(length, 0);
    EXPECT_NE(std::string(out, static_cast<std::size_t>(length)).find("    <request>\n"), std::string::npos);
}

std::string stopXml(const std::string& name) {
    return R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name=")" +
           name + R"(">
        <DeviceGuid>d-1</DeviceGuid>
        <ChannelGuid>c-1</ChannelGuid>
    </request>
</servercommandservice>
)";
}

TEST(GetPlaybackStopReqEncode, NamesDeviceAndChannel) {
    const Encoded got = encoded([](char* out, int size) {
        return GetPlaybackStopReqEncode("t-1", "d-1", "c-1", "10.0.0.1", 7, out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestHead + stopXml("PlaybackStop")));
}

TEST(GetDownloadStopReqEncode, NamesDeviceAndChannel) {
    const Encoded got = encoded([](char* out, int size) {
        return GetDownloadStopReqEncode("t-1", "d-1", "c-1", "10.0.0.1", 7, out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestHead + stopXml("DownloadStop")));
}

__tagVtPlayBackCtrl control() {
    __tagVtPlayBackCtrl ctrl = __tagVtPlayBackCtrl();
    std::strcpy(ctrl.PlaybackGuid, "p-1");
    ctrl.Command = -2;
    std::strcpy(ctrl.Speed, "4x");
    std::strcpy(ctrl.SessionGuid, "not sent");
    ctrl.Position = 4294967295u;
    return ctrl;
}

TEST(GetPlaybackControlReqEncode, WritesThePositionInSignedDecimal) {
    const __tagVtPlayBackCtrl ctrl = control();
    const Encoded got = encoded([&](char* out, int size) {
        return GetPlaybackControlReqEncode("t-1", "c-1", &ctrl, "10.0.0.1", 7, out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="PlaybackControl">
        <ChannelGuid>c-1</ChannelGuid>
        <PlaybackGuid>p-1</PlaybackGuid>
        <ControlParam Command="-2" Speed="4x" Position="-1" />
    </request>
</servercommandservice>
)"));
    char out[4096];
    EXPECT_EQ(GetPlaybackControlReqEncode("t", "c", nullptr, "h", 7, out, sizeof out), -1);
}

TEST(GetPlaybackControlRespEncode, HoldsTheControlOfASuccess) {
    const __tagVtPlayBackCtrl ctrl = control();
    const Encoded got =
        encoded([&](char* out, int size) { return GetPlaybackControlRespEncode(0, 7, &ctrl, out, size); });
    EXPECT_EQ(got.bytes, wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="PlaybackControl">
        <Result>0</Result>
        <PlaybackGuid>p-1</PlaybackGuid>
        <ControlParam Command="-2" Speed="4x" Position="-1" />
    </response>
</servercommandservice>
)"));
}

TEST(GetPlaybackControlRespEncode, HoldsTheResultAloneOtherwise) {
    const __tagVtPlayBackCtrl ctrl = control();
    const auto resultOnly = [](int result) {
        return wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="PlaybackControl">
        <Result>)" + std::to_string(result) +
                    R"(</Result>
    </response>
</servercommandservice>
)");
    };
    const Encoded refused =
        encoded([&](char* out, int size) { return GetPlaybackControlRespEncode(-1, 7, &ctrl, out, size); });
    EXPECT_EQ(refused.bytes, resultOnly(-1));
    const Encoded nothing =
        encoded([](char* out, int size) { return GetPlaybackControlRespEncode(0, 7, nullptr, out, size); });
    EXPECT_EQ(nothing.bytes, resultOnly(0));
}

TEST(GetManualRecordReqEncode, NamesTheChannelAlone) {
    const Encoded got = encoded(
        [](char* out, int size) { return GetManualRecordReqEncode("10.0.0.1", "t-1", 7, "c-1", out, size); });
    EXPECT_EQ(got.bytes, wire(requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="ManualRecord">
        <ChannelGuid>c-1</ChannelGuid>
    </request>
</servercommandservice>
)"));
}

TEST(GetManualRecordReqEncode, RefusesANullChannel) {
    char out[4096];
    EXPECT_EQ(GetManualRecordReqEncode("h", "t", 7, nullptr, out, sizeof out), -1);
    EXPECT_GT(GetManualRecordReqEncode(nullptr, nullptr, 7, "", out, sizeof out), 0);
}

} // namespace
