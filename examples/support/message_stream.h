// From a stream of bytes to whole messages: what every receiver of the protocol needs, client and server
// alike.
#ifndef EXAMPLES_MESSAGE_STREAM_H
#define EXAMPLES_MESSAGE_STREAM_H

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <cstddef>
#include <string>

namespace example {

// Bytes go in as they come from the socket, in pieces of any size; whole messages come out. A stream that
// does not speak the protocol, or asks for more memory than the limits allow, is unusable from then on. Take
// all whole messages out before adding more bytes: then no more is kept than one message and one read.
class MessageStream {
  public:
    enum class State { incomplete, whole, unusable };

    static constexpr std::size_t longestHead = 16 * 1024;
    static constexpr int longestBody = 1024 * 1024;

    void add(const char* bytes, std::size_t length) { buffer_.append(bytes, length); }

    // Moves the next message into `message` if it is there as a whole.
    State next(std::string& message) {
        if (problem_) return State::unusable;
        if (length_ == 0) measure();
        if (problem_) return State::unusable;
        if (length_ == 0 || buffer_.size() < length_) return State::incomplete;
        return take(message);
    }

    // Why the stream is unusable.
    const char* problem() const { return problem_ ? problem_ : ""; }

    // Bytes that wait for the rest of their message.
    std::size_t waiting() const { return buffer_.size(); }

  private:
    // Finds the message's length as soon as its head is there, so that too long a body is refused before it
    // has come.
    // begin measure
    void measure() {
        const int seen = static_cast<int>(std::min(buffer_.size(), longestHead));
        if (veltoprotocol::CheckHttp(buffer_.data(), seen) == -1) {
            problem_ = "this is not HTTP";
            return;
        }
        const int head = veltoprotocol::GetHttpLength(buffer_.data(), seen);
        if (head < 0) {
            if (buffer_.size() >= longestHead) problem_ = "the head is too long";
            return;
        }
        // Only the head is asked: in the whole buffer the words "Content-Length" of a body would count as
        // well.
        const int body = veltoprotocol::GetContentLen(buffer_.data(), head);
        if (body < 1)
            problem_ = "the head names no length, so the message has no end";
        else if (body > longestBody)
            problem_ = "the body is too long";
        else
            length_ = static_cast<std::size_t>(head) + static_cast<std::size_t>(body);
    }
    // end measure

    State take(std::string& message) {
        // Without a Content-Length the library takes what digits it finds last, in the head alone others than
        // in the whole message. One that has two lengths is not to be trusted.
        const int whole = static_cast<int>(length_);
        if (veltoprotocol::GetHttpPacketLength(buffer_.data(), whole) != whole) {
            problem_ = "the length of the message is in doubt";
            return State::unusable;
        }
        message = buffer_.substr(0, length_);
        buffer_.erase(0, length_);
        length_ = 0;
        return State::whole;
    }

    std::string buffer_;
    std::size_t length_ = 0; // of the message at the front; 0 as long as it is unknown
    const char* problem_ = nullptr;
};

} // namespace example

#endif
