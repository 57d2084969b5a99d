// Messages typed as the text they are.
#pragma once

#include <stdexcept>
#include <string>

// Ends the head's lines in CR LF and fills "{}" in the head with the length of the body.
inline std::string wire(const std::string& text) {
    const std::size_t blank = text.find("\n\n");
    if (blank == std::string::npos) throw std::invalid_argument("a message has a blank line behind its head");
    const std::string body = text.substr(blank + 2);
    std::string head;
    for (const char c : text.substr(0, blank + 2))
        head += c == '\n' ? std::string("\r\n") : std::string(1, c);
    const std::size_t length = head.find("{}");
    if (length == std::string::npos) throw std::invalid_argument("a head has {} for its length");
    return head.replace(length, 2, std::to_string(body.size())) + body;
}

// The heads of most messages, for wire().
inline const std::string requestHead = R"(POST /servercommandservice HTTP/1.1
Host: 10.0.0.1
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

)";
inline const std::string responseHead = R"(HTTP/1.1 200 OK
Server: vtengine
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

)";
