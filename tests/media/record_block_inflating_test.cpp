// The decoder against its rules written down plainly: all of the block inflated at once, then item by item.
// Blocks that are cut, damaged, too short for their Counter or far too long for it give the same.
#include "media/record_blocks.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace veltoprotocol;
using namespace record_blocks;

struct Expected {
    bool exhausted = false; // the budget of 1 GiB
    bool empty = true;
    __tagVtRecordParam head = __tagVtRecordParam();
    std::vector<__tagVtRecordElementParam> elements;
};

// An item that does not fit is skipped, and the next one is read from the same place.
void take(const std::string& plain, std::size_t& cursor, void* item, std::size_t size) {
    if (cursor + size > plain.size()) return;
    std::memcpy(item, plain.data() + cursor, size);
    cursor += size;
}

Expected expected(const std::string& block) {
    Expected want;
    std::string plain(std::min<std::size_t>(100 * block.size(), std::size_t{1} << 30), '\0');
    uLongf size = plain.size();
    if (uncompress(reinterpret_cast<Bytef*>(&plain[0]), &size, reinterpret_cast<const Bytef*>(block.data()),
                   block.size()) != Z_OK)
        return want;
    plain.resize(size);
    if (plain.size() < 56) return want;
    want.empty = false;
    std::size_t cursor = 0;
    take(plain, cursor, want.head.ChannelGuid, 48);
    take(plain, cursor, &want.head.ResultMode, 4);
    take(plain, cursor, &want.head.Counter, 4);
    want.exhausted = want.head.Counter > (1u << 30) / sizeof(__tagVtRecordElementParam);
    if (want.exhausted) return want;
    want.elements.resize(want.head.Counter);
    for (auto& element : want.elements) {
        std::memcpy(element.ChannelGuid, want.head.ChannelGuid, 48);
        for (int* number : {&element.RecordType, &element.RecordMode, &element.StartTime, &element.EndTime,
                            &element.RecordSize})
            take(plain, cursor, number, 4);
        take(plain, cursor, element.PictureUrl, 64);
        take(plain, cursor, &element.PictureSize, 4);
        if (want.head.ResultMode == 1) std::memcpy(element.RecordName, element.PictureUrl, 64);
    }
    return want;
}

struct Seen {
    int exhausted = 0, empty = 0, lists = 0;
};

void expectAsInflatedAtOnce(const std::string& block, Seen& seen) {
    const Expected want = expected(block);
    int error = 7;
    __tagVtRecordParam got = __tagVtRecordParam();
    bool exhausted = false;
    try {
        got = GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), &error);
    } catch (const std::bad_alloc&) {
        exhausted = true;
    }
    ++(want.exhausted ? seen.exhausted : want.empty ? seen.empty : seen.lists);
    ASSERT_EQ(exhausted, want.exhausted);
    if (exhausted) return;
    EXPECT_EQ(error, 0);
    EXPECT_EQ(got.Records == nullptr, want.empty);
    EXPECT_EQ(std::memcmp(got.ChannelGuid, want.head.ChannelGuid, 48), 0);
    EXPECT_EQ(got.ResultMode, want.head.ResultMode);
    EXPECT_EQ(got.Counter, want.head.Counter);
    if (!want.elements.empty() && got.Counter == want.elements.size()) {
        EXPECT_EQ(
            std::memcmp(got.Records, want.elements.data(), want.elements.size() * sizeof want.elements[0]),
            0);
    }
    ReleaseRecordParam(&got);
}

using Random = std::mt19937;

std::string noise(Random& random, std::size_t length, unsigned int letters) {
    std::string bytes(length, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random() % letters);
    return bytes;
}

// Mostly as many bytes as the Counter asks for; often a few less or more, or some other number of them.
std::string plainBlock(Random& random) {
    const unsigned int elements = random() % 8 ? random() % 40 : random() % 1500;
    const std::string channel = noise(random, 48, 256);
    const unsigned int letters = random() % 3 ? 2 : 256;
    const std::string body = noise(random, elements * 88, letters);
    const int mode = random() % 3 ? 0 : 1;
    switch (random() % 6) {
    case 0: // ends anywhere
        return (head(channel, mode, elements) + body).substr(0, random() % (57 + body.size()));
    case 1: // asks for more than there is
        return head(channel, mode, elements + random() % 100) + body;
    case 2: // asks for less
        return head(channel, mode, random() % (elements + 1)) + body + noise(random, random() % 200, letters);
    case 3: // asks for what no memory holds, or nearly
        return head(channel, mode, 4294967295u - random() % 2000000000u) + body;
    default:
        return head(channel, mode, elements) + body;
    }
}

std::string spoiled(std::string block, Random& random) {
    const std::size_t at = random() % block.size();
    switch (random() % 8) {
    case 0:
        return block.substr(0, at + 1);
    case 1:
        block[at] = static_cast<char>(random());
        return block;
    case 2:
        return block + noise(random, random() % 5000, 256);
    case 3: // its checksum
        block.back() = static_cast<char>(~block.back());
        return block;
    default:
        return block;
    }
}

TEST(RecordBlock, ReadsAsIfInflatedAtOnce) {
    Random random(20260104);
    Seen seen;
    for (int i = 0; i < 4000 && !testing::Test::HasFailure(); ++i)
        expectAsInflatedAtOnce(spoiled(packed(plainBlock(random)), random), seen);
    EXPECT_GT(seen.exhausted, 200);
    EXPECT_GT(seen.empty, 500);
    EXPECT_GT(seen.lists, 2000);
}

// Lengths around those where the room for it grows, with Counters that ask for less, the same and more; what
// trails the block brings it to either side of a hundred times its input.
TEST(RecordBlock, ReadsAsIfInflatedAtOnceWhereItsRoomEnds) {
    Random random(20260105);
    Seen seen;
    for (const std::size_t length : {16384u, 32768u, 49152u, 65536u, 131072u, 262144u})
        for (int more = -2; more <= 2 && !testing::Test::HasFailure(); ++more)
            for (const unsigned int asked : {0u, 1u, 372u, 400u, 744u, 1500u, 3000u, 4294967295u}) {
                const std::size_t plain = length + static_cast<std::size_t>(more + 2) - 2;
                const std::string block =
                    packed(head("c-1", 1, asked) + noise(random, 500, 256) + std::string(plain - 556, 'z'));
                for (const std::size_t input : {plain / 100 - 1, plain / 100, plain / 100 + 1, plain / 10})
                    expectAsInflatedAtOnce(
                        block + std::string(std::max(input, block.size()) - block.size(), 'x'), seen);
            }
    EXPECT_GT(seen.lists, 200);
    EXPECT_GT(seen.exhausted, 20);
    EXPECT_GT(seen.empty, 20);
}

} // namespace
