// Reads what an administrator sends. The library decodes the records; the walk along the elements is the
// receiver's.
#ifndef EXAMPLES_ADMIN_REQUESTS_H
#define EXAMPLES_ADMIN_REQUESTS_H

#include "support/sample_inventory.h"
#include "support/store.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace example {

// Nothing stands for a request that is not whole.
template <class Record>
using Records = std::optional<std::vector<Record>>;

// Reads the children of a name. There are as many as their counter says, and no more than a server is ready
// to take at once: records are much larger than the few bytes of an empty element.
template <class Read>
auto readAll(TiXmlElement* parent, const char* counter, const char* name, Read read)
    -> Records<decltype(read(parent))> {
    constexpr int most = 200;
    int count = 0;
    if (!parent || veltoprotocol::GetIntValue(parent, parent->Value(), counter, &count) != 0) return {};
    if (count < 0 || count > most) return {};
    std::vector<decltype(read(parent))> records;
    for (TiXmlElement* entry = parent->FirstChildElement(name); entry;
         entry = entry->NextSiblingElement(name)) {
        if (records.size() == static_cast<std::size_t>(count)) return {};
        records.push_back(read(entry));
    }
    if (records.size() != static_cast<std::size_t>(count)) return {};
    return records;
}

// What SetServerInfo and SetSchedulesInfo are to do. The protocol carries the number and leaves its meaning
// to the two ends; to read is not to change.
inline Change readChange(TiXmlElement* list) {
    switch (veltoprotocol::GetInt(list ? list->FirstChildElement("reqType") : nullptr)) {
    case veltoprotocol::VtDeviceReqAdd:
        return Change::add;
    case veltoprotocol::VtDeviceReqUpdate:
        return Change::update;
    case veltoprotocol::VtDeviceReqDelete:
        return Change::remove;
    default:
        return Change::none;
    }
}

// A deletion carries nothing but GUIDs, of which the decoders would miss the rest.
inline veltoprotocol::__tagVtDeviceParam readDevice(TiXmlElement* entry, Change change) {
    TiXmlElement* const element = entry->FirstChildElement("Device");
    if (change != Change::remove) return veltoprotocol::GetDeviceParamDecode(element, nullptr);
    veltoprotocol::__tagVtDeviceParam device = {};
    veltoprotocol::GetStringValueAtt(element, "Device", "Guid", device.Guid, sizeof device.Guid);
    return device;
}

inline veltoprotocol::__tagVtChannelParam readChannel(TiXmlElement* entry, Change change) {
    TiXmlElement* const video = entry->FirstChildElement("Video");
    TiXmlElement* const element = video ? video->FirstChildElement("Channel") : nullptr;
    veltoprotocol::__tagVtChannelParam channel = {};
    if (change != Change::remove)
        channel = veltoprotocol::GetChannelParamDecode(element, nullptr);
    else
        veltoprotocol::GetStringValueAtt(element, "Channel", "Guid", channel.Guid, sizeof channel.Guid);
    veltoprotocol::GetStringValue(entry, "Channels", "DeviceGuid", channel.DeviceGuid,
                                  sizeof channel.DeviceGuid);
    return channel;
}

inline std::optional<Inventory> readInventory(TiXmlElement* request, Change change) {
    const auto devices = readAll(request, "DeviceCounter", "Devices",
                                 [=](TiXmlElement* entry) { return readDevice(entry, change); });
    const auto channels = readAll(request, "ChannelCounter", "Channels",
                                  [=](TiXmlElement* entry) { return readChannel(entry, change); });
    if (!devices || !channels) return {};
    return Inventory{*devices, *channels};
}

inline Records<veltoprotocol::__tagVtStorageInfo> readStorage(TiXmlElement* request, Change change) {
    const auto read = [=](TiXmlElement* entry) {
        if (change != Change::remove) return veltoprotocol::GetStorageParamDecode(entry, nullptr);
        veltoprotocol::__tagVtStorageInfo storage = {};
        veltoprotocol::GetStringValue(entry, "Storage", "ChannelGuid", storage.ChannelGuid,
                                      sizeof storage.ChannelGuid);
        return storage;
    };
    return readAll(request->FirstChildElement("Storage"), "ChannelCounter", "Channels", read);
}

// One of the two schedules of a channel: its kind and what it says, and the channel once more.
inline std::string readChannelSchedule(TiXmlElement* entry, const char* name, int& type,
                                       veltoprotocol::__tagVtSchedulesInfo& schedule) {
    TiXmlElement* const element = entry->FirstChildElement(name);
    char channel[48] = {};
    veltoprotocol::GetIntValueAtt(element, name, "Type", &type);
    veltoprotocol::GetStringValue(element, name, "ChannelGuid", channel, sizeof channel);
    veltoprotocol::GetStringValue(element, name, "ScheduleGuid", schedule.Guid, sizeof schedule.Guid);
    veltoprotocol::GetStringValue(element, name, "Name", schedule.Name, sizeof schedule.Name);
    veltoprotocol::GetStringValue(element, name, "Schedule", schedule.Schedules, sizeof schedule.Schedules);
    return text(channel);
}

// The two are of the same channel, or they are of none.
inline Records<veltoprotocol::__tagVtChannelScheduleInfo> readChannelSchedules(TiXmlElement* request,
                                                                               Change change) {
    const auto read = [=](TiXmlElement* entry) {
        veltoprotocol::__tagVtChannelScheduleInfo schedules = {};
        if (change == Change::remove) {
            veltoprotocol::GetStringValue(entry, "Schedules", "ChannelGuid", schedules.ChannelGuid,
                                          sizeof schedules.ChannelGuid);
            return schedules;
        }
        const std::string online =
            readChannelSchedule(entry, "Online", schedules.OnlineType, schedules.Online);
        const std::string speedup =
            readChannelSchedule(entry, "Speedup", schedules.SpeedupType, schedules.Speedup);
        if (online == speedup) fill(schedules.ChannelGuid, online);
        return schedules;
    };
    return readAll(request, "ScheduleCounter", "Schedules", read);
}

inline Records<veltoprotocol::__tagVtSchedulesInfo> readNamedSchedules(TiXmlElement* list) {
    return readAll(list, "scheduleCouner", "schedule",
                   [](TiXmlElement* entry) { return veltoprotocol::GetScheduleParamDecode(entry, nullptr); });
}

// On the wire both names end in a blank, which belongs to no name of an element.
inline Records<veltoprotocol::__tagVtArchiveinfo> readArchives(TiXmlElement* request) {
    return readAll(request, "ArchiveCounter", "Archives", [](TiXmlElement* entry) {
        return veltoprotocol::GetArchiveParamDecode(entry->FirstChildElement("Archive"), nullptr);
    });
}

inline Records<veltoprotocol::__tagVtServerInfo> readServers(TiXmlElement* list) {
    return readAll(list, "serverCouner", "server",
                   [](TiXmlElement* entry) { return veltoprotocol::GetServerParamDecode(entry, nullptr); });
}

} // namespace example

#endif
