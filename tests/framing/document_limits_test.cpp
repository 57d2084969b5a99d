// The scan against the parser: for every text both must pass the same limit first, or none.
#include "framing/parser_limits.h"
#include "framing/random_documents.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace {

using namespace limits;

// How often the parser gave each answer, so that a test can tell whether it asked anything.
using Answers = std::map<std::string, int>;

void expectAnswer(const std::string& text, const std::string& parser, Answers& answers) {
    ++answers[parser];
    if (scanSays(text) != parser)
        ADD_FAILURE() << "the scan says \"" << scanSays(text) << "\", the parser \"" << parser << "\" of\n"
                      << testing::PrintToString(text);
}

void expectAgreement(const std::string& text, Answers& answers) {
    expectAnswer(text, parserSays(text), answers);
}

// What stands before a fragment, so that it is read near a limit.
struct Place {
    std::string prologue;
    int levels;
    int attributes = -1; // of a tag that is still open; none if negative

    std::string text() const {
        return prologue + limits::levels(levels) + (attributes >= 0 ? tagWith(attributes) : "");
    }
};

// The same for a fragment that closes no more than a few of the elements before it. The parser sees fewer
// levels and attributes in front, and passes limits that are lower by as many: its time grows with the square
// of both.
void expectAgreement(const Place& place, const std::string& fragment, Answers& answers) {
    constexpr int fewer = 100;
    Place near = place;
    Most most;
    if (place.levels > fewer) near.levels -= fewer, most.levels -= fewer;
    if (place.attributes > fewer) near.attributes -= fewer, most.attributes -= fewer;
    expectAnswer(place.text() + fragment, parserSays(near.text() + fragment, most), answers);
}

template <class Check>
void forEachSequence(const std::vector<std::string>& pieces, int length, const Check& check,
                     const std::string& start = {}) {
    if (length == 0) return check(start);
    for (const std::string& piece : pieces)
        if (!testing::Test::HasFailure()) forEachSequence(pieces, length - 1, check, start + piece);
}

const char utf8[] = R"(<?xml version="1.0" encoding="UTF-8" ?>)";
const char latin1[] = R"(<?xml version="1.0" encoding="ISO-8859-1" ?>)";

// The rest of the tests stands on this.
TEST(parserSays, SeesAllThatTheParserDidBeforeItGaveUp) {
    EXPECT_EQ(parserSays(levels(128)), within);
    EXPECT_EQ(parserSays(levels(129)), tooDeep);
    EXPECT_EQ(parserSays(levels(128) + "<a"), tooDeep);
    EXPECT_EQ(parserSays(levels(128) + "</b>" + levels(9)), within);
    EXPECT_EQ(parserSays(levels(300)), tooDeep);
    EXPECT_EQ(parserSays(tagWith(128)), within);
    EXPECT_EQ(parserSays(tagWith(129)), within); // a value that nothing follows is not added
    EXPECT_EQ(parserSays(tagWith(129) + " "), tooMany);
    EXPECT_EQ(parserSays(tagWith(129) + " k0=''"), tooMany);
    EXPECT_EQ(parserSays("<a/><a>" + tagWith(129) + ">" + levels(300)), tooMany);
    EXPECT_EQ(parserSays(levels(128) + tagWith(129) + ">"), tooDeep);
    EXPECT_EQ(parserSays(levels(127) + tagWith(129) + ">"), tooMany);
}

TEST(exceededLimit, AgreesWithTheParserOnAllSequencesInContent) {
    const auto pieces = words("<a> </a> <a/> < </ > /> <!-- --> <![CDATA[ ]]> <! <?xml ?> x "
                              "&# &#x x6; #6; \xC3 \xE2 \xF0 \xEF\xBB\xBF ~");
    for (const char* prologue : {utf8, latin1}) {
        Answers answers;
        forEachSequence(pieces, 3, [&](const std::string& sequence) {
            expectAgreement({prologue, 127}, sequence + "<a><a></a></a></a><a><a><a>", answers);
        });
        EXPECT_GT(answers[within], 1000);
        EXPECT_GT(answers[tooDeep], 1000);
    }
}

