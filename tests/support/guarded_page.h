// Bytes whose last one lies directly before a page that nobody may touch: an access behind them ends the
// test, with or without a sanitizer.
#pragma once

#include <cstddef>
#include <cstring>
#include <new>
#include <string_view>

#include <sys/mman.h>
#include <unistd.h>

class GuardedPage {
  public:
    explicit GuardedPage(std::string_view bytes) : GuardedPage(bytes.size()) {
        if (!bytes.empty()) std::memcpy(data_, bytes.data(), bytes.size());
    }
    // Writable; what it holds at first is unspecified.
    explicit GuardedPage(std::size_t size) : size_(size) {
        const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        const std::size_t usable = (size + page - 1) / page * page;
        mapped_ = usable + page;
        void* const start =
            mmap(nullptr, mapped_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (start == MAP_FAILED) throw std::bad_alloc();
        start_ = static_cast<char*>(start);
        if (mprotect(start_ + usable, page, PROT_NONE) != 0) {
            munmap(start_, mapped_);
            throw std::bad_alloc();
        }
        data_ = start_ + (usable - size);
    }
    GuardedPage(const GuardedPage&) = delete;
    GuardedPage& operator=(const GuardedPage&) = delete;
    ~GuardedPage() { munmap(start_, mapped_); }

    // Never null; of an empty buffer it is the protected page itself.
    char* data() { return data_; }
    const char* data() const { return data_; }
    std::size_t size() const { return size_; }
    // The size as the protocol's functions take it.
    int length() const { return static_cast<int>(size_); }
    std::string_view bytes() const { return {data_, size_}; }

  private:
    char* start_ = nullptr;
    std::size_t mapped_ = 0;
    char* data_ = nullptr;
    std::size_t size_ = 0;
};
