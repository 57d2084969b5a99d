// Memory is bounded by the input, or by what is promised where the input only counts.
#include "properties/cost_families.h"
#include "properties/cost_growth.h"
#include "properties/steady.h"
#include "properties/zip_bomb.h"
#include "support/fenced_new.h"
#include "support/muted.h"
#include "views/layouts.h"

#include <LibVeltoProtocol.h>

#include <functional>

#include <sys/resource.h>
#include <sys/wait.h>

namespace {

using namespace veltoprotocol;

constexpr long gibibyte = 1L << 30;
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

// What a call does in a process of its own, and the most memory that this had.
struct Outcome {
    std::string what;
    long resident;
};
Outcome alone(const std::function<const char*()>& call) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        const Muted quiet;
        const char* what = "nothing";
        try {
            what = call();
        } catch (const std::bad_alloc&) {
            what = "std::bad_alloc";
        }
        const ssize_t written = write(ends[1], what, std::strlen(what));
        _exit(written > 0 ? 0 : 1);
    }
    close(ends[1]);
    char what[64] = {};
    const ssize_t got = read(ends[0], what, sizeof what - 1);
    close(ends[0]);
    int status = 0;
    rusage usage = {};
    wait4(child, &status, 0, &usage);
    return {got > 0 && status == 0 ? what : "died", usage.ru_maxrss * 1024};
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

// The costliest document, and then all that a decoder may add to it.
TEST(Decoders, TakeLessThanTwoGibibytesForTheCostliestDocument) {
    if (!cost::optimised) GTEST_SKIP() << "measured in the release build";
    constexpr std::size_t groups = (1U << 30) / sizeof(__tagVtGroupItem);
    std::string filler;
    while (filler.size() < 9990000) filler += "x<a/>";
    const auto answer = [&](std::size_t count) {
        return cost::usual +
               layouts::answer(
                   "<Result>0</Result>" +
                   layouts::enclosed(layouts::counter("GroupsCounter", std::to_string(count)) + filler));
    };
    const auto read = [](const std::string& text) {
        const Document doc(Decode(text.c_str()));
        int error = 7;
        __tagVtViewGroupData layout = GetViewGroupDataParamDecode(doc.get(), &error);
        const char* const what = layout.groups ? "groups" : "no groups";
        ReleaseViewGroupDataParam(&layout);
        return what;
    };
    const std::string text = answer(groups), beyond = answer(groups + 1), lying = answer(2147483647);
    ASSERT_LE(text.size(), 10000000u);
    const Outcome outcome = alone([&] { return read(text); });
    EXPECT_EQ(outcome.what, "groups");
    EXPECT_LT(outcome.resident, 2 * gibibyte);
    EXPECT_GT(outcome.resident, gibibyte + 500 * 1000000L);
    for (const std::string& refused : {beyond, lying}) {
        const Outcome none = alone([&] { return read(refused); });
        EXPECT_EQ(none.what, "std::bad_alloc");
        EXPECT_LT(none.resident, gibibyte);
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
