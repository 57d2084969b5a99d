// The client's search for past alarms: what it asks for, and whether a page holds just that.
#ifndef EXAMPLES_HISTORY_CHECK_H
#define EXAMPLES_HISTORY_CHECK_H

#include "support/comparison.h"
#include "support/conversation.h"
#include "support/encoded.h"
#include "support/event_comparison.h"
#include "support/received_events.h"
#include "support/sample_events.h"
#include "support/text_fields.h"
#include "support/transcript.h"

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <string>

namespace example {

struct HistorySearch {
    std::string channel; // its GUID; empty for all
    int level;           // 0 for any
    int begin;           // the first hit wanted, counted from 0
    int end;             // the last one
};

inline std::string searchRequest(const HistorySearch& search, const std::string& token, unsigned int seqnum) {
    veltoprotocol::__tagVtChannelParam channel = {};
    fill(channel.Guid, search.channel);
    veltoprotocol::__tagVtSearchAlarmParam wanted = {};
    wanted.channels = &channel;
    wanted.channelcount = search.channel.empty() ? 0 : 1;
    wanted.AlarmLevel = search.level;
    fill(wanted.BeginTime, "20250101000000");
    fill(wanted.EndTime, "20250101235959");
    wanted.BeginIndex = search.begin;
    wanted.EndIndex = search.end;
    return encoded([&](char* out, int size) {
        return veltoprotocol::GetSearchHistoryAlarmReqEncode(host, token.c_str(), seqnum, &wanted, out, size);
    });
}

// The hits are known: those of the history that are asked for, in their order. `channels` are the user's.
inline void checkPage(const AlarmPage& page, const HistorySearch& search, const Channels& channels,
                      Conversation& talk) {
    int hits = 0;
    std::size_t taken = 0;
    Comparison check;
    for (unsigned int number = 0; number < pastAlarms(channels); ++number) {
        const veltoprotocol::__tagVtAlarmData alarm = samplePastAlarm(number, channels);
        if (!search.channel.empty() && text(alarm.ChannelGuid) != search.channel) continue;
        if (search.level != 0 && alarm.AlarmLevel != search.level) continue;
        const int hit = hits++;
        if (hit < search.begin || hit > search.end) continue;
        const std::string where = "alarm " + std::to_string(number);
        expect(taken < page.alarms.size(), where + " in the page");
        comparePast(check, where, alarm, page.alarms[taken++]);
    }
    expect(taken == page.alarms.size(), "no other alarms in the page");
    expect(page.searchCount == (taken > 0 ? hits : 0), "as many hits as there are");
    talk.tell("decoded: " + counted(taken, "alarm") + " of " + std::to_string(hits) + ", " +
              counted(check.fields(), "field") + " compared");
}

} // namespace example

#endif
