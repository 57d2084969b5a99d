// How a call's time grows with its input.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include <malloc.h>
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

// What takes less is done again and again until it has taken as much in all. Small inputs come before large
// ones, for which more care is taken.
constexpr double lasting(std::size_t size) { return size < (std::size_t{1} << 18) ? 5e-3 : 20e-3; }

// Of the time, where the input grows to eight times its size; what grows with the square takes 64 times as
// long. What is linear may take more than 8 times as long where only the larger input is beyond a cache.
constexpr double mostGrowth(std::size_t size) { return size < (std::size_t{1} << 18) ? 16 : 12; }

// What takes less passes: so fast, a nanosecond a byte, bytes are copied a few times, where caches decide.
constexpr double unnoticed(std::size_t size) { return std::max(1e-3, 1e-9 * static_cast<double>(size)); }

// The allocator returns nothing to the system from now on, and has had as much as the largest documents take.
// Otherwise the larger input alone would pay for fresh pages, at every call.
// The address sanitizer has an allocator of its own, which is left alone.
#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define VELTO_OTHER_ALLOCATOR
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || !defined(__GLIBC__)
#define VELTO_OTHER_ALLOCATOR
#endif
inline void keepMemory() {
#ifndef VELTO_OTHER_ALLOCATOR
    static const bool kept = [] {
        mallopt(M_MMAP_MAX, 0);
        mallopt(M_TRIM_THRESHOLD, -1);
        constexpr std::size_t most = 800 << 20;
        void* const memory = std::malloc(most);
        if (memory) std::memset(memory, 1, most);
        std::free(memory);
        return memory != nullptr;
    }();
    static_cast<void>(kept);
#endif
}

// What a call takes. One that tells it itself may tell it of several parts, in a std::array.
template <class Run, class Input>
auto secondsWith(const Run& run, const Input& input) {
    if constexpr (std::is_void_v<std::invoke_result_t<const Run&, const Input&>>)
        return std::array<double, 1>{secondsOf([&] { run(input); })};
    else
        return run(input);
}

template <class Parts>
double longest(const Parts& parts) {
    return *std::max_element(parts.begin(), parts.end());
}

// The average of calls that take so long in all, with each of the inputs in turn.
template <class Run, class Input>
auto averageSeconds(const Run& run, const std::vector<Input>& inputs, double lasting) {
    auto sum = secondsWith(run, inputs[0]);
    std::size_t calls = 1;
    while (calls < inputs.size() || longest(sum) < lasting) {
        const auto took = secondsWith(run, inputs[calls++ % inputs.size()]);
        for (std::size_t part = 0; part < sum.size(); ++part) sum[part] += took[part];
    }
    for (double& seconds : sum) seconds /= static_cast<double>(calls);
    return sum;
}

template <class Parts>
void lower(Parts& best, const Parts& parts) {
    for (std::size_t part = 0; part < best.size(); ++part) best[part] = std::min(best[part], parts[part]);
}

// Why run(make(n)) grows faster than its input between n = `size` and 8n; empty if it does not. What is fast
// is asked with eight inputs of n bytes, so that both sizes have as much to fetch from beyond the caches. The
// best of at least two measurements counts, one after the other; a busy moment is given time to pass.
template <class Make, class Run>
std::string tooSteep(const Make& make, const Run& run, std::size_t size) {
    keepMemory();
    std::vector<decltype(make(size))> one, eight;
    eight.push_back(make(8 * size));
    auto forEight = secondsWith(run, eight[0]);
    if (longest(forEight) <= unnoticed(8 * size)) return "";
    one.push_back(make(size));
    auto forOne = secondsWith(run, one[0]);
    while (one.size() < 8 && static_cast<double>(one.size()) * longest(forOne) < lasting(size))
        one.push_back(make(size));
    const auto holds = [&](double times) {
        for (std::size_t part = 0; part < forOne.size(); ++part)
            if (forEight[part] > std::max(times * forOne[part], unnoticed(8 * size))) return false;
        return true;
    };
    for (int round = 0; round < 2 || (round < 9 && !holds(mostGrowth(size))); ++round) {
        lower(forOne, averageSeconds(run, one, lasting(size)));
        if (!holds(mostGrowth(size))) lower(forEight, averageSeconds(run, eight, lasting(size)));
        if (!holds(3 * mostGrowth(size))) break; // no busy moment makes that much
    }
    if (holds(mostGrowth(size))) return "";
    std::ostringstream why;
    for (std::size_t part = 0; part < forOne.size(); ++part)
        why << size << " bytes take " << forOne[part] * 1e3 << " ms, eight times as many "
            << forEight[part] * 1e3 << " ms\n";
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
