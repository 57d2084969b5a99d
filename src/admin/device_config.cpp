// Devices with their channels, as an administrator adds, changes and deletes them.
#include "admin/device_fields.h"
#include "framing/message.h"

namespace veltoprotocol {
namespace {

constexpr auto deviceGuidField = attributes("Device", field("Guid", &Device::Guid));
constexpr auto channelGuidField = attributes("Channel", field("Guid", &Channel::Guid));

// Each device and channel with these of its fields. No token.
template <class DeviceList, class ChannelList>
int sendDevices(const char* name, const Device* devices, int deviceCount, const DeviceList& deviceList,
                const Channel* channels, int channelCount, const ChannelList& channelList, const char* host,
                unsigned int seqnum, char* out, int size) {
    // kept: no request without a channel, not even to delete
    if (!channels || channelCount < 1 || !devices || deviceCount < 1) return -1;
    const auto tree = [&](auto x) {
        x.value("DeviceCounter", deviceCount);
        x.list("Devices", entries(devices, deviceCount),
               [&](auto wrapper, auto& device) { wrapper.element("Device", deviceList(device)); });
        x.value("ChannelCounter", channelCount);
        x.list("Channels", entries(channels, channelCount), [&](auto wrapper, auto& channel) {
            wrapper.value("DeviceGuid", channel.DeviceGuid);
            wrapper.element("Video", [&](auto video) { video.element("Channel", channelList(channel)); });
        });
    };
    return Request(name, seqnum).post(managePath, host, tree, out, size);
}

} // namespace

int GetDeviceEncode(const Device* devices, int deviceCount, const Channel* channels, int channelCount,
                    const char* host, unsigned int seqnum, char* out, int size, const char* name) {
    return sendDevices(name, devices, deviceCount, deviceFields, channels, channelCount, channelFields, host,
                       seqnum, out, size);
}

int GetAddDeviceReqEncode(const Device* devices, int deviceCount, const Channel* channels, int channelCount,
                          const char* host, unsigned int seqnum, char* out, int size) {
    return GetDeviceEncode(devices, deviceCount, channels, channelCount, host, seqnum, out, size,
                           "AddDevice");
}

int GetUpdateDeviceReqEncode(const Device* devices, int deviceCount, const Channel* channels,
                             int channelCount, const char* host, unsigned int seqnum, char* out, int size) {
    return GetDeviceEncode(devices, deviceCount, channels, channelCount, host, seqnum, out, size,
                           "UpdateDevice");
}

int GetDeleteDeviceReqEncode(const Device* devices, int deviceCount, const Channel* channels,
                             int channelCount, const char* host, unsigned int seqnum, char* out, int size) {
    return sendDevices("DeleteDevice", devices, deviceCount, deviceGuidField, channels, channelCount,
                       channelGuidField, host, seqnum, out, size);
}

} // namespace veltoprotocol
