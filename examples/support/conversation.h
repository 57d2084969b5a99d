// What the clients have in common: their command line, the session, and the checks that every answer has to
// pass. Shows what goes over the wire.
#ifndef EXAMPLES_CONVERSATION_H
#define EXAMPLES_CONVERSATION_H

#include "support/arguments.h"
#include "support/client_connection.h"
#include "support/encoded.h"
#include "support/files.h"
#include "support/received_message.h"
#include "support/splitter.h"
#include "support/text_fields.h"
#include "support/transcript.h"

#include <LibVeltoProtocol.h>

#include <cstdio>
#include <functional>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace example {

struct ClientOptions {
    unsigned short port = 0;
    std::string user;
    std::string password;
    unsigned int seed = 1;
    unsigned int firstSeqnum = 1;
    bool split = true;
    bool full = false;
    std::string folder; // for what --save saves; empty to save nothing
};

// `user` is who logs in if the command line names nobody else.
inline ClientOptions readClientOptions(Arguments& arguments, const std::string& user = "operator",
                                       const std::string& password = "correct horse") {
    ClientOptions options;
    options.port = static_cast<unsigned short>(arguments.number("--port", 0, 65535));
    options.user = arguments.text("--user", user);
    options.password = arguments.text("--password", password);
    options.seed = arguments.number("--seed", 1, 4294967295U);
    options.firstSeqnum = arguments.number("--first-seqnum", 1, 4294967295U);
    options.split = !arguments.flag("--no-split");
    options.full = arguments.flag("--full");
    options.folder = arguments.text("--save", "");
    if (options.port == 0) throw std::invalid_argument("--port is needed: the server's first line tells it");
    return options;
}

inline void expect(bool asItShould, const std::string& what) {
    if (!asItShould) throw std::runtime_error("not as it should be: " + what);
}

// The Host header. The port is left out so that the transcript does not depend on it.
constexpr const char* host = "127.0.0.1";

class Conversation {
  public:
    explicit Conversation(ClientOptions options)
        : options_(std::move(options)),
          splitter_(options_.seed, options_.split),
          transcript_(std::cout, "", options_.full),
          nextSeqnum_(options_.firstSeqnum) {}

    const ClientOptions& options() const { return options_; }
    unsigned int nextSeqnum() { return nextSeqnum_++; }

    std::string logIn(ClientConnection& connection) {
        title("Login");
        const ReceivedMessage answer = login(connection, options_.password);
        expect(answer.status() == 200, "status 200 for the right password");
        int result = -1;
        int error = -1;
        std::string token = veltoprotocol::GetLoginRespTokenDecode(answer.document(), &result, &error);
        expect(error == 0 && result == 0 && !token.empty(), "result 0 and a token");
        tell("decoded: a token of " + counted(token.size(), "character"));
        return token;
    }

    ReceivedMessage login(ClientConnection& connection, const std::string& password) {
        veltoprotocol::__tagVtDeviceParam credentials = {};
        fill(credentials.UserName, options_.user);
        fill(credentials.Password, password);
        const unsigned int seqnum = nextSeqnum();
        const std::string request = encoded([&](char* out, int size) {
            return veltoprotocol::GetLoginReqEncode(&credentials, host, seqnum, out, size);
        });
        return exchange(connection, request, "Login", seqnum);
    }

    void logOut(ClientConnection& connection, const std::string& token) {
        title("Logout");
        const unsigned int seqnum = nextSeqnum();
        const std::string request = encoded([&](char* out, int size) {
            return veltoprotocol::GetLogoutReqEncode(host, token.c_str(), seqnum, out, size);
        });
        expect(resultOf(exchange(connection, request, "Logout", seqnum)) == 0, "result 0");
        expectEnd(connection);
    }

    // Who subscribes to events gets them at any time, also while an answer is waited for.
    void whenPushed(std::function<void(const ReceivedMessage&)> handler) { pushed_ = std::move(handler); }

    // Sends a request and waits for its answer.
    ReceivedMessage exchange(ClientConnection& connection, const std::string& request,
                             const std::string& name, unsigned int seqnum) {
        send(connection, request, name);
        return awaitAnswer(connection, name, seqnum);
    }

    void send(ClientConnection& connection, const std::string& request, const std::string& name) {
        save(request, name, "request");
        const auto chunks = splitter_.split(request);
        transcript_.sent(request, chunks.size());
        connection.send(chunks);
    }

    // The next answer, with what is the same in all answers checked. The server answers in the order of the
    // requests. Events before it go to their handler.
    ReceivedMessage awaitAnswer(ClientConnection& connection, const std::string& name, unsigned int seqnum) {
        ReceivedMessage answer = receive(connection, "an answer to " + name);
        while (takeEvent(answer)) answer = receive(connection, "an answer to " + name);
        show(answer);
        save(answer.bytes(), name, "response");
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

    // Waits for an event while there is no answer to come.
    void awaitEvent(ClientConnection& connection) {
        expect(takeEvent(receive(connection, "an event")), "an event, since nothing was asked");
    }

    // The next message, whatever it is.
    static ReceivedMessage receive(ClientConnection& connection, const std::string& what) {
        std::optional<std::string> message = connection.receive();
        expect(message.has_value(), what + " was to come, but the server has ended the connection");
        return ReceivedMessage(std::move(*message));
    }

    void show(const ReceivedMessage& message) { transcript_.received(message.bytes()); }

    int resultOf(const ReceivedMessage& answer) {
        int error = -1;
        const int result = veltoprotocol::GetResponseErrorcodeDecode(answer.document(), &error);
        expect(error == 0 && result != -1, "an answer with a result");
        tell("decoded: result " + std::to_string(result));
        return result;
    }

    void expectEnd(ClientConnection& connection) {
        expect(!connection.receive().has_value(), "nothing more, since the server ends the connection");
        tell("the server has ended the connection");
    }

    void title(const std::string& text) {
        transcript_.line("");
        transcript_.line("== " + text);
    }

    void tell(const std::string& text) { transcript_.line("    " + text); }

  private:
    // An event is told from an answer by its name. Its sequence number is the server's own, so it may be that
    // of a request as well.
    bool takeEvent(const ReceivedMessage& message) {
        int error = -1;
        if (!pushed_ || !message.document() ||
            veltoprotocol::GetResponseNameDecode(message.document(), &error) != "NotificationContent")
            return false;
        save(message.bytes(), "NotificationContent", "event");
        pushed_(message);
        return true;
    }

    void save(const std::string& message, const std::string& name, const std::string& kind) {
        if (options_.folder.empty()) return;
        char number[16];
        std::snprintf(number, sizeof number, "%03u", ++saved_);
        const ReceivedMessage whole(message);
        writeFile(options_.folder + "/" + number + "-" + name + "-" + kind +
                      (whole.isMedia() ? ".bin" : ".xml"),
                  whole.body());
    }

    const ClientOptions options_;
    Splitter splitter_;
    Transcript transcript_;
    unsigned int nextSeqnum_; // may step from 4294967295 to 0
    unsigned int saved_ = 0;
    std::function<void(const ReceivedMessage&)> pushed_;
};

} // namespace example

#endif
