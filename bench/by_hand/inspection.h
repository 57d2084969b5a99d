// The rules by which a receiver finds the length of a message, one byte at a time: what the library's
// inspectors are compared with.
#pragma once

#include <climits>
#include <cstdlib>

namespace bench::by_hand {

inline bool isLetter(char byte, char lower) { return (static_cast<unsigned char>(byte) | 0x20) == lower; }

inline int checkHttp(const char* buf, int len) {
    if (!buf || len < 4) return -2;
    if (isLetter(buf[0], 'g')) return isLetter(buf[1], 'e') && isLetter(buf[2], 't') ? 0 : -1;
    const char* const rest = isLetter(buf[0], 'p') ? "ost" : isLetter(buf[0], 'h') ? "ttp" : nullptr;
    if (!rest) return -1;
    for (int i = 0; i < 3; ++i)
        if (!isLetter(buf[i + 1], rest[i])) return -1;
    return 0;
}

inline int headLength(const char* buf, int len) {
    for (int p = 0; p <= len - 4; ++p)
        if (buf[p] == '\r' && buf[p + 1] == '\n' && buf[p + 2] == '\r' && buf[p + 3] == '\n') return p + 4;
    return -1;
}

// kept: the first "e" counts in lower case only
inline bool isContentLength(const char* at) {
    static const char name[] = "content-length";
    for (int i = 0; i < 14; ++i)
        if (i == 4 || i == 7 ? at[i] != name[i] : !isLetter(at[i], name[i])) return false;
    return true;
}

// kept: without the header the digits of the last 13 bytes count; other bytes of its line are skipped
inline int contentLength(const char* buf, int len) {
    int start = 0;
    if (len >= 14) {
        while (start <= len - 14 && !isContentLength(buf + start)) ++start;
    }
    char digits[17];
    int count = 0;
    for (int i = start; i < len && buf[i] != '\r' && buf[i] != '\n'; ++i)
        if (buf[i] >= '0' && buf[i] <= '9' && count < 16) digits[count++] = buf[i];
    digits[count] = '\0';
    const long long value = std::atoll(digits);
    return count == 0 || value > INT_MAX ? -1 : static_cast<int>(value);
}

inline int packetLength(const char* buf, int len) {
    const int head = headLength(buf, len);
    if (head < 1) return -1;
    const int body = contentLength(buf, len);
    if (body < 1) return -1;
    const long long total = static_cast<long long>(head) + body;
    return total <= len ? static_cast<int>(total) : -1;
}

} // namespace bench::by_hand
