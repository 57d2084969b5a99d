// Sixteen bytes of text, or eight where there is no SSE2, looked at together.
//
// A block is loaded from anywhere and reads exactly its `width` bytes. A comparison answers with Marks, one
// for each byte; marks of several conditions are joined by & and |, and bits() tells where they stand: bit k
// is byte k. Both kinds of block are compiled everywhere, so that the tests compare them; `Block` is the one
// that the library uses.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace veltoprotocol::inspection {

// Eight bytes in an integer. A mark is the highest bit of its byte.
class WordBlock {
  public:
    static constexpr std::size_t width = 8;

    class Marks {
      public:
        explicit Marks(std::uint64_t marks) : marks_(marks) {}
        Marks operator&(Marks other) const { return Marks(marks_ & other.marks_); }
        Marks operator|(Marks other) const { return Marks(marks_ | other.marks_); }
        bool any() const { return marks_ != 0; }
        // The product moves the mark of byte k to bit 56 + k; no two of its terms meet below.
        std::uint64_t bits() const { return marks_ * 0x0002040810204081U >> 56; }

      private:
        std::uint64_t marks_;
    };

    // The first byte is the lowest, whatever order the machine has. Compilers make one load of it.
    explicit WordBlock(const char* at) {
        for (std::size_t i = 0; i < width; ++i)
            word_ |= std::uint64_t{static_cast<unsigned char>(at[i])} << 8 * i;
    }

    Marks equal(char byte) const { return zero(word_ ^ repeated(byte)); }
    // `lower` has bit 0x20 set; so has every byte before it is compared.
    Marks equalInAnyCase(char lower) const { return zero((word_ | repeated(0x20)) ^ repeated(lower)); }
    Marks digits() const {
        const std::uint64_t low = word_ & ~highest;
        const std::uint64_t from0 = low + repeated(0x80 - '0'), behind9 = low + repeated(0x80 - '9' - 1);
        return Marks(from0 & ~behind9 & ~word_ & highest);
    }

  private:
    static constexpr std::uint64_t ones = 0x0101010101010101U;
    static constexpr std::uint64_t highest = 0x80 * ones;

    static constexpr std::uint64_t repeated(int byte) { return static_cast<unsigned char>(byte) * ones; }
    // Of a byte that is not zero, the sum or the byte itself has the highest bit; no sum reaches the next
    // byte.
    static Marks zero(std::uint64_t word) {
        return Marks(~(((word & ~highest) + ~highest) | word) & highest);
    }

    std::uint64_t word_ = 0;
};

#ifdef __SSE2__

// Sixteen bytes in a register. A mark is a byte of ones.
class Sse2Block {
  public:
    static constexpr std::size_t width = 16;

    class Marks {
      public:
        explicit Marks(__m128i marks) : marks_(marks) {}
        Marks operator&(Marks other) const { return Marks(_mm_and_si128(marks_, other.marks_)); }
        Marks operator|(Marks other) const { return Marks(_mm_or_si128(marks_, other.marks_)); }
        bool any() const { return bits() != 0; }
        std::uint64_t bits() const { return static_cast<unsigned>(_mm_movemask_epi8(marks_)); }

      private:
        __m128i marks_;
    };

    explicit Sse2Block(const char* at) : bytes_(_mm_loadu_si128(reinterpret_cast<const __m128i*>(at))) {}

    Marks equal(char byte) const { return Marks(_mm_cmpeq_epi8(bytes_, _mm_set1_epi8(byte))); }
    // `lower` has bit 0x20 set; so has every byte before it is compared.
    Marks equalInAnyCase(char lower) const {
        return Marks(_mm_cmpeq_epi8(_mm_or_si128(bytes_, _mm_set1_epi8(0x20)), _mm_set1_epi8(lower)));
    }
    Marks digits() const {
        const __m128i from0 = _mm_sub_epi8(bytes_, _mm_set1_epi8('0')); // no other byte is below 10 then
        return Marks(_mm_cmpeq_epi8(_mm_min_epu8(from0, _mm_set1_epi8(9)), from0));
    }

  private:
    __m128i bytes_;
};

using Block = Sse2Block;

#else

using Block = WordBlock;

#endif

} // namespace veltoprotocol::inspection
