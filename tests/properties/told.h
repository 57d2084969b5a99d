// What readers make, as text: records by their bytes, arrays entry by entry, pointers as what they point to.
#pragma once

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <string>

// All of them live as long as the call that tells them; toldAndReleased() also releases.
namespace telling {

using namespace veltoprotocol;

inline std::string told(const std::string& text) { return text; }
inline std::string told(int number) { return std::to_string(number); }
inline std::string told(unsigned int number) { return std::to_string(number); }
inline std::string told(long number) { return std::to_string(number); }
inline std::string told(unsigned long number) { return std::to_string(number); }
inline std::string told(float number) { return std::to_string(number); }
template <class Record>
inline std::string told(const Record& record) {
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

// Records that point to others tell these as well.
inline std::string told(const __tagVtViewItem& item);
inline std::string told(const __tagVtViewInfo& view);
inline std::string told(const __tagVtGroupItem& group);

// The entries of an array, one told after another; of a long one the first.
template <class Entry, class Count>
inline std::string entries(const Entry* array, Count count) {
    std::string text = "[" + std::to_string(count);
    if (!array) return text + " of none]";
    for (Count i = 0; i < count && i < 10000; ++i) text += told(array[i]);
    return text + "]";
}

inline std::string told(const __tagVtViewItem& item) {
    __tagVtViewItem alone = item;
    alone.iteminfo.carousels = nullptr;
    return told<__tagVtViewItem>(alone) + entries(item.iteminfo.carousels, item.iteminfo.carouselcount);
}
inline std::string told(const __tagVtViewInfo& view) {
    __tagVtViewInfo alone = view;
    alone.items = nullptr;
    return told<__tagVtViewInfo>(alone) + entries(view.items, view.itemcount);
}
inline std::string told(const __tagVtGroupItem& group) {
    __tagVtGroupItem alone = group;
    alone.views = nullptr;
    return told<__tagVtGroupItem>(alone) + entries(group.views, group.viewcount);
}

inline std::string toldAndReleased(__tagVtViewGroupData layout) {
    const std::string text = entries(layout.groups, layout.groupcount);
    ReleaseViewGroupDataParam(&layout);
    return text;
}
inline std::string toldAndReleased(__tagVtViewGroup group) {
    const std::string text = told(group.info) + entries(group.data.groups, group.data.groupcount);
    ReleaseSetViewGroupData(&group);
    return text;
}
inline std::string toldAndReleased(__tagVtSearchAlarmParam* search) {
    if (!search) return "null";
    __tagVtSearchAlarmParam alone = *search;
    alone.channels = nullptr;
    const std::string text = told(alone) + entries(search->channels, search->channelcount);
    ReleaseSearchAlarmParam(search);
    return text;
}
inline std::string toldAndReleased(__tagVtSearchAlarmResult* found) {
    if (!found) return "null";
    const std::string text = std::string(reinterpret_cast<const char*>(&found->SearchCount), 4) +
                             entries(found->alarms, found->CurCount);
    ReleaseSearchAlarmParam(found);
    return text;
}
inline std::string toldAndReleased(__tagVtUserEMapInfo* user) {
    if (!user) return "null";
    const std::string text = std::string(user->UserGuid, sizeof user->UserGuid) +
                             entries(user->EMapInfos, user->EMapInfoCount) +
                             entries(user->EMapItems, user->EMapItemCount);
    EMapInfoDecodeRelease(user);
    return text;
}
inline std::string toldAndReleased(__tagVtRecordParam found) {
    __tagVtRecordParam alone = found;
    alone.Records = nullptr;
    const std::string text = told(alone) + entries(found.Records, found.Counter);
    ReleaseRecordParam(&found);
    return text;
}
inline std::string toldAndReleased(__tagVtPlayBackParam playback) {
    __tagVtPlayBackParam alone = playback;
    alone.Records = nullptr;
    const std::string text = told(alone) + entries(playback.Records, playback.RecordCounter);
    ReleasePlaybackParam(&playback);
    return text;
}
template <class Result>
inline std::string toldAndReleased(const Result& result) {
    return told(result);
}

} // namespace telling
