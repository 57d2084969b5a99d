// The search by blocks: both kinds of block, and everything that is searched for, against one look at a time.
#include "framing/block_search.h"
#include "framing/http_marks.h"
#include "framing/inspection_rules.h"
#include "support/guarded_page.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace {

using namespace veltoprotocol;
using namespace veltoprotocol::inspection;
using namespace std::string_literals;

template <class B>
class BlocksOf : public testing::Test {};
#ifdef __SSE2__
using Blocks = testing::Types<WordBlock, Sse2Block>;
#else
using Blocks = testing::Types<WordBlock>;
#endif
struct BlockNames {
    template <class B>
    static std::string GetName(int) {
        return std::to_string(B::size);
    }
};
TYPED_TEST_SUITE(BlocksOf, Blocks, BlockNames);

using Rule = bool (*)(const char*);

bool blankLineAt(const char* at) { return at[0] == '\r' && at[1] == '\n' && at[2] == '\r' && at[3] == '\n'; }
bool lineEndAt(const char* at) { return *at == '\r' || *at == '\n'; }
bool digitOrLineEndAt(const char* at) { return lineEndAt(at) || (*at >= '0' && *at <= '9'); }

std::size_t firstByTheRule(Rule standsAt, std::size_t size, const char* text, std::size_t length) {
    for (std::size_t i = 0; i + size <= length; ++i)
        if (standsAt(text + i)) return i;
    return std::string::npos;
}

template <class Thing, class B>
bool agrees(Rule standsAt, const char* text, std::size_t length) {
    const std::size_t found = find<Thing, B>({text, length});
    if (found == firstByTheRule(standsAt, Thing::size, text, length)) return true;
    ADD_FAILURE() << "found " << found << " in " << testing::PrintToString(std::string(text, length));
    return false;
}

// A text, and what remains of it behind each of its first bytes.
template <class Thing, class B>
bool agreesOnSuffixes(Rule standsAt, const std::string& text, std::size_t suffixes) {
    const GuardedPage page(text);
    for (std::size_t i = 0; i <= std::min(suffixes, text.size()); ++i)
        if (!agrees<Thing, B>(standsAt, page.data() + i, text.size() - i)) return false;
    return true;
}

// A thing alone in texts of every length up to a few strides and around the longer stretches, in every place.
template <class Thing, class B>
void findsItInEveryPlace(Rule standsAt, const std::string& thing) {
    constexpr std::size_t longest = 150;
    GuardedPage page(longest);
    for (const char filler : "x\0"s) {
        std::memset(page.data(), filler, longest);
        for (std::size_t length = 0; length <= longest; ++length) {
            char* const text = page.data() + (longest - length);
            if (!agrees<Thing, B>(standsAt, text, length)) return;
            for (std::size_t place = 0; place + thing.size() <= length; ++place) {
                std::memcpy(text + place, thing.data(), thing.size());
                if (!agrees<Thing, B>(standsAt, text, length)) return;
                std::memset(text + place, filler, thing.size());
            }
        }
        for (const std::size_t place : {900U, 1010U, 1020U, 1024U, 1087U, 1088U, 2047U, 2100U, 3000U})
            if (!agreesOnSuffixes<Thing, B>(standsAt, std::string(place, filler) + thing + "end", 200))
                return;
    }
}

// Texts made of the thing's own bytes and pieces, so that marks are dense and right ones rare.
template <class Thing, class B>
void findsItAmongItsOwnBytes(Rule standsAt, const std::string& thing) {
    std::mt19937 random(2);
    for (int i = 0; i < 400; ++i) {
        std::string text;
        const std::size_t length = random() % 2500;
        const std::size_t most = 1 + random() % thing.size();
        while (text.size() < length) {
            const std::size_t start = random() % thing.size();
            std::string piece = thing.substr(start, 1 + random() % most);
            if (random() % 4 == 0) piece[0] = static_cast<char>(piece[0] ^ 0x20);
            if (random() % 50 == 0) text.append(random() % 300, 'x');
            if (piece != thing || random() % 20 == 0) text += piece;
        }
        if (!agreesOnSuffixes<Thing, B>(standsAt, text, 3)) return;
    }
}

template <class Thing, class B>
void finds(Rule standsAt, const std::string& thing) {
    SCOPED_TRACE(testing::PrintToString(thing));
    findsItInEveryPlace<Thing, B>(standsAt, thing);
    findsItAmongItsOwnBytes<Thing, B>(standsAt, thing);
}

TYPED_TEST(BlocksOf, FindsTheFirstBlankLine) { finds<BlankLine, TypeParam>(blankLineAt, "\r\n\r\n"); }

TYPED_TEST(BlocksOf, FindsTheFirstLineEnd) {
    finds<LineEnd, TypeParam>(lineEndAt, "\r");
    finds<LineEnd, TypeParam>(lineEndAt, "\n");
}

TYPED_TEST(BlocksOf, FindsTheFirstDigitOrLineEnd) {
    for (const char* thing : {"0", "9", "\r", "\n"})
        finds<DigitOrLineEnd, TypeParam>(digitOrLineEndAt, thing);
}

TYPED_TEST(BlocksOf, FindsTheFirstHeaderName) {
    finds<ContentLengthName, TypeParam>(rules::contentLengthAt, "Content-Length");
    finds<ContentLengthName, TypeParam>(rules::contentLengthAt, "cONTeNT-lENGTH");
    finds<ContentTypeName, TypeParam>(rules::contentTypeAt, "Content-Type");
    finds<AuthorizationName, TypeParam>(rules::authorizationAt, "Authorization");
    finds<AuthorizationName, TypeParam>(rules::authorizationAt, "AUTHORIZATION");
}

// Every place of a name with every value: none but the two cases of its letter will do.
template <class Thing>
void spells(Rule standsAt, const std::string& name) {
    for (std::size_t place = 0; place < name.size(); ++place)
        for (int value = 0; value < 256; ++value) {
            std::string text = name;
            text[place] = static_cast<char>(value);
            EXPECT_EQ(Thing::standsAt(text.data()), standsAt(text.data())) << text;
        }
}

TEST(HeaderNames, AreSpeltByTheRules) {
    spells<ContentLengthName>(rules::contentLengthAt, "content-length");
    spells<ContentTypeName>(rules::contentTypeAt, "content-type");
    spells<AuthorizationName>(rules::authorizationAt, "authorization");
}

} // namespace
