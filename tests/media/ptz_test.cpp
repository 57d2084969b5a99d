#include "support/encoded.h"
#include "support/read_back.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>

using namespace veltoprotocol;

namespace {

std::string ptzXml(const std::string& seqnum) {
    return R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>)" +
           seqnum +
           R"(</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="PtzControl">
        <ChannelGuid>a&lt;b</ChannelGuid>
        <Ptz Control="1" Command="-2" Speed="3" />
    </request>
</servercommandservice>
)";
}

TEST(GetPtzReqEncode, WritesTokenChannelAndTheThreeAttributes) {
    const __tagVtPtzParam ptz{1, -2, 3};
    const Encoded got = encoded([&](char* out, int size) {
        return GetPtzReqEncode("t-1", "a<b", &ptz, "10.0.0.1", 4294967295u, out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestHead + ptzXml("-1")));
}

TEST(GetPtzReqEncode, PrintsItsXml) {
    const __tagVtPtzParam ptz{1, -2, 3};
    const Encoded got = encoded(
        [&](char* out, int size) { return GetPtzReqEncode("t-1", "a<b", &ptz, "10.0.0.1", 7, out, size); });
    EXPECT_EQ(got.printed, "PtzControl req xml str:[" + ptzXml("7") + "]\n");
}

TEST(GetPtzReqEncode, PrintsItsXmlAlsoWhenTheMessageDoesNotFit) {
    const __tagVtPtzParam ptz{1, -2, 3};
    const Encoded got = encoded(
        [&](char* out, int size) { return GetPtzReqEncode("t-1", "a<b", &ptz, "10.0.0.1", 7, out, size); },
        1);
    EXPECT_EQ(got.returned, -1);
    EXPECT_EQ(got.printed, "PtzControl req xml str:[" + ptzXml("7") + "]\n");
}

TEST(GetPtzReqEncode, RefusesANullRecordAndAHostThatBreaksTheLineWithoutPrinting) {
    const __tagVtPtzParam ptz{1, -2, 3};
    const Encoded noRecord =
        encoded([&](char* out, int size) { return GetPtzReqEncode("t", "c", nullptr, "h", 7, out, size); });
    EXPECT_EQ(noRecord.returned, -1);
    EXPECT_EQ(noRecord.printed, "");
    const Encoded twoLines = encoded(
        [&](char* out, int size) { return GetPtzReqEncode("t", "c", &ptz, "h\r\nX: y", 7, out, size); });
    EXPECT_EQ(twoLines.returned, -1);
    EXPECT_EQ(twoLines.printed, "");
}

TEST(GetPtzReqEncode, WritesNullTextsAsEmptyElements) {
    const __tagVtPtzParam ptz{0, 0, 0};
    const Encoded got = encoded(
        [&](char* out, int size) { return GetPtzReqEncode(nullptr, nullptr, &ptz, nullptr, 0, out, size); });
    EXPECT_EQ(got.bytes, wire(R"(POST /servercommandservice HTTP/1.1
Host: 
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>0</seqnum>
    <version>1.0.0</version>
    <Token />
    <request name="PtzControl">
        <ChannelGuid />
        <Ptz Control="0" Command="0" Speed="0" />
    </request>
</servercommandservice>
)"));
}

TEST(GetPtzRespEncode, WritesAndPrintsTheResult) {
    const Encoded got = encoded([&](char* out, int size) { return GetPtzRespEncode(-5, 7, out, size); });
    const std::string xml = R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="PtzControl">
        <Result>-5</Result>
    </response>
</servercommandservice>
)";
    EXPECT_EQ(got.bytes, wire(responseHead + xml));
    EXPECT_EQ(got.printed, "PtzControl Resp xml str:[" + xml + "]\n");
}

TEST(GetPtzReqDecode, ReadsWhatIsThereAndNamesWhatIsNot) {
    const struct {
        const char* behaviour;
        const char* xml;
        __tagVtPtzParam want;
        const char* printed;
    } cases[] = {
        {"all three", R"(<Ptz Control="1" Command="2" Speed="3" />)", {1, 2, 3}, ""},
        {"negative values come back",
         R"(<Ptz Control="-1" Command="-2147483648" Speed="-3" />)",
         {-1, -2147483647 - 1, -3},
         ""},
        {"in another order", R"(<Ptz Speed="3" Control="1" Command="2" />)", {1, 2, 3}, ""},
        {"a missing one stays zero",
         R"(<Ptz Control="1" Speed="3" />)",
         {1, 0, 3},
         "xml file -..-Ptz(Command) element not find!\n"},
        {"none at all",
         "<Ptz />",
         {0, 0, 0},
         "xml file -..-Ptz(Control) element not find!\n"
         "xml file -..-Ptz(Command) element not find!\n"
         "xml file -..-Ptz(Speed) element not find!\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.behaviour);
        const auto got = readBack(c.xml, GetPtzReqDecode);
        EXPECT_EQ(got.printed, c.printed);
        EXPECT_EQ(got.error, 0);
        EXPECT_TRUE(sameBytes(got.record, c.want));
    }
}

TEST(GetPtzReqDecode, RefusesANullElement) {
    int error = 7;
    const __tagVtPtzParam got = GetPtzReqDecode(nullptr, &error);
    EXPECT_EQ(error, -1);
    EXPECT_TRUE(sameBytes(got, __tagVtPtzParam()));
    GetPtzReqDecode(nullptr, nullptr);
}

} // namespace
