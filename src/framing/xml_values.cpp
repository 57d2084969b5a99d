#include "framing/diagnostics.h"
#include "framing/found_values.h"
#include "framing/text.h"
#include "veltoprotocol/framing.h"

#include <tinyxml.h>

#include <clocale>
#include <cstdlib>
#include <locale.h>

namespace veltoprotocol {
namespace {

// atoi without its undefined overflow: strtol saturates, then the value is narrowed.
int toInt(const char* text) { return static_cast<int>(std::strtol(text, nullptr, 10)); }

// atof with a decimal point in every locale.
double toDouble(const char* text) {
    static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
    return strtod_l(text, nullptr, classic);
}

const char* textOf(const TiXmlElement* element) { return element ? element->GetText() : nullptr; }

TiXmlElement* childOf(TiXmlElement* parent, const char* name) {
    return name ? parent->FirstChildElement(name) : nullptr;
}

const char* attributeOf(const TiXmlElement* element, const char* name) {
    return name ? element->Attribute(name) : nullptr;
}

// Whether there is one, with the line that says if not.
bool found(const TiXmlElement* child, const char* label, const char* name) {
    if (!child) missingElement(label, name);
    return child != nullptr;
}
bool found(const char* value, const char* label, const char* name) {
    if (!value) missingAttribute(label, name);
    return value != nullptr;
}

// kept: no NUL is added, so a text as long as the field fills it to the last byte
bool copyInto(char* out, int size, Text text) {
    if (text.size > static_cast<std::size_t>(size)) return false;
    if (text.size > 0) std::memcpy(out, text.data, text.size);
    return true;
}

} // namespace

void readAttribute(const char* value, const char* label, const char* name, char* out, int size) {
    if (found(value, label, name) && !copyInto(out, size, value)) tooLongAttribute(label, name);
}
void readAttribute(const char* value, const char* label, const char* name, int* out) {
    if (found(value, label, name)) *out = toInt(value);
}
void readAttribute(const char* value, const char* label, const char* name, bool* out) {
    if (found(value, label, name)) *out = toInt(value) != 0;
}
void readAttribute(const char* value, const char* label, const char* name, unsigned int* out) {
    if (found(value, label, name)) *out = static_cast<unsigned int>(std::strtoul(value, nullptr, 0));
}

bool readChild(TiXmlElement* child, const char* label, const char* name, char* out, int size) {
    if (!found(child, label, name)) return false;
    if (copyInto(out, size, textOf(child))) return true;
    tooLongElement(label, name);
    return false;
}
bool readChild(TiXmlElement* child, const char* label, const char* name, int* out) {
    if (!found(child, label, name)) return false;
    *out = GetInt(child);
    return true;
}
bool readChild(TiXmlElement* child, const char* label, const char* name, bool* out) {
    if (!found(child, label, name)) return false;
    *out = GetInt(child) != 0;
    return true;
}
void readChild(TiXmlElement* child, const char* label, const char* name, unsigned long* out) {
    if (found(child, label, name)) *out = GetULong(child);
}

int GetStringValue(TiXmlElement* parent, const char* label, const char* name, char* out, int size) {
    if (!parent || !out || size < 1) return -1;
    return readChild(childOf(parent, name), label, name, out, size) ? 0 : -1;
}

int GetIntValue(TiXmlElement* parent, const char* label, const char* name, int* out) {
    if (!parent || !out) return -1;
    return readChild(childOf(parent, name), label, name, out) ? 0 : -1;
}

int GetBoolValue(TiXmlElement* parent, const char* label, const char* name, bool* out) {
    if (!parent || !out) return -1;
    return readChild(childOf(parent, name), label, name, out) ? 0 : -1;
}

int GetUIntValue(TiXmlElement* parent, const char* label, const char* name, unsigned long* out) {
    if (!parent || !out) return -1;
    // kept: a missing child also gives 0; only the output shows the difference
    readChild(childOf(parent, name), label, name, out);
    return 0;
}

// kept: the attribute readers give -1 on success as well; callers look at the output alone

int GetStringValueAtt(TiXmlElement* element, const char* label, const char* name, char* out, int size) {
    if (element && out && size >= 1) readAttribute(attributeOf(element, name), label, name, out, size);
    return -1;
}

int GetIntValueAtt(TiXmlElement* element, const char* label, const char* name, int* out) {
    if (element && out) readAttribute(attributeOf(element, name), label, name, out);
    return -1;
}

int GetBoolValueAtt(TiXmlElement* element, const char* label, const char* name, bool* out) {
    if (element && out) readAttribute(attributeOf(element, name), label, name, out);
    return -1;
}

int GetUIntValueAtt(TiXmlElement* element, const char* label, const char* name, unsigned int* out) {
    if (!element || !out) return 0; // kept: here, and only here, a null argument is 0
    readAttribute(attributeOf(element, name), label, name, out);
    return -1;
}

int GetInt(TiXmlElement* element) {
    const char* const text = textOf(element);
    return text ? toInt(text) : -1;
}

unsigned int GetUInt(TiXmlElement* element) { return static_cast<unsigned int>(GetULong(element)); }

long GetLong(TiXmlElement* element) {
    const char* const text = textOf(element);
    return text ? std::strtol(text, nullptr, 0) : 0;
}

unsigned long GetULong(TiXmlElement* element) {
    const char* const text = textOf(element);
    return text ? std::strtoul(text, nullptr, 0) : 0;
}

float GetFloat(TiXmlElement* element) {
    const char* const text = textOf(element);
    return text ? static_cast<float>(toDouble(text)) : -1.0f;
}

std::string GetString(TiXmlElement* element) {
    const char* const text = textOf(element);
    return text ? text : "";
}

} // namespace veltoprotocol
