// Compares what an administrator reads back with what was sent, field by field.
#ifndef EXAMPLES_ADMIN_COMPARISON_H
#define EXAMPLES_ADMIN_COMPARISON_H

#include "support/comparison.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <string>
#include <vector>

namespace example {

inline void compare(Comparison& check, const std::string& where,
                    const veltoprotocol::__tagVtDeviceParam& wanted,
                    const veltoprotocol::__tagVtDeviceParam& found) {
    check.same(where, "Guid", wanted.Guid, found.Guid);
    check.same(where, "ServerGuid", wanted.ServerGuid, found.ServerGuid);
    check.same(where, "VenderType", wanted.VenderType, found.VenderType);
    check.same(where, "DeviceType", wanted.DeviceType, found.DeviceType);
    check.same(where, "DriverType", wanted.DriverType, found.DriverType);
    check.same(where, "MAC", wanted.MAC, found.MAC);
    check.same(where, "DisplayName", wanted.DisplayName, found.DisplayName);
    check.same(where, "IPAddress", wanted.IPAddress, found.IPAddress);
    check.same(where, "DevicePort", wanted.DevicePort, found.DevicePort);
    check.same(where, "HttpPort", wanted.HttpPort, found.HttpPort);
    check.same(where, "FtpPort", wanted.FtpPort, found.FtpPort);
    check.same(where, "UserName", wanted.UserName, found.UserName);
    check.same(where, "Password", wanted.Password, found.Password);
    check.same(where, "State", wanted.State, found.State);
    check.same(where, "Token", wanted.Token, found.Token);
    check.same(where, "ChannelCount", wanted.ChannelCount, found.ChannelCount);
    check.same(where, "nIndex", wanted.nIndex, found.nIndex);
    check.same(where, "PlaybackPort", wanted.PlaybackPort, found.PlaybackPort);
    check.same(where, "res1", wanted.res1, found.res1);
    check.same(where, "res2", wanted.res2, found.res2);
}

// The decoder makes GuidCopy out of Guid.
inline void compare(Comparison& check, const std::string& where,
                    const veltoprotocol::__tagVtChannelParam& wanted,
                    const veltoprotocol::__tagVtChannelParam& found) {
    check.same(where, "Guid", wanted.Guid, found.Guid);
    check.same(where, "DeviceGuid", wanted.DeviceGuid, found.DeviceGuid);
    check.same(where, "DisplayName", wanted.DisplayName, found.DisplayName);
    check.same(where, "Num", wanted.Num, found.Num);
    check.same(where, "Type", wanted.Type, found.Type);
    check.same(where, "GuidCopy", wanted.Guid, found.GuidCopy);
    check.same(where, "Hidden", wanted.Hidden, found.Hidden);
    check.same(where, "Disabled", wanted.Disabled, found.Disabled);
    check.same(where, "Preview", wanted.Preview, found.Preview);
    check.same(where, "LiveStreamIndex", wanted.LiveStreamIndex, found.LiveStreamIndex);
    check.same(where, "LiveStreamSettings", wanted.LiveStreamSettings, found.LiveStreamSettings);
}

inline void compare(Comparison& check, const std::string& where,
                    const veltoprotocol::__tagVtServerInfo& wanted,
                    const veltoprotocol::__tagVtServerInfo& found) {
    check.same(where, "Guid", wanted.Guid, found.Guid);
    check.same(where, "DisplayName", wanted.DisplayName, found.DisplayName);
    check.same(where, "PrivateAddress", wanted.PrivateAddress, found.PrivateAddress);
    check.same(where, "PrivatePort", wanted.PrivatePort, found.PrivatePort);
    check.same(where, "EnabledPublic", wanted.EnabledPublic, found.EnabledPublic);
    check.same(where, "PublicAddress", wanted.PublicAddress, found.PublicAddress);
    check.same(where, "PublicPort", wanted.PublicPort, found.PublicPort);
    check.same(where, "MaxClient", wanted.MaxClient, found.MaxClient);
}

inline void compare(Comparison& check, const std::string& where, const veltoprotocol::__tagVtUserInfo& wanted,
                    const veltoprotocol::__tagVtUserInfo& found) {
    check.same(where, "UserGuid", wanted.UserGuid, found.UserGuid);
    check.same(where, "Id", wanted.Id, found.Id);
    check.same(where, "AdsPath", wanted.AdsPath, found.AdsPath);
    check.same(where, "UserName", wanted.UserName, found.UserName);
    check.same(where, "Authclass", wanted.Authclass, found.Authclass);
    check.same(where, "SId", wanted.SId, found.SId);
    check.same(where, "SamacCountName", wanted.SamacCountName, found.SamacCountName);
    check.same(where, "sharedviews", wanted.Rights.sharedviews, found.Rights.sharedviews);
    check.same(where, "privateviews", wanted.Rights.privateviews, found.Rights.privateviews);
    check.same(where, "viewlive", wanted.Rights.viewlive, found.Rights.viewlive);
    check.same(where, "viewbrowse", wanted.Rights.viewbrowse, found.Rights.viewbrowse);
    check.same(where, "viewsetup", wanted.Rights.viewsetup, found.Rights.viewsetup);
    check.same(where, "managementaccess", wanted.Rights.managementaccess, found.Rights.managementaccess);
}

inline void compare(Comparison& check, const std::string& where,
                    const veltoprotocol::__tagVtUserChannelRights& wanted,
                    const veltoprotocol::__tagVtUserChannelRights& found) {
    check.same(where, "Guid", wanted.Guid, found.Guid);
    check.same(where, "ChannelGuid", wanted.ChannelGuid, found.ChannelGuid);
    check.same(where, "UserGuid", wanted.UserGuid, found.UserGuid);
    check.same(where, "access", wanted.access, found.access);
    check.same(where, "aviexport", wanted.aviexport, found.aviexport);
    check.same(where, "jpegexport", wanted.jpegexport, found.jpegexport);
    check.same(where, "databaseexport", wanted.databaseexport, found.databaseexport);
    check.same(where, "videolive", wanted.videolive, found.videolive);
    check.same(where, "videobrowse", wanted.videobrowse, found.videobrowse);
    check.same(where, "ptz", wanted.ptz, found.ptz);
    check.same(where, "managepresets", wanted.managepresets, found.managepresets);
    check.same(where, "outputs", wanted.outputs, found.outputs);
    check.same(where, "presets", wanted.presets, found.presets);
    check.same(where, "events", wanted.events, found.events);
    check.same(where, "smartsearch", wanted.smartsearch, found.smartsearch);
    check.same(where, "sequences", wanted.sequences, found.sequences);
    check.same(where, "startrecording", wanted.startrecording, found.startrecording);
    check.same(where, "audiolive", wanted.audiolive, found.audiolive);
    check.same(where, "audiobrowse", wanted.audiobrowse, found.audiobrowse);
    check.same(where, "speakerlive", wanted.speakerlive, found.speakerlive);
    check.same(where, "speakerspeak", wanted.speakerspeak, found.speakerspeak);
    check.same(where, "subscriptionalarm", wanted.subscriptionalarm, found.subscriptionalarm);
}

// kept: the decoder fills ucFirmwareVersion with ucDevType, whose own field is shorter
inline void compare(Comparison& check, const std::string& where,
                    const veltoprotocol::__tagVtDeviceNetParam& wanted,
                    const veltoprotocol::__tagVtDeviceNetParam& found) {
    check.same(where, "VenderType", wanted.VenderType, found.VenderType);
    check.same(where, "DeviceType", wanted.DeviceType, found.DeviceType);
    check.same(where, "Mac", wanted.Mac, found.Mac);
    check.same(where, "NetmaskAddr", wanted.NetmaskAddr, found.NetmaskAddr);
    check.same(where, "GatewayAddr", wanted.GatewayAddr, found.GatewayAddr);
    check.same(where, "DisplayName", wanted.DisplayName, found.DisplayName);
    check.same(where, "DeviceAddress", wanted.DeviceAddress, found.DeviceAddress);
    check.same(where, "DevicePort", wanted.DevicePort, found.DevicePort);
    check.same(where, "RtspPort", wanted.RtspPort, found.RtspPort);
    check.same(where, "ucDnsAddr1", wanted.ucDnsAddr1, found.ucDnsAddr1);
    check.same(where, "ucDnsAddr2", wanted.ucDnsAddr2, found.ucDnsAddr2);
    check.same(where, "ChannelCount", wanted.ChannelCount, found.ChannelCount);
    check.same(where, "Dhcp", wanted.Dhcp, found.Dhcp);
    check.same(where, "nIndex", wanted.nIndex, found.nIndex);
    check.same(where, "BroadcastAddr", wanted.BroadcastAddr, found.BroadcastAddr);
    check.same(where, "PlaybackPort", wanted.PlaybackPort, found.PlaybackPort);
    check.same(where, "res", wanted.res, found.res);
    check.same(where, "ucPlatformType", wanted.ucPlatformType, found.ucPlatformType);
    check.same(where, "ucDevType", wanted.ucDevType, found.ucDevType);
    check.same(where, "ucSoftwareVersion", wanted.ucSoftwareVersion, found.ucSoftwareVersion);
    char devType[64] = {};
    fill(devType, text(wanted.ucDevType));
    check.same(where, "ucFirmwareVersion", devType, found.ucFirmwareVersion);
}

// Of the records in `own`, those that are `wanted` were found, each once, and the others were not. What else
// was found belongs to others.
template <class Record>
void compareOwn(Comparison& check, const std::string& kind, const std::vector<Record>& wanted,
                const std::vector<Record>& own, const std::vector<Record>& found) {
    for (const Record& one : own) {
        const auto isIt = [&](const Record& other) { return text(other.Guid) == text(one.Guid); };
        const std::string where = kind + " " + text(one.Guid);
        const auto record = std::find_if(wanted.begin(), wanted.end(), isIt);
        check.same(where, "number of entries", record == wanted.end() ? 0 : 1,
                   static_cast<int>(std::count_if(found.begin(), found.end(), isIt)));
        if (record != wanted.end())
            compare(check, where, *record, *std::find_if(found.begin(), found.end(), isIt));
    }
}

} // namespace example

#endif
