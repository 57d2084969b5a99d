// Whole files, byte by byte.
#ifndef EXAMPLES_FILES_H
#define EXAMPLES_FILES_H

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace example {

inline std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file) throw std::runtime_error("cannot read " + path);
    return bytes;
}

inline void writeFile(const std::string& path, std::string_view bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path);
}

} // namespace example

#endif
