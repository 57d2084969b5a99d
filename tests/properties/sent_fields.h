// What encoders of full records have sent, parsed.
#pragma once

#include "support/encoded.h"
#include "support/read_back.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <tinyxml.h>

// The parsed body of what an encoder sends.
template <class Encode>
Document sent(const Encode& encode) {
    return parsed(bodyOf(encoded(encode).bytes));
}

// The element that these names lead to.
inline const TiXmlElement* below(const Document& doc, std::initializer_list<const char*> names) {
    const TiXmlElement* at = doc->RootElement();
    for (const char* name : names) at = at ? at->FirstChildElement(name) : nullptr;
    return at;
}

// Calls check() with each child of this name; there must be so many.
template <class Check>
void forEach(const TiXmlElement* parent, const char* name, int count, const Check& check) {
    ASSERT_NE(parent, nullptr);
    for (auto* at = parent->FirstChildElement(name); at; at = at->NextSiblingElement(name), --count)
        check(at);
    EXPECT_EQ(count, 0);
}
