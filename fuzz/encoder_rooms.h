// Some encoders of the list of all, with arguments from the fuzzer's bytes, in both of the libraries that the
// list is compiled for (tests/properties/every_encoder.h).
#pragma once

#include "properties/every_encoder.h"

constexpr unsigned encoderRooms = 7, encoderShares = 8;

namespace veltoprotocol {

// Hands one share of a room's encoders to `visit`. What belongs to no room is the last room: to draw all
// arguments at once, as the list of all does, would take most of the fuzzer's time. Together the rooms leave
// none out; fuzz_left_out checks it.
void visitPicked(unsigned room, unsigned pick, Texts texts,
                 const std::function<void(const EncoderCall&)>& visit);

} // namespace veltoprotocol

namespace veltotree {

void visitPicked(unsigned room, unsigned pick, Texts texts,
                 const std::function<void(const EncoderCall&)>& visit);

} // namespace veltotree
