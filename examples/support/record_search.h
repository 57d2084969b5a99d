// The answer to a record search: XML, and directly behind it a compressed block with the list.
#ifndef EXAMPLES_RECORD_SEARCH_H
#define EXAMPLES_RECORD_SEARCH_H

#include "support/received_message.h"

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <stdexcept>
#include <string>

namespace example {

// A decoded list; gives its memory back.
class FoundRecords {
  public:
    explicit FoundRecords(const std::string& block) {
        int error = -1;
        records_ =
            veltoprotocol::GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), &error);
        if (error != 0) throw std::runtime_error("there is no block");
        // Only a block that was inflated and has its 56 bytes has a list, be it an empty one.
        if (!records_.Records) throw std::runtime_error("the block cannot be read");
    }
    ~FoundRecords() { veltoprotocol::ReleaseRecordParam(&records_); }
    FoundRecords(const FoundRecords&) = delete;
    FoundRecords& operator=(const FoundRecords&) = delete;

    const veltoprotocol::__tagVtRecordParam& operator*() const { return records_; }
    const veltoprotocol::__tagVtRecordParam* operator->() const { return &records_; }

  private:
    veltoprotocol::__tagVtRecordParam records_ = {};
};

// What stands behind the XML of an answer.
// begin split
inline std::string blockOf(const ReceivedMessage& answer) {
    const int xml = veltoprotocol::GetXmlLength(answer.document());
    if (xml < 0 || static_cast<std::size_t>(xml) >= answer.body().size())
        throw std::runtime_error("there is nothing behind the XML");
    return answer.body().substr(static_cast<std::size_t>(xml));
}
// end split

} // namespace example

#endif
