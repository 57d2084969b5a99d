// What a user may do on each channel: asked for, answered, read back and released.
#include "admin/attribute_fields.h"
#include "admin/messages.h"
#include "support/child_fields.h"
#include "support/received.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

using namespace veltoprotocol;

namespace {

using Rights = __tagVtUserChannelRights;

constexpr std::size_t flagCount = 19, firstFlag = 144;
const char* const flagNames[flagCount] = {
    "access",      "aviexport",   "jpegexport",    "databaseexport",   "videolive",
    "videobrowse", "ptz",         "managepresets", "outputs",          "presets",
    "events",      "smartsearch", "sequences",     "startrecording",   "audiolive",
    "audiobrowse", "speakerlive", "speakerspeak",  "subscriptionalarm"};

// Byte for byte, since a flag may hold any.
void setFlag(Rights& rights, std::size_t index, int byte) {
    std::memset(reinterpret_cast<char*>(&rights) + firstFlag + index, byte, 1);
}

Rights entry(const char* guid, int flags) {
    Rights made = Rights();
    std::strcpy(made.Guid, guid);
    std::strcpy(made.ChannelGuid, "c<1>");
    std::strcpy(made.UserGuid, "u-1");
    for (std::size_t i = 0; i < flagCount; ++i) setFlag(made, i, flags);
    return made;
}

TEST(GetChannelRightsInfoReqEncode, NamesTheUser) {
    const Encoded got = encoded([](char* out, int size) {
        return GetChannelRightsInfoReqEncode("10.0.0.1", "t-1", 4294967295u, "u-1", out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="GetChannelRightsInfo">
        <UserGuid>u-1</UserGuid>
    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetChannelRightsInfoReqEncode, WritesNullTextsAsEmptyElements) {
    const Encoded got = encoded([](char* out, int size) {
        return GetChannelRightsInfoReqEncode("10.0.0.1", nullptr, 7, nullptr, out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestHead + enveloped(R"(    <Token />
    <request name="GetChannelRightsInfo">
        <UserGuid />
    </request>
)")));
}

TEST(GetChannelRightsInfoReqEncode, ChecksItsHost) {
    expectChecksItsHost([](const char* host, char* out, int size) {
        return GetChannelRightsInfoReqEncode(host, "t", 1, "u", out, size);
    });
}

Encoded answer(int result, const Rights* rights, int count) {
    return encoded([&](char* out, int size) {
        return GetChannelRightsInfoRespEncode(result, 7, rights, count, out, size);
    });
}

// One Channels element for all entries; the list has the name of each entry's flags.
TEST(GetChannelRightsInfoRespEncode, HoldsEachEntryInOneList) {
    const Rights rights[] = {entry("r-1", 1), entry("r-2", 0), entry("", 1)};
    const Encoded got = answer(0, rights, 3);
    EXPECT_EQ(got.bytes, wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="GetChannelRightsInfo">
        <Result>0</Result>
        <ChannelRights>
            <ChannelCounter>3</ChannelCounter>
            <Channels>
                <Channel>
                    <Guid>r-1</Guid>
                    <ChannelGuid>c&lt;1&gt;</ChannelGuid>
                    <UserGuid>u-1</UserGuid>
                    <ChannelRights access="1" aviexport="1" jpegexport="1" databaseexport="1" videolive="1" videobrowse="1" ptz="1" managepresets="1" outputs="1" presets="1" events="1" smartsearch="1" sequences="1" startrecording="1" audiolive="1" audiobrowse="1" speakerlive="1" speakerspeak="1" subscriptionalarm="1" />
                </Channel>
                <Channel>
                    <Guid>r-2</Guid>
                    <ChannelGuid>c&lt;1&gt;</ChannelGuid>
                    <UserGuid>u-1</UserGuid>
                    <ChannelRights access="0" aviexport="0" jpegexport="0" databaseexport="0" videolive="0" videobrowse="0" ptz="0" managepresets="0" outputs="0" presets="0" events="0" smartsearch="0" sequences="0" startrecording="0" audiolive="0" audiobrowse="0" speakerlive="0" speakerspeak="0" subscriptionalarm="0" />
                </Channel>
                <Channel>
                    <Guid></Guid>
                    <ChannelGuid>c&lt;1&gt;</ChannelGuid>
                    <UserGuid>u-1</UserGuid>
                    <ChannelRights access="1" aviexport="1" jpegexport="1" databaseexport="1" videolive="1" videobrowse="1" ptz="1" managepresets="1" outputs="1" presets="1" events="1" smartsearch="1" sequences="1" startrecording="1" audiolive="1" audiobrowse="1" speakerlive="1" speakerspeak="1" subscriptionalarm="1" />
                </Channel>
            </Channels>
        </ChannelRights>
    </response>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetChannelRightsInfoRespEncode, WritesEachFlagUnderItsName) {
    for (std::size_t i = 0; i < flagCount; ++i) {
        Rights rights = Rights();
        setFlag(rights, i, 1);
        std::string want = "<ChannelRights";
        for (std::size_t k = 0; k < flagCount; ++k)
            want += std::string(" ") + flagNames[k] + (k == i ? "=\"1\"" : "=\"0\"");
        EXPECT_NE(answer(0, &rights, 1).bytes.find(want + " />\n"), std::string::npos) << flagNames[i];
    }
}

TEST(GetChannelRightsInfoRespEncode, WritesAnyOtherFlagByteAsOne) {
    const Rights one = entry("r", 1);
    for (const int byte : {2, 128, 255}) {
        const Rights other = entry("r", byte);
        EXPECT_EQ(answer(0, &other, 1).bytes, answer(0, &one, 1).bytes) << byte;
    }
}

std::string resultOnly(int result) {
    return wire(responseHead + enveloped("    <response name=\"GetChannelRightsInfo\">\n        <Result>" +
                                         std::to_string(result) + "</Result>\n    </response>\n"));
}

TEST(GetChannelRightsInfoRespEncode, OfARefusalHoldsTheResultAlone) {
    const Rights one = entry("r", 1);
    for (const int result : {1, -1, INT_MIN}) EXPECT_EQ(answer(result, &one, 1).bytes, resultOnly(result));
}

TEST(GetChannelRightsInfoRespEncode, WithoutEntriesHoldsTheResultAlone) {
    const Rights one = entry("r", 1);
    EXPECT_EQ(answer(0, nullptr, 1).bytes, resultOnly(0));
    for (const int count : {0, -1, INT_MIN}) EXPECT_EQ(answer(0, &one, count).bytes, resultOnly(0));
}

// Without a child ChannelRights nothing is said about the flags.
TEST(GetChannelRightsInfoParamDecode, ReadsEachChildAndNamesWhatIsMissingOrTooLong) {
    expectReadsEachChild("Channel", {{"Guid", 48, 0}, {"ChannelGuid", 48, 48}, {"UserGuid", 48, 96}},
                         GetChannelRightsInfoParamDecode);
}

TEST(GetChannelRightsInfoParamDecode, RefusesANullElement) {
    expectRefusesANullElement(GetChannelRightsInfoParamDecode);
}

// A ChannelRights element, in the Channel that carries it, of which nothing else is missing.
Rights decodeInChannel(TiXmlElement* flags, int* error) {
    const Document doc = parsed("<Channel><Guid /><ChannelGuid /><UserGuid /></Channel>");
    TiXmlElement named(*flags);
    named.SetValue("ChannelRights");
    doc->RootElement()->InsertEndChild(named);
    doc->RootElement()->InsertEndChild(TiXmlElement("ChannelRights")); // a second one is not read
    return GetChannelRightsInfoParamDecode(doc->RootElement(), error);
}

TEST(GetChannelRightsInfoParamDecode, ReadsEachFlagAndNamesWhatIsMissing) {
    std::vector<AttributeField> flags;
    for (std::size_t i = 0; i < flagCount; ++i)
        flags.push_back({flagNames[i], AttributeField::flag, firstFlag + i});
    expectReadsEachAttribute("ChannelRights", flags, decodeInChannel);
}

// Two users' entries, which have each flag between them, and texts as long as their fields.
Rights full(char first, std::size_t odd) {
    Rights made;
    std::memset(&made, '\xA7', sizeof made);
    fill(made.Guid, first);
    fill(made.ChannelGuid, static_cast<char>(first + 1));
    fill(made.UserGuid, static_cast<char>(first + 2));
    for (std::size_t i = 0; i < flagCount; ++i) setFlag(made, i, i % 2 == odd);
    return made;
}

TEST(GetChannelRightsInfo, ComesBackAtTheClientWhichReleasesIt) {
    const Rights sent[] = {full('A', 0), full('a', 1)};
    const Received got(
        [&](char* out, int size) { return GetChannelRightsInfoRespEncode(0, 1, sent, 2, out, size); });
    __tagVtSystemRightsInfo all = __tagVtSystemRightsInfo();
    TiXmlElement* const list = got.child("ChannelRights");
    GetIntValue(list, "ChannelRights", "ChannelCounter", &all.ChannelCounter);
    ASSERT_EQ(all.ChannelCounter, 2);
    all.ChannelRights = new Rights[2];
    TiXmlElement* channel = list->FirstChildElement("Channels")->FirstChildElement("Channel");
    for (int i = 0; i < 2; ++i, channel = channel->NextSiblingElement("Channel")) {
        int error = 7;
        all.ChannelRights[i] = GetChannelRightsInfoParamDecode(channel, &error);
        EXPECT_EQ(error, 0);
        EXPECT_TRUE(sameBytes(all.ChannelRights[i], sent[i])) << i;
    }
    EXPECT_EQ(channel, nullptr);
    std::strcpy(all.UserInfo.UserName, "kept");
    for (int i = 0; i < 2; ++i) {
        ReleaseUserInfoParam(&all);
        EXPECT_EQ(all.ChannelRights, nullptr);
        EXPECT_EQ(all.ChannelCounter, 0);
        EXPECT_STREQ(all.UserInfo.UserName, "kept");
    }
}

TEST(ReleaseUserInfoParam, LeavesARecordWithoutAnArrayAlone) {
    __tagVtSystemRightsInfo all;
    std::memset(&all, '\xA7', sizeof all);
    all.ChannelRights = nullptr;
    all.ChannelCounter = 5;
    const __tagVtSystemRightsInfo before = all;
    ReleaseUserInfoParam(&all);
    EXPECT_TRUE(sameBytes(all, before));
    ReleaseUserInfoParam(nullptr);
}

} // namespace
