// How a value is shown on the wire: the text of a field, or a number or flag as decimal text.
#pragma once

#include "framing/text.h"

#include <charconv>
#include <string>
#include <type_traits>

namespace veltoprotocol {

// Decimal text that no locale changes.
class NumberText {
  public:
    template <class Integer>
    explicit NumberText(Integer value) {
        size_ =
            static_cast<std::size_t>(std::to_chars(digits_, digits_ + sizeof digits_, value).ptr - digits_);
    }
    Text text() const { return {digits_, size_}; }

  private:
    char digits_[20]; // the longest 64-bit number
    std::size_t size_;
};

template <class>
constexpr bool hasNoWireForm = false;

// Arrays are texts that end at their NUL or at their width; a pointer is a NUL-terminated text, absent when
// null. One function decides, since an overload on `const char*` would win over the array and lose the width.
template <class Value>
auto shown(const Value& value) {
    using Plain = std::remove_cv_t<Value>;
    if constexpr (std::is_array_v<Plain>) {
        const void* const nul = std::memchr(value, 0, sizeof(Plain));
        return Text{value,
                    nul ? static_cast<std::size_t>(static_cast<const char*>(nul) - value) : sizeof(Plain)};
    } else if constexpr (std::is_same_v<Plain, Text>) {
        return value;
    } else if constexpr (std::is_same_v<Plain, const char*> || std::is_same_v<Plain, char*>) {
        return Text(value);
    } else if constexpr (std::is_same_v<Plain, bool>) {
        unsigned char byte; // read as a byte: a record filled by a careless caller may hold any
        std::memcpy(&byte, &value, 1);
        return byte != 0 ? Text{"1", 1} : Text{"0", 1};
    } else if constexpr (std::is_enum_v<Plain>) {
        return NumberText(static_cast<std::underlying_type_t<Plain>>(value));
    } else {
        static_assert(std::is_same_v<Plain, int> || std::is_same_v<Plain, unsigned int> ||
                          std::is_same_v<Plain, unsigned short> || hasNoWireForm<Plain>,
                      "name a wire form for this type");
        return NumberText(value);
    }
}

} // namespace veltoprotocol
