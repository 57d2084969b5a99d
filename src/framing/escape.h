// Text as the XML library's printer writes it: "&", "<", ">", both quotes and the bytes below 32 become
// references, every other byte stands as it is.
#pragma once

#include "framing/text.h"

namespace veltoprotocol {

std::size_t escapedLength(Text text);

// Writes escapedLength(text) bytes and returns their end.
char* writeEscaped(char* to, Text text);

} // namespace veltoprotocol
