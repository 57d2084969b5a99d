// Which view groups a user has.
#include "framing/message.h"
#include "framing/tree.h"
#include "views/view_fields.h"

namespace veltoprotocol {

int GetViewGroupsReqEncode(const char* host, const char* token, unsigned int seqnum, const char* userGuid,
                           char* out, int size) {
    const auto tree = [&](auto x) { x.value("UserGuid", userGuid); };
    return Request("GetViewGroups", seqnum, Token{token}).post(commandPath, host, tree, out, size);
}

int GetViewGroupsRespEncode(int result, unsigned int seqnum, const ViewGroupInfo* infos, int count, char* out,
                            int size) {
    const auto tree = [&](auto x) {
        x.value("Result", result);
        if (result != 0 || !infos || count < 1) return;
        x.value("ViewGroupInfoCounter", count);
        for (const auto& info : entries(infos, count)) x.element("ViewGroupInfo", viewGroupInfoFields(info));
    };
    return Response("GetViewGroups", seqnum).reply(tree, out, size);
}

int GetViewGroupsParamEncode(TiXmlElement* element, const ViewGroupInfo* info) {
    return writeRecord(element, viewGroupInfoFields, info);
}

ViewGroupInfo GetViewGroupInfoParamDecode(TiXmlElement* element, int* error) {
    return readRecord(element, viewGroupInfoFields, error);
}

} // namespace veltoprotocol
