// The network settings of a found device as they lie in memory, and read back.
#include "admin/attribute_fields.h"
#include "support/child_fields.h"
#include "support/received.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

using namespace veltoprotocol;

namespace {

using Net = __tagVtDeviceNetParam;

// ucFirmwareVersion is filled from ucDevType too: of 33 to 64 bytes it is too long for the first of them
// alone.
const std::vector<AttributeField> fields = {{"VenderType", AttributeField::number, 0},
                                            {"DeviceType", AttributeField::number, 4},
                                            {"Mac", 24, 8},
                                            {"NetmaskAddr", 16, 32},
                                            {"GatewayAddr", 16, 48},
                                            {"DisplayName", 64, 64},
                                            {"DeviceAddress", 1024, 128},
                                            {"DevicePort", AttributeField::number, 1152},
                                            {"RtspPort", AttributeField::number, 1156},
                                            {"ucDnsAddr1", 16, 1160},
                                            {"ucDnsAddr2", 16, 1176},
                                            {"ChannelCount", AttributeField::number, 1192},
                                            {"Dhcp", 1, 1196},
                                            {"nIndex", AttributeField::number, 1200},
                                            {"BroadcastAddr", 16, 1204},
                                            {"PlaybackPort", AttributeField::number, 1220},
                                            {"res", AttributeField::number, 1224},
                                            {"ucPlatformType", AttributeField::number, 1228},
                                            {"ucDevType", 32, 1232},
                                            {"ucSoftwareVersion", 64, 1264},
                                            {"ucDevType", 64, 1328}};

TEST(GetDeviceNetParamDecode, ReadsEachAttributeAndNamesWhatIsMissingOrTooLong) {
    expectReadsEachAttribute("DeviceNet", fields, GetDeviceNetParamDecode);
}

TEST(GetDeviceNetParamDecode, NeverReadsTheFirmwaresOwnAttribute) {
    expectReadsAlone("DeviceNet", fields, GetDeviceNetParamDecode, "ucFirmwareVersion", "1");
    const auto got =
        readBack(R"(<DeviceNet ucDevType="type" ucFirmwareVersion="firm" />)", GetDeviceNetParamDecode);
    EXPECT_STREQ(got.record.ucDevType, "type");
    EXPECT_STREQ(got.record.ucFirmwareVersion, "type");
}

TEST(GetDeviceNetParamDecode, NamesAMissingTypeTwice) {
    const auto got = readBack(
        R"(<E VenderType="0" DeviceType="0" Mac="" NetmaskAddr="" GatewayAddr="" DisplayName="" )"
        R"(DeviceAddress="" DevicePort="0" RtspPort="0" ucDnsAddr1="" ucDnsAddr2="" ChannelCount="0" )"
        R"(Dhcp="" nIndex="0" BroadcastAddr="" PlaybackPort="0" res="0" ucPlatformType="0" )"
        R"(ucFirmwareVersion="f" />)",
        GetDeviceNetParamDecode);
    EXPECT_EQ(got.printed, "xml file -..-DeviceNet(ucDevType) element not find!\n"
                           "xml file -..-DeviceNet(ucSoftwareVersion) element not find!\n"
                           "xml file -..-DeviceNet(ucDevType) element not find!\n");
    EXPECT_EQ(got.error, 0);
    EXPECT_TRUE(sameBytes(got.record, Net()));
}

// One character is its code, none is 0, and more do not fit.
TEST(GetDeviceNetParamDecode, ReadsDhcpAsOneCharacter) {
    const struct {
        const char* xml;
        char dhcp;
        bool tooLong;
    } cases[] = {{"&#x01;", 1, false},      {"&#1;", 1, false},  {"", 0, false},
                 {"&#x01;&#x01;", 0, true}, {"0", '0', false},   {"1", '1', false},
                 {"&#x7F;", 127, false},    {" ", ' ', false},   {"10", 0, true},
                 {"\xC3\xA4", 0, true}, // one character, two bytes
                 {"&#x02;", 2, false},      {"&lt;", '<', false}};
    for (const auto& c : cases) {
        const auto got =
            readBack("<DeviceNet Dhcp=\"" + std::string(c.xml) + "\" />", GetDeviceNetParamDecode);
        Net want = Net();
        want.Dhcp = c.dhcp;
        EXPECT_TRUE(sameBytes(got.record, want)) << c.xml;
        EXPECT_EQ(got.printed.find("DeviceNet(Dhcp) element too long!\n") != std::string::npos, c.tooLong)
            << c.xml;
    }
}

// In a document that says it is not UTF-8 a byte is a character.
TEST(GetDeviceNetParamDecode, ReadsAnyByteOfAnotherEncodingAsDhcp) {
    const auto got = readBack("<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?><DeviceNet Dhcp=\"\xE4\" />",
                              GetDeviceNetParamDecode);
    EXPECT_EQ(got.record.Dhcp, '\xE4');
}

TEST(GetDeviceNetParamDecode, ReadsTheElementItselfAndNoChild) {
    const auto got =
        readBack("<E Mac=\"own\"><DeviceNet Mac=\"child\" res=\"1\" /></E>", GetDeviceNetParamDecode);
    EXPECT_STREQ(got.record.Mac, "own");
    EXPECT_EQ(got.record.res, 0);
}

TEST(GetDeviceNetParamDecode, RefusesANullElement) { expectRefusesANullElement(GetDeviceNetParamDecode); }

// Every field distinct, texts as long as their fields, noise behind them.
void fillNet(Net& net) {
    net.VenderType = 1;
    net.DeviceType = 2;
    fill(net.Mac, 'A');
    fill(net.NetmaskAddr, 'B');
    fill(net.GatewayAddr, 'C');
    fill(net.DisplayName, 'D');
    fill(net.DeviceAddress, 'E');
    net.DevicePort = -3;
    net.RtspPort = 4;
    fill(net.ucDnsAddr1, 'F');
    fill(net.ucDnsAddr2, 'G');
    net.ChannelCount = 5;
    net.Dhcp = 1;
    net.nIndex = 6;
    fill(net.BroadcastAddr, 'H');
    net.PlaybackPort = 7;
    net.res = INT_MIN;
    net.ucPlatformType = INT_MAX;
    fill(net.ucDevType, 'I');
    fill(net.ucSoftwareVersion, 'J');
    fill(net.ucFirmwareVersion, 'K');
}

TEST(DeviceNet, ComesBackWithItsTypeForAFirmware) {
    for (const bool dhcp : {true, false}) {
        Net sent, want = Net();
        std::memset(&sent, '\xA7', sizeof sent);
        fillNet(sent);
        fillNet(want);
        sent.Dhcp = want.Dhcp = dhcp;
        std::memset(want.ucFirmwareVersion, 0, sizeof want.ucFirmwareVersion);
        fill(want.ucFirmwareVersion, 'I', 32);
        const Received got([&](char* out, int size) {
            return GetStartSearchDeviceRespEncode(0, 1, &sent, true, out, size);
        });
        int error = 7;
        Captured captured;
        const Net back = GetDeviceNetParamDecode(got.child("DeviceNet"), &error);
        EXPECT_EQ(captured.text(), "");
        EXPECT_EQ(error, 0);
        EXPECT_TRUE(sameBytes(back, want));
    }
}

TEST(DeviceNet, LosesADhcpOfTwo) {
    Net sent = Net();
    sent.Dhcp = 2;
    const Received got(
        [&](char* out, int size) { return GetStartSearchDeviceRespEncode(0, 1, &sent, true, out, size); });
    Captured captured;
    const Net back = GetDeviceNetParamDecode(got.child("DeviceNet"), nullptr);
    EXPECT_EQ(captured.text(), "xml file -..-DeviceNet(Dhcp) element too long!\n");
    EXPECT_TRUE(sameBytes(back, Net()));
}

TEST(DeviceNet, KeepsItsShape) {
    EXPECT_TRUE(std::is_standard_layout_v<Net> && std::is_trivially_copyable_v<Net>);
    EXPECT_EQ(offsetof(Net, VenderType), 0u);
    EXPECT_EQ(offsetof(Net, DeviceType), 4u);
    EXPECT_EQ(offsetof(Net, Mac), 8u);
    EXPECT_EQ(offsetof(Net, NetmaskAddr), 32u);
    EXPECT_EQ(offsetof(Net, GatewayAddr), 48u);
    EXPECT_EQ(offsetof(Net, DisplayName), 64u);
    EXPECT_EQ(offsetof(Net, DeviceAddress), 128u);
    EXPECT_EQ(offsetof(Net, DevicePort), 1152u);
    EXPECT_EQ(offsetof(Net, RtspPort), 1156u);
    EXPECT_EQ(offsetof(Net, ucDnsAddr1), 1160u);
    EXPECT_EQ(offsetof(Net, ucDnsAddr2), 1176u);
    EXPECT_EQ(offsetof(Net, ChannelCount), 1192u);
    EXPECT_EQ(offsetof(Net, Dhcp), 1196u);
    EXPECT_TRUE((std::is_same_v<decltype(Net::Dhcp), char>));
    EXPECT_EQ(offsetof(Net, nIndex), 1200u);
    EXPECT_EQ(offsetof(Net, BroadcastAddr), 1204u);
    EXPECT_EQ(offsetof(Net, PlaybackPort), 1220u);
    EXPECT_EQ(offsetof(Net, res), 1224u);
    EXPECT_EQ(offsetof(Net, ucPlatformType), 1228u);
    EXPECT_EQ(offsetof(Net, ucDevType), 1232u);
    EXPECT_EQ(offsetof(Net, ucSoftwareVersion), 1264u);
    EXPECT_EQ(offsetof(Net, ucFirmwareVersion), 1328u);
    EXPECT_EQ(offsetof(Net, reserved), 1392u);
    EXPECT_EQ(sizeof(Net::reserved), 128u);
    EXPECT_EQ(sizeof(Net), 1520u);
}

} // namespace
