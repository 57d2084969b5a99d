// Counts that lie about what follows them.
#include "properties/count_texts.h"
#include "properties/hostile_messages.h"
#include "properties/steady.h"
#include "support/muted.h"
#include "support/read_back.h"
#include "views/layouts.h"

#include <LibVeltoProtocol.h>

#include <cstring>

namespace {

using namespace veltoprotocol;

constexpr long budget = 1L << 30;
constexpr long besides = 1L << 17; // what a call allocates besides its arrays, and what tells of it

// A count that an array is allocated from; "@" stands for it. Two entries follow, "first" and "second".
struct Counter {
    const char* name;
    const char* reader;
    std::string xml;
    std::size_t entry;
    enum { asElement, asAttribute } how;
    enum { noArray, anEmptyArray, beyondTheBudget } negative;
    enum { none, empty } zero;
};

const DocumentReader& documentReader(const std::string& name) {
    for (const DocumentReader& reader : documentReaders)
        if (reader.name == name) return reader;
    throw std::out_of_range(name);
}

std::string toldOf(const Counter& counter, TiXmlDocument* doc) {
    int error = 7;
    if (std::strcmp(counter.reader, "GetPlayBackParamDecode") != 0)
        return documentReader(counter.reader).read(doc, &error);
    for (const ElementReader& reader : recordReaders)
        if (std::string(reader.name) == counter.reader)
            return reader.read(doc->RootElement()->FirstChildElement("request"), &error);
    return "";
}

std::vector<Counter> counters() {
    using namespace layouts;
    std::vector<Counter> all;
    for (const Level& level : levels)
        for (const layouts::Decoder& decoder : decoders)
            all.push_back({level.counter, decoder.name,
                           decoder.message(level.counting("@", level.entry("first") + level.entry("second"))),
                           level.size, Counter::asElement, Counter::noArray, Counter::none});
    const auto list = [&](const char* name, const char* count, const std::string& entryName,
                          const char* text) {
        const auto entry = [&](const std::string& value) {
            return "<" + entryName + ">" +
                   (*text ? "<" + std::string(text) + ">" + value + "</" + text + ">" : value) + "</" +
                   entryName + ">";
        };
        return "<" + std::string(name) + " " + count + "=\"@\">" + entry("first") + entry("second") + "</" +
               name + ">";
    };
    const std::string maps = list("EMapInfos", "count", "EMapInfo", "MapInfoGuid");
    const std::string items = list("EMapItems", "count", "EMapItem", "MapItemGuid");
    const auto add = [&](const char* name, const char* reader, const std::string& xml, std::size_t entry) {
        all.push_back({name, reader, xml, entry, Counter::asAttribute, Counter::noArray, Counter::none});
    };
    add("maps", "GetSetEMapInfoReqDecode", request(maps), sizeof(__tagVtEMapInfo));
    add("items", "GetSetEMapInfoReqDecode", request(items), sizeof(__tagVtEMapItemParam));
    add("maps", "GetEMapInfoRespDecode", answer(maps), sizeof(__tagVtEMapInfo));
    add("items", "GetEMapInfoRespDecode", answer(items), sizeof(__tagVtEMapItemParam));
    add("CurCount", "GetSearchHistoryAlarmRespDecode",
        answer("0" + list("AlarmInfos", "CurCount", "AlarmData", "AlarmGuid")), sizeof(__tagVtAlarmData));
    all.push_back({"channels", "GetSearchHistoryAlarmReqDecode",
                   request(list("Channels", "count", "ChannelGuid", "")), sizeof(__tagVtChannelParam),
                   Counter::asAttribute, Counter::anEmptyArray, Counter::empty});
    const auto record = [](const std::string& guid) {
        return "<RecordParam><RecordInfo guid=\"" + guid + "\" /></RecordParam>";
    };
    all.push_back(
        {"RecordCounter", "GetPlayBackParamDecode",
         request("<PlaybackParam /><RecordCounter>@</RecordCounter>" + record("first") + record("second")),
         sizeof(__tagVtRecordElementParam), Counter::asElement, Counter::beyondTheBudget, Counter::empty});
    return all;
}

// An element without a text counts as -1, an attribute without one as 0.
int countOf(const Counter& counter, const CountText& text) {
    return text.text.empty() && counter.how == Counter::asElement ? -1 : text.count;
}

void check(Faults& faults, const Counter& counter, const CountText& text) {
    const std::string where = std::string(counter.reader) + ", " + counter.name + " \"" + text.text + "\"";
    std::string xml = counter.xml;
    xml.replace(xml.find('@'), 1, text.text);
    const Document doc = parsed(xml);
    const heap::Watch watch;
    const std::string told = steady(faults, where, [&] { return toldOf(counter, doc.get()); });
    const long most = watch.most();

    const int count = countOf(counter, text);
    const long arrays = count > 0 ? count * static_cast<long>(counter.entry) : 0;
    const bool refused = arrays > budget || (count < 0 && counter.negative == Counter::beyondTheBudget);
    faults.expect((told == exhausted) == refused, where, "is refused wrongly");
    if (refused) return faults.expect(most < besides, where, "allocates although it is refused");
    faults.expect(most >= arrays, where, "allocates less than it counts");
    // The array, what is told of it, and copies of that while it grows.
    faults.expect(most <= 8 * arrays + besides, where, "allocates more than it counts");
    const bool array = count > 0 || (count == 0 && counter.zero == Counter::empty) ||
                       (count < 0 && counter.negative == Counter::anEmptyArray);
    const std::string list = "[" + std::to_string(count) + (array ? "" : " of none]");
    faults.expect(told.find(list) != std::string::npos, where, "keeps another count");
    faults.expect((told.find("first") != std::string::npos) == (count >= 1), where,
                  "reads the first wrongly");
    faults.expect((told.find("second") != std::string::npos) == (count >= 2), where,
                  "reads the second wrongly");
}

TEST(Counters, AreNotTrusted) {
    Faults faults;
    {
        const Muted quiet;
        for (const Counter& counter : counters()) {
            for (const CountText& text : countTexts) check(faults, counter, text);
            const int tooMany = static_cast<int>(budget / static_cast<long>(counter.entry)) + 1;
            check(faults, counter, {std::to_string(tooMany), tooMany});
        }
    }
    EXPECT_EQ(counters().size(), 15u);
    EXPECT_EQ(faults.text(), "");
}

} // namespace
