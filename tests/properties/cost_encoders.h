// Every encoder of a message that takes a text, a record or a list, with as many entries and as long texts as
// are asked for. Each byte of them is 1, which XML has to escape: six bytes are written for it.
#pragma once

#include "properties/set_buffer.h"

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace cost {

// Makes arguments from the types of an encoder's parameters: `size` bytes each of texts, records and entries.
class LongArguments {
  public:
    explicit LongArguments(std::size_t size) : text_(size, '\1') {}

    // May be called as long as this lives.
    template <class... Parameters>
    std::function<int(char*, int)> bound(int (*encode)(Parameters...)) {
        following_ = 0;
        std::tuple<Parameters...> arguments{make(Type<Parameters>())...}; // in their order
        return [=](char* out, int size) mutable {
            setBuffer(arguments, out, size);
            return std::apply(encode, arguments);
        };
    }

  private:
    template <class Parameter>
    struct Type {};

    // A text's length or a list's count, where one of them was last; results are 0.
    int make(Type<int>) { return std::exchange(following_, 0); }
    const char* make(Type<const char*>) {
        following_ = static_cast<int>(text_.size());
        return text_.c_str();
    }
    template <class Record>
    const Record* make(Type<const Record*>) {
        return list<Record>(following_);
    }
    template <class Record>
    const Record& make(Type<const Record&>) {
        return *list<Record>(following_);
    }
    const void* make(Type<const void*>) { return list<veltoprotocol::__tagVtAlarmData>(following_); }
    char* make(Type<char*>) { return following_ = 0, nullptr; }
    unsigned int make(Type<unsigned int>) { return following_ = 0, 7u; }
    bool make(Type<bool>) { return true; }
    veltoprotocol::__enumVtMessageType make(Type<veltoprotocol::__enumVtMessageType>) {
        return veltoprotocol::VtMessageAlarm;
    }
    veltoprotocol::__enumVtDeviceReqType make(Type<veltoprotocol::__enumVtDeviceReqType>) {
        return veltoprotocol::VtDeviceReqAdd;
    }

    // The arrays of the first entry have as many bytes; of all others they are empty.
    template <class Record, class Count>
    Record* list(Count& count) {
        const std::size_t entries = text_.size() / sizeof(Record) + 1;
        const auto bytes = std::make_shared<std::string>(entries * sizeof(Record), '\1');
        kept_.push_back(bytes);
        auto* const records = reinterpret_cast<Record*>(&(*bytes)[0]);
        for (std::size_t i = 0; i < entries; ++i) finish(records[i], i == 0);
        count = static_cast<Count>(entries);
        return records;
    }
    template <class Entry, class Count>
    void attach(bool first, Entry*& array, Count& count) {
        array = nullptr;
        count = 0;
        if (first) array = list<Entry>(count);
    }

    template <class Record>
    void finish(Record&, bool) {}
    void finish(veltoprotocol::__tagVtDataParam& payload, bool first) {
        attach(first, payload.Data, payload.DataLength);
    }
    void finish(veltoprotocol::__tagVtRecordParam& found, bool first) {
        attach(first, found.Records, found.Counter);
    }
    void finish(veltoprotocol::__tagVtPlayBackParam& playback, bool first) {
        attach(first, playback.Records, playback.RecordCounter);
    }
    void finish(veltoprotocol::__tagVtSearchAlarmParam& search, bool first) {
        attach(first, search.channels, search.channelcount);
    }
    void finish(veltoprotocol::__tagVtSearchAlarmResult& found, bool first) {
        attach(first, found.alarms, found.CurCount);
    }
    void finish(veltoprotocol::__tagVtUserEMapInfo& user, bool first) {
        attach(first, user.EMapInfos, user.EMapInfoCount);
        attach(first, user.EMapItems, user.EMapItemCount);
    }
    void finish(veltoprotocol::__tagVtViewGroupData& layout, bool first) {
        attach(first, layout.groups, layout.groupcount);
    }
    void finish(veltoprotocol::__tagVtGroupItem& group, bool first) {
        attach(first, group.views, group.viewcount);
    }
    void finish(veltoprotocol::__tagVtViewInfo& view, bool first) {
        attach(first, view.items, view.itemcount);
    }
    void finish(veltoprotocol::__tagVtViewItem& item, bool first) {
        item.type = 5; // its carousels are written
        attach(first, item.iteminfo.carousels, item.iteminfo.carouselcount);
    }

    std::string text_;
    int following_ = 0;
    std::vector<std::shared_ptr<std::string>> kept_;
};

struct LongEncoder {
    const char* name;
    std::function<int(char*, int)> (*bound)(LongArguments&);
};

// clang-format off
#define LONG(encoder) {#encoder, [](LongArguments& made) { return made.bound(veltoprotocol::encoder); }},
inline const LongEncoder longEncoders[] = {
    LONG(GetDeviceListReqEncode) LONG(GetAllDeviceListReqEncode) LONG(GetUserDeviceListReqEncode)
    LONG(GetDeviceListRespEncode) LONG(GetAllDeviceListRespEncode) LONG(GetUserDeviceListRespEncode)
    LONG(GetDeviceEncode) LONG(GetAddDeviceReqEncode) LONG(GetUpdateDeviceReqEncode)
    LONG(GetDeleteDeviceReqEncode) LONG(GetStartSearchDeviceReqEncode) LONG(GetStartSearchDeviceRespEncode)
    LONG(GetStopSearchDeviceReqEncode) LONG(GetServerInfoReqEncode) LONG(GetServerInfoRespEncode)
    LONG(GetSetServerInfoReqEncode) LONG(GetUserInfoReqEncode) LONG(GetUserInfoRespEncode)
    LONG(GetChannelRightsInfoReqEncode) LONG(GetChannelRightsInfoRespEncode) LONG(GetEMapInfoReqEncode)
    LONG(GetEMapInfoRespEncode) LONG(GetSetEMapInfoReqEncode) LONG(GetNotificationReqEncode)
    LONG(GetNotificationContentReqEncode) LONG(GetSearchHistoryAlarmReqEncode)
    LONG(GetSearchHistoryAlarmRespEncode) LONG(HttpReqEncode) LONG(HttpRespEncode) LONG(GetRespEncode)
    LONG(GetLoginReqEncode) LONG(GetLoginRespEncode) LONG(GetLogoutReqEncode) LONG(GetHeartBeatReqEncode)
    LONG(GetRealPlayStartReqEncode) LONG(GetVideoDataEncode) LONG(GetPtzReqEncode)
    LONG(GetStartTalkReqEncode) LONG(GetStopTalkReqEncode) LONG(GetDataReqEncode)
    LONG(GetSearchRecordReqEncode) LONG(GetSearchRecordRespEncode) LONG(GetRecordReqEncode)
    LONG(GetPlaybackRecordReqEncode) LONG(GetDownloadRecordReqEncode) LONG(GetPlaybackStopReqEncode)
    LONG(GetDownloadStopReqEncode) LONG(GetPlaybackControlReqEncode) LONG(GetPlaybackControlRespEncode)
    LONG(GetManualRecordReqEncode) LONG(GetDownloadPictureReqEncode) LONG(GetDownloadEMapPictureReqEncode)
    LONG(GetDownloadPictureDataEncode) LONG(GetDownloadEMapPictureDataEncode)
    LONG(GetUploadPictureDataEncode) LONG(GetStorageEncode) LONG(GetAddStorageReqEncode)
    LONG(GetUpdateStorageReqEncode) LONG(GetDeleteStorageReqEncode) LONG(GetScheduleEncode)
    LONG(GetAddScheduleReqEncode) LONG(GetUpdateScheduleReqEncode) LONG(GetDeleteScheduleReqEncode)
    LONG(GetSetSchedulesReqEncode) LONG(GetArchiveEncode) LONG(GetAddArchiveReqEncode)
    LONG(GetUpdateArchiveReqEncode) LONG(GetDeleteArchiveReqEncode) LONG(GetViewGroupsReqEncode)
    LONG(GetViewGroupsRespEncode) LONG(GetViewGroupDataReqEncode) LONG(GetViewGroupDataRespEncode)
    LONG(GetSetViewGroupDataReqEncode)
};
#undef LONG
// Those that have no text, record or list, and those that write one record, whose length is fixed, to an
// element.
inline const char* const shortEncoders[] = {
    "GetSetServerInfoRespEncode", "GetSetEMapInfoRespEncode", "GetLogoutRespEncode",
    "GetSetViewGroupDataRespEncode", "GetAddDeviceRespEncode", "GetUpdateDeviceRespEncode",
    "GetDeleteDeviceRespEncode", "GetAddStorageRespEncode", "GetUpdateStorageRespEncode",
    "GetDeleteStorageRespEncode", "GetAddScheduleRespEncode", "GetUpdateScheduleRespEncode",
    "GetDeleteScheduleRespEncode", "GetPlaybackRecordRespEncode", "GetPlaybackStopRespEncode",
    "GetDownloadRecordRespEncode", "GetDownloadStopRespEncode", "GetDownloadPictureRespEncode",
    "GetDownloadEMapPictureRespEncode", "GetManualRecordRespEncode", "GetNotificationRespEncode",
    "GetAddArchiveRespEncode", "GetUpdateArchiveRespEncode", "GetDeleteArchiveRespEncode",
    "GetStopSearchDeviceRespEncode", "GetHeartBeatRespEncode", "GetRealPlayStartRespEncode",
    "GetPtzRespEncode", "GetStartTalkRespEncode", "GetStopTalkRespEncode", "GetDeviceParamEncode",
    "GetChannelParamEncode", "GetDeviceNetParamEncode", "GetServerParamEncode", "GetEMapInfoEncode",
    "GetEMapItemParamEncode", "GetVeltoHeaderEncode", "GetStorageParamEncode", "GeScheduleParamEncode",
    "GetViewGroupsParamEncode", "GetViewInfoEncode", "GetViewItemEncode", "GetViewItemInfoEncode",
    "GetCarouselEncode",
};
// clang-format on

} // namespace cost
