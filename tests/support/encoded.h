// Runs an encoder so that each use also proves the caller-buffer rule.
#pragma once

#include "support/captured.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

struct Encoded {
    int returned;        // into a roomy buffer
    std::string bytes;   // what was written, empty if refused
    std::string printed; // by that one call
};

// `encode` is called with (char* out, int size): with a roomy buffer, with one of exactly the length, and
// with one that is a byte too small.
template <class Encode>
Encoded encoded(const Encode& encode, int roomy = 1 << 20) {
    constexpr char untouched = '\x5A';
    const auto isUntouched = [](char c) { return c == untouched; };
    std::vector<char> out(static_cast<std::size_t>(roomy), untouched);
    Captured stdoutOfCall;
    Encoded got{encode(out.data(), roomy), {}, stdoutOfCall.text()};
    if (got.returned < 0) {
        EXPECT_EQ(got.returned, -1);
        EXPECT_TRUE(std::all_of(out.begin(), out.end(), isUntouched)) << "refused, and yet written to";
        return got;
    }
    EXPECT_LE(got.returned, roomy);
    got.bytes.assign(out.data(), static_cast<std::size_t>(got.returned));
    EXPECT_TRUE(std::all_of(out.begin() + got.returned, out.end(), isUntouched))
        << "written behind the message";

    Captured quiet;
    std::vector<char> exact(static_cast<std::size_t>(got.returned), untouched);
    EXPECT_EQ(encode(exact.data(), got.returned), got.returned);
    EXPECT_EQ(std::string(exact.begin(), exact.end()), got.bytes);

    std::vector<char> small(static_cast<std::size_t>(got.returned), untouched);
    EXPECT_EQ(encode(small.data(), got.returned - 1), -1);
    EXPECT_TRUE(std::all_of(small.begin(), small.end(), isUntouched)) << "too small, and yet written to";

    EXPECT_EQ(encode(nullptr, roomy), -1);
    EXPECT_EQ(encode(small.data(), 0), -1);
    EXPECT_EQ(encode(small.data(), -1), -1);
    EXPECT_TRUE(std::all_of(small.begin(), small.end(), isUntouched));
    return got;
}

// What stands behind the blank line.
inline std::string bodyOf(const std::string& message) { return message.substr(message.find("\r\n\r\n") + 4); }
