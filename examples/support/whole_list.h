// Whether a decoded list holds what its counter says.
#ifndef EXAMPLES_WHOLE_LIST_H
#define EXAMPLES_WHOLE_LIST_H

#include <algorithm>

namespace example {

// Decoders keep the counter that was sent, and entries that were missing are all zero. Whoever keeps what a
// stranger sends had better look: a few bytes of message could ask for much memory.
template <class Record, class Test>
bool isWhole(const Record* list, int count, Test test) {
    return count >= 0 && std::all_of(list, list + count, test);
}

} // namespace example

#endif
