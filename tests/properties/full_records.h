// Records without a NUL: every byte of theirs is 'x', and behind the last one lies a page that nobody may
// touch.
#pragma once

#include "support/guarded_page.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <cstdint>
#include <string>
#include <vector>

template <class Record>
class FullRecords {
  public:
    explicit FullRecords(std::size_t count = 1) : page_(std::string(count * sizeof(Record), 'x')) {
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(page_.data()) % alignof(Record), 0u);
    }
    Record* records() { return reinterpret_cast<Record*>(page_.data()); }

  private:
    GuardedPage page_;
};

// What a record carries, and where.
struct Text {
    const char* name;
    std::size_t width;
};
struct Carried {
    enum { byAttributes, byElements } how;
    std::vector<Text> texts;
    std::vector<const char*> numbers;
};
inline const char* carriedValue(const TiXmlElement& element, const Carried& carried, const char* name) {
    if (carried.how == Carried::byAttributes) return element.Attribute(name);
    const TiXmlElement* const child = element.FirstChildElement(name);
    return child ? child->GetText() : nullptr;
}

// All of the texts to their last byte, all of the numbers as four x are one.
inline void expectFull(const TiXmlElement* element, const Carried& carried) {
    ASSERT_NE(element, nullptr);
    const auto value = [&](const char* name) {
        const char* const found = carriedValue(*element, carried, name);
        return std::string(found ? found : "missing");
    };
    for (const Text& text : carried.texts)
        EXPECT_EQ(value(text.name), std::string(text.width, 'x')) << text.name;
    for (const char* name : carried.numbers) EXPECT_EQ(value(name), "2021161080") << name;
}

// A flag is 0 or 1.
template <class Record>
void makeValid(Record&) {}
inline void makeValid(veltoprotocol::__tagVtChannelParam& channel) { channel.Preview = true; }
inline void makeValid(veltoprotocol::__tagVtViewGroupInfo& info) { info.ReadOnly = true; }

// A record, written to an element.
template <class Record>
void expectFull(int (*write)(TiXmlElement*, const Record*), const Carried& carried) {
    FullRecords<Record> full;
    makeValid(*full.records());
    TiXmlElement element("Record");
    EXPECT_EQ(write(&element, full.records()), 0);
    expectFull(&element, carried);
}
