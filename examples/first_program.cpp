#include <LibVeltoProtocol.h>

#include <cstdio>
#include <string>

int main() {
    // The client: an encoder writes a whole message, or returns -1 and writes nothing.
    char message[4096];
    const int length =
        veltoprotocol::GetAllDeviceListReqEncode("127.0.0.1", "my-token", 7, message, sizeof message);
    std::printf("%.*s\n", length < 0 ? 0 : length, message);

    // The server: waits until the received bytes hold a whole message, then parses the body.
    if (veltoprotocol::GetHttpPacketLength(message, length) < 0) return 1;
    const std::string body(message + veltoprotocol::GetHttpLength(message, length), message + length);
    TiXmlDocument* request = veltoprotocol::Decode(body.c_str());
    int error = 0;
    std::printf("%s, number %u, token %s\n", veltoprotocol::GetRequestNameDecode(request, &error).c_str(),
                veltoprotocol::GetSeqnumberDecode(request, &error),
                veltoprotocol::GetTokenDecode(request, &error).c_str());
    veltoprotocol::ReleaseTiXmlDocument(request);
    return error == 0 ? 0 : 1;
}
