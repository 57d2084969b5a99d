// Readers of documents in which one element at a time is changed.
#pragma once

#include "properties/steady.h"
#include "properties/tree_edits.h"
#include "support/read_back.h"

#include <algorithm>
#include <functional>
#include <string>

struct Told {
    std::string text;
    int error = 7;

    bool operator==(const Told& other) const { return text == other.text && error == other.error; }
};

template <class Reader, class From>
Told told(Faults& faults, const Reader& reader, From* from, const std::string& where) {
    Told told;
    told.text = steady(faults, where, [&] { return reader.read(from, &told.error); });
    if (told.error != 7) faults.expect(told.error == 0 || told.error == -1, where, "has an unknown error");
    return told;
}

// Each byte is as it was, or zero.
inline bool onlyZeroes(const std::string& was, const std::string& is) {
    if (is.size() != was.size()) return false;
    for (std::size_t i = 0; i < is.size(); ++i)
        if (is[i] != was[i] && is[i] != '\0') return false;
    return is != was;
}
inline bool sameOrZeroes(const std::string& was, const std::string& is) {
    return is == was || onlyZeroes(was, is);
}

// False if there is no such edit of this element.
using Edit = std::function<bool(TiXmlElement*)>;

// Calls check(document, name of the element, place) for each element that can be edited so.
template <class Check>
std::size_t edited(const Document& doc, const Edit& edit, const Check& check) {
    std::size_t made = 0;
    for (std::size_t i = 0; i < edits::elementsOf(*doc).size(); ++i) {
        TiXmlDocument copy(*doc);
        TiXmlElement* const element = edits::elementsOf(copy)[i];
        const std::string name = element->ValueStr();
        if (!edit(element)) continue;
        check(copy, name, name + ", element " + std::to_string(i));
        ++made;
    }
    return made;
}
