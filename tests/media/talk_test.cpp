#include "support/encoded.h"
#include "support/read_back.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstddef>

using namespace veltoprotocol;

namespace {

__tagVtAudioParam audio() {
    __tagVtAudioParam audio = __tagVtAudioParam();
    audio.AudioType = -1;
    audio.BitRate = 64000;
    audio.SampleRate = 8000;
    audio.BitsPerSample = 65535;
    audio.Channels = 2;
    return audio;
}

TEST(AudioParam, KeepsItsShape) {
    EXPECT_EQ(offsetof(__tagVtAudioParam, BitsPerSample), 12u);
    EXPECT_EQ(offsetof(__tagVtAudioParam, Channels), 14u);
    EXPECT_EQ(offsetof(__tagVtAudioParam, reserved), 16u);
    EXPECT_EQ(sizeof(__tagVtAudioParam), 24u);
}

TEST(GetStartTalkReqEncode, WritesAndPrintsTheAudioFormat) {
    const __tagVtAudioParam format = audio();
    const Encoded got = encoded([&](char* out, int size) {
        return GetStartTalkReqEncode("t-1", "c-1", &format, "10.0.0.1", 7, out, size);
    });
    const std::string xml = R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="StartTalk">
        <ChannelGuid>c-1</ChannelGuid>
        <AudioParam AudioType="-1" BitRate="64000" SampleRate="8000" BitsPerSample="65535" Channels="2" />
    </request>
</servercommandservice>
)";
    EXPECT_EQ(got.bytes, wire(requestHead + xml));
    EXPECT_EQ(got.printed, "startTalk req xml str:[" + xml + "]\n");
}

TEST(GetStartTalkReqEncode, RefusesANullFormatWithoutPrinting) {
    const Encoded got = encoded(
        [](char* out, int size) { return GetStartTalkReqEncode("t", "c", nullptr, "h", 7, out, size); });
    EXPECT_EQ(got.returned, -1);
    EXPECT_EQ(got.printed, "");
}

TEST(GetStopTalkReqEncode, WritesAndPrintsTheChannel) {
    const Encoded got = encoded(
        [](char* out, int size) { return GetStopTalkReqEncode("t-1", "c-1", "10.0.0.1", 7, out, size); });
    const std::string xml = R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="StopTalk">
        <ChannelGuid>c-1</ChannelGuid>
    </request>
</servercommandservice>
)";
    EXPECT_EQ(got.bytes, wire(requestHead + xml));
    EXPECT_EQ(got.printed, "stopTalk req xml str:[" + xml + "]\n");
}

std::string resultXml(const std::string& name) {
    return R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name=")" +
           name + R"(">
        <Result>-1</Result>
    </response>
</servercommandservice>
)";
}

TEST(GetStartTalkRespEncode, PrintsTheWordsOfPtz) {
    const Encoded got = encoded([](char* out, int size) { return GetStartTalkRespEncode(-1, 7, out, size); });
    EXPECT_EQ(got.bytes, wire(responseHead + resultXml("StartTalk")));
    EXPECT_EQ(got.printed, "PtzControl Resp xml str:[" + resultXml("StartTalk") + "]\n");
}

TEST(GetStopTalkRespEncode, PrintsItsOwnWords) {
    const Encoded got = encoded([](char* out, int size) { return GetStopTalkRespEncode(-1, 7, out, size); });
    EXPECT_EQ(got.bytes, wire(responseHead + resultXml("StopTalk")));
    EXPECT_EQ(got.printed, "StopTalk Resp xml str:[" + resultXml("StopTalk") + "]\n");
}

TEST(GetDataReqEncode, WritesThePayloadBehindAHeadOfItsOwn) {
    const __tagVtDataParam payload{"a\0b", 3};
    const Encoded got = encoded([&](char* out, int size) {
        return GetDataReqEncode("not used", "not used", &payload, "10.0.0.1", "audio/g711", out, size);
    });
    EXPECT_EQ(got.bytes, "POST /servercommandservice HTTP/1.1\r\nHost: 10.0.0.1\r\nConnection: keep-alive\r\n"
                         "Content-Type: audio/g711; charset=utf-8\r\nContent-Length: 3\r\n\r\n" +
                             std::string("a\0b", 3));
    EXPECT_EQ(got.printed, "");
}

