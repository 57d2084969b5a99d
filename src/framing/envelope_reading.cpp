#include "framing/shown.h"
#include "framing/walk.h"
#include "veltoprotocol/framing.h"

namespace veltoprotocol {

std::string GetNameDecode(TiXmlDocument* doc, int* error, const char* kind) {
    const Walk command = Walk(doc, error).required("servercommandservice").required(kind);
    if (!command) return {};
    if (const char* const name = command.element()->Attribute("name")) return name;
    report(error, -1);
    missingCommandName(kind);
    return {};
}

std::string GetRequestNameDecode(TiXmlDocument* doc, int* error) {
    return GetNameDecode(doc, error, "request");
}

std::string GetResponseNameDecode(TiXmlDocument* doc, int* error) {
    return GetNameDecode(doc, error, "response");
}

int GetResponseErrorcodeDecode(TiXmlDocument* doc, int* error) {
    // kept: only a missing root is an error; a missing Result shows as the value -1 alone
    return GetInt(
        Walk(doc, error).required("servercommandservice").expected("response").expected("Result").element());
}

unsigned int GetSeqnumberDecode(TiXmlDocument* doc, int* error) {
    // The low 32 bits undo the signed writing: "-1" is 4294967295 again.
    return GetUInt(Walk(doc, error).required("servercommandservice").required("seqnum").element());
}

std::string GetVersionDecode(TiXmlDocument* doc, int* error) {
    const Walk root = Walk(doc, error).required("servercommandservice");
    char version[32] = {};
    GetStringValue(root.element(), "servercommandservice", "version", version, sizeof version);
    const Text text = shown(version).text();
    return {text.data, text.size};
}

} // namespace veltoprotocol
