// The inspectors allocate nothing, those that return text apart: a receiver asks them for every few bytes.
#include "framing/inspecting.h"
#include "support/counting_new.h"

#include <gtest/gtest.h>

namespace {

using namespace veltoprotocol;

std::size_t allocationsOf(int (*inspector)(const char*, int), const std::string& bytes) {
    const GuardedPage page(bytes);
    const std::size_t before = counting::allocations;
    inspector(page.data(), page.length());
    return counting::allocations - before;
}

TEST(HttpAllocation, IsCounted) {
    const GuardedPage page("GET /a-path-that-is-longer-than-a-short-string HTTP/1.1");
    const std::size_t before = counting::allocations;
    const std::string uri = GetUri(page.data(), page.length());
    EXPECT_GT(counting::allocations, before);
}

TEST(HttpAllocation, IsNotNeededForANumber) {
    const std::string far(10000, 'x');
    Captured captured;
    for (const std::string& bytes :
         {login, far, login + far, "HTTP/1.1 00000000000000000000000000000000401 Unauthorized\r\n\r\n" + far,
          "Content-Length" + far + "17\r\n", "GET /" + far + " HTTP/1.1\r\n" + far, std::string()})
        for (int (*inspector)(const char*, int) :
             {CheckHttp, GetHttpLength, GetContentLen, GetHttpPacketLength, GetHttpStatus})
            EXPECT_EQ(allocationsOf(inspector, bytes), 0U) << bytes.substr(0, 80);
}

} // namespace
