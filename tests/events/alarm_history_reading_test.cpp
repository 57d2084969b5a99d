// What is read of a search for past alarms, and how it is released.
#include "support/read_back.h"
#include "support/received.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>

using namespace veltoprotocol;

namespace {

using Search = __tagVtSearchAlarmParam;
using Channel = __tagVtChannelParam;

// The search in the children of a request, released at the end.
struct Searched {
    explicit Searched(const std::string& children)
        : Searched(readBackDocument("<servercommandservice><request>" + children +
                                        "</request></servercommandservice>",
                                    GetSearchHistoryAlarmReqDecode)) {}
    explicit Searched(const ReadBack<Search*>& got)
        : record(got.record), error(got.error), printed(got.printed) {}
    Searched(const Searched&) = delete;
    Searched& operator=(const Searched&) = delete;
    ~Searched() { ReleaseSearchAlarmParam(record); }

    std::string guid(int i) const {
        const Channel& channel = record->channels[i];
        Channel guidAlone = Channel();
        std::memcpy(guidAlone.Guid, channel.Guid, sizeof channel.Guid);
        EXPECT_TRUE(sameBytes(channel, guidAlone)) << "more than the GUID is set";
        return std::string(channel.Guid, strnlen(channel.Guid, sizeof channel.Guid));
    }

