// Devices with their channels: added, changed and deleted.
#include "admin/device_records.h"
#include "admin/messages.h"
#include "support/received.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstring>
#include <functional>
#include <string>
#include <tinyxml.h>
#include <vector>

using namespace veltoprotocol;

namespace {

using Device = __tagVtDeviceParam;
using Channel = __tagVtChannelParam;

const Device devices[] = {deviceWith("dev-1"), deviceWith("dev-2")};
const Channel channels[] = {channelWith("ch-1", true), channelWith("ch-2", false), channelWith("ch-3", true)};

// The three requests, and the one behind two of them.
using Encode = int(const Device*, int, const Channel*, int, const char*, unsigned int, char*, int);
int encodeNamed(const Device* list, int count, const Channel* more, int moreCount, const char* host,
                unsigned int seqnum, char* out, int size) {
    return GetDeviceEncode(list, count, more, moreCount, host, seqnum, out, size, "Any<1>");
}
const std::vector<Encode*> requests = {GetAddDeviceReqEncode, GetUpdateDeviceReqEncode,
                                       GetDeleteDeviceReqEncode, encodeNamed};

Encoded request(Encode* encode, const Device* list, int count, const Channel* more, int moreCount) {
    return encoded(
        [&](char* out, int size) { return encode(list, count, more, moreCount, "10.0.0.1", 7, out, size); });
}

// As the management gets it.
std::string posted(const std::string& name, const std::string& inside) {
    return wire(R"(POST /servercommandservice/manage HTTP/1.1
Host: 10.0.0.1
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <request)" + name +
                ">\n" + inside + "    </request>\n</servercommandservice>\n");
}

std::string wrapped(const std::string& device) {
    return "        <Devices>\n            " + device + "        </Devices>\n";
}
std::string inVideo(const std::string& channel) {
    return "        <Channels>\n"
           "            <DeviceGuid>of-dev-&lt;1&gt;</DeviceGuid>\n"
           "            <Video>\n                " +
           channel +
           "            </Video>\n"
           "        </Channels>\n";
}

const std::string twoAndThree = "        <DeviceCounter>2</DeviceCounter>\n" +
                                wrapped(deviceElement("dev-1")) + wrapped(deviceElement("dev-2")) +
                                "        <ChannelCounter>3</ChannelCounter>\n" +
                                inVideo(channelElement("ch-1", "1")) + inVideo(channelElement("ch-2", "0")) +
                                inVideo(channelElement("ch-3", "1"));

TEST(GetAddDeviceReqEncode, HoldsEachDeviceAndEachChannelWithoutAToken) {
    const Encoded got = request(GetAddDeviceReqEncode, devices, 2, channels, 3);
    EXPECT_EQ(got.bytes, posted(" name=\"AddDevice\"", twoAndThree));
    EXPECT_EQ(got.printed, "");
}

TEST(GetUpdateDeviceReqEncode, IsTheSameUnderItsName) {
    const Encoded got = request(GetUpdateDeviceReqEncode, devices, 2, channels, 3);
    EXPECT_EQ(got.bytes, posted(" name=\"UpdateDevice\"", twoAndThree));
    EXPECT_EQ(got.printed, "");
}

TEST(GetDeviceEncode, TakesAnyName) {
    const Encoded got = request(encodeNamed, devices, 2, channels, 3);
    EXPECT_EQ(got.bytes, posted(" name=\"Any&lt;1&gt;\"", twoAndThree));
    EXPECT_EQ(got.printed, "");
}

TEST(GetDeviceEncode, LeavesOutANullName) {
    EXPECT_EQ(encoded([](char* out, int size) {
                  return GetDeviceEncode(devices, 2, channels, 3, "10.0.0.1", 7, out, size, nullptr);
              }).bytes,
              posted("", twoAndThree));
}

