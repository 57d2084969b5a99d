// A login and the request that follows it, both ends in one program and no network between them.
#include <LibVeltoProtocol.h>

#include <cstdio>
#include <string>

using namespace veltoprotocol;

// Decode wants its text NUL-terminated, and a received body is not: hence the copy.
static TiXmlDocument* parsed(const char* message, int length) {
    const int head = GetHttpLength(message, length);
    return head < 0 ? nullptr : Decode(std::string(message + head, message + length).c_str());
}

int main() {
    char buffer[4096]; // an encoder writes the whole message, or returns -1 and writes nothing
    int error = 0, result = -1;

    // The client writes a login request.
    __tagVtDeviceParam user = {};
    std::snprintf(user.UserName, sizeof user.UserName, "operator");
    std::snprintf(user.Password, sizeof user.Password, "correct horse");
    int length = GetLoginReqEncode(&user, "127.0.0.1", 1, buffer, sizeof buffer);

    // The server finds the message in the bytes received so far, and reads who asks for what.
    length = GetHttpPacketLength(buffer, length);
    if (length < 0) return 1; // not all of it is there yet
    const std::string basic = GetAuthorization(buffer, length);
    const std::string credentials = GetAuthorizationDecode(basic.data(), static_cast<int>(basic.size()));
    TiXmlDocument* request = parsed(buffer, length);
    const std::string command = GetRequestNameDecode(request, &error);
    const unsigned int seqnum = GetSeqnumberDecode(request, &error);
    ReleaseTiXmlDocument(request);
    std::printf("server: %s, seqnum %u, from %s\n", command.c_str(), seqnum, credentials.c_str());

    // It answers with a token if it knows the user.
    const bool known = command == "Login" && credentials == "operator:correct horse";
    length = GetLoginRespEncode(known ? 0 : 1, "token-4711", seqnum, buffer, sizeof buffer);

    // The client reads the token and sends it in every later request.
    TiXmlDocument* response = parsed(buffer, length);
    const std::string token = GetLoginRespTokenDecode(response, &result, &error);
    ReleaseTiXmlDocument(response);
    std::printf("client: status %d, result %d, token %s\n", GetHttpStatus(buffer, length), result,
                token.c_str());
    length = GetAllDeviceListReqEncode("127.0.0.1", token.c_str(), 2, buffer, sizeof buffer);
    if (length < 0) return 1; // it does not fit
    std::printf("client: asks for the devices in %d bytes:\n\n%.*s", length, length, buffer);
    return result == 0 && token == "token-4711" ? 0 : 1;
}
