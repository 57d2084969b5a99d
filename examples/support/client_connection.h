// The client's side of a TCP connection: sends in chunks, receives whole messages, waits for neither for
// ever.
#ifndef EXAMPLES_CLIENT_CONNECTION_H
#define EXAMPLES_CLIENT_CONNECTION_H

#include "support/message_stream.h"
#include "support/networking.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace example {

class ClientConnection {
  public:
    // Connects to a server on this machine. Throws, like everything here, when the network does not do it.
    explicit ClientConnection(unsigned short port) : socket_(context_) {
        const asio::ip::tcp::endpoint server(asio::ip::address_v4::loopback(), port);
        within("connecting", [&](auto done) {
            socket_.async_connect(server, [done](auto error) mutable { done(error, 0); });
        });
        socket_.set_option(asio::ip::tcp::no_delay(true)); // each chunk goes out at once
    }

    void send(const std::vector<std::string_view>& chunks) {
        for (const std::string_view chunk : chunks)
            within("sending", [&](auto done) {
                asio::async_write(socket_, asio::buffer(chunk.data(), chunk.size()), done);
            });
    }

    // The next whole message; nothing if the server has ended the connection.
    std::optional<std::string> receive() {
        std::string message;
        for (;;) {
            switch (stream_.next(message)) {
            case MessageStream::State::whole:
                return message;
            case MessageStream::State::unusable:
                throw std::runtime_error(stream_.problem());
            case MessageStream::State::incomplete:
                break;
            }
            std::array<char, 4096> input = {};
            const std::size_t length =
                within("receiving", [&](auto done) { socket_.async_read_some(asio::buffer(input), done); });
            if (length == 0) break;
            stream_.add(input.data(), length);
        }
        if (stream_.waiting() > 0)
            throw std::runtime_error("the connection ended in the middle of a message");
        return {};
    }

    // Whether something comes within that time. What has come stays for receive().
    bool comesWithin(std::chrono::milliseconds time) {
        if (stream_.waiting() > 0) return true;
        bool comes = false;
        socket_.async_wait(asio::ip::tcp::socket::wait_read, [&](auto error) {
            comes = error != asio::error::operation_aborted; // any other error is for receive() to tell
        });
        context_.restart();
        context_.run_for(time);
        socket_.cancel();
        context_.run(); // lets the wait end, since it refers to what is here
        return comes;
    }

  private:
    // Starts an operation and waits until it is done: its length, 0 at the end of the connection.
    template <class Start>
    std::size_t within(const char* what, Start start) {
        asio::error_code result;
        std::size_t transferred = 0;
        start([&](asio::error_code error, std::size_t length) {
            result = error;
            transferred = length;
        });
        context_.restart();
        context_.run_for(std::chrono::seconds(20));
        if (!context_.stopped()) {
            socket_.close();
            context_.run(); // lets the operation end, since it refers to what is here
            throw std::runtime_error(std::string(what) + " takes too long");
        }
        if (result == asio::error::eof) return 0;
        if (result) throw std::runtime_error(std::string(what) + ": " + result.message());
        return transferred;
    }

    asio::io_context context_;
    asio::ip::tcp::socket socket_;
    MessageStream stream_;
};

} // namespace example

#endif