// Guids alone, and yet DeviceGuid beside each Video.
TEST(GetDeleteDeviceReqEncode, HoldsNothingButGuids) {
    const Encoded got = request(GetDeleteDeviceReqEncode, devices, 1, channels, 2);
    EXPECT_EQ(got.bytes, wire(R"(POST /servercommandservice/manage HTTP/1.1
Host: 10.0.0.1
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <request name="DeleteDevice">
        <DeviceCounter>1</DeviceCounter>
        <Devices>
            <Device Guid="dev-1" />
        </Devices>
        <ChannelCounter>2</ChannelCounter>
        <Channels>
            <DeviceGuid>of-dev-&lt;1&gt;</DeviceGuid>
            <Video>
                <Channel Guid="ch-1" />
            </Video>
        </Channels>
        <Channels>
            <DeviceGuid>of-dev-&lt;1&gt;</DeviceGuid>
            <Video>
                <Channel Guid="ch-2" />
            </Video>
        </Channels>
    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetDeleteDeviceReqEncode, HasAWrapperForEachDevice) {
    EXPECT_EQ(request(GetDeleteDeviceReqEncode, devices, 2, channels, 1).bytes,
              posted(" name=\"DeleteDevice\"", "        <DeviceCounter>2</DeviceCounter>\n" +
                                                   wrapped("<Device Guid=\"dev-1\" />\n") +
                                                   wrapped("<Device Guid=\"dev-2\" />\n") +
                                                   "        <ChannelCounter>1</ChannelCounter>\n" +
                                                   inVideo("<Channel Guid=\"ch-1\" />\n")));
}

TEST(DeviceRequests, SendNoMoreThanTheirCounts) {
    EXPECT_EQ(request(GetAddDeviceReqEncode, devices, 1, channels, 1).bytes,
              posted(" name=\"AddDevice\"", "        <DeviceCounter>1</DeviceCounter>\n" +
                                                wrapped(deviceElement("dev-1")) +
                                                "        <ChannelCounter>1</ChannelCounter>\n" +
                                                inVideo(channelElement("ch-1", "1"))));
}

// Also to delete.
TEST(DeviceRequests, AreRefusedWithoutADeviceOrWithoutAChannel) {
    for (Encode* const encode : requests) {
        for (const int count : {0, -1, INT_MIN}) {
            EXPECT_EQ(request(encode, devices, count, channels, 3).returned, -1) << count;
            EXPECT_EQ(request(encode, devices, 2, channels, count).returned, -1) << count;
        }
        EXPECT_EQ(request(encode, nullptr, 2, channels, 3).returned, -1);
        EXPECT_EQ(request(encode, devices, 2, nullptr, 3).returned, -1);
        const Encoded nothing = request(encode, nullptr, 0, nullptr, 0);
        EXPECT_EQ(nothing.returned, -1);
        EXPECT_EQ(nothing.printed, "");
        EXPECT_GT(request(encode, devices, 1, channels, 1).returned, 0);
    }
}

TEST(DeviceRequests, CheckTheirHost) {
    for (Encode* const encode : requests)
        expectChecksItsHost([encode](const char* host, char* out, int size) {
            return encode(devices, 2, channels, 3, host, 7, out, size);
        });
}

TEST(DeviceRequests, WriteTheSequenceNumberSigned) {
    for (Encode* const encode : requests)
        EXPECT_NE(encoded([encode](char* out, int size) {
                      return encode(devices, 2, channels, 3, "h", 4294967295u, out, size);
                  }).bytes.find("\n    <seqnum>-1</seqnum>\n"),
                  std::string::npos);
}

// A flag byte other than 0 and 1 is written as 1.
TEST(DeviceRequests, WriteAnyOtherPreviewAsOne) {
    for (const int byte : {2, 128, 255}) {
        Channel channel = channelWith("ch-1", false);
        std::memset(&channel.Preview, byte, 1);
        EXPECT_NE(request(GetAddDeviceReqEncode, devices, 1, &channel, 1)
                      .bytes.find(inVideo(channelElement("ch-1", "1"))),
                  std::string::npos)
            << byte;
    }
}

// Both as wide as their fields, and read by the receiver element by element.
TEST(DeviceRequests, ComeBackAtTheServer) {
    Device device = deviceWith("");
    Channel channel = channelWith("", true);
    fill(device.Guid, 'A');
    fill(device.IPAddress, 'B');
    fill(device.Token, 'C');
    fill(channel.Guid, 'D');
    fill(channel.DeviceGuid, 'E');
    fill(channel.DisplayName, 'F');
    const Received got([&](char* out, int size) {
        return GetUpdateDeviceReqEncode(&device, 1, &channel, 1, "h", 1, out, size);
    });
    int error = 7;
    EXPECT_EQ(GetRequestNameDecode(got.doc.get(), &error), "UpdateDevice");
    const Device device2 = GetDeviceParamDecode(got.child("Devices")->FirstChildElement("Device"), &error);
    EXPECT_EQ(error, 0);
    TiXmlElement* const wrapper = got.child("Channels");
    const Channel channel2 =
        GetChannelParamDecode(wrapper->FirstChildElement("Video")->FirstChildElement("Channel"), &error);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(std::string(device2.Guid, 48), std::string(device.Guid, 48));
    EXPECT_EQ(std::string(device2.IPAddress, 1024), std::string(device.IPAddress, 1024));
    EXPECT_EQ(std::string(device2.Token, 48), std::string(device.Token, 48));
    EXPECT_STREQ(device2.Password, device.Password);
    EXPECT_EQ(std::string(channel2.Guid, 48), std::string(channel.Guid, 48));
    EXPECT_EQ(std::string(channel2.GuidCopy, 48), std::string(channel.Guid, 48));
    EXPECT_EQ(std::string(channel2.DisplayName, 64), std::string(channel.DisplayName, 64));
    EXPECT_EQ(wrapper->FirstChildElement("DeviceGuid")->GetText(), std::string(channel.DeviceGuid, 48));
}

} // namespace
