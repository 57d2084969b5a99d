// The words of element.h over the XML library's tree, for the exported element writers and, in the tests'
// reference build, for whole messages.
#pragma once

#include "framing/element.h"

#include <tinyxml.h>

#include <memory>
#include <string>

namespace veltoprotocol {

inline std::string plainText(Text text) { return std::string(text.data, text.size); }
template <std::size_t Width>
std::string plainText(FieldText<Width> field) {
    return plainText(field.text());
}
template <class Integer>
std::string plainText(Number<Integer> number) {
    char digits[Number<Integer>::longest];
    return std::string(digits, number.write(digits));
}

class TreeElement {
  public:
    explicit TreeElement(TiXmlElement* element) : element_(element) {}

    template <std::size_t N, class Value>
    void value(const char (&name)[N], const Value& value) {
        const auto text = shown(value);
        if (absent(text))
            SetStringValue(element_, name, nullptr);
        else
            SetStringValue(element_, name, plainText(text).c_str());
    }

    template <std::size_t N, class... Parts>
    void element(const char (&name)[N], const Parts&... parts) {
        TreeElement x(SetStringValueAtt(element_, name, nullptr));
        (x.add(parts), ...);
    }

    template <std::size_t N, class List, class Tree>
    void list(const char (&name)[N], const List& list, const Tree& tree) {
        for (const auto& entry : list) element(name, [&](auto x) { tree(x, entry); });
    }

    template <std::size_t N, class Integer, class Tree>
    void repeat(const char (&name)[N], Integer times, const Tree& tree) {
        for (Integer i = 0; i < times; ++i) element(name, tree);
    }

    // What element() takes as its parts, added to this element itself.
    template <std::size_t N, class Value>
    void add(const Attribute<N, Value>& part) {
        setAttribute(part.name, part.value);
    }
    template <class Part>
    void add(const Part& part) {
        if constexpr (isRecord<Part>)
            part.list.each([&](const auto& item) {
                if (!item.written) return;
                if constexpr (standsInTag<Part>)
                    setAttribute(item.name.text, item.onWire(part.record));
                else
                    value(item.name.text, item.onWire(part.record));
            });
        else
            part(*this);
    }

  private:
    template <class Value>
    void setAttribute(const char* name, const Value& value) {
        const auto text = shown(value);
        if (!absent(text)) element_->SetAttribute(std::string(name), plainText(text));
    }

    TiXmlElement* element_;
};

// The whole of a simple record writer: 0, or -1 for a null argument.
template <class List>
int writeRecord(TiXmlElement* element, const List& list, const typename List::Record* record) {
    if (!element || !record) return -1;
    TreeElement(element).add(list(*record));
    return 0;
}

} // namespace veltoprotocol
