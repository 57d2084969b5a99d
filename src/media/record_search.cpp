// The request for a record search, and its answer around the compressed block.
#include "framing/message.h"
#include "framing/tree.h"
#include "media/record_block.h"

#include <memory>

namespace veltoprotocol {
namespace {

using Search = __tagVtSearchRecordParam;
constexpr auto searchFields =
    attributes("SearchParam", field("StartTime", &Search::StartTime), field("EndTime", &Search::EndTime),
               field("SearchMode", &Search::SearchMode), field("RecordType", &Search::RecordType),
               field("RecordMode", &Search::RecordMode));

Head answerHead() { return Head::response(keepAlive); }

// Bytes in front of a record block of that length.
std::size_t frontLength(Text xml, std::size_t block) {
    Count head;
    answerHead().write(head, xml.size + block);
    return static_cast<std::size_t>(head.bytes()) + xml.size;
}

// Compresses straight into `out`, which has room for the list however badly it compresses: nothing can fail
// any more once the first byte is written. The block goes where the shortest head would leave it, so that no
// byte behind the message is touched, and moves on by a digit or two of the length.
int compressedInPlace(Text xml, const __tagVtRecordParam& records, std::size_t longest, char* out, int size) {
    const std::size_t guess = frontLength(xml, 0);
    const std::size_t block = writeRecordBlock(records, out + guess, longest);
    if (block == 0) return -1;
    const std::size_t front = frontLength(xml, block);
    if (front != guess) std::memmove(out + front, out + guess, block);
    const auto inFrontOfIt = [xml](Write& to) { to.raw(xml); };
    return deliver(answerHead(), xml.size + block, inFrontOfIt, out, size);
}

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
    if (result != 0 || !records) return response.followedBy(emptyRecordBlock).reply(tree, out, size);

    char start[1024]; // the answer with nothing behind its XML: numbers are all that varies
    const int started = response.reply(tree, start, sizeof start);
    const std::size_t xmlLength = response.xmlLength(tree);
    const Text xml{start + started - xmlLength, xmlLength};

    // kept: where XML and the block's head are longer than `size`, the elements go without the head. Such a
    // message never fits, since the HTTP head is longer still; so it is refused before anything is
    // compressed.
    const auto room = static_cast<std::size_t>(size);
    if (static_cast<std::size_t>(started) >= room) return -1;
    const std::size_t longest = longestRecordBlock(*records);
    if (frontLength(xml, longest) + longest <= room)
        return compressedInPlace(xml, *records, longest, out, size);

    // Whether it fits is known at the end only, and until then `out` stays as it was.
    const std::size_t left = room - static_cast<std::size_t>(started);
    const std::unique_ptr<char[]> buffer(new char[left]);
    const std::size_t block = writeRecordBlock(*records, buffer.get(), left);
    if (block == 0) return -1;
    return response.followedBy({buffer.get(), block}).reply(tree, out, size);
}

Search GetSearchRecordDecode(TiXmlElement* searchParam, int* error) {
    return readRecord(searchParam, searchFields, error);
}

} // namespace veltoprotocol
