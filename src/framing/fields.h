// One description per record: a list of its members with the names that carry them, in wire order.
//
// The list serves both directions. Whatever a record does irregularly (a narrower capacity, a field that is
// only read, another wire form) stands in its list; a member whose type has no wire form does not compile.
#pragma once

#include "framing/found_values.h"
#include "framing/sinks.h"
#include "veltoprotocol/framing.h"

#include <tinyxml.h>

#include <array>
#include <string_view>
#include <tuple>

namespace veltoprotocol {

// The wire form of a member that is shown as it is.
struct AsDeclared {
    template <class Member>
    static const Member& onWire(const Member& value) {
        return value;
    }
};

// Written in signed decimal, read back unsigned.
struct Signed {
    static int onWire(unsigned int value) { return static_cast<int>(value); }
};

// A byte written as so many characters of code 1; a negative one as none.
struct RunOfOnes {
    static constexpr auto longest = [] {
        std::array<char, 127> ones = {};
        for (char& one : ones) one = 1;
        return ones;
    }();
    static Text onWire(char count) {
        const auto byte = static_cast<unsigned char>(count);
        return {longest.data(), byte <= longest.size() ? byte : std::size_t{0}};
    }
};

template <class Owner, class Type, std::size_t N, class Form = AsDeclared>
struct Field {
    using Member = Type;

    Name<N> name; // as the peer spells it, misspellings included
    Member Owner::*member;
    int capacity = sizeof(Member);    // longest text that a reader takes
    const char* label = nullptr;      // in diagnostics, where it is not the list's
    bool written = true, read = true; // most are both

    // A reader takes at most so many bytes, although the field is wider.
    constexpr Field upTo(int bytes) const {
        static_assert(std::is_array_v<Member>, "only a text has a capacity");
        return {name,  member,  bytes <= capacity ? bytes : throw "wider than the member",
                label, written, read};
    }
    constexpr Field labelled(const char* other) const {
        return {name, member, capacity, other, written, read};
    }
    constexpr Field writeOnly() const { return {name, member, capacity, label, written, false}; }
    constexpr Field readOnly() const { return {name, member, capacity, label, false, read}; }
    template <class Other>
    constexpr Field<Owner, Type, N, Other> as() const {
        return {name, member, capacity, label, written, read};
    }

    constexpr decltype(auto) onWire(const Owner& record) const { return Form::onWire(record.*member); }
};

template <std::size_t N, class Owner, class Member>
constexpr Field<Owner, Member, N> field(const char (&name)[N], Member Owner::*member) {
    return {Name<N>(name), member};
}

enum class Carried { byAttributes, byElements };

// The fields of one record, to be written.
template <class List, class Record>
struct Bound {
    const List& list;
    const Record& record;
};

template <Carried How, class Owner, class... Items>
struct Fields {
    using Record = Owner;
    static constexpr Carried carried = How;

    const char* label; // in diagnostics; as a rule the name of the element that carries the fields
    std::tuple<Items...> items;

    template <class Visit>
    VELTO_INLINE constexpr void each(Visit&& visit) const {
        std::apply([&](const auto&... item) VELTO_INLINED { (visit(item), ...); }, items);
    }
    constexpr Bound<Fields, Owner> operator()(const Owner& record) const { return {*this, record}; }
    constexpr Fields labelled(const char* other) const { return {other, items}; }
};

template <class Owner, class... Members, std::size_t... N, class... Forms>
constexpr Fields<Carried::byAttributes, Owner, Field<Owner, Members, N, Forms>...>
attributes(const char* label, const Field<Owner, Members, N, Forms>&... items) {
    return {label, {items...}};
}

// Whoever reads children in their order takes it that each name is looked for once.
template <class... Items>
constexpr bool readsANameTwice(const Items&... items) {
    const std::string_view names[] = {items.name.text...};
    const bool read[] = {items.read...};
    for (std::size_t i = 0; i < sizeof...(items); ++i)
        for (std::size_t k = 0; k < i; ++k)
            if (read[i] && read[k] && names[i] == names[k]) return true;
    return false;
}

template <class Owner, class... Members, std::size_t... N, class... Forms>
constexpr Fields<Carried::byElements, Owner, Field<Owner, Members, N, Forms>...>
elements(const char* label, const Field<Owner, Members, N, Forms>&... items) {
    if (readsANameTwice(items...)) throw "a child is read twice";
    return {label, {items...}};
}

// Codes go to the caller only where it gave a place for them.
inline void report(int* error, int code) {
    if (error) *error = code;
}

// Finds what carries the fields of a list, one after another. Each is expected behind the one found last,
// where a writer of the same list puts it; only if it is not there it is searched, so that any order is read
// as the public readers do.
class AttributesInOrder {
  public:
    explicit AttributesInOrder(TiXmlElement* element) : element_(element), next_(element->FirstAttribute()) {}

