// The server's side of one TCP connection: reads requests, sends answers and, to who has subscribed, events.
#ifndef EXAMPLES_SERVER_CONNECTION_H
#define EXAMPLES_SERVER_CONNECTION_H

#include "support/answer.h"
#include "support/management_server.h"
#include "support/message_stream.h"
#include "support/networking.h"
#include "support/received_message.h"
#include "support/splitter.h"
#include "support/transcript.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace example {

struct ServerOptions {
    unsigned short port = 0;
    unsigned int seed = 1;
    std::chrono::seconds patience{30};
    std::chrono::milliseconds eventsEvery{0};
    std::string mediaFolder;
    bool once = false;
    bool split = true;
    bool full = false;
};

// One client. It reads until a message is whole, answers it, and only then looks for the next one: a client
// that sends faster than it reads fills no memory here. Events are made when the ones before them are gone,
// so one that does not read at all fills none either; it is hung up on. Everything happens in the one thread
// of the server, so what pushes and what answers need no lock. It lives as long as it reads or writes.
class ServerConnection : public std::enable_shared_from_this<ServerConnection> {
  public:
    ServerConnection(asio::ip::tcp::socket socket, unsigned int number, const ServerOptions& options,
                     ManagementServer& server, std::function<void()> whenLoggedOut)
        : socket_(std::move(socket)),
          reading_(socket_.get_executor()),
          writing_(socket_.get_executor()),
          events_(socket_.get_executor()),
          patience_(options.patience),
          transcript_(std::cout, "[" + std::to_string(number) + "] ", options.full),
          splitter_(options.seed + number, options.split),
          server_(server),
          whenLoggedOut_(std::move(whenLoggedOut)) {
        visitor_.seed = options.seed + number;
    }

    void start() {
        asio::error_code ignored; // without it the chunks are only sent together
        socket_.set_option(asio::ip::tcp::no_delay(true), ignored);
        transcript_.line("connected");
        receive();
    }

  private:
    using Self = ServerConnection;
    using Timer = asio::steady_timer;

    // Events that go out to the client meanwhile do not count: it has to say something itself.
    void receive() {
        after(reading_, patience_, &Self::tooLong);
        socket_.async_read_some(asio::buffer(input_), [self = shared_from_this()](auto error, auto length) {
            if (error) return self->gone();
            stop(self->reading_);
            self->stream_.add(self->input_.data(), length);
            self->answerNext();
        });
    }

    void answerNext() {
        std::string message;
        switch (stream_.next(message)) {
        case MessageStream::State::incomplete:
            return receive();
        case MessageStream::State::unusable:
            return hangUp(stream_.problem());
        case MessageStream::State::whole:
            break;
        }
        transcript_.received(message);
        std::optional<Answer> answer = server_.answer(ReceivedMessage(std::move(message)), visitor_);
        if (!answer) return hangUp("this is no command");
        answer_ = std::move(*answer);
        transcript_.line("    decoded: " + printable(answer_.decoded));
        answering_ = true;
        enqueue(std::move(answer_.eventsBefore));
        queue_.push_back(std::move(answer_.message));
        enqueue(std::move(answer_.eventsBehind));
        transmit();
    }

    void enqueue(std::vector<std::string> messages) {
        for (std::string& message : messages) queue_.push_back(std::move(message));
    }

    // Sends all that waits in one go. One at a time: what comes while something is being sent waits its turn,
    // or two messages could end up within each other.
    void transmit() {
        if (!chunks_.empty() || queue_.empty()) return;
        output_.clear();
        for (const std::string& message : queue_) output_ += message;
        chunks_ = splitter_.split(output_);
        transcript_.sent(queue_, chunks_.size());
        queue_.clear();
        send(0);
    }

