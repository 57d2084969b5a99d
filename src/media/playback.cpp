// Playback and download sessions, and recording by hand.
#include "framing/decoded.h"
#include "framing/message.h"
#include "framing/walk.h"
#include "media/record_fields.h"

#include <tinyxml.h>

#include <cstring>

namespace veltoprotocol {
namespace {

using Playback = __tagVtPlayBackParam;
using Control = __tagVtPlayBackCtrl;

constexpr auto playbackFields =
    attributes("PlaybackParam", field("StartTime", &Playback::StartTime),
               field("EndTime", &Playback::EndTime), field("PlaybackMode", &Playback::PlaybackMode),
               field("RecordType", &Playback::RecordType), field("Speed", &Playback::Speed));

constexpr auto controlFields =
    attributes("ControlParam", field("Command", &Control::Command), field("Speed", &Control::Speed),
               field("Position", &Control::Position).as<Signed>()); // written signed, read unsigned

// A stop names device and channel, not the session.
int stopSession(const char* name, const char* token, const char* deviceGuid, const char* channelGuid,
                const char* host, unsigned int seqnum, char* out, int size) {
    const auto tree = [&](auto x) {
        x.value("DeviceGuid", deviceGuid);
        x.value("ChannelGuid", channelGuid);
    };
    return Request(name, seqnum, Token{token}).post(commandPath, host, tree, out, size);
}

void readRecordParam(TiXmlElement* element, RecordElement& record) {
    GetIntValue(element, "RecordParam", "Index", &record.Index);
    TiXmlElement* const info = element->FirstChildElement("RecordInfo");
    if (info) readFields(info, recordInfoFields, record);
    // kept: the picture's values are looked for in RecordInfo, under the label of PictureInfo
    if (info && element->FirstChildElement("PictureInfo")) readFields(info, pictureInfoFields, record);
}

} // namespace

int GetRecordReqEncode(const char* name, const char* host, const char* token, unsigned int seqnum,
                       const char* channelGuid, const Playback* param, char* out, int size) {
    if (!param) return -1;
    const auto tree = [&](auto x) {
        x.value("ChannelGuid", channelGuid);
        x.value("PlaybackGuid", param->PlaybackGuid);
        x.element("PlaybackParam", playbackFields(*param));
        if (param->RecordCounter == 0) return;
        x.value("RecordCounter", param->RecordCounter);
        x.list("RecordParam", entries(param->Records, param->RecordCounter), [](auto entry, auto& record) {
            entry.value("Index", record.Index);
            entry.element("RecordInfo", recordInfoFields(record));
            entry.element("PictureInfo", pictureInfoFields(record));
        });
    };
    return Request(name, seqnum, Token{token}).post(commandPath, host, tree, out, size);
}

int GetPlaybackRecordReqEncode(const char* host, const char* token, unsigned int seqnum,
                               const char* channelGuid, const Playback* param, char* out, int size) {
    return GetRecordReqEncode("PlaybackRecord", host, token, seqnum, channelGuid, param, out, size);
}

int GetDownloadRecordReqEncode(const char* host, const char* token, unsigned int seqnum,
                               const char* channelGuid, const Playback* param, char* out, int size) {
    return GetRecordReqEncode("DownloadRecord", host, token, seqnum, channelGuid, param, out, size);
}

int GetPlaybackStopReqEncode(const char* token, const char* deviceGuid, const char* channelGuid,
                             const char* host, unsigned int seqnum, char* out, int size) {
    return stopSession("PlaybackStop", token, deviceGuid, channelGuid, host, seqnum, out, size);
}

int GetDownloadStopReqEncode(const char* token, const char* deviceGuid, const char* channelGuid,
                             const char* host, unsigned int seqnum, char* out, int size) {
    return stopSession("DownloadStop", token, deviceGuid, channelGuid, host, seqnum, out, size);
}

int GetPlaybackControlReqEncode(const char* token, const char* channelGuid, const Control* ctrl,
                                const char* host, unsigned int seqnum, char* out, int size) {
    if (!ctrl) return -1;
    const auto tree = [&](auto x) {
        x.value("ChannelGuid", channelGuid);
        x.value("PlaybackGuid", ctrl->PlaybackGuid);
        x.element("ControlParam", controlFields(*ctrl));
    };
    return Request("PlaybackControl", seqnum, Token{token}).post(commandPath, host, tree, out, size);
}

int GetPlaybackControlRespEncode(int result, unsigned int seqnum, const Control* ctrl, char* out, int size) {
    const auto tree = [&](auto x) {
        x.value("Result", result);
        if (result != 0 || !ctrl) return;
        x.value("PlaybackGuid", ctrl->PlaybackGuid);
        x.element("ControlParam", controlFields(*ctrl));
    };
    return Response("PlaybackControl", seqnum).reply(tree, out, size);
}

int GetManualRecordReqEncode(const char* host, const char* token, unsigned int seqnum,
                             const char* channelGuid, char* out, int size) {
    if (!channelGuid) return -1;
    const auto tree = [&](auto x) { x.value("ChannelGuid", channelGuid); };
    return Request("ManualRecord", seqnum, Token{token}).post(commandPath, host, tree, out, size);
}

Playback GetPlayBackParamDecode(TiXmlElement* request, TiXmlElement* playbackParam, int* error) {
    report(error, request && playbackParam ? 0 : -1);
    Decoded<Playback> playback(ReleasePlaybackParam);
    if (!request || !playbackParam) return playback.handOver();
    readFields(playbackParam, playbackFields, *playback);
    if (TiXmlElement* const counter = request->FirstChildElement("RecordCounter")) {
        playback->RecordCounter = static_cast<unsigned int>(GetInt(counter));
        playback->Records = Budget().zeroed<RecordElement>(playback->RecordCounter);
    }
    fillFrom(request, "RecordParam", playback->Records, playback->RecordCounter, readRecordParam);
    return playback.handOver();
}

Control GetPlayBackCtrlParamDecode(TiXmlElement* request, int* error) {
    report(error, request ? 0 : -1);
    Control control = Control();
    if (!request) return control;
    // kept: the label's trailing blank
    GetStringValue(request, "request ", "PlaybackGuid", control.PlaybackGuid, sizeof control.PlaybackGuid);
    if (TiXmlElement* const param = request->FirstChildElement("ControlParam"))
        readFields(param, controlFields, control);
    std::memcpy(control.SessionGuid, control.PlaybackGuid, sizeof control.SessionGuid);
    return control;
}

void ReleasePlaybackParam(Playback* param) {
    if (!param || !param->Records) return;
    delete[] param->Records;
    param->Records = nullptr;
    param->RecordCounter = 0;
}

} // namespace veltoprotocol
