// Each writer stops at a text field's width, also in the records of searches, playbacks and pictures.
#include "properties/full_records.h"
#include "properties/sent_fields.h"

#include <cstring>

namespace {

using namespace veltoprotocol;

constexpr int allX = 2021161080; // four x as a number

const Carried ofSearch = {
    Carried::byAttributes, {}, {"StartTime", "EndTime", "SearchMode", "RecordType", "RecordMode"}};
const Carried ofPlayback = {
    Carried::byAttributes, {{"Speed", 8}}, {"StartTime", "EndTime", "PlaybackMode", "RecordType"}};
const Carried ofControl = {Carried::byAttributes, {{"Speed", 8}}, {"Command", "Position"}};
const Carried ofSession = {Carried::byElements, {{"PlaybackGuid", 48}}, {}};
// Names and addresses are wider than what their readers take.
const Carried ofRecord = {Carried::byAttributes,
                          {{"guid", 48}, {"RecordName", 260}},
                          {"StartTime", "EndTime", "RecordType", "RecordMode", "RecordSize"}};
const Carried ofRecordsPicture = {
    Carried::byAttributes, {{"guid", 48}, {"PictureUrl", 1032}}, {"PictureSize"}};
const Carried ofPicture = {Carried::byAttributes, {{"guid", 48}, {"PictureUrl", 1032}}, {}};
const Carried ofIndex = {Carried::byElements, {}, {"Index"}};
const Carried ofChannel = {Carried::byElements, {{"ChannelGuid", 48}}, {}};

TEST(TextFields, EndAtTheirWidthInASearchForRecords) {
    FullRecords<__tagVtSearchRecordParam> search;
    const Document doc = sent([&](char* out, int size) {
        return GetSearchRecordReqEncode("h", "t", 1, "c", search.records(), out, size);
    });
    expectFull(below(doc, {"request", "SearchParam"}), ofSearch);
    EXPECT_STREQ(below(doc, {"request", "ChannelGuid"})->GetText(), "c");
}

TEST(TextFields, EndAtTheirWidthInAPlayback) {
    FullRecords<__tagVtRecordElementParam> records(2);
    FullRecords<__tagVtPlayBackParam> playback;
    playback.records()->RecordCounter = 2;
    playback.records()->Records = records.records();
    for (const auto send : {GetPlaybackRecordReqEncode, GetDownloadRecordReqEncode}) {
        const Document doc =
            sent([&](char* out, int size) { return send("h", "t", 1, "c", playback.records(), out, size); });
        expectFull(below(doc, {"request"}), ofSession);
        expectFull(below(doc, {"request", "PlaybackParam"}), ofPlayback);
        forEach(below(doc, {"request"}), "RecordParam", 2, [](const TiXmlElement* at) {
            expectFull(at, ofIndex);
            expectFull(at->FirstChildElement("RecordInfo"), ofRecord);
            expectFull(at->FirstChildElement("PictureInfo"), ofRecordsPicture);
        });
    }
}

TEST(TextFields, EndAtTheirWidthInTheControlOfAPlayback) {
    FullRecords<__tagVtPlayBackCtrl> control;
    const Document request = sent([&](char* out, int size) {
        return GetPlaybackControlReqEncode("t", "c", control.records(), "h", 1, out, size);
    });
    const Document answer = sent([&](char* out, int size) {
        return GetPlaybackControlRespEncode(0, 1, control.records(), out, size);
    });
    for (const TiXmlElement* const command : {below(request, {"request"}), below(answer, {"response"})}) {
        expectFull(command, ofSession);
        expectFull(command->FirstChildElement("ControlParam"), ofControl);
    }
}

TEST(TextFields, EndAtTheirWidthInRequestsForPictures) {
    FullRecords<__tagVtRecordElementParam> records(2);
    const Document ofRecords = sent([&](char* out, int size) {
        return GetDownloadPictureReqEncode("h", "t", 1, records.records(), 2, out, size);
    });
    forEach(below(ofRecords, {"request"}), "PictureItem", 2, [](const TiXmlElement* at) {
        expectFull(at, ofChannel);
        expectFull(at->FirstChildElement("PictureParam"), ofPicture);
    });
    FullRecords<__tagVtEMapInfo> maps(2);
    const Document ofMaps = sent([&](char* out, int size) {
        return GetDownloadEMapPictureReqEncode("h", "t", 1, maps.records(), 2, out, size);
    });
    forEach(below(ofMaps, {"request"}), "PictureItem", 2,
            [](const TiXmlElement* at) { expectFull(at->FirstChildElement("PictureParam"), ofPicture); });
}

// The block carries the first 64 bytes of an address, and no other text of a record.
TEST(TextFields, EndAtTheirWidthInTheRecordsThatAreFound) {
    FullRecords<__tagVtRecordElementParam> records(2);
    FullRecords<__tagVtRecordParam> list;
    list.records()->Counter = 2;
    list.records()->Records = records.records();
    const std::string body = bodyOf(encoded([&](char* out, int size) {
                                        return GetSearchRecordRespEncode(0, 1, list.records(), out, size);
                                    }).bytes);
    const Document doc = parsed(body);
    const std::string block = body.substr(static_cast<std::size_t>(GetXmlLength(doc.get())));
    int error = 7;
    __tagVtRecordParam found =
        GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), &error);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(std::string(found.ChannelGuid, sizeof found.ChannelGuid), std::string(48, 'x'));
    EXPECT_EQ(found.ResultMode, allX);
    ASSERT_EQ(found.Counter, 2u);
    for (unsigned int i = 0; i < found.Counter; ++i) {
        __tagVtRecordElementParam want = __tagVtRecordElementParam();
        want.RecordType = want.RecordMode = want.StartTime = want.EndTime = want.RecordSize = allX;
        want.PictureSize = allX;
        std::memset(want.ChannelGuid, 'x', sizeof want.ChannelGuid); // the list's
        std::memset(want.PictureUrl, 'x', 64);
        EXPECT_TRUE(sameBytes(found.Records[i], want)) << i;
    }
    ReleaseRecordParam(&found);
}

} // namespace
