// The search for devices in the network.
#include "admin/device_fields.h"
#include "framing/message.h"
#include "framing/tree.h"

namespace veltoprotocol {
namespace {

using Net = __tagVtDeviceNetParam;

constexpr auto netFields = attributes(
    "DeviceNet", field("VenderType", &Net::VenderType), field("DeviceType", &Net::DeviceType),
    field("Mac", &Net::Mac), field("NetmaskAddr", &Net::NetmaskAddr), field("GatewayAddr", &Net::GatewayAddr),
    field("DisplayName", &Net::DisplayName), field("DeviceAddress", &Net::DeviceAddress),
    field("DevicePort", &Net::DevicePort), field("RtspPort", &Net::RtspPort),
    field("ucDnsAddr1", &Net::ucDnsAddr1), field("ucDnsAddr2", &Net::ucDnsAddr2),
    field("ChannelCount", &Net::ChannelCount),
    field("Dhcp", &Net::Dhcp).as<RunOfOnes>(), // kept: as many characters of code 1, read back as one of them
    field("nIndex", &Net::nIndex), field("BroadcastAddr", &Net::BroadcastAddr),
    field("PlaybackPort", &Net::PlaybackPort), field("res", &Net::res),
    field("ucPlatformType", &Net::ucPlatformType), field("ucDevType", &Net::ucDevType),
    field("ucSoftwareVersion", &Net::ucSoftwareVersion),
    field("ucFirmwareVersion", &Net::ucFirmwareVersion).writeOnly(),
    field("ucDevType", &Net::ucFirmwareVersion).readOnly()); // kept: read from the other name

} // namespace

int GetStartSearchDeviceReqEncode(const Device* device, int multiNet, const char* host, unsigned int seqnum,
                                  char* out, int size) {
    if (!device) return -1;
    const auto tree = [&](auto x) {
        x.value("MultiNet", multiNet);
        x.element("Device", deviceFields(*device));
    };
    return Request("StartSearchDevice", seqnum).post(managePath, host, tree, out, size);
}

int GetStartSearchDeviceRespEncode(int result, unsigned int seqnum, const Net* net, bool hasDevice, char* out,
                                   int size) {
    const auto tree = [&](auto x) {
        x.value("Result", result);
        x.value("HasDevice", hasDevice); // kept: whatever the result
        if (net && hasDevice) x.element("DeviceNet", netFields(*net));
    };
    return Response("StartSearchDevice", seqnum).reply(tree, out, size);
}

int GetStopSearchDeviceReqEncode(unsigned int searchSeqnum, const char* host, unsigned int seqnum, char* out,
                                 int size) {
    const auto tree = [&](auto x) { x.value("Seqnum", Signed::onWire(searchSeqnum)); };
    return Request("StopSearchDevice", seqnum).post(managePath, host, tree, out, size);
}

int GetDeviceNetParamEncode(TiXmlElement* element, const Net* net) {
    return writeRecord(element, netFields, net);
}

Net GetDeviceNetParamDecode(TiXmlElement* deviceNet, int* error) {
    return readRecord(deviceNet, netFields, error);
}

} // namespace veltoprotocol