    Search* const record;
    const int error;
    const std::string printed;
};

TEST(GetSearchHistoryAlarmReqDecode, ReadsTheParametersAndNoChannels) {
    const Searched got(
        R"(<SearchParam BeginTime="0123456789abcdef" EndTime="fedcba9876543210" AlarmFlag="1" )"
        R"(AlarmType="-2" AlarmLevel="3" BeginIndex="4" EndIndex="-5" />)");
    ASSERT_NE(got.record, nullptr);
    Search want = Search();
    std::memcpy(want.BeginTime, "0123456789abcdef", 16); // as long as the field, without a terminator
    std::memcpy(want.EndTime, "fedcba9876543210", 16);
    want.AlarmFlag = 1;
    want.AlarmType = -2;
    want.AlarmLevel = 3;
    want.BeginIndex = 4;
    want.EndIndex = -5;
    EXPECT_TRUE(sameBytes(*got.record, want));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetSearchHistoryAlarmReqDecode, IsSilentWithoutParametersAndChannels) {
    const Searched got("");
    ASSERT_NE(got.record, nullptr);
    EXPECT_TRUE(sameBytes(*got.record, Search()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetSearchHistoryAlarmReqDecode, NamesParametersThatAreMissingOrTooLong) {
    const Searched got("<SearchParam />");
    EXPECT_TRUE(sameBytes(*got.record, Search()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-SearchParam(BeginTime) element not find!\n"
                           "xml file -..-SearchParam(EndTime) element not find!\n"
                           "xml file -..-SearchParam(AlarmFlag) element not find!\n"
                           "xml file -..-SearchParam(AlarmType) element not find!\n"
                           "xml file -..-SearchParam(AlarmLevel) element not find!\n"
                           "xml file -..-SearchParam(BeginIndex) element not find!\n"
                           "xml file -..-SearchParam(EndIndex) element not find!\n");
    const Searched tooLong(R"(<SearchParam BeginTime="0123456789abcdefg" EndTime="0123456789abcdefg" )"
                           R"(AlarmFlag="0" AlarmType="0" AlarmLevel="0" BeginIndex="0" EndIndex="0" />)");
    EXPECT_TRUE(sameBytes(*tooLong.record, Search()));
    EXPECT_EQ(tooLong.printed, "xml file -..-SearchParam(BeginTime) element too long!\n"
                               "xml file -..-SearchParam(EndTime) element too long!\n");
}

struct Kinds {
    const char* attributes;
    int flag, type, level;
    const char* missing[3];
};
const Kinds kinds[] = {
    {R"(AlarmFlag="4")", 4, 4, 4, {"AlarmType", "AlarmLevel", nullptr}},
    {R"(AlarmType="5")", 0, 5, 5, {"AlarmFlag", "AlarmLevel", nullptr}},
    {R"(AlarmLevel="6")", 0, 0, 6, {"AlarmFlag", "AlarmType", nullptr}},
    {R"(AlarmFlag="4" AlarmLevel="6")", 4, 4, 6, {"AlarmType", nullptr, nullptr}},
    {R"(AlarmFlag="4" AlarmType="5")", 4, 5, 5, {"AlarmLevel", nullptr, nullptr}},
    {R"(AlarmType="5" AlarmLevel="6")", 0, 5, 6, {"AlarmFlag", nullptr, nullptr}},
    {R"(AlarmFlag="4" AlarmType="" AlarmLevel="6")",
     4,
     0,
     6,
     {nullptr, nullptr, nullptr}}, // there, and no number
};

TEST(GetSearchHistoryAlarmReqDecode, GivesAMissingKindTheValueOfTheOneBeforeIt) {
    for (const Kinds& given : kinds) {
        SCOPED_TRACE(given.attributes);
        const Searched got(R"(<SearchParam BeginTime="b" EndTime="e" BeginIndex="1" EndIndex="2" )" +
                           std::string(given.attributes) + " />");
        EXPECT_EQ(got.record->AlarmFlag, given.flag);
        EXPECT_EQ(got.record->AlarmType, given.type);
        EXPECT_EQ(got.record->AlarmLevel, given.level);
        EXPECT_EQ(got.record->BeginIndex, 1);
        EXPECT_EQ(got.record->EndIndex, 2);
        std::string lines;
        for (const char* name : given.missing)
            if (name) lines += "xml file -..-SearchParam(" + std::string(name) + ") element not find!\n";
        EXPECT_EQ(got.printed, lines);
    }
}

TEST(GetSearchHistoryAlarmReqDecode, DoesNotRepeatAKindInAMissingIndex) {
    const Searched got(
        R"(<SearchParam BeginTime="b" EndTime="e" AlarmFlag="4" AlarmType="5" AlarmLevel="6" />)");
    EXPECT_EQ(got.record->BeginIndex, 0);
    EXPECT_EQ(got.record->EndIndex, 0);
}

TEST(GetSearchHistoryAlarmReqDecode, ReadsNoMoreChannelsThanTheCountSays) {
    const Searched got(R"(<Channels count="2"><ChannelGuid>c-1</ChannelGuid><Other>x</Other>)"
                       "<ChannelGuid>c-2</ChannelGuid><ChannelGuid>c-3</ChannelGuid></Channels>");
    ASSERT_EQ(got.record->channelcount, 2);
    EXPECT_EQ(got.guid(0), "c-1");
    EXPECT_EQ(got.guid(1), "c-2");
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetSearchHistoryAlarmReqDecode, LeavesSlotsWithoutATextZero) {
    const Searched got(R"(<Channels count="4"><ChannelGuid />)"
                       "<ChannelGuid>c-2</ChannelGuid><ChannelGuid></ChannelGuid></Channels>");
    ASSERT_EQ(got.record->channelcount, 4);
    EXPECT_EQ(got.guid(0), "");
    EXPECT_EQ(got.guid(1), "c-2");
    EXPECT_EQ(got.guid(2), "");
    EXPECT_EQ(got.guid(3), "");
    EXPECT_EQ(got.printed, "");
}

TEST(GetSearchHistoryAlarmReqDecode, TakesAChannelOf48BytesAndDropsALongerOne) {
    const std::string full(48, 'c');
    const Searched got(R"(<Channels count="3"><ChannelGuid>)" + full + "</ChannelGuid><ChannelGuid>" + full +
                       "c</ChannelGuid><ChannelGuid>c-3</ChannelGuid></Channels>");
    EXPECT_EQ(got.guid(0), full);
    EXPECT_EQ(got.guid(1), "");
    EXPECT_EQ(got.guid(2), "c-3");
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-Channels-ChannelGuid element too long!\n");
}

TEST(GetSearchHistoryAlarmReqDecode, HasAnEmptyArrayForACountBelowOneAndForNone) {
    for (const int count : {0, -1, -2147483647 - 1}) {
        const Searched got("<Channels count=\"" + std::to_string(count) +
                           "\"><ChannelGuid>c-1</ChannelGuid></Channels>");
        EXPECT_EQ(got.record->channelcount, count);
        EXPECT_NE(got.record->channels, nullptr);
        EXPECT_EQ(got.printed, "");
    }
    const Searched none("<Channels><ChannelGuid>c-1</ChannelGuid></Channels>");
    EXPECT_EQ(none.record->channelcount, 0);
    EXPECT_NE(none.record->channels, nullptr);
    EXPECT_EQ(none.error, 0);
    EXPECT_EQ(none.printed, "xml file -..-Channels(count) element not find!\n");
}

TEST(GetSearchHistoryAlarmReqDecode, ReadsTheNameWithItsTrailingBlank) {
    const Searched got(R"(<Channels  count="1"><ChannelGuid>c-1</ChannelGuid></Channels ><SearchParam />)");
    ASSERT_EQ(got.record->channelcount, 1);
    EXPECT_EQ(got.guid(0), "c-1");
}

TEST(GetSearchHistoryAlarmReqDecode, GivesNothingWithoutAnErrorIfTheWayEnds) {
    for (const char* xml : {"<other><request /></other>", "<servercommandservice />",
                            "<servercommandservice><response /></servercommandservice>"}) {
        const auto got = readBackDocument(xml, GetSearchHistoryAlarmReqDecode);
        EXPECT_EQ(got.record, nullptr) << xml;
        EXPECT_EQ(got.error, 0);
        EXPECT_EQ(got.printed, "");
    }
}

TEST(GetSearchHistoryAlarmReqDecode, RefusesANullDocumentInSilence) {
    Captured captured;
    int error = 7;
    const Search* const got = GetSearchHistoryAlarmReqDecode(nullptr, &error);
    const Search* const again = GetSearchHistoryAlarmReqDecode(nullptr, nullptr);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(got, nullptr);
    EXPECT_EQ(again, nullptr);
    EXPECT_EQ(error, -1);
}

TEST(GetSearchHistoryAlarmReqDecode, TakesANullError) {
    const Document doc = parsed("<servercommandservice><request><Channels count=\"1\" /></request>"
                                "</servercommandservice>");
    Search* const got = GetSearchHistoryAlarmReqDecode(doc.get(), nullptr);
    ASSERT_NE(got, nullptr);
    EXPECT_EQ(got->channelcount, 1);
    ReleaseSearchAlarmParam(got);
    const Document other = parsed("<other />");
    EXPECT_EQ(GetSearchHistoryAlarmReqDecode(other.get(), nullptr), nullptr);
}

TEST(SearchForAlarms, ComesBackWithTheGuidsOfItsChannels) {
    Channel channels[2];
    std::memset(channels, 'n', sizeof channels);
    fill(channels[0].Guid, 'a');
    fill(channels[1].Guid, 'b', 47);
    channels[1].Guid[47] = '\0';
    Search sent;
    std::memset(&sent, 'n', sizeof sent);
    sent.AlarmFlag = 1;
    sent.AlarmType = 2;
    sent.AlarmLevel = -2147483647 - 1;
    fill(sent.BeginTime, 'b');
    fill(sent.EndTime, 'e');
    sent.BeginIndex = 2147483647;
    sent.EndIndex = 3;
    sent.channels = channels;
    sent.channelcount = 2;
    const Received message(
        [&](char* out, int size) { return GetSearchHistoryAlarmReqEncode("h", "t", 1, &sent, out, size); });
    const Searched got(readBackDocument(message.body, GetSearchHistoryAlarmReqDecode));
    ASSERT_NE(got.record, nullptr);
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
    EXPECT_EQ(std::memcmp(got.record, &sent, offsetof(Search, EndIndex) + sizeof sent.EndIndex), 0);
    ASSERT_EQ(got.record->channelcount, 2);
    EXPECT_EQ(got.guid(0), std::string(channels[0].Guid, 48));
    EXPECT_EQ(got.guid(1), std::string(channels[1].Guid, 47));
}

TEST(ReleaseSearchAlarmParam, IgnoresNull) {
    ReleaseSearchAlarmParam(static_cast<Search*>(nullptr));
    ReleaseSearchAlarmParam(static_cast<__tagVtSearchAlarmResult*>(nullptr));
}

} // namespace
