// The record of a server as it lies in memory, and read back.
#include "admin/attribute_fields.h"
#include "support/child_fields.h"
#include "support/received.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstddef>
#include <cstring>
#include <tinyxml.h>
#include <type_traits>

using namespace veltoprotocol;

namespace {

using Server = __tagVtServerInfo;

const std::vector<AttributeField> fields = {{"Guid", 48, 0},
                                            {"DisplayName", 64, 48},
                                            {"PrivateAddress", 32, 112},
                                            {"PrivatePort", AttributeField::number, 144},
                                            {"EnabledPublic", AttributeField::flag, 148},
                                            {"PublicAddress", 32, 149},
                                            {"PublicPort", AttributeField::number, 184},
                                            {"MaxClient", AttributeField::number, 188}};

TEST(GetServerParamDecode, ReadsEachAttributeAndNamesWhatIsMissingOrTooLong) {
    expectReadsEachAttribute("server", fields, GetServerParamDecode);
}

TEST(GetServerParamDecode, ReadsTheElementItselfAndNoChild) {
    const auto got =
        readBack("<E Guid=\"own\"><server Guid=\"child\" PublicPort=\"1\" /></E>", GetServerParamDecode);
    EXPECT_STREQ(got.record.Guid, "own");
    EXPECT_EQ(got.record.PublicPort, 0);
}

TEST(GetServerParamDecode, RefusesANullElement) { expectRefusesANullElement(GetServerParamDecode); }

// Every field distinct, the texts as long as their fields, and noise where nothing is carried.
Server fullServer(char first) {
    Server made;
    std::memset(&made, '\xA7', sizeof made);
    fill(made.Guid, first);
    fill(made.DisplayName, static_cast<char>(first + 1));
    fill(made.PrivateAddress, static_cast<char>(first + 2));
    made.PrivatePort = INT_MIN;
    made.EnabledPublic = true;
    fill(made.PublicAddress, static_cast<char>(first + 3));
    made.PublicPort = first;
    made.MaxClient = -first;
    return made;
}

void expectCameBack(const Server& got, const Server& sent) {
    Server want = Server();
    std::memcpy(want.Guid, sent.Guid, 48);
    std::memcpy(want.DisplayName, sent.DisplayName, 64);
    std::memcpy(want.PrivateAddress, sent.PrivateAddress, 32);
    want.PrivatePort = sent.PrivatePort;
    want.EnabledPublic = sent.EnabledPublic;
    std::memcpy(want.PublicAddress, sent.PublicAddress, 32);
    want.PublicPort = sent.PublicPort;
    want.MaxClient = sent.MaxClient;
    EXPECT_TRUE(sameBytes(got, want));
}

TEST(Servers, ComeBackFromTheAnswerAndFromTheRequest) {
    const Server sent[] = {fullServer('A'), fullServer('a')};
    const Received answered(
        [&](char* out, int size) { return GetServerInfoRespEncode(0, 1, sent, 2, out, size); });
    const Received changed([&](char* out, int size) {
        return GetSetServerInfoReqEncode(VtDeviceReqDelete, sent, 2, "h", "t<&>", 1, out, size);
    });
    int error = 7, type = 0, count = 0;
    EXPECT_EQ(GetTokenDecode(changed.doc.get(), &error), "t<&>");
    GetIntValue(changed.child("servers"), "servers", "reqType", &type);
    GetIntValue(changed.child("servers"), "servers", "serverCouner", &count);
    EXPECT_EQ(type, VtDeviceReqDelete);
    EXPECT_EQ(count, 2);
    for (const Received* message : {&answered, &changed}) {
        TiXmlElement* entry = message->child("servers")->FirstChildElement("server");
        for (const Server& one : sent) {
            expectCameBack(GetServerParamDecode(entry, &error), one);
            EXPECT_EQ(error, 0);
            entry = entry->NextSiblingElement("server");
        }
        EXPECT_EQ(entry, nullptr);
    }
}

TEST(ServerInfo, KeepsItsShape) {
    EXPECT_TRUE(std::is_standard_layout_v<Server> && std::is_trivially_copyable_v<Server>);
    EXPECT_EQ(offsetof(Server, Guid), 0u);
    EXPECT_EQ(offsetof(Server, DisplayName), 48u);
    EXPECT_EQ(offsetof(Server, PrivateAddress), 112u);
    EXPECT_EQ(offsetof(Server, PrivatePort), 144u);
    EXPECT_EQ(offsetof(Server, EnabledPublic), 148u);
    EXPECT_EQ(offsetof(Server, PublicAddress), 149u);
    EXPECT_EQ(offsetof(Server, PublicPort), 184u);
    EXPECT_EQ(offsetof(Server, MaxClient), 188u);
    EXPECT_EQ(sizeof(Server), 192u);
}

TEST(DeviceReqType, TakesAnyInteger) {
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<__enumVtDeviceReqType>, int>));
    EXPECT_EQ(VtDeviceReqGet, 0);
    EXPECT_EQ(VtDeviceReqAdd, 1);
    EXPECT_EQ(VtDeviceReqUpdate, 2);
    EXPECT_EQ(VtDeviceReqDelete, 3);
}

} // namespace
