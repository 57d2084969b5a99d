#include "media/record_block.h"

#include "framing/decoded.h"
#include "framing/fields.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>

namespace veltoprotocol {
namespace {

using Result = __tagVtRecordParam;
using Element = __tagVtRecordElementParam;

constexpr std::size_t carriedUrl = 64; // of PictureUrl; with ResultMode 1 it is a name

template <class Item>
void append(char*& to, const Item& item, std::size_t size = sizeof(Item)) {
    std::memcpy(to, &item, size);
    to += size;
}

void appendElement(char*& to, const Element& element) {
    append(to, element.RecordType);
    append(to, element.RecordMode);
    append(to, element.StartTime);
    append(to, element.EndTime);
    append(to, element.RecordSize);
    append(to, element.PictureUrl, carriedUrl);
    append(to, element.PictureSize);
}

// kept: an item that is not whole any more is skipped and the cursor stays, so that a smaller one behind it
// may still be read from the same place
class Cursor {
  public:
    explicit Cursor(Text block) : at_(block.data), left_(block.size) {}
    template <class Item>
    void read(Item& item, std::size_t size = sizeof(Item)) {
        if (size > left_) return;
        std::memcpy(&item, at_, size);
        at_ += size;
        left_ -= size;
    }

  private:
    const char* at_;
    std::size_t left_;
};

void readElement(Cursor& cursor, Element& element) {
    cursor.read(element.RecordType);
    cursor.read(element.RecordMode);
    cursor.read(element.StartTime);
    cursor.read(element.EndTime);
    cursor.read(element.RecordSize);
    cursor.read(element.PictureUrl, carriedUrl);
    cursor.read(element.PictureSize);
}

// Inflated bytes; absent if zlib refuses them or they are more than 100 times the input or 1 GiB.
class Inflated {
  public:
    Inflated(const char* data, std::size_t length) {
        // Ten times the input is enough for most blocks; each failed attempt adds as much, up to a hundred
        // times.
        constexpr std::size_t most = std::size_t{1} << 30;
        for (std::size_t times = 10; times <= 100; times += 10) {
            const std::size_t room = std::min(times * length, most);
            bytes_.reset(new char[room]);
            uLongf inflated = room;
            const int code = uncompress(reinterpret_cast<Bytef*>(bytes_.get()), &inflated,
                                        reinterpret_cast<const Bytef*>(data), length);
            if (code == Z_OK) size_ = inflated;
            if ((code != Z_BUF_ERROR && code != Z_MEM_ERROR) || room == most) break;
        }
    }
    Text text() const { return {bytes_.get(), size_}; }

  private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0;
};

} // namespace

RecordBlock compressedBlock(const Result* records) {
    const std::size_t count = records && records->Records ? records->Counter : 0;
    const std::size_t length = (records ? recordBlockHead : 0) + count * recordBlockElement;
    const std::unique_ptr<char[]> plain(new char[length]);
    char* to = plain.get();
    if (records) {
        append(to, records->ChannelGuid);
        append(to, records->ResultMode);
        append(to, records->Counter);
    }
    for (std::size_t i = 0; i < count; ++i) appendElement(to, records->Records[i]);

    uLongf size = compressBound(length);
    std::unique_ptr<char[]> packed(new char[size]);
    const int code = compress(reinterpret_cast<Bytef*>(packed.get()), &size,
                              reinterpret_cast<const Bytef*>(plain.get()), length);
    if (code != Z_OK) return {};
    return {std::move(packed), size};
}

__tagVtRecordParam GetSearchRecordResultDecode(const char* data, int len, int* error) {
    report(error, data && len > 0 ? 0 : -1);
    Decoded<Result> result(ReleaseRecordParam);
    if (!data || len < 1) return result.handOver();
    const Inflated block(data, static_cast<std::size_t>(len));
    if (block.text().size < recordBlockHead) return result.handOver();

    Cursor cursor(block.text());
    cursor.read(result->ChannelGuid);
    cursor.read(result->ResultMode);
    cursor.read(result->Counter);
    result->Records = Budget().zeroed<Element>(result->Counter);
    for (unsigned int i = 0; i < result->Counter; ++i) {
        Element& element = result->Records[i];
        std::memcpy(element.ChannelGuid, result->ChannelGuid, sizeof element.ChannelGuid);
        readElement(cursor, element);
        if (result->ResultMode == 1) std::memcpy(element.RecordName, element.PictureUrl, carriedUrl);
    }
    return result.handOver();
}

void ReleaseRecordParam(__tagVtRecordParam* records) {
    if (!records || !records->Records) return;
    delete[] records->Records;
    records->Records = nullptr;
}

} // namespace veltoprotocol
