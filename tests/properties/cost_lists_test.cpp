// Lists of many entries, each as short as it may be: what one costs does not grow with their number.
#include "properties/cost_growth.h"
#include "support/muted.h"
#include "views/layouts.h"

#include <LibVeltoProtocol.h>

#include <functional>

namespace {

using namespace veltoprotocol;
using namespace cost;

// `xml` holds "@" for the count and "#" for so many entries.
struct List {
    std::string name, xml, entry;
    std::function<int(TiXmlDocument*)> read; // gives how many it has made

    std::string text(std::size_t size) const {
        const std::size_t count = size / entry.size(), mark = xml.find('#');
        std::string entries;
        entries.reserve(size);
        for (std::size_t i = 0; i < count; ++i) entries += entry;
        std::string text = xml.substr(0, mark) + entries + xml.substr(mark + 1);
        return text.replace(text.find('@'), 1, std::to_string(count));
    }
};

int innermost(const layouts::Layout& data) {
    if (data.groupcount != 1) return data.groupcount;
    if (data.groups[0].viewcount != 1) return data.groups[0].viewcount;
    const __tagVtViewInfo& view = data.groups[0].views[0];
    return view.itemcount != 1 ? view.itemcount : view.items[0].iteminfo.carouselcount;
}

void release(__tagVtUserEMapInfo* maps) { EMapInfoDecodeRelease(maps); }
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

int playback(TiXmlDocument* doc) {
    int error = 7;
    TiXmlElement* const request = doc->RootElement()->FirstChildElement("request");
    __tagVtPlayBackParam made =
        GetPlayBackParamDecode(request, request->FirstChildElement("PlaybackParam"), &error);
    const auto entries = static_cast<int>(made.RecordCounter);
    ReleasePlaybackParam(&made);
    return entries;
}

std::vector<List> lists() {
    using namespace layouts;
    std::vector<List> all;
    for (const Level& level : levels)
        for (const layouts::Decoder& decoder : decoders)
            all.push_back({std::string(decoder.name) + ", " + level.wrapper,
                           decoder.message(level.counting("@", "#")), "<" + std::string(level.wrapper) + "/>",
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
    all.push_back(
        {"maps of a request", request(maps), map, counted<GetSetEMapInfoReqDecode, &Maps::EMapInfoCount>});
    all.push_back(
        {"items of a request", request(items), item, counted<GetSetEMapInfoReqDecode, &Maps::EMapItemCount>});
    all.push_back(
        {"maps of an answer", answer(maps), map, counted<GetEMapInfoRespDecode, &Maps::EMapInfoCount>});
    all.push_back(
        {"items of an answer", answer(items), item, counted<GetEMapInfoRespDecode, &Maps::EMapItemCount>});
    all.push_back({"alarms", answer("0<AlarmInfos SearchCount=\"9\" CurCount=\"@\">#</AlarmInfos>"),
                   "<AlarmData/>",
                   counted<GetSearchHistoryAlarmRespDecode, &__tagVtSearchAlarmResult::CurCount>});
    all.push_back({"channels", request("<Channels count=\"@\">#</Channels>"), "<ChannelGuid/>",
                   counted<GetSearchHistoryAlarmReqDecode, &__tagVtSearchAlarmParam::channelcount>});
    all.push_back({"records", request("<PlaybackParam /><RecordCounter>@</RecordCounter>#"), "<RecordParam/>",
                   playback});
    return all;
}

TEST(Lists, TakeTimeInProportionToTheirEntries) {
    std::string steep;
    {
        const Muted quiet;
        for (const List& list : lists()) {
            const auto make = [&](std::size_t size) { return parsed(list.text(size)); };
            const int entries = static_cast<int>(little / list.entry.size());
            if (list.read(make(little).get()) != entries) steep += list.name + " are not read\n";
            const std::string why = tooSteep(
                make, [&](const Document& doc) { list.read(doc.get()); }, upTo(4 * little));
            if (!why.empty()) steep += list.name + ": " + why;
        }
    }
    EXPECT_EQ(lists().size(), 15u);
    EXPECT_EQ(steep, "");
}

} // namespace
