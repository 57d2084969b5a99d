// Envelope, head and body of a message put together: each is typed once, and compared with the envelope steps
// taken one after another through the public functions.
#include "framing/message.h"

#include "framing/tree.h"
#include "support/encoded.h"
#include "support/guarded_page.h"
#include "support/read_back.h"
#include "support/wire.h"

#include <climits>
#include <cstdint>
#include <cstring>

namespace {

using namespace veltoprotocol;

const auto tree = [](auto x) {
    x.value("ChannelGuid", "a<b");
    x.element("Ptz", attribute("Control", 1), attribute("Name", "say \"x\""));
};

TEST(Request, IsAPostWithItsTreeInTheRequest) {
    const Encoded got = encoded([](char* out, int size) {
        return Request("Command", 4294967295u, Token{"t-1"}).post(commandPath, "10.0.0.1", tree, out, size);
    });
    EXPECT_EQ(got.bytes, wire(R"(POST /servercommandservice HTTP/1.1
Host: 10.0.0.1
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="Command">
        <ChannelGuid>a&lt;b</ChannelGuid>
        <Ptz Control="1" Name='say &quot;x&quot;' />
    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(Request, HasNoTokenUnlessGivenOne) {
    const Encoded got = encoded([](char* out, int size) {
        return Request("Command", 1).post("/other", "h", Empty(), out, size, closeConnection);
    });
    EXPECT_EQ(got.bytes, wire(R"(POST /other HTTP/1.1
Host: h
Connection: close
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>1</seqnum>
    <version>1.0.0</version>
    <request name="Command" />
</servercommandservice>
)"));
}

TEST(Request, HasAnEmptyTokenForANullOne) {
    const Encoded null = encoded([](char* out, int size) {
        return Request("Command", 1, Token{static_cast<const char*>(nullptr)})
            .post("/", "h", Empty(), out, size);
    });
    EXPECT_NE(null.bytes.find("    <version>1.0.0</version>\n    <Token />\n    <request"),
              std::string::npos);
    const Encoded empty = encoded([](char* out, int size) {
        return Request("Command", 1, Token{""}).post("/", "h", Empty(), out, size);
    });
    EXPECT_NE(empty.bytes.find("    <Token></Token>\n"), std::string::npos);
}

TEST(Request, TakesAHeadWithCredentials) {
    const Head head = Head::request("/p", "h", keepAlive).withBasicCredentials("YTpi");
    const Encoded got =
        encoded([&](char* out, int size) { return Request("Command", 0).post(head, Empty(), out, size); });
    EXPECT_EQ(got.bytes.substr(0, got.bytes.find("Content-Length")),
              "POST /p HTTP/1.1\r\nHost: h\r\nConnection: keep-alive\r\nAuthorization: Basic YTpi\r\n"
              "Content-Type: text/xml; charset=utf-8\r\n");
}

TEST(Response, HasItsTreeInTheResponse) {
    const Encoded got = encoded([](char* out, int size) {
        return Response("Command", 0).reply([](auto x) { x.value("Result", -5); }, out, size);
    });
    EXPECT_EQ(got.bytes, wire(R"(HTTP/1.1 200 OK
Server: vtengine
Connection: keep-alive
Content-Type: text/xml; charset=utf-8
Content-Length: {}

<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>0</seqnum>
    <version>1.0.0</version>
    <response name="Command">
        <Result>-5</Result>
    </response>
</servercommandservice>
)"));
}

TEST(Response, TakesAHeadWithAnotherStatus) {
    const Encoded got = encoded([](char* out, int size) {
        return Response("Command", 0)
            .reply(Head::response(closeConnection, "404 Not Found"), Empty(), out, size);
    });
    EXPECT_EQ(got.bytes.substr(0, got.bytes.find("Content-Type")),
              "HTTP/1.1 404 Not Found\r\nServer: vtengine\r\nConnection: close\r\n");
    EXPECT_NE(got.bytes.find("    <response name=\"Command\" />\n"), std::string::npos);
}

TEST(Envelope, LeavesOutTheNameIfItIsNull) {
    const char* const none = nullptr;
    const Encoded request =
        encoded([=](char* out, int size) { return Request(none, 1).post("/", "h", Empty(), out, size); });
    EXPECT_NE(request.bytes.find("    <request />\n"), std::string::npos);
    const Encoded response =
        encoded([=](char* out, int size) { return Response(none, 1).reply(tree, out, size); });
    EXPECT_NE(response.bytes.find("    <response>\n        <ChannelGuid>"), std::string::npos);
}

TEST(Envelope, EscapesANameOfTheCallers) {
    const char* const name = "a<\"b\">";
    const Encoded got =
        encoded([=](char* out, int size) { return Response(name, 1).reply(tree, out, size); });
    EXPECT_NE(got.bytes.find("    <response name='a&lt;&quot;b&quot;&gt;'>\n"), std::string::npos);
}

TEST(Envelope, WritesTheSequenceNumberSigned) {
    const struct {
        unsigned int seqnum;
        const char* text;
    } cases[] = {{0, "0"}, {2147483647, "2147483647"}, {2147483648u, "-2147483648"}, {4294967295u, "-1"}};
    for (const auto& c : cases) {
        const Encoded got = encoded(
            [&](char* out, int size) { return Response("Command", c.seqnum).reply(Empty(), out, size); });
        EXPECT_NE(got.bytes.find(std::string("    <seqnum>") + c.text + "</seqnum>\n"), std::string::npos);
    }
}

// What an encoder does, step by step: through the public functions and the XML library's tree.
template <class Tree>
std::string stepByStep(const char* token, const char* name, unsigned int seqnum, const Tree& body) {
    const Document doc(XmlHeaderEncode());
    auto* const root =
        static_cast<TiXmlElement*>(doc->LinkEndChild(new TiXmlElement("servercommandservice")));
    EXPECT_EQ(GetVeltoHeaderEncode(root, seqnum), 0);
    SetStringValue(root, "Token", token);
    body(TreeElement(SetStringValueAtt(root, "request", name)));
    const std::string xml = GetXmlEncode(doc.get());
    std::string out(xml.size() + 1000, '\0');
    const int length = HttpReqEncode("/path", "host", "close", xml.data(), static_cast<int>(xml.size()),
                                     &out[0], static_cast<int>(out.size()));
    return out.substr(0, static_cast<std::size_t>(length));
}

TEST(Request, IsWhatTheEnvelopeStepsGive) {
    const auto nested = [](auto x) {
        x.value("A", static_cast<const char*>(nullptr));
        x.element("Channels ", attribute("count", 0), [](auto y) { y.element("Empty", [](auto) {}); });
        const int numbers[] = {1, 2, 3};
        x.list("Number", entries(numbers, 3), [](auto y, auto& number) { y.value("N", number); });
    };
    const auto compare = [](const char* token, const char* name, unsigned int seqnum, const auto& body) {
        const Encoded got = encoded([&](char* out, int size) {
            return Request(name, seqnum, Token{token}).post("/path", "host", body, out, size, "close");
        });
        EXPECT_EQ(got.bytes, stepByStep(token, name, seqnum, body));
    };
    compare("token", "Name", 7, nested);
    compare("\"&<>'\x01", "\"&<>'\x01", 0x80000000u, tree);
    compare(nullptr, nullptr, 0, Empty());
    compare("", "", 1, [](auto) {});
}

TEST(Head, RefusesALineEndInAnyOfItsTexts) {
    const char* const harmless = "a";
    for (const char* bad : {"\r", "\n", "a\r\nb", "a\rb", "a\nb", "abc\n"}) {
        EXPECT_TRUE(Head::request(bad, harmless, harmless).breaksLine());
        EXPECT_TRUE(Head::request(harmless, bad, harmless).breaksLine());
        EXPECT_TRUE(Head::request(harmless, harmless, bad).breaksLine());
        EXPECT_TRUE(Head::response(bad).breaksLine());
        EXPECT_EQ(encoded([&](char* out, int size) {
                      return Request("Command", 1).post("/", bad, Empty(), out, size);
                  }).returned,
                  -1);
    }
    EXPECT_FALSE(Head::request("/ a\t\x01", "", Text()).breaksLine());
}

TEST(Message, EndsDirectlyAtTheEndOfItsBuffer) {
    const auto encode = [](char* out, int size) { return Response("Command", 1).reply(tree, out, size); };
    const Encoded got = encoded(encode);
    GuardedPage page(got.bytes.size());
    EXPECT_EQ(encode(page.data(), page.length()), got.returned);
    EXPECT_EQ(page.bytes(), got.bytes);
}

TEST(Message, IsMeasuredAgainForEachDigitOfItsLength) {
    // The body passes 1,000 bytes, so that the head grows by a byte on the way.
    for (std::size_t length = 700; length < 860; ++length) {
        const std::string text(length, 'x');
        const Encoded got = encoded(
            [&](char* out, int size) {
                return Response("Command", 1).reply([&](auto x) { x.value("T", text.c_str()); }, out, size);
            },
            2000);
        const std::string body = bodyOf(got.bytes);
        EXPECT_NE(got.bytes.find("\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n"),
                  std::string::npos);
        EXPECT_NE(body.find("<T>" + text + "</T>\n"), std::string::npos);
    }
}

struct Field1024 {
    char text[1024];
};
constexpr auto longField = elements("Long", field("T", &Field1024::text));

// In a roomy buffer the body is written before its length is known, to where it would stand if it were short.
TEST(Message, MovesToItsPlaceWhereItsLengthHasMoreDigitsThanExpected) {
    for (const std::size_t records : {1u, 9u, 10u, 11u})
        for (std::size_t length = 700; length < 860; length += 4) {
            Field1024 record = {};
            std::memset(record.text, 'x', length);
            const auto tree = [&](auto x) {
                for (std::size_t i = 0; i < records; ++i) x.element("E", longField(record));
            };
            const auto encode = [&](char* out, int size) { return Response("C", 1).reply(tree, out, size); };
            std::string roomy(1 << 17, '#'), exact(1 << 17, '#');
            const int returned = encode(&roomy[0], static_cast<int>(roomy.size()));
            ASSERT_GT(returned, 0);
            ASSERT_EQ(encode(&exact[0], returned), returned);
            ASSERT_EQ(roomy, exact) << records << " of " << length;
        }
}

TEST(Assemble, PutsThePiecesOneAfterAnother) {
    const Head head = Head::response(keepAlive);
    const Encoded got = encoded([&](char* out, int size) {
        return assemble(head, {Text("ab"), Text(), Text("c\0d", 3), Text("")}, out, size);
    });
    EXPECT_EQ(got.bytes, "HTTP/1.1 200 OK\r\nServer: vtengine\r\nConnection: keep-alive\r\n"
                         "Content-Type: text/xml; charset=utf-8\r\nContent-Length: 5\r\n\r\nab" +
                             std::string("c\0d", 3));
    EXPECT_EQ(bodyOf(encoded([&](char* out, int size) { return assemble(head, {}, out, size); }).bytes), "");
}

TEST(Assemble, RefusesAHeadThatBreaksTheLine) {
    const Encoded got = encoded(
        [](char* out, int size) { return assemble(Head::response("a\nb"), {Text("body")}, out, size); });
    EXPECT_EQ(got.returned, -1);
}

// Where the sizes would wrap, if they were added without care.
TEST(Deliver, RefusesWhatIsLongerThanAnyBuffer) {
    const auto never = [](Write&) { ADD_FAILURE() << "written to"; };
    std::vector<char> out(200);
    const Head head = Head::response(keepAlive);
    for (const std::size_t length : {std::size_t{INT_MAX}, std::size_t{INT_MAX} + 1, SIZE_MAX - 50, SIZE_MAX})
        for (const int size : {1, 200, INT_MAX})
            EXPECT_EQ(deliver(head, length, never, out.data(), size), -1);
}

} // namespace
