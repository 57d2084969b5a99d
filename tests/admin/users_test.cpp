// The logged-in user, asked for and answered.
#include "admin/messages.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

using namespace veltoprotocol;

namespace {

using User = __tagVtUserInfo;
using Rights = __tagVtUserRights;

// What no message carries is noise.
User user() {
    User made;
    std::memset(&made, '\xA7', sizeof made);
    std::strcpy(made.UserGuid, "u-1");
    std::strcpy(made.Id, "i-1");
    std::strcpy(made.AdsPath, "LDAP://<dc>");
    std::strcpy(made.UserName, "\"Jo\" & co");
    made.Authclass = -4;
    std::strcpy(made.SId, "s-1");
    std::strcpy(made.SamacCountName, "jo");
    made.Rights.sharedviews = true;
    made.Rights.privateviews = false;
    made.Rights.viewlive = true;
    made.Rights.viewbrowse = true;
    made.Rights.viewsetup = false;
    made.Rights.managementaccess = false;
    return made;
}

TEST(GetUserInfoReqEncode, CarriesTheTokenAndAnEmptyRequest) {
    const Encoded got = encoded(
        [](char* out, int size) { return GetUserInfoReqEncode("10.0.0.1", "t-1", 4294967295u, out, size); });
    EXPECT_EQ(got.bytes, wire(requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="GetUserInfo" />
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetUserInfoReqEncode, WritesANullTokenAsAnEmptyElement) {
    const Encoded got =
        encoded([](char* out, int size) { return GetUserInfoReqEncode("10.0.0.1", nullptr, 7, out, size); });
    EXPECT_EQ(got.bytes,
              wire(requestHead + enveloped("    <Token />\n    <request name=\"GetUserInfo\" />\n")));
}

TEST(GetUserInfoReqEncode, ChecksItsHost) {
    expectChecksItsHost(
        [](const char* host, char* out, int size) { return GetUserInfoReqEncode(host, "t", 1, out, size); });
}

Encoded answer(int result, const User* info) {
    return encoded([&](char* out, int size) { return GetUserInfoRespEncode(result, 7, info, out, size); });
}

// Authclass comes after SamacCountName, unlike in the record.
TEST(GetUserInfoRespEncode, HoldsTheUserAndTheRights) {
    const User sent = user();
    const Encoded got = answer(0, &sent);
    EXPECT_EQ(got.bytes, wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="GetUserInfo">
        <Result>0</Result>
        <UserInfo>
            <UserGuid>u-1</UserGuid>
            <Id>i-1</Id>
            <AdsPath>LDAP://&lt;dc&gt;</AdsPath>
            <UserName>&quot;Jo&quot; &amp; co</UserName>
            <SId>s-1</SId>
            <SamacCountName>jo</SamacCountName>
            <Authclass>-4</Authclass>
            <UserRights sharedviews="1" privateviews="0" viewlive="1" viewbrowse="1" viewsetup="0" managementaccess="0" />
        </UserInfo>
    </response>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetUserInfoRespEncode, WritesEmptyTextsAndZeros) {
    const User nobody = User();
    EXPECT_EQ(answer(0, &nobody).bytes, wire(responseHead + enveloped(R"(    <response name="GetUserInfo">
        <Result>0</Result>
        <UserInfo>
            <UserGuid></UserGuid>
            <Id></Id>
            <AdsPath></AdsPath>
            <UserName></UserName>
            <SId></SId>
            <SamacCountName></SamacCountName>
            <Authclass>0</Authclass>
            <UserRights sharedviews="0" privateviews="0" viewlive="0" viewbrowse="0" viewsetup="0" managementaccess="0" />
        </UserInfo>
    </response>
)")));
}

const std::string allRights = R"(<UserRights sharedviews="1" privateviews="1" viewlive="1" viewbrowse="1" )"
                              R"(viewsetup="1" managementaccess="1" />)";

TEST(GetUserInfoRespEncode, WritesEachRightUnderItsName) {
    const char* const names[] = {"sharedviews", "privateviews", "viewlive",
                                 "viewbrowse",  "viewsetup",    "managementaccess"};
    for (std::size_t i = 0; i < 6; ++i) {
        User sent = User();
        std::memset(reinterpret_cast<char*>(&sent.Rights) + 48 + i, 1, 1);
        std::string want = "<UserRights";
        for (std::size_t k = 0; k < 6; ++k)
            want += std::string(" ") + names[k] + (k == i ? "=\"1\"" : "=\"0\"");
        EXPECT_NE(answer(0, &sent).bytes.find(want + " />\n"), std::string::npos) << names[i];
    }
}

TEST(GetUserInfoRespEncode, WritesAnyOtherFlagByteAsOne) {
    for (const int byte : {1, 2, 128, 255}) {
        User sent = User();
        std::memset(reinterpret_cast<char*>(&sent.Rights) + 48, byte, 6);
        EXPECT_NE(answer(0, &sent).bytes.find(allRights), std::string::npos) << byte;
    }
}

// Readers take half of it.
TEST(GetUserInfoRespEncode, WritesTheWholeOfALongName) {
    User sent = User();
    std::memset(sent.UserName, 'n', sizeof sent.UserName);
    EXPECT_NE(answer(0, &sent).bytes.find("<UserName>" + std::string(160, 'n') + "</UserName>\n"),
              std::string::npos);
}

std::string resultOnly(int result) {
    return wire(responseHead + enveloped("    <response name=\"GetUserInfo\">\n        <Result>" +
                                         std::to_string(result) + "</Result>\n    </response>\n"));
}

TEST(GetUserInfoRespEncode, OfARefusalHoldsTheResultAlone) {
    const User sent = user();
    for (const int result : {1, -5, INT_MAX, INT_MIN})
        EXPECT_EQ(answer(result, &sent).bytes, resultOnly(result));
}

TEST(GetUserInfoRespEncode, WithoutAUserHoldsTheResultAlone) {
    EXPECT_EQ(answer(0, nullptr).bytes, resultOnly(0));
    EXPECT_EQ(answer(2, nullptr).bytes, resultOnly(2));
}

template <class Record>
constexpr bool plain = std::is_standard_layout_v<Record>&& std::is_trivially_copyable_v<Record>;

TEST(UserRights, KeepTheirShape) {
    EXPECT_TRUE(plain<Rights>);
    EXPECT_EQ(offsetof(Rights, reserved), 0u);
    EXPECT_EQ(sizeof(Rights::reserved), 48u);
    EXPECT_EQ(offsetof(Rights, sharedviews), 48u);
    EXPECT_EQ(offsetof(Rights, privateviews), 49u);
    EXPECT_EQ(offsetof(Rights, viewlive), 50u);
    EXPECT_EQ(offsetof(Rights, viewbrowse), 51u);
    EXPECT_EQ(offsetof(Rights, viewsetup), 52u);
    EXPECT_EQ(offsetof(Rights, managementaccess), 53u);
    EXPECT_EQ(sizeof(Rights), 54u);
}

TEST(UserInfo, KeepsItsShape) {
    EXPECT_TRUE(plain<User>);
    EXPECT_EQ(offsetof(User, UserGuid), 0u);
    EXPECT_EQ(offsetof(User, Id), 48u);
    EXPECT_EQ(offsetof(User, AdsPath), 96u);
    EXPECT_EQ(offsetof(User, UserName), 144u);
    EXPECT_EQ(offsetof(User, Authclass), 304u);
    EXPECT_EQ(offsetof(User, SId), 308u);
    EXPECT_EQ(offsetof(User, SamacCountName), 356u);
    EXPECT_EQ(offsetof(User, Rights), 404u);
    EXPECT_EQ(sizeof(User), 460u);
}

// The 19 flags in their order stand in channel_rights_test.cpp, one byte each from this one on.
TEST(UserChannelRights, KeepTheirShape) {
    using ChannelRights = __tagVtUserChannelRights;
    EXPECT_TRUE(plain<ChannelRights>);
    EXPECT_EQ(offsetof(ChannelRights, Guid), 0u);
    EXPECT_EQ(offsetof(ChannelRights, ChannelGuid), 48u);
    EXPECT_EQ(offsetof(ChannelRights, UserGuid), 96u);
    EXPECT_EQ(offsetof(ChannelRights, access), 144u);
    EXPECT_EQ(offsetof(ChannelRights, subscriptionalarm), 162u);
    EXPECT_EQ(sizeof(ChannelRights), 163u);
}

TEST(SystemRightsInfo, KeepsItsShape) {
    using All = __tagVtSystemRightsInfo;
    EXPECT_TRUE(plain<All>);
    EXPECT_EQ(offsetof(All, UserInfo), 0u);
    EXPECT_EQ(offsetof(All, ChannelRights), 464u); // behind 4 of padding
    EXPECT_EQ(offsetof(All, ChannelCounter), 472u);
    EXPECT_EQ(sizeof(All), 480u);
}

} // namespace
