// The answer to a record search, which is mostly zlib's work.
#include "all_messages.h"
#include "record_block.h"
#include "timing.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>

namespace bench {
namespace {

Bytef* bytesOf(std::string& text) { return reinterpret_cast<Bytef*>(&text[0]); }
const Bytef* bytesOf(const std::string& text) { return reinterpret_cast<const Bytef*>(text.data()); }

uLong compressTo(std::string& out, const std::string& plain) {
    uLongf length = out.size();
    return compress(bytesOf(out), &length, bytesOf(plain), plain.size()) == Z_OK ? length : 0;
}

std::string compressed(const std::string& plain) {
    std::string block(compressBound(plain.size()), '\0');
    block.resize(compressTo(block, plain));
    return block;
}

} // namespace

void registerRecordList() {
    const SearchAnswer& answer = all().found;
    const std::string message = encoded(answer), plain = plainBlock(answer.list), block = compressed(plain);
    if (message.size() < block.size() || message.substr(message.size() - block.size()) != block)
        throw std::runtime_error("the record list ends in another block than compress() makes");

    const Buffer exact = buffer(message.size()), roomy = buffer(4 * message.size());
    for (const auto& [variant, out] : {std::pair("library", exact), std::pair("library_roomy", roomy)})
        timed(std::string("encode/record_list/") + variant, message.size(),
              [&answer, out = out] { return answer.encode(&(*out)[0], static_cast<int>(out->size())); });
    const Buffer room = buffer(compressBound(plain.size()));
    timed("encode/record_list/compress", message.size(), [plain, room] { return compressTo(*room, plain); });

    timed("decode/record_list/library", block.size(), [block] {
        RecordList list =
            veltoprotocol::GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), nullptr);
        const unsigned int count = list.Counter;
        veltoprotocol::ReleaseRecordParam(&list);
        return count;
    });
    const Buffer inflated = buffer(plain.size());
    timed("decode/record_list/uncompress", block.size(), [block, inflated] {
        uLongf length = inflated->size();
        return uncompress(bytesOf(*inflated), &length, bytesOf(block), block.size());
    });
}

// Whether a caller pays for room that the message does not need.
void registerSizes() {
    static const SearchAnswer few(500);
    static const DeviceList list("few_devices", 64);
    constexpr int small = 64 << 10, large = 64 << 20;
    const Buffer out = buffer(large);
    for (const auto& [variant, size] : {std::pair("64KiB", small), std::pair("64MiB", large)}) {
        timed(std::string("size/record_list/") + variant, encoded(few).size(),
              [out, size = size] { return few.encode(&(*out)[0], size); });
        timed(std::string("size/device_list/") + variant, encoded(list).size(),
              [out, size = size] { return list.encode(&(*out)[0], size); });
    }
    if (encoded(few).size() > small || encoded(list).size() > small)
        throw std::runtime_error("longer than 64 KiB");
}

} // namespace bench
