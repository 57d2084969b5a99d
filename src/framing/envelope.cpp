#include "framing/diagnostics.h"
#include "framing/shown.h"
#include "veltoprotocol/framing.h"

#include <tinyxml.h>

#include <climits>
#include <memory>

namespace veltoprotocol {
namespace {

template <class Integer>
std::string decimal(Integer value) {
    char digits[Number<Integer>::longest];
    return {digits, Number<Integer>{value}.write(digits)};
}

// False if the document refuses the printer.
bool print(TiXmlDocument* doc, TiXmlPrinter& printer) {
    if (doc->Accept(&printer)) return true;
    unprintable();
    return false;
}

} // namespace

TiXmlDocument* XmlHeaderEncode() {
    auto doc = std::make_unique<TiXmlDocument>();
    auto declaration = std::make_unique<TiXmlDeclaration>("1.0", "UTF-8", "");
    doc->LinkEndChild(declaration.release());
    return doc.release();
}

int GetVeltoHeaderEncode(TiXmlElement* root, unsigned int seqnum) {
    if (!root) return -1;
    // kept: unsigned in every interface, signed on the wire; readers convert it back
    SetStringValue(root, "seqnum", ItoString(static_cast<int>(seqnum)).c_str());
    SetStringValue(root, "version", "1.0.0");
    return 0;
}

TiXmlElement* SetStringValue(TiXmlElement* parent, const char* name, const char* value) {
    if (!parent || !name) return nullptr;
    auto child = std::make_unique<TiXmlElement>(name);
    if (value) {
        auto text = std::make_unique<TiXmlText>(value);
        child->LinkEndChild(text.release());
    }
    return static_cast<TiXmlElement*>(parent->LinkEndChild(child.release()));
}

TiXmlElement* SetStringValueAtt(TiXmlElement* parent, const char* name, const char* value) {
    if (!parent || !name) return nullptr;
    auto child = std::make_unique<TiXmlElement>(name);
    if (value) child->SetAttribute("name", value);
    return static_cast<TiXmlElement*>(parent->LinkEndChild(child.release()));
}

std::string GetXmlEncode(TiXmlDocument* doc) {
    TiXmlPrinter printer;
    if (!doc || !print(doc, printer)) return {};
    return printer.Str();
}

int GetXmlLength(TiXmlDocument* doc) {
    if (!doc) return -1;
    TiXmlPrinter printer;
    if (!print(doc, printer)) return 0;
    return printer.Size() > INT_MAX ? -1 : static_cast<int>(printer.Size());
}

std::string ItoString(int value) { return decimal(value); }

std::string UitoString(unsigned int value) { return decimal(value); }

} // namespace veltoprotocol
