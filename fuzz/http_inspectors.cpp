// The HTTP inspectors search received bytes sixteen at a time. Whatever the bytes are, and wherever they lie,
// each inspector gives and prints what the plain rules give (tests/framing/inspection_rules.h), and reads no
// byte behind the last one. A null buffer and a negative length are an empty one.
//
// Input: a byte for place and kind of the buffer, then its bytes.
#include "framing/inspection_rules.h"
#include "fuzz/target.h"

#include <LibVeltoProtocol.h>

using namespace veltoprotocol;

namespace {

void inspect(const char* buf, int len) {
    requireSame("CheckHttp", CheckHttp(buf, len), rules::checkHttp(buf, len));
    requireSame("GetHttpLength", GetHttpLength(buf, len), rules::httpLength(buf, len));
    requireSame("GetContentLen", GetContentLen(buf, len), rules::contentLen(buf, len));
    requireSame("GetHttpPacketLength", GetHttpPacketLength(buf, len), rules::packetLength(buf, len));
    requireSame("GetContentType", GetContentType(buf, len), rules::contentType(buf, len));
    const std::string authorization = GetAuthorization(buf, len);
    requireSame("GetAuthorization", authorization, rules::authorization(buf, len));
    requireSame("GetAuthorizationDecode", GetAuthorizationDecode(buf, len),
                rules::authorizationDecode(buf, len));
    Exact value(authorization);
    requireSame("GetAuthorizationDecode of a value", GetAuthorizationDecode(value.data(), value.length()),
                rules::authorizationDecode(value.data(), value.length()));
}

void inspectFirstLine(const char* buf, int len) {
    std::string value;
    const bool found = rules::firstValue(buf, len, value);
    Printed printed;
    requireSame("GetHttpFirstValue", GetHttpFirstValue(buf, len), value);
    requireSame("GetUri", GetUri(buf, len), value);
    requireSame("GetHttpStatus", GetHttpStatus(buf, len), rules::httpStatus(buf, len));
    const std::string line = "not found http uri!\n";
    requireSame("the lines printed", printed.text(), found ? "" : line + line + line);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned kind = input.byte();
    Exact buffer(input.rest(), 0, kind % 64);
    const char* const buf = kind / 64 == 3 ? nullptr : buffer.data();
    const int len = kind / 64 == 2 ? -buffer.length() : buffer.length();
    inspect(buf, len);
    inspectFirstLine(buf, len);
    return 0;
}
