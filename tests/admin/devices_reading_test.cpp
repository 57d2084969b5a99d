// The device and channel records as they lie in memory, and read back.
#include "support/encoded.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstddef>
#include <cstring>
#include <gtest/gtest.h>
#include <type_traits>
#include <vector>

namespace {

using namespace veltoprotocol;

using Device = __tagVtDeviceParam;
using Channel = __tagVtChannelParam;

template <class Record>
constexpr bool plain = std::is_standard_layout_v<Record>&& std::is_trivially_copyable_v<Record>;

TEST(DeviceRecord, LiesInMemoryInTheOrderGiven) {
    EXPECT_TRUE(plain<Device>);
    EXPECT_EQ(offsetof(Device, Guid), 0u);
    EXPECT_EQ(offsetof(Device, ServerGuid), 48u);
    EXPECT_EQ(offsetof(Device, VenderType), 96u);
    EXPECT_EQ(offsetof(Device, DeviceType), 100u);
    EXPECT_EQ(offsetof(Device, DriverType), 104u);
    EXPECT_EQ(offsetof(Device, MAC), 108u);
    EXPECT_EQ(offsetof(Device, DisplayName), 132u);
    EXPECT_EQ(offsetof(Device, IPAddress), 196u);
    EXPECT_EQ(offsetof(Device, DevicePort), 1220u);
    EXPECT_EQ(offsetof(Device, HttpPort), 1224u);
    EXPECT_EQ(offsetof(Device, FtpPort), 1228u);
    EXPECT_EQ(offsetof(Device, UserName), 1232u);
    EXPECT_EQ(offsetof(Device, Password), 1296u);
    EXPECT_EQ(offsetof(Device, State), 1360u);
    EXPECT_EQ(offsetof(Device, Token), 1364u);
    EXPECT_EQ(offsetof(Device, ChannelCount), 1412u);
    EXPECT_EQ(offsetof(Device, nIndex), 1416u);
    EXPECT_EQ(offsetof(Device, PlaybackPort), 1420u);
    EXPECT_EQ(offsetof(Device, res1), 1424u);
    EXPECT_EQ(offsetof(Device, res2), 1428u);
    EXPECT_EQ(sizeof(Device), 1432u);
}

TEST(ChannelRecord, LiesInMemoryInTheOrderGiven) {
    EXPECT_TRUE(plain<Channel>);
    EXPECT_EQ(offsetof(Channel, Guid), 0u);
    EXPECT_EQ(offsetof(Channel, DeviceGuid), 48u);
    EXPECT_EQ(offsetof(Channel, DisplayName), 96u);
    EXPECT_EQ(offsetof(Channel, Num), 160u);
    EXPECT_EQ(offsetof(Channel, Type), 164u);
    EXPECT_EQ(offsetof(Channel, GuidCopy), 168u);
    EXPECT_EQ(offsetof(Channel, Hidden), 216u);
    EXPECT_EQ(offsetof(Channel, Disabled), 220u);
    EXPECT_EQ(offsetof(Channel, Preview), 224u);
    EXPECT_EQ(offsetof(Channel, reserved), 225u);
    EXPECT_EQ(sizeof(Channel::reserved), 8u);
    EXPECT_EQ(offsetof(Channel, LiveStreamIndex), 236u);
    EXPECT_EQ(offsetof(Channel, LiveStreamSettings), 240u);
    EXPECT_EQ(offsetof(Channel, reserved2), 244u);
    EXPECT_EQ(sizeof(Channel::reserved2), 32u);
    EXPECT_EQ(sizeof(Channel), 276u);
}

// One attribute: how long a text may be, or 0 for a number, and where it belongs.
struct Attribute {
    const char* name;
    std::size_t width;
    std::size_t offset;
};

const std::vector<Attribute> deviceAttributes = {
    {"Guid", 48, 0},         {"ServerGuid", 48, 48},    {"VenderType", 0, 96},    {"DeviceType", 0, 100},
    {"DriverType", 0, 104},  {"MAC", 24, 108},          {"DisplayName", 64, 132}, {"IPAddress", 1024, 196},
    {"DevicePort", 0, 1220}, {"HttpPort", 0, 1224},     {"FtpPort", 0, 1228},     {"UserName", 64, 1232},
    {"Password", 64, 1296},  {"State", 0, 1360},        {"Token", 48, 1364},      {"ChannelCount", 0, 1412},
    {"nIndex", 0, 1416},     {"PlaybackPort", 0, 1420}, {"res1", 0, 1424},        {"res2", 0, 1428},
};
// As they are read; Preview, a flag of one byte, is tested alone.
const std::vector<Attribute> channelAttributes = {
    {"Guid", 48, 0},    {"Type", 0, 164},     {"DisplayName", 64, 96},     {"Num", 0, 160},
    {"Hidden", 0, 216}, {"Disabled", 0, 220}, {"LiveStreamIndex", 0, 236}, {"LiveStreamSettings", 0, 240},
};

// What the attributes hold: texts of their own as wide as the field, and numbers of their own.
std::string value(const Attribute& attribute, std::size_t index) {
    return attribute.width > 0 ? std::string(attribute.width, static_cast<char>('A' + index))
                               : std::to_string(-1000 - static_cast<int>(index));
}

template <class Record>
void putValue(Record& record, const Attribute& attribute, std::size_t index) {
    char* const at = reinterpret_cast<char*>(&record) + attribute.offset;
    const int number = -1000 - static_cast<int>(index);
    if (attribute.width > 0)
        std::memset(at, 'A' + static_cast<int>(index), attribute.width);
    else
        std::memcpy(at, &number, sizeof number);
}

void copyGuid(Device&) {}
void copyGuid(Channel& channel) { std::memcpy(channel.GuidCopy, channel.Guid, sizeof channel.GuidCopy); }

// Reads an element in which attribute `changed` is left out (if `replacement` is null) or has another value.
// All others must arrive, and only its line be printed.
template <class Record, class Decode>
void expectRead(const std::vector<Attribute>& attributes, const char* label, const Decode& decode,
                std::size_t changed, const std::string* replacement) {
    Record want = Record();
    std::string xml = "<E Preview=\"0\"";
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        if (i != changed) putValue(want, attributes[i], i);
        if (i == changed && !replacement) continue;
        xml += std::string(" ") + attributes[i].name + "=\"" +
               (i == changed ? *replacement : value(attributes[i], i)) + "\"";
    }
    copyGuid(want);
    const auto got = readBack(xml + " />", decode);
    EXPECT_TRUE(sameBytes(got.record, want)) << xml;
    EXPECT_EQ(got.error, 0);
    std::string printed;
    if (changed < attributes.size())
        printed = std::string("xml file -..-") + label + "(" + attributes[changed].name + ") element " +
                  (replacement ? "too long!\n" : "not find!\n");
    EXPECT_EQ(got.printed, printed);
}

