#include "properties/entry_lists.h"

namespace entry_lists {
namespace {

using Fields = std::vector<std::string>;

// Elements with a count as their attribute.

std::string attributed(const char* name, const char* attribute, const std::string& count,
                       const std::string& entries) {
    const std::string counting = count.empty() ? "" : std::string(" ") + attribute + "=\"" + count + "\"";
    return "<" + std::string(name) + counting + ">" + entries + "</" + name + ">";
}
std::string element(const char* name, std::initializer_list<const char*> children, const std::string& n) {
    std::string inside;
    for (const char* child : children) inside += layouts::counter(child, n);
    return layouts::wrapped(name, inside);
}

template <class Record, class Release, class Tell>
auto reading(Record* (*decode)(TiXmlDocument*, int*), Release release, Tell tell) {
    return [=](TiXmlDocument* doc, int* error) {
        Record* const record = decode(doc, error);
        if (!record) return std::string("null");
        const std::string told = tell(*record);
        release(record);
        return told;
    };
}

void addMaps(std::vector<List>& lists) {
    const struct {
        const char* name;
        std::string (*message)(const std::string&);
        __tagVtUserEMapInfo* (*decode)(TiXmlDocument*, int*);
    } decoders[] = {{"GetSetEMapInfoReqDecode", layouts::request, GetSetEMapInfoReqDecode},
                    {"GetEMapInfoRespDecode", layouts::answer, GetEMapInfoRespDecode}};
    for (const auto& decoder : decoders) {
        List maps, items;
        maps.name = std::string(decoder.name) + ", EMapInfos";
        maps.message = items.message = decoder.message;
        maps.list = [](const std::string& count, const std::string& entries) {
            return attributed("EMapInfos", "count", count, entries);
        };
        maps.entry = [](const std::string& n) {
            return element("EMapInfo", {"MapInfoGuid", "MapType", "LastTime"}, n);
        };
        maps.read = reading(decoder.decode, EMapInfoDecodeRelease, [](const __tagVtUserEMapInfo& user) {
            return told<__tagVtEMapInfo>(user.EMapInfos, user.EMapInfoCount, [](const auto& map) -> Fields {
                return {map.MapInfoGuid, std::to_string(map.MapType), std::to_string(map.LastTime)};
            });
        });
        items.name = std::string(decoder.name) + ", EMapItems";
        items.list = [](const std::string& count, const std::string& entries) {
            return attributed("EMapItems", "count", count, entries);
        };
        items.entry = [](const std::string& n) {
            return element("EMapItem", {"MapItemGuid", "DisplayName", "Status"}, n);
        };
        items.read = reading(decoder.decode, EMapInfoDecodeRelease, [](const __tagVtUserEMapInfo& user) {
            return told<__tagVtEMapItemParam>(
                user.EMapItems, user.EMapItemCount, [](const auto& item) -> Fields {
                    return {item.MapItemGuid, item.DisplayName, std::to_string(item.Status)};
                });
        });
        lists.push_back(maps);
        lists.push_back(items);
    }
}

void addAlarms(std::vector<List>& lists) {
    List channels, alarms;
    channels.name = "GetSearchHistoryAlarmReqDecode, Channels";
    channels.message = layouts::request;
    channels.list = [](const std::string& count, const std::string& entries) {
        return attributed("Channels", "count", count, entries);
    };
    channels.entry = [](const std::string& n) { return layouts::counter("ChannelGuid", n); };
    channels.read = reading(GetSearchHistoryAlarmReqDecode,
                            static_cast<void (*)(__tagVtSearchAlarmParam*)>(ReleaseSearchAlarmParam),
                            [](const __tagVtSearchAlarmParam& search) {
                                return told<__tagVtChannelParam>(
                                    search.channels, search.channelcount,
                                    [](const auto& channel) -> Fields { return {channel.Guid}; });
                            });
    channels.ofZero = channels.ofNoCount = "0:"; // an empty array
    lists.push_back(channels);

    alarms.name = "GetSearchHistoryAlarmRespDecode, AlarmInfos";
    alarms.message = [](const std::string& list) { return layouts::answer("0" + list); };
    alarms.list = [](const std::string& count, const std::string& entries) {
        return attributed("AlarmInfos", "CurCount", count, entries);
    };
    alarms.entry = [](const std::string& n) {
        return element("AlarmData", {"AlarmGuid", "AlarmNo", "ConfirmTime"}, n);
    };
    alarms.read = reading(
        GetSearchHistoryAlarmRespDecode,
        static_cast<void (*)(__tagVtSearchAlarmResult*)>(ReleaseSearchAlarmParam),
        [](const __tagVtSearchAlarmResult& found) {
            return told<__tagVtAlarmData>(found.alarms, found.CurCount, [](const auto& alarm) -> Fields {
                return {alarm.AlarmGuid, std::to_string(alarm.AlarmNo), alarm.ConfirmTime};
            });
        });
    lists.push_back(alarms);
}

// The request itself holds this one.
void addPlayback(std::vector<List>& lists) {
    List records;
    records.name = "GetPlayBackParamDecode, RecordParam";
    records.message = [](const std::string& list) {
        return "<servercommandservice>" + list + "</servercommandservice>";
    };
    records.list = [](const std::string& count, const std::string& entries) {
        return layouts::wrapped(
            "request",
            "<PlaybackParam />" + (count.empty() ? "" : layouts::counter("RecordCounter", count)) + entries);
    };
    records.entry = [](const std::string& n) {
        return "<RecordParam>" + layouts::counter("Index", n) + "<RecordInfo guid=\"" + n +
               "\" RecordSize=\"" + n + "\" PictureUrl=\"" + n + "\" /><PictureInfo /></RecordParam>";
    };
    records.read = [](TiXmlDocument* doc, int* error) {
        TiXmlElement* const request = doc->RootElement()->FirstChildElement("request");
        TiXmlElement* const param = request ? request->FirstChildElement("PlaybackParam") : nullptr;
        __tagVtPlayBackParam playback = GetPlayBackParamDecode(request, param, error);
        const std::string list = told<__tagVtRecordElementParam>(
            playback.Records, playback.RecordCounter, [](const auto& record) -> Fields {
                return {std::to_string(record.Index), record.guid, std::to_string(record.RecordSize),
                        record.PictureGuid, record.PictureUrl};
            });
        ReleasePlaybackParam(&playback);
        return list;
    };
    records.ofZero = "0:"; // an empty array
    records.ofNoList = "none, error -1";
    lists.push_back(records);
}

} // namespace

std::vector<List> all() {
    std::vector<List> lists;
    addLayouts(lists);
    addMaps(lists);
    addAlarms(lists);
    addPlayback(lists);
    return lists;
}

} // namespace entry_lists
