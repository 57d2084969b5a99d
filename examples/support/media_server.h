// What the example server does with requests for live media, recordings and pictures. The user's right to ask
// is checked before, in management_server.h.
#ifndef EXAMPLES_MEDIA_SERVER_H
#define EXAMPLES_MEDIA_SERVER_H

#include "support/answer.h"
#include "support/encoded.h"
#include "support/media_samples.h"
#include "support/picture.h"
#include "support/received_message.h"
#include "support/sample_inventory.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace example {

class MediaServer {
  public:
    explicit MediaServer(const std::string& folder) : samples_(folder) {}

    static bool knows(const std::string& name) {
        return name == "StartRealplay" || name == "PtzControl" || name == "SearchRecord" ||
               name == "PlaybackControl" || name == "DownloadPicture";
    }

    // `list` is what the user may see.
    Answer act(const std::string& name, unsigned int seqnum, const ReceivedMessage& message,
               const Inventory& list) const {
        // There is a request: the name was read from it.
        TiXmlElement* const request =
            message.document()->FirstChildElement("servercommandservice")->FirstChildElement("request");
        if (name == "DownloadPicture") return downloadPicture(seqnum, request, list);
        // In all the others the channel stands in the same place.
        int error = 0;
        const std::string channel =
            veltoprotocol::GetRealPlayStartReqChannelGuidDecode(message.document(), &error);
        if (error != 0 || !holds(list, channel)) return resultOnly(noSuchThing, seqnum, name);
        if (name == "StartRealplay") return startLive(seqnum);
        if (name == "PtzControl") return ptz(seqnum, request);
        if (name == "SearchRecord") return searchRecord(seqnum, channel, request);
        return playbackControl(seqnum, request);
    }

    // The body of an upload is no XML, so the library's reader finds no name in it. The two sides agree on
    // the first word being the sequence number. This server knows what the picture has to be.
    Answer upload(const ReceivedMessage& message) const {
        const std::optional<Picture> picture = readPicture(message.body());
        const unsigned int seqnum = picture ? static_cast<unsigned int>(picture->param1) : 0;
        const bool same = picture && !picture->image.empty() && picture->image == samples_.snapshot();
        return resultOnly(same ? succeeded : noSuchThing, seqnum, "UploadPicture");
    }

  private:
    // The answer, and behind it one message for each frame, without a pause: the client takes them as fast as
    // it likes. A server with a camera sends each when it comes, and reads the client's requests in between.
    // The protocol names no end of a stream; these two programs agree on a frame without bytes.
    Answer startLive(unsigned int seqnum) const {
        if (samples_.frames().empty()) return resultOnly(noSuchThing, seqnum, "StartRealplay");
        Answer answer;
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetRealPlayStartRespEncode(succeeded, seqnum, out, size);
        });
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        const auto begin =
            static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::microseconds>(now).count());
        answer.more = [this, begin, next = std::uint32_t{0}]() mutable -> std::optional<std::string> {
            if (next > samples_.frames().size()) return {};
            const bool end = next == samples_.frames().size();
            const std::string message = frame(next, begin, end ? "" : samples_.frames()[next]);
            ++next;
            return message;
        };
        return answer;
    }

    static std::string frame(std::uint32_t sequence, std::uint64_t begin, std::string_view bytes) {
        veltoprotocol::__tagVtStreamHeader header = {};
        header.Codec = 1;
        header.FrameType = canBeDecodedAlone(bytes) ? 1 : 0;
        header.Sequence = sequence;
        header.Timestamp = begin + sequence * clipFrameMicroseconds;
        header.Width = clipWidth;
        header.Height = clipHeight;
        header.PayloadLength = static_cast<std::uint32_t>(bytes.size());
        return encoded([&](char* out, int size) {
            return veltoprotocol::GetVideoDataEncode(header, bytes.data(), static_cast<int>(bytes.size()),
                                                     out, size);
        });
    }

    // There is nothing to move; a request without an action is refused.
    static Answer ptz(unsigned int seqnum, TiXmlElement* request) {
        int error = 0;
        const auto ptz = veltoprotocol::GetPtzReqDecode(request->FirstChildElement("Ptz"), &error);
        Answer answer;
        answer.decoded = ", control " + std::to_string(ptz.Control) + ", command " +
                         std::to_string(ptz.Command) + ", speed " + std::to_string(ptz.Speed);
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetPtzRespEncode(error == 0 ? succeeded : noSuchThing, seqnum, out, size);
        });
        return answer;
    }

    static Answer searchRecord(unsigned int seqnum, const std::string& channel, TiXmlElement* request) {
        int error = 0;
        const auto wanted =
            veltoprotocol::GetSearchRecordDecode(request->FirstChildElement("SearchParam"), &error);
        if (error != 0) return resultOnly(noSuchThing, seqnum, "SearchRecord");
        std::vector<veltoprotocol::__tagVtRecordElementParam> found = sampleRecords(wanted);
        veltoprotocol::__tagVtRecordParam records = {};
        fill(records.ChannelGuid, channel);
        records.Counter = static_cast<unsigned int>(found.size());
        records.Records = found.data();
        Answer answer;
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetSearchRecordRespEncode(succeeded, seqnum, &records, out, size);
        });
        return answer;
    }

    // Nothing is being played, so all a control does here is to come back.
    static Answer playbackControl(unsigned int seqnum, TiXmlElement* request) {
        int error = 0;
        const auto control = veltoprotocol::GetPlayBackCtrlParamDecode(request, &error);
        Answer answer;
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetPlaybackControlRespEncode(succeeded, seqnum, &control, out, size);
        });
        return answer;
    }

    // The answer, and behind it one message for each picture. There is one snapshot for all recordings. The
    // two sides agree on the words before a picture: the request's sequence number and the picture's place in
    // it.
    Answer downloadPicture(unsigned int seqnum, TiXmlElement* request, const Inventory& list) const {
        std::vector<std::string> guids;
        for (TiXmlElement* item = request->FirstChildElement("PictureItem"); item;
             item = item->NextSiblingElement("PictureItem")) {
            int error = 0;
            const auto wanted = veltoprotocol::GetPictureParamDecode(item, &error);
            const std::string guid = text(wanted.PictureGuid);
            // Exactly 36 characters of it go out before the picture.
            if (guid.size() != pictureGuidLength || !holds(list, text(wanted.ChannelGuid)))
                return resultOnly(noSuchThing, seqnum, "DownloadPicture");
            guids.push_back(guid);
        }
        if (guids.empty() || samples_.snapshot().empty())
            return resultOnly(noSuchThing, seqnum, "DownloadPicture");
        Answer answer;
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetDownloadPictureRespEncode(succeeded, seqnum, out, size);
        });
        answer.more = [this, seqnum, guids, next = 0U]() mutable -> std::optional<std::string> {
            if (next == guids.size()) return {};
            const int place = static_cast<int>(next);
            const std::string& guid = guids[next++];
            return encoded([&](char* out, int size) {
                return veltoprotocol::GetDownloadPictureDataEncode(
                    static_cast<int>(seqnum), place, guid.c_str(), samples_.snapshot().data(),
                    static_cast<int>(samples_.snapshot().size()), out, size);
            });
        };
        return answer;
    }

    static bool holds(const Inventory& list, const std::string& channel) {
        return std::any_of(list.channels.begin(), list.channels.end(),
                           [&](const auto& one) { return text(one.Guid) == channel; });
    }

    const MediaSamples samples_;
};

} // namespace example

#endif
