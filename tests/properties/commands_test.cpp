// The table of commands in docs/ is true: of the headers, of the sources and of the bytes on the wire.
#include "properties/commands_table.h"
#include "properties/declared.h"
#include "properties/every_encoder.h"

#include "support/captured.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <string>

namespace {

std::string found(const std::string& text, const char* pattern) {
    std::smatch match;
    return std::regex_search(text, match, std::regex(pattern)) ? match[1] : std::string();
}

// What each encoder writes.
std::map<std::string, std::string> messages(unsigned seed = 0) {
    std::map<std::string, std::string> messages;
    Captured quiet;
    for (const NamedMessage& message : veltoprotocol::everyEncoder(seed, Texts::printable))
        messages[message.name] = message.bytes;
    quiet.text();
    return messages;
}

void expectRequest(const Row& row, const std::string& message) {
    EXPECT_EQ(found(message, "^POST (\\S+) HTTP/1.1\r\n"), row.path);
    EXPECT_EQ(found(message, "\r\nConnection: ([^\r]*)\r\n"), row.connection);
    EXPECT_EQ(found(message, "\n    <request name=\"([^\"]*)\""), row.command);
    EXPECT_EQ(message.find("\n    <Token") != std::string::npos, row.token);
}

void expectResponse(const Row& row, const std::string& message) {
    const bool refusedLogin = row.command == "Login" && message.find("HTTP/1.1 401 ") == 0;
    EXPECT_EQ(message.compare(0, 9, "HTTP/1.1 "), 0);
    EXPECT_EQ(found(message, "\r\nConnection: ([^\r]*)\r\n"), refusedLogin ? "close" : row.connection);
    EXPECT_EQ(found(message, "\n    <response name=\"([^\"]*)\""), row.answerName);
}

TEST(Commands, AreAsTheirBytesSay) {
    for (unsigned seed = 0; seed < 5; ++seed) {
        const std::map<std::string, std::string> bytes = messages(seed);
        for (const Row& row : rows()) {
            SCOPED_TRACE(row.command + row.request + row.response);
            EXPECT_TRUE(!row.request.empty() || !row.response.empty());
            EXPECT_EQ(row.request.empty(), row.path.empty());
            EXPECT_TRUE(!row.request.empty() || !row.token);
            if (!row.request.empty()) {
                ASSERT_TRUE(bytes.count(row.request));
                expectRequest(row, bytes.at(row.request));
            }
            if (!row.response.empty() && row.response != "GetRespEncode") {
                ASSERT_TRUE(bytes.count(row.response));
                expectResponse(row, bytes.at(row.response));
            }
            // Every command is answered, but for what the server pushes, and bytes.
            EXPECT_TRUE(row.command.empty() || row.request.empty() || !row.response.empty());
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
