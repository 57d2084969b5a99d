// Properties that have to hold. One that does not ends the program, which the fuzzer and the replay both take
// for a finding.
#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

// Bytes for a reader, on one line.
inline std::string readable(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned>(static_cast<unsigned char>(c));
        char escaped[5];
        std::snprintf(escaped, sizeof escaped, "\\x%02X", byte);
        text += c >= ' ' && c <= '~' && c != '\\' ? std::string(1, c) : escaped;
    }
    return text;
}

inline void require(bool holds, std::string_view what, std::string_view details = {}) {
    if (holds) return;
    std::fprintf(stderr, "\nBROKEN: %s\n%s\n", std::string(what).c_str(), std::string(details).c_str());
    std::abort();
}

// Shows the place where the two begin to differ, and some of what stands before it.
inline void requireSame(std::string_view what, std::string_view got, std::string_view want) {
    if (got == want) return;
    std::size_t at = 0;
    while (at < std::min(got.size(), want.size()) && got[at] == want[at]) ++at;
    const std::size_t from = at > 60 ? at - 60 : 0;
    const auto shown = [&](std::string_view text) {
        return std::to_string(text.size()) + " bytes, ..." + readable(text.substr(from, 160));
    };
    require(false, what,
            "first difference at " + std::to_string(at) + "\n got: " + shown(got) + "\nwant: " + shown(want));
}

inline void requireSame(std::string_view what, long long got, long long want) {
    if (got != want) require(false, what, "got " + std::to_string(got) + ", want " + std::to_string(want));
}
