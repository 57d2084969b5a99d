// The zlib block behind the XML of a record search's answer.
//
// Uncompressed it is a head of 56 bytes (ChannelGuid, ResultMode, Counter) and 88 bytes for each element;
// integers as they lie in memory, nothing between the items.
#pragma once

#include "framing/text.h"
#include "veltoprotocol/media.h"

#include <cstddef>
#include <memory>
#include <utility>

namespace veltoprotocol {

constexpr std::size_t recordBlockHead = 56;
constexpr std::size_t recordBlockElement = 88;

// Compressed bytes; false if zlib failed.
class RecordBlock {
  public:
    RecordBlock() = default;
    RecordBlock(std::unique_ptr<char[]> bytes, std::size_t size) : bytes_(std::move(bytes)), size_(size) {}
    explicit operator bool() const { return bytes_ != nullptr; }
    Text text() const { return {bytes_.get(), size_}; }

  private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0;
};

// What compress() makes of the list; of nothing, if records is null.
RecordBlock compressedBlock(const __tagVtRecordParam* records);

} // namespace veltoprotocol
