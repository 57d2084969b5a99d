// What a thread holds that came from operator new, in programs whose operators are those of fenced_new.h.
#pragma once

#include <cstddef>

namespace heap {

inline thread_local long live = 0;         // allocated and not freed yet
inline thread_local long bytes = 0;        // in all of them
inline thread_local long peak = 0;         // the most that `bytes` was
inline thread_local bool fenced = false;   // whether each allocation ends at a page that nobody may touch
inline thread_local unsigned char filling; // what fenced memory holds before it is written to

// Allocations are fenced while it lives.
class Fenced {
  public:
    Fenced() { fenced = true; }
    Fenced(const Fenced&) = delete;
    Fenced& operator=(const Fenced&) = delete;
    ~Fenced() { fenced = false; }
};

// Both from its start on.
class Watch {
  public:
    Watch() : live_(live), bytes_(bytes) { peak = bytes; }
    long leaked() const { return live - live_; }
    long most() const { return peak - bytes_; }

  private:
    long live_, bytes_;
};

} // namespace heap
