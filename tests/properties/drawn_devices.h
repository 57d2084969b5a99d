// Devices and channels, which a login needs as well.
#pragma once

#include "properties/drawn.h"

#include <LibVeltoProtocol.h>

namespace veltoprotocol {

inline __tagVtDeviceParam drawnDevice(Draw& draw) {
    auto device = draw.noise<__tagVtDeviceParam>();
    draw.fill(device.Guid, device.ServerGuid, device.VenderType, device.DeviceType, device.DriverType,
              device.MAC, device.DisplayName, device.IPAddress, device.DevicePort, device.HttpPort,
              device.FtpPort, device.UserName, device.Password, device.State, device.Token,
              device.ChannelCount, device.nIndex, device.PlaybackPort, device.res1, device.res2);
    return device;
}

inline __tagVtChannelParam drawnChannel(Draw& draw) {
    auto channel = draw.noise<__tagVtChannelParam>();
    draw.fill(channel.Guid, channel.DeviceGuid, channel.DisplayName, channel.Num, channel.Type,
              channel.GuidCopy, channel.Hidden, channel.Disabled, channel.Preview, channel.LiveStreamIndex,
              channel.LiveStreamSettings);
    return channel;
}

} // namespace veltoprotocol
