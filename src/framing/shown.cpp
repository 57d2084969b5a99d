#include "framing/shown.h"

#include <charconv>

namespace veltoprotocol {
namespace {

template <class Integer>
char* digits(char* to, Integer value) {
    return std::to_chars(to, to + Number<Integer>::longest, value).ptr;
}

} // namespace

std::size_t decimalLength(std::uint64_t value) {
    std::size_t length = 1;
    for (; value >= 10000; value /= 10000) length += 4;
    return length + (value >= 10) + (value >= 100) + (value >= 1000);
}

char* writeDecimal(char* to, int value) {
    if (value >= 0) return writeDecimal(to, static_cast<unsigned int>(value));
    return digits(to, value);
}

// Up to three digits are quicker than std::to_chars, which is made for any number.
char* writeDecimal(char* to, unsigned int value) {
    if (value >= 1000) return digits(to, value);
    const auto digit = [](unsigned int number) { return static_cast<char>('0' + number); };
    if (value >= 100) *to++ = digit(value / 100);
    *to++ = digit(value / 10 % 10);
    *to++ = digit(value % 10);
    return to;
}

} // namespace veltoprotocol
