// Starting live streams, and framing their video.
#include "framing/message.h"
#include "framing/walk.h"
#include "veltoprotocol/media.h"

namespace veltoprotocol {
namespace {

Walk requestChild(TiXmlDocument* doc, int* error, const char* name) {
    return Walk(doc, error).required("servercommandservice").required("request").required(name);
}

} // namespace

int GetRealPlayStartReqEncode(const char* token, const char* channelGuid, int streamType, const char* host,
                              unsigned int seqnum, char* out, int size) {
    // kept: the request names no device, although the server has a reader for one
    const auto tree = [&](auto x) {
        x.value("ChannelGuid", channelGuid);
        x.value("StreamType", streamType);
    };
    return Request("StartRealplay", seqnum, Token{token})
        .printedAs("StartRealplay")
        .post(commandPath, host, tree, out, size);
}

int GetRealPlayStartRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "StartRealplay", "keep-alive");
}

int GetVideoDataEncode(const __tagVtStreamHeader& header, const char* data, int len, char* out, int size) {
    // kept: a size of 0 is no argument error here, it is a message that does not fit; both are -1
    const Text frame = payload(data, len);
    if (frame.absent()) return -1;
    const Text prefix{reinterpret_cast<const char*>(&header), sizeof header};
    return assemble(Head::response(keepAlive).withContentType("video/h264"), {prefix, frame}, out, size);
}

std::string GetRealPlayStartReqTokenDecode(TiXmlDocument* doc, int* error) {
    return GetTokenDecode(doc, error);
}

std::string GetRealPlayStartReqDeviceGuidDecode(TiXmlDocument* doc, int* error) {
    return GetString(requestChild(doc, error, "DeviceGuid").element());
}

std::string GetRealPlayStartReqChannelGuidDecode(TiXmlDocument* doc, int* error) {
    return GetString(requestChild(doc, error, "ChannelGuid").element());
}

int GetRealPlayStartReqStreamTypeDecode(TiXmlDocument* doc, int* error) {
    const Walk streamType = requestChild(doc, error, "StreamType");
    return streamType ? GetInt(streamType.element()) : 0;
}

std::string GetPlayBackReqPlayGuidDecode(TiXmlDocument* doc, int* error) {
    return GetString(requestChild(doc, error, "PlaybackGuid").element());
}

std::string GetRealPlayStartRespDecode(TiXmlDocument* doc, int* result, int* error) {
    // kept: a missing response is no error and shows as the result -1 alone; the text is empty on every path
    const Walk code =
        Walk(doc, error).required("servercommandservice").expected("response").required("Result");
    report(result, GetInt(code.element()));
    return {};
}

} // namespace veltoprotocol
