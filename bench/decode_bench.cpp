// Parsing a message body and releasing what came of it.
#include "all_messages.h"
#include "by_hand/protobuf.h"
#include "timing.h"

#include <pugixml.hpp>
#include <tinyxml.h>
#include <tinyxml2.h>

namespace bench {
namespace {

template <class Message>
void registerProtobuf(const std::string& name, const Message& message) {
    using Parsed = by_hand::Proto<Message>;
    Parsed filled;
    by_hand::fill(filled, message);
    const std::string bytes = filled.SerializeAsString();
    const auto parse = [bytes](Parsed& to) {
        return to.ParseFromArray(bytes.data(), static_cast<int>(bytes.size()));
    };
    timed(name + "protobuf", bytes.size(), [parse] {
        Parsed fresh;
        return parse(fresh);
    });
    const auto reused = std::make_shared<Parsed>();
    timed(name + "protobuf_reused", bytes.size(), [parse, reused] { return parse(*reused); });
}

template <class Message>
void registerAll(const Message& message) {
    const std::string name = "decode/" + message.label + '/';
    const std::string text = bodyOf(encoded(message));
    timed(name + "library", text.size(), [text] {
        TiXmlDocument* const document = veltoprotocol::Decode(text.c_str());
        const bool read = document != nullptr;
        veltoprotocol::ReleaseTiXmlDocument(document);
        return read;
    });
    timed(name + "tinyxml", text.size(), [text] {
        TiXmlDocument document;
        return document.Parse(text.c_str()) != nullptr;
    });
    timed(name + "pugixml", text.size(), [text] {
        pugi::xml_document document;
        return static_cast<bool>(document.load_buffer(text.data(), text.size()));
    });
    timed(name + "tinyxml2", text.size(), [text] {
        tinyxml2::XMLDocument document;
        return document.Parse(text.data(), text.size()) == tinyxml2::XML_SUCCESS;
    });
    registerProtobuf(name, message);
}

} // namespace

void registerDecoding() {
    registerAll(all().result);
    registerAll(all().alarm);
    registerAll(all().deviceList());
    registerAll(all().layout);
}

} // namespace bench
