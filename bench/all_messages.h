// One of each measured message, made once and shared by all benchmarks.
#pragma once

#include "messages.h"

#include <array>

namespace bench {

struct AllMessages {
    ResultAnswer result;
    AlarmPush alarm;
    std::array<DeviceList, 5> lists = {DeviceList("device_list_64", 64), DeviceList("device_list_256", 256),
                                       DeviceList("device_list_1024", 1024),
                                       DeviceList("device_list_4096", 4096),
                                       DeviceList("device_list_16384", 16384)};
    DeviceList escaped{"device_list_1024_escaped", 1024, true};
    LayoutAnswer layout;
    VideoFrame video;
    SearchAnswer found{10000};

    const DeviceList& deviceList() const { return lists[2]; }
};

inline const AllMessages& all() {
    static const AllMessages messages;
    return messages;
}

} // namespace bench
