#include "fuzz/round_trip.h"

using namespace veltoprotocol;

namespace {

std::string element(Draw& draw) { return withSingleBlanks(wholeCharacters(draw.text(60))); }

void login(Draw& draw) {
    Trip<__tagVtDeviceParam> user(draw);
    std::string password = draw.text(64), name = draw.text(64); // Base64 carries any byte
    std::memset(user.sent.UserName, 0, 64);
    std::memset(user.sent.Password, 0, 64);
    name.copy(user.sent.UserName, 64);
    password.copy(user.sent.Password, 64);
    char out[2048];
    const int length = GetLoginReqEncode(&user.sent, "h", 1, out, sizeof out);
    const std::string value = GetAuthorization(out, length);
    requireSame("the credentials", GetAuthorizationDecode(value.data(), static_cast<int>(value.size())),
                name + ':' + password);
}

void token(Draw& draw) {
    const std::string sent = element(draw);
    const auto number = draw.number<unsigned>();
    const Arrived answer(
        [&](char* out, int size) { return GetLoginRespEncode(0, sent.c_str(), number, out, size); });
    int result = 7, error = 7;
    requireSame("the token of a login", GetLoginRespTokenDecode(answer.doc.get(), &result, &error), sent);
    requireSame("its result", result, 0);
    const Arrived request(
        [&](char* out, int size) { return GetLogoutReqEncode("h", sent.c_str(), number, out, size); });
    requireSame("the token of a logout", GetLogoutReqTokenDecode(request.doc.get(), &error), sent);
    requireSame("the token of a request", GetTokenDecode(request.doc.get(), &error), sent);
    requireSame("the sequence number", GetSeqnumberDecode(request.doc.get(), &error), number);
    requireSame("the version", GetVersionDecode(request.doc.get(), &error), "1.0.0");
    requireSame("the command", GetRequestNameDecode(request.doc.get(), &error), "Logout");
    requireSame("the command again", GetNameDecode(request.doc.get(), &error, "request"), "Logout");
}

void result(Draw& draw) {
    const int sent = draw.number<int>();
    const std::string name = wholeCharacters(draw.text(60));
    const Arrived answer(
        [&](char* out, int size) { return GetRespEncode(sent, 1, out, size, name.c_str(), "keep-alive"); });
    int error = 7;
    requireSame("the result", GetResponseErrorcodeDecode(answer.doc.get(), &error), sent);
    requireSame("the command", GetResponseNameDecode(answer.doc.get(), &error), name);
}

using Device = __tagVtDeviceParam;
Trip<Device> device(Draw& draw) {
    Trip<Device> trip(draw);
    trip.carry(Carrier::attributes, &Device::Guid, &Device::ServerGuid, &Device::VenderType,
               &Device::DeviceType, &Device::DriverType, &Device::MAC, &Device::DisplayName,
               &Device::IPAddress, &Device::DevicePort, &Device::HttpPort, &Device::FtpPort,
               &Device::UserName, &Device::Password, &Device::State, &Device::Token, &Device::ChannelCount,
               &Device::nIndex, &Device::PlaybackPort, &Device::res1, &Device::res2);
    return trip;
}

using Channel = __tagVtChannelParam;
Trip<Channel> channel(Draw& draw) {
    Trip<Channel> trip(draw);
    trip.carry(Carrier::elements, &Channel::DeviceGuid);
    trip.carry(Carrier::attributes, &Channel::Guid, &Channel::DisplayName, &Channel::Num, &Channel::Type,
               &Channel::Hidden, &Channel::Disabled, &Channel::Preview, &Channel::LiveStreamIndex,
               &Channel::LiveStreamSettings);
    std::memcpy(trip.back.GuidCopy, trip.back.Guid, sizeof trip.back.GuidCopy);
    return trip;
}

// The channel's device stands beside it.
Channel channelOf(TiXmlElement* wrapper, int* error) {
    Channel channel =
        GetChannelParamDecode(wrapper->FirstChildElement("Video")->FirstChildElement("Channel"), error);
    GetStringValue(wrapper, "Channels", "DeviceGuid", channel.DeviceGuid, sizeof channel.DeviceGuid);
    return channel;
}

void inventory(Draw& draw) {
    const auto devices = severalTrips<Device>(draw, device);
    const auto channels = severalTrips<Channel>(draw, channel);
    const auto sentDevices = sentOf(devices);
    const auto sentChannels = sentOf(channels);
    const auto deviceCount = static_cast<int>(devices.size()),
               channelCount = static_cast<int>(channels.size());
    const Arrived list([&](char* out, int size) {
        return GetAllDeviceListRespEncode(0, 1, sentDevices.data(), deviceCount, sentChannels.data(),
                                          channelCount, out, size);
    });
    const Arrived usersList([&](char* out, int size) {
        return GetUserDeviceListRespEncode(0, 1, sentDevices.data(), deviceCount, sentChannels.data(),
                                           channelCount, out, size);
    });
    const auto sending = [&](const auto& encode) {
        return Arrived([&](char* out, int size) {
            return encode(sentDevices.data(), deviceCount, sentChannels.data(), channelCount, "h", 1, out,
                          size);
        });
    };
    const Arrived added = sending(GetAddDeviceReqEncode), changed = sending(GetUpdateDeviceReqEncode);
    for (const Arrived* message : {&list, &usersList, &added, &changed}) {
        requireBack("a device", message->all({"Devices", "Device"}), devices, GetDeviceParamDecode);
        requireBack("a channel", message->all({"Channels"}), channels, channelOf);
    }
    requireBackAlone("a device alone", devices.front(), GetDeviceParamEncode, GetDeviceParamDecode);
    Trip<Channel> alone = channels.front(); // its device stands beside it
    std::memset(alone.back.DeviceGuid, 0, sizeof alone.back.DeviceGuid);
    requireBackAlone("a channel alone", alone, GetChannelParamEncode, GetChannelParamDecode);
}

using Net = __tagVtDeviceNetParam;
void discovery(Draw& draw) {
    Trip<Net> trip(draw);
    trip.carry(Carrier::attributes, &Net::VenderType, &Net::DeviceType, &Net::Mac, &Net::NetmaskAddr,
               &Net::GatewayAddr, &Net::DisplayName, &Net::DeviceAddress, &Net::DevicePort, &Net::RtspPort,
               &Net::ucDnsAddr1, &Net::ucDnsAddr2, &Net::ChannelCount, &Net::nIndex, &Net::BroadcastAddr,
               &Net::PlaybackPort, &Net::res, &Net::ucPlatformType, &Net::ucDevType, &Net::ucSoftwareVersion);
    // The one is written and never read; the bytes of the other are read to both.
    const std::string firmware = wholeCharacters(draw.text(63));
    firmware.copy(trip.sent.ucFirmwareVersion, 64);
    trip.sent.ucFirmwareVersion[firmware.size()] = '\0';
    std::memcpy(trip.back.ucFirmwareVersion, trip.back.ucDevType, sizeof trip.back.ucDevType);
    trip.sent.Dhcp = static_cast<char>(draw.below(256));
    trip.back.Dhcp = trip.sent.Dhcp == 1; // as many bytes of 1 are sent, and one is read
    const Arrived answer([&](char* out, int size) {
        return GetStartSearchDeviceRespEncode(0, 1, &trip.sent, true, out, size);
    });
    int error = 7;
    requireSameRecord("what a search found", GetDeviceNetParamDecode(answer.at({"DeviceNet"}), &error),
                      trip.back);
    requireBackAlone("a device's network alone", trip, GetDeviceNetParamEncode, GetDeviceNetParamDecode);
    const auto device1 = device(draw);
    const Arrived request([&](char* out, int size) {
        return GetStartSearchDeviceReqEncode(&device1.sent, 1, "h", 1, out, size);
    });
    requireSameRecord("what a search asks for", GetDeviceParamDecode(request.at({"Device"}), &error),
                      device1.back);
}

using Server = __tagVtServerInfo;
void servers(Draw& draw) {
    const auto trips = severalTrips<Server>(draw, [](Draw& from) {
        Trip<Server> trip(from);
        trip.carry(Carrier::attributes, &Server::Guid, &Server::DisplayName, &Server::PrivateAddress,
                   &Server::PrivatePort, &Server::EnabledPublic, &Server::PublicAddress, &Server::PublicPort,
                   &Server::MaxClient);
        return trip;
    });
    const auto sent = sentOf(trips);
    const auto count = static_cast<int>(sent.size());
    const Arrived answer(
        [&](char* out, int size) { return GetServerInfoRespEncode(0, 1, sent.data(), count, out, size); });
    const Arrived request([&](char* out, int size) {
        return GetSetServerInfoReqEncode(VtDeviceReqAdd, sent.data(), count, "h", "t", 1, out, size);
    });
    for (const Arrived* message : {&answer, &request})
        requireBack("a server", message->all({"servers", "server"}), trips, GetServerParamDecode);
    requireBackAlone("a server alone", trips.front(), GetServerParamEncode, GetServerParamDecode);
}

using User = __tagVtUserInfo;
void user(Draw& draw) {
    Trip<User> trip(draw);
    Trip<__tagVtUserRights> rights(draw);
    using Rights = __tagVtUserRights;
    trip.carry(Carrier::elements, &User::UserGuid, &User::Id, &User::AdsPath, &User::Authclass, &User::SId,
               &User::SamacCountName);
    trip.carryUpTo(80, Carrier::elements, &User::UserName);
    rights.carry(Carrier::attributes, &Rights::sharedviews, &Rights::privateviews, &Rights::viewlive,
                 &Rights::viewbrowse, &Rights::viewsetup, &Rights::managementaccess);
    trip.sent.Rights = rights.sent;
    trip.back.Rights = rights.back;
    const Arrived answer(
        [&](char* out, int size) { return GetUserInfoRespEncode(0, 1, &trip.sent, out, size); });
    int error = 7;
    requireSameRecord("a user", GetUserInfoParamDecode(answer.doc.get(), &error), trip.back);
    requireSame("a user, error", error, 0);
    TiXmlElement* const rightsAlone = answer.at({"UserInfo", "UserRights"});
    requireSameRecord("a user's rights", GetUserRightsParamDecode(rightsAlone, &error), rights.back);
}

using ChannelRights = __tagVtUserChannelRights;
void channelRights(Draw& draw) {
    const auto trips = severalTrips<ChannelRights>(draw, [](Draw& from) {
        Trip<ChannelRights> trip(from);
        trip.carry(Carrier::elements, &ChannelRights::Guid, &ChannelRights::ChannelGuid,
                   &ChannelRights::UserGuid);
        trip.carry(Carrier::attributes, &ChannelRights::access, &ChannelRights::aviexport,
                   &ChannelRights::jpegexport, &ChannelRights::databaseexport, &ChannelRights::videolive,
                   &ChannelRights::videobrowse, &ChannelRights::ptz, &ChannelRights::managepresets,
                   &ChannelRights::outputs, &ChannelRights::presets, &ChannelRights::events,
                   &ChannelRights::smartsearch, &ChannelRights::sequences, &ChannelRights::startrecording,
                   &ChannelRights::audiolive, &ChannelRights::audiobrowse, &ChannelRights::speakerlive,
                   &ChannelRights::speakerspeak, &ChannelRights::subscriptionalarm);
        return trip;
    });
    const auto sent = sentOf(trips);
    const Arrived answer([&](char* out, int size) {
        return GetChannelRightsInfoRespEncode(0, 1, sent.data(), static_cast<int>(sent.size()), out, size);
    });
    requireBack("rights on a channel", answer.all({"ChannelRights", "Channels", "Channel"}), trips,
                GetChannelRightsInfoParamDecode);
}

} // namespace

std::vector<RoundTrip> sessionTrips() {
    return {{"Login", login}, {"Logout", token}, {"any answer", result}};
}

std::vector<RoundTrip> adminTrips() {
    return {{"GetAllDeviceList", inventory},
            {"StartSearchDevice", discovery},
            {"SetServerInfo", servers},
            {"GetUserInfo", user},
            {"GetChannelRightsInfo", channelRights}};
}
