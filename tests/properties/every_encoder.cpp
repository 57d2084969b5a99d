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

    Arguments(unsigned seed, Texts texts) : draw(seed, texts) {}

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

} // namespace

void visitEncoders(unsigned seed, Texts texts, const std::function<void(const EncoderCall&)>& visit) {
    const Arguments a(seed, texts);
    visitHelpers(a, visit);
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
