// Messages that end too early: every reader at every length, the last byte directly before a page that nobody
// may touch.
#include "properties/hostile_messages.h"
#include "properties/hostile_parsing.h"
#include "properties/steady.h"
#include "support/muted.h"
#include "support/page_edge.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>
#include <set>

namespace {

using namespace veltoprotocol;

constexpr std::size_t longest = 1 << 18;

std::string at(const std::string& name, std::size_t length) {
    return name + ", " + std::to_string(length) + " bytes";
}

// What is known of the first `length` bytes of a message, without the rules themselves.
void checkInspected(Faults& faults, const WholeMessage& message, std::size_t length, const char* buf) {
    const int len = static_cast<int>(length), whole = static_cast<int>(message.bytes.size());
    const std::size_t head = message.bytes.size() - message.body.size();
    const bool headEnds = length >= head;
    const std::string where = at(message.name, length);
    faults.expect(CheckHttp(buf, len) == (length < 4 ? -2 : 0), where, "CheckHttp");
    faults.expect(GetHttpLength(buf, len) == (headEnds ? static_cast<int>(head) : -1), where,
                  "GetHttpLength");
    faults.expect(GetHttpPacketLength(buf, len) == (len < whole ? -1 : whole), where, "GetHttpPacketLength");
    if (headEnds)
        faults.expect(GetContentLen(buf, len) == whole - static_cast<int>(head), where, "GetContentLen");
    const std::size_t first = message.bytes.find(' '), second = message.bytes.find(' ', first + 1);
    const std::string word = length > second ? message.bytes.substr(first + 1, second - first - 1) : "";
    faults.expect(GetUri(buf, len) == word, where, "GetUri");
    faults.expect(GetHttpFirstValue(buf, len) == word, where, "GetHttpFirstValue");
    faults.expect(GetHttpStatus(buf, len) == std::atoi(word.c_str()), where, "GetHttpStatus");
    const std::size_t name = message.bytes.find("Content-Type: ");
    const std::size_t type = name + 14;
    const bool hasType = headEnds && name < head;
    faults.expect(GetContentType(buf, len) ==
                      (hasType ? message.bytes.substr(type, message.bytes.find('\r', type) - type) : ""),
                  where, "GetContentType");
    if (!headEnds) faults.expect(GetAuthorization(buf, len).empty(), where, "GetAuthorization");
}

TEST(Truncated, MessagesAreReadAsFarAsTheyGo) {
    Faults faults;
    PageEdge edge(longest);
    Places places(1);
    std::size_t inspected = 0, bytes = 0;
    const auto inspect = [&](const WholeMessage& message, std::size_t step) {
        if (message.body.size() == message.bytes.size()) return; // no head
        std::vector<std::size_t> lengths = places.oneOf(step, message.bytes.size());
        lengths.push_back(message.bytes.size());
        for (const std::size_t length : lengths) {
            const char* const buf = edge.place({message.bytes.data(), length});
            checkInspected(faults, message, length, buf);
            for (const BytesReader& reader : bytesReaders)
                steady(faults, at(std::string(reader.name) + " of " + message.name, length),
                       [&] { return reader.read(buf, static_cast<int>(length)); });
            ++inspected;
        }
        bytes += message.bytes.size() / step;
    };
    {
        const Muted quiet;
        for (const WholeMessage& message : wholeMessages()) inspect(message, oneOutOf);
        for (const WholeMessage& message : otherShapes()) inspect(message, partOf(message));
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(inspected, bytes);
    EXPECT_GE(bytes, 100000 / oneOutOf);
}

// kept: without a root they give null and no error
bool takesNoRootForNoError(const std::string& reader) {
    const char* const these[] = {"GetSearchHistoryAlarmReqDecode", "GetSearchHistoryAlarmRespDecode",
                                 "GetSetEMapInfoReqDecode", "GetEMapInfoRespDecode"};
    return std::find(std::begin(these), std::end(these), reader) != std::end(these);
}

// What is read without a root is what is read of no document at all; it is an error as well.
void checkRootless(Faults& faults, const char* text, const std::string& where) {
    TiXmlDocument* const doc = Decode(text);
    for (const DocumentReader& reader : documentReaders) {
        const std::string name = reader.name;
        if (name == "GetXmlLength" || name == "GetXmlEncode") continue; // they need no root
        int error = 7, ofNothing = 7;
        const std::string told = steady(faults, name, [&] { return reader.read(doc, &error); });
        faults.expect(told == reader.read(nullptr, &ofNothing), where, reader.name);
        faults.expect(error == (takesNoRootForNoError(name) ? 0 : -1), where, reader.name);
    }
    ReleaseTiXmlDocument(doc);
}

// No text at all is refused, and one that ends within its root; one that ends before it has none.
TEST(Truncated, DocumentsAreRefused) {
    Faults faults;
    PageEdge edge(longest);
    Places places(2);
    std::map<std::string, std::size_t> times;
    std::set<std::string> rootless; // the documents begin alike
    std::size_t documents = 0, bytes = 0;
    const auto cut = [&](const std::string& xml, std::size_t step) {
        const std::size_t root = xml.find("<servercommandservice");
        if (root == std::string::npos) return;
        const std::size_t end = xml.rfind('>') + 1;
        std::vector<std::size_t> lengths = places.oneOf(step, xml.size());
        for (std::size_t near = end - 8; near <= xml.size(); ++near) lengths.push_back(near);
        for (const std::size_t length : lengths) {
            const std::string where = at(xml.substr(root, 200), length);
            const char* const text = edge.placeText({xml.data(), length});
            const std::string is = steady(faults, where, [&] { return decoded(text); });
            const bool rootBegins = length > root + 1;
            const bool refused = length == 0 || (rootBegins && length < end);
            faults.expect(is == (refused ? "refused" : rootBegins ? "whole" : "rootless"), where, is.c_str());
            if (is == "rootless" && rootless.insert(text).second) checkRootless(faults, text, where);
            ++times[is];
        }
        ++documents;
        bytes += xml.size() / step;
    };
    {
        const Muted quiet;
        for (const std::string& xml : wholeDocuments()) cut(xml, oneOutOf);
        for (const WholeMessage& message : otherShapes()) cut(message.body, partOf(message));
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(times["refused"] + times["rootless"] + times["whole"], bytes);
    EXPECT_GE(times["refused"], 100000 / oneOutOf);
    EXPECT_GE(times["rootless"], 1000 / oneOutOf);
    EXPECT_GE(rootless.size(), 40u);
    EXPECT_GE(times["whole"], documents);
}

} // namespace
