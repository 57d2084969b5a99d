// The messages that are measured: the arguments of one encoder each, and the call.
#pragma once

#include "samples.h"

#include <vector>

namespace bench {

struct ResultAnswer {
    std::string label = "result";
    const char* command = "AddDevice";
    int result = -5;
    unsigned int seqnum = 20481;

    int encode(char* out, int size) const {
        return veltoprotocol::GetAddDeviceRespEncode(result, seqnum, out, size);
    }
};

struct AlarmPush {
    std::string label = "alarm";
    const char* command = "NotificationContent";
    Alarm alarm = bench::alarm();
    unsigned int seqnum = 20481;

    int encode(char* out, int size) const {
        return veltoprotocol::GetNotificationContentReqEncode(0, seqnum, veltoprotocol::VtMessageAlarm,
                                                              &alarm, out, size);
    }
};

struct DeviceList {
    DeviceList(std::string called, int channels, bool escaped = false)
        : label(std::move(called)), inventory(bench::inventory(channels, escaped)) {}

    std::string label;
    const char* command = "GetAllDeviceList";
    Inventory inventory;
    unsigned int seqnum = 20481;

    int encode(char* out, int size) const {
        const auto& [devices, channels] = inventory;
        return veltoprotocol::GetAllDeviceListRespEncode(0, seqnum, devices.data(),
                                                         static_cast<int>(devices.size()), channels.data(),
                                                         static_cast<int>(channels.size()), out, size);
    }
};

struct LayoutAnswer {
    std::string label = "layout";
    const char* command = "GetViewGroupData";
    SampleLayout layout = {};
    unsigned int seqnum = 20481;

    int encode(char* out, int size) const {
        return veltoprotocol::GetViewGroupDataRespEncode(0, seqnum, &layout.info, &layout.data, out, size);
    }
};

struct SearchAnswer {
    explicit SearchAnswer(int count) : records(bench::records(count)), list(recordList(records)) {}
    SearchAnswer(const SearchAnswer&) = delete;
    SearchAnswer& operator=(const SearchAnswer&) = delete;

    std::string label = "record_list";
    std::vector<Record> records;
    RecordList list;
    unsigned int seqnum = 20481;

    int encode(char* out, int size) const {
        return veltoprotocol::GetSearchRecordRespEncode(0, seqnum, &list, out, size);
    }
};

struct VideoFrame {
    std::string label = "video";
    veltoprotocol::__tagVtStreamHeader header = {1, 0, 4711, 1763735585000000ULL, 1920, 1080, 65536, {}};
    std::string frame = noise(65536);

    int encode(char* out, int size) const {
        return veltoprotocol::GetVideoDataEncode(header, frame.data(), static_cast<int>(frame.size()), out,
                                                 size);
    }
};

// The library's own bytes of a message.
template <class Message>
std::string encoded(const Message& message) {
    for (std::size_t room = 4096; room <= std::size_t(64) << 20; room *= 4) {
        std::string out(room, '\0');
        const int length = message.encode(&out[0], static_cast<int>(room));
        if (length >= 0) return out.substr(0, static_cast<std::size_t>(length));
    }
    throw std::runtime_error("cannot be encoded: " + message.label);
}

inline std::string bodyOf(const std::string& message) { return message.substr(message.find("\r\n\r\n") + 4); }

} // namespace bench
