// How a call's time grows with its input.
#pragma once

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>
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

constexpr double lasting = 0.05; // what takes longer is its own average

// Of the time, where the input grows to eight times its size. What grows with the square would take 64 times
// as long; what is linear may take more than 8 times as long where only the larger one is beyond the caches.
constexpr double mostGrowth(std::size_t size) { return size < (std::size_t{1} << 20) ? 16 : 12; }

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
        mallopt(M_TRIM_THRESHOLD, INT_MAX);
        constexpr std::size_t most = 800 << 20;
        void* const memory = std::malloc(most);
        if (memory) std::memset(memory, 1, most);
        std::free(memory);
        return memory != nullptr;
    }();
    static_cast<void>(kept);
#endif
}

// What is faster counts as this: so few nanoseconds a byte may become several times as many beyond the
// caches.
constexpr double shortest(std::size_t size) { return std::max(2e-3, 1e-8 * static_cast<double>(size)); }

// Why run(make(n)) grows faster than its input between n = `size` and 8n; empty if it does not. The best of
// at least three measurements, one after the other, counts; a busy moment is given time to pass.
template <class Make, class Run>
std::string tooSteep(const Make& make, const Run& run, std::size_t size) {
    keepMemory();
    const auto one = make(size), eight = make(8 * size);
    double forOne = 1e9, forEight = 1e9;
    const auto most = [&] { return mostGrowth(size) * std::max(forOne, shortest(size)); };
    const auto holds = [&] { return forEight <= most(); };
    for (int round = 0; round < 3 || (round < 9 && !holds()); ++round) {
        forOne = std::min(forOne, secondsOf([&] { run(one); }));
        if (forEight > lasting && forEight < 1e9 && holds()) continue;
        forEight = std::min(forEight, secondsOf([&] { run(eight); }));
        if (forEight > 3 * most()) break; // no busy moment makes that much
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
