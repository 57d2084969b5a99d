// Whether a text stays within what the library lets the XML library parse.
#pragma once

namespace veltoprotocol {

// The protocol's own messages nest 16 levels deep and carry 21 attributes. The XML library's parser recurses
// for each level, and its time grows with the square of an element's attributes.
constexpr int deepestLevel = 128;
constexpr int mostAttributes = 128;

// Null if the parser, given this text, stays within the limits; otherwise the reason why it would not. The
// text ends in at least four NULs, since a character cut off at the end makes the parser step over one.
const char* exceededLimit(const char* text);

} // namespace veltoprotocol
