// What holds for every encoder, whatever its arguments.
#include "properties/every_encoder.h"

#include "properties/declared.h"
#include "support/captured.h"
#include "support/counting_new.h"
#include "support/guarded_page.h"

#include <LibVeltoProtocol.h>
#include <expat.h>
#include <gtest/gtest.h>
#include <http_parser.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>

namespace {

using namespace veltoprotocol;

// Fewer in builds for debugging, which the sanitizers' are: all of them would take minutes there.
#ifdef NDEBUG
constexpr unsigned seeds = 1000;
constexpr std::size_t sizeStep = 1;
#else
constexpr unsigned seeds = 200;
constexpr std::size_t sizeStep = 17;
#endif

// What all encoders wrote, and what some of them printed, as one more message.
template <class EveryEncoder>
std::vector<NamedMessage> heard(const EveryEncoder& everyEncoder, unsigned seed,
                                Texts texts = Texts::anyBytes) {
    Captured captured;
    std::vector<NamedMessage> messages = everyEncoder(seed, texts);
    messages.push_back({"standard output", 0, captured.text()});
    return messages;
}

std::vector<NamedMessage> written(unsigned seed, Texts texts = Texts::anyBytes) {
    std::vector<NamedMessage> messages =
        heard([](auto... a) { return veltoprotocol::everyEncoder(a...); }, seed, texts);
    messages.pop_back();
    return messages;
}

TEST(EveryEncoder, WritesWhatTheXmlLibraryPrints) {
    for (unsigned seed = 0; seed < seeds; ++seed)
        for (const Texts texts : {Texts::anyBytes, Texts::printable}) {
            const auto direct =
                heard([](auto... a) { return veltoprotocol::everyEncoder(a...); }, seed, texts);
            const auto tree = heard([](auto... a) { return veltotree::everyEncoder(a...); }, seed, texts);
            ASSERT_EQ(direct.size(), tree.size());
            for (std::size_t i = 0; i < direct.size(); ++i) ASSERT_EQ(direct[i], tree[i]) << "seed " << seed;
        }
}

// Where there is room for the longest message that arguments could make, nothing is measured before it is
// written.
TEST(EveryEncoder, WritesTheSameIntoMuchRoomAndIntoNoMoreThanItNeeds) {
    std::vector<char> exact(1u << 18);
    for (unsigned seed = 0; seed < seeds / 4; ++seed)
        for (const Texts texts : {Texts::anyBytes, Texts::printable}) {
            const std::vector<NamedMessage> roomy = written(seed, texts);
            std::size_t next = 0;
            visitEncoders(seed, texts, [&](const EncoderCall& call) {
                const NamedMessage& message = roomy[next++];
                if (message.returned < 0 || !call.isMessage()) return;
                Captured quiet;
                const int returned = call.encode(exact.data(), message.returned);
                quiet.text();
                ASSERT_EQ(returned, message.returned) << call.name << ", seed " << seed;
                ASSERT_TRUE(message.bytes.compare(0, std::string::npos, exact.data(), message.bytes.size()) ==
                            0)
                    << call.name << ", seed " << seed;
            });
        }
}

TEST(EveryEncoder, IsInTheList) {
    std::multiset<std::string> called;
    for (const NamedMessage& message : written(0)) called.insert(message.name);
    const std::set<std::string> once(called.begin(), called.end());
    EXPECT_EQ(called.size(), once.size()) << "an encoder stands in the list twice";
    std::set<std::string> declared;
    for (const std::string& function : declaredFunctions())
        if (isEncoder(function)) declared.insert(function);
    EXPECT_GE(declared.size(), 120u) << "the headers were not found";
    EXPECT_EQ(once, declared);
}

// Arguments within the rules are never refused, and the others not always: the properties below would prove
// nothing about an encoder that only ever refuses.
TEST(EveryEncoder, TakesWhatIsWithinTheRules) {
    std::map<std::string, int> taken, refused;
    for (unsigned seed = 0; seed < 100; ++seed) {
        for (const NamedMessage& message : written(seed, Texts::printable))
            EXPECT_GT(message.returned, 0) << message.name << ", seed " << seed;
        for (const NamedMessage& message : written(seed))
            ++(message.returned < 0 ? refused : taken)[message.name];
    }
    for (const auto& [name, count] : taken) EXPECT_GE(count, 30) << name;
    EXPECT_EQ(taken.size(), written(0).size());
    // Those with a text in their head, and those that need a record.
    for (const char* name : {"HttpReqEncode",
                             "HttpRespEncode",
                             "GetRespEncode",
                             "GetLoginReqEncode",
                             "GetLogoutReqEncode",
                             "GetHeartBeatReqEncode",
                             "GetDeviceListReqEncode",
                             "GetDeviceParamEncode",
                             "GetChannelParamEncode",
                             "GetPtzReqEncode",
                             "GetDataReqEncode",
                             "GetViewGroupsReqEncode",
                             "GetSetViewGroupDataReqEncode",
                             "GetCarouselEncode",
                             "GetNotificationContentReqEncode",
                             "GetSearchHistoryAlarmReqEncode",
                             "GetEMapInfoReqEncode",
                             "GetUploadPictureDataEncode",
                             "GetDeviceEncode",
                             "GetStorageEncode",
                             "GetScheduleEncode",
                             "GetArchiveEncode",
                             "GetStartSearchDeviceReqEncode",
                             "GetStorageParamEncode",
                             "GetDownloadPictureReqEncode"})
        EXPECT_GE(refused[name], 5) << name;
}

// What an encoder writes into a buffer of `room` bytes, which ends at a page that nobody may touch.
struct Written {
    int returned;
    std::string buffer; // all of it, '#' where nothing was written
};
Written writtenInto(const EncoderCall& call, std::size_t room) {
    GuardedPage page(std::string(room, '#'));
    const int returned = call.encode(page.data(), page.length());
    return {returned, std::string(page.bytes())};
}

// The caller-buffer rule at every size up to the message's own; what is wrong, or nothing.
std::string brokenRule(const EncoderCall& call, const NamedMessage& message) {
    const bool refused = message.returned < 0;
    if (refused && message.returned != -1) return "refuses with another code";
    const std::string untouched(refused ? 6000 : message.bytes.size(), '#'); // more than it would need
    GuardedPage page(untouched);
    for (const int size : {INT_MIN, -1})
        if (call.encode(page.data(), size) != -1) return "takes a negative size";
    for (const int size : {0, 1, INT_MAX})
        if (call.encode(nullptr, size) != -1) return "takes a null buffer";
    for (std::size_t size = 0; size < page.size(); size += size + sizeStep < page.size() ? sizeStep : 1)
        if (call.encode(page.data() + page.size() - size, static_cast<int>(size)) != -1)
            return "does not refuse " + std::to_string(size) + " bytes";
    if (page.bytes() != untouched) return "refused, and yet written to";
    if (refused) return {};
    for (const std::size_t behind : {0, 1, 100}) {
        const Written written = writtenInto(call, message.bytes.size() + behind);
        if (written.returned != message.returned) return "returns another length";
        if (written.buffer != message.bytes + std::string(behind, '#')) return "writes something else";
    }
    return {};
}

TEST(EveryEncoder, WritesTheWholeMessageOrNothing) {
    constexpr std::size_t longest = 5000; // the time grows with its square
    std::map<std::string, int> checked;
    for (unsigned seed = 0; seed < 12; ++seed) {
        std::vector<NamedMessage> messages = written(seed);
        std::size_t next = 0;
        visitEncoders(seed, Texts::anyBytes, [&](const EncoderCall& call) {
            const NamedMessage& message = messages[next++];
            if (!call.isMessage()) return;
            int& times = checked[call.name]; // from 0
            if (message.bytes.size() > longest) return;
            Captured quiet;
            const std::string broken = brokenRule(call, message);
            quiet.text();
            EXPECT_EQ(broken, "") << call.name << ", seed " << seed;
            ++times;
        });
    }
    for (const auto& [name, times] : checked) EXPECT_GE(times, 3) << name << " was mostly too long";
}

TEST(EveryEncoder, AllocatesNothing) {
    std::vector<char> out(1 << 18);
    for (unsigned seed = 0; seed < 100; ++seed)
        visitEncoders(seed, Texts::anyBytes, [&](const EncoderCall& call) {
            if (!call.isMessage() || call.allocates) return;
            Captured quiet;
            const std::size_t before = counting::allocations;
            const int length = call.encode(out.data(), static_cast<int>(out.size()));
            const std::size_t after = counting::allocations;
            quiet.text();
            if (call.prints && length > 2000) return;
            EXPECT_EQ(after, before) << call.name;
        });
    const std::size_t before = counting::allocations;
    ::operator delete(::operator new(1));
    EXPECT_EQ(counting::allocations, before + 1) << "nothing is counted";
}

// What a call writes that is not refused.
std::string writtenBy(const EncoderCall& call) {
    static std::vector<char> out(1 << 18);
    std::optional<Captured> quiet;
    if (call.prints) quiet.emplace();
    return {out.data(), static_cast<std::size_t>(call.encode(out.data(), static_cast<int>(out.size())))};
}

std::string bodyOf(const std::string& message) { return message.substr(message.find("\r\n\r\n") + 4); }

// What is wrong with an XML document; nothing if it is well-formed.
std::string fault(const std::string& xml) {
    const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate(nullptr),
                                                                         XML_ParserFree);
    if (XML_Parse(parser.get(), xml.data(), static_cast<int>(xml.size()), XML_TRUE) == XML_STATUS_OK)
        return {};
    return XML_ErrorString(XML_GetErrorCode(parser.get()));
}