template <class Record, class Decode>
void expectEachRead(const std::vector<Attribute>& attributes, const char* label, const Decode& decode) {
    expectRead<Record>(attributes, label, decode, attributes.size(), nullptr); // each as wide as its field
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        SCOPED_TRACE(attributes[i].name);
        expectRead<Record>(attributes, label, decode, i, nullptr);
        const std::string tooLong(attributes[i].width + 1, 'z');
        if (attributes[i].width > 0) expectRead<Record>(attributes, label, decode, i, &tooLong);
    }
}

TEST(GetDeviceParamDecode, ReadsEachAttributeAndNamesWhatIsMissingOrTooLong) {
    ASSERT_EQ(deviceAttributes.size(), 20u);
    expectEachRead<Device>(deviceAttributes, "Device", GetDeviceParamDecode);
}

TEST(GetChannelParamDecode, ReadsEachAttributeAndNamesWhatIsMissingOrTooLong) {
    ASSERT_EQ(channelAttributes.size() + 1, 9u);
    expectEachRead<Channel>(channelAttributes, "Channel", GetChannelParamDecode);
}

TEST(GetDeviceParamDecode, FillsAGuidOf48CharactersWithoutATerminator) {
    const std::string guid = "0123456789-0123456789-0123456789-0123456789-0123";
    ASSERT_EQ(guid.size(), 48u);
    const auto got = readBack("<Device Guid=\"" + guid + "\" ServerGuid=\"s\" />", GetDeviceParamDecode);
    EXPECT_EQ(std::string(got.record.Guid, 48), guid);
    EXPECT_EQ(std::string(got.record.ServerGuid), "s");
    EXPECT_EQ(got.printed.find("Device(Guid)"), std::string::npos);
}

