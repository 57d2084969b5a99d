// Changes of a parsed document.
#pragma once

#include <tinyxml.h>

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace edits {

// In their order, each before what it holds.
inline void collect(TiXmlNode* node, std::vector<TiXmlElement*>& found) {
    for (TiXmlElement* child = node->FirstChildElement(); child; child = child->NextSiblingElement()) {
        found.push_back(child);
        collect(child, found);
    }
}
inline std::vector<TiXmlElement*> elementsOf(TiXmlDocument& doc) {
    std::vector<TiXmlElement*> found;
    collect(&doc, found);
    return found;
}

// A text of a tree: an attribute's, or that of an element.
struct Held {
    TiXmlElement* element;
    TiXmlAttribute* attribute; // null for the element's own
    std::string name;

    std::string text() const { return attribute ? attribute->ValueStr() : element->FirstChild()->ValueStr(); }
    void set(const std::string& text) const {
        if (attribute)
            attribute->SetValue(text);
        else
            element->FirstChild()->SetValue(text);
    }
};

inline std::vector<Held> textsOf(TiXmlDocument& doc) {
    std::vector<Held> held;
    for (TiXmlElement* element : elementsOf(doc)) {
        if (element->FirstChild() && element->FirstChild()->ToText())
            held.push_back({element, nullptr, element->ValueStr()});
        for (auto* at = element->FirstAttribute(); at; at = at->Next())
            held.push_back({element, at, at->Name()});
    }
    return held;
}

inline void remove(TiXmlElement* element) { element->Parent()->RemoveChild(element); }

// Every text and every attribute of it becomes this one.
inline void retell(TiXmlElement* element, const char* text) {
    for (TiXmlAttribute* attribute = element->FirstAttribute(); attribute; attribute = attribute->Next())
        attribute->SetValue(text);
    for (TiXmlNode* child = element->FirstChild(); child; child = child->NextSibling()) {
        if (child->ToText()) child->SetValue(text);
        if (child->ToElement()) retell(child->ToElement(), text);
    }
}

// A second one behind it, which holds other texts.
inline void doubleWithOtherTexts(TiXmlElement* element) {
    TiXmlElement other(*element);
    retell(&other, "99");
    element->Parent()->InsertAfterChild(element, other);
}
// It becomes the first child, and such a second one the last.
inline void moveToTheFrontAndDoubleAtTheEnd(TiXmlElement* element) {
    TiXmlNode* const parent = element->Parent();
    TiXmlElement other(*element);
    retell(&other, "99");
    parent->InsertEndChild(other);
    if (element == parent->FirstChild()) return;
    parent->InsertBeforeChild(parent->FirstChild(), *element);
    parent->RemoveChild(element);
}

// Whether order among the children of an element means nothing: each has another name, and no text is theirs.
inline bool holdsDifferentElements(const TiXmlElement* element) {
    std::set<std::string> names;
    for (const TiXmlNode* child = element->FirstChild(); child; child = child->NextSibling())
        if (!child->ToElement() || !names.insert(child->ValueStr()).second) return false;
    return names.size() > 1;
}

inline void reverseChildren(TiXmlElement* element) {
    std::vector<std::unique_ptr<TiXmlNode>> children;
    for (TiXmlNode* child = element->FirstChild(); child; child = child->NextSibling())
        children.emplace_back(child->Clone());
    element->Clear();
    for (; !children.empty(); children.pop_back()) element->LinkEndChild(children.back().release());
}

using Attributes = std::vector<std::pair<std::string, std::string>>;

inline Attributes attributesOf(const TiXmlElement* element) {
    Attributes attributes;
    for (auto* attribute = element->FirstAttribute(); attribute; attribute = attribute->Next())
        attributes.emplace_back(attribute->Name(), attribute->ValueStr());
    return attributes;
}

inline void reverseAttributes(TiXmlElement* element) {
    Attributes attributes = attributesOf(element);
    for (const auto& attribute : attributes) element->RemoveAttribute(attribute.first.c_str());
    for (; !attributes.empty(); attributes.pop_back())
        element->SetAttribute(attributes.back().first, attributes.back().second);
}

} // namespace edits
