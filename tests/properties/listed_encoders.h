// Every encoder, to be called with made arguments. Three are missing: they take no text, record or buffer
// that could be made so (XmlHeaderEncode, GetXmlEncode), or have a test of their own (Base64Encode).
#pragma once

#include "properties/made_arguments.h"

#include <LibVeltoProtocol.h>

#include <functional>

struct ListedEncoder {
    const char* name;
    // One of them is null.
    std::function<int(char*, int)> (*message)(MadeArguments&);
    std::function<int(TiXmlElement*)> (*element)(MadeArguments&);
};

inline ListedEncoder listedMessage(const char* name, decltype(ListedEncoder::message) message) {
    return {name, message, nullptr};
}
inline ListedEncoder listedElement(const char* name, decltype(ListedEncoder::element) element) {
    return {name, nullptr, element};
}

// The encoder's name stands once, so that it cannot differ from what is called.
#define LISTED_MESSAGE(encoder)                                                                              \
    listedMessage(#encoder, [](MadeArguments& made) { return made.bound(veltoprotocol::encoder); })
#define LISTED_ELEMENT(encoder)                                                                              \
    listedElement(#encoder, [](MadeArguments& made) { return made.bound(veltoprotocol::encoder); })

inline const ListedEncoder listedEncoders[] = {LISTED_MESSAGE(GetDeviceListReqEncode),
                                               LISTED_MESSAGE(GetAllDeviceListReqEncode),
                                               LISTED_MESSAGE(GetUserDeviceListReqEncode),
                                               LISTED_MESSAGE(GetDeviceListRespEncode),
                                               LISTED_MESSAGE(GetAllDeviceListRespEncode),
                                               LISTED_MESSAGE(GetUserDeviceListRespEncode),
                                               LISTED_MESSAGE(GetDeviceEncode),
                                               LISTED_MESSAGE(GetAddDeviceReqEncode),
                                               LISTED_MESSAGE(GetUpdateDeviceReqEncode),
                                               LISTED_MESSAGE(GetDeleteDeviceReqEncode),
                                               LISTED_MESSAGE(GetStartSearchDeviceReqEncode),
                                               LISTED_MESSAGE(GetStartSearchDeviceRespEncode),
                                               LISTED_MESSAGE(GetStopSearchDeviceReqEncode),
                                               LISTED_MESSAGE(GetServerInfoReqEncode),
                                               LISTED_MESSAGE(GetServerInfoRespEncode),
                                               LISTED_MESSAGE(GetSetServerInfoReqEncode),
                                               LISTED_MESSAGE(GetSetServerInfoRespEncode),
                                               LISTED_MESSAGE(GetUserInfoReqEncode),
                                               LISTED_MESSAGE(GetUserInfoRespEncode),
                                               LISTED_MESSAGE(GetChannelRightsInfoReqEncode),
                                               LISTED_MESSAGE(GetChannelRightsInfoRespEncode),
                                               LISTED_MESSAGE(GetEMapInfoReqEncode),
                                               LISTED_MESSAGE(GetEMapInfoRespEncode),
                                               LISTED_MESSAGE(GetSetEMapInfoReqEncode),
                                               LISTED_MESSAGE(GetSetEMapInfoRespEncode),
                                               LISTED_MESSAGE(GetNotificationReqEncode),
                                               LISTED_MESSAGE(GetNotificationContentReqEncode),
                                               LISTED_MESSAGE(GetSearchHistoryAlarmReqEncode),
                                               LISTED_MESSAGE(GetSearchHistoryAlarmRespEncode),
                                               LISTED_MESSAGE(HttpReqEncode),
                                               LISTED_MESSAGE(HttpRespEncode),
                                               LISTED_MESSAGE(GetRespEncode),
                                               LISTED_MESSAGE(GetLogoutRespEncode),
                                               LISTED_MESSAGE(GetSetViewGroupDataRespEncode),
                                               LISTED_MESSAGE(GetAddDeviceRespEncode),
                                               LISTED_MESSAGE(GetUpdateDeviceRespEncode),
                                               LISTED_MESSAGE(GetDeleteDeviceRespEncode),
                                               LISTED_MESSAGE(GetAddStorageRespEncode),
                                               LISTED_MESSAGE(GetUpdateStorageRespEncode),
                                               LISTED_MESSAGE(GetDeleteStorageRespEncode),
                                               LISTED_MESSAGE(GetAddScheduleRespEncode),
                                               LISTED_MESSAGE(GetUpdateScheduleRespEncode),
                                               LISTED_MESSAGE(GetDeleteScheduleRespEncode),
                                               LISTED_MESSAGE(GetPlaybackRecordRespEncode),
                                               LISTED_MESSAGE(GetPlaybackStopRespEncode),
                                               LISTED_MESSAGE(GetDownloadRecordRespEncode),
                                               LISTED_MESSAGE(GetDownloadStopRespEncode),
                                               LISTED_MESSAGE(GetDownloadPictureRespEncode),
                                               LISTED_MESSAGE(GetDownloadEMapPictureRespEncode),
                                               LISTED_MESSAGE(GetManualRecordRespEncode),
                                               LISTED_MESSAGE(GetNotificationRespEncode),
                                               LISTED_MESSAGE(GetAddArchiveRespEncode),
                                               LISTED_MESSAGE(GetUpdateArchiveRespEncode),
                                               LISTED_MESSAGE(GetDeleteArchiveRespEncode),
                                               LISTED_MESSAGE(GetStopSearchDeviceRespEncode),
                                               LISTED_MESSAGE(GetLoginReqEncode),
                                               LISTED_MESSAGE(GetLoginRespEncode),
                                               LISTED_MESSAGE(GetLogoutReqEncode),
                                               LISTED_MESSAGE(GetHeartBeatReqEncode),
                                               LISTED_MESSAGE(GetHeartBeatRespEncode),
                                               LISTED_MESSAGE(GetRealPlayStartReqEncode),
                                               LISTED_MESSAGE(GetRealPlayStartRespEncode),
                                               LISTED_MESSAGE(GetVideoDataEncode),
                                               LISTED_MESSAGE(GetPtzReqEncode),
                                               LISTED_MESSAGE(GetPtzRespEncode),
                                               LISTED_MESSAGE(GetStartTalkReqEncode),
                                               LISTED_MESSAGE(GetStartTalkRespEncode),
                                               LISTED_MESSAGE(GetStopTalkReqEncode),
                                               LISTED_MESSAGE(GetStopTalkRespEncode),
                                               LISTED_MESSAGE(GetDataReqEncode),
                                               LISTED_MESSAGE(GetSearchRecordReqEncode),
                                               LISTED_MESSAGE(GetSearchRecordRespEncode),
                                               LISTED_MESSAGE(GetRecordReqEncode),
                                               LISTED_MESSAGE(GetPlaybackRecordReqEncode),
                                               LISTED_MESSAGE(GetDownloadRecordReqEncode),
                                               LISTED_MESSAGE(GetPlaybackStopReqEncode),
                                               LISTED_MESSAGE(GetDownloadStopReqEncode),
                                               LISTED_MESSAGE(GetPlaybackControlReqEncode),
                                               LISTED_MESSAGE(GetPlaybackControlRespEncode),
                                               LISTED_MESSAGE(GetManualRecordReqEncode),
                                               LISTED_MESSAGE(GetDownloadPictureReqEncode),
                                               LISTED_MESSAGE(GetDownloadEMapPictureReqEncode),
                                               LISTED_MESSAGE(GetDownloadPictureDataEncode),
                                               LISTED_MESSAGE(GetDownloadEMapPictureDataEncode),
                                               LISTED_MESSAGE(GetUploadPictureDataEncode),
                                               LISTED_MESSAGE(GetStorageEncode),
                                               LISTED_MESSAGE(GetAddStorageReqEncode),
                                               LISTED_MESSAGE(GetUpdateStorageReqEncode),
                                               LISTED_MESSAGE(GetDeleteStorageReqEncode),
                                               LISTED_MESSAGE(GetScheduleEncode),
                                               LISTED_MESSAGE(GetAddScheduleReqEncode),
                                               LISTED_MESSAGE(GetUpdateScheduleReqEncode),
                                               LISTED_MESSAGE(GetDeleteScheduleReqEncode),
                                               LISTED_MESSAGE(GetSetSchedulesReqEncode),
                                               LISTED_MESSAGE(GetArchiveEncode),
                                               LISTED_MESSAGE(GetAddArchiveReqEncode),
                                               LISTED_MESSAGE(GetUpdateArchiveReqEncode),
                                               LISTED_MESSAGE(GetDeleteArchiveReqEncode),
                                               LISTED_MESSAGE(GetViewGroupsReqEncode),
                                               LISTED_MESSAGE(GetViewGroupsRespEncode),
                                               LISTED_MESSAGE(GetViewGroupDataReqEncode),
                                               LISTED_MESSAGE(GetViewGroupDataRespEncode),
                                               LISTED_MESSAGE(GetSetViewGroupDataReqEncode),
                                               LISTED_ELEMENT(GetDeviceParamEncode),
                                               LISTED_ELEMENT(GetChannelParamEncode),
                                               LISTED_ELEMENT(GetDeviceNetParamEncode),
                                               LISTED_ELEMENT(GetServerParamEncode),
                                               LISTED_ELEMENT(GetEMapInfoEncode),
                                               LISTED_ELEMENT(GetEMapItemParamEncode),
                                               LISTED_ELEMENT(GetVeltoHeaderEncode),
                                               LISTED_ELEMENT(GetStorageParamEncode),
                                               LISTED_ELEMENT(GeScheduleParamEncode),
                                               LISTED_ELEMENT(GetViewGroupsParamEncode),
                                               LISTED_ELEMENT(GetViewInfoEncode),
                                               LISTED_ELEMENT(GetViewItemEncode),
                                               LISTED_ELEMENT(GetViewItemInfoEncode),
                                               LISTED_ELEMENT(GetCarouselEncode)};
