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

class TiXmlDocument;
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

/** One step of a carousel. On the wire its names are capitalised, those of the other levels are not. */
struct __tagVtCarouselItem {
    char id[48];          ///< Identity of the step.
    char ownerid[48];     ///< The item info's id; never written, filled by the decoders.
    char ChannelGuid[48]; ///< The channel to show.
    int ShowTime;         ///< How long, in the application's unit.
    int Index;            ///< Place in the cycle.
    char DisplayName[64]; ///< Name shown to users.
    int VideoStreamType;  ///< Which stream, the application's code.
};

/** What a pane shows. */
struct __tagVtViewItemInfo {
    char id[48];                    ///< Identity of the info.
    char ownerid[48];               ///< The view item's id; never written, filled by the decoders.
    char cameraid[48];              ///< The camera to show.
    char url[1024];                 ///< An address, for items that show one.
    char displayname[64];           ///< Name shown to users.
    __tagVtCarouselItem* carousels; ///< Carried only where the item's type is 5.
    int carouselcount;              ///< Number of carousels.
    int VideoStreamType;            ///< Which stream, the application's code.
};

/** One pane of a view. */
struct __tagVtViewItem {
    char id[48];                  ///< Identity of the pane.
    char ownerid[48];             ///< The view's id; never written, filled by the decoders.
    char displayname[64];         ///< Name shown to users.
    int itemnumber;               ///< Position of the pane.
    int type;                     ///< 5 for a carousel; others are the application's codes.
    __tagVtViewItemInfo iteminfo; ///< What the pane shows.
};

/** One view: a screen layout. */
struct __tagVtViewInfo {
    char id[48];            ///< Identity of the view.
    char ownerid[48];       ///< The group's id; never written, filled by the decoders.
    char displayname[64];   ///< Name shown to users.
    int viewlayouttype;     ///< The application's code.
    int viewscaletype;      ///< The application's code.
    __tagVtViewItem* items; ///< The panes.
    int itemcount;          ///< Number of items.
    int showtime;           ///< A time, in the application's unit.
    int enablecarousel;     ///< The application's code.
};

/** One group of views. */
struct __tagVtGroupItem {
    char id[48];            ///< Identity of the group.
    char ownerid[48];       ///< Never carried and never filled.
    char displayname[64];   ///< Name shown to users.
    char parentguid[48];    ///< The group above this one.
    __tagVtViewInfo* views; ///< The views.
    int viewcount;          ///< Number of views.
};

/** A whole layout: groups hold views, views hold items, an item may hold a carousel. */
struct __tagVtViewGroupData {
    __tagVtGroupItem* groups; ///< The groups.
    int groupcount;           ///< Number of groups.
};

