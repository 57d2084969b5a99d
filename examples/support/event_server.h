// What the example server does about events: what it pushes to a subscriber and when, and the search in the
// history of alarms. Who may see what is checked before, in management_server.h.
#ifndef EXAMPLES_EVENT_SERVER_H
#define EXAMPLES_EVENT_SERVER_H

#include "support/answer.h"
#include "support/encoded.h"
#include "support/received_message.h"
#include "support/sample_events.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace example {

// The events for one connection. There is nothing here that happens, so it makes them up: the seed decides
// how many happen before an answer, how many behind it, and how many a little later. A server with cameras
// queues what they tell, and sets a limit to the queue.
class Subscription {
  public:
    // `every` is the time between events that come by themselves; 0 for none.
    Subscription(std::string token, Channels channels, unsigned int seed, std::chrono::milliseconds every)
        : token_(std::move(token)), channels_(std::move(channels)), random_(seed), every_(every) {}

    const std::string& token() const { return token_; }

    // Those that were to come later go now, so that the order does not depend on how fast anybody is.
    std::vector<std::string> beforeAnAnswer() { return next(std::exchange(late_, 0) + random_() % 3); }

    std::vector<std::string> behindAnAnswer() {
        late_ = random_() % 3;
        return next(random_() % 3);
    }

    // How long it is until the next ones come by themselves; nothing if none will.
    std::optional<std::chrono::milliseconds> untilEvents() const {
        if (late_ > 0) return std::chrono::milliseconds(2);
        if (every_.count() > 0) return every_;
        return {};
    }

    std::vector<std::string> events() {
        if (late_ > 0) return next(std::exchange(late_, 0));
        return next(every_.count() > 0 ? 1 + random_() % 3 : 0);
    }

  private:
    // As messages. Events are numbered from 0, their messages from 1.
    std::vector<std::string> next(std::size_t count) {
        std::vector<std::string> messages;
        if (channels_.empty()) return messages; // nothing to tell about
        for (; count > 0; --count) {
            const Event event = sampleEvent(sent_++, channels_);
            const auto content =
                std::visit([](const auto& one) -> const void* { return &one; }, event.content);
            messages.push_back(encoded([&](char* out, int size) {
                return veltoprotocol::GetNotificationContentReqEncode(0, sent_, event.type, content, out,
                                                                      size);
            }));
        }
        return messages;
    }

    const std::string token_;
    const Channels channels_;
    std::mt19937 random_;
    const std::chrono::milliseconds every_;
    std::size_t late_ = 0;
    unsigned int sent_ = 0;
};

struct ReleaseAlarmSearch {
    void operator()(veltoprotocol::__tagVtSearchAlarmParam* search) const {
        veltoprotocol::ReleaseSearchAlarmParam(search);
    }
};
using AlarmSearch = std::unique_ptr<veltoprotocol::__tagVtSearchAlarmParam, ReleaseAlarmSearch>;

// What the codes and the span of a search mean is the application's to say. Here 0 stands for any code, and a
// search that names no channel for all of the user's.
inline bool matches(const veltoprotocol::__tagVtAlarmData& alarm,
                    const veltoprotocol::__tagVtSearchAlarmParam& wanted) {
    const auto code = [](int asked, int found) { return asked == 0 || asked == found; };
    const std::string time = text(alarm.BeginTime);
    if (!code(wanted.AlarmFlag, alarm.AlarmFlag) || !code(wanted.AlarmType, alarm.AlarmType) ||
        !code(wanted.AlarmLevel, alarm.AlarmLevel) || time < text(wanted.BeginTime) ||
        time > text(wanted.EndTime))
        return false;
    return wanted.channelcount < 1 ||
           std::any_of(wanted.channels, wanted.channels + wanted.channelcount,
                       [&](const auto& channel) { return text(channel.Guid) == text(alarm.ChannelGuid); });
}

// Hits are counted from 0; a page goes from BeginIndex to EndIndex, both included, and is never longer than a
// hundred. A page without hits is an answer with a result alone.
inline Answer searchHistory(unsigned int seqnum, const ReceivedMessage& message, const Channels& channels) {
    constexpr std::size_t longestPage = 100;
    const AlarmSearch wanted(veltoprotocol::GetSearchHistoryAlarmReqDecode(message.document(), nullptr));
    std::vector<veltoprotocol::__tagVtAlarmData> page;
    veltoprotocol::__tagVtSearchAlarmResult found = {};
    for (unsigned int number = 0; wanted && number < pastAlarms(channels); ++number) {
        const veltoprotocol::__tagVtAlarmData alarm = samplePastAlarm(number, channels);
        if (!matches(alarm, *wanted)) continue;
        const int hit = found.SearchCount++;
        if (hit >= wanted->BeginIndex && hit <= wanted->EndIndex && page.size() < longestPage)
            page.push_back(alarm);
    }
    found.CurCount = static_cast<int>(page.size());
    found.alarms = page.data();
    Answer answer;
    answer.decoded = ", " + std::to_string(found.CurCount) + " of " + std::to_string(found.SearchCount);
    answer.message = encoded([&](char* out, int size) {
        return veltoprotocol::GetSearchHistoryAlarmRespEncode(wanted ? succeeded : noSuchThing, seqnum,
                                                              &found, out, size);
    });
    return answer;
}

} // namespace example

#endif
