#include "properties/single_readers.h"

#include "properties/told.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <cstddef>

using namespace veltoprotocol;

const char exhausted[] = "std::bad_alloc";

namespace {

template <class Read>
std::string outcome(const Read& read) {
    return unlessExhausted([&] { return telling::toldAndReleased(libraryCall(read)); });
}

template <auto read>
std::string ofBytes(const char* buf, int len) {
    return outcome([&] { return read(buf, len); });
}
template <auto read, class From>
std::string with(From* from, int* error) {
    return outcome([&] { return read(from, error); });
}
template <auto read>
std::string without(TiXmlElement* element, int*) {
    return outcome([&] { return read(element); });
}

// Room for what four characters stand for, and the NUL; all of it is told, so that a byte too many shows.
std::string base64(const char* buf, int len) {
    std::string out(static_cast<std::size_t>(len > 0 ? len : 0) / 4 * 3 + 2, '#');
    libraryCall([&] { Base64Decode(&out[0], buf, len); });
    return out;
}

std::string block(const char* buf, int len) {
    int error = 7;
    const std::string text = outcome([&] { return GetSearchRecordResultDecode(buf, len, &error); });
    return text == exhausted ? text : text + std::to_string(error);
}

std::string name(TiXmlDocument* doc, int* error) {
    return outcome([&] { return GetNameDecode(doc, error, "request"); });
}
template <auto read>
std::string withResult(TiXmlDocument* doc, int* error) {
    int result = 7;
    const std::string text = outcome([&] { return read(doc, &result, error); });
    return text + ", " + std::to_string(result);
}
std::string xmlLength(TiXmlDocument* doc, int*) {
    return outcome([&] { return GetXmlLength(doc); });
}
std::string xml(TiXmlDocument* doc, int*) {
    return outcome([&] { return GetXmlEncode(doc); });
}

std::string playback(TiXmlElement* request, int* error) {
    TiXmlElement* const param = request ? request->FirstChildElement("PlaybackParam") : nullptr;
    return outcome([&] { return GetPlayBackParamDecode(request, param, error); });
}

// The names of what an element holds first.
const char* firstChild(const TiXmlElement* element) {
    const TiXmlElement* const child = element ? element->FirstChildElement() : nullptr;
    return child ? child->Value() : "none";
}
const char* firstAttribute(const TiXmlElement* element) {
    const TiXmlAttribute* const attribute = element ? element->FirstAttribute() : nullptr;
    return attribute ? attribute->Name() : "none";
}

template <auto read, class Value, auto nameOf>
std::string value(TiXmlElement* element, int*) {
    Value value = Value();
    const std::string returned = outcome([&] { return read(element, "label", nameOf(element), &value); });
    return returned + ", " + std::to_string(value);
}
template <auto read, auto nameOf>
std::string text(TiXmlElement* element, int*) {
    std::string field(48, '#');
    const std::string returned =
        outcome([&] { return read(element, "label", nameOf(element), &field[0], 48); });
    return returned + ", " + field;
}

template <class Reader>
Reader listed(const char* name, decltype(Reader::read) read) {
    return {name, read};
}

} // namespace

// The function's name stands once, so that it cannot differ from what is called.
#define BYTES(function) listed<BytesReader>(#function, ofBytes<function>)
#define DOCUMENT(function) listed<DocumentReader>(#function, with<function, TiXmlDocument>)
#define RECORD(function) listed<ElementReader>(#function, with<function, TiXmlElement>)
#define NO_ERROR(function) listed<ElementReader>(#function, without<function>)
#define VALUE(function, Value, nameOf) listed<ElementReader>(#function, value<function, Value, nameOf>)

const std::vector<BytesReader> bytesReaders = {
    BYTES(CheckHttp),         BYTES(GetHttpLength),
    BYTES(GetContentLen),     BYTES(GetHttpPacketLength),
    BYTES(GetHttpFirstValue), BYTES(GetUri),
    BYTES(GetHttpStatus),     BYTES(GetContentType),
    BYTES(GetAuthorization),  BYTES(GetAuthorizationDecode),
    {"Base64Decode", base64}, {"GetSearchRecordResultDecode", block}};

