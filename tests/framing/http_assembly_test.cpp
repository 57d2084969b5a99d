// The two wrappers: heads byte for byte, and the caller-buffer rule.
#include "framing/http_assembly.h"

#include "support/decimal_comma.h"
#include "support/encoded.h"
#include "support/guarded_page.h"
#include "veltoprotocol/framing.h"

#include <climits>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace veltoprotocol;

Encoded request(const char* path, const char* host, const char* connection, const std::string& body) {
    return encoded([&](char* out, int size) {
        return HttpReqEncode(path, host, connection, body.data(), static_cast<int>(body.size()), out, size);
    });
}

Encoded response(const char* connection, const std::string& body) {
    return encoded([&](char* out, int size) {
        return HttpRespEncode(connection, body.data(), static_cast<int>(body.size()), out, size);
    });
}

const char* const lineEnds[] = {"\r",   "\n",           "\r\n",     "a\rb",      "a\nb",
                                "\nab", "keep-alive\n", "close\r ", "a\r\nX: b", "a\n"};

TEST(HttpReqEncode, WritesItsHeadByteForByte) {
    const Encoded got = request("/servercommandservice", "10.0.0.1:8000", "keep-alive", "hello");
    EXPECT_EQ(got.bytes, "POST /servercommandservice HTTP/1.1\r\n"
                         "Host: 10.0.0.1:8000\r\n"
                         "Connection: keep-alive\r\n"
                         "Content-Type: text/xml; charset=utf-8\r\n"
                         "Content-Length: 5\r\n"
                         "\r\n"
                         "hello");
    EXPECT_EQ(got.returned, 142 + 5);
    EXPECT_EQ(got.printed, "");
}

TEST(HttpReqEncode, WritesPathHostAndConnectionAsGiven) {
    EXPECT_EQ(request("/servercommandservice/manage", "a host\t\x01\xFF", "Close, &<", "").bytes,
              "POST /servercommandservice/manage HTTP/1.1\r\n"
              "Host: a host\t\x01\xFF\r\n"
              "Connection: Close, &<\r\n"
              "Content-Type: text/xml; charset=utf-8\r\n"
              "Content-Length: 0\r\n"
              "\r\n");
}

TEST(HttpReqEncode, WritesNullTextsAsEmptyOnes) {
    EXPECT_EQ(request(nullptr, nullptr, nullptr, "x").bytes, "POST  HTTP/1.1\r\n"
                                                             "Host: \r\n"
                                                             "Connection: \r\n"
                                                             "Content-Type: text/xml; charset=utf-8\r\n"
                                                             "Content-Length: 1\r\n"
                                                             "\r\n"
                                                             "x");
    EXPECT_EQ(request(nullptr, nullptr, nullptr, "x").bytes, request("", "", "", "x").bytes);
}

TEST(HttpReqEncode, RefusesALineEndInPathHostOrConnection) {
    for (const char* bad : lineEnds) {
        EXPECT_EQ(request(bad, "host", "close", "x").returned, -1);
        EXPECT_EQ(request("/path", bad, "close", "x").returned, -1);
        EXPECT_EQ(request("/path", "host", bad, "x").returned, -1);
        EXPECT_EQ(request(bad, bad, bad, "x").printed, "");
    }
}

TEST(HttpRespEncode, WritesItsHeadByteForByte) {
    const Encoded got = response("close", "hello");
    EXPECT_EQ(got.bytes, "HTTP/1.1 200 OK\r\n"
                         "Server: vtengine\r\n"
                         "Connection: close\r\n"
                         "Content-Type: text/xml; charset=utf-8\r\n"
                         "Content-Length: 5\r\n"
                         "\r\n"
                         "hello");
    EXPECT_EQ(got.returned, 114 + 5);
    EXPECT_EQ(got.printed, "");
}

TEST(HttpRespEncode, WritesANullConnectionAsAnEmptyOne) {
    EXPECT_EQ(response(nullptr, "").bytes, "HTTP/1.1 200 OK\r\n"
                                           "Server: vtengine\r\n"
                                           "Connection: \r\n"
                                           "Content-Type: text/xml; charset=utf-8\r\n"
                                           "Content-Length: 0\r\n"
                                           "\r\n");
}

TEST(HttpRespEncode, RefusesALineEndInItsConnection) {
    for (const char* bad : lineEnds) EXPECT_EQ(response(bad, "x").returned, -1);
}

// Both wrappers, for what holds for either: wrapped(body, bodyLength, out, size).
template <class Check>
void bothWrappers(const Check& check) {
    {
        SCOPED_TRACE("HttpReqEncode");
        check([](const char* body, int length, char* out, int size) {
            return HttpReqEncode("/p", "h", "close", body, length, out, size);
        });
    }
    SCOPED_TRACE("HttpRespEncode");
    check([](const char* body, int length, char* out, int size) {
        return HttpRespEncode("close", body, length, out, size);
    });
}

TEST(Wrappers, CopyBodiesWithEveryByte) {
    std::string body = "\r\n\r\n";
    for (int byte = 0; byte < 512; ++byte) body += static_cast<char>(byte);
    bothWrappers([&](const auto& wrapped) {
        const GuardedPage in(body);
        const Encoded got =
            encoded([&](char* out, int size) { return wrapped(in.data(), in.length(), out, size); });
        EXPECT_EQ(bodyOf(got.bytes), body);
        EXPECT_NE(got.bytes.find("\r\nContent-Length: 516\r\n\r\n"), std::string::npos);
    });
}

