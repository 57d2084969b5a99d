// Login, token, heartbeat, logout.
#include "framing/base64.h"
#include "framing/message.h"
#include "framing/walk.h"
#include "veltoprotocol/admin.h"
#include "veltoprotocol/framing.h"

namespace veltoprotocol {

int GetLoginReqEncode(const __tagVtDeviceParam* credentials, const char* host, unsigned int seqnum, char* out,
                      int size) {
    if (!credentials) return -1;
    // user:password, each up to its NUL or its field's width
    char plain[sizeof credentials->UserName + 1 + sizeof credentials->Password];
    Write to(plain);
    to.raw(shown(credentials->UserName).text());
    to.literal(":");
    to.raw(shown(credentials->Password).text());
    char base64[(sizeof plain + 2) / 3 * 4];
    const Text encoded{base64, encodeBase64(base64, {plain, static_cast<std::size_t>(to.mark() - plain)})};

    const Head head = Head::request(commandPath, host, keepAlive).withBasicCredentials(encoded);
    return Request("Login", seqnum).post(head, Empty(), out, size);
}

int GetLoginRespEncode(int result, const char* token, unsigned int seqnum, char* out, int size) {
    const auto tree = [&](auto x) {
        x.value("Result", result);
        if (result == 0) x.value("Token", token); // here under response, in requests under the root
    };
    // kept: 2 is answered like success, but without a token
    const bool refused = result != 0 && result != 2;
    const Head head =
        refused ? Head::response(closeConnection, "401 Unauthorized") : Head::response(keepAlive);
    return Response("Login", seqnum).reply(head, tree, out, size);
}

int GetLogoutReqEncode(const char* host, const char* token, unsigned int seqnum, char* out, int size) {
    return Request("Logout", seqnum, Token{token})
        .post(commandPath, host, Empty(), out, size, closeConnection);
}

int GetHeartBeatReqEncode(const char* host, const char* /* kept: a heartbeat carries no token */,
                          unsigned int seqnum, char* out, int size) {
    return Request("Heartbeat", seqnum).post(commandPath, host, Empty(), out, size);
}

int GetHeartBeatRespEncode(unsigned int seqnum, char* out, int size) {
    return Response("Heartbeat", seqnum).reply(Empty(), out, size);
}

std::string GetTokenDecode(TiXmlDocument* doc, int* error) {
    return GetString(Walk(doc, error).required("servercommandservice").required("Token").element());
}

std::string GetLogoutReqTokenDecode(TiXmlDocument* doc, int* error) { return GetTokenDecode(doc, error); }

std::string GetLoginRespTokenDecode(TiXmlDocument* doc, int* result, int* error) {
    report(result, -1);
    const Walk response = Walk(doc, error).required("servercommandservice").expected("response");
    if (!response) return {};
    if (const Walk code = response.expected("Result")) report(result, GetInt(code.element()));
    const Walk token = response.optional("Token");
    // kept: the words of a token missing under the root
    if (!token) missingPath({"servercommandservice", "Token"});
    return GetString(token.element());
}

} // namespace veltoprotocol
