// What every target is made of. A target turns the fuzzer's bytes into a call of the library and asks for
// more than survival: where its property does not hold, the program says what differs and ends.
#pragma once

#include "fuzz/printed.h"
#include "fuzz/require.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// The fuzzer's bytes: some to decide by, taken from the front, then the rest.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

    // 0 where there is none any more.
    unsigned byte() {
        if (rest_.empty()) return 0;
        const unsigned first = static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
        return first;
    }
    std::string_view rest() const { return rest_; }
    // As far as a C string goes.
    std::string_view text() const { return rest_.substr(0, rest_.find('\0')); }

  private:
    std::string_view rest_;
};

// Bytes with `behind` NULs after them, which end where their heap allocation ends: the sanitizer sees whoever
// reads on. With `before` they begin at another place of a machine word.
class Exact {
  public:
    explicit Exact(std::string_view bytes, std::size_t behind = 0, std::size_t before = 0)
        : memory_(new char[before + bytes.size() + behind]()), before_(before), size_(bytes.size()) {
        bytes.copy(data(), bytes.size());
    }
    char* data() { return memory_.get() + before_; }
    int length() const { return static_cast<int>(size_); }

  private:
    std::unique_ptr<char[]> memory_;
    std::size_t before_, size_;
};
