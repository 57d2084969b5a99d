// The encoder against its rules written down plainly: the whole block, and compress() over it. What is
// compressed piece by piece, into the caller's buffer or beside it, must be the same byte for byte.
#include "media/record_block.h"
#include "media/record_blocks.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace veltoprotocol;
using namespace record_blocks;

std::string bytesOf(const void* item, std::size_t size) {
    return std::string(static_cast<const char*>(item), size);
}

std::string plainBlock(const __tagVtRecordParam& list) {
    std::string plain = bytesOf(list.ChannelGuid, 48) + bytesOf(&list.ResultMode, 4);
    plain += bytesOf(&list.Counter, 4);
    for (unsigned int i = 0; list.Records && i < list.Counter; ++i) {
        const __tagVtRecordElementParam& element = list.Records[i];
        for (const int* number : {&element.RecordType, &element.RecordMode, &element.StartTime,
                                  &element.EndTime, &element.RecordSize})
            plain += bytesOf(number, 4);
        plain += bytesOf(element.PictureUrl, 64) + bytesOf(&element.PictureSize, 4);
    }
    return plain;
}

using Random = std::mt19937;
using Records = std::vector<__tagVtRecordElementParam>;

// What is carried of an element, as bytes.
constexpr std::size_t carried = 88;
void fill(__tagVtRecordElementParam& element, const std::string& bytes) {
    std::memcpy(&element.RecordType, bytes.data(), 20);
    std::memcpy(element.PictureUrl, bytes.data() + 20, 64);
    std::memcpy(&element.PictureSize, bytes.data() + 84, 4);
}

// A list of which every carried byte comes from `next`.
template <class Next>
Records records(std::size_t count, const Next& next) {
    Records list(count);
    std::string bytes(carried, '\0');
    for (auto& element : list) {
        for (char& byte : bytes) byte = next();
        fill(element, bytes);
    }
    return list;
}

Records noise(Random& random, std::size_t count) {
    return records(count, [&] { return static_cast<char>(random()); });
}

Records ofFewLetters(Random& random, std::size_t count) {
    const unsigned int letters = 1 + random() % 4;
    return records(count, [&] { return static_cast<char>('a' + random() % letters); });
}

// As a recorder would answer: times that go on, paths that differ in a few characters.
Records recordings(Random& random, std::size_t count) {
    Records list(count);
    int time = 1700000000;
    for (std::size_t i = 0; i < count; ++i) {
        auto& element = list[i];
        element.RecordType = static_cast<int>(random() % 3);
        element.StartTime = time;
        element.EndTime = time += 60 + static_cast<int>(random() % 240);
        element.RecordSize = static_cast<int>(random() % 100000000);
        const std::string url = "/recordings/camera-" + std::to_string(random() % 16) + "/" +
                                std::to_string(time) + "-" + std::to_string(i) + ".jpg";
        std::memcpy(element.PictureUrl, url.data(), url.size());
        element.PictureSize = static_cast<int>(random() % 200000);
    }
    return list;
}

