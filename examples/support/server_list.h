// The servers of a site as an administrator sees and changes them.
#ifndef EXAMPLES_SERVER_LIST_H
#define EXAMPLES_SERVER_LIST_H

#include "support/admin_comparison.h"
#include "support/administrator.h"
#include "support/conversation.h"
#include "support/sample_inventory.h"
#include "support/sample_site.h"
#include "support/text_fields.h"
#include "support/transcript.h"
#include "support/view_groups.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <algorithm>
#include <string>
#include <vector>

namespace example {

// The administrator outlives what is returned here.
inline auto askForServers(const Administrator& admin) {
    return [&admin](unsigned int seqnum, char* out, int size) {
        return veltoprotocol::GetServerInfoReqEncode(host, admin.token().c_str(), seqnum, out, size);
    };
}

inline Request<veltoprotocol::__tagVtServerInfo> setServers(const Administrator& admin,
                                                            veltoprotocol::__enumVtDeviceReqType type) {
    return {"SetServerInfo", [&admin, type](const veltoprotocol::__tagVtServerInfo* records, int count,
                                            unsigned int seqnum, char* out, int size) {
                return veltoprotocol::GetSetServerInfoReqEncode(type, records, count, host,
                                                                admin.token().c_str(), seqnum, out, size);
            }};
}

inline Requests<veltoprotocol::__tagVtServerInfo> serverRequests(const Administrator& admin) {
    return {setServers(admin, veltoprotocol::VtDeviceReqAdd),
            setServers(admin, veltoprotocol::VtDeviceReqUpdate),
            setServers(admin, veltoprotocol::VtDeviceReqDelete)};
}

// The list has no counter.
inline std::vector<veltoprotocol::__tagVtServerInfo> readServerList(TiXmlDocument* document) {
    std::vector<veltoprotocol::__tagVtServerInfo> servers;
    TiXmlElement* const list = responseOf(document)->FirstChildElement("servers");
    for (TiXmlElement* entry = list ? list->FirstChildElement("server") : nullptr; entry;
         entry = entry->NextSiblingElement("server"))
        servers.push_back(veltoprotocol::GetServerParamDecode(entry, nullptr));
    return servers;
}

// Of the servers that this client adds, these are there and no others; so is the one that is talked to.
inline void checkServers(Administrator& admin, const SampleSite& site,
                         const std::vector<veltoprotocol::__tagVtServerInfo>& wanted) {
    const auto answer = admin.ask("GetServerInfo", askForServers(admin));
    expect(admin.talk().resultOf(answer) == 0, "result 0");
    const std::vector<veltoprotocol::__tagVtServerInfo> found = readServerList(answer.document());
    const auto isSelf = [](const auto& server) {
        return text(server.Guid) == guid('a', 1) && text(server.PrivateAddress) == host;
    };
    expect(std::count_if(found.begin(), found.end(), isSelf) == 1, "the server itself among its servers");
    Comparison check;
    compareOwn(check, "server", wanted, site.servers(false), found);
    admin.talk().tell("compared: " + counted(check.fields(), "field") + " of " +
                      counted(wanted.size(), "server"));
}

} // namespace example

#endif
