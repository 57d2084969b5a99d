// The logged-in user and the system-wide rights, read back.
#include "admin/attribute_fields.h"
#include "support/child_fields.h"
#include "support/received.h"

#include <LibVeltoProtocol.h>

#include <cstring>
#include <string>
#include <tinyxml.h>

using namespace veltoprotocol;

namespace {

using User = __tagVtUserInfo;
using Rights = __tagVtUserRights;

const std::vector<AttributeField> rights = {
    {"sharedviews", AttributeField::flag, 48}, {"privateviews", AttributeField::flag, 49},
    {"viewlive", AttributeField::flag, 50},    {"viewbrowse", AttributeField::flag, 51},
    {"viewsetup", AttributeField::flag, 52},   {"managementaccess", AttributeField::flag, 53}};

// The label is not the element's name.
TEST(GetUserRightsParamDecode, ReadsEachRightAndNamesWhatIsMissing) {
    expectReadsEachAttribute("userrights", rights, GetUserRightsParamDecode);
}

TEST(GetUserRightsParamDecode, GrantsWhatIsANumberOtherThanZero) {
    const struct {
        const char* text;
        bool granted;
    } cases[] = {{"2", true}, {" 1", true}, {"00", false}, {"", false}, {"true", false}, {"0x1", false}};
    for (const auto& c : cases) {
        const auto got =
            readBack("<UserRights viewsetup=\"" + std::string(c.text) + "\" />", GetUserRightsParamDecode);
        EXPECT_EQ(got.record.viewsetup, c.granted) << c.text;
    }
}

TEST(GetUserRightsParamDecode, RefusesANullElement) { expectRefusesANullElement(GetUserRightsParamDecode); }

const std::string rootLine = "xml file servercommandservice element not find!\n";
const std::string responseLine = "xml file servercommandservice-response element not find!\n";
const std::string resultLine = "xml file servercommandservice-response-Result element not find!\n";
const std::string userLine = "xml file servercommandservice-response-UserInfo element not find!\n";
const std::string rightsLine =
    "xml file servercommandservice-response-UserInfo-UserRights element not find!\n";
const std::string childLines = "xml file -..-UserInfo-UserGuid element not find!\n"
                               "xml file -..-UserInfo-Id element not find!\n"
                               "xml file -..-UserInfo-AdsPath element not find!\n"
                               "xml file -..-UserInfo-UserName element not find!\n"
                               "xml file -..-UserInfo-Authclass element not find!\n"
                               "xml file -..-UserInfo-SId element not find!\n"
                               "xml file -..-UserInfo-SamacCountName element not find!\n";
const std::string flagLines = "xml file -..-userrights(sharedviews) element not find!\n"
                              "xml file -..-userrights(privateviews) element not find!\n"
                              "xml file -..-userrights(viewlive) element not find!\n"
                              "xml file -..-userrights(viewbrowse) element not find!\n"
                              "xml file -..-userrights(viewsetup) element not find!\n"
                              "xml file -..-userrights(managementaccess) element not find!\n";

std::string response(const std::string& inside) {
    return "<servercommandservice><response>" + inside + "</response></servercommandservice>";
}

// An error are only a missing root, response or Result.
TEST(GetUserInfoParamDecode, NamesWhatIsMissingOnTheWayDown) {
    const std::string user = "<UserInfo><UserGuid>u</UserGuid></UserInfo>";
    const struct {
        std::string xml;
        int error;
        std::string printed;
    } cases[] = {
        {"<other />", -1, rootLine},
        {"<r>" + response("<Result>0</Result>" + user) + "</r>", -1, rootLine},
        {"<servercommandservice />", -1, responseLine},
        {"<servercommandservice><request><Result /></request></servercommandservice>", -1, responseLine},
        {response(""), -1, resultLine},
        {response(user), -1, resultLine},
        // the first child of a name is the one that counts
        {"<servercommandservice><response /><response><Result /></response></servercommandservice>", -1,
         resultLine},
        {response("<Result>5</Result>"), 0, userLine},
        {response("<Result />"), 0, userLine},
        {response("<Result><UserInfo /></Result>"), 0, userLine},
        {response("<Result>0</Result><UserInfo />"), 0, childLines + rightsLine},
        {response("<Result>0</Result><UserInfo /><UserRights />"), 0, childLines + rightsLine},
        {response("<Result>0</Result><UserInfo><UserRights /></UserInfo>"), 0, childLines + flagLines},
    };
    for (const auto& c : cases) {
        const auto got = readBackDocument(c.xml, GetUserInfoParamDecode);
        EXPECT_TRUE(sameBytes(got.record, User())) << c.xml;
        EXPECT_EQ(got.error, c.error) << c.xml;
        EXPECT_EQ(got.printed, c.printed) << c.xml;
        const auto unreported = readBackDocument(
            c.xml, [](TiXmlDocument* doc, int*) { return GetUserInfoParamDecode(doc, nullptr); });
        EXPECT_TRUE(sameBytes(unreported.record, User())) << c.xml;
        EXPECT_EQ(unreported.printed, c.printed) << c.xml;
    }
}

TEST(GetUserInfoParamDecode, RefusesANullDocumentInSilence) {
    int error = 7;
    Captured captured;
    const User record = GetUserInfoParamDecode(nullptr, &error);
    const User unreported = GetUserInfoParamDecode(nullptr, nullptr);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(error, -1);
    EXPECT_TRUE(sameBytes(record, User()));
    EXPECT_TRUE(sameBytes(unreported, User()));
}

// Neither the result's value nor the name of the response counts.
TEST(GetUserInfoParamDecode, ReadsTheUserOfARefusalToo) {
    for (const char* result : {"<Result>5</Result>", "<Result>x</Result>", "<Result />"}) {
        const auto got = readBackDocument(
            response(std::string(result) + "<UserInfo><UserGuid>u-1</UserGuid><UserRights viewlive=\"1\" />"
                                           "</UserInfo><UserInfo><Id>second</Id></UserInfo>"),
            GetUserInfoParamDecode);
        User want = User();
        std::strcpy(want.UserGuid, "u-1");
        want.Rights.viewlive = true;
        EXPECT_TRUE(sameBytes(got.record, want));
        EXPECT_EQ(got.error, 0);
    }
}

TEST(GetUserInfoParamDecode, KeepsWhatItReadWithoutRights) {
    const auto got = readBackDocument(
        response("<Result>0</Result><UserInfo><UserGuid>u</UserGuid><Id>i</Id><AdsPath>a</AdsPath>"
                 "<UserName>n</UserName><SId>s</SId><SamacCountName>c</SamacCountName>"
                 "<Authclass>9</Authclass></UserInfo>"),
        GetUserInfoParamDecode);
    User want = User();
    want.UserGuid[0] = 'u', want.Id[0] = 'i', want.AdsPath[0] = 'a', want.UserName[0] = 'n';
    want.SId[0] = 's', want.SamacCountName[0] = 'c', want.Authclass = 9;
    EXPECT_TRUE(sameBytes(got.record, want));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, rightsLine);
}

