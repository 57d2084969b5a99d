// A line that is printed holds the library's own words only: what was received can add none.
#include "properties/hostile_messages.h"
#include "properties/tree_edits.h"
#include "support/captured.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <functional>

namespace {

using namespace veltoprotocol;

// No line of the library's begins so.
const std::string fitting = "f\nl", tooLong = fitting + std::string(3000, '.');

// Calls every reader on a document, and those of elements on one of it; tells how many give the text.
std::size_t readAll(TiXmlDocument& doc, TiXmlElement* element, const std::string& text) {
    std::size_t given = 0;
    int error = 7;
    for (const DocumentReader& reader : documentReaders)
        given += reader.read(&doc, &error).find(text) != std::string::npos;
    for (const auto& readers : {recordReaders, valueReaders})
        for (const ElementReader& reader : readers)
            given += reader.read(element, &error).find(text) != std::string::npos;
    return given;
}

// Each element of each message in turn is changed; all else is as it was.
std::size_t changeEach(const std::function<void(TiXmlElement*)>& change, const std::string& text) {
    std::size_t given = 0, seen = 0;
    for (const std::string& xml : wholeDocuments()) {
        const Document doc = parsed(xml);
        for (std::size_t i = 0; i < edits::elementsOf(*doc).size(); ++i) {
            if (++seen % oneOutOf != 0) continue;
            TiXmlDocument copy(*doc);
            TiXmlElement* const element = edits::elementsOf(copy)[i];
            change(element);
            given += readAll(copy, element, text);
        }
    }
    return given;
}

// Each line is whole, and begins as the library's do.
std::string foreignLine(const std::string& printed) {
    const std::string known[] = {"xml file ", "receive xml file format error ", "not found http uri!"};
    for (std::size_t at = 0; at < printed.size();) {
        const std::size_t end = printed.find('\n', at);
        const std::string line = printed.substr(at, end - at);
        if (end == std::string::npos) return line;
        if (std::none_of(std::begin(known), std::end(known),
                         [&](const std::string& words) { return line.compare(0, words.size(), words) == 0; }))
            return line;
        at = end + 1;
    }
    return {};
}

void expectNothingForeign(const std::string& printed, std::size_t lines) {
    EXPECT_EQ(foreignLine(printed), "");
    EXPECT_GE(static_cast<std::size_t>(std::count(printed.begin(), printed.end(), '\n')), lines);
}

TEST(ReceivedTexts, AreNotPrintedWhenTheyAreTooLong) {
    Captured captured;
    changeEach([](TiXmlElement* element) { edits::retell(element, tooLong.c_str()); }, tooLong);
    const std::string printed = captured.text();
    expectNothingForeign(printed, 50000 / oneOutOf);
    EXPECT_NE(printed.find(" element too long!\n"), std::string::npos);
}

TEST(ReceivedTexts, AreNotPrintedWhenTheyFit) {
    Captured captured;
    const std::size_t given =
        changeEach([](TiXmlElement* element) { edits::retell(element, fitting.c_str()); }, fitting);
    expectNothingForeign(captured.text(), 50000 / oneOutOf);
    EXPECT_GE(given, 3000 / oneOutOf);
}

TEST(ReceivedTexts, AreNotPrintedAsNames) {
    Captured captured;
    changeEach([](TiXmlElement* element) { element->SetValue(fitting.c_str()); }, fitting);
    expectNothingForeign(captured.text(), 50000 / oneOutOf);
}

TEST(ReceivedTexts, AreNotPrintedWhenTheyCannotBeRead) {
    Captured captured;
    for (const char* text : {"<f\nl>", "<a b='f\nl' f\nl>", "f\nl", "<a>&f\nl;</b>", "<f\nl></l\nf>"})
        ReleaseTiXmlDocument(Decode(text));
    GetUri("f\nl", 3);
    GetHttpStatus("f\nl", 3);
    expectNothingForeign(captured.text(), 5);
}

} // namespace
