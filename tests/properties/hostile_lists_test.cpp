// The tests of hostile input leave no function out, and prove nothing by way of inputs that nobody reads.
#include "properties/declared.h"
#include "properties/every_encoder.h"
#include "properties/hostile_messages.h"
#include "properties/steady.h"
#include "support/muted.h"

#include <LibVeltoProtocol.h>

#include <algorithm>

namespace {

template <class List>
std::set<std::string> names(const List& list) {
    std::set<std::string> names;
    for (const auto& entry : list) names.insert(entry.name);
    EXPECT_EQ(names.size(), list.size()) << "something stands in a list twice";
    return names;
}

// They read nothing that was received.
const std::set<std::string> releases = {"ReleaseTiXmlDocument",    "ReleaseUserInfoParam",
                                        "ReleaseRecordParam",      "ReleasePlaybackParam",
                                        "ReleaseSearchAlarmParam", "EMapInfoDecodeRelease",
                                        "ReleaseSetViewGroupData", "ReleaseViewGroupDataParam"};
const std::set<std::string> writers = {"SetStringValue", "SetStringValueAtt", "ItoString", "UitoString"};

TEST(HostileInput, IsReadByEveryReader) {
    std::set<std::string> listed = {"Decode"};
    for (const auto& list : {names(bytesReaders), names(documentReaders), names(recordReaders),
                             names(valueReaders), releases, writers})
        listed.insert(list.begin(), list.end());
    std::set<std::string> declared;
    for (const std::string& function : declaredFunctions())
        if (!isEncoder(function) || function == "GetXmlEncode") declared.insert(function);
    EXPECT_GE(declared.size(), 85u) << "the headers were not found";
    EXPECT_EQ(listed, declared);
}

TEST(HostileInput, BeginsAsAMessageOfEachEncoder) {
    std::set<std::string> declared;
    for (const std::string& function : declaredFunctions())
        if (isEncoder(function)) declared.insert(function);
    EXPECT_EQ(names(wholeMessages()), declared);
    for (const WholeMessage& message : wholeMessages()) EXPECT_GT(message.bytes.size(), 0u) << message.name;
}

TEST(HostileInput, BeginsAsARecordForEachReader) {
    std::set<std::string> read;
    for (const OwnElement& own : ownElements()) read.insert(own.reader->name);
    EXPECT_EQ(read, names(recordReaders));
}

// Each reader of documents and of bytes has a whole one to read, which gives more than nothing does.
TEST(HostileInput, BeginsAsSomethingForEachReader) {
    std::set<std::string> idle;
    {
        const Muted quiet;
        for (const DocumentReader& reader : documentReaders) {
            int error = 7;
            const std::string nothing = reader.read(nullptr, &error);
            const auto tells = [&](const std::string& xml) {
                TiXmlDocument* const doc = veltoprotocol::Decode(xml.c_str());
                const std::string told = reader.read(doc, &error);
                veltoprotocol::ReleaseTiXmlDocument(doc);
                return doc && told != nothing;
            };
            if (std::none_of(wholeDocuments().begin(), wholeDocuments().end(), tells))
                idle.insert(reader.name);
        }
        for (const BytesReader& reader : bytesReaders) {
            const std::string nothing = reader.read("", 0);
            const auto tells = [&](const WholeMessage& message) {
                return reader.read(message.bytes.data(), static_cast<int>(message.bytes.size())) != nothing;
            };
            if (std::none_of(wholeMessages().begin(), wholeMessages().end(), tells)) idle.insert(reader.name);
        }
    }
    // It reads a part of a message, and has tests of its own.
    EXPECT_EQ(idle, std::set<std::string>{"GetAuthorizationDecode"});
}

// The heap tells a leak, memory that is read before it is written, and what is exhausted.
TEST(HostileInput, IsReadOnAHeapThatTells) {
    Faults leaking, unset, fine;
    void* kept = nullptr;
    steady(leaking, "a", [&] {
        ::operator delete(kept);
        kept = ::operator new(1);
        return std::string();
    });
    ::operator delete(kept);
    EXPECT_NE(leaking.text(), "");
    steady(unset, "b", [] {
        char* const fresh = static_cast<char*>(::operator new(3));
        const std::string read(1, *fresh);
        ::operator delete(fresh);
        return read;
    });
    EXPECT_EQ(unset.text(), "b: makes something else the second time\n");
    EXPECT_EQ(steady(fine, "c", [] { return std::string(100, 'x'); }), std::string(100, 'x'));
    EXPECT_EQ(fine.text(), "");
    const heap::Watch watch;
    ::operator delete(::operator new(5000));
    EXPECT_GE(watch.most(), 5000);
    EXPECT_EQ(watch.leaked(), 0);
}

// The byte behind an allocation is out of reach.
TEST(HostileInputDeathTest, EndsWhereItsMemoryEnds) {
    for (const std::size_t size : {1u, 7u, 101u, 5002u}) {
        volatile char* memory = nullptr;
        {
            const heap::Fenced fenced;
            memory = static_cast<char*>(::operator new(size));
        }
        EXPECT_EQ(memory[size - 1], memory[size - 1]);
        volatile char read = 0; // or valgrind would leave the load out
        EXPECT_DEATH(read = memory[size], "");
        EXPECT_EQ(read, 0);
        ::operator delete(const_cast<char*>(memory));
    }
    const heap::Fenced fenced;
    char* const record = static_cast<char*>(::operator new(20));
    EXPECT_DEATH(
        {
            record[20] = 'x';
            ::operator delete(record);
        },
        "");
    ::operator delete(record);
}

} // namespace
