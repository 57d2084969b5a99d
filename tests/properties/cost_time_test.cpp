// Time grows in proportion to the input, also for inputs that are made to cost much.
#include "framing/usual_document.h"
#include "properties/cost_families.h"
#include "properties/cost_growth.h"
#include "properties/single_readers.h"
#include "properties/zip_bomb.h"
#include "support/muted.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>

#include <cstring>
#include <functional>

namespace {

using namespace veltoprotocol;
using namespace cost;

// Functions of the C library that only look at the bytes they need are made to look at all of a text by the
// address sanitizer, at each call. Where that is the cost of a family, it cannot be measured there.
bool spoiled(const std::string& name) {
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
    for (const char* one : {"comments", "CDATA sections", "<!>", "end tags alone", "&#65;"})
        if (name == one) return true;
#endif
#endif
    return name.empty();
}

By maker(const std::string& text) {
    const Document doc(Decode(text.c_str()));
    if (usualDocument({text.data(), text.size()})) return By::scan;
    return doc ? By::parser : By::nobody;
}

// Otherwise a family might cost nothing because it is given up at its first byte.
TEST(CostFamilies, AreMadeIntoDocumentsByWhoTheySay) {
    std::size_t asked = 0;
    for (const Family& family : families()) {
        Captured quiet;
        const By got = maker(family.text(20000));
        quiet.text();
        EXPECT_EQ(got, family.by) << family.name;
        ++asked;
    }
    EXPECT_GE(asked, 60u);
}

// The rest stands on this.
TEST(TooSteep, TellsTheSquareFromTheLine) {
    volatile unsigned sum = 0;
    const auto steps = [&](double count) {
        while ((count -= 1) > 0) sum = sum + 1;
    };
    const auto make = [](std::size_t size) { return static_cast<double>(size); };
    const double ofOne = 1e5; // steps for the smaller input: tenths of a millisecond
    const auto linear = [&](double size) { steps(ofOne * size / little); };
    const auto square = [&](double size) { steps(ofOne * size / little * size / little); };
    EXPECT_EQ(tooSteep(make, linear, little), "");
    EXPECT_NE(tooSteep(make, square, little), "");
    const auto partly = [&](double size) {
        return std::array<double, 2>{secondsOf([&] { linear(size); }), secondsOf([&] { square(size); })};
    };
    EXPECT_NE(tooSteep(make, partly, little), "");
}

// Parsed, printed, measured and released; what each takes. What the parser makes of a text is printed as
// what the scan makes of it.
std::array<double, 4> live(const std::string& text) {
    TiXmlDocument* doc = nullptr;
    std::array<double, 4> seconds = {};
    seconds[0] = secondsOf([&] { doc = Decode(text.c_str()); });
    if (doc && (text.size() < much || text.compare(0, usual.size(), usual) == 0)) {
        seconds[1] = secondsOf([&] { GetXmlEncode(doc); });
        seconds[2] = secondsOf([&] { GetXmlLength(doc); });
    }
    seconds[3] = secondsOf([&] { ReleaseTiXmlDocument(doc); });
    return seconds;
}

TEST(Documents, TakeTimeInProportionToTheText) {
    std::string steep;
    {
        const Muted quiet;
        for (const Family& family : families())
            if (const std::string name = family.name; !spoiled(name)) {
                const std::string why =
                    tooSteep([&](std::size_t size) { return family.text(size); }, live, upTo(much));
                if (!why.empty()) steep += name + ": " + why;
            }
    }
    EXPECT_EQ(steep, "");
}

// Of heads and bodies as of documents. None of these has a blank line unless its back has one.
const Family heads[] = {
    {"letters", By::nobody, "POST ", "x", ""},
    {"spaces", By::nobody, "POST", " ", ""},
    {"line ends", By::nobody, "POST / HTTP/1.1", "\r\n\n\r", ""},
    {"carriage returns", By::nobody, "POST / HTTP/1.1", "\r\n\r", ""},
    {"header lines", By::nobody, "POST / HTTP/1.1\r\n", "Host: a\r\n", "\r\n"},
    {"one long header", By::nobody, "POST / HTTP/1.1\r\nAuthorization: Basic ", "YWRtaW46", "\r\n\r\n"},
    {"a length of many digits", By::nobody, "POST / HTTP/1.1\r\nContent-Length: ", "0", "\r\n\r\n"},
    {"a length far away", By::nobody, "POST / HTTP/1.1\r\nContent-Length: ", "x", "1\r\n\r\n"},
    {"names cut off", By::nobody, "POST / HTTP/1.1\r\n", "Content-Lengt", "\r\n\r\n"},
    {"other names cut off", By::nobody, "POST / HTTP/1.1\r\n", "Content-Typ", "\r\n\r\n"},
    {"a third name cut off", By::nobody, "POST / HTTP/1.1\r\n", "Authorizatio", "\r\n\r\n"},
    {"lengths again and again", By::nobody, "POST / HTTP/1.1\r\n", "Content-Length:1", "\r\n\r\n"},
    {"a body without a length", By::nobody, "POST / HTTP/1.1\r\n\r\n", "<a/>", ""},
    {"a body of names cut off", By::nobody, "HTTP/1.1 200 OK\r\n\r\n", "content-lengt", ""},
    {"Base64", By::nobody, "", "YWJj", ""},
    {"Base64 groups of padding", By::nobody, "", "====", ""},
    {"Base64, wrong at the end", By::nobody, "", "YWJj", "*"},
    {"Base64 behind a space", By::nobody, "Basic ", "YWJj", ""}};

TEST(BytesReaders, TakeTimeInProportionToTheBytes) {
    std::string steep;
    {
        const Muted quiet;
        for (const Family& family : heads)
            for (const BytesReader& reader : bytesReaders) {
                const std::string why = tooSteep(
                    [&](std::size_t size) { return family.text(size); },
                    [&](const std::string& text) { reader.read(text.data(), static_cast<int>(text.size())); },
                    upTo(much));
                if (!why.empty()) steep += std::string(reader.name) + ", " + family.name + ": " + why;
            }
    }
    EXPECT_EQ(steep, "");
}

// Blocks of so many bytes in all. What is inflated grows with them.
TEST(GetSearchRecordResultDecode, TakesTimeInProportionToTheBlock) {
    const auto zeros = [](unsigned int counter) {
        return [=](std::size_t size) { return zipBomb(size, 99 * size, counter); };
    };
    const auto read = [](const std::string& block) {
        int error = 7;
        try {
            __tagVtRecordParam found =
                GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), &error);
            ReleaseRecordParam(&found);
        } catch (const std::bad_alloc&) {
        }
    };
    EXPECT_EQ(tooSteep(zeros(0), read, upTo(much / 2)), "");
    EXPECT_EQ(tooSteep(zeros(4294967295U), read, upTo(8 * little)), "");
    const auto garbage = [](std::size_t size) { return std::string(size, '\x78'); };
    EXPECT_EQ(tooSteep(garbage, read, upTo(much)), "");
}

