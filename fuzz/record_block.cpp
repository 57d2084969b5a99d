// The block behind the answer to a record search is inflated piece by piece, as far as it is needed. The
// result is that of the plain way: inflate all of it at once, into ten times its length, then twenty times,
// up to a hundred times; refuse what is still longer, broken, or shorter than the head; read item by item
// what is whole. (That no more than 1 GiB is inflated takes a block of 10 MB, which no fuzzer makes.)
// Elements above 1 GiB are exhausted memory, and so are, in this program, those above 256 KiB.
//
// Input: a byte for how the block is made of the bytes behind it (as they are, or compressed, then cut or
// with something behind), a byte for how often they are repeated before, then the bytes.
#include "fuzz/bounded_new.h"
#include "fuzz/target.h"

#include <LibVeltoProtocol.h>
#include <zlib.h>

#include <cstring>
#include <vector>

using namespace veltoprotocol;

namespace {

const Bytef* bytef(const std::string& bytes) { return reinterpret_cast<const Bytef*>(bytes.data()); }

std::string compressed(const std::string& plain) {
    uLongf size = compressBound(plain.size());
    std::string block(size, '\0');
    compress(reinterpret_cast<Bytef*>(&block[0]), &size, bytef(plain), plain.size());
    return block.substr(0, size);
}

std::string blockOf(Input& input) {
    const unsigned kind = input.byte(), doublings = input.byte() % 16;
    std::string bytes(input.rest());
    if (kind % 4 == 0) return bytes;
    for (unsigned i = 0; i < doublings && bytes.size() < 32768; ++i) bytes += bytes;
    std::string block = compressed(bytes);
    const std::size_t surplus = kind / 4;
    if (kind % 4 == 1) block.resize(block.size() - std::min(block.size() - 1, surplus));
    if (kind % 4 == 2) block.append(surplus, 'x');
    if (kind % 4 == 3) block[surplus % block.size()] ^= 1;
    return block;
}

// Empty if it cannot be inflated; nothing can be told from an empty list then.
std::string inflated(const std::string& block) {
    for (std::size_t times = 10; times <= 100; times += 10) {
        std::string plain(times * block.size(), '\0');
        uLongf size = plain.size();
        const int code = uncompress(reinterpret_cast<Bytef*>(&plain[0]), &size, bytef(block), block.size());
        if (code == Z_OK) return plain.substr(0, size);
        if (code != Z_BUF_ERROR && code != Z_MEM_ERROR) break;
    }
    return {};
}

// An item that does not fit is skipped, and the place stays.
class Items {
  public:
    explicit Items(const std::string& plain) : plain_(plain) {}
    void copy(void* to, std::size_t size) {
        if (at_ + size > plain_.size()) return;
        std::memcpy(to, plain_.data() + at_, size);
        at_ += size;
    }

  private:
    const std::string& plain_;
    std::size_t at_ = 0;
};

struct Found {
    __tagVtRecordParam head = {};
    std::vector<__tagVtRecordElementParam> elements;
    bool any = false, exhausted = false;
};

Found plainWay(const std::string& block) {
    Found found;
    const std::string plain = inflated(block);
    found.any = plain.size() >= 56;
    if (!found.any) return found;
    Items items(plain);
    __tagVtRecordParam& head = found.head;
    items.copy(head.ChannelGuid, 48);
    items.copy(&head.ResultMode, 4);
    items.copy(&head.Counter, 4);
    found.exhausted = head.Counter > bounded::most / sizeof(__tagVtRecordElementParam);
    if (found.exhausted) return found;
    found.elements.resize(head.Counter);
    for (__tagVtRecordElementParam& element : found.elements) {
        std::memcpy(element.ChannelGuid, head.ChannelGuid, 48);
        for (int* number : {&element.RecordType, &element.RecordMode, &element.StartTime, &element.EndTime,
                            &element.RecordSize})
            items.copy(number, 4);
        items.copy(element.PictureUrl, 64);
        items.copy(&element.PictureSize, 4);
        if (head.ResultMode == 1) std::memcpy(element.RecordName, element.PictureUrl, 64);
    }
    return found;
}

template <class Record>
std::string_view bytes(const Record* records, std::size_t count) {
    return {reinterpret_cast<const char*>(records), count * sizeof(Record)};
}

void compare(__tagVtRecordParam& got, Found& want) {
    requireSame("whether there is a list", got.Records != nullptr, want.any);
    requireSame("the elements", bytes(got.Records, got.Records ? got.Counter : 0),
                bytes(want.elements.data(), want.elements.size()));
    for (int times = 0; times < 2; ++times) { // a second release does nothing
        ReleaseRecordParam(&got);
        requireSame("the head, released", bytes(&got, 1), bytes(&want.head, 1));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const std::string block = blockOf(input);
    Found want = plainWay(block);
    Exact exact(block);
    int error = 7;
    bounded::largestAsked = 0;
    try {
        __tagVtRecordParam got = GetSearchRecordResultDecode(exact.data(), exact.length(), &error);
        require(!want.exhausted, "more elements than there is memory for");
        requireSame("the error", error, block.empty() ? -1 : 0);
        compare(got, want);
    } catch (const std::bad_alloc&) {
        require(want.exhausted, "no memory for elements that there is memory for");
    }
    require(bounded::largestAsked <= std::size_t(1) << 30, "more than 1 GiB is asked for");
    return 0;
}
