// Decode gives what the XML library's own parser makes of the text, as long as that stays within the limits:
// the same tree in all that the library shows of it, and nothing printed. Where the parser fails, Decode
// prints the parser's reason on one line and gives null; where the parser passes a limit, the line names the
// limit. Neither depends on what lies behind the text's NUL. What is accepted is rendered as the XML
// library's printer has it, and the length is that of the text.
//
// Input: a byte, then a text or, where the byte is odd, the steps by which one is spelt.
#include "framing/parser_limits.h"
#include "fuzz/spelling.h"
#include "fuzz/target.h"
#include "support/same_tree.h"

#include <LibVeltoProtocol.h>

namespace {

// As the parser is given it: it may step over the first NUL.
void parse(TiXmlDocument& doc, std::string_view text) {
    doc.Parse((std::string(text) + std::string(4, '\0')).c_str());
}

// The reason for a refusal; none if there is no reason.
std::string refusal(const TiXmlDocument& parsed) {
    const std::string limit = limits::firstPassed(parsed, {});
    if (limit != limits::within) return limit;
    return parsed.Error() ? parsed.ErrorDesc() : "";
}

void compare(std::string_view document) {
    TiXmlDocument want;
    parse(want, document);
    const std::string reason = refusal(want);

    Exact ending(document, 1);
    Printed printed;
    const std::unique_ptr<TiXmlDocument, void (*)(TiXmlDocument*)> got(veltoprotocol::Decode(ending.data()),
                                                                       veltoprotocol::ReleaseTiXmlDocument);
    const std::string line =
        "receive xml file format error TiXmlDocument can not Parse,ErrorMsg:" + reason + '\n';
    requireSame("what is printed", printed.text(), reason.empty() ? "" : line);
    require((got != nullptr) == reason.empty(), "whether there is a document");
    if (!got) return;
    requireSame("the tree", trees::outline(*got), trees::outline(want));
    require(!got->Error(), "the document says that it holds an error");

    TiXmlPrinter printer;
    require(want.Accept(&printer), "the printer refuses a document");
    const std::string text = veltoprotocol::GetXmlEncode(got.get());
    requireSame("what is rendered", text, {printer.CStr(), printer.Size()});
    requireSame("its length", veltoprotocol::GetXmlLength(got.get()), static_cast<long long>(text.size()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const bool isSpelt = input.byte() % 2 == 1;
    const std::string text = isSpelt ? spelling::Document(input.rest()).text() : std::string(input.text());
    compare(text);
    // What the protocol sends begins so, and is read in a way of its own.
    const std::string declaration = R"(<?xml version="1.0" encoding="UTF-8" ?>)";
    if (text.compare(0, 5, declaration, 0, 5) != 0) compare(declaration + text);
    return 0;
}
