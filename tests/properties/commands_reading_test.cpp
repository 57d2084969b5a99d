// The decoders that the table of commands in docs/ names find what they look for in what the encoders write.
#include "properties/commands_table.h"
#include "properties/every_encoder.h"
#include "support/encoded.h"
#include "support/read_back.h"

#include <functional>
#include <map>
#include <set>

namespace {

using namespace veltoprotocol;

// Whether a decoder finds all that it looks for: no error, and no line about something missing or too long.
using Reader = std::function<bool(TiXmlDocument*)>;

template <class Decoder>
bool silent(Decoder decode) {
    int error = 7;
    Captured captured;
    decode(&error);
    return captured.text().empty() && error == 0;
}

template <class Decoder>
Reader ofDocument(Decoder decode) {
    return [decode](TiXmlDocument* doc) { return silent([&](int* error) { decode(doc, error); }); };
}

template <class Decoder>
Reader ofHeapRecord(Decoder decode, void (*release)(decltype(decode(nullptr, nullptr)))) {
    return [decode, release](TiXmlDocument* doc) {
        decltype(decode(nullptr, nullptr)) made = nullptr;
        const bool found = silent([&](int* error) { made = decode(doc, error); });
        const bool exists = made != nullptr;
        release(made);
        return found && exists;
    };
}

template <class Decoder>
bool anyElement(TiXmlElement* element, Decoder decode) {
    if (silent([&](int* error) { decode(element, error); })) return true;
    for (TiXmlElement* child = element->FirstChildElement(); child; child = child->NextSiblingElement())
        if (anyElement(child, decode)) return true;
    return false;
}

template <class Decoder>
Reader ofElement(Decoder decode) {
    return [decode](TiXmlDocument* doc) { return anyElement(doc->RootElement(), decode); };
}

template <class Decoder>
Reader ofText(Decoder decode) {
    return [decode](TiXmlDocument* doc) {
        return silent([&](int* error) {
            if (decode(doc, error).empty()) *error = -1;
        });
    };
}

#define DOCUMENT(decoder)                                                                                    \
    { #decoder, ofDocument(decoder) }
#define TEXT(decoder)                                                                                        \
    { #decoder, ofText(decoder) }
#define ELEMENT_OF(decoder)                                                                                  \
    { #decoder, ofElement(decoder) }

const std::map<std::string, Reader>& readers() {
    static const auto releasesLayout = [](TiXmlDocument* doc, int* error) {
        __tagVtViewGroupData layout = GetViewGroupDataParamDecode(doc, error);
        ReleaseViewGroupDataParam(&layout);
    };
    static const auto releasesGroup = [](TiXmlDocument* doc, int* error) {
        __tagVtViewGroup group = GetSetViewGroupData(doc, error);
        ReleaseSetViewGroupData(&group);
    };
    static const auto playback = [](TiXmlElement* request, int* error) {
        __tagVtPlayBackParam param =
            GetPlayBackParamDecode(request, request->FirstChildElement("PlaybackParam"), error);
        ReleasePlaybackParam(&param);
    };
    static const auto token = [](TiXmlDocument* doc, int* error) {
        int result = 7;
        return GetLoginRespTokenDecode(doc, &result, error);
    };
    static const auto start = [](TiXmlDocument* doc, int* error) {
        int result = 7;
        GetRealPlayStartRespDecode(doc, &result, error);
    };
    static const std::map<std::string, Reader> readers = {
        {"GetLoginRespTokenDecode", ofText(token)},
        {"GetRealPlayStartRespDecode", ofDocument(start)},
        {"GetViewGroupDataParamDecode", ofDocument(releasesLayout)},
        {"GetSetViewGroupData", ofDocument(releasesGroup)},
        {"GetPlayBackParamDecode", ofElement(playback)},
        {"GetSetEMapInfoReqDecode", ofHeapRecord(GetSetEMapInfoReqDecode, EMapInfoDecodeRelease)},
        {"GetEMapInfoRespDecode", ofHeapRecord(GetEMapInfoRespDecode, EMapInfoDecodeRelease)},
        {"GetSearchHistoryAlarmReqDecode",
         ofHeapRecord(GetSearchHistoryAlarmReqDecode, ReleaseSearchAlarmParam)},
        TEXT(GetLogoutReqTokenDecode),
        TEXT(GetRealPlayStartReqChannelGuidDecode),
        TEXT(GetRealPlayStartReqDeviceGuidDecode),
        TEXT(GetPlayBackReqPlayGuidDecode),
        DOCUMENT(GetRealPlayStartReqStreamTypeDecode),
        DOCUMENT(GetUserInfoParamDecode),
        ELEMENT_OF(GetDeviceParamDecode),
        ELEMENT_OF(GetChannelParamDecode),
        ELEMENT_OF(GetDeviceNetParamDecode),
        ELEMENT_OF(GetServerParamDecode),
        ELEMENT_OF(GetUserRightsParamDecode),
        ELEMENT_OF(GetChannelRightsInfoParamDecode),
        ELEMENT_OF(GetStorageParamDecode),
        ELEMENT_OF(GetScheduleParamDecode),
        ELEMENT_OF(GetArchiveParamDecode),
        ELEMENT_OF(GetPtzReqDecode),
        ELEMENT_OF(GetStartTalkReqDecode),
        ELEMENT_OF(GetSearchRecordDecode),
        ELEMENT_OF(GetPlayBackCtrlParamDecode),
        ELEMENT_OF(GetPictureParamDecode),
        ELEMENT_OF(GetViewGroupInfoParamDecode),
        ELEMENT_OF(GetAlarmDataDecode),
        ELEMENT_OF(GetRecordStatusDecode),
        ELEMENT_OF(GetMessageParamDecode),
        ELEMENT_OF(GetMessageParamDecodeChannelDisable),
        ELEMENT_OF(GetMessageParamDecodeChannelDelete)};
    return readers;
}

// What the readers below cannot tell: they read a value of a name that the caller gives, or bytes.
const std::set<std::string> ofNoDocument = {
    "GetAuthorization", "GetAuthorizationDecode", "GetBoolValue",      "GetIntValue",
    "GetIntValueAtt",   "GetStringValue",         "GetStringValueAtt", "GetSearchRecordResultDecode"};
// kept: it does not read what the encoder of its own command writes
const std::string readsNothing = "GetSearchHistoryAlarmRespDecode";

// Their decoders read the head, the token, the result, or bytes behind the XML.
const std::set<std::string> readBesideTheCommand = {"Login", "Logout", "SearchRecord", "StartRealplay"};

// Messages of many seeds, parsed: in some of them every text fits and every list has entries.
std::map<std::string, std::vector<Document>> received() {
    std::map<std::string, std::vector<Document>> received;
    for (unsigned seed = 0; seed < 60; ++seed) {
        Captured quiet;
        for (const NamedMessage& message : everyEncoder(seed, Texts::printable)) {
            const std::size_t blank = message.bytes.find("\r\n\r\n");
            Document doc(blank == std::string::npos ? nullptr : Decode(message.bytes.c_str() + blank + 4));
            if (doc && doc->RootElement()) received[message.name].push_back(std::move(doc));
        }
        quiet.text();
    }
    return received;
}

TEST(CommandDecoders, FindWhatTheyLookFor) {
    const std::map<std::string, std::vector<Document>> messages = received();
    const auto reads = [&](const std::string& decoder, const std::string& encoder) {
        const Reader& reader = readers().at(decoder);
        for (const Document& doc : messages.at(encoder))
            if (reader(doc.get())) return true;
        return false;
    };
    const auto expectReads = [&](const std::vector<std::string>& decoders, const std::string& encoder) {
        for (const std::string& decoder : decoders) {
            if (ofNoDocument.count(decoder) || decoder == readsNothing) continue;
            ASSERT_TRUE(readers().count(decoder)) << decoder;
            if (encoder == "GetDownloadEMapPictureReqEncode") continue; // kept: its pictures have no channel
            EXPECT_TRUE(reads(decoder, encoder)) << decoder << " does not read " << encoder;
        }
    };
    // A message that carries more than a result has somebody who reads it.
    const auto carriesMore = [&](const std::string& encoder) {
        for (const Document& doc : messages.at(encoder)) {
            TiXmlElement* const command = doc->RootElement()->LastChild()->ToElement();
            TiXmlElement* const last =
                command ? command->LastChild() ? command->LastChild()->ToElement() : nullptr : nullptr;
            if (last && last->ValueStr() != "Result") return true;
        }
        return false;
    };
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.command);
        expectReads(row.requestDecoders, row.request);
        expectReads(row.responseDecoders, row.response);
        if (row.command.empty() || readBesideTheCommand.count(row.command)) continue;
        if (!row.request.empty()) {
            EXPECT_EQ(row.requestDecoders.empty(), !carriesMore(row.request));
        }
        if (row.response != "GetRespEncode") {
            EXPECT_EQ(row.responseDecoders.empty(), !carriesMore(row.response));
        }
    }
    // The test tells one command's messages from another's.
    EXPECT_FALSE(reads("GetPtzReqDecode", "GetStopTalkReqEncode"));
    EXPECT_FALSE(reads("GetStorageParamDecode", "GetAddArchiveReqEncode"));
    EXPECT_FALSE(reads("GetUserInfoParamDecode", "GetServerInfoRespEncode"));
}

} // namespace
