#include "fuzz/round_trip.h"

using namespace veltoprotocol;

namespace {

std::string guid(Draw& draw) { return withSingleBlanks(wholeCharacters(draw.text(48))); }

using Ptz = __tagVtPtzParam;
using Audio = __tagVtAudioParam;
void ptzAndTalk(Draw& draw) {
    Trip<Ptz> ptz(draw);
    ptz.carry(Carrier::attributes, &Ptz::Control, &Ptz::Command, &Ptz::Speed);
    Trip<Audio> audio(draw);
    audio.carry(Carrier::attributes, &Audio::AudioType, &Audio::BitRate, &Audio::SampleRate,
                &Audio::BitsPerSample, &Audio::Channels);
    const std::string channel = guid(draw);
    const Arrived moved([&](char* out, int size) {
        return GetPtzReqEncode("t", channel.c_str(), &ptz.sent, "h", 1, out, size);
    });
    const Arrived talk([&](char* out, int size) {
        return GetStartTalkReqEncode("t", channel.c_str(), &audio.sent, "h", 1, out, size);
    });
    int error = 7;
    requireSameRecord("a movement", GetPtzReqDecode(moved.at({"Ptz"}), &error), ptz.back);
    requireSameRecord("an audio format", GetStartTalkReqDecode(talk.at({"AudioParam"}), &error), audio.back);
    requireSame("its channel", GetRealPlayStartReqChannelGuidDecode(talk.doc.get(), &error), channel);
}

void liveStream(Draw& draw) {
    const std::string token = guid(draw), channel = guid(draw);
    const int stream = draw.number<int>();
    const Arrived request([&](char* out, int size) {
        return GetRealPlayStartReqEncode(token.c_str(), channel.c_str(), stream, "h", 1, out, size);
    });
    int error = 7;
    requireSame("the token", GetRealPlayStartReqTokenDecode(request.doc.get(), &error), token);
    requireSame("the channel", GetRealPlayStartReqChannelGuidDecode(request.doc.get(), &error), channel);
    requireSame("the stream", GetRealPlayStartReqStreamTypeDecode(request.doc.get(), &error), stream);
    const int sent = draw.number<int>();
    const Arrived answer([&](char* out, int size) { return GetRealPlayStartRespEncode(sent, 1, out, size); });
    int result = 7;
    requireSame("an answer's text", GetRealPlayStartRespDecode(answer.doc.get(), &result, &error), "");
    requireSame("an answer's result", result, sent);
}

using Search = __tagVtSearchRecordParam;
void search(Draw& draw) {
    Trip<Search> trip(draw);
    trip.carry(Carrier::attributes, &Search::StartTime, &Search::EndTime, &Search::SearchMode,
               &Search::RecordType, &Search::RecordMode);
    const Arrived request([&](char* out, int size) {
        return GetSearchRecordReqEncode("h", "t", 1, "c", &trip.sent, out, size);
    });
    int error = 7;
    requireSameRecord("a search", GetSearchRecordDecode(request.at({"SearchParam"}), &error), trip.back);
}

using Record = __tagVtRecordElementParam;

// Raw bytes: any text comes back as it lies in memory, 64 of them.
Trip<Record> foundRecord(Draw& draw, const __tagVtRecordParam& list) {
    Trip<Record> trip(draw);
    trip.carry(Carrier::attributes, &Record::RecordType, &Record::RecordMode, &Record::StartTime,
               &Record::EndTime, &Record::RecordSize, &Record::PictureSize);
    draw.fill(trip.sent.PictureUrl);
    std::memcpy(trip.back.PictureUrl, trip.sent.PictureUrl, 64);
    std::memcpy(trip.back.ChannelGuid, list.ChannelGuid, 48);
    if (list.ResultMode == 1) std::memcpy(trip.back.RecordName, trip.sent.PictureUrl, 64);
    return trip;
}

void found(Draw& draw) {
    __tagVtRecordParam list = {};
    draw.fill(list.ChannelGuid, list.ResultMode);
    const auto trips = severalTrips<Record>(draw, [&](Draw& from) { return foundRecord(from, list); });
    auto sent = sentOf(trips);
    list.Records = sent.data();
    list.Counter = static_cast<unsigned>(sent.size());
    const Arrived answer(
        [&](char* out, int size) { return GetSearchRecordRespEncode(0, 1, &list, out, size); });
    const auto xml = static_cast<std::size_t>(GetXmlLength(answer.doc.get()));
    int error = 7;
    __tagVtRecordParam got = GetSearchRecordResultDecode(answer.body.data() + xml,
                                                         static_cast<int>(answer.body.size() - xml), &error);
    requireSame("the list's error", error, 0);
    requireSame("the number of records", got.Counter, list.Counter);
    for (std::size_t i = 0; i < trips.size(); ++i)
        requireSameRecord("a record", got.Records[i], trips[i].back);
    ReleaseRecordParam(&got);
    list.Records = nullptr;
    requireSameRecord("the list", got, list);
}

Trip<Record> playedRecord(Draw& draw) {
    Trip<Record> trip(draw);
    trip.carry(Carrier::attributes, &Record::guid, &Record::StartTime, &Record::EndTime, &Record::RecordType,
               &Record::RecordMode, &Record::RecordSize, &Record::Index);
    trip.carryUpTo(256, Carrier::attributes, &Record::RecordName);
    trip.sent.PictureGuid[0] = trip.sent.PictureUrl[0] = '\0'; // sent, and read from the wrong element
    std::memcpy(trip.back.PictureGuid, trip.back.guid, sizeof trip.back.guid);
    return trip;
}

using Playback = __tagVtPlayBackParam;
void playback(Draw& draw) {
    Trip<Playback> trip(draw);
    trip.carry(Carrier::attributes, &Playback::PlaybackMode, &Playback::RecordType, &Playback::Speed,
               &Playback::StartTime, &Playback::EndTime);
    const std::string session = guid(draw);
    std::memset(trip.sent.PlaybackGuid, 0, sizeof trip.sent.PlaybackGuid);
    session.copy(trip.sent.PlaybackGuid, 48);
    const auto records = severalTrips<Record>(draw, playedRecord);
    auto sent = sentOf(records);
    trip.sent.Records = sent.data();
    trip.sent.RecordCounter = trip.back.RecordCounter = static_cast<unsigned>(sent.size());
    for (const auto encode : {GetPlaybackRecordReqEncode, GetDownloadRecordReqEncode}) {
        const Arrived request(
            [&](char* out, int size) { return encode("h", "t", 1, "c", &trip.sent, out, size); });
        int error = 7;
        requireSame("the session", GetPlayBackReqPlayGuidDecode(request.doc.get(), &error), session);
        Playback got = GetPlayBackParamDecode(request.command(), request.at({"PlaybackParam"}), &error);
        for (std::size_t i = 0; i < records.size(); ++i)
            requireSameRecord("a recording", got.Records[i], records[i].back);
        trip.back.Records = got.Records;
        requireSameRecord("a playback", got, trip.back);
        ReleasePlaybackParam(&got);
    }
}

using Control = __tagVtPlayBackCtrl;
void control(Draw& draw) {
    Trip<Control> trip(draw);
    trip.carry(Carrier::elements, &Control::PlaybackGuid);
    trip.carry(Carrier::attributes, &Control::Command, &Control::Speed, &Control::Position);
    std::memcpy(trip.back.SessionGuid, trip.back.PlaybackGuid, 48);
    const Arrived request([&](char* out, int size) {
        return GetPlaybackControlReqEncode("t", "c", &trip.sent, "h", 1, out, size);
    });
    const Arrived answer(
        [&](char* out, int size) { return GetPlaybackControlRespEncode(0, 1, &trip.sent, out, size); });
    for (const Arrived* message : {&request, &answer}) {
        int error = 7;
        requireSameRecord("a control", GetPlayBackCtrlParamDecode(message->command(), &error), trip.back);
    }
}

void pictures(Draw& draw) {
    const auto trips = severalTrips<Record>(draw, [](Draw& from) {
        Trip<Record> trip(from);
        trip.carry(Carrier::elements, &Record::ChannelGuid);
        trip.carry(Carrier::attributes, &Record::PictureGuid);
        trip.carryUpTo(1024, Carrier::attributes, &Record::PictureUrl);
        return trip;
    });
    const auto sent = sentOf(trips);
    const Arrived request([&](char* out, int size) {
        return GetDownloadPictureReqEncode("h", "t", 1, sent.data(), static_cast<int>(sent.size()), out,
                                           size);
    });
    requireBack("a picture", request.all({"PictureItem"}), trips, GetPictureParamDecode);
}

} // namespace

std::vector<RoundTrip> mediaTrips() {
    return {{"PtzControl", ptzAndTalk},   {"StartRealplay", liveStream}, {"SearchRecord", search},
            {"its answer", found},        {"PlaybackRecord", playback},  {"PlaybackControl", control},
            {"DownloadPicture", pictures}};
}
