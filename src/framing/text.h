// Text by pointer and length, as it goes on the wire; a null pointer is text that is absent.
#pragma once

#include <cstddef>
#include <cstring>

namespace veltoprotocol {

struct Text {
    const char* data = nullptr;
    std::size_t size = 0;

    constexpr Text() = default;
    constexpr Text(const char* start, std::size_t length) : data(start), size(length) {}
    Text(const char* text) : data(text), size(text ? std::strlen(text) : 0) {}

    constexpr bool absent() const { return data == nullptr; }
};

// Whether a text would end a line of an HTTP head.
inline bool breaksLine(Text text) {
    return text.size > 0 &&
           (std::memchr(text.data, '\r', text.size) || std::memchr(text.data, '\n', text.size));
}

} // namespace veltoprotocol
