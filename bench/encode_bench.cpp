// Writing messages: by the library and, from the same records, by others.
#include "all_messages.h"
#include "by_hand/protobuf.h"
#include "by_hand/pugixml.h"
#include "by_hand/tinyxml.h"
#include "by_hand/tinyxml2.h"
#include "timing.h"

#include <cstdint>
#include <cstring>
#include <string_view>

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

// Bytes at a given place within a page of memory.
class Placed {
  public:
    Placed(std::size_t size, std::size_t place) : room_(size + 2 * page, '\1') {
        at_ = page - reinterpret_cast<std::uintptr_t>(room_.data()) % page + place;
    }
    char* data() { return &room_[at_]; }

  private:
    static constexpr std::size_t page = 4096;
    std::string room_;
    std::size_t at_;
};
std::shared_ptr<Placed> placed(std::string_view bytes, std::size_t place) {
    const auto made = std::make_shared<Placed>(bytes.size(), place);
    std::memcpy(made->data(), bytes.data(), bytes.size());
    return made;
}

// A frame is little but a copy, and what a copy takes depends by a tenth on how source and destination lie to
// one another within their pages. So that the frame's way is the same for both, each of its bytes is read
// from the place within a page to which it is written.
void registerVideo(const VideoFrame& message) {
    const std::string name = "encode/" + message.label + '/', bytes = encoded(message);
    const auto frame = placed(message.frame, bytes.size() - message.frame.size());
    const auto finished = placed(bytes, 0), out = placed(bytes, 0);
    const int length = static_cast<int>(message.frame.size()), size = static_cast<int>(bytes.size());
    timed(name + "library", bytes.size(), [=, &message] {
        return veltoprotocol::GetVideoDataEncode(message.header, frame->data(), length, out->data(), size);
    });
    timed(name + "memcpy", bytes.size(),
          [=] { return std::memcpy(out->data(), finished->data(), static_cast<std::size_t>(size)); });
}

} // namespace

void registerEncoding() {
    registerAll(all().result);
    registerAll(all().alarm);
    for (const DeviceList& list : all().lists) registerAll(list);
    registerAll(all().escaped);
    registerAll(all().layout);
    registerVideo(all().video);
}

} // namespace bench
