/**
 * @file
 * Live media, recordings and pictures: live streams and video framing, PTZ, two-way talk, raw data, record
 * search, playback and download, picture download and upload.
 *
 * The rules that every function follows (caller buffer, text fields, errors, diagnostics, threads) stand
 * at the top of framing.h. Requests go to "/servercommandservice" with "Connection: keep-alive"; a null
 * token or GUID is an empty element.
 */
#ifndef VELTOPROTOCOL_MEDIA_H
#define VELTOPROTOCOL_MEDIA_H

#include "veltoprotocol/export.h"

#include <cstdint>
#include <string>

class TiXmlDocument;
class TiXmlElement;

namespace veltoprotocol {

struct __tagVtEMapInfo;

/**
 * What precedes the bytes of each video frame on the wire: 32 bytes, copied as they lie in memory
 * (little-endian on the machines that speak this protocol).
 *
 * The library never looks into it. The fields are for the producer and the consumer of the media; a pair
 * that has agreed on another layout may use the 32 bytes as it likes.
 */
struct __tagVtStreamHeader {
    std::uint16_t Codec;         ///< 1 for H.264, 2 for H.265; others by agreement.
    std::uint16_t FrameType;     ///< 1 for a frame that can be decoded alone (IDR), 0 for the others.
    std::uint32_t Sequence;      ///< Number of the frame in its stream, wrapping.
    std::uint64_t Timestamp;     ///< Capture time in microseconds since 1970-01-01 UTC.
    std::uint16_t Width;         ///< Picture width in pixels.
    std::uint16_t Height;        ///< Picture height in pixels.
    std::uint32_t PayloadLength; ///< Bytes of video that follow.
    char reserved[8];            ///< Zero.
};
static_assert(sizeof(__tagVtStreamHeader) == 32, "the stream header is 32 bytes on the wire");

/** One pan-tilt-zoom action; the numbers are the application's. */
struct __tagVtPtzParam {
    int Control; ///< Which control.
    int Command; ///< Which command.
    int Speed;   ///< At what speed.
};

/** Audio format of a talk. */
struct __tagVtAudioParam {
    int AudioType;               ///< Kind of audio, the application's code.
    int BitRate;                 ///< Bit rate.
    int SampleRate;              ///< Sample rate.
    std::uint16_t BitsPerSample; ///< Bits per sample; a received value is cut to its low 16 bits.
    std::uint16_t Channels;      ///< Audio channels; a received value is cut to its low 16 bits.
    char reserved[8];            ///< Never sent; zero after decoding.
};

/** A raw payload to send. */
struct __tagVtDataParam {
    const char* Data; ///< The payload; the caller owns it. May be null when DataLength is 0.
    int DataLength;   ///< Its length in bytes.
};

/** What a record search looks for. */
struct __tagVtSearchRecordParam {
    int StartTime;     ///< Start of the span, a 32-bit time value.
    int EndTime;       ///< End of the span.
    int SearchMode;    ///< The application's code.
    int RecordType;    ///< The application's code.
    int RecordMode;    ///< The application's code.
    char reserved[32]; ///< Never sent; zero after decoding.
};

/** One recording and its picture. */
struct __tagVtRecordElementParam {
    char ChannelGuid[48];  ///< The channel that was recorded.
    char guid[48];         ///< The record's GUID.
    int RecordType;        ///< The application's code.
    int RecordMode;        ///< The application's code.
    int StartTime;         ///< Start of the recording, a 32-bit time value.
    int EndTime;           ///< End of the recording.
    int RecordSize;        ///< Size of the recording.
    char RecordName[260];  ///< Name; readers take at most 256 bytes.
    char PictureGuid[48];  ///< The picture's GUID, attribute "guid" of PictureInfo and PictureParam.
    char PictureUrl[1032]; ///< Where the picture is; readers take at most 1024 bytes.
    int PictureSize;       ///< Size of the picture.
    int reserved;          ///< Never carried.
    int Index;             ///< Place in a list.
    int reserved2;         ///< Never carried.
};

/** The result of a record search. */
struct __tagVtRecordParam {
    char ChannelGuid[48];               ///< The channel that was searched.
    int ResultMode;                     ///< With 1, the text of each element is a record name.
    unsigned int Counter;               ///< Number of elements.
    __tagVtRecordElementParam* Records; ///< The elements; after a decode freed by ReleaseRecordParam.
};

/** A playback or download request. */
struct __tagVtPlayBackParam {
    char PlaybackGuid[48];              ///< The session's GUID, chosen by the client.
    int PlaybackMode;                   ///< The application's code.
    int RecordType;                     ///< The application's code.
    char Speed[8];                      ///< A short text, carried as it stands.
    int StartTime;                      ///< Start of the span, a 32-bit time value.
    int EndTime;                        ///< End of the span.
    unsigned int RecordCounter;         ///< Number of Records.
    __tagVtRecordElementParam* Records; ///< The recordings; after a decode freed by ReleasePlaybackParam.
};

/** A playback control. */
struct __tagVtPlayBackCtrl {
    char PlaybackGuid[48]; ///< The session.
    int Command;           ///< The application's code.
    char Speed[8];         ///< A short text, carried as it stands.
    char SessionGuid[48];  ///< Filled by the decoder with the bytes of PlaybackGuid; never written.
    int reserved;          ///< Never carried; zero after decoding.
    unsigned int Position; ///< Written in signed decimal, read back unsigned.
};

/**
 * @name Live streams
 * @{
 */

/**
 * Writes the request to start a live stream; prints its XML.
 * @param token       Session token.
 * @param channelGuid The channel.
 * @param streamType  Which stream, written in decimal.
 * @param host        Value of the Host header; must not hold CR or LF; null is empty text.
 * @param seqnum      Sequence number, written in signed decimal.
 * @param out         Receives the message, without a terminating NUL; the caller owns it.
 * @param size        Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h. The line is printed also when the message does not
 * fit.
 * @throws std::bad_alloc if there is no memory for a line of some length; nothing is written or printed then.
 */
VELTOPROTOCOL_API int GetRealPlayStartReqEncode(const char* token, const char* channelGuid, int streamType,
                                                const char* host, unsigned int seqnum, char* out, int size);

/** Writes the answer to a start request: a Result alone. Arguments and result as in GetRespEncode. */
VELTOPROTOCOL_API int GetRealPlayStartRespEncode(int result, unsigned int seqnum, char* out, int size);

/**
 * Writes one video frame: head ("video/h264"), the 32 header bytes, the frame's bytes.
 * @param header Copied as it lies in memory.
 * @param data   The frame; the caller owns it. May be null when len is 0.
 * @param len    Its length in bytes.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 if out is null, len is negative, data is null with a positive len, or the
 *         message does not fit; out is then untouched.
 */
VELTOPROTOCOL_API int GetVideoDataEncode(const __tagVtStreamHeader& header, const char* data, int len,
                                         char* out, int size);

/** The same as GetTokenDecode. */
VELTOPROTOCOL_API std::string GetRealPlayStartReqTokenDecode(TiXmlDocument* doc, int* error);

/**
 * Reads the DeviceGuid of a request. GetRealPlayStartReqEncode writes none.
 * @param doc   A parsed message; null gives error -1 and empty text.
 * @param error Receives 0, or -1 if the root, the request or the element is missing (a line is printed).
 * @return The text, or empty text.
 */
VELTOPROTOCOL_API std::string GetRealPlayStartReqDeviceGuidDecode(TiXmlDocument* doc, int* error);

/** Reads the ChannelGuid of any request that has one; otherwise as GetRealPlayStartReqDeviceGuidDecode. */
VELTOPROTOCOL_API std::string GetRealPlayStartReqChannelGuidDecode(TiXmlDocument* doc, int* error);

/** Reads the StreamType of a start request; 0 if it is missing, -1 (and error 0) if it is empty. */
VELTOPROTOCOL_API int GetRealPlayStartReqStreamTypeDecode(TiXmlDocument* doc, int* error);

/** Reads the PlaybackGuid of a playback request; otherwise as GetRealPlayStartReqDeviceGuidDecode. */
VELTOPROTOCOL_API std::string GetPlayBackReqPlayGuidDecode(TiXmlDocument* doc, int* error);

/**
 * Reads the answer to a start request.
 * @param doc    A parsed message; null gives error -1 and result -1.
 * @param result Receives the result code, -1 if it is missing; may be null.
 * @param error  Receives -1 if the root or Result is missing, else 0: a missing response is told by result
 * alone.
 * @return Always empty text.
 */
VELTOPROTOCOL_API std::string GetRealPlayStartRespDecode(TiXmlDocument* doc, int* result, int* error);

/** @} */

/**
 * @name PTZ
 * @{
 */

/**
 * Writes a PTZ request; prints its XML.
 * @param ptz The action; null gives -1. All else as in GetRealPlayStartReqEncode.
 */
VELTOPROTOCOL_API int GetPtzReqEncode(const char* token, const char* channelGuid, const __tagVtPtzParam* ptz,
                                      const char* host, unsigned int seqnum, char* out, int size);

/** Writes the answer to a PTZ request: a Result alone; prints its XML. Otherwise as GetRespEncode. */
VELTOPROTOCOL_API int GetPtzRespEncode(int result, unsigned int seqnum, char* out, int size);

/**
 * Reads a PTZ action from the attributes of a Ptz element.
 * @param ptzElement The child Ptz of the request.
 * @param error      Receives 0, or -1 if ptzElement is null; may be null.
 * @return The record by value; missing attributes (a line each) are 0.
 */
VELTOPROTOCOL_API __tagVtPtzParam GetPtzReqDecode(TiXmlElement* ptzElement, int* error);

/** @} */

/**
 * @name Talk and raw data
 * @{
 */

/**
 * Writes the request to start a talk; prints its XML.
 * @param audio Format of the audio to come; null gives -1. The rest as in GetRealPlayStartReqEncode.
 */
VELTOPROTOCOL_API int GetStartTalkReqEncode(const char* token, const char* channelGuid,
                                            const __tagVtAudioParam* audio, const char* host,
                                            unsigned int seqnum, char* out, int size);

/** Writes the answer to a start of talk: a Result alone; prints its XML. Otherwise as GetRespEncode. */
VELTOPROTOCOL_API int GetStartTalkRespEncode(int result, unsigned int seqnum, char* out, int size);

/** Writes the request to stop a talk; prints its XML. All else as in GetRealPlayStartReqEncode. */
VELTOPROTOCOL_API int GetStopTalkReqEncode(const char* token, const char* channelGuid, const char* host,
                                           unsigned int seqnum, char* out, int size);

/** Writes the answer to a stop of talk: a Result alone; prints its XML. Otherwise as GetRespEncode. */
VELTOPROTOCOL_API int GetStopTalkRespEncode(int result, unsigned int seqnum, char* out, int size);

/**
 * Writes a request whose body is a raw payload, without XML, token or channel.
 * @param ignored1    Not used.
 * @param ignored2    Not used.
 * @param payload     The bytes; null, a negative length, or null bytes with a positive length give -1.
 * @param host        Value of the Host header; must not hold CR or LF; null is empty text.
 * @param contentType Goes out with "; charset=utf-8" behind it; must not hold CR or LF; null is empty text.
 * @param out         Receives the message, without a terminating NUL; the caller owns it.
 * @param size        Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetDataReqEncode(const char* ignored1, const char* ignored2,
                                       const __tagVtDataParam* payload, const char* host,
                                       const char* contentType, char* out, int size);

/**
 * Reads an audio format from the attributes of an AudioParam element.
 * @param audioParam The child AudioParam of the request.
 * @param error      Receives 0, or -1 if audioParam is null; may be null.
 * @return The record by value; missing attributes (a line each) are 0.
 */
VELTOPROTOCOL_API __tagVtAudioParam GetStartTalkReqDecode(TiXmlElement* audioParam, int* error);

/** @} */

/**
 * @name Record search
 * The body of an answer is the XML, directly followed by a zlib block (RFC 1950) that holds the list. A
 * receiver finds the block behind the XML: GetXmlLength of the parsed document tells where.
 * @{
 */

/**
 * Writes a record search.
 * @param host        Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token       Session token.
 * @param seqnum      Sequence number, written in signed decimal.
 * @param channelGuid The channel to search.
 * @param param       What to look for; null gives -1.
 * @param out         Receives the message, without a terminating NUL; the caller owns it.
 * @param size        Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetSearchRecordReqEncode(const char* host, const char* token, unsigned int seqnum,
                                               const char* channelGuid, const __tagVtSearchRecordParam* param,
                                               char* out, int size);

/**
 * Writes the answer to a record search.
 *
 * The block is 56 bytes (ChannelGuid, ResultMode, Counter) and 88 for each element, compressed as zlib's
 * compress() does; for a refusal or without records it is the compression of nothing.
 * @param result  Result code, written in decimal; the list is sent for 0 only.
 * @param seqnum  Sequence number of the request, written in signed decimal.
 * @param records What was found; may be null. With null Records no element follows the 56 bytes.
 * @param out     Receives the message, without a terminating NUL; the caller owns it.
 * @param size    Bytes that out can take; only the message as it is sent, compressed, must fit.
 * @return Bytes written, or -1 by the rules in framing.h or if zlib fails.
 * @throws std::bad_alloc if there is no memory for the compressed list; nothing is written then.
 */
VELTOPROTOCOL_API int GetSearchRecordRespEncode(int result, unsigned int seqnum,
                                                const __tagVtRecordParam* records, char* out, int size);

/**
 * Reads what to look for from the attributes of a SearchParam element.
 * @param searchParam The child SearchParam of the request.
 * @param error       Receives 0, or -1 if searchParam is null; may be null.
 * @return The record by value; missing attributes (a line each) are 0.
 */
VELTOPROTOCOL_API __tagVtSearchRecordParam GetSearchRecordDecode(TiXmlElement* searchParam, int* error);

/**
 * Inflates and reads the block behind the XML of an answer.
 *
 * A block that zlib refuses, that inflates to more than 100 times its length or to more than 1 GiB, or to
 * less than 56 bytes, is an empty result without an error. Elements that the block does not hold stay zero
 * except for their ChannelGuid.
 * @param data  The block; the caller keeps it.
 * @param len   Its length in bytes.
 * @param error Receives 0, or -1 if data is null or len below 1; may be null.
 * @return The record by value; hand it to ReleaseRecordParam.
 * @throws std::bad_alloc if Counter asks for more than 1 GiB of elements, or memory is exhausted.
 */
VELTOPROTOCOL_API __tagVtRecordParam GetSearchRecordResultDecode(const char* data, int len, int* error);

/** Frees the elements of a decoded result and sets Records to null; Counter stays. Null is ignored. */
VELTOPROTOCOL_API void ReleaseRecordParam(__tagVtRecordParam* records);

/** @} */

/**
 * @name Playback and download
 * @{
 */

/**
 * Writes a playback or download request under a command name of the caller's.
 * @param name        Command name; null leaves the attribute out.
 * @param host        Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token       Session token.
 * @param seqnum      Sequence number, written in signed decimal.
 * @param channelGuid The channel.
 * @param param       The session and its span; null gives -1. With RecordCounter 0 no list is written.
 * @param out         Receives the message, without a terminating NUL; the caller owns it.
 * @param size        Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetRecordReqEncode(const char* name, const char* host, const char* token,
                                         unsigned int seqnum, const char* channelGuid,
                                         const __tagVtPlayBackParam* param, char* out, int size);

/** GetRecordReqEncode for "PlaybackRecord". */
VELTOPROTOCOL_API int GetPlaybackRecordReqEncode(const char* host, const char* token, unsigned int seqnum,
                                                 const char* channelGuid, const __tagVtPlayBackParam* param,
                                                 char* out, int size);

/** GetRecordReqEncode for "DownloadRecord". */
VELTOPROTOCOL_API int GetDownloadRecordReqEncode(const char* host, const char* token, unsigned int seqnum,
                                                 const char* channelGuid, const __tagVtPlayBackParam* param,
                                                 char* out, int size);

/**
 * Writes the request that ends playback. It names device and channel, not the session.
 * @param token       Session token.
 * @param deviceGuid  The device.
 * @param channelGuid The channel.
 * @param host        Value of the Host header; must not hold CR or LF; null is empty text.
 * @param seqnum      Sequence number, written in signed decimal.
 * @param out         Receives the message, without a terminating NUL; the caller owns it.
 * @param size        Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetPlaybackStopReqEncode(const char* token, const char* deviceGuid,
                                               const char* channelGuid, const char* host, unsigned int seqnum,
                                               char* out, int size);

/** Writes the request that ends a download; as GetPlaybackStopReqEncode. */
VELTOPROTOCOL_API int GetDownloadStopReqEncode(const char* token, const char* deviceGuid,
                                               const char* channelGuid, const char* host, unsigned int seqnum,
                                               char* out, int size);

/**
 * Writes a playback control.
 * @param ctrl Session and control; null gives -1. The other arguments and the result as in
 *             GetPlaybackStopReqEncode.
 */
VELTOPROTOCOL_API int GetPlaybackControlReqEncode(const char* token, const char* channelGuid,
                                                  const __tagVtPlayBackCtrl* ctrl, const char* host,
                                                  unsigned int seqnum, char* out, int size);

/**
 * Writes the answer to a playback control.
 * @param ctrl Sent for result 0 only; may be null. The other arguments and the result as in GetRespEncode.
 */
VELTOPROTOCOL_API int GetPlaybackControlRespEncode(int result, unsigned int seqnum,
                                                   const __tagVtPlayBackCtrl* ctrl, char* out, int size);

/** Writes the request to record a channel by hand; a null channelGuid gives -1. */
VELTOPROTOCOL_API int GetManualRecordReqEncode(const char* host, const char* token, unsigned int seqnum,
                                               const char* channelGuid, char* out, int size);

/**
 * Reads a playback or download request.
 *
 * RecordCounter decides how many elements there are: missing ones stay zero, surplus ones are not read; an
 * empty or negative counter is 4,294,967,295 or near it. The elements' ChannelGuid and the record's
 * PlaybackGuid are not read here. An element's PictureGuid, PictureUrl and PictureSize are read from its
 * RecordInfo, not from its PictureInfo.
 * @param request       The request element.
 * @param playbackParam Its child PlaybackParam.
 * @param error         Receives 0, or -1 if either is null; may be null.
 * @return The record by value; hand it to ReleasePlaybackParam.
 * @throws std::bad_alloc if RecordCounter asks for more than 1 GiB of elements, or memory is exhausted.
 */
VELTOPROTOCOL_API __tagVtPlayBackParam GetPlayBackParamDecode(TiXmlElement* request,
                                                              TiXmlElement* playbackParam, int* error);

/**
 * Reads a playback control and copies PlaybackGuid into SessionGuid. Values that are missing (a line each,
 * but for a missing ControlParam) or too long (likewise) stay zero.
 * @param request The request element.
 * @param error   Receives 0, or -1 if request is null; may be null.
 * @return The record by value; nothing to release.
 */
VELTOPROTOCOL_API __tagVtPlayBackCtrl GetPlayBackCtrlParamDecode(TiXmlElement* request, int* error);

/** Frees the elements of a decoded request, sets Records to null and RecordCounter to 0. Null is ignored. */
VELTOPROTOCOL_API void ReleasePlaybackParam(__tagVtPlayBackParam* param);

/** @} */

/**
 * @name Pictures
 * The body of a picture, in both directions, is two 32-bit words of the caller's, 36 bytes of GUID text, and
 * the image.
 * @{
 */

/**
 * Writes a request for the pictures of recordings.
 * @param host   Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token  Session token.
 * @param seqnum Sequence number, written in signed decimal.
 * @param items  Array of count recordings, of which ChannelGuid, PictureGuid and PictureUrl are sent; null
 *               gives -1.
 * @param count  Number of items; below 1 gives -1.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetDownloadPictureReqEncode(const char* host, const char* token, unsigned int seqnum,
                                                  const __tagVtRecordElementParam* items, int count,
                                                  char* out, int size);

/** Writes a request for the pictures of maps (MapInfoGuid, CustomizeImagePath); as
 * GetDownloadPictureReqEncode. */
VELTOPROTOCOL_API int GetDownloadEMapPictureReqEncode(const char* host, const char* token,
                                                      unsigned int seqnum, const __tagVtEMapInfo* maps,
                                                      int count, char* out, int size);

/**
 * Writes the picture of a recording as a response ("image/jpg").
 * @param param1 First word of the body.
 * @param param2 Second word of the body.
 * @param guid   Exactly 36 bytes are read from it; null gives -1.
 * @param data   The image; the caller owns it. May be null when len is 0.
 * @param len    Its length in bytes; below 0 gives -1.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules in framing.h.
 */
VELTOPROTOCOL_API int GetDownloadPictureDataEncode(int param1, int param2, const char* guid, const char* data,
                                                   int len, char* out, int size);

/** Writes the picture of a map as a response ("image/map"); as GetDownloadPictureDataEncode. */
VELTOPROTOCOL_API int GetDownloadEMapPictureDataEncode(int param1, int param2, const char* guid,
                                                       const char* data, int len, char* out, int size);

/**
 * Writes the upload of a picture as a request.
 * @param host        Value of the Host header; must not hold CR or LF; null is empty text.
 * @param contentType Goes out with "; charset=utf-8" behind it; must not hold CR or LF; null is empty text.
 * The other arguments and the result as in GetDownloadPictureDataEncode.
 */
VELTOPROTOCOL_API int GetUploadPictureDataEncode(const char* host, int param1, int param2, const char* guid,
                                                 const char* contentType, const char* data, int len,
                                                 char* out, int size);

/**
 * Reads one requested picture: ChannelGuid, PictureGuid and PictureUrl; the other fields stay zero.
 * @param pictureItem A child PictureItem of the request.
 * @param error       Receives 0, or -1 if pictureItem is null; may be null.
 * @return The record by value; nothing to release.
 */
VELTOPROTOCOL_API __tagVtRecordElementParam GetPictureParamDecode(TiXmlElement* pictureItem, int* error);

/** @} */

} // namespace veltoprotocol

#endif
