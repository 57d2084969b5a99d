// What one end writes comes back at the other: the record drawn from the fuzzer's bytes, encoded, stripped of
// its head, parsed and decoded, is the same record. Restricted to what the protocol carries:
//
// - Fields that the message does not carry, and what stands behind a text's NUL, come back as zeros.
// - Texts are cut at whole UTF-8 characters. In an element's text, which the XML library trims, blanks stand
//   alone and inside, and it is not white space only; an attribute's value holds it all as it is. Any other
//   byte but NUL comes back.
// - Texts are no longer than their readers take.
// - Flags hold 0 or 1. Numbers are any.
//
// Input: a byte for the command, then what its records are drawn from.
#include "fuzz/round_trip.h"

#include <cctype>

namespace {

// Of the character that a byte announces; 1 also of those that announce nothing.
std::size_t announced(char lead) {
    const auto byte = static_cast<unsigned char>(lead);
    return byte < 0xC2 || byte > 0xF4 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

bool isContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

bool isBlank(char c) { return c == ' '; } // the other white space is escaped, and so comes back
bool isWhite(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

const std::vector<RoundTrip>& trips() {
    static const std::vector<RoundTrip> trips = [] {
        std::vector<RoundTrip> all;
        for (const auto& room : {sessionTrips(), adminTrips(), recordingTrips(), mediaTrips(), viewTrips(),
                                 eventTrips(), mapTrips(), treeTrips()})
            all.insert(all.end(), room.begin(), room.end());
        return all;
    }();
    return trips;
}

} // namespace

std::string wholeCharacters(const std::string& text) {
    std::string whole;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t size = announced(text[at]);
        const std::string character = text.substr(at, size);
        const bool isWhole =
            character.size() == size && std::all_of(character.begin() + 1, character.end(), isContinuation);
        if (isWhole) whole += character;
        at += isWhole ? size : 1;
    }
    return whole;
}

std::string withSingleBlanks(const std::string& text) {
    std::string single = text;
    for (const char* blank : {"\xEF\xBB\xBF", "\xEF\xBF\xBE", "\xEF\xBF\xBF"})
        for (std::size_t at; (at = single.find(blank)) != std::string::npos;) single.erase(at, 3);
    const auto bothBlank = [](char a, char b) { return isBlank(a) && isBlank(b); };
    single.erase(std::unique(single.begin(), single.end(), bothBlank), single.end());
    if (!single.empty() && isBlank(single.front())) single.erase(0, 1);
    if (!single.empty() && isBlank(single.back())) single.pop_back();
    return std::all_of(single.begin(), single.end(), isWhite) ? "" : single;
}

std::vector<TiXmlElement*> Arrived::all(std::initializer_list<const char*> path) const {
    TiXmlElement* const root = doc->RootElement();
    require(root && root->LastChild() && root->LastChild()->ToElement(), "no command element");
    std::vector<TiXmlElement*> found = {root->LastChild()->ToElement()};
    for (const char* name : path) {
        std::vector<TiXmlElement*> below;
        for (TiXmlElement* element : found)
            for (TiXmlElement* child = element->FirstChildElement(name); child;
                 child = child->NextSiblingElement(name))
                below.push_back(child);
        found = below;
    }
    return found;
}

TiXmlElement* Arrived::at(std::initializer_list<const char*> path) const {
    const std::vector<TiXmlElement*> found = all(path);
    if (found.size() != 1) require(false, "an element does not stand once", readable(body));
    return found[0];
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const RoundTrip& trip = trips()[input.byte() % trips().size()];
    const Printed quiet;
    const DrawnBytes bytes(input.rest());
    Draw draw(1, Texts::anyBytes);
    trip.run(draw);
    return 0;
}