TEST(Wrappers, CopyBodyLengthBytesAndNoMore) {
    bothWrappers([](const auto& wrapped) {
        const Encoded got = encoded([&](char* out, int size) { return wrapped("hello", 2, out, size); });
        EXPECT_EQ(bodyOf(got.bytes), "he");
    });
}

TEST(Wrappers, TakeANullBodyOfNoBytes) {
    bothWrappers([](const auto& wrapped) {
        const Encoded got = encoded([&](char* out, int size) { return wrapped(nullptr, 0, out, size); });
        EXPECT_GT(got.returned, 0);
        EXPECT_EQ(bodyOf(got.bytes), "");
        EXPECT_NE(got.bytes.find("\r\nContent-Length: 0\r\n\r\n"), std::string::npos);
    });
}

TEST(Wrappers, RefuseANullBodyOfSomeBytes) {
    bothWrappers([](const auto& wrapped) {
        for (const int length : {1, 100, INT_MAX})
            EXPECT_EQ(
                encoded([&](char* out, int size) { return wrapped(nullptr, length, out, size); }).returned,
                -1);
    });
}

TEST(Wrappers, RefuseANegativeLength) {
    bothWrappers([](const auto& wrapped) {
        for (const int length : {-1, -100, INT_MIN}) {
            EXPECT_EQ(
                encoded([&](char* out, int size) { return wrapped("body", length, out, size); }).returned,
                -1);
            EXPECT_EQ(
                encoded([&](char* out, int size) { return wrapped(nullptr, length, out, size); }).returned,
                -1);
        }
    });
}

// The sum of head and body is too much, before any byte of either is copied.
TEST(Wrappers, RefuseATotalAboveTheLargestInt) {
    bothWrappers([](const auto& wrapped) {
        for (const int size : {100, INT_MAX}) {
            std::vector<char> out(200);
            EXPECT_EQ(wrapped("", INT_MAX, out.data(), size), -1);
            EXPECT_EQ(wrapped("", INT_MAX - 50, out.data(), size), -1);
        }
    });
}

TEST(CallerBuffer, TakesAMessageOfExactlyItsSize) {
    bothWrappers([](const auto& wrapped) {
        const Encoded got = encoded([&](char* out, int size) { return wrapped("hello", 5, out, size); });
        GuardedPage page(got.bytes.size());
        EXPECT_EQ(wrapped("hello", 5, page.data(), page.length()), got.returned);
        EXPECT_EQ(page.bytes(), got.bytes);
    });
}

TEST(CallerBuffer, IsUntouchedByAMessageOneByteTooLong) {
    bothWrappers([](const auto& wrapped) {
        const Encoded got = encoded([&](char* out, int size) { return wrapped("hello", 5, out, size); });
        const std::string untouched(got.bytes.size() - 1, '#');
        GuardedPage page(untouched);
        EXPECT_EQ(wrapped("hello", 5, page.data(), page.length()), -1);
        EXPECT_EQ(page.bytes(), untouched);
    });
}

TEST(CallerBuffer, IsNotTerminated) {
    bothWrappers([](const auto& wrapped) {
        std::string out(1000, '#');
        const int length = wrapped("hello", 5, &out[0], static_cast<int>(out.size()));
        ASSERT_GT(length, 0);
        EXPECT_EQ(out.substr(static_cast<std::size_t>(length)),
                  std::string(out.size() - static_cast<std::size_t>(length), '#'));
    });
}

TEST(CallerBuffer, IsRefusedIfNullOrEmpty) {
    bothWrappers([](const auto& wrapped) {
        char out = '#';
        EXPECT_EQ(wrapped("hello", 5, nullptr, 1000), -1);
        EXPECT_EQ(wrapped("hello", 5, &out, 0), -1);
        EXPECT_EQ(wrapped("hello", 5, &out, -1), -1);
        EXPECT_EQ(wrapped("hello", 5, &out, INT_MIN), -1);
        EXPECT_EQ(out, '#');
    });
}

TEST(ContentLength, DoesNotDependOnTheLocale) {
    const std::string body(1234567, 'x');
    const DecimalComma comma;
    std::ostringstream stream;
    stream << 1234567;
    ASSERT_EQ(stream.str(), "1.234.567") << "the locale groups digits";
    const std::string bytes =
        encoded([&](char* out, int size) { return HttpRespEncode("close", body.data(), 1234567, out, size); },
                1300000)
            .bytes;
    EXPECT_NE(bytes.find("\r\nContent-Length: 1234567\r\n\r\n"), std::string::npos);
}

// The login request is the only one that has such a header; it stands before the content type.
TEST(Head, PutsCredentialsBehindTheConnection) {
    const Head head = Head::request(commandPath, "h", keepAlive).withBasicCredentials("YTpi");
    const Encoded got = encoded([&](char* out, int size) { return assemble(head, {Text("x")}, out, size); });
    EXPECT_EQ(got.bytes, "POST /servercommandservice HTTP/1.1\r\n"
                         "Host: h\r\n"
                         "Connection: keep-alive\r\n"
                         "Authorization: Basic YTpi\r\n"
                         "Content-Type: text/xml; charset=utf-8\r\n"
                         "Content-Length: 1\r\n"
                         "\r\n"
                         "x");
}

} // namespace
