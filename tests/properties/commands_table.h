// The table of commands in docs/, read.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

inline const std::string top = std::string(VELTO_INCLUDE_DIR) + "/../";

inline std::string contentsOf(const std::string& file) {
    std::ifstream in(top + file);
    return {std::istreambuf_iterator<char>(in), {}};
}

inline const std::string& page() {
    static const std::string text = contentsOf("docs/commands.md");
    return text;
}

// What stands between backticks.
inline std::vector<std::string> namesIn(const std::string& text) {
    const std::regex name("`([^`]+)`");
    std::vector<std::string> names;
    for (std::sregex_iterator at(text.begin(), text.end(), name), end; at != end; ++at)
        names.push_back((*at)[1]);
    return names;
}

// The one name of a cell, or nothing.
inline std::string nameIn(const std::string& cell) {
    const std::vector<std::string> names = namesIn(cell);
    return names.empty() ? "" : names.front();
}

struct Row {
    std::string command, request, response, answerName, path, file, connection;
    std::vector<std::string> requestDecoders, responseDecoders;
    bool token;
};

// The rows of nine cells: command, encoder and decoders of the request, of the response, path, token,
// connection, file.
inline std::vector<Row> rows() {
    std::vector<Row> rows;
    std::istringstream in(page());
    for (std::string line; std::getline(in, line);) {
        if (line.compare(0, 3, "| `") != 0 && line.compare(0, 3, "| -") != 0) continue;
        std::vector<std::string> cells;
        std::istringstream split(line.substr(2));
        for (std::string cell; std::getline(split, cell, '|');)
            cells.push_back(cell.substr(cell.find_first_not_of(' ')));
        if (cells.size() != 9) continue;
        Row row;
        row.command = nameIn(cells[0]);
        row.request = nameIn(cells[1]);
        row.requestDecoders = namesIn(cells[2]);
        row.response = nameIn(cells[3]);
        row.answerName = namesIn(cells[3]).size() > 1 ? namesIn(cells[3])[1] : row.command;
        row.responseDecoders = namesIn(cells[4]);
        row.path = nameIn(cells[5]);
        row.token = cells[6] == "yes ";
        EXPECT_TRUE(row.token || cells[6] == "no ") << line;
        row.connection = cells[7].substr(0, cells[7].find(' '));
        row.file = nameIn(cells[8]);
        rows.push_back(row);
    }
    return rows;
}
