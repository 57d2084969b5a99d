// The management servers of a site.
#include "framing/message.h"
#include "framing/tree.h"
#include "veltoprotocol/admin.h"

namespace veltoprotocol {
namespace {

using Server = __tagVtServerInfo;

constexpr auto serverFields =
    attributes("server", field("Guid", &Server::Guid), field("DisplayName", &Server::DisplayName),
               field("PrivateAddress", &Server::PrivateAddress), field("PrivatePort", &Server::PrivatePort),
               field("EnabledPublic", &Server::EnabledPublic), field("PublicAddress", &Server::PublicAddress),
               field("PublicPort", &Server::PublicPort), field("MaxClient", &Server::MaxClient));

template <class X>
void writeServers(X x, const Server* servers, int count) {
    for (const auto& server : entries(servers, count)) x.element("server", serverFields(server));
}

} // namespace

int GetServerInfoReqEncode(const char* host, const char* token, unsigned int seqnum, char* out, int size) {
    return Request("GetServerInfo", seqnum, Token{token}).post(commandPath, host, Empty(), out, size);
}

int GetServerInfoRespEncode(int result, unsigned int seqnum, const Server* servers, int count, char* out,
                            int size) {
    const auto tree = [&](auto x) {
        x.value("Result", result);
        if (result != 0 || !servers || count < 1) return;
        x.element("servers", [&](auto list) { writeServers(list, servers, count); });
    };
    return Response("GetServerInfo", seqnum).reply(tree, out, size);
}

int GetSetServerInfoReqEncode(__enumVtDeviceReqType reqType, const Server* servers, int count,
                              const char* host, const char* token, unsigned int seqnum, char* out, int size) {
    const auto tree = [&](auto x) {
        if (!servers || count < 1) return;
        x.element("servers", [&](auto list) {
            list.value("reqType", reqType);
            list.value("serverCouner", count); // kept: misspelled
            writeServers(list, servers, count);
        });
    };
    return Request("SetServerInfo", seqnum, Token{token}).post(managePath, host, tree, out, size);
}

int GetSetServerInfoRespEncode(int result, unsigned int seqnum, char* out, int size) {
    // kept: the name of the command that reads
    return GetRespEncode(result, seqnum, out, size, "GetServerInfo", "keep-alive");
}

int GetServerParamEncode(TiXmlElement* element, const Server* server) {
    return writeRecord(element, serverFields, server);
}

Server GetServerParamDecode(TiXmlElement* server, int* error) {
    return readRecord(server, serverFields, error);
}

} // namespace veltoprotocol