TEST(exceededLimit, AgreesWithTheParserOnAllSequencesInATag) {
    const auto pieces = words("~ n=1 ~m='2' o=\" \" ' = ~p / > </a> <a> &# &#x #'#6; \xC3 \xEF\xBB\xBF \xF0");
    for (const char* prologue : {utf8, latin1}) {
        Answers answers;
        forEachSequence(pieces, 3, [&](const std::string& sequence) {
            expectAgreement({prologue, 126, 0}, sequence + " q='3'><a><a></a></a></a><a><a><a>", answers);
            expectAgreement({prologue, 0, 127}, sequence + " q='3' r=\"4\" s=5>", answers);
        });
        EXPECT_GT(answers[within], 200);
        EXPECT_GT(answers[tooDeep], 200);
        EXPECT_GT(answers[tooMany], 200);
    }
}

TEST(exceededLimit, AgreesWithTheParserOnAllSequencesInADeclaration) {
    const auto pieces = words("~ version encoding standalone = ' \" UTF-8 x > ? &#85;TF-8 \xC3 /");
    Answers answers;
    forEachSequence(pieces, 4, [&](const std::string& sequence) {
        // The lead byte hides the 129th level in UTF-8 only.
        expectAgreement({"<?xml" + sequence + "?>", 128}, "\xC3<a>", answers);
    });
    EXPECT_GT(answers[within], 1000);
    EXPECT_GT(answers[tooDeep], 200);
}

TEST(exceededLimit, AgreesWithTheParserNearTheLimits) {
    RandomDocuments random(1);
    Answers answers;
    for (int i = 0; i < 40000 && !HasFailure(); ++i) {
        Place place{random.prologue(), 124 + static_cast<int>(random.below(6))};
        if (random.below(3) == 0) place.attributes = 125 + static_cast<int>(random.below(5));
        std::string text;
        switch (random.below(4)) {
        case 0:
            text = random.soup(8);
            break;
        case 1:
            text = random.attributes() + ">";
            text += random.content(3);
            break;
        case 2:
            text = random.damaged(random.content(4));
            break;
        default:
            text = random.content(5);
            break;
        }
        if (random.below(2)) text += "<a><a>";
        expectAgreement(place, text, answers);
    }
    EXPECT_GT(answers[within], 3000);
    EXPECT_GT(answers[tooDeep], 3000);
    EXPECT_GT(answers[tooMany], 300);
}

TEST(exceededLimit, AgreesWithTheParserOnDamagedDocumentsOfOrdinarySize) {
    RandomDocuments random(2);
    Answers answers;
    for (int i = 0; i < 10000 && !HasFailure(); ++i) {
        std::string text = random.prologue();
        if (random.below(2)) text += random.element(3);
        if (random.below(3)) text += levels(128 + static_cast<int>(random.below(2)));
        if (random.below(4) == 0) text += tagWith(128 + static_cast<int>(random.below(3)));
        text += random.soup(3);
        text += random.content(5);
        expectAgreement(random.below(2) ? random.damaged(text) : text, answers);
    }
    EXPECT_GT(answers[within], 1000);
    EXPECT_GT(answers[tooDeep], 1000);
    EXPECT_GT(answers[tooMany], 100);
}

TEST(exceededLimit, AgreesWithTheParserOnRandomBytes) {
    RandomDocuments random(3);
    const std::string usual = "<<<>>>/='\"&#x;!-[]? ab1\n\xC3\xE2\xEF\xBB\xBF\xF0";
    Answers answers;
    for (int i = 0; i < 40000 && !HasFailure(); ++i) {
        std::string text;
        for (unsigned n = random.below(12); n > 0; --n)
            text += random.below(8) ? usual[random.below(static_cast<unsigned>(usual.size()))]
                                    : static_cast<char>(1 + random.below(255));
        expectAgreement({random.prologue(), 128}, text + "<a>", answers);
    }
    EXPECT_GT(answers[within], 4000);
    EXPECT_GT(answers[tooDeep], 4000);
}

// A character that is cut off at the end takes the parser beyond the first NUL, but never beyond the fourth.
TEST(exceededLimit, AgreesWithTheParserOnEveryTextCutOff) {
    RandomDocuments random(4);
    Answers answers;
    for (int i = 0; i < 150; ++i) {
        std::string text = utf8 + random.element(4);
        text += random.content(4);
        for (std::size_t length = 0; length <= text.size() && !HasFailure(); ++length)
            for (const char* last : {"", "\xC3", "\xE2", "\xE2\x82", "\xF0", "\xF0\x9F\x98"})
                expectAgreement(text.substr(0, length) + last, answers);
    }
    EXPECT_GT(answers[within], 10000);
}

} // namespace
