// The compressed list behind the XML of a search's answer: what is written, and what is read of it.
#include "support/encoded.h"
#include "support/guarded_page.h"
#include "support/read_back.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>
#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <vector>

using namespace veltoprotocol;

namespace {

std::string packed(const std::string& plain) {
    uLongf size = compressBound(plain.size());
    std::string block(size, '\0');
    EXPECT_EQ(compress(reinterpret_cast<Bytef*>(&block[0]), &size,
                       reinterpret_cast<const Bytef*>(plain.data()), plain.size()),
              Z_OK);
    block.resize(size);
    return block;
}

std::string unpacked(const std::string& block) {
    std::string plain(1 << 20, '\0');
    uLongf size = plain.size();
    EXPECT_EQ(uncompress(reinterpret_cast<Bytef*>(&plain[0]), &size,
                         reinterpret_cast<const Bytef*>(block.data()), block.size()),
              Z_OK);
    plain.resize(size);
    return plain;
}

std::string word(unsigned int value) {
    std::string bytes;
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> (8 * i) & 255);
    return bytes;
}

std::string field(const std::string& text, std::size_t width) {
    return text + std::string(width - text.size(), '\0');
}

std::string head(const std::string& channel, int mode, unsigned int count) {
    return field(channel, 48) + word(static_cast<unsigned>(mode)) + word(count);
}

std::string element(int number, const std::string& url) {
    const auto at = [number](int i) { return word(static_cast<unsigned>(number + i)); };
    return at(0) + at(1) + at(2) + at(3) + at(4) + field(url, 64) + at(5);
}

// As element() describes it on the wire; what is not carried is filled all the same.
__tagVtRecordElementParam record(int number, const std::string& url) {
    __tagVtRecordElementParam record = __tagVtRecordElementParam();
    std::strcpy(record.ChannelGuid, "not carried");
    std::strcpy(record.guid, "not carried");
    std::strcpy(record.RecordName, "not carried");
    record.RecordType = number;
    record.RecordMode = number + 1;
    record.StartTime = number + 2;
    record.EndTime = number + 3;
    record.RecordSize = number + 4;
    std::memcpy(record.PictureUrl, url.data(), url.size());
    record.PictureSize = number + 5;
    record.Index = 99;
    return record;
}

__tagVtRecordParam found(std::vector<__tagVtRecordElementParam>& records, int mode = 2) {
    __tagVtRecordParam found = __tagVtRecordParam();
    std::strcpy(found.ChannelGuid, "c-1");
    found.ResultMode = mode;
    found.Counter = static_cast<unsigned int>(records.size());
    found.Records = records.data();
    return found;
}

std::string xml(int result) {
    return R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="SearchRecord">
        <Result>)" +
           std::to_string(result) + R"(</Result>
    </response>
</servercommandservice>
)";
}

std::string message(const std::string& body) {
    return "HTTP/1.1 200 OK\r\nServer: vtengine\r\nConnection: keep-alive\r\n"
           "Content-Type: text/xml; charset=utf-8\r\nContent-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

Encoded answer(int result, const __tagVtRecordParam* records, int roomy = 1 << 20) {
    return encoded(
        [&](char* out, int size) { return GetSearchRecordRespEncode(result, 7, records, out, size); }, roomy);
}

// The record that a block is read to, released at the end.
struct Result {
    explicit Result(const std::string& block) {
        Captured captured;
        record = GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), &error);
        printed = captured.text();
    }
    Result(const Result&) = delete;
    Result& operator=(const Result&) = delete;
    ~Result() { ReleaseRecordParam(&record); }

    bool empty() const { return sameBytes(record, __tagVtRecordParam()); }

    int error = 7;
    __tagVtRecordParam record;
    std::string printed;
};

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

TEST(GetSearchRecordResultDecode, GivesEachElementItsFieldsAndTheChannel) {
    const Result got(packed(head("c-1", 2, 2) + element(10, "/a") + element(-3, std::string(64, 'u'))));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
    EXPECT_STREQ(got.record.ChannelGuid, "c-1");
    EXPECT_EQ(got.record.ResultMode, 2);
    ASSERT_EQ(got.record.Counter, 2u);
    __tagVtRecordElementParam want = record(10, "/a");
    std::memset(want.guid, 0, sizeof want.guid);
    std::memset(want.RecordName, 0, sizeof want.RecordName);
    std::memset(want.ChannelGuid, 0, sizeof want.ChannelGuid);
    std::strcpy(want.ChannelGuid, "c-1");
    want.Index = 0;
    EXPECT_TRUE(sameBytes(got.record.Records[0], want));
    EXPECT_EQ(got.record.Records[1].PictureUrl, std::string(64, 'u'));
    EXPECT_EQ(got.record.Records[1].PictureSize, 2);
}

TEST(GetSearchRecordResultDecode, TakesTheTextOfResultModeOneForANameToo) {
    const std::string full(64, 'n');
    const Result names(packed(head("c-1", 1, 2) + element(1, "a name") + element(2, full)));
    EXPECT_STREQ(names.record.Records[0].RecordName, "a name");
    EXPECT_STREQ(names.record.Records[0].PictureUrl, "a name");
    EXPECT_EQ(names.record.Records[1].RecordName, full);
    const Result urls(packed(head("c-1", 0, 1) + element(1, "no name")));
    EXPECT_STREQ(urls.record.Records[0].RecordName, "");
}

