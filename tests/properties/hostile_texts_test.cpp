// Texts that are too long for their fields, at every level.
#include "properties/hostile_messages.h"
#include "properties/steady.h"
#include "properties/tree_edits.h"
#include "support/captured.h"
#include "support/guarded_page.h"
#include "support/muted.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <set>

namespace {

using namespace veltoprotocol;

// Every width that a field has, one byte more and one less; and what is longer than all of them.
std::vector<std::size_t> lengths() {
    std::vector<std::size_t> lengths = {5000, 70000};
    for (const std::size_t width :
         {1u, 4u, 8u, 16u, 24u, 32u, 36u, 48u, 64u, 128u, 160u, 256u, 512u, 1024u, 2048u})
        for (const std::size_t length : {width - 1, width, width + 1})
            if (length > 0) lengths.push_back(length);
    std::sort(lengths.begin(), lengths.end());
    return lengths;
}

// A text of a tree: an attribute's, or that of an element.
struct Held {
    TiXmlElement* element;
    TiXmlAttribute* attribute; // null for the element's own
    std::string name;
    void set(const std::string& text) const {
        if (attribute)
            attribute->SetValue(text);
        else
            element->FirstChild()->SetValue(text);
    }
};

std::vector<Held> textsOf(TiXmlDocument& doc) {
    std::vector<Held> held;
    for (TiXmlElement* element : edits::elementsOf(doc)) {
        if (element->FirstChild() && element->FirstChild()->ToText())
            held.push_back({element, nullptr, element->ValueStr()});
        for (auto* at = element->FirstAttribute(); at; at = at->Next())
            held.push_back({element, at, at->Name()});
    }
    return held;
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

TEST(LongTexts, OfListsStayOutOfTheirFields) {
    const std::set<std::string> lists = {"GetViewGroupDataParamDecode",    "GetSetViewGroupData",
                                         "GetSearchHistoryAlarmReqDecode", "GetSearchHistoryAlarmRespDecode",
                                         "GetSetEMapInfoReqDecode",        "GetEMapInfoRespDecode"};
    for (const DocumentReader& reader : documentReaders) {
        if (!lists.count(reader.name)) continue;
        const std::string xml = ownDocument(reader);
        const Document doc = parsed(xml);
        std::size_t texts = 0;
        for (std::size_t i = 0; i < textsOf(*doc).size(); ++i) {
            const Document fresh = parsed(xml);
            const Held held = textsOf(*fresh)[i];
            if (i % oneOutOf != 0) continue;
            if (held.name.find("ount") != std::string::npos) continue; // a count changes the whole list
            bool refuses = false;
            const auto read = [&](int* error) { return reader.read(fresh.get(), error); };
            const std::string wrong = wrongWith(read, held, refuses);
            EXPECT_EQ(wrong, "") << reader.name << ", " << held.name;
            texts += refuses;
        }
        EXPECT_GE(texts, 4 / oneOutOf) << reader.name;
    }
}

TEST(LongTexts, OfDocumentsAreReadOrDropped) {
    Faults faults;
    std::mt19937 random(9);
    std::size_t tried = 0;
    {
        const Muted quiet;
        const std::vector<std::size_t> all = lengths();
        for (const std::string& xml : wholeDocuments()) {
            const Document doc = parsed(xml);
            for (const Held& held : textsOf(*doc)) {
                if (++tried % oneOutOf != 0) continue;
                held.set(std::string(all[random() % all.size()], 'x'));
                for (const DocumentReader& reader : documentReaders) {
                    int error = 7;
                    steady(faults, std::string(reader.name) + ", " + held.name,
                           [&] { return reader.read(doc.get(), &error); });
                }
                held.set("x");
            }
        }
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(tried, 1500u);
}

// A line that is printed holds the library's own words only: what was received can add none.
TEST(LongTexts, AreNeverPrinted) {
    Captured captured;
    for (const std::string& xml : wholeDocuments()) {
        const Document doc = parsed(xml);
        const std::size_t count = edits::elementsOf(*doc).size();
        for (const bool named : {false, true})
            for (std::size_t i = 0; i < count; ++i) {
                TiXmlElement* const element = edits::elementsOf(*doc)[i];
                if (named)
                    element->SetValue("forged\nline");
                else
                    edits::retell(element, ("forged\nline" + std::string(3000, '.')).c_str());
                int error = 7;
                for (const DocumentReader& reader : documentReaders) reader.read(doc.get(), &error);
                for (const auto& readers : {recordReaders, valueReaders})
                    for (const ElementReader& reader : readers) reader.read(element, &error);
            }
    }
    Decode("<forged\nline>");
    Decode("<a b='forged\nline' forged>");
    GetUri("forged\nline", 11);
    const std::string printed = captured.text();
    EXPECT_EQ(printed.find("forged"), std::string::npos);
    EXPECT_GE(linesWith(printed, "\n"), 1000u);
}

// The value readers at every size of a field that ends at a protected page.
TEST(LongTexts, FillAFieldToItsLastByteAndNoFurther) {
    const Document doc = parsed(R"(<a b=""><b>x</b></a>)");
    TiXmlElement* const root = doc->RootElement();
    Faults faults;
    {
        const Muted quiet;
        for (std::size_t size = 1; size < 70; ++size)
            for (std::size_t length = 0; length < size + 3; ++length) {
                const std::string text(length, 't'), rest(size, '#');
                root->FirstChildElement()->FirstChild()->SetValue(text);
                root->SetAttribute("b", text);
                GuardedPage child(rest), attribute(rest);
                const int returned = GetStringValue(root, "a", "b", child.data(), child.length());
                GetStringValueAtt(root, "a", "b", attribute.data(), attribute.length());
                const bool fits = length <= size;
                const std::string want = fits ? text + rest.substr(length) : rest;
                const std::string where = std::to_string(length) + " bytes into " + std::to_string(size);
                faults.expect(returned == (fits ? 0 : -1), where, "returns otherwise");
                faults.expect(child.bytes() == want && attribute.bytes() == want, where, "writes otherwise");
            }
    }
    EXPECT_EQ(faults.text(), "");
}

} // namespace
