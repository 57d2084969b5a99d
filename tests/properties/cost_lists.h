// Lists of many entries, whose count the sender chooses.
#pragma once

#include "properties/cost_families.h"
#include "views/layouts.h"

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace cost {

using namespace veltoprotocol;

// `xml` holds "@" for the count and "#" for so many entries.
struct List {
    std::string name, xml, entry;
    std::size_t entrySize;                   // of what is made of one
    std::function<int(TiXmlDocument*)> read; // gives how many it has made

    std::string text(std::size_t size) const {
        const std::size_t count = size / entry.size();
        return with(count, times(static_cast<int>(count), entry));
    }
    // A count, and what follows it.
    std::string with(std::size_t count, const std::string& entries) const {
        std::string text = xml;
        text.replace(text.find('#'), 1, entries);
        return text.replace(text.find('@'), 1, std::to_string(count));
    }
    // As high as the count may be, with room for the entries around the list.
    std::size_t mostEntries() const { return ((std::size_t{1} << 30) - 4096) / entrySize; }
};

inline int innermost(const layouts::Layout& data) {
    if (data.groupcount != 1) return data.groupcount;
    if (data.groups[0].viewcount != 1) return data.groups[0].viewcount;
    const __tagVtViewInfo& view = data.groups[0].views[0];
    return view.itemcount != 1 ? view.itemcount : view.items[0].iteminfo.carouselcount;
}

inline void release(__tagVtUserEMapInfo* maps) { EMapInfoDecodeRelease(maps); }
template <class Alarms>
void release(Alarms* alarms) {
    ReleaseSearchAlarmParam(alarms);
}

template <auto decode, auto count>
int counted(TiXmlDocument* doc) {
    int error = 7;
    auto* const made = decode(doc, &error);
    const int entries = made ? made->*count : -1;
    release(made);
    return entries;
}

inline int playback(TiXmlDocument* doc) {
    int error = 7;
    TiXmlElement* const request = doc->RootElement()->FirstChildElement("request");
    __tagVtPlayBackParam made =
        GetPlayBackParamDecode(request, request->FirstChildElement("PlaybackParam"), &error);
    const auto entries = static_cast<int>(made.RecordCounter);
    ReleasePlaybackParam(&made);
    return entries;
}

inline std::vector<List> lists() {
    using namespace layouts;
    std::vector<List> all;
    for (const Level& level : levels)
        for (const layouts::Decoder& decoder : decoders)
            all.push_back({std::string(decoder.name) + ", " + level.wrapper,
                           decoder.message(level.counting("@", "#")), level.entry(""), level.size,
                           [&decoder](TiXmlDocument* doc) {
                               int error = 7;
                               Layout data = decoder.decode(doc, &error);
                               const int entries = innermost(data);
                               ReleaseViewGroupDataParam(&data);
                               return entries;
                           }});
    const std::string maps = "<EMapInfos count=\"@\">#</EMapInfos>", map = "<EMapInfo/>";
    const std::string items = "<EMapItems count=\"@\">#</EMapItems>", item = "<EMapItem/>";
    using Maps = __tagVtUserEMapInfo;
    all.push_back({"maps of a request", request(maps), map, sizeof(__tagVtEMapInfo),
                   counted<GetSetEMapInfoReqDecode, &Maps::EMapInfoCount>});
    all.push_back({"items of a request", request(items), item, sizeof(__tagVtEMapItemParam),
                   counted<GetSetEMapInfoReqDecode, &Maps::EMapItemCount>});
    all.push_back({"maps of an answer", answer(maps), map, sizeof(__tagVtEMapInfo),
                   counted<GetEMapInfoRespDecode, &Maps::EMapInfoCount>});
    all.push_back({"items of an answer", answer(items), item, sizeof(__tagVtEMapItemParam),
                   counted<GetEMapInfoRespDecode, &Maps::EMapItemCount>});
    all.push_back({"alarms", answer("0<AlarmInfos SearchCount=\"9\" CurCount=\"@\">#</AlarmInfos>"),
                   "<AlarmData/>", sizeof(__tagVtAlarmData),
                   counted<GetSearchHistoryAlarmRespDecode, &__tagVtSearchAlarmResult::CurCount>});
    all.push_back({"channels", request("<Channels count=\"@\">#</Channels>"), "<ChannelGuid/>",
                   sizeof(__tagVtChannelParam),
                   counted<GetSearchHistoryAlarmReqDecode, &__tagVtSearchAlarmParam::channelcount>});
    all.push_back({"records", request("<PlaybackParam /><RecordCounter>@</RecordCounter>#"), "<RecordParam/>",
                   sizeof(__tagVtRecordElementParam), playback});
    return all;
}

} // namespace cost
