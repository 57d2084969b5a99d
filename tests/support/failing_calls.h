// Repeats a call with each of its allocations failing in turn. As failing_new.h, for one source file of a
// program.
#pragma once

#include "support/captured.h"
#include "support/failing_new.h"
#include "support/read_back.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <string>

enum class Leaks { none, insideTheParser };

// `call` gives whether it succeeded, and frees what it got. Returns how many of its allocations failed.
template <class Call>
long allocationsThatFailed(const Call& call, Leaks leaks = Leaks::none) {
    constexpr long tooMany = 100000;
    for (long n = 1; n < tooMany; ++n) {
        bool succeeded = false, threw = false;
        const long before = failing::live;
        failing::untilFailure = n;
        try {
            succeeded = call();
        } catch (const std::bad_alloc&) {
            threw = true;
        }
        const bool failed = failing::untilFailure == 0;
        failing::untilFailure = 0;
        const long after = failing::live;

        if (!failed) { // the call needs fewer
            EXPECT_TRUE(succeeded);
            EXPECT_FALSE(threw);
            EXPECT_EQ(after, before);
            return n - 1;
        }
        EXPECT_FALSE(succeeded) << "allocation " << n;
        if (leaks == Leaks::none) {
            EXPECT_EQ(after, before) << "allocation " << n << " leaks";
        }
        EXPECT_TRUE(call()) << "after allocation " << n << " had failed";
    }
    ADD_FAILURE() << "the call never ends";
    return -1;
}

constexpr std::size_t budget = std::size_t{1} << 30; // of the arrays of one call

enum class Refused { byTheBudget, byTheOperator, notAtAll };

// Tells a count that the budget refuses from one that operator new is asked for: the allocation after the
// given ones fails, so that no test needs the memory.
template <class Decode>
Refused refusal(const std::string& xml, long allocationsBefore, const Decode& decode) {
    const Document doc = parsed(xml);
    Captured quiet;
    bool threw = false;
    const long before = failing::live;
    failing::untilFailure = allocationsBefore + 1;
    try {
        decode(doc.get(), nullptr);
    } catch (const std::bad_alloc&) {
        threw = true;
    }
    const bool asked = failing::untilFailure == 0;
    failing::untilFailure = 0;
    const long after = failing::live;
    quiet.text();
    EXPECT_EQ(after, before);
    if (!threw) return Refused::notAtAll;
    return asked ? Refused::byTheOperator : Refused::byTheBudget;
}
