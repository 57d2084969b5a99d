// Reading records out of a parsed tree: by the library, and by searching for each name by hand.
#include "all_messages.h"
#include "by_hand/fields.h"
#include "timing.h"

#include <tinyxml.h>

#include <cstdlib>

namespace bench {
namespace {

using Tree = std::shared_ptr<TiXmlDocument>;

template <class Message>
Tree parsed(const Message& message) {
    return {veltoprotocol::Decode(bodyOf(encoded(message)).c_str()), veltoprotocol::ReleaseTiXmlDocument};
}

TiXmlElement* response(const Tree& tree) {
    return TiXmlHandle(tree.get()).FirstChild("servercommandservice").FirstChild("response").ToElement();
}

template <std::size_t Width>
void take(const char* text, char (&field)[Width]) {
    const std::size_t length = std::strlen(text);
    if (length <= Width) std::memcpy(field, text, length);
}
void take(const char* text, int& field) { field = std::atoi(text); }
void take(const char* text, bool& field) { field = std::atoi(text) != 0; }

// For each name: search the attribute, or the child with its text, and take it.
auto attributesOf(const TiXmlElement* element) {
    return [element](const char* name, auto& member) {
        if (const char* const text = element->Attribute(name)) take(text, member);
    };
}
auto childrenOf(const TiXmlElement* element) {
    return [element](const char* name, auto& member) {
        const TiXmlElement* const child = element->FirstChildElement(name);
        const char* const text = child ? child->GetText() : nullptr;
        if (text) take(text, member);
    };
}

Device deviceByHand(TiXmlElement* element, int*) {
    Device device = Device();
    by_hand::deviceFields(device, attributesOf(element));
    return device;
}
Channel channelByHand(TiXmlElement* element, int*) {
    Channel channel = Channel();
    by_hand::channelFields(channel, attributesOf(element));
    std::memcpy(channel.GuidCopy, channel.Guid, sizeof channel.GuidCopy);
    return channel;
}
Alarm alarmByHand(TiXmlElement* element, int*) {
    Alarm alarm = Alarm();
    by_hand::alarmFields(alarm, childrenOf(element));
    return alarm;
}

// Each device of a list, or each channel; the sum keeps the records from being thrown away.
template <class Read>
int readDevices(TiXmlElement* response, Read read) {
    int error = 0, sum = 0;
    for (TiXmlElement* at = response->FirstChildElement("Devices"); at;
         at = at->NextSiblingElement("Devices"))
        sum += read(at->FirstChildElement("Device"), &error).nIndex;
    return sum;
}
template <class Read>
int readChannels(TiXmlElement* response, Read read) {
    int error = 0, sum = 0;
    for (TiXmlElement* at = response->FirstChildElement("Channels"); at;
         at = at->NextSiblingElement("Channels"))
        sum += read(at->FirstChildElement("Video")->FirstChildElement("Channel"), &error).LiveStreamSettings;
    return sum;
}

template <class Read>
void demandSame(TiXmlElement* element, Read ours, Read byHand) {
    int error = 0;
    const auto a = ours(element, &error), b = byHand(element, &error);
    if (std::memcmp(&a, &b, sizeof a) != 0) throw std::runtime_error("reading by hand gives another record");
}

void registerLists() {
    const Tree tree = parsed(all().deviceList());
    const std::size_t bytes = encoded(all().deviceList()).size();
    TiXmlElement* const from = response(tree);
    TiXmlHandle handle(from);
    demandSame(handle.FirstChild("Devices").FirstChild().ToElement(), veltoprotocol::GetDeviceParamDecode,
               deviceByHand);
    demandSame(handle.FirstChild("Channels").FirstChild("Video").FirstChild().ToElement(),
               veltoprotocol::GetChannelParamDecode, channelByHand);
    timed("read/devices_64/library", bytes,
          [tree, from] { return readDevices(from, veltoprotocol::GetDeviceParamDecode); });
    timed("read/devices_64/by_hand", bytes, [tree, from] { return readDevices(from, deviceByHand); });
    timed("read/channels_1024/library", bytes,
          [tree, from] { return readChannels(from, veltoprotocol::GetChannelParamDecode); });
    timed("read/channels_1024/by_hand", bytes, [tree, from] { return readChannels(from, channelByHand); });
}

void registerAlarm() {
    const Tree tree = parsed(all().alarm);
    const std::size_t bytes = encoded(all().alarm).size();
    TiXmlElement* const data =
        TiXmlHandle(response(tree)).FirstChild("Notifications").FirstChild().FirstChild().ToElement();
    demandSame(data, veltoprotocol::GetAlarmDataDecode, alarmByHand);
    timed("read/alarm/library", bytes,
          [tree, data] { return veltoprotocol::GetAlarmDataDecode(data, nullptr).AlarmNo; });
    timed("read/alarm/by_hand", bytes, [tree, data] { return alarmByHand(data, nullptr).AlarmNo; });
}

void registerLayout() {
    const Tree tree = parsed(all().layout);
    timed("read/layout/library", encoded(all().layout).size(), [tree] {
        Layout layout = veltoprotocol::GetViewGroupDataParamDecode(tree.get(), nullptr);
        const int groups = layout.groupcount;
        veltoprotocol::ReleaseViewGroupDataParam(&layout);
        return groups;
    });
}

} // namespace

void registerReading() {
    registerLists();
    registerAlarm();
    registerLayout();
}

} // namespace bench
