#include "framing/base64.h"

#include "veltoprotocol/framing.h"

#include <climits>

namespace veltoprotocol {
namespace {

constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char padding = '=';
constexpr std::size_t group = 4; // characters that stand for up to three bytes
constexpr unsigned char outside = 0xFF;

struct Values {
    unsigned char of[256] = {};

    constexpr Values() {
        for (auto& value : of) value = outside;
        for (unsigned char i = 0; i < 64; ++i) of[static_cast<unsigned char>(alphabet[i])] = i;
        of[static_cast<unsigned char>(padding)] = 0; // kept: a group may even begin with padding
    }
};
constexpr Values values;

unsigned valueOf(char c) { return values.of[static_cast<unsigned char>(c)]; }

bool decodable(Text in) {
    for (std::size_t i = 0; i < in.size; ++i)
        if (valueOf(in.data[i]) == outside) return false;
    return true;
}

// Whole groups are decoded; what stands behind the last one is ignored.
std::size_t wholeGroups(Text in) { return in.size / group * group; }

// kept: the fourth character is not asked when the third is padding
std::size_t bytesOf(const char* four) { return four[2] == padding ? 1 : four[3] == padding ? 2 : 3; }

} // namespace

std::size_t encodeBase64(char* out, Text in) {
    const auto byte = [in](std::size_t i) -> unsigned { return static_cast<unsigned char>(in.data[i]); };
    char* end = out;
    std::size_t i = 0;
    for (; in.size - i >= 3; i += 3) {
        const unsigned bits = byte(i) << 16 | byte(i + 1) << 8 | byte(i + 2);
        *end++ = alphabet[bits >> 18];
        *end++ = alphabet[bits >> 12 & 63];
        *end++ = alphabet[bits >> 6 & 63];
        *end++ = alphabet[bits & 63];
    }
    if (const std::size_t rest = in.size - i; rest > 0) {
        const unsigned bits = byte(i) << 16 | (rest == 2 ? byte(i + 1) << 8 : 0);
        *end++ = alphabet[bits >> 18];
        *end++ = alphabet[bits >> 12 & 63];
        *end++ = rest == 2 ? alphabet[bits >> 6 & 63] : padding;
        *end++ = padding;
    }
    return static_cast<std::size_t>(end - out);
}

std::size_t decodedBase64Length(Text in) {
    if (!decodable(in)) return 0;
    std::size_t length = 0;
    for (std::size_t i = 0; i < wholeGroups(in); i += group) length += bytesOf(in.data + i);
    return length;
}

int Base64Encode(char* out, const char* in, int length) {
    if (!out) return 0;
    const Text bytes = in && length > 0 ? Text{in, static_cast<std::size_t>(length)} : Text{};
    if (base64Length(bytes.size) + 1 > static_cast<std::size_t>(INT_MAX)) return -1;
    const std::size_t written = encodeBase64(out, bytes);
    out[written] = '\0';
    return static_cast<int>(written) + 1;
}

void Base64Decode(char* out, const char* in, int len) {
    // kept: fewer characters leave even the first byte as it was
    if (!out || !in || len < static_cast<int>(group)) return;
    const Text text{in, static_cast<std::size_t>(len)};
    if (!decodable(text)) return;

    char* end = out;
    for (std::size_t i = 0; i < wholeGroups(text); i += group) {
        const char* const four = in + i;
        const std::size_t count = bytesOf(four);
        const unsigned bits =
            valueOf(four[0]) << 18 | valueOf(four[1]) << 12 | valueOf(four[2]) << 6 | valueOf(four[3]);
        // kept: padding ends its group, not the decode; the bits it leaves over need not be zero
        *end++ = static_cast<char>(bits >> 16);
        if (count > 1) *end++ = static_cast<char>(bits >> 8 & 0xFF);
        if (count > 2) *end++ = static_cast<char>(bits & 0xFF);
    }
    *end = '\0';
}

} // namespace veltoprotocol
