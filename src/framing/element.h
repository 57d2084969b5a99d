// The words that a message tree is written with.
//
// A tree is a generic lambda over `x`, the element that is being written: x.value() is a child with a text,
// x.element() a child with attributes and children, x.list() a child per entry, x.repeat() the same child
// again and again. Here x is an Element over one of the sinks; TreeElement (tree.h) has the same words over
// the XML library's tree.
#pragma once

#include "framing/fields.h"
#include "framing/sinks.h"

#include <cstddef>

namespace veltoprotocol {

// A single attribute of an element; a null text leaves it out.
template <std::size_t N, class Value>
struct Attribute {
    const char (&name)[N];
    const Value& value;
};

template <std::size_t N, class Value>
constexpr Attribute<N, Value> attribute(const char (&name)[N], const Value& value) {
    return {name, value};
}

// The entries of a caller's array; none if it is null or its count below 1.
template <class Entry>
struct Entries {
    const Entry* first;
    std::size_t count;
    const Entry* begin() const { return first; }
    const Entry* end() const { return first + count; }
};

template <class Entry, class Integer>
Entries<Entry> entries(const Entry* array, Integer count) {
    return {array, array && count > 0 ? static_cast<std::size_t>(count) : 0};
}

// Attributes, and records carried by them, stand in the tag; everything else stands inside the element.
template <class Part>
constexpr bool standsInTag = false;
template <std::size_t N, class Value>
constexpr bool standsInTag<Attribute<N, Value>> = true;
template <class List, class Record>
constexpr bool standsInTag<Bound<List, Record>> = List::carried == Carried::byAttributes;
template <class Part>
constexpr bool isRecord = false;
template <class List, class Record>
constexpr bool isRecord<Bound<List, Record>> = true;

inline bool absent(Text text) { return text.absent(); }
inline bool absent(const NumberText&) { return false; }

template <class Sink, int Depth>
class Element {
  public:
    explicit Element(Sink& sink) : sink_(sink) {}

    void declaration() { sink_.literal("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"); }

    // <Name>value</Name>; a null text gives <Name />, an empty one <Name></Name>
    template <std::size_t N, class Value>
    void value(const char (&name)[N], const Value& value) {
        const auto text = shown(value);
        open(name);
        if (absent(text)) return sink_.literal(" />\n");
        sink_.literal(">");
        sink_.put(text);
        close(name);
    }

    template <std::size_t N, class... Parts>
    void element(const char (&name)[N], const Parts&... parts) {
        open(name);
        (inTag(parts), ...);
        if constexpr ((standsInTag<Parts> && ...)) {
            sink_.literal(" />\n");
        } else {
            sink_.literal(">\n");
            const auto before = sink_.mark();
            (inside(parts), ...);
            if (sink_.mark() == before) { // nothing came
                sink_.retract(2);
                return sink_.literal(" />\n");
            }
            indent();
            close(name);
        }
    }

    // An element for each entry.
    template <std::size_t N, class List, class Tree>
    void list(const char (&name)[N], const List& list, const Tree& tree) {
        for (const auto& entry : list) element(name, [&](auto x) { tree(x, entry); });
    }

    // The same element so many times.
    template <std::size_t N, class Integer, class Tree>
    void repeat(const char (&name)[N], Integer times, const Tree& tree) {
        if (times < 1) return;
        if constexpr (Sink::counts) { // measured once: whoever asks for 2^31 of them gets a quick answer
            const auto before = sink_.mark();
            element(name, tree);
            sink_.add((sink_.mark() - before) * (static_cast<std::uint64_t>(times) - 1));
        } else {
            for (Integer i = 0; i < times; ++i) element(name, tree);
        }
    }

  private:
    void indent() {
        if constexpr (Depth > 0) {
            char blanks[static_cast<std::size_t>(4 * Depth) + 1];
            std::memset(blanks, ' ', 4 * Depth);
            sink_.literal(blanks);
        }
    }
    template <std::size_t N>
    void open(const char (&name)[N]) {
        indent();
        sink_.literal("<");
        sink_.literal(name);
    }
    template <std::size_t N>
    void close(const char (&name)[N]) {
        sink_.literal("</");
        sink_.literal(name);
        sink_.literal(">\n");
    }

    template <std::size_t N, class Value>
    void writeAttribute(const char (&name)[N], const Value& value) {
        const auto text = shown(value);
        if (absent(text)) return;
        sink_.literal(" ");
        sink_.literal(name);
        sink_.quoted(text);
    }

    template <std::size_t N, class Value>
    void inTag(const Attribute<N, Value>& part) {
        writeAttribute(part.name, part.value);
    }
    template <class Part>
    void inTag(const Part& part) {
        if constexpr (standsInTag<Part>)
            part.list.each([&](const auto& item) {
                if (item.written) writeAttribute(item.name, item.onWire(part.record));
            });
    }

    template <class Part>
    void inside(const Part& part) {
        Element<Sink, Depth + 1> x(sink_);
        if constexpr (standsInTag<Part>) {
        } else if constexpr (isRecord<Part>) {
            part.list.each([&](const auto& item) {
                if (item.written) x.value(item.name, item.onWire(part.record));
            });
        } else {
            part(x);
        }
    }

    Sink& sink_;
};

} // namespace veltoprotocol
