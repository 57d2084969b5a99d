// What the example server sends for a request.
#ifndef EXAMPLES_ANSWER_H
#define EXAMPLES_ANSWER_H

#include "support/encoded.h"

#include <LibVeltoProtocol.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace example {

// The protocol knows 0 for success, and at a login 2 as an answer without token; the rest is up to the
// server.
enum Result {
    succeeded = 0,
    badCredentials = 1,
    notLoggedIn = 3,
    unknownCommand = 4,
    noSuchThing = 5,
    notWhole = 6,
    noRoom = 7,
    notAllowed = 8,
    wrongPath = 9,
    alreadyThere = 10
};

struct Answer {
    std::string
        decoded; // what the request was, for people: name and number, and what is said here behind them
    std::string message;
    std::function<std::optional<std::string>()> more; // messages behind it, until there is none; may be empty
    std::vector<std::string> eventsBefore;            // go out before the message, as soon as it does
    std::vector<std::string> eventsBehind;            // and behind it
    bool close = false;                               // the connection ends with this answer
    bool loggedOut = false;                           // because its client has logged out
};

inline Answer resultOnly(int result, unsigned int seqnum, const std::string& name) {
    Answer answer;
    answer.message = encoded([&](char* out, int size) {
        return veltoprotocol::GetRespEncode(result, seqnum, out, size, name.c_str(), "keep-alive");
    });
    return answer;
}

} // namespace example

#endif
