// Every public function that reads what was received, each to be called alone. What one makes is told as
// text, contents of arrays included, and released.
#pragma once

#include <string>
#include <vector>

class TiXmlDocument;
class TiXmlElement;

// HTTP messages and parts of them, Base64 texts, record blocks.
struct BytesReader {
    const char* name;
    std::string (*read)(const char* buf, int len);
};
// `error` is left alone by those that have none.
struct DocumentReader {
    const char* name;
    std::string (*read)(TiXmlDocument* doc, int* error);
};
struct ElementReader {
    const char* name;
    std::string (*read)(TiXmlElement* element, int* error);
};

extern const std::vector<BytesReader> bytesReaders;
extern const std::vector<DocumentReader> documentReaders;
extern const std::vector<ElementReader> recordReaders; // tell the bytes of one record
extern const std::vector<ElementReader> valueReaders;  // tell what they make of an element or its first child

// A call that throws std::bad_alloc makes nothing.
extern const char exhausted[];
