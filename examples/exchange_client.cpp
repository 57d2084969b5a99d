// A client of the example server: is refused, logs in, fetches the devices, sends heartbeats and logs out.
//
//     exchange_client --port N [--user U --password P] [--seed N] [--no-split] [--first-seqnum N]
//                     [--heartbeats N] [--full] [--save FOLDER]
//
// Checks every answer and shows what goes over the wire; ends with 0 if everything was as it should be.
// Requests are sent in chunks cut at random (--seed), --no-split sends them whole. --full shows long messages
// to the end. --save writes every body, requests and responses, to a file of its own.

#include "support/arguments.h"
#include "support/client_connection.h"
#include "support/conversation.h"
#include "support/device_list.h"
#include "support/encoded.h"
#include "support/received_message.h"
#include "support/text_fields.h"
#include "support/transcript.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <iostream>
#include <string>
#include <utility>

namespace {

using example::expect;

class Client {
  public:
    Client(example::ClientOptions options, unsigned int heartbeats)
        : conversation_(std::move(options)), heartbeats_(heartbeats) {}

    void run() {
        beRefused();
        example::ClientConnection connection(conversation_.options().port);
        const std::string token = conversation_.logIn(connection);
        askWithoutRight(connection);
        askForNonsense(connection, token);
        const example::DeviceList all = fetch(connection, token, "GetAllDeviceList");
        const example::DeviceList own = fetch(connection, token, "GetUserDeviceList");
        expectPartOf(own, all);
        for (unsigned int i = 0; i < heartbeats_; ++i) heartbeat(connection, token);
        conversation_.logOut(connection, token);
    }

  private:
    // A refused login costs the connection, so it gets one of its own.
    void beRefused() {
        conversation_.title("A login with a wrong password");
        example::ClientConnection connection(conversation_.options().port);
        const example::ReceivedMessage answer =
            conversation_.login(connection, conversation_.options().password + "?");
        expect(answer.status() == 401, "status 401 for a wrong password");
        expect(conversation_.resultOf(answer) != 0, "a result other than 0 for a wrong password");
        conversation_.expectEnd(connection);
    }

    void askWithoutRight(example::ClientConnection& connection) {
        conversation_.title("The devices, with a token that nobody has");
        const example::ReceivedMessage answer = ask(connection, "no-such-token", "GetAllDeviceList");
        expect(conversation_.resultOf(answer) != 0, "a result other than 0 without a valid token");
        expect(example::readDeviceList(answer.document()).devices.empty(),
               "no devices without a valid token");
    }

    void askForNonsense(example::ClientConnection& connection, const std::string& token) {
        conversation_.title("A command that the server does not know");
        const example::ReceivedMessage answer = ask(connection, token, "GetWeather");
        expect(conversation_.resultOf(answer) != 0, "a result other than 0 for an unknown command");
    }

    example::DeviceList fetch(example::ClientConnection& connection, const std::string& token,
                              const char* name) {
        conversation_.title(name);
        const example::ReceivedMessage answer = ask(connection, token, name);
        expect(conversation_.resultOf(answer) == 0, "result 0");
        example::DeviceList list = example::readDeviceList(answer.document());
        show(list);
        return list;
    }

    // Any request without parameters can be written with the device list's encoder.
    example::ReceivedMessage ask(example::ClientConnection& connection, const std::string& token,
                                 const char* name) {
        const unsigned int seqnum = conversation_.nextSeqnum();
        const std::string request = example::encoded([&](char* out, int size) {
            return veltoprotocol::GetDeviceListReqEncode(example::host, token.c_str(), seqnum, out, size,
                                                         name);
        });
        return conversation_.exchange(connection, request, name, seqnum);
    }

    // The answer to a heartbeat has no result: that it comes is all it says.
    void heartbeat(example::ClientConnection& connection, const std::string& token) {
        conversation_.title("Heartbeat");
        const unsigned int seqnum = conversation_.nextSeqnum();
        const std::string request = example::encoded([&](char* out, int size) {
            return veltoprotocol::GetHeartBeatReqEncode(example::host, token.c_str(), seqnum, out, size);
        });
        conversation_.exchange(connection, request, "Heartbeat", seqnum);
    }

    void show(const example::DeviceList& list) {
        conversation_.tell("decoded: " + example::counted(list.devices.size(), "device") + ", " +
                           example::counted(list.channels.size(), "channel"));
        for (const auto& device : list.devices) {
            const std::string address =
                example::text(device.IPAddress) + ":" + std::to_string(device.DevicePort);
            conversation_.tell("  " + example::printable(address + "  " + example::text(device.DisplayName)));
            int channels = 0;
            for (const auto& channel : list.channels) {
                if (example::text(channel.DeviceGuid) != example::text(device.Guid)) continue;
                show(channel);
                ++channels;
            }
            expect(channels == device.ChannelCount, "as many channels as the device has");
        }
    }

    void show(const veltoprotocol::__tagVtChannelParam& channel) {
        char start[64];
        std::snprintf(start, sizeof start, "    %2d  %-7s  stream %d  ", channel.Num,
                      channel.Hidden != 0 ? "hidden" : "", channel.LiveStreamIndex);
        conversation_.tell(start + example::printable(example::text(channel.DisplayName)));
    }

    static void expectPartOf(const example::DeviceList& own, const example::DeviceList& all) {
        for (const auto& device : own.devices)
            expect(std::any_of(all.devices.begin(), all.devices.end(),
                               [&](const auto& other) {
                                   return example::text(other.Guid) == example::text(device.Guid) &&
                                          example::text(other.DisplayName) ==
                                              example::text(device.DisplayName);
                               }),
                   "the user's devices among all devices");
    }

    example::Conversation conversation_;
    const unsigned int heartbeats_;
};

} // namespace

int main(int argc, char** argv) {
    try {
        example::Arguments arguments(argc, argv);
        const unsigned int heartbeats = arguments.number("--heartbeats", 2, 1000);
        example::ClientOptions options = example::readClientOptions(arguments);
        arguments.refuseTheRest();
        Client(std::move(options), heartbeats).run();
        std::cout << "\nEverything was as it should be.\n";
        return 0;
    } catch (const std::exception& error) {
        std::cout << std::flush;
        std::cerr << "exchange_client: " << error.what() << '\n';
        return 1;
    }
}
