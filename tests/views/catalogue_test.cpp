#include "support/encoded.h"
#include "support/received.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <cstring>

using namespace veltoprotocol;

namespace {

__tagVtViewGroupInfo info(const char* name, bool readOnly) {
    __tagVtViewGroupInfo info = __tagVtViewGroupInfo();
    std::strcpy(info.ViewGroupGuid, "g-1");
    std::strcpy(info.UserGuid, "u-1");
    info.ReadOnly = readOnly;
    std::strcpy(info.Name, name);
    info.ViewGroupType = 3;
    info.LastModifiedTime = -4;
    std::strcpy(info.LastModifieduser, "somebody");
    return info;
}

TEST(GetViewGroupsReqEncode, NamesTheUser) {
    const Encoded got = encoded([](char* out, int size) {
        return GetViewGroupsReqEncode("10.0.0.1", "t-1", 4294967295u, "u-1", out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="GetViewGroups">
        <UserGuid>u-1</UserGuid>
    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetViewGroupsReqEncode, WritesNullTextsAsEmptyElements) {
    const Encoded got = encoded([](char* out, int size) {
        return GetViewGroupsReqEncode("10.0.0.1", nullptr, 7, nullptr, out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <Token />
    <request name="GetViewGroups">
        <UserGuid />
    </request>
</servercommandservice>
)"));
}

TEST(GetViewGroupsReqEncode, LetsNoHostAddALineToTheHead) {
    for (const char* host : {"h\r", "h\nX: 1"})
        EXPECT_EQ(encoded([&](char* out, int size) {
                      return GetViewGroupsReqEncode(host, "t", 1, "u", out, size);
                  }).returned,
                  -1);
    const Encoded got =
        encoded([](char* out, int size) { return GetViewGroupsReqEncode(nullptr, "t", 1, "u", out, size); });
    EXPECT_NE(got.bytes.find("\r\nHost: \r\n"), std::string::npos);
}

TEST(GetViewGroupsRespEncode, WritesEachRecordInItsOwnOrder) {
    const __tagVtViewGroupInfo infos[] = {info("lobby <1>", true), info("", false)};
    const Encoded got =
        encoded([&](char* out, int size) { return GetViewGroupsRespEncode(0, 7, infos, 2, out, size); });
    EXPECT_EQ(got.bytes, wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="GetViewGroups">
        <Result>0</Result>
        <ViewGroupInfoCounter>2</ViewGroupInfoCounter>
        <ViewGroupInfo>
            <ReadOnly>1</ReadOnly>
            <Name>lobby &lt;1&gt;</Name>
            <ViewGroupType>3</ViewGroupType>
            <LastModifiedTime>-4</LastModifiedTime>
            <LastModifieduser>somebody</LastModifieduser>
            <ViewGroupGuid>g-1</ViewGroupGuid>
            <UserGuid>u-1</UserGuid>
        </ViewGroupInfo>
        <ViewGroupInfo>
            <ReadOnly>0</ReadOnly>
            <Name></Name>
            <ViewGroupType>3</ViewGroupType>
            <LastModifiedTime>-4</LastModifiedTime>
            <LastModifieduser>somebody</LastModifieduser>
            <ViewGroupGuid>g-1</ViewGroupGuid>
            <UserGuid>u-1</UserGuid>
        </ViewGroupInfo>
    </response>
</servercommandservice>
)"));
}

std::string resultOnly(int result) {
    return wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="GetViewGroups">
        <Result>)" +
                std::to_string(result) + R"(</Result>
    </response>
</servercommandservice>
)");
}

Encoded answer(int result, const __tagVtViewGroupInfo* infos, int count) {
    return encoded(
        [&](char* out, int size) { return GetViewGroupsRespEncode(result, 7, infos, count, out, size); });
}

TEST(GetViewGroupsRespEncode, WritesASingleRecord) {
    const __tagVtViewGroupInfo one = info("lobby", true);
    EXPECT_EQ(answer(0, &one, 1).bytes, wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="GetViewGroups">
        <Result>0</Result>
        <ViewGroupInfoCounter>1</ViewGroupInfoCounter>
        <ViewGroupInfo>
            <ReadOnly>1</ReadOnly>
            <Name>lobby</Name>
            <ViewGroupType>3</ViewGroupType>
            <LastModifiedTime>-4</LastModifiedTime>
            <LastModifieduser>somebody</LastModifieduser>
            <ViewGroupGuid>g-1</ViewGroupGuid>
            <UserGuid>u-1</UserGuid>
        </ViewGroupInfo>
    </response>
</servercommandservice>
)"));
}

TEST(GetViewGroupsRespEncode, OfARefusalHoldsTheResultAlone) {
    const __tagVtViewGroupInfo one = info("x", false);
    EXPECT_EQ(answer(-5, &one, 1).bytes, resultOnly(-5));
}

TEST(GetViewGroupsRespEncode, WithoutRecordsHoldsTheResultAlone) {
    const __tagVtViewGroupInfo one = info("x", false);
    EXPECT_EQ(answer(0, &one, 0).bytes, resultOnly(0));
    EXPECT_EQ(answer(0, &one, -1).bytes, resultOnly(0));
    EXPECT_EQ(answer(0, nullptr, 1).bytes, resultOnly(0));
}

TEST(GetViewGroupsParamEncode, RefusesNullArguments) {
    const __tagVtViewGroupInfo one = info("x", false);
    TiXmlElement element("ViewGroupInfo");
    EXPECT_EQ(GetViewGroupsParamEncode(nullptr, &one), -1);
    EXPECT_EQ(GetViewGroupsParamEncode(&element, nullptr), -1);
    EXPECT_TRUE(element.NoChildren());
    EXPECT_EQ(GetViewGroupsParamEncode(&element, &one), 0);
    int error = 7;
    const __tagVtViewGroupInfo back = GetViewGroupInfoParamDecode(&element, &error);
    EXPECT_TRUE(sameBytes(back, one));
    EXPECT_EQ(error, 0);
}

TEST(GetViewGroups, ComesBackAtTheClient) {
    const __tagVtViewGroupInfo infos[] = {info("a & b", true), info("c", false)};
    const Received got(
        [&](char* out, int size) { return GetViewGroupsRespEncode(0, 7, infos, 2, out, size); });
    int counter = 0;
    GetIntValue(got.command(), "response", "ViewGroupInfoCounter", &counter);
    EXPECT_EQ(counter, 2);
    TiXmlElement* entry = got.child("ViewGroupInfo");
    for (const auto& sent : infos) {
        EXPECT_TRUE(sameBytes(GetViewGroupInfoParamDecode(entry, nullptr), sent));
        entry = entry->NextSiblingElement("ViewGroupInfo");
    }
    EXPECT_EQ(entry, nullptr);
}

TEST(GetViewGroupInfoParamDecode, ReadsEveryField) {
    const auto got =
        readBack("<ViewGroupInfo><ReadOnly>1</ReadOnly><Name>n</Name><ViewGroupType>3</ViewGroupType>"
                 "<LastModifiedTime>-4</LastModifiedTime><LastModifieduser>somebody</LastModifieduser>"
                 "<ViewGroupGuid>g-1</ViewGroupGuid><UserGuid>u-1</UserGuid></ViewGroupInfo>",
                 GetViewGroupInfoParamDecode);
    EXPECT_TRUE(sameBytes(got.record, info("n", true)));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetViewGroupInfoParamDecode, NamesWhatIsMissing) {
    const auto got = readBack("<ViewGroupInfo />", GetViewGroupInfoParamDecode);
    EXPECT_TRUE(sameBytes(got.record, __tagVtViewGroupInfo()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-ViewGroupInfo-ReadOnly element not find!\n"
                           "xml file -..-ViewGroupInfo-Name element not find!\n"
                           "xml file -..-ViewGroupInfo-ViewGroupType element not find!\n"
                           "xml file -..-ViewGroupInfo-LastModifiedTime element not find!\n"
                           "xml file -..-ViewGroupInfo-LastModifieduser element not find!\n"
                           "xml file -..-ViewGroupInfo-ViewGroupGuid element not find!\n"
                           "xml file -..-ViewGroupInfo-UserGuid element not find!\n");
}

// A record's texts as long as their fields, or by so many bytes longer.
ReadBack<__tagVtViewGroupInfo> readTexts(std::size_t longer) {
    const auto text = [longer](const std::string& name, std::size_t width) {
        return "<" + name + ">" + std::string(width + longer, 'x') + "</" + name + ">";
    };
    return readBack("<ViewGroupInfo><ReadOnly>0</ReadOnly>" + text("Name", 64) +
                        "<ViewGroupType>0</ViewGroupType><LastModifiedTime>0</LastModifiedTime>" +
                        text("LastModifieduser", 128) + text("ViewGroupGuid", 48) + text("UserGuid", 48) +
                        "</ViewGroupInfo>",
                    GetViewGroupInfoParamDecode);
}

TEST(GetViewGroupInfoParamDecode, FillsAFieldToItsLastByte) {
    const auto got = readTexts(0);
    EXPECT_EQ(std::string(got.record.Name, 64), std::string(64, 'x'));
    EXPECT_EQ(std::string(got.record.LastModifieduser, 128), std::string(128, 'x'));
    EXPECT_EQ(std::string(got.record.ViewGroupGuid, 48), std::string(48, 'x'));
    EXPECT_EQ(std::string(got.record.UserGuid, 48), std::string(48, 'x'));
    EXPECT_EQ(got.printed, "");
}

TEST(GetViewGroupInfoParamDecode, DropsATextThatIsLonger) {
    const auto got = readTexts(1);
    EXPECT_TRUE(sameBytes(got.record, __tagVtViewGroupInfo()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-ViewGroupInfo-Name element too long!\n"
                           "xml file -..-ViewGroupInfo-LastModifieduser element too long!\n"
                           "xml file -..-ViewGroupInfo-ViewGroupGuid element too long!\n"
                           "xml file -..-ViewGroupInfo-UserGuid element too long!\n");
}

TEST(GetViewGroupInfoParamDecode, TakesAnEmptyFlagForTrue) {
    const auto got = readBack("<ViewGroupInfo><ReadOnly /></ViewGroupInfo>", GetViewGroupInfoParamDecode);
    EXPECT_TRUE(got.record.ReadOnly);
}

TEST(GetViewGroupInfoParamDecode, RefusesANullElement) {
    int error = 7;
    EXPECT_TRUE(sameBytes(GetViewGroupInfoParamDecode(nullptr, &error), __tagVtViewGroupInfo()));
    EXPECT_EQ(error, -1);
    GetViewGroupInfoParamDecode(nullptr, nullptr);
}

TEST(ViewGroupInfo, KeepsItsShape) {
    EXPECT_EQ(offsetof(__tagVtViewGroupInfo, ReadOnly), 96u);
    EXPECT_EQ(offsetof(__tagVtViewGroupInfo, Name), 97u);
    EXPECT_EQ(offsetof(__tagVtViewGroupInfo, ViewGroupType), 164u);
    EXPECT_EQ(offsetof(__tagVtViewGroupInfo, LastModifieduser), 172u);
    EXPECT_EQ(sizeof(__tagVtViewGroupInfo), 300u);
}

} // namespace
