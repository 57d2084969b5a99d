// What the bytes received so far hold: where the head ends, how long the message is, who asks for what.
//
// These scans are forgiving and fixed. A header name is searched anywhere, not only where a line begins, and
// what they make of odd input is part of the protocol. So the rules are not to be replaced by those of an
// HTTP parser. A place where the obvious code would answer otherwise is marked "kept".

#include "framing/base64.h"
#include "framing/block_search.h"
#include "framing/diagnostics.h"
#include "framing/http_marks.h"
#include "veltoprotocol/framing.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstdint>
#include <string_view>
#include <system_error>

namespace veltoprotocol {
namespace {

using namespace inspection;
using Bytes = std::string_view;

Bytes received(const char* buf, int len) {
    if (!buf || len < 0) return {};
    return {buf, static_cast<std::size_t>(len)};
}

Bytes restOfLine(Bytes text, std::size_t start) {
    const Bytes rest = text.substr(start);
    return rest.substr(0, find<LineEnd>(rest));
}

// Whether these four letters begin a text, in either case.
bool beginsWith(const char* buf, const char* lower) { return sameWord<std::uint32_t>(buf, lower, "    "); }

// Length of the head with its blank line; 0 if it does not end in the text.
std::size_t headLength(Bytes text) {
    const std::size_t at = find<BlankLine>(text);
    return at == notFound ? 0 : at + BlankLine::size;
}

// kept: the digits of a line are joined, whatever stands between them, and those behind the sixteenth do not
// count
constexpr int mostDigits = 16;

struct JoinedDigits {
    std::uint64_t value = 0;
    int count = 0;

    void join(char digit) {
        value = value * 10 + static_cast<unsigned char>(digit - '0');
        ++count;
    }
    int number() const { return count == 0 || value > INT_MAX ? -1 : static_cast<int>(value); }
};

int joinedByWayOfSearch(Bytes text, JoinedDigits digits) {
    while (digits.count < mostDigits) {
        const std::size_t at = find<DigitOrLineEnd>(text);
        if (at == notFound || LineEnd::standsAt(text.data() + at)) break;
        digits.join(text[at]);
        text.remove_prefix(at + 1);
    }
    return digits.number();
}

int joinedDigits(Bytes text) {
    JoinedDigits digits;
    // Nearly every number ends in here, and is read faster than searched. So few hold no digit too many.
    const std::size_t near = std::min<std::size_t>(text.size(), mostDigits);
    for (std::size_t i = 0; i < near; ++i) {
        if (text[i] >= '0' && text[i] <= '9')
            digits.join(text[i]);
        else if (LineEnd::standsAt(text.data() + i))
            return digits.number();
    }
    return joinedByWayOfSearch(text.substr(near), digits);
}

int contentLength(Bytes text) {
    const std::size_t name = find<ContentLengthName>(text);
    if (name != notFound) return joinedDigits(text.substr(name + ContentLengthName::size));
    // kept: without the name the last 13 bytes are read, whatever they hold
    return joinedDigits(text.substr(text.size() - std::min<std::size_t>(text.size(), 13)));
}

// The text between the first two spaces; prints a line where there is none.
Bytes firstValue(const char* buf, int len) {
    const Bytes text = received(buf, len);
    const std::size_t first = text.find(' ');
    const std::size_t second =
        first == notFound ? notFound : text.find(' ', first + 1); // kept: also in a later line
    if (second == notFound) {
        missingUri();
        return {};
    }
    return text.substr(first + 1, second - first - 1);
}

// As atoi does, of text that no NUL ends: strtol's blanks, sign, digits and limits, then narrowed.
int decimal(Bytes text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    const Bytes sign = text.substr(0, text.find_first_not_of("+-"));
    if (sign == "+") text.remove_prefix(1); // from_chars knows no plus, and no two signs either
    long value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec == std::errc::result_out_of_range) value = sign == "-" ? LONG_MIN : LONG_MAX;
    return static_cast<int>(value);
}

template <class Name>
std::string headerValue(const char* buf, int len) {
    const Bytes text = received(buf, len);
    const Bytes head = text.substr(0, headLength(text));
    if (head.empty()) return {};
    // kept: a head shorter than the name is not searched; its first line is the value
    if (head.size() < Name::size) return std::string(restOfLine(head, 0));
    const std::size_t at = find<Name>(head);
    if (at == notFound) return {};
    // kept: a name at the very start is not skipped; elsewhere two bytes behind it are, whatever they are.
    // The blank line behind every name keeps the value's start within the head.
    return std::string(restOfLine(head, at > 0 ? at + Name::size + 2 : 0));
}

} // namespace

int CheckHttp(const char* buf, int len) {
    if (!buf || len < 4) return -2;
    if (beginsWith(buf, "post") || beginsWith(buf, "http")) return 0;
    // kept: three letters make a GET; the byte behind them may be any
    return sameWord<std::uint32_t>(buf, "get\xFF", "   \xFF") ? 0 : -1;
}

int GetHttpLength(const char* buf, int len) {
    const std::size_t head = headLength(received(buf, len));
    return head > 0 ? static_cast<int>(head) : -1;
}

int GetContentLen(const char* buf, int len) { return contentLength(received(buf, len)); }

int GetHttpPacketLength(const char* buf, int len) {
    const Bytes text = received(buf, len);
    const int head = static_cast<int>(headLength(text));
    if (head == 0) return -1;
    // kept: a length found in the body counts as well
    const int body = contentLength(text);
    if (body < 1) return -1; // kept: a message without a body is never framed
    return body <= len - head ? head + body : -1;
}

std::string GetHttpFirstValue(const char* buf, int len) { return std::string(firstValue(buf, len)); }

std::string GetUri(const char* buf, int len) { return GetHttpFirstValue(buf, len); }

int GetHttpStatus(const char* buf, int len) { return decimal(firstValue(buf, len)); }

std::string GetContentType(const char* buf, int len) { return headerValue<ContentTypeName>(buf, len); }

std::string GetAuthorization(const char* buf, int len) { return headerValue<AuthorizationName>(buf, len); }

std::string GetAuthorizationDecode(const char* buf, int len) {
    const Bytes value = received(buf, len);
    const std::size_t space = value.find(' ');
    // kept: a space at the very start is not skipped, and no Base64 text holds one
    if (space == notFound || space == 0) return {};
    const Bytes encoded = restOfLine(value, space + 1);
    char credentials[1024];
    const std::size_t length = decodedBase64Length({encoded.data(), encoded.size()});
    if (length == 0 || length >= sizeof credentials) return {};
    Base64Decode(credentials, encoded.data(), static_cast<int>(encoded.size()));
    return credentials; // kept: the text ends at the first NUL, even one that was encoded
}

} // namespace veltoprotocol
