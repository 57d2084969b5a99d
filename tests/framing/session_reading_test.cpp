// The token and the login result, as the other end reads them.
#include "support/encoded.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>

#include <gtest/gtest.h>
#include <ostream>

namespace {

using namespace veltoprotocol;

const std::string rootLine = "xml file servercommandservice element not find!\n";
const std::string tokenLine = "xml file servercommandservice-Token element not find!\n";
const std::string responseLine = "xml file servercommandservice-response element not find!\n";
const std::string resultLine = "xml file servercommandservice-response-Result element not find!\n";

struct Reader {
    const char* name;
    std::string (*decode)(TiXmlDocument*, int*);
};
std::ostream& operator<<(std::ostream& to, const Reader& reader) { return to << reader.name; }

class RequestToken : public testing::TestWithParam<Reader> {
  protected:
    static std::string decode(TiXmlDocument* doc, int* error) { return GetParam().decode(doc, error); }

    void expect(const std::string& xml, const std::string& token, int error, const std::string& printed) {
        SCOPED_TRACE(xml);
        const auto got = readBackDocument(xml, decode);
        EXPECT_EQ(got.record, token);
        EXPECT_EQ(got.error, error);
        EXPECT_EQ(got.printed, printed);
    }
};

// One operation under two names.
INSTANTIATE_TEST_SUITE_P(Of, RequestToken,
                         testing::Values(Reader{"GetTokenDecode", GetTokenDecode},
                                         Reader{"GetLogoutReqTokenDecode", GetLogoutReqTokenDecode}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(RequestToken, IsTheTextUnderTheRoot) {
    expect("<servercommandservice><seqnum>1</seqnum><Token>t-1</Token><request name=\"Logout\" />"
           "</servercommandservice>",
           "t-1", 0, "");
}

TEST_P(RequestToken, IsFoundWhereverItStandsUnderTheRoot) {
    expect("<servercommandservice><request><Token>inner</Token></request><Token>outer</Token>"
           "<Token>second</Token></servercommandservice>",
           "outer", 0, "");
}

TEST_P(RequestToken, ComesBackUnescaped) {
    expect("<servercommandservice><Token>&lt;a&amp;b&gt; &quot;&#x41;</Token></servercommandservice>",
           "<a&b> \"A", 0, "");
}

TEST_P(RequestToken, IsEmptyTextForAnEmptyElement) {
    expect("<servercommandservice><Token /></servercommandservice>", "", 0, "");
    expect("<servercommandservice><Token></Token></servercommandservice>", "", 0, "");
    expect("<servercommandservice><Token name=\"t\" /></servercommandservice>", "", 0, "");
    expect("<servercommandservice><Token><a>t</a></Token></servercommandservice>", "", 0, "");
}

TEST_P(RequestToken, IsMissedWithAnError) {
    expect("<servercommandservice />", "", -1, tokenLine);
    expect("<servercommandservice><token>t</token></servercommandservice>", "", -1, tokenLine);
    expect("<servercommandservice><response><Token>t</Token></response></servercommandservice>", "", -1,
           tokenLine);
}

TEST_P(RequestToken, NeedsTheRoot) { expect("<other><Token>t</Token></other>", "", -1, rootLine); }

TEST_P(RequestToken, NeedsADocument) {
    int error = 7;
    Captured captured;
    const std::string token = decode(nullptr, &error);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(token, "");
    EXPECT_EQ(error, -1);
}

TEST_P(RequestToken, MayGoWithoutAnErrorCode) {
    const Document found = parsed("<servercommandservice><Token>t</Token></servercommandservice>");
    const Document missing = parsed("<servercommandservice />");
    Captured captured;
    const std::string tokens[] = {decode(found.get(), nullptr), decode(missing.get(), nullptr),
                                  decode(nullptr, nullptr)};
    EXPECT_EQ(captured.text(), tokenLine);
    EXPECT_EQ(tokens[0], "t");
    EXPECT_EQ(tokens[1], "");
    EXPECT_EQ(tokens[2], "");
}

void expectLogin(const std::string& xml, const std::string& token, int result, int error,
                 const std::string& printed) {
    SCOPED_TRACE(xml);
    int read = 7;
    const auto got = readBackDocument(
        xml, [&](TiXmlDocument* doc, int* code) { return GetLoginRespTokenDecode(doc, &read, code); });
    EXPECT_EQ(got.record, token);
    EXPECT_EQ(read, result);
    EXPECT_EQ(got.error, error);
    EXPECT_EQ(got.printed, printed);
}

std::string response(const std::string& inside) {
    return "<servercommandservice><response name=\"Login\">" + inside + "</response></servercommandservice>";
}

TEST(GetLoginRespTokenDecode, ReadsResultAndToken) {
    expectLogin(response("<Result>0</Result><Token>t-1</Token>"), "t-1", 0, 0, "");
    expectLogin(response("<Token>t-1</Token><Result>-5</Result>"), "t-1", -5, 0, "");
}

TEST(GetLoginRespTokenDecode, ReadsTheResultAsAtoiDoes) {
    expectLogin(response("<Result>010</Result><Token>t</Token>"), "t", 10, 0, "");
    expectLogin(response("<Result>0x10</Result><Token>t</Token>"), "t", 0, 0, "");
    expectLogin(response("<Result> +3 apples</Result><Token>t</Token>"), "t", 3, 0, "");
    expectLogin(response("<Result /><Token>t</Token>"), "t", -1, 0, "");
}

TEST(GetLoginRespTokenDecode, ReturnsTheTokenOfAResponseWithoutResult) {
    expectLogin(response("<Token>t-1</Token>"), "t-1", -1, 0, resultLine);
}

// In the words of a token missing under the root.
TEST(GetLoginRespTokenDecode, NamesAMissingTokenWithoutAnError) {
    expectLogin(response("<Result>2</Result>"), "", 2, 0, tokenLine);
}

TEST(GetLoginRespTokenDecode, DoesNotTakeTheTokenUnderTheRoot) {
    expectLogin("<servercommandservice><Token>root</Token><response><Result>0</Result></response>"
                "</servercommandservice>",
                "", 0, 0, tokenLine);
}

TEST(GetLoginRespTokenDecode, NamesBothThatAreMissing) {
    expectLogin(response(""), "", -1, 0, resultLine + tokenLine);
}

TEST(GetLoginRespTokenDecode, IsEmptyTextForAnEmptyToken) {
    expectLogin(response("<Result>0</Result><Token />"), "", 0, 0, "");
}

TEST(GetLoginRespTokenDecode, NamesAMissingResponseWithoutAnError) {
    expectLogin("<servercommandservice><request name=\"Login\" /></servercommandservice>", "", -1, 0,
                responseLine);
}

TEST(GetLoginRespTokenDecode, NeedsTheRoot) {
    expectLogin("<other><response><Result>0</Result><Token>t</Token></response></other>", "", -1, -1,
                rootLine);
}

TEST(GetLoginRespTokenDecode, NeedsADocument) {
    int result = 7, error = 7;
    Captured captured;
    const std::string token = GetLoginRespTokenDecode(nullptr, &result, &error);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(token, "");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, -1);
}

TEST(GetLoginRespTokenDecode, MayGoWithoutResultAndErrorCode) {
    const Document doc = parsed(response("<Result>5</Result><Token>t</Token>"));
    int result = 7, error = 7;
    EXPECT_EQ(GetLoginRespTokenDecode(doc.get(), nullptr, &error), "t");
    EXPECT_EQ(error, 0);
    EXPECT_EQ(GetLoginRespTokenDecode(doc.get(), &result, nullptr), "t");
    EXPECT_EQ(result, 5);
    EXPECT_EQ(GetLoginRespTokenDecode(doc.get(), nullptr, nullptr), "t");
    EXPECT_EQ(GetLoginRespTokenDecode(nullptr, nullptr, nullptr), "");
}

// What one end writes, the other reads.
template <class Encode>
std::string body(const Encode& encode) {
    return bodyOf(encoded(encode).bytes);
}

TEST(Session, ReadsItsOwnMessages) {
    const std::string token = "a & <b> \"c\" 'd' &#x41; \xC3\xA4";
    const std::string logout = body(
        [&](char* out, int size) { return GetLogoutReqEncode("h", token.c_str(), 4294967295u, out, size); });
    EXPECT_EQ(readBackDocument(logout, GetLogoutReqTokenDecode).record, token);
    EXPECT_EQ(readBackDocument(logout, GetRequestNameDecode).record, "Logout");
    EXPECT_EQ(readBackDocument(logout, GetSeqnumberDecode).record, 4294967295u);
    EXPECT_EQ(readBackDocument(logout, GetVersionDecode).record, "1.0.0");

    const auto answer = [&](int result) {
        return body(
            [&](char* out, int size) { return GetLoginRespEncode(result, token.c_str(), 1, out, size); });
    };
    expectLogin(answer(0), token, 0, 0, "");
    expectLogin(answer(2), "", 2, 0, tokenLine);
    expectLogin(answer(1), "", 1, 0, tokenLine);

    const std::string heartbeat =
        body([&](char* out, int size) { return GetHeartBeatReqEncode("h", "t", 1, out, size); });
    EXPECT_EQ(readBackDocument(heartbeat, GetTokenDecode).printed, tokenLine);
    const std::string alive = body([&](char* out, int size) { return GetHeartBeatRespEncode(1, out, size); });
    EXPECT_EQ(readBackDocument(alive, GetResponseErrorcodeDecode).printed, resultLine);
}

// A line break stays, since it travels as a reference; a run of blanks is one blank to the XML library.
TEST(Session, ReadsBlanksAsTheXmlLibraryDoes) {
    const std::string logout =
        body([](char* out, int size) { return GetLogoutReqEncode("h", " a   b\n c ", 1, out, size); });
    EXPECT_NE(logout.find("    <Token> a   b&#x0A; c </Token>\n"), std::string::npos);
    EXPECT_EQ(readBackDocument(logout, GetTokenDecode).record, "a b\n c");
}

TEST(Session, GivesTheServerItsCredentials) {
    __tagVtDeviceParam device = __tagVtDeviceParam();
    std::memset(device.UserName, 'u', sizeof device.UserName);
    std::strcpy(device.Password, "pass:word");
    const std::string request =
        encoded([&](char* out, int size) { return GetLoginReqEncode(&device, "h", 1, out, size); }).bytes;
    const std::string value = GetAuthorization(request.data(), static_cast<int>(request.size()));
    EXPECT_EQ(GetAuthorizationDecode(value.data(), static_cast<int>(value.size())),
              std::string(64, 'u') + ":pass:word");
}

} // namespace
