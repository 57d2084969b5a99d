// The functions that the public headers declare, read from the headers themselves: a list of all functions
// that misses one fails its test.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

inline std::set<std::string> declaredFunctions() {
    std::set<std::string> names;
    const std::regex function("\\nVELTOPROTOCOL_API[^;(]*\\b(\\w+)\\(");
    for (const auto& file : std::filesystem::recursive_directory_iterator(VELTO_INCLUDE_DIR)) {
        if (file.path().extension() != ".h") continue;
        std::ifstream in(file.path());
        const std::string text(std::istreambuf_iterator<char>(in), {});
        for (std::sregex_iterator at(text.begin(), text.end(), function), end; at != end; ++at)
            names.insert((*at)[1]);
    }
    return names;
}

// Encoders write; all others read, convert or release.
inline bool isEncoder(const std::string& function) {
    const std::string ending = "Encode";
    return function.size() > ending.size() &&
           function.compare(function.size() - ending.size(), ending.size(), ending) == 0;
}
