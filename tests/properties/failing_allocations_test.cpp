// Exhausted memory: each allocation of a call fails in turn. The call throws std::bad_alloc or gives -1,
// everything it had allocated is freed, and the same call succeeds afterwards.
#include "support/failing_calls.h"
#include "support/muted.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>
#include <tinyxml.h>
#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <vector>

// What the XML library's parser leaks is no finding of the leak checker.
#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define LEAKS_ARE_CHECKED
#endif
#endif
#ifdef __SANITIZE_ADDRESS__
#define LEAKS_ARE_CHECKED
#endif
#ifdef LEAKS_ARE_CHECKED
#include <sanitizer/lsan_interface.h>
using LeaksAllowed = __lsan::ScopedDisabler;
#else
struct LeaksAllowed {
    LeaksAllowed() {} // not trivial: a variable of the type is no unused one
};
#endif

namespace {

using namespace veltoprotocol;

TEST(FailingAllocations, AreCountedAndFailInTurn) {
    const auto twoAllocations = [] {
        ::operator delete(::operator new(1));
        ::operator delete(::operator new(2));
        return true;
    };
    EXPECT_EQ(allocationsThatFailed(twoAllocations), 2);
    const long before = failing::live;
    void* const memory = ::operator new(1);
    EXPECT_EQ(failing::live, before + 1);
    ::operator delete(memory);
    EXPECT_EQ(failing::live, before);
}

const std::string guid = "01234567-89ab-cdef-0123-456789abcdef"; // too long for a string without memory

const std::string playbackXml =
    R"(<servercommandservice><request name="PlaybackRecord">)"
    R"(<PlaybackParam StartTime="1" EndTime="2" PlaybackMode="3" RecordType="4" Speed="5" />)"
    "<RecordCounter>3</RecordCounter><RecordParam><Index>1</Index></RecordParam>"
    "</request></servercommandservice>";

TEST(GetPlayBackParamDecode, FreesEverythingWhenMemoryIsExhausted) {
    const Document doc = parsed(playbackXml);
    TiXmlElement* const request = doc->RootElement()->FirstChildElement("request");
    TiXmlElement* const param = request->FirstChildElement("PlaybackParam");
    const auto call = [&] {
        int error = 7;
        __tagVtPlayBackParam got = GetPlayBackParamDecode(request, param, &error);
        const bool whole = error == 0 && got.RecordCounter == 3 && got.Records && got.Records[0].Index == 1;
        ReleasePlaybackParam(&got);
        return whole;
    };
    EXPECT_EQ(allocationsThatFailed(call), 1); // the array
}

// A block of zeros that inflates to 25 times its length, and so needs more room than the first guess.
std::string blockOf(unsigned int counter) {
    std::string plain(25000, '\0');
    std::memcpy(&plain[52], &counter, 4);
    std::string block(1000, '\0'); // what trails the compressed bytes counts as input
    uLongf size = block.size();
    EXPECT_EQ(compress(reinterpret_cast<Bytef*>(&block[0]), &size,
                       reinterpret_cast<const Bytef*>(plain.data()), plain.size()),
              Z_OK);
    return block;
}

TEST(GetSearchRecordResultDecode, FreesEverythingWhenMemoryIsExhausted) {
    const std::string block = blockOf(2);
    const auto call = [&] {
        int error = 7;
        __tagVtRecordParam got =
            GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), &error);
        const bool whole = error == 0 && got.Counter == 2 && got.Records;
        ReleaseRecordParam(&got);
        return whole;
    };
    // The array. What is inflated grows by realloc, which no operator sees; the leak sanitizer does.
    EXPECT_EQ(allocationsThatFailed(call), 1);
}

TEST(GetSearchRecordResultDecode, FreesEverythingWhenTheCounterIsBeyondTheBudget) {
    const std::string block = blockOf(4294967295u);
    const long before = failing::live;
    bool threw = false;
    try {
        GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), nullptr);
    } catch (const std::bad_alloc&) {
        threw = true;
    }
    EXPECT_EQ(failing::live, before);
    EXPECT_TRUE(threw);
}

TEST(GetSearchRecordRespEncode, FreesEverythingAndWritesNothingWhenMemoryIsExhausted) {
    __tagVtRecordElementParam records[2] = {};
    __tagVtRecordParam found = __tagVtRecordParam();
    found.Counter = 2;
    found.Records = records;
    std::vector<char> out(4096), untouched(4096, 'u');
    bool wroteAndFailed = false;
    int size = static_cast<int>(out.size());
    const auto call = [&] {
        std::fill(out.begin(), out.end(), 'u');
        try {
            const int length = GetSearchRecordRespEncode(0, 1, &found, out.data(), size);
            wroteAndFailed = wroteAndFailed || (length < 0 && out != untouched);
            return length > 0;
        } catch (const std::bad_alloc&) {
            wroteAndFailed = wroteAndFailed || out != untouched;
            throw;
        }
    };
    EXPECT_EQ(allocationsThatFailed(call), 0); // room for the list, however long it is once compressed
    size = GetSearchRecordRespEncode(0, 1, &found, out.data(), size);
    EXPECT_EQ(allocationsThatFailed(call), 1); // no more room than it needs: it is compressed elsewhere
    EXPECT_FALSE(wroteAndFailed);
}

