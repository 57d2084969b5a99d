// Texts that may be no documents, parsed on the fenced heap: the parser reads the library's own copy, which
// then ends directly before a page that nobody may touch.
#pragma once

#include "support/heap.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <string>

// Its values are fenced as well.
inline Document fencedDocument(const char* text) {
    const heap::Fenced fenced;
    return Document(veltoprotocol::Decode(text));
}

// For steady(), which has the heap fenced.
inline std::string decoded(const char* text) {
    const Document doc(veltoprotocol::Decode(text));
    return !doc ? "refused" : doc->RootElement() ? "whole" : "rootless";
}
