// Counts the allocations of a thread. Include this in one source file of a program: it replaces the global
// operators, each of them, since a sanitizer's own ones do not call one another. clang's thread sanitizer
// lets nobody replace them and has a hook instead, which also counts what is allocated without operator new.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>

#ifdef __has_feature
#if __has_feature(thread_sanitizer)
#define COUNTING_NEW_BY_HOOK
#include <sanitizer/allocator_interface.h>
#endif
#endif

namespace counting {

inline thread_local std::size_t allocations = 0;

#ifdef COUNTING_NEW_BY_HOOK

inline const int installed = __sanitizer_install_malloc_and_free_hooks(
    [](const volatile void*, std::size_t) { ++allocations; }, [](const volatile void*) {});

} // namespace counting

#else

inline void* allocate(std::size_t size) noexcept {
    ++allocations;
    return std::malloc(size > 0 ? size : 1);
}
inline void* allocate(std::size_t size, std::align_val_t alignment) noexcept {
    ++allocations;
    const auto step = static_cast<std::size_t>(alignment);
    return std::aligned_alloc(step, (size + step - 1) / step * step);
}
inline void* orThrow(void* memory) {
    if (!memory) throw std::bad_alloc();
    return memory;
}
// Not inlined: g++ would see a std::free of what an operator new returned, and warn.
[[gnu::noinline]] inline void release(void* memory) noexcept { std::free(memory); }

} // namespace counting

void* operator new(std::size_t size) { return counting::orThrow(counting::allocate(size)); }
void* operator new[](std::size_t size) { return counting::orThrow(counting::allocate(size)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return counting::allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return counting::allocate(size); }
void* operator new(std::size_t size, std::align_val_t alignment) {
    return counting::orThrow(counting::allocate(size, alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return counting::orThrow(counting::allocate(size, alignment));
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return counting::allocate(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return counting::allocate(size, alignment);
}

void operator delete(void* memory) noexcept { counting::release(memory); }
void operator delete[](void* memory) noexcept { counting::release(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { counting::release(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { counting::release(memory); }
void operator delete(void* memory, std::size_t) noexcept { counting::release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { counting::release(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { counting::release(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { counting::release(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { counting::release(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { counting::release(memory); }
void operator delete(void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
    counting::release(memory);
}
void operator delete[](void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
    counting::release(memory);
}

#endif
