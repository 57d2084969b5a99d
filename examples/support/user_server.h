// The users of the example server: who logs in, and what it tells them about themselves.
#ifndef EXAMPLES_USER_SERVER_H
#define EXAMPLES_USER_SERVER_H

#include "support/answer.h"
#include "support/encoded.h"
#include "support/received_message.h"
#include "support/request.h"
#include "support/sample_inventory.h"
#include "support/sample_users.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace example {

class UserServer {
  public:
    static bool knows(const std::string& name) {
        return name == "GetUserInfo" || name == "GetChannelRightsInfo";
    }

    // "user:password"; null for nobody.
    const User* find(const std::string& credentials) const {
        const std::size_t colon = credentials.find(':');
        if (colon == std::string::npos) return nullptr;
        const auto found = std::find_if(users_.begin(), users_.end(), [&](const User& user) {
            return user.name == credentials.substr(0, colon) &&
                   user.password == credentials.substr(colon + 1);
        });
        return found == users_.end() ? nullptr : &*found;
    }

    // `list` is what the user may see.
    static Answer act(const std::string& name, unsigned int seqnum, const ReceivedMessage& message,
                      const User& user, const Inventory& list) {
        return name == "GetUserInfo" ? info(seqnum, user) : rights(seqnum, message, user, list);
    }

  private:
    static Answer info(unsigned int seqnum, const User& user) {
        const veltoprotocol::__tagVtUserInfo record = userInfo(user);
        Answer answer;
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetUserInfoRespEncode(succeeded, seqnum, &record, out, size);
        });
        return answer;
    }

    // Users learn what they may do themselves, and nothing about others.
    static Answer rights(unsigned int seqnum, const ReceivedMessage& message, const User& user,
                         const Inventory& list) {
        if (guidIn(message, "UserGuid") != user.guid)
            return resultOnly(noSuchThing, seqnum, "GetChannelRightsInfo");
        std::vector<veltoprotocol::__tagVtUserChannelRights> entries;
        for (const auto& channel : list.channels) entries.push_back(channelRights(user, text(channel.Guid)));
        Answer answer;
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetChannelRightsInfoRespEncode(succeeded, seqnum, entries.data(),
                                                                 static_cast<int>(entries.size()), out, size);
        });
        return answer;
    }

    const std::vector<User> users_ = sampleUsers();
};

} // namespace example

#endif
