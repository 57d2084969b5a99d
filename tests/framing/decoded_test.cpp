// What bounds and owns the memory that a received message makes the library allocate.
#include "framing/decoded.h"

#include <gtest/gtest.h>

namespace {

using namespace veltoprotocol;

struct Numbers {
    int count;
    int* numbers;
};

int releases = 0;
void release(Numbers* record) {
    ++releases;
    delete[] record->numbers;
    record->numbers = nullptr;
}

TEST(Budget, GivesZeroedArrays) {
    Budget budget;
    const Numbers record{3, budget.zeroed<int>(3)};
    for (int i = 0; i < record.count; ++i) EXPECT_EQ(record.numbers[i], 0);
    delete[] record.numbers;
    int* const none = budget.zeroed<int>(0);
    EXPECT_NE(none, nullptr);
    delete[] none;
}

struct Large {
    char bytes[1 << 20];
};

TEST(Budget, IsOneGibibyteForAllArraysOfACall) {
    Budget budget;
    EXPECT_THROW(budget.zeroed<char>((1ULL << 30) + 1), std::bad_alloc);
    EXPECT_THROW(budget.zeroed<Large>(1025), std::bad_alloc);
    EXPECT_THROW(budget.zeroed<Large>(~0ULL), std::bad_alloc); // the size in bytes would wrap
    delete[] budget.zeroed<Large>(1);                          // what was refused has cost nothing
    EXPECT_THROW(budget.zeroed<Large>(1024), std::bad_alloc);
    delete[] budget.zeroed<char>(1 << 20);
    EXPECT_THROW(budget.zeroed<char>((1022ULL << 20) + 1), std::bad_alloc);
}

TEST(Decoded, ReleasesWhatIsNotHandedOver) {
    releases = 0;
    EXPECT_THROW(
        {
            Decoded<Numbers> record(release);
            record->numbers = Budget().zeroed<int>(2);
            Budget().zeroed<char>(~0ULL);
        },
        std::bad_alloc);
    EXPECT_EQ(releases, 1);
}

TEST(Decoded, BeginsAsZeroAndHandsItsRecordOver) {
    releases = 0;
    Numbers handed{7, nullptr};
    {
        Decoded<Numbers> record(release);
        EXPECT_EQ(record->count, 0);
        EXPECT_EQ(record->numbers, nullptr);
        record->numbers = Budget().zeroed<int>(2);
        (*record).count = 2;
        handed = record.handOver();
    }
    EXPECT_EQ(releases, 0);
    EXPECT_EQ(handed.count, 2);
    ASSERT_NE(handed.numbers, nullptr);
    release(&handed);
}

} // namespace
