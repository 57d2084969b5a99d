// What the library prints. Standard output leads into memory from the first use on, which costs less than a
// write to the system for each line.
#pragma once

#include <cstdio>
#include <string>

class Printed {
  public:
    // Lines printed before this are forgotten.
    Printed() { std::rewind(memory().file); }

    // What was printed since the last one of these objects was made.
    std::string text() const {
        std::fflush(memory().file);
        return {memory().bytes, memory().size};
    }

  private:
    struct Memory {
        std::FILE* file;
        char* bytes = nullptr;
        std::size_t size = 0;
        Memory() : file(open_memstream(&bytes, &size)) { stdout = file; }
    };
    static Memory& memory() {
        static Memory memory;
        return memory;
    }
};
