// The body of a picture message, in both directions: two words, 36 characters of GUID, the image.
#ifndef EXAMPLES_PICTURE_H
#define EXAMPLES_PICTURE_H

#include <cstddef>
#include <cstring>
#include <optional>
#include <string>

namespace example {

constexpr std::size_t pictureGuidLength = 36;

struct Picture {
    int param1;
    int param2;
    std::string guid;
    std::string image;
};

// The library writes this body and leaves reading it to the receiver. The words are little-endian, which is
// what the machines that speak this protocol are.
inline std::optional<Picture> readPicture(const std::string& body) {
    constexpr std::size_t words = 8;
    if (body.size() < words + pictureGuidLength) return {};
    Picture picture = {0, 0, body.substr(words, pictureGuidLength), body.substr(words + pictureGuidLength)};
    std::memcpy(&picture.param1, body.data(), 4);
    std::memcpy(&picture.param2, body.data() + 4, 4);
    return picture;
}

} // namespace example

#endif
