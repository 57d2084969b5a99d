// No message at all, in each form that it takes, and callers who do not ask for the error.
#include "properties/hostile_messages.h"
#include "properties/steady.h"
#include "support/captured.h"
#include "support/muted.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <set>

namespace {

using namespace veltoprotocol;

TEST(Nothing, IsAnEmptyBuffer) {
    Faults faults;
    {
        const Muted quiet;
        for (const BytesReader& reader : bytesReaders) {
            const std::string empty = steady(faults, reader.name, [&] { return reader.read("", 0); });
            const auto expectEmpty = [&](const char* buf, int len) {
                const std::string told = steady(faults, reader.name, [&] { return reader.read(buf, len); });
                faults.expect(told == empty, reader.name, "reads something");
            };
            for (const int len : {INT_MIN, -1, 0}) {
                expectEmpty("POST / HTTP/1.1\r\nContent-Length: 4\r\n\r\nbody", len);
                expectEmpty(nullptr, len);
            }
            // The text that is told is longer for the room that the decoder leaves alone.
            if (reader.name != std::string("Base64Decode")) expectEmpty(nullptr, 40);
        }
    }
    EXPECT_EQ(faults.text(), "");
}

TEST(Nothing, IsAnErrorWithoutALine) {
    Captured captured;
    Faults faults;
    std::set<std::string> withoutError;
    for (const DocumentReader& reader : documentReaders) {
        int error = 7;
        steady(faults, reader.name, [&] { return reader.read(nullptr, &error); });
        if (error != -1) withoutError.insert(reader.name);
    }
    for (const ElementReader& reader : recordReaders) {
        int error = 7;
        const std::string told = steady(faults, reader.name, [&] { return reader.read(nullptr, &error); });
        const std::string record = told.substr(0, told.find("[0 of none]"));
        faults.expect(record.find_first_not_of('\0') == std::string::npos, reader.name, "reads something");
        if (error != -1) withoutError.insert(reader.name);
    }
    int error = 7;
    for (const ElementReader& reader : valueReaders)
        steady(faults, reader.name, [&] { return reader.read(nullptr, &error); });
    ReleaseTiXmlDocument(Decode(nullptr));
    ReleaseTiXmlDocument(nullptr);
    ReleasePlaybackParam(nullptr);
    const std::string printed = captured.text();
    EXPECT_EQ(printed, "");
    EXPECT_EQ(faults.text(), "");
    EXPECT_EQ(withoutError, (std::set<std::string>{"GetXmlEncode", "GetXmlLength"}));
}

// What is told does not depend on it.
TEST(Nothing, IsWhereTheErrorGoes) {
    Faults faults;
    {
        const Muted quiet;
        int error = 7;
        for (const std::string& xml : wholeDocuments()) {
            const Document doc = parsed(xml);
            for (const DocumentReader& reader : documentReaders)
                faults.expect(reader.read(doc.get(), nullptr) == reader.read(doc.get(), &error), reader.name,
                              "reads something else");
        }
        for (const OwnElement& own : ownElements()) {
            const Document doc = parsed(own.xml);
            const auto& reader = *own.reader;
            faults.expect(reader.read(doc->RootElement(), nullptr) == reader.read(doc->RootElement(), &error),
                          reader.name, "reads something else");
            faults.expect(reader.read(nullptr, nullptr) == reader.read(nullptr, &error), reader.name,
                          "reads something of nothing");
        }
        for (const DocumentReader& reader : documentReaders)
            faults.expect(reader.read(nullptr, nullptr) == reader.read(nullptr, &error), reader.name,
                          "reads something of nothing");
        GetSearchRecordResultDecode("no block", 8, nullptr);
        GetSearchRecordResultDecode(nullptr, 0, nullptr);
    }
    EXPECT_EQ(faults.text(), "");
}

} // namespace
