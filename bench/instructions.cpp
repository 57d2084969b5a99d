// Runs one call so many times, for valgrind to count its instructions. What a call costs is the difference of
// two runs, so that start and samples do not count.
//
//     instructions                the cases, one a line
//     instructions CASE TIMES     runs it and prints the bytes of its message
//     instructions --compiler     what it was compiled with
#include "messages.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

using namespace bench;

// All that happens between the two runs happens in here.
template <class Call>
bool repeated(int times, const Call& call) {
    for (int i = 0; i < times; ++i)
        if (!call()) return false;
    return true;
}

// Writes a message to a buffer of exactly its length.
template <class Message>
bool encodeCase(const Message& message, int times) {
    std::string out = encoded(message);
    const int size = static_cast<int>(out.size());
    std::printf("%d\n", size);
    return repeated(times, [&] { return message.encode(&out[0], size) == size; });
}

// Parses its body and releases the document.
template <class Message>
bool decodeCase(const Message& message, int times) {
    const std::string text = bodyOf(encoded(message));
    std::printf("%zu\n", text.size());
    return repeated(times, [&] {
        TiXmlDocument* const document = veltoprotocol::Decode(text.c_str());
        veltoprotocol::ReleaseTiXmlDocument(document);
        return document != nullptr;
    });
}

const DeviceList& list() {
    static const DeviceList made("device_list", 1024);
    return made;
}

const struct {
    const char* name;
    bool (*run)(int times);
} cases[] = {
    {"encode_result", [](int times) { return encodeCase(ResultAnswer(), times); }},
    {"encode_alarm", [](int times) { return encodeCase(AlarmPush(), times); }},
    {"encode_device_list", [](int times) { return encodeCase(list(), times); }},
    {"decode_result", [](int times) { return decodeCase(ResultAnswer(), times); }},
    {"decode_alarm", [](int times) { return decodeCase(AlarmPush(), times); }},
    {"decode_device_list", [](int times) { return decodeCase(list(), times); }},
};

} // namespace

int main(int count, char** arguments) {
    if (count == 3)
        for (const auto& one : cases)
            if (std::strcmp(one.name, arguments[1]) == 0) return one.run(std::atoi(arguments[2])) ? 0 : 1;
    if (count == 2 && std::strcmp(arguments[1], "--compiler") == 0) return std::puts(__VERSION__) < 0;
    for (const auto& one : cases) std::puts(one.name);
    return count == 1 ? 0 : 2; // 2: no such case
}
