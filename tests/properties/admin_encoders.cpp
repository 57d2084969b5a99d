#include "properties/encoder_calls.h"

#include "properties/drawn_devices.h"

namespace veltoprotocol {
namespace {

// Flags hold 0 or 1; the other bytes stay noise.
__tagVtUserRights drawnRights(Draw& draw) {
    auto rights = draw.noise<__tagVtUserRights>();
    draw.fill(rights.sharedviews, rights.privateviews, rights.viewlive, rights.viewbrowse, rights.viewsetup,
              rights.managementaccess);
    return rights;
}

__tagVtUserInfo drawnUser(Draw& draw) {
    auto user = draw.noise<__tagVtUserInfo>();
    draw.fill(user.UserGuid, user.Id, user.AdsPath, user.UserName, user.Authclass, user.SId,
              user.SamacCountName);
    user.Rights = drawnRights(draw);
    return user;
}

__tagVtUserChannelRights drawnChannelRights(Draw& draw) {
    auto rights = draw.noise<__tagVtUserChannelRights>();
    draw.fill(rights.Guid, rights.ChannelGuid, rights.UserGuid, rights.access, rights.aviexport,
              rights.jpegexport, rights.databaseexport, rights.videolive, rights.videobrowse, rights.ptz,
              rights.managepresets, rights.outputs, rights.presets, rights.events, rights.smartsearch,
              rights.sequences, rights.startrecording, rights.audiolive, rights.audiobrowse,
              rights.speakerlive, rights.speakerspeak, rights.subscriptionalarm);
    return rights;
}

__tagVtServerInfo drawnServer(Draw& draw) {
    auto server = draw.noise<__tagVtServerInfo>();
    draw.fill(server.Guid, server.DisplayName, server.PrivateAddress, server.PrivatePort,
              server.EnabledPublic, server.PublicAddress, server.PublicPort, server.MaxClient);
    return server;
}

__tagVtDeviceNetParam drawnNet(Draw& draw, Texts texts) {
    auto net = draw.noise<__tagVtDeviceNetParam>();
    draw.fill(net.VenderType, net.DeviceType, net.Mac, net.NetmaskAddr, net.GatewayAddr, net.DisplayName,
              net.DeviceAddress, net.DevicePort, net.RtspPort, net.ucDnsAddr1, net.ucDnsAddr2,
              net.ChannelCount, net.nIndex, net.BroadcastAddr, net.PlaybackPort, net.res, net.ucPlatformType,
              net.ucDevType, net.ucSoftwareVersion, net.ucFirmwareVersion);
    if (texts == Texts::printable) net.Dhcp = 0; // XML knows no character of code 1
    return net;
}

struct AdminArguments : Arguments {
    Array<__tagVtDeviceParam> devices = draw.array(drawnDevice);
    Array<__tagVtChannelParam> channels = draw.array(drawnChannel);
    __tagVtDeviceParam device = drawnDevice(draw);
    __tagVtChannelParam channel = drawnChannel(draw);
    Array<__tagVtDeviceParam> changedDevices = draw.array(drawnDevice, 1, 1);
    Array<__tagVtChannelParam> changedChannels = draw.array(drawnChannel, 1);
    __tagVtDeviceNetParam net;
    bool hasDevice = draw.oneIn(2);
    Array<__tagVtServerInfo> servers = draw.array(drawnServer);
    __tagVtServerInfo server = drawnServer(draw);
    __enumVtDeviceReqType reqType = static_cast<__enumVtDeviceReqType>(draw.number<int>());
    __tagVtUserInfo user = drawnUser(draw);
    Array<__tagVtUserChannelRights> rights = draw.array(drawnChannelRights);

    AdminArguments(unsigned seed, Texts texts) : Arguments(seed, texts), net(drawnNet(draw, texts)) {}
};

} // namespace

void visitAdmin(unsigned seed, Texts texts, const Visit& visit) {
    const AdminArguments a(seed, texts);
    const auto& devices = a.changedDevices;
    const auto& channels = a.changedChannels;
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
    REQUEST(GetDeviceEncode, devices.data(), devices.count, channels.data(), channels.count, a.host, a.seqnum,
            out, size, a.name);
    REQUEST(GetAddDeviceReqEncode, devices.data(), devices.count, channels.data(), channels.count, a.host,
            a.seqnum, out, size);
    REQUEST(GetUpdateDeviceReqEncode, devices.data(), devices.count, channels.data(), channels.count, a.host,
            a.seqnum, out, size);
    REQUEST(GetDeleteDeviceReqEncode, devices.data(), devices.count, channels.data(), channels.count, a.host,
            a.seqnum, out, size);
    RESPONSE(GetAddDeviceRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetUpdateDeviceRespEncode, a.result, a.seqnum, out, size);
    RESPONSE(GetDeleteDeviceRespEncode, a.result, a.seqnum, out, size);
    REQUEST(GetStartSearchDeviceReqEncode, a.orNull(a.device), a.number, a.host, a.seqnum, out, size);
    RESPONSE(GetStartSearchDeviceRespEncode, a.result, a.seqnum, a.orNull(a.net), a.hasDevice, out, size);
    REQUEST(GetStopSearchDeviceReqEncode, static_cast<unsigned>(a.number), a.host, a.seqnum, out, size);
    RESPONSE(GetStopSearchDeviceRespEncode, a.result, a.seqnum, out, size);
    ELEMENT(GetDeviceNetParamEncode, element, a.orNull(a.net));
    REQUEST(GetServerInfoReqEncode, a.host, a.token, a.seqnum, out, size);
    RESPONSE(GetServerInfoRespEncode, a.result, a.seqnum, a.servers.data(), a.servers.count, out, size);
    REQUEST(GetSetServerInfoReqEncode, a.reqType, a.servers.data(), a.servers.count, a.host, a.token,
            a.seqnum, out, size);
    RESPONSE(GetSetServerInfoRespEncode, a.result, a.seqnum, out, size);
    ELEMENT(GetServerParamEncode, element, a.orNull(a.server));
    REQUEST(GetUserInfoReqEncode, a.host, a.token, a.seqnum, out, size);
    RESPONSE(GetUserInfoRespEncode, a.result, a.seqnum, a.orNull(a.user), out, size);
    REQUEST(GetChannelRightsInfoReqEncode, a.host, a.token, a.seqnum, a.value, out, size);
    RESPONSE(GetChannelRightsInfoRespEncode, a.result, a.seqnum, a.rights.data(), a.rights.count, out, size);
}

} // namespace veltoprotocol
