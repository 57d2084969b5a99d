// Texts of counts, and what they count.
#pragma once

#include <string>

// As atoi reads it on a machine whose long has 64 bits, low 32 bits.
struct CountText {
    std::string text;
    int count;
};
inline const CountText countTexts[] = {{"-1", -1},
                                       {"0", 0},
                                       {"", 0},
                                       {"abc", 0},
                                       {"1", 1},
                                       {"2", 2},
                                       {" 2 and more", 2},
                                       {"3", 3},
                                       {"200", 200},
                                       {"2147483647", 2147483647},
                                       {"2147483648", -2147483647 - 1},
                                       {"-2147483649", 2147483647},
                                       {"4294967295", -1},
                                       {"4294967297", 1},
                                       {"99999999999999999999", -1},
                                       {"-99999999999999999999", 0}};
