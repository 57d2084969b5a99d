// A message of any length out of an encoder that writes into a buffer.
#ifndef EXAMPLES_ENCODED_H
#define EXAMPLES_ENCODED_H

#include <cstddef>
#include <stdexcept>
#include <string>

namespace example {

// Calls encoder(char* out, int size) with larger and larger buffers until the message fits. An encoder
// returns -1 for a message that is too long and leaves the buffer alone, so it can simply be called again.
// begin growing
template <class Encoder>
std::string encoded(Encoder encoder) {
    constexpr std::size_t smallest = 4096;
    constexpr std::size_t largest = 1024 * 1024;
    for (std::size_t size = smallest; size <= largest; size *= 4) {
        std::string message(size, '\0');
        const int length = encoder(message.data(), static_cast<int>(size));
        if (length < 0) continue;
        message.resize(static_cast<std::size_t>(length));
        return message;
    }
    throw std::runtime_error("a message cannot be written: it is too long, or its host holds a line break");
}
// end growing

} // namespace example

#endif
