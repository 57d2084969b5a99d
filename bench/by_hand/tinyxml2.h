// Messages by TinyXML-2: its printer, which needs no tree, and the head.
#pragma once

#include "by_hand/documents.h"
#include "by_hand/http_head.h"

#include <tinyxml2.h>

namespace bench::by_hand {

class TinyXml2Node {
  public:
    explicit TinyXml2Node(tinyxml2::XMLPrinter& printer) : printer_(printer) {}

    template <class Inside>
    void element(const char* name, const Inside& inside) {
        printer_.OpenElement(name);
        inside(*this);
        printer_.CloseElement();
    }
    void attribute(const char* name, const char* value) { printer_.PushAttribute(name, value); }
    void attribute(const char* name, int value) { printer_.PushAttribute(name, value); }
    template <class Value>
    void value(const char* name, const Value& value) {
        printer_.OpenElement(name);
        push(value);
        printer_.CloseElement();
    }

  private:
    void push(const char* text) { printer_.PushText(text); }
    void push(int number) { printer_.PushText(number); }

    tinyxml2::XMLPrinter& printer_;
};

template <class Message>
int byTinyXml2(const Message& message, char* out, int size) {
    tinyxml2::XMLPrinter printer;
    printer.PushDeclaration("xml version=\"1.0\" encoding=\"UTF-8\" ");
    TinyXml2Node(printer).element("servercommandservice", [&](auto root) { insideRoot(root, message); });
    return withHead(printer.CStr(), static_cast<std::size_t>(printer.CStrSize()) - 1, out, size);
}

} // namespace bench::by_hand
