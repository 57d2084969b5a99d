// Text by pointer and length, as it goes on the wire; a null pointer is text that is absent.
#pragma once

#include "framing/byte_block.h"
#include "framing/wire_names.h"

#include <algorithm>
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

// What stands in so many bytes in front of the first NUL.
inline Text textUpTo(const char* data, std::size_t width);

// The text of a field: it ends at its NUL or at the field's width.
template <std::size_t Width>
struct FieldText {
    const char* data;

    // The first place that `places` finds in one of the field's blocks, or the width. Each block goes to
    // `take` with the place where it begins. The last one may begin among bytes that were looked at before; a
    // field of less than a block has zeros behind its end, which `places` may find.
    template <class Block = veltoprotocol::Block, class Places, class Take>
    VELTO_INLINE std::size_t end(const Places& places, const Take& take) const {
        if constexpr (Width < Block::size) {
            char all[Block::size] = {};
            std::memcpy(all, data, Width);
            const Block block = Block::load(all);
            take(block, 0);
            const auto found = places(block);
            return found.any() ? found.first() : Width;
        } else {
            constexpr std::size_t size = Block::size, last = Width - size;
            std::size_t end = Width;
            const auto endsIn = [&](std::size_t at) VELTO_INLINED {
                const Block block = Block::load(data + at);
                take(block, at);
                const auto found = places(block);
                if (VELTO_LIKELY(!found.any())) return false;
                end = at + found.first();
                return true;
            };
            // Most texts end in the first blocks, which need no loop.
            if (endsIn(0) || (last > 0 && endsIn(std::min(size, last))) ||
                (last > size && endsIn(std::min(2 * size, last))))
                return end;
            for (std::size_t at = 3 * size; at < Width; at += size)
                if (endsIn(std::min(at, last))) break;
            return end;
        }
    }
    template <class Block = veltoprotocol::Block, class Places>
    VELTO_INLINE std::size_t end(const Places& places) const {
        return end<Block>(places, [](const Block&, std::size_t) {});
    }

    Text text() const { return textUpTo(data, Width); }
    static constexpr bool absent() { return false; }
};

// A text of one to fifteen bytes in two words, in which bytes may stand twice.
class ShortText {
  public:
    static constexpr std::size_t longest = 15;

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
    void store(char* to) const {
        if (size_ >= 8) {
            WordBlock::of(front_).store(to);
            WordBlock::of(back_).store(to + size_ - 8);
        } else if (size_ >= 4) {
            char half[8];
            WordBlock::of(front_).store(half);
            std::memcpy(to, half, 4);
            std::memcpy(to + size_ - 4, half + 4, 4);
        } else {
            to[0] = static_cast<char>(front_);
            to[size_ / 2] = static_cast<char>(front_ >> 8);
            to[size_ - 1] = static_cast<char>(front_ >> 16);
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

// The first byte of a text that a block finds by `places`, or the text's end. The last block of a longer text
// ends with it, so it may hold bytes that were looked at before.
template <class Block = veltoprotocol::Block, class Places>
const char* firstOf(const char* from, const char* end, const Places& places) {
    const auto size = static_cast<std::size_t>(end - from);
    if (size == 0) return end;
    if (size <= ShortText::longest) return from + ShortText(from, size).first<Block>(places);
    const char* const last = end - Block::size;
    for (; from < last; from += Block::size)
        if (const auto found = places(Block::load(from)); found.any()) return from + found.first();
    const auto found = places(Block::load(last));
    return found.any() ? last + found.first() : end;
}

inline Text textUpTo(const char* data, std::size_t width) {
    const char* const end = firstOf(data, data + width, [](const auto& block) { return block.nuls(); });
    return {data, static_cast<std::size_t>(end - data)};
}

// Whether a text would end a line of an HTTP head.
inline bool breaksLine(Text text) {
    const char* const end = text.data + text.size;
    return firstOf(text.data, end, [](const auto& block) { return block.lineEnds(); }) != end;
}

} // namespace veltoprotocol
