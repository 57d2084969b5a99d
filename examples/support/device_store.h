// The devices and channels that the example server knows, and changes at an administrator's request.
#ifndef EXAMPLES_DEVICE_STORE_H
#define EXAMPLES_DEVICE_STORE_H

#include "support/answer.h"
#include "support/sample_inventory.h"
#include "support/store.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace example {

class DeviceStore {
  public:
    explicit DeviceStore(const Inventory& first) { apply(Change::add, first); }

    // A request names devices together with their channels: a device comes and goes with all of them. All of
    // it is done or nothing.
    int apply(Change change, const Inventory& wanted) {
        DeviceStore after = *this;
        int result = after.devices_.apply(change, wanted.devices);
        if (result == succeeded) result = after.channels_.apply(change, wanted.channels);
        if (result == succeeded && !after.agrees()) result = notWhole;
        if (result == succeeded) *this = std::move(after);
        return result;
    }

    bool holdsChannel(const std::string& guid) const { return channels_.holds(guid); }
    std::size_t devices() const { return devices_.size(); }
    std::size_t channels() const { return channels_.size(); }

    Inventory all() const { return {devices_.all(), channels_.all()}; }

    // What a user may see.
    Inventory of(const User& user) const {
        Inventory list = all();
        if (user.administrator) return list;
        const auto hidden = [&](const std::string& device) {
            return std::find(user.devices.begin(), user.devices.end(), device) == user.devices.end();
        };
        remove(list.devices, [&](const auto& device) { return hidden(text(device.Guid)); });
        remove(list.channels, [&](const auto& channel) { return hidden(text(channel.DeviceGuid)); });
        return list;
    }

  private:
    using Device = veltoprotocol::__tagVtDeviceParam;
    using Channel = veltoprotocol::__tagVtChannelParam;

    // As many that the list of all of them still fits into a message, whatever their texts.
    static constexpr std::size_t mostDevices = 40;
    static constexpr std::size_t mostChannels = 200;

    template <class Record, class Test>
    static void remove(std::vector<Record>& list, Test test) {
        list.erase(std::remove_if(list.begin(), list.end(), test), list.end());
    }

    // Every channel belongs to a device, which has as many as it says.
    bool agrees() const {
        std::map<std::string, int> channels;
        for (const Channel& channel : channels_.all()) ++channels[text(channel.DeviceGuid)];
        for (const Device& device : devices_.all())
            if (channels[text(device.Guid)] != device.ChannelCount) return false;
        return channels.size() == devices_.size();
    }

    Store<Device> devices_{[](const Device& device) { return text(device.Guid); }, mostDevices};
    Store<Channel> channels_{[](const Channel& channel) { return text(channel.Guid); }, mostChannels};
};

} // namespace example

#endif
