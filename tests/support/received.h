// What an encoder sends, as the other end has it.
#pragma once

#include "support/encoded.h"
#include "support/read_back.h"

#include <functional>
#include <string>

// The parsed body of a message.
struct Received {
    explicit Received(const std::function<int(char*, int)>& encode)
        : body(bodyOf(encoded(encode).bytes)), doc(parsed(body)) {}

    TiXmlElement* command() const {
        TiXmlElement* const request = doc->RootElement()->FirstChildElement("request");
        return request ? request : doc->RootElement()->FirstChildElement("response");
    }
    TiXmlElement* child(const char* name) const { return command()->FirstChildElement(name); }

    std::string body;
    Document doc;
};

// A text of a field's full width, without a terminator.
template <std::size_t N>
inline void fill(char (&field)[N], char first, std::size_t length = N) {
    for (std::size_t i = 0; i < length; ++i) field[i] = static_cast<char>(first + static_cast<char>(i % 8));
}
