// Cuts a message into chunks that are sent one by one, to show that a receiver must not care.
#ifndef EXAMPLES_SPLITTER_H
#define EXAMPLES_SPLITTER_H

#include <algorithm>
#include <cstddef>
#include <random>
#include <string_view>
#include <vector>

namespace example {

// The same seed and the same messages give the same cuts on every machine.
class Splitter {
  public:
    Splitter(unsigned int seed, bool enabled) : random_(seed), enabled_(enabled) {}

    // The chunks are views into `bytes`.
    std::vector<std::string_view> split(std::string_view bytes) {
        std::vector<std::string_view> chunks;
        while (!bytes.empty()) {
            const std::size_t length = enabled_ ? std::min(chunkLength(), bytes.size()) : bytes.size();
            chunks.push_back(bytes.substr(0, length));
            bytes.remove_prefix(length);
        }
        return chunks;
    }

  private:
    // Every third chunk or so is tiny, so that cuts fall within header names, tags and characters.
    std::size_t chunkLength() {
        const bool tiny = random_() % 3 == 0;
        return 1 + random_() % (tiny ? 8 : 240);
    }

    std::mt19937
        random_; // not one of the library's distributions: they differ from one C++ library to another
    bool enabled_;
};

} // namespace example

#endif
