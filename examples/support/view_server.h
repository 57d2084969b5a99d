// What the example server does with view groups: it keeps them as it decoded them, as long as it runs. Who
// asks is checked before, in management_server.h.
#ifndef EXAMPLES_VIEW_SERVER_H
#define EXAMPLES_VIEW_SERVER_H

#include "support/answer.h"
#include "support/encoded.h"
#include "support/received_message.h"
#include "support/request.h"
#include "support/text_fields.h"
#include "support/transcript.h"
#include "support/view_groups.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace example {

class ViewServer {
  public:
    static bool knows(const std::string& name) {
        return name == "SetViewGroupData" || name == "GetViewGroups" || name == "GetViewGroupData";
    }

    Answer act(const std::string& name, unsigned int seqnum, const ReceivedMessage& message,
               const std::string& user) {
        if (name == "SetViewGroupData") return store(seqnum, message, user);
        if (name == "GetViewGroups") return catalogue(seqnum, message, user);
        return layout(seqnum, message, user);
    }

  private:
    // Replaces what is there under the same GUID. Users have their own view groups and see no others; whether
    // ReadOnly binds the owner as well is the application's choice, and here it does not.
    Answer store(unsigned int seqnum, const ReceivedMessage& message, const std::string& user) {
        int error = -1;
        ViewGroup group = readViewGroup(message.document(), &error);
        const std::string guid = text(group->info.ViewGroupGuid);
        Answer answer;
        answer.decoded = ", view group " + guid + " with " +
                         counted(static_cast<std::size_t>(std::max(0, group->data.groupcount)), "group");
        const int result = refusal(error, *group, user);
        if (result == succeeded) groups_[guid] = std::move(group);
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetSetViewGroupDataRespEncode(result, seqnum, out, size);
        });
        return answer;
    }

    int refusal(int error, const veltoprotocol::__tagVtViewGroup& group, const std::string& user) const {
        constexpr std::size_t most = 100;
        const std::string guid = text(group.info.ViewGroupGuid);
        if (error != 0 || guid.empty() || !isWhole(group.data)) return notWhole;
        if (text(group.info.UserGuid) != user) return noSuchThing;
        const auto there = groups_.find(guid);
        if (there == groups_.end()) return groups_.size() < most ? succeeded : noRoom;
        return text(there->second->info.UserGuid) == user ? succeeded : noSuchThing;
    }

    Answer catalogue(unsigned int seqnum, const ReceivedMessage& message, const std::string& user) const {
        if (guidIn(message, "UserGuid") != user) return resultOnly(noSuchThing, seqnum, "GetViewGroups");
        std::vector<veltoprotocol::__tagVtViewGroupInfo> infos;
        for (const auto& entry : groups_)
            if (text(entry.second->info.UserGuid) == user) infos.push_back(entry.second->info);
        Answer answer;
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetViewGroupsRespEncode(succeeded, seqnum, infos.data(),
                                                          static_cast<int>(infos.size()), out, size);
        });
        return answer;
    }

    // A view group of others is as unknown as one that nobody has.
    Answer layout(unsigned int seqnum, const ReceivedMessage& message, const std::string& user) const {
        const auto found = groups_.find(guidIn(message, "ViewGroupGuid"));
        if (found == groups_.end() || text(found->second->info.UserGuid) != user)
            return resultOnly(noSuchThing, seqnum, "GetViewGroupData");
        const veltoprotocol::__tagVtViewGroup& group = *found->second;
        Answer answer;
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetViewGroupDataRespEncode(succeeded, seqnum, &group.info, &group.data, out,
                                                             size);
        });
        return answer;
    }

    std::map<std::string, ViewGroup> groups_; // by their GUIDs
};

} // namespace example

#endif
