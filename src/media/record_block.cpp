// The list is compressed while it is gathered, and read while it is inflated; it never lies whole in memory
// for the sake of the encoder, and for the decoder only as far as its Counter asks for it.
//
// Bytes that reach deflate piece by piece must give what they give to compress() in one piece. deflate sees
// the end of a piece in one way only: where it has fewer than 262 bytes ahead it asks for more, and on this
// occasion it moves its window of 64 KiB on by 32 KiB if it is in the window's last 262 bytes. Pieces of a
// power of two end where the window ends, and never in those 262 bytes; so it asks there at the same byte as
// it does with all of the list at hand.
#include "media/record_block.h"

#include "framing/decoded.h"
#include "framing/fields.h"

#include <zlib.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

namespace veltoprotocol {
namespace {

using Result = __tagVtRecordParam;
using Element = __tagVtRecordElementParam;

constexpr std::size_t carriedUrl = 64; // of PictureUrl; with ResultMode 1 it is a name

constexpr std::size_t piece = 8192; // what deflate gets at a time
static_assert(32768 % piece == 0 && piece > recordBlockHead, "ends where deflate's window ends");

unsigned long long plainLength(unsigned long long elements) {
    return recordBlockHead + elements * recordBlockElement;
}

unsigned int elementsOf(const Result& records) { return records.Records ? records.Counter : 0; }

template <class Item>
void append(char*& to, const Item& item, std::size_t size = sizeof(Item)) {
    std::memcpy(to, &item, size);
    to += size;
}

void appendHead(char*& to, const Result& records) {
    append(to, records.ChannelGuid);
    append(to, records.ResultMode);
    append(to, records.Counter);
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

z_const Bytef* onlyRead(const char* data) {
    return reinterpret_cast<z_const Bytef*>(const_cast<char*>(data));
}

// deflate with the parameters of compress(), into one place.
class Deflated {
  public:
    Deflated(char* to, std::size_t room) {
        stream_.next_out = reinterpret_cast<Bytef*>(to);
        stream_.avail_out = static_cast<uInt>(room);
        open_ = deflateInit(&stream_, Z_DEFAULT_COMPRESSION) == Z_OK;
    }
    Deflated(const Deflated&) = delete;
    Deflated& operator=(const Deflated&) = delete;
    ~Deflated() {
        if (open_) deflateEnd(&stream_);
    }

    // Both are false where there was no room.
    bool takes(const char* data, std::size_t size) {
        return run(data, size, Z_NO_FLUSH) == Z_OK && stream_.avail_in == 0;
    }
    bool ends(const char* data, std::size_t size) { return run(data, size, Z_FINISH) == Z_STREAM_END; }
    std::size_t size() const { return stream_.total_out; }

  private:
    int run(const char* data, std::size_t size, int flush) {
        stream_.next_in = onlyRead(data);
        stream_.avail_in = static_cast<uInt>(size);
        return open_ ? deflate(&stream_, flush) : Z_MEM_ERROR;
    }

    z_stream stream_ = {};
    bool open_;
};

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

void readHead(Cursor& cursor, Result& result) {
    cursor.read(result.ChannelGuid);
    cursor.read(result.ResultMode);
    cursor.read(result.Counter);
}

void readElement(Cursor& cursor, Element& element) {
    cursor.read(element.RecordType);
    cursor.read(element.RecordMode);
    cursor.read(element.StartTime);
    cursor.read(element.EndTime);
    cursor.read(element.RecordSize);
    cursor.read(element.PictureUrl, carriedUrl);
    cursor.read(element.PictureSize);
}

// Inflated bytes, as many as the Counter among them asks for; none if zlib refuses the block, or if all of it
// is more than 100 times the input or 1 GiB. What the block does not hold is not allocated, whatever its
// Counter says: the room doubles, and only once it is full.
class Inflated {
  public:
    Inflated(const char* data, std::size_t length) {
        const std::size_t limit = within(1ULL << 30, 100ULL * length);
        if (inflateInit(&stream_) != Z_OK) return;
        const std::unique_ptr<z_stream, decltype(&inflateEnd)> open(&stream_, inflateEnd);
        stream_.next_in = onlyRead(data);
        stream_.avail_in = static_cast<uInt>(length);

        constexpr std::size_t atFirst = 32768;
        int code = inflateInto(std::min(atFirst, limit));
        if (isFull(code)) code = inflateElements(code, within(limit, plainLength(counter())));
        if (isFull(code)) code = skipRest(limit);
        if (code == Z_STREAM_END) size_ = std::min<std::size_t>(stream_.total_out, room_);
    }
    Text text() const { return {bytes_.get(), size_}; }

  private:
    struct Free {
        void operator()(char* bytes) const { std::free(bytes); }
    };

    static std::size_t within(unsigned long long most, unsigned long long size) {
        return static_cast<std::size_t>(std::min(size, most));
    }

    bool isFull(int code) const { return code == Z_OK && stream_.avail_out == 0; }

    // Full room, even of the shortest input, holds the head.
    unsigned int counter() const {
        Result head;
        Cursor cursor({bytes_.get(), recordBlockHead});
        readHead(cursor, head);
        return head.Counter;
    }

    int inflateElements(int code, std::size_t wanted) {
        while (isFull(code) && room_ < wanted) code = inflateInto(std::min(2 * room_, wanted));
        return code;
    }

    // What lies behind the elements is not kept, but it must be whole. A block that is as long as it may be
    // still has its end to be read.
    int skipRest(std::size_t limit) {
        char skipped[16384];
        int code = Z_OK;
        for (bool mayGoOn = true; mayGoOn && isFull(code);) {
            const std::size_t left = limit - stream_.total_out;
            mayGoOn = left > 0;
            code = inflateTo(skipped, std::min(sizeof skipped, left));
        }
        return code;
    }

    int inflateInto(std::size_t room) {
        char* const longer = static_cast<char*>(std::realloc(bytes_.get(), room));
        if (!longer) throw std::bad_alloc();
        static_cast<void>(bytes_.release());
        bytes_.reset(longer);
        room_ = room;
        return inflateTo(longer + stream_.total_out, room - stream_.total_out);
    }

    int inflateTo(char* to, std::size_t room) {
        stream_.next_out = reinterpret_cast<Bytef*>(to);
        stream_.avail_out = static_cast<uInt>(room);
        return inflate(&stream_, Z_NO_FLUSH);
    }

    z_stream stream_ = {};
    std::unique_ptr<char, Free> bytes_;
    std::size_t room_ = 0;
    std::size_t size_ = 0;
};

} // namespace

std::size_t longestRecordBlock(const Result& records) {
    const unsigned long long plain = plainLength(elementsOf(records));
    if (plain > INT_MAX / 2) return INT_MAX; // for zlib's own sum, which may have 32 bits only
    return compressBound(static_cast<uLong>(plain));
}

std::size_t writeRecordBlock(const Result& records, char* to, std::size_t room) {
    Deflated block(to, room);
    char plain[piece + recordBlockElement];
    char* end = plain;
    appendHead(end, records);
    const unsigned int count = elementsOf(records);
    for (unsigned int i = 0; i < count; ++i) {
        appendElement(end, records.Records[i]);
        if (end < plain + piece) continue;
        if (!block.takes(plain, piece)) return 0;
        end = std::copy(plain + piece, end, plain);
    }
    return block.ends(plain, static_cast<std::size_t>(end - plain)) ? block.size() : 0;
}

Result GetSearchRecordResultDecode(const char* data, int len, int* error) {
    report(error, data && len > 0 ? 0 : -1);
    Decoded<Result> result(ReleaseRecordParam);
    if (!data || len < 1) return result.handOver();
    const Inflated block(data, static_cast<std::size_t>(len));
    if (block.text().size < recordBlockHead) return result.handOver();

    Cursor cursor(block.text());
    readHead(cursor, *result);
    result->Records = Budget().zeroed<Element>(result->Counter);
    for (unsigned int i = 0; i < result->Counter; ++i) {
        Element& element = result->Records[i];
        std::memcpy(element.ChannelGuid, result->ChannelGuid, sizeof element.ChannelGuid);
        readElement(cursor, element);
        if (result->ResultMode == 1) std::memcpy(element.RecordName, element.PictureUrl, carriedUrl);
    }
    return result.handOver();
}

void ReleaseRecordParam(Result* records) {
    if (!records || !records->Records) return;
    delete[] records->Records;
    records->Records = nullptr;
}

} // namespace veltoprotocol
