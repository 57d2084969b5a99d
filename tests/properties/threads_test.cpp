// Any number of threads may call anything at once. Under the thread sanitizer these tests also find what only
// looks right.
#include "properties/declared.h"
#include "properties/every_encoder.h"
#include "properties/every_reader.h"
#include "support/captured.h"
#include "support/encoded.h"
#include "support/read_back.h"
#include "support/sorted_lines.h"

#include <algorithm>
#include <thread>

namespace {

using namespace veltoprotocol;

constexpr int threadCount = 8;

// Fewer in builds for debugging, which the sanitizers' are.
#ifdef NDEBUG
constexpr unsigned seeds = 2;
#else
constexpr unsigned seeds = 1;
#endif

// All that a thread does: writes every message, and reads each one whole and cut off.
std::string everything() {
    Transcript transcript;
    for (unsigned seed = 0; seed < seeds; ++seed)
        for (const Texts texts : {Texts::anyBytes, Texts::printable})
            for (const NamedMessage& message : everyEncoder(seed, texts)) {
                transcript.note(message.name.c_str(), message.bytes);
                if (seed > 0 && message.name.find("List") == std::string::npos) continue; // enough of these
                readMessage(transcript, message.bytes);
                readMessage(transcript, message.bytes.substr(0, message.bytes.size() * 3 / 4));
            }
    readMessage(transcript, "<other />");
    // No encoder writes a page of alarms as its decoder wants it.
    readMessage(transcript, "<servercommandservice><response>0<AlarmInfos SearchCount=\"9\" CurCount=\"2\">"
                            "<AlarmData><AlarmGuid>a-1</AlarmGuid></AlarmData></AlarmInfos></response>"
                            "</servercommandservice>");
    return transcript.text();
}

template <class Work>
void atOnce(const Work& work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) threads.emplace_back([&work, i] { work(i); });
    for (std::thread& thread : threads) thread.join();
}

TEST(Threads, CallEveryFunctionAtOnce) {
    Captured alone;
    const std::string expected = everything();
    const std::vector<std::string> expectedLines = sortedLines(alone.text());
    ASSERT_GE(expectedLines.size(), 100u);

    std::string got[threadCount];
    Captured together;
    atOnce([&](int i) { got[i] = everything(); });
    const std::vector<std::string> lines = sortedLines(together.text());

    for (const std::string& transcript : got) EXPECT_TRUE(transcript == expected);
    // Each thread's lines, and every one of them whole.
    std::vector<std::string> times;
    for (const std::string& line : expectedLines) times.insert(times.end(), threadCount, line);
    EXPECT_TRUE(lines == times) << lines.size() << " lines, not " << times.size();
}

std::string deviceList(const std::vector<__tagVtDeviceParam>& devices) {
    std::string out(1 << 16, '\0');
    const int length = GetAllDeviceListRespEncode(0, 1, devices.data(), static_cast<int>(devices.size()),
                                                  nullptr, 0, &out[0], static_cast<int>(out.size()));
    return out.substr(0, static_cast<std::size_t>(std::max(length, 0)));
}

TEST(Threads, WriteOneRecordAtOnce) {
    const std::vector<__tagVtDeviceParam> devices(20);
    const std::string expected = deviceList(devices);
    ASSERT_GT(expected.size(), 20u * 200u);
    std::string got[threadCount];
    atOnce([&](int i) { got[i] = deviceList(devices); });
    for (const std::string& message : got) EXPECT_TRUE(message == expected);
}

TEST(Threads, ReadOneDocumentAtOnce) {
    const Document doc = parsed(bodyOf(deviceList(std::vector<__tagVtDeviceParam>(20))));
    const auto read = [&] {
        Transcript transcript;
        readDocument(transcript, doc.get());
        return transcript.text();
    };
    Captured quiet;
    const std::string expected = read();
    std::string got[threadCount];
    atOnce([&](int i) { got[i] = read(); });
    quiet.text();
    for (const std::string& transcript : got) EXPECT_TRUE(transcript == expected);
}

TEST(Threads, LeaveNoFunctionOut) {
    Captured quiet;
    const std::string called = '\n' + everything();
    quiet.text();
    std::set<std::string> missing;
    for (const std::string& function : declaredFunctions())
        if (called.find('\n' + function + ": ") == std::string::npos) missing.insert(function);
    EXPECT_EQ(missing, std::set<std::string>());
}

} // namespace
