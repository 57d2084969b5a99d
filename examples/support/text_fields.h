// The text fields of the library's records: arrays that end at a NUL or at their full width.
#ifndef EXAMPLES_TEXT_FIELDS_H
#define EXAMPLES_TEXT_FIELDS_H

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace example {

// Copies UTF-8 text into a field of an all-zero record. What does not fit is cut off at a whole character:
// half a character can make the message unreadable for the receiving parser.
template <std::size_t Width>
void fill(char (&field)[Width], std::string_view text) {
    std::size_t length = std::min(text.size(), Width);
    const auto continues = [&](std::size_t at) {
        return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
    };
    while (length > 0 && length < text.size() && continues(length)) --length;
    std::copy_n(text.data(), length, field);
}

// A field's text. It may fill the field to the last byte, without a NUL.
template <std::size_t Width>
std::string text(const char (&field)[Width]) {
    return {field, std::find(field, field + Width, '\0')};
}

} // namespace example

#endif
