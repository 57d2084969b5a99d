// Record search answers and the blocks in them, as the tests type them.
#pragma once

#include "support/encoded.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>
#include <zlib.h>

#include <cstring>
#include <string>
#include <vector>

namespace record_blocks {

using namespace veltoprotocol;

inline std::string packed(const std::string& plain) {
    uLongf size = compressBound(plain.size());
    std::string block(size, '\0');
    EXPECT_EQ(compress(reinterpret_cast<Bytef*>(&block[0]), &size,
                       reinterpret_cast<const Bytef*>(plain.data()), plain.size()),
              Z_OK);
    block.resize(size);
    return block;
}

inline std::string unpacked(const std::string& block) {
    std::string plain(1 << 20, '\0');
    uLongf size = plain.size();
    EXPECT_EQ(uncompress(reinterpret_cast<Bytef*>(&plain[0]), &size,
                         reinterpret_cast<const Bytef*>(block.data()), block.size()),
              Z_OK);
    plain.resize(size);
    return plain;
}

inline std::string word(unsigned int value) {
    std::string bytes;
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> (8 * i) & 255);
    return bytes;
}

inline std::string field(const std::string& text, std::size_t width) {
    return text + std::string(width - text.size(), '\0');
}

inline std::string head(const std::string& channel, int mode, unsigned int count) {
    return field(channel, 48) + word(static_cast<unsigned>(mode)) + word(count);
}

inline std::string element(int number, const std::string& url) {
    const auto at = [number](int i) { return word(static_cast<unsigned>(number + i)); };
    return at(0) + at(1) + at(2) + at(3) + at(4) + field(url, 64) + at(5);
}

// As element() describes it on the wire; what is not carried is filled all the same.
inline __tagVtRecordElementParam record(int number, const std::string& url) {
    __tagVtRecordElementParam record = __tagVtRecordElementParam();
    std::strcpy(record.ChannelGuid, "not carried");
    std::strcpy(record.guid, "not carried");
    std::strcpy(record.RecordName, "not carried");
    record.RecordType = number;
    record.RecordMode = number + 1;
    record.StartTime = number + 2;
    record.EndTime = number + 3;
    record.RecordSize = number + 4;
    std::memcpy(record.PictureUrl, url.data(), url.size());
    record.PictureSize = number + 5;
    record.Index = 99;
    return record;
}

inline __tagVtRecordParam found(std::vector<__tagVtRecordElementParam>& records, int mode = 2) {
    __tagVtRecordParam found = __tagVtRecordParam();
    std::strcpy(found.ChannelGuid, "c-1");
    found.ResultMode = mode;
    found.Counter = static_cast<unsigned int>(records.size());
    found.Records = records.data();
    return found;
}

inline std::string xml(int result) {
    return R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="SearchRecord">
        <Result>)" +
           std::to_string(result) + R"(</Result>
    </response>
</servercommandservice>
)";
}

inline std::string message(const std::string& body) {
    return "HTTP/1.1 200 OK\r\nServer: vtengine\r\nConnection: keep-alive\r\n"
           "Content-Type: text/xml; charset=utf-8\r\nContent-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

inline Encoded answer(int result, const __tagVtRecordParam* records, int roomy = 1 << 20) {
    return encoded(
        [&](char* out, int size) { return GetSearchRecordRespEncode(result, 7, records, out, size); }, roomy);
}

// The record that a block is read to, released at the end.
struct Result {
    explicit Result(const std::string& block) {
        Captured captured;
        record = GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), &error);
        printed = captured.text();
    }
    Result(const Result&) = delete;
    Result& operator=(const Result&) = delete;
    ~Result() { ReleaseRecordParam(&record); }

    bool empty() const { return sameBytes(record, __tagVtRecordParam()); }

    int error = 7;
    __tagVtRecordParam record;
    std::string printed;
};

} // namespace record_blocks
