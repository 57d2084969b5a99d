// The compressed list behind the XML of a search's answer: what is written.
#include "media/record_blocks.h"
#include "support/guarded_page.h"

#include <algorithm>

namespace {

using namespace veltoprotocol;
using namespace record_blocks;

TEST(GetSearchRecordRespEncode, SendsHeadAndElementsBehindTheXml) {
    std::vector<__tagVtRecordElementParam> records{record(10, "/a"),
                                                   record(-3, std::string(64, 'u') + "cut")};
    const __tagVtRecordParam list = found(records);
    const Encoded got = answer(0, &list);
    const std::string plain = head("c-1", 2, 2) + element(10, "/a") + element(-3, std::string(64, 'u'));
    EXPECT_EQ(got.bytes, message(xml(0) + packed(plain)));
    EXPECT_EQ(got.printed, "");
}

TEST(GetSearchRecordRespEncode, OfARefusalSendsTheCompressionOfNothing) {
    const std::string nothing("\x78\x9C\x03\x00\x00\x00\x00\x01", 8);
    EXPECT_EQ(packed(""), nothing);
    std::vector<__tagVtRecordElementParam> records{record(10, "/a")};
    const __tagVtRecordParam list = found(records);
    EXPECT_EQ(answer(-5, &list).bytes, message(xml(-5) + nothing));
    EXPECT_EQ(answer(0, nullptr).bytes, message(xml(0) + nothing));
    const Result got(nothing);
    EXPECT_TRUE(got.empty());
    EXPECT_EQ(got.error, 0);
}

TEST(GetSearchRecordRespEncode, OfAnEmptyListSendsTheHead) {
    std::vector<__tagVtRecordElementParam> none;
    const __tagVtRecordParam list = found(none);
    const Encoded got = answer(0, &list);
    EXPECT_EQ(got.bytes, message(xml(0) + packed(head("c-1", 2, 0))));
    const Result back(bodyOf(got.bytes).substr(xml(0).size()));
    EXPECT_EQ(back.record.Counter, 0u);
    EXPECT_NE(back.record.Records, nullptr);
    EXPECT_EQ(back.error, 0);
}

TEST(GetSearchRecordRespEncode, OfANullArrayKeepsTheCounter) {
    __tagVtRecordParam list = __tagVtRecordParam();
    list.Counter = 4294967295u;
    EXPECT_EQ(answer(0, &list).bytes, message(xml(0) + packed(head("", 0, 4294967295u))));
}

// Where XML and block head do not fit, the elements go without the head; the HTTP head is longer still, so
// nobody ever sees such a message.
TEST(GetSearchRecordRespEncode, RefusesABufferWithoutRoomForXmlAndBlockHead) {
    std::vector<__tagVtRecordElementParam> records(1);
    const __tagVtRecordParam list = found(records);
    const int limit = static_cast<int>(xml(0).size()) + 56;
    char out[2048];
    std::memset(out, 'x', sizeof out);
    for (const int size : {1, limit - 1, limit, limit + 1})
        EXPECT_EQ(GetSearchRecordRespEncode(0, 7, &list, out, size), -1);
    EXPECT_TRUE(std::all_of(out, out + sizeof out, [](char c) { return c == 'x'; }));
}

TEST(GetSearchRecordRespEncode, SendsAListThatIsLongerThanTheBufferButFitsCompressed) {
    std::vector<__tagVtRecordElementParam> records(1000, record(1, "/same"));
    const __tagVtRecordParam list = found(records);
    const Encoded got = answer(0, &list, 4096); // 88,056 bytes uncompressed
    ASSERT_GT(got.returned, 0);
    std::string plain = head("c-1", 2, 1000);
    for (int i = 0; i < 1000; ++i) plain += element(1, "/same");
    EXPECT_EQ(got.bytes, message(xml(0) + packed(plain)));
}

TEST(GetSearchRecordRespEncode, ReadsNoFurtherThanItsRecords) {
    std::vector<__tagVtRecordElementParam> records{record(1, std::string(1032, 'u'))};
    const GuardedPage page(std::string(reinterpret_cast<const char*>(records.data()), sizeof records[0]));
    __tagVtRecordParam list = found(records);
    std::memset(list.ChannelGuid, 'c', sizeof list.ChannelGuid);
    list.Records = reinterpret_cast<__tagVtRecordElementParam*>(const_cast<char*>(page.data()));
    EXPECT_EQ(unpacked(bodyOf(answer(0, &list).bytes).substr(xml(0).size())),
              head(std::string(48, 'c'), 2, 1) + element(1, std::string(64, 'u')));
}

TEST(RecordSearchAnswer, IsSplitBehindItsXml) {
    std::vector<__tagVtRecordElementParam> records{record(10, "/a")};
    const __tagVtRecordParam list = found(records);
    const std::string body = bodyOf(answer(0, &list).bytes);
    const Document doc = parsed(body); // the block behind the XML is not looked at
    const int length = GetXmlLength(doc.get());
    ASSERT_EQ(length, static_cast<int>(xml(0).size()));
    EXPECT_EQ(GetResponseErrorcodeDecode(doc.get(), nullptr), 0);
    const Result got(body.substr(static_cast<std::size_t>(length)));
    EXPECT_EQ(got.record.Counter, 1u);
    EXPECT_EQ(got.record.Records[0].EndTime, 13);
}

} // namespace
