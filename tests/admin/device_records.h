// A device and a channel with every field distinct, and their attributes on the wire.
#pragma once

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstring>
#include <string>

// Noise wherever no text reaches and nothing is carried.
inline veltoprotocol::__tagVtDeviceParam deviceWith(const char* guid) {
    veltoprotocol::__tagVtDeviceParam made;
    std::memset(&made, '\xA7', sizeof made);
    std::strcpy(made.Guid, guid);
    std::strcpy(made.ServerGuid, "server");
    made.VenderType = 1;
    made.DeviceType = 2;
    made.DriverType = 3;
    std::strcpy(made.MAC, "00:11:22:33:44:55");
    std::strcpy(made.DisplayName, "Gate \"North\"");
    std::strcpy(made.IPAddress, "192.168.1.64");
    made.DevicePort = 8000;
    made.HttpPort = 80;
    made.FtpPort = 21;
    std::strcpy(made.UserName, "user");
    std::strcpy(made.Password, "p<&>'w");
    made.State = -4;
    std::strcpy(made.Token, "token");
    made.ChannelCount = 5;
    made.nIndex = 6;
    made.PlaybackPort = 7;
    made.res1 = INT_MIN;
    made.res2 = INT_MAX;
    return made;
}

inline veltoprotocol::__tagVtChannelParam channelWith(const char* guid, bool preview) {
    veltoprotocol::__tagVtChannelParam made;
    std::memset(&made, '\xA7', sizeof made);
    std::strcpy(made.Guid, guid);
    std::strcpy(made.DeviceGuid, "of-dev-<1>");
    std::strcpy(made.DisplayName, "Door");
    made.Num = 1;
    made.Type = 2;
    made.Hidden = 3;
    made.Disabled = -4;
    made.Preview = preview;
    made.LiveStreamIndex = 5;
    made.LiveStreamSettings = 6;
    return made;
}

// As deviceWith() and channelWith() are written.
inline std::string deviceElement(const std::string& guid) {
    return "<Device Guid=\"" + guid +
           R"(" ServerGuid="server" VenderType="1" DeviceType="2" DriverType="3" )"
           R"(MAC="00:11:22:33:44:55" DisplayName='Gate &quot;North&quot;' IPAddress="192.168.1.64" )"
           R"(DevicePort="8000" HttpPort="80" FtpPort="21" UserName="user" )"
           R"(Password="p&lt;&amp;&gt;&apos;w" State="-4" Token="token" ChannelCount="5" nIndex="6" )"
           R"(PlaybackPort="7" res1="-2147483648" res2="2147483647" />)"
           "\n";
}

inline std::string channelElement(const std::string& guid, const std::string& preview) {
    return "<Channel Guid=\"" + guid +
           R"(" Type="2" DisplayName="Door" Num="1" Hidden="3" Disabled="-4" Preview=")" + preview +
           R"(" LiveStreamIndex="5" LiveStreamSettings="6" />)"
           "\n";
}
