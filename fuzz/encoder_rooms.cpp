#include "fuzz/encoder_rooms.h"

#include "properties/encoder_calls.h"

namespace veltoprotocol {
namespace {

using Room = void (*)(unsigned seed, Texts texts, const Visit& visit);
constexpr Room rooms[] = {visitAdmin, visitEvents, visitMaps, visitMedia, visitRecording, visitViews};
constexpr unsigned roomCount = std::size(rooms);
static_assert(encoderRooms == roomCount + 1, "one for what belongs to no room");

unsigned countOf(Room room) {
    unsigned count = 0;
    room(0, Texts::printable, [&](const EncoderCall&) { ++count; });
    return count;
}

struct Counts {
    unsigned in[roomCount], frame = countOf(visitEncoders);
    Counts() {
        for (unsigned i = 0; i < roomCount; ++i) frame -= in[i] = countOf(rooms[i]);
    }
};

struct Visited {}; // leaves a list early: the arguments of the rest need not be drawn

// Of the first `count` encoders of a list those of one share.
void visitSome(Room room, unsigned count, unsigned pick, Texts texts, const Visit& visit) {
    unsigned index = 0;
    try {
        room(pick, texts, [&](const EncoderCall& call) {
            if (index == count) throw Visited();
            if (index++ % encoderShares == pick % encoderShares) visit(call);
        });
    } catch (const Visited&) {
    }
}

} // namespace

void visitPicked(unsigned room, unsigned pick, Texts texts, const Visit& visit) {
    static const Counts counts;
    room %= encoderRooms;
    if (room < roomCount) return visitSome(rooms[room], counts.in[room], pick, texts, visit);
    // The list of all begins with what belongs to no room.
    visitSome(visitEncoders, counts.frame, pick, texts, visit);
}

} // namespace veltoprotocol
