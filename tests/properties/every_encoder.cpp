#include "properties/every_encoder.h"

#include "properties/drawn_devices.h"
#include "properties/encoder_calls.h"

namespace veltoprotocol {
namespace {

int base64(const Array<char>& in, char* out, int size) {
    std::string text(static_cast<std::size_t>(in.count > 0 ? in.count : 0) * 2 + 8, '#');
    text.resize(static_cast<std::size_t>(Base64Encode(&text[0], in.data(), in.count)));
    return copied(text, out, size);
}

struct FrameArguments : Arguments {
    __tagVtDeviceParam device = drawnDevice(draw);

    using Arguments::Arguments;
};

void visitHelpers(const Arguments& a, const Visit& visit) {
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

void visitFrame(const FrameArguments& a, const Visit& visit) {
    REQUEST(HttpReqEncode, a.path, a.host, a.connection, a.body.data(), a.body.count, out, size);
    RESPONSE(HttpRespEncode, a.connection, a.body.data(), a.body.count, out, size);
    RESPONSE(GetRespEncode, a.result, a.seqnum, out, size, a.name, a.connection);
    RESPONSE(GetLogoutRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetPlaybackRecordRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetPlaybackStopRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDownloadRecordRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDownloadStopRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDownloadPictureRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDownloadEMapPictureRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetManualRecordRespEncode, a.result, a.seqnum, out, size);

    const bool refused = a.loginResult != 0 && a.loginResult != 2;
    REQUEST(GetLoginReqEncode, a.orNull(a.device), a.host, a.seqnum, out, size);
    RESPONSE_WITH(refused ? 401 : 200, GetLoginRespEncode, a.loginResult, a.token, a.seqnum, out, size);
    REQUEST(GetLogoutReqEncode, a.host, a.token, a.seqnum, out, size);
    REQUEST(GetHeartBeatReqEncode, a.host, a.token, a.seqnum, out, size);
    RESPONSE(GetHeartBeatRespEncode, a.seqnum, out, size);
}

} // namespace

void visitEncoders(unsigned seed, Texts texts, const Visit& visit) {
    const FrameArguments a(seed, texts);
    visitHelpers(a, visit);
    visitFrame(a, visit);
    visitAdmin(seed, texts, visit);
    visitEvents(seed, texts, visit);
    visitMaps(seed, texts, visit);
    visitMedia(seed, texts, visit);
    visitRecording(seed, texts, visit);
    visitViews(seed, texts, visit);
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
