// A record's description, written and read.
#pragma once

#include "framing/fields.h"
#include "framing/written.h"
#include "support/read_back.h"

#include <string>

template <class List>
auto reader(const List& list) {
    return [&list](TiXmlElement* element, int* error) {
        return veltoprotocol::readRecord(element, list, error);
    };
}

template <class List>
std::string asElement(const List& list, const typename List::Record& record) {
    return written([&](auto x) { x.element("E", list(record)); });
}
