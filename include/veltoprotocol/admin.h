/**
 * @file
 * Server administration and device inventory: the device and channel records, and the device lists.
 *
 * The rules that every function follows (caller buffer, text fields, errors, diagnostics, threads) stand
 * at the top of framing.h.
 */
#ifndef VELTOPROTOCOL_ADMIN_H
#define VELTOPROTOCOL_ADMIN_H

#include "veltoprotocol/export.h"

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

} // namespace veltoprotocol

#endif