/** What a server gets to store: head and layout. */
struct __tagVtViewGroup {
    __tagVtViewGroupInfo info; ///< The catalogue entry.
    __tagVtViewGroupData data; ///< The layout.
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

/**
 * @name Layouts
 * The answer to a request to store (GetSetViewGroupDataRespEncode) stands in framing.h.
 *
 * Writers take each array up to its count and stop where an array is null; the counters are written from the
 * count fields.
 *
 * Decoders allocate an array from each counter above 0 and fill it as far as there are entries: the counts
 * stay what the message says, slots without an entry are all zero, and a wrapper without its inner element
 * ends its level. The ownerid of an entry is the id of its parent.
 * @{
 */

/**
 * Writes the request for a layout.
 * @param host          Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token         Session token; null gives an empty Token element.
 * @param seqnum        Sequence number, written in signed decimal.
 * @param viewGroupGuid The view group; null gives an empty ViewGroupGuid element.
 * @param out           Receives the message, without a terminating NUL; the caller owns it.
 * @param size          Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetViewGroupDataReqEncode(const char* host, const char* token, unsigned int seqnum,
                                                const char* viewGroupGuid, char* out, int size);

/**
 * Writes the answer with a layout. The counters of views and items are always written.
 * @param result Result code, written in decimal; the layout follows for 0 only.
 * @param seqnum Sequence number of the request, written in signed decimal.
 * @param info   The catalogue entry; null sends Result alone.
 * @param data   The layout; null, null groups or a groupcount below 1 leave it out.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetViewGroupDataRespEncode(int result, unsigned int seqnum,
                                                 const __tagVtViewGroupInfo* info,
                                                 const __tagVtViewGroupData* data, char* out, int size);

/**
 * Writes the request to store a layout. A counter of views or items is written only where there are some.
 * @param host   Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token  Session token; null gives an empty Token element.
 * @param seqnum Sequence number, written in signed decimal.
 * @param info   The catalogue entry; null gives -1.
 * @param data   The layout; null, null groups or a groupcount below 1 leave it out.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetSetViewGroupDataReqEncode(const char* host, const char* token, unsigned int seqnum,
                                                   const __tagVtViewGroupInfo* info,
                                                   const __tagVtViewGroupData* data, char* out, int size);

/**
 * Writes a view as attributes: id, displayname, viewlayouttype, viewscaletype, showtime, enablecarousel.
 * Its items are not written.
 * @param element The element to write to; the caller keeps it.
 * @param view    The record to write.
 * @return 0, or -1 if either argument is null (nothing is written then).
 */
VELTOPROTOCOL_API int GetViewInfoEncode(TiXmlElement* element, const __tagVtViewInfo* view);

/** Writes an item as attributes: id, displayname, type, itemnumber; otherwise as GetViewInfoEncode. */
VELTOPROTOCOL_API int GetViewItemEncode(TiXmlElement* element, const __tagVtViewItem* item);

/** Writes an item's info as attributes: id, cameraid, displayname, url, VideoStreamType; otherwise as
 * GetViewInfoEncode. */
VELTOPROTOCOL_API int GetViewItemInfoEncode(TiXmlElement* element, const __tagVtViewItemInfo* info);

/** Writes a step of a carousel as attributes: id, ChannelGuid, ShowTime, Index, DisplayName,
 * VideoStreamType; otherwise as GetViewInfoEncode. */
VELTOPROTOCOL_API int GetCarouselEncode(TiXmlElement* element, const __tagVtCarouselItem* carousel);

/**
 * Reads the layout of an answer. The head (ViewGroupInfo) is read by GetViewGroupInfoParamDecode, the value
 * of Result by GetResponseErrorcodeDecode: a refusal is an empty layout here, with a line and error 0.
 * @param doc   A parsed message; null gives error -1 and an empty layout.
 * @param error Receives -1 if the root, the response or its Result is missing (a line is printed). Otherwise
 *              it tells of the last View, Viewitem, Iteminfo or Carousel that was looked for: 0 if it was
 *              there, -1 if not. A missing layout prints a line and is no error. May be null.
 * @return The layout by value; hand it to ReleaseViewGroupDataParam.
 * @throws std::bad_alloc if the counters ask for more than 1 GiB in all, or memory is exhausted; nothing
 * leaks.
 */
VELTOPROTOCOL_API __tagVtViewGroupData GetViewGroupDataParamDecode(TiXmlDocument* doc, int* error);

/**
 * Reads the head and the layout of a request to store.
 * @param doc   A parsed message; null gives error -1 and an empty record.
 * @param error Receives -1 if the root, the request or its ViewGroupInfo is missing (a line is printed).
 *              Otherwise as in GetViewGroupDataParamDecode.
 * @return The record by value; hand it to ReleaseSetViewGroupData.
 * @throws std::bad_alloc as GetViewGroupDataParamDecode.
 */
VELTOPROTOCOL_API __tagVtViewGroup GetSetViewGroupData(TiXmlDocument* doc, int* error);

/**
 * Reads a view from the attributes of a View element, without its items.
 * @param view  The View element.
 * @param error Receives 0, or -1 if view is null; may be null.
 * @return The record by value; missing attributes (a line each) are zero; nothing to release.
 */
VELTOPROTOCOL_API __tagVtViewInfo GetViewInfoDecode(TiXmlElement* view, int* error);

/** Reads an item from the attributes of a Viewitem element, without its iteminfo; otherwise as
 * GetViewInfoDecode. */
VELTOPROTOCOL_API __tagVtViewItem GetViewItemDecode(TiXmlElement* viewitem, int* error);

/** Reads an item's info from the attributes of an Iteminfo element, without carousels; otherwise as
 * GetViewInfoDecode. */
VELTOPROTOCOL_API __tagVtViewItemInfo GetViewItemInfoDecode(TiXmlElement* iteminfo, int* error);

/** Reads a step of a carousel from the attributes of a Carousel element; otherwise as GetViewInfoDecode. */
VELTOPROTOCOL_API __tagVtCarouselItem GetCarouselDecode(TiXmlElement* carousel, int* error);

/**
 * Reads an item on its own: id, displayname and type from a child Viewitem, cameraid and displayname of its
 * info from a child Iteminfo beside it. The layouts that this library writes nest the two.
 * @param element The element that holds both.
 * @param error   Receives 0, or -1 if element is null; a missing child prints a line and is no error. May be
 *                null.
 * @return The record by value; nothing to release.
 */
VELTOPROTOCOL_API __tagVtViewItem GetViewItemParamDecode(TiXmlElement* element, int* error);

/** Frees all arrays of a decoded layout; its pointers are then null and its counts 0. Null is ignored, and so
 * is a layout without groups. */
VELTOPROTOCOL_API void ReleaseViewGroupDataParam(__tagVtViewGroupData* data);

/** Frees the layout of a decoded record; the record is the caller's. Null is ignored. */
VELTOPROTOCOL_API void ReleaseSetViewGroupData(__tagVtViewGroup* group);

/** @} */

} // namespace veltoprotocol

#endif
