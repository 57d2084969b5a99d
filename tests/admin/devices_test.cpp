// The device list, asked for and answered, and its two records as attributes.
#include "support/encoded.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstring>
#include <gtest/gtest.h>
#include <stdexcept>
#include <tinyxml.h>

namespace {

using namespace veltoprotocol;

template <std::size_t N>
void put(char (&field)[N], const char* text) {
    if (std::strlen(text) > N) throw std::length_error(text);
    std::memcpy(field, text, std::strlen(text));
}

// Every field distinct.
__tagVtDeviceParam device(const char* guid) {
    __tagVtDeviceParam made = __tagVtDeviceParam();
    put(made.Guid, guid);
    put(made.ServerGuid, "server");
    made.VenderType = 1;
    made.DeviceType = 2;
    made.DriverType = 3;
    put(made.MAC, "00:11:22:33:44:55");
    put(made.DisplayName, "Gate \"North\"");
    put(made.IPAddress, "192.168.1.64");
    made.DevicePort = 8000;
    made.HttpPort = 80;
    made.FtpPort = 21;
    put(made.UserName, "user");
    put(made.Password, "p<&>'w");
    made.State = -4;
    put(made.Token, "token");
    made.ChannelCount = 5;
    made.nIndex = 6;
    made.PlaybackPort = 7;
    made.res1 = INT_MIN;
    made.res2 = INT_MAX;
    return made;
}

__tagVtChannelParam channel(const char* guid, bool preview) {
    __tagVtChannelParam made = __tagVtChannelParam();
    std::memset(made.reserved, 'r', sizeof made.reserved);
    std::memset(made.reserved2, 'r', sizeof made.reserved2);
    put(made.Guid, guid);
    put(made.DeviceGuid, "of-dev-<1>");
    put(made.DisplayName, "Door");
    made.Num = 1;
    made.Type = 2;
    put(made.GuidCopy, "never written");
    made.Hidden = 3;
    made.Disabled = -4;
    made.Preview = preview;
    made.LiveStreamIndex = 5;
    made.LiveStreamSettings = 6;
    return made;
}

std::string printed(const TiXmlElement& element) {
    TiXmlPrinter printer;
    element.Accept(&printer);
    return printer.Str();
}

const std::string deviceAttributes =
    R"(ServerGuid="server" VenderType="1" DeviceType="2" DriverType="3" MAC="00:11:22:33:44:55" )"
    R"(DisplayName='Gate &quot;North&quot;' IPAddress="192.168.1.64" DevicePort="8000" HttpPort="80" )"
    R"(FtpPort="21" UserName="user" Password="p&lt;&amp;&gt;&apos;w" State="-4" Token="token" )"
    R"(ChannelCount="5" nIndex="6" PlaybackPort="7" res1="-2147483648" res2="2147483647" />)";

TEST(GetDeviceParamEncode, WritesTwentyAttributesInFieldOrder) {
    TiXmlElement element("Device");
    const __tagVtDeviceParam record = device("dev-1");
    EXPECT_EQ(GetDeviceParamEncode(&element, &record), 0);
    EXPECT_EQ(printed(element), "<Device Guid=\"dev-1\" " + deviceAttributes + "\n");
}

TEST(GetDeviceParamEncode, WritesEmptyTextsAndZeros) {
    TiXmlElement element("Device");
    const __tagVtDeviceParam record = __tagVtDeviceParam();
    EXPECT_EQ(GetDeviceParamEncode(&element, &record), 0);
    EXPECT_EQ(
        printed(element),
        R"(<Device Guid="" ServerGuid="" VenderType="0" DeviceType="0" DriverType="0" MAC="" )"
        R"(DisplayName="" IPAddress="" DevicePort="0" HttpPort="0" FtpPort="0" UserName="" Password="" )"
        R"(State="0" Token="" ChannelCount="0" nIndex="0" PlaybackPort="0" res1="0" res2="0" />)"
        "\n");
}

TEST(GetDeviceParamEncode, IsRefusedWithoutElementOrRecord) {
    TiXmlElement element("Device");
    const __tagVtDeviceParam record = device("dev-1");
    EXPECT_EQ(GetDeviceParamEncode(nullptr, &record), -1);
    EXPECT_EQ(GetDeviceParamEncode(&element, nullptr), -1);
    EXPECT_EQ(GetDeviceParamEncode(nullptr, nullptr), -1);
    EXPECT_EQ(printed(element), "<Device />\n");
}

// Neither in the record's order, nor with DeviceGuid, GuidCopy and the reserved bytes.
TEST(GetChannelParamEncode, WritesNineAttributesWithTypeBeforeDisplayName) {
    TiXmlElement element("Channel");
    const __tagVtChannelParam record = channel("ch-1", true);
    EXPECT_EQ(GetChannelParamEncode(&element, &record), 0);
    EXPECT_EQ(printed(element), R"(<Channel Guid="ch-1" Type="2" DisplayName="Door" Num="1" Hidden="3" )"
                                R"(Disabled="-4" Preview="1" LiveStreamIndex="5" LiveStreamSettings="6" />)"
                                "\n");
}

TEST(GetChannelParamEncode, WritesPreviewAsOneOrZero) {
    for (const bool preview : {true, false}) {
        TiXmlElement element("Channel");
        const __tagVtChannelParam record = channel("ch-1", preview);
        EXPECT_EQ(GetChannelParamEncode(&element, &record), 0);
        EXPECT_STREQ(element.Attribute("Preview"), preview ? "1" : "0");
    }
}

TEST(GetChannelParamEncode, IsRefusedWithoutElementOrRecord) {
    TiXmlElement element("Channel");
    const __tagVtChannelParam record = channel("ch-1", true);
    EXPECT_EQ(GetChannelParamEncode(nullptr, &record), -1);
    EXPECT_EQ(GetChannelParamEncode(&element, nullptr), -1);
    EXPECT_EQ(GetChannelParamEncode(nullptr, nullptr), -1);
    EXPECT_EQ(printed(element), "<Channel />\n");
}

Encoded listRequest(const char* host, const char* token, const char* name) {
    return encoded([&](char* out, int size) {
        return GetDeviceListReqEncode(host, token, 4294967295u, out, size, name);
    });
}

const std::string requestUpToItsName = R"(POST /servercommandservice HTTP/1.1
Host: 10.0.0.1
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
)";

