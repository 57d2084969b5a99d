// What the example server tells about its users: who they are and what they may do.
#ifndef EXAMPLES_SAMPLE_USERS_H
#define EXAMPLES_SAMPLE_USERS_H

#include "support/sample_inventory.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>

#include <string>

namespace example {

inline veltoprotocol::__tagVtUserInfo userInfo(const User& user) {
    const bool watches = user.administrator || !user.devices.empty();
    veltoprotocol::__tagVtUserInfo info = {};
    fill(info.UserGuid, user.guid);
    fill(info.Id, "user <" + user.guid.substr(35) + ">");
    fill(info.AdsPath, "directory://house & yard/" + user.name);
    fill(info.UserName, user.name);
    info.Authclass = user.administrator ? -1 : 2147483647;
    fill(info.SId, "S-1-5-21-1004336348-1177238915-682003330-51" + user.guid.substr(35));
    fill(info.SamacCountName, "HAUS\\" + user.name);
    info.Rights.sharedviews = user.administrator;
    info.Rights.privateviews = watches;
    info.Rights.viewlive = watches;
    info.Rights.viewbrowse = watches;
    info.Rights.viewsetup = user.administrator;
    info.Rights.managementaccess = user.administrator;
    return info;
}

// An administrator may do everything, others may look and listen. The entry's own GUID is made of the
// channel's and of the last digit of the user's.
inline veltoprotocol::__tagVtUserChannelRights channelRights(const User& user, const std::string& channel) {
    const bool all = user.administrator;
    veltoprotocol::__tagVtUserChannelRights rights = {};
    fill(rights.Guid, "b" + user.guid.substr(35) + channel.substr(channel.size() < 2 ? 0 : 2));
    fill(rights.ChannelGuid, channel);
    fill(rights.UserGuid, user.guid);
    rights.access = true;
    rights.aviexport = all;
    rights.jpegexport = true;
    rights.databaseexport = all;
    rights.videolive = true;
    rights.videobrowse = true;
    rights.ptz = true;
    rights.managepresets = all;
    rights.outputs = all;
    rights.presets = true;
    rights.events = true;
    rights.smartsearch = all;
    rights.sequences = true;
    rights.startrecording = all;
    rights.audiolive = true;
    rights.audiobrowse = all;
    rights.speakerlive = true;
    rights.speakerspeak = all;
    rights.subscriptionalarm = true;
    return rights;
}

} // namespace example

#endif
