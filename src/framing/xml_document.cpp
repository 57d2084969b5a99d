#include "framing/diagnostics.h"
#include "framing/document_limits.h"
#include "framing/usual_document.h"
#include "veltoprotocol/framing.h"

#include <tinyxml.h>

#include <cstring>
#include <memory>

namespace veltoprotocol {

TiXmlDocument* Decode(const char* text) {
    if (!text) return nullptr;
    const std::size_t length = std::strlen(text);
    if (auto usual = usualDocument({text, length})) return usual.release();

    // The parser trusts a lead byte and steps over the NUL behind a character that is cut off, so it gets a
    // copy that ends in four.
    const std::unique_ptr<char[]> copy(new char[length + 4]);
    std::memcpy(copy.get(), text, length);
    std::memset(copy.get() + length, 0, 4);

    if (const char* const reason = exceededLimit(copy.get())) {
        unreadable(reason);
        return nullptr;
    }
    auto doc = std::make_unique<TiXmlDocument>();
    doc->Parse(copy.get());
    if (!doc->Error()) return doc.release();
    unreadable(doc->ErrorDesc());
    return nullptr;
}

void ReleaseTiXmlDocument(TiXmlDocument* doc) { delete doc; }

} // namespace veltoprotocol
