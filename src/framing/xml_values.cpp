#include "framing/diagnostics.h"
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

// Null when there is none, with the line that says so.
TiXmlElement* childOf(TiXmlElement* parent, const char* label, const char* name) {
    TiXmlElement* const child = name ? parent->FirstChildElement(name) : nullptr;
    if (!child) missingElement(label, name);
    return child;
}

const char* attributeOf(const TiXmlElement* element, const char* label, const char* name) {
    const char* const value = name ? element->Attribute(name) : nullptr;
    if (!value) missingAttribute(label, name);
    return value;
}

// kept: no NUL is added, so a text as long as the field fills it to the last byte
bool copyInto(char* out, int size, Text text) {
    if (text.size > static_cast<std::size_t>(size)) return false;
    if (text.size > 0) std::memcpy(out, text.data, text.size);
    return true;
}

} // namespace

int GetStringValue(TiXmlElement* parent, const char* label, const char* name, char* out, int size) {
    if (!parent || !out || size < 1) return -1;
    const TiXmlElement* const child = childOf(parent, label, name);
    if (!child) return -1;
    if (copyInto(out, size, textOf(child))) return 0;
    tooLongElement(label, name);
    return -1;
}

int GetIntValue(TiXmlElement* parent, const char* label, const char* name, int* out) {
    if (!parent || !out) return -1;
    TiXmlElement* const child = childOf(parent, label, name);
    if (!child) return -1;
    *out = GetInt(child);
    return 0;
}

int GetBoolValue(TiXmlElement* parent, const char* label, const char* name, bool* out) {
    if (!parent || !out) return -1;
    TiXmlElement* const child = childOf(parent, label, name);
    if (!child) return -1;
    *out = GetInt(child) != 0;
    return 0;
}

int GetUIntValue(TiXmlElement* parent, const char* label, const char* name, unsigned long* out) {
    if (!parent || !out) return -1;
    // kept: a missing child also gives 0; only the output shows the difference
    if (TiXmlElement* const child = childOf(parent, label, name)) *out = GetULong(child);
    return 0;
}

// kept: the attribute readers give -1 on success as well; callers look at the output alone

int GetStringValueAtt(TiXmlElement* element, const char* label, const char* name, char* out, int size) {
    if (!element || !out || size < 1) return -1;
    const char* const value = attributeOf(element, label, name);
    if (value && !copyInto(out, size, value)) tooLongAttribute(label, name);
    return -1;
}

int GetIntValueAtt(TiXmlElement* element, const char* label, const char* name, int* out) {
    if (!element || !out) return -1;
    if (const char* const value = attributeOf(element, label, name)) *out = toInt(value);
    return -1;
}

int GetBoolValueAtt(TiXmlElement* element, const char* label, const char* name, bool* out) {
    if (!element || !out) return -1;
    if (const char* const value = attributeOf(element, label, name)) *out = toInt(value) != 0;
    return -1;
}

int GetUIntValueAtt(TiXmlElement* element, const char* label, const char* name, unsigned int* out) {
    if (!element || !out) return 0; // kept: here, and only here, a null argument is 0
    if (const char* const value = attributeOf(element, label, name))
        *out = static_cast<unsigned int>(std::strtoul(value, nullptr, 0));
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
