// The answers that hold a Result alone: GetRespEncode, and the commands that answer with nothing else.
#include "framing/message.h"
#include "veltoprotocol/framing.h"

namespace veltoprotocol {

int GetRespEncode(int result, unsigned int seqnum, char* out, int size, const char* name,
                  const char* connection) {
    const auto tree = [&](auto x) { x.value("Result", result); };
    return Response(name, seqnum).reply(tree, out, size, connection);
}

int GetLogoutRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "Logout",
                         "close"); // the only one that ends the connection
}
int GetSetViewGroupDataRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "SetViewGroupData", "keep-alive");
}

int GetAddDeviceRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "AddDevice", "keep-alive");
}

int GetUpdateDeviceRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "UpdateDevice", "keep-alive");
}

int GetDeleteDeviceRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "DeleteDevice", "keep-alive");
}

int GetAddStorageRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "AddStorage", "keep-alive");
}

int GetUpdateStorageRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "UpdateStorage", "keep-alive");
}

int GetDeleteStorageRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "DeleteStorage", "keep-alive");
}

int GetAddScheduleRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "AddSchedule", "keep-alive");
}

int GetUpdateScheduleRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "UpdateSchedule", "keep-alive");
}

int GetDeleteScheduleRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "DeleteSchedule", "keep-alive");
}

int GetPlaybackRecordRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "PlaybackRecord", "keep-alive");
}

int GetPlaybackStopRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "PlaybackStop", "keep-alive");
}

int GetDownloadRecordRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "DownloadRecord", "keep-alive");
}

int GetDownloadStopRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "DownloadStop", "keep-alive");
}

int GetDownloadPictureRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "DownloadPicture", "keep-alive");
}

int GetDownloadEMapPictureRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "DownloadEMapPicture", "keep-alive");
}

int GetManualRecordRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "ManualRecord", "keep-alive");
}

int GetNotificationRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "Notification", "keep-alive");
}

int GetAddArchiveRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "AddArchiveInfo", "keep-alive");
}

int GetUpdateArchiveRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "UpdateArchiveInfo", "keep-alive");
}

int GetDeleteArchiveRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "DeleteArchiveInfo", "keep-alive");
}

int GetStopSearchDeviceRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "StopSearchDevice", "keep-alive");
}

} // namespace veltoprotocol
