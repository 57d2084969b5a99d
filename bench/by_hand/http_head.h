// The head of an answer and its body, put together as a user would.
#pragma once

#include <cstdio>
#include <cstring>

namespace bench::by_hand {

// The length, or -1 if `out` is too small.
inline int withHead(const char* body, std::size_t length, char* out, int size) {
    char head[256];
    const int headLength = std::snprintf(head, sizeof head,
                                         "HTTP/1.1 200 OK\r\n"
                                         "Server: vtengine\r\n"
                                         "Connection: keep-alive\r\n"
                                         "Content-Type: text/xml; charset=utf-8\r\n"
                                         "Content-Length: %zu\r\n\r\n",
                                         length);
    const std::size_t start = static_cast<std::size_t>(headLength);
    if (start + length > static_cast<std::size_t>(size)) return -1;
    std::memcpy(out, head, start);
    std::memcpy(out + start, body, length);
    return static_cast<int>(start + length);
}

} // namespace bench::by_hand
