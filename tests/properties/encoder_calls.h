// What the lists of encoders have in common: the arguments that most of them take, and a line for each of
// them.
#pragma once

#include "properties/drawn.h"
#include "properties/every_encoder.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <cstring>
#include <memory>

namespace veltoprotocol {

using Visit = std::function<void(const EncoderCall&)>;

// A room each.
void visitAdmin(unsigned seed, Texts texts, const Visit& visit);
void visitEvents(unsigned seed, Texts texts, const Visit& visit);
void visitMaps(unsigned seed, Texts texts, const Visit& visit);
void visitRecording(unsigned seed, Texts texts, const Visit& visit);
void visitMedia(unsigned seed, Texts texts, const Visit& visit);
void visitViews(unsigned seed, Texts texts, const Visit& visit);

// A record whose bytes are noise but for these members, so that what stands behind a text's NUL and in
// reserved areas is not zero by chance. Numbers may stay noise.
template <class Record, class... Members>
Record drawn(Draw& draw, Members Record::*... members) {
    auto record = draw.noise<Record>();
    draw.fill(record.*members...);
    return record;
}

// An array inside a record: its count may say less than there is, or be negative.
template <class Entry>
void attach(Array<Entry>& array, Entry*& pointer, int& count) {
    pointer = array.null ? nullptr : array.entries.data();
    count = array.count;
}

// The arguments that many encoders take.
struct Arguments {
    Draw draw;
    PointedText host = draw.headText(), connection = draw.headText(), path = draw.path();
    PointedText contentType = draw.headText();
    PointedText token = draw.pointedText(), name = draw.pointedText(), value = draw.pointedText();
    unsigned seqnum = draw.number<unsigned>();
    int result = draw.code(), loginResult = draw.code();
    int number = draw.number<int>(), word = draw.number<int>();
    Array<char> body = draw.body();
    bool recordMissing = draw.missing();

    Arguments(unsigned seed, Texts texts) : draw(seed, texts) {}

    template <class Record>
    const Record* orNull(const Record& record) const {
        return recordMissing ? nullptr : &record;
    }
};

inline int copied(const std::string& text, char* out, int size) {
    if (text.size() > static_cast<std::size_t>(size)) return -1;
    std::memcpy(out, text.data(), text.size());
    return static_cast<int>(text.size());
}

// A document with one element, after `write` has written to it.
template <class Write>
int rendered(const Write& write, char* out, int size) {
    const std::unique_ptr<TiXmlDocument> doc(XmlHeaderEncode());
    auto* const element = static_cast<TiXmlElement*>(doc->LinkEndChild(new TiXmlElement("Element")));
    return write(element) == 0 ? copied(GetXmlEncode(doc.get()), out, size) : -1;
}

// The encoder's name stands once, so that it cannot differ from what is called.
#define REQUEST(encoder, ...)                                                                                \
    visit({#encoder, Kind::request, 0, [&](char* out, int size) { return encoder(__VA_ARGS__); }})
#define RESPONSE(encoder, ...)                                                                               \
    visit({#encoder, Kind::response, 200, [&](char* out, int size) { return encoder(__VA_ARGS__); }})
#define RESPONSE_WITH(status, encoder, ...)                                                                  \
    visit({#encoder, Kind::response, status, [&](char* out, int size) { return encoder(__VA_ARGS__); }})
#define PRINTING_REQUEST(encoder, ...)                                                                       \
    visit({#encoder, Kind::request, 0, [&](char* out, int size) { return encoder(__VA_ARGS__); }, true, true})
#define PRINTING_RESPONSE(encoder, ...)                                                                      \
    visit({#encoder, Kind::response, 200, [&](char* out, int size) { return encoder(__VA_ARGS__); }, true,   \
           true})
#define BINARY_REQUEST(encoder, ...)                                                                         \
    visit({#encoder, Kind::request, 0, [&](char* out, int size) { return encoder(__VA_ARGS__); }, false})
#define BINARY_RESPONSE(encoder, ...)                                                                        \
    visit({#encoder, Kind::response, 200, [&](char* out, int size) { return encoder(__VA_ARGS__); }, false})
#define ALLOCATING_RESPONSE(encoder, ...)                                                                    \
    visit({#encoder, Kind::response, 200, [&](char* out, int size) { return encoder(__VA_ARGS__); }, false,  \
           false, true})
#define ELEMENT(encoder, ...)                                                                                \
    visit({#encoder, Kind::xml, 0, [&](char* out, int size) {                                                \
               return rendered([&](TiXmlElement* element) { return encoder(__VA_ARGS__); }, out, size);      \
           }})

} // namespace veltoprotocol
