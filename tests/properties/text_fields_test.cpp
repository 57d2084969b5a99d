// Each writer stops at a text field's width: here no field holds a NUL, every neighbour is full as well, and
// behind the record lies a page that nobody may touch.
#include "properties/full_records.h"
#include "support/encoded.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace veltoprotocol;

const Carried ofDevice = {Carried::byAttributes,
                          {{"Guid", 48},
                           {"ServerGuid", 48},
                           {"MAC", 24},
                           {"DisplayName", 64},
                           {"IPAddress", 1024},
                           {"UserName", 64},
                           {"Password", 64},
                           {"Token", 48}},
                          {"VenderType", "DeviceType", "DriverType", "DevicePort", "HttpPort", "FtpPort",
                           "State", "ChannelCount", "nIndex", "PlaybackPort", "res1", "res2"}};
const Carried ofChannel = {Carried::byAttributes,
                           {{"Guid", 48}, {"DisplayName", 64}},
                           {"Type", "Num", "Hidden", "Disabled", "LiveStreamIndex", "LiveStreamSettings"}};

TEST(TextFields, EndAtTheirWidthInADevice) { expectFull(GetDeviceParamEncode, ofDevice); }

TEST(TextFields, EndAtTheirWidthInAChannel) { expectFull(GetChannelParamEncode, ofChannel); }

TEST(TextFields, EndAtTheirWidthInADeviceList) {
    FullRecords<__tagVtDeviceParam> devices(2);
    FullRecords<__tagVtChannelParam> channels(3);
    for (int i = 0; i < 3; ++i) makeValid(channels.records()[i]);
    const Encoded got = encoded([&](char* out, int size) {
        return GetAllDeviceListRespEncode(0, 1, devices.records(), 2, channels.records(), 3, out, size);
    });
    const Document doc = parsed(bodyOf(got.bytes));
    const TiXmlElement* const response = doc->RootElement()->FirstChildElement("response");
    int deviceCount = 0, channelCount = 0;
    for (auto* at = response->FirstChildElement("Devices"); at; at = at->NextSiblingElement("Devices")) {
        expectFull(at->FirstChildElement("Device"), ofDevice);
        ++deviceCount;
    }
    for (auto* at = response->FirstChildElement("Channels"); at; at = at->NextSiblingElement("Channels")) {
        EXPECT_EQ(at->FirstChildElement("DeviceGuid")->GetText(), std::string(48, 'x'));
        expectFull(at->FirstChildElement("Video")->FirstChildElement("Channel"), ofChannel);
        ++channelCount;
    }
    EXPECT_EQ(deviceCount, 2);
    EXPECT_EQ(channelCount, 3);
}

// 64 x, a colon and 64 x are 43 groups of three bytes.
TEST(TextFields, EndAtTheirWidthInTheCredentials) {
    FullRecords<__tagVtDeviceParam> full;
    const Encoded got =
        encoded([&](char* out, int size) { return GetLoginReqEncode(full.records(), "h", 1, out, size); });
    std::string credentials;
    for (int i = 0; i < 21; ++i) credentials += "eHh4"; // xxx
    credentials += "eDp4";                              // x:x
    for (int i = 0; i < 21; ++i) credentials += "eHh4";
    EXPECT_NE(got.bytes.find("\r\nAuthorization: Basic " + credentials + "\r\n"), std::string::npos)
        << got.bytes;
}

// The bytes go out as they stand: keeping characters whole is the duty of whoever fills the field.
TEST(TextFields, AreCutInTheMiddleOfACharacter) {
    __tagVtChannelParam channel = __tagVtChannelParam();
    const std::string text = std::string(63, 'a') + "\xC3\xA4"; // the last character begins in byte 64
    std::memcpy(channel.DisplayName, text.data(), sizeof channel.DisplayName);
    TiXmlElement element("Channel");
    EXPECT_EQ(GetChannelParamEncode(&element, &channel), 0);
    EXPECT_EQ(element.Attribute("DisplayName"), std::string(63, 'a') + "\xC3");
}

TEST(TextFields, EndAtTheirFirstNul) {
    FullRecords<__tagVtDeviceParam> full;
    full.records()->Guid[3] = '\0';
    full.records()->Token[0] = '\0';
    TiXmlElement element("Device");
    EXPECT_EQ(GetDeviceParamEncode(&element, full.records()), 0);
    EXPECT_STREQ(element.Attribute("Guid"), "xxx");
    EXPECT_STREQ(element.Attribute("Token"), "");
}

} // namespace
