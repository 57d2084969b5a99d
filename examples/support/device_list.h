// Reads a device-list response, as every client has to: the library decodes devices and channels, and the
// walk along the list is the receiver's.
#ifndef EXAMPLES_DEVICE_LIST_H
#define EXAMPLES_DEVICE_LIST_H

#include "support/text_fields.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <cstddef>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace example {

struct DeviceList {
    std::vector<veltoprotocol::__tagVtDeviceParam> devices;
    std::vector<veltoprotocol::__tagVtChannelParam> channels;
};

// A list is cut off if it holds another number of entries than it says. Without devices there is no counter.
inline void checkCounter(TiXmlElement* response, const char* name, std::size_t found) {
    int counter = 0;
    if (response->FirstChildElement(name)) veltoprotocol::GetIntValue(response, "response", name, &counter);
    if (counter < 0 || static_cast<std::size_t>(counter) != found)
        throw std::runtime_error(std::string(name) + " is " + std::to_string(counter) + ", but there are " +
                                 std::to_string(found));
}

// Throws std::runtime_error for a list that is not as it should be.
inline DeviceList readDeviceList(TiXmlDocument* document) {
    TiXmlElement* const root = document ? document->FirstChildElement("servercommandservice") : nullptr;
    TiXmlElement* const response = root ? root->FirstChildElement("response") : nullptr;
    if (!response) throw std::runtime_error("there is no response");

    DeviceList list;
    int error = 0;
    // begin walk
    for (TiXmlElement* entry = response->FirstChildElement("Devices"); entry;
         entry = entry->NextSiblingElement("Devices")) {
        list.devices.push_back(
            veltoprotocol::GetDeviceParamDecode(entry->FirstChildElement("Device"), &error));
        if (error != 0) throw std::runtime_error("an entry holds no device");
    }
    for (TiXmlElement* entry = response->FirstChildElement("Channels"); entry;
         entry = entry->NextSiblingElement("Channels")) {
        TiXmlElement* const video = entry->FirstChildElement("Video");
        TiXmlElement* const element = video ? video->FirstChildElement("Channel") : nullptr;
        veltoprotocol::__tagVtChannelParam channel = veltoprotocol::GetChannelParamDecode(element, &error);
        if (error != 0) throw std::runtime_error("an entry holds no channel");
        // The device that owns the channel stands beside it.
        veltoprotocol::GetStringValue(entry, "Channels", "DeviceGuid", channel.DeviceGuid,
                                      sizeof channel.DeviceGuid);
        list.channels.push_back(channel);
    }
    // end walk
    checkCounter(response, "DeviceCounter", list.devices.size());
    checkCounter(response, "ChannelCounter", list.channels.size());
    return list;
}

} // namespace example

#endif
