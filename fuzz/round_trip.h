// What the round trips of all rooms have in common: records of which it is known what comes back of them, and
// messages as the other end has them.
#pragma once

#include "fuzz/target.h"
#include "properties/drawn.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <vector>

// A text that a value of an attribute gives back: a byte that announces a character of several is followed by
// as many as it announces, since the parser takes those in front of anything else.
std::string wholeCharacters(const std::string& text);
// One that an element's text gives back: whole characters, of which blanks stand neither first nor last nor
// side by side, and what the parser takes for a blank (U+FEFF, U+FFFE and U+FFFF) does not stand at all.
// Where only white space is left, none is.
std::string withSingleBlanks(const std::string& text);

enum class Carrier { attributes, elements };

// A record as it is sent, and what of it comes back: the fields that are carried. All others hold noise
// before, and zeros after.
template <class Record>
struct Trip {
    Record sent, back = Record();

    explicit Trip(Draw& draw) : draw_(&draw) { std::memset(static_cast<void*>(&sent), 'n', sizeof sent); }

    template <class... Members>
    void carry(Carrier by, Members Record::*... members) {
        (one(by, sent.*members, back.*members), ...);
    }
    // A text of which readers take less than its field holds.
    template <std::size_t N>
    void carryUpTo(std::size_t most, Carrier by, char (Record::*member)[N]) {
        text(by, sent.*member, back.*member, most);
    }

  private:
    template <std::size_t N>
    void one(Carrier by, char (&before)[N], char (&after)[N]) {
        text(by, before, after, N);
    }
    void one(Carrier, bool& before, bool& after) { before = after = draw_->oneIn(2); }
    template <class Integer>
    void one(Carrier, Integer& before, Integer& after) {
        before = after = draw_->number<Integer>();
    }
    template <std::size_t N>
    void text(Carrier by, char (&before)[N], char (&after)[N], std::size_t most) {
        const std::string drawn = wholeCharacters(draw_->text(most));
        const std::string value = by == Carrier::attributes ? drawn : withSingleBlanks(drawn);
        value.copy(before, N);
        if (value.size() < N) before[value.size()] = '\0'; // the noise behind it stays
        value.copy(after, N);
    }

    Draw* draw_;
};

template <class Record>
std::string_view bytesOf(const Record& record) {
    return {reinterpret_cast<const char*>(&record), sizeof record};
}
template <class Record>
void requireSameRecord(std::string_view what, const Record& got, const Record& want) {
    requireSame(what, bytesOf(got), bytesOf(want));
}

// The records of a list, one to three.
template <class Record, class DrawOne>
std::vector<Trip<Record>> severalTrips(Draw& draw, const DrawOne& drawOne) {
    std::vector<Trip<Record>> trips;
    for (unsigned count = 1 + draw.below(3); trips.size() < count;) trips.push_back(drawOne(draw));
    return trips;
}
template <class Record>
std::vector<Record> sentOf(const std::vector<Trip<Record>>& trips) {
    std::vector<Record> records;
    for (const Trip<Record>& trip : trips) records.push_back(trip.sent);
    return records;
}

using Document = std::unique_ptr<TiXmlDocument, void (*)(TiXmlDocument*)>;

// A message's body, parsed.
class Arrived {
  public:
    // encode(char* out, int size)
    template <class Encode>
    explicit Arrived(const Encode& encode) {
        static std::vector<char> out(std::size_t(1) << 18);
        const int length = encode(out.data(), static_cast<int>(out.size()));
        require(length > 0, "a message is refused");
        body = std::string(out.data(), static_cast<std::size_t>(length));
        body.erase(0, body.find("\r\n\r\n") + 4);
        doc.reset(veltoprotocol::Decode(body.c_str()));
        if (!doc) require(false, "a message cannot be parsed", readable(body));
    }

    // The elements that a path leads to, from request or response on.
    std::vector<TiXmlElement*> all(std::initializer_list<const char*> path) const;
    // The only one.
    TiXmlElement* at(std::initializer_list<const char*> path) const;
    TiXmlElement* command() const { return at({}); }

    std::string body;
    Document doc{nullptr, veltoprotocol::ReleaseTiXmlDocument};
};

// An element that a record's writer has filled, rendered with the document around it and parsed.
class Filled {
  public:
    // write(TiXmlElement* element)
    template <class Write>
    explicit Filled(const Write& write) {
        const Document tree(veltoprotocol::XmlHeaderEncode(), veltoprotocol::ReleaseTiXmlDocument);
        TiXmlNode* const root = tree->LinkEndChild(new TiXmlElement("Filled"));
        requireSame("what a writer returns", write(root->ToElement()), 0);
        text = veltoprotocol::GetXmlEncode(tree.get());
        requireSame("the length of a text", veltoprotocol::GetXmlLength(tree.get()),
                    static_cast<long long>(text.size()));
        doc.reset(veltoprotocol::Decode(text.c_str()));
        if (!doc) require(false, "an element cannot be parsed", readable(text));
    }
    TiXmlElement* element() const { return doc->RootElement(); }

    std::string text;
    Document doc{nullptr, veltoprotocol::ReleaseTiXmlDocument};
};

// A record comes back of the element that its writer fills.
template <class Record, class Write, class Decode>
void requireBackAlone(std::string_view what, const Trip<Record>& trip, const Write& write,
                      const Decode& decode) {
    const Filled filled([&](TiXmlElement* element) { return write(element, &trip.sent); });
    int error = 7;
    requireSameRecord(what, decode(filled.element(), &error), trip.back);
    requireSame(std::string(what) + ", error", error, 0);
}

// Each element of a list gives its record back.
template <class Record, class Decode>
void requireBack(std::string_view what, const std::vector<TiXmlElement*>& elements,
                 const std::vector<Trip<Record>>& trips, const Decode& decode) {
    requireSame(std::string(what) + ", count", static_cast<long long>(elements.size()),
                static_cast<long long>(trips.size()));
    for (std::size_t i = 0; i < trips.size(); ++i) {
        int error = 7;
        requireSameRecord(what, decode(elements[i], &error), trips[i].back);
        requireSame(std::string(what) + ", error", error, 0);
    }
}

// The commands of the rooms. A room draws its records, sends them, and asks what came back.
struct RoundTrip {
    const char* command;
    void (*run)(Draw& draw);
};
std::vector<RoundTrip> sessionTrips();
std::vector<RoundTrip> treeTrips();
std::vector<RoundTrip> adminTrips();
std::vector<RoundTrip> recordingTrips();
std::vector<RoundTrip> mediaTrips();
std::vector<RoundTrip> viewTrips();
std::vector<RoundTrip> eventTrips();
std::vector<RoundTrip> mapTrips();
