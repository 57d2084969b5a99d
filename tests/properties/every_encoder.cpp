#include "properties/every_encoder.h"

#include "properties/drawn.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <cstring>
#include <memory>

namespace veltoprotocol {
namespace {

// The records. Each one starts as noise, so that what stands behind a text's NUL and in reserved areas is not
// zero by chance.

__tagVtDeviceParam drawnDevice(Draw& draw) {
    auto device = draw.noise<__tagVtDeviceParam>();
    draw.fill(device.Guid, device.ServerGuid, device.VenderType, device.DeviceType, device.DriverType,
              device.MAC, device.DisplayName, device.IPAddress, device.DevicePort, device.HttpPort,
              device.FtpPort, device.UserName, device.Password, device.State, device.Token,
              device.ChannelCount, device.nIndex, device.PlaybackPort, device.res1, device.res2);
    return device;
}

__tagVtChannelParam drawnChannel(Draw& draw) {
    auto channel = draw.noise<__tagVtChannelParam>();
    draw.fill(channel.Guid, channel.DeviceGuid, channel.DisplayName, channel.Num, channel.Type,
              channel.GuidCopy, channel.Hidden, channel.Disabled, channel.Preview, channel.LiveStreamIndex,
              channel.LiveStreamSettings);
    return channel;
}

__tagVtRecordElementParam drawnRecord(Draw& draw) {
    auto record = draw.noise<__tagVtRecordElementParam>();
    draw.fill(record.ChannelGuid, record.guid, record.RecordType, record.RecordMode, record.StartTime,
              record.EndTime, record.RecordSize, record.RecordName, record.PictureGuid, record.PictureUrl,
              record.PictureSize, record.Index);
    return record;
}

__tagVtEMapInfo drawnMap(Draw& draw) {
    auto map = draw.noise<__tagVtEMapInfo>();
    draw.fill(map.MapInfoGuid, map.ParentMapGuid, map.MapType, map.GisCenterCityName, map.GisPosX,
              map.GisPosY, map.GisZoom, map.CustomizeImagePath, map.CustomizeImageSize,
              map.CustomizeImageType, map.MapName, map.Status, map.LastTime);
    return map;
}

__tagVtViewGroupInfo drawnViewGroup(Draw& draw) {
    auto info = draw.noise<__tagVtViewGroupInfo>();
    draw.fill(info.ViewGroupGuid, info.UserGuid, info.ReadOnly, info.Name, info.ViewGroupType,
              info.LastModifiedTime, info.LastModifieduser);
    return info;
}

// Numbers only, or numbers and texts whose members the caller fills.
template <class Record, class... Members>
Record drawn(Draw& draw, Members Record::*... members) {
    auto record = draw.noise<Record>();
    draw.fill(record.*members...);
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

// The arguments of all encoders.
struct Arguments {
    Draw draw;
    PointedText host = draw.headText(), connection = draw.headText(), path = draw.path();
    PointedText token = draw.pointedText(), name = draw.pointedText(), value = draw.pointedText();
    unsigned seqnum = draw.number<unsigned>();
    int result = draw.code(), loginResult = draw.code();
    Array<char> body = draw.body();
    Array<__tagVtDeviceParam> devices = draw.array(drawnDevice);
    Array<__tagVtChannelParam> channels = draw.array(drawnChannel);
    __tagVtDeviceParam device = drawnDevice(draw);
    __tagVtChannelParam channel = drawnChannel(draw);
    bool recordMissing = draw.missing();

    PointedText contentType = draw.headText();
    int number = draw.number<int>(), word = draw.number<int>();
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

    Array<__tagVtViewGroupInfo> viewGroups = draw.array(drawnViewGroup);
    __tagVtViewGroupInfo viewGroup = drawnViewGroup(draw);

    Arguments(unsigned seed, Texts texts) : draw(seed, texts) {
        attach(records, &__tagVtRecordParam::Records, &__tagVtRecordParam::Counter, found);
        attach(records, &__tagVtPlayBackParam::Records, &__tagVtPlayBackParam::RecordCounter, playback);
    }

    template <class Record>
    const Record* orNull(const Record& record) const {
        return recordMissing ? nullptr : &record;
    }
};

int copied(const std::string& text, char* out, int size) {
    if (text.size() > static_cast<std::size_t>(size)) return -1;
    std::memcpy(out, text.data(), text.size());
    return static_cast<int>(text.size());
}

// A document with one element, after `write` has written to it.
template <class Write>
int rendered(const Write& write, char* out, int size) {
    const std::unique_ptr<TiXmlDocument> doc(XmlHeaderEncode());
    auto* const element = static_cast<TiXmlElement*>(doc->LinkEndChild(new TiXmlElement("Element")));
    return write(element) == 0 ? copied(GetXmlEncode(doc.get()), out, size) : -1;
}

int base64(const Array<char>& in, char* out, int size) {
    std::string text(static_cast<std::size_t>(in.count > 0 ? in.count : 0) * 2 + 8, '#');
    text.resize(static_cast<std::size_t>(Base64Encode(&text[0], in.data(), in.count)));
    return copied(text, out, size);
}

// The encoder's name stands once, so that it cannot differ from what is called.
#define REQUEST(encoder, ...)                                                                                \
    visit({#encoder, Kind::request, 0, [&](char* out, int size) { return encoder(__VA_ARGS__); }})
#define RESPONSE(encoder, ...)                                                                               \
    visit({#encoder, Kind::response, 200, [&](char* out, int size) { return encoder(__VA_ARGS__); }})
#define RESPONSE_WITH(status, encoder, ...)                                                                  \
    visit({#encoder, Kind::response, status, [&](char* out, int size) { return encoder(__VA_ARGS__); }})
#define PRINTING_REQUEST(encoder, ...)                                                                       \
    visit({#encoder, Kind::request, 0, [&](char* out, int size) { return encoder(__VA_ARGS__); }, true, true})
#define PRINTING_RESPONSE(encoder, ...)                                                                      \
    visit({#encoder, Kind::response, 200, [&](char* out, int size) { return encoder(__VA_ARGS__); }, true,   \
           true})
#define BINARY_REQUEST(encoder, ...)                                                                         \
    visit({#encoder, Kind::request, 0, [&](char* out, int size) { return encoder(__VA_ARGS__); }, false})
#define BINARY_RESPONSE(encoder, ...)                                                                        \
    visit({#encoder, Kind::response, 200, [&](char* out, int size) { return encoder(__VA_ARGS__); }, false})
#define ALLOCATING_RESPONSE(encoder, ...)                                                                    \
    visit({#encoder, Kind::response, 200, [&](char* out, int size) { return encoder(__VA_ARGS__); }, false,  \
           false, true})
#define ELEMENT(encoder, ...)                                                                                \
    visit({#encoder, Kind::xml, 0, [&](char* out, int size) {                                                \
               return rendered([&](TiXmlElement* element) { return encoder(__VA_ARGS__); }, out, size);      \
           }})

void visitHelpers(const Arguments& a, const std::function<void(const EncoderCall&)>& visit) {
    const auto header = [&](TiXmlElement* root) { return GetVeltoHeaderEncode(root, a.seqnum); };
    const auto texts = [&](TiXmlElement* root) {
        SetStringValue(root, "Text", a.value);
        SetStringValueAtt(root, "Attribute", a.name);
        return 0;
    };
    const auto empty = [](TiXmlElement*) { return 0; };
    visit({"XmlHeaderEncode", Kind::xml, 0, [&](char* o, int n) { return rendered(empty, o, n); }});
    visit({"GetVeltoHeaderEncode", Kind::xml, 0, [&](char* o, int n) { return rendered(header, o, n); }});
    visit({"GetXmlEncode", Kind::xml, 0, [&](char* o, int n) { return rendered(texts, o, n); }});
    visit({"Base64Encode", Kind::text, 0, [&](char* o, int n) { return base64(a.body, o, n); }});
}

void visitMedia(const Arguments& a, const std::function<void(const EncoderCall&)>& visit) {
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

void visitViews(const Arguments& a, const std::function<void(const EncoderCall&)>& visit) {
    REQUEST(GetViewGroupsReqEncode, a.host, a.token, a.seqnum, a.value, out, size);
    RESPONSE(GetViewGroupsRespEncode, a.result, a.seqnum, a.viewGroups.data(), a.viewGroups.count, out, size);
    ELEMENT(GetViewGroupsParamEncode, element, a.orNull(a.viewGroup));
}

} // namespace

void visitEncoders(unsigned seed, Texts texts, const std::function<void(const EncoderCall&)>& visit) {
    const Arguments a(seed, texts);
    visitHelpers(a, visit);
    visitMedia(a, visit);
    visitViews(a, visit);
    REQUEST(HttpReqEncode, a.path, a.host, a.connection, a.body.data(), a.body.count, out, size);
    RESPONSE(HttpRespEncode, a.connection, a.body.data(), a.body.count, out, size);
    RESPONSE(GetRespEncode, a.result, a.seqnum, out, size, a.name, a.connection);
    RESPONSE(GetLogoutRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetSetViewGroupDataRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetAddDeviceRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetUpdateDeviceRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDeleteDeviceRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetAddStorageRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetUpdateStorageRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDeleteStorageRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetAddScheduleRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetUpdateScheduleRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDeleteScheduleRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetPlaybackRecordRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetPlaybackStopRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDownloadRecordRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDownloadStopRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDownloadPictureRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDownloadEMapPictureRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetManualRecordRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetNotificationRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetAddArchiveRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetUpdateArchiveRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDeleteArchiveRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetStopSearchDeviceRespEncode, a.result, a.seqnum, out, size);

    const bool refused = a.loginResult != 0 && a.loginResult != 2;
    REQUEST(GetLoginReqEncode, a.orNull(a.device), a.host, a.seqnum, out, size);
    RESPONSE_WITH(refused ? 401 : 200, GetLoginRespEncode, a.loginResult, a.token, a.seqnum, out, size);
    REQUEST(GetLogoutReqEncode, a.host, a.token, a.seqnum, out, size);
    REQUEST(GetHeartBeatReqEncode, a.host, a.token, a.seqnum, out, size);
    RESPONSE(GetHeartBeatRespEncode, a.seqnum, out, size);

    ELEMENT(GetDeviceParamEncode, element, a.orNull(a.device));
    ELEMENT(GetChannelParamEncode, element, a.orNull(a.channel));
    REQUEST(GetDeviceListReqEncode, a.host, a.token, a.seqnum, out, size, a.name);
    REQUEST(GetAllDeviceListReqEncode, a.host, a.token, a.seqnum, out, size);
    REQUEST(GetUserDeviceListReqEncode, a.host, a.token, a.seqnum, out, size);
    RESPONSE(GetDeviceListRespEncode, a.result, a.seqnum, a.devices.data(), a.devices.count,
             a.channels.data(), a.channels.count, out, size, a.name);
    RESPONSE(GetAllDeviceListRespEncode, a.result, a.seqnum, a.devices.data(), a.devices.count,
             a.channels.data(), a.channels.count, out, size);
    RESPONSE(GetUserDeviceListRespEncode, a.result, a.seqnum, a.devices.data(), a.devices.count,
             a.channels.data(), a.channels.count, out, size);
}

std::vector<NamedMessage> everyEncoder(unsigned seed, Texts texts) {
    // Kept for the next seed: a fresh one would cost the sanitizers more than all the calls.
    thread_local std::vector<char> out(1u << 18);
    std::vector<NamedMessage> messages;
    visitEncoders(seed, texts, [&](const EncoderCall& call) {
        const int returned = call.encode(out.data(), static_cast<int>(out.size()));
        const auto length = static_cast<std::size_t>(returned < 0 ? 0 : returned);
        messages.push_back({call.name, returned, std::string(out.data(), length)});
    });
    return messages;
}

std::vector<NamedMessage> everyEncoder(unsigned seed) { return everyEncoder(seed, Texts::anyBytes); }

} // namespace veltoprotocol
