// What is found a block at a time is what is found byte by byte, with either kind of block.
#include "framing/scan.h"

#include "framing/text.h"
#include "support/guarded_page.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

using namespace veltoprotocol;

bool isNul(char byte) { return byte == '\0'; }
bool isStop(char byte) {
    return static_cast<unsigned char>(byte) < 32 || std::string("&<>\"'").find(byte) != std::string::npos;
}
bool isLineEnd(char byte) { return byte == '\r' || byte == '\n'; }

template <class Kind>
class Blocks : public testing::Test {};
#ifdef __SSE2__
using Kinds = testing::Types<WordBlock, SseBlock>;
#else
using Kinds = testing::Types<WordBlock>;
#endif
struct KindNames {
    template <class Kind>
    static std::string GetName(int) {
        return "of" + std::to_string(Kind::size) + "Bytes";
    }
};
TYPED_TEST_SUITE(Blocks, Kinds, KindNames);

// The first byte of a block that a rule holds for, or its size.
template <class Rule>
std::size_t firstByRule(const std::string& bytes, const Rule& rule) {
    for (std::size_t i = 0; i < bytes.size(); ++i)
        if (rule(bytes[i])) return i;
    return bytes.size();
}

template <class Block>
void expectFound(const std::string& bytes) {
    const Block block = Block::load(bytes.data());
    const auto first = [](auto places) { return places ? Block::first(places) : Block::size; };
    ASSERT_EQ(first(block.nuls()), firstByRule(bytes, isNul)) << testing::PrintToString(bytes);
    ASSERT_EQ(first(block.stops()), firstByRule(bytes, isStop)) << testing::PrintToString(bytes);
    ASSERT_EQ(first(block.lineEnds()), firstByRule(bytes, isLineEnd)) << testing::PrintToString(bytes);
    char copy[Block::size];
    block.store(copy);
    ASSERT_EQ(std::string(copy, sizeof copy), bytes);
}

TYPED_TEST(Blocks, FindEachByteAtEachPlace) {
    for (int byte = 0; byte < 256; ++byte)
        for (std::size_t place = 0; place < TypeParam::size; ++place) {
            std::string bytes(TypeParam::size, 'x');
            bytes[place] = static_cast<char>(byte);
            expectFound<TypeParam>(bytes);
        }
}

TYPED_TEST(Blocks, FindTheFirstOfMany) {
    std::mt19937 random(1);
    for (int i = 0; i < 100000; ++i) {
        std::string bytes(TypeParam::size, 'x');
        for (char& byte : bytes)
            if (random() % 3 == 0) byte = static_cast<char>(random());
        expectFound<TypeParam>(bytes);
    }
}

template <class Block>
void expectFoundInText(const std::string& text) {
    const GuardedPage page(text);
    const char* const end = page.data() + page.size();
    const auto place = [&](auto places) {
        return static_cast<std::size_t>(firstOf<Block>(page.data(), end, places) - page.data());
    };
    ASSERT_EQ(place([](const auto& block) { return block.stops(); }), firstByRule(text, isStop))
        << testing::PrintToString(text);
    ASSERT_EQ(place([](const auto& block) { return block.lineEnds(); }), firstByRule(text, isLineEnd))
        << testing::PrintToString(text);
}

TYPED_TEST(Blocks, ReadNoTextBeyondItsEnd) {
    for (std::size_t size = 0; size < 70; ++size) {
        expectFoundInText<TypeParam>(std::string(size, 'x'));
        for (std::size_t place = 0; place < size; ++place)
            for (const char byte : {'&', '\n', '\x01'}) {
                std::string text(size, '\xE4');
                text[place] = byte;
                expectFoundInText<TypeParam>(text);
                text[size - 1] = byte; // and a second one
                expectFoundInText<TypeParam>(text);
            }
    }
}

template <class Block, std::size_t Width>
void expectFieldEnds() {
    for (std::size_t length = 0; length <= Width; ++length)
        for (const char behind : {'\0', 'x', '<'}) {
            std::string bytes(Width, behind);
            for (std::size_t i = 0; i < length; ++i) bytes[i] = 'a';
            if (length < Width) bytes[length] = '\0';
            const GuardedPage page(bytes);
            const FieldText<Width> field{page.data()};
            std::string taken(Width + 16, '#');
            const auto nuls = [](const Block& block) { return block.nuls(); };
            const auto stops = [](const Block& block) { return block.stops(); };
            const auto take = [&](const Block& block, std::size_t at) { block.store(&taken[at]); };
            ASSERT_EQ((field.template end<Block>(nuls, take)), length) << Width;
            ASSERT_EQ((field.template end<Block>(stops)), length) << Width;
            ASSERT_EQ(taken.substr(0, length), bytes.substr(0, length)) << Width;
            ASSERT_EQ(field.text().size, length) << Width;
        }
}

TYPED_TEST(Blocks, ReadNoFieldBeyondItsWidth) {
    expectFieldEnds<TypeParam, 1>();
    expectFieldEnds<TypeParam, 7>();
    expectFieldEnds<TypeParam, 8>();
    expectFieldEnds<TypeParam, 9>();
    expectFieldEnds<TypeParam, 15>();
    expectFieldEnds<TypeParam, 16>();
    expectFieldEnds<TypeParam, 17>();
    expectFieldEnds<TypeParam, 24>();
    expectFieldEnds<TypeParam, 48>();
    expectFieldEnds<TypeParam, 100>();
    expectFieldEnds<TypeParam, 260>();
}

} // namespace