using Make = std::function<Document(std::size_t)>;

// Everybody looks among siblings that nobody looks for, at each place where somebody looks. They are so few
// that the larger tree also lies in the caches: it is walked again for each name, and outside them a step
// takes several times as long. The square of so many steps takes much longer than what passes unnoticed.
constexpr std::size_t siblings = 12 * 800;

TEST(Readers, TakeTimeInProportionToTheSiblings) {
    const auto among = [](const char* front, const char* back) -> Make {
        return [=](std::size_t size) {
            return parsed(Family{"", By::scan, front, "<a k='v'/>", back}.text(size));
        };
    };
    const Make places[] = {among("<servercommandservice>", "</servercommandservice>"),
                           among("<servercommandservice><request>", "</request></servercommandservice>"),
                           among("<servercommandservice><response>", "</response></servercommandservice>"),
                           among("<servercommandservice><response><ViewGroupData><ViewGroupDataXml>",
                                 "</ViewGroupDataXml></ViewGroupData></response></servercommandservice>")};
    std::string steep;
    {
        const Muted quiet;
        int error = 7;
        for (const Make& place : places) {
            for (const DocumentReader& reader : documentReaders) {
                const std::string why = tooSteep(
                    place, [&](const Document& doc) { reader.read(doc.get(), &error); }, siblings);
                if (!why.empty()) steep += std::string(reader.name) + ": " + why;
            }
            for (const auto& readers : {recordReaders, valueReaders})
                for (const ElementReader& reader : readers) {
                    const std::string why = tooSteep(
                        place,
                        [&](const Document& doc) {
                            reader.read(doc->RootElement(), &error);
                            reader.read(doc->RootElement()->FirstChildElement(), &error);
                        },
                        siblings);
                    if (!why.empty()) steep += std::string(reader.name) + ": " + why;
                }
        }
    }
    EXPECT_EQ(steep, "");
}

} // namespace
