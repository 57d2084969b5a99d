// Memory is bounded by the input, or by what is promised where the input only counts.
#include "properties/cost_alone.h"
#include "properties/cost_families.h"
#include "properties/cost_growth.h"
#include "properties/steady.h"
#include "properties/zip_bomb.h"
#include "support/fenced_new.h"
#include "support/muted.h"
#include "views/layouts.h"

#include <LibVeltoProtocol.h>

namespace {

using namespace veltoprotocol;
using cost::alone, cost::gibibyte, cost::Outcome;

constexpr std::size_t length = cost::optimised ? 2000000 : 100000;

TEST(Decode, TakesAtMostAHundredBytesForEachByteOfTheText) {
    Faults faults;
    double most = 0;
    {
        const Muted quiet;
        for (const cost::Family& family : cost::families()) {
            const std::string text = family.text(length);
            const heap::Watch watch;
            TiXmlDocument* const doc = Decode(text.c_str());
            const double perByte = static_cast<double>(watch.most()) / static_cast<double>(text.size());
            faults.expect(perByte <= 100, family.name, std::to_string(perByte).c_str());
            faults.expect((doc != nullptr) == (family.by != cost::By::nobody), family.name, "is no document");
            most = std::max(most, perByte);
            ReleaseTiXmlDocument(doc);
            const bool clean = watch.leaked() == 0;
            faults.expect(clean, family.name, "leaks");
        }
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GT(most, 50) << "nothing was counted";
    RecordProperty("most", std::to_string(most));
}

// Printing takes what the text has, as long as it grows: a few times its length.
TEST(GetXmlEncode, TakesAFewTimesTheTextThatItGives) {
    Faults faults;
    {
        const Muted quiet;
        for (const cost::Family& family : cost::families()) {
            const Document doc(Decode(family.text(length / 4).c_str()));
            if (!doc) continue;
            const heap::Watch watch;
            const auto printed = static_cast<long>(GetXmlEncode(doc.get()).size());
            const bool few = watch.most() <= 5 * printed + 4096, clean = watch.leaked() == 0;
            faults.expect(few, family.name, "takes more");
            faults.expect(clean, family.name, "leaks");
        }
    }
    EXPECT_EQ(faults.text(), "");
}

// A text is measured without being there: of many elements, deep inside, it would be 200 times what came.
TEST(GetXmlLength, TakesNoMoreForALongTextThanForAShortOne) {
    const auto most = [](std::size_t length) {
        const cost::Family deep = {"", cost::By::scan, cost::usual + cost::times(127, "<b>"), "x<a/>",
                                   cost::times(127, "</b>")};
        const Document doc(Decode(deep.text(length).c_str()));
        EXPECT_NE(doc, nullptr);
        const heap::Watch watch;
        EXPECT_GT(GetXmlLength(doc.get()), static_cast<int>(100 * length));
        return watch.most();
    };
    const long few = most(length / 10);
    EXPECT_EQ(most(length / 2), few);
    EXPECT_LT(few, 4096);
}

const char* readBlock(const std::string& block) {
    int error = 7;
    __tagVtRecordParam found =
        GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), &error);
    const char* const what = found.Records ? "records" : "no records";
    ReleaseRecordParam(&found);
    return what;
}

// These processes need gibibytes, which a sanitizer multiplies.
TEST(GetSearchRecordResultDecode, TakesLessThanTwoGibibytesForABomb) {
    if (!cost::optimised) GTEST_SKIP() << "measured in the release build";
    constexpr std::size_t size = 10000000, most = 100 * size;
    constexpr unsigned int asManyAsFit = (1U << 30) / sizeof(__tagVtRecordElementParam);
    const struct {
        std::size_t plain;
        unsigned int counter;
        const char* what;
        long least, limit;
    } bombs[] = {{most, 0, "records", 0, gibibyte / 2}, // read to its end, kept nowhere
                 {most, 4294967295U, "std::bad_alloc", 900L << 20, 2 * gibibyte},
                 {most, asManyAsFit, "records", gibibyte, 2 * gibibyte},
                 {most + 1, 0, "no records", 0, gibibyte / 2},
                 {3 * most, 4294967295U, "no records", 0, 2 * gibibyte}};
    for (const auto& bomb : bombs) {
        const std::string block = cost::zipBomb(size, bomb.plain, bomb.counter);
        ASSERT_EQ(block.size(), size);
        const Outcome outcome = alone([&] { return readBlock(block); });
        EXPECT_EQ(outcome.what, bomb.what) << bomb.plain << ", " << bomb.counter;
        EXPECT_LT(outcome.resident, bomb.limit) << bomb.plain << ", " << bomb.counter;
        EXPECT_GT(outcome.resident, bomb.least) << bomb.plain << ", " << bomb.counter;
    }
}

// The same counted, in every build: what a message only counts is not allocated, and nothing stays.
TEST(Decoders, LeaveMemoryAsItWas) {
    const std::string bomb = cost::zipBomb(100000, 9900000, 4294967295U),
                      list = cost::zipBomb(20000, 1900000, 900);
    const Document lying =
        parsed(layouts::decoders[0].message(layouts::counter("GroupsCounter", "2147483647")));
    std::vector<std::string> what;
    const heap::Watch watch;
    try {
        what.emplace_back(readBlock(bomb));
    } catch (const std::bad_alloc&) {
        what.emplace_back("std::bad_alloc");
    }
    const long ofBomb = watch.most();
    what.emplace_back(readBlock(list));
    const long ofList = watch.most();
    try {
        int error = 7;
        GetViewGroupDataParamDecode(lying.get(), &error);
    } catch (const std::bad_alloc&) {
        what.emplace_back("std::bad_alloc");
    }
    const long inAll = watch.most();
    const std::vector<std::string> told = std::move(what);
    EXPECT_EQ(told, (std::vector<std::string>{"std::bad_alloc", "records", "std::bad_alloc"}));
    EXPECT_LT(ofBomb, 65536);
    EXPECT_GE(ofList, 900 * static_cast<long>(sizeof(__tagVtRecordElementParam)));
    EXPECT_LT(inAll, ofList + 65536);
}

} // namespace
