#include "framing/diagnostics.h"
#include "framing/shown.h"
#include "veltoprotocol/framing.h"

#include <tinyxml.h>

#include <climits>
#include <memory>
#include <utility>

namespace veltoprotocol {
namespace {

template <class Integer>
std::string decimal(Integer value) {
    char digits[Number<Integer>::longest];
    return {digits, Number<Integer>{value}.write(digits)};
}

// False if the document refuses the printer.
bool print(TiXmlDocument* doc, TiXmlVisitor& printer) {
    if (doc->Accept(&printer)) return true;
    unprintable();
    return false;
}

// What was printed, for whoever takes it away: the printer does nothing with it but append.
std::string& textOf(TiXmlPrinter& printer) { return const_cast<std::string&>(printer.Str()); }

// Counts what the printer prints without keeping it. Of elements that nest deeply that is mostly indentation,
// many times what was received.
class PrintedLength : public TiXmlVisitor {
  public:
    bool VisitEnter(const TiXmlDocument& doc) override { return count(printer_.VisitEnter(doc)); }
    bool VisitExit(const TiXmlDocument& doc) override { return count(printer_.VisitExit(doc)); }
    bool VisitEnter(const TiXmlElement& element, const TiXmlAttribute* first) override {
        return count(printer_.VisitEnter(element, first));
    }
    bool VisitExit(const TiXmlElement& element) override { return count(printer_.VisitExit(element)); }
    bool Visit(const TiXmlDeclaration& declaration) override { return count(printer_.Visit(declaration)); }
    bool Visit(const TiXmlText& text) override { return count(printer_.Visit(text)); }
    bool Visit(const TiXmlComment& comment) override { return count(printer_.Visit(comment)); }
    bool Visit(const TiXmlUnknown& unknown) override { return count(printer_.Visit(unknown)); }

    std::size_t bytes() const { return bytes_; }

  private:
    bool count(bool goesOn) {
        std::string& text = textOf(printer_);
        bytes_ += text.size();
        text.clear();
        return goesOn;
    }

    TiXmlPrinter printer_;
    std::size_t bytes_ = 0;
};

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
    return std::move(textOf(printer));
}

int GetXmlLength(TiXmlDocument* doc) {
    if (!doc) return -1;
    PrintedLength length;
    if (!print(doc, length)) return 0;
    return length.bytes() > INT_MAX ? -1 : static_cast<int>(length.bytes());
}

std::string ItoString(int value) { return decimal(value); }

std::string UitoString(unsigned int value) { return decimal(value); }

} // namespace veltoprotocol
