// The functions that stand in no list of readers or encoders, with their memory failing.
#pragma once

#include "properties/failing_in_turn.h"
#include "properties/hostile_messages.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <climits>
#include <functional>
#include <string>
#include <vector>

namespace failing {

using namespace veltoprotocol;

inline const std::string longText(3000, 'l');

inline std::string printed(const TiXmlElement& element) {
    TiXmlPrinter printer;
    element.Accept(&printer);
    return printer.Str();
}

// Whether an element has the first attributes and children of another one. The last may be unfinished.
inline bool isBeginning(const TiXmlElement& part, const TiXmlElement& whole) {
    const TiXmlAttribute* attribute = whole.FirstAttribute();
    for (const TiXmlAttribute* at = part.FirstAttribute(); at && at->Next(); at = at->Next()) {
        if (!attribute || at->NameTStr() != attribute->NameTStr() || at->ValueStr() != attribute->ValueStr())
            return false;
        attribute = attribute->Next();
    }
    const TiXmlElement* child = whole.FirstChildElement();
    for (const TiXmlElement* at = part.FirstChildElement(); at && at->NextSiblingElement();
         at = at->NextSiblingElement()) {
        if (!child || printed(*at) != printed(*child)) return false;
        child = child->NextSiblingElement();
    }
    return true;
}

// The element is the caller's, and keeps what was written to it by then.
inline void checkWriter(EveryCall& every, const char* name, const std::function<bool(TiXmlElement*)>& write) {
    TiXmlElement whole("Element");
    write(&whole);
    bool beginning = true;
    every.check(name, [&] {
        TiXmlElement element("Element");
        const std::string told =
            unlessExhausted([&] { return std::to_string(libraryCall([&] { return write(&element); })); });
        beginning = beginning && isBeginning(element, whole);
        return threw(told) ? told : told + printed(element);
    });
    every.faults().expect(beginning, name, "leaves something else");
}

// A release frees all that it is given: what a decoder makes of any document.
template <class Decode, class Release>
void checkRelease(EveryCall& every, const char* name, const Decode& decode, const Release& release) {
    long freed = 0;
    for (const std::string& xml : wholeDocuments()) {
        const Document doc = parsed(xml);
        every.check(name, [&] {
            auto made = decode(doc.get());
            const long before = live;
            libraryCall([&] { release(made); });
            freed += before - live;
            return std::string();
        });
    }
    every.faults().expect(freed > 0, name, "never frees anything");
}

template <class Made, Made (*decode)(TiXmlDocument*, int*), void (*release)(Made*)>
void checkReleaseOfRecord(EveryCall& every, const char* name) {
    checkRelease(
        every, name, [](TiXmlDocument* doc) { return decode(doc, nullptr); },
        [](Made& made) { release(&made); });
}
template <class Made, Made* (*decode)(TiXmlDocument*, int*), void (*release)(Made*)>
void checkReleaseOfPointer(EveryCall& every, const char* name) {
    checkRelease(
        every, name, [](TiXmlDocument* doc) { return decode(doc, nullptr); }, release);
}

// With more levels or attributes than Decode takes: with the usual declaration, so that something is built
// before it is dropped, and with none.
inline std::vector<std::string> overLimits() {
    std::string deep, wide = "<a";
    for (int level = 0; level < 129; ++level) deep += "<a>";
    for (int level = 0; level < 129; ++level) deep += "</a>";
    for (int i = 0; i < 129; ++i) wide += " b" + std::to_string(i) + "=\"\"";
    wide += " />";
    const std::string usual = R"(<?xml version="1.0" encoding="UTF-8" ?>)";
    return {usual + deep, usual + wide, deep, wide};
}

struct OwnCall {
    const char* name;
    void (*check)(EveryCall& every, const char* name);
};

const OwnCall ownCalls[] = {
    {"ReleaseViewGroupDataParam",
     checkReleaseOfRecord<__tagVtViewGroupData, GetViewGroupDataParamDecode, ReleaseViewGroupDataParam>},
    {"ReleaseSetViewGroupData",
     checkReleaseOfRecord<__tagVtViewGroup, GetSetViewGroupData, ReleaseSetViewGroupData>},
    {"ReleaseSearchAlarmParam",
     checkReleaseOfPointer<__tagVtSearchAlarmParam, GetSearchHistoryAlarmReqDecode, ReleaseSearchAlarmParam>},
    {"ReleaseSearchAlarmParam",
     checkReleaseOfPointer<__tagVtSearchAlarmResult, GetSearchHistoryAlarmRespDecode,
                           ReleaseSearchAlarmParam>},
    {"EMapInfoDecodeRelease",
     checkReleaseOfPointer<__tagVtUserEMapInfo, GetSetEMapInfoReqDecode, EMapInfoDecodeRelease>},
    {"ReleasePlaybackParam",
     [](EveryCall& every, const char* name) {
         const auto decode = [](TiXmlDocument* doc) {
             TiXmlElement* const request = doc->RootElement()->FirstChildElement("request");
             TiXmlElement* const param = request ? request->FirstChildElement("PlaybackParam") : nullptr;
             return GetPlayBackParamDecode(request, param, nullptr);
         };
         checkRelease(every, name, decode, [](auto& made) { ReleasePlaybackParam(&made); });
     }},
    {"ReleaseRecordParam",
     [](EveryCall& every, const char* name) {
         const auto made = [](TiXmlDocument*) {
             __tagVtRecordParam found = __tagVtRecordParam();
             found.Records = new __tagVtRecordElementParam[2]();
             return found;
         };
         checkRelease(every, name, made, [](auto& found) { ReleaseRecordParam(&found); });
     }},
    {"ReleaseUserInfoParam",
     [](EveryCall& every, const char* name) {
         const auto made = [](TiXmlDocument*) {
             __tagVtSystemRightsInfo user = __tagVtSystemRightsInfo();
             user.ChannelRights = new __tagVtUserChannelRights[2]();
             return user;
         };
         checkRelease(every, name, made, [](auto& user) { ReleaseUserInfoParam(&user); });
     }},
    {"ReleaseTiXmlDocument",
     [](EveryCall& every, const char* name) {
         const auto copy = [](TiXmlDocument* doc) { return new TiXmlDocument(*doc); };
         checkRelease(every, name, copy, ReleaseTiXmlDocument);
     }},
    // What the encoders write, and what is refused before the XML library's parser, which may leak, reads it.
    {"Decode",
     [](EveryCall& every, const char* name) {
         std::vector<std::string> texts = overLimits();
         for (const WholeMessage& message : wholeMessages())
             if (message.body.compare(0, 5, "<?xml") == 0 && message.body.size() < 1000)
                 texts.push_back(message.body);
         for (const std::string& text : texts)
             every.check(
                 name,
                 [&] {
                     return unlessExhausted([&] {
                         const Document doc(libraryCall([&] { return Decode(text.c_str()); }));
                         return doc ? GetXmlEncode(doc.get()) : "refused";
                     });
                 },
                 Prints::nothing);
     }},
    {"XmlHeaderEncode",
     [](EveryCall& every, const char* name) {
         every.check(name, [] {
             return unlessExhausted([] {
                 const Document doc(libraryCall(XmlHeaderEncode));
                 return GetXmlEncode(doc.get());
             });
         });
     }},
    {"SetStringValue",
     [](EveryCall& every, const char* name) {
         const char* const text = longText.c_str();
         checkWriter(every, name,
                     [=](TiXmlElement* to) { return SetStringValue(to, text, text) != nullptr; });
     }},
    {"SetStringValueAtt",
     [](EveryCall& every, const char* name) {
         const char* const text = longText.c_str();
         checkWriter(every, name,
                     [=](TiXmlElement* to) { return SetStringValueAtt(to, text, text) != nullptr; });
     }},
    {"Base64Encode",
     [](EveryCall& every, const char* name) {
         every.check(name, [] {
             std::string out(4001, '#'); // four characters for three bytes, and a NUL
             libraryCall([&] { return Base64Encode(&out[0], longText.data(), 3000); });
             return out;
         });
     }},
    // No number is too long for a string without memory.
    {"ItoString",
     [](EveryCall& every, const char* name) {
         every.check(name, [] { return libraryCall([] { return ItoString(INT_MIN); }); });
     }},
    {"UitoString",
     [](EveryCall& every, const char* name) {
         every.check(name, [] { return libraryCall([] { return UitoString(UINT_MAX); }); });
     }},
};

} // namespace failing
