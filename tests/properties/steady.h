// What must hold of every call, whatever it reads: on a heap where each allocation ends at a protected page
// it leaves nothing behind, and it makes the same twice, although fresh memory holds other bytes the second
// time.
#pragma once

#include "support/heap.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>

// What is wrong with many calls. They are made while standard output is muted, so it is told at the end.
class Faults {
  public:
    void add(const std::string& where, const std::string& what) {
        if (++count_ <= 8) text_ += where + ": " + what + '\n';
    }
    void expect(bool holds, const std::string& where, const char* what) {
        if (!holds) add(where, what);
    }
    const std::string& text() const { return text_; }

  private:
    std::size_t count_ = 0;
    std::string text_;
};

// read() gives a text; so does this, the one of its first call.
template <class Read>
std::string steady(Faults& faults, const std::string& where, const Read& read) {
    std::string told[2];
    for (std::string& one : told) {
        heap::filling = static_cast<unsigned char>(&one == told ? 0xA5 : 0x5A);
        const heap::Watch watch;
        {
            const heap::Fenced fenced;
            one = read();
        }
        const long held = one.capacity() > std::string().capacity() ? 1 : 0; // by the text itself
        faults.expect(watch.leaked() == held, where, "leaks");
    }
    faults.expect(told[0] == told[1], where, "makes something else the second time");
    return std::move(told[0]);
}
