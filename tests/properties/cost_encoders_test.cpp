// What is written takes time in proportion to what is given: entries of lists, lengths of texts.
#include "properties/cost_encoders.h"
#include "properties/cost_families.h"
#include "properties/cost_growth.h"
#include "properties/declared.h"
#include "support/muted.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <memory>

namespace {

using namespace veltoprotocol;
using namespace cost;

// Of each text and list, up to 1.25 MB; up to 40 KB where nothing is optimised, which takes long enough.
const std::vector<std::size_t> given = optimised ? upTo(4 * little) : std::vector<std::size_t>{little / 8};

struct Writing {
    std::unique_ptr<LongArguments> arguments;
    std::function<int(char*, int)> encode;
};

TEST(Encoders, TakeTimeInProportionToTextsAndLists) {
    // Five texts of the larger size, escaped.
    const int most = 6 * 8 * static_cast<int>(given.back()) * 5 + 65536;
    std::string faults;
    {
        const Muted quiet;
        const std::unique_ptr<char[]> out(new char[static_cast<std::size_t>(most)]);
        for (const LongEncoder& encoder : longEncoders) {
            const auto make = [&](std::size_t size) {
                auto arguments = std::make_unique<LongArguments>(size);
                auto encode = encoder.bound(*arguments);
                return Writing{std::move(arguments), std::move(encode)};
            };
            const int written = make(given.front()).encode(out.get(), most);
            if (written <= 0) faults += encoder.name + std::string(" refuses\n");
            const std::string why = tooSteep(
                make, [&](const Writing& writing) { writing.encode(out.get(), most); }, given);
            if (!why.empty()) faults += encoder.name + (": " + why);
        }
    }
    EXPECT_EQ(faults, "");
}

TEST(Encoders, AreAllAsked) {
    std::set<std::string> asked = {"XmlHeaderEncode", "GetXmlEncode", "Base64Encode"}, declared;
    for (const LongEncoder& encoder : longEncoders) EXPECT_TRUE(asked.insert(encoder.name).second);
    for (const char* encoder : shortEncoders) EXPECT_TRUE(asked.insert(encoder).second);
    for (const std::string& function : declaredFunctions())
        if (isEncoder(function)) declared.insert(function);
    EXPECT_EQ(asked, declared);
}

// Whatever has to be escaped, or begins as if it had been.
const char* const units[] = {"x",  "&",   "<",    "\"",     "\"'",   "\x01", "\xF0", "\xC3\xA9",
                             "&#", "&#x", "&#x4", "&#x41;", "&amp;", "x&",   "]]>",  "xxxxxxxxxxxxxxx&"};

TEST(Texts, AreWrittenInProportionToTheirLength) {
    constexpr std::size_t longest = 8 * little; // eight times of it are 2.5 MB
    std::string steep;
    int refused = 0;
    {
        const Muted quiet;
        std::vector<char> out(8 * longest * 6 + 4096);
        for (const char* unit : units) {
            const auto make = [&](std::size_t size) {
                return Family{"", By::nobody, "", unit, ""}.text(size);
            };
            const auto note = [&](const char* name, const auto& run) {
                const std::string why = tooSteep(make, run, upTo(longest));
                if (!why.empty()) steep += name + (", " + std::string(unit)) + ": " + why;
            };
            note("a message", [&](const std::string& text) {
                const char* const token = text.c_str();
                const auto size = static_cast<int>(out.size());
                if (GetViewGroupsReqEncode("", token, 7, "", out.data(), size) < 0) ++refused;
            });
            note("an element", [&](const std::string& text) {
                TiXmlDocument doc;
                auto* const element = static_cast<TiXmlElement*>(doc.LinkEndChild(new TiXmlElement("e")));
                SetStringValue(element, "value", text.c_str());
                SetStringValueAtt(element, "name", text.c_str());
                GetXmlEncode(&doc);
            });
        }
        const auto bytes = [](std::size_t size) { return std::string(size, '\xF0'); };
        const auto base64 = [&](const std::string& text) {
            Base64Encode(out.data(), text.data(), static_cast<int>(text.size()));
        };
        steep += tooSteep(bytes, base64, upTo(much));
    }
    EXPECT_EQ(steep, "");
    EXPECT_EQ(refused, 0);
}

} // namespace