// Of the encoders that are not about records, only those that print a line of unusual length allocate.
template <class Encode>
void expectNothingWithoutMemoryForItsLine(const Encode& encode) {
    std::vector<char> out(8192, 'u');
    const std::vector<char> untouched = out;
    Captured quiet;
    failing::untilFailure = 1;
    bool threw = false;
    try {
        encode(out.data(), static_cast<int>(out.size()));
    } catch (const std::bad_alloc&) {
        threw = true;
    }
    failing::untilFailure = 0;
    EXPECT_EQ(quiet.text(), "");
    EXPECT_TRUE(threw);
    EXPECT_EQ(out, untouched);
}

TEST(GetRealPlayStartReqEncode, WritesNothingWhenThereIsNoMemoryForItsLine) {
    const std::string channel(5000, 'c');
    expectNothingWithoutMemoryForItsLine([&](char* out, int size) {
        return GetRealPlayStartReqEncode("t", channel.c_str(), 0, "h", 1, out, size);
    });
}

TEST(GetScheduleEncode, WritesNothingWhenThereIsNoMemoryForItsLine) {
    const __tagVtChannelScheduleInfo schedule = __tagVtChannelScheduleInfo();
    expectNothingWithoutMemoryForItsLine([&](char* out, int size) {
        return GetScheduleEncode(&schedule, 10, "h", 1, out, size, "AddSchedule");
    });
}

