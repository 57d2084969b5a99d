// Text a block at a time: sixteen bytes with SSE2, eight in a 64-bit word elsewhere. Which of them is used is
// decided when the library is compiled; both are there, so that tests can compare them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace veltoprotocol {

// Eight bytes. Places are told by the highest bit of each byte; above the first one there may be false ones.
class WordBlock {
  public:
    using Places = std::uint64_t;
    static constexpr std::size_t size = 8;

    static WordBlock load(const char* from) {
        WordBlock block;
        std::memcpy(&block.bytes_, from, size);
        return block;
    }
    // With the first byte in the lowest bits.
    static WordBlock of(std::uint64_t bytes) {
        WordBlock block;
        block.bytes_ = bytes;
        block.bytes_ = block.ordered();
        return block;
    }
    void store(char* to) const { std::memcpy(to, &bytes_, size); }

    Places nuls() const { return zeros(ordered()); }
    // A NUL, and all that cannot stand in XML as it is.
    Places stops() const {
        const std::uint64_t eight = ordered();
        return below32(eight) | zeros(eight ^ every('&')) | zeros(eight ^ every('<')) |
               zeros(eight ^ every('>')) | zeros(eight ^ every('"')) | zeros(eight ^ every('\''));
    }
    Places lineEnds() const { return zeros(ordered() ^ every('\r')) | zeros(ordered() ^ every('\n')); }

    // The first of the places, of which there is one.
    static std::size_t first(Places places) { return static_cast<std::size_t>(__builtin_ctzll(places)) / 8; }

  private:
    static constexpr std::uint64_t every(unsigned char value) { return 0x0101010101010101u * value; }
    static constexpr std::uint64_t zeros(std::uint64_t eight) {
        return (eight - every(1)) & ~eight & every(0x80);
    }
    static constexpr std::uint64_t below32(std::uint64_t eight) {
        return (eight - every(32)) & ~eight & every(0x80);
    }
    // The first byte in the lowest bits.
    std::uint64_t ordered() const {
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
        return __builtin_bswap64(bytes_);
#else
        return bytes_;
#endif
    }

    std::uint64_t bytes_;
};

#ifdef __SSE2__

// Sixteen bytes. Places are told by a bit for each byte.
class SseBlock {
  public:
    using Places = unsigned int;
    static constexpr std::size_t size = 16;

    static SseBlock load(const char* from) {
        return SseBlock(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)));
    }
    static SseBlock of(std::uint64_t front, std::uint64_t back) {
        return SseBlock(_mm_set_epi64x(static_cast<long long>(back), static_cast<long long>(front)));
    }
    void store(char* to) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), bytes_); }

    Places nuls() const { return places(_mm_cmpeq_epi8(bytes_, _mm_setzero_si128())); }
    // A NUL, and all that cannot stand in XML as it is.
    Places stops() const {
        const __m128i below32 = _mm_cmpeq_epi8(_mm_min_epu8(bytes_, every(31)), bytes_);
        const __m128i ampersandOrApostrophe = _mm_cmpeq_epi8(_mm_or_si128(bytes_, every(1)), every('\''));
        const __m128i angle = _mm_cmpeq_epi8(_mm_or_si128(bytes_, every(2)), every('>'));
        const __m128i quote = _mm_cmpeq_epi8(bytes_, every('"'));
        return places(_mm_or_si128(_mm_or_si128(below32, ampersandOrApostrophe), _mm_or_si128(angle, quote)));
    }
    Places lineEnds() const {
        return places(_mm_or_si128(_mm_cmpeq_epi8(bytes_, every('\r')), _mm_cmpeq_epi8(bytes_, every('\n'))));
    }

    static std::size_t first(Places places) { return static_cast<std::size_t>(__builtin_ctz(places)); }

  private:
    explicit SseBlock(__m128i bytes) : bytes_(bytes) {}
    static __m128i every(char value) { return _mm_set1_epi8(value); }
    static Places places(__m128i found) { return static_cast<Places>(_mm_movemask_epi8(found)); }

    __m128i bytes_;
};

#endif

#if defined(__SSE2__) && !defined(VELTO_PORTABLE_SCAN)
using Block = SseBlock;
#else
using Block = WordBlock;
#endif

} // namespace veltoprotocol
