/**
 * @file
 * The frame that every message stands on: envelope and rendering, HTTP heads, result answers, XML
 * reading, HTTP inspection of received bytes, and the session commands.
 *
 * What holds for every function of the library:
 *
 * - Caller buffer. An encoder writes the whole message (head and body) to `out` and returns its length,
 *   or returns -1 and leaves every byte of `out` as it was. It returns -1 when `out` is null, `size` is
 *   below 1, or the message is longer than `size`. No terminating NUL is written. Arguments are read more
 *   than once, and while `out` is written: none of them may lie in it, or change during the call.
 * - Head text. `host` and the other texts that go into an HTTP head are written as given; one that holds
 *   CR or LF makes the encoder return -1 before anything is built or printed.
 * - Text fields. A field is written up to its NUL or its full width, whichever comes first, bytes as they
 *   stand. Cut text at whole characters when you fill a field: a character cut off in the middle can make
 *   the whole message unreadable for the receiving parser. A received value as long as its field fills it
 *   without a terminator; a longer one is dropped with a printed line.
 * - Arrays. A list is written up to its count and ends where its array is null; a counter is written from the
 *   count all the same, unless a function says otherwise.
 * - Numbers. Decimal text that does not depend on the process's locale. Sequence numbers are unsigned in
 *   every interface, written in signed decimal and read back unsigned.
 * - Null text is an empty element, a left-out attribute, or empty text in a head.
 * - Missing values. What a decoder does not find, or finds longer than its field, stays zero; a line tells
 * it. It is no error, unless a function says otherwise.
 * - Error codes. `*error` is 0, or -1 for what was missing; a null `error` is allowed. After
 *   std::bad_alloc, which is all that is ever thrown, `*error` means nothing; nothing leaks, and an element
 * of the caller's keeps what was written to it by then.
 * - Diagnostics are lines on standard output, each written by one call.
 * - Threads. There is no state: any number of threads may call anything at once, as long as they share no
 *   output buffer and none releases or changes what another one reads.
 */
#ifndef VELTOPROTOCOL_FRAMING_H
#define VELTOPROTOCOL_FRAMING_H

#include "veltoprotocol/export.h"

#include <string>

class TiXmlDocument;
class TiXmlElement;

