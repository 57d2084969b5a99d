// Arrays take at most 256 KiB each, so that a message's counters cost the fuzzer no time: more is refused as
// exhausted memory is, which the library has to bear anyway. What was asked for is remembered.
//
// Included by one source of a program.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <new>

namespace bounded {

constexpr std::size_t most = std::size_t(1) << 18;
inline std::size_t largestAsked = 0;

} // namespace bounded

void* operator new[](std::size_t size) {
    bounded::largestAsked = std::max(bounded::largestAsked, size);
    void* const memory = size > bounded::most ? nullptr : std::malloc(size > 0 ? size : 1);
    if (!memory) throw std::bad_alloc();
    return memory;
}
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
