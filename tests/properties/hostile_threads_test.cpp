// Threads that read damaged messages at once, and threads that write the same records: what each of them
// makes is what one makes alone, arrays included, and every line is whole.
#include "properties/hostile_messages.h"
#include "properties/listed_encoders.h"
#include "support/captured.h"
#include "support/sorted_lines.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <algorithm>
#include <thread>

namespace {

using namespace veltoprotocol;

constexpr int threadCount = 8;

// work() gives a text.
template <class Work>
void expectTheSameAtOnce(const Work& work) {
    Captured alone;
    const std::string expected = work();
    const std::vector<std::string> lines = sortedLines(alone.text());

    std::string got[threadCount];
    Captured together;
    std::vector<std::thread> threads;
    for (std::string& told : got) threads.emplace_back([&told, &work] { told = work(); });
    for (std::thread& thread : threads) thread.join();
    const std::vector<std::string> allLines = sortedLines(together.text());

    EXPECT_GE(expected.size(), 100000u);
    for (const std::string& told : got) EXPECT_TRUE(told == expected);
    std::vector<std::string> times;
    for (const std::string& line : lines) times.insert(times.end(), threadCount, line);
    EXPECT_GE(lines.size(), 10u);
    EXPECT_TRUE(allLines == times) << allLines.size() << " lines, not " << times.size();
}

std::string readAll(const std::string& xml) {
    std::string told;
    TiXmlDocument* const doc = Decode(xml.c_str());
    TiXmlElement* const root = doc ? doc->RootElement() : nullptr;
    for (const DocumentReader& reader : documentReaders) {
        int error = 7;
        told += reader.read(doc, &error);
        told += std::to_string(error);
    }
    for (const auto& readers : {recordReaders, valueReaders})
        for (const ElementReader& reader : readers) {
            int error = 7;
            for (TiXmlElement* at = root; at; at = at->FirstChildElement()) told += reader.read(at, &error);
            told += std::to_string(error);
        }
    ReleaseTiXmlDocument(doc);
    return told;
}

// An element by the reader that it is meant for.
std::string readOwn(const OwnElement& own, const std::string& xml) {
    TiXmlDocument* const doc = Decode(xml.c_str());
    int error = 7;
    std::string told = own.reader->read(doc ? doc->RootElement() : nullptr, &error);
    told += std::to_string(error);
    ReleaseTiXmlDocument(doc);
    return told;
}

TEST(HostileThreads, ReadDamagedMessagesAtOnce) {
    wholeMessages(); // made before the threads are, which only read them
    wholeDocuments();
    ownElements();
    expectTheSameAtOnce([] {
        std::mt19937 random(14);
        std::string told;
        for (std::size_t i = 0; i < wholeDocuments().size(); ++i) {
            std::string xml = wholeDocuments()[i];
            if (i > 12 && i % 8 != 0) continue; // enough of these
            told += readAll(xml);
            xml[random() % xml.size()] = static_cast<char>(random());
            told += readAll(xml);
        }
        for (const OwnElement& own : ownElements())
            for (int round = 0; round < 8; ++round) {
                std::string xml = own.xml;
                if (round > 0) xml[random() % xml.size()] = static_cast<char>(random());
                told += readOwn(own, xml);
            }
        for (const WholeMessage& message : wholeMessages()) {
            std::string bytes = message.bytes.substr(0, random() % (message.bytes.size() + 1));
            if (!bytes.empty()) bytes[random() % bytes.size()] = static_cast<char>(random());
            for (const BytesReader& reader : bytesReaders)
                told += reader.read(bytes.data(), static_cast<int>(bytes.size()));
        }
        // Too much for the budget of a call.
        return told + readAll("<servercommandservice><request><EMapInfos count=\"2147483647\" /></request>"
                              "</servercommandservice>");
    });
}

TEST(HostileThreads, WriteTheSameRecordsAtOnce) {
    MadeArguments arguments(MadeArguments::Choice{});
    std::vector<std::function<int(char*, int)>> messages;
    std::vector<std::function<int(TiXmlElement*)>> elements;
    for (const ListedEncoder& encoder : listedEncoders)
        if (encoder.message)
            messages.push_back(encoder.message(arguments));
        else
            elements.push_back(encoder.element(arguments));
    expectTheSameAtOnce([&] {
        std::string told;
        std::string out(1 << 16, '#');
        for (const auto& write : std::vector<std::function<int(char*, int)>>(messages)) {
            const int length = write(&out[0], static_cast<int>(out.size()));
            told += std::to_string(length) + out.substr(0, static_cast<std::size_t>(std::max(length, 0)));
        }
        for (const auto& write : elements) {
            TiXmlElement element("Element");
            told += std::to_string(write(&element));
            TiXmlPrinter printer;
            element.Accept(&printer);
            told += printer.Str();
        }
        return told;
    });
}

} // namespace