TEST(EveryEncoder, WritesWellFormedXml) {
    EXPECT_NE(fault("<a>\x01</a>"), "") << "this parser would take anything";
    for (unsigned seed = 0; seed < seeds; ++seed)
        visitEncoders(seed, Texts::printable, [&](const EncoderCall& call) {
            if (call.kind == Kind::text || !call.xmlBody) return;
            const std::string text = writtenBy(call);
            const std::string xml = call.isMessage() ? bodyOf(text) : text;
            EXPECT_EQ(fault(xml), "") << call.name << ", seed " << seed << ":\n" << xml;
        });
}

// What an HTTP parser that is not ours makes of a message.
struct Framed {
    int messages = 0;
    std::uint64_t length = 0, content = 0, body = 0;
    unsigned status = 0, method = 0;
};

Framed& seen(http_parser* parser) { return *static_cast<Framed*>(parser->data); }

Framed framed(const std::string& bytes, Kind kind) {
    http_parser_settings settings;
    http_parser_settings_init(&settings);
    settings.on_headers_complete = [](http_parser* parser) {
        seen(parser).content = parser->content_length;
        seen(parser).status = parser->status_code;
        seen(parser).method = parser->method;
        return 0;
    };
    settings.on_body = [](http_parser* parser, const char*, std::size_t length) {
        seen(parser).body += length;
        return 0;
    };
    settings.on_message_complete = [](http_parser* parser) {
        ++seen(parser).messages;
        return 0;
    };
    Framed message;
    http_parser parser;
    http_parser_init(&parser, kind == Kind::request ? HTTP_REQUEST : HTTP_RESPONSE);
    parser.data = &message;
    message.length = http_parser_execute(&parser, &settings, bytes.data(), bytes.size());
    EXPECT_EQ(HTTP_PARSER_ERRNO(&parser), HPE_OK) << http_errno_description(HTTP_PARSER_ERRNO(&parser));
    return message;
}

TEST(EveryEncoder, IsFramedToItsLength) {
    for (unsigned seed = 0; seed < seeds / 3; ++seed)
        visitEncoders(seed, Texts::printable, [&](const EncoderCall& call) {
            if (!call.isMessage()) return;
            SCOPED_TRACE(call.name + ", seed " + std::to_string(seed));
            const std::string out = writtenBy(call);
            const int length = static_cast<int>(out.size());
            const Framed message = framed(out, call.kind);
            EXPECT_EQ(message.messages, 1);
            EXPECT_EQ(message.length, out.size());
            EXPECT_EQ(message.content, bodyOf(out).size());
            EXPECT_EQ(message.body, bodyOf(out).size());
            EXPECT_EQ(message.method, call.kind == Kind::request ? unsigned{HTTP_POST} : 0u);
            EXPECT_EQ(message.status, static_cast<unsigned>(call.status)); // of a request 0
            const std::string stream = out + out;                          // the next message follows
            EXPECT_EQ(GetHttpPacketLength(stream.data(), static_cast<int>(stream.size())), length);
            EXPECT_EQ(GetHttpPacketLength(out.data(), length - 1), -1);
        });
}

} // namespace
