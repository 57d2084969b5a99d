// Both kinds of block, for suites that are run with each of them.
#pragma once

#include "framing/byte_block.h"

#include <gtest/gtest.h>

#include <string>

#ifdef __SSE2__
using BlockKinds = testing::Types<veltoprotocol::WordBlock, veltoprotocol::Sse2Block>;
#else
using BlockKinds = testing::Types<veltoprotocol::WordBlock>;
#endif

struct BlockKindNames {
    template <class Kind>
    static std::string GetName(int) {
        return "of" + std::to_string(Kind::size) + "Bytes";
    }
};
