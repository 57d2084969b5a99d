// A client of the example server: subscribes to events and goes on sending commands on the same connection.
//
//     events_client --port N [--user U --password P] [--seed N] [--no-split] [--first-seqnum N] [--full]
//                   [--save FOLDER] [--events N] [--idle N] [--heartbeat-every N]
//
// Sends commands, up to three before it waits for their answers, until at least --events events (20) have
// come. Then it only listens, until --idle more (0) have come, and sends nothing but a heartbeat every so
// many milliseconds (10000); a server that pushes only around answers has few for such a client. Checks
// every event and every answer and ends with 0 if everything was as it should be. The seed decides what is
// asked. The other arguments are those of exchange_client.

#include "support/arguments.h"
#include "support/client_connection.h"
#include "support/conversation.h"
#include "support/device_list.h"
#include "support/encoded.h"
#include "support/event_log.h"
#include "support/history_check.h"
#include "support/received_events.h"
#include "support/received_message.h"
#include "support/sample_events.h"
#include "support/sample_inventory.h"
#include "support/text_fields.h"
#include "support/view_groups.h"

#include <LibVeltoProtocol.h>

#include <chrono>
#include <exception>
#include <functional>
#include <iostream>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using example::expect;

struct EventOptions {
    unsigned int events = 20;
    unsigned int idle = 0;
    std::chrono::milliseconds heartbeatEvery{10000};
};

class EventsClient {
  public:
    EventsClient(example::ClientOptions options, EventOptions events)
        : talk_(std::move(options)),
          connection_(talk_.options().port),
          options_(events),
          random_(talk_.options().seed) {}

    void run() {
        token_ = talk_.logIn(connection_);
        fetchChannels();
        subscribe();
        talk_.title("Commands, with events between their answers");
        for (unsigned int rounds = 0; log_.seen() < options_.events; ++rounds) {
            expect(rounds < 100 + options_.events, "an event now and then");
            askAndAwait();
        }
        if (options_.idle > 0) listen();
        searchAll();
        talk_.logOut(connection_, token_);
        report();
    }

  private:
    using Check = std::function<void(const example::ReceivedMessage&)>;

    // A request that was sent, and what to do with its answer.
    struct Pending {
        std::string name;
        unsigned int seqnum;
        Check check;
    };

    Pending send(const char* name, unsigned int seqnum, const std::string& request, Check check) {
        talk_.send(connection_, request, name);
        return {name, seqnum, std::move(check)};
    }

    // `encoder` is called with sequence number, buffer and size.
    template <class Encoder>
    Pending send(const char* name, Encoder encoder, Check check) {
        const unsigned int seqnum = talk_.nextSeqnum();
        return send(name, seqnum,
                    example::encoded([&](char* out, int size) { return encoder(seqnum, out, size); }),
                    std::move(check));
    }

    void await(const Pending& request) {
        request.check(talk_.awaitAnswer(connection_, request.name, request.seqnum));
    }

    void expectSuccess(const example::ReceivedMessage& answer) {
        expect(talk_.resultOf(answer) == 0, "result 0");
    }

    Pending askForDevices() {
        const auto encoder = [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetUserDeviceListReqEncode(example::host, token_.c_str(), seqnum, out,
                                                             size);
        };
        return send("GetUserDeviceList", encoder, [this](const example::ReceivedMessage& answer) {
            expectSuccess(answer);
            const example::DeviceList list = example::readDeviceList(answer.document());
            if (channels_.empty()) channels_ = list.channels;
            expect(list.channels.size() == channels_.size(), "the channels that were there before");
        });
    }

    Pending askForViewGroups() {
        const std::string user = example::userGuid(talk_.options().user);
        const auto encoder = [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetViewGroupsReqEncode(example::host, token_.c_str(), seqnum, user.c_str(),
                                                         out, size);
        };
        return send("GetViewGroups", encoder, [this, user](const example::ReceivedMessage& answer) {
            expectSuccess(answer);
            for (const auto& entry : example::readCatalogue(answer.document()))
                expect(example::text(entry.UserGuid) == user, "the user's own view groups");
        });
    }

    // The answer to a heartbeat has no result: that it comes is all it says.
    Pending heartbeat() {
        const auto encoder = [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetHeartBeatReqEncode(example::host, token_.c_str(), seqnum, out, size);
        };
        return send("Heartbeat", encoder, [](const example::ReceivedMessage&) {});
    }

