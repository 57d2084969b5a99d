// Every encoder with the hardest arguments: texts and records that end where a page ends that nobody may
// touch, and null ones. Its buffer ends there as well.
#include "properties/declared.h"
#include "properties/hostile_messages.h"
#include "properties/listed_encoders.h"
#include "properties/steady.h"
#include "support/encoded.h"
#include "support/muted.h"
#include "support/read_back.h"

#include <algorithm>
#include <regex>
#include <set>

namespace {

using namespace veltoprotocol;

using Choice = MadeArguments::Choice;
using Write = std::function<int(char*, int)>;

constexpr int much = 1 << 18;

// What an encoder writes; nothing if it refuses. A writer of an element returns 0, which is told as its
// length.
struct Made {
    int returned;
    std::string bytes;
    bool hasRecords;
};
Made made(const ListedEncoder& encoder, Choice choice) {
    MadeArguments arguments(choice);
    if (encoder.element) {
        TiXmlElement element("Element");
        const int returned = encoder.element(arguments)(&element);
        TiXmlPrinter printer;
        element.Accept(&printer);
        if (returned != 0) return {returned, "", arguments.hasRecords()};
        return {static_cast<int>(printer.Size()), printer.Str(), arguments.hasRecords()};
    }
    std::string out(much, '#');
    const int returned = encoder.message(arguments)(&out[0], much);
    return {returned, out.substr(0, static_cast<std::size_t>(std::max(returned, 0))), arguments.hasRecords()};
}

Choice choice(MadeArguments::Texts texts, MadeArguments::Records records) {
    Choice choice;
    choice.texts = texts;
    choice.records = records;
    return choice;
}

std::string xmlOf(const std::string& message) {
    const std::size_t blank = message.find("\r\n\r\n");
    return blank == std::string::npos ? message : message.substr(blank + 4);
}

// Those whose bodies are bytes, or end in some.
bool isXml(const std::string& bytes) {
    return xmlOf(bytes).compare(0, 1, "<") == 0 && bytes.find('\0') == std::string::npos;
}

// Every size up to the message's own, in builds for debugging some of a long one's: nothing is written. From
// then on all of it is.
std::string brokenRule(const Write& write, const std::string& whole) {
    GuardedPage page(std::string(whole.size(), '#'));
    const std::size_t step = oneOutOf == 1 || whole.size() <= 1024 ? 1 : whole.size() > 4096 ? 61 : 7;
    for (std::size_t size = 0; size < whole.size(); size += size + 64 < whole.size() ? step : 1)
        if (write(page.data() + page.size() - size, static_cast<int>(size)) != -1)
            return "does not refuse " + std::to_string(size) + " bytes";
    if (page.bytes() != std::string(whole.size(), '#')) return "refused, and yet written to";
    for (const std::size_t behind : {std::size_t{0}, std::size_t{1}, std::size_t{5000}}) {
        GuardedPage room(std::string(whole.size() + behind, '#'));
        if (write(room.data(), room.length()) != static_cast<int>(whole.size())) return "has another length";
        if (room.bytes() != whole + std::string(behind, '#')) return "writes something else";
    }
    return {};
}

TEST(HardArguments, AreReadToTheirLastByteAndNoFurther) {
    Faults faults;
    std::size_t xml = 0;
    {
        const Muted quiet;
        for (const ListedEncoder& encoder : listedEncoders)
            for (const auto event : {VtMessageAlarm, VtMessageRecordStatus, VtMessageOnlineStatus,
                                     VtMessageChannelDisabled, VtMessageChannelDeleted}) {
                if (event != VtMessageAlarm && encoder.name != std::string("GetNotificationContentReqEncode"))
                    continue;
                Choice full;
                full.event = event;
                const Made whole = made(encoder, full);
                faults.expect(whole.returned > 0, encoder.name, "refuses");
                if (isXml(whole.bytes)) {
                    TiXmlDocument* const doc = Decode(xmlOf(whole.bytes).c_str());
                    faults.expect(doc != nullptr, encoder.name, "writes what cannot be read");
                    ReleaseTiXmlDocument(doc);
                    ++xml;
                }
                if (encoder.element || whole.returned < 1) continue;
                MadeArguments arguments(full);
                const std::string broken = brokenRule(encoder.message(arguments), whole.bytes);
                faults.expect(broken.empty(), encoder.name, broken.c_str());
            }
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(xml, 100u);
}

// The message that null texts make, told from the one that empty texts make: an element holds nothing instead
// of an empty text, an attribute of that name is left out, and in the head it is the same.
std::string ofNullTexts(const std::string& ofEmpty) {
    if (!isXml(ofEmpty)) return ofEmpty;
    std::string xml = xmlOf(ofEmpty), head = ofEmpty.substr(0, ofEmpty.size() - xml.size());
    xml = std::regex_replace(xml, std::regex("<(\\w+)></\\1>"), "<$1 />");
    xml = std::regex_replace(xml, std::regex(" name=\"\""), "");
    const std::string length = "Content-Length: " + std::to_string(xml.size());
    return std::regex_replace(head, std::regex("Content-Length: \\d+"), length) + xml;
}

bool holds(const std::string& text, const std::string& what) { return text.find(what) != std::string::npos; }

TEST(HardArguments, MayBeNullTexts) {
    Faults faults;
    std::set<std::string> refusing, named;
    std::size_t emptyElements = 0, emptyHosts = 0;
    {
        const Muted quiet;
        for (const ListedEncoder& encoder : listedEncoders) {
            Choice null = choice(MadeArguments::null, MadeArguments::complete);
            Choice empty = choice(MadeArguments::empty, MadeArguments::complete);
            null.lengths = empty.lengths = false;
            const Made ofNull = made(encoder, null), ofEmpty = made(encoder, empty);
            faults.expect(ofEmpty.returned > 0, encoder.name, "refuses empty texts");
            faults.expect(ofNull.returned >= -1, encoder.name, "refuses with another code");
            if (ofNull.returned < 0) {
                refusing.insert(encoder.name);
                continue;
            }
            faults.expect(ofNull.bytes == ofNullTexts(ofEmpty.bytes), encoder.name,
                          "takes null for something else than no text");
            faults.expect(!holds(ofNull.bytes, "\"\"") && !holds(ofNull.bytes, "></"), encoder.name,
                          "writes an empty text for null");
            if (holds(ofEmpty.bytes, " name=\"\"")) named.insert(encoder.name);
            emptyElements += holds(ofEmpty.bytes, "<Token></Token>") && holds(ofNull.bytes, "<Token />");
            emptyHosts += holds(ofNull.bytes, "\r\nHost: \r\n");
        }
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_EQ(refusing,
              (std::set<std::string>{"GetDownloadEMapPictureDataEncode", "GetDownloadPictureDataEncode",
                                     "GetManualRecordReqEncode", "GetUploadPictureDataEncode"}));
    // Those whose caller names the command.
    EXPECT_EQ(named, (std::set<std::string>{"GetArchiveEncode", "GetDeviceEncode", "GetDeviceListReqEncode",
                                            "GetDeviceListRespEncode", "GetRecordReqEncode", "GetRespEncode",
                                            "GetScheduleEncode", "GetStorageEncode"}));
    EXPECT_GE(emptyElements, 20u);
    EXPECT_GE(emptyHosts, 50u);
}

// A null payload with a length is refused.
TEST(HardArguments, MayBeNullTextsOfSomeLength) {
    std::set<std::string> refusing;
    {
        const Muted quiet;
        for (const ListedEncoder& encoder : listedEncoders)
            if (made(encoder, choice(MadeArguments::null, MadeArguments::complete)).returned < 0)
                refusing.insert(encoder.name);
    }
    EXPECT_EQ(refusing,
              (std::set<std::string>{"GetDownloadEMapPictureDataEncode", "GetDownloadPictureDataEncode",
                                     "GetManualRecordReqEncode", "GetUploadPictureDataEncode",
                                     "GetVideoDataEncode", "HttpReqEncode", "HttpRespEncode"}));
}

// Answers go out without what is not there, and so do two changes; other requests are refused.
bool needsNoRecord(const std::string& encoder) {
    return encoder.find("Resp") != std::string::npos || encoder == "GetSetServerInfoReqEncode" ||
           encoder == "GetSetEMapInfoReqEncode";
}

// Also as arrays whose counts are positive.
TEST(HardArguments, MayBeNullRecords) {
    Faults faults;
    std::size_t withRecords = 0;
    {
        const Muted quiet;
        for (const ListedEncoder& encoder : listedEncoders) {
            const Made got = made(encoder, choice(MadeArguments::full, MadeArguments::missing));
            if (!got.hasRecords) continue;
            ++withRecords;
            faults.expect(got.returned ==
                              (needsNoRecord(encoder.name) ? static_cast<int>(got.bytes.size()) : -1),
                          encoder.name, "refuses wrongly");
            faults.expect(got.bytes.find("xxxx") == std::string::npos, encoder.name, "writes a record");
            if (got.returned > 0 && isXml(got.bytes)) {
                const Document doc(Decode(xmlOf(got.bytes).c_str()));
                faults.expect(doc != nullptr, encoder.name, "writes what cannot be read");
            }
        }
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(withRecords, 50u);
}

// Null arrays with positive counts end their lists. A payload is no list.
TEST(HardArguments, MayHoldNullArrays) {
    Faults faults;
    std::set<std::string> shorter;
    {
        const Muted quiet;
        for (const ListedEncoder& encoder : listedEncoders) {
            const Made whole = made(encoder, Choice());
            const Made got = made(encoder, choice(MadeArguments::full, MadeArguments::withoutArrays));
            const bool refused = std::string(encoder.name) == "GetDataReqEncode";
            faults.expect((got.returned == -1) == refused, encoder.name, "refuses wrongly");
            if (refused) continue;
            if (got.bytes.size() < whole.bytes.size()) shorter.insert(encoder.name);
            if (!isXml(got.bytes)) continue;
            const Document doc(Decode(xmlOf(got.bytes).c_str()));
            faults.expect(doc != nullptr, encoder.name, "writes what cannot be read");
        }
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_EQ(shorter,
              (std::set<std::string>{"GetRecordReqEncode", "GetPlaybackRecordReqEncode",
                                     "GetDownloadRecordReqEncode", "GetSearchRecordRespEncode",
                                     "GetSearchHistoryAlarmReqEncode", "GetSearchHistoryAlarmRespEncode",
                                     "GetEMapInfoRespEncode", "GetSetEMapInfoReqEncode",
                                     "GetViewGroupDataRespEncode", "GetSetViewGroupDataReqEncode"}));
}

TEST(HardArguments, AreGivenToEveryEncoder) {
    std::set<std::string> listed = {"XmlHeaderEncode", "GetXmlEncode", "Base64Encode"}, declared;
    for (const ListedEncoder& encoder : listedEncoders)
        EXPECT_TRUE(listed.insert(encoder.name).second) << encoder.name << " stands in the list twice";
    for (const std::string& function : declaredFunctions())
        if (isEncoder(function)) declared.insert(function);
    EXPECT_EQ(listed, declared);
}

} // namespace
