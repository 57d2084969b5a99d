// Messages with one wrong byte, at the edge of a page that nobody may touch.
#include "properties/hostile_messages.h"
#include "properties/hostile_parsing.h"
#include "properties/steady.h"
#include "support/muted.h"
#include "support/page_edge.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

namespace {

using namespace veltoprotocol;

constexpr std::size_t longest = 1 << 18;

// Each byte in turn becomes another one: any, or one that means something in XML, UTF-8, HTTP or C.
class Flips {
  public:
    explicit Flips(unsigned seed) : random_(seed) {}
    char other(char byte) {
        static const char telling[] = "<>&\"'/=;#! \r\n-]?0\xC3\xE2\xEF\xF0\xFF\x80\xBB\xBF"; // and the NUL
        const char flipped =
            random_() % 2 ? static_cast<char>(random_()) : telling[random_() % sizeof telling];
        return flipped == byte ? static_cast<char>(byte ^ 1) : flipped;
    }

  private:
    std::mt19937 random_;
};

// Calls check(flipped) for each of these places of a text.
template <class Check>
std::size_t flipped(const std::string& text, const std::vector<std::size_t>& places, Flips& flips,
                    const Check& check) {
    std::string copy = text;
    for (const std::size_t place : places) {
        copy[place] = flips.other(text[place]);
        check(copy, place);
        copy[place] = text[place];
    }
    return places.size();
}

std::string at(const std::string& name, std::size_t place) {
    return name + ", byte " + std::to_string(place);
}

TEST(WrongBytes, InMessagesAreInspected) {
    Faults faults;
    PageEdge edge(longest);
    Flips flips(3);
    Places places(4);
    std::size_t tried = 0, bytes = 0;
    {
        const Muted quiet;
        for (const WholeMessage& message : wholeMessages()) {
            const auto check = [&](const std::string& text, std::size_t place) {
                const char* const buf = edge.place(text);
                const int len = static_cast<int>(text.size());
                for (const BytesReader& reader : bytesReaders)
                    steady(faults, at(reader.name + (" of " + message.name), place),
                           [&] { return reader.read(buf, len); });
                const int framed = GetHttpPacketLength(buf, len);
                faults.expect(framed >= -1 && framed <= len, message.name, "frames more than there is");
                faults.expect(GetHttpLength(buf, len) <= len && GetContentLen(buf, len) >= -1, message.name,
                              "finds a head or length that cannot be");
            };
            bytes += message.bytes.size() / oneOutOf;
            tried += flipped(message.bytes, places.oneOf(oneOutOf, message.bytes.size()), flips, check);
        }
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(tried, bytes);
    EXPECT_GE(bytes, 100000 / oneOutOf);
}

// Decode alone, of each byte in turn.
TEST(WrongBytes, InDocumentsAreParsedOrRefused) {
    Faults faults;
    PageEdge edge(longest);
    Flips flips(9);
    Places places(10);
    std::size_t tried = 0, taken = 0, bytes = 0;
    const auto parse = [&](const std::string& xml, std::size_t step) {
        const auto check = [&](const std::string& text, std::size_t place) {
            const char* const placed = edge.placeText(text);
            const heap::Watch watch;
            taken += fencedDocument(placed) != nullptr;
            if (watch.leaked() != 0) faults.add(at(xml.substr(0, 200), place), "leaks");
        };
        tried += flipped(xml, places.oneOf(step, xml.size()), flips, check);
        bytes += xml.size() / step;
    };
    {
        const Muted quiet;
        for (const std::string& xml : wholeDocuments()) parse(xml, onePlaceOutOf);
        for (const WholeMessage& message : otherShapes()) parse(message.body, partOf(message));
        for (const OwnElement& own : ownElements()) parse(own.xml, onePlaceOutOf);
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(tried, bytes);
    EXPECT_GE(bytes, 150000 / onePlaceOutOf);
    EXPECT_GE(taken, tried / 4);
    EXPECT_LE(taken, tried * 3 / 4);
}

// Reads a text with these readers, if it is a document.
template <class Reader, class From>
bool readAll(Faults& faults, const std::string& where, const char* text, const std::vector<Reader>& readers,
             const From& from) {
    const heap::Watch watch;
    Document doc = fencedDocument(text);
    const bool taken = doc != nullptr;
    if (doc && doc->RootElement())
        for (const Reader& reader : readers) {
            int error = 7;
            steady(faults, where + ", " + reader.name, [&] { return reader.read(from(doc.get()), &error); });
            faults.expect(error == 0 || error == -1 || error == 7, where, reader.name);
        }
    doc.reset();
    faults.expect(watch.leaked() == 0, where, "leaks");
    return taken;
}

TEST(WrongBytes, InDocumentsAreReadOrRefused) {
    Faults faults;
    PageEdge edge(longest);
    Flips flips(5);
    Places places(6);
    std::size_t tried = 0, taken = 0;
    {
        const Muted quiet;
        for (const std::string& xml : wholeDocuments())
            tried += flipped(xml, places.of(xml.size(), 400), flips,
                             [&](const std::string& text, std::size_t place) {
                                 const char* const placed = edge.placeText(text);
                                 taken += readAll(faults, at(xml.substr(0, 200), place), placed,
                                                  documentReaders, [](TiXmlDocument* doc) { return doc; });
                             });
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(tried, 20000 / oneOutOf);
    EXPECT_GE(taken, tried / 4);
    EXPECT_LE(taken, tried * 3 / 4);
}

TEST(WrongBytes, InRecordsAreReadOrRefused) {
    Faults faults;
    PageEdge edge(longest);
    Flips flips(7);
    Places places(8);
    std::size_t tried = 0, taken = 0;
    {
        const Muted quiet;
        for (const OwnElement& own : ownElements()) {
            const std::vector<ElementReader> reader = {*own.reader};
            const auto all = [&](const std::string& text, std::size_t place) {
                const char* const placed = edge.placeText(text);
                const auto root = [](TiXmlDocument* doc) { return doc->RootElement(); };
                taken += readAll(faults, at(own.reader->name, place), placed, reader, root);
                readAll(faults, at(own.reader->name, place), placed, valueReaders, root);
            };
            tried += flipped(own.xml, places.oneOf(oneOutOf, own.xml.size()), flips, all);
        }
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(tried, 10000 / oneOutOf);
    EXPECT_GE(taken, tried / 4);
    EXPECT_LE(taken, tried * 3 / 4);
}

} // namespace
