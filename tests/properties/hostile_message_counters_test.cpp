// Every count of every message lies in turn, also those that no array is allocated from, while all else is as
// it was: so the counts inside are reached through true ones.
#include "properties/count_texts.h"
#include "properties/hostile_messages.h"
#include "properties/steady.h"
#include "properties/tree_edits.h"
#include "support/muted.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <functional>
#include <map>
#include <set>

namespace {

using namespace veltoprotocol;
using edits::Held;

// Some are spelled otherwise.
bool countsSomething(const std::string& name) {
    for (const std::string ending : {"ount", "ounter", "ouner"})
        if (name.size() > ending.size() &&
            name.compare(name.size() - ending.size(), ending.size(), ending) == 0)
            return true;
    return false;
}

// No array of so many entries is within the budget. In a record it is the bytes 4, 3, 2, 1.
constexpr char many[] = "16909060";

std::string withNumber(std::string record, std::size_t place, int number) {
    return record.replace(place, sizeof number, reinterpret_cast<const char*>(&number), sizeof number);
}

// What a reader makes of a count that lies: nothing of it, a number in its record, or an array.
class Lies {
  public:
    using Read = std::function<std::string()>;

    void tell(const char* reader, const Held& count, const Read& reading) {
        const std::string where = std::string(reader) + ", " + count.name, truth = count.text();
        const auto read = [&] { return steady(faults, where, reading); };
        const std::string was = read();
        count.set("0");
        const std::string ofNone = read();
        count.set(many);
        const std::string ofMany = read();
        if (ofNone == ofMany)
            eachText(count, read, oneOutOf, [&](int, const std::string& told) {
                faults.expect(told == was, where, "changes what it does not count");
            });
        else if (ofMany == exhausted)
            tellArray(where, count, read);
        else
            tellField(where, count, read, ofNone, ofMany);
        count.set(truth);
        faults.expect(read() == was, where, "is not as it was");
    }

    Faults faults;
    std::set<std::string> arrays;
    std::map<std::string, std::size_t> fields; // with their places in the records

  private:
    template <class Check>
    static void eachText(const Held& count, const Read& read, std::size_t step, const Check& check) {
        for (std::size_t i = 0; i < std::size(countTexts); i += step) {
            count.set(countTexts[i].text);
            check(countTexts[i].count, read());
        }
    }

    // One count, one list, however it is spelled.
    void tellArray(const std::string& where, const Held& count, const Read& read) {
        arrays.insert(where);
        std::map<int, std::string> lists;
        eachText(count, read, 1, [&](int number, const std::string& told) {
            const auto known = lists.emplace(number, told).first;
            faults.expect(known->second == told, where, "gives another list when spelled otherwise");
            const std::string begin = "[" + std::to_string(number);
            faults.expect(told == exhausted || told.find(begin) != std::string::npos, where,
                          "keeps another count");
        });
        faults.expect(lists[2147483647] == exhausted && lists[200] != exhausted, where, "is bounded wrongly");
        faults.expect(lists[1] != lists[2] && lists[2] != lists[3], where, "counts nothing");
    }

    // Its own four bytes, and no other.
    void tellField(const std::string& where, const Held& count, const Read& read, const std::string& ofNone,
                   const std::string& ofMany) {
        std::size_t place = 0;
        while (place < ofNone.size() && place < ofMany.size() && ofNone[place] == ofMany[place]) ++place;
        if (ofNone.size() != ofMany.size() || place + sizeof(int) > ofNone.size())
            return faults.add(where, "is no number");
        faults.expect(withNumber(ofNone, place, std::atoi(many)) == ofMany, where, "changes other fields");
        faults.expect(fields.emplace(where, place).first->second == place, where, "has two places");
        eachText(count, read, 1, [&](int number, const std::string& told) {
            faults.expect(told == withNumber(ofNone, place, number), where, "is read as something else");
        });
    }
};

// Those that tell the XML itself.
bool tellsTheXml(const std::string& reader) { return reader == "GetXmlLength" || reader == "GetXmlEncode"; }

// By each reader of the document, and by each of an element that holds the count: nobody else sees it.
void tellLies(Lies& lies, TiXmlDocument& doc, const Held& count) {
    int error = 7;
    for (const DocumentReader& reader : documentReaders)
        if (!tellsTheXml(reader.name))
            lies.tell(reader.name, count, [&] { return reader.read(&doc, &error); });
    for (TiXmlElement* at = count.element; at; at = at->Parent()->ToElement())
        for (const ElementReader& reader : recordReaders)
            lies.tell(reader.name, count, [&] { return reader.read(at, &error); });
    // These tell the text, or that of a child.
    const std::string truth = count.text();
    for (std::size_t i = 0; i < std::size(countTexts); i += oneOutOf) {
        count.set(countTexts[i].text);
        for (TiXmlElement* at : {count.element, count.element->Parent()->ToElement()})
            for (const ElementReader& reader : valueReaders)
                steady(lies.faults, reader.name, [&] { return reader.read(at, &error); });
    }
    count.set(truth);
}

// Each list is reached in a whole message, at its own level.
const std::set<std::string> arrays = {"GetViewGroupDataParamDecode, GroupsCounter",
                                      "GetViewGroupDataParamDecode, ViewsCounter",
                                      "GetViewGroupDataParamDecode, ViewitemsCounter",
                                      "GetViewGroupDataParamDecode, CarouselsCounter",
                                      "GetSetViewGroupData, GroupsCounter",
                                      "GetSetViewGroupData, ViewsCounter",
                                      "GetSetViewGroupData, ViewitemsCounter",
                                      "GetSetViewGroupData, CarouselsCounter",
                                      "GetSearchHistoryAlarmReqDecode, count",
                                      "GetSearchHistoryAlarmRespDecode, CurCount",
                                      "GetSetEMapInfoReqDecode, count",
                                      "GetEMapInfoRespDecode, count",
                                      "GetPlayBackParamDecode, RecordCounter"};
// All other counts are numbers of their records, or nobody's.
const std::map<std::string, std::size_t> fields = {
    {"GetDeviceParamDecode, ChannelCount", offsetof(__tagVtDeviceParam, ChannelCount)},
    {"GetDeviceNetParamDecode, ChannelCount", offsetof(__tagVtDeviceNetParam, ChannelCount)},
    {"GetStorageParamDecode, DbLimitCount", offsetof(__tagVtStorageInfo, DbLimitCount)},
    {"GetSearchHistoryAlarmRespDecode, SearchCount", 0}};

TEST(Counters, OfEveryMessageMayLie) {
    Lies lies;
    std::size_t counts = 0;
    {
        const Muted quiet;
        for (const std::string& xml : wholeDocuments()) {
            const Document doc = parsed(xml);
            for (const Held& held : edits::textsOf(*doc)) {
                if (!countsSomething(held.name)) continue;
                tellLies(lies, *doc, held);
                ++counts;
            }
        }
    }
    EXPECT_EQ(lies.faults.text(), "");
    EXPECT_EQ(lies.arrays, arrays);
    EXPECT_EQ(lies.fields, fields);
    EXPECT_GE(counts, 80u);
}

} // namespace
