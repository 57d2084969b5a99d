// The operators of the program that tests hostile input, and what they notice behind an allocation.
#include "support/fenced_new.h"

#include "properties/steady.h"

namespace {

volatile unsigned char* fenced(std::size_t size) {
    const heap::Fenced fenced;
    return static_cast<unsigned char*>(::operator new(size));
}
void release(volatile unsigned char* memory) { ::operator delete(const_cast<unsigned char*>(memory)); }

TEST(FencedHeap, EndsExactlyAtThePage) {
    for (const std::size_t size : {1u, 2u, 4u, 8u, 12u, 17u, 20u, 24u, 40u, 99u, 1000u, 4096u, 5004u}) {
        volatile unsigned char* const memory = fenced(size);
        const auto start = reinterpret_cast<std::uintptr_t>(memory);
        if (heap::recordsAreAligned && size >= 16 && size % 4 == 0)
            EXPECT_EQ(start % 16, 0u) << size;
        else
            EXPECT_EQ((start + size) % heap::pageSize(), 0u) << size;
        release(memory);
    }
}

// Where something can be read there, it differs from one call to the next.
TEST(FencedHeapDeathTest, TellsWhatIsReadBehindARecord) {
    const auto readBehind = [] {
        volatile unsigned char* const record = fenced(20);
        const std::string read(1, static_cast<char>(record[20]));
        release(record);
        return read;
    };
    if (heap::recordsAreAligned) {
        Faults faults;
        steady(faults, "it", readBehind);
        EXPECT_EQ(faults.text(), "it: makes something else the second time\n");
    } else {
        EXPECT_DEATH(readBehind(), "");
    }
}

} // namespace
