#include "media/record_block.h"

#include "framing/decoded.h"
#include "framing/fields.h"

#include <zlib.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

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

// Inflated bytes, none if zlib refuses them or they are more than 100 times the input or 1 GiB.
class Inflated {
  public:
    Inflated(const char* data, std::size_t length) {
        constexpr unsigned long long most = 1ULL << 30;
        const auto within = [most](unsigned long long size) {
            return static_cast<std::size_t>(std::min(size, most));
        };
        const std::size_t limit = within(100ULL * length);
        if (inflateInit(&stream_) != Z_OK) return;
        const std::unique_ptr<z_stream, decltype(&inflateEnd)> open(&stream_, inflateEnd);
        stream_.next_in = reinterpret_cast<z_const Bytef*>(const_cast<char*>(data)); // only read
        stream_.avail_in = static_cast<uInt>(length);

        // Ten times the input is enough for most blocks; others go on where the room ended.
        std::size_t room = within(10ULL * length);
        int code = inflateInto(room);
        for (; isFull(code) && room < limit; code = inflateInto(room)) room = std::min(2 * room, limit);
        // A block that fills all the room that it may have still has its end to be read.
        if (isFull(code)) code = inflate(&stream_, Z_NO_FLUSH);
        if (code == Z_STREAM_END) size_ = stream_.total_out;
    }
    Text text() const { return {bytes_.get(), size_}; }

  private:
    struct Free {
        void operator()(char* bytes) const { std::free(bytes); }
    };

    bool isFull(int code) const { return (code == Z_OK || code == Z_BUF_ERROR) && stream_.avail_out == 0; }

    int inflateInto(std::size_t room) {
        char* const longer = static_cast<char*>(std::realloc(bytes_.get(), room));
        if (!longer) throw std::bad_alloc();
        static_cast<void>(bytes_.release());
        bytes_.reset(longer);
        stream_.next_out = reinterpret_cast<Bytef*>(longer + stream_.total_out);
        stream_.avail_out = static_cast<uInt>(room - stream_.total_out);
        return inflate(&stream_, Z_NO_FLUSH);
    }

    z_stream stream_ = {};
    std::unique_ptr<char, Free> bytes_;
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
