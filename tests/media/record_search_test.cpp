// The messages of a record search, without what the block holds.
#include "support/encoded.h"
#include "support/read_back.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <cstring>

using namespace veltoprotocol;

namespace {

__tagVtSearchRecordParam search() {
    __tagVtSearchRecordParam param = __tagVtSearchRecordParam();
    param.StartTime = 1;
    param.EndTime = -2;
    param.SearchMode = 3;
    param.RecordType = 4;
    param.RecordMode = 5;
    return param;
}

TEST(GetSearchRecordReqEncode, WritesTheFiveCriteria) {
    __tagVtSearchRecordParam param = search();
    std::memset(param.reserved, 'x', sizeof param.reserved); // never sent
    const Encoded got = encoded([&](char* out, int size) {
        return GetSearchRecordReqEncode("10.0.0.1", "t-1", 4294967295u, "c-1", &param, out, size);
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
    <request name="SearchRecord">
        <ChannelGuid>c-1</ChannelGuid>
        <SearchParam StartTime="1" EndTime="-2" SearchMode="3" RecordType="4" RecordMode="5" />
    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
    char out[4096];
    EXPECT_EQ(GetSearchRecordReqEncode("h", "t", 1, "c", nullptr, out, sizeof out), -1);
}

TEST(GetSearchRecordDecode, ReadsWhatIsThereAndNamesWhatIsNot) {
    auto got =
        readBack(R"(<SearchParam StartTime="1" EndTime="-2" SearchMode="3" RecordType="4" RecordMode="5" />)",
                 GetSearchRecordDecode);
    EXPECT_TRUE(sameBytes(got.record, search()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
    got = readBack("<SearchParam />", GetSearchRecordDecode);
    EXPECT_TRUE(sameBytes(got.record, __tagVtSearchRecordParam()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-SearchParam(StartTime) element not find!\n"
                           "xml file -..-SearchParam(EndTime) element not find!\n"
                           "xml file -..-SearchParam(SearchMode) element not find!\n"
                           "xml file -..-SearchParam(RecordType) element not find!\n"
                           "xml file -..-SearchParam(RecordMode) element not find!\n");
}

TEST(GetSearchRecordDecode, RefusesANullElement) {
    int error = 7;
    EXPECT_TRUE(sameBytes(GetSearchRecordDecode(nullptr, &error), __tagVtSearchRecordParam()));
    EXPECT_EQ(error, -1);
    GetSearchRecordDecode(nullptr, nullptr);
}

TEST(RecordSearchRecords, KeepTheirShape) {
    EXPECT_EQ(sizeof(__tagVtSearchRecordParam), 20u + 32);
    EXPECT_EQ(offsetof(__tagVtSearchRecordParam, reserved), 20u);
    EXPECT_EQ(offsetof(__tagVtRecordElementParam, RecordName), 116u);
    EXPECT_EQ(offsetof(__tagVtRecordElementParam, PictureGuid), 376u);
    EXPECT_EQ(offsetof(__tagVtRecordElementParam, PictureUrl), 424u);
    EXPECT_EQ(offsetof(__tagVtRecordElementParam, PictureSize), 1456u);
    EXPECT_EQ(offsetof(__tagVtRecordElementParam, Index), 1464u);
    EXPECT_EQ(sizeof(__tagVtRecordElementParam), 1472u);
    EXPECT_EQ(offsetof(__tagVtRecordParam, Counter), 52u);
    EXPECT_EQ(offsetof(__tagVtRecordParam, Records), 56u);
}

} // namespace
