// Each writer stops at a text field's width: the records of server administration. Flags of theirs are an x
// as well, and are written as any byte but 0 is.
#include "properties/full_records.h"
#include "properties/sent_fields.h"

namespace {

using namespace veltoprotocol;

const Carried ofServer = {Carried::byAttributes,
                          {{"Guid", 48}, {"DisplayName", 64}, {"PrivateAddress", 32}, {"PublicAddress", 32}},
                          {"PrivatePort", "PublicPort", "MaxClient"}};
const Carried ofUser = {
    Carried::byElements,
    {{"UserGuid", 48}, {"Id", 48}, {"AdsPath", 48}, {"UserName", 160}, {"SId", 48}, {"SamacCountName", 48}},
    {"Authclass"}};
const Carried ofChannelRights = {
    Carried::byElements, {{"Guid", 48}, {"ChannelGuid", 48}, {"UserGuid", 48}}, {}};
const Carried ofNet = {Carried::byAttributes,
                       {{"Mac", 24},
                        {"NetmaskAddr", 16},
                        {"GatewayAddr", 16},
                        {"DisplayName", 64},
                        {"DeviceAddress", 1024},
                        {"ucDnsAddr1", 16},
                        {"ucDnsAddr2", 16},
                        {"BroadcastAddr", 16},
                        {"ucDevType", 32},
                        {"ucSoftwareVersion", 64},
                        {"ucFirmwareVersion", 64}},
                       {"VenderType", "DeviceType", "DevicePort", "RtspPort", "ChannelCount", "nIndex",
                        "PlaybackPort", "res", "ucPlatformType"}};

// The attributes of an element of flags.
void expectFlagsSet(const TiXmlElement* element, int count) {
    ASSERT_NE(element, nullptr);
    for (const TiXmlAttribute* flag = element->FirstAttribute(); flag; flag = flag->Next(), --count)
        EXPECT_STREQ(flag->Value(), "1") << flag->Name();
    EXPECT_EQ(count, 0);
}

void expectFullServers(const TiXmlElement* list, int count) {
    ASSERT_NE(list, nullptr);
    for (auto* server = list->FirstChildElement("server"); server; --count) {
        expectFull(server, ofServer);
        EXPECT_STREQ(server->Attribute("EnabledPublic"), "1");
        server = server->NextSiblingElement("server");
    }
    EXPECT_EQ(count, 0);
}

TEST(TextFields, EndAtTheirWidthInServers) {
    expectFull(GetServerParamEncode, ofServer);
    FullRecords<__tagVtServerInfo> servers(2);
    const Document answer = sent(
        [&](char* out, int size) { return GetServerInfoRespEncode(0, 1, servers.records(), 2, out, size); });
    expectFullServers(below(answer, {"response", "servers"}), 2);
    const Document change = sent([&](char* out, int size) {
        return GetSetServerInfoReqEncode(VtDeviceReqAdd, servers.records(), 2, "h", "t", 1, out, size);
    });
    expectFullServers(below(change, {"request", "servers"}), 2);
}

TEST(TextFields, EndAtTheirWidthInAUser) {
    FullRecords<__tagVtUserInfo> user;
    const Document doc =
        sent([&](char* out, int size) { return GetUserInfoRespEncode(0, 1, user.records(), out, size); });
    expectFull(below(doc, {"response", "UserInfo"}), ofUser);
    expectFlagsSet(below(doc, {"response", "UserInfo", "UserRights"}), 6);
}

TEST(TextFields, EndAtTheirWidthInTheRightsOnChannels) {
    FullRecords<__tagVtUserChannelRights> rights(2);
    const Document doc = sent([&](char* out, int size) {
        return GetChannelRightsInfoRespEncode(0, 1, rights.records(), 2, out, size);
    });
    int count = 0;
    const TiXmlElement* channel = below(doc, {"response", "ChannelRights", "Channels", "Channel"});
    for (; channel; channel = channel->NextSiblingElement("Channel"), ++count) {
        expectFull(channel, ofChannelRights);
        expectFlagsSet(channel->FirstChildElement("ChannelRights"), 19);
    }
    EXPECT_EQ(count, 2);
}

// Behind the last text lies the reserved area, full as well.
TEST(TextFields, EndAtTheirWidthInNetworkSettings) {
    expectFull(GetDeviceNetParamEncode, ofNet);
    FullRecords<__tagVtDeviceNetParam> net;
    const Document doc = sent([&](char* out, int size) {
        return GetStartSearchDeviceRespEncode(0, 1, net.records(), true, out, size);
    });
    const TiXmlElement* const element = below(doc, {"response", "DeviceNet"});
    expectFull(element, ofNet);
    EXPECT_EQ(element->Attribute("Dhcp"), std::string('x', '\1'));
}

const Carried ofDeviceGuid = {Carried::byAttributes, {{"Guid", 48}}, {}};
const Carried ofDeviceEnds = {
    Carried::byAttributes,
    {{"Guid", 48}, {"MAC", 24}, {"DisplayName", 64}, {"IPAddress", 1024}, {"Token", 48}},
    {"res1", "res2"}};

TEST(TextFields, EndAtTheirWidthInChangesOfDevices) {
    FullRecords<__tagVtDeviceParam> devices;
    FullRecords<__tagVtChannelParam> channels;
    for (const auto encode : {GetAddDeviceReqEncode, GetUpdateDeviceReqEncode, GetDeleteDeviceReqEncode}) {
        const Document doc = sent([&](char* out, int size) {
            return encode(devices.records(), 1, channels.records(), 1, "h", 1, out, size);
        });
        expectFull(below(doc, {"request", "Devices", "Device"}),
                   encode == GetDeleteDeviceReqEncode ? ofDeviceGuid : ofDeviceEnds);
        expectFull(below(doc, {"request", "Channels", "Video", "Channel"}), ofDeviceGuid);
        EXPECT_EQ(below(doc, {"request", "Channels", "DeviceGuid"})->GetText(), std::string(48, 'x'));
    }
}

TEST(TextFields, EndAtTheirWidthInASearchForDevices) {
    FullRecords<__tagVtDeviceParam> device;
    const Document doc = sent([&](char* out, int size) {
        return GetStartSearchDeviceReqEncode(device.records(), 1, "h", 1, out, size);
    });
    expectFull(below(doc, {"request", "Device"}), ofDeviceEnds);
}

} // namespace
