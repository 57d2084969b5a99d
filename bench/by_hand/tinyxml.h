// Messages by TinyXML, the XML library of this house: a tree, its printer, the head.
#pragma once

#include "by_hand/documents.h"
#include "by_hand/http_head.h"

#include <tinyxml.h>

namespace bench::by_hand {

class TinyXmlNode {
  public:
    explicit TinyXmlNode(TiXmlElement* element) : element_(element) {}

    template <class Inside>
    void element(const char* name, const Inside& inside) {
        auto* const child = new TiXmlElement(name);
        element_->LinkEndChild(child);
        inside(TinyXmlNode(child));
    }
    void attribute(const char* name, const char* value) { element_->SetAttribute(name, value); }
    void attribute(const char* name, int value) { element_->SetAttribute(name, value); }
    void value(const char* name, const char* text) {
        auto* const child = new TiXmlElement(name);
        child->LinkEndChild(new TiXmlText(text));
        element_->LinkEndChild(child);
    }
    void value(const char* name, int number) { value(name, std::to_string(number).c_str()); }

  private:
    TiXmlElement* element_;
};

template <class Message>
int byTinyXml(const Message& message, char* out, int size) {
    TiXmlDocument document;
    document.LinkEndChild(new TiXmlDeclaration("1.0", "UTF-8", ""));
    auto* const root = new TiXmlElement("servercommandservice");
    document.LinkEndChild(root);
    insideRoot(TinyXmlNode(root), message);
    TiXmlPrinter printer;
    document.Accept(&printer);
    return withHead(printer.CStr(), printer.Size(), out, size);
}

} // namespace bench::by_hand
