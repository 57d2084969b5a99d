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

template <class Shown>
bool absent(const Shown& value) {
    return value.absent();
}

template <class Sink, int Depth>
class Element {
  public:
    explicit Element(Sink& sink) : sink_(sink) {}

    void declaration() { sink_.literal("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"); }

    // <Name>value</Name>; a null text gives <Name />, an empty one <Name></Name>
    template <std::size_t N, class Value>
    VELTO_INLINE void value(const char (&name)[N], const Value& value) {
        locally([&](Element x) VELTO_INLINED { x.putValue(name, shown(value)); });
    }

    template <std::size_t N, class... Parts>
    VELTO_INLINE void element(const char (&name)[N], const Parts&... parts) {
        locally([&](Element x) VELTO_INLINED { x.putElement(name, parts...); });
    }

    // An element for each entry.
    template <std::size_t N, class List, class Tree>
    VELTO_INLINE void list(const char (&name)[N], const List& list, const Tree& tree) {
        for (const auto& entry : list) element(name, [&](auto x) VELTO_INLINED { tree(x, entry); });
    }

    // The same element so many times.
    template <std::size_t N, class Integer, class Tree>
    VELTO_INLINE void repeat(const char (&name)[N], Integer times, const Tree& tree) {
        if (times < 1) return;
        if constexpr (Sink::counts) { // measured once: whoever asks for 2^31 of them gets a quick answer
            const Sink before = sink_;
            element(name, tree);
            sink_.repeat(before, static_cast<std::uint64_t>(times) - 1);
        } else {
            for (Integer i = 0; i < times; ++i) element(name, tree);
        }
    }

  private:
    // Runs words over a sink of their own, which can stay in registers: what is written through this one
    // might lie in the bytes that are written.
    template <class Words>
    VELTO_INLINE void locally(const Words& words) {
        Sink sink = sink_;
        words(Element(sink));
        sink_ = sink;
    }

    template <std::size_t N, class Shown>
    VELTO_INLINE void putValue(const char (&name)[N], const Shown& text) {
        open(name);
        if (absent(text)) return sink_.literal(" />\n");
        sink_.literal(">");
        sink_.put(text);
        close(name);
    }
    template <std::size_t N, class... Parts>
    VELTO_INLINE void putElement(const char (&name)[N], const Parts&... parts) {
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

    VELTO_INLINE void indent() {
        if constexpr (Depth > 0) sink_.literal(blanks<4 * Depth>);
    }
    template <std::size_t N>
    VELTO_INLINE void open(const char (&name)[N]) {
        indent();
        sink_.literal("<");
        sink_.literal(name);
    }
    template <std::size_t N>
    VELTO_INLINE void close(const char (&name)[N]) {
        sink_.literal("</");
        sink_.literal(name);
        sink_.literal(">\n");
    }

    template <std::size_t N, class Value>
    VELTO_INLINE void inTag(const Attribute<N, Value>& part) {
        const auto text = shown(part.value);
        if (absent(text)) return;
        sink_.literal(" ");
        sink_.literal(part.name);
        sink_.literal("=\"");
        sink_.quoted(text);
    }
    template <class Part>
    VELTO_INLINE void inTag(const Part& part) {
        if constexpr (standsInTag<Part>)
            part.list.each([&](const auto& item) VELTO_INLINED {
                if (!item.written) return;
                const auto text = shown(item.onWire(part.record));
                if (absent(text)) return;
                sink_.literal(item.name.attribute);
                sink_.quoted(text);
            });
    }

    template <class Part>
    VELTO_INLINE void inside(const Part& part) {
        Element<Sink, Depth + 1> x(sink_);
        if constexpr (standsInTag<Part>) {
        } else if constexpr (isRecord<Part>) {
            part.list.each([&](const auto& item) VELTO_INLINED {
                if (item.written) x.valueOf(item, part.record);
            });
        } else {
            part(x);
        }
    }

    template <class, int>
    friend class Element;

    template <class Item, class Record>
    VELTO_INLINE void valueOf(const Item& item, const Record& record) {
        const auto text = shown(item.onWire(record));
        if (absent(text)) {
            open(item.name.text);
            return sink_.literal(" />\n");
        }
        indent();
        sink_.literal(item.name.opening);
        sink_.put(text);
        sink_.literal(item.name.closing);
    }

    Sink& sink_;
};

} // namespace veltoprotocol
