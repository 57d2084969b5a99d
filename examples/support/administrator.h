// A user on a connection of its own, with the two things that a request of an administrator can come to: it
// is done, or it is refused.
#ifndef EXAMPLES_ADMINISTRATOR_H
#define EXAMPLES_ADMINISTRATOR_H

#include "support/client_connection.h"
#include "support/conversation.h"
#include "support/encoded.h"
#include "support/received_message.h"

#include <LibVeltoProtocol.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace example {

class Administrator {
  public:
    explicit Administrator(ClientOptions options)
        : talk_(std::move(options)), connection_(talk_.options().port) {}

    Conversation& talk() { return talk_; }
    const std::string& token() const { return token_; }
    void logIn() { token_ = talk_.logIn(connection_); }
    void logOut() { talk_.logOut(connection_, token_); }

    // `encoder` is called with sequence number, buffer and size.
    template <class Encoder>
    ReceivedMessage ask(const std::string& name, Encoder encoder) {
        const unsigned int seqnum = talk_.nextSeqnum();
        return exchange(name, seqnum, request(seqnum, encoder));
    }

    template <class Encoder>
    void succeed(const std::string& name, Encoder encoder) {
        expect(talk_.resultOf(ask(name, encoder)) == 0, "result 0");
    }

    template <class Encoder>
    void beRefused(const std::string& name, Encoder encoder) {
        expect(talk_.resultOf(ask(name, encoder)) != 0, "a result other than 0");
    }

    // The same request on the path where it does not belong.
    template <class Encoder>
    void beRefusedElsewhere(const std::string& name, Encoder encoder) {
        const std::string service = "POST /servercommandservice";
        const std::string manage = service + "/manage";
        const unsigned int seqnum = talk_.nextSeqnum();
        std::string message = request(seqnum, encoder);
        if (message.rfind(manage, 0) == 0)
            message.replace(0, manage.size(), service);
        else
            message.replace(0, service.size(), manage);
        expect(talk_.resultOf(exchange(name, seqnum, message)) != 0, "a result other than 0 on that path");
    }

  private:
    template <class Encoder>
    static std::string request(unsigned int seqnum, Encoder encoder) {
        return encoded([&](char* out, int size) { return encoder(seqnum, out, size); });
    }

    ReceivedMessage exchange(const std::string& name, unsigned int seqnum, const std::string& message) {
        talk_.send(connection_, message, name);
        // kept: the answer to a change of servers carries the name of the request that reads them
        return talk_.awaitAnswer(connection_, name == "SetServerInfo" ? "GetServerInfo" : name, seqnum);
    }

    Conversation talk_;
    ClientConnection connection_;
    std::string token_;
};

// A request to change records of a kind: its name and its encoder.
template <class Record>
struct Request {
    std::string name;
    std::function<int(const Record*, int count, unsigned int seqnum, char* out, int size)> encoder;

    // For Administrator, which is to send these records.
    auto operator()(std::vector<Record> records) const {
        return [this, records = std::move(records)](unsigned int seqnum, char* out, int size) {
            return encoder(records.data(), static_cast<int>(records.size()), seqnum, out, size);
        };
    }
};

template <class Record>
struct Requests {
    Request<Record> add;
    Request<Record> update;
    Request<Record> remove;
    bool together = true; // whether one request can add or change several records
};

// Three functions of the library that differ in nothing but their names.
template <class Record>
Request<Record> request(const char* name,
                        int (*encode)(const Record*, int, const char*, unsigned int, char*, int)) {
    return {name, [encode](const Record* records, int count, unsigned int seqnum, char* out, int size) {
                return encode(records, count, host, seqnum, out, size);
            }};
}

// Takes records through all that can be done to them. `first` and `changed` hold the same ones; all but one
// are there at the end. `lookBack` is called with those that are there, whenever that has changed.
template <class Record, class LookBack>
void upkeep(Administrator& admin, const std::string& what, const Requests<Record>& requests,
            const std::vector<Record>& first, const std::vector<Record>& changed, LookBack lookBack) {
    const auto title = [&](const std::string& action) { admin.talk().title(what + ": " + action); };
    const auto succeed = [&](const Request<Record>& request, const std::vector<Record>& records) {
        if (requests.together) return admin.succeed(request.name, request(records));
        for (const Record& record : records) admin.succeed(request.name, request(std::vector{record}));
    };
    const std::vector<Record> one = {changed.front()};
    const std::vector<Record> rest(changed.begin() + 1, changed.end());
    title("a change of what is not there");
    admin.beRefused(requests.update.name, requests.update(one));
    title("added");
    succeed(requests.add, first);
    lookBack(first);
    title("added once more");
    admin.beRefused(requests.add.name, requests.add(one));
    title("changed");
    succeed(requests.update, changed);
    lookBack(changed);
    title("one deleted");
    admin.succeed(requests.remove.name, requests.remove(one));
    lookBack(rest);
    title("all deleted, of which one is gone: then none is");
    admin.beRefused(requests.remove.name, requests.remove(first));
    lookBack(rest);
}

// Deletes what upkeep() has left.
template <class Record, class LookBack>
void clearUp(Administrator& admin, const std::string& what, const Requests<Record>& requests,
             const std::vector<Record>& changed, LookBack lookBack) {
    const std::vector<Record> rest(changed.begin() + 1, changed.end());
    admin.talk().title(what + ": the others deleted");
    admin.succeed(requests.remove.name, requests.remove(rest));
    lookBack(std::vector<Record>());
    admin.talk().title(what + ": deleted once more");
    admin.beRefused(requests.remove.name, requests.remove(rest));
}

} // namespace example

#endif
