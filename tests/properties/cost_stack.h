// Threads with small stacks, and how much of them is used.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <functional>
#include <new>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include <pthread.h>
#include <sys/mman.h>

// Frames grow under a sanitizer.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define COST_SANITIZED
#endif
#endif
#ifdef __SANITIZE_ADDRESS__
#define COST_SANITIZED
#endif

namespace cost {

#ifdef COST_SANITIZED
constexpr std::size_t promised = 256 << 10;
#else
constexpr std::size_t promised = 64 << 10;
#endif

// A thread's stack. Below it lie pages that nobody may touch: what needs more of it ends the test.
class Stack {
  public:
    explicit Stack(std::size_t size) : size_(size) {
        void* const start =
            mmap(nullptr, guard + size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (start == MAP_FAILED) throw std::bad_alloc();
        start_ = static_cast<unsigned char*>(start);
        mprotect(start_, guard, PROT_NONE);
    }
    Stack(const Stack&) = delete;
    Stack& operator=(const Stack&) = delete;
    ~Stack() { munmap(start_, guard + size_); }

    unsigned char* lowest() const { return start_ + guard; }
    unsigned char* end() const { return lowest() + size_; }

    // What the thread itself needs is taken from the same stack.
    void run(std::function<void()> work) const {
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setstack(&attributes, lowest(), size_);
        pthread_t thread;
        const auto call = [](void* of) -> void* {
            (*static_cast<std::function<void()>*>(of))();
            return nullptr;
        };
        const int failed = pthread_create(&thread, &attributes, call, &work);
        pthread_attr_destroy(&attributes);
        if (failed) throw std::runtime_error("no thread");
        pthread_join(thread, nullptr);
    }

  private:
    static constexpr std::size_t guard = 64 << 10;
    std::size_t size_;
    unsigned char* start_;
};

// One that is larger than it needs to be, so that it can be told how much of it was used.
class PaintedStack {
  public:
    std::size_t used(const std::function<void()>& work) const {
        unsigned char *at = stack_.lowest(), *const end = stack_.end();
        std::memset(at, paint, static_cast<std::size_t>(end - at));
        stack_.run(work);
        const std::vector<unsigned char> painted(4096, paint);
        while (at < end && std::memcmp(at, painted.data(), painted.size()) == 0) at += painted.size();
        while (at < end && *at == paint) ++at;
        return static_cast<std::size_t>(end - at);
    }

  private:
    static constexpr unsigned char paint = 0xC5;
    Stack stack_{1 << 20};
};

// Calls on threads whose stacks are as small as is promised to be enough.
class SmallStacks {
  public:
    // Made twice: measured first, so that what is too much is told by name.
    template <class Work>
    void call(const std::string& name, const Work& work) {
        names_.insert(name);
        ++calls_;
        const std::size_t used = painted_.used(work);
        if (used > most_) most_ = used, mostBy_ = name;
        if (used > promised)
            tooMuch_ += name + " used " + std::to_string(used) + " bytes\n";
        else
            small_.run(work);
    }

    std::size_t calls() const { return calls_; }
    const std::set<std::string>& names() const { return names_; }
    const std::string& tooMuch() const { return tooMuch_; }
    void expectEnough(std::size_t calls) const {
        EXPECT_EQ(tooMuch_, "");
        EXPECT_GE(calls_, calls);
        testing::Test::RecordProperty("most", static_cast<int>(most_));
        testing::Test::RecordProperty("by", mostBy_);
    }

  private:
    PaintedStack painted_;
    Stack small_{promised};
    std::set<std::string> names_;
    std::string tooMuch_, mostBy_;
    std::size_t most_ = 0, calls_ = 0;
};

} // namespace cost
