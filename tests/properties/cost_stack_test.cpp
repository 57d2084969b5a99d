// Everything gets by with a small stack, so it may be called on a small thread.
#include "properties/cost_families.h"
#include "properties/cost_stack.h"
#include "properties/declared.h"
#include "properties/every_encoder.h"
#include "properties/hostile_messages.h"
#include "properties/single_readers.h"
#include "properties/tree_edits.h"
#include "properties/zip_bomb.h"
#include "support/muted.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <csignal>
#include <type_traits>

namespace {

using namespace veltoprotocol;

using namespace cost;

template <std::size_t size>
void touch() {
    volatile char bytes[size];
    bytes[0] = 1;
    bytes[size / 2] = bytes[0];
}

// The rest stands on this.
TEST(PaintedStack, TellsHowMuchWasUsed) {
    PaintedStack stack;
    const std::size_t none = stack.used([] {}), some = stack.used(touch<40000>);
    EXPECT_GT(none, 100u);
    EXPECT_LT(none, promised / 2);
#ifndef COST_SANITIZED // which may put arrays elsewhere
    EXPECT_GE(some, 40000u);
    EXPECT_GT(stack.used(touch<80000>), promised);
#endif
    EXPECT_LT(some, promised);
}

TEST(SmallStacks, TellWhoUsesTooMuch) {
    SmallStacks stacks;
    stacks.call("little", touch<20000>);
    EXPECT_EQ(stacks.tooMuch(), "");
    stacks.call("much", touch<300000>);
#ifndef COST_SANITIZED
    EXPECT_EQ(stacks.tooMuch().find("much used 30"), 0u) << stacks.tooMuch();
#endif
    EXPECT_EQ(stacks.names(), (std::set<std::string>{"little", "much"}));
}

#ifndef COST_SANITIZED
// Nothing but the pages below it ends what needs more.
TEST(StackDeathTest, EndsAtItsPromisedSize) {
    const Stack stack(promised);
    stack.run(touch<40000>);
    EXPECT_EXIT(stack.run(touch<promised>), testing::KilledBySignal(SIGSEGV), "");
}
#endif

#ifdef COST_SANITIZED
constexpr unsigned seeds = 1;
#else
constexpr unsigned seeds = 3;
#endif

void callEncoders(SmallStacks& stacks) {
    std::vector<char> out(4 << 20);
    for (unsigned seed = 0; seed < seeds; ++seed)
        for (const Texts texts : {Texts::anyBytes, Texts::printable})
            visitEncoders(seed, texts, [&](const EncoderCall& call) {
                stacks.call(call.name, [&] { call.encode(out.data(), static_cast<int>(out.size())); });
            });
}

void callReadersOfBytes(SmallStacks& stacks) {
    std::vector<std::string> messages;
    for (const WholeMessage& message : wholeMessages()) messages.push_back(message.bytes);
    messages.push_back("POST / HTTP/1.1\r\nAuthorization: Basic " + times(25000, "YWJj") + "\r\n\r\n");
    messages.push_back("Basic " + times(25000, "YWJj"));
    messages.push_back("Basic " + times(341, "YWJj"));
    messages.push_back(zipBomb(20000, 1900000, 1000));
    messages.push_back(zipBomb(20000, 1900000, 4294967295U));
    for (const std::string& message : messages)
        for (const BytesReader& reader : bytesReaders)
            stacks.call(reader.name, [&] { reader.read(message.data(), static_cast<int>(message.size())); });
}

void callReadersOfXml(SmallStacks& stacks) {
    for (const DocumentReader& reader : documentReaders)
        stacks.call(reader.name, [&] {
            int error = 7;
            for (const std::string& xml : wholeDocuments()) {
                TiXmlDocument* const doc = Decode(xml.c_str());
                reader.read(doc, &error);
                ReleaseTiXmlDocument(doc);
            }
        });
    for (const OwnElement& own : ownElements()) {
        const Document doc = parsed(own.xml);
        stacks.call(own.reader->name, [&] {
            int error = 7;
            own.reader->read(doc->RootElement(), &error);
        });
    }
    const Document none = parsed("<a><b>-1.5</b></a>"), some = parsed("<a k='1'>x<b>12</b></a>");
    for (const auto& readers : {recordReaders, valueReaders})
        for (const ElementReader& reader : readers)
            for (const Document* doc : {&none, &some})
                stacks.call(reader.name, [&] { // all that is missing is told
                    int error = 7;
                    reader.read((*doc)->RootElement(), &error);
                    reader.read((*doc)->RootElement()->FirstChildElement(), &error);
                });
}

// What decoders make is made on the thread as well, since a call is made twice.
template <auto decode, auto release>
void callRelease(SmallStacks& stacks, const char* name) {
    for (const std::string& xml : wholeDocuments()) {
        const Document doc = parsed(xml);
        stacks.call(name, [&] {
            int error = 7;
            auto made = decode(doc.get(), &error);
            if constexpr (std::is_pointer_v<decltype(made)>)
                release(made);
            else
                release(&made);
        });
    }
}
__tagVtPlayBackParam playback(TiXmlDocument* doc, int* error) {
    TiXmlElement* const request = doc->RootElement()->FirstChildElement("request");
    return GetPlayBackParamDecode(request, request ? request->FirstChildElement("PlaybackParam") : nullptr,
                                  error);
}
// Those whose records no document becomes.
__tagVtRecordParam records(TiXmlDocument*, int*) {
    __tagVtRecordParam found = __tagVtRecordParam();
    found.Records = new __tagVtRecordElementParam[found.Counter = 1000]();
    return found;
}
__tagVtSystemRightsInfo rights(TiXmlDocument*, int*) {
    __tagVtSystemRightsInfo user = __tagVtSystemRightsInfo();
    user.ChannelRights = new __tagVtUserChannelRights[1000]();
    return user;
}

void callReleases(SmallStacks& stacks) {
    using Search = void (*)(__tagVtSearchAlarmParam*);
    using Found = void (*)(__tagVtSearchAlarmResult*);
    callRelease<GetViewGroupDataParamDecode, ReleaseViewGroupDataParam>(stacks, "ReleaseViewGroupDataParam");
    callRelease<GetSetViewGroupData, ReleaseSetViewGroupData>(stacks, "ReleaseSetViewGroupData");
    callRelease<GetSearchHistoryAlarmReqDecode, static_cast<Search>(ReleaseSearchAlarmParam)>(
        stacks, "ReleaseSearchAlarmParam");
    callRelease<GetSearchHistoryAlarmRespDecode, static_cast<Found>(ReleaseSearchAlarmParam)>(
        stacks, "ReleaseSearchAlarmParam");
    callRelease<GetSetEMapInfoReqDecode, EMapInfoDecodeRelease>(stacks, "EMapInfoDecodeRelease");
    callRelease<GetEMapInfoRespDecode, EMapInfoDecodeRelease>(stacks, "EMapInfoDecodeRelease");
    callRelease<playback, ReleasePlaybackParam>(stacks, "ReleasePlaybackParam");
    callRelease<records, ReleaseRecordParam>(stacks, "ReleaseRecordParam");
    callRelease<rights, ReleaseUserInfoParam>(stacks, "ReleaseUserInfoParam");
}

void callOthers(SmallStacks& stacks) {
    TiXmlElement element("Element");
    for (const std::string& text : {std::string("&text"), std::string(100000, '&')}) {
        const char* const given = text.c_str();
        stacks.call("SetStringValue", [&] { SetStringValue(&element, given, given); });
        stacks.call("SetStringValueAtt", [&] { SetStringValueAtt(&element, given, given); });
    }
    stacks.call("ItoString", [] { ItoString(-2147483647 - 1); });
    stacks.call("UitoString", [] { UitoString(4294967295U); });
    for (const std::string& xml : wholeDocuments()) {
        stacks.call("Decode", [&] { delete Decode(xml.c_str()); });
        stacks.call("ReleaseTiXmlDocument", [&] { ReleaseTiXmlDocument(Decode(xml.c_str())); });
    }
}

TEST(SmallStack, IsEnoughForEveryFunction) {
    SmallStacks stacks;
    const struct {
        const char* name;
        void (*call)(SmallStacks&);
        std::size_t least;
    } kinds[] = {{"encoders", callEncoders, 200 * seeds},
                 {"readers of bytes", callReadersOfBytes, 1200},
                 {"readers of XML", callReadersOfXml, 130},
                 {"releases", callReleases, 500},
                 {"others", callOthers, 100}};
    std::string few;
    {
        const Muted quiet;
        for (const auto& kind : kinds) {
            const std::size_t before = stacks.calls();
            kind.call(stacks);
            if (stacks.calls() - before < kind.least)
                few += kind.name + (": " + std::to_string(stacks.calls() - before)) + " calls\n";
        }
    }
    EXPECT_EQ(few, "");
    EXPECT_EQ(stacks.names(), declaredFunctions());
    stacks.expectEnough(2000);
}

// Parsed, printed and released.
void live(const std::string& text) {
    TiXmlDocument* const doc = Decode(text.c_str());
    if (doc) GetXmlEncode(doc), GetXmlLength(doc);
    ReleaseTiXmlDocument(doc);
}

TEST(SmallStack, IsEnoughForDocumentsOfAsManyLevelsAsMayBe) {
    const std::string tag = crowded(), crowd = tag.substr(2, tag.size() - 4);
    SmallStacks stacks;
    std::size_t decoded = 0;
    {
        const Muted quiet;
        for (const std::string& declaration : {usual, std::string()})
            for (const std::string& open : {std::string("<a>"), "<a" + crowd + ">"})
                for (const std::string& inside :
                     {std::string(), std::string("text"), std::string("<!-- c -->")}) {
                    const std::string text = declaration + times(128, open) + inside + times(128, "</a>");
                    decoded += Document(Decode(text.c_str())) ? 1 : 0;
                    stacks.call(text.substr(0, 100) + inside, [&] { live(text); });
                }
    }
    EXPECT_EQ(decoded, 12u);
    stacks.expectEnough(12);
}

TEST(SmallStack, IsEnoughForDocumentsThatAreRefused) {
    SmallStacks stacks;
    int decoded = 0;
    {
        const Muted quiet;
        for (const std::string& declaration : {usual, std::string()})
            for (const int levels : {129, 250, 500, 1000, 100000}) {
                const std::string text = declaration + times(levels, "<a>") + times(levels, "</a>");
                decoded += Document(Decode(text.c_str())) ? 1 : 0;
                stacks.call(std::to_string(levels) + " levels", [&] { live(text); });
            }
        for (const Family& family : families()) {
            const std::string text = family.text(50000);
            stacks.call(family.name, [&] { live(text); });
        }
    }
    EXPECT_EQ(decoded, 0);
    stacks.expectEnough(60);
}

} // namespace
