/**
 * @file
 * Configuration of recording: storage, schedules and archives.
 *
 * The requests go to "/servercommandservice/manage" with "Connection: keep-alive" and carry no Token; their
 * answers (GetAddStorageRespEncode and its kin) stand in framing.h, with the rules that every function
 * follows (caller buffer, text fields, errors, diagnostics, threads).
 */
#ifndef VELTOPROTOCOL_RECORDING_H
#define VELTOPROTOCOL_RECORDING_H

#include "veltoprotocol/admin.h"
#include "veltoprotocol/export.h"

class TiXmlElement;

namespace veltoprotocol {

/** The storage settings of one channel. Each field travels as the child element of the same name. */
struct __tagVtStorageInfo {
    char ChannelGuid[48];    ///< The channel.
    char DatabasePath[256];  ///< Where the channel records to.
    char reserved[256];      ///< Never carried; zero after decoding.
    char ArchivePath[256];   ///< Where recordings are moved to.
    char PathNonUNC[256];    ///< Both paths without UNC: sent as DatabasePathNonUNC and ArchivePathNonUNC.
    int DBRepairStrategy;    ///< The application's code.
    int ArchiveDb;           ///< The application's code.
    int ArchiveWhenDBFull;   ///< The application's code.
    int ArchiveMaxAge;       ///< Age at which recordings are moved, in the application's unit.
    int DbSaveMode;          ///< The application's code.
    bool EnableDbPreSecs;    ///< Whether seconds before an event are kept; "1" or "0" on the wire.
    bool EnableDbPostSecs;   ///< Whether seconds after an event are kept.
    int DbPreSecs;           ///< Seconds kept before an event.
    int DbPostSecs;          ///< Seconds kept after an event.
    int AdminDbPreSecs;      ///< Another number of seconds before an event.
    int AdminDbPostSecs;     ///< Another number of seconds after an event.
    int DbLimitType;         ///< The application's code.
    int DbLimitCount;        ///< The limit.
    bool SaveOnEvent;        ///< Whether events start a recording.
    bool SaveOnMotion;       ///< Whether motion starts a recording.
    char SaveStartEvent[48]; ///< The event that starts it.
    char SaveStopEvent[48];  ///< The event that ends it.
    char reserved2[114];     ///< Never carried; zero after decoding.
    char Schedules[2048];    ///< The schedule, in the application's syntax.
    char reserved3[4];       ///< Never carried; zero after decoding.
    int ManualRecordSecs;    ///< Seconds, for recordings by hand.
    int VideoStreamType;     ///< Which stream, the application's code.
    char reserved4[16];      ///< Never carried; zero after decoding.
};

/** One named schedule. */
struct __tagVtSchedulesInfo {
    char Guid[48];        ///< The schedule's GUID.
    char Name[64];        ///< Name shown to users.
    char Schedules[2048]; ///< The schedule, in the application's syntax.
    int SchedulesType;    ///< The application's code.
};

/** The schedules of one channel. */
struct __tagVtChannelScheduleInfo {
    char reserved[48];            ///< Never carried.
    char ChannelGuid[48];         ///< The channel.
    int OnlineType;               ///< The application's code.
    __tagVtSchedulesInfo Online;  ///< For normal recording; its SchedulesType is not carried.
    int SpeedupType;              ///< The application's code.
    __tagVtSchedulesInfo Speedup; ///< For accelerated recording; its SchedulesType is not carried.
};

/** One archive. */
struct __tagVtArchiveinfo {
    char Guid[48];        ///< The archive's GUID.
    char ArchiveTime[16]; ///< Time of archiving, as text.
};

/**
 * @name Storage
 * @{
 */

/**
 * Writes storage settings as 25 children of an element: the fields in their order, with DatabasePathNonUNC
 * behind DatabasePath and ArchivePathNonUNC behind ArchivePath.
 * @param element The element to write to; the caller keeps it.
 * @param storage The record to write.
 * @return 0, or -1 if either argument is null (nothing is written then).
 */
VELTOPROTOCOL_API int GetStorageParamEncode(TiXmlElement* element, const __tagVtStorageInfo* storage);

/**
 * Reads storage settings from the children of a Channels element.
 *
 * A missing child, or one longer than its field, leaves the field zero and prints a line; it is no error.
 * PathNonUNC holds ArchivePathNonUNC where that is there and fits, else DatabasePathNonUNC.
 * @param element The Channels element.
 * @param error   Receives 0, or -1 if element is null; may be null.
 * @return The record by value, all zero for a null element; nothing to release.
 */
VELTOPROTOCOL_API __tagVtStorageInfo GetStorageParamDecode(TiXmlElement* element, int* error);

/**
 * Writes storage settings under a command name of the caller's.
 * @param storages Array of count records; null gives -1.
 * @param count    Number of records; written as it is, also where it is 0 or negative and nothing follows.
 * @param host     Value of the Host header; must not hold CR or LF; null is empty text.
 * @param seqnum   Sequence number, written in signed decimal.
 * @param out      Receives the message, without a terminating NUL; the caller owns it.
 * @param size     Bytes that out can take.
 * @param name     Command name; null leaves the attribute out.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetStorageEncode(const __tagVtStorageInfo* storages, int count, const char* host,
                                       unsigned int seqnum, char* out, int size, const char* name);

/** GetStorageEncode for "AddStorage". */
VELTOPROTOCOL_API int GetAddStorageReqEncode(const __tagVtStorageInfo* storages, int count, const char* host,
                                             unsigned int seqnum, char* out, int size);

/** GetStorageEncode for "UpdateStorage". */
VELTOPROTOCOL_API int GetUpdateStorageReqEncode(const __tagVtStorageInfo* storages, int count,
                                                const char* host, unsigned int seqnum, char* out, int size);

/** Writes the request "DeleteStorage": as GetStorageEncode, but of each record its ChannelGuid alone. */
VELTOPROTOCOL_API int GetDeleteStorageReqEncode(const __tagVtStorageInfo* storages, int count,
                                                const char* host, unsigned int seqnum, char* out, int size);

/** @} */

/**
 * @name Schedules
 * @{
 */

/**
 * Writes the schedules of a channel under a command name of the caller's, and prints the XML.
 *
 * The first record is written count times: send a request for each channel.
 * @param schedules The record; null gives -1.
 * @param count     How often it is written; goes out as it is, also where it is 0 or negative and nothing
 *                  follows.
 * @param host      Value of the Host header; must not hold CR or LF; null is empty text.
 * @param seqnum    Sequence number, written in signed decimal.
 * @param out       Receives the message, without a terminating NUL; the caller owns it.
 * @param size      Bytes that out can take.
 * @param name      Command name; null leaves the attribute out, and is printed as empty text.
 * @return Bytes written, or -1 by the rules in framing.h. The line is printed also when the message does not
 *         fit, unless its XML is longer than INT_MAX: a careless count prints a long line.
 * @throws std::bad_alloc if there is no memory for the line; nothing is written then.
 */
VELTOPROTOCOL_API int GetScheduleEncode(const __tagVtChannelScheduleInfo* schedules, int count,
                                        const char* host, unsigned int seqnum, char* out, int size,
                                        const char* name);

/** GetScheduleEncode for "AddSchedule". */
VELTOPROTOCOL_API int GetAddScheduleReqEncode(const __tagVtChannelScheduleInfo* schedules, int count,
                                              const char* host, unsigned int seqnum, char* out, int size);

/** GetScheduleEncode for "UpdateSchedule". */
VELTOPROTOCOL_API int GetUpdateScheduleReqEncode(const __tagVtChannelScheduleInfo* schedules, int count,
                                                 const char* host, unsigned int seqnum, char* out, int size);

/**
 * Writes the request "DeleteSchedule": of each record its ChannelGuid alone. Here every record of the array
 * is written, and nothing is printed; otherwise as GetScheduleEncode.
 */
VELTOPROTOCOL_API int GetDeleteScheduleReqEncode(const __tagVtChannelScheduleInfo* schedules, int count,
                                                 const char* host, unsigned int seqnum, char* out, int size);

/**
 * Writes the request to change named schedules, "SetSchedulesInfo".
 * @param reqType   What to do with them, written in decimal.
 * @param schedules Array of count records; null gives -1.
 * @param count     Number of records; below 1 gives -1.
 * @param host      Value of the Host header; must not hold CR or LF; null is empty text.
 * @param seqnum    Sequence number, written in signed decimal.
 * @param out       Receives the message, without a terminating NUL; the caller owns it.
 * @param size      Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetSetSchedulesReqEncode(__enumVtDeviceReqType reqType,
                                               const __tagVtSchedulesInfo* schedules, int count,
                                               const char* host, unsigned int seqnum, char* out, int size);

/**
 * Writes a named schedule as attributes of an element: Guid, Name, Schedules, SchedulesType. The function's
 * name is spelled so.
 * @param element  The element to write to; the caller keeps it.
 * @param schedule The record to write.
 * @return 0, or -1 if either argument is null (nothing is written then).
 */
VELTOPROTOCOL_API int GeScheduleParamEncode(TiXmlElement* element, const __tagVtSchedulesInfo* schedule);

/**
 * Reads a named schedule from the attributes of a schedule element.
 *
 * A missing attribute, or one longer than its field, leaves the field zero and prints a line; it is no error.
 * @param schedule The schedule element.
 * @param error    Receives 0, or -1 if schedule is null; may be null.
 * @return The record by value, all zero for a null element; nothing to release.
 */
VELTOPROTOCOL_API __tagVtSchedulesInfo GetScheduleParamDecode(TiXmlElement* schedule, int* error);

/** @} */

/**
 * @name Archives
 * @{
 */

/**
 * Writes archives under a command name of the caller's. The names of the elements "Archives " and "Archive "
 * end in a blank, which XML readers do not see.
 * @param archives Array of count records; null gives -1.
 * @param count    Number of records; below 1 gives -1.
 * @param host     Value of the Host header; must not hold CR or LF; null is empty text.
 * @param seqnum   Sequence number, written in signed decimal.
 * @param out      Receives the message, without a terminating NUL; the caller owns it.
 * @param size     Bytes that out can take.
 * @param name     Command name; null leaves the attribute out.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetArchiveEncode(const __tagVtArchiveinfo* archives, int count, const char* host,
                                       unsigned int seqnum, char* out, int size, const char* name);

/** GetArchiveEncode for "AddArchiveInfo". */
VELTOPROTOCOL_API int GetAddArchiveReqEncode(const __tagVtArchiveinfo* archives, int count, const char* host,
                                             unsigned int seqnum, char* out, int size);

/** GetArchiveEncode for "UpdateArchiveInfo". */
VELTOPROTOCOL_API int GetUpdateArchiveReqEncode(const __tagVtArchiveinfo* archives, int count,
                                                const char* host, unsigned int seqnum, char* out, int size);

/** GetArchiveEncode for "DeleteArchiveInfo": the whole entries, as for the others. */
VELTOPROTOCOL_API int GetDeleteArchiveReqEncode(const __tagVtArchiveinfo* archives, int count,
                                                const char* host, unsigned int seqnum, char* out, int size);

/**
 * Reads an archive from the attributes of an Archive element.
 *
 * A missing attribute, or one longer than its field, leaves the field zero and prints a line; it is no error.
 * @param archive The Archive element.
 * @param error   Receives 0, or -1 if archive is null; may be null.
 * @return The record by value, all zero for a null element; nothing to release.
 */
VELTOPROTOCOL_API __tagVtArchiveinfo GetArchiveParamDecode(TiXmlElement* archive, int* error);

/** @} */

} // namespace veltoprotocol

#endif
