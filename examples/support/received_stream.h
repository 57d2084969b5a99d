// The receiver's side of a live stream: takes frame after frame apart and checks that they follow each other.
#ifndef EXAMPLES_RECEIVED_STREAM_H
#define EXAMPLES_RECEIVED_STREAM_H

#include "support/access_units.h"

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

namespace example {

class ReceivedStream {
  public:
    // Takes the body of a video message; false at the end of the stream, a frame without bytes.
    bool add(std::string_view body) {
        veltoprotocol::__tagVtStreamHeader header = {};
        check(body.size() >= sizeof header, "a frame without a header");
        std::memcpy(&header, body.data(), sizeof header);
        const std::string_view video = body.substr(sizeof header);
        check(header.Codec == 1, "a codec other than H.264");
        check(header.PayloadLength == video.size(), "a frame with another length than its header says");
        check(header.Sequence == next_, "frames out of sequence");
        check(next_ == 0 || header.Timestamp > last_.Timestamp, "time that stands still");
        ++next_;
        last_ = header;
        if (video.empty()) return false;
        // A decoder can only begin with a frame that needs no other.
        check(header.FrameType == (canBeDecodedAlone(video) ? 1 : 0), "a frame of another type");
        check(next_ > 1 || header.FrameType == 1, "a stream that begins in the middle");
        keyFrames_ += header.FrameType;
        video_ += video;
        return true;
    }

    const veltoprotocol::__tagVtStreamHeader& lastHeader() const { return last_; }
    const std::string& video() const { return video_; }
    std::size_t keyFrames() const { return keyFrames_; }

  private:
    static void check(bool asItShould, const char* problem) {
        if (!asItShould) throw std::runtime_error(problem);
    }

    std::uint32_t next_ = 0;
    veltoprotocol::__tagVtStreamHeader last_ = {};
    std::size_t keyFrames_ = 0;
    std::string video_;
};

} // namespace example

#endif
