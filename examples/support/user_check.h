// What the server says about the user who has logged in, and about the user's rights.
#ifndef EXAMPLES_USER_CHECK_H
#define EXAMPLES_USER_CHECK_H

#include "support/admin_comparison.h"
#include "support/administrator.h"
#include "support/conversation.h"
#include "support/device_list.h"
#include "support/received_message.h"
#include "support/sample_inventory.h"
#include "support/sample_users.h"
#include "support/text_fields.h"
#include "support/transcript.h"
#include "support/view_groups.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace example {

// A user with the rights on all channels. The library's record only points to them; here is who owns them.
class UserWithRights {
  public:
    UserWithRights(const ReceivedMessage& user, const ReceivedMessage& rights) {
        int error = -1;
        record_.UserInfo = veltoprotocol::GetUserInfoParamDecode(user.document(), &error);
        expect(error == 0, "an answer with a user");
        const std::vector<veltoprotocol::__tagVtUserChannelRights> entries = read(rights.document());
        record_.ChannelRights = new veltoprotocol::__tagVtUserChannelRights[entries.size()];
        std::copy(entries.begin(), entries.end(), record_.ChannelRights);
        record_.ChannelCounter = static_cast<int>(entries.size());
    }
    ~UserWithRights() { veltoprotocol::ReleaseUserInfoParam(&record_); }
    UserWithRights(const UserWithRights&) = delete;
    UserWithRights& operator=(const UserWithRights&) = delete;

    const veltoprotocol::__tagVtSystemRightsInfo& operator*() const { return record_; }

  private:
    // Who has no channels gets no list. ChannelRights is the name of the list, and of the flags in it.
    static std::vector<veltoprotocol::__tagVtUserChannelRights> read(TiXmlDocument* document) {
        std::vector<veltoprotocol::__tagVtUserChannelRights> entries;
        TiXmlElement* const list = responseOf(document)->FirstChildElement("ChannelRights");
        if (!list) return entries;
        TiXmlElement* const channels = list->FirstChildElement("Channels");
        for (TiXmlElement* entry = channels ? channels->FirstChildElement("Channel") : nullptr; entry;
             entry = entry->NextSiblingElement("Channel"))
            entries.push_back(veltoprotocol::GetChannelRightsInfoParamDecode(entry, nullptr));
        checkCounter(list, "ChannelCounter", entries.size());
        return entries;
    }

    veltoprotocol::__tagVtSystemRightsInfo record_ = {};
};

inline std::vector<veltoprotocol::__tagVtChannelParam> channelsOf(const User& user) {
    std::vector<veltoprotocol::__tagVtChannelParam> channels = sampleInventory().channels;
    const auto hidden = [&](const auto& channel) {
        return std::count(user.devices.begin(), user.devices.end(), text(channel.DeviceGuid)) == 0;
    };
    channels.erase(std::remove_if(channels.begin(), channels.end(), hidden), channels.end());
    return channels;
}

inline ReceivedMessage askForRights(Administrator& admin, const std::string& user) {
    return admin.ask("GetChannelRightsInfo", [&](unsigned int seqnum, char* out, int size) {
        return veltoprotocol::GetChannelRightsInfoReqEncode(host, admin.token().c_str(), seqnum, user.c_str(),
                                                            out, size);
    });
}

// Every channel that the user may see has an entry: those that were there from the start, and `added`. An
// administrator sees those that others have added as well.
inline void checkUser(Administrator& admin,
                      const std::vector<veltoprotocol::__tagVtChannelParam>& added = {}) {
    const std::vector<User> users = sampleUsers();
    const auto isIt = [&](const User& one) { return one.name == admin.talk().options().user; };
    const auto user = std::find_if(users.begin(), users.end(), isIt);
    expect(user != users.end(), "a user that the sample knows");
    admin.talk().title("Who " + user->name + " is, and may do");
    const auto info = admin.ask("GetUserInfo", [&](unsigned int seqnum, char* out, int size) {
        return veltoprotocol::GetUserInfoReqEncode(host, admin.token().c_str(), seqnum, out, size);
    });
    expect(admin.talk().resultOf(info) == 0, "result 0");
    const ReceivedMessage rights = askForRights(admin, user->guid);
    expect(admin.talk().resultOf(rights) == 0, "result 0");
    const UserWithRights found(info, rights);
    Comparison check;
    compare(check, "user", userInfo(*user), (*found).UserInfo);
    std::vector<std::string> channels;
    for (int i = 0; i < (*found).ChannelCounter; ++i) {
        const auto& entry = (*found).ChannelRights[i];
        channels.push_back(text(entry.ChannelGuid));
        compare(check, "rights " + std::to_string(i + 1), channelRights(*user, channels.back()), entry);
    }
    std::vector<veltoprotocol::__tagVtChannelParam> wanted = channelsOf(*user);
    wanted.insert(wanted.end(), added.begin(), added.end());
    for (const auto& channel : wanted)
        expect(std::count(channels.begin(), channels.end(), text(channel.Guid)) == 1,
               "rights on channel " + text(channel.Guid));
    expect(user->administrator || channels.size() == wanted.size(), "no rights on other channels");
    admin.talk().tell("compared: " + counted(check.fields(), "field") + " of a user and " +
                      counted(channels.size(), "channel"));
    admin.talk().title("What somebody else may do");
    expect(admin.talk().resultOf(askForRights(admin, guid('9', 9))) != 0, "a result other than 0");
}

} // namespace example

#endif
