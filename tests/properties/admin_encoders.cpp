#include "properties/encoder_calls.h"

#include "properties/drawn_devices.h"

namespace veltoprotocol {
namespace {

struct AdminArguments : Arguments {
    Array<__tagVtDeviceParam> devices = draw.array(drawnDevice);
    Array<__tagVtChannelParam> channels = draw.array(drawnChannel);
    __tagVtDeviceParam device = drawnDevice(draw);
    __tagVtChannelParam channel = drawnChannel(draw);

    using Arguments::Arguments;
};

} // namespace

void visitAdmin(unsigned seed, Texts texts, const Visit& visit) {
    const AdminArguments a(seed, texts);
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

} // namespace veltoprotocol
