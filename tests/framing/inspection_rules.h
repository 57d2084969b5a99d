// The rules of HTTP inspection and Base64, spelled out one byte at a time and without anything clever: what
// the library is compared with. Slow on purpose; shares no code with the library.
#pragma once

#include <climits>
#include <cstdlib>
#include <string>

namespace rules {

inline int size(const char* buf, int len) { return buf && len > 0 ? len : 0; }

// The byte with bit 0x20 set equals the lower-case letter.
inline bool letter(char byte, char lower) { return (static_cast<unsigned char>(byte) | 0x20) == lower; }

inline int checkHttp(const char* buf, int len) {
    if (!buf || len < 4) return -2;
    if (buf[0] == 'G' || buf[0] == 'g') return letter(buf[1], 'e') && letter(buf[2], 't') ? 0 : -1;
    if (buf[0] == 'P' || buf[0] == 'p')
        return letter(buf[1], 'o') && letter(buf[2], 's') && letter(buf[3], 't') ? 0 : -1;
    if (buf[0] == 'H' || buf[0] == 'h')
        return letter(buf[1], 't') && letter(buf[2], 't') && letter(buf[3], 'p') ? 0 : -1;
    return -1;
}

inline int httpLength(const char* buf, int len) {
    len = size(buf, len);
    if (len < 4) return -1;
    for (int p = 0; p <= len - 4; ++p)
        if (buf[p] == '\r' && buf[p + 1] == '\n' && buf[p + 2] == '\r' && buf[p + 3] == '\n') return p + 4;
    return -1;
}

inline bool contentLengthAt(const char* at) {
    return letter(at[0], 'c') && letter(at[1], 'o') && letter(at[2], 'n') && letter(at[3], 't') &&
           at[4] == 'e' && letter(at[5], 'n') && letter(at[6], 't') && at[7] == '-' && letter(at[8], 'l') &&
           letter(at[9], 'e') && letter(at[10], 'n') && letter(at[11], 'g') && letter(at[12], 't') &&
           letter(at[13], 'h');
}

inline bool contentTypeAt(const char* at) {
    return letter(at[0], 'c') && letter(at[1], 'o') && letter(at[2], 'n') && letter(at[3], 't') &&
           at[4] == 'e' && letter(at[5], 'n') && letter(at[6], 't') && at[7] == '-' && letter(at[8], 't') &&
           letter(at[9], 'y') && letter(at[10], 'p') && letter(at[11], 'e');
}

inline bool authorizationAt(const char* at) {
    return letter(at[0], 'a') && letter(at[1], 'u') && letter(at[2], 't') && letter(at[3], 'h') &&
           letter(at[4], 'o') && letter(at[5], 'r') && letter(at[6], 'i') && letter(at[7], 'z') &&
           letter(at[8], 'a') && letter(at[9], 't') && letter(at[10], 'i') && letter(at[11], 'o') &&
           letter(at[12], 'n');
}

inline int contentLen(const char* buf, int len) {
    len = size(buf, len);
    int s = 0;
    if (len >= 14) {
        s = len - 13;
        for (int i = 0; i <= len - 14; ++i)
            if (contentLengthAt(buf + i)) {
                s = i;
                break;
            }
    }
    std::string digits;
    for (int i = s; i < len; ++i) {
        if (buf[i] == '\r' || buf[i] == '\n') break;
        if (buf[i] >= '0' && buf[i] <= '9' && digits.size() < 16) digits += buf[i];
    }
    if (digits.empty()) return -1;
    const long long value = std::atoll(digits.c_str());
    return value > INT_MAX ? -1 : static_cast<int>(value);
}

inline int packetLength(const char* buf, int len) {
    const int head = httpLength(buf, len);
    if (head < 1) return -1;
    const int body = contentLen(buf, len);
    if (body < 1) return -1;
    const long long total = static_cast<long long>(head) + body;
    return total <= len ? static_cast<int>(total) : -1;
}

// Whether there is a text between two spaces; where there is none, a line is printed.
inline bool firstValue(const char* buf, int len, std::string& value) {
    len = size(buf, len);
    value.clear();
    int s = 0;
    while (s < len && buf[s] != ' ') ++s;
    if (s == len) return false;
    int e = s + 1;
    while (e < len && buf[e] != ' ') ++e;
    if (e == len) return false;
    for (int i = s + 1; i < e; ++i) value += buf[i];
    return true;
}

inline int httpStatus(const char* buf, int len) {
    std::string value;
    firstValue(buf, len, value);
    return static_cast<int>(std::strtol(value.c_str(), nullptr, 10));
}

// `name` is the length of a header's name, `at` tells whether it stands at a place.
inline std::string headerValue(const char* buf, int len, int name, bool (*at)(const char*)) {
    const int head = httpLength(buf, len);
    if (head < 1) return "";
    int s = 0;
    if (head >= name) {
        s = head - name + 1;
        for (int i = 0; i <= head - name; ++i)
            if (at(buf + i)) {
                s = i;
                break;
            }
    }
    const int v = s > 0 ? s + name + 2 : 0;
    std::string value;
    for (int i = v; i < head && buf[i] != '\r' && buf[i] != '\n'; ++i) value += buf[i];
    return value;
}

inline std::string contentType(const char* buf, int len) { return headerValue(buf, len, 12, contentTypeAt); }
inline std::string authorization(const char* buf, int len) {
    return headerValue(buf, len, 13, authorizationAt);
}

// The value of a Base64 character, -1 outside the alphabet.
inline int base64Value(char c) {
    if (c >= 'A' && c <= 'Z') return c - 'A';
    if (c >= 'a' && c <= 'z') return c - 'a' + 26;
    if (c >= '0' && c <= '9') return c - '0' + 52;
    if (c == '+') return 62;
    if (c == '/') return 63;
    if (c == '=') return 0;
    return -1;
}

// Whether anything is written; `decoded` is what stands before the NUL.
inline bool base64Decode(const char* in, int len, std::string& decoded) {
    decoded.clear();
    if (!in || len < 4) return false;
    for (int i = 0; i < len; ++i)
        if (base64Value(in[i]) < 0) return false;
    for (int i = 0; i + 4 <= len; i += 4) {
        const int a = base64Value(in[i]), b = base64Value(in[i + 1]);
        const int c = base64Value(in[i + 2]), d = base64Value(in[i + 3]);
        decoded += static_cast<char>(a * 4 + b / 16);
        if (in[i + 2] == '=') continue;
        decoded += static_cast<char>(b % 16 * 16 + c / 4);
        if (in[i + 3] == '=') continue;
        decoded += static_cast<char>(c % 4 * 64 + d);
    }
    return true;
}

// The characters without the NUL behind them.
inline std::string base64Encode(const std::string& in) {
    const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bits;
    for (const char c : in)
        for (int bit = 7; bit >= 0; --bit) bits += (static_cast<unsigned char>(c) >> bit) % 2 ? '1' : '0';
    while (bits.size() % 6 != 0) bits += '0';
    std::string text;
    for (std::size_t i = 0; i < bits.size(); i += 6)
        text += alphabet[std::strtoul(bits.substr(i, 6).c_str(), nullptr, 2)];
    while (text.size() % 4 != 0) text += '=';
    return text;
}

inline std::string authorizationDecode(const char* buf, int len) {
    len = size(buf, len);
    int p = 0;
    while (p < len && buf[p] != ' ') ++p;
    const int start = p >= 1 ? p + 1 : 0;
    int end = start;
    while (end < len && buf[end] != '\r' && buf[end] != '\n') ++end;
    if (start >= end) return "";
    std::string decoded;
    base64Decode(buf + start, end - start, decoded);
    if (decoded.size() > 1023) return "";
    return decoded.c_str();
}

} // namespace rules
