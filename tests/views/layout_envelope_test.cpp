// The way to a layout: what of a message must be there, and the head of a request.
#include "views/layouts.h"

#include <cstring>

using namespace layouts;

namespace {

struct Outcome {
    std::string message;
    int error;
    std::string printed;
};

const std::string rootLine = "xml file servercommandservice element not find!\n";

TEST(GetViewGroupDataParamDecode, NamesWhatIsMissingOnTheWay) {
    const std::string dataLine = "xml file servercommandservice-response-ViewGroupData element not find!\n";
    const std::string xmlLine =
        "xml file servercommandservice-response-ViewGroupData-ViewGroupDataXml element not find!\n";
    const std::string groups = enclosed(inGroup(""));
    const Outcome outcomes[] = {
        {"<other><response><Result>0</Result>" + groups + "</response></other>", -1, rootLine},
        {"<servercommandservice />", -1, "xml file servercommandservice-response element not find!\n"},
        {request("<Result>0</Result>" + groups), -1,
         "xml file servercommandservice-response element not find!\n"},
        {answer(groups), -1, "xml file servercommandservice-response-Result element not find!\n"},
        {answer("<Result>0</Result>"), 0, dataLine},
        {answer("<Result>0</Result><ViewGroupDataXml />"), 0, dataLine},
        {answer("<Result>0</Result><ViewGroupData />"), 0, xmlLine},
        {answer("<Result>0</Result><ViewGroupData>" + inGroup("") + "</ViewGroupData>"), 0, xmlLine},
    };
    for (const Outcome& outcome : outcomes) {
        SCOPED_TRACE(outcome.message);
        const auto got = readBackDocument(outcome.message, GetViewGroupDataParamDecode);
        EXPECT_TRUE(isEmpty(got.record));
        EXPECT_EQ(got.error, outcome.error);
        EXPECT_EQ(got.printed, outcome.printed);
        Captured quiet;
        const Document doc = parsed(outcome.message);
        const Layout again = GetViewGroupDataParamDecode(doc.get(), nullptr);
        EXPECT_EQ(quiet.text(), outcome.printed);
        EXPECT_TRUE(isEmpty(again));
    }
}

TEST(GetViewGroupDataParamDecode, ReadsTheLayoutWhateverTheResult) {
    for (const char* result :
         {"<Result>0</Result>", "<Result>-5</Result>", "<Result>x</Result>", "<Result />"}) {
        SCOPED_TRACE(result);
        const Document doc = parsed(answer(result + enclosed(inGroup("<ViewsCounter>0</ViewsCounter>"))));
        int error = 7;
        Captured captured;
        Layout got = GetViewGroupDataParamDecode(doc.get(), &error);
        EXPECT_EQ(captured.text(), "");
        EXPECT_EQ(error, 0);
        EXPECT_EQ(got.groupcount, 1);
        ASSERT_NE(got.groups, nullptr);
        EXPECT_STREQ(got.groups[0].id, "g");
        ReleaseViewGroupDataParam(&got);
    }
}

__tagVtViewGroupInfo headOfRequest() {
    __tagVtViewGroupInfo head = __tagVtViewGroupInfo();
    std::strcpy(head.ViewGroupGuid, "g");
    std::strcpy(head.LastModifieduser, "l");
    std::strcpy(head.Name, "n");
    head.ReadOnly = true;
    head.ViewGroupType = 2;
    head.LastModifiedTime = 3;
    std::strcpy(head.UserGuid, "u");
    return head;
}

// That head, and no layout.
bool isSame(const __tagVtViewGroup& got, const __tagVtViewGroupInfo& head) {
    return sameBytes(got.info, head) && isEmpty(got.data);
}

TEST(GetSetViewGroupData, NamesWhatIsMissingOnTheWay) {
    const std::string requestLine = "xml file servercommandservice-request element not find!\n";
    const std::string groups = enclosed(inGroup(""));
    const Outcome outcomes[] = {
        {"<other><request>" + headXml + groups + "</request></other>", -1, rootLine},
        {"<servercommandservice />", -1, requestLine},
        {answer(headXml + groups), -1, requestLine},
        {request(groups), -1, "xml file servercommandservice-request-ViewGroupInfo element not find!\n"},
    };
    for (const Outcome& outcome : outcomes) {
        SCOPED_TRACE(outcome.message);
        const auto got = readBackDocument(outcome.message, GetSetViewGroupData);
        EXPECT_TRUE(isSame(got.record, __tagVtViewGroupInfo()));
        EXPECT_EQ(got.error, outcome.error);
        EXPECT_EQ(got.printed, outcome.printed);
    }
}

TEST(GetSetViewGroupData, ReadsTheHeadOfARequestWithoutALayout) {
    const __tagVtViewGroupInfo want = headOfRequest();
    const std::string dataLine = "xml file servercommandservice-request-ViewGroupData element not find!\n";
    const std::string xmlLine =
        "xml file servercommandservice-request-ViewGroupData-ViewGroupDataXml element not find!\n";
    const Outcome outcomes[] = {
        {request(headXml), 0, dataLine},
        {request(headXml + "<ViewGroupDataXml />"), 0, dataLine},
        {request(headXml + "<ViewGroupData />"), 0, xmlLine},
        {request(headXml + "<ViewGroupData>" + inGroup("") + "</ViewGroupData>"), 0, xmlLine},
    };
    for (const Outcome& outcome : outcomes) {
        SCOPED_TRACE(outcome.message);
        const auto got = readBackDocument(outcome.message, GetSetViewGroupData);
        EXPECT_TRUE(isSame(got.record, want));
        EXPECT_EQ(got.error, outcome.error);
        EXPECT_EQ(got.printed, outcome.printed);
    }
}

TEST(GetSetViewGroupData, NeedsNoPlaceForTheError) {
    for (const std::string& message : {std::string("<other />"), request(""), request(headXml),
                                       request(headXml + enclosed(inGroup(wrapped("Views", ""))))}) {
        const auto want = readBackDocument(message, GetSetViewGroupData);
        const auto got = readBackDocument(
            message, [](TiXmlDocument* doc, int*) { return GetSetViewGroupData(doc, nullptr); });
        EXPECT_TRUE(sameBytes(got.record.info, want.record.info));
        EXPECT_EQ(got.record.data.groupcount, want.record.data.groupcount);
        EXPECT_EQ(got.printed, want.printed);
        for (__tagVtViewGroup group : {want.record, got.record}) ReleaseSetViewGroupData(&group);
    }
}

// Not the order in which the same head is written, or read from a catalogue.
TEST(GetSetViewGroupData, NamesWhatIsMissingOfTheHeadInItsOwnOrder) {
    const auto got = readBackDocument(request("<ViewGroupInfo />"), GetSetViewGroupData);
    EXPECT_TRUE(isSame(got.record, __tagVtViewGroupInfo()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-ViewGroupInfo-ViewGroupGuid element not find!\n"
                           "xml file -..-ViewGroupInfo-LastModifieduser element not find!\n"
                           "xml file -..-ViewGroupInfo-Name element not find!\n"
                           "xml file -..-ViewGroupInfo-ReadOnly element not find!\n"
                           "xml file -..-ViewGroupInfo-ViewGroupType element not find!\n"
                           "xml file -..-ViewGroupInfo-LastModifiedTime element not find!\n"
                           "xml file -..-ViewGroupInfo-UserGuid element not find!\n"
                           "xml file servercommandservice-request-ViewGroupData element not find!\n");
}

// A request whose head has texts as long as their fields, or by so many bytes longer.
std::string headOfLength(std::size_t longer) {
    const auto text = [longer](const std::string& name, std::size_t width) {
        return wrapped(name, std::string(width + longer, 'x'));
    };
    return request("<ViewGroupInfo>" + text("ViewGroupGuid", 48) + text("LastModifieduser", 128) +
                   text("Name", 64) +
                   "<ReadOnly>0</ReadOnly><ViewGroupType>0</ViewGroupType>"
                   "<LastModifiedTime>0</LastModifiedTime>" +
                   text("UserGuid", 48) + "</ViewGroupInfo>" + enclosed("<GroupsCounter>0</GroupsCounter>"));
}

TEST(GetSetViewGroupData, FillsTheTextsOfTheHeadToTheirLastByte) {
    const auto got = readBackDocument(headOfLength(0), GetSetViewGroupData);
    __tagVtViewGroupInfo want = __tagVtViewGroupInfo();
    std::memset(want.ViewGroupGuid, 'x', 48);
    std::memset(want.LastModifieduser, 'x', 128);
    std::memset(want.Name, 'x', 64);
    std::memset(want.UserGuid, 'x', 48);
    EXPECT_TRUE(isSame(got.record, want));
    EXPECT_EQ(got.printed, "");
}

TEST(GetSetViewGroupData, DropsTextsOfTheHeadThatAreLonger) {
    const auto got = readBackDocument(headOfLength(1), GetSetViewGroupData);
    EXPECT_TRUE(isSame(got.record, __tagVtViewGroupInfo()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-ViewGroupInfo-ViewGroupGuid element too long!\n"
                           "xml file -..-ViewGroupInfo-LastModifieduser element too long!\n"
                           "xml file -..-ViewGroupInfo-Name element too long!\n"
                           "xml file -..-ViewGroupInfo-UserGuid element too long!\n");
}

TEST(LayoutDecoders, RefuseANullDocumentWithoutALine) {
    int ofAnswer = 7, ofRequest = 7;
    Captured captured;
    const Layout layout = GetViewGroupDataParamDecode(nullptr, &ofAnswer);
    const __tagVtViewGroup group = GetSetViewGroupData(nullptr, &ofRequest);
    GetViewGroupDataParamDecode(nullptr, nullptr);
    GetSetViewGroupData(nullptr, nullptr);
    EXPECT_EQ(captured.text(), "");
    EXPECT_TRUE(isEmpty(layout));
    EXPECT_TRUE(isSame(group, __tagVtViewGroupInfo()));
    EXPECT_EQ(ofAnswer, -1);
    EXPECT_EQ(ofRequest, -1);
}

} // namespace
