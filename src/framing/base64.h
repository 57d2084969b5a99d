// Base64 (RFC 4648, standard alphabet) in both directions, without the NUL of the public functions.
#pragma once

#include "framing/text.h"

#include <cstddef>

namespace veltoprotocol {

// Number of characters for `size` bytes, padding included.
constexpr std::size_t base64Length(std::size_t size) { return size / 3 * 4 + (size % 3 > 0 ? 4 : 0); }

// Writes base64Length(in.size) characters to out and returns their number.
std::size_t encodeBase64(char* out, Text in);

// Number of bytes that Base64Decode writes, its NUL not counted; 0 if it writes nothing at all.
std::size_t decodedBase64Length(Text in);

} // namespace veltoprotocol
