// The messages of a session: login, logout, heartbeat.
#include "support/encoded.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstring>
#include <gtest/gtest.h>

namespace {

using namespace veltoprotocol;

__tagVtDeviceParam credentials(const std::string& user, const std::string& password) {
    __tagVtDeviceParam device = __tagVtDeviceParam();
    std::memcpy(device.UserName, user.data(), user.size());
    std::memcpy(device.Password, password.data(), password.size());
    return device;
}

Encoded login(const __tagVtDeviceParam& device, const char* host = "10.0.0.1", unsigned int seqnum = 1) {
    return encoded([&](char* out, int size) { return GetLoginReqEncode(&device, host, seqnum, out, size); });
}

// The Base64 text of a login request.
std::string authorization(const Encoded& request) {
    const std::string before = "\r\nAuthorization: Basic ";
    const std::size_t from = request.bytes.find(before) + before.size();
    return request.bytes.substr(from, request.bytes.find("\r\n", from) - from);
}

TEST(GetLoginReqEncode, CarriesTheCredentialsInItsHead) {
    const Encoded got = login(credentials("admin", "secret"), "10.0.0.1", 4294967295u);
    EXPECT_EQ(got.bytes, wire(R"(POST /servercommandservice HTTP/1.1
Host: 10.0.0.1
Connection: keep-alive
Authorization: Basic YWRtaW46c2VjcmV0
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <request name="Login" />
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetLoginReqEncode, SendsAnEmptyPasswordAsUserAndColon) {
    EXPECT_EQ(authorization(login(credentials("admin", ""))), "YWRtaW46");
}

TEST(GetLoginReqEncode, SendsAColonForEmptyCredentials) {
    EXPECT_EQ(authorization(login(credentials("", ""))), "Og==");
    EXPECT_EQ(authorization(login(credentials("", "b"))), "OmI=");
}

TEST(GetLoginReqEncode, SendsCredentialsUpToTheirNul) {
    EXPECT_EQ(authorization(login(credentials(std::string("a\0x", 3), std::string("b\0:y", 4)))), "YTpi");
}

// The library does not look into them: a colon, bytes above 127, what XML would escape.
TEST(GetLoginReqEncode, SendsCredentialsAsTheyStand) {
    EXPECT_EQ(authorization(login(credentials("a:b", "<\xFF&"))), "YTpiOjz/Jg==");
}

TEST(GetLoginReqEncode, SendsTheWidestCredentials) {
    std::string want;
    for (int i = 0; i < 21; ++i) want += "dXV1"; // uuu
    want += "dTpw";                              // u:p
    for (int i = 0; i < 21; ++i) want += "cHBw"; // ppp
    EXPECT_EQ(authorization(login(credentials(std::string(64, 'u'), std::string(64, 'p')))), want);
}

TEST(GetLoginReqEncode, ReadsNoOtherField) {
    __tagVtDeviceParam device;
    std::memset(&device, 'x', sizeof device);
    std::strcpy(device.UserName, "admin");
    std::strcpy(device.Password, "secret");
    EXPECT_EQ(login(device).bytes, login(credentials("admin", "secret")).bytes);
}

TEST(GetLoginReqEncode, IsRefusedWithoutCredentials) {
    EXPECT_EQ(
        encoded([](char* out, int size) { return GetLoginReqEncode(nullptr, "h", 1, out, size); }).returned,
        -1);
}

TEST(GetLoginReqEncode, WritesANullHostAsAnEmptyOne) {
    const Encoded got = login(credentials("a", "b"), nullptr);
    EXPECT_EQ(got.bytes.find("POST /servercommandservice HTTP/1.1\r\nHost: \r\nConnection: k"), 0u);
}

const char* const lineEnds[] = {"\r", "\n", "\r\n", "h\r\nAuthorization: Basic x", "h\n", "\rh"};

TEST(GetLoginReqEncode, RefusesALineEndInTheHost) {
    for (const char* host : lineEnds) EXPECT_EQ(login(credentials("a", "b"), host).returned, -1);
}

// A line end in them is behind Base64.
TEST(GetLoginReqEncode, TakesALineEndInTheCredentials) {
    EXPECT_EQ(authorization(login(credentials("\r\n", "\n"))), "DQo6Cg==");
}

Encoded loginAnswer(int result, const char* token, unsigned int seqnum = 2) {
    return encoded([&](char* out, int size) { return GetLoginRespEncode(result, token, seqnum, out, size); });
}

TEST(GetLoginRespEncode, CarriesTheTokenOnSuccess) {
    EXPECT_EQ(loginAnswer(0, "t-1").bytes, wire(R"(HTTP/1.1 200 OK
Server: vtengine
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>2</seqnum>
    <version>1.0.0</version>
    <response name="Login">
        <Result>0</Result>
        <Token>t-1</Token>
    </response>
</servercommandservice>
)"));
}

TEST(GetLoginRespEncode, HasAnEmptyTokenForANullOne) {
    EXPECT_EQ(loginAnswer(0, nullptr).bytes, wire(R"(HTTP/1.1 200 OK
Server: vtengine
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>2</seqnum>
    <version>1.0.0</version>
    <response name="Login">
        <Result>0</Result>
        <Token />
    </response>
</servercommandservice>
)"));
}

TEST(GetLoginRespEncode, AnswersTwoLikeSuccessButWithoutAToken) {
    EXPECT_EQ(loginAnswer(2, "t-1", 2147483648u).bytes, wire(R"(HTTP/1.1 200 OK
Server: vtengine
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-2147483648</seqnum>
    <version>1.0.0</version>
    <response name="Login">
        <Result>2</Result>
    </response>
</servercommandservice>
)"));
}

TEST(GetLoginRespEncode, RefusesUnderStatus401AndCloses) {
    EXPECT_EQ(loginAnswer(1, "t-1").bytes, wire(R"(HTTP/1.1 401 Unauthorized
Server: vtengine
Connection: close
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>2</seqnum>
    <version>1.0.0</version>
    <response name="Login">
        <Result>1</Result>
    </response>
</servercommandservice>
)"));
}

TEST(GetLoginRespEncode, RefusesForEveryOtherResult) {
    for (const int result : {-1, -2, 3, 20, 401, INT_MAX, INT_MIN}) {
        const Encoded got = loginAnswer(result, "t-1");
        EXPECT_EQ(got.bytes.find("HTTP/1.1 401 Unauthorized\r\nServer: vtengine\r\nConnection: close\r\n"),
                  0u);
        EXPECT_NE(got.bytes.find("<Result>" + std::to_string(result) + "</Result>\n    </response>"),
                  std::string::npos);
    }
}

TEST(GetLoginRespEncode, EscapesTheToken) {
    EXPECT_NE(loginAnswer(0, "<t&\n>").bytes.find("        <Token>&lt;t&amp;&#x0A;&gt;</Token>\n"),
              std::string::npos);
}

TEST(GetLogoutReqEncode, CarriesTheTokenAndCloses) {
    const Encoded got =
        encoded([](char* out, int size) { return GetLogoutReqEncode("10.0.0.1", "t-1", 3, out, size); });
    EXPECT_EQ(got.bytes, wire(R"(POST /servercommandservice HTTP/1.1
Host: 10.0.0.1
Connection: close
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>3</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="Logout" />
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetLogoutReqEncode, TakesNullTexts) {
    const Encoded got =
        encoded([](char* out, int size) { return GetLogoutReqEncode(nullptr, nullptr, 3, out, size); });
    EXPECT_EQ(got.bytes, wire("POST /servercommandservice HTTP/1.1\n"
                              "Host: \n"
                              "Connection: close\n"
                              "Content-Type: text/xml; charset=utf-8\n"
                              "Content-Length: {}\n"
                              "\n"
                              R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>3</seqnum>
    <version>1.0.0</version>
    <Token />
    <request name="Logout" />
</servercommandservice>
)"));
}

TEST(GetLogoutReqEncode, RefusesALineEndInTheHost) {
    for (const char* host : lineEnds)
        EXPECT_EQ(encoded([&](char* out, int size) {
                      return GetLogoutReqEncode(host, "t", 1, out, size);
                  }).returned,
                  -1);
    // The token is no part of the head.
    EXPECT_GT(
        encoded([](char* out, int size) { return GetLogoutReqEncode("h", "\r\n", 1, out, size); }).returned,
        0);
}

TEST(GetLogoutRespEncode, HoldsTheResultAndCloses) {
    EXPECT_EQ(encoded([](char* out, int size) { return GetLogoutRespEncode(0, 3, out, size); }).bytes,
              wire(R"(HTTP/1.1 200 OK
Server: vtengine
Connection: close
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>3</seqnum>
    <version>1.0.0</version>
    <response name="Logout">
        <Result>0</Result>
    </response>
</servercommandservice>
)"));
}

Encoded heartbeat(const char* host, const char* token) {
    return encoded([&](char* out, int size) { return GetHeartBeatReqEncode(host, token, 4, out, size); });
}

TEST(GetHeartBeatReqEncode, CarriesNoToken) {
    EXPECT_EQ(heartbeat("10.0.0.1", "t-1").bytes, wire(R"(POST /servercommandservice HTTP/1.1
Host: 10.0.0.1
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>4</seqnum>
    <version>1.0.0</version>
    <request name="Heartbeat" />
</servercommandservice>
)"));
}

TEST(GetHeartBeatReqEncode, IsTheSameWhateverTheToken) {
    const std::string bytes = heartbeat("h", "t-1").bytes;
    for (const char* token : {"", "another", "a\r\nb", static_cast<const char*>(nullptr)})
        EXPECT_EQ(heartbeat("h", token).bytes, bytes);
}

TEST(GetHeartBeatReqEncode, ChecksItsHost) {
    for (const char* host : lineEnds) EXPECT_EQ(heartbeat(host, "t").returned, -1);
    EXPECT_NE(heartbeat(nullptr, "t").bytes.find("\r\nHost: \r\nConnection: "), std::string::npos);
}

TEST(GetHeartBeatRespEncode, HoldsNoResult) {
    EXPECT_EQ(encoded([](char* out, int size) { return GetHeartBeatRespEncode(4, out, size); }).bytes,
              wire(R"(HTTP/1.1 200 OK
Server: vtengine
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>4</seqnum>
    <version>1.0.0</version>
    <response name="Heartbeat" />
</servercommandservice>
)"));
}

} // namespace