TEST(GetDeviceParamDecode, DropsAGuidOf49CharactersWithItsLine) {
    const auto got = readBack("<Device Guid=\"" + std::string(49, 'g') + "\" />", GetDeviceParamDecode);
    EXPECT_EQ(std::string(got.record.Guid, 48), std::string(48, '\0'));
    EXPECT_EQ(got.printed.find("xml file -..-Device(Guid) element too long!\n"), 0u);
    EXPECT_EQ(got.error, 0);
}

// In the order in which the attributes are written, the channel's not that of its fields.
TEST(GetDeviceParamDecode, NamesAllThatIsMissingInOrder) {
    const auto got = readBack("<Device />", GetDeviceParamDecode);
    std::string lines;
    for (const Attribute& attribute : deviceAttributes)
        lines += std::string("xml file -..-Device(") + attribute.name + ") element not find!\n";
    EXPECT_EQ(got.printed, lines);
    EXPECT_EQ(got.error, 0);
    EXPECT_TRUE(sameBytes(got.record, Device()));
}

TEST(GetChannelParamDecode, NamesAllThatIsMissingInOrder) {
    const auto got = readBack("<Channel />", GetChannelParamDecode);
    EXPECT_EQ(got.printed, "xml file -..-Channel(Guid) element not find!\n"
                           "xml file -..-Channel(Type) element not find!\n"
                           "xml file -..-Channel(DisplayName) element not find!\n"
                           "xml file -..-Channel(Num) element not find!\n"
                           "xml file -..-Channel(Hidden) element not find!\n"
                           "xml file -..-Channel(Disabled) element not find!\n"
                           "xml file -..-Channel(Preview) element not find!\n"
                           "xml file -..-Channel(LiveStreamIndex) element not find!\n"
                           "xml file -..-Channel(LiveStreamSettings) element not find!\n");
    EXPECT_EQ(got.error, 0);
    EXPECT_TRUE(sameBytes(got.record, Channel()));
}

TEST(GetDeviceParamDecode, ReadsTheElementItselfAndNoChild) {
    const auto got =
        readBack("<E Guid=\"own\"><Device Guid=\"child\" MAC=\"child\" /></E>", GetDeviceParamDecode);
    EXPECT_STREQ(got.record.Guid, "own");
    EXPECT_STREQ(got.record.MAC, "");
}

TEST(GetDeviceParamDecode, ReadsNumbersAsAtoiDoes) {
    const auto got = readBack(R"(<Device VenderType="010" DeviceType="0x10" DriverType=" +7 apples" State="x"
        DevicePort="" res1="-2147483648" res2="2147483647" />)",
                              GetDeviceParamDecode);
    EXPECT_EQ(got.record.VenderType, 10);
    EXPECT_EQ(got.record.DeviceType, 0);
    EXPECT_EQ(got.record.DriverType, 7);
    EXPECT_EQ(got.record.State, 0);
    EXPECT_EQ(got.record.DevicePort, 0);
    EXPECT_EQ(got.record.res1, INT_MIN);
    EXPECT_EQ(got.record.res2, INT_MAX);
}

