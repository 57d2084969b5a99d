#include "framing/message.h"
#include "framing/tree.h"
#include "veltoprotocol/media.h"

namespace veltoprotocol {
namespace {

using Ptz = __tagVtPtzParam;
constexpr auto ptzFields = attributes("Ptz", field("Control", &Ptz::Control), field("Command", &Ptz::Command),
                                      field("Speed", &Ptz::Speed));

} // namespace

int GetPtzReqEncode(const char* token, const char* channelGuid, const Ptz* ptz, const char* host,
                    unsigned int seqnum, char* out, int size) {
    if (!ptz) return -1;
    const auto tree = [&](auto x) {
        x.value("ChannelGuid", channelGuid);
        x.element("Ptz", ptzFields(*ptz));
    };
    return Request("PtzControl", seqnum, Token{token})
        .printedAs("PtzControl req")
        .post(commandPath, host, tree, out, size);
}

int GetPtzRespEncode(int result, unsigned int seqnum, char* out, int size) {
    const auto tree = [&](auto x) { x.value("Result", result); };
    return Response("PtzControl", seqnum).printedAs("PtzControl Resp").reply(tree, out, size);
}

Ptz GetPtzReqDecode(TiXmlElement* ptzElement, int* error) { return readRecord(ptzElement, ptzFields, error); }

} // namespace veltoprotocol