TEST(GetDataReqEncode, IgnoresItsFirstTwoArguments) {
    const __tagVtDataParam payload{"abc", 3};
    const Encoded with = encoded([&](char* out, int size) {
        return GetDataReqEncode("t-1", "c-1", &payload, "h", "audio/g711", out, size);
    });
    const Encoded without = encoded([&](char* out, int size) {
        return GetDataReqEncode(nullptr, nullptr, &payload, "h", "audio/g711", out, size);
    });
    EXPECT_EQ(with.bytes, without.bytes);
}

TEST(GetDataReqEncode, OfAnEmptyPayloadIsACompleteHead) {
    const __tagVtDataParam payload{nullptr, 0};
    const Encoded got = encoded([&](char* out, int size) {
        return GetDataReqEncode("", "", &payload, "h", "audio/g711", out, size);
    });
    EXPECT_EQ(got.bytes, "POST /servercommandservice HTTP/1.1\r\nHost: h\r\nConnection: keep-alive\r\n"
                         "Content-Type: audio/g711; charset=utf-8\r\nContent-Length: 0\r\n\r\n");
}

TEST(GetDataReqEncode, WritesANullContentTypeAsEmptyText) {
    const __tagVtDataParam payload{"x", 1};
    const Encoded got = encoded(
        [&](char* out, int size) { return GetDataReqEncode("", "", &payload, nullptr, nullptr, out, size); });
    EXPECT_EQ(got.bytes, "POST /servercommandservice HTTP/1.1\r\nHost: \r\nConnection: keep-alive\r\n"
                         "Content-Type: ; charset=utf-8\r\nContent-Length: 1\r\n\r\nx");
}

TEST(GetDataReqEncode, RefusesWhatItCannotSend) {
    char out[512];
    const __tagVtDataParam negative{"x", -1}, noBytes{nullptr, 1}, fine{"x", 1}, huge{"x", INT_MAX};
    EXPECT_EQ(GetDataReqEncode("", "", nullptr, "h", "t", out, sizeof out), -1);
    EXPECT_EQ(GetDataReqEncode("", "", &negative, "h", "t", out, sizeof out), -1);
    EXPECT_EQ(GetDataReqEncode("", "", &noBytes, "h", "t", out, sizeof out), -1);
    EXPECT_EQ(GetDataReqEncode("", "", &huge, "h", "t", out, INT_MAX), -1);
    EXPECT_EQ(GetDataReqEncode("", "", &fine, "h\r\nX: y", "t", out, sizeof out), -1);
    EXPECT_EQ(GetDataReqEncode("", "", &fine, "h", "t\nX: y", out, sizeof out), -1);
    EXPECT_EQ(GetDataReqEncode("", "", &fine, "h", "t\rX: y", out, sizeof out), -1);
}

TEST(GetStartTalkReqDecode, ReadsWhatIsThereAndNamesWhatIsNot) {
    auto got = readBack(
        R"(<AudioParam AudioType="-1" BitRate="64000" SampleRate="8000" BitsPerSample="65535" Channels="2" />)",
        GetStartTalkReqDecode);
    EXPECT_TRUE(sameBytes(got.record, audio()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
    got = readBack("<AudioParam />", GetStartTalkReqDecode);
    EXPECT_TRUE(sameBytes(got.record, __tagVtAudioParam()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-AudioParam(AudioType) element not find!\n"
                           "xml file -..-AudioParam(BitRate) element not find!\n"
                           "xml file -..-AudioParam(SampleRate) element not find!\n"
                           "xml file -..-AudioParam(BitsPerSample) element not find!\n"
                           "xml file -..-AudioParam(Channels) element not find!\n");
}

TEST(GetStartTalkReqDecode, CutsTheSmallNumbersToTheirLow16Bits) {
    const auto got = readBack(
        R"(<AudioParam AudioType="1" BitRate="2" SampleRate="3" BitsPerSample="-1" Channels="65537" />)",
        GetStartTalkReqDecode);
    EXPECT_EQ(got.record.BitsPerSample, 65535);
    EXPECT_EQ(got.record.Channels, 1);
}

TEST(GetStartTalkReqDecode, RefusesANullElement) {
    int error = 7;
    EXPECT_TRUE(sameBytes(GetStartTalkReqDecode(nullptr, &error), __tagVtAudioParam()));
    EXPECT_EQ(error, -1);
}

} // namespace
