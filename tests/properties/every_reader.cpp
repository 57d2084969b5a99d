#include "properties/every_reader.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <algorithm>

using namespace veltoprotocol;

namespace {

template <class Record>
std::string bytes(const Record& record) {
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

void inspect(Transcript& transcript, const std::string& message) {
    const char* const buf = message.data();
    const int len = static_cast<int>(message.size());
    NOTE(CheckHttp, buf, len);
    NOTE(GetHttpLength, buf, len);
    NOTE(GetContentLen, buf, len);
    NOTE(GetHttpPacketLength, buf, len);
    NOTE(GetHttpFirstValue, buf, len);
    NOTE(GetUri, buf, len);
    NOTE(GetHttpStatus, buf, len);
    NOTE(GetContentType, buf, len);
    NOTE(GetAuthorization, buf, len);
    const std::string value = GetAuthorization(buf, len);
    NOTE(GetAuthorizationDecode, value.data(), static_cast<int>(value.size()));
    char decoded[300] = {};
    Base64Decode(decoded, "YWRtaW46", 8);
    transcript.note("Base64Decode", std::string(decoded));
}

void readElement(Transcript& transcript, TiXmlElement* element) {
    int error = 7;
    char field[48] = {};
    int number = 0;
    bool flag = false;
    unsigned int word = 0;
    unsigned long wide = 0;
    NOTE(GetStringValue, element, "label", "seqnum", field, 48);
    NOTE(GetIntValue, element, "label", "seqnum", &number);
    NOTE(GetBoolValue, element, "label", "version", &flag);
    NOTE(GetUIntValue, element, "label", "Result", &wide);
    NOTE(GetStringValueAtt, element, "label", "Guid", field, 48);
    NOTE(GetIntValueAtt, element, "label", "Num", &number);
    NOTE(GetBoolValueAtt, element, "label", "Preview", &flag);
    NOTE(GetUIntValueAtt, element, "label", "State", &word);
    transcript.note("fields", std::string(field, sizeof field) + std::to_string(number) +
                                  std::to_string(flag) + std::to_string(word) + std::to_string(wide));
    NOTE(GetInt, element);
    NOTE(GetUInt, element);
    NOTE(GetLong, element);
    NOTE(GetULong, element);
    NOTE(GetFloat, element);
    NOTE(GetString, element);
    NOTE(GetDeviceParamDecode, element, &error);
    NOTE(GetChannelParamDecode, element, &error);
    NOTE(GetServerParamDecode, element, &error);
    NOTE(GetUserRightsParamDecode, element, &error);
    NOTE(GetChannelRightsInfoParamDecode, element, &error);
    NOTE(GetDeviceNetParamDecode, element, &error);
    NOTE(GetStorageParamDecode, element, &error);
    NOTE(GetScheduleParamDecode, element, &error);
    NOTE(GetArchiveParamDecode, element, &error);
    NOTE(GetPtzReqDecode, element, &error);
    NOTE(GetStartTalkReqDecode, element, &error);
    NOTE(GetSearchRecordDecode, element, &error);
    NOTE(GetPlayBackCtrlParamDecode, element, &error);
    NOTE(GetPictureParamDecode, element, &error);
    NOTE(GetViewGroupInfoParamDecode, element, &error);
    NOTE(GetViewInfoDecode, element, &error);
    NOTE(GetViewItemDecode, element, &error);
    NOTE(GetViewItemInfoDecode, element, &error);
    NOTE(GetCarouselDecode, element, &error);
    NOTE(GetViewItemParamDecode, element, &error);
    NOTE(GetAlarmDataDecode, element, &error);
    NOTE(GetRecordStatusDecode, element, &error);
    NOTE(GetMessageParamDecode, element, &error);
    NOTE(GetMessageParamDecodeChannelDisable, element, &error);
    NOTE(GetMessageParamDecodeChannelDelete, element, &error);
    NOTE(GetEMapInfoDecode, element, &error);
    NOTE(GetEMapItemParamDecode, element, &error);
    __tagVtPlayBackParam playback = GetPlayBackParamDecode(element, element, &error);
    transcript.note("GetPlayBackParamDecode", playback.RecordCounter);
    ReleasePlaybackParam(&playback);
    transcript.note("ReleasePlaybackParam", playback.RecordCounter);
    transcript.note("error", error);
    for (TiXmlElement* child = element->FirstChildElement(); child; child = child->NextSiblingElement())
        readElement(transcript, child);
}

// The records at the ends of a layout: all else leads to them by pointers.
std::string leaves(const __tagVtViewGroupData& layout) {
    std::string text;
    for (int g = 0; g < layout.groupcount; ++g)
        for (int v = 0; v < layout.groups[g].viewcount; ++v)
            for (int i = 0; i < layout.groups[g].views[v].itemcount; ++i) {
                const __tagVtViewItem& item = layout.groups[g].views[v].items[i];
                text.append(item.id, sizeof item.id).append(item.ownerid, sizeof item.ownerid);
                for (int c = 0; c < item.iteminfo.carouselcount; ++c)
                    text.append(bytes(item.iteminfo.carousels[c]));
            }
    return text;
}

void readLayouts(Transcript& transcript, TiXmlDocument* doc) {
    int error = 7;
    __tagVtViewGroupData layout = GetViewGroupDataParamDecode(doc, &error);
    transcript.note("GetViewGroupDataParamDecode", std::to_string(error) + leaves(layout));
    ReleaseViewGroupDataParam(&layout);
    transcript.note("ReleaseViewGroupDataParam", layout.groupcount);
    __tagVtViewGroup group = GetSetViewGroupData(doc, &error);
    transcript.note("GetSetViewGroupData", bytes(group.info) + std::to_string(error) + leaves(group.data));
    ReleaseSetViewGroupData(&group);
    transcript.note("ReleaseSetViewGroupData", group.data.groupcount);
}

std::string contents(const __tagVtSearchAlarmParam& search) {
    std::string text(search.BeginTime, sizeof search.BeginTime);
    for (int i = 0; i < search.channelcount; ++i) text += bytes(search.channels[i]);
    return text;
}

std::string contents(const __tagVtSearchAlarmResult& found) {
    std::string text = std::to_string(found.SearchCount);
    for (int i = 0; i < found.CurCount; ++i) text += bytes(found.alarms[i]);
    return text;
}

std::string contents(const __tagVtUserEMapInfo& user) {
    std::string text(user.UserGuid, sizeof user.UserGuid);
    for (int i = 0; i < user.EMapInfoCount; ++i) text += bytes(user.EMapInfos[i]);
    for (int i = 0; i < user.EMapItemCount; ++i) text += bytes(user.EMapItems[i]);
    return text;
}

// Notes what a decoder makes on the heap, and releases it.
#define NOTE_HEAP(decoder, release)                                                                          \
    do {                                                                                                     \
        int error = 7;                                                                                       \
        auto* const made = decoder(doc, &error);                                                             \
        transcript.note(#decoder, std::to_string(error) + (made ? contents(*made) : "null"));                \
        release(made);                                                                                       \
        transcript.note(#release, made == nullptr);                                                          \
    } while (false)

void readHeapRecords(Transcript& transcript, TiXmlDocument* doc) {
    NOTE_HEAP(GetSearchHistoryAlarmReqDecode, ReleaseSearchAlarmParam);
    NOTE_HEAP(GetSearchHistoryAlarmRespDecode, ReleaseSearchAlarmParam);
    NOTE_HEAP(GetSetEMapInfoReqDecode, EMapInfoDecodeRelease);
    NOTE_HEAP(GetEMapInfoRespDecode, EMapInfoDecodeRelease);
}

} // namespace

void readDocument(Transcript& transcript, TiXmlDocument* doc) {
    int error = 7, result = 7;
    NOTE(GetNameDecode, doc, &error, "request");
    NOTE(GetRequestNameDecode, doc, &error);
    NOTE(GetResponseNameDecode, doc, &error);
    NOTE(GetResponseErrorcodeDecode, doc, &error);
    NOTE(GetSeqnumberDecode, doc, &error);
    NOTE(GetVersionDecode, doc, &error);
    NOTE(GetTokenDecode, doc, &error);
    NOTE(GetLogoutReqTokenDecode, doc, &error);
    NOTE(GetLoginRespTokenDecode, doc, &result, &error);
    NOTE(GetRealPlayStartReqTokenDecode, doc, &error);
    NOTE(GetRealPlayStartReqDeviceGuidDecode, doc, &error);
    NOTE(GetRealPlayStartReqChannelGuidDecode, doc, &error);
    NOTE(GetRealPlayStartReqStreamTypeDecode, doc, &error);
    NOTE(GetPlayBackReqPlayGuidDecode, doc, &error);
    NOTE(GetRealPlayStartRespDecode, doc, &result, &error);
    transcript.note("codes", std::to_string(error) + std::to_string(result));
    NOTE(GetUserInfoParamDecode, doc, &error);
    readLayouts(transcript, doc);
    __tagVtSystemRightsInfo rights = __tagVtSystemRightsInfo();
    rights.ChannelRights = new __tagVtUserChannelRights[2]();
    rights.ChannelCounter = 2;
    ReleaseUserInfoParam(&rights);
    transcript.note("ReleaseUserInfoParam", rights.ChannelCounter);
    readHeapRecords(transcript, doc);
    NOTE(GetXmlLength, doc);
    if (TiXmlElement* const root = doc ? doc->RootElement() : nullptr) readElement(transcript, root);
}

void readMessage(Transcript& transcript, const std::string& message) {
    inspect(transcript, message);
    const std::size_t head = message.find("\r\n\r\n");
    TiXmlDocument* const doc = Decode(message.c_str() + (head == std::string::npos ? 0 : head));
    transcript.note("Decode", doc != nullptr);
    readDocument(transcript, doc);
    const int xml = GetXmlLength(doc); // behind it, the block of a record search
    int error = 7;
    const std::string block = xml < 0 || head == std::string::npos
                                  ? ""
                                  : message.substr(head + 4).substr(
                                        std::min(message.size() - head - 4, static_cast<std::size_t>(xml)));
    __tagVtRecordParam found =
        GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), &error);
    transcript.note("GetSearchRecordResultDecode", found.Counter);
    ReleaseRecordParam(&found);
    transcript.note("ReleaseRecordParam", error);
    ReleaseTiXmlDocument(doc);
    transcript.note("ReleaseTiXmlDocument", 0);
    transcript.note("SetStringValue", SetStringValue(nullptr, "Name", "text") == nullptr);
    transcript.note("SetStringValueAtt", SetStringValueAtt(nullptr, "Name", "text") == nullptr);
    NOTE(ItoString, static_cast<int>(message.size()));
    NOTE(UitoString, static_cast<unsigned>(message.size()));
}
