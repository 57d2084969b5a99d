// Whether two documents are the same in all that the XML library shows of them.
#pragma once

#include <tinyxml.h>

#include <string>

namespace trees {

inline std::string placed(const TiXmlBase& what) {
    return std::to_string(what.Row()) + ':' + std::to_string(what.Column());
}

// Each text with its length: it may hold any byte.
inline std::string shown(const std::string& text) { return std::to_string(text.size()) + '"' + text + '"'; }

inline std::string ofAttributes(const TiXmlElement& element) {
    std::string all;
    for (const TiXmlAttribute* at = element.FirstAttribute(); at; at = at->Next())
        all += ' ' + placed(*at) + ' ' + shown(at->NameTStr()) + '=' + shown(at->ValueStr());
    return all;
}

// One line for each node: depth, place, kind, value, and what the kind has beside it.
inline std::string outline(const TiXmlNode& node, const TiXmlDocument& document, int depth = 0) {
    std::string all = std::to_string(depth) + ' ' + placed(node) + ' ' + std::to_string(node.Type()) + ' ' +
                      shown(node.ValueStr());
    if (node.GetDocument() != &document) all += " of another document";
    if (const TiXmlElement* const element = node.ToElement()) all += ofAttributes(*element);
    if (const TiXmlText* const text = node.ToText()) all += text->CDATA() ? " CDATA" : "";
    if (const TiXmlDeclaration* const said = node.ToDeclaration())
        all += ' ' + shown(said->Version()) + shown(said->Encoding()) + shown(said->Standalone());
    all += '\n';
    const TiXmlNode* before = nullptr;
    for (const TiXmlNode* child = node.FirstChild(); child; before = child, child = child->NextSibling()) {
        if (child->Parent() != &node || child->PreviousSibling() != before) all += "linked wrongly: ";
        all += outline(*child, document, depth + 1);
    }
    return node.LastChild() == before ? all : all + "another last child\n";
}

inline std::string outline(const TiXmlDocument& document) { return outline(document, document); }

} // namespace trees
