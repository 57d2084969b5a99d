// Exhausted memory in every public function: each allocation that a call makes fails in turn. The call throws
// std::bad_alloc and has freed all it had allocated; an encoder has written and printed nothing; the same
// call then gives what it gave before. What frees or finds without memory makes no allocation at all.
#include "properties/declared.h"
#include "properties/every_encoder.h"
#include "properties/failing_in_turn.h"
#include "properties/failing_others.h"
#include "properties/hostile_messages.h"
#include "properties/listed_encoders.h"
#include "properties/tree_edits.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <algorithm>
#include <array>
#include <functional>
#include <new>
#include <string>
#include <vector>

namespace {

using namespace veltoprotocol;
using namespace failing;

// Calls as no function of the library must be.
TEST(FailingEveryCall, TellsWhatIsWrong) {
    static void* leaked;
    leaked = nullptr;
    const auto twice = [] {
        ::operator delete(::operator new(1));
        ::operator delete(::operator new(2));
        return 7;
    };
    const auto leaking = [] {
        void* const first = ::operator new(1);
        try {
            ::operator delete(::operator new(2));
        } catch (const std::bad_alloc&) {
            leaked = first;
            throw;
        }
        ::operator delete(first);
        return 7;
    };
    const auto swallowing = [&] {
        try {
            return twice();
        } catch (const std::bad_alloc&) {
            return 7;
        }
    };
    const auto printing = [&] {
        std::fputs("line\n", stdout);
        return twice();
    };
    const auto faultsOf = [](const auto& function, Prints prints) {
        Faults faults;
        Captured quiet;
        EXPECT_EQ(failedInTurn(
                      faults, "it",
                      [&] { return unlessExhausted([&] { return std::to_string(libraryCall(function)); }); },
                      prints),
                  2);
        return faults.text();
    };
    EXPECT_EQ(faultsOf(twice, Prints::nothing), "");
    EXPECT_EQ(faultsOf(leaking, Prints::nothing), "it, allocation 2: leaks\n");
    ::operator delete(leaked);
    EXPECT_EQ(faultsOf(swallowing, Prints::nothing),
              "it, allocation 1: does not throw: 7\nit, allocation 2: does not throw: 7\n");
    EXPECT_EQ(faultsOf(printing, Prints::asFarAsItGets), "");
    EXPECT_EQ(faultsOf(printing, Prints::nothing), "it, allocation 1: prints\nit, allocation 2: prints\n");
}

// Messages, their bodies, the blocks behind XML, and what login sends.
std::vector<std::string> receivedBytes() {
    const std::string value =
        "Basic YSB1c2VyIG5hbWUgdGhhdCBpcyBsb25nOmFuZCBhIHBhc3N3b3JkIHRoYXQgaXMgbG9uZyB0b28=";
    std::vector<std::string> all = {value, value.substr(6)};
    for (const WholeMessage& message : wholeMessages()) {
        all.push_back(message.bytes);
        if (message.name == "GetSearchRecordRespEncode") {
            const Document doc = parsed(message.body);
            all.push_back(message.body.substr(static_cast<std::size_t>(GetXmlLength(doc.get()))));
        }
    }
    return all;
}

TEST(FailingEveryCall, ReadersOfBytes) {
    const std::vector<std::string> received = receivedBytes();
    EveryCall every;
    for (const std::string& bytes : received)
        for (const BytesReader& reader : bytesReaders)
            every.check(reader.name,
                        [&] { return reader.read(bytes.data(), static_cast<int>(bytes.size())); });
    // Texts and the records of a block.
    every.expect({"GetHttpFirstValue", "GetUri", "GetContentType", "GetAuthorization",
                  "GetAuthorizationDecode", "GetSearchRecordResultDecode"},
                 200);
}

// What the library reads is in it as long as it may be.
std::string longTexts() {
    const std::string guid = "<DeviceGuid>01234567-89ab-cdef-0123-456789abcdef</DeviceGuid>";
    return "<servercommandservice><version>1.0.0-and-some-more-characters</version>"
           "<request name=\"" +
           longText + "\">" + guid + "</request></servercommandservice>";
}

// Calls readers with what they read; their error is part of what they make.
template <class Reader, class From>
void checkAll(EveryCall& every, const std::vector<Reader>& readers, From* from) {
    for (const Reader& reader : readers)
        every.check(reader.name, [&] {
            int error = 7;
            const std::string told = reader.read(from, &error);
            return threw(told) ? told : told + std::to_string(error);
        });
}

TEST(FailingEveryCall, ReadersOfDocuments) {
    std::vector<std::string> documents = wholeDocuments();
    documents.push_back(longTexts());
    EveryCall every;
    for (const std::string& xml : documents) checkAll(every, documentReaders, parsed(xml).get());
    // Texts, arrays, and what needs the printer.
    every.expect({"GetNameDecode", "GetRequestNameDecode", "GetResponseNameDecode", "GetVersionDecode",
                  "GetTokenDecode", "GetLogoutReqTokenDecode", "GetLoginRespTokenDecode",
                  "GetRealPlayStartReqTokenDecode", "GetRealPlayStartReqDeviceGuidDecode",
                  "GetRealPlayStartReqChannelGuidDecode", "GetPlayBackReqPlayGuidDecode",
                  "GetViewGroupDataParamDecode", "GetSetViewGroupData", "GetSearchHistoryAlarmReqDecode",
                  "GetSearchHistoryAlarmRespDecode", "GetSetEMapInfoReqDecode", "GetEMapInfoRespDecode",
                  "GetXmlLength", "GetXmlEncode"},
                 1000);
}

TEST(FailingEveryCall, ReadersOfElements) {
    wholeDocuments();
    EveryCall every;
    for (const std::string& xml : wholeDocuments()) {
        const Document doc = parsed(xml);
        for (TiXmlElement* element : edits::elementsOf(*doc)) {
            checkAll(every, recordReaders, element);
            checkAll(every, valueReaders, element);
        }
    }
    every.expect({"GetPlayBackParamDecode", "GetString"}, 100); // the one array, the one text
}

// What is missing or too long is told by a line, which takes memory where its label or name is long; the
// field stays as it was.
TEST(FailingEveryCall, ReadersThatPrintALongLine) {
    const Document doc =
        parsed("<servercommandservice b=\"0123456789\"><b>0123456789</b></servercommandservice>");
    TiXmlElement* const root = doc->RootElement();
    const char* const label = longText.c_str();
    Names all;
    EveryCall every;
    const auto check = [&](const char* name, auto field, const auto& read) {
        all.insert(name);
        const auto before = field;
        bool untouched = true;
        every.check(name, [&] {
            const std::string told =
                unlessExhausted([&] { return std::to_string(libraryCall([&] { return read(&field); })); });
            untouched = untouched && field == before;
            return told;
        });
        every.faults().expect(untouched, name, "changes the field");
    };
    using Field = std::array<char, 4>;
    for (const char* name : {"b", "d"}) {
        check("GetStringValue", Field{},
              [&](Field* to) { return GetStringValue(root, label, name, to->data(), 4); });
        check("GetStringValueAtt", Field{},
              [&](Field* to) { return GetStringValueAtt(root, label, name, to->data(), 4); });
    }
    check("GetIntValue", 7, [&](int* to) { return GetIntValue(root, label, "d", to); });
    check("GetBoolValue", true, [&](bool* to) { return GetBoolValue(root, label, "d", to); });
    check("GetUIntValue", 7ul, [&](unsigned long* to) { return GetUIntValue(root, label, "d", to); });
    check("GetIntValueAtt", 7, [&](int* to) { return GetIntValueAtt(root, label, "d", to); });
    check("GetBoolValueAtt", true, [&](bool* to) { return GetBoolValueAtt(root, label, "d", to); });
    check("GetUIntValueAtt", 7u, [&](unsigned int* to) { return GetUIntValueAtt(root, label, "d", to); });
    check("GetNameDecode", 0,
          [&](int*) { return static_cast<int>(GetNameDecode(doc.get(), nullptr, label).size()); });
    every.expect(all, 11);
}

// Nothing is written unless all of it is, and nothing printed.
void checkMessage(EveryCall& every, const std::string& name, const std::function<int(char*, int)>& encode) {
    constexpr int roomy = 1 << 18;
    static std::string out(roomy, '#');
    static const std::string untouched = out;
    int length = 0;
    bool clean = true;
    const auto into = [&](int size) {
        const Call call = [&] {
            std::fill(out.begin(), out.end(), '#');
            length = 0;
            std::string told = unlessExhausted([&] {
                const int returned = libraryCall([&] { return encode(&out[0], size); });
                length = std::max(returned, 0);
                return std::to_string(returned) + out.substr(0, static_cast<std::size_t>(length));
            });
            const auto end = static_cast<std::size_t>(length);
            clean = clean && out.compare(end, roomy, untouched, end, roomy) == 0;
            return told;
        };
        every.check(name, call, Prints::nothing);
    };
    into(roomy);
    const int whole = length;
    every.faults().expect(whole > 1, name, "refuses");
    into(whole);
    into(whole - 1);
    every.faults().expect(clean, name, "writes what is no message");
}

TEST(FailingEveryCall, Encoders) {
    EveryCall every;
    MadeArguments made{MadeArguments::Choice()};
    for (const ListedEncoder& encoder : listedEncoders)
        if (encoder.message) checkMessage(every, encoder.name, encoder.message(made));
    for (unsigned seed = 0; seed < 30; ++seed)
        visitEncoders(seed, Texts::printable, [&](const EncoderCall& call) {
            if (call.isMessage()) checkMessage(every, call.name, call.encode);
        });
    // The list to be compressed, and the lines with XML of some length.
    every.expect({"GetSearchRecordRespEncode", "GetRealPlayStartReqEncode", "GetPtzReqEncode",
                  "GetStartTalkReqEncode", "GetStopTalkReqEncode", "GetScheduleEncode",
                  "GetAddScheduleReqEncode", "GetUpdateScheduleReqEncode"},
                 200);
}

TEST(FailingEveryCall, WritersOfElements) {
    Names all;
    MadeArguments made{MadeArguments::Choice()};
    EveryCall every;
    for (const ListedEncoder& encoder : listedEncoders) {
        if (!encoder.element) continue;
        all.insert(encoder.name);
        const auto write = encoder.element(made);
        checkWriter(every, encoder.name, [&](TiXmlElement* element) { return write(element) == 0; });
    }
    every.expect(all, 300);
}

TEST(FailingEveryCall, AllOthers) {
    wholeMessages();
    wholeDocuments();
    EveryCall every;
    for (const OwnCall& own : ownCalls) own.check(every, own.name);
    every.expect({"Decode", "XmlHeaderEncode", "SetStringValue", "SetStringValueAtt"}, 300);
}

TEST(FailingEveryCall, IsMadeOfEveryFunction) {
    Names listed;
    const auto add = [&](const auto& list) {
        for (const auto& entry : list) listed.insert(entry.name);
    };
    add(bytesReaders);
    add(documentReaders);
    add(recordReaders);
    add(valueReaders);
    add(listedEncoders);
    add(ownCalls);
    EXPECT_EQ(listed, declaredFunctions());
}

} // namespace
