// Messages with one wrong byte, at the edge of a page that nobody may touch.
#include "properties/hostile_messages.h"
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

// Calls check(flipped) for each place of a text, or some of a long one.
template <class Check>
std::size_t flipped(const std::string& text, std::size_t small, Flips& flips, Places& places,
                    const Check& check) {
    std::string copy = text;
    const std::vector<std::size_t> all = places.of(text.size(), small);
    for (const std::size_t place : all) {
        copy[place] = flips.other(text[place]);
        check(copy, place);
        copy[place] = text[place];
    }
    return all.size();
}

std::string at(const std::string& name, std::size_t place) {
    return name + ", byte " + std::to_string(place);
}

TEST(WrongBytes, InMessagesAreInspected) {
    Faults faults;
    PageEdge edge(longest);
    Flips flips(3);
    Places places(4);
    std::size_t tried = 0;
    {
        const Muted quiet;
        for (const WholeMessage& message : wholeMessages())
            tried +=
                flipped(message.bytes, 2048, flips, places, [&](const std::string& bytes, std::size_t place) {
                    const char* const buf = edge.place(bytes);
                    const int len = static_cast<int>(bytes.size());
                    for (const BytesReader& reader : bytesReaders)
                        steady(faults, at(reader.name + (" of " + message.name), place),
                               [&] { return reader.read(buf, len); });
                    const int framed = GetHttpPacketLength(buf, len);
                    faults.expect(framed >= -1 && framed <= len, message.name, "frames more than there is");
                    faults.expect(GetHttpLength(buf, len) <= len && GetContentLen(buf, len) >= -1,
                                  message.name, "finds a head or length that cannot be");
                });
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(tried, 40000 / oneOutOf);
}

// Reads a text with these readers, if it is a document.
template <class Reader, class From>
bool readAll(Faults& faults, const std::string& where, const char* text, const std::vector<Reader>& readers,
             const From& from) {
    TiXmlDocument* const doc = Decode(text);
    if (doc && doc->RootElement())
        for (const Reader& reader : readers) {
            int error = 7;
            steady(faults, where + ", " + reader.name, [&] { return reader.read(from(doc), &error); });
            faults.expect(error == 0 || error == -1 || error == 7, where, reader.name);
        }
    ReleaseTiXmlDocument(doc);
    return doc != nullptr;
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
            tried += flipped(xml, 400, flips, places, [&](const std::string& text, std::size_t place) {
                const heap::Watch watch;
                const char* const placed = edge.placeText(text);
                taken += readAll(faults, at(xml.substr(0, 200), place), placed, documentReaders,
                                 [](TiXmlDocument* doc) { return doc; });
                faults.expect(watch.leaked() == 0, xml, "leaks");
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
            tried += flipped(own.xml, 2048, flips, places, all);
        }
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(tried, 10000 / oneOutOf);
    EXPECT_GE(taken, tried / 4);
    EXPECT_LE(taken, tried * 3 / 4);
}

} // namespace
