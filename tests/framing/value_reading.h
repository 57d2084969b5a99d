// Calls the value readers and keeps what they returned, wrote and printed.
#pragma once

#include "support/guarded_page.h"
#include "support/read_back.h"

#include <climits>
#include <functional>

namespace values {

struct Read {
    int returned;
    std::string printed;
};

// Calls a reader with the root element of a text.
inline Read read(const std::string& xml, const std::function<int(TiXmlElement*)>& reader) {
    const auto got = readBack(xml, [&](TiXmlElement* root, int*) { return reader(root); });
    return {got.record, got.printed};
}

struct Field {
    int returned;
    std::string bytes; // all of the field; a byte that was not written is '#'
    std::string printed;
};

// Calls a string reader for "Name" with a field of exactly `size` bytes, which ends at a protected page.
using StringReader = int(TiXmlElement*, const char*, const char*, char*, int);
inline Field readText(StringReader* reader, const std::string& xml, int size) {
    GuardedPage field(std::string(static_cast<std::size_t>(size), '#'));
    const Read got =
        read(xml, [&](TiXmlElement* root) { return reader(root, "Label", "Name", field.data(), size); });
    return {got.returned, std::string(field.bytes()), got.printed};
}

template <class Value>
struct Number {
    int returned;
    Value value;
    std::string printed;
};

template <class Value>
Number<Value> readNumber(int (*reader)(TiXmlElement*, const char*, const char*, Value*),
                         const std::string& xml, Value before) {
    Value value = before;
    const Read got = read(xml, [&](TiXmlElement* root) { return reader(root, "Label", "Name", &value); });
    return {got.returned, value, got.printed};
}

inline std::string child(const std::string& text) { return "<a><Name>" + text + "</Name></a>"; }
inline std::string attribute(const std::string& text) { return "<a Name=\"" + text + "\"/>"; }

inline const std::string missingChild = "xml file -..-Label-Name element not find!\n";
inline const std::string missingAttribute = "xml file -..-Label(Name) element not find!\n";
inline const std::string longChild = "xml file -..-Label-Name element too long!\n";
inline const std::string longAttribute = "xml file -..-Label(Name) element too long!\n";

// Whether a reader asked for something null returns so much, and prints nothing.
template <class Reader, class Value>
void expectNullArguments(Reader* reader, Value* out, int returned) {
    TiXmlElement element("a");
    Captured captured;
    const int withoutElement = reader(nullptr, "Label", "Name", out);
    const int withoutOutput = reader(&element, "Label", "Name", nullptr);
    const int withoutBoth = reader(nullptr, "Label", "Name", nullptr);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(withoutElement, returned);
    EXPECT_EQ(withoutOutput, returned);
    EXPECT_EQ(withoutBoth, returned);
}

inline void expectNullArgumentsAndSmallSizes(StringReader* reader) {
    TiXmlElement element("a");
    char out[] = "###";
    Captured captured;
    const int withoutElement = reader(nullptr, "Label", "Name", out, 3);
    const int withoutOutput = reader(&element, "Label", "Name", nullptr, 3);
    const int withoutRoom = reader(&element, "Label", "Name", out, 0);
    const int withNegativeRoom = reader(&element, "Label", "Name", out, -1);
    const int withLeastRoom = reader(&element, "Label", "Name", out, INT_MIN);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(withoutElement, -1);
    EXPECT_EQ(withoutOutput, -1);
    EXPECT_EQ(withoutRoom, -1);
    EXPECT_EQ(withNegativeRoom, -1);
    EXPECT_EQ(withLeastRoom, -1);
    EXPECT_STREQ(out, "###");
}

} // namespace values
