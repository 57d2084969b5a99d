// What the example server does when it is asked to search the network: there is none to search, so it makes
// two devices up that are not in its inventory.
#ifndef EXAMPLES_DEVICE_SEARCH_H
#define EXAMPLES_DEVICE_SEARCH_H

#include "support/answer.h"
#include "support/encoded.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace example {

inline veltoprotocol::__tagVtDeviceNetParam networkDevice(int vendor, const char* name, const char* address) {
    veltoprotocol::__tagVtDeviceNetParam device = {};
    device.VenderType = vendor;
    device.DeviceType = 1;
    fill(device.Mac, "02:00:5E:10:01:0" + std::to_string(vendor));
    fill(device.NetmaskAddr, "255.255.255.0");
    fill(device.GatewayAddr, "192.0.2.1");
    fill(device.DisplayName, name);
    fill(device.DeviceAddress, address);
    device.DevicePort = 8000;
    device.RtspPort = 554;
    fill(device.ucDnsAddr1, "192.0.2.53");
    fill(device.ucDnsAddr2, "203.0.113.153");
    device.ChannelCount = 3;
    device.nIndex = 90 + vendor;
    fill(device.BroadcastAddr, "192.0.2.255");
    device.PlaybackPort = 8001;
    device.res = -vendor;
    device.ucPlatformType = 7;
    fill(device.ucDevType, "NVR-3 'Süd'");
    fill(device.ucSoftwareVersion, "4.1 <beta>");
    fill(device.ucFirmwareVersion, "2.0.17");
    return device;
}

// The first stands in the server's own network, the second in another one.
inline std::vector<veltoprotocol::__tagVtDeviceNetParam> networkDevices() {
    std::vector<veltoprotocol::__tagVtDeviceNetParam> devices = {
        networkDevice(2, "新设备 <Rekorder> & \"Keller\" 📼", "192.0.2.99"),
        networkDevice(3, "Kamera 'Hof'", "[2001:db8::63]")};
    devices[1].Dhcp = 1;
    return devices;
}

// The searches of one connection that go on, by the sequence numbers of their starts.
class DeviceSearches {
  public:
    // Finds a device of the template's vendor, and of its type if it names one. The multi-network switch
    // takes the search beyond the server's own network.
    Answer start(unsigned int seqnum, TiXmlElement* request) {
        constexpr std::size_t most = 10;
        int error = 0;
        int multiNet = 0;
        const auto wanted = veltoprotocol::GetDeviceParamDecode(request->FirstChildElement("Device"), &error);
        if (veltoprotocol::GetIntValue(request, "request", "MultiNet", &multiNet) != 0) error = -1;
        if (error != 0) return started(notWhole, seqnum, {});
        if (searches_.size() == most) return started(noRoom, seqnum, {});
        if (!searches_.insert(seqnum).second) return started(alreadyThere, seqnum, {});
        const std::vector<veltoprotocol::__tagVtDeviceNetParam> network = networkDevices();
        for (std::size_t i = 0; i < (multiNet != 0 ? network.size() : 1); ++i)
            if (network[i].VenderType == wanted.VenderType &&
                (wanted.DeviceType == 0 || network[i].DeviceType == wanted.DeviceType))
                return started(succeeded, seqnum, network[i]);
        return started(succeeded, seqnum, {});
    }

    // Only who began a search can end it, and only once.
    Answer stop(unsigned int seqnum, TiXmlElement* request) {
        int search = 0; // a sequence number goes out as a signed number
        int result = notWhole;
        if (veltoprotocol::GetIntValue(request, "request", "Seqnum", &search) == 0)
            result = searches_.erase(static_cast<unsigned int>(search)) != 0 ? succeeded : noSuchThing;
        Answer answer;
        answer.decoded = ", of " + std::to_string(static_cast<unsigned int>(search)) + ", result " +
                         std::to_string(result);
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetStopSearchDeviceRespEncode(result, seqnum, out, size);
        });
        return answer;
    }

    static Answer started(int result, unsigned int seqnum,
                          const std::optional<veltoprotocol::__tagVtDeviceNetParam>& found) {
        Answer answer;
        answer.decoded = ", result " + std::to_string(result) +
                         (found ? ", found " + text(found->DisplayName) : ", found nothing");
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetStartSearchDeviceRespEncode(result, seqnum, found ? &*found : nullptr,
                                                                 found.has_value(), out, size);
        });
        return answer;
    }

  private:
    std::set<unsigned int> searches_;
};

} // namespace example

#endif
