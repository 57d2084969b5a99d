// What the messages of server administration have in common.
#pragma once

#include "support/encoded.h"
#include "support/wire.h"

#include <string>

// The head of a management request, for wire().
inline const std::string manageHead = R"(POST /servercommandservice/manage HTTP/1.1
Host: 10.0.0.1
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

)";

// The document around a command element, with sequence number 7 and without a token.
inline std::string enveloped(const std::string& command) {
    return R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
)" + command +
           "</servercommandservice>\n";
}

// A host never adds a line to the head, and a null one is empty text. encode(host, out, size) sends to it.
template <class Encode>
void expectChecksItsHost(const Encode& encode) {
    const auto to = [&](const char* host) {
        return encoded([&](char* out, int size) { return encode(host, out, size); });
    };
    for (const char* host : {"\r", "\n", "h\r\nX: 1"}) {
        const Encoded refused = to(host);
        EXPECT_EQ(refused.returned, -1);
        EXPECT_EQ(refused.printed, "");
    }
    EXPECT_NE(to(nullptr).bytes.find(" HTTP/1.1\r\nHost: \r\nConnection"), std::string::npos);
    EXPECT_NE(to("h:1").bytes.find(" HTTP/1.1\r\nHost: h:1\r\nConnection"), std::string::npos);
}
