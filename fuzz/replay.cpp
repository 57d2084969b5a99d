// A main for a target without a fuzzer: runs each file that is given or lies in a folder that is given, in
// the order of their names. Folders that do not exist are empty: there may be no findings yet.
#include "fuzz/target.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace files = std::filesystem;

int main(int count, char** paths) {
    std::FILE* const output = stdout; // the target's may lead elsewhere
    std::vector<files::path> inputs;
    for (int i = 1; i < count; ++i) {
        const files::path path = paths[i];
        if (files::is_directory(path))
            for (const auto& entry : files::directory_iterator(path)) inputs.push_back(entry.path());
        else if (files::exists(path))
            inputs.push_back(path);
    }
    std::sort(inputs.begin(), inputs.end());
    for (const files::path& path : inputs) {
        std::ifstream in(path, std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(in), {});
        std::fprintf(stderr, "%s\n", path.c_str()); // the last one named is the one that failed
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    std::fprintf(output, "%zu inputs\n", inputs.size());
    std::fflush(output);
    return inputs.empty() ? 1 : 0; // a corpus that was not found proves nothing
}
