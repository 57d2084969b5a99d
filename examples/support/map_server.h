// What the example server does with electronic maps: it keeps one set for each user, as long as it runs.
#ifndef EXAMPLES_MAP_SERVER_H
#define EXAMPLES_MAP_SERVER_H

#include "support/answer.h"
#include "support/encoded.h"
#include "support/maps.h"
#include "support/received_message.h"
#include "support/request.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>

#include <map>
#include <string>
#include <utility>

namespace example {

class MapServer {
  public:
    static bool knows(const std::string& name) { return name == "SetEMapInfo" || name == "GetEMapInfo"; }

    Answer act(const std::string& name, unsigned int seqnum, const ReceivedMessage& message,
               const std::string& user) {
        return name == "SetEMapInfo" ? store(seqnum, message, user) : fetch(seqnum, message, user);
    }

  private:
    Answer store(unsigned int seqnum, const ReceivedMessage& message, const std::string& user) {
        int error = -1;
        Maps maps(veltoprotocol::GetSetEMapInfoReqDecode(message.document(), &error));
        int result = succeeded;
        if (error != 0 || !maps || !isWhole(*maps))
            result = notWhole;
        else if (text(maps->UserGuid) != user)
            result = noSuchThing;
        Answer answer;
        if (maps)
            answer.decoded = ", " + std::to_string(maps->EMapInfoCount) + " maps and " +
                             std::to_string(maps->EMapItemCount) + " items";
        if (result == succeeded) maps_[user] = std::move(maps);
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetSetEMapInfoRespEncode(result, seqnum, out, size);
        });
        return answer;
    }

    // Who has stored nothing yet has no maps, which is nothing wrong.
    Answer fetch(unsigned int seqnum, const ReceivedMessage& message, const std::string& user) const {
        if (guidIn(message, "UserGuid") != user) return resultOnly(noSuchThing, seqnum, "GetEMapInfo");
        const auto found = maps_.find(user);
        const auto* const maps = found == maps_.end() ? nullptr : found->second.get();
        Answer answer;
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetEMapInfoRespEncode(succeeded, seqnum, maps, out, size);
        });
        return answer;
    }

    std::map<std::string, Maps> maps_; // by the users' GUIDs
};

} // namespace example

#endif
