// What a received message makes the library allocate: bounded, and owned from the moment it exists.
//
// A decoder attaches each array to its record, fills it, and hands the record over at the end. Whatever
// throws in between, the record's own release function frees what is attached, since every pointer that is
// not set yet is null.
#pragma once

#include <cstddef>
#include <new>

namespace veltoprotocol {

// One for each decode call: at most 1 GiB of arrays in all, beyond that memory counts as exhausted.
class Budget {
  public:
    template <class T>
    T* zeroed(unsigned long long count) {
        if (count > left_ / sizeof(T)) throw std::bad_alloc();
        const auto length = static_cast<std::size_t>(count);
        T* const array = new T[length]();
        left_ -= length * sizeof(T);
        return array;
    }

  private:
    std::size_t left_ = std::size_t{1} << 30;
};

// A record that is being decoded; handed over, it belongs to the caller.
template <class Record>
class Decoded {
  public:
    explicit Decoded(void (*release)(Record*)) : release_(release) {}
    Decoded(const Decoded&) = delete;
    Decoded& operator=(const Decoded&) = delete;
    ~Decoded() {
        if (release_) release_(&record_);
    }

    Record& operator*() { return record_; }
    Record* operator->() { return &record_; }
    Record handOver() {
        release_ = nullptr;
        return record_;
    }

  private:
    void (*release_)(Record*);
    Record record_ = Record(); // every byte zero
};

} // namespace veltoprotocol