namespace veltoprotocol {

struct __tagVtDeviceParam;

/**
 * @name Envelope and rendering
 * The building blocks of a message: declaration, root, header children, command element, text children.
 * @{
 */

/**
 * Makes a document that holds the XML declaration (version "1.0", encoding "UTF-8").
 * @return The document; the caller owns it (ReleaseTiXmlDocument).
 */
VELTOPROTOCOL_API TiXmlDocument* XmlHeaderEncode();

/**
 * Appends the children seqnum and version ("1.0.0") to the root.
 * @param root   The root element; the caller keeps it.
 * @param seqnum Sequence number; written in signed decimal, so 4294967295 is written as -1.
 * @return 0, or -1 if root is null.
 */
VELTOPROTOCOL_API int GetVeltoHeaderEncode(TiXmlElement* root, unsigned int seqnum);

/**
 * Appends a child element that holds one text.
 * @param parent Receives the child as its last one and owns it.
 * @param name   Name of the child.
 * @param value  Its text; null gives an empty element (`<Name />`), an empty text `<Name></Name>`.
 * @return The child, or null if parent or name is null.
 */
VELTOPROTOCOL_API TiXmlElement* SetStringValue(TiXmlElement* parent, const char* name, const char* value);

/**
 * Appends a child element with the attribute `name`.
 * @param parent Receives the child as its last one and owns it.
 * @param name   Name of the child, for example "request".
 * @param value  Value of its attribute `name`; null leaves the attribute out.
 * @return The child, or null if parent or name is null.
 */
VELTOPROTOCOL_API TiXmlElement* SetStringValueAtt(TiXmlElement* parent, const char* name, const char* value);

/**
 * Renders a document as it goes on the wire: the XML library's printer at its default settings (four
 * blanks a level, "\n" after each line).
 * @param doc The document; the caller keeps it.
 * @return The text; empty if doc is null or refuses the printer (a line is printed then).
 */
VELTOPROTOCOL_API std::string GetXmlEncode(TiXmlDocument* doc);

/**
 * Length of what GetXmlEncode returns. The text, which may be 200 times as long as what a hostile peer sent,
 * is not kept in memory for it.
 * @param doc The document; the caller keeps it.
 * @return Bytes; -1 if doc is null or the text is longer than INT_MAX; 0 if doc refuses the printer.
 */
VELTOPROTOCOL_API int GetXmlLength(TiXmlDocument* doc);

/** Decimal text of a number, with a leading "-" for negatives; never depends on the locale. */
VELTOPROTOCOL_API std::string ItoString(int value);

/** Decimal text of an unsigned number; never depends on the locale. */
VELTOPROTOCOL_API std::string UitoString(unsigned int value);

/** @} */

/**
 * @name HTTP assembly and result answers
 * @{
 */

/**
 * Writes a POST request: head, then the body as it stands.
 * @param path       Request path; must not hold CR or LF.
 * @param host       Value of the Host header; must not hold CR or LF.
 * @param connection Value of the Connection header; must not hold CR or LF.
 * @param body       Body bytes; may be null when bodyLength is 0.
 * @param bodyLength Length of the body in bytes.
 * @param out        Receives the message, without a terminating NUL; the caller owns it.
 * @param size       Bytes that out can take.
 * @return Bytes written, or -1 by the rules at the top, for a negative bodyLength and for a null body with
 *         a positive one. Null texts are empty texts.
 */
VELTOPROTOCOL_API int HttpReqEncode(const char* path, const char* host, const char* connection,
                                    const char* body, int bodyLength, char* out, int size);

/**
 * Writes a response: head with status 200 and "Server: vtengine", then the body as it stands.
 * @param connection Value of the Connection header; must not hold CR or LF.
 * @param body       Body bytes; may be null when bodyLength is 0.
 * @param bodyLength Length of the body in bytes.
 * @param out        Receives the message, without a terminating NUL; the caller owns it.
 * @param size       Bytes that out can take.
 * @return As for HttpReqEncode.
 */
VELTOPROTOCOL_API int HttpRespEncode(const char* connection, const char* body, int bodyLength, char* out,
                                     int size);

/**
 * Writes the generic answer that holds only a Result.
 * @param result     Result code, written in decimal. The HTTP status is 200 whatever it is.
 * @param seqnum     Sequence number of the request, written in signed decimal.
 * @param out        Receives the message, without a terminating NUL; the caller owns it.
 * @param size       Bytes that out can take.
 * @param name       Command name, the response's attribute name; null leaves the attribute out.
 * @param connection Value of the Connection header, "keep-alive" or "close".
 * @return Bytes written, or -1 by the rules at the top.
 */
VELTOPROTOCOL_API int GetRespEncode(int result, unsigned int seqnum, char* out, int size, const char* name,
                                    const char* connection);

/**
 * Writes Base64 text (RFC 4648, standard alphabet, "=" padding) and a NUL.
 * @param out    Receives 4 * ceil(length / 3) + 1 characters and must have room for them; not checked.
 * @param in     Bytes to encode; null is empty.
 * @param length Number of bytes; 0 or below writes a NUL alone.
 * @return Characters written, the NUL included; 0 if out is null, -1 if the text would be longer than
 *         INT_MAX (nothing is written in either case).
 */
VELTOPROTOCOL_API int Base64Encode(char* out, const char* in, int length);

/** @} */

/**
 * @name Result-only answers
 * GetRespEncode with the command's own name; all but logout keep the connection alive.
 * result, seqnum, out, size and the returned value are those of GetRespEncode.
 * @{
 */
VELTOPROTOCOL_API int GetLogoutRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetSetViewGroupDataRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetAddDeviceRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetUpdateDeviceRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetDeleteDeviceRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetAddStorageRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetUpdateStorageRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetDeleteStorageRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetAddScheduleRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetUpdateScheduleRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetDeleteScheduleRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetPlaybackRecordRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetPlaybackStopRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetDownloadRecordRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetDownloadStopRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetDownloadPictureRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetDownloadEMapPictureRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetManualRecordRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetNotificationRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetAddArchiveRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetUpdateArchiveRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetDeleteArchiveRespEncode(int result, unsigned int seqnum, char* out, int size);
VELTOPROTOCOL_API int GetStopSearchDeviceRespEncode(int result, unsigned int seqnum, char* out, int size);
/** @} */

/**
 * @name XML reading
 * Parse a received body, read the envelope, read values out of elements.
 * @{
 */

/**
 * Parses a message body.
 *
 * Refused, besides what the XML library finds malformed: elements nested deeper than 128 levels and an
 * element with more than 128 attributes (the protocol's own messages need 16 and 21), so that no input
 * exhausts the stack or costs quadratic time. A refusal prints one line with its reason. Bytes behind the
 * top-level nodes (the compressed block of a record list) are not looked at.
 * @param text NUL-terminated; the caller keeps it. Null gives null and prints nothing.
 * @return The document, owned by the caller until ReleaseTiXmlDocument, or null.
 */
VELTOPROTOCOL_API TiXmlDocument* Decode(const char* text);

/** Deletes a document from Decode or XmlHeaderEncode; null is ignored. */
VELTOPROTOCOL_API void ReleaseTiXmlDocument(TiXmlDocument* doc);

/**
 * Reads the attribute `name` of the root's first child of a kind.
 * @param doc   A parsed message; null gives error -1 and empty text.
 * @param error Receives 0, or -1 if the root, the child or the attribute is missing (a line is printed).
 * @param kind  Name of the child, "request" or "response".
 * @return The command name, or empty text.
 */
VELTOPROTOCOL_API std::string GetNameDecode(TiXmlDocument* doc, int* error, const char* kind);

/** GetNameDecode of the request. */
VELTOPROTOCOL_API std::string GetRequestNameDecode(TiXmlDocument* doc, int* error);

/** GetNameDecode of the response. */
VELTOPROTOCOL_API std::string GetResponseNameDecode(TiXmlDocument* doc, int* error);

/**
 * Reads the Result of a response.
 * @param doc   A parsed message; null gives error -1.
 * @param error Receives -1 if the root is missing, else 0: a missing response or Result is told only by the
 *              returned -1 and the printed line.
 * @return The result code; -1 if it is missing or empty.
 */
VELTOPROTOCOL_API int GetResponseErrorcodeDecode(TiXmlDocument* doc, int* error);

/**
 * Reads the sequence number.
 * @param doc   A parsed message; null gives error -1.
 * @param error Receives 0, or -1 if the root or seqnum is missing (a line is printed).
 * @return The low 32 bits of strtoul in base 0, which undoes the signed writing; 0 if missing.
 */
VELTOPROTOCOL_API unsigned int GetSeqnumberDecode(TiXmlDocument* doc, int* error);

/**
 * Reads the protocol version.
 * @param doc   A parsed message; null gives error -1.
 * @param error Receives -1 if the root is missing, else 0.
 * @return The version; empty if it is missing or longer than 32 bytes (a line is printed).
 */
VELTOPROTOCOL_API std::string GetVersionDecode(TiXmlDocument* doc, int* error);

/**
 * Copies the text of a child element into a field, without a terminating NUL.
 * @param parent Element to look in; null gives -1.
 * @param label  What the printed lines call the parent.
 * @param name   Name of the child.
 * @param out    Receives at most size bytes; untouched when the child is missing or its text too long.
 * @param size   Width of the field in bytes; below 1 gives -1.
 * @return 0, or -1.
 */
VELTOPROTOCOL_API int GetStringValue(TiXmlElement* parent, const char* label, const char* name, char* out,
                                     int size);

/** Reads a child's text with GetInt. @return 0; -1 if the child is missing (a line is printed) or an argument
 * null. */
VELTOPROTOCOL_API int GetIntValue(TiXmlElement* parent, const char* label, const char* name, int* out);

/**
 * Reads whether a child's GetInt is not 0; an empty child is true, because GetInt of it is -1.
 * @return 0; -1 if the child is missing (a line is printed) or an argument null.
 */
VELTOPROTOCOL_API int GetBoolValue(TiXmlElement* parent, const char* label, const char* name, bool* out);

/**
 * Reads a child's text with GetULong.
 * @return 0, also when the child is missing (a line is printed, out is untouched); -1 for a null argument.
 */
VELTOPROTOCOL_API int GetUIntValue(TiXmlElement* parent, const char* label, const char* name,
                                   unsigned long* out);

/**
 * Copies an attribute's value into a field, without a terminating NUL.
 *
 * This and the other attribute readers return -1 on success as well: fill the field with zeros first and
 * look at it, never at the result.
 * @param element Element to read; null is ignored.
 * @param label   What the printed lines call the element.
 * @param name    Name of the attribute.
 * @param out     Receives at most size bytes; untouched when the attribute is missing or too long.
 * @param size    Width of the field in bytes.
 * @return -1.
 */
VELTOPROTOCOL_API int GetStringValueAtt(TiXmlElement* element, const char* label, const char* name, char* out,
                                        int size);

/** Reads an attribute as atoi does. @return -1, also on success. */
VELTOPROTOCOL_API int GetIntValueAtt(TiXmlElement* element, const char* label, const char* name, int* out);

/** Reads whether an attribute's atoi value is not 0. @return -1, also on success. */
VELTOPROTOCOL_API int GetBoolValueAtt(TiXmlElement* element, const char* label, const char* name, bool* out);

/** Reads an attribute as strtoul in base 0 does. @return -1, also on success; 0 for a null argument. */
VELTOPROTOCOL_API int GetUIntValueAtt(TiXmlElement* element, const char* label, const char* name,
                                      unsigned int* out);

/** Decimal value of an element's text as atoi (strtol, narrowed) gives it; -1 without an element or a text.
 */
VELTOPROTOCOL_API int GetInt(TiXmlElement* element);

/** strtoul in base 0 ("0x" is hexadecimal, a leading "0" octal), low 32 bits; 0 without an element or a text.
 */
VELTOPROTOCOL_API unsigned int GetUInt(TiXmlElement* element);

/** strtol in base 0; 0 without an element or a text. */
VELTOPROTOCOL_API long GetLong(TiXmlElement* element);

/** strtoul in base 0; 0 without an element or a text. */
VELTOPROTOCOL_API unsigned long GetULong(TiXmlElement* element);

/** As atof with a decimal point in every locale, narrowed to float; -1 without an element or a text. */
VELTOPROTOCOL_API float GetFloat(TiXmlElement* element);

/** The element's text, if its first child is a text; empty otherwise. */
VELTOPROTOCOL_API std::string GetString(TiXmlElement* element);

/** @} */

/**
 * @name HTTP inspection
 * What the bytes received so far hold. These are forgiving scans with fixed rules, not an HTTP parser. A
 * null buffer is an empty one, a negative length is 0; nothing is ever read behind buf[len - 1].
 * @{
 */

/** Whether the buffer starts like an HTTP message. @return 0 if so, -1 if not, -2 for null or len below 4. */
VELTOPROTOCOL_API int CheckHttp(const char* buf, int len);

/**
 * Searches all of the buffer for the blank line, at each call anew.
 * @return Length of the head, the blank line included; -1 if there is no blank line.
 */
VELTOPROTOCOL_API int GetHttpLength(const char* buf, int len);

/**
 * Reads the content length: all digits (at most 16) from the header name Content-Length to the line's end.
 *
 * The name may be written in any case except for its first "e", which must be lower-case; without it, the
 * last 13 bytes of the buffer are scanned, up to a line end among them. It is looked for in all of the
 * buffer, so a receiver that wants only the head to count passes the head alone.
 * @return The length; -1 if there is no digit or the value is above INT_MAX.
 */
VELTOPROTOCOL_API int GetContentLen(const char* buf, int len);

/**
 * Holds no state: until the blank line and a length have come, each call searches all of the buffer. Asked
 * after each KiB of an 8 MiB message it takes 0.2 ms in all if the head has a length, since only the head is
 * looked at then, and 0.5 to 3.5 s if it has none.
 * @return Length of the first message, head and body, once all of it is in the buffer; -1 until then. A
 *         message with an empty body is never framed.
 */
VELTOPROTOCOL_API int GetHttpPacketLength(const char* buf, int len);

/** @return The text between the first and the second space; empty, with a printed line, if there is none. */
VELTOPROTOCOL_API std::string GetHttpFirstValue(const char* buf, int len);

/** The path of a request line; the same as GetHttpFirstValue. */
VELTOPROTOCOL_API std::string GetUri(const char* buf, int len);

/** The status code of a response: the atoi value of GetHttpFirstValue. */
VELTOPROTOCOL_API int GetHttpStatus(const char* buf, int len);

/**
 * Reads the value of the Content-Type header: what begins two bytes behind the name, up to the line's end.
 *
 * The name may be written in any case except for its first "e", which must be lower-case. A head that begins
 * with the name gives its whole first line, and so does one that is shorter than the name.
 * @return The value; empty if there is no whole head or no such header.
 */
VELTOPROTOCOL_API std::string GetContentType(const char* buf, int len);

/**
 * Reads the value of the Authorization header, whose name may be written in any case; otherwise as
 * GetContentType.
 */
VELTOPROTOCOL_API std::string GetAuthorization(const char* buf, int len);

/**
 * Decodes the value of an Authorization header.
 * @param buf The value, as GetAuthorization returned it ("Basic " and Base64 text).
 * @param len Its length in bytes.
 * @return "user:password", up to a NUL within it; empty if no Base64 text follows a first space, a character
 *         of it is outside the alphabet, or it would decode to more than 1,023 bytes.
 */
VELTOPROTOCOL_API std::string GetAuthorizationDecode(const char* buf, int len);

/**
 * Decodes Base64 text (RFC 4648, standard alphabet) and writes a NUL behind the bytes.
 *
 * Writes nothing if len is below 4 or any character is outside the alphabet. Padding ends its group of
 * four, not the whole decode; characters behind the last whole group are ignored.
 * @param out Must have room for three quarters of len plus one byte; not checked. Null writes nothing.
 * @param in  The text; null writes nothing.
 * @param len Its length in characters.
 */
VELTOPROTOCOL_API void Base64Decode(char* out, const char* in, int len);

/** @} */

/**
 * @name Session
 * Login with Basic credentials (RFC 7617), the token that later requests carry, heartbeat, logout.
 * @{
 */

/**
 * Writes the login request, the only message with an Authorization header.
 * @param credentials UserName and Password are used; null gives -1.
 * @param host        Value of the Host header; must not hold CR or LF; null is empty text.
 * @param seqnum      Sequence number, written in signed decimal.
 * @param out         Receives the message, without a terminating NUL; the caller owns it.
 * @param size        Bytes that out can take.
 * @return Bytes written, or -1 by the rules at the top.
 */
VELTOPROTOCOL_API int GetLoginReqEncode(const __tagVtDeviceParam* credentials, const char* host,
                                        unsigned int seqnum, char* out, int size);

/**
 * Writes the login response.
 * @param result 0 sends the token under status 200; 2 sends no token under status 200; anything else is a
 *               refusal: status "401 Unauthorized" and "Connection: close".
 * @param token  Session token; null gives an empty Token element. Sent for result 0 only, inside response.
 * @param seqnum Sequence number of the request, written in signed decimal.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules at the top.
 */
VELTOPROTOCOL_API int GetLoginRespEncode(int result, const char* token, unsigned int seqnum, char* out,
                                         int size);

/**
 * Writes the logout request: a POST to "/servercommandservice" with the Token and "Connection: close".
 * @param host   Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token  Session token; null gives an empty Token element.
 * @param seqnum Sequence number, written in signed decimal.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules at the top.
 */
VELTOPROTOCOL_API int GetLogoutReqEncode(const char* host, const char* token, unsigned int seqnum, char* out,
                                         int size);

/**
 * Writes the heartbeat request. The token is accepted and not written: a heartbeat carries none.
 * @param host   Value of the Host header; must not hold CR or LF; null is empty text.
 * @param token  Ignored.
 * @param seqnum Sequence number, written in signed decimal.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules at the top.
 */
VELTOPROTOCOL_API int GetHeartBeatReqEncode(const char* host, const char* token, unsigned int seqnum,
                                            char* out, int size);

/**
 * Writes the heartbeat response: an empty response element, without a Result.
 * @param seqnum Sequence number of the request, written in signed decimal.
 * @param out    Receives the message, without a terminating NUL; the caller owns it.
 * @param size   Bytes that out can take.
 * @return Bytes written, or -1 by the rules at the top.
 */
VELTOPROTOCOL_API int GetHeartBeatRespEncode(unsigned int seqnum, char* out, int size);

/**
 * Reads the session token of a request: the Token under the root.
 * @param doc   A parsed message; null gives error -1 and empty text.
 * @param error Receives 0, or -1 if the root or Token is missing (a line is printed).
 * @return The token, or empty text.
 */
VELTOPROTOCOL_API std::string GetTokenDecode(TiXmlDocument* doc, int* error);

/** The same as GetTokenDecode. */
VELTOPROTOCOL_API std::string GetLogoutReqTokenDecode(TiXmlDocument* doc, int* error);

/**
 * Reads a login response: Result and Token, both under response.
 * @param doc    A parsed message; null gives error -1 and result -1.
 * @param result Receives the result code, -1 if it is missing; may be null.
 * @param error  Receives -1 if the root is missing, else 0.
 * @return The token; empty if it is missing (a line is printed).
 */
VELTOPROTOCOL_API std::string GetLoginRespTokenDecode(TiXmlDocument* doc, int* result, int* error);

/** @} */

} // namespace veltoprotocol

#endif
