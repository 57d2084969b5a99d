// Record lists when zlib, or the room that a block is inflated into, gets no memory. The linker hands this
// program's calls of these functions to the ones here (--wrap), which refuse when they are told to.
#include "media/record_blocks.h"

#include <cstdlib>
#include <new>

namespace {

enum class Refuse { nothing, zlib, room };
Refuse refuse = Refuse::nothing;
int calls = 0; // that were refused

// Whether a call is to be refused, which is counted.
bool refused(Refuse kind) {
    calls += refuse == kind;
    return refuse == kind;
}

} // namespace

extern "C" {
int __real_deflateInit_(z_streamp stream, int level, const char* version, int size);
int __real_inflateInit_(z_streamp stream, const char* version, int size);
void* __real_realloc(void* memory, std::size_t size);

int __wrap_deflateInit_(z_streamp stream, int level, const char* version, int size) {
    return refused(Refuse::zlib) ? Z_MEM_ERROR : __real_deflateInit_(stream, level, version, size);
}
int __wrap_inflateInit_(z_streamp stream, const char* version, int size) {
    return refused(Refuse::zlib) ? Z_MEM_ERROR : __real_inflateInit_(stream, version, size);
}
void* __wrap_realloc(void* memory, std::size_t size) {
    return refused(Refuse::room) ? nullptr : __real_realloc(memory, size);
}
}

namespace {

using namespace record_blocks;

struct Refusing {
    explicit Refusing(Refuse kind) {
        calls = 0;
        refuse = kind;
    }
    ~Refusing() { refuse = Refuse::nothing; }
};

TEST(GetSearchRecordRespEncode, WritesNothingWhenZlibHasNoMemory) {
    __tagVtRecordElementParam entry = record(1, "/a.jpg");
    __tagVtRecordParam list = __tagVtRecordParam();
    list.Counter = 1;
    list.Records = &entry;
    for (const int size : {100000, 500}) { // into the caller's buffer, and into one of its own
        std::string out(static_cast<std::size_t>(size), '#');
        int returned = 0;
        {
            const Refusing memory(Refuse::zlib);
            returned = GetSearchRecordRespEncode(0, 1, &list, &out[0], size);
        }
        EXPECT_EQ(returned, -1);
        EXPECT_EQ(calls, 1);
        EXPECT_EQ(out, std::string(out.size(), '#'));
        EXPECT_GT(GetSearchRecordRespEncode(0, 1, &list, &out[0], size), 0);
    }
}

TEST(GetSearchRecordResultDecode, IsEmptyWhenZlibHasNoMemory) {
    const std::string block = packed(head("a", 0, 1) + element(1, "/a.jpg"));
    const Refusing memory(Refuse::zlib);
    int error = 7;
    const __tagVtRecordParam got =
        GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), &error);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(got.Counter, 0u);
    EXPECT_EQ(got.Records, nullptr);
}

TEST(GetSearchRecordResultDecode, ThrowsWhenThereIsNoRoomForWhatIsInflated) {
    const std::string block = packed(head("a", 0, 1) + element(1, "/a.jpg"));
    bool threw = false;
    {
        const Refusing memory(Refuse::room);
        try {
            GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), nullptr);
        } catch (const std::bad_alloc&) {
            threw = true;
        }
    }
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(threw);
}

} // namespace
