// A small management server on this machine: answers logins, device lists, heartbeats and logouts over TCP,
// requests for live video, recordings and pictures; keeps view groups and maps, and what an administrator
// changes; pushes events.
//
//     exchange_server [--port N] [--once] [--seed N] [--no-split] [--full] [--patience N] [--media FOLDER]
//                     [--events-every N]
//
// Port 0, which is the default, takes any free port; the first line says which. --once ends the server when
// the first client has logged out. Answers are sent in chunks cut at random (--seed), --no-split sends them
// whole. --full shows long messages to the end. A client that is silent for longer than --patience seconds
// (30) is hung up on; that is what heartbeats are for. --media names the folder with the clip that is
// streamed and its snapshot, examples/data.
//
// Subscribers get events around the answers to their requests, in an order that the seed decides. With
// --events-every they also get some every so many milliseconds, whether they ask for something or not.
//
// One thread serves all connections. How one is served stands in support/server_connection.h; what the
// answers are, in support/management_server.h and what it includes.

#include "support/arguments.h"
#include "support/management_server.h"
#include "support/networking.h"
#include "support/server_connection.h"

#include <chrono>
#include <csignal>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <utility>

namespace {

using asio::ip::tcp;
using Options = example::ServerOptions;

Options read(example::Arguments arguments) {
    Options options;
    options.port = static_cast<unsigned short>(arguments.number("--port", 0, 65535));
    options.seed = arguments.number("--seed", 1, 4294967295U);
    options.patience = std::chrono::seconds(arguments.number("--patience", 30, 86400));
    options.eventsEvery = std::chrono::milliseconds(arguments.number("--events-every", 0, 86400000));
    options.mediaFolder = arguments.text("--media", "");
    options.once = arguments.flag("--once");
    options.split = !arguments.flag("--no-split");
    options.full = arguments.flag("--full");
    arguments.refuseTheRest();
    return options;
}

class Listener {
  public:
    Listener(asio::io_context& context, const Options& options)
        : context_(context),
          options_(options),
          retry_(context),
          acceptor_(context, tcp::endpoint(asio::ip::address_v4::loopback(), options.port)),
          server_(options.mediaFolder, options.eventsEvery, port()) {}

    unsigned short port() const { return acceptor_.local_endpoint().port(); }

    void accept() {
        acceptor_.async_accept([this](auto error, tcp::socket socket) {
            if (error) return acceptLater(error.message());
            const auto whenLoggedOut = [this] {
                if (options_.once) context_.stop();
            };
            std::make_shared<example::ServerConnection>(std::move(socket), ++connections_, options_, server_,
                                                        whenLoggedOut)
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
