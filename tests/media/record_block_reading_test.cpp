// The compressed list behind the XML of a search's answer: what is read of it, and how it is released.
#include "media/record_blocks.h"

#include <algorithm>
#include <new>

namespace {

using namespace veltoprotocol;
using namespace record_blocks;

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

// The compression of so many zeros; trailing bytes, which count as input, keep it below a hundred to one.
std::string packedZeros(std::size_t count) {
    const std::string zeros(1 << 20, '\0');
    std::string block(count / 90, 'x');
    z_stream stream = {};
    EXPECT_EQ(deflateInit(&stream, Z_BEST_SPEED), Z_OK);
    stream.next_out = reinterpret_cast<Bytef*>(&block[0]);
    stream.avail_out = static_cast<uInt>(block.size());
    for (std::size_t left = count; left > 0; left -= std::min(left, zeros.size())) {
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(zeros.data()));
        stream.avail_in = static_cast<uInt>(std::min(left, zeros.size()));
        EXPECT_EQ(deflate(&stream, Z_NO_FLUSH), Z_OK);
    }
    EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
    deflateEnd(&stream);
    return block;
}

TEST(GetSearchRecordResultDecode, InflatesAGibibyteAndNoMore) {
    constexpr std::size_t gibibyte = std::size_t{1} << 30;
    EXPECT_NE(Result(packedZeros(gibibyte)).record.Records, nullptr);
    const Result longer(packedZeros(gibibyte + 1));
    EXPECT_TRUE(longer.empty());
    EXPECT_EQ(longer.error, 0);
}

TEST(GetSearchRecordResultDecode, TakesAStreamThatEndsWithItsRoom) {
    // Every length around ten, twenty, forty, eighty and a hundred times the input.
    for (const std::size_t times : {10u, 20u, 40u, 80u, 100u})
        for (const int more : {-1, 0, 1}) {
            const std::size_t input = 1000;
            const std::string plain(input * times + static_cast<std::size_t>(more + 1) - 1, '\0');
            std::string block = packed(plain);
            ASSERT_LE(block.size(), input);
            block.resize(input, 'x');
            EXPECT_EQ(Result(block).record.Records != nullptr, plain.size() <= 100 * input) << plain.size();
        }
}

TEST(GetSearchRecordResultDecode, OfAStreamThatIsCutOffIsEmptyWhereverItIsCut) {
    const std::string block = packed(head("c-1", 0, 2) + element(1, "/a") + element(2, "/b"));
    for (std::size_t length = 1; length < block.size(); ++length)
        EXPECT_TRUE(Result(block.substr(0, length)).empty()) << length;
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

} // namespace
