// A compressed record list that is small and becomes large.
#pragma once

#include <zlib.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <string>

namespace cost {

// Deflates a piece of a stream, ending it at a whole byte and so that the next piece does not refer to it.
inline std::string deflatedPiece(const std::string& plain) {
    z_stream stream = {};
    if (deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -15, 9, Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::runtime_error("deflate");
    std::string out(plain.size() + 1000, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(plain.data()));
    stream.avail_in = static_cast<uInt>(plain.size());
    stream.next_out = reinterpret_cast<Bytef*>(&out[0]);
    stream.avail_out = static_cast<uInt>(out.size());
    const int code = deflate(&stream, Z_FULL_FLUSH);
    out.resize(out.size() - stream.avail_out);
    deflateEnd(&stream);
    if (code != Z_OK || stream.avail_in > 0) throw std::runtime_error("deflate");
    return out;
}

// A list whose Counter is `counter` and in which all else is zero, `plain` bytes before it was compressed;
// bytes behind it make the block `size` bytes long, or it is longer already.
inline std::string zipBomb(std::size_t size, std::size_t plain, unsigned int counter) {
    std::string head(56, '\0');
    std::memcpy(&head[52], &counter, sizeof counter);
    const std::size_t most = std::size_t{1} << 20, zeros = plain - head.size();
    const std::string whole(most, '\0'), rest(zeros % most, '\0');
    const auto sum = [](const std::string& text) {
        return adler32(1, reinterpret_cast<const Bytef*>(text.data()), static_cast<uInt>(text.size()));
    };
    const std::string wholeDeflated = deflatedPiece(whole);
    const uLong wholeSum = sum(whole);

    std::string block = "\x78\x9C" + deflatedPiece(head) + deflatedPiece(rest);
    uLong check = adler32_combine(sum(head), sum(rest), static_cast<z_off_t>(rest.size()));
    for (std::size_t i = 0; i < zeros / most; ++i) {
        block += wholeDeflated;
        check = adler32_combine(check, wholeSum, static_cast<z_off_t>(most));
    }
    block.append("\x03\x00", 2); // an empty last piece
    for (int shift = 24; shift >= 0; shift -= 8) block += static_cast<char>(check >> shift & 255);
    if (block.size() < size) block.append(size - block.size(), 'x');
    return block;
}

} // namespace cost