    // Sends the chunks one after another.
    void send(std::size_t next) {
        if (next == chunks_.size()) return sent();
        after(writing_, patience_, &Self::tooLong);
        const auto chunk = asio::buffer(chunks_[next].data(), chunks_[next].size());
        asio::async_write(socket_, chunk, [self = shared_from_this(), next](auto error, auto) {
            if (error) return self->gone();
            self->send(next + 1);
        });
    }

    void sent() {
        stop(writing_);
        chunks_.clear();
        if (!queue_.empty()) return transmit();
        expectEvents();
        if (!answering_) return; // it was only events: the next request is waited for already
        // A live stream is many messages. The next one is made when the last one is gone.
        if (std::optional<std::string> more = answer_.more ? answer_.more() : std::nullopt) {
            queue_.push_back(std::move(*more));
            return transmit();
        }
        if (answer_.close) return finish();
        answering_ = false;
        answerNext();
    }

    void expectEvents() {
        if (eventsExpected_) return;
        const std::optional<std::chrono::milliseconds> time = server_.untilEvents(visitor_);
        if (!time) return;
        eventsExpected_ = true;
        after(events_, *time, &Self::push);
    }

    void push() {
        eventsExpected_ = false;
        enqueue(server_.events(visitor_));
        transmit();
    }

    // The orderly end: says that nothing more comes and lets the client end. Closing at once, with bytes from
    // the client still unread, could take the last answer away from it.
    void finish() {
        stop(events_);
        asio::error_code ignored; // the client may be gone already
        socket_.shutdown(asio::ip::tcp::socket::shutdown_send, ignored);
        after(reading_, std::chrono::seconds(5), &Self::tooLong);
        drain();
    }

    void drain() {
        socket_.async_read_some(asio::buffer(input_), [self = shared_from_this()](auto error, auto) {
            if (!error) return self->drain();
            self->transcript_.line("ended");
            self->close();
            if (self->answer_.loggedOut) self->whenLoggedOut_();
        });
    }

    // A client that goes while it is read from and written to is noticed twice.
    void gone() {
        if (!socket_.is_open()) return; // closed on this side, and told already
        close();
        if (stream_.waiting() == 0) return transcript_.line("the client is gone");
        transcript_.line("the client is gone, " + std::to_string(stream_.waiting()) +
                         " bytes into a message");
    }

    void tooLong() { hangUp("it takes too long"); }

    void hangUp(std::string_view reason) {
        transcript_.line("hanging up: " + std::string(reason));
        close();
    }

    void close() {
        asio::error_code ignored; // there is nothing left to do for this client
        socket_.close(ignored);
        for (Timer* timer : {&reading_, &writing_, &events_}) stop(*timer);
    }

    // Calls a function after a while, unless the timer is set anew or stopped before. It keeps no connection
    // alive.
    void after(Timer& timer, std::chrono::milliseconds time, void (Self::*act)()) {
        timer.expires_after(time);
        timer.async_wait([weak = weak_from_this(), &timer, act](auto) {
            const auto self = weak.lock();
            if (self && timer.expiry() <= Timer::clock_type::now()) (self.get()->*act)();
        });
    }

    // A call that is on its way already finds a time that has not come, and does nothing.
    static void stop(Timer& timer) { timer.expires_at(Timer::time_point::max()); }

    asio::ip::tcp::socket socket_;
    Timer reading_; // how long the client may be silent
    Timer writing_; // how long it may take nothing
    Timer events_;  // when the next events come by themselves
    const std::chrono::seconds patience_;
    MessageStream stream_;
    Transcript transcript_;
    Splitter splitter_;
    ManagementServer& server_;
    std::function<void()> whenLoggedOut_;
    std::array<char, 4096> input_ = {};
    Visitor visitor_;
    Answer answer_;
    bool answering_ = false; // answer_ is being sent; nothing is read meanwhile
    bool eventsExpected_ = false;
    std::vector<std::string> queue_;       // messages that wait
    std::string output_;                   // messages that are being sent
    std::vector<std::string_view> chunks_; // of output_; empty when nothing is being sent
};

} // namespace example

#endif
