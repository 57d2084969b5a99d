// The two sinks that a message is written to: Count tells how long it is, Write puts the bytes.
//
// Both take the same words, so that one description serves both and the second pass needs no test of room.
#pragma once

#include "framing/escape.h"
#include "framing/shown.h"

#include <cstdint>

namespace veltoprotocol {

class Count {
  public:
    static constexpr bool counts = true;

    template <std::size_t N>
    void literal(const char (&)[N]) {
        bytes_ += N - 1;
    }
    void raw(Text text) { bytes_ += text.size; }
    void add(std::uint64_t count) { bytes_ += count; }
    void put(Text text) { bytes_ += escapedLength(text); }
    void put(const NumberText& number) { bytes_ += number.text().size; }
    // ="value" behind an attribute's name
    template <class Shown>
    void quoted(const Shown& value) {
        bytes_ += 3;
        put(value);
    }

    std::uint64_t mark() const { return bytes_; }
    void retract(std::size_t count) { bytes_ -= count; }
    std::uint64_t bytes() const { return bytes_; }

  private:
    std::uint64_t bytes_ = 0; // wide enough for 2^32 of the longest elements
};

// Writes without a test of room: whoever makes one has counted first.
class Write {
  public:
    static constexpr bool counts = false;

    explicit Write(char* out) : at_(out) {}

    template <std::size_t N>
    void literal(const char (&text)[N]) {
        std::memcpy(at_, text, N - 1);
        at_ += N - 1;
    }
    void raw(Text text) {
        if (text.size > 0) std::memcpy(at_, text.data, text.size);
        at_ += text.size;
    }
    void put(Text text) { at_ = writeEscaped(at_, text); }
    void put(const NumberText& number) { raw(number.text()); }
    void quoted(const NumberText& number) {
        literal("=\"");
        put(number);
        literal("\"");
    }
    // kept: a value that holds a double quote stands between apostrophes, as the XML library prints it.
    void quoted(Text text) {
        const bool apostrophes = text.size > 0 && std::memchr(text.data, '"', text.size) != nullptr;
        const char quote = apostrophes ? '\'' : '"';
        *at_++ = '=';
        *at_++ = quote;
        put(text);
        *at_++ = quote;
    }

    const char* mark() const { return at_; }
    void retract(std::size_t count) { at_ -= count; }

  private:
    char* at_;
};

} // namespace veltoprotocol
