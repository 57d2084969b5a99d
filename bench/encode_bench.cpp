// Writing messages: by the library and, from the same records, by others.
#include "all_messages.h"
#include "by_hand/protobuf.h"
#include "by_hand/pugixml.h"
#include "by_hand/tinyxml.h"
#include "by_hand/tinyxml2.h"
#include "timing.h"

#include <cstring>

namespace bench {
namespace {

// The library with a buffer of exactly the message's length and with a roomy one; and the least that anybody
// has to do, copying the finished bytes.
template <class Message>
void registerOwn(const Message& message) {
    const std::string name = "encode/" + message.label + '/';
    const std::string bytes = encoded(message);
    const Buffer exact = buffer(bytes.size()), roomy = buffer(4 * bytes.size() + 4096);
    for (const auto& [variant, out] : {std::pair("library", exact), std::pair("library_roomy", roomy)})
        timed(name + variant, bytes.size(),
              [&message, out = out] { return message.encode(&(*out)[0], static_cast<int>(out->size())); });
    timed(name + "memcpy", bytes.size(),
          [bytes, exact] { return std::memcpy(&(*exact)[0], bytes.data(), bytes.size()); });
}

template <class Message>
void registerOthers(const Message& message) {
    const std::string name = "encode/" + message.label + '/';
    const std::size_t bytes = encoded(message).size();
    const Buffer out = buffer(4 * bytes + 4096);
    const int size = static_cast<int>(out->size());
    timed(name + "tinyxml", bytes, [=, &message] { return by_hand::byTinyXml(message, &(*out)[0], size); });
    timed(name + "pugixml", bytes, [=, &message] { return by_hand::byPugixml(message, &(*out)[0], size); });
    timed(name + "tinyxml2", bytes, [=, &message] { return by_hand::byTinyXml2(message, &(*out)[0], size); });
    timed(name + "protobuf", bytes, [=, &message] {
        by_hand::Proto<Message> fresh;
        return by_hand::byProtobuf(message, fresh, &(*out)[0], size);
    });
    const auto reused = std::make_shared<by_hand::Proto<Message>>();
    timed(name + "protobuf_reused", bytes,
          [=, &message] { return by_hand::byProtobuf(message, *reused, &(*out)[0], size); });
}

template <class Message>
void registerAll(const Message& message) {
    registerOwn(message);
    registerOthers(message);
}

} // namespace

void registerEncoding() {
    registerAll(all().result);
    registerAll(all().alarm);
    for (const DeviceList& list : all().lists) registerAll(list);
    registerAll(all().escaped);
    registerAll(all().layout);
    registerOwn(all().video);
}

} // namespace bench
