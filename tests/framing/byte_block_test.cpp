// Each question to a block against the same question to one byte at a time, for both kinds of block.
#include "framing/byte_block.h"

#include "framing/block_kinds.h"
#include "support/guarded_page.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <string>

namespace {

using namespace veltoprotocol;
using namespace std::string_literals;

template <class Kind>
class Blocks : public testing::Test {};
TYPED_TEST_SUITE(Blocks, BlockKinds, BlockKindNames);

// The marks stand where the rule holds for the byte, and the first of them is told.
template <class Marks, class Rule>
void expectMarked(Marks marks, const std::string& bytes, const Rule& holds, const char* question) {
    std::uint64_t bits = 0;
    std::size_t first = bytes.size();
    for (std::size_t k = bytes.size(); k-- > 0;)
        if (holds(static_cast<unsigned char>(bytes[k]))) bits |= std::uint64_t{1} << k, first = k;
    ASSERT_EQ(marks.bits(), bits) << question << " of " << testing::PrintToString(bytes);
    ASSERT_EQ(marks.any(), bits != 0) << question;
    if (bits == 0) return;
    ASSERT_EQ(marks.first(), first) << question << " of " << testing::PrintToString(bytes);
}

template <class Block>
void expectAnswers(const std::string& bytes) {
    const GuardedPage page(bytes);
    const Block block = Block::load(page.data());
    for (const char byte : "\r\n-\xFF\x80\x7F"s + '\0')
        expectMarked(
            block.equal(byte), bytes, [=](int c) { return c == static_cast<unsigned char>(byte); }, "equal");
    for (const char lower : "alz"s)
        expectMarked(
            block.equalInAnyCase(lower), bytes, [=](int c) { return c == lower || c == lower - 'a' + 'A'; },
            "equalInAnyCase");
    expectMarked(
        block.digits(), bytes, [](int c) { return c >= '0' && c <= '9'; }, "digits");
    expectMarked(
        block.above127(), bytes, [](int c) { return c > 127; }, "above127");
    expectMarked(
        block.below32(), bytes, [](int c) { return c < 32; }, "below32");
    expectMarked(
        block.nuls(), bytes, [](int c) { return c == 0; }, "nuls");
    expectMarked(
        block.lineEnds(), bytes, [](int c) { return c == 13 || c == 10; }, "lineEnds");
    expectMarked(
        block.stops(), bytes, [](int c) { return c < 32 || std::strchr("&<>\"'", c) != nullptr; }, "stops");

    const auto cr = block.equal('\r'), digits = block.digits(), high = block.above127();
    EXPECT_EQ((cr | digits).bits(), cr.bits() | digits.bits());
    EXPECT_EQ((high | digits).bits(), high.bits() | digits.bits());
    EXPECT_EQ((cr & digits).bits(), 0U);
    EXPECT_EQ((high & block.equal('\xFF')).bits(), block.equal('\xFF').bits());
}

TYPED_TEST(Blocks, AnswerForEachValueInEachPlace) {
    for (const char around : "\0\x01\x1F\x7F\x80\xFF\r-0x"s)
        for (std::size_t place = 0; place < TypeParam::size; ++place)
            for (int value = 0; value < 256; ++value) {
                std::string bytes(TypeParam::size, around);
                bytes[place] = static_cast<char>(value);
                expectAnswers<TypeParam>(bytes);
                if (this->HasFailure()) return;
            }
}

TYPED_TEST(Blocks, AnswerForAnyBytes) {
    std::mt19937 random(1);
    for (int i = 0; i < 5000; ++i) {
        std::string bytes(TypeParam::size, 'x');
        const unsigned int dense = i % 2 == 0 ? 1 : 3;
        for (char& byte : bytes)
            if (random() % dense == 0) byte = static_cast<char>(random());
        expectAnswers<TypeParam>(bytes);
        if (this->HasFailure()) return;
    }
}

TYPED_TEST(Blocks, StoreWhatTheyHaveLoaded) {
    std::string bytes(TypeParam::size, '\0');
    for (std::size_t k = 0; k < bytes.size(); ++k) bytes[k] = static_cast<char>(0x81 + 7 * k);
    GuardedPage page(TypeParam::size);
    TypeParam::load(bytes.data()).store(page.data());
    EXPECT_EQ(std::string(page.data(), page.size()), bytes);
}

// Of a word whose lowest bits are the first byte.
template <class Block>
Block ofWord(std::uint64_t word) {
    if constexpr (Block::size == 16)
        return Block::of(word, word + 0x0808080808080808);
    else
        return Block::of(word);
}

TYPED_TEST(Blocks, BeginWithTheLowestByteOfAWord) {
    char bytes[TypeParam::size];
    ofWord<TypeParam>(0x4746454443424140).store(bytes);
    EXPECT_EQ(std::string(bytes, sizeof bytes), "@ABCDEFGHIJKLMNO"s.substr(0, sizeof bytes));
}

TEST(WordAt, HasTheFirstByteLowest) {
    const char bytes[] = "\x01\x02\x03\x04\x05\x06\x07\x88";
    EXPECT_EQ(wordAt<std::uint8_t>(bytes), 0x01u);
    EXPECT_EQ(wordAt<std::uint32_t>(bytes), 0x04030201u);
    EXPECT_EQ(wordAt<std::uint64_t>(bytes), 0x8807060504030201u);
}

} // namespace
