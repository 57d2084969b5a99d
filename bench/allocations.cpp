// Counts what one call takes from the heap, operator new and malloc alike (zlib's too), and prints it as
// JSON. A program of its own: the counting would show in the times.
//
// Replaces malloc and its kin of the C library, whose own functions stay reachable by their internal names:
// glibc only.
#include "messages.h"

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <memory>

extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void* __libc_memalign(std::size_t, std::size_t);
void __libc_free(void*);
}

namespace {

struct Heap {
    long calls = 0; // of malloc and its kin
    long held = 0;  // bytes
    long peak = 0;
};
Heap heap; // the program has one thread

void* noted(void* memory) {
    ++heap.calls;
    heap.held += static_cast<long>(malloc_usable_size(memory));
    heap.peak = std::max(heap.peak, heap.held);
    return memory;
}
void gone(void* memory) { heap.held -= static_cast<long>(malloc_usable_size(memory)); }

} // namespace

extern "C" {
void* malloc(std::size_t size) noexcept { return noted(__libc_malloc(size)); }
void* calloc(std::size_t count, std::size_t size) noexcept { return noted(__libc_calloc(count, size)); }
void* realloc(void* memory, std::size_t size) noexcept {
    gone(memory);
    return noted(__libc_realloc(memory, size));
}
void* memalign(std::size_t alignment, std::size_t size) noexcept {
    return noted(__libc_memalign(alignment, size));
}
void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept { return memalign(alignment, size); }
void free(void* memory) noexcept {
    gone(memory);
    __libc_free(memory);
}
}

namespace {

using namespace bench;

const char* separator = "";

// The call's second time: what it does only once in a process does not count.
template <class Call>
void count(const std::string& name, const Call& call) {
    call();
    const Heap before = heap;
    heap.peak = heap.held;
    call();
    const Heap after = heap;
    std::printf("%s\n  \"%s\": {\"calls\": %ld, \"peak\": %ld}", separator, name.c_str(),
                after.calls - before.calls, after.peak - before.held);
    separator = ",";
}

template <class Message>
void countEncode(const Message& message) {
    std::string out = encoded(message);
    const int size = static_cast<int>(out.size());
    count("encode/" + message.label, [&] { message.encode(&out[0], size); });
}

template <class Message>
void countDecode(const Message& message) {
    const std::string text = bodyOf(encoded(message));
    count("decode/" + message.label,
          [&] { veltoprotocol::ReleaseTiXmlDocument(veltoprotocol::Decode(text.c_str())); });
}

void countFraming(const std::string& message) {
    count("framing/device_list_1024", [&] {
        const int length = static_cast<int>(message.size());
        veltoprotocol::CheckHttp(message.data(), length);
        veltoprotocol::GetHttpPacketLength(message.data(), length);
    });
}

void countBlock(const SearchAnswer& answer) {
    const std::string message = encoded(answer), end = "</servercommandservice>\n";
    const std::string block = message.substr(message.find(end) + end.size());
    count("decode/record_list", [&] {
        RecordList list =
            veltoprotocol::GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), nullptr);
        veltoprotocol::ReleaseRecordParam(&list);
    });
}

} // namespace

int main() {
    const DeviceList list("device_list_1024", 1024), escaped("device_list_1024_escaped", 1024, true);
    const LayoutAnswer layout;
    const auto found = std::make_unique<SearchAnswer>(10000);
    std::printf("{");
    countEncode(ResultAnswer());
    countEncode(AlarmPush());
    countEncode(list);
    countEncode(escaped);
    countEncode(layout);
    countEncode(VideoFrame());
    countEncode(*found);
    countDecode(ResultAnswer());
    countDecode(AlarmPush());
    countDecode(list);
    countDecode(layout);
    countBlock(*found);
    countFraming(encoded(list));
    std::printf("\n}\n");
    return 0;
}