TEST(GetSearchRecordResultDecode, LeavesElementsThatAreNotThereZeroButForTheirChannel) {
    const Result got(packed(head("c-1", 1, 3) + element(10, "/a")));
    ASSERT_EQ(got.record.Counter, 3u);
    __tagVtRecordElementParam want = __tagVtRecordElementParam();
    std::strcpy(want.ChannelGuid, "c-1");
    EXPECT_TRUE(sameBytes(got.record.Records[1], want));
    EXPECT_TRUE(sameBytes(got.record.Records[2], want));
}

TEST(GetSearchRecordResultDecode, SkipsAnItemThatDoesNotFitAndReadsTheNextFromTheSamePlace) {
    // 24 bytes of an element: five numbers, then four bytes where the 64 of the text do not fit.
    const Result got(packed(head("c-1", 0, 1) + word(1) + word(2) + word(3) + word(4) + word(5) + word(6)));
    const __tagVtRecordElementParam& element = got.record.Records[0];
    EXPECT_EQ(element.RecordSize, 5);
    EXPECT_EQ(element.PictureUrl[0], '\0');
    EXPECT_EQ(element.PictureSize, 6);
}

TEST(GetSearchRecordResultDecode, OfABlockWithoutItsHeadMisreadsIt) {
    const Result got(packed(element(7, "/a")));
    EXPECT_EQ(got.record.ChannelGuid[0], 7); // where the first number stands
    EXPECT_EQ(got.record.ResultMode, 0);     // bytes 48 to 51 lie in the text
    EXPECT_EQ(got.record.Counter, 0u);
}

TEST(GetSearchRecordResultDecode, OfFewerThan56BytesIsEmptyWithoutAnError) {
    for (const std::size_t length : {0u, 1u, 55u}) {
        const Result got(packed(std::string(length, 'x')));
        EXPECT_TRUE(got.empty()) << length;
        EXPECT_EQ(got.error, 0);
    }
    EXPECT_FALSE(Result(packed(head("", 0, 0))).empty()); // 56: an empty array
}

TEST(GetSearchRecordResultDecode, OfWhatZlibRefusesIsEmptyWithoutAnError) {
    std::string damaged = packed(head("c-1", 0, 1) + element(1, "/a"));
    const std::string cut = damaged.substr(0, damaged.size() - 1);
    damaged[damaged.size() / 2] = static_cast<char>(damaged[damaged.size() / 2] ^ 0x55);
    for (const std::string& block : {damaged, cut, std::string("no zlib at all"), std::string(1, '\x78')}) {
        const Result got(block);
        EXPECT_TRUE(got.empty());
        EXPECT_EQ(got.error, 0);
        EXPECT_EQ(got.printed, "");
    }
}

TEST(GetSearchRecordResultDecode, IgnoresWhatFollowsTheBlock) {
    const Result got(packed(head("c-1", 0, 0)) + "trailing");
    EXPECT_STREQ(got.record.ChannelGuid, "c-1");
}

TEST(GetSearchRecordResultDecode, InflatesUpToAHundredTimesTheInput) {
    // Zeros compress by more than a thousand to one; what trails the block counts as input and lowers the
    // ratio.
    const std::string plain = head("", 0, 0) + std::string(100000 - 56, '\0');
    const std::string block = packed(plain);
    ASSERT_LT(block.size(), 500u);
    const auto padded = [&](std::size_t length) { return block + std::string(length - block.size(), 'x'); };
    for (const std::size_t length :
         {1000u, 1001u, 5000u, 10000u, 10001u}) { // 100, 99.9, 20, 10 and 9.999 times
        const Result got(padded(length));
        EXPECT_NE(got.record.Records, nullptr) << length;
    }
    for (const std::size_t length : {block.size(), std::size_t{999}}) {
        const Result got(padded(length));
        EXPECT_TRUE(got.empty()) << length;
        EXPECT_EQ(got.error, 0);
    }
}

TEST(GetSearchRecordResultDecode, TakesACounterBeyondItsBudgetForExhaustedMemory) {
    for (const unsigned int counter : {4294967295u, 2147483648u, 729445u}) { // the last: 1 GiB and a bit
        const std::string block = packed(head("c-1", 0, counter));
        EXPECT_THROW(Result{block}, std::bad_alloc) << counter;
    }
}

TEST(GetSearchRecordResultDecode, RefusesMissingData) {
    int error = 7;
    EXPECT_TRUE(sameBytes(GetSearchRecordResultDecode(nullptr, 5, &error), __tagVtRecordParam()));
    EXPECT_EQ(error, -1);
    for (const int length : {0, -1, -2147483647}) {
        error = 7;
        EXPECT_TRUE(sameBytes(GetSearchRecordResultDecode("x", length, &error), __tagVtRecordParam()));
        EXPECT_EQ(error, -1);
    }
    GetSearchRecordResultDecode(nullptr, 0, nullptr);
}

TEST(ReleaseRecordParam, LeavesTheCounterAndMayBeCalledTwice) {
    const std::string block = packed(head("c-1", 0, 2));
    __tagVtRecordParam got =
        GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), nullptr);
    ASSERT_NE(got.Records, nullptr);
    for (int i = 0; i < 2; ++i) {
        ReleaseRecordParam(&got);
        EXPECT_EQ(got.Records, nullptr);
        EXPECT_EQ(got.Counter, 2u);
    }
    ReleaseRecordParam(nullptr);
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
