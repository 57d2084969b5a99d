// The sinks that a message is written to: Limits tells how long it can be at least and at most, without a
// look at any text, Count how long it is, Write puts the bytes.
//
// All take the same words, so that one description serves them all and no pass over it needs a test of room.
// In the order of gain: a sink is a small value that goes from function to function in registers, since what
// is written through a sink in memory might overwrite it; no measuring where the longest possible message
// fits, into the buffer or on the stack; fields looked at in blocks of sixteen bytes, which are copied while
// they are looked at, one load and one mask of the places where the text may end; literals of a length that
// the compiler knows; a message that Count found plain is written without a look for what needs a reference.
#pragma once

#include "framing/escape.h"
#include "framing/shown.h"
#include "framing/wire_names.h"

namespace veltoprotocol {

// Lengths are counted in 64 bits, enough for 2^32 of the longest elements.
class Limits {
  public:
    static constexpr bool counts = true;

    template <std::size_t N>
    VELTO_INLINE void literal(const char (&)[N]) {
        least_ += N - 1;
    }
    template <std::size_t Size>
    VELTO_INLINE void literal(const Wide<Size>&) {
        least_ += Size;
    }
    VELTO_INLINE void raw(Text text) { least_ += text.size; }
    VELTO_INLINE void put(Text text) {
        least_ += text.size;
        more_ += (longestReference - 1) * std::uint64_t{text.size};
    }
    template <std::size_t Width>
    VELTO_INLINE void put(FieldText<Width>) {
        more_ += longestReference * Width;
    }
    template <class Integer>
    VELTO_INLINE void put(Number<Integer>) {
        least_ += 1;
        more_ += Number<Integer>::longest - 1;
    }
    // A value of an attribute, behind its opening quote, and the closing one.
    template <class Shown>
    VELTO_INLINE void quoted(const Shown& value) {
        put(value);
        least_ += 1;
    }
    // What has come since `before` comes so many times more.
    void repeat(const Limits& before, std::uint64_t times) {
        least_ += (least_ - before.least_) * times;
        more_ += (more_ - before.more_) * times;
    }

    std::uint64_t mark() const { return least_; }
    void retract(std::size_t count) { least_ -= count; }
    std::uint64_t least() const { return least_; }
    std::uint64_t most() const { return least_ + more_; }

  private:
    std::uint64_t least_ = 0, more_ = 0;
};

class Count {
  public:
    static constexpr bool counts = true;

    template <std::size_t N>
    VELTO_INLINE void literal(const char (&)[N]) {
        bytes_ += N - 1;
    }
    template <std::size_t Size>
    VELTO_INLINE void literal(const Wide<Size>&) {
        bytes_ += Size;
    }
    VELTO_INLINE void raw(Text text) { bytes_ += text.size; }
    VELTO_INLINE void put(Text text) {
        const std::size_t length = escapedLength(text);
        plain_ = plain_ && length == text.size;
        bytes_ += length;
    }
    template <std::size_t Width>
    VELTO_INLINE void put(FieldText<Width> field) {
        const std::size_t end = field.end([](const Block& block) { return block.stops(); });
        if (end == Width || field.data[end] == '\0')
            bytes_ += end;
        else
            put(field.text());
    }
    template <class Integer>
    VELTO_INLINE void put(Number<Integer> number) {
        bytes_ += number.length();
    }
    template <class Shown>
    VELTO_INLINE void quoted(const Shown& value) {
        put(value);
        bytes_ += 1;
    }
    void repeat(const Count& before, std::uint64_t times) { bytes_ += (bytes_ - before.bytes_) * times; }

    std::uint64_t mark() const { return bytes_; }
    void retract(std::size_t count) { bytes_ -= count; }
    std::uint64_t bytes() const { return bytes_; }
    // Whether no text needs a reference.
    bool plain() const { return plain_; }

  private:
    std::uint64_t bytes_ = 0;
    bool plain_ = true;
};

// Writes without a test of room: whoever makes one has counted first. A wide store may touch up to sixteen
// bytes behind a value or a name; every message ends in more literal bytes than that, which are written last.
// A Plain one is for a message in which no text needs a reference.
enum class Texts { any, plain };
template <Texts texts>
class Writing {
  public:
    static constexpr bool counts = false;

    explicit Writing(char* out) : at_(out) {}

    template <std::size_t N>
    VELTO_INLINE void literal(const char (&text)[N]) {
        std::memcpy(at_, text, N - 1);
        at_ += N - 1;
    }
    template <std::size_t Size>
    VELTO_INLINE void literal(const Wide<Size>& text) {
        std::memcpy(at_, text.bytes, sizeof text.bytes);
        at_ += Size;
    }
    VELTO_INLINE void raw(Text text) { at_ = writePlain(at_, text); }
    VELTO_INLINE void put(Text text) {
        at_ = texts == Texts::plain ? writePlain(at_, text) : writeEscaped(at_, text);
    }
    template <std::size_t Width>
    VELTO_INLINE void put(FieldText<Width> field) {
        std::size_t length = 0;
        if (copied(field, length))
            at_ += length;
        else
            at_ = writeEscaped(at_, field.text());
    }
    template <class Integer>
    VELTO_INLINE void put(Number<Integer> number) {
        at_ = number.write(at_);
    }
    VELTO_INLINE void quoted(Text text) { at_ = writeEscapedAndQuote(at_, text); }
    template <std::size_t Width>
    VELTO_INLINE void quoted(FieldText<Width> field) {
        std::size_t length = 0;
        if (copied(field, length)) {
            at_[length] = '"';
            at_ += length + 1;
        } else {
            at_ = writeEscapedAndQuote(at_, field.text());
        }
    }
    template <class Integer>
    VELTO_INLINE void quoted(Number<Integer> number) {
        put(number);
        *at_++ = '"';
    }

    char* mark() const { return at_; }
    void retract(std::size_t count) { at_ -= count; }

  private:
    // Copies a field that stands as it is; false if it does not.
    template <std::size_t Width>
    VELTO_INLINE bool copied(FieldText<Width> field, std::size_t& length) {
        const auto copying = [this](const Block& block, std::size_t at)
                                 VELTO_INLINED { block.store(at_ + at); };
        const auto ending = [](const Block& block) VELTO_INLINED {
            return texts == Texts::plain ? block.nuls() : block.stops();
        };
        length = field.end(ending, copying);
        return texts == Texts::plain || length == Width || field.data[length] == '\0';
    }

    char* at_;
};

using Write = Writing<Texts::any>;
using WritePlain = Writing<Texts::plain>;

} // namespace veltoprotocol
