// The answers that hold a Result alone: GetRespEncode, and the commands that answer with nothing else.
#include "framing/message.h"
#include "veltoprotocol/framing.h"

namespace veltoprotocol {

namespace {

int answer(CommandName name, int result, unsigned int seqnum, char* out, int size,
           const Head& head = usualAnswer) {
    const auto tree = [&](auto x) { x.value("Result", result); };
    return Response(name, seqnum).reply(head, tree, out, size);
}

} // namespace

int GetRespEncode(int result, unsigned int seqnum, char* out, int size, const char* name,
                  const char* connection) {
    return answer(name, result, seqnum, out, size, Head::response(connection));
}

int GetLogoutRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("Logout", result, seqnum, out, size, Head::response(closeConnection)); // no other ends it
}

int GetSetViewGroupDataRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("SetViewGroupData", result, seqnum, out, size);
}

int GetAddDeviceRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("AddDevice", result, seqnum, out, size);
}

int GetUpdateDeviceRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("UpdateDevice", result, seqnum, out, size);
}

int GetDeleteDeviceRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("DeleteDevice", result, seqnum, out, size);
}

int GetAddStorageRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("AddStorage", result, seqnum, out, size);
}

int GetUpdateStorageRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("UpdateStorage", result, seqnum, out, size);
}

int GetDeleteStorageRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("DeleteStorage", result, seqnum, out, size);
}

int GetAddScheduleRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("AddSchedule", result, seqnum, out, size);
}

int GetUpdateScheduleRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("UpdateSchedule", result, seqnum, out, size);
}

int GetDeleteScheduleRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("DeleteSchedule", result, seqnum, out, size);
}

int GetPlaybackRecordRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("PlaybackRecord", result, seqnum, out, size);
}

int GetPlaybackStopRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("PlaybackStop", result, seqnum, out, size);
}

int GetDownloadRecordRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("DownloadRecord", result, seqnum, out, size);
}

int GetDownloadStopRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("DownloadStop", result, seqnum, out, size);
}

int GetDownloadPictureRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("DownloadPicture", result, seqnum, out, size);
}

int GetDownloadEMapPictureRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("DownloadEMapPicture", result, seqnum, out, size);
}

int GetManualRecordRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("ManualRecord", result, seqnum, out, size);
}

int GetNotificationRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("Notification", result, seqnum, out, size);
}

int GetAddArchiveRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("AddArchiveInfo", result, seqnum, out, size);
}

int GetUpdateArchiveRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("UpdateArchiveInfo", result, seqnum, out, size);
}

int GetDeleteArchiveRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("DeleteArchiveInfo", result, seqnum, out, size);
}

int GetStopSearchDeviceRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return answer("StopSearchDevice", result, seqnum, out, size);
}

} // namespace veltoprotocol
