// What the HTTP inspectors look for, as block_search.h wants it.
#pragma once

#include "framing/byte_block.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace veltoprotocol::inspection {

// A byte of a thing: where in the thing it stands, and whether its case counts.
enum class Case { counts, isIgnored };
struct Probe {
    std::size_t place;
    char byte;
    Case letterCase = Case::counts;
};

// The marks of a thing that has probes: those of the first `count` of them.
template <class Thing>
struct Probed {
    template <class B, std::size_t count>
    static auto marks(const char* at) {
        constexpr Probe last = Thing::probes[count - 1];
        const B block = B::load(at + last.place);
        const auto here = [&] {
            if constexpr (last.letterCase == Case::counts)
                return block.equal(last.byte);
            else
                return block.equalInAnyCase(last.byte);
        }();
        if constexpr (count == 1)
            return here;
        else
            return marks<B, count - 1>(at) & here;
    }
};

struct BlankLine : Probed<BlankLine> {
    static constexpr std::size_t size = 4;
    static constexpr Probe probes[] = {{0, '\r'}, {3, '\n'}, {2, '\r'}, {1, '\n'}};

    static bool standsAt(const char* at) { return std::memcmp(at, "\r\n\r\n", size) == 0; }
};

// One byte out of several; every mark is right.
struct LineEnd {
    static constexpr std::size_t size = 1;

    template <class B, std::size_t>
    static auto marks(const char* at) {
        return B::load(at).lineEnds();
    }
    static bool standsAt(const char* at) { return *at == '\r' || *at == '\n'; }
};

struct DigitOrLineEnd {
    static constexpr std::size_t size = 1;

    template <class B, std::size_t count>
    static auto marks(const char* at) {
        return B::load(at).digits() | LineEnd::marks<B, count>(at);
    }
    static bool standsAt(const char* at) { return (*at >= '0' && *at <= '9') || LineEnd::standsAt(at); }
};

// Whether the bytes of a word are those of `lower`, apart from the bits in `ignored`. A blank, 0x20, is the
// bit that tells a letter's cases apart.
template <class Word>
bool sameWord(const char* at, const char* lower, const char* ignored) {
    Word bytes, want, bits;
    std::memcpy(&bytes, at, sizeof bytes);
    std::memcpy(&want, lower, sizeof want);
    std::memcpy(&bits, ignored, sizeof bits);
    return (bytes | bits) == (want | bits);
}

// A header name of 8 to 16 bytes: `lower`, and in `ignored` the bits of each byte that do not count.
template <class Spelling>
struct Name : Spelling, Probed<Spelling> {
    static constexpr std::size_t size = Spelling::lower.size();
    static_assert(size >= 8 && size <= 16 && size == Spelling::ignored.size());

    // Two words, of which the second ends with the name.
    static bool standsAt(const char* at) { return same(at, 0) && same(at, size - 8); }

  private:
    static bool same(const char* at, std::size_t from) {
        return sameWord<std::uint64_t>(at + from, Spelling::lower.data() + from,
                                       Spelling::ignored.data() + from);
    }
};

// kept: in these two the first "e" is lower-case in whatever case the rest is, so a name in capitals is not
// recognised. The hyphen is exact because CR differs from it only by the bit that makes a letter lower-case.
struct ContentLengthSpelling {
    static constexpr std::string_view lower{"content-length"};
    static constexpr std::string_view ignored{"    \0  \0      ", 14};
    static constexpr Probe probes[] = {
        {7, '-'}, {8, 'l', Case::isIgnored}, {0, 'c', Case::isIgnored}, {13, 'h', Case::isIgnored}};
};

struct ContentTypeSpelling {
    static constexpr std::string_view lower{"content-type"};
    static constexpr std::string_view ignored{"    \0  \0    ", 12};
    static constexpr Probe probes[] = {
        {7, '-'}, {8, 't', Case::isIgnored}, {0, 'c', Case::isIgnored}, {9, 'y', Case::isIgnored}};
};

struct AuthorizationSpelling {
    static constexpr std::string_view lower{"authorization"};
    static constexpr std::string_view ignored{"             "};
    static constexpr Probe probes[] = {{7, 'z', Case::isIgnored},
                                       {1, 'u', Case::isIgnored},
                                       {3, 'h', Case::isIgnored},
                                       {12, 'n', Case::isIgnored}};
};

using ContentLengthName = Name<ContentLengthSpelling>;
using ContentTypeName = Name<ContentTypeSpelling>;
using AuthorizationName = Name<AuthorizationSpelling>;

} // namespace veltoprotocol::inspection
