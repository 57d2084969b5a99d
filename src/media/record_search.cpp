// The request for a record search, and its answer around the compressed block.
#include "framing/message.h"
#include "framing/tree.h"
#include "media/record_block.h"

namespace veltoprotocol {
namespace {

using Search = __tagVtSearchRecordParam;
constexpr auto searchFields =
    attributes("SearchParam", field("StartTime", &Search::StartTime), field("EndTime", &Search::EndTime),
               field("SearchMode", &Search::SearchMode), field("RecordType", &Search::RecordType),
               field("RecordMode", &Search::RecordMode));

} // namespace

int GetSearchRecordReqEncode(const char* host, const char* token, unsigned int seqnum,
                             const char* channelGuid, const Search* param, char* out, int size) {
    if (!param) return -1;
    const auto tree = [&](auto x) {
        x.value("ChannelGuid", channelGuid);
        x.element("SearchParam", searchFields(*param));
    };
    return Request("SearchRecord", seqnum, Token{token}).post(commandPath, host, tree, out, size);
}

int GetSearchRecordRespEncode(int result, unsigned int seqnum, const __tagVtRecordParam* records, char* out,
                              int size) {
    if (!out || size < 1) return -1;
    const auto tree = [&](auto x) { x.value("Result", result); };
    const Response response("SearchRecord", seqnum);
    // kept: where XML and the block's head are longer than `size`, the elements go without the head. Such a
    // message never fits, since the HTTP head is longer still; so it is refused before anything is
    // compressed.
    if (response.xmlLength(tree) + recordBlockHead > static_cast<std::size_t>(size)) return -1;
    const RecordBlock block = compressedBlock(result == 0 ? records : nullptr);
    if (!block) return -1;
    return response.followedBy(block.text()).reply(tree, out, size);
}

Search GetSearchRecordDecode(TiXmlElement* searchParam, int* error) {
    return readRecord(searchParam, searchFields, error);
}

} // namespace veltoprotocol
