// HTTP heads, and the caller-buffer rule: the whole message or nothing.
#pragma once

#include "framing/sinks.h"

#include <initializer_list>

namespace veltoprotocol {

constexpr Text commandPath{"/servercommandservice", 21};
constexpr Text managePath{"/servercommandservice/manage", 28};
constexpr Text keepAlive{"keep-alive", 10};
constexpr Text closeConnection{"close", 5};

// One head. Its texts are the caller's and go out as given, so breaksLine() is asked before anything else.
class Head {
  public:
    static Head request(Text path, Text host, Text connection) {
        Head head;
        head.isRequest_ = true;
        head.target_ = path;
        head.host_ = host;
        head.connection_ = connection;
        return head;
    }
    static Head response(Text connection, Text status = {"200 OK", 6}) {
        Head head;
        head.target_ = status;
        head.connection_ = connection;
        return head;
    }
    // Adds "Authorization: Basic" with credentials that are Base64 text already.
    Head withBasicCredentials(Text base64) const {
        Head head = *this;
        head.credentials_ = base64;
        return head;
    }

    // A body that is not XML.
    Head withContentType(Text type) const {
        Head head = *this;
        head.contentType_ = type;
        head.withCharset_ = false;
        return head;
    }
    // A content type of the caller's, sent with the charset behind it.
    Head withUploadedType(Text type) const {
        Head head = *this;
        head.contentType_ = type;
        return head;
    }

    bool breaksLine() const {
        return veltoprotocol::breaksLine(target_) || veltoprotocol::breaksLine(host_) ||
               veltoprotocol::breaksLine(connection_) || veltoprotocol::breaksLine(contentType_);
    }

    template <class Sink>
    void write(Sink& to, std::size_t contentLength) const {
        if (isRequest_) {
            to.literal("POST ");
            to.raw(target_);
            to.literal(" HTTP/1.1\r\nHost: ");
            to.raw(host_);
        } else {
            to.literal("HTTP/1.1 ");
            to.raw(target_);
            to.literal("\r\nServer: vtengine");
        }
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
        to.put(NumberText(contentLength));
        to.literal("\r\n\r\n");
    }

  private:
    bool isRequest_ = false;
    Text target_; // a request's path, a response's status
    Text host_, connection_, credentials_;
    Text contentType_{"text/xml", 8};
    bool withCharset_ = true;
};

// What every encoder asks before it builds or prints anything.
inline bool usable(const Head& head, const char* out, int size) {
    return out != nullptr && size >= 1 && !head.breaksLine();
}

// The caller-buffer rule: head and body go to `out` and their length is returned, or, if they are longer
// than `size`, nothing is written and -1 is returned. There is no terminating NUL. `writeBody` puts exactly
// bodyLength bytes.
template <class WriteBody>
int deliver(const Head& head, std::size_t bodyLength, const WriteBody& writeBody, char* out, int size) {
    Count start;
    head.write(start, bodyLength);
    const auto headLength = static_cast<std::size_t>(start.bytes()); // of texts that lie in memory
    const auto room = static_cast<std::size_t>(size);
    if (bodyLength > room || headLength > room - bodyLength) return -1;
    Write to(out);
    head.write(to, bodyLength);
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
