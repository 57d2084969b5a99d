// Every decoder reads whatever a document holds: nothing is read or written where it must not be, nothing
// leaks, also where the elements that a counter asks for exhaust the memory, and nobody asks for more than
// 1 GiB. The same document gives the same records and prints the same lines once more, and what was released
// may be released again.
//
// Input: a byte for the decoders (some of them, for 255 all), then a text.
#include "fuzz/bounded_new.h"
#include "fuzz/picked_reader.h"
#include "fuzz/target.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

using namespace veltoprotocol;

namespace {

// All that the decoders made of a document, and what they printed.
std::string outcome(TiXmlDocument* doc, unsigned share) {
    const Printed printed;
    Transcript transcript;
    std::string end;
    try {
        readPicked(transcript, doc, share);
    } catch (const std::bad_alloc&) {
        end = "memory exhausted\n";
    }
    return transcript.text() + end + printed.text();
}

// The second release finds nothing to do.
template <class Record>
void releaseTwice(Record record, void (*release)(Record*)) {
    release(&record);
    const Record once = record;
    release(&record);
    requireSame("a record released twice", {reinterpret_cast<const char*>(&record), sizeof record},
                {reinterpret_cast<const char*>(&once), sizeof once});
}

void releaseAllTwice(TiXmlDocument* doc) try {
    releaseTwice(GetViewGroupDataParamDecode(doc, nullptr), ReleaseViewGroupDataParam);
    releaseTwice(GetSetViewGroupData(doc, nullptr), ReleaseSetViewGroupData);
    TiXmlElement* const root = doc ? doc->RootElement() : nullptr;
    TiXmlElement* const request = root ? root->FirstChildElement() : nullptr;
    releaseTwice(GetPlayBackParamDecode(request, request, nullptr), ReleasePlaybackParam);
} catch (const std::bad_alloc&) {
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned first = input.byte();
    const unsigned share = first == 0xFF ? readerShares : first % readerShares;
    bounded::largestAsked = 0;
    const Printed quiet;
    Exact text(input.text(), 1);
    const std::unique_ptr<TiXmlDocument, void (*)(TiXmlDocument*)> doc(Decode(text.data()),
                                                                       ReleaseTiXmlDocument);
    const std::string once = outcome(doc.get(), share);
    requireSame("the same document once more", outcome(doc.get(), share), once);
    releaseAllTwice(doc.get());
    require(bounded::largestAsked <= std::size_t(1) << 30, "more than 1 GiB is asked for");
    return 0;
}
