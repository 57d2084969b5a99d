#include "framing/http_assembly.h"

#include "veltoprotocol/framing.h"

namespace veltoprotocol {
namespace {

int wrap(const Head& head, const char* body, int bodyLength, char* out, int size) {
    const Text bytes = payload(body, bodyLength);
    return bytes.absent() ? -1 : assemble(head, {bytes}, out, size);
}

} // namespace

int assemble(const Head& head, std::initializer_list<Text> body, char* out, int size) {
    if (!usable(head, out, size)) return -1;
    std::size_t length = 0;
    for (const Text& piece : body) length += piece.size;
    const auto pieces = [&](Write& to) {
        for (const Text& piece : body) to.raw(piece);
    };
    return deliver(head, length, pieces, out, size);
}

int HttpReqEncode(const char* path, const char* host, const char* connection, const char* body,
                  int bodyLength, char* out, int size) {
    return wrap(Head::request(path, host, connection), body, bodyLength, out, size);
}

int HttpRespEncode(const char* connection, const char* body, int bodyLength, char* out, int size) {
    return wrap(Head::response(connection), body, bodyLength, out, size);
}

} // namespace veltoprotocol
