/**
 * @file
 * Server administration and device inventory: device lists, changes of the inventory, device discovery,
 * servers, users and their rights. What a channel records, and when, is in recording.h.
 *
 * The rules that every function follows (caller buffer, text fields, errors, diagnostics, threads) stand
 * at the top of framing.h.
 */
#ifndef VELTOPROTOCOL_ADMIN_H
#define VELTOPROTOCOL_ADMIN_H

#include "veltoprotocol/export.h"

class TiXmlDocument;
class TiXmlElement;

namespace veltoprotocol {

/**
 * One device (recorder or camera) of the inventory.
 *
 * Each field travels as the attribute of the same name. The codes in VenderType, DeviceType, DriverType
 * and State belong to the application: the library carries them as decimal integers.
 */
struct __tagVtDeviceParam {
    char Guid[48];        ///< The device's key in the inventory.
    char ServerGuid[48];  ///< The server that holds the device.
    int VenderType;       ///< Vendor code; the wire spells it so.
    int DeviceType;       ///< Kind of device.
    int DriverType;       ///< Driver or protocol by which the device is reached.
    char MAC[24];         ///< MAC address as text.
    char DisplayName[64]; ///< Name shown to users.
    char IPAddress[1024]; ///< Address or host text.
    int DevicePort;       ///< Command port.
    int HttpPort;         ///< HTTP port.
    int FtpPort;          ///< FTP port.
    char UserName[64];    ///< Account on the device; the login name of GetLoginReqEncode.
    char Password[64];    ///< Password of that account, written in clear; the login password.
    int State;            ///< Connection state.
    char Token[48];       ///< Session token.
    int ChannelCount;     ///< Number of channels of the device.
    int nIndex;           ///< Index of the device.
    int PlaybackPort;     ///< Port for playback.
    int res1;             ///< Reserved, carried unchanged.
    int res2;             ///< Reserved, carried unchanged.
};

/** One channel (video input) of one device. */
struct __tagVtChannelParam {
    char Guid[48];          ///< The channel's GUID.
    char DeviceGuid[48];    ///< The device that owns it; a list carries it beside the Channel element.
    char DisplayName[64];   ///< Name shown to users.
    int Num;                ///< Channel number on the device.
    int Type;               ///< Kind of channel.
    char GuidCopy[48];      ///< Filled by the decoder with the bytes of Guid; never written.
    int Hidden;             ///< Hidden flag, carried as an integer.
    int Disabled;           ///< Disabled flag, carried as an integer.
    bool Preview;           ///< Whether the channel is offered for live preview; "1" or "0" on the wire.
    char reserved[8];       ///< Never carried; zero after decoding.
    int LiveStreamIndex;    ///< Index of the stream used for live view.
    int LiveStreamSettings; ///< Live stream settings code.
    char reserved2[32];     ///< Never carried; zero after decoding.
};

/** Kind of a request that changes servers or schedules; sent as a number, which the library does not look at.
 */
enum __enumVtDeviceReqType : int {
    VtDeviceReqGet = 0,    ///< Read.
    VtDeviceReqAdd = 1,    ///< Add.
    VtDeviceReqUpdate = 2, ///< Change.
    VtDeviceReqDelete = 3  ///< Delete.
};

/** One management server of a site. Each field travels as the attribute of the same name. */
struct __tagVtServerInfo {
    char Guid[48];           ///< The server's GUID.
    char DisplayName[64];    ///< Name shown to users.
    char PrivateAddress[32]; ///< Address inside the site's network.
    int PrivatePort;         ///< Port inside the site's network.
    bool EnabledPublic;      ///< Whether it is published to the outside; "1" or "0" on the wire.
    char PublicAddress[32];  ///< Public address.
    int PublicPort;          ///< Public port.
    int MaxClient;           ///< Most clients that it admits.
};

/** The system-wide rights of a user. */
struct __tagVtUserRights {
    char reserved[48];     ///< Never carried; zero after decoding.
    bool sharedviews;      ///< Views shared among users.
    bool privateviews;     ///< Views of the user's own.
    bool viewlive;         ///< Live view.
    bool viewbrowse;       ///< Browsing recordings.
    bool viewsetup;        ///< Setting up views.
    bool managementaccess; ///< Access to the management.
};

/** One user. */
struct __tagVtUserInfo {
    char UserGuid[48];        ///< The user's GUID.
    char Id[48];              ///< The user's identifier.
    char AdsPath[48];         ///< The user's ADs path.
    char UserName[160];       ///< Name; readers take at most 80 bytes.
    int Authclass;            ///< How the user is authenticated, the application's code.
    char SId[48];             ///< The user's security identifier.
    char SamacCountName[48];  ///< Account name; the wire spells it so.
    __tagVtUserRights Rights; ///< What the user may do.
};

/** What a user may do on one channel. Each flag grants the right that its name says. */
struct __tagVtUserChannelRights {
    char Guid[48];          ///< GUID of this entry.
    char ChannelGuid[48];   ///< The channel.
    char UserGuid[48];      ///< The user.
    bool access;            ///< Any access.
    bool aviexport;         ///< Export as AVI.
    bool jpegexport;        ///< Export as JPEG.
    bool databaseexport;    ///< Export as database.
    bool videolive;         ///< Live video.
    bool videobrowse;       ///< Browsing video.
    bool ptz;               ///< PTZ control.
    bool managepresets;     ///< Managing PTZ presets.
    bool outputs;           ///< Outputs.
    bool presets;           ///< Using PTZ presets.
    bool events;            ///< Events.
    bool smartsearch;       ///< Smart search.
    bool sequences;         ///< Sequences.
    bool startrecording;    ///< Starting a recording.
    bool audiolive;         ///< Live audio.
    bool audiobrowse;       ///< Browsing audio.
    bool speakerlive;       ///< Speaker, live.
    bool speakerspeak;      ///< Speaker, speaking.
    bool subscriptionalarm; ///< Subscribing to alarms.
};

/**
 * A user with the rights on all channels, for the caller to put together: the library never fills it, and
 * frees its array by ReleaseUserInfoParam.
 */
struct __tagVtSystemRightsInfo {
    __tagVtUserInfo UserInfo;                ///< The user.
    __tagVtUserChannelRights* ChannelRights; ///< An array from new[], or null.
    int ChannelCounter;                      ///< Number of ChannelRights.
};

/** The network settings of a device that a search found. */
struct __tagVtDeviceNetParam {
    int VenderType;             ///< Vendor code; the wire spells it so.
    int DeviceType;             ///< Kind of device.
    char Mac[24];               ///< MAC address as text.
    char NetmaskAddr[16];       ///< Network mask.
    char GatewayAddr[16];       ///< Gateway.
    char DisplayName[64];       ///< Name shown to users.
    char DeviceAddress[1024];   ///< Address or host text.
    int DevicePort;             ///< Command port.
    int RtspPort;               ///< RTSP port.
    char ucDnsAddr1[16];        ///< First name server.
    char ucDnsAddr2[16];        ///< Second name server.
    int ChannelCount;           ///< Number of channels.
    char Dhcp;                  ///< Whether DHCP is on: 0 or 1; see GetDeviceNetParamEncode.
    int nIndex;                 ///< Index of the device.
    char BroadcastAddr[16];     ///< Broadcast address.
    int PlaybackPort;           ///< Port for playback.
    int res;                    ///< Reserved, carried unchanged.
    int ucPlatformType;         ///< The application's code.
    char ucDevType[32];         ///< Kind of device, as text.
    char ucSoftwareVersion[64]; ///< Software version.
    char ucFirmwareVersion[64]; ///< Firmware version; after decoding the bytes of ucDevType.
    char reserved[128];         ///< Never carried; zero after decoding.
};

/**
 * @name Inventory
 * @{
 */

/**
 * Writes the 20 fields of a device as attributes of an element, in field order.
 *
 * Text goes out up to its NUL or the field's width, the password in clear, integers in decimal.
 * @param element The element to write to; the caller keeps it.
 * @param device  The record to write.
 * @return 0, or -1 if either argument is null (nothing is written then).
 */
VELTOPROTOCOL_API int GetDeviceParamEncode(TiXmlElement* element, const __tagVtDeviceParam* device);

/**
 * Writes nine fields of a channel as attributes of an element: Guid, Type, DisplayName, Num, Hidden,
 * Disabled, Preview, LiveStreamIndex, LiveStreamSettings.
 *
 * DeviceGuid, GuidCopy and the reserved areas are not written.
 * @param element The element to write to; the caller keeps it.
 * @param channel The record to write.
 * @return 0, or -1 if either argument is null (nothing is written then).
 */
VELTOPROTOCOL_API int GetChannelParamEncode(TiXmlElement* element, const __tagVtChannelParam* channel);

/**
 * Reads a device from the attributes of a Device element.
 *
 * A missing attribute, or one longer than its field, leaves the field zero and prints a line; it is no error.
 * @param element The Device element.
 * @param error   Receives 0, or -1 if element is null; may be null.
 * @return The record by value, all zero for a null element; nothing to release.
 */
VELTOPROTOCOL_API __tagVtDeviceParam GetDeviceParamDecode(TiXmlElement* element, int* error);

/**
 * Reads a channel from the attributes of a Channel element and copies Guid into GuidCopy.
 *
 * DeviceGuid stays empty: it is the text of the DeviceGuid element beside Video, which the caller reads
 * with GetStringValue.
 * @param element The Channel element.
 * @param error   Receives 0, or -1 if element is null; may be null.
 * @return The record by value, all zero for a null element; nothing to release.
 */
VELTOPROTOCOL_API __tagVtChannelParam GetChannelParamDecode(TiXmlElement* element, int* error);

/**
 * Writes a device-list request under a command name of the caller's.
 *
 * A POST to "/servercommandservice" with "Connection: keep-alive", a Token and an empty request element.
 * @param host   Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token  Session token; null gives an empty Token element.
 * @param seqnum Sequence number, written in signed decimal.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @param name   Command name, the request's attribute name; null leaves the attribute out.
 * @return Bytes written, or -1 if out is null, size is below 1, host holds CR or LF, or the message does
 *         not fit; out is then untouched.
 */
VELTOPROTOCOL_API int GetDeviceListReqEncode(const char* host, const char* token, unsigned int seqnum,
                                             char* out, int size, const char* name);

/** GetDeviceListReqEncode for "GetAllDeviceList": every device on the server. */
VELTOPROTOCOL_API int GetAllDeviceListReqEncode(const char* host, const char* token, unsigned int seqnum,
                                                char* out, int size);

/** GetDeviceListReqEncode for "GetUserDeviceList": the devices that the logged-in user may see. */
VELTOPROTOCOL_API int GetUserDeviceListReqEncode(const char* host, const char* token, unsigned int seqnum,
                                                 char* out, int size);

/**
 * Writes a device-list response under a command name of the caller's.
 *
 * The lists follow only when result is 0 and there is at least one device; without devices no channel is
 * sent either. Each device stands in a Devices element of its own, each channel in a Channels element
 * beside its DeviceGuid. No decoder takes the whole list: walk the elements and call GetDeviceParamDecode
 * and GetChannelParamDecode on each.
 * @param result       Result code, written in decimal.
 * @param seqnum       Sequence number of the request, written in signed decimal.
 * @param devices      Array of deviceCount records, may be null.
 * @param deviceCount  Number of devices; below 1 sends Result alone.
 * @param channels     Array of channelCount records, may be null.
 * @param channelCount Number of channels; below 1 sends no channel.
 * @param out          Receives the message, without a terminating NUL; the caller owns it.
 * @param size         Bytes that out can take.
 * @param name         Command name, the response's attribute name; null leaves the attribute out.
 * @return Bytes written, or -1 if out is null, size is below 1, or the message does not fit; out is then
 *         untouched.
 */
VELTOPROTOCOL_API int GetDeviceListRespEncode(int result, unsigned int seqnum,
                                              const __tagVtDeviceParam* devices, int deviceCount,
                                              const __tagVtChannelParam* channels, int channelCount,
                                              char* out, int size, const char* name);

/** GetDeviceListRespEncode for "GetAllDeviceList". */
VELTOPROTOCOL_API int GetAllDeviceListRespEncode(int result, unsigned int seqnum,
                                                 const __tagVtDeviceParam* devices, int deviceCount,
                                                 const __tagVtChannelParam* channels, int channelCount,
                                                 char* out, int size);

/** GetDeviceListRespEncode for "GetUserDeviceList". */
VELTOPROTOCOL_API int GetUserDeviceListRespEncode(int result, unsigned int seqnum,
                                                  const __tagVtDeviceParam* devices, int deviceCount,
                                                  const __tagVtChannelParam* channels, int channelCount,
                                                  char* out, int size);

/** @} */

/**
 * @name Changing the inventory
 * Requests to "/servercommandservice/manage" without a Token. Their answers (GetAddDeviceRespEncode and its
 * kin) stand in framing.h. A request without a device or without a channel is refused, also for a deletion.
 * @{
 */

/**
 * Writes devices and channels in the shape of a device list, under a command name of the caller's. The
 * devices' passwords go out in clear.
 * @param devices      Array of deviceCount records; null gives -1.
 * @param deviceCount  Number of devices; below 1 gives -1.
 * @param channels     Array of channelCount records; null gives -1.
 * @param channelCount Number of channels; below 1 gives -1.
 * @param host         Value of the Host header; must not hold CR or LF; null is empty text.
 * @param seqnum       Sequence number, written in signed decimal.
 * @param out          Receives the message, without a terminating NUL; the caller owns it.
 * @param size         Bytes that out can take.
 * @param name         Command name; null leaves the attribute out.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetDeviceEncode(const __tagVtDeviceParam* devices, int deviceCount,
                                      const __tagVtChannelParam* channels, int channelCount, const char* host,
                                      unsigned int seqnum, char* out, int size, const char* name);

/** GetDeviceEncode for "AddDevice". */
VELTOPROTOCOL_API int GetAddDeviceReqEncode(const __tagVtDeviceParam* devices, int deviceCount,
                                            const __tagVtChannelParam* channels, int channelCount,
                                            const char* host, unsigned int seqnum, char* out, int size);

/** GetDeviceEncode for "UpdateDevice". */
VELTOPROTOCOL_API int GetUpdateDeviceReqEncode(const __tagVtDeviceParam* devices, int deviceCount,
                                               const __tagVtChannelParam* channels, int channelCount,
                                               const char* host, unsigned int seqnum, char* out, int size);

/** Writes the request "DeleteDevice": as GetDeviceEncode, but of each device its Guid alone, and of each
 * channel DeviceGuid and Guid. */
VELTOPROTOCOL_API int GetDeleteDeviceReqEncode(const __tagVtDeviceParam* devices, int deviceCount,
                                               const __tagVtChannelParam* channels, int channelCount,
                                               const char* host, unsigned int seqnum, char* out, int size);

/** @} */

/**
 * @name Device discovery
 * Requests to "/servercommandservice/manage" without a Token.
 * @{
 */

/**
 * Writes the request to search the network for devices. The password of the template goes out in clear.
 * @param device   What to look for; null gives -1.
 * @param multiNet Switch for a search in several networks, written in decimal.
 * @param host     Value of the Host header; must not hold CR or LF; null is empty text.
 * @param seqnum   Sequence number, written in signed decimal; GetStopSearchDeviceReqEncode names it.
 * @param out      Receives the message, without a terminating NUL; the caller owns it.
 * @param size     Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetStartSearchDeviceReqEncode(const __tagVtDeviceParam* device, int multiNet,
                                                    const char* host, unsigned int seqnum, char* out,
                                                    int size);

/**
 * Writes the answer to a search. HasDevice is sent whatever the result.
 * @param result    Result code, written in decimal; it does not decide about the rest.
 * @param seqnum    Sequence number of the request, written in signed decimal.
 * @param net       The device that was found; null leaves it out.
 * @param hasDevice Whether one was found; without it net is not sent.
 * @param out       Receives the message, without a terminating NUL; the caller owns it.
 * @param size      Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetStartSearchDeviceRespEncode(int result, unsigned int seqnum,
                                                     const __tagVtDeviceNetParam* net, bool hasDevice,
                                                     char* out, int size);

/**
 * Writes the request to end a search.
 * @param searchSeqnum Sequence number of the request that began it, written in signed decimal.
 * @param host         Value of the Host header; must not hold CR or LF; null is empty text.
 * @param seqnum       Sequence number of this request, written in signed decimal.
 * @param out          Receives the message, without a terminating NUL; the caller owns it.
 * @param size         Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetStopSearchDeviceReqEncode(unsigned int searchSeqnum, const char* host,
                                                   unsigned int seqnum, char* out, int size);

/**
 * Writes network settings as attributes of an element, in field order.
 *
 * Dhcp goes out as a text of as many characters of code 1 as it says ("&#x01;" for 1), 0 and below as an
 * empty text. A reader takes one character: 2 and above come back as 0.
 * @param element The element to write to; the caller keeps it.
 * @param net     The record to write.
 * @return 0, or -1 if either argument is null (nothing is written then).
 */
VELTOPROTOCOL_API int GetDeviceNetParamEncode(TiXmlElement* element, const __tagVtDeviceNetParam* net);

/**
 * Reads network settings from the attributes of a DeviceNet element.
 *
 * A missing attribute, or one longer than its field, leaves the field zero and prints a line; it is no error.
 * The attribute ucFirmwareVersion is not read: its field receives ucDevType as well.
 * @param deviceNet The DeviceNet element.
 * @param error     Receives 0, or -1 if deviceNet is null; may be null.
 * @return The record by value, all zero for a null element; nothing to release.
 */
VELTOPROTOCOL_API __tagVtDeviceNetParam GetDeviceNetParamDecode(TiXmlElement* deviceNet, int* error);

/** @} */

/**
 * @name Servers
 * @{
 */

/**
 * Writes the request for the servers of a site.
 * @param host   Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token  Session token; null gives an empty Token element.
 * @param seqnum Sequence number, written in signed decimal.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetServerInfoReqEncode(const char* host, const char* token, unsigned int seqnum,
                                             char* out, int size);

/**
 * Writes the answer with the servers; it holds no counter.
 * @param result  Result code, written in decimal; the list follows for 0 only.
 * @param seqnum  Sequence number of the request, written in signed decimal.
 * @param servers Array of count records; null sends Result alone.
 * @param count   Number of servers; below 1 sends Result alone.
 * @param out     Receives the message, without a terminating NUL; the caller owns it.
 * @param size    Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetServerInfoRespEncode(int result, unsigned int seqnum,
                                              const __tagVtServerInfo* servers, int count, char* out,
                                              int size);

/**
 * Writes the request to change servers: to "/servercommandservice/manage", and with a Token.
 * @param reqType What to do with them, written in decimal.
 * @param servers Array of count records; null sends a request without content.
 * @param count   Number of servers; below 1 sends a request without content.
 * @param host    Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token   Session token; null gives an empty Token element.
 * @param seqnum  Sequence number, written in signed decimal.
 * @param out     Receives the message, without a terminating NUL; the caller owns it.
 * @param size    Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetSetServerInfoReqEncode(__enumVtDeviceReqType reqType,
                                                const __tagVtServerInfo* servers, int count, const char* host,
                                                const char* token, unsigned int seqnum, char* out, int size);

/** Writes the answer to a change of servers: a Result alone, under the name "GetServerInfo". Arguments and
 * result as in GetRespEncode. */
VELTOPROTOCOL_API int GetSetServerInfoRespEncode(int result, unsigned int seqnum, char* out, int size);

/**
 * Writes a server as attributes of an element, in field order.
 * @param element The element to write to; the caller keeps it.
 * @param server  The record to write.
 * @return 0, or -1 if either argument is null (nothing is written then).
 */
VELTOPROTOCOL_API int GetServerParamEncode(TiXmlElement* element, const __tagVtServerInfo* server);

/**
 * Reads a server from the attributes of a server element.
 *
 * A missing attribute, or one longer than its field, leaves the field zero and prints a line; it is no error.
 * @param server The server element.
 * @param error  Receives 0, or -1 if server is null; may be null.
 * @return The record by value, all zero for a null element; nothing to release.
 */
VELTOPROTOCOL_API __tagVtServerInfo GetServerParamDecode(TiXmlElement* server, int* error);

/** @} */

/**
 * @name Users and rights
 * @{
 */

/** Writes the request for the logged-in user; as GetServerInfoReqEncode. */
VELTOPROTOCOL_API int GetUserInfoReqEncode(const char* host, const char* token, unsigned int seqnum,
                                           char* out, int size);

/**
 * Writes the answer with a user and the user's rights. Authclass comes after SamacCountName.
 * @param result Result code, written in decimal; the user follows for 0 only.
 * @param seqnum Sequence number of the request, written in signed decimal.
 * @param info   The user; null sends Result alone.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetUserInfoRespEncode(int result, unsigned int seqnum, const __tagVtUserInfo* info,
                                            char* out, int size);

/**
 * Writes the request for a user's rights on the channels.
 * @param host     Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token    Session token; null gives an empty Token element.
 * @param seqnum   Sequence number, written in signed decimal.
 * @param userGuid The user; null gives an empty UserGuid element.
 * @param out      Receives the message, without a terminating NUL; the caller owns it.
 * @param size     Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetChannelRightsInfoReqEncode(const char* host, const char* token, unsigned int seqnum,
                                                    const char* userGuid, char* out, int size);

/**
 * Writes the answer with a user's rights: all entries in one Channels element.
 * @param result Result code, written in decimal; the list follows for 0 only.
 * @param seqnum Sequence number of the request, written in signed decimal.
 * @param rights Array of count records; null sends Result alone.
 * @param count  Number of entries; below 1 sends Result alone.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetChannelRightsInfoRespEncode(int result, unsigned int seqnum,
                                                     const __tagVtUserChannelRights* rights, int count,
                                                     char* out, int size);

/**
 * Reads the user of an answer.
 *
 * A missing child, or one longer than its reader takes, leaves the field zero and prints a line; it is no
 * error, and neither are a missing UserInfo or UserRights (a line each).
 * @param doc   A parsed message; null gives error -1 and a zero record.
 * @param error Receives 0, or -1 if the root, the response or its Result is missing (a line is printed); may
 *              be null.
 * @return The record by value; nothing to release.
 */
VELTOPROTOCOL_API __tagVtUserInfo GetUserInfoParamDecode(TiXmlDocument* doc, int* error);

/**
 * Reads rights from the attributes of a UserRights element.
 * @param userRights The UserRights element.
 * @param error      Receives 0, or -1 if userRights is null; may be null.
 * @return The record by value; missing attributes (a line each) are false; nothing to release.
 */
VELTOPROTOCOL_API __tagVtUserRights GetUserRightsParamDecode(TiXmlElement* userRights, int* error);

/**
 * Reads an entry of a user's rights on the channels.
 * @param channel A Channel element of the list; without a child ChannelRights all flags are false, which is
 *                no error and prints nothing.
 * @param error   Receives 0, or -1 if channel is null; may be null.
 * @return The record by value; missing values (a line each) are zero; nothing to release.
 */
VELTOPROTOCOL_API __tagVtUserChannelRights GetChannelRightsInfoParamDecode(TiXmlElement* channel, int* error);

/** Frees the array ChannelRights, if there is one, by delete[], and makes it null and its count 0; the user
 * stays. Null is ignored. */
VELTOPROTOCOL_API void ReleaseUserInfoParam(__tagVtSystemRightsInfo* info);

/** @} */

} // namespace veltoprotocol

#endif
