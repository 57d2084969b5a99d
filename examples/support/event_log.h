// Takes the events of a subscription as they come, checks every field of each, and counts them.
#ifndef EXAMPLES_EVENT_LOG_H
#define EXAMPLES_EVENT_LOG_H

#include "support/comparison.h"
#include "support/conversation.h"
#include "support/event_comparison.h"
#include "support/received_events.h"
#include "support/received_message.h"
#include "support/sample_events.h"
#include "support/transcript.h"

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <map>
#include <optional>
#include <string>

namespace example {

class EventLog {
  public:
    // `channels` are those that the events are about.
    void take(const ReceivedMessage& message, const Channels& channels, Conversation& talk) {
        const std::string where = "event " + std::to_string(seen_);
        int error = -1;
        expect(message.status() == 200, where + " with status 200");
        expect(message.contentType() == "text/xml; charset=utf-8", where + " that says that it is XML");
        expect(veltoprotocol::GetVersionDecode(message.document(), &error) == "1.0.0" && error == 0,
               where + " of version 1.0.0");
        // Events have numbers of their own; these say whether one is missing.
        expect(veltoprotocol::GetSeqnumberDecode(message.document(), &error) == seen_ + 1 && error == 0,
               where + " with seqnum " + std::to_string(seen_ + 1));
        const std::optional<Event> event = readEvent(message.document());
        expect(event.has_value(), where + " of a kind that is known");
        if (kinds_[event->type]++ == 0) talk.show(message); // the first of its kind
        compare(check_, where, sampleEvent(seen_, channels), *event);
        talk.tell("event: seqnum " + std::to_string(++seen_) + ", " + nameOf(event->type));
    }

    unsigned int seen() const { return seen_; }
    std::size_t kinds() const { return kinds_.size(); }

    void report(Conversation& talk) const {
        for (const auto& [type, count] : kinds_)
            talk.tell(std::to_string(type) + ", " + nameOf(type) + ": " + std::to_string(count));
        talk.tell("compared: " + counted(check_.fields(), "field") + " of " + counted(seen_, "event"));
    }

  private:
    Comparison check_;
    std::map<veltoprotocol::__enumVtMessageType, unsigned int> kinds_;
    unsigned int seen_ = 0;
};

} // namespace example

#endif