TEST(GetDeviceListReqEncode, CarriesTheTokenAndAnEmptyRequest) {
    const Encoded got = listRequest("10.0.0.1", "t-1", "AnyList");
    EXPECT_EQ(got.bytes,
              wire(requestUpToItsName + "    <request name=\"AnyList\" />\n</servercommandservice>\n"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetDeviceListReqEncode, TakesNullTexts) {
    EXPECT_EQ(listRequest(nullptr, nullptr, nullptr).bytes,
              wire("POST /servercommandservice HTTP/1.1\n"
                   "Host: \n"
                   "Connection: keep-alive\n"
                   "Content-Type: text/xml; charset=utf-8\n"
                   "Content-Length: {}\n"
                   "\n"
                   "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
                   "<servercommandservice>\n"
                   "    <seqnum>-1</seqnum>\n"
                   "    <version>1.0.0</version>\n"
                   "    <Token />\n"
                   "    <request />\n"
                   "</servercommandservice>\n"));
}

TEST(GetDeviceListReqEncode, RefusesALineEndInTheHost) {
    for (const char* host : {"\r", "\n", "h\r\nX: y"}) EXPECT_EQ(listRequest(host, "t", "N").returned, -1);
}

TEST(GetAllDeviceListReqEncode, AsksForEveryDevice) {
    const Encoded got = encoded([](char* out, int size) {
        return GetAllDeviceListReqEncode("10.0.0.1", "t-1", 4294967295u, out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestUpToItsName +
                              "    <request name=\"GetAllDeviceList\" />\n</servercommandservice>\n"));
}

TEST(GetUserDeviceListReqEncode, AsksForTheUsersDevices) {
    const Encoded got = encoded([](char* out, int size) {
        return GetUserDeviceListReqEncode("10.0.0.1", "t-1", 4294967295u, out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestUpToItsName +
                              "    <request name=\"GetUserDeviceList\" />\n</servercommandservice>\n"));
}

const __tagVtDeviceParam devices[] = {device("dev-1"), device("dev-2")};
const __tagVtChannelParam channels[] = {channel("ch-1", true), channel("ch-2", false), channel("ch-3", true)};

Encoded listAnswer(int result, const __tagVtDeviceParam* list, int count, const __tagVtChannelParam* more,
                   int moreCount, const char* name = "AnyList") {
    return encoded([&](char* out, int size) {
        return GetDeviceListRespEncode(result, 9, list, count, more, moreCount, out, size, name);
    });
}

std::string answer(const std::string& name, const std::string& inside) {
    return wire(R"(HTTP/1.1 200 OK
Server: vtengine
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>9</seqnum>
    <version>1.0.0</version>
    <response)" +
                name + ">\n" + inside + "    </response>\n</servercommandservice>\n");
}

const std::string twoDevices = "        <DeviceCounter>2</DeviceCounter>\n"
                               "        <Devices>\n"
                               "            <Device Guid=\"dev-1\" " +
                               deviceAttributes +
                               "\n"
                               "        </Devices>\n"
                               "        <Devices>\n"
                               "            <Device Guid=\"dev-2\" " +
                               deviceAttributes +
                               "\n"
                               "        </Devices>\n";

std::string channelElement(const std::string& guid, const std::string& preview) {
    return "        <Channels>\n"
           "            <DeviceGuid>of-dev-&lt;1&gt;</DeviceGuid>\n"
           "            <Video>\n"
           "                <Channel Guid=\"" +
           guid + "\" Type=\"2\" DisplayName=\"Door\" Num=\"1\" Hidden=\"3\" Disabled=\"-4\" Preview=\"" +
           preview +
           "\" LiveStreamIndex=\"5\" LiveStreamSettings=\"6\" />\n"
           "            </Video>\n"
           "        </Channels>\n";
}

const std::string threeChannels = "        <ChannelCounter>3</ChannelCounter>\n" +
                                  channelElement("ch-1", "1") + channelElement("ch-2", "0") +
                                  channelElement("ch-3", "1");
const std::string success = "        <Result>0</Result>\n";

TEST(GetDeviceListRespEncode, HoldsAWrapperForEachDeviceAndEachChannel) {
    const Encoded got = listAnswer(0, devices, 2, channels, 3);
    EXPECT_EQ(got.bytes, answer(" name=\"AnyList\"", success + twoDevices + threeChannels));
    EXPECT_EQ(got.printed, "");
}

TEST(GetDeviceListRespEncode, HoldsDevicesWithoutChannels) {
    const std::string want = answer(" name=\"AnyList\"", success + twoDevices);
    EXPECT_EQ(listAnswer(0, devices, 2, nullptr, 3).bytes, want);
    for (const int count : {0, -1, INT_MIN})
        EXPECT_EQ(listAnswer(0, devices, 2, channels, count).bytes, want);
}

// The channels stand in the devices' block.
TEST(GetDeviceListRespEncode, HoldsNoChannelsWithoutDevices) {
    const std::string want = answer(" name=\"AnyList\"", success);
    EXPECT_EQ(listAnswer(0, devices, 0, channels, 3).bytes, want);
    EXPECT_EQ(listAnswer(0, nullptr, 2, channels, 3).bytes, want);
    EXPECT_EQ(listAnswer(0, nullptr, 0, nullptr, 0).bytes, want);
    for (const int count : {-1, INT_MIN}) EXPECT_EQ(listAnswer(0, devices, count, channels, 3).bytes, want);
}

TEST(GetDeviceListRespEncode, HoldsOnlyTheResultIfItIsNotZero) {
    for (const int result : {1, -1, 2, INT_MAX})
        EXPECT_EQ(listAnswer(result, devices, 2, channels, 3).bytes,
                  answer(" name=\"AnyList\"", "        <Result>" + std::to_string(result) + "</Result>\n"));
}

TEST(GetDeviceListRespEncode, SendsNoMoreThanTheCounts) {
    std::string one = twoDevices.substr(0, twoDevices.rfind("        <Devices>"));
    one.replace(one.find(">2<") + 1, 1, "1");
    const std::string channelOne =
        "        <ChannelCounter>1</ChannelCounter>\n" + channelElement("ch-1", "1");
    EXPECT_EQ(listAnswer(0, devices, 1, channels, 1).bytes,
              answer(" name=\"AnyList\"", success + one + channelOne));
}

TEST(GetDeviceListRespEncode, LeavesOutANullName) {
    EXPECT_EQ(listAnswer(0, devices, 2, nullptr, 0, nullptr).bytes, answer("", success + twoDevices));
}

TEST(GetAllDeviceListRespEncode, NamesTheListOfAll) {
    const Encoded got = encoded([](char* out, int size) {
        return GetAllDeviceListRespEncode(0, 9, devices, 2, channels, 3, out, size);
    });
    EXPECT_EQ(got.bytes, answer(" name=\"GetAllDeviceList\"", success + twoDevices + threeChannels));
}

TEST(GetUserDeviceListRespEncode, NamesTheListOfTheUser) {
    const Encoded got = encoded([](char* out, int size) {
        return GetUserDeviceListRespEncode(0, 9, devices, 2, channels, 3, out, size);
    });
    EXPECT_EQ(got.bytes, answer(" name=\"GetUserDeviceList\"", success + twoDevices + threeChannels));
}

} // namespace
