#include "support/encoded.h"
#include "support/read_back.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <cstddef>
#include <cstring>
#include <type_traits>

using namespace veltoprotocol;

namespace {

const std::string startXml = R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-2147483648</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="StartRealplay">
        <ChannelGuid>c&amp;1</ChannelGuid>
        <StreamType>-1</StreamType>
    </request>
</servercommandservice>
)";

int start(char* out, int size) {
    return GetRealPlayStartReqEncode("t-1", "c&1", -1, "10.0.0.1", 2147483648u, out, size);
}

TEST(GetRealPlayStartReqEncode, WritesTokenChannelAndStreamType) {
    EXPECT_EQ(encoded(start).bytes, wire(requestHead + startXml));
}

TEST(GetRealPlayStartReqEncode, PrintsItsXmlAlsoWhenTheMessageDoesNotFit) {
    EXPECT_EQ(encoded(start).printed, "StartRealplay xml str:[" + startXml + "]\n");
    EXPECT_EQ(encoded(start, 1).printed, "StartRealplay xml str:[" + startXml + "]\n");
}

TEST(GetRealPlayStartReqEncode, PrintsXmlOfAnyLengthAsOneLine) {
    const std::string guid(5000, 'g');
    const Encoded got = encoded([&](char* out, int size) {
        return GetRealPlayStartReqEncode("t", guid.c_str(), 0, "h", 1, out, size);
    });
    EXPECT_EQ(got.printed, "StartRealplay xml str:[" + bodyOf(got.bytes) + "]\n");
}

TEST(GetRealPlayStartReqEncode, RefusesAHostThatBreaksTheLineWithoutPrinting) {
    const Encoded got = encoded(
        [](char* out, int size) { return GetRealPlayStartReqEncode("t", "c", 0, "h\nX: y", 1, out, size); });
    EXPECT_EQ(got.returned, -1);
    EXPECT_EQ(got.printed, "");
}

