// The lines of what several threads printed, in an order that does not depend on which came first.
#pragma once

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

inline std::vector<std::string> sortedLines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    std::sort(lines.begin(), lines.end());
    return lines;
}
