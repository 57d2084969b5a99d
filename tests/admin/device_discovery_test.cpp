// The search for devices: begun, answered and ended.
#include "admin/device_records.h"
#include "admin/messages.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstring>
#include <string>
#include <tinyxml.h>

using namespace veltoprotocol;

namespace {

using Device = __tagVtDeviceParam;
using Net = __tagVtDeviceNetParam;

// Every field distinct, and noise wherever no text reaches and nothing is carried.
Net net() {
    Net made;
    std::memset(&made, '\xA7', sizeof made);
    made.VenderType = 1;
    made.DeviceType = -2;
    std::strcpy(made.Mac, "00:11:22:33:44:55");
    std::strcpy(made.NetmaskAddr, "255.255.255.0");
    std::strcpy(made.GatewayAddr, "192.168.1.1");
    std::strcpy(made.DisplayName, "Gate \"North\"");
    std::strcpy(made.DeviceAddress, "a<b>&'c'");
    made.DevicePort = 3;
    made.RtspPort = 554;
    std::strcpy(made.ucDnsAddr1, "9.9.9.1");
    std::strcpy(made.ucDnsAddr2, "9.9.9.2");
    made.ChannelCount = 4;
    made.Dhcp = 1;
    made.nIndex = 5;
    std::strcpy(made.BroadcastAddr, "192.168.1.255");
    made.PlaybackPort = 6;
    made.res = INT_MIN;
    made.ucPlatformType = INT_MAX;
    std::strcpy(made.ucDevType, "type");
    std::strcpy(made.ucSoftwareVersion, "soft 1");
    std::strcpy(made.ucFirmwareVersion, "firm 2");
    return made;
}

const std::string netElement =
    R"(<DeviceNet VenderType="1" DeviceType="-2" Mac="00:11:22:33:44:55" NetmaskAddr="255.255.255.0" )"
    R"(GatewayAddr="192.168.1.1" DisplayName='Gate &quot;North&quot;' )"
    R"(DeviceAddress="a&lt;b&gt;&amp;&apos;c&apos;" DevicePort="3" RtspPort="554" )"
    R"(ucDnsAddr1="9.9.9.1" ucDnsAddr2="9.9.9.2" ChannelCount="4" Dhcp="&#x01;" nIndex="5" )"
    R"(BroadcastAddr="192.168.1.255" PlaybackPort="6" res="-2147483648" ucPlatformType="2147483647" )"
    R"(ucDevType="type" ucSoftwareVersion="soft 1" ucFirmwareVersion="firm 2" />)"
    "\n";

TEST(GetStartSearchDeviceReqEncode, HoldsTheSwitchAndTheDeviceWithoutAToken) {
    const Device device = deviceWith("dev-1");
    const Encoded got = encoded([&](char* out, int size) {
        return GetStartSearchDeviceReqEncode(&device, 1, "10.0.0.1", 4294967295u, out, size);
    });
    EXPECT_EQ(got.bytes, wire(R"(POST /servercommandservice/manage HTTP/1.1
Host: 10.0.0.1
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <request name="StartSearchDevice">
        <MultiNet>1</MultiNet>
        )" + deviceElement("dev-1") +
                              R"(    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetStartSearchDeviceReqEncode, WritesAnySwitchInDecimal) {
    const Device device = deviceWith("dev-1");
    for (const int multiNet : {0, -1, INT_MAX, INT_MIN})
        EXPECT_EQ(encoded([&](char* out, int size) {
                      return GetStartSearchDeviceReqEncode(&device, multiNet, "10.0.0.1", 7, out, size);
                  }).bytes,
                  wire(manageHead + enveloped("    <request name=\"StartSearchDevice\">\n        <MultiNet>" +
                                              std::to_string(multiNet) + "</MultiNet>\n        " +
                                              deviceElement("dev-1") + "    </request>\n")));
}

TEST(GetStartSearchDeviceReqEncode, IsRefusedWithoutADevice) {
    const Encoded got = encoded([](char* out, int size) {
        return GetStartSearchDeviceReqEncode(nullptr, 1, "10.0.0.1", 7, out, size);
    });
    EXPECT_EQ(got.returned, -1);
    EXPECT_EQ(got.printed, "");
}

Encoded answer(int result, const Net* found, bool hasDevice) {
    return encoded([&](char* out, int size) {
        return GetStartSearchDeviceRespEncode(result, 7, found, hasDevice, out, size);
    });
}

TEST(GetStartSearchDeviceRespEncode, HoldsWhatWasFound) {
    const Net found = net();
    const Encoded got = answer(0, &found, true);
    EXPECT_EQ(got.bytes, wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="StartSearchDevice">
        <Result>0</Result>
        <HasDevice>1</HasDevice>
        )" + netElement + R"(    </response>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

// What was found decides, not the result.
TEST(GetStartSearchDeviceRespEncode, HoldsADeviceWhateverTheResult) {
    const Net found = net();
    const struct {
        int result;
        const Net* net;
        bool hasDevice;
        const char* flag;
        std::string element;
    } cases[] = {{0, &found, true, "1", "        " + netElement},
                 {5, &found, true, "1", "        " + netElement},
                 {-5, &found, true, "1", "        " + netElement},
                 {0, &found, false, "0", ""},
                 {5, &found, false, "0", ""},
                 {0, nullptr, true, "1", ""},
                 {INT_MIN, nullptr, true, "1", ""},
                 {0, nullptr, false, "0", ""}};
    for (const auto& c : cases)
        EXPECT_EQ(
            answer(c.result, c.net, c.hasDevice).bytes,
            wire(responseHead + enveloped("    <response name=\"StartSearchDevice\">\n"
                                          "        <Result>" +
                                          std::to_string(c.result) +
                                          "</Result>\n"
                                          "        <HasDevice>" +
                                          c.flag + "</HasDevice>\n" + c.element + "    </response>\n")));
}

TEST(GetStopSearchDeviceReqEncode, NamesTheSearchInSignedDecimal) {
    const struct {
        unsigned int search;
        const char* text;
    } cases[] = {
        {7, "7"}, {0, "0"}, {2147483647, "2147483647"}, {2147483648u, "-2147483648"}, {4294967295u, "-1"}};
    for (const auto& c : cases) {
        const Encoded got = encoded([&](char* out, int size) {
            return GetStopSearchDeviceReqEncode(c.search, "10.0.0.1", 4294967294u, out, size);
        });
        EXPECT_EQ(got.bytes, wire(manageHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-2</seqnum>
    <version>1.0.0</version>
    <request name="StopSearchDevice">
        <Seqnum>)" + c.text + R"(</Seqnum>
    </request>
</servercommandservice>
)"));
        EXPECT_EQ(got.printed, "");
    }
}

TEST(SearchRequests, CheckTheirHost) {
    const Device device = deviceWith("dev-1");
    expectChecksItsHost([&](const char* host, char* out, int size) {
        return GetStartSearchDeviceReqEncode(&device, 1, host, 7, out, size);
    });
    expectChecksItsHost([](const char* host, char* out, int size) {
        return GetStopSearchDeviceReqEncode(7, host, 7, out, size);
    });
}

std::string printed(const TiXmlElement& element) {
    TiXmlPrinter printer;
    element.Accept(&printer);
    return printer.Str();
}

TEST(GetDeviceNetParamEncode, WritesTwentyOneAttributesInFieldOrder) {
    TiXmlElement element("DeviceNet");
    const Net found = net();
    EXPECT_EQ(GetDeviceNetParamEncode(&element, &found), 0);
    EXPECT_EQ(printed(element), netElement);
}

TEST(GetDeviceNetParamEncode, WritesEmptyTextsAndZeros) {
    TiXmlElement element("DeviceNet");
    const Net nothing = Net();
    EXPECT_EQ(GetDeviceNetParamEncode(&element, &nothing), 0);
    EXPECT_EQ(printed(element),
              R"(<DeviceNet VenderType="0" DeviceType="0" Mac="" NetmaskAddr="" GatewayAddr="" )"
              R"(DisplayName="" DeviceAddress="" DevicePort="0" RtspPort="0" ucDnsAddr1="" ucDnsAddr2="" )"
              R"(ChannelCount="0" Dhcp="" nIndex="0" BroadcastAddr="" PlaybackPort="0" res="0" )"
              R"(ucPlatformType="0" ucDevType="" ucSoftwareVersion="" ucFirmwareVersion="" />)"
              "\n");
}

// As many characters of code 1 as the byte says, which is taken as signed.
TEST(GetDeviceNetParamEncode, WritesDhcpAsARunOfOnes) {
    const struct {
        int dhcp;
        std::size_t ones;
    } cases[] = {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {126, 126}, {127, 127}, {-1, 0}, {-127, 0}, {-128, 0}};
    for (const auto& c : cases) {
        Net found = net();
        found.Dhcp = static_cast<char>(c.dhcp);
        TiXmlElement element("DeviceNet");
        EXPECT_EQ(GetDeviceNetParamEncode(&element, &found), 0);
        ASSERT_NE(element.Attribute("Dhcp"), nullptr) << c.dhcp;
        EXPECT_EQ(element.Attribute("Dhcp"), std::string(c.ones, '\1')) << c.dhcp;
        std::string references;
        for (std::size_t i = 0; i < c.ones; ++i) references += "&#x01;";
        EXPECT_NE(answer(0, &found, true).bytes.find(" Dhcp=\"" + references + "\" nIndex"),
                  std::string::npos)
            << c.dhcp;
    }
}

TEST(GetDeviceNetParamEncode, IsRefusedWithoutElementOrRecord) {
    TiXmlElement element("DeviceNet");
    const Net found = net();
    EXPECT_EQ(GetDeviceNetParamEncode(nullptr, &found), -1);
    EXPECT_EQ(GetDeviceNetParamEncode(&element, nullptr), -1);
    EXPECT_EQ(GetDeviceNetParamEncode(nullptr, nullptr), -1);
    EXPECT_EQ(printed(element), "<DeviceNet />\n");
}

} // namespace
