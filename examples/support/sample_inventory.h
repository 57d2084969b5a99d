// What the example server has to offer: users, devices and channels, with names as they occur in the world.
#ifndef EXAMPLES_SAMPLE_INVENTORY_H
#define EXAMPLES_SAMPLE_INVENTORY_H

#include "support/text_fields.h"

#include <LibVeltoProtocol.h>

#include <cstdio>
#include <string>
#include <vector>

namespace example {

// A real server keeps no passwords, only salted hashes of them.
struct User {
    std::string name;
    std::string password;
    std::vector<std::string> devices; // GUIDs of what this user may see
    std::string guid;
    bool administrator = false; // who sees all devices and may change everything
};

struct Inventory {
    std::vector<veltoprotocol::__tagVtDeviceParam> devices;
    std::vector<veltoprotocol::__tagVtChannelParam> channels;
};

// "d0000000-0000-4000-8000-000000000007" is the seventh device.
inline std::string guid(char kind, int number) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%012d", number);
    return kind + std::string("0000000-0000-4000-8000-") + digits;
}

inline std::vector<User> sampleUsers() {
    return {
        {"admin", "&<K>\"f'7", {guid('d', 1), guid('d', 2), guid('d', 3), guid('d', 4)}, guid('9', 1), true},
        {"operator", "correct horse", {guid('d', 1), guid('d', 4)}, guid('9', 2)},
        {"gärtner", "rosen:tulpen", {guid('d', 3)}, guid('9', 3)}, // the name ends at the first colon
        {"guest", "guest", {}, guid('9', 4)}};
}

// The protocol names no command that tells users their GUIDs, so clients have to know them from elsewhere.
// Empty for a user that nobody knows.
inline std::string userGuid(const std::string& name) {
    for (const User& user : sampleUsers())
        if (user.name == name) return user.guid;
    return {};
}

// Appends a recorder and its channels.
inline void addDevice(Inventory& inventory, const char* name, const char* password,
                      const std::vector<const char*>& channelNames) {
    const int number = static_cast<int>(inventory.devices.size()) + 1;
    veltoprotocol::__tagVtDeviceParam device = {};
    fill(device.Guid, guid('d', number));
    fill(device.ServerGuid, guid('a', 1));
    device.VenderType = 2;
    device.DeviceType = 1;
    device.DriverType = 2;
    fill(device.MAC, "02:00:5E:10:00:0" + std::to_string(number));
    fill(device.DisplayName, name);
    fill(device.IPAddress, "192.0.2." + std::to_string(10 + number));
    device.DevicePort = 8000;
    device.HttpPort = 80;
    device.FtpPort = 21;
    device.PlaybackPort = 8001;
    fill(device.UserName, "recorder");
    fill(device.Password, password);
    device.State = 1;
    device.ChannelCount = static_cast<int>(channelNames.size());
    device.nIndex = number;
    inventory.devices.push_back(device);

    int position = 0;
    for (const char* channelName : channelNames) {
        veltoprotocol::__tagVtChannelParam channel = {};
        fill(channel.Guid, guid('c', static_cast<int>(inventory.channels.size()) + 1));
        fill(channel.DeviceGuid, guid('d', number));
        fill(channel.DisplayName, channelName);
        channel.Num = ++position;
        channel.Type = 1;
        channel.Preview = position % 4 != 0;
        channel.Hidden = position % 4 == 0 ? 1 : 0;
        channel.LiveStreamIndex = position % 2;
        inventory.channels.push_back(channel);
    }
}

inline Inventory sampleInventory() {
    Inventory inventory;
    addDevice(inventory, "Zentrale Süd: \"Halle\" <A> & Hof", "p&ss\"w<o>rd'1",
              {"Haupteingang", "Müllplatz & Rampe", "Tür <3>", "Büro \"Größe\"", "O'Brien's Tor", "Straße"});
    addDevice(inventory, "北门录像机", "密码-2",
              {"北门入口", "停车场 & 车库", "大厅 <东>", "电梯 \"一\"", "走廊'西'"});
    addDevice(inventory, "Gewächshaus – Übergang", "schlüssel=3",
              {"Palmenhaus", "Kühlraum", "Zufahrt > Nord"});
    addDevice(inventory, "📹 Dach 🏢", "🔑4", {"🌙 Nachtsicht", "🅿️ Parkdeck"});
    return inventory;
}

} // namespace example

#endif
