// Makes calls of the library with each of their allocations failing in turn, and tells what is wrong with
// them. As failing_new.h, for one source file of a program.
#pragma once

#include "properties/single_readers.h"
#include "properties/steady.h"
#include "support/captured.h"
#include "support/failing_new.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <functional>
#include <set>
#include <string>
#include <utility>

namespace failing {

using Names = std::set<std::string>;
using Call = std::function<std::string()>; // tells what libraryCall() gave

// Lets one allocation of the library fail, or none.
class Exhaustion : public AroundCalls {
  public:
    static constexpr long never = LONG_MAX;

    explicit Exhaustion(long nth) : nth_(nth) { aroundCalls = this; }
    Exhaustion(const Exhaustion&) = delete;
    Exhaustion& operator=(const Exhaustion&) = delete;
    ~Exhaustion() { aroundCalls = nullptr; }

    void before() override {
        ++calls_;
        untilFailure = nth_;
    }
    void after() override { allocations_ = nth_ - std::exchange(untilFailure, 0); }

    int calls() const { return calls_; }
    long allocations() const { return allocations_; } // the one that failed included

  private:
    long nth_;
    int calls_ = 0;
    long allocations_ = 0;
};

struct Watched {
    std::string told;
    long allocations;
    long printed; // bytes
};

// Standard output is captured meanwhile.
inline Watched watched(Faults& faults, const std::string& where, long nth, const Call& call) {
    Watched watched{};
    Exhaustion exhaustion(nth);
    const long printed = std::ftell(stdout), before = live;
    watched.told = call();
    const long held = watched.told.capacity() > std::string().capacity() ? 1 : 0; // by the text itself
    faults.expect(live == before + held, where, "leaks");
    faults.expect(exhaustion.calls() == 1, where, "is not what is called");
    watched.printed = std::ftell(stdout) - printed;
    watched.allocations = exhaustion.allocations();
    return watched;
}

// What is told of a call that throws begins so; what the caller handed to it may follow.
inline bool threw(const std::string& told) {
    return told.compare(0, std::string(exhausted).size(), exhausted) == 0;
}

enum class Prints { asFarAsItGets, nothing };

// Returns how many allocations failed: all that the call makes.
inline long failedInTurn(Faults& faults, const std::string& where, const Call& call,
                         Prints prints = Prints::asFarAsItGets) {
    const Watched whole = watched(faults, where, Exhaustion::never, call);
    faults.expect(!threw(whole.told), where, "throws by itself");
    for (long n = 1; n <= whole.allocations; ++n) {
        const std::string which = where + ", allocation " + std::to_string(n);
        const Watched failed = watched(faults, which, n, call);
        faults.expect(failed.allocations == n, which, "was not asked for");
        faults.expect(threw(failed.told), which, ("does not throw: " + failed.told.substr(0, 80)).c_str());
        faults.expect(failed.printed <= (prints == Prints::nothing ? 0 : whole.printed), which, "prints");
        const Watched again = watched(faults, which, Exhaustion::never, call);
        faults.expect(again.told == whole.told && again.allocations == whole.allocations &&
                          again.printed == whole.printed,
                      which, "is not the same afterwards");
    }
    return whole.allocations;
}

// What was found wrong with many calls, and which of them allocate.
class EveryCall {
  public:
    void check(const std::string& name, const Call& call, Prints prints = Prints::asFarAsItGets) {
        const long failed = failedInTurn(faults_, name, call, prints);
        if (failed > 0) allocating_.insert(name);
        failed_ += failed;
    }
    Faults& faults() { return faults_; }
    // Ends the capture.
    void expect(const Names& allocating, long failures) {
        quiet_.text();
        EXPECT_EQ(faults_.text(), "");
        EXPECT_EQ(allocating_, allocating);
        EXPECT_GE(failed_, failures);
    }

  private:
    Captured quiet_;
    Faults faults_;
    Names allocating_;
    long failed_ = 0;
};

} // namespace failing
