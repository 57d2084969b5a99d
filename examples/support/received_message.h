// One whole message as it came from the network: the head's answers and the parsed body.
#ifndef EXAMPLES_RECEIVED_MESSAGE_H
#define EXAMPLES_RECEIVED_MESSAGE_H

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace example {

struct ReleaseDocument {
    void operator()(TiXmlDocument* document) const { veltoprotocol::ReleaseTiXmlDocument(document); }
};
using Document = std::unique_ptr<TiXmlDocument, ReleaseDocument>;

class ReceivedMessage {
  public:
    // Takes what MessageStream gave out.
    explicit ReceivedMessage(std::string bytes)
        : bytes_(std::move(bytes)),
          body_(bytes_,
                static_cast<std::size_t>(std::max(0, veltoprotocol::GetHttpLength(data(), length())))),
          document_(isMedia() ? nullptr : veltoprotocol::Decode(body_.c_str())) {}

    const std::string& bytes() const { return bytes_; }

    // A NUL-terminated copy: Decode asks for one. It may hold other NULs: behind the XML of a record search
    // follows a compressed block, of which Decode sees nothing.
    const std::string& body() const { return body_; }

    // The body's XML; null if it is none. Every document decoder of the library takes a null document.
    TiXmlDocument* document() const { return document_.get(); }

    // Video or a picture; the body is no XML then.
    bool isMedia() const {
        const std::string type = contentType();
        return type.rfind("video/", 0) == 0 || type.rfind("image/", 0) == 0;
    }

    std::string uri() const { return veltoprotocol::GetUri(data(), length()); }
    int status() const { return veltoprotocol::GetHttpStatus(data(), length()); }
    std::string contentType() const { return veltoprotocol::GetContentType(data(), length()); }

    // "user:password" of a login request; empty if there is none.
    std::string credentials() const {
        const std::string value = veltoprotocol::GetAuthorization(data(), length());
        return veltoprotocol::GetAuthorizationDecode(value.data(), static_cast<int>(value.size()));
    }

  private:
    const char* data() const { return bytes_.data(); }
    int length() const { return static_cast<int>(bytes_.size()); }

    std::string bytes_;
    std::string body_;
    Document document_;
};

} // namespace example

#endif