TEST(GetRealPlayStartRespEncode, WritesTheResultAndPrintsNothing) {
    const Encoded got =
        encoded([](char* out, int size) { return GetRealPlayStartRespEncode(-3, 7, out, size); });
    EXPECT_EQ(got.bytes, wire(R"(HTTP/1.1 200 OK
Server: vtengine
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="StartRealplay">
        <Result>-3</Result>
    </response>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(StreamHeader, Is32LittleEndianBytesInFieldOrder) {
    static_assert(sizeof(__tagVtStreamHeader) == 32, "");
    static_assert(std::is_standard_layout<__tagVtStreamHeader>::value, "");
    static_assert(std::is_trivially_copyable<__tagVtStreamHeader>::value, "");
    __tagVtStreamHeader header = __tagVtStreamHeader();
    header.Codec = 0x0102;
    header.FrameType = 0x0304;
    header.Sequence = 0x05060708;
    header.Timestamp = 0x090A0B0C0D0E0F10;
    header.Width = 0x1112;
    header.Height = 0x1314;
    header.PayloadLength = 0x15161718;
    const unsigned char want[32] = {0x02, 0x01, 0x04, 0x03, 0x08, 0x07, 0x06, 0x05, 0x10, 0x0F, 0x0E,
                                    0x0D, 0x0C, 0x0B, 0x0A, 0x09, 0x12, 0x11, 0x14, 0x13, 0x18, 0x17,
                                    0x16, 0x15, 0,    0,    0,    0,    0,    0,    0,    0};
    EXPECT_EQ(std::memcmp(&header, want, 32), 0);
}

__tagVtStreamHeader everyByteDistinct() {
    __tagVtStreamHeader header;
    char bytes[32];
    for (int i = 0; i < 32; ++i) bytes[i] = static_cast<char>(200 + i);
    std::memcpy(&header, bytes, 32);
    return header;
}

TEST(GetVideoDataEncode, WritesHeadStreamHeaderAndFrameWithoutGaps) {
    const __tagVtStreamHeader header = everyByteDistinct();
    const std::string frame("\0\0\0\1\x67", 5);
    const Encoded got = encoded([&](char* out, int size) {
        return GetVideoDataEncode(header, frame.data(), static_cast<int>(frame.size()), out, size);
    });
    EXPECT_EQ(got.bytes, "HTTP/1.1 200 OK\r\nServer: vtengine\r\nConnection: keep-alive\r\n"
                         "Content-Type: video/h264\r\nContent-Length: 37\r\n\r\n" +
                             std::string(reinterpret_cast<const char*>(&header), 32) + frame);
    EXPECT_EQ(got.printed, "");
}

TEST(GetVideoDataEncode, OfAnEmptyFrameIsHeadAndStreamHeader) {
    const __tagVtStreamHeader header = everyByteDistinct();
    for (const char* data : {"", static_cast<const char*>(nullptr)}) {
        const Encoded got =
            encoded([&](char* out, int size) { return GetVideoDataEncode(header, data, 0, out, size); });
        EXPECT_EQ(got.bytes, "HTTP/1.1 200 OK\r\nServer: vtengine\r\nConnection: keep-alive\r\n"
                             "Content-Type: video/h264\r\nContent-Length: 32\r\n\r\n" +
                                 std::string(reinterpret_cast<const char*>(&header), 32));
    }
}

TEST(GetVideoDataEncode, OfSizeZeroFailsAndWritesNothing) {
    char out = 'x';
    EXPECT_EQ(GetVideoDataEncode(everyByteDistinct(), "f", 1, &out, 0), -1);
    EXPECT_EQ(GetVideoDataEncode(everyByteDistinct(), "f", 1, &out, -1), -1);
    EXPECT_EQ(out, 'x');
}

TEST(GetVideoDataEncode, RefusesNegativeLengthsAndNullFrames) {
    char out[512];
    const __tagVtStreamHeader header = everyByteDistinct();
    EXPECT_EQ(GetVideoDataEncode(header, "f", -1, out, sizeof out), -1);
    EXPECT_EQ(GetVideoDataEncode(header, "f", INT_MIN, out, sizeof out), -1);
    EXPECT_EQ(GetVideoDataEncode(header, nullptr, 1, out, sizeof out), -1);
}

TEST(GetVideoDataEncode, OfALengthWhoseTotalWouldWrapFails) {
    char out[512];
    const __tagVtStreamHeader header = everyByteDistinct();
    EXPECT_EQ(GetVideoDataEncode(header, "f", INT_MAX, out, sizeof out), -1);
    EXPECT_EQ(GetVideoDataEncode(header, "f", INT_MAX - 32, out, INT_MAX), -1);
}

std::string request(const std::string& children) {
    return "<servercommandservice><request>" + children + "</request></servercommandservice>";
}

template <class Result>
struct Row {
    const char* behaviour;
    std::string xml;
    Result want;
    int error;
    const char* printed;
};

TEST(RealPlayStartRequestReaders, ReadTheirElement) {
    const std::string xml = request("<DeviceGuid>d</DeviceGuid><ChannelGuid>c</ChannelGuid>"
                                    "<StreamType>-2</StreamType><PlaybackGuid>p</PlaybackGuid>");
    const auto device = readBackDocument(xml, GetRealPlayStartReqDeviceGuidDecode);
    EXPECT_EQ(device.record, "d");
    EXPECT_EQ(device.error, 0);
    EXPECT_EQ(device.printed, "");
    EXPECT_EQ(readBackDocument(xml, GetRealPlayStartReqChannelGuidDecode).record, "c");
    EXPECT_EQ(readBackDocument(xml, GetRealPlayStartReqStreamTypeDecode).record, -2);
    EXPECT_EQ(readBackDocument(xml, GetPlayBackReqPlayGuidDecode).record, "p");
}

using TextReader = std::string (*)(TiXmlDocument*, int*);

struct NamedReader {
    const char* name;
    TextReader read;
};
const NamedReader textReaders[] = {{"DeviceGuid", GetRealPlayStartReqDeviceGuidDecode},
                                   {"ChannelGuid", GetRealPlayStartReqChannelGuidDecode},
                                   {"PlaybackGuid", GetPlayBackReqPlayGuidDecode}};

TEST(RealPlayStartRequestReaders, NameWhatIsMissing) {
    for (const NamedReader& reader : textReaders) {
        SCOPED_TRACE(reader.name);
        const Row<std::string> rows[] = {
            {"no root", "<other />", "", -1, "xml file servercommandservice element not find!\n"},
            {"no request", "<servercommandservice />", "", -1,
             "xml file servercommandservice-request element not find!\n"},
            {"an empty element", request(std::string("<") + reader.name + " />"), "", 0, ""},
        };
        for (const auto& row : rows) {
            SCOPED_TRACE(row.behaviour);
            const auto got = readBackDocument(row.xml, reader.read);
            EXPECT_EQ(got.record, row.want);
            EXPECT_EQ(got.error, row.error);
            EXPECT_EQ(got.printed, row.printed);
        }
        const auto got = readBackDocument(request(""), reader.read);
        EXPECT_EQ(got.record, "");
        EXPECT_EQ(got.error, -1);
        EXPECT_EQ(got.printed, std::string("xml file servercommandservice-request-") + reader.name +
                                   " element not find!\n");
    }
}

TEST(RealPlayStartRequestReaders, TakeNullDocumentsAndNullErrors) {
    for (const NamedReader& reader : textReaders) {
        int error = 7;
        Captured captured;
        EXPECT_EQ(reader.read(nullptr, &error), "");
        EXPECT_EQ(error, -1);
        EXPECT_EQ(reader.read(nullptr, nullptr), "");
        EXPECT_EQ(captured.text(), "");
    }
}

TEST(GetRealPlayStartReqStreamTypeDecode, GivesZeroAndAnErrorForAMissingElement) {
    const auto got = readBackDocument(request(""), GetRealPlayStartReqStreamTypeDecode);
    EXPECT_EQ(got.record, 0);
    EXPECT_EQ(got.error, -1);
    EXPECT_EQ(got.printed, "xml file servercommandservice-request-StreamType element not find!\n");
    int error = 7;
    EXPECT_EQ(GetRealPlayStartReqStreamTypeDecode(nullptr, &error), 0);
    EXPECT_EQ(error, -1);
}

TEST(GetRealPlayStartReqStreamTypeDecode, OfAnEmptyElementIsMinusOne) {
    const auto got = readBackDocument(request("<StreamType />"), GetRealPlayStartReqStreamTypeDecode);
    EXPECT_EQ(got.record, -1);
    EXPECT_EQ(got.error, 0);
}

TEST(GetRealPlayStartReqDeviceGuidDecode, FindsNothingInARequestOfThisLibrary) {
    const auto got = readBackDocument(startXml, GetRealPlayStartReqDeviceGuidDecode);
    EXPECT_EQ(got.record, "");
    EXPECT_EQ(got.error, -1);
}

TEST(GetRealPlayStartReqTokenDecode, ReadsTheTokenUnderTheRoot) {
    const auto got = readBackDocument(startXml, GetRealPlayStartReqTokenDecode);
    EXPECT_EQ(got.record, "t-1");
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(readBackDocument("<servercommandservice />", GetRealPlayStartReqTokenDecode).printed,
              "xml file servercommandservice-Token element not find!\n");
}

TEST(GetRealPlayStartRespDecode, TellsAMissingResponseByTheResultAlone) {
    const struct {
        const char* behaviour;
        const char* xml;
        int result, error;
        const char* printed;
    } rows[] = {
        {"a result", "<servercommandservice><response><Result>4</Result></response></servercommandservice>",
         4, 0, ""},
        {"an empty result", "<servercommandservice><response><Result /></response></servercommandservice>",
         -1, 0, ""},
        {"no root", "<other />", -1, -1, "xml file servercommandservice element not find!\n"},
        {"no response", "<servercommandservice />", -1, 0,
         "xml file servercommandservice-response element not find!\n"},
        {"no result", "<servercommandservice><response /></servercommandservice>", -1, -1,
         "xml file servercommandservice-response-Result element not find!\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.behaviour);
        int result = 99;
        const auto got = readBackDocument(row.xml, [&](TiXmlDocument* doc, int* error) {
            return GetRealPlayStartRespDecode(doc, &result, error);
        });
        EXPECT_EQ(got.record, "");
        EXPECT_EQ(result, row.result);
        EXPECT_EQ(got.error, row.error);
        EXPECT_EQ(got.printed, row.printed);
    }
    int result = 99, error = 99;
    EXPECT_EQ(GetRealPlayStartRespDecode(nullptr, &result, &error), "");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, -1);
    GetRealPlayStartRespDecode(nullptr, nullptr, nullptr);
}

} // namespace
