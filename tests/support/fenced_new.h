// Operators that count for heap.h. While they are asked to, they put each allocation directly before a page
// that nobody may touch, so that an access behind it ends the test, also one by a library that no sanitizer
// knows. As failing_new.h, for one source file of a program.
//
// What is allocated ends exactly at the page: a size that is a multiple of a type's alignment keeps it. But
// clang++ takes it that what it allocates is aligned to 16 bytes, and moves 16 at once; g++ does not. So with
// clang++, where 16 bytes or more and a multiple of 4 may be those of records, up to 12 bytes behind them can
// be read. They are as `filling` decides, and tell when they are written. Of an empty array no byte can be
// read.
#pragma once

#include "support/heap.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

namespace heap {

#ifdef __clang__
constexpr bool recordsAreAligned = true;
#else
constexpr bool recordsAreAligned = false;
#endif

inline std::size_t pageSize() {
    static const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    return size;
}

// Slots of so many pages, each with a protected one behind it. They are used again, not returned. One thread
// at a time may use them.
class Slots {
  public:
    constexpr Slots(std::size_t pages, std::size_t slots) : pages_(pages), slots_(slots) {}

    std::size_t room() const { return pages_ * pageSize(); }
    bool holds(const void* memory) const {
        const auto at = reinterpret_cast<std::uintptr_t>(memory),
                   start = reinterpret_cast<std::uintptr_t>(start_);
        return start_ && at >= start && at < start + slots_ * stride();
    }

    // Null if there is no slot left.
    void* take(std::size_t size) {
        if (!start_ && !reserve()) return nullptr;
        std::size_t slot = used_;
        if (free_ > 0)
            slot = freeSlots_[--free_];
        else if (used_ < slots_ && mprotect(start_ + slot * stride(), room(), PROT_READ | PROT_WRITE) == 0)
            ++used_;
        else
            return nullptr;
        const std::size_t gap = recordsAreAligned ? gapBehind(size) : 0;
        const Held held = {true, size, gap, static_cast<unsigned char>(~filling)};
        held_[slot] = held;
        char* const memory = start_ + slot * stride() + room() - held.gap - size;
        std::memset(memory + size, held.behind, held.gap);
        return std::memset(memory, filling, size);
    }
    // The size that it had. What is freed twice, was never given or was written behind ends the test.
    std::size_t putBack(void* memory) {
        const auto offset = static_cast<std::size_t>(static_cast<char*>(memory) - start_);
        const std::size_t slot = offset / stride();
        const Held held = held_[slot];
        if (!held.taken || offset % stride() != room() - held.gap - held.size) std::abort();
        for (std::size_t i = 0; i < held.gap; ++i)
            if (static_cast<unsigned char*>(memory)[held.size + i] != held.behind) std::abort();
        std::memset(memory, 0xDD, held.size);
        held_[slot].taken = false;
        freeSlots_[free_++] = slot;
        return held.size;
    }

  private:
    struct Held {
        bool taken;
        std::size_t size, gap;
        unsigned char behind; // each byte of the gap
    };

    static std::size_t gapBehind(std::size_t size) {
        return size >= 16 && size % 4 == 0 ? (16 - size % 16) % 16 : 0;
    }

    std::size_t stride() const { return room() + pageSize(); }
    bool reserve() {
        void* const start =
            mmap(nullptr, slots_ * stride(), PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        held_ = static_cast<Held*>(std::calloc(slots_, sizeof *held_));
        freeSlots_ = static_cast<std::size_t*>(std::calloc(slots_, sizeof *freeSlots_));
        if (start == MAP_FAILED || !held_ || !freeSlots_) return false;
        start_ = static_cast<char*>(start);
        return true;
    }

    std::size_t pages_, slots_, used_ = 0, free_ = 0;
    char* start_ = nullptr;
    Held* held_ = nullptr;
    std::size_t* freeSlots_ = nullptr;
};

inline Slots everySize[] = {{1, 12000}, {2, 2000}, {4, 1000}, {16, 200}, {64, 50}, {256, 20}};

inline void* allocate(std::size_t size) noexcept {
    void* memory = nullptr;
    if (fenced)
        for (Slots& slots : everySize)
            if (!memory && size <= slots.room()) memory = slots.take(size);
    const bool inSlot = memory != nullptr;
    if (!memory) memory = std::malloc(size > 0 ? size : 1);
    if (!memory) return nullptr;
    ++live;
    bytes += static_cast<long>(inSlot ? size : malloc_usable_size(memory));
    if (bytes > peak) peak = bytes;
    return memory;
}
inline void* allocate(std::size_t size, std::align_val_t alignment) noexcept {
    const auto step = static_cast<std::size_t>(alignment);
    void* const memory = std::aligned_alloc(step, (size + step - 1) / step * step);
    if (memory) {
        ++live;
        bytes += static_cast<long>(malloc_usable_size(memory));
    }
    return memory;
}
inline void* orThrow(void* memory) {
    if (!memory) throw std::bad_alloc();
    return memory;
}
// Not inlined: g++ would see a std::free of what an operator new returned, and warn.
[[gnu::noinline]] inline void release(void* memory) noexcept {
    if (!memory) return;
    --live;
    for (Slots& slots : everySize)
        if (slots.holds(memory)) {
            bytes -= static_cast<long>(slots.putBack(memory));
            return;
        }
    bytes -= static_cast<long>(malloc_usable_size(memory));
    std::free(memory);
}

} // namespace heap

void* operator new(std::size_t size) { return heap::orThrow(heap::allocate(size)); }
void* operator new[](std::size_t size) { return heap::orThrow(heap::allocate(size)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return heap::allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return heap::allocate(size); }
void* operator new(std::size_t size, std::align_val_t alignment) {
    return heap::orThrow(heap::allocate(size, alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return heap::orThrow(heap::allocate(size, alignment));
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return heap::allocate(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return heap::allocate(size, alignment);
}

void operator delete(void* memory) noexcept { heap::release(memory); }
void operator delete[](void* memory) noexcept { heap::release(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { heap::release(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { heap::release(memory); }
void operator delete(void* memory, std::size_t) noexcept { heap::release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { heap::release(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { heap::release(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { heap::release(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { heap::release(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { heap::release(memory); }
void operator delete(void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
    heap::release(memory);
}
void operator delete[](void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
    heap::release(memory);
}
