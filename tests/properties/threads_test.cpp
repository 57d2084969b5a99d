// Any number of threads may call anything at once. Under the thread sanitizer these tests also find what only
// looks right.
#include "properties/declared.h"
#include "properties/every_encoder.h"
#include "support/captured.h"
#include "support/encoded.h"
#include "support/read_back.h"

#include <algorithm>
#include <sstream>
#include <thread>

namespace {

using namespace veltoprotocol;

constexpr int threadCount = 8;

// What each function made of its arguments.
class Transcript {
  public:
    template <class Result>
    void note(const char* function, const Result& result) {
        text_ += function;
        text_ += ": ";
        if constexpr (std::is_same_v<Result, std::string>)
            text_ += result;
        else if constexpr (std::is_arithmetic_v<Result>)
            text_ += std::to_string(result);
        else
            text_.append(reinterpret_cast<const char*>(&result), sizeof result); // a record
        text_ += '\n';
    }
    const std::string& text() const { return text_; }

  private:
    std::string text_;
};

#define NOTE(function, ...) transcript.note(#function, function(__VA_ARGS__))

void inspect(Transcript& transcript, const std::string& message) {
    const char* const buf = message.data();
    const int len = static_cast<int>(message.size());
    NOTE(CheckHttp, buf, len);
    NOTE(GetHttpLength, buf, len);
    NOTE(GetContentLen, buf, len);
    NOTE(GetHttpPacketLength, buf, len);
    NOTE(GetHttpFirstValue, buf, len);
    NOTE(GetUri, buf, len);
    NOTE(GetHttpStatus, buf, len);
    NOTE(GetContentType, buf, len);
    NOTE(GetAuthorization, buf, len);
    const std::string value = GetAuthorization(buf, len);
    NOTE(GetAuthorizationDecode, value.data(), static_cast<int>(value.size()));
    char decoded[300] = {};
    Base64Decode(decoded, "YWRtaW46", 8);
    transcript.note("Base64Decode", std::string(decoded));
}

void readElement(Transcript& transcript, TiXmlElement* element) {
    int error = 7;
    char field[48] = {};
    int number = 0;
    bool flag = false;
    unsigned int word = 0;
    unsigned long wide = 0;
    NOTE(GetStringValue, element, "label", "seqnum", field, 48);
    NOTE(GetIntValue, element, "label", "seqnum", &number);
    NOTE(GetBoolValue, element, "label", "version", &flag);
    NOTE(GetUIntValue, element, "label", "Result", &wide);
    NOTE(GetStringValueAtt, element, "label", "Guid", field, 48);
    NOTE(GetIntValueAtt, element, "label", "Num", &number);
    NOTE(GetBoolValueAtt, element, "label", "Preview", &flag);
    NOTE(GetUIntValueAtt, element, "label", "State", &word);
    transcript.note("fields", std::string(field, sizeof field) + std::to_string(number) +
                                  std::to_string(flag) + std::to_string(word) + std::to_string(wide));
    NOTE(GetInt, element);
    NOTE(GetUInt, element);
    NOTE(GetLong, element);
    NOTE(GetULong, element);
    NOTE(GetFloat, element);
    NOTE(GetString, element);
    NOTE(GetDeviceParamDecode, element, &error);
    NOTE(GetChannelParamDecode, element, &error);
    NOTE(GetPtzReqDecode, element, &error);
    NOTE(GetStartTalkReqDecode, element, &error);
    NOTE(GetSearchRecordDecode, element, &error);
    NOTE(GetPlayBackCtrlParamDecode, element, &error);
    NOTE(GetPictureParamDecode, element, &error);
    NOTE(GetViewGroupInfoParamDecode, element, &error);
    __tagVtPlayBackParam playback = GetPlayBackParamDecode(element, element, &error);
    transcript.note("GetPlayBackParamDecode", playback.RecordCounter);
    ReleasePlaybackParam(&playback);
    transcript.note("ReleasePlaybackParam", playback.RecordCounter);
    transcript.note("error", error);
    for (TiXmlElement* child = element->FirstChildElement(); child; child = child->NextSiblingElement())
        readElement(transcript, child);
}

void readDocument(Transcript& transcript, TiXmlDocument* doc) {
    int error = 7, result = 7;
    NOTE(GetNameDecode, doc, &error, "request");
    NOTE(GetRequestNameDecode, doc, &error);
    NOTE(GetResponseNameDecode, doc, &error);
    NOTE(GetResponseErrorcodeDecode, doc, &error);
    NOTE(GetSeqnumberDecode, doc, &error);
    NOTE(GetVersionDecode, doc, &error);
    NOTE(GetTokenDecode, doc, &error);
    NOTE(GetLogoutReqTokenDecode, doc, &error);
    NOTE(GetLoginRespTokenDecode, doc, &result, &error);
    NOTE(GetRealPlayStartReqTokenDecode, doc, &error);
    NOTE(GetRealPlayStartReqDeviceGuidDecode, doc, &error);
    NOTE(GetRealPlayStartReqChannelGuidDecode, doc, &error);
    NOTE(GetRealPlayStartReqStreamTypeDecode, doc, &error);
    NOTE(GetPlayBackReqPlayGuidDecode, doc, &error);
    NOTE(GetRealPlayStartRespDecode, doc, &result, &error);
    transcript.note("codes", std::to_string(error) + std::to_string(result));
    NOTE(GetXmlLength, doc);
    if (TiXmlElement* const root = doc ? doc->RootElement() : nullptr) readElement(transcript, root);
}

// A message, read by every function that reads.
void readMessage(Transcript& transcript, const std::string& message) {
    inspect(transcript, message);
    const std::size_t head = message.find("\r\n\r\n");
    TiXmlDocument* const doc = Decode(message.c_str() + (head == std::string::npos ? 0 : head));
    transcript.note("Decode", doc != nullptr);
    readDocument(transcript, doc);
    const int xml = GetXmlLength(doc); // behind it, the block of a record search
    int error = 7;
    const std::string block = xml < 0 || head == std::string::npos
                                  ? ""
                                  : message.substr(head + 4).substr(
                                        std::min(message.size() - head - 4, static_cast<std::size_t>(xml)));
    __tagVtRecordParam found =
        GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), &error);
    transcript.note("GetSearchRecordResultDecode", found.Counter);
    ReleaseRecordParam(&found);
    transcript.note("ReleaseRecordParam", error);
    ReleaseTiXmlDocument(doc);
    transcript.note("ReleaseTiXmlDocument", 0);
    transcript.note("SetStringValue", SetStringValue(nullptr, "Name", "text") == nullptr);
    transcript.note("SetStringValueAtt", SetStringValueAtt(nullptr, "Name", "text") == nullptr);
    NOTE(ItoString, static_cast<int>(message.size()));
    NOTE(UitoString, static_cast<unsigned>(message.size()));
}

// All that a thread does: writes every message, and reads each one whole and cut off.
std::string everything() {
    Transcript transcript;
    for (unsigned seed = 0; seed < 4; ++seed)
        for (const Texts texts : {Texts::anyBytes, Texts::printable})
            for (const NamedMessage& message : everyEncoder(seed, texts)) {
                transcript.note(message.name.c_str(), message.bytes);
                if (seed > 0 && message.name.find("List") == std::string::npos) continue; // enough of these
                readMessage(transcript, message.bytes);
                readMessage(transcript, message.bytes.substr(0, message.bytes.size() * 3 / 4));
            }
    readMessage(transcript, "<other />");
    return transcript.text();
}

std::vector<std::string> sortedLines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    std::sort(lines.begin(), lines.end());
    return lines;
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