TEST(GetChannelParamDecode, CopiesTheGuidAndLeavesTheDevicesEmpty) {
    const std::string full(48, 'g');
    for (const std::string& guid : {std::string("ch-1"), full}) {
        const auto got = readBack("<Channel Guid=\"" + guid + "\" DeviceGuid=\"d\" GuidCopy=\"c\" />",
                                  GetChannelParamDecode);
        EXPECT_EQ(std::string(got.record.Guid, guid.size()), guid);
        EXPECT_EQ(std::memcmp(got.record.Guid, got.record.GuidCopy, 48), 0);
        EXPECT_EQ(std::string(got.record.DeviceGuid, 48), std::string(48, '\0'));
    }
    const auto tooLong = readBack("<Channel Guid=\"" + full + "g\" />", GetChannelParamDecode);
    EXPECT_EQ(std::string(tooLong.record.GuidCopy, 48), std::string(48, '\0'));
}

TEST(GetChannelParamDecode, ReadsPreviewAsAFlag) {
    const struct {
        const char* text;
        bool preview;
    } cases[] = {{"1", true}, {"0", false}, {"2", true}, {"-1", true}, {"", false}, {"true", false}};
    for (const auto& c : cases) {
        const auto got =
            readBack(std::string("<Channel Preview=\"") + c.text + "\" />", GetChannelParamDecode);
        EXPECT_EQ(got.record.Preview, c.preview) << c.text;
    }
}

TEST(DeviceDecoders, NeedAnElement) {
    int deviceError = 7, channelError = 7;
    Captured captured;
    const Device device = GetDeviceParamDecode(nullptr, &deviceError);
    const Channel channel = GetChannelParamDecode(nullptr, &channelError);
    const Device unreported = GetDeviceParamDecode(nullptr, nullptr);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(deviceError, -1);
    EXPECT_EQ(channelError, -1);
    EXPECT_TRUE(sameBytes(device, Device()));
    EXPECT_TRUE(sameBytes(channel, Channel()));
    EXPECT_TRUE(sameBytes(unreported, Device()));
}

TEST(DeviceDecoders, MayGoWithoutAnErrorCode) {
    const Document doc = parsed("<E Guid=\"g\" />");
    Captured quiet;
    const Device device = GetDeviceParamDecode(doc->RootElement(), nullptr);
    const Channel channel = GetChannelParamDecode(doc->RootElement(), nullptr);
    quiet.text();
    EXPECT_STREQ(device.Guid, "g");
    EXPECT_STREQ(channel.GuidCopy, "g");
}

// A whole list, read as a receiver does: element by element.
TEST(DeviceList, ComesBackAsItWasSent) {
    Device device = Device();
    for (std::size_t i = 0; i < deviceAttributes.size(); ++i) putValue(device, deviceAttributes[i], i);
    std::memset(device.IPAddress, 0, sizeof device.IPAddress);
    std::strcpy(device.IPAddress, "a<b>&\"c\"'d' \xC3\xA4\x7F&#x41;\n\t  ]]>");
    Channel channel = Channel();
    for (std::size_t i = 0; i < channelAttributes.size(); ++i) putValue(channel, channelAttributes[i], i);
    std::memset(channel.DeviceGuid, 'd', sizeof channel.DeviceGuid);
    copyGuid(channel);
    channel.Preview = true;

    const Encoded sent = encoded([&](char* out, int size) {
        return GetAllDeviceListRespEncode(0, 1, &device, 1, &channel, 1, out, size);
    });
    const Document doc = parsed(bodyOf(sent.bytes));
    TiXmlElement* const response = doc->RootElement()->FirstChildElement("response");
    TiXmlElement* const wrapper = response->FirstChildElement("Channels");
    int error = 7;
    Captured captured;
    const Device readDevice =
        GetDeviceParamDecode(response->FirstChildElement("Devices")->FirstChildElement("Device"), &error);
    Channel readChannel =
        GetChannelParamDecode(wrapper->FirstChildElement("Video")->FirstChildElement("Channel"), &error);
    EXPECT_EQ(GetStringValue(wrapper, "Channels", "DeviceGuid", readChannel.DeviceGuid, 48), 0);
    EXPECT_EQ(captured.text(), "");
    EXPECT_TRUE(sameBytes(readDevice, device));
    EXPECT_TRUE(sameBytes(readChannel, channel));
}

} // namespace
