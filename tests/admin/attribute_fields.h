// Decoders of records whose fields are attributes of one element, against a table of these fields: each name
// alone, at its limit, beyond it, and missing.
#pragma once

#include "support/read_back.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

// In the order in which they are read. The limit is that of a text; a name may be read more than once.
struct AttributeField {
    static constexpr std::size_t number = 0, flag = SIZE_MAX;

    const char* name;
    std::size_t limit;
    std::size_t offset;
};

// Reads an element that carries one attribute.
template <class Decoder>
void expectReadsAlone(const std::string& label, const std::vector<AttributeField>& fields,
                      const Decoder& decode, const std::string& name, const std::string& value) {
    const auto got = readBack("<E " + name + "=\"" + value + "\" />", decode);
    auto want = decltype(got.record)();
    std::string lines;
    for (const AttributeField& field : fields) {
        char* const member = reinterpret_cast<char*>(&want) + field.offset;
        const std::string line = "xml file -..-" + label + "(" + field.name + ") element ";
        if (name != field.name) {
            lines += line + "not find!\n";
        } else if (field.limit == AttributeField::number) {
            const int number = std::stoi(value);
            std::memcpy(member, &number, sizeof number);
        } else if (field.limit == AttributeField::flag) {
            *member = value == "0" ? 0 : 1;
        } else if (value.size() > field.limit) {
            lines += line + "too long!\n";
        } else {
            std::memcpy(member, value.data(), value.size());
        }
    }
    EXPECT_TRUE(sameBytes(got.record, want)) << name << " of " << value.size() << " bytes";
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, lines);
}

template <class Decoder>
void expectReadsEachAttribute(const std::string& label, const std::vector<AttributeField>& fields,
                              const Decoder& decode) {
    expectReadsAlone(label, fields, decode, "Other", "1"); // all of them missing
    for (const AttributeField& field : fields) {
        SCOPED_TRACE(field.name);
        const auto reads = [&](const std::string& value) {
            expectReadsAlone(label, fields, decode, field.name, value);
        };
        if (field.limit == AttributeField::number) {
            for (const char* value : {"-7", "2147483647", "-2147483648"}) reads(value);
        } else if (field.limit == AttributeField::flag) {
            for (const char* value : {"1", "0", "-7"}) reads(value);
        } else {
            for (const std::size_t size : {std::size_t{0}, std::size_t{1}, field.limit, field.limit + 1})
                reads(std::string(size, 'x'));
        }
    }
}
