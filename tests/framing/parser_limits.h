// Which limit a text exceeds: what the library's scan says, and what the XML library's parser really does.
#pragma once

#include "framing/document_limits.h"
#include "support/guarded_page.h"

#include <tinyxml.h>

#include <cstring>
#include <string>
#include <string_view>

namespace limits {

inline const std::string within = "within the limits";
inline const std::string tooDeep = "Elements nested too deeply";
inline const std::string tooMany = "Too many attributes";

// The text and the four NULs that the scan asks for, directly before a page that nobody may touch.
class Flush {
  public:
    const char* place(std::string_view text) {
        char* const at = page_.data() + page_.size() - 4 - text.size();
        std::memcpy(at, text.data(), text.size());
        std::memset(at + text.size(), 0, 4);
        return at;
    }

  private:
    GuardedPage page_{std::size_t(1) << 20};
};

inline const char* flush(std::string_view text) {
    static Flush page;
    return page.place(text);
}

inline std::string scanSays(std::string_view text) {
    const char* const reason = veltoprotocol::exceededLimit(flush(text));
    return reason ? reason : within;
}

// What the parser may do before a test says that it has passed a limit.
struct Most {
    int levels = 128;
    int attributes = 128;
};

// The first limit that the parser passed while it built what is under `parent`, in the order in which it did.
inline std::string firstPassed(const TiXmlNode& parent, Most most, int level = 1) {
    for (const TiXmlElement* element = parent.FirstChildElement(); element;
         element = element->NextSiblingElement()) {
        if (level > most.levels) return tooDeep;
        int attributes = 0;
        for (const TiXmlAttribute* at = element->FirstAttribute(); at; at = at->Next()) ++attributes;
        if (attributes > most.attributes) return tooMany;
        const std::string inside = firstPassed(*element, most, level + 1);
        if (inside != within) return inside;
    }
    return within;
}

// The parser keeps every element that it enters and every attribute that it adds, also where it then gives
// up: the tree it leaves behind tells all that it did. (For texts that nest some thousand levels at most.)
inline std::string parserSays(std::string_view text, Most most = {}) {
    TiXmlDocument doc;
    doc.Parse(flush(text));
    return firstPassed(doc, most);
}

inline std::string repeated(int count, std::string_view text) {
    std::string all;
    while (count-- > 0) all += text;
    return all;
}

// So many elements, all open.
inline std::string levels(int count) { return repeated(count, "<a>"); }

// An element with so many attributes, its tag still open.
inline std::string tagWith(int attributes) {
    std::string tag = "<a";
    for (int i = 0; i < attributes; ++i) tag += " k" + std::to_string(i) + "=\"\"";
    return tag;
}

} // namespace limits
