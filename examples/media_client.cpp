// A client of the example server: watches a live stream, moves the camera, searches recordings, fetches a
// picture and sends it back.
//
//     media_client --port N [--user U --password P] [--seed N] [--no-split] [--first-seqnum N] [--full]
//                  [--save FOLDER] [--records N]
//     media_client --read-block FILE
//
// Checks every answer and shows what goes over the wire; ends with 0 if everything was as it should be.
// --save writes every body to a file of its own, and what was received to live.h264 and snapshot.jpg.
// --records says how many recordings to search for (10000). --read-block only shows the list in a compressed
// block. The other arguments are those of exchange_client.
//
// The encoders of StartRealplay and PtzControl print their XML to standard output, token included; those
// lines are the library's own and stand as they are. scripts/demo leaves them out.

#include "support/arguments.h"
#include "support/client_connection.h"
#include "support/conversation.h"
#include "support/encoded.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/received_message.h"
#include "support/received_stream.h"
#include "support/record_search.h"
#include "support/sample_inventory.h"
#include "support/text_fields.h"
#include "support/transcript.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <cstddef>
#include <cstdio>
#include <ctime>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <utility>

namespace {

using example::expect;

std::string utc(int seconds) {
    const std::time_t time = seconds;
    std::tm parts = {};
    gmtime_r(&time, &parts);
    char shown[32];
    std::strftime(shown, sizeof shown, "%Y-%m-%d %H:%M:%S", &parts);
    return shown;
}

// The first and the last rows of a list, one text for each.
template <class Line>
void showTable(const veltoprotocol::__tagVtRecordParam& found, Line line) {
    constexpr unsigned int ends = 3;
    line("decoded: " + example::counted(found.Counter, "recording") + " of channel " +
         example::printable(example::text(found.ChannelGuid)));
    for (unsigned int i = 0; i < found.Counter; ++i) {
        if (i == ends && found.Counter > 2 * ends) {
            line("  ...");
            i = found.Counter - ends;
        }
        const auto& record = found.Records[i];
        char shown[128];
        const auto length = static_cast<long long>(record.EndTime) - record.StartTime;
        std::snprintf(shown, sizeof shown, "  %5u  %s  %4lld s  %9d bytes  ", i + 1,
                      utc(record.StartTime).c_str(), length, record.RecordSize);
        line(shown + example::printable(example::text(record.PictureUrl)));
    }
}

class MediaClient {
  public:
    MediaClient(example::ClientOptions options, unsigned int records)
        : talk_(std::move(options)), connection_(talk_.options().port), records_(records) {}

    void run() {
        token_ = talk_.logIn(connection_);
        watchLive();
        moveCamera();
        searchRecordings();
        controlPlayback();
        sendBack(fetchPicture());
        talk_.logOut(connection_, token_);
    }

  private:
    // A command with an answer that has a result. `encoder` is called with sequence number, buffer and size.
    template <class Encoder>
    example::ReceivedMessage ask(const char* name, Encoder encoder) {
        const unsigned int seqnum = talk_.nextSeqnum();
        const std::string request =
            example::encoded([&](char* out, int size) { return encoder(seqnum, out, size); });
        example::ReceivedMessage answer = talk_.exchange(connection_, request, name, seqnum);
        expect(talk_.resultOf(answer) == 0, "result 0");
        return answer;
    }

    // The protocol names no end of a stream. This server sends a clip and then a frame without bytes.
    void watchLive() {
        talk_.title("A live stream");
        ask("StartRealplay", [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetRealPlayStartReqEncode(token_.c_str(), channel_.c_str(), 0,
                                                            example::host, seqnum, out, size);
        });
        example::ReceivedStream stream;
        for (std::size_t frames = 0;; ++frames) {
            const example::ReceivedMessage message = talk_.receive(connection_, "a frame");
            if (frames == 0) talk_.show(message);
            expect(message.status() == 200 && message.contentType() == "video/h264", "a video frame");
            if (!stream.add(message.body())) break;
        }
        const auto& last = stream.lastHeader();
        talk_.tell("decoded: " + example::counted(last.Sequence, "frame") + " of " +
                   std::to_string(last.Width) + "x" + std::to_string(last.Height) + ", " +
                   std::to_string(stream.keyFrames()) + " of them decodable alone, " +
                   example::counted(stream.video().size(), "byte") + " of H.264");
        expect(last.Sequence > 0, "a stream with frames");
        keep("live.h264", stream.video());
    }

    void moveCamera() {
        talk_.title("Pan, tilt, zoom");
        veltoprotocol::__tagVtPtzParam ptz = {};
        ptz.Control = 1;
        ptz.Command = 2;
        ptz.Speed = 5;
        ask("PtzControl", [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetPtzReqEncode(token_.c_str(), channel_.c_str(), &ptz, example::host,
                                                  seqnum, out, size);
        });
    }

