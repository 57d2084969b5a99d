// A way past the XML library's parser for the documents that the protocol's writers make.
#pragma once

#include "framing/text.h"

#include <memory>

class TiXmlDocument;

namespace veltoprotocol {

// What the parser makes of a text, or null for a text that is left to the parser: everything that is
// malformed, unusual or beyond the limits of document_limits.h. A NUL follows the text.
std::unique_ptr<TiXmlDocument> usualDocument(Text text);

} // namespace veltoprotocol
