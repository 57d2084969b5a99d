// What the messages of the electronic maps write that carry no map.
#include "support/encoded.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

using namespace veltoprotocol;

namespace {

std::string asking(const std::string& seqnum, const std::string& token, const std::string& user) {
    return wire(requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>)" + seqnum +
                R"(</seqnum>
    <version>1.0.0</version>
    )" + token + R"(
    <request name="GetEMapInfo">
        <UserGuid>)" +
                user + R"(</UserGuid>
    </request>
</servercommandservice>
)");
}

TEST(GetEMapInfoReqEncode, NamesTheUserAlone) {
    __tagVtUserEMapInfo user;
    std::memset(&user, 'n', sizeof user); // only the GUID is looked at, to the end of its field
    std::memset(user.UserGuid, 'u', sizeof user.UserGuid);
    const Encoded got = encoded(
        [&](char* out, int size) { return GetEMapInfoReqEncode("10.0.0.1", "t-1", 7, &user, out, size); });
    EXPECT_EQ(got.bytes, asking("7", "<Token>t-1</Token>", std::string(48, 'u')));
    EXPECT_EQ(got.printed, "");
}

TEST(GetEMapInfoReqEncode, WritesANullTokenEmptyAndRefusesANullUserAndALineBreak) {
    const __tagVtUserEMapInfo user = __tagVtUserEMapInfo();
    const Encoded got = encoded([&](char* out, int size) {
        return GetEMapInfoReqEncode("10.0.0.1", nullptr, 2147483648u, &user, out, size);
    });
    EXPECT_EQ(got.bytes, asking("-2147483648", "<Token />", ""));
    const Encoded nobody = encoded(
        [](char* out, int size) { return GetEMapInfoReqEncode("10.0.0.1", "t-1", 7, nullptr, out, size); });
    EXPECT_EQ(nobody.returned, -1);
    EXPECT_EQ(nobody.printed, "");
    const Encoded refused =
        encoded([&](char* out, int size) { return GetEMapInfoReqEncode("h\r", "t-1", 7, &user, out, size); });
    EXPECT_EQ(refused.returned, -1);
    const Encoded hostless = encoded(
        [&](char* out, int size) { return GetEMapInfoReqEncode(nullptr, "t-1", 7, &user, out, size); });
    EXPECT_NE(hostless.bytes.find("\r\nHost: \r\n"), std::string::npos);
}

TEST(GetSetEMapInfoRespEncode, HoldsTheResult) {
    const Encoded got =
        encoded([](char* out, int size) { return GetSetEMapInfoRespEncode(-7, 2147483648u, out, size); });
    EXPECT_EQ(got.bytes, wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-2147483648</seqnum>
    <version>1.0.0</version>
    <response name="SetEMapInfo">
        <Result>-7</Result>
    </response>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

} // namespace
