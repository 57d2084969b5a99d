// A small management server on this machine: answers logins, device lists, heartbeats and logouts over TCP,
// and requests for live video, recordings and pictures.
//
//     exchange_server [--port N] [--once] [--seed N] [--no-split] [--full] [--patience N] [--media FOLDER]
//
// Port 0, which is the default, takes any free port; the first line says which. --once ends the server when
// the first client has logged out. Answers are sent in chunks cut at random (--seed), --no-split sends them
// whole. --full shows long messages to the end. A client that is silent for longer than --patience seconds
// (30) is hung up on; that is what heartbeats are for. --media names the folder with the clip that is
// streamed and its snapshot, examples/data.
//
// One thread serves all connections. What the answers are stands in support/management_server.h and
// support/media_server.h.

#include "support/arguments.h"
#include "support/management_server.h"
#include "support/message_stream.h"
#include "support/networking.h"
#include "support/received_message.h"
#include "support/splitter.h"
#include "support/transcript.h"

#include <array>
#include <chrono>
#include <csignal>
#include <exception>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using asio::ip::tcp;

struct Options {
    unsigned short port = 0;
    unsigned int seed = 1;
    std::chrono::seconds patience{30};
    std::string mediaFolder;
    bool once = false;
    bool split = true;
    bool full = false;
};

Options read(example::Arguments arguments) {
    Options options;
    options.port = static_cast<unsigned short>(arguments.number("--port", 0, 65535));
    options.seed = arguments.number("--seed", 1, 4294967295U);
    options.patience = std::chrono::seconds(arguments.number("--patience", 30, 86400));
    options.mediaFolder = arguments.text("--media", "");
    options.once = arguments.flag("--once");
    options.split = !arguments.flag("--no-split");
    options.full = arguments.flag("--full");
    arguments.refuseTheRest();
    return options;
}

// One client. It reads until a message is whole, answers it, and only then looks for the next one: a client
// that sends faster than it reads fills no memory here. It lives as long as an operation of it is under way.
class Connection : public std::enable_shared_from_this<Connection> {
  public:
    Connection(tcp::socket socket, unsigned int number, const Options& options,
               example::ManagementServer& server, std::function<void()> whenLoggedOut)
        : socket_(std::move(socket)),
          timer_(socket_.get_executor()),
          patience_(options.patience),
          transcript_(std::cout, "[" + std::to_string(number) + "] ", options.full),
          splitter_(options.seed + number, options.split),
          server_(server),
          whenLoggedOut_(std::move(whenLoggedOut)) {}

    void start() {
        asio::error_code ignored; // without it the chunks are only sent together
        socket_.set_option(tcp::no_delay(true), ignored);
        transcript_.line("connected");
        receive();
    }

  private:
    void receive() {
        watch(patience_);
        socket_.async_read_some(asio::buffer(input_), [self = shared_from_this()](auto error, auto length) {
            if (error) return self->gone();
            self->stream_.add(self->input_.data(), length);
            self->answerNext();
        });
    }

    void answerNext() {
        std::string message;
        switch (stream_.next(message)) {
        case example::MessageStream::State::incomplete:
            return receive();
        case example::MessageStream::State::unusable:
            return hangUp(stream_.problem());
        case example::MessageStream::State::whole:
            break;
        }
        transcript_.received(message);
        std::optional<example::Answer> answer =
            server_.answer(example::ReceivedMessage(std::move(message)), visitor_);
        if (!answer) return hangUp("this is no command");
        answer_ = std::move(*answer);
        transcript_.line("    decoded: " + example::printable(answer_.decoded));
        sendMessage();
    }

    void sendMessage() {
        chunks_ = splitter_.split(answer_.message);
        transcript_.sent(answer_.message, chunks_.size());
        send(0);
    }

    // Sends the chunks one after another.
    void send(std::size_t next) {
        if (next == chunks_.size()) return sent();
        watch(patience_);
        const auto chunk = asio::buffer(chunks_[next].data(), chunks_[next].size());
        asio::async_write(socket_, chunk, [self = shared_from_this(), next](auto error, auto) {
            if (error) return self->gone();
            self->send(next + 1);
        });
    }

    // A live stream is many messages. The next one is made when the last one is gone.
    void sent() {
        std::optional<std::string> more = answer_.more ? answer_.more() : std::nullopt;
        if (!more) return answer_.close ? finish() : answerNext();
        answer_.message = std::move(*more);
        sendMessage();
    }

