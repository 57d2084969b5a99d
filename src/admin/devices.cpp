#include "admin/device_fields.h"
#include "framing/message.h"
#include "framing/tree.h"

namespace veltoprotocol {

int GetDeviceParamEncode(TiXmlElement* element, const Device* device) {
    return writeRecord(element, deviceFields, device);
}

int GetChannelParamEncode(TiXmlElement* element, const Channel* channel) {
    return writeRecord(element, channelFields, channel);
}

Device GetDeviceParamDecode(TiXmlElement* element, int* error) {
    return readRecord(element, deviceFields, error);
}

Channel GetChannelParamDecode(TiXmlElement* element, int* error) {
    Channel channel = readRecord(element, channelFields, error);
    std::memcpy(channel.GuidCopy, channel.Guid, sizeof channel.GuidCopy);
    return channel;
}

int GetDeviceListReqEncode(const char* host, const char* token, unsigned int seqnum, char* out, int size,
                           const char* name) {
    return Request(name, seqnum, Token{token}).post(commandPath, host, Empty(), out, size);
}

int GetAllDeviceListReqEncode(const char* host, const char* token, unsigned int seqnum, char* out, int size) {
    return GetDeviceListReqEncode(host, token, seqnum, out, size, "GetAllDeviceList");
}

int GetUserDeviceListReqEncode(const char* host, const char* token, unsigned int seqnum, char* out,
                               int size) {
    return GetDeviceListReqEncode(host, token, seqnum, out, size, "GetUserDeviceList");
}

int GetDeviceListRespEncode(int result, unsigned int seqnum, const Device* devices, int deviceCount,
                            const Channel* channels, int channelCount, char* out, int size,
                            const char* name) {
    const auto tree = [&](auto x) {
        x.value("Result", result);
        if (result != 0 || !devices || deviceCount < 1) return;
        x.value("DeviceCounter", deviceCount);
        x.list("Devices", entries(devices, deviceCount),
               [](auto wrapper, auto& device) { wrapper.element("Device", deviceFields(device)); });
        // kept: inside the device block, so that without devices no channel is sent either
        if (!channels || channelCount < 1) return;
        x.value("ChannelCounter", channelCount);
        x.list("Channels", entries(channels, channelCount), [](auto wrapper, auto& channel) {
            wrapper.value("DeviceGuid", channel.DeviceGuid);
            wrapper.element("Video", [&](auto video) { video.element("Channel", channelFields(channel)); });
        });
    };
    return Response(name, seqnum).reply(tree, out, size);
}

int GetAllDeviceListRespEncode(int result, unsigned int seqnum, const Device* devices, int deviceCount,
                               const Channel* channels, int channelCount, char* out, int size) {
    return GetDeviceListRespEncode(result, seqnum, devices, deviceCount, channels, channelCount, out, size,
                                   "GetAllDeviceList");
}

int GetUserDeviceListRespEncode(int result, unsigned int seqnum, const Device* devices, int deviceCount,
                                const Channel* channels, int channelCount, char* out, int size) {
    return GetDeviceListRespEncode(result, seqnum, devices, deviceCount, channels, channelCount, out, size,
                                   "GetUserDeviceList");
}

} // namespace veltoprotocol
