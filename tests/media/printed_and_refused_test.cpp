// What is printed when a message does not fit or is refused, and what the readers say of documents that they
// cannot use.
#include "support/encoded.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>

#include <functional>
#include <string>

using namespace veltoprotocol;

namespace {

const __tagVtPtzParam ptz{1, 2, 3};
const __tagVtAudioParam audio = __tagVtAudioParam();

struct Printing {
    const char* words;
    std::function<int(const char* host, char* out, int size)> encode;
    bool hasHost;
};
const Printing printing[] = {
    {"StartRealplay",
     [](const char* host, char* out, int size) {
         return GetRealPlayStartReqEncode("t", "c", 1, host, 1, out, size);
     },
     true},
    {"PtzControl req",
     [](const char* host, char* out, int size) {
         return GetPtzReqEncode("t", "c", &ptz, host, 1, out, size);
     },
     true},
    {"PtzControl Resp", [](const char*, char* out, int size) { return GetPtzRespEncode(0, 1, out, size); },
     false},
    {"startTalk req",
     [](const char* host, char* out, int size) {
         return GetStartTalkReqEncode("t", "c", &audio, host, 1, out, size);
     },
     true},
    {"PtzControl Resp",
     [](const char*, char* out, int size) { return GetStartTalkRespEncode(0, 1, out, size); }, false},
    {"stopTalk req",
     [](const char* host, char* out, int size) { return GetStopTalkReqEncode("t", "c", host, 1, out, size); },
     true},
    {"StopTalk Resp", [](const char*, char* out, int size) { return GetStopTalkRespEncode(0, 1, out, size); },
     false},
};

TEST(PrintingEncoders, PrintTheirBodyAlsoWhenTheMessageDoesNotFit) {
    for (const Printing& message : printing) {
        SCOPED_TRACE(message.words);
        const auto encode = [&](char* out, int size) { return message.encode("h", out, size); };
        const Encoded fits = encoded(encode);
        const std::string line = std::string(message.words) + " xml str:[" + bodyOf(fits.bytes) + "]\n";
        EXPECT_EQ(fits.printed, line);
        const Encoded tooLong = encoded(encode, fits.returned - 1);
        EXPECT_EQ(tooLong.returned, -1);
        EXPECT_EQ(tooLong.printed, line);
    }
}

TEST(PrintingEncoders, PrintNothingWhenTheyRefuse) {
    for (const Printing& message : printing) {
        SCOPED_TRACE(message.words);
        char out[4096];
        Captured captured;
        const int null = message.encode("h", nullptr, 4096);
        const int zero = message.encode("h", out, 0);
        const int negative = message.encode("h", out, -2147483647 - 1);
        const int twoLines = message.hasHost ? message.encode("h\rX: y", out, sizeof out) : -1;
        EXPECT_EQ(captured.text(), "");
        EXPECT_EQ(null, -1);
        EXPECT_EQ(zero, -1);
        EXPECT_EQ(negative, -1);
        EXPECT_EQ(twoLines, -1);
    }
}

TEST(GetRealPlayStartReqStreamTypeDecode, NamesAMissingRootAndAMissingRequest) {
    auto got = readBackDocument("<other />", GetRealPlayStartReqStreamTypeDecode);
    EXPECT_EQ(got.record, 0);
    EXPECT_EQ(got.error, -1);
    EXPECT_EQ(got.printed, "xml file servercommandservice element not find!\n");
    got = readBackDocument("<servercommandservice><response /></servercommandservice>",
                           GetRealPlayStartReqStreamTypeDecode);
    EXPECT_EQ(got.record, 0);
    EXPECT_EQ(got.error, -1);
    EXPECT_EQ(got.printed, "xml file servercommandservice-request element not find!\n");
}

TEST(GetRealPlayStartReqStreamTypeDecode, OfANullDocumentPrintsNothing) {
    Captured captured;
    int error = 7;
    EXPECT_EQ(GetRealPlayStartReqStreamTypeDecode(nullptr, &error), 0);
    EXPECT_EQ(GetRealPlayStartReqStreamTypeDecode(nullptr, nullptr), 0);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(error, -1);
}

TEST(GetRealPlayStartReqStreamTypeDecode, SaturatesAndThenNarrows) {
    const auto streamType = [](const std::string& text) {
        return readBackDocument("<servercommandservice><request><StreamType>" + text +
                                    "</StreamType></request></servercommandservice>",
                                GetRealPlayStartReqStreamTypeDecode)
            .record;
    };
    EXPECT_EQ(streamType("2147483647"), 2147483647);
    EXPECT_EQ(streamType("4294967296"), 0);            // the low 32 bits
    EXPECT_EQ(streamType("99999999999999999999"), -1); // the largest long, narrowed
    EXPECT_EQ(streamType("-99999999999999999999"), 0); // the smallest long, narrowed
    EXPECT_EQ(streamType("12 and more"), 12);
    EXPECT_EQ(streamType("none"), 0);
}

TEST(RecordDecoders, TakeNullErrors) {
    const Document doc = parsed("<Element />");
    TiXmlElement* const element = doc->RootElement();
    Captured quiet;
    GetPtzReqDecode(element, nullptr);
    GetStartTalkReqDecode(element, nullptr);
    GetStartTalkReqDecode(nullptr, nullptr);
    GetSearchRecordDecode(element, nullptr);
    GetPlayBackCtrlParamDecode(element, nullptr);
    GetPictureParamDecode(element, nullptr);
    const __tagVtPlayBackParam playback = GetPlayBackParamDecode(element, element, nullptr);
    EXPECT_EQ(playback.Records, nullptr);
    EXPECT_EQ(quiet.text().substr(0, 43), "xml file -..-Ptz(Control) element not find!");
}

TEST(GetDownloadPictureReqEncode, RefusesACountBelowOneWhateverTheRestIs) {
    const __tagVtRecordElementParam one = __tagVtRecordElementParam();
    char out[4096];
    EXPECT_EQ(GetDownloadPictureReqEncode("h", "t", 1, &one, -2147483647 - 1, out, sizeof out), -1);
    EXPECT_EQ(GetDownloadPictureReqEncode("h", "t", 1, nullptr, 0, nullptr, 0), -1);
    EXPECT_EQ(GetDownloadPictureReqEncode("h", "t", 1, &one, 1, nullptr, sizeof out), -1);
    EXPECT_EQ(GetDownloadPictureReqEncode("h", "t", 1, &one, 1, out, 0), -1);
    const __tagVtEMapInfo map = __tagVtEMapInfo();
    EXPECT_EQ(GetDownloadEMapPictureReqEncode("h", "t", 1, &map, -1, out, sizeof out), -1);
    EXPECT_GT(GetDownloadEMapPictureReqEncode("h", "t", 1, &map, 1, out, sizeof out), 0);
}

} // namespace
