// Where recordings are moved to.
#include "framing/message.h"
#include "veltoprotocol/recording.h"

namespace veltoprotocol {
namespace {

using Archive = __tagVtArchiveinfo;

constexpr auto archiveFields =
    attributes("Archive", field("Guid", &Archive::Guid), field("ArchiveTime", &Archive::ArchiveTime));

} // namespace

int GetArchiveEncode(const Archive* archives, int count, const char* host, unsigned int seqnum, char* out,
                     int size, const char* name) {
    if (!archives || count < 1) return -1;
    const auto tree = [&](auto x) {
        x.value("ArchiveCounter", count);
        // kept: the trailing blank of both names
        x.list("Archives ", entries(archives, count),
               [](auto wrapper, auto& archive) { wrapper.element("Archive ", archiveFields(archive)); });
    };
    return Request(name, seqnum).post(managePath, host, tree, out, size);
}

int GetAddArchiveReqEncode(const Archive* archives, int count, const char* host, unsigned int seqnum,
                           char* out, int size) {
    return GetArchiveEncode(archives, count, host, seqnum, out, size, "AddArchiveInfo");
}

int GetUpdateArchiveReqEncode(const Archive* archives, int count, const char* host, unsigned int seqnum,
                              char* out, int size) {
    return GetArchiveEncode(archives, count, host, seqnum, out, size, "UpdateArchiveInfo");
}

int GetDeleteArchiveReqEncode(const Archive* archives, int count, const char* host, unsigned int seqnum,
                              char* out, int size) {
    return GetArchiveEncode(archives, count, host, seqnum, out, size, "DeleteArchiveInfo");
}

Archive GetArchiveParamDecode(TiXmlElement* archive, int* error) {
    return readRecord(archive, archiveFields, error);
}

} // namespace veltoprotocol
