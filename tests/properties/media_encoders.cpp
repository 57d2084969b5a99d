#include "properties/encoder_calls.h"

#include "properties/drawn_maps.h"

namespace veltoprotocol {
namespace {

__tagVtRecordElementParam drawnRecord(Draw& draw) {
    auto record = draw.noise<__tagVtRecordElementParam>();
    draw.fill(record.ChannelGuid, record.guid, record.RecordType, record.RecordMode, record.StartTime,
              record.EndTime, record.RecordSize, record.RecordName, record.PictureGuid, record.PictureUrl,
              record.PictureSize, record.Index);
    return record;
}

__tagVtPlayBackParam drawnPlayback(Draw& draw) {
    using Playback = __tagVtPlayBackParam;
    auto playback = drawn(draw, &Playback::PlaybackGuid, &Playback::PlaybackMode, &Playback::RecordType,
                          &Playback::Speed, &Playback::StartTime, &Playback::EndTime);
    playback.Records = nullptr;
    return playback;
}

__tagVtRecordParam drawnFound(Draw& draw) {
    auto found = drawn(draw, &__tagVtRecordParam::ChannelGuid, &__tagVtRecordParam::ResultMode);
    found.Records = nullptr;
    return found;
}

// A list inside a record: its count is unsigned, and true of an array that is there.
template <class Record>
void attach(Array<__tagVtRecordElementParam>& records, __tagVtRecordElementParam* Record::*array,
            unsigned int Record::*count, Record& record) {
    const bool none = records.null || records.count < 0;
    record.*array = none ? nullptr : records.entries.data();
    record.*count = static_cast<unsigned int>(records.count);
}

struct MediaArguments : Arguments {
    __tagVtStreamHeader streamHeader = draw.noise<__tagVtStreamHeader>();
    __tagVtPtzParam ptz = drawn(draw, &__tagVtPtzParam::Control, &__tagVtPtzParam::Command);
    __tagVtAudioParam audio = draw.noise<__tagVtAudioParam>();
    __tagVtDataParam data = {body.data(), body.count};
    __tagVtSearchRecordParam search = draw.noise<__tagVtSearchRecordParam>();
    Array<__tagVtRecordElementParam> records = draw.array(drawnRecord);
    Array<__tagVtEMapInfo> maps = draw.array(drawnMap, 1);
    Array<__tagVtRecordElementParam> pictures = draw.array(drawnRecord, 1);
    __tagVtRecordParam found = drawnFound(draw);
    __tagVtPlayBackParam playback = drawnPlayback(draw);
    __tagVtPlayBackCtrl control =
        drawn(draw, &__tagVtPlayBackCtrl::PlaybackGuid, &__tagVtPlayBackCtrl::Speed);
    std::string pictureGuid = draw.text(36) + std::string(36, '-'); // 36 bytes of it are sent

    MediaArguments(unsigned seed, Texts texts) : Arguments(seed, texts) {
        attach(records, &__tagVtRecordParam::Records, &__tagVtRecordParam::Counter, found);
        attach(records, &__tagVtPlayBackParam::Records, &__tagVtPlayBackParam::RecordCounter, playback);
    }
};

} // namespace

void visitMedia(unsigned seed, Texts texts, const Visit& visit) {
    const MediaArguments a(seed, texts);
    const char* const guid = a.recordMissing ? nullptr : a.pictureGuid.c_str();
    PRINTING_REQUEST(GetRealPlayStartReqEncode, a.token, a.value, a.number, a.host, a.seqnum, out, size);
    RESPONSE(GetRealPlayStartRespEncode, a.result, a.seqnum, out, size);
    BINARY_RESPONSE(GetVideoDataEncode, a.streamHeader, a.body.data(), a.body.count, out, size);
    PRINTING_REQUEST(GetPtzReqEncode, a.token, a.value, a.orNull(a.ptz), a.host, a.seqnum, out, size);
    PRINTING_RESPONSE(GetPtzRespEncode, a.result, a.seqnum, out, size);
    PRINTING_REQUEST(GetStartTalkReqEncode, a.token, a.value, a.orNull(a.audio), a.host, a.seqnum, out, size);
    PRINTING_RESPONSE(GetStartTalkRespEncode, a.result, a.seqnum, out, size);
    PRINTING_REQUEST(GetStopTalkReqEncode, a.token, a.value, a.host, a.seqnum, out, size);
    PRINTING_RESPONSE(GetStopTalkRespEncode, a.result, a.seqnum, out, size);
    BINARY_REQUEST(GetDataReqEncode, a.token, a.value, a.orNull(a.data), a.host, a.contentType, out, size);
    REQUEST(GetSearchRecordReqEncode, a.host, a.token, a.seqnum, a.value, a.orNull(a.search), out, size);
    ALLOCATING_RESPONSE(GetSearchRecordRespEncode, a.result, a.seqnum, a.orNull(a.found), out, size);
    REQUEST(GetRecordReqEncode, a.name, a.host, a.token, a.seqnum, a.value, a.orNull(a.playback), out, size);
    REQUEST(GetPlaybackRecordReqEncode, a.host, a.token, a.seqnum, a.value, a.orNull(a.playback), out, size);
    REQUEST(GetDownloadRecordReqEncode, a.host, a.token, a.seqnum, a.value, a.orNull(a.playback), out, size);
    REQUEST(GetPlaybackStopReqEncode, a.token, a.name, a.value, a.host, a.seqnum, out, size);
    REQUEST(GetDownloadStopReqEncode, a.token, a.name, a.value, a.host, a.seqnum, out, size);
    REQUEST(GetPlaybackControlReqEncode, a.token, a.value, a.orNull(a.control), a.host, a.seqnum, out, size);
    RESPONSE(GetPlaybackControlRespEncode, a.result, a.seqnum, a.orNull(a.control), out, size);
    REQUEST(GetManualRecordReqEncode, a.host, a.token, a.seqnum, a.value, out, size);
    REQUEST(GetDownloadPictureReqEncode, a.host, a.token, a.seqnum, a.pictures.data(), a.pictures.count, out,
            size);
    REQUEST(GetDownloadEMapPictureReqEncode, a.host, a.token, a.seqnum, a.maps.data(), a.maps.count, out,
            size);
    BINARY_RESPONSE(GetDownloadPictureDataEncode, a.number, a.word, guid, a.body.data(), a.body.count, out,
                    size);
    BINARY_RESPONSE(GetDownloadEMapPictureDataEncode, a.number, a.word, guid, a.body.data(), a.body.count,
                    out, size);
    BINARY_REQUEST(GetUploadPictureDataEncode, a.host, a.number, a.word, guid, a.contentType, a.body.data(),
                   a.body.count, out, size);
}

} // namespace veltoprotocol
