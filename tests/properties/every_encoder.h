// Every public encoder, called with arguments that a seed decides.
//
// every_encoder.cpp is compiled twice: as it stands, and with -DVELTO_THROUGH_TREE -Dveltoprotocol=veltotree,
// where the same lines call the library that builds each message with the XML library's tree and printer.
// What the two write must be equal.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

// Outside the namespace, so that the results of both can be compared.
struct NamedMessage {
    std::string name;  // of the encoder
    int returned;      // by it
    std::string bytes; // that it wrote; none if it refused

    bool operator==(const NamedMessage& other) const {
        return name == other.name && returned == other.returned && bytes == other.bytes;
    }
};

inline std::ostream& operator<<(std::ostream& to, const NamedMessage& message) {
    return to << message.name << " returned " << message.returned << ":\n" << message.bytes << '\n';
}

enum class Texts {
    anyBytes, // every byte value in every text, null texts, wrong counts, missing records
    printable // whole UTF-8 characters that XML allows, heads that HTTP allows; nothing that is refused
};

enum class Kind {
    request,
    response,
    xml, // no message of its own: attributes and children of the caller's element, here rendered
    text // neither message nor XML
};

struct EncoderCall {
    std::string name;
    Kind kind;
    int status; // of a response
    std::function<int(char* out, int size)> encode;
    bool xmlBody = true;    // and nothing else
    bool prints = false;    // its XML, which takes memory above some 2,000 bytes
    bool allocates = false; // whatever it writes

    // Whether it is subject to the caller-buffer rule.
    bool isMessage() const { return kind == Kind::request || kind == Kind::response; }
};

namespace veltoprotocol {

// Hands each encoder to `visit`, ready to be called with any buffer, any number of times. The arguments live
// until this returns.
void visitEncoders(unsigned seed, Texts texts, const std::function<void(const EncoderCall&)>& visit);

// What each of them writes.
std::vector<NamedMessage> everyEncoder(unsigned seed, Texts texts);
std::vector<NamedMessage> everyEncoder(unsigned seed);

} // namespace veltoprotocol

// The reference build's.
namespace veltotree {

std::vector<NamedMessage> everyEncoder(unsigned seed, Texts texts);
std::vector<NamedMessage> everyEncoder(unsigned seed);

} // namespace veltotree