    // The server has a recording for every five minutes.
    void searchRecordings() {
        talk_.title("A search for recordings");
        veltoprotocol::__tagVtSearchRecordParam wanted = {};
        wanted.StartTime = 1735689600; // 2025-01-01
        wanted.EndTime = wanted.StartTime + static_cast<int>(records_) * 300;
        wanted.RecordType = 1;
        const auto answer = ask("SearchRecord", [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetSearchRecordReqEncode(example::host, token_.c_str(), seqnum,
                                                           channel_.c_str(), &wanted, out, size);
        });
        const std::string block = example::blockOf(answer);
        const example::FoundRecords found(block);
        showTable(*found, [&](const std::string& line) { talk_.tell(line); });
        talk_.tell("from a block of " + example::counted(block.size(), "byte") + " behind the XML");
        expect(found->Counter == records_, "as many recordings as there are");
        expect(example::text(found->ChannelGuid) == channel_, "the recordings of the channel");
        for (unsigned int i = 0; i < found->Counter; ++i) {
            const auto& record = found->Records[i];
            expect(record.StartTime == wanted.StartTime + static_cast<int>(i) * 300 &&
                       record.EndTime == record.StartTime + 300 && record.RecordType == 1,
                   "recordings one after the other");
        }
    }

    void controlPlayback() {
        talk_.title("A playback control");
        veltoprotocol::__tagVtPlayBackCtrl control = {};
        example::fill(control.PlaybackGuid, example::guid('b', 1));
        control.Command = 3;
        example::fill(control.Speed, "1/2");
        control.Position = 4000000000U; // written as -294967296
        const auto answer = ask("PlaybackControl", [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetPlaybackControlReqEncode(token_.c_str(), channel_.c_str(), &control,
                                                              example::host, seqnum, out, size);
        });
        TiXmlElement* const response =
            answer.document()->FirstChildElement("servercommandservice")->FirstChildElement("response");
        int error = -1;
        const auto back = veltoprotocol::GetPlayBackCtrlParamDecode(response, &error);
        expect(error == 0 && back.Command == 3 && back.Position == control.Position &&
                   example::text(back.Speed) == "1/2" &&
                   example::text(back.SessionGuid) == example::guid('b', 1),
               "the control as it was sent");
        talk_.tell("decoded: command 3, speed 1/2, position " + std::to_string(back.Position));
    }

    // The answer says that the picture comes, the next message is the picture.
    example::Picture fetchPicture() {
        talk_.title("A picture of a recording");
        veltoprotocol::__tagVtRecordElementParam wanted = {};
        example::fill(wanted.ChannelGuid, channel_);
        example::fill(wanted.PictureGuid, example::guid('e', 1));
        example::fill(wanted.PictureUrl, "/pictures/00000.jpg");
        ask("DownloadPicture", [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetDownloadPictureReqEncode(example::host, token_.c_str(), seqnum, &wanted,
                                                              1, out, size);
        });
        const example::ReceivedMessage message = talk_.receive(connection_, "a picture");
        talk_.show(message);
        expect(message.status() == 200 && message.contentType() == "image/jpg", "a picture");
        std::optional<example::Picture> picture = example::readPicture(message.body());
        expect(picture.has_value(), "a picture with its words and GUID");
        expect(picture->param2 == 0, "the first picture");
        expect(picture->guid == example::guid('e', 1), "the picture that was asked for");
        talk_.tell("decoded: picture " + picture->guid + ", " +
                   example::counted(picture->image.size(), "byte"));
        keep("snapshot.jpg", picture->image);
        return std::move(*picture);
    }

    // An upload is a picture and no XML, so it carries neither token nor name. The first of its two words is
    // the sequence number: on that these two programs have agreed.
    void sendBack(const example::Picture& picture) {
        talk_.title("The picture goes back");
        ask("UploadPicture", [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetUploadPictureDataEncode(
                example::host, static_cast<int>(seqnum), 0, picture.guid.c_str(), "image/jpg",
                picture.image.data(), static_cast<int>(picture.image.size()), out, size);
        });
    }

    void keep(const std::string& name, const std::string& bytes) {
        if (!talk_.options().folder.empty()) example::writeFile(talk_.options().folder + "/" + name, bytes);
    }

    example::Conversation talk_;
    example::ClientConnection connection_;
    const unsigned int records_;
    const std::string channel_ = example::guid('c', 1);
    std::string token_;
};

void readBlock(const std::string& file) {
    const example::FoundRecords found(example::readFile(file));
    showTable(*found, [](const std::string& line) { std::cout << line << '\n'; });
}

} // namespace

int main(int argc, char** argv) {
    try {
        example::Arguments arguments(argc, argv);
        const std::string block = arguments.text("--read-block", "");
        if (!block.empty()) {
            arguments.refuseTheRest();
            readBlock(block);
            return 0;
        }
        const unsigned int records = arguments.number("--records", 10000, 10000);
        example::ClientOptions options = example::readClientOptions(arguments);
        arguments.refuseTheRest();
        MediaClient(std::move(options), records).run();
        std::cout << "\nEverything was as it should be.\n";
        return 0;
    } catch (const std::exception& error) {
        std::cout << std::flush;
        std::cerr << "media_client: " << error.what() << '\n';
        return 1;
    }
}
