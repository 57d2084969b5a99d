#include "support/encoded.h"
#include "support/guarded_page.h"
#include "support/read_back.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstring>

using namespace veltoprotocol;

namespace {

const std::string guid = "01234567-89ab-cdef-0123-456789abcdef"; // 36 characters

__tagVtRecordElementParam item(const char* channel, const char* picture, const char* url) {
    __tagVtRecordElementParam record = __tagVtRecordElementParam();
    std::strcpy(record.ChannelGuid, channel);
    std::strcpy(record.guid, "not sent");
    std::strcpy(record.PictureGuid, picture);
    std::strcpy(record.PictureUrl, url);
    return record;
}

TEST(GetDownloadPictureReqEncode, WritesAnItemForEachPicture) {
    const __tagVtRecordElementParam items[] = {item("c-1", "p-1", "/a?b&c"), item("c-2", "p-2", "")};
    const Encoded got = encoded([&](char* out, int size) {
        return GetDownloadPictureReqEncode("10.0.0.1", "t-1", 4294967295u, items, 2, out, size);
    });
    EXPECT_EQ(got.bytes, wire(R"(POST /servercommandservice HTTP/1.1
Host: 10.0.0.1
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="DownloadPicture" Counter="2">
        <PictureItem>
            <ChannelGuid>c-1</ChannelGuid>
            <PictureParam guid="p-1" PictureUrl="/a?b&amp;c" />
        </PictureItem>
        <PictureItem>
            <ChannelGuid>c-2</ChannelGuid>
            <PictureParam guid="p-2" PictureUrl="" />
        </PictureItem>
    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetDownloadPictureReqEncode, RefusesANullArrayAndACountBelowOne) {
    const __tagVtRecordElementParam one = item("c", "p", "u");
    char out[4096];
    EXPECT_EQ(GetDownloadPictureReqEncode("h", "t", 1, &one, 0, out, sizeof out), -1);
    EXPECT_EQ(GetDownloadPictureReqEncode("h", "t", 1, &one, -1, out, sizeof out), -1);
    EXPECT_EQ(GetDownloadPictureReqEncode("h", "t", 1, nullptr, 1, out, sizeof out), -1);
    EXPECT_GT(GetDownloadPictureReqEncode("h", "t", 1, &one, 1, out, sizeof out), 0);
}

TEST(GetDownloadEMapPictureReqEncode, WritesTheMapsWithoutAChannel) {
    __tagVtEMapInfo maps[2] = {};
    std::strcpy(maps[0].MapInfoGuid, "m-1");
    std::strcpy(maps[0].CustomizeImagePath, "/maps/\"1\".png");
    std::strcpy(maps[1].MapInfoGuid, "m-2");
    const Encoded got = encoded([&](char* out, int size) {
        return GetDownloadEMapPictureReqEncode("10.0.0.1", "t-1", 7, maps, 2, out, size);
    });
    EXPECT_EQ(got.bytes, wire(R"(POST /servercommandservice HTTP/1.1
Host: 10.0.0.1
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="DownloadEMapPicture" Counter="2">
        <PictureItem>
            <PictureParam guid="m-1" PictureUrl='/maps/&quot;1&quot;.png' />
        </PictureItem>
        <PictureItem>
            <PictureParam guid="m-2" PictureUrl="" />
        </PictureItem>
    </request>
</servercommandservice>
)"));
}

TEST(GetDownloadEMapPictureReqEncode, RefusesANullArrayAndACountBelowOne) {
    const __tagVtEMapInfo one = {};
    char out[4096];
    EXPECT_EQ(GetDownloadEMapPictureReqEncode("h", "t", 1, &one, 0, out, sizeof out), -1);
    EXPECT_EQ(GetDownloadEMapPictureReqEncode("h", "t", 1, nullptr, 1, out, sizeof out), -1);
}

// Two little-endian words and the GUID.
const std::string prefix = std::string("\x04\x03\x02\x01\xFE\xFF\xFF\xFF", 8) + guid;

TEST(GetDownloadPictureDataEncode, WritesPrefixAndImageWithoutGaps) {
    const std::string image("\xFF\xD8\0\xFF\xD9", 5);
    const Encoded got = encoded([&](char* out, int size) {
        return GetDownloadPictureDataEncode(0x01020304, -2, guid.c_str(), image.data(), 5, out, size);
    });
    EXPECT_EQ(got.bytes, "HTTP/1.1 200 OK\r\nServer: vtengine\r\nConnection: keep-alive\r\n"
                         "Content-Type: image/jpg\r\nContent-Length: 49\r\n\r\n" +
                             prefix + image);
}

TEST(GetDownloadPictureDataEncode, OfAnEmptyImageHasABodyOf44Bytes) {
    const Encoded got = encoded([&](char* out, int size) {
        return GetDownloadPictureDataEncode(0x01020304, -2, guid.c_str(), nullptr, 0, out, size);
    });
    EXPECT_EQ(got.bytes, "HTTP/1.1 200 OK\r\nServer: vtengine\r\nConnection: keep-alive\r\n"
                         "Content-Type: image/jpg\r\nContent-Length: 44\r\n\r\n" +
                             prefix);
}

TEST(GetDownloadPictureDataEncode, ReadsExactly36BytesOfTheGuid) {
    const GuardedPage unterminated(guid);
    const Encoded got = encoded([&](char* out, int size) {
        return GetDownloadPictureDataEncode(0x01020304, -2, unterminated.data(), "", 0, out, size);
    });
    EXPECT_EQ(bodyOf(got.bytes), prefix);
    std::string withNul = guid;
    withNul[3] = '\0'; // no terminator is looked for
    const Encoded nul = encoded([&](char* out, int size) {
        return GetDownloadPictureDataEncode(0, 0, withNul.c_str(), "", 0, out, size);
    });
    EXPECT_EQ(bodyOf(nul.bytes), std::string(8, '\0') + withNul);
}

TEST(GetDownloadEMapPictureDataEncode, NamesItsOwnContentType) {
    const Encoded got = encoded([&](char* out, int size) {
        return GetDownloadEMapPictureDataEncode(0x01020304, -2, guid.c_str(), "png", 3, out, size);
    });
    EXPECT_EQ(got.bytes, "HTTP/1.1 200 OK\r\nServer: vtengine\r\nConnection: keep-alive\r\n"
                         "Content-Type: image/map\r\nContent-Length: 47\r\n\r\n" +
                             prefix + "png");
}

TEST(GetUploadPictureDataEncode, SendsTheCharsetBehindAnyContentType) {
    const Encoded got = encoded([&](char* out, int size) {
        return GetUploadPictureDataEncode("10.0.0.1", 0x01020304, -2, guid.c_str(), "image/jpg", "jpg", 3,
                                          out, size);
    });
    EXPECT_EQ(got.bytes, "POST /servercommandservice HTTP/1.1\r\nHost: 10.0.0.1\r\nConnection: keep-alive\r\n"
                         "Content-Type: image/jpg; charset=utf-8\r\nContent-Length: 47\r\n\r\n" +
                             prefix + "jpg");
}

TEST(GetUploadPictureDataEncode, RefusesTextsThatBreakTheLine) {
    char out[512];
    EXPECT_EQ(GetUploadPictureDataEncode("h\n", 0, 0, guid.c_str(), "t", "", 0, out, sizeof out), -1);
    EXPECT_EQ(GetUploadPictureDataEncode("h", 0, 0, guid.c_str(), "t\r", "", 0, out, sizeof out), -1);
    EXPECT_GT(GetUploadPictureDataEncode(nullptr, 0, 0, guid.c_str(), nullptr, "", 0, out, sizeof out), 0);
}

TEST(PictureDataEncoders, RefuseWhatTheyCannotSend) {
    const auto refused = [](const char* text, const char* data, int len) {
        char out[512];
        EXPECT_EQ(GetDownloadPictureDataEncode(0, 0, text, data, len, out, INT_MAX), -1);
        EXPECT_EQ(GetDownloadEMapPictureDataEncode(0, 0, text, data, len, out, INT_MAX), -1);
        EXPECT_EQ(GetUploadPictureDataEncode("h", 0, 0, text, "t", data, len, out, INT_MAX), -1);
    };
    refused(nullptr, "x", 1);
    refused(guid.c_str(), nullptr, 1);
    refused(guid.c_str(), "x", -1);
    refused(guid.c_str(), "x", INT_MIN);
    refused(guid.c_str(), "x", INT_MAX);
    refused(guid.c_str(), "x", INT_MAX - 44);
}

TEST(GetPictureParamDecode, ReadsChannelPictureAndUrl) {
    const auto got = readBack("<PictureItem><ChannelGuid>c-1</ChannelGuid>"
                              R"(<PictureParam guid="p-1" PictureUrl="/a" /></PictureItem>)",
                              GetPictureParamDecode);
    __tagVtRecordElementParam want = __tagVtRecordElementParam();
    std::strcpy(want.ChannelGuid, "c-1");
    std::strcpy(want.PictureGuid, "p-1");
    std::strcpy(want.PictureUrl, "/a");
    EXPECT_TRUE(sameBytes(got.record, want));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetPictureParamDecode, NamesWhatIsMissing) {
    auto got = readBack("<PictureItem><PictureParam /></PictureItem>", GetPictureParamDecode);
    EXPECT_TRUE(sameBytes(got.record, __tagVtRecordElementParam()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-PictureItem-ChannelGuid element not find!\n"
                           "xml file -..-PictureParam(guid) element not find!\n"
                           "xml file -..-PictureParam(PictureUrl) element not find!\n");
    got = readBack("<PictureItem />", GetPictureParamDecode); // a missing PictureParam prints nothing
    EXPECT_EQ(got.printed, "xml file -..-PictureItem-ChannelGuid element not find!\n");
}

TEST(GetPictureParamDecode, TakesTextsAsLongAsTheirCapacity) {
    const auto xml = [](std::size_t channel, std::size_t picture, std::size_t url) {
        return "<PictureItem><ChannelGuid>" + std::string(channel, 'c') +
               "</ChannelGuid><PictureParam guid=\"" + std::string(picture, 'p') + "\" PictureUrl=\"" +
               std::string(url, 'u') + "\" /></PictureItem>";
    };
    auto got = readBack(xml(48, 48, 1024), GetPictureParamDecode);
    EXPECT_EQ(got.printed, "");
    EXPECT_EQ(std::string(got.record.ChannelGuid, 48), std::string(48, 'c'));
    EXPECT_EQ(std::string(got.record.PictureGuid, 48), std::string(48, 'p'));
    EXPECT_EQ(got.record.PictureUrl, std::string(1024, 'u')); // the field goes on, with zeros
    got = readBack(xml(49, 49, 1025), GetPictureParamDecode);
    EXPECT_TRUE(sameBytes(got.record, __tagVtRecordElementParam()));
    EXPECT_EQ(got.printed, "xml file -..-PictureItem-ChannelGuid element too long!\n"
                           "xml file -..-PictureParam(guid) element too long!\n"
                           "xml file -..-PictureParam(PictureUrl) element too long!\n");
}

TEST(GetPictureParamDecode, RefusesANullElement) {
    int error = 7;
    EXPECT_TRUE(sameBytes(GetPictureParamDecode(nullptr, &error), __tagVtRecordElementParam()));
    EXPECT_EQ(error, -1);
    GetPictureParamDecode(nullptr, nullptr);
}

TEST(GetPictureParamDecode, ReadsBackWhatTheRequestCarries) {
    const __tagVtRecordElementParam sent = item("c-1", "p-1", "/a?b&c");
    const Encoded request = encoded(
        [&](char* out, int size) { return GetDownloadPictureReqEncode("h", "t", 1, &sent, 1, out, size); });
    const Document doc = parsed(bodyOf(request.bytes));
    TiXmlElement* const command = doc->RootElement()->FirstChildElement("request");
    unsigned int counter = 0;
    GetUIntValueAtt(command, "request", "Counter", &counter);
    EXPECT_EQ(counter, 1u);
    int error = 7;
    const auto got = GetPictureParamDecode(command->FirstChildElement("PictureItem"), &error);
    EXPECT_STREQ(got.ChannelGuid, "c-1");
    EXPECT_STREQ(got.PictureGuid, "p-1");
    EXPECT_STREQ(got.PictureUrl, "/a?b&c");
    EXPECT_STREQ(got.guid, "");
}

} // namespace
