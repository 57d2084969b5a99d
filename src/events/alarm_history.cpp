// The search for past alarms.
#include "framing/decoded.h"
#include "framing/message.h"
#include "framing/walk.h"
#include "veltoprotocol/admin.h"
#include "veltoprotocol/events.h"

#include <memory>

namespace veltoprotocol {
namespace {

using Alarm = __tagVtAlarmData;
using Channel = __tagVtChannelParam;
using Search = __tagVtSearchAlarmParam;
using Found = __tagVtSearchAlarmResult;

// The attributes of SearchParam, in their order.
constexpr auto spanFields =
    attributes("SearchParam", field("BeginTime", &Search::BeginTime), field("EndTime", &Search::EndTime));
constexpr auto kindFields =
    attributes("SearchParam", field("AlarmFlag", &Search::AlarmFlag), field("AlarmType", &Search::AlarmType),
               field("AlarmLevel", &Search::AlarmLevel));
constexpr auto pageFields =
    attributes("SearchParam", field("BeginIndex", &Search::BeginIndex), field("EndIndex", &Search::EndIndex));

constexpr auto foundFields =
    attributes("AlarmInfos", field("SearchCount", &Found::SearchCount), field("CurCount", &Found::CurCount));

// kept: written as attributes, while GetAlarmDataDecode reads children
constexpr auto pastAlarmFields =
    attributes("AlarmData", field("AlarmGuid", &Alarm::AlarmGuid), field("AlarmNo", &Alarm::AlarmNo),
               field("ChannelGuid", &Alarm::ChannelGuid), field("AlarmFlag", &Alarm::AlarmFlag),
               field("AlarmType", &Alarm::AlarmType), field("AlarmLevel", &Alarm::AlarmLevel),
               field("BeginTime", &Alarm::BeginTime), field("EndTime", &Alarm::EndTime),
               field("ConfirmMessage", &Alarm::ConfirmMessage), field("ConfirmTime", &Alarm::ConfirmTime),
               field("ConfirmState", &Alarm::ConfirmState), field("HaveRecord", &Alarm::HaveRecord),
               field("HaveSnapshot", &Alarm::HaveSnapshot));

template <class Record>
using Owned = std::unique_ptr<Record, void (*)(Record*)>;

template <class Record>
Owned<Record> owned() {
    return {new Record(), ReleaseSearchAlarmParam};
}

void readGuid(TiXmlElement* element, Channel& channel) {
    const Text guid = element->GetText();
    if (guid.size > sizeof channel.Guid) return tooLongElement("Channels", "ChannelGuid");
    if (guid.size > 0) std::memcpy(channel.Guid, guid.data, guid.size);
}

void readChannels(TiXmlElement* channels, Search& search) {
    GetIntValueAtt(channels, "Channels", "count", &search.channelcount);
    const int slots = search.channelcount > 0 ? search.channelcount : 0;
    search.channels = Budget().zeroed<Channel>(static_cast<unsigned int>(slots)); // also where it is empty
    fillFrom(channels, "ChannelGuid", search.channels, slots, readGuid);
}

void readSearchParam(TiXmlElement* param, Search& search) {
    readFields(param, spanFields, search);
    // kept: one integer for the three, not reset between them, so what is missing repeats the one before it
    int number = 0;
    kindFields.each([&](const auto& item) {
        GetIntValueAtt(param, kindFields.label, item.name.text, &number);
        search.*item.member = number;
    });
    readFields(param, pageFields, search);
}

} // namespace

int GetSearchHistoryAlarmReqEncode(const char* host, const char* token, unsigned int seqnum,
                                   const Search* param, char* out, int size) {
    if (!param) return -1;
    const auto channelGuids = [&](auto x) {
        for (const auto& channel : entries(param->channels, param->channelcount))
            x.value("ChannelGuid", channel.Guid);
    };
    const auto tree = [&](auto x) {
        if (param->channelcount > 0) // kept: the name's trailing blank
            x.element("Channels ", attribute("count", param->channelcount), channelGuids);
        x.element("SearchParam", spanFields(*param), kindFields(*param), pageFields(*param));
    };
    return Request("SearchHistoryAlarm", seqnum, Token{token}).post(commandPath, host, tree, out, size);
}

int GetSearchHistoryAlarmRespEncode(int result, unsigned int seqnum, const Found* found, char* out,
                                    int size) {
    const auto tree = [&](auto x) {
        x.value("Result", result);
        if (result != 0 || !found || found->CurCount < 1) return;
        x.element("AlarmInfos", foundFields(*found), [&](auto infos) {
            for (const auto& alarm : entries(found->alarms, found->CurCount))
                infos.element("AlarmData", pastAlarmFields(alarm));
        });
    };
    return Response("SearchHistoryAlarm", seqnum).reply(tree, out, size);
}

Search* GetSearchHistoryAlarmReqDecode(TiXmlDocument* doc, int* error) {
    const Walk request = Walk(doc, error).optional("servercommandservice").optional("request");
    if (!request) return nullptr;
    Owned<Search> search = owned<Search>();
    if (const Walk channels = request.optional("Channels")) readChannels(channels.element(), *search);
    if (const Walk param = request.optional("SearchParam")) readSearchParam(param.element(), *search);
    return search.release();
}

Found* GetSearchHistoryAlarmRespDecode(TiXmlDocument* doc, int* error) {
    const Walk response = Walk(doc, error).optional("servercommandservice").optional("response");
    if (!response) return nullptr;
    // kept: the response's own text is tested, not that of Result
    if (GetInt(response.element()) != 0) {
        report(error, -1);
        return nullptr;
    }
    Owned<Found> found = owned<Found>();
    const Walk infos = response.optional("AlarmInfos");
    if (!infos) return found.release();
    readFields(infos.element(), foundFields, *found);
    if (found->CurCount < 1) return found.release();
    found->alarms = Budget().zeroed<Alarm>(static_cast<unsigned int>(found->CurCount));
    fillFrom(infos.element(), "AlarmData", found->alarms, found->CurCount,
             [&](TiXmlElement* element, Alarm& alarm) { alarm = GetAlarmDataDecode(element, error); });
    return found.release();
}

void ReleaseSearchAlarmParam(Search* param) {
    if (!param) return;
    delete[] param->channels;
    delete param;
}

void ReleaseSearchAlarmParam(Found* found) {
    if (!found) return;
    delete[] found->alarms;
    delete found;
}

} // namespace veltoprotocol
