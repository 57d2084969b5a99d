/**
 * @file
 * Events: the subscription of a client, what the server then pushes, and the search for past alarms.
 *
 * The rules that every function follows (caller buffer, text fields, errors, diagnostics, threads) stand
 * at the top of framing.h.
 */
#ifndef VELTOPROTOCOL_EVENTS_H
#define VELTOPROTOCOL_EVENTS_H

#include "veltoprotocol/export.h"

class TiXmlDocument;
class TiXmlElement;

namespace veltoprotocol {

struct __tagVtChannelParam;

/** Kind of a pushed event; any other integer but 0 may pass through, and is sent without content. */
enum __enumVtMessageType : int {
    VtMessageChannelDisabled = 23, ///< ChannelDisabled, a __tagVtMessageParam.
    VtMessageChannelDeleted = 24,  ///< ChannelDeleted, a __tagVtMessageParam.
    VtMessageAlarm = 300,          ///< AlarmData, a __tagVtAlarmData.
    VtMessageRecordStatus = 301,   ///< RecordingStatus, a __tagVtRecordStatus.
    VtMessageOnlineStatus = 302    ///< OnlineStatus, a __tagVtMessageParam.
};

/** One alarm. All integers are the application's codes, times are texts. */
struct __tagVtAlarmData {
    char AlarmGuid[48];        ///< Identity of the alarm.
    int AlarmNo;               ///< Number of the alarm.
    char reserved[4];          ///< Never carried.
    char ChannelGuid[48];      ///< The channel it belongs to.
    char DeviceGuid[48];       ///< The device it belongs to.
    int NodeID;                ///< Number of a node.
    int AlarmFlag;             ///< Code.
    int AlarmType;             ///< Code.
    int AlarmLevel;            ///< Code.
    char AlarmSubTypeCode[16]; ///< Code as text.
    int AlarmState;            ///< Code.
    char BeginTime[16];        ///< When it began.
    char EndTime[16];          ///< When it ended.
    char AlarmContent[128];    ///< What happened.
    char AlarmSource[128];     ///< What raised it.
    char ConfirmMessage[128];  ///< What was said when it was confirmed.
    char Confirmer[32];        ///< Who confirmed it.
    char ConfirmTime[16];      ///< When it was confirmed.
    int ConfirmState;          ///< Code; in the history only.
    int HaveRecord;            ///< Code; in the history only.
    int HaveSnapshot;          ///< Code; in the history only.
};

/** A change of a channel's recording. */
struct __tagVtRecordStatus {
    char StatusGuid[48];   ///< Identity of the event.
    char ChannelGuid[48];  ///< The channel.
    char DeviceGuid[48];   ///< Its device.
    int RecordType;        ///< The application's code.
    char OccurredTime[16]; ///< When it happened, as text.
    char MessageDesc[128]; ///< What happened.
    int ErrorCode;         ///< The application's code.
    int Status;            ///< The application's code.
};

/** A device or channel that went on or off line, or a channel that was disabled or deleted. */
struct __tagVtMessageParam {
    int MessageType;      ///< A status or sub-kind, the application's code; not the kind of the event.
    char DeviceGuid[48];  ///< The device.
    char ChannelGuid[48]; ///< The channel.
};

/** What a search for past alarms looks for. */
struct __tagVtSearchAlarmParam {
    int AlarmFlag;                 ///< The application's code.
    int AlarmType;                 ///< The application's code.
    int AlarmLevel;                ///< The application's code.
    char BeginTime[16];            ///< Start of the span, as text.
    char EndTime[16];              ///< End of the span.
    int BeginIndex;                ///< The first hit wanted.
    int EndIndex;                  ///< The last hit wanted.
    __tagVtChannelParam* channels; ///< The channels; only the Guid of each is carried.
    int channelcount;              ///< Number of channels.
};

/** One page of the past alarms that were found. */
struct __tagVtSearchAlarmResult {
    int SearchCount;          ///< Hits in all.
    int CurCount;             ///< Hits in this page, the number of alarms.
    __tagVtAlarmData* alarms; ///< The hits of this page.
};

/**
 * @name Notifications
 * A client subscribes once; the server acknowledges (GetNotificationRespEncode in framing.h) and from then on
 * pushes events on the same connection, each as an HTTP response.
 * @{
 */

/**
 * Writes the request that subscribes to events. Unlike in other requests the token comes before the host.
 * @param token  Session token; null gives an empty Token element.
 * @param host   Value of the Host header; must not hold CR or LF; null is empty text.
 * @param seqnum Sequence number, written in signed decimal.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetNotificationReqEncode(const char* token, const char* host, unsigned int seqnum,
                                               char* out, int size);

/**
 * Writes a pushed event: despite the name an HTTP response, "NotificationContent", without Token and Result.
 * @param ignored Not used.
 * @param seqnum  Sequence number, written in signed decimal.
 * @param type    Kind of the event; 0 gives -1, a kind that is not listed is sent without content.
 * @param content The record that belongs to the kind (see __enumVtMessageType); null gives -1. The caller
 *                keeps it. ConfirmState, HaveRecord and HaveSnapshot of an alarm are not sent.
 * @param out     Receives the message, without a terminating NUL; the caller owns it.
 * @param size    Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetNotificationContentReqEncode(int ignored, unsigned int seqnum,
                                                      __enumVtMessageType type, const void* content,
                                                      char* out, int size);

/**
 * Reads an alarm from the children of an AlarmData element. A receiver goes from "response" by
 * "Notifications" to "MessageNotification", whose attribute MessageType tells the kind.
 *
 * A missing child, or one longer than its field, leaves the field zero and prints a line; it is no error.
 * @param alarmData The AlarmData element.
 * @param error     Receives 0, or -1 if alarmData is null; may be null.
 * @return The record by value, all zero for a null element; nothing to release. ConfirmState, HaveRecord and
 *         HaveSnapshot are not read.
 */
VELTOPROTOCOL_API __tagVtAlarmData GetAlarmDataDecode(TiXmlElement* alarmData, int* error);

/** Reads a recording's change from a RecordingStatus element; otherwise as GetAlarmDataDecode. */
VELTOPROTOCOL_API __tagVtRecordStatus GetRecordStatusDecode(TiXmlElement* recordingStatus, int* error);

/** Reads an OnlineStatus element; otherwise as GetAlarmDataDecode. */
VELTOPROTOCOL_API __tagVtMessageParam GetMessageParamDecode(TiXmlElement* onlineStatus, int* error);

/** Reads a ChannelDisabled element; otherwise as GetAlarmDataDecode. */
VELTOPROTOCOL_API __tagVtMessageParam GetMessageParamDecodeChannelDisable(TiXmlElement* channelDisabled,
                                                                          int* error);

/** Reads a ChannelDeleted element; otherwise as GetAlarmDataDecode. */
VELTOPROTOCOL_API __tagVtMessageParam GetMessageParamDecodeChannelDelete(TiXmlElement* channelDeleted,
                                                                         int* error);

/** @} */

/**
 * @name Alarm history
 * @{
 */

/**
 * Writes a search for past alarms.
 * @param host   Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token  Session token; null gives an empty Token element.
 * @param seqnum Sequence number, written in signed decimal.
 * @param param  What to look for; null gives -1. A channelcount below 1 leaves the channels out.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetSearchHistoryAlarmReqEncode(const char* host, const char* token, unsigned int seqnum,
                                                     const __tagVtSearchAlarmParam* param, char* out,
                                                     int size);

/**
 * Writes one page of what was found. Each alarm goes out as attributes, and not all of it: AlarmGuid,
 * AlarmNo, ChannelGuid, AlarmFlag, AlarmType, AlarmLevel, BeginTime, EndTime, ConfirmMessage, ConfirmTime,
 * ConfirmState, HaveRecord, HaveSnapshot.
 * @param result Result code, written in decimal; the page follows for 0 only.
 * @param seqnum Sequence number of the request, written in signed decimal.
 * @param found  The page; null or a CurCount below 1 sends Result alone.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetSearchHistoryAlarmRespEncode(int result, unsigned int seqnum,
                                                      const __tagVtSearchAlarmResult* found, char* out,
                                                      int size);

/**
 * Reads a search.
 *
 * A missing AlarmType takes the value read for AlarmFlag, a missing AlarmLevel the one before it.
 * @param doc   A parsed message; null gives error -1 and null.
 * @param error Receives 0, or -1 for a null doc; may be null.
 * @return A record for ReleaseSearchAlarmParam, or null if the root or the request is missing (nothing is
 *         printed, error stays 0). With Channels, channels is an array, empty for a count below 1; else null.
 * channelcount stays what the message says: entries that were missing are all zero.
 * @throws std::bad_alloc if the count asks for more than 1 GiB, or memory is exhausted; nothing leaks.
 */
VELTOPROTOCOL_API __tagVtSearchAlarmParam* GetSearchHistoryAlarmReqDecode(TiXmlDocument* doc, int* error);

/**
 * Reads a page whose response element begins with a text that is 0 as a number, and whose alarms are carried
 * by child elements as in GetAlarmDataDecode.
 *
 * GetSearchHistoryAlarmRespEncode writes neither: what it writes gives null and error -1. To read such an
 * answer, walk to AlarmInfos and read the attributes of each AlarmData with the value readers of framing.h.
 * @param doc   A parsed message; null gives error -1 and null.
 * @param error Receives 0, or -1 if the response does not begin with such a text (nothing is printed); may be
 *              null.
 * @return A record for ReleaseSearchAlarmParam, or null on an error or if the root or the response is missing
 *         (error stays 0). CurCount stays what the message says: entries that were missing are all zero.
 * @throws std::bad_alloc as GetSearchHistoryAlarmReqDecode.
 */
VELTOPROTOCOL_API __tagVtSearchAlarmResult* GetSearchHistoryAlarmRespDecode(TiXmlDocument* doc, int* error);

/** Frees a decoded search with its channels; null is ignored. */
VELTOPROTOCOL_API void ReleaseSearchAlarmParam(__tagVtSearchAlarmParam* param);

/** Frees a decoded page with its alarms; null is ignored. */
VELTOPROTOCOL_API void ReleaseSearchAlarmParam(__tagVtSearchAlarmResult* found);

/** @} */

} // namespace veltoprotocol

#endif
