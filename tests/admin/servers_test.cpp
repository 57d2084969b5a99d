// The servers of a site, asked for, answered and changed, and one of them as attributes.
#include "admin/messages.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstring>
#include <tinyxml.h>

using namespace veltoprotocol;

namespace {

using Server = __tagVtServerInfo;

Server server(const char* guid, bool enabledPublic) {
    Server made = Server();
    std::strcpy(made.Guid, guid);
    std::strcpy(made.DisplayName, "Hall \"A\" <&>");
    std::strcpy(made.PrivateAddress, "192.168.1.2");
    made.PrivatePort = 8000;
    made.EnabledPublic = enabledPublic;
    std::strcpy(made.PublicAddress, "example.org");
    made.PublicPort = -1;
    made.MaxClient = INT_MAX;
    return made;
}

const Server servers[] = {server("s-1", true), server("s-2", false)};

TEST(GetServerInfoReqEncode, CarriesTheTokenAndAnEmptyRequest) {
    const Encoded got = encoded([](char* out, int size) {
        return GetServerInfoReqEncode("10.0.0.1", "t-1", 4294967295u, out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="GetServerInfo" />
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetServerInfoReqEncode, WritesANullTokenAsAnEmptyElement) {
    const Encoded got = encoded(
        [](char* out, int size) { return GetServerInfoReqEncode("10.0.0.1", nullptr, 7, out, size); });
    EXPECT_EQ(got.bytes,
              wire(requestHead + enveloped("    <Token />\n    <request name=\"GetServerInfo\" />\n")));
}

TEST(ServerRequests, CheckTheirHost) {
    expectChecksItsHost([](const char* host, char* out, int size) {
        return GetServerInfoReqEncode(host, "t", 1, out, size);
    });
    expectChecksItsHost([](const char* host, char* out, int size) {
        return GetSetServerInfoReqEncode(VtDeviceReqAdd, servers, 2, host, "t", 1, out, size);
    });
}

Encoded answer(int result, const Server* list, int count) {
    return encoded(
        [&](char* out, int size) { return GetServerInfoRespEncode(result, 7, list, count, out, size); });
}

// No counter stands in this answer.
TEST(GetServerInfoRespEncode, HoldsEachServer) {
    const Encoded got = answer(0, servers, 2);
    EXPECT_EQ(got.bytes, wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="GetServerInfo">
        <Result>0</Result>
        <servers>
            <server Guid="s-1" DisplayName='Hall &quot;A&quot; &lt;&amp;&gt;' PrivateAddress="192.168.1.2" PrivatePort="8000" EnabledPublic="1" PublicAddress="example.org" PublicPort="-1" MaxClient="2147483647" />
            <server Guid="s-2" DisplayName='Hall &quot;A&quot; &lt;&amp;&gt;' PrivateAddress="192.168.1.2" PrivatePort="8000" EnabledPublic="0" PublicAddress="example.org" PublicPort="-1" MaxClient="2147483647" />
        </servers>
    </response>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

// Of all answers about servers.
std::string resultOnly(int result) {
    return wire(responseHead + enveloped("    <response name=\"GetServerInfo\">\n        <Result>" +
                                         std::to_string(result) + "</Result>\n    </response>\n"));
}

TEST(GetServerInfoRespEncode, OfARefusalHoldsTheResultAlone) {
    for (const int result : {1, -1, INT_MIN}) EXPECT_EQ(answer(result, servers, 2).bytes, resultOnly(result));
}

TEST(GetServerInfoRespEncode, WithoutServersHoldsTheResultAlone) {
    EXPECT_EQ(answer(0, nullptr, 2).bytes, resultOnly(0));
    for (const int count : {0, -1, INT_MIN}) EXPECT_EQ(answer(0, servers, count).bytes, resultOnly(0));
}

Encoded change(__enumVtDeviceReqType type, const Server* list, int count, const char* token = "t-1") {
    return encoded([&](char* out, int size) {
        return GetSetServerInfoReqEncode(type, list, count, "10.0.0.1", token, 7, out, size);
    });
}

// The one management request with a token; its counter is misspelled.
TEST(GetSetServerInfoReqEncode, CarriesTokenTypeCounterAndEachServer) {
    const Encoded got = change(VtDeviceReqUpdate, servers, 2);
    EXPECT_EQ(got.bytes, wire(R"(POST /servercommandservice/manage HTTP/1.1
Host: 10.0.0.1
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="SetServerInfo">
        <servers>
            <reqType>2</reqType>
            <serverCouner>2</serverCouner>
            <server Guid="s-1" DisplayName='Hall &quot;A&quot; &lt;&amp;&gt;' PrivateAddress="192.168.1.2" PrivatePort="8000" EnabledPublic="1" PublicAddress="example.org" PublicPort="-1" MaxClient="2147483647" />
            <server Guid="s-2" DisplayName='Hall &quot;A&quot; &lt;&amp;&gt;' PrivateAddress="192.168.1.2" PrivatePort="8000" EnabledPublic="0" PublicAddress="example.org" PublicPort="-1" MaxClient="2147483647" />
        </servers>
    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetSetServerInfoReqEncode, WithoutServersIsEmptyAndYetSent) {
    const std::string want =
        wire(manageHead + enveloped("    <Token>t-1</Token>\n    <request name=\"SetServerInfo\" />\n"));
    EXPECT_EQ(change(VtDeviceReqAdd, nullptr, 2).bytes, want);
    for (const int count : {0, -1, INT_MIN}) EXPECT_EQ(change(VtDeviceReqAdd, servers, count).bytes, want);
}

TEST(GetSetServerInfoReqEncode, WritesANullTokenAsAnEmptyElement) {
    EXPECT_EQ(change(VtDeviceReqGet, nullptr, 0, nullptr).bytes,
              wire(manageHead + enveloped("    <Token />\n    <request name=\"SetServerInfo\" />\n")));
}

TEST(GetSetServerInfoReqEncode, WritesAnyTypeInDecimal) {
    const struct {
        __enumVtDeviceReqType type;
        const char* text;
    } cases[] = {{VtDeviceReqGet, "0"},
                 {VtDeviceReqAdd, "1"},
                 {VtDeviceReqUpdate, "2"},
                 {VtDeviceReqDelete, "3"},
                 {static_cast<__enumVtDeviceReqType>(4), "4"},
                 {static_cast<__enumVtDeviceReqType>(-1), "-1"},
                 {static_cast<__enumVtDeviceReqType>(INT_MIN), "-2147483648"},
                 {static_cast<__enumVtDeviceReqType>(INT_MAX), "2147483647"}};
    for (const auto& c : cases)
        EXPECT_NE(change(c.type, servers, 1)
                      .bytes.find("            <reqType>" + std::string(c.text) +
                                  "</reqType>\n            <serverCouner>1</serverCouner>\n"),
                  std::string::npos)
            << c.text;
}

TEST(GetSetServerInfoRespEncode, HasTheNameOfTheCommandThatReads) {
    for (const int result : {0, -5, INT_MAX}) {
        const Encoded got =
            encoded([&](char* out, int size) { return GetSetServerInfoRespEncode(result, 7, out, size); });
        EXPECT_EQ(got.bytes, resultOnly(result));
        EXPECT_EQ(got.printed, "");
    }
}

std::string printed(const TiXmlElement& element) {
    TiXmlPrinter printer;
    element.Accept(&printer);
    return printer.Str();
}

TEST(GetServerParamEncode, WritesEightAttributesInFieldOrder) {
    TiXmlElement element("server");
    EXPECT_EQ(GetServerParamEncode(&element, &servers[0]), 0);
    EXPECT_EQ(printed(element), R"(<server Guid="s-1" DisplayName='Hall &quot;A&quot; &lt;&amp;&gt;' )"
                                R"(PrivateAddress="192.168.1.2" PrivatePort="8000" EnabledPublic="1" )"
                                R"(PublicAddress="example.org" PublicPort="-1" MaxClient="2147483647" />)"
                                "\n");
}

TEST(GetServerParamEncode, WritesEmptyTextsAndZeros) {
    TiXmlElement element("server");
    const Server nothing = Server();
    EXPECT_EQ(GetServerParamEncode(&element, &nothing), 0);
    EXPECT_EQ(printed(element), R"(<server Guid="" DisplayName="" PrivateAddress="" PrivatePort="0" )"
                                R"(EnabledPublic="0" PublicAddress="" PublicPort="0" MaxClient="0" />)"
                                "\n");
}

TEST(GetServerParamEncode, WritesAnyOtherFlagByteAsOne) {
    for (const int byte : {2, 127, 128, 255}) {
        Server record = servers[1];
        std::memset(&record.EnabledPublic, byte, 1);
        TiXmlElement element("server");
        EXPECT_EQ(GetServerParamEncode(&element, &record), 0);
        EXPECT_STREQ(element.Attribute("EnabledPublic"), "1") << byte;
        EXPECT_NE(answer(0, &record, 1).bytes.find(" EnabledPublic=\"1\" "), std::string::npos) << byte;
    }
}

TEST(GetServerParamEncode, IsRefusedWithoutElementOrRecord) {
    TiXmlElement element("server");
    EXPECT_EQ(GetServerParamEncode(nullptr, &servers[0]), -1);
    EXPECT_EQ(GetServerParamEncode(&element, nullptr), -1);
    EXPECT_EQ(GetServerParamEncode(nullptr, nullptr), -1);
    EXPECT_EQ(printed(element), "<server />\n");
}

} // namespace
