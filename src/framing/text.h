// Text by pointer and length, as it goes on the wire; a null pointer is text that is absent.
#pragma once

#include "framing/byte_block.h"

#include <type_traits>

namespace veltoprotocol {

struct Text {
    const char* data = nullptr;
    std::size_t size = 0;

    constexpr Text() = default;
    constexpr Text(const char* start, std::size_t length) : data(start), size(length) {}
    Text(const char* text) : data(text), size(text ? std::strlen(text) : 0) {}

    constexpr bool absent() const { return data == nullptr; }
};

// The text of a field: it ends at its NUL or at the field's width.
template <std::size_t Width>
struct FieldText {
    const char* data;

    // The first place that `places` finds in one of the field's blocks, or the width. Each block goes to
    // `take` with the place where it begins; behind the field's end it holds zeros, which `places` may find.
    template <class Block = veltoprotocol::Block, class Places, class Take>
    [[gnu::always_inline]] inline std::size_t end(const Places& places, const Take& take) const {
        constexpr std::size_t rest = Width % Block::size;
        std::size_t at = 0;
        for (; at + Block::size <= Width; at += Block::size) {
            const Block block = Block::load(data + at);
            take(block, at);
            if (const auto found = places(block); found.any()) return at + found.first();
        }
        if constexpr (rest > 0) {
            char last[Block::size] = {};
            std::memcpy(last, data + at, rest);
            const Block block = Block::load(last);
            take(block, at);
            if (const auto found = places(block); found.any()) return at + found.first();
        }
        return Width;
    }
    template <class Block = veltoprotocol::Block, class Places>
    [[gnu::always_inline]] inline std::size_t end(const Places& places) const {
        return end<Block>(places, [](const Block&, std::size_t) {});
    }

    Text text() const {
        return {data, end([](const Block& block) { return block.nuls(); })};
    }
    static constexpr bool absent() { return false; }
};

// A text of up to fifteen bytes in two words, in which bytes may stand twice.
class ShortText {
  public:
    ShortText(const char* from, std::size_t size) : size_(size) {
        if (size >= 8) {
            front_ = wordAt<std::uint64_t>(from);
            back_ = wordAt<std::uint64_t>(from + size - 8);
        } else if (size >= 4) {
            front_ = back_ = wordAt<std::uint32_t>(from) | wordAt<std::uint32_t>(from + size - 4) << 32;
        } else { // the first, the middle and the last of one to three
            front_ = back_ = wordAt<std::uint8_t>(from) | wordAt<std::uint8_t>(from + size / 2) << 8 |
                             wordAt<std::uint8_t>(from + size - 1) * 0x0101010101010000u;
        }
    }
    // The first byte that `places` finds, or the text's end.
    template <class Block, class Places>
    std::size_t first(const Places& places) const {
        if constexpr (Block::size == 16) {
            const auto found = places(Block::of(front_, back_));
            return found.any() ? placeOf(found.first()) : size_;
        } else {
            if (const auto found = places(Block::of(front_)); found.any()) return placeOf(found.first());
            const auto found = places(Block::of(back_));
            return found.any() ? placeOf(8 + found.first()) : size_;
        }
    }

  private:
    // Where in the text a byte of the two words comes from.
    std::size_t placeOf(std::size_t byte) const {
        if (size_ >= 8) return byte < 8 ? byte : byte + size_ - 16;
        byte %= 8;
        if (size_ >= 4) return byte < 4 ? byte : byte + size_ - 8;
        return byte == 0 ? 0 : byte == 1 ? size_ / 2 : size_ - 1;
    }

    std::uint64_t front_, back_;
    std::size_t size_;
};

// The first byte of a text that a block finds by `places`, or the text's end.
template <class Block = veltoprotocol::Block, class Places>
const char* firstOf(const char* from, const char* end, const Places& places) {
    for (; end - from >= static_cast<std::ptrdiff_t>(Block::size); from += Block::size)
        if (const auto found = places(Block::load(from)); found.any()) return from + found.first();
    if (from == end) return end;
    const auto left = static_cast<std::size_t>(end - from);
    return from + ShortText(from, left).first<Block>(places);
}

// Whether a text would end a line of an HTTP head.
inline bool breaksLine(Text text) {
    const char* const end = text.data + text.size;
    return firstOf(text.data, end, [](const auto& block) { return block.lineEnds(); }) != end;
}

} // namespace veltoprotocol
