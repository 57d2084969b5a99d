// Record blocks, Base64 texts and credentials that are cut, damaged or too long, before a page that nobody
// may touch; and what is written of them, before another one.
#include "framing/inspection_rules.h"
#include "media/record_blocks.h"
#include "properties/hostile_messages.h"
#include "properties/steady.h"
#include "properties/told.h"
#include "support/guarded_page.h"
#include "support/muted.h"
#include "support/page_edge.h"

namespace {

using namespace veltoprotocol;

std::string plainBlock(unsigned int counter = 3) {
    using namespace record_blocks;
    return head("c-1", 1, counter) + element(10, "http://10.0.0.1/a.jpg") + element(20, "") +
           element(30, "b");
}

std::string read(Faults& faults, const char* reader, PageEdge& edge, const std::string& bytes,
                 const std::string& where) {
    for (const BytesReader& known : bytesReaders)
        if (known.name == std::string(reader))
            return steady(faults, where,
                          [&] { return known.read(edge.place(bytes), static_cast<int>(bytes.size())); });
    return "no such reader";
}

constexpr char ofBlocks[] = "GetSearchRecordResultDecode";

// The empty record with error 0: what zlib refuses is no list.
std::string emptyList() {
    __tagVtRecordParam nothing = __tagVtRecordParam();
    return std::string(reinterpret_cast<const char*>(&nothing), sizeof nothing) + "[0 of none]0";
}

TEST(HostileBlocks, ThatAreCutAreEmpty) {
    Faults faults;
    PageEdge edge(4096);
    const std::string block = record_blocks::packed(plainBlock());
    for (std::size_t length = 1; length < block.size(); ++length)
        faults.expect(read(faults, ofBlocks, edge, block.substr(0, length), std::to_string(length)) ==
                          emptyList(),
                      std::to_string(length), "is no empty list");
    const std::string whole = read(faults, ofBlocks, edge, block, "whole");
    EXPECT_NE(whole.find("http://10.0.0.1/a.jpg"), std::string::npos);
    EXPECT_EQ(faults.text(), "");
    EXPECT_EQ(read(faults, ofBlocks, edge, "", "none").back(), '1'); // error -1
}

// Some bits of the compressed bytes mean nothing.
TEST(HostileBlocks, ThatAreDamagedAreEmptyOrAsBefore) {
    Faults faults;
    PageEdge edge(4096);
    std::mt19937 random(10);
    const std::string block = record_blocks::packed(plainBlock());
    const std::string whole = read(faults, ofBlocks, edge, block, "whole");
    std::size_t asBefore = 0;
    for (int round = 0; round < 8; ++round)
        for (std::size_t place = 0; place < block.size(); ++place) {
            std::string damaged = block;
            damaged[place] = static_cast<char>(damaged[place] ^ static_cast<char>(1 + random() % 255));
            const std::string told = read(faults, ofBlocks, edge, damaged, std::to_string(place));
            asBefore += told == whole;
            faults.expect(told == whole || told == emptyList(), std::to_string(place), "is another list");
        }
    EXPECT_LE(asBefore, block.size() / 10);
    EXPECT_EQ(faults.text(), "");
}

// The list of a plain block, told by the rules: an item that is not whole any more is skipped, and the next
// one is read from the same place.
std::string listOf(const std::string& plain) {
    if (plain.size() < 56) return emptyList();
    std::size_t cursor = 0;
    const auto take = [&](void* item, std::size_t size) {
        if (cursor + size > plain.size()) return;
        std::memcpy(item, plain.data() + cursor, size);
        cursor += size;
    };
    __tagVtRecordParam found = __tagVtRecordParam();
    take(found.ChannelGuid, 48);
    take(&found.ResultMode, 4);
    take(&found.Counter, 4);
    std::vector<__tagVtRecordElementParam> records(found.Counter);
    for (__tagVtRecordElementParam& record : records) {
        std::memcpy(record.ChannelGuid, found.ChannelGuid, 48);
        for (int* const number :
             {&record.RecordType, &record.RecordMode, &record.StartTime, &record.EndTime, &record.RecordSize})
            take(number, 4);
        take(record.PictureUrl, 64);
        take(&record.PictureSize, 4);
        if (found.ResultMode == 1) std::memcpy(record.RecordName, record.PictureUrl, 64);
    }
    return telling::told(found) + telling::entries(records.data(), found.Counter) + "0";
}

// A list of another length than its Counter says, and every other byte of it wrong in turn.
TEST(HostileBlocks, AreReadAsFarAsTheyGo) {
    Faults faults;
    PageEdge edge(1 << 16);
    const std::string plain = plainBlock();
    for (std::size_t length = 0; length <= plain.size(); ++length) {
        const std::string shorter = plain.substr(0, length), where = std::to_string(length) + " bytes";
        faults.expect(read(faults, ofBlocks, edge, record_blocks::packed(shorter), where) == listOf(shorter),
                      where, "is another list");
    }
    std::size_t refused = 0;
    for (std::size_t place = 0; place < plain.size(); ++place) {
        if (place == 54) continue; // within the budget, and yet more than a test should tell
        std::string damaged = plain;
        damaged[place] = static_cast<char>(damaged[place] ^ (place == 53 ? 0x01 : 0x81));
        const heap::Watch watch;
        const std::string told =
            read(faults, ofBlocks, edge, record_blocks::packed(damaged), std::to_string(place));
        refused += told == exhausted;
        if (told != exhausted)
            faults.expect(told == listOf(damaged), std::to_string(place), "is another list");
        faults.expect(watch.most() < 1L << 28, std::to_string(place), "takes much memory");
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_EQ(refused, 1u); // the Counter's highest byte
}

constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=";

// What four characters at a time stand for; nothing if there is another character among all.
std::string decoded(const std::string& text) {
    if (text.size() < 4 || text.find_first_not_of(alphabet) != std::string::npos) return "nothing";
    std::string bytes;
    for (std::size_t i = 0; i + 4 <= text.size(); i += 4) {
        unsigned bits = 0;
        for (std::size_t k = 0; k < 4; ++k)
            bits = bits << 6 | static_cast<unsigned>(std::string(alphabet).find(text[i + k]) % 64);
        const std::size_t count = text[i + 2] == '=' ? 1 : text[i + 3] == '=' ? 2 : 3;
        for (std::size_t k = 0; k < count; ++k) bytes += static_cast<char>(bits >> (16 - 8 * k) & 255);
    }
    return bytes;
}

TEST(HostileBase64, IsDecodedIntoNoMoreThanItStandsFor) {
    std::mt19937 random(11);
    PageEdge edge(4096);
    for (std::size_t length = 0; length < 300; ++length)
        for (int round = 0; round < 4; ++round) {
            std::string text(length, ' ');
            for (char& c : text) c = alphabet[random() % (random() % 4 ? 64 : 65)];
            if (round == 3 && length > 0) text[random() % length] = static_cast<char>(random());
            const std::string want = decoded(text);
            const bool nothing = want == "nothing";
            GuardedPage out(nothing ? std::string(length + 1, '#') : std::string(want.size() + 1, '#'));
            Base64Decode(out.data(), edge.place(text), static_cast<int>(length));
            if (nothing)
                ASSERT_EQ(std::string(out.bytes()), std::string(length + 1, '#')) << text;
            else
                ASSERT_EQ(std::string(out.bytes()), want + '\0') << text;
        }
}

TEST(HostileBase64, IsEncodedIntoNoMoreThanItTakes) {
    std::mt19937 random(12);
    PageEdge edge(4096);
    for (std::size_t length = 0; length < 300; ++length) {
        std::string bytes(length, ' ');
        for (char& byte : bytes) byte = static_cast<char>(random());
        GuardedPage out((length + 2) / 3 * 4 + 1);
        EXPECT_EQ(Base64Encode(out.data(), edge.place(bytes), static_cast<int>(length)), out.length());
        const std::string text(out.bytes().substr(0, out.size() - 1));
        EXPECT_EQ(out.bytes().back(), '\0');
        EXPECT_EQ(length == 0 ? "" : decoded(text), bytes);
    }
}

// Up to 1,023 bytes; every byte of the value wrong in turn; every length of it.
TEST(HostileCredentials, AreDecodedWithinTheirBounds) {
    Faults faults;
    PageEdge edge(1 << 14);
    std::mt19937 random(13);
    const auto basic = [](const std::string& plain) { return "Basic " + rules::base64Encode(plain); };
    const auto expect = [&](const std::string& value, const std::string& want, const std::string& where) {
        faults.expect(read(faults, "GetAuthorizationDecode", edge, value, where) == want, where,
                      "is decoded otherwise");
    };
    for (std::size_t length = 1; length<1400; length += length> 40 && length < 1000 ? 40 : 1) {
        const std::string plain(length, 'p');
        expect(basic(plain), length <= 1023 ? plain : "", std::to_string(length) + " bytes");
    }
    const std::string plain = "a user:a password that is somewhat longer", value = basic(plain);
    for (std::size_t length = 0; length < value.size(); ++length) {
        const std::size_t groups = length < 6 ? 0 : (length - 6) / 4;
        expect(value.substr(0, length), plain.substr(0, groups * 3), "cut to " + std::to_string(length));
    }
    std::size_t otherwise = 0;
    for (std::size_t place = 0; place < value.size(); ++place) {
        std::string wrong = {' ', '\0', '\r', '\n', '=', '-', 'A', '/'};
        for (int i = 0; i < 8; ++i) wrong += static_cast<char>(random());
        for (const char byte : wrong) {
            std::string damaged = value;
            damaged[place] = byte;
            const std::string want =
                rules::authorizationDecode(damaged.data(), static_cast<int>(damaged.size()));
            expect(damaged, want, std::to_string(static_cast<int>(byte)) + " at " + std::to_string(place));
            otherwise += want != plain && !want.empty();
        }
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(otherwise, 100u); // not all of them are refused
}

} // namespace
