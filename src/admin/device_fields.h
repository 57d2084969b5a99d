// The device and channel records as every command carries them.
#pragma once

#include "framing/fields.h"
#include "veltoprotocol/admin.h"

namespace veltoprotocol {

using Device = __tagVtDeviceParam;
using Channel = __tagVtChannelParam;

constexpr auto deviceFields = attributes(
    "Device", field("Guid", &Device::Guid), field("ServerGuid", &Device::ServerGuid),
    field("VenderType", &Device::VenderType), field("DeviceType", &Device::DeviceType),
    field("DriverType", &Device::DriverType), field("MAC", &Device::MAC),
    field("DisplayName", &Device::DisplayName), field("IPAddress", &Device::IPAddress),
    field("DevicePort", &Device::DevicePort), field("HttpPort", &Device::HttpPort),
    field("FtpPort", &Device::FtpPort), field("UserName", &Device::UserName),
    field("Password", &Device::Password), field("State", &Device::State), field("Token", &Device::Token),
    field("ChannelCount", &Device::ChannelCount), field("nIndex", &Device::nIndex),
    field("PlaybackPort", &Device::PlaybackPort), field("res1", &Device::res1), field("res2", &Device::res2));

// kept: "Type" comes before "DisplayName", which stands before it in the record
constexpr auto channelFields =
    attributes("Channel", field("Guid", &Channel::Guid), field("Type", &Channel::Type),
               field("DisplayName", &Channel::DisplayName), field("Num", &Channel::Num),
               field("Hidden", &Channel::Hidden), field("Disabled", &Channel::Disabled),
               field("Preview", &Channel::Preview), field("LiveStreamIndex", &Channel::LiveStreamIndex),
               field("LiveStreamSettings", &Channel::LiveStreamSettings));

} // namespace veltoprotocol
