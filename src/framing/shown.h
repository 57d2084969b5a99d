// How a value is shown on the wire: the text of a field, or a number or flag as decimal text.
#pragma once

#include "framing/text.h"

#include <string>
#include <type_traits>

namespace veltoprotocol {

std::size_t decimalLength(std::uint32_t value);
// Write a number and return its end.
char* writeDecimal(char* to, int value);
char* writeDecimal(char* to, unsigned int value);

// Without the sign, which the number has; also of the least one, which has no positive counterpart.
constexpr std::uint32_t magnitude(int negative) { return ~static_cast<std::uint32_t>(negative) + 1; }

// A number to be shown as decimal text, which no locale changes. Most are of one digit.
template <class Integer>
struct Number {
    static_assert(sizeof(Integer) == 4, "the wire knows numbers of 32 bits");
    static constexpr std::size_t longest = 11; // sign and digits

    Integer value;

    bool isDigit() const { return static_cast<std::make_unsigned_t<Integer>>(value) < 10; }
    std::size_t length() const {
        if (isDigit()) return 1;
        if constexpr (std::is_signed_v<Integer>) {
            if (value < 0) return 1 + decimalLength(magnitude(value));
        }
        if (value < 100) return 2;
        if (value < 1000) return 3;
        if (value < 10000) return 4;
        return decimalLength(static_cast<std::uint32_t>(value));
    }
    char* write(char* to) const {
        if (!isDigit()) return writeDecimal(to, value);
        *to = static_cast<char>('0' + value);
        return to + 1;
    }
    static constexpr bool absent() { return false; }
};

template <class>
constexpr bool hasNoWireForm = false;

// Arrays are texts that end at their NUL or at their width; a pointer is a NUL-terminated text, absent when
// null. One function decides, since an overload on `const char*` would win over the array and lose the width.
template <class Value>
auto shown(const Value& value) {
    using Plain = std::remove_cv_t<Value>;
    if constexpr (std::is_array_v<Plain>) {
        return FieldText<sizeof(Plain)>{value};
    } else if constexpr (std::is_same_v<Plain, Text>) {
        return value;
    } else if constexpr (std::is_same_v<Plain, const char*> || std::is_same_v<Plain, char*>) {
        return Text(value);
    } else if constexpr (std::is_same_v<Plain, bool>) {
        unsigned char byte; // read as a byte: a record filled by a careless caller may hold any
        std::memcpy(&byte, &value, 1);
        return Number<unsigned int>{byte != 0 ? 1u : 0u};
    } else if constexpr (std::is_enum_v<Plain>) {
        return Number<std::underlying_type_t<Plain>>{static_cast<std::underlying_type_t<Plain>>(value)};
    } else if constexpr (std::is_same_v<Plain, unsigned short>) {
        return Number<unsigned int>{value};
    } else {
        static_assert(std::is_same_v<Plain, int> || std::is_same_v<Plain, unsigned int> ||
                          hasNoWireForm<Plain>,
                      "name a wire form for this type");
        return Number<Plain>{value};
    }
}

} // namespace veltoprotocol
