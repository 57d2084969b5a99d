// Search for something fixed in a buffer, by blocks.
//
// A thing to be found is a type with a size, marks() and standsAt(). marks<B, count>() marks the places of a
// block where `count` bytes of the thing, 1 to 4, stand as if it began there, the rarest byte first;
// standsAt() reads a place in full.
//
// The search asks for two bytes. A text that is full of the rarest one, hyphens in GUIDs or CR at every
// line's end, seldom holds both at their distance, so nearly every block passes without a stop. Where they do
// stand, four bytes decide whether a place is read in full, so a text made to hold many such pairs costs
// little more. After a stretch the search drops to the one rarest byte, which costs half as much, and stays
// there until that byte turns up: a long text without it is searched about as fast as memchr would.
#pragma once

#include "framing/byte_block.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace veltoprotocol::inspection {

constexpr std::size_t notFound = std::string_view::npos; // greater than any position

// First of the places `start + k`, for each bit k, where the thing stands.
template <class Thing>
std::size_t firstOf(const char* text, std::size_t start, std::uint64_t bits) {
    for (; bits != 0; bits &= bits - 1) {
        const std::size_t at = start + lowestBit(bits);
        if (Thing::standsAt(text + at)) return at;
    }
    return notFound;
}

template <class Thing, class B, std::size_t count>
std::uint64_t bitsOf(const char* at) {
    return Thing::template marks<B, count>(at).bits();
}

// The same of four blocks.
template <class Thing, class B, std::size_t count>
std::uint64_t bitsOfFour(const char* at) {
    constexpr std::size_t width = B::size;
    return bitsOf<Thing, B, count>(at) | bitsOf<Thing, B, count>(at + width) << width |
           bitsOf<Thing, B, count>(at + 2 * width) << 2 * width |
           bitsOf<Thing, B, count>(at + 3 * width) << 3 * width;
}

// First place from `start` on, one block after the other.
template <class Thing, class B>
std::size_t findInRest(const char* text, std::size_t start, std::size_t places) {
    if (places < B::size) {
        for (; start < places; ++start)
            if (Thing::standsAt(text + start)) return start;
        return notFound;
    }
    for (; start < places; start += B::size) {
        // The last block ends with the last place, so it may begin among places seen before.
        const std::size_t block = std::min(start, places - B::size);
        const std::size_t at = firstOf<Thing>(text, block, bitsOf<Thing, B, 4>(text + block));
        if (at != notFound) return at;
    }
    return notFound;
}

// First place where the thing stands in whole. Reads nothing outside the text.
template <class Thing, class B = Block>
std::size_t find(std::string_view bytes) {
    constexpr std::size_t width = B::size, stride = 4 * width, stretch = 1024;
    if (bytes.size() < Thing::size) return notFound;
    const char* const text = bytes.data();
    const std::size_t places = bytes.size() - Thing::size + 1;
    const auto anyOfFour = [text](auto marks, std::size_t i) {
        return (marks(text + i) | marks(text + i + width) | marks(text + i + 2 * width) |
                marks(text + i + 3 * width))
            .any();
    };
    const auto two = [](const char* at) { return Thing::template marks<B, 2>(at); };
    const auto one = [](const char* at) { return Thing::template marks<B, 1>(at); };

    std::size_t i = 0;
    while (places - i >= stride) {
        for (const std::size_t last = i + std::min(places - i, stretch) - stride; i <= last; i += stride) {
            if (!anyOfFour(two, i)) continue;
            const std::size_t likely = i + lowestBit(bitsOfFour<Thing, B, 2>(text + i));
            if (Thing::standsAt(text + likely)) return likely;
            const std::size_t at = firstOf<Thing>(text, i, bitsOfFour<Thing, B, 4>(text + i));
            if (at != notFound) return at;
        }
        while (places - i >= stride && !anyOfFour(one, i)) i += stride;
    }
    return findInRest<Thing, B>(text, i, places);
}

} // namespace veltoprotocol::inspection
