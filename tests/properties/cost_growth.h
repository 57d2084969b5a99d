// How a call's time grows with its input.
#pragma once

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

#include <time.h>

namespace cost {

#ifdef NDEBUG
constexpr bool optimised = true;
#else
constexpr bool optimised = false; // the sanitizers' builds among others
#endif

// The processor's time that the calling thread has had: what others do on the machine hardly counts.
inline double cpuSeconds() {
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

template <class Call>
double secondsOf(const Call& call) {
    const double start = cpuSeconds();
    call();
    return cpuSeconds() - start;
}

constexpr double mostGrowth = 12; // of the time, where the input grows to eight times its size
constexpr double shortest = 1e-3; // what is faster counts as this

// Why run(make(n)) grows faster than its input between n = `size` and 8n; empty if it does not. The best of
// at least three measurements of each, one after the other, counts; a busy moment is given time to pass.
template <class Make, class Run>
std::string tooSteep(const Make& make, const Run& run, std::size_t size) {
    const auto one = make(size), eight = make(8 * size);
    double forOne = 1e9, forEight = 1e9;
    const auto holds = [&] { return forEight <= mostGrowth * std::max(forOne, shortest); };
    for (int round = 0; round < 3 || (round < 9 && !holds()); ++round) {
        forOne = std::min(forOne, secondsOf([&] { run(one); }));
        forEight = std::min(forEight, secondsOf([&] { run(eight); }));
        if (forEight > 20) break; // nothing that is linear takes so long
    }
    if (holds()) return "";
    std::ostringstream why;
    why << size << " bytes take " << forOne * 1e3 << " ms, eight times as many " << forEight * 1e3 << " ms\n";
    return why.str();
}

// The same for each size, the first ones being small: what is steep there would take hours further on.
template <class Make, class Run>
std::string tooSteep(const Make& make, const Run& run, const std::vector<std::size_t>& sizes) {
    std::string why;
    for (const std::size_t size : sizes)
        if (why.empty()) why = tooSteep(make, run, size);
    return why;
}

constexpr std::size_t little = 40 << 10; // 40 to 320 KB, for every build
constexpr std::size_t much = 1280 << 10; // 1.25 to 10 MB

inline std::vector<std::size_t> upTo(std::size_t most) {
    return optimised ? std::vector<std::size_t>{little, most} : std::vector<std::size_t>{little};
}

} // namespace cost
