// What the value readers make of an attribute's value or of a child that was found; null if there is none,
// which they tell. The public readers look for it first; the fields of a record expect it behind the one read
// last.
#pragma once

class TiXmlElement;

namespace veltoprotocol {

void readAttribute(const char* value, const char* label, const char* name, char* out, int size);
void readAttribute(const char* value, const char* label, const char* name, int* out);
void readAttribute(const char* value, const char* label, const char* name, bool* out);
void readAttribute(const char* value, const char* label, const char* name, unsigned int* out);

// False if there was no child, or its text was too long; the last one's caller does not tell the difference.
bool readChild(TiXmlElement* child, const char* label, const char* name, char* out, int size);
bool readChild(TiXmlElement* child, const char* label, const char* name, int* out);
bool readChild(TiXmlElement* child, const char* label, const char* name, bool* out);
void readChild(TiXmlElement* child, const char* label, const char* name, unsigned long* out);

} // namespace veltoprotocol
