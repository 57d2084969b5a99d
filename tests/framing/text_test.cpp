// Texts and fields a block at a time: what is found is what is found byte by byte, with either kind of block.
#include "framing/text.h"

#include "framing/block_kinds.h"
#include "framing/escape.h"
#include "support/guarded_page.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace veltoprotocol;

bool isStop(char byte) {
    return static_cast<unsigned char>(byte) < 32 || std::string("&<>\"'").find(byte) != std::string::npos;
}
bool isLineEnd(char byte) { return byte == '\r' || byte == '\n'; }

template <class Kind>
class TextBy : public testing::Test {};
TYPED_TEST_SUITE(TextBy, BlockKinds, BlockKindNames);

// The place of the first byte that a rule holds for, or the text's size.
template <class Rule>
std::size_t firstByRule(const std::string& bytes, const Rule& rule) {
    for (std::size_t i = 0; i < bytes.size(); ++i)
        if (rule(bytes[i])) return i;
    return bytes.size();
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

// What stands behind the end of a field that is narrower than a block is nothing that could be found.
TYPED_TEST(TextBy, IsWholeInAFieldWithoutTheBytesThatAreLookedFor) {
    const auto lineEnds = [](const auto& block) { return block.lineEnds(); };
    EXPECT_EQ((FieldText<4>{"abcd"}.template end<TypeParam>(lineEnds)), 4u);
    EXPECT_EQ((FieldText<4>{"ab\rd"}.template end<TypeParam>(lineEnds)), 2u);
}

TYPED_TEST(TextBy, IsReadUpToItsEnd) {
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

TYPED_TEST(TextBy, IsReadUpToItsFieldsWidth) {
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

// Both end at a protected page.
TEST(WritePlain, CopiesATextAndTouchesNothingElse) {
    std::string text;
    for (int i = 0; i < 70; ++i) {
        const GuardedPage from(text);
        GuardedPage to(text.size());
        ASSERT_EQ(writePlain(to.data(), {from.data(), from.size()}), to.data() + to.size());
        ASSERT_EQ(to.bytes(), text);
        text += static_cast<char>('0' + i);
    }
}

TEST(TextUpTo, EndsAtTheFirstNulOrTheWidth) {
    for (std::size_t width = 0; width < 70; ++width) {
        const std::string full(width, 'x');
        const GuardedPage page(full);
        ASSERT_EQ(textUpTo(page.data(), width).size, width);
        for (std::size_t end = 0; end < width; ++end) {
            std::string ended = full;
            ended[end] = ended[width - 1] = '\0';
            const GuardedPage two(ended);
            ASSERT_EQ(textUpTo(two.data(), width).size, end) << width;
        }
    }
}

} // namespace
