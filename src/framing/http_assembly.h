// HTTP heads, and the caller-buffer rule: the whole message or nothing.
#pragma once

#include "framing/sinks.h"

#include <initializer_list>

namespace veltoprotocol {

constexpr Text commandPath{"/servercommandservice", 21};
constexpr Text managePath{"/servercommandservice/manage", 28};
constexpr Text keepAlive{"keep-alive", 10};
constexpr Text closeConnection{"close", 5};

inline bool operator==(Text left, Text right) {
    return left.size == right.size && std::memcmp(left.data, right.data, left.size) == 0;
}

// One head. Its texts are the caller's and go out as given, so breaksLine() is asked before anything else.
// What nearly all heads have in common is written as one literal.
class Head {
  public:
    static Head request(Text path, Text host, Text connection) {
        Head head(connection);
        head.start_ = path == commandPath ? Start::command : path == managePath ? Start::manage : Start::path;
        head.target_ = path;
        head.host_ = host;
        return head;
    }
    static Head response(Text connection) { return Head(connection); }
    // The head of most answers.
    static constexpr Head response() { return Head(keepAlive, true); }
    static Head response(Text connection, Text status) {
        Head head(connection);
        head.start_ = Start::status;
        head.target_ = status;
        return head;
    }
    // Adds "Authorization: Basic" with credentials that are Base64 text already.
    Head withBasicCredentials(Text base64) const {
        Head head = *this;
        head.credentials_ = base64;
        head.common_ = false;
        return head;
    }

    // A body that is not XML.
    Head withContentType(Text type) const {
        Head head = withUploadedType(type);
        head.withCharset_ = false;
        return head;
    }
    // A content type of the caller's, sent with the charset behind it.
    Head withUploadedType(Text type) const {
        Head head = *this;
        head.contentType_ = type;
        head.common_ = false;
        return head;
    }

    bool breaksLine() const {
        if (start_ == Start::ok && common_) return false;
        const bool start = start_ == Start::path || start_ == Start::status;
        return (start && veltoprotocol::breaksLine(target_)) || veltoprotocol::breaksLine(host_) ||
               (!common_ &&
                (veltoprotocol::breaksLine(connection_) || veltoprotocol::breaksLine(contentType_)));
    }

    template <class Sink>
    VELTO_INLINE void write(Sink& to, std::size_t contentLength) const {
        writeStart(to);
        if (common_) {
            to.literal(
                "\r\nConnection: keep-alive\r\nContent-Type: text/xml; charset=utf-8\r\nContent-Length: ");
        } else {
            to.literal("\r\nConnection: ");
            to.raw(connection_);
            if (!credentials_.absent()) {
                to.literal("\r\nAuthorization: Basic ");
                to.raw(credentials_);
            }
            to.literal("\r\nContent-Type: ");
            to.raw(contentType_);
            if (withCharset_) to.literal("; charset=utf-8");
            to.literal("\r\nContent-Length: ");
        }
        to.put(lengthNumber(contentLength));
        to.literal("\r\n\r\n");
    }

    // Of the head, but for the digits of the content's length.
    std::size_t bareLength() const {
        Count count;
        write(count, 0);
        return static_cast<std::size_t>(count.bytes()) - 1;
    }
    static std::size_t digits(std::size_t contentLength) { return lengthNumber(contentLength).length(); }
    static constexpr std::size_t mostDigits = Number<int>::longest;
    std::size_t length(std::size_t contentLength) const { return bareLength() + digits(contentLength); }

  private:
    // Whatever is sent is no longer than INT_MAX.
    static Number<unsigned int> lengthNumber(std::size_t length) {
        return {static_cast<unsigned int>(length)};
    }

    enum class Start { ok, command, manage, path, status };

    constexpr Head(Text connection, bool common) : connection_(connection), common_(common) {}
    explicit Head(Text connection) : Head(connection, connection == keepAlive) {}

    template <class Sink>
    VELTO_INLINE void writeStart(Sink& to) const {
        if (start_ == Start::ok) return to.literal("HTTP/1.1 200 OK\r\nServer: vtengine");
        if (start_ == Start::status) {
            to.literal("HTTP/1.1 ");
            to.raw(target_);
            return to.literal("\r\nServer: vtengine");
        }
        if (start_ == Start::command) {
            to.literal("POST /servercommandservice HTTP/1.1\r\nHost: ");
        } else if (start_ == Start::manage) {
            to.literal("POST /servercommandservice/manage HTTP/1.1\r\nHost: ");
        } else {
            to.literal("POST ");
            to.raw(target_);
            to.literal(" HTTP/1.1\r\nHost: ");
        }
        to.raw(host_);
    }

    Start start_ = Start::ok;
    Text target_; // a request's path, a response's status
    Text host_, connection_, credentials_;
    Text contentType_{"text/xml", 8};
    bool withCharset_ = true;
    bool common_; // keep-alive, XML, no credentials
};

inline constexpr Head usualAnswer = Head::response();

// What every encoder asks before it builds or prints anything.
inline bool usable(const Head& head, const char* out, int size) {
    return out != nullptr && size >= 1 && !head.breaksLine();
}

// The caller-buffer rule: head and body go to `out` and their length is returned, or, if they are longer
// than `size`, nothing is written and -1 is returned. There is no terminating NUL. `writeBody` puts exactly
// bodyLength bytes.
template <class WriteBody>
int deliver(const Head& head, std::size_t bodyLength, const WriteBody& writeBody, char* out, int size) {
    const std::size_t headLength = head.length(bodyLength);
    const auto room = static_cast<std::size_t>(size);
    if (bodyLength > room || headLength > room - bodyLength) return -1;
    Write front(out);
    head.write(front, bodyLength);
    Write to(front.mark());
    writeBody(to);
    return static_cast<int>(headLength + bodyLength);
}

// Bytes of the caller's that are sent as they stand; absent if the length is negative, or positive without
// bytes.
inline Text payload(const char* data, int length) {
    if (length < 0 || (length > 0 && !data)) return {};
    return {length > 0 ? data : "", static_cast<std::size_t>(length)};
}

// A message whose body is ready-made bytes.
int assemble(const Head& head, std::initializer_list<Text> body, char* out, int size);

} // namespace veltoprotocol
