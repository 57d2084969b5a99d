// The list itself is included, so that it stands in one place only: what it notes goes through a sieve here.
#include "fuzz/picked_reader.h"

#include <cstddef>

namespace {

unsigned wanted = readerShares;

constexpr unsigned shareOf(const char* function) {
    unsigned hash = 0;
    for (; *function; ++function) hash = hash * 31 + static_cast<unsigned char>(*function);
    return (hash ^ hash >> 16) % readerShares;
}

bool isWanted(unsigned share) { return wanted >= readerShares || share == wanted; }

} // namespace

#undef NOTE
#define NOTE(function, ...)                                                                                  \
    do {                                                                                                     \
        constexpr unsigned share = shareOf(#function);                                                       \
        if (isWanted(share)) transcript.note(#function, function(__VA_ARGS__));                              \
    } while (false)

#include "properties/every_reader.cpp"

void readPicked(Transcript& transcript, TiXmlDocument* doc, unsigned share) {
    wanted = share;
    readDocument(transcript, doc);
}
