// fuzz_left_out: whether some target calls each function that the public headers declare. The encoders and
// readers are called by way of lists; the others are looked for in the sources of the targets. And whether
// what each reader reads has come from a writer, in a round trip. Prints the names of those that are left
// out.
#include "fuzz/encoder_rooms.h"
#include "fuzz/picked_reader.h"

#include "properties/declared.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>

namespace {

using Names = std::set<std::string>;

// In one room and share after the other, as the fuzzer calls them; so are the readers.
void addEncoders(Names& called) {
    const auto add = [&](const EncoderCall& call) { called.insert(call.name); };
    for (unsigned room = 0; room < encoderRooms; ++room)
        for (unsigned share = 0; share < encoderShares; ++share)
            veltoprotocol::visitPicked(room, share, Texts::printable, add);
}

void addReaders(Names& called, const Names& declared) {
    const std::unique_ptr<TiXmlDocument, void (*)(TiXmlDocument*)> doc(veltoprotocol::Decode("<a/>"),
                                                                       veltoprotocol::ReleaseTiXmlDocument);
    std::string all = "\n";
    for (unsigned share = 0; share < readerShares; ++share) {
        Transcript transcript;
        readPicked(transcript, doc.get(), share);
        all += transcript.text();
    }
    for (const std::string& name : declared)
        if (all.find('\n' + name + ": ") != std::string::npos) called.insert(name);
}

// Whether a text calls a function or hands it on.
bool names(const std::string& text, const std::string& function) {
    for (std::size_t at = text.find(function); at != std::string::npos; at = text.find(function, at + 1)) {
        const char before = at > 0 ? text[at - 1] : ' ', behind = text[at + function.size()];
        if (std::strchr("(),}", behind) && behind != '\0' &&
            !std::isalnum(static_cast<unsigned char>(before)))
            return true;
    }
    return false;
}

std::string source(const std::string& name) {
    std::ifstream in(FUZZ_DIR + ("/" + name + ".cpp"));
    return {std::istreambuf_iterator<char>(in), {}};
}

void addFromSources(Names& called, const Names& declared) {
    for (const char* target :
         {"base64", "decoders", "document", "http_inspectors", "record_block", "round_trip_tree"}) {
        const std::string text = source(target);
        for (const std::string& name : declared)
            if (names(text, name)) called.insert(name);
    }
}

// Those of messages and records, of which a writer makes what they read. No writer names a device for
// GetRealPlayStartReqDeviceGuidDecode.
Names withoutRoundTrip(const Names& declared) {
    std::string trips;
    for (const char* room : {"admin", "events", "maps", "media", "recording", "views"})
        trips += source(std::string("round_trip_") + room);
    Names missing;
    for (const std::string& name : declared) {
        const bool reads = name.compare(0, 3, "Get") == 0 && name.find("Decode") != std::string::npos;
        if (reads && name != "GetRealPlayStartReqDeviceGuidDecode" && !names(trips, name))
            missing.insert(name);
    }
    return missing;
}

} // namespace

int main() {
    std::FILE* const output = stderr; // the readers print what they miss
    if (!std::freopen("/dev/null", "w", stdout)) return 1;
    const Names declared = declaredFunctions();
    Names called;
    addEncoders(called);
    addReaders(called, declared);
    addFromSources(called, declared);
    Names missing;
    std::set_difference(declared.begin(), declared.end(), called.begin(), called.end(),
                        std::inserter(missing, missing.end()));
    for (const std::string& name : missing) std::fprintf(output, "no target calls %s\n", name.c_str());
    const Names oneWay = withoutRoundTrip(declared);
    for (const std::string& name : oneWay) std::fprintf(output, "no round trip for %s\n", name.c_str());
    std::fprintf(output, "%zu functions, %zu left out\n", declared.size(), missing.size());
    return missing.empty() && oneWay.empty() && declared.size() > 200 ? 0 : 1;
}
