#include "fuzz/round_trip.h"

#include <cstdio>

using namespace veltoprotocol;

namespace {

// What callers build a tree with, beside the writers of records.
void helpers(Draw& draw) {
    const int number = draw.number<int>();
    const auto unsignedNumber = draw.number<unsigned>();
    const std::string value = withSingleBlanks(wholeCharacters(draw.text(60)));
    const std::string named = wholeCharacters(draw.text(60));
    char digits[16];
    std::snprintf(digits, sizeof digits, "%d", number);
    requireSame("a number", ItoString(number), digits);
    std::snprintf(digits, sizeof digits, "%u", unsignedNumber);
    requireSame("a number without a sign", UitoString(unsignedNumber), digits);

    const Filled filled([&](TiXmlElement* element) {
        const auto child = [&](const char* name, const char* text) {
            require(SetStringValue(element, name, text) == element->LastChild(), "not the last child");
        };
        child("Text", value.c_str());
        child("Number", ItoString(number).c_str());
        child("Unsigned", UitoString(unsignedNumber).c_str());
        child("Nothing", nullptr);
        require(SetStringValueAtt(element, "request", named.c_str()) == element->LastChild(), "not the last");
        return GetVeltoHeaderEncode(element, unsignedNumber);
    });
    TiXmlElement* const element = filled.element();
    const auto child = [&](const char* name) { return element->FirstChildElement(name); };
    requireSame("a child's text", GetString(child("Text")), value);
    requireSame("a child's number", GetInt(child("Number")), number);
    requireSame("a child's number without a sign", GetUInt(child("Unsigned")), unsignedNumber);
    requireSame("a child without a text", GetString(child("Nothing")), "");
    requireSame("a sequence number", GetInt(child("seqnum")), static_cast<int>(unsignedNumber));
    requireSame("a version", GetString(child("version")), "1.0.0");
    const char* const attribute = child("request")->Attribute("name");
    requireSame("an attribute", attribute ? attribute : "(none)", named);
    int read = 7;
    requireSame("whether it is there", GetIntValue(element, "Filled", "Number", &read), 0);
    requireSame("what is read of it", read, number);
}

} // namespace

std::vector<RoundTrip> treeTrips() { return {{"a tree by hand", helpers}}; }
