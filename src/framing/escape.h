// Text as the XML library's printer writes it: "&", "<", ">", both quotes and the bytes below 32 become
// references, every other byte stands as it is.
#pragma once

#include "framing/text.h"

namespace veltoprotocol {

constexpr std::size_t longestReference = 6; // of what may stand for one byte

std::size_t escapedLength(Text text);

// Copies a text as it is and returns its end; quicker than memcpy where it is short.
char* writePlain(char* to, Text text);

// Writes escapedLength(text) bytes and returns their end.
char* writeEscaped(char* to, Text text);

// The same with the quote that closes the text of an attribute. The opening quote stands in front of `to`; a
// text that holds double quotes stands between apostrophes.
char* writeEscapedAndQuote(char* to, Text text);

} // namespace veltoprotocol
