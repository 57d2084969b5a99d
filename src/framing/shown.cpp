#include "framing/shown.h"

#include "framing/wire_names.h"

#include <array>

namespace veltoprotocol {
namespace {

constexpr auto pairs = [] {
    std::array<char, 200> digits = {};
    for (std::size_t number = 0; number < 100; ++number) {
        digits[2 * number] = static_cast<char>('0' + number / 10);
        digits[2 * number + 1] = static_cast<char>('0' + number % 10);
    }
    return digits;
}();

// Two digits of a number below 100.
VELTO_INLINE char* pair(char* to, unsigned int number) {
    std::memcpy(to, &pairs[2 * number], 2);
    return to + 2;
}

VELTO_INLINE char* upToFour(char* to, unsigned int value) {
    if (value < 10) {
        *to = static_cast<char>('0' + value);
        return to + 1;
    }
    if (value < 100) return pair(to, value);
    if (value < 1000) {
        *to = static_cast<char>('0' + value / 100);
        return pair(to + 1, value % 100);
    }
    return pair(pair(to, value / 100), value % 100);
}

} // namespace

std::size_t decimalLength(std::uint32_t value) {
    const auto atLeast = [value](std::uint32_t least) -> std::size_t { return value >= least; };
    if (value < 10000) return 1 + atLeast(10) + atLeast(100) + atLeast(1000);
    return 5 + atLeast(100000) + atLeast(1000000) + atLeast(10000000) + atLeast(100000000) +
           atLeast(1000000000);
}

char* writeDecimal(char* to, int value) {
    if (value >= 0) return writeDecimal(to, static_cast<unsigned int>(value));
    *to = '-';
    return Number<unsigned int>{magnitude(value)}.write(to + 1);
}

// Most numbers have few digits, so the shortest are told first.
char* writeDecimal(char* to, unsigned int value) {
    if (value < 10000) return upToFour(to, value);
    const unsigned int front = value / 10000, back = value % 10000;
    to = front < 10000 ? upToFour(to, front)
                       : pair(pair(upToFour(to, front / 10000), front / 100 % 100), front % 100);
    return pair(pair(to, back / 100), back % 100);
}

} // namespace veltoprotocol
