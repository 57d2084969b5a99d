// The zlib block behind the XML of a record search's answer.
//
// Uncompressed it is a head of 56 bytes (ChannelGuid, ResultMode, Counter) and 88 bytes for each element;
// integers as they lie in memory, nothing between the items.
#pragma once

#include "framing/text.h"
#include "veltoprotocol/media.h"

#include <cstddef>

namespace veltoprotocol {

constexpr std::size_t recordBlockHead = 56;
constexpr std::size_t recordBlockElement = 88;

// What zlib makes of no bytes at all: the block of an answer without a list.
constexpr Text emptyRecordBlock{"\x78\x9C\x03\x00\x00\x00\x00\x01", 8};

// The list takes no more bytes than that once it is compressed. INT_MAX stands for "more than any message".
std::size_t longestRecordBlock(const __tagVtRecordParam& records);

// Writes the list to `to`, with the very bytes that compress() makes of it, and returns how many they are.
// 0 if zlib has no memory, and nothing is written then, or if they are more than `room`, and it holds the
// first of them then; it never is where `room` is longestRecordBlock().
std::size_t writeRecordBlock(const __tagVtRecordParam& records, char* to, std::size_t room);

} // namespace veltoprotocol
