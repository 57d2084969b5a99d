// What a received message says of itself: its command, result, sequence number and version.
#include "support/read_back.h"

#include <vector>

namespace {

using namespace veltoprotocol;

std::string message(const std::string& children) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<servercommandservice>\n" + children +
           "</servercommandservice>\n";
}

const std::string missingRoot = "xml file servercommandservice element not find!\n";

// Expects a decoder's answer, error code and lines for each text.
template <class Answer>
struct Case {
    const char* behaviour;
    std::string xml;
    Answer want;
    int error;
    std::string printed;
};

template <class Decoder, class Answer>
void expectEach(Decoder* decode, const std::vector<Case<Answer>>& cases) {
    for (const auto& c : cases) {
        SCOPED_TRACE(c.behaviour);
        const auto got = readBackDocument(c.xml, decode);
        EXPECT_EQ(got.record, c.want);
        EXPECT_EQ(got.error, c.error);
        EXPECT_EQ(got.printed, c.printed);

        const auto unasked =
            readBackDocument(c.xml, [&](TiXmlDocument* doc, int*) { return decode(doc, nullptr); });
        EXPECT_EQ(unasked.record, c.want);
        EXPECT_EQ(unasked.error, 7) << "written to without being given";
        EXPECT_EQ(unasked.printed, c.printed);
    }
}

template <class Decoder, class Answer>
void expectNullDocument(Decoder* decode, const Answer& want) {
    int error = 7;
    Captured captured;
    const Answer got = decode(nullptr, &error);
    const Answer unasked = decode(nullptr, nullptr);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(got, want);
    EXPECT_EQ(unasked, want);
    EXPECT_EQ(error, -1);
}

TEST(GetNameDecode, ReadsTheNameOfTheFirstChildOfThatKind) {
    expectEach<std::string(TiXmlDocument*, int*), std::string>(
        [](TiXmlDocument* doc, int* error) { return GetNameDecode(doc, error, "push"); },
        {
            {"found", message(R"(<push name="Alarm"/>)"), "Alarm", 0, ""},
            {"whatever stands around it",
             message(R"(<seqnum>1</seqnum><push a="1" name="A &amp; B"><x/></push>)"), "A & B", 0, ""},
            {"the first of two", message(R"(<push name="One"/><push name="Two"/>)"), "One", 0, ""},
            {"an empty name", message(R"(<push name=""/>)"), "", 0, ""},
            {"no root", R"(<push name="Alarm"/>)", "", -1, missingRoot},
            {"a root inside another", "<a>" + message(R"(<push name="Alarm"/>)").substr(39) + "</a>", "", -1,
             missingRoot},
            {"no child of that kind", message(R"(<request name="Alarm"/>)"), "", -1,
             "xml file servercommandservice-push element not find!\n"},
            {"a grandchild of that kind", message(R"(<a><push name="Alarm"/></a>)"), "", -1,
             "xml file servercommandservice-push element not find!\n"},
            {"no name", message(R"(<push Name="Alarm"><name>Alarm</name></push>)"), "", -1,
             "xml file servercommandservice-push(name) element not find!\n"},
            {"no name on the first of two", message(R"(<push/><push name="Two"/>)"), "", -1,
             "xml file servercommandservice-push(name) element not find!\n"},
        });
}

TEST(GetNameDecode, GivesMinus1InSilenceForANullDocument) {
    expectNullDocument(
        +[](TiXmlDocument* doc, int* error) { return GetNameDecode(doc, error, "push"); }, std::string());
}

TEST(GetNameDecode, FindsNothingOfANullKind) {
    const auto got = readBackDocument(message("<push name='A'/>"), [](TiXmlDocument* doc, int* error) {
        return GetNameDecode(doc, error, nullptr);
    });
    EXPECT_EQ(got.record, "");
    EXPECT_EQ(got.error, -1);
    EXPECT_EQ(got.printed, "xml file servercommandservice- element not find!\n");
}

TEST(GetRequestNameDecode, ReadsTheNameOfTheRequest) {
    expectEach<std::string(TiXmlDocument*, int*), std::string>(
        GetRequestNameDecode,
        {
            {"found", message(R"(<response name="B"/><request name="Login"/>)"), "Login", 0, ""},
            {"no root", "<a/>", "", -1, missingRoot},
            {"no request", message(R"(<response name="B"/>)"), "", -1,
             "xml file servercommandservice-request element not find!\n"},
            {"no name", message("<request/>"), "", -1,
             "xml file servercommandservice-request(name) element not find!\n"},
        });
    expectNullDocument(GetRequestNameDecode, std::string());
}

TEST(GetResponseNameDecode, ReadsTheNameOfTheResponse) {
    expectEach<std::string(TiXmlDocument*, int*), std::string>(
        GetResponseNameDecode,
        {
            {"found", message(R"(<request name="A"/><response name="Login"/>)"), "Login", 0, ""},
            {"no root", "<a/>", "", -1, missingRoot},
            {"no response", message(R"(<request name="A"/>)"), "", -1,
             "xml file servercommandservice-response element not find!\n"},
            {"no name", message("<response/>"), "", -1,
             "xml file servercommandservice-response(name) element not find!\n"},
        });
    expectNullDocument(GetResponseNameDecode, std::string());
}

