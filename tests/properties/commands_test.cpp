// The table of commands in docs/ is true: of the headers, of the sources and of the bytes on the wire.
#include "properties/declared.h"
#include "properties/every_encoder.h"

#include "support/captured.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

const std::string top = std::string(VELTO_INCLUDE_DIR) + "/../";

std::string contentsOf(const std::string& file) {
    std::ifstream in(top + file);
    return {std::istreambuf_iterator<char>(in), {}};
}

const std::string& page() {
    static const std::string text = contentsOf("docs/commands.md");
    return text;
}

// What stands between backticks.
std::vector<std::string> namesIn(const std::string& text) {
    const std::regex name("`([^`]+)`");
    std::vector<std::string> names;
    for (std::sregex_iterator at(text.begin(), text.end(), name), end; at != end; ++at)
        names.push_back((*at)[1]);
    return names;
}

// The one name of a cell, or nothing.
std::string nameIn(const std::string& cell) {
    const std::vector<std::string> names = namesIn(cell);
    return names.empty() ? "" : names.front();
}

struct Row {
    std::string command, request, response, answerName, path, file;
    bool token;
    std::string connection;
};

// The rows of nine cells: command, encoder and decoders of the request, of the response, path, token,
// connection, file.
std::vector<Row> rows() {
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
        row.response = nameIn(cells[3]);
        row.answerName = namesIn(cells[3]).size() > 1 ? namesIn(cells[3])[1] : row.command;
        row.path = nameIn(cells[5]);
        row.token = cells[6] == "yes ";
        EXPECT_TRUE(row.token || cells[6] == "no ") << line;
        row.connection = cells[7].substr(0, cells[7].find(' '));
        row.file = nameIn(cells[8]);
        rows.push_back(row);
    }
    return rows;
}

std::string found(const std::string& text, const char* pattern) {
    std::smatch match;
    return std::regex_search(text, match, std::regex(pattern)) ? match[1] : std::string();
}

// What each encoder writes.
std::map<std::string, std::string> messages() {
    std::map<std::string, std::string> messages;
    Captured quiet;
    for (const NamedMessage& message : veltoprotocol::everyEncoder(1, Texts::printable))
        messages[message.name] = message.bytes;
    quiet.text();
    return messages;
}

TEST(Commands, AreAsTheirBytesSay) {
    const std::map<std::string, std::string> bytes = messages();
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.command + row.request + row.response);
        if (!row.request.empty()) {
            ASSERT_TRUE(bytes.count(row.request));
            const std::string message = bytes.at(row.request);
            EXPECT_EQ(found(message, "^POST (\\S+) HTTP/1.1\r\n"), row.path);
            EXPECT_EQ(found(message, "\r\nConnection: ([^\r]*)\r\n"), row.connection);
            EXPECT_EQ(found(message, "\n    <request name=\"([^\"]*)\""), row.command);
            EXPECT_EQ(message.find("\n    <Token") != std::string::npos, row.token);
        }
        if (!row.response.empty() && row.response != "GetRespEncode") {
            ASSERT_TRUE(bytes.count(row.response));
            const std::string message = bytes.at(row.response);
            EXPECT_EQ(message.compare(0, 9, "HTTP/1.1 "), 0);
            EXPECT_EQ(found(message, "\r\nConnection: ([^\r]*)\r\n"), row.connection);
            EXPECT_EQ(found(message, "\n    <response name=\"([^\"]*)\""), row.answerName);
        }
    }
}

TEST(Commands, AreWrittenWhereTheTableSays) {
    const std::string results = contentsOf("src/framing/result_response.cpp");
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.command + row.request + row.response);
        const std::string source = contentsOf(row.file);
        if (!row.request.empty()) {
            EXPECT_NE(source.find("\nint " + row.request + "("), std::string::npos);
        }
        if (!row.response.empty()) {
            EXPECT_NE((source + results).find("\nint " + row.response + "("), std::string::npos);
        }
    }
}

TEST(Commands, AreAllInTheTable) {
    std::set<std::string> commands, requests, responses;
    for (const Row& row : rows()) {
        if (!row.command.empty()) {
            EXPECT_TRUE(commands.insert(row.command).second) << row.command << " stands in it twice";
        }
        requests.insert(row.request);
        responses.insert(row.response);
    }
    EXPECT_EQ(commands.size(), 45u);
    for (const auto& [encoder, bytes] : messages()) {
        const bool request = bytes.compare(0, 5, "POST ") == 0;
        if (!request && bytes.compare(0, 5, "HTTP/") != 0) continue;
        if (page().find("`" + encoder + "`", page().find("## Under a name")) != std::string::npos) continue;
        EXPECT_TRUE((request ? requests : responses).count(encoder)) << encoder;
    }
}

// Encoders, and decoders but for those of the frame, which are of no command.
TEST(Commands, NameEveryEncoderAndDecoder) {
    const std::set<std::string> ofTheFrame = {"Base64Decode",  "Base64Encode",     "Decode",
                                              "GetNameDecode", "GetVersionDecode", "GetVeltoHeaderEncode",
                                              "GetXmlEncode",  "XmlHeaderEncode"};
    const std::set<std::string> declared = declaredFunctions();
    const std::vector<std::string> names = namesIn(page());
    const std::set<std::string> named(names.begin(), names.end());
    ASSERT_GE(declared.size(), 210u);
    for (const std::string& function : declared) {
        const bool codes = std::regex_search(function, std::regex("(Encode|Decode|DecodeChannel\\w+)$"));
        if (codes && !ofTheFrame.count(function)) {
            EXPECT_TRUE(named.count(function)) << function << " is missing";
        }
    }
    for (const std::string& name : named)
        if (std::regex_search(name, std::regex("(Encode|Decode|DecodeChannel\\w+|Value|ValueAtt)$"))) {
            EXPECT_TRUE(declared.count(name)) << name << " is not declared";
        }
}

} // namespace
