// Texts that are too long for their fields, at every level.
#include "properties/hostile_messages.h"
#include "properties/steady.h"
#include "properties/tree_edits.h"
#include "support/captured.h"
#include "support/muted.h"
#include "support/read_back.h"
#include "views/layouts.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <set>

namespace {

using namespace veltoprotocol;
using edits::Held;
using edits::textsOf;

// Every width that a field has, one byte more and one less; and what is longer than all of them.
std::vector<std::size_t> lengths() {
    std::vector<std::size_t> lengths = {5000, 70000};
    for (const std::size_t width :
         {1u, 4u, 8u, 16u, 24u, 32u, 36u, 48u, 64u, 80u, 128u, 160u, 256u, 512u, 1024u, 2048u})
        for (const std::size_t length : {width - 1, width, width + 1})
            if (length > 0) lengths.push_back(length);
    std::sort(lengths.begin(), lengths.end());
    return lengths;
}

// How many bytes are an x now and were zero; SIZE_MAX if others changed.
std::size_t newXs(const std::string& was, const std::string& is) {
    if (was.size() != is.size()) return SIZE_MAX;
    std::size_t count = 0;
    for (std::size_t i = 0; i < is.size(); ++i) {
        if (is[i] == was[i]) continue;
        if (is[i] != 'x' || was[i] != '\0') return SIZE_MAX;
        ++count;
    }
    return count;
}

std::size_t linesWith(const std::string& printed, const std::string& what) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = printed.find(what, at)) != std::string::npos; ++at) ++count;
    return count;
}

// Into the field and those that repeat it, or nowhere, with a line that says so; nothing else changes.
using Read = std::function<std::string(int* error)>;
std::string wrongWith(const Read& reading, const Held& held, bool& refuses) {
    int error = 7;
    const auto read = [&] { return reading(&error); };
    auto quiet = std::make_unique<Muted>();
    held.set("0"); // no text of a number; as a text it is taken back below
    std::string nothing = read();
    held.set("x");
    const std::string one = read();
    if (newXs(nothing, one) == SIZE_MAX)
        for (std::size_t i = 0; i < nothing.size() && i < one.size(); ++i)
            if (nothing[i] == '0' && one[i] == 'x') nothing[i] = '\0';

    std::size_t tooLong = 0, longestTaken = 0, shortestRefused = SIZE_MAX;
    quiet.reset();
    Captured captured;
    std::string wrong;
    for (const std::size_t length : lengths()) {
        held.set(std::string(length, 'x'));
        const std::string told = read();
        const std::size_t xs = newXs(nothing, told);
        if (xs == SIZE_MAX || xs % length != 0) wrong = "changes something else";
        if (error != 0) wrong = "is an error";
        if (xs > 0) longestTaken = length;
        if (xs == 0) ++tooLong, shortestRefused = std::min(shortestRefused, length);
    }
    const std::string printed = captured.text();
    if (longestTaken == 0) return wrong; // no text, or none that this reader reads
    refuses = true;
    if (tooLong == 0 || shortestRefused != longestTaken + 1) return "has no width";
    const std::size_t lines = linesWith(printed, " element too long!\n");
    const bool readTwice = held.name == "ucDevType" || held.name == "guid"; // kept: for two fields
    if (lines < tooLong || (lines > tooLong && !readTwice)) return "does not tell that it is too long";
    const std::string named = held.attribute ? "(" + held.name + ")" : "-" + held.name;
    if (linesWith(printed, named + " element too long!\n") != lines) return "names another one";
    return wrong;
}

TEST(LongTexts, OfRecordsStayOutOfTheirFields) {
    std::size_t texts = 0;
    for (const OwnElement& own : ownElements()) {
        const Document doc = parsed(own.xml);
        for (std::size_t i = 0; i < textsOf(*doc).size(); ++i) {
            const Document fresh = parsed(own.xml);
            const Held held = textsOf(*fresh)[i];
            // kept: two paths share a field
            if (held.name.find("NonUNC") != std::string::npos) continue;
            bool refuses = false;
            const auto read = [&](int* error) { return own.reader->read(fresh->RootElement(), error); };
            const std::string wrong = wrongWith(read, held, refuses);
            EXPECT_EQ(wrong, "") << own.reader->name << ", " << held.name;
            texts += refuses;
        }
    }
    EXPECT_GE(texts, 80u);
}

// The document that a reader finds most in.
std::string ownDocument(const DocumentReader& reader) {
    std::string best;
    std::size_t most = 0;
    const Muted quiet;
    for (const std::string& xml : wholeDocuments()) {
        const Document doc = parsed(xml);
        int error = 7;
        const std::size_t told = reader.read(doc.get(), &error).size();
        if (error != 0 || told <= most) continue;
        most = told;
        best = xml;
    }
    return best;
}

const std::string ofUser = "GetUserInfoParamDecode";
// Those of which records are made.
const std::set<std::string> ofRecords = {
    "GetUserInfoParamDecode",         "GetViewGroupDataParamDecode",     "GetSetViewGroupData",
    "GetSearchHistoryAlarmReqDecode", "GetSearchHistoryAlarmRespDecode", "GetSetEMapInfoReqDecode",
    "GetEMapInfoRespDecode"};

