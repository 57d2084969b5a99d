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
#include "support/device_list.h"
#include "support/encoded.h"
#include "support/received_message.h"
#include "support/splitter.h"
#include "support/text_fields.h"
#include "support/transcript.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

struct Options {
    unsigned short port = 0;
    std::string user;
    std::string password;
    unsigned int seed = 1;
    unsigned int firstSeqnum = 1;
    unsigned int heartbeats = 2;
    bool split = true;
    bool full = false;
    std::string folder;
};

Options read(example::Arguments arguments) {
    Options options;
    options.port = static_cast<unsigned short>(arguments.number("--port", 0, 65535));
    options.user = arguments.text("--user", "operator");
    options.password = arguments.text("--password", "correct horse");
    options.seed = arguments.number("--seed", 1, 4294967295U);
    options.firstSeqnum = arguments.number("--first-seqnum", 1, 4294967295U);
    options.heartbeats = arguments.number("--heartbeats", 2, 1000);
    options.split = !arguments.flag("--no-split");
    options.full = arguments.flag("--full");
    options.folder = arguments.text("--save", "");
    arguments.refuseTheRest();
    if (options.port == 0) throw std::invalid_argument("--port is needed: the server's first line tells it");
    return options;
}

void expect(bool asItShould, const std::string& what) {
    if (!asItShould) throw std::runtime_error("not as it should be: " + what);
}

// The Host header. The port is left out so that the transcript does not depend on it.
constexpr const char* host = "127.0.0.1";

class Client {
  public:
    explicit Client(Options options)
        : options_(std::move(options)),
          splitter_(options_.seed, options_.split),
          transcript_(std::cout, "", options_.full),
          nextSeqnum_(options_.firstSeqnum) {}

    void run() {
        beRefused();
        example::ClientConnection connection(options_.port);
        const std::string token = logIn(connection);
        askWithoutRight(connection);
        askForNonsense(connection, token);
        const example::DeviceList all = fetch(connection, token, "GetAllDeviceList");
        const example::DeviceList own = fetch(connection, token, "GetUserDeviceList");
        expectPartOf(own, all);
        for (unsigned int i = 0; i < options_.heartbeats; ++i) heartbeat(connection, token);
        logOut(connection, token);
    }

  private:
    // A refused login costs the connection, so it gets one of its own.
    void beRefused() {
        title("A login with a wrong password");
        example::ClientConnection connection(options_.port);
        const example::ReceivedMessage answer = login(connection, options_.password + "?");
        expect(answer.status() == 401, "status 401 for a wrong password");
        expect(resultOf(answer) != 0, "a result other than 0 for a wrong password");
        expectEnd(connection);
    }

    std::string logIn(example::ClientConnection& connection) {
        title("Login");
        const example::ReceivedMessage answer = login(connection, options_.password);
        expect(answer.status() == 200, "status 200 for the right password");
        int result = -1;
        int error = -1;
        std::string token = veltoprotocol::GetLoginRespTokenDecode(answer.document(), &result, &error);
        expect(error == 0 && result == 0 && !token.empty(), "result 0 and a token");
        tell("decoded: a token of " + example::counted(token.size(), "character"));
        return token;
    }

    example::ReceivedMessage login(example::ClientConnection& connection, const std::string& password) {
        veltoprotocol::__tagVtDeviceParam credentials = {};
        example::fill(credentials.UserName, options_.user);
        example::fill(credentials.Password, password);
        const unsigned int seqnum = nextSeqnum_++;
        const std::string request = example::encoded([&](char* out, int size) {
            return veltoprotocol::GetLoginReqEncode(&credentials, host, seqnum, out, size);
        });
        return exchange(connection, request, "Login", seqnum);
    }

    void askWithoutRight(example::ClientConnection& connection) {
        title("The devices, with a token that nobody has");
        const example::ReceivedMessage answer = ask(connection, "no-such-token", "GetAllDeviceList");
        expect(resultOf(answer) != 0, "a result other than 0 without a valid token");
        expect(example::readDeviceList(answer.document()).devices.empty(),
               "no devices without a valid token");
    }

    void askForNonsense(example::ClientConnection& connection, const std::string& token) {
        title("A command that the server does not know");
        const example::ReceivedMessage answer = ask(connection, token, "GetWeather");
        expect(resultOf(answer) != 0, "a result other than 0 for an unknown command");
    }

    example::DeviceList fetch(example::ClientConnection& connection, const std::string& token,
                              const char* name) {
        title(name);
        const example::ReceivedMessage answer = ask(connection, token, name);
        expect(resultOf(answer) == 0, "result 0");
        example::DeviceList list = example::readDeviceList(answer.document());
        show(list);
        return list;
    }