TEST(GetResponseErrorcodeDecode, ReadsTheResultAsGetIntDoes) {
    const auto response = [](const std::string& result) {
        return message("<response name='A'>" + result + "</response>");
    };
    expectEach<int(TiXmlDocument*, int*), int>(
        GetResponseErrorcodeDecode,
        {
            {"success", response("<Result>0</Result>"), 0, 0, ""},
            {"a code", response("<a/><Result> 17 </Result>"), 17, 0, ""},
            {"a negative code", response("<Result>-2</Result>"), -2, 0, ""},
            {"decimal only", response("<Result>0x11</Result>"), 0, 0, ""},
            {"an empty result", response("<Result/>"), -1, 0, ""},
            {"the first response", message("<response/><response><Result>1</Result></response>"), -1, 0,
             "xml file servercommandservice-response-Result element not find!\n"},
        });
}

// Deliberate: a missing result shows only as the value -1.
TEST(GetResponseErrorcodeDecode, GivesAnErrorCodeForAMissingRootOnly) {
    expectEach<int(TiXmlDocument*, int*), int>(
        GetResponseErrorcodeDecode,
        {
            {"no root", "<response><Result>0</Result></response>", -1, -1, missingRoot},
            {"no response", message("<request><Result>0</Result></request>"), -1, 0,
             "xml file servercommandservice-response element not find!\n"},
            {"no result", message("<Result>0</Result><response><result>0</result></response>"), -1, 0,
             "xml file servercommandservice-response-Result element not find!\n"},
        });
}

TEST(GetResponseErrorcodeDecode, GivesMinus1InSilenceForANullDocument) {
    expectNullDocument(GetResponseErrorcodeDecode, -1);
}

TEST(GetSeqnumberDecode, UndoesTheSignedWriting) {
    const auto seqnum = [](const std::string& text) { return message("<seqnum>" + text + "</seqnum>"); };
    expectEach<unsigned int(TiXmlDocument*, int*), unsigned int>(
        GetSeqnumberDecode,
        {
            {"0", seqnum("0"), 0, 0, ""},
            {"1", seqnum("1"), 1, 0, ""},
            {"the largest that is written positive", seqnum("2147483647"), 2147483647U, 0, ""},
            {"the first that is written negative", seqnum("-2147483648"), 2147483648U, 0, ""},
            {"the largest", seqnum("-1"), 4294967295U, 0, ""},
            {"written unsigned by somebody else", seqnum("4294967295"), 4294967295U, 0, ""},
        });
}

TEST(GetSeqnumberDecode, KeepsTheLow32BitsOfGetULong) {
    const auto seqnum = [](const std::string& text) { return message("<seqnum>" + text + "</seqnum>"); };
    expectEach<unsigned int(TiXmlDocument*, int*), unsigned int>(
        GetSeqnumberDecode, {
                                {"hexadecimal", seqnum("0x10"), 16, 0, ""},
                                {"octal", seqnum("010"), 8, 0, ""},
                                {"33 bits", seqnum("4294967298"), 2, 0, ""},
                                {"saturated", seqnum("99999999999999999999"), 4294967295U, 0, ""},
                                {"no number", seqnum("x"), 0, 0, ""},
                                {"empty", seqnum(""), 0, 0, ""},
                            });
}

TEST(GetSeqnumberDecode, NamesWhatIsMissing) {
    expectEach<unsigned int(TiXmlDocument*, int*), unsigned int>(
        GetSeqnumberDecode, {
                                {"no root", "<seqnum>5</seqnum>", 0, -1, missingRoot},
                                {"no seqnum", message("<a><seqnum>5</seqnum></a>"), 0, -1,
                                 "xml file servercommandservice-seqnum element not find!\n"},
                            });
}

TEST(GetSeqnumberDecode, GivesMinus1InSilenceForANullDocument) { expectNullDocument(GetSeqnumberDecode, 0U); }

TEST(GetVersionDecode, ReadsAVersionOfUpTo32Characters) {
    const auto version = [](const std::string& text) { return message("<version>" + text + "</version>"); };
    const std::string longest = "12345678901234567890123456789012";
    expectEach<std::string(TiXmlDocument*, int*), std::string>(
        GetVersionDecode, {
                              {"ours", version("1.0.0"), "1.0.0", 0, ""},
                              {"31", version(longest.substr(1)), longest.substr(1), 0, ""},
                              {"32", version(longest), longest, 0, ""},
                              {"33", version(longest + "3"), "", 0,
                               "xml file -..-servercommandservice-version element too long!\n"},
                              {"empty", version(""), "", 0, ""},
                          });
}

TEST(GetVersionDecode, GivesAnErrorCodeForAMissingRootOnly) {
    expectEach<std::string(TiXmlDocument*, int*), std::string>(
        GetVersionDecode, {
                              {"no root", "<version>1.0.0</version>", "", -1, missingRoot},
                              {"no version", message("<a><version>1.0.0</version></a>"), "", 0,
                               "xml file -..-servercommandservice-version element not find!\n"},
                          });
}

TEST(GetVersionDecode, GivesMinus1InSilenceForANullDocument) {
    expectNullDocument(GetVersionDecode, std::string());
}

} // namespace
