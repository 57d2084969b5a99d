/**
 * @file
 * View groups: saved live-view layouts that the server keeps for its users.
 *
 * The rules that every function follows (caller buffer, text fields, errors, diagnostics, threads) stand
 * at the top of framing.h.
 */
#ifndef VELTOPROTOCOL_VIEWS_H
#define VELTOPROTOCOL_VIEWS_H

#include "veltoprotocol/export.h"

class TiXmlElement;

namespace veltoprotocol {

/** One entry of the catalogue; also the head of a layout. */
struct __tagVtViewGroupInfo {
    char ViewGroupGuid[48];     ///< Identity of the view group.
    char UserGuid[48];          ///< The user who owns it.
    bool ReadOnly;              ///< The group may not be changed; "1" or "0" on the wire.
    char Name[64];              ///< Name shown to users.
    int ViewGroupType;          ///< Kind of view group, the application's code.
    int LastModifiedTime;       ///< Time of the last change, a plain integer.
    char LastModifieduser[128]; ///< Who made the last change; the wire spells it so.
};

/**
 * @name Catalogue
 * @{
 */

/**
 * Writes the request for the view groups of a user.
 * @param host     Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token    Session token; null gives an empty Token element.
 * @param seqnum   Sequence number, written in signed decimal.
 * @param userGuid The user; null gives an empty UserGuid element.
 * @param out      Receives the message, without a terminating NUL; the caller owns it.
 * @param size     Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetViewGroupsReqEncode(const char* host, const char* token, unsigned int seqnum,
                                             const char* userGuid, char* out, int size);

/**
 * Writes the answer with the view groups.
 * @param result Result code, written in decimal; the list follows for 0 only.
 * @param seqnum Sequence number of the request, written in signed decimal.
 * @param infos  Array of count records; null sends Result alone.
 * @param count  Number of records; below 1 sends Result alone.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetViewGroupsRespEncode(int result, unsigned int seqnum,
                                              const __tagVtViewGroupInfo* infos, int count, char* out,
                                              int size);

/**
 * Writes a record as children of an element: ReadOnly, Name, ViewGroupType, LastModifiedTime,
 * LastModifieduser, ViewGroupGuid, UserGuid.
 * @param element The element to write to; the caller keeps it.
 * @param info    The record to write.
 * @return 0, or -1 if either argument is null (nothing is written then).
 */
VELTOPROTOCOL_API int GetViewGroupsParamEncode(TiXmlElement* element, const __tagVtViewGroupInfo* info);

/**
 * Reads a record from the children of a ViewGroupInfo element.
 *
 * A missing child, or one longer than its field, leaves the field zero and prints a line; it is no error.
 * @param element The ViewGroupInfo element.
 * @param error   Receives 0, or -1 if element is null; may be null.
 * @return The record by value, all zero for a null element; nothing to release.
 */
VELTOPROTOCOL_API __tagVtViewGroupInfo GetViewGroupInfoParamDecode(TiXmlElement* element, int* error);

/** @} */

} // namespace veltoprotocol

#endif
