// Numbers as decimal text.
#include "framing/shown.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>

namespace {

using namespace veltoprotocol;

template <class Integer>
void expectShown(Integer value) {
    const std::string want = std::to_string(value);
    char text[Number<Integer>::longest];
    const Number<Integer> number{value};
    ASSERT_EQ(std::string(text, number.write(text)), want);
    ASSERT_EQ(number.length(), want.size()) << want;
}

TEST(Number, IsShownInAsManyDigitsAsItNeeds) {
    for (int value = -2000; value <= 20000; ++value) expectShown(value);
    for (unsigned value = 0; value <= 20000; ++value) expectShown(value);
    for (std::int64_t power = 10; power <= 10000000000; power *= 10)
        for (const std::int64_t near : {power - 1, power, power + 1}) {
            expectShown(static_cast<int>(near));
            expectShown(static_cast<int>(-near));
            expectShown(static_cast<unsigned int>(near));
        }
    for (const int value : {INT_MIN, INT_MIN + 1, INT_MAX}) expectShown(value);
    expectShown(UINT_MAX);
    std::mt19937 random(1);
    for (int i = 0; i < 10000; ++i) {
        expectShown(static_cast<int>(random()));
        expectShown(static_cast<unsigned int>(random()));
    }
}

} // namespace
