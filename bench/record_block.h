// The plain bytes of a record list, ready to be compressed.
#pragma once

#include "samples.h"

namespace bench {

inline std::string plainBlock(const RecordList& list) {
    std::string plain;
    const auto append = [&](const auto& item, std::size_t size) {
        plain.append(reinterpret_cast<const char*>(&item), size);
    };
    append(list.ChannelGuid, 48);
    append(list.ResultMode, 4);
    append(list.Counter, 4);
    for (unsigned int i = 0; i < list.Counter; ++i) {
        const Record& record = list.Records[i];
        for (const int& number :
             {record.RecordType, record.RecordMode, record.StartTime, record.EndTime, record.RecordSize})
            append(number, 4);
        append(record.PictureUrl, 64);
        append(record.PictureSize, 4);
    }
    return plain;
}

} // namespace bench