    // The orderly end: says that nothing more comes and lets the client end. Closing at once, with bytes from
    // the client still unread, could take the last answer away from it.
    void finish() {
        asio::error_code ignored; // the client may be gone already
        socket_.shutdown(tcp::socket::shutdown_send, ignored);
        watch(std::chrono::seconds(5));
        drain();
    }

    void drain() {
        socket_.async_read_some(asio::buffer(input_), [self = shared_from_this()](auto error, auto) {
            if (!error) return self->drain();
            self->transcript_.line("ended");
            self->timer_.cancel();
            if (self->answer_.loggedOut) self->whenLoggedOut_();
        });
    }

    void gone() {
        if (!socket_.is_open()) return; // closed on this side, and told already
        timer_.cancel();
        if (stream_.waiting() == 0) return transcript_.line("the client is gone");
        transcript_.line("the client is gone, " + std::to_string(stream_.waiting()) +
                         " bytes into a message");
    }

    void hangUp(std::string_view reason) {
        transcript_.line("hanging up: " + std::string(reason));
        asio::error_code ignored; // there is nothing left to do for this client
        socket_.close(ignored);
        timer_.cancel();
    }

    // Closes the connection if the next operation takes too long. The timer alone keeps no connection alive.
    void watch(std::chrono::seconds patience) {
        timer_.expires_after(patience);
        timer_.async_wait([weak = weak_from_this()](auto) {
            const auto self = weak.lock();
            if (self && self->timer_.expiry() <= std::chrono::steady_clock::now())
                self->hangUp("it takes too long");
        });
    }

    tcp::socket socket_;
    asio::steady_timer timer_;
    const std::chrono::seconds patience_;
    example::MessageStream stream_;
    example::Transcript transcript_;
    example::Splitter splitter_;
    example::ManagementServer& server_;
    std::function<void()> whenLoggedOut_;
    std::array<char, 4096> input_ = {};
    example::Visitor visitor_;
    example::Answer answer_;
    std::vector<std::string_view> chunks_; // of answer_
};

class Listener {
  public:
    Listener(asio::io_context& context, const Options& options)
        : context_(context),
          options_(options),
          retry_(context),
          acceptor_(context, tcp::endpoint(asio::ip::address_v4::loopback(), options.port)),
          server_(options.mediaFolder) {}

    unsigned short port() const { return acceptor_.local_endpoint().port(); }

    void accept() {
        acceptor_.async_accept([this](auto error, tcp::socket socket) {
            if (error) return acceptLater(error.message());
            const auto whenLoggedOut = [this] {
                if (options_.once) context_.stop();
            };
            std::make_shared<Connection>(std::move(socket), ++connections_, options_, server_, whenLoggedOut)
                ->start();
            accept();
        });
    }

  private:
    // Too many open files, for example: the next attempt may do better, but not at once.
    void acceptLater(const std::string& reason) {
        std::cout << "cannot accept: " << reason << std::endl;
        retry_.expires_after(std::chrono::milliseconds(200));
        retry_.async_wait([this](auto error) {
            if (!error) accept();
        });
    }

    asio::io_context& context_;
    const Options options_;
    asio::steady_timer retry_;
    tcp::acceptor acceptor_;
    example::ManagementServer server_;
    unsigned int connections_ = 0;
};

// What goes wrong with one message costs that connection, never the server: its handler drops the connection
// on the way out.
void run(asio::io_context& context) {
    while (!context.stopped()) {
        try {
            context.run();
        } catch (const std::exception& error) {
            std::cout << "a connection is given up: " << error.what() << std::endl;
        }
    }
}

void serve(const Options& options) {
    asio::io_context context;
    Listener listener(context, options);
    asio::signal_set signals(context, SIGINT, SIGTERM);
    signals.async_wait([&](auto, auto) { context.stop(); });
    std::cout << "listening on 127.0.0.1:" << listener.port() << std::endl;
    listener.accept();
    run(context);
    std::cout << "the server ends" << std::endl;
}

} // namespace

int main(int argc, char** argv) {
    try {
        serve(read(example::Arguments(argc, argv)));
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "exchange_server: " << error.what() << '\n';
        return 1;
    }
}
