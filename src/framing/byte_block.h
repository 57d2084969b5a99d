// Sixteen bytes of text, or eight where there is no SSE2, looked at together.
//
// A block is loaded from anywhere and reads exactly its `size` bytes. A question to it is answered by Marks,
// one for each byte; marks of several questions are joined by & and |, bits() tells where they stand, bit k
// for byte k, and first() where the first of them does. Both kinds of block are compiled everywhere, so that
// the tests compare them; `Block` is the one that the library uses. VELTO_PORTABLE_SCAN makes it the word.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

// For a function whose numbers wrap around because that is meant.
#ifdef __clang__
#define VELTO_WRAPS __attribute__((no_sanitize("unsigned-integer-overflow")))
#else
#define VELTO_WRAPS
#endif

namespace veltoprotocol {

// Number of the lowest bit set; there is one.
inline std::size_t lowestBit(std::uint64_t bits) {
#ifdef __GNUC__
    return static_cast<unsigned>(__builtin_ctzll(bits));
#else
    std::size_t number = 0;
    for (; (bits & 1) == 0; bits >>= 1) ++number;
    return number;
#endif
}

// The bytes of a word of the memory, the first one in the lowest bits whatever order the machine has.
template <class Word>
std::uint64_t wordAt(const char* from) {
    Word word;
    std::memcpy(&word, from, sizeof word);
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    return __builtin_bswap64(word) >> (64 - 8 * sizeof word);
#else
    return word;
#endif
}

// Eight bytes in an integer, the first one in its lowest bits. A mark is the highest bit of its byte.
class WordBlock {
  public:
    static constexpr std::size_t size = 8;

    class Marks {
      public:
        explicit Marks(std::uint64_t marks) : marks_(marks) {}
        Marks operator&(Marks other) const { return Marks(marks_ & other.marks_); }
        Marks operator|(Marks other) const { return Marks(marks_ | other.marks_); }
        bool any() const { return marks_ != 0; }
        // The product moves the mark of byte k to bit 56 + k; no two of its terms meet below.
        VELTO_WRAPS std::uint64_t bits() const { return marks_ * 0x0002040810204081U >> 56; }
        std::size_t first() const { return lowestBit(marks_) / 8; } // there is one

      private:
        std::uint64_t marks_;
    };

    static WordBlock of(std::uint64_t bytes) {
        WordBlock block;
        block.word_ = bytes;
        return block;
    }
    static WordBlock load(const char* from) { return of(wordAt<std::uint64_t>(from)); }
    void store(char* to) const {
        char bytes[size];
        std::memcpy(bytes, &word_, size);
        const std::uint64_t ordered = wordAt<std::uint64_t>(bytes); // back into the machine's order
        std::memcpy(to, &ordered, size);
    }

    Marks equal(char byte) const { return zero(word_ ^ repeated(byte)); }
    // `lower` has bit 0x20 set; so has every byte before it is compared.
    Marks equalInAnyCase(char lower) const { return equalWith(0x20, lower); }
    Marks digits() const {
        const std::uint64_t low = word_ & ~highest;
        const std::uint64_t from0 = low + repeated(0x80 - '0'), behind9 = low + repeated(0x80 - '9' - 1);
        return Marks(from0 & ~behind9 & ~word_ & highest);
    }
    Marks above127() const { return Marks(word_ & highest); }
    Marks below32() const { return Marks(~(((word_ & ~highest) + repeated(0x80 - 32)) | word_) & highest); }
    Marks nuls() const { return zero(word_); }
    Marks lineEnds() const { return equal('\r') | equal('\n'); }
    // A NUL, and all that cannot stand in XML as it is.
    Marks stops() const {
        return below32() | equalWith('&' ^ '\'', '\'') | equalWith('<' ^ '>', '>') | equal('"');
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
    // The bytes that are `byte` once they have these bits.
    Marks equalWith(int bits, char byte) const { return zero((word_ | repeated(bits)) ^ repeated(byte)); }

    std::uint64_t word_ = 0;
};

#ifdef __SSE2__

// Sixteen bytes in a register. A mark is a byte of ones, or at least its highest bit.
class Sse2Block {
  public:
    static constexpr std::size_t size = 16;

    class Marks {
      public:
        explicit Marks(__m128i marks) : marks_(marks) {}
        Marks operator&(Marks other) const { return Marks(_mm_and_si128(marks_, other.marks_)); }
        Marks operator|(Marks other) const { return Marks(_mm_or_si128(marks_, other.marks_)); }
        bool any() const { return bits() != 0; }
        std::uint64_t bits() const { return static_cast<unsigned>(_mm_movemask_epi8(marks_)); }
        std::size_t first() const { return lowestBit(bits()); } // there is one

      private:
        __m128i marks_;
    };

    // The first byte in the lowest bits of `front`.
    static Sse2Block of(std::uint64_t front, std::uint64_t back) {
        return Sse2Block(_mm_set_epi64x(static_cast<long long>(back), static_cast<long long>(front)));
    }
    static Sse2Block load(const char* from) {
        return Sse2Block(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)));
    }
    void store(char* to) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), bytes_); }

    Marks equal(char byte) const { return Marks(_mm_cmpeq_epi8(bytes_, _mm_set1_epi8(byte))); }
    // `lower` has bit 0x20 set; so has every byte before it is compared.
    Marks equalInAnyCase(char lower) const { return equalWith(0x20, lower); }
    Marks digits() const {
        return atMost(_mm_sub_epi8(bytes_, _mm_set1_epi8('0')), 9); // no other byte is below 10 then
    }
    Marks above127() const { return Marks(bytes_); }
    Marks below32() const { return atMost(bytes_, 31); }
    Marks nuls() const { return equal('\0'); }
    Marks lineEnds() const { return equal('\r') | equal('\n'); }
    // A NUL, and all that cannot stand in XML as it is.
    Marks stops() const {
        return below32() | equalWith('&' ^ '\'', '\'') | equalWith('<' ^ '>', '>') | equal('"');
    }

  private:
    explicit Sse2Block(__m128i bytes) : bytes_(bytes) {}
    static Marks atMost(__m128i bytes, char most) {
        return Marks(_mm_cmpeq_epi8(_mm_min_epu8(bytes, _mm_set1_epi8(most)), bytes));
    }
    // The bytes that are `byte` once they have these bits.
    Marks equalWith(char bits, char byte) const {
        return Marks(_mm_cmpeq_epi8(_mm_or_si128(bytes_, _mm_set1_epi8(bits)), _mm_set1_epi8(byte)));
    }

    __m128i bytes_;
};

#endif

#if defined(__SSE2__) && !defined(VELTO_PORTABLE_SCAN)
using Block = Sse2Block;
#else
using Block = WordBlock;
#endif

} // namespace veltoprotocol
