// Messages by pugixml: a tree, its writer to memory, the head.
#pragma once

#include "by_hand/documents.h"
#include "by_hand/http_head.h"

#include <pugixml.hpp>

namespace bench::by_hand {

class PugiNode {
  public:
    explicit PugiNode(pugi::xml_node node) : node_(node) {}

    template <class Inside>
    void element(const char* name, const Inside& inside) {
        inside(PugiNode(node_.append_child(name)));
    }
    void attribute(const char* name, const char* value) { node_.append_attribute(name).set_value(value); }
    void attribute(const char* name, int value) { node_.append_attribute(name).set_value(value); }
    void value(const char* name, const char* text) { node_.append_child(name).text().set(text); }
    void value(const char* name, int number) { node_.append_child(name).text().set(number); }

  private:
    pugi::xml_node node_;
};

class ToString : public pugi::xml_writer {
  public:
    void write(const void* data, std::size_t size) override {
        text.append(static_cast<const char*>(data), size);
    }
    std::string text;
};

template <class Message>
int byPugixml(const Message& message, char* out, int size) {
    pugi::xml_document document;
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version").set_value("1.0");
    declaration.append_attribute("encoding").set_value("UTF-8");
    insideRoot(PugiNode(document.append_child("servercommandservice")), message);
    ToString body;
    document.save(body, "    ");
    return withHead(body.text.data(), body.text.size(), out, size);
}

} // namespace bench::by_hand