// Noise that comes back after so many bytes: matches about as far away as deflate's window allows.
Records comingBack(Random& random, std::size_t count) {
    const std::size_t farthest = 32768 - 262;
    const std::size_t period = farthest - 3 + random() % 7;
    std::string bytes(period, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    std::size_t at = 0;
    return records(count, [&] { return bytes[at++ % period]; });
}

// Stretches of noise, of earlier noise and of one byte, of any length.
Records patchwork(Random& random, std::size_t count) {
    std::string bytes;
    while (bytes.size() < count * carried) {
        const std::size_t length = 1 + random() % (random() % 2 ? 300 : 9000);
        const std::size_t back = 1 + random() % 40000;
        for (std::size_t i = 0, kind = random() % 3; i < length; ++i)
            if (kind == 0 || bytes.size() < back)
                bytes += static_cast<char>(random());
            else
                bytes += kind == 1 ? bytes[bytes.size() - back] : '\0';
    }
    std::size_t at = 0;
    return records(count, [&] { return bytes[at++]; });
}

using Content = Records (*)(Random&, std::size_t);
const std::vector<Content> contents{noise, ofFewLetters, recordings, comingBack, patchwork};

// Into buffers with room for anything, for the message alone, a byte less, and around the size where there is
// no telling whether the list will fit.
void expectAsCompressed(Records list, Random& random) {
    __tagVtRecordParam found = record_blocks::found(list);
    for (char& byte : found.ChannelGuid) byte = static_cast<char>(random());
    found.ResultMode = static_cast<int>(random());
    const std::string plain = plainBlock(found);
    const std::string want = message(xml(0) + packed(plain));
    const std::size_t front = want.size() - packed(plain).size();
    const std::size_t sure = front + compressBound(plain.size());
    const std::size_t sizes[] = {sure + 4096, sure - 3 + random() % 7, want.size(), want.size() - 1,
                                 want.size() + random() % (sure - want.size() + 1)};
    for (const std::size_t size : sizes) {
        std::string out(size, 'u'), expected = out;
        const bool fits = size >= want.size();
        if (fits) std::copy(want.begin(), want.end(), expected.begin());
        const int returned = GetSearchRecordRespEncode(0, 7, &found, &out[0], static_cast<int>(size));
        ASSERT_EQ(returned, fits ? static_cast<int>(want.size()) : -1);
        ASSERT_TRUE(out == expected) << list.size() << " records into " << size << " bytes";
    }
}

TEST(RecordBlock, IsWhatCompressMakesOfAnyList) {
    Random random(20260101);
    for (std::size_t count = 0; count < 100; ++count)
        for (const Content content : contents) expectAsCompressed(content(random, count), random);
    for (int i = 0; i < 20; ++i)
        for (const Content content : contents) expectAsCompressed(content(random, random() % 2000), random);
}

// Where the last piece is as long as a piece can be, and where deflate's window ends.
TEST(RecordBlock, IsWhatCompressMakesOfAListThatEndsWithAPiece) {
    Random random(20260102);
    for (const std::size_t end : {8192u, 32768u, 65536u, 98304u})
        for (std::size_t count = (end - 56) / 88 - 1; count < (end - 56) / 88 + 3; ++count)
            for (const Content content : contents) expectAsCompressed(content(random, count), random);
    // 56 + 88 * 651 = 7 * 8192, and so on after each 1024 elements: the last piece is empty.
    for (const std::size_t count : {651u, 1675u, 2699u}) {
        ASSERT_EQ((56 + 88 * count) % 8192, 0u);
        for (const Content content : contents) expectAsCompressed(content(random, count), random);
    }
}

// A single match about as far away as matches can be, around the place where deflate's window moves on.
// Pieces of, say, 13107 bytes make it move a byte too early, and this one match is lost.
TEST(RecordBlock, IsWhatCompressMakesOfAMatchWhereverItsWindowMoves) {
    Random random(20260103);
    for (const std::size_t end : {65536u, 98304u})
        for (std::size_t target = end - 268; target < end - 256; ++target)
            for (const std::size_t distance : {32505u, 32506u, 32507u}) {
                std::string bytes(88 * 1200, '\0');
                for (char& byte : bytes) byte = static_cast<char>(random());
                const std::size_t length = 8 + random() % 300, at = target - 56; // behind the head
                for (std::size_t i = 0; i < length; ++i) bytes[at + i] = bytes[at + i - distance];
                std::size_t next = 0;
                Records list = records(1200, [&] { return bytes[next++]; });
                __tagVtRecordParam found = record_blocks::found(list);
                const std::string want = message(xml(0) + packed(plainBlock(found)));
                std::string out(want.size() + 4096, 'u');
                const int size = static_cast<int>(out.size());
                ASSERT_EQ(GetSearchRecordRespEncode(0, 7, &found, &out[0], size),
                          static_cast<int>(want.size()));
                ASSERT_EQ(out.compare(0, want.size(), want), 0) << target << " back " << distance;
            }
}

// zlib's own bound may be counted in 32 bits.
TEST(longestRecordBlock, IsNoLongerThanAnyBufferMayBe) {
    __tagVtRecordElementParam entry = record(1, "/a");
    __tagVtRecordParam list = __tagVtRecordParam();
    list.Records = &entry; // none of them is looked at
    for (const unsigned int counter : {20000000u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        list.Counter = counter;
        EXPECT_EQ(longestRecordBlock(list), std::size_t{INT_MAX});
    }
    list.Counter = 1;
    EXPECT_EQ(longestRecordBlock(list), compressBound(56 + 88));
}

} // namespace