// A UserInfo element, put into the answer that carries it, with rights of which none is granted.
User decodeInAnswer(TiXmlElement* info, int* error) {
    const Document doc = parsed(response("<Result>0</Result>"));
    TiXmlNode* const at = doc->RootElement()->FirstChild("response")->InsertEndChild(*info);
    TiXmlElement none("UserRights");
    for (const AttributeField& right : rights) none.SetAttribute(right.name, 0);
    at->InsertEndChild(none);
    return GetUserInfoParamDecode(doc.get(), error);
}

// Of the 160 bytes of a name half are read.
TEST(GetUserInfoParamDecode, ReadsEachChildAndNamesWhatIsMissingOrTooLong) {
    expectReadsEachChild("UserInfo",
                         {{"UserGuid", 48, 0},
                          {"Id", 48, 48},
                          {"AdsPath", 48, 96},
                          {"UserName", 80, 144},
                          {"Authclass", 0, 304},
                          {"SId", 48, 308},
                          {"SamacCountName", 48, 356}},
                         decodeInAnswer);
}

TEST(GetUserInfoParamDecode, TakesAnEmptyAuthclassForMinusOne) {
    const auto got = readBackDocument(response("<Result>0</Result><UserInfo><Authclass /></UserInfo>"),
                                      GetUserInfoParamDecode);
    EXPECT_EQ(got.record.Authclass, -1);
}

// Every field distinct, texts as long as their reader takes.
void fillUser(User& user) {
    fill(user.UserGuid, 'A');
    fill(user.Id, 'B');
    fill(user.AdsPath, 'C');
    fill(user.UserName, 'D', 80);
    user.UserName[80] = '\0';
    user.Authclass = -4;
    fill(user.SId, 'E');
    fill(user.SamacCountName, 'F');
    user.Rights.sharedviews = true;
    user.Rights.privateviews = true;
    user.Rights.viewlive = false;
    user.Rights.viewbrowse = true;
    user.Rights.viewsetup = false;
    user.Rights.managementaccess = true;
}

TEST(GetUserInfo, ComesBackWithoutItsReservedBlock) {
    User sent, want = User();
    std::memset(&sent, '\xA7', sizeof sent);
    fillUser(sent);
    fillUser(want);
    const Received got([&](char* out, int size) { return GetUserInfoRespEncode(0, 1, &sent, out, size); });
    int error = 7;
    Captured captured;
    const User back = GetUserInfoParamDecode(got.doc.get(), &error);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(error, 0);
    EXPECT_TRUE(sameBytes(back, want));
}

TEST(GetUserInfo, LosesANameThatIsLongerThanItsReaderTakes) {
    for (const std::size_t length : {std::size_t{81}, std::size_t{160}}) {
        User sent = User();
        fillUser(sent);
        fill(sent.UserName, 'n', length);
        if (length < 160) sent.UserName[length] = '\0';
        const Received got(
            [&](char* out, int size) { return GetUserInfoRespEncode(0, 1, &sent, out, size); });
        std::memset(sent.UserName, 0, sizeof sent.UserName);
        Captured captured;
        const User back = GetUserInfoParamDecode(got.doc.get(), nullptr);
        EXPECT_EQ(captured.text(), "xml file -..-UserInfo-UserName element too long!\n");
        EXPECT_TRUE(sameBytes(back, sent));
    }
}

} // namespace
