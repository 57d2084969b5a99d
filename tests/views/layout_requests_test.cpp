// The request for a layout, and the requests that are refused.
#include "support/encoded.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>

using namespace veltoprotocol;

namespace {

TEST(GetViewGroupDataReqEncode, NamesTheViewGroup) {
    const Encoded got = encoded([](char* out, int size) {
        return GetViewGroupDataReqEncode("10.0.0.1", "t-1", 4294967295u, "h-1", out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="GetViewGroupData">
        <ViewGroupGuid>h-1</ViewGroupGuid>
    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetViewGroupDataReqEncode, WritesNullTextsAsEmptyElements) {
    const Encoded got = encoded([](char* out, int size) {
        return GetViewGroupDataReqEncode("10.0.0.1", nullptr, 7, nullptr, out, size);
    });
    EXPECT_EQ(got.bytes, wire(requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <Token />
    <request name="GetViewGroupData">
        <ViewGroupGuid />
    </request>
</servercommandservice>
)"));
}

TEST(GetSetViewGroupDataReqEncode, RefusesANullHead) {
    __tagVtGroupItem group = __tagVtGroupItem();
    const __tagVtViewGroupData layout = {&group, 1};
    const Encoded got = encoded([&](char* out, int size) {
        return GetSetViewGroupDataReqEncode("h", "t", 7, nullptr, &layout, out, size);
    });
    EXPECT_EQ(got.returned, -1);
    EXPECT_EQ(got.printed, "");
}

TEST(LayoutRequests, RefuseAHostThatWouldAddAHeaderLine) {
    const __tagVtViewGroupInfo info = __tagVtViewGroupInfo();
    for (const char* host : {"h\r\nX: 1", "h\r", "\nh"}) {
        const Encoded get = encoded(
            [&](char* out, int size) { return GetViewGroupDataReqEncode(host, "t", 1, "v", out, size); });
        const Encoded set = encoded([&](char* out, int size) {
            return GetSetViewGroupDataReqEncode(host, "t", 1, &info, nullptr, out, size);
        });
        EXPECT_EQ(get.returned, -1);
        EXPECT_EQ(set.returned, -1);
        EXPECT_EQ(get.printed + set.printed, "");
    }
}

TEST(LayoutRequests, TakeANullHostForEmptyText) {
    const __tagVtViewGroupInfo info = __tagVtViewGroupInfo();
    const Encoded get = encoded(
        [&](char* out, int size) { return GetViewGroupDataReqEncode(nullptr, "t", 1, "v", out, size); });
    const Encoded set = encoded([&](char* out, int size) {
        return GetSetViewGroupDataReqEncode(nullptr, "t", 1, &info, nullptr, out, size);
    });
    for (const Encoded* got : {&get, &set})
        EXPECT_NE(got->bytes.find(" HTTP/1.1\r\nHost: \r\nConnection: keep-alive\r\n"), std::string::npos);
}

} // namespace