const std::vector<DocumentReader> documentReaders = {
    {"GetNameDecode", name},
    DOCUMENT(GetRequestNameDecode),
    DOCUMENT(GetResponseNameDecode),
    DOCUMENT(GetResponseErrorcodeDecode),
    DOCUMENT(GetSeqnumberDecode),
    DOCUMENT(GetVersionDecode),
    DOCUMENT(GetTokenDecode),
    DOCUMENT(GetLogoutReqTokenDecode),
    {"GetLoginRespTokenDecode", withResult<GetLoginRespTokenDecode>},
    DOCUMENT(GetRealPlayStartReqTokenDecode),
    DOCUMENT(GetRealPlayStartReqDeviceGuidDecode),
    DOCUMENT(GetRealPlayStartReqChannelGuidDecode),
    DOCUMENT(GetRealPlayStartReqStreamTypeDecode),
    DOCUMENT(GetPlayBackReqPlayGuidDecode),
    {"GetRealPlayStartRespDecode", withResult<GetRealPlayStartRespDecode>},
    DOCUMENT(GetUserInfoParamDecode),
    DOCUMENT(GetViewGroupDataParamDecode),
    DOCUMENT(GetSetViewGroupData),
    DOCUMENT(GetSearchHistoryAlarmReqDecode),
    DOCUMENT(GetSearchHistoryAlarmRespDecode),
    DOCUMENT(GetSetEMapInfoReqDecode),
    DOCUMENT(GetEMapInfoRespDecode),
    {"GetXmlLength", xmlLength},
    {"GetXmlEncode", xml}};

const std::vector<ElementReader> recordReaders = {RECORD(GetDeviceParamDecode),
                                                  RECORD(GetChannelParamDecode),
                                                  RECORD(GetServerParamDecode),
                                                  RECORD(GetUserRightsParamDecode),
                                                  RECORD(GetChannelRightsInfoParamDecode),
                                                  RECORD(GetDeviceNetParamDecode),
                                                  RECORD(GetStorageParamDecode),
                                                  RECORD(GetScheduleParamDecode),
                                                  RECORD(GetArchiveParamDecode),
                                                  RECORD(GetPtzReqDecode),
                                                  RECORD(GetStartTalkReqDecode),
                                                  RECORD(GetSearchRecordDecode),
                                                  RECORD(GetPlayBackCtrlParamDecode),
                                                  RECORD(GetPictureParamDecode),
                                                  RECORD(GetViewGroupInfoParamDecode),
                                                  RECORD(GetViewInfoDecode),
                                                  RECORD(GetViewItemDecode),
                                                  RECORD(GetViewItemInfoDecode),
                                                  RECORD(GetCarouselDecode),
                                                  RECORD(GetViewItemParamDecode),
                                                  RECORD(GetAlarmDataDecode),
                                                  RECORD(GetRecordStatusDecode),
                                                  RECORD(GetMessageParamDecode),
                                                  RECORD(GetMessageParamDecodeChannelDisable),
                                                  RECORD(GetMessageParamDecodeChannelDelete),
                                                  RECORD(GetEMapInfoDecode),
                                                  RECORD(GetEMapItemParamDecode),
                                                  {"GetPlayBackParamDecode", playback}};

const std::vector<ElementReader> valueReaders = {
    NO_ERROR(GetInt),
    NO_ERROR(GetUInt),
    NO_ERROR(GetLong),
    NO_ERROR(GetULong),
    NO_ERROR(GetFloat),
    NO_ERROR(GetString),
    {"GetStringValue", text<GetStringValue, firstChild>},
    VALUE(GetIntValue, int, firstChild),
    VALUE(GetBoolValue, bool, firstChild),
    VALUE(GetUIntValue, unsigned long, firstChild),
    {"GetStringValueAtt", text<GetStringValueAtt, firstAttribute>},
    VALUE(GetIntValueAtt, int, firstAttribute),
    VALUE(GetBoolValueAtt, bool, firstAttribute),
    VALUE(GetUIntValueAtt, unsigned int, firstAttribute)};
