// What is read of playback and download requests, and how it is released.
#include "support/encoded.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <cstring>
#include <new>

using namespace veltoprotocol;

namespace {

// GetPlayBackParamDecode over the children of a request, released at the end.
struct Playback {
    explicit Playback(const std::string& children) : doc(parsed("<request>" + children + "</request>")) {
        TiXmlElement* const request = doc->RootElement();
        Captured captured;
        record = GetPlayBackParamDecode(request, request->FirstChildElement("PlaybackParam"), &error);
        printed = captured.text();
    }
    Playback(const Playback&) = delete;
    Playback& operator=(const Playback&) = delete;
    ~Playback() { ReleasePlaybackParam(&record); }

    Document doc;
    int error = 7;
    __tagVtPlayBackParam record;
    std::string printed;
};

const std::string params =
    R"(<PlaybackParam StartTime="1" EndTime="-2" PlaybackMode="3" RecordType="4" Speed="12345678" />)";

TEST(GetPlayBackParamDecode, ReadsTheParametersButNotTheSession) {
    const Playback got("<PlaybackGuid>p-1</PlaybackGuid>" + params);
    __tagVtPlayBackParam want = __tagVtPlayBackParam();
    want.StartTime = 1;
    want.EndTime = -2;
    want.PlaybackMode = 3;
    want.RecordType = 4;
    std::memcpy(want.Speed, "12345678", 8); // as long as the field, without a terminator
    EXPECT_TRUE(sameBytes(got.record, want));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetPlayBackParamDecode, NamesTheParametersThatAreMissingOrTooLong) {
    const Playback got(R"(<PlaybackParam Speed="123456789" />)");
    EXPECT_TRUE(sameBytes(got.record, __tagVtPlayBackParam()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-PlaybackParam(StartTime) element not find!\n"
                           "xml file -..-PlaybackParam(EndTime) element not find!\n"
                           "xml file -..-PlaybackParam(PlaybackMode) element not find!\n"
                           "xml file -..-PlaybackParam(RecordType) element not find!\n"
                           "xml file -..-PlaybackParam(Speed) element too long!\n");
}

const std::string recordParam =
    R"(<RecordParam><Index>9</Index>)"
    R"(<RecordInfo guid="g" StartTime="1" EndTime="2" RecordType="3" RecordMode="4" RecordSize="5" RecordName="n" />)"
    R"(<PictureInfo guid="i" PictureUrl="u" PictureSize="6" /></RecordParam>)";
const std::string pictureLines = "xml file -..-PictureInfo(PictureUrl) element not find!\n"
                                 "xml file -..-PictureInfo(PictureSize) element not find!\n";

TEST(GetPlayBackParamDecode, LooksForThePictureInTheRecordInfo) {
    const Playback got(params + "<RecordCounter>1</RecordCounter>" + recordParam);
    ASSERT_EQ(got.record.RecordCounter, 1u);
    __tagVtRecordElementParam want = __tagVtRecordElementParam();
    std::strcpy(want.guid, "g");
    std::strcpy(want.PictureGuid, "g"); // the record's, not the picture's
    want.StartTime = 1;
    want.EndTime = 2;
    want.RecordType = 3;
    want.RecordMode = 4;
    want.RecordSize = 5;
    std::strcpy(want.RecordName, "n");
    want.Index = 9;
    EXPECT_TRUE(sameBytes(got.record.Records[0], want));
    EXPECT_EQ(got.printed, pictureLines);
    EXPECT_EQ(got.error, 0);
}

TEST(GetPlayBackParamDecode, ReadsThePictureIfTheRecordInfoCarriesIt) {
    const Playback got(params +
                       "<RecordCounter>1</RecordCounter><RecordParam><Index>1</Index>"
                       R"(<RecordInfo guid="g" StartTime="1" EndTime="2" RecordType="3" RecordMode="4" )"
                       R"(RecordSize="5" RecordName="n" PictureUrl="here" PictureSize="8" />)"
                       "<PictureInfo /></RecordParam>");
    EXPECT_EQ(got.printed, "");
    EXPECT_STREQ(got.record.Records[0].PictureUrl, "here");
    EXPECT_EQ(got.record.Records[0].PictureSize, 8);
}

TEST(GetPlayBackParamDecode, IsSilentAboutChildrenThatNeedNotBeThere) {
    const Playback got(params + "<RecordCounter>2</RecordCounter>"
                                "<RecordParam><Index>1</Index></RecordParam>"
                                R"(<RecordParam><PictureInfo guid="i" /></RecordParam>)");
    EXPECT_EQ(got.printed, "xml file -..-RecordParam-Index element not find!\n");
    EXPECT_EQ(got.record.Records[0].Index, 1);
    EXPECT_TRUE(sameBytes(got.record.Records[1], __tagVtRecordElementParam()));
}

TEST(GetPlayBackParamDecode, NamesTheAttributesOfARecordThatAreMissingOrTooLong) {
    const std::string name(257, 'n'), guid(49, 'g');
    const Playback got(params +
                       "<RecordCounter>1</RecordCounter><RecordParam><Index>1</Index><RecordInfo guid=\"" +
                       guid + "\" RecordName=\"" + name + "\" /></RecordParam>");
    EXPECT_EQ(got.printed, "xml file -..-RecordInfo(guid) element too long!\n"
                           "xml file -..-RecordInfo(StartTime) element not find!\n"
                           "xml file -..-RecordInfo(EndTime) element not find!\n"
                           "xml file -..-RecordInfo(RecordType) element not find!\n"
                           "xml file -..-RecordInfo(RecordMode) element not find!\n"
                           "xml file -..-RecordInfo(RecordSize) element not find!\n"
                           "xml file -..-RecordInfo(RecordName) element too long!\n");
}

TEST(GetPlayBackParamDecode, TakesARecordNameOf256Bytes) {
    const std::string name(256, 'n');
    const Playback got(
        params +
        "<RecordCounter>1</RecordCounter><RecordParam><Index>1</Index><RecordInfo guid=\"\" "
        R"(StartTime="0" EndTime="0" RecordType="0" RecordMode="0" RecordSize="0" RecordName=")" +
        name + "\" /></RecordParam>");
    EXPECT_EQ(got.record.Records[0].RecordName, name); // the field goes on, with zeros
    EXPECT_EQ(got.printed, "");
}

TEST(GetPlayBackParamDecode, LeavesSlotsWithoutAnElementZero) {
    const Playback got(params + "<RecordCounter>3</RecordCounter>" + recordParam + recordParam);
    ASSERT_EQ(got.record.RecordCounter, 3u);
    EXPECT_EQ(got.record.Records[1].Index, 9);
    EXPECT_TRUE(sameBytes(got.record.Records[2], __tagVtRecordElementParam()));
    EXPECT_EQ(got.printed, pictureLines + pictureLines);
}

TEST(GetPlayBackParamDecode, ReadsNoMoreElementsThanTheCounterSays) {
    const Playback got(params + "<RecordCounter>1</RecordCounter>" + recordParam + recordParam);
    EXPECT_EQ(got.record.RecordCounter, 1u);
    EXPECT_EQ(got.printed, pictureLines);
}

TEST(GetPlayBackParamDecode, OfCounterZeroHasAnEmptyArray) {
    const Playback got(params + "<RecordCounter>0</RecordCounter>" + recordParam);
    EXPECT_EQ(got.record.RecordCounter, 0u);
    EXPECT_NE(got.record.Records, nullptr);
    EXPECT_EQ(got.printed, "");
}

TEST(GetPlayBackParamDecode, WithoutACounterHasNoArray) {
    const Playback got(params + recordParam);
    EXPECT_EQ(got.record.RecordCounter, 0u);
    EXPECT_EQ(got.record.Records, nullptr);
    EXPECT_EQ(got.printed, "");
}

TEST(GetPlayBackParamDecode, TakesACounterBeyondItsBudgetForExhaustedMemory) {
    for (const char* counter : {"-1", "4294967295", "2000000", ""}) { // an empty counter is -1
        SCOPED_TRACE(counter);
        const std::string children = params + "<RecordCounter>" + counter + "</RecordCounter>";
        EXPECT_THROW(Playback{children}, std::bad_alloc);
    }
}

TEST(GetPlayBackParamDecode, RefusesNullElements) {
    const Document doc = parsed("<request />");
    int error = 7;
    EXPECT_TRUE(
        sameBytes(GetPlayBackParamDecode(nullptr, doc->RootElement(), &error), __tagVtPlayBackParam()));
    EXPECT_EQ(error, -1);
    error = 7;
    EXPECT_TRUE(
        sameBytes(GetPlayBackParamDecode(doc->RootElement(), nullptr, &error), __tagVtPlayBackParam()));
    EXPECT_EQ(error, -1);
    GetPlayBackParamDecode(nullptr, nullptr, nullptr);
}

TEST(ReleasePlaybackParam, MayBeCalledTwiceAndWithNull) {
    const Document doc = parsed("<request><PlaybackParam /><RecordCounter>2</RecordCounter></request>");
    TiXmlElement* const request = doc->RootElement();
    Captured quiet;
    __tagVtPlayBackParam got =
        GetPlayBackParamDecode(request, request->FirstChildElement("PlaybackParam"), nullptr);
    ASSERT_NE(got.Records, nullptr);
    for (int i = 0; i < 2; ++i) {
        ReleasePlaybackParam(&got);
        EXPECT_EQ(got.Records, nullptr);
        EXPECT_EQ(got.RecordCounter, 0u);
    }
    ReleasePlaybackParam(nullptr);
}

TEST(GetPlayBackCtrlParamDecode, CopiesThePlaybackGuidIntoTheSession) {
    const std::string guid(48, 'p');
    const auto got = readBack(
        "<request><PlaybackGuid>" + guid +
            R"(</PlaybackGuid><ControlParam Command="-2" Speed="12345678" Position="-1" /></request>)",
        GetPlayBackCtrlParamDecode);
    __tagVtPlayBackCtrl want = __tagVtPlayBackCtrl();
    std::memcpy(want.PlaybackGuid, guid.data(), 48);
    std::memcpy(want.SessionGuid, guid.data(), 48);
    want.Command = -2;
    std::memcpy(want.Speed, "12345678", 8);
    want.Position = 4294967295u; // written signed, read unsigned
    EXPECT_TRUE(sameBytes(got.record, want));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetPlayBackCtrlParamDecode, CopiesTheSessionAlsoWithoutControlParam) {
    const auto got =
        readBack("<request><PlaybackGuid>p-1</PlaybackGuid></request>", GetPlayBackCtrlParamDecode);
    EXPECT_STREQ(got.record.PlaybackGuid, "p-1");
    EXPECT_STREQ(got.record.SessionGuid, "p-1");
    EXPECT_EQ(got.printed, "");
}

TEST(GetPlayBackCtrlParamDecode, NamesWhatIsMissingOrTooLong) {
    auto got = readBack("<request><ControlParam /></request>", GetPlayBackCtrlParamDecode);
    EXPECT_TRUE(sameBytes(got.record, __tagVtPlayBackCtrl()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-request -PlaybackGuid element not find!\n"
                           "xml file -..-ControlParam(Command) element not find!\n"
                           "xml file -..-ControlParam(Speed) element not find!\n"
                           "xml file -..-ControlParam(Position) element not find!\n");
    got = readBack(
        "<request><PlaybackGuid>" + std::string(49, 'p') +
            R"(</PlaybackGuid><ControlParam Command="1" Speed="123456789" Position="0x10" /></request>)",
        GetPlayBackCtrlParamDecode);
    EXPECT_EQ(got.record.PlaybackGuid[0], '\0');
    EXPECT_EQ(got.record.Speed[0], '\0');
    EXPECT_EQ(got.record.Position, 16u);
    EXPECT_EQ(got.printed, "xml file -..-request -PlaybackGuid element too long!\n"
                           "xml file -..-ControlParam(Speed) element too long!\n");
}

TEST(GetPlayBackCtrlParamDecode, RefusesANullElement) {
    int error = 7;
    EXPECT_TRUE(sameBytes(GetPlayBackCtrlParamDecode(nullptr, &error), __tagVtPlayBackCtrl()));
    EXPECT_EQ(error, -1);
    GetPlayBackCtrlParamDecode(nullptr, nullptr);
}

TEST(PlaybackRequest, ComesBackWithEveryFieldThatItCarries) {
    __tagVtRecordElementParam record = __tagVtRecordElementParam();
    std::strcpy(record.guid, "g-1");
    record.StartTime = 11;
    record.EndTime = 12;
    record.RecordType = 13;
    record.RecordMode = 14;
    record.RecordSize = 15;
    std::strcpy(record.RecordName, "n<&>\"'");
    record.Index = 16;
    __tagVtPlayBackParam sent = __tagVtPlayBackParam();
    std::strcpy(sent.PlaybackGuid, "p-1");
    sent.PlaybackMode = 1;
    sent.RecordType = 2;
    std::strcpy(sent.Speed, "1/2");
    sent.StartTime = 3;
    sent.EndTime = 4;
    sent.RecordCounter = 1;
    sent.Records = &record;
    const Encoded message = encoded([&](char* out, int size) {
        return GetPlaybackRecordReqEncode("h", "t", 1, "c-1", &sent, out, size);
    });
    const Document doc = parsed(bodyOf(message.bytes));
    TiXmlElement* const request = doc->RootElement()->FirstChildElement("request");
    Captured quiet;
    int error = 7;
    __tagVtPlayBackParam got =
        GetPlayBackParamDecode(request, request->FirstChildElement("PlaybackParam"), &error);
    EXPECT_EQ(GetPlayBackReqPlayGuidDecode(doc.get(), &error), "p-1");
    EXPECT_EQ(GetRealPlayStartReqChannelGuidDecode(doc.get(), &error), "c-1");
    EXPECT_EQ(got.PlaybackMode, 1);
    EXPECT_EQ(got.RecordType, 2);
    EXPECT_STREQ(got.Speed, "1/2");
    EXPECT_EQ(got.StartTime, 3);
    EXPECT_EQ(got.EndTime, 4);
    ASSERT_EQ(got.RecordCounter, 1u);
    std::strcpy(record.PictureGuid, "g-1"); // from RecordInfo
    EXPECT_TRUE(sameBytes(got.Records[0], record));
    ReleasePlaybackParam(&got);
}

TEST(PlaybackRecords, KeepTheirShape) {
    EXPECT_EQ(sizeof(__tagVtPlayBackParam),
              48u + 4 + 4 + 8 + 4 + 4 + 4 + 4 + 8); // 4 of padding before the pointer
    EXPECT_EQ(offsetof(__tagVtPlayBackParam, Speed), 56u);
    EXPECT_EQ(offsetof(__tagVtPlayBackParam, RecordCounter), 72u);
    EXPECT_EQ(sizeof(__tagVtPlayBackCtrl), 48u + 4 + 8 + 48 + 4 + 4);
    EXPECT_EQ(offsetof(__tagVtPlayBackCtrl, SessionGuid), 60u);
    EXPECT_EQ(offsetof(__tagVtPlayBackCtrl, Position), 112u);
}

} // namespace
