// Every line that the library prints, each wording in one place.
//
// A line goes to standard output by one call, so that lines of several threads never mix. A null label or
// name is shown as empty text.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>

namespace veltoprotocol {

// "xml file -..-<label>-<name> element not find!"
void missingElement(const char* label, const char* name);
// "xml file -..-<label>-<name> element too long!"
void tooLongElement(const char* label, const char* name);
// "xml file -..-<label>(<name>) element not find!"
void missingAttribute(const char* label, const char* name);
// "xml file -..-<label>(<name>) element too long!"
void tooLongAttribute(const char* label, const char* name);

// "xml file <name>-<name>-... element not find!", for the names that lead from the root to what is missing
void missingPath(const char* const* names, std::size_t count);
inline void missingPath(std::initializer_list<const char*> names) {
    missingPath(names.begin(), names.size());
}
// "xml file servercommandservice-<kind>(name) element not find!"
void missingCommandName(const char* kind);

// "receive xml file format error TiXmlDocument can not Parse,ErrorMsg:<reason>"
void unreadable(const char* reason);
// "TiXmlDocument::Accept error, check the TiXmlDocument(doc)"
void unprintable();
// "not found http uri!"
void missingUri();

// The line "<trace> xml str:[<xml>]": has the place for the XML's bytes, and goes out once they are there.
class RenderedLine {
  public:
    RenderedLine(const char* trace, std::size_t xmlLength);
    char* xml() { return xml_; }
    void print() const;

  private:
    char short_[2048]; // lines of ordinary length need no allocation
    std::unique_ptr<char[]> long_;
    std::size_t length_;
    char* start_;
    char* xml_;
};

} // namespace veltoprotocol