TEST(Decode, ThrowsWhenMemoryIsExhaustedAndParsesAfterwards) {
    const std::string xml =
        R"(<?xml version="1.0" encoding="UTF-8" ?><servercommandservice><!-- a comment -->)"
        "<Token>" +
        guid + "</Token><request name=\"" + guid + R"(" Counter="2"><ChannelGuid><![CDATA[)" + guid +
        "]]></ChannelGuid><Empty /></request></servercommandservice>";
    const auto call = [&] {
        const Document doc(Decode(xml.c_str()));
        return doc != nullptr;
    };
    const LeaksAllowed whileParsing;
    EXPECT_GT(allocationsThatFailed(call, Leaks::insideTheParser), 10);
}

TEST(Decode, FreesAllOfAUsualDocumentWhenMemoryIsExhausted) {
    const std::string xml = R"(<?xml version="1.0" encoding="UTF-8" ?><servercommandservice><Token>)" + guid +
                            "</Token><request name=\"" + guid +
                            "\" Counter=\"2\"><ChannelGuidOfManyLetters>a  " + guid +
                            "</ChannelGuidOfManyLetters><Empty /></request></servercommandservice>";
    const auto call = [&] { return Document(Decode(xml.c_str())) != nullptr; };
    EXPECT_GT(allocationsThatFailed(call), 10);
}

// Declared to be in Latin-1, in a way that no short string holds; and one end tag that is another's.
const std::string latin =
    R"(<?xml version='1.0' encoding='ISO-8859-1-and-some-more' standalone='yes'?><a b="1">)" + guid +
    "\xE4</a>";
const std::string wrongEnd = R"(<?xml version="1.0" encoding="UTF-8" ?><servercommandservice><Token>)" +
                             guid + "</Tokem></servercommandservice>";

TEST(Decode, ThrowsWhenMemoryIsExhaustedWhateverIsDeclared) {
    const auto call = [&] {
        const Document doc(Decode(latin.c_str()));
        return doc && doc->RootElement() && GetString(doc->RootElement()) == guid + "\xE4";
    };
    const LeaksAllowed whileParsing;
    EXPECT_GT(allocationsThatFailed(call, Leaks::insideTheParser), 10);
}

TEST(Decode, ThrowsWhenMemoryIsExhaustedAndRefusesAWrongEndTagAfterwards) {
    const auto call = [&] {
        const Muted quiet;
        return Decode(wrongEnd.c_str()) == nullptr;
    };
    const LeaksAllowed whileParsing;
    EXPECT_GT(allocationsThatFailed(call, Leaks::insideTheParser), 10);
}

// The copy of the text and the document itself are the library's own; so is all that it reads an unusual
// declaration with, up to what the parser makes of it.
TEST(Decode, FreesItsOwnWhenTheDocumentCannotBeMade) {
    const LeaksAllowed whileParsing;
    const auto expectNothingLeft = [](const std::string& xml, long n) {
        const long before = failing::live;
        bool threw = false;
        failing::untilFailure = n;
        try {
            ReleaseTiXmlDocument(Decode(xml.c_str()));
        } catch (const std::bad_alloc&) {
            threw = true;
        }
        failing::untilFailure = 0;
        EXPECT_EQ(failing::live, before) << "allocation " << n;
        EXPECT_TRUE(threw) << "allocation " << n;
    };
    for (const long n : {1, 2}) expectNothingLeft("<a />", n);
    for (const long n : {1, 2, 3, 4}) expectNothingLeft(latin, n);
}

TEST(StringDecoders, FreeEverythingWhenMemoryIsExhausted) {
    const Document doc =
        parsed("<servercommandservice><version>" + guid.substr(0, 31) + "</version><Token>" + guid +
               "</Token><request name=\"" + guid + "\"><DeviceGuid>" + guid + "</DeviceGuid><ChannelGuid>" +
               guid + "</ChannelGuid><PlaybackGuid>" + guid + "</PlaybackGuid></request><response name=\"" +
               guid + "\"><Result>0</Result><Token>" + guid + "</Token></response></servercommandservice>");
    int error = 7, result = 7;
    const auto failures = [&](const std::string& want, auto read) {
        return allocationsThatFailed([&] { return read(doc.get(), &error) == want; });
    };
    for (auto* read : {GetTokenDecode, GetLogoutReqTokenDecode, GetRealPlayStartReqTokenDecode,
                       GetRealPlayStartReqDeviceGuidDecode, GetRealPlayStartReqChannelGuidDecode,
                       GetPlayBackReqPlayGuidDecode, GetRequestNameDecode, GetResponseNameDecode})
        EXPECT_GE(failures(guid, read), 1);
    EXPECT_GE(failures(guid.substr(0, 31), GetVersionDecode), 1);
    const auto loginToken = [&](TiXmlDocument* from, int* to) {
        return GetLoginRespTokenDecode(from, &result, to);
    };
    EXPECT_GE(failures(guid, loginToken), 1);
    const auto startAnswer = [&](TiXmlDocument* from, int* to) {
        return GetRealPlayStartRespDecode(from, &result, to);
    };
    EXPECT_EQ(failures("", startAnswer), 0); // always empty
    EXPECT_GE(failures(guid, [](TiXmlDocument* from,
                                int*) { return GetString(from->RootElement()->FirstChildElement("Token")); }),
              1);
}

TEST(StringDecoders, OfHttpHeadsFreeEverythingWhenMemoryIsExhausted) {
    const std::string value =
        "Basic YSB1c2VyIG5hbWUgdGhhdCBpcyBsb25nOmFuZCBhIHBhc3N3b3JkIHRoYXQgaXMgbG9uZyB0b28=";
    const std::string message = "POST /servercommandservice HTTP/1.1\r\n"
                                "Host: 10.0.0.1\r\n"
                                "Content-Type: text/xml; charset=utf-8\r\n"
                                "Authorization: " +
                                value + "\r\nContent-Length: 0\r\n\r\n";
    const auto failures = [](auto read, const std::string& from, const std::string& want) {
        return allocationsThatFailed(
            [&] { return read(from.data(), static_cast<int>(from.size())) == want; });
    };
    EXPECT_GE(failures(GetHttpFirstValue, message, "/servercommandservice"), 1);
    EXPECT_GE(failures(GetUri, message, "/servercommandservice"), 1);
    EXPECT_GE(failures(GetContentType, message, "text/xml; charset=utf-8"), 1);
    EXPECT_GE(failures(GetAuthorization, message, value), 1);
    EXPECT_GE(
        failures(GetAuthorizationDecode, value, "a user name that is long:and a password that is long too"),
        1);
}

TEST(GetXmlEncode, FreesEverythingWhenMemoryIsExhausted) {
    const Document doc = parsed("<a b=\"" + guid + "\"><c>" + guid + "</c><d /></a>");
    const std::string want = "<a b=\"" + guid + "\">\n    <c>" + guid + "</c>\n    <d />\n</a>\n";
    EXPECT_GE(allocationsThatFailed([&] { return GetXmlEncode(doc.get()) == want; }), 1);
}

// They write into an element of the caller's, where all that was allocated stays.
TEST(ElementWriters, LeakNothingWhenMemoryIsExhausted) {
    const auto failures = [](auto record, auto write) {
        std::memset(static_cast<void*>(&record), 'x',
                    sizeof record); // texts too long for a string without memory
        return allocationsThatFailed([&] {
            TiXmlElement element("Element");
            return write(&element, &record) == 0;
        });
    };
    EXPECT_GE(failures(__tagVtDeviceParam(), GetDeviceParamEncode), 20);
    EXPECT_GE(failures(__tagVtViewInfo(), GetViewInfoEncode), 6);
    EXPECT_GE(failures(__tagVtViewItem(), GetViewItemEncode), 4);
    EXPECT_GE(failures(__tagVtViewItemInfo(), GetViewItemInfoEncode), 5);
    EXPECT_GE(failures(__tagVtCarouselItem(), GetCarouselEncode), 6);
    EXPECT_GE(failures(__tagVtEMapInfo(), GetEMapInfoEncode), 13);
    EXPECT_GE(failures(__tagVtEMapItemParam(), GetEMapItemParamEncode), 9);
}

} // namespace
