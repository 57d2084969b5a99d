// What a client writes comes back at the server, and the answer at the client: every field distinct, every
// text as long as its field or its reader allows.
#include "support/encoded.h"
#include "support/received.h"

#include <LibVeltoProtocol.h>

#include <cstring>
#include <string>

using namespace veltoprotocol;

namespace {

TEST(StartRealplay, ComesBackThroughTheReadersOfTheServer) {
    const Received got([](char* out, int size) {
        return GetRealPlayStartReqEncode("t-1", "c<1>", -5, "h", 4294967295u, out, size);
    });
    Captured quiet;
    int error = 7;
    EXPECT_EQ(GetRealPlayStartReqTokenDecode(got.doc.get(), &error), "t-1");
    EXPECT_EQ(error, 0);
    EXPECT_EQ(GetRealPlayStartReqChannelGuidDecode(got.doc.get(), &error), "c<1>");
    EXPECT_EQ(error, 0);
    EXPECT_EQ(GetRealPlayStartReqStreamTypeDecode(got.doc.get(), &error), -5);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(GetSeqnumberDecode(got.doc.get(), &error), 4294967295u);
    EXPECT_EQ(GetRealPlayStartReqDeviceGuidDecode(got.doc.get(), &error), "");
    EXPECT_EQ(error, -1);
    EXPECT_EQ(quiet.text(), "xml file servercommandservice-request-DeviceGuid element not find!\n");
}

TEST(StartRealplay, AnswersItsResult) {
    const Received got([](char* out, int size) { return GetRealPlayStartRespEncode(-17, 1, out, size); });
    int result = 7, error = 7;
    EXPECT_EQ(GetRealPlayStartRespDecode(got.doc.get(), &result, &error), "");
    EXPECT_EQ(result, -17);
    EXPECT_EQ(error, 0);
}

TEST(VideoData, IsSplitByTheInspectionOfItsHead) {
    __tagVtStreamHeader header;
    std::memset(&header, '\xA7', sizeof header);
    const std::string frame("\0\0\1\r\n\r\n", 7);
    const std::string message = encoded([&](char* out, int size) {
                                    return GetVideoDataEncode(header, frame.data(), 7, out, size);
                                }).bytes;
    const int length = static_cast<int>(message.size());
    EXPECT_EQ(GetHttpPacketLength(message.data(), length), length);
    EXPECT_EQ(GetContentLen(message.data(), length), 32 + 7);
    EXPECT_EQ(GetContentType(message.data(), length), "video/h264");
    EXPECT_EQ(bodyOf(message), std::string(32, '\xA7') + frame);
}

TEST(PtzControl, ComesBackWithItsThreeNumbers) {
    const __tagVtPtzParam sent{-2147483647 - 1, 2147483647, -3};
    const Received got(
        [&](char* out, int size) { return GetPtzReqEncode("t", "c-1", &sent, "h", 1, out, size); });
    int error = 7;
    EXPECT_TRUE(sameBytes(GetPtzReqDecode(got.child("Ptz"), &error), sent));
    EXPECT_EQ(error, 0);
    EXPECT_EQ(GetRealPlayStartReqChannelGuidDecode(got.doc.get(), &error), "c-1");
}

TEST(StartTalk, ComesBackWithoutItsReservedBlock) {
    __tagVtAudioParam sent = __tagVtAudioParam();
    sent.AudioType = -1;
    sent.BitRate = 2147483647;
    sent.SampleRate = 3;
    sent.BitsPerSample = 65535;
    sent.Channels = 32768;
    std::memset(sent.reserved, 'r', sizeof sent.reserved);
    const Received got(
        [&](char* out, int size) { return GetStartTalkReqEncode("t", "c-1", &sent, "h", 1, out, size); });
    int error = 7;
    const __tagVtAudioParam back = GetStartTalkReqDecode(got.child("AudioParam"), &error);
    EXPECT_EQ(error, 0);
    std::memset(sent.reserved, 0, sizeof sent.reserved);
    EXPECT_TRUE(sameBytes(back, sent));
}

TEST(SearchRecord, ComesBackWithoutItsReservedBlock) {
    __tagVtSearchRecordParam sent = __tagVtSearchRecordParam();
    sent.StartTime = 11;
    sent.EndTime = -12;
    sent.SearchMode = 13;
    sent.RecordType = 14;
    sent.RecordMode = 15;
    std::memset(sent.reserved, 'r', sizeof sent.reserved);
    const Received got(
        [&](char* out, int size) { return GetSearchRecordReqEncode("h", "t", 1, "c-1", &sent, out, size); });
    int error = 7;
    const __tagVtSearchRecordParam back = GetSearchRecordDecode(got.child("SearchParam"), &error);
    EXPECT_EQ(error, 0);
    std::memset(sent.reserved, 0, sizeof sent.reserved);
    EXPECT_TRUE(sameBytes(back, sent));
    EXPECT_EQ(GetRealPlayStartReqChannelGuidDecode(got.doc.get(), &error), "c-1");
}

TEST(SearchRecord, AnswersEveryFieldThatTheBlockCarries) {
    __tagVtRecordElementParam records[3] = {};
    int number = -7;
    for (auto& record : records) {
        std::strcpy(record.guid, "not carried");
        record.RecordType = ++number;
        record.RecordMode = ++number;
        record.StartTime = ++number;
        record.EndTime = ++number;
        record.RecordSize = ++number;
        fill(record.PictureUrl, static_cast<char>('a' + number), 64);
        record.PictureSize = ++number;
    }
    __tagVtRecordParam sent = __tagVtRecordParam();
    fill(sent.ChannelGuid, 'A');
    sent.ResultMode = 1;
    sent.Counter = 3;
    sent.Records = records;
    const Received got(
        [&](char* out, int size) { return GetSearchRecordRespEncode(0, 1, &sent, out, size); });
    const auto length = static_cast<std::size_t>(GetXmlLength(got.doc.get()));
    int error = 7;
    __tagVtRecordParam back = GetSearchRecordResultDecode(got.body.data() + length,
                                                          static_cast<int>(got.body.size() - length), &error);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(std::memcmp(back.ChannelGuid, sent.ChannelGuid, 48), 0);
    EXPECT_EQ(back.ResultMode, 1);
    ASSERT_EQ(back.Counter, 3u);
    for (int i = 0; i < 3; ++i) {
        __tagVtRecordElementParam want = records[i];
        std::memset(want.guid, 0, sizeof want.guid);
        std::memcpy(want.ChannelGuid, sent.ChannelGuid, 48);
        std::memcpy(want.RecordName, want.PictureUrl, 64);
        EXPECT_TRUE(sameBytes(back.Records[i], want)) << i;
    }
    ReleaseRecordParam(&back);
}

TEST(PlaybackRecord, ComesBackWithTextsOfFullLength) {
    __tagVtRecordElementParam record = __tagVtRecordElementParam();
    fill(record.guid, 'g');
    fill(record.RecordName, 'n', 256);
    fill(record.PictureGuid, 'i'); // written, and read from the wrong element
    __tagVtPlayBackParam sent = __tagVtPlayBackParam();
    fill(sent.PlaybackGuid, 'p');
    fill(sent.Speed, '1');
    sent.RecordCounter = 1;
    sent.Records = &record;
    const Received got([&](char* out, int size) {
        return GetDownloadRecordReqEncode("h", "t", 1, "c-1", &sent, out, size);
    });
    Captured captured;
    int error = 7;
    __tagVtPlayBackParam back = GetPlayBackParamDecode(got.command(), got.child("PlaybackParam"), &error);
    EXPECT_EQ(captured.text(), "xml file -..-PictureInfo(PictureUrl) element not find!\n"
                               "xml file -..-PictureInfo(PictureSize) element not find!\n");
    EXPECT_EQ(error, 0);
    EXPECT_EQ(std::string(back.Speed, 8), "12345678");
    EXPECT_EQ(GetPlayBackReqPlayGuidDecode(got.doc.get(), &error), std::string(sent.PlaybackGuid, 48));
    std::memcpy(record.PictureGuid, record.guid, 48);
    ASSERT_EQ(back.RecordCounter, 1u);
    EXPECT_TRUE(sameBytes(back.Records[0], record));
    ReleasePlaybackParam(&back);
}

TEST(PlaybackRecord, LosesARecordNameThatIsLongerThanItsReaderTakes) {
    __tagVtRecordElementParam record = __tagVtRecordElementParam();
    fill(record.RecordName, 'n'); // 260 bytes are written, 256 would be read
    __tagVtPlayBackParam sent = __tagVtPlayBackParam();
    sent.RecordCounter = 1;
    sent.Records = &record;
    const Received got([&](char* out, int size) {
        return GetPlaybackRecordReqEncode("h", "t", 1, "c-1", &sent, out, size);
    });
    EXPECT_STREQ(got.child("RecordParam")->FirstChildElement("RecordInfo")->Attribute("RecordName"),
                 std::string(record.RecordName, 260).c_str());
    Captured captured;
    __tagVtPlayBackParam back = GetPlayBackParamDecode(got.command(), got.child("PlaybackParam"), nullptr);
    EXPECT_EQ(captured.text(), "xml file -..-RecordInfo(RecordName) element too long!\n"
                               "xml file -..-PictureInfo(PictureUrl) element not find!\n"
                               "xml file -..-PictureInfo(PictureSize) element not find!\n");
    EXPECT_STREQ(back.Records[0].RecordName, "");
    ReleasePlaybackParam(&back);
}

__tagVtPlayBackCtrl control() {
    __tagVtPlayBackCtrl sent = __tagVtPlayBackCtrl();
    fill(sent.PlaybackGuid, 'p');
    sent.Command = -1;
    fill(sent.Speed, '1');
    std::strcpy(sent.SessionGuid, "not sent");
    sent.reserved = 7;
    sent.Position = 4294967294u;
    return sent;
}

TEST(PlaybackControl, ComesBackInRequestAndAnswer) {
    const __tagVtPlayBackCtrl sent = control();
    __tagVtPlayBackCtrl want = sent;
    std::memcpy(want.SessionGuid, want.PlaybackGuid, 48);
    want.reserved = 0;
    const Received request([&](char* out, int size) {
        return GetPlaybackControlReqEncode("t", "c-1", &sent, "h", 1, out, size);
    });
    int error = 7;
    EXPECT_TRUE(sameBytes(GetPlayBackCtrlParamDecode(request.command(), &error), want));
    EXPECT_EQ(error, 0);
    const Received answer(
        [&](char* out, int size) { return GetPlaybackControlRespEncode(0, 1, &sent, out, size); });
    EXPECT_TRUE(sameBytes(GetPlayBackCtrlParamDecode(answer.command(), &error), want));
    EXPECT_EQ(error, 0);
}

TEST(DownloadEMapPicture, IsReadAsAPictureWithoutAChannel) {
    __tagVtEMapInfo maps[2] = {};
    fill(maps[0].MapInfoGuid, 'm');
    fill(maps[0].CustomizeImagePath, 'u', 1024);
    std::strcpy(maps[1].MapInfoGuid, "m-2");
    std::strcpy(maps[1].CustomizeImagePath, "/2");
    const Received got([&](char* out, int size) {
        return GetDownloadEMapPictureReqEncode("h", "t", 1, maps, 2, out, size);
    });
    TiXmlElement* item = got.child("PictureItem");
    for (const auto& map : maps) {
        Captured captured;
        int error = 7;
        const __tagVtRecordElementParam back = GetPictureParamDecode(item, &error);
        EXPECT_EQ(captured.text(), "xml file -..-PictureItem-ChannelGuid element not find!\n");
        EXPECT_EQ(error, 0);
        __tagVtRecordElementParam want = __tagVtRecordElementParam();
        std::memcpy(want.PictureGuid, map.MapInfoGuid, 48);
        std::memcpy(want.PictureUrl, map.CustomizeImagePath, 1024);
        EXPECT_TRUE(sameBytes(back, want));
        item = item->NextSiblingElement("PictureItem");
    }
    EXPECT_EQ(item, nullptr);
}

} // namespace
