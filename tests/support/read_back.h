// Parses a text, runs a decoder over it and keeps what it printed.
#pragma once

#include "support/captured.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>

struct ReleaseDocument {
    void operator()(TiXmlDocument* doc) const { veltoprotocol::ReleaseTiXmlDocument(doc); }
};
using Document = std::unique_ptr<TiXmlDocument, ReleaseDocument>;

inline Document parsed(const std::string& xml) {
    Document doc(veltoprotocol::Decode(xml.c_str()));
    if (!doc) throw std::invalid_argument("not well-formed: " + xml);
    return doc;
}

template <class Record>
struct ReadBack {
    Record record;
    int error;
    std::string printed;
};

// decode(TiXmlElement*, int* error), given the text's root element.
template <class Decoder>
auto readBack(const std::string& xml, const Decoder& decode) {
    const Document doc = parsed(xml);
    Captured captured;
    int error = 7;
    auto record = decode(doc->RootElement(), &error);
    return ReadBack<decltype(record)>{record, error, captured.text()};
}

// decode(TiXmlDocument*, int* error), given the whole text.
template <class Decoder>
auto readBackDocument(const std::string& xml, const Decoder& decode) {
    const Document doc = parsed(xml);
    Captured captured;
    int error = 7;
    auto record = decode(doc.get(), &error);
    return ReadBack<decltype(record)>{record, error, captured.text()};
}

template <class Record>
bool sameBytes(const Record& left, const Record& right) {
    return std::memcmp(&left, &right, sizeof(Record)) == 0;
}
