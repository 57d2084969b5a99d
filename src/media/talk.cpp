// Two-way talk, and requests whose body is raw data.
#include "framing/message.h"
#include "framing/tree.h"
#include "veltoprotocol/media.h"

namespace veltoprotocol {
namespace {

using Audio = __tagVtAudioParam;
constexpr auto audioFields =
    attributes("AudioParam", field("AudioType", &Audio::AudioType), field("BitRate", &Audio::BitRate),
               field("SampleRate", &Audio::SampleRate), field("BitsPerSample", &Audio::BitsPerSample),
               field("Channels", &Audio::Channels));

} // namespace

int GetStartTalkReqEncode(const char* token, const char* channelGuid, const Audio* audio, const char* host,
                          unsigned int seqnum, char* out, int size) {
    if (!audio) return -1;
    const auto tree = [&](auto x) {
        x.value("ChannelGuid", channelGuid);
        x.element("AudioParam", audioFields(*audio));
    };
    return Request("StartTalk", seqnum, Token{token})
        .printedAs("startTalk req")
        .post(commandPath, host, tree, out, size);
}

int GetStartTalkRespEncode(int result, unsigned int seqnum, char* out, int size) {
    const auto tree = [&](auto x) { x.value("Result", result); };
    // kept: the wording of PTZ in the line of a talk
    return Response("StartTalk", seqnum).printedAs("PtzControl Resp").reply(tree, out, size);
}

int GetStopTalkReqEncode(const char* token, const char* channelGuid, const char* host, unsigned int seqnum,
                         char* out, int size) {
    const auto tree = [&](auto x) { x.value("ChannelGuid", channelGuid); };
    return Request("StopTalk", seqnum, Token{token})
        .printedAs("stopTalk req")
        .post(commandPath, host, tree, out, size);
}

int GetStopTalkRespEncode(int result, unsigned int seqnum, char* out, int size) {
    const auto tree = [&](auto x) { x.value("Result", result); };
    return Response("StopTalk", seqnum).printedAs("StopTalk Resp").reply(tree, out, size);
}

// kept: the first two arguments belong to the interface and not to the message
int GetDataReqEncode(const char* /*ignored1*/, const char* /*ignored2*/, const __tagVtDataParam* payloadParam,
                     const char* host, const char* contentType, char* out, int size) {
    if (!payloadParam) return -1;
    const Text data = payload(payloadParam->Data, payloadParam->DataLength);
    if (data.absent()) return -1;
    const Head head = Head::request(commandPath, host, keepAlive).withUploadedType(contentType);
    return assemble(head, {data}, out, size);
}

Audio GetStartTalkReqDecode(TiXmlElement* audioParam, int* error) {
    return readRecord(audioParam, audioFields, error);
}

} // namespace veltoprotocol