    // Any request without parameters can be written with the device list's encoder.
    example::ReceivedMessage ask(example::ClientConnection& connection, const std::string& token,
                                 const char* name) {
        const unsigned int seqnum = nextSeqnum_++;
        const std::string request = example::encoded([&](char* out, int size) {
            return veltoprotocol::GetDeviceListReqEncode(host, token.c_str(), seqnum, out, size, name);
        });
        return exchange(connection, request, name, seqnum);
    }

    // The answer to a heartbeat has no result: that it comes is all it says.
    void heartbeat(example::ClientConnection& connection, const std::string& token) {
        title("Heartbeat");
        const unsigned int seqnum = nextSeqnum_++;
        const std::string request = example::encoded([&](char* out, int size) {
            return veltoprotocol::GetHeartBeatReqEncode(host, token.c_str(), seqnum, out, size);
        });
        exchange(connection, request, "Heartbeat", seqnum);
    }

    void logOut(example::ClientConnection& connection, const std::string& token) {
        title("Logout");
        const unsigned int seqnum = nextSeqnum_++;
        const std::string request = example::encoded([&](char* out, int size) {
            return veltoprotocol::GetLogoutReqEncode(host, token.c_str(), seqnum, out, size);
        });
        expect(resultOf(exchange(connection, request, "Logout", seqnum)) == 0, "result 0");
        expectEnd(connection);
    }

    // Sends a request, waits for its answer and checks what is the same in all answers.
    example::ReceivedMessage exchange(example::ClientConnection& connection, const std::string& request,
                                      const std::string& name, unsigned int seqnum) {
        save(request, name, "request");
        const auto chunks = splitter_.split(request);
        transcript_.sent(request, chunks.size());
        connection.send(chunks);

        std::optional<std::string> message = connection.receive();
        expect(message.has_value(), "an answer to " + name);
        transcript_.received(*message);
        save(*message, name, "response");

        example::ReceivedMessage answer(std::move(*message));
        int error = -1;
        expect(answer.document() != nullptr, "a readable answer");
        expect(answer.contentType() == "text/xml; charset=utf-8", "an answer that says that it is XML");
        expect(veltoprotocol::GetResponseNameDecode(answer.document(), &error) == name && error == 0,
               "an answer to " + name);
        expect(veltoprotocol::GetSeqnumberDecode(answer.document(), &error) == seqnum && error == 0,
               "seqnum " + std::to_string(seqnum));
        expect(veltoprotocol::GetVersionDecode(answer.document(), &error) == "1.0.0" && error == 0,
               "version 1.0.0");
        tell("decoded: status " + std::to_string(answer.status()) + ", " + name + ", seqnum " +
             std::to_string(seqnum));
        return answer;
    }

    int resultOf(const example::ReceivedMessage& answer) {
        int error = -1;
        const int result = veltoprotocol::GetResponseErrorcodeDecode(answer.document(), &error);
        expect(error == 0 && result != -1, "an answer with a result");
        tell("decoded: result " + std::to_string(result));
        return result;
    }

    void expectEnd(example::ClientConnection& connection) {
        expect(!connection.receive().has_value(), "nothing more, since the server ends the connection");
        tell("the server has ended the connection");
    }

    void show(const example::DeviceList& list) {
        tell("decoded: " + example::counted(list.devices.size(), "device") + ", " +
             example::counted(list.channels.size(), "channel"));
        for (const auto& device : list.devices) {
            const std::string address =
                example::text(device.IPAddress) + ":" + std::to_string(device.DevicePort);
            tell("  " + example::printable(address + "  " + example::text(device.DisplayName)));
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
        tell(start + example::printable(example::text(channel.DisplayName)));
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

    void save(const std::string& message, const std::string& name, const std::string& kind) {
        if (options_.folder.empty()) return;
        char number[16];
        std::snprintf(number, sizeof number, "%03u", ++saved_);
        const std::string path = options_.folder + "/" + number + "-" + name + "-" + kind + ".xml";
        std::ofstream file(path, std::ios::binary);
        file << example::ReceivedMessage(message).body();
        file.close();
        if (!file) throw std::runtime_error("cannot write " + path);
    }

    void title(const std::string& text) {
        transcript_.line("");
        transcript_.line("== " + text);
    }

    void tell(const std::string& text) { transcript_.line("    " + text); }

    const Options options_;
    example::Splitter splitter_;
    example::Transcript transcript_;
    unsigned int nextSeqnum_; // may step from 4294967295 to 0
    unsigned int saved_ = 0;
};

} // namespace

int main(int argc, char** argv) {
    try {
        Client(read(example::Arguments(argc, argv))).run();
        std::cout << "\nEverything was as it should be.\n";
        return 0;
    } catch (const std::exception& error) {
        std::cout << std::flush;
        std::cerr << "exchange_client: " << error.what() << '\n';
        return 1;
    }
}
