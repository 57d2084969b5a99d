#pragma once

namespace bench {

// Throws unless every way of writing a message writes the same one: TinyXML byte for byte, pugixml and
// TinyXML-2 a text that parses to the same tree, protobuf one that parses back to what was filled in.
void checkSameContent();

} // namespace bench
