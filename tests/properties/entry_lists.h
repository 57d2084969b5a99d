// Every list that a decoder reads from a message, with entries that carry their number in their first, in one
// of their middle and in their last field.
#pragma once

#include "properties/single_readers.h"
#include "views/layouts.h"

#include <LibVeltoProtocol.h>

#include <functional>
#include <string>
#include <vector>

namespace entry_lists {

using namespace veltoprotocol;

inline std::string slot(bool zero, const std::vector<std::string>& fields) {
    if (zero) return " zero";
    for (const std::string& field : fields)
        if (field != fields[0]) return " mixed";
    return " " + fields[0];
}
template <class Entry, class Count>
std::string told(const Entry* array, Count count, std::vector<std::string> (*fields)(const Entry& entry)) {
    if (!array) return "none";
    std::string text = std::to_string(count) + ":";
    for (Count i = 0; i < count; ++i) text += slot(sameBytes(array[i], Entry()), fields(array[i]));
    return text;
}

struct List {
    std::string name; // of the decoder and of the entries
    // A message around the element that holds the list; that element; and one entry.
    std::function<std::string(const std::string& list)> message;
    std::function<std::string(const std::string& count, const std::string& entries)> list;
    std::function<std::string(const std::string& number)> entry;
    // How many there are, and the number of each; "none" if there is no array.
    std::function<std::string(TiXmlDocument*, int* error)> read;
    // What an entry is inside of, if it is wrapped, and whether it is an error if it is missing there.
    std::string wrapper;
    bool needsEntry = false;
    // What is told where the count is 0 or missing, and where the list is.
    std::string ofZero = "none", ofNoCount = "none", ofNoList = "none";
};

void addLayouts(std::vector<List>& lists);
std::vector<List> all();

} // namespace entry_lists
