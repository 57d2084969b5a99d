// Runs an encoder so that each use also proves the caller-buffer rule.
#pragma once

#include "support/captured.h"
#include "support/guarded_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
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

    // Each call is made before anything is asserted, since a failure's text would go where the lines go.
    const auto length = static_cast<std::size_t>(got.returned);
    GuardedPage exact(length), small(length - 1), none(length);
    std::memset(small.data(), untouched, small.size());
    std::memset(none.data(), untouched, none.size());
    Captured quiet;
    const int intoExact = encode(exact.data(), got.returned);
    const int intoSmall = encode(small.data(), got.returned - 1);
    const int intoNull = encode(nullptr, roomy);
    const int intoNothing = encode(none.data(), 0);
    const int intoLess = encode(none.data(), -1);
    quiet.text();

    EXPECT_EQ(intoExact, got.returned);
    EXPECT_EQ(std::string(exact.bytes()), got.bytes);
    EXPECT_EQ(intoSmall, -1);
    EXPECT_EQ(intoNull, -1);
    EXPECT_EQ(intoNothing, -1);
    EXPECT_EQ(intoLess, -1);
    for (const GuardedPage* page : {&small, &none})
        EXPECT_TRUE(std::all_of(page->data(), page->data() + page->size(), isUntouched))
            << "refused, and yet written to";
    return got;
}

// What stands behind the blank line.
inline std::string bodyOf(const std::string& message) { return message.substr(message.find("\r\n\r\n") + 4); }
