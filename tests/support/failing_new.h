// Lets an allocation of a thread fail, and counts what is not freed. Include this in one source file of a
// program: it replaces the global operators, each of them, since a sanitizer's own ones do not call one
// another.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>

namespace failing {

inline thread_local long live = 0;         // allocated and not freed yet
inline thread_local long untilFailure = 0; // the allocation that fails, from now; 0 if none does

inline bool fails() noexcept { return untilFailure > 0 && --untilFailure == 0; }
inline void* counted(void* memory) noexcept {
    if (memory) ++live;
    return memory;
}

inline void* allocate(std::size_t size) noexcept {
    if (fails()) return nullptr;
    return counted(std::malloc(size > 0 ? size : 1));
}
inline void* allocate(std::size_t size, std::align_val_t alignment) noexcept {
    if (fails()) return nullptr;
    const auto step = static_cast<std::size_t>(alignment);
    return counted(std::aligned_alloc(step, (size + step - 1) / step * step));
}
inline void* orThrow(void* memory) {
    if (!memory) throw std::bad_alloc();
    return memory;
}
// Not inlined: g++ would see a std::free of what an operator new returned, and warn.
[[gnu::noinline]] inline void release(void* memory) noexcept {
    if (memory) --live;
    std::free(memory);
}

} // namespace failing

void* operator new(std::size_t size) { return failing::orThrow(failing::allocate(size)); }
void* operator new[](std::size_t size) { return failing::orThrow(failing::allocate(size)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return failing::allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return failing::allocate(size); }
void* operator new(std::size_t size, std::align_val_t alignment) {
    return failing::orThrow(failing::allocate(size, alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return failing::orThrow(failing::allocate(size, alignment));
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return failing::allocate(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return failing::allocate(size, alignment);
}

void operator delete(void* memory) noexcept { failing::release(memory); }
void operator delete[](void* memory) noexcept { failing::release(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { failing::release(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { failing::release(memory); }
void operator delete(void* memory, std::size_t) noexcept { failing::release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { failing::release(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { failing::release(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { failing::release(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { failing::release(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { failing::release(memory); }
void operator delete(void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
    failing::release(memory);
}
void operator delete[](void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
    failing::release(memory);
}