    const char* find(const char* name) {
        if (next_ && std::strcmp(next_->Name(), name) == 0) {
            const char* const value = next_->Value();
            next_ = next_->Next();
            return value;
        }
        return element_->Attribute(name);
    }

  private:
    TiXmlElement* element_;
    const TiXmlAttribute* next_; // an element has no two attributes of a name
};

class ChildrenInOrder {
  public:
    explicit ChildrenInOrder(TiXmlElement* element)
        : element_(element), next_(element->FirstChildElement()) {}

    // The first child of the name: as long as each was where it was expected, all before the next one have
    // other names.
    TiXmlElement* find(const char* name) {
        if (next_ && std::strcmp(next_->Value(), name) == 0) {
            TiXmlElement* const child = next_;
            next_ = next_->NextSiblingElement();
            return child;
        }
        TiXmlElement* const child = element_->FirstChildElement(name);
        if (child) next_ = nullptr; // out of order: from here on each is searched
        return child;
    }

  private:
    TiXmlElement* element_;
    TiXmlElement* next_;
};

// What is missing or too long leaves the member as it was.
template <Carried How, class Found, class Item, class Member>
void readValue(Found found, const Item& item, const char* label, Member& value) {
    const auto read = [&](auto*... out) {
        if constexpr (How == Carried::byAttributes)
            readAttribute(found, label, item.name.text, out...);
        else
            readChild(found, label, item.name.text, out...);
    };
    const auto readText = [&](char* out, int size) {
        if constexpr (How == Carried::byAttributes)
            readAttribute(found, label, item.name.text, out, size);
        else
            readChild(found, label, item.name.text, out, size);
    };
    if constexpr (std::is_array_v<Member>) {
        readText(value, item.capacity);
    } else if constexpr (std::is_same_v<Member, char>) { // a text of one byte
        readText(&value, 1);
    } else if constexpr (std::is_same_v<Member, bool> ||
                         (std::is_same_v<Member, unsigned int> && How == Carried::byAttributes)) {
        read(&value);
    } else if constexpr (std::is_same_v<Member, unsigned int>) {
        unsigned long wide = value;
        read(&wide);
        value = static_cast<unsigned int>(wide);
    } else {
        int number = static_cast<int>(value);
        read(&number);
        value = static_cast<Member>(number);
    }
}

template <class List>
void readFields(TiXmlElement* element, const List& list, typename List::Record& record) {
    constexpr Carried how = List::carried;
    std::conditional_t<how == Carried::byAttributes, AttributesInOrder, ChildrenInOrder> carriers(element);
    list.each([&](const auto& item) {
        if (item.read)
            readValue<how>(carriers.find(item.name.text), item, item.label ? item.label : list.label,
                           record.*item.member);
    });
}

// The whole of a simple record decoder: error -1 only for a null element.
template <class List>
typename List::Record readRecord(TiXmlElement* element, const List& list, int* error) {
    report(error, element ? 0 : -1);
    typename List::Record record = typename List::Record();
    if (element) readFields(element, list, record);
    return record;
}

} // namespace veltoprotocol