    Pending search(const example::HistorySearch& wanted) {
        const unsigned int seqnum = talk_.nextSeqnum();
        const auto check = [this, wanted](const example::ReceivedMessage& answer) {
            expectSuccess(answer);
            example::checkPage(example::readAlarmPage(answer.document()), wanted, channels_, talk_);
        };
        return send("SearchHistoryAlarm", seqnum, example::searchRequest(wanted, token_, seqnum), check);
    }

    void fetchChannels() {
        talk_.title("The channels that events can be about");
        await(askForDevices());
        expect(!channels_.empty(), "a user who may see channels");
    }

    // Events come as soon as the server has acknowledged, so there has to be somebody to take them before.
    void subscribe() {
        talk_.title("A subscription");
        talk_.whenPushed([this](const auto& message) { log_.take(message, channels_, talk_); });
        const auto encoder = [&](unsigned int seqnum, char* out, int size) {
            // The token comes before the host here.
            return veltoprotocol::GetNotificationReqEncode(token_.c_str(), example::host, seqnum, out, size);
        };
        await(send("Notification", encoder,
                   [this](const example::ReceivedMessage& answer) { expectSuccess(answer); }));
    }

    // Nobody has to wait for an answer before the next request.
    void askAndAwait() {
        std::vector<Pending> pending;
        for (unsigned int count = 1 + random_() % 3; count > 0; --count) pending.push_back(askAnything());
        for (const Pending& request : pending) await(request);
    }

    Pending askAnything() {
        switch (random_() % 4) {
        case 0:
            return heartbeat();
        case 1:
            return askForDevices();
        case 2:
            return askForViewGroups();
        default:
            return search(anySearch());
        }
    }

    // Of all channels or one, of any level or one, and few enough hits that a page may be empty.
    example::HistorySearch anySearch() {
        example::HistorySearch wanted = {};
        const auto& channel = channels_[random_() % channels_.size()];
        if (random_() % 3 != 0) wanted.channel = example::text(channel.Guid);
        wanted.level = static_cast<int>(random_() % 4);
        wanted.begin = static_cast<int>(random_() % 3);
        wanted.end = wanted.begin + static_cast<int>(random_() % 4);
        return wanted;
    }

    void searchAll() {
        talk_.title("The whole history, page by page");
        constexpr int length = 15;
        // The page behind the last one is empty.
        const int hits = static_cast<int>(example::pastAlarms(channels_));
        for (int begin = 0; begin < hits + length; begin += length)
            await(search({"", 0, begin, begin + length - 1}));
    }

    // A client with nothing to say still says that it is there.
    void listen() {
        talk_.title("Nothing but events and heartbeats");
        using Clock = std::chrono::steady_clock;
        const unsigned int enough = log_.seen() + options_.idle;
        Clock::time_point due = Clock::now() + options_.heartbeatEvery;
        while (log_.seen() < enough) {
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(due - Clock::now());
            if (left.count() <= 0) {
                await(heartbeat());
                due = Clock::now() + options_.heartbeatEvery;
            } else if (connection_.comesWithin(left)) {
                talk_.awaitEvent(connection_);
            }
        }
    }

    void report() {
        talk_.title("What has come");
        log_.report(talk_);
        expect(log_.seen() < 5 || log_.kinds() == 5, "all five kinds of events");
    }

    example::Conversation talk_;
    example::ClientConnection connection_;
    const EventOptions options_;
    std::mt19937 random_;
    std::string token_;
    example::Channels channels_;
    example::EventLog log_;
};

} // namespace

int main(int argc, char** argv) {
    try {
        example::Arguments arguments(argc, argv);
        EventOptions events;
        events.events = arguments.number("--events", 20, 1000000);
        events.idle = arguments.number("--idle", 0, 1000000);
        events.heartbeatEvery =
            std::chrono::milliseconds(arguments.number("--heartbeat-every", 10000, 1000000));
        example::ClientOptions options = example::readClientOptions(arguments);
        arguments.refuseTheRest();
        EventsClient(std::move(options), events).run();
        std::cout << "\nEverything was as it should be.\n";
        return 0;
    } catch (const std::exception& error) {
        std::cout << std::flush;
        std::cerr << "events_client: " << error.what() << '\n';
        return 1;
    }
}