// How many texts of a document have a width that a reader keeps.
std::size_t textsWithWidths(const DocumentReader& reader, const std::string& xml, std::size_t step) {
    std::size_t texts = 0;
    const Document doc = parsed(xml);
    for (std::size_t i = 0; i < textsOf(*doc).size(); i += step) {
        const Document fresh = parsed(xml);
        const Held held = textsOf(*fresh)[i];
        if (held.name != "SamacCountName" && held.name.find("ount") != std::string::npos)
            continue; // a count changes the whole list
        bool refuses = false;
        const auto read = [&](int* error) { return reader.read(fresh.get(), error); };
        const std::string wrong = wrongWith(read, held, refuses);
        EXPECT_EQ(wrong, "") << reader.name << ", " << held.name;
        texts += refuses;
    }
    return texts;
}

TEST(LongTexts, OfListsStayOutOfTheirFields) {
    for (const DocumentReader& reader : documentReaders)
        if (ofRecords.count(reader.name) && reader.name != ofUser) {
            EXPECT_GE(textsWithWidths(reader, ownDocument(reader), oneOutOf), 4 / oneOutOf) << reader.name;
        }
}

// kept: a name is read to half of its field
TEST(LongTexts, OfAUserStayOutOfTheirFields) {
    const std::vector<std::pair<const char*, std::size_t>> widths = {
        {"UserGuid", 48}, {"Id", 48}, {"AdsPath", 48}, {"UserName", 80}, {"SId", 48}, {"SamacCountName", 48}};
    std::string user;
    for (const auto& [name, width] : widths) user += layouts::counter(name, "1");
    const std::string rights =
        R"(<UserRights sharedviews="1" privateviews="1" viewlive="1" viewbrowse="1" viewsetup="1")"
        R"( managementaccess="1" />)";
    const std::string xml =
        layouts::answer("<Result>0</Result>" +
                        layouts::wrapped("UserInfo", user + layouts::counter("Authclass", "1") + rights));
    for (const DocumentReader& reader : documentReaders) {
        if (reader.name != ofUser) continue;
        EXPECT_EQ(textsWithWidths(reader, xml, 1), widths.size());
        const Document doc = parsed(xml);
        for (const Held& held : textsOf(*doc))
            for (const auto& [name, width] : widths) {
                if (held.name != name) continue;
                const auto given = [&](std::size_t length) {
                    const Muted quiet;
                    int error = 7;
                    held.set(std::string(length, 'x'));
                    const std::string told = reader.read(doc.get(), &error);
                    held.set("1");
                    return static_cast<std::size_t>(std::count(told.begin(), told.end(), 'x'));
                };
                EXPECT_EQ(given(width - 1), width - 1) << name;
                EXPECT_EQ(given(width), width) << name;
                EXPECT_EQ(given(width + 1), 0u) << name;
            }
    }
}

// What a reader of one text gives of so many x, told from what it gives of one: all of them, and behind them
// a result where it has one. Only a version has a width, and is dropped beyond it.
std::string givenOf(const std::string& reader, const std::string& ofOne, std::size_t length) {
    if (reader == "GetVersionDecode" && length > 32) return "";
    return std::string(length, 'x') + ofOne.substr(1);
}

TEST(LongTexts, OfDocumentsAreReadOrDropped) {
    Faults faults;
    std::mt19937 random(9);
    std::size_t tried = 0;
    std::set<std::string> reading;
    const std::vector<std::size_t> all = lengths();
    const auto check = [&](const DocumentReader& reader, TiXmlDocument& doc, const Held& held) {
        if (std::string(reader.name) == "GetXmlEncode" || std::string(reader.name) == "GetXmlLength") return;
        const std::string where = std::string(reader.name) + ", " + held.name;
        const auto readOf = [&](const std::string& text) {
            int error = 7;
            held.set(text);
            return steady(faults, where, [&] { return reader.read(&doc, &error); });
        };
        const std::string ofOne = readOf("x"), ofNone = readOf("0");
        const std::size_t length = all[random() % all.size()];
        if (ofRecords.count(reader.name) || ofOne == ofNone) {
            if (tried % oneOutOf != 0) return;
            const std::string told = readOf(std::string(length, 'x'));
            faults.expect(told == ofOne || ofOne != ofNone, where, "is read, although an x is not");
            return;
        }
        reading.insert(reader.name);
        for (const std::size_t one : all)
            faults.expect(readOf(std::string(one, 'x')) == givenOf(reader.name, ofOne, one), where,
                          "is given otherwise");
    };
    {
        const Muted quiet;
        for (const std::string& xml : wholeDocuments()) {
            const Document doc = parsed(xml);
            for (const Held& held : textsOf(*doc)) {
                ++tried;
                const std::string truth = held.text();
                for (const DocumentReader& reader : documentReaders) check(reader, *doc, held);
                held.set(truth);
            }
        }
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(tried, 1500u);
    EXPECT_EQ(reading,
              (std::set<std::string>{
                  "GetNameDecode", "GetRequestNameDecode", "GetResponseNameDecode", "GetVersionDecode",
                  "GetTokenDecode", "GetLogoutReqTokenDecode", "GetLoginRespTokenDecode",
                  "GetRealPlayStartReqTokenDecode", "GetRealPlayStartReqDeviceGuidDecode",
                  "GetRealPlayStartReqChannelGuidDecode", "GetPlayBackReqPlayGuidDecode"}));
}

} // namespace
