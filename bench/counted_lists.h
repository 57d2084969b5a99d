// Messages with a list whose count the sender chooses, and the decoders that make an array of it.
#pragma once

#include "properties/cost_families.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace bench {

using namespace veltoprotocol;

// A decoder of a list: where the count and the entries stand, and how many entries it makes.
struct List {
    const char *name, *decoder;
    std::size_t size; // of what is made of an entry
    std::string front, behindCount, entry, back;
    std::function<long(TiXmlDocument*)> read;

    std::string text(const std::string& count, std::size_t size) const {
        return cost::Family{"", cost::By::scan, front + count + behindCount, entry, back}.text(size);
    }
};

inline std::string request(const std::string& inside) {
    return cost::usual + "<servercommandservice><request>" + inside;
}
inline std::string response(const std::string& inside) {
    return cost::usual + "<servercommandservice><response>" + inside;
}
inline const std::string requestEnd = "</request></servercommandservice>",
                         responseEnd = "</response></servercommandservice>";

inline const std::vector<List>& lists() {
    static const std::vector<List> lists = {
        {"groups", "GetViewGroupDataParamDecode", sizeof(__tagVtGroupItem),
         response("<Result>0</Result><ViewGroupData><ViewGroupDataXml><GroupsCounter>"), "</GroupsCounter>",
         "<Groups/>", "</ViewGroupDataXml></ViewGroupData>" + responseEnd,
         [](TiXmlDocument* doc) {
             int error = 7;
             __tagVtViewGroupData made = GetViewGroupDataParamDecode(doc, &error);
             const long count = made.groups ? made.groupcount : 0;
             ReleaseViewGroupDataParam(&made);
             return count;
         }},
        {"maps", "GetEMapInfoRespDecode", sizeof(__tagVtEMapInfo),
         response("<UserGuid>u</UserGuid><EMapInfos count=\""), "\">", "<EMapInfo/>",
         "</EMapInfos>" + responseEnd,
         [](TiXmlDocument* doc) {
             int error = 7;
             auto* const made = GetEMapInfoRespDecode(doc, &error);
             const long count = made ? made->EMapInfoCount : 0;
             EMapInfoDecodeRelease(made);
             return count;
         }},
        {"map-items", "GetSetEMapInfoReqDecode", sizeof(__tagVtEMapItemParam),
         request("<UserGuid>u</UserGuid><EMapItems count=\""), "\">", "<EMapItem/>",
         "</EMapItems>" + requestEnd,
         [](TiXmlDocument* doc) {
             int error = 7;
             auto* const made = GetSetEMapInfoReqDecode(doc, &error);
             const long count = made ? made->EMapItemCount : 0;
             EMapInfoDecodeRelease(made);
             return count;
         }},
        {"alarms", "GetSearchHistoryAlarmRespDecode", sizeof(__tagVtAlarmData),
         response("0<AlarmInfos SearchCount=\"9\" CurCount=\""), "\">", "<AlarmData/>",
         "</AlarmInfos>" + responseEnd,
         [](TiXmlDocument* doc) {
             int error = 7;
             auto* const made = GetSearchHistoryAlarmRespDecode(doc, &error);
             const long count = made ? made->CurCount : 0;
             ReleaseSearchAlarmParam(made);
             return count;
         }},
        {"channels", "GetSearchHistoryAlarmReqDecode", sizeof(__tagVtChannelParam),
         request("<Channels count=\""), "\">", "<ChannelGuid/>", "</Channels>" + requestEnd,
         [](TiXmlDocument* doc) {
             int error = 7;
             auto* const made = GetSearchHistoryAlarmReqDecode(doc, &error);
             const long count = made ? made->channelcount : 0;
             ReleaseSearchAlarmParam(made);
             return count;
         }},
        {"records", "GetPlayBackParamDecode", sizeof(__tagVtRecordElementParam),
         request("<PlaybackParam /><RecordCounter>"), "</RecordCounter>", "<RecordParam/>", requestEnd,
         [](TiXmlDocument* doc) {
             int error = 7;
             TiXmlElement* const element = doc->RootElement()->FirstChildElement("request");
             __tagVtPlayBackParam made =
                 GetPlayBackParamDecode(element, element->FirstChildElement("PlaybackParam"), &error);
             const long count = made.Records ? static_cast<long>(made.RecordCounter) : 0;
             ReleasePlaybackParam(&made);
             return count;
         }}};
    return lists;
}

} // namespace bench
