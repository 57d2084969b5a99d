// Decoders of records whose fields are children of one element, against a table of these fields: each one
// alone, at its limit, beyond it, and missing.
#pragma once

#include "support/read_back.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

// In the order in which they are read. A limit of 0 is that of a 32-bit number.
struct ChildField {
    const char* name;
    std::size_t limit;
    std::size_t offset;
};

inline std::string missingChild(const std::string& label, const std::string& name) {
    return "xml file -..-" + label + "-" + name + " element not find!\n";
}

// What is printed of an element without children.
inline std::string missingChildren(const std::string& label, const std::vector<ChildField>& fields) {
    std::string lines;
    for (const ChildField& field : fields) lines += missingChild(label, field.name);
    return lines;
}

template <class Decoder>
void expectReadsEachChild(const std::string& label, const std::vector<ChildField>& fields,
                          const Decoder& decode) {
    const auto readAlone = [&](const ChildField& field, const std::string& text) {
        const std::string name = field.name;
        return readBack("<" + label + "><" + name + ">" + text + "</" + name + "></" + label + ">", decode);
    };
    const auto othersMissing = [&](const ChildField& read, const std::string& ownLine) {
        std::string lines;
        for (const ChildField& field : fields)
            lines += &field == &read ? ownLine : missingChild(label, field.name);
        return lines;
    };
    const auto nothing = readBack("<" + label + " />", decode);
    const auto zero = decltype(nothing.record)();
    EXPECT_TRUE(sameBytes(nothing.record, zero));
    EXPECT_EQ(nothing.error, 0);
    EXPECT_EQ(nothing.printed, missingChildren(label, fields));

    for (const ChildField& field : fields) {
        SCOPED_TRACE(field.name);
        auto want = zero;
        char* const member = reinterpret_cast<char*>(&want) + field.offset;
        if (field.limit == 0) {
            const int number = -7;
            std::memcpy(member, &number, sizeof number);
            const auto got = readAlone(field, "-7");
            EXPECT_TRUE(sameBytes(got.record, want));
            EXPECT_EQ(got.error, 0);
            EXPECT_EQ(got.printed, othersMissing(field, ""));
            continue;
        }
        const std::string tooLong =
            "xml file -..-" + label + "-" + std::string(field.name) + " element too long!\n";
        const auto beyond = readAlone(field, std::string(field.limit + 1, 'x'));
        EXPECT_TRUE(sameBytes(beyond.record, zero));
        EXPECT_EQ(beyond.error, 0);
        EXPECT_EQ(beyond.printed, othersMissing(field, tooLong));
        std::memset(member, 'x', field.limit);
        const auto atLimit = readAlone(field, std::string(field.limit, 'x'));
        EXPECT_TRUE(sameBytes(atLimit.record, want));
        EXPECT_EQ(atLimit.error, 0);
        EXPECT_EQ(atLimit.printed, othersMissing(field, ""));
    }
}

// Error -1 and a zero record, in silence; and a null error pointer in both cases.
template <class Decoder>
void expectRefusesANullElement(const Decoder& decode) {
    const Document doc = parsed("<any />");
    Captured captured;
    int error = 7;
    const auto record = decode(nullptr, &error);
    const auto again = decode(nullptr, nullptr);
    const std::string printed = captured.text();
    EXPECT_TRUE(sameBytes(record, decltype(decode(nullptr, nullptr))()));
    EXPECT_TRUE(sameBytes(again, record));
    EXPECT_EQ(error, -1);
    EXPECT_EQ(printed, "");
    Captured quiet;
    const auto empty = decode(doc->RootElement(), nullptr);
    quiet.text();
    EXPECT_TRUE(sameBytes(empty, record));
}
