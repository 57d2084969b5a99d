#include "same_content.h"

#include "all_messages.h"
#include "by_hand/protobuf.h"
#include "by_hand/pugixml.h"
#include "by_hand/tinyxml.h"
#include "by_hand/tinyxml2.h"

#include <cstring>
#include <stdexcept>

namespace bench {
namespace {

bool sameAttributes(pugi::xml_node a, pugi::xml_node b) {
    pugi::xml_attribute x = a.first_attribute(), y = b.first_attribute();
    for (; x && y; x = x.next_attribute(), y = y.next_attribute())
        if (std::strcmp(x.name(), y.name()) != 0 || std::strcmp(x.value(), y.value()) != 0) return false;
    return !x && !y;
}

bool sameTree(pugi::xml_node a, pugi::xml_node b) {
    if (a.type() != b.type() || std::strcmp(a.name(), b.name()) != 0 ||
        std::strcmp(a.value(), b.value()) != 0 || !sameAttributes(a, b))
        return false;
    pugi::xml_node x = a.first_child(), y = b.first_child();
    for (; x && y; x = x.next_sibling(), y = y.next_sibling())
        if (!sameTree(x, y)) return false;
    return !x && !y;
}

bool sameTree(const std::string& message, const std::string& other) {
    pugi::xml_document a, b;
    return a.load_string(bodyOf(message).c_str(), pugi::parse_full) &&
           b.load_string(bodyOf(other).c_str(), pugi::parse_full) && sameTree(a, b);
}

// What an encoder written by hand makes of a message.
template <class Message, class Encode>
std::string written(const Message& message, std::size_t room, Encode encode) {
    std::string out(room, '\0');
    const int length = encode(message, &out[0], static_cast<int>(room));
    if (length < 0) throw std::runtime_error("does not fit: " + message.label);
    out.resize(static_cast<std::size_t>(length));
    return out;
}

template <class Message>
bool survivesProtobuf(const Message& message, std::size_t room) {
    by_hand::Proto<Message> filled, read;
    const std::string bytes = written(message, room, [&](const Message& from, char* out, int size) {
        return by_hand::byProtobuf(from, filled, out, size);
    });
    return !bytes.empty() && read.ParseFromString(bytes) && read.DebugString() == filled.DebugString();
}

void demand(bool same, const std::string& label, const char* other) {
    if (!same) throw std::runtime_error(label + ": " + other + " writes another message");
}

template <class Message>
void check(const Message& message) {
    const std::string ours = encoded(message);
    const std::size_t room = 2 * ours.size();
    demand(written(message, room, by_hand::byTinyXml<Message>) == ours, message.label, "TinyXML");
    demand(sameTree(written(message, room, by_hand::byPugixml<Message>), ours), message.label, "pugixml");
    demand(sameTree(written(message, room, by_hand::byTinyXml2<Message>), ours), message.label, "TinyXML-2");
    demand(survivesProtobuf(message, room), message.label, "protobuf");
}

} // namespace

void checkSameContent() {
    check(all().result);
    check(all().alarm);
    for (const DeviceList& list : all().lists)
        if (list.inventory.channels.size() <= 1024) check(list); // the longer ones are more of the same
    check(all().escaped);
    check(all().layout);
}

} // namespace bench
