/**
 * @file
 * Electronic maps: floor plans and geographic maps, and the items placed on them.
 *
 * The rules that every function follows (caller buffer, text fields, errors, diagnostics, threads) stand
 * at the top of framing.h.
 */
#ifndef VELTOPROTOCOL_EMAP_H
#define VELTOPROTOCOL_EMAP_H

#include "veltoprotocol/export.h"

class TiXmlDocument;
class TiXmlElement;

namespace veltoprotocol {

/** One map: a floor plan or a geographic map. */
struct __tagVtEMapInfo {
    char MapInfoGuid[48];          ///< The map's GUID.
    char reserved[48];             ///< Never carried.
    char ParentMapGuid[48];        ///< The map that contains this one.
    int MapType;                   ///< The application's code.
    char GisCenterCityName[512];   ///< City at the centre of a geographic map.
    char GisPosX[32];              ///< Position as text, carried unchanged.
    char GisPosY[32];              ///< Position as text, carried unchanged.
    int GisZoom;                   ///< Zoom of a geographic map.
    char CustomizeImagePath[1032]; ///< Where the map's picture is; readers take at most 1024 bytes.
    int CustomizeImageSize;        ///< Size of the picture.
    int CustomizeImageType;        ///< The application's code.
    char MapName[128];             ///< Name shown to users.
    int Status;                    ///< The application's code.
    int reserved2;                 ///< Never carried.
    unsigned int LastTime;         ///< A time, in the application's unit.
    int reserved3;                 ///< Never carried.
};

/** One item placed on a map. */
struct __tagVtEMapItemParam {
    char MapItemGuid[48];     ///< The item's GUID.
    char MapInfoGuid[48];     ///< The map it stands on.
    char ItemContentGuid[48]; ///< What it stands for.
    int ItemType;             ///< The application's code.
    char DisplayName[128];    ///< Name shown to users.
    char Discription[1024];   ///< Description; the wire spells it so.
    char PosX[32];            ///< Position as text, carried unchanged.
    char PosY[32];            ///< Position as text, carried unchanged.
    int Status;               ///< The application's code.
};

/** The maps and items of a user. */
struct __tagVtUserEMapInfo {
    char reserved[48];               ///< Never carried.
    char UserGuid[48];               ///< The user.
    int EMapInfoCount;               ///< Number of EMapInfos.
    __tagVtEMapInfo* EMapInfos;      ///< The maps.
    int EMapItemCount;               ///< Number of EMapItems.
    __tagVtEMapItemParam* EMapItems; ///< The items on all maps.
};

/**
 * Writes the request for a user's maps.
 * @param host   Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token  Session token; null gives an empty Token element.
 * @param seqnum Sequence number, written in signed decimal.
 * @param user   Only UserGuid is sent; null gives -1.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetEMapInfoReqEncode(const char* host, const char* token, unsigned int seqnum,
                                           const __tagVtUserEMapInfo* user, char* out, int size);

/**
 * Writes the answer with a user's maps and items; it does not name the user.
 * @param result Result code, written in decimal; the lists follow for 0 only.
 * @param seqnum Sequence number of the request, written in signed decimal.
 * @param user   The maps and items; null sends Result alone. A count below 1 leaves its list out.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetEMapInfoRespEncode(int result, unsigned int seqnum, const __tagVtUserEMapInfo* user,
                                            char* out, int size);

/**
 * Writes the request to store a user's maps and items. Here the record comes before the host.
 * @param user   User, maps and items; null sends a request without content. A count below 1 leaves its list
 *               out.
 * @param host   Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token  Session token; null gives an empty Token element.
 * @param seqnum Sequence number, written in signed decimal.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetSetEMapInfoReqEncode(const __tagVtUserEMapInfo* user, const char* host,
                                              const char* token, unsigned int seqnum, char* out, int size);

/** Writes the answer to a request to store maps: a Result alone. Arguments and result as in GetRespEncode. */
VELTOPROTOCOL_API int GetSetEMapInfoRespEncode(int result, unsigned int seqnum, char* out, int size);

/**
 * Writes a map as children of an element: MapInfoGuid, ParentMapGuid, MapType, GisCenterCityName, GisPosX,
 * GisPosY, GisZoom, CustomizeImagePath, CustomizeImageSize, CustomizeImageType, MapName, Status, LastTime.
 * @param parent The element to write to; the caller keeps it.
 * @param map    The record to write.
 * @return 0, or -1 if either argument is null (nothing is written then).
 */
VELTOPROTOCOL_API int GetEMapInfoEncode(TiXmlElement* parent, const __tagVtEMapInfo* map);

/** Writes an item as children of an element: MapItemGuid, MapInfoGuid, ItemContentGuid, ItemType,
 * DisplayName, Discription, PosX, PosY, Status; otherwise as GetEMapInfoEncode. */
VELTOPROTOCOL_API int GetEMapItemParamEncode(TiXmlElement* parent, const __tagVtEMapItemParam* item);

/**
 * Reads a map from the children of an EMapInfo element.
 *
 * A missing child, or one longer than its field, leaves the field zero and prints a line; it is no error.
 * @param emapInfo The EMapInfo element.
 * @param error    Receives 0, or -1 if emapInfo is null; may be null.
 * @return The record by value, all zero for a null element; nothing to release.
 */
VELTOPROTOCOL_API __tagVtEMapInfo GetEMapInfoDecode(TiXmlElement* emapInfo, int* error);

/** Reads an item from the children of an EMapItem element; otherwise as GetEMapInfoDecode. */
VELTOPROTOCOL_API __tagVtEMapItemParam GetEMapItemParamDecode(TiXmlElement* emapItem, int* error);

/**
 * Reads a request to store maps.
 * @param doc   A parsed message; null gives error -1 and null.
 * @param error Receives 0, or -1 for a null doc; may be null.
 * @return A record for EMapInfoDecodeRelease, or null if the root or the request is missing (nothing is
 *         printed, error stays 0). The counts stay what the message says: entries that were missing are all
 *         zero.
 * @throws std::bad_alloc if the counts ask for more than 1 GiB in all, or memory is exhausted; nothing leaks.
 */
VELTOPROTOCOL_API __tagVtUserEMapInfo* GetSetEMapInfoReqDecode(TiXmlDocument* doc, int* error);

/**
 * Reads the maps and items of an answer, but neither UserGuid nor Result (GetResponseErrorcodeDecode).
 * @param doc   A parsed message; null gives error -1 and null.
 * @param error Receives 0, or -1 for a null doc; may be null.
 * @return A record for EMapInfoDecodeRelease, or null if the root or the response is missing; otherwise as
 *         GetSetEMapInfoReqDecode.
 * @throws std::bad_alloc as GetSetEMapInfoReqDecode.
 */
VELTOPROTOCOL_API __tagVtUserEMapInfo* GetEMapInfoRespDecode(TiXmlDocument* doc, int* error);

/** Frees a decoded record with its maps and items; null is ignored. */
VELTOPROTOCOL_API void EMapInfoDecodeRelease(__tagVtUserEMapInfo* user);

} // namespace veltoprotocol

#endif
