// What is read of the answer to a search for past alarms.
#include "support/read_back.h"
#include "support/received.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

using namespace veltoprotocol;

namespace {

using Alarm = __tagVtAlarmData;
using Result = __tagVtSearchAlarmResult;

// A decoded answer, released at the end.
struct Answered {
    explicit Answered(const std::string& xml)
        : Answered(readBackDocument(xml, GetSearchHistoryAlarmRespDecode)) {}
    explicit Answered(const ReadBack<Result*>& got)
        : record(got.record), error(got.error), printed(got.printed) {}
    Answered(const Answered&) = delete;
    Answered& operator=(const Answered&) = delete;
    ~Answered() { ReleaseSearchAlarmParam(record); }

    Result* const record;
    const int error;
    const std::string printed;
};

std::string response(const std::string& children) {
    return "<servercommandservice><response>" + children + "</response></servercommandservice>";
}

struct OwnText {
    const char* children;
    bool isZero;
};
const OwnText ownTexts[] = {
    {"0", true},
    {"0 ", true},
    {" 0", true},
    {"+0", true},
    {"abc", true}, // no digit counts as 0
    {"0x7", true}, // decimal, so it ends at the x
    {"<![CDATA[0]]>", true},
    {"0<Result>5</Result>", true}, // Result is not what is tested
    {"7", false},
    {"-1", false},
    {"07", false},
    {"1<Result>0</Result>", false},
    {"", false}, // no text counts as -1
    {" ", false},
    {"<Result>0</Result>", false},
    {"<Result>0</Result>0", false}, // its text does not come first
    {"<!-- no text -->0", false},
};

TEST(GetSearchHistoryAlarmRespDecode, TestsTheLeadingTextOfTheResponse) {
    for (const OwnText& given : ownTexts) {
        SCOPED_TRACE(given.children);
        const Answered got(response(given.children));
        EXPECT_EQ(got.record != nullptr, given.isZero);
        EXPECT_EQ(got.error, given.isZero ? 0 : -1);
        EXPECT_EQ(got.printed, "");
        if (!got.record) continue;
        EXPECT_TRUE(sameBytes(*got.record, Result()));
    }
}

TEST(GetSearchHistoryAlarmRespDecode, GivesNothingForWhatTheEncoderWrites) {
    Alarm alarm = Alarm();
    const Result found{1, 1, &alarm};
    for (const int result : {0, 1, -1}) {
        const Received message([&](char* out, int size) {
            return GetSearchHistoryAlarmRespEncode(result, 1, &found, out, size);
        });
        const Answered got(message.body);
        EXPECT_EQ(got.record, nullptr) << result;
        EXPECT_EQ(got.error, -1);
        EXPECT_EQ(got.printed, "");
    }
}

// Children in the order in which they are read.
std::string alarmXml(const std::string& number) {
    std::string xml = "<AlarmData>";
    for (const char* text :
         {"AlarmGuid", "ChannelGuid", "DeviceGuid", "AlarmSubTypeCode", "BeginTime", "EndTime",
          "AlarmContent", "AlarmSource", "ConfirmMessage", "Confirmer", "ConfirmTime"})
        xml += "<" + std::string(text) + ">" + std::string(text).substr(0, 14) + number + "</" + text + ">";
    for (const char* integer : {"AlarmNo", "NodeID", "AlarmFlag", "AlarmType", "AlarmLevel", "AlarmState"})
        xml += "<" + std::string(integer) + ">" + number + "</" + integer + ">";
    return xml + "<ConfirmState>9</ConfirmState></AlarmData>";
}

Alarm alarmOf(int number) {
    const std::string digit = std::to_string(number);
    Alarm alarm = Alarm();
    std::strcpy(alarm.AlarmGuid, ("AlarmGuid" + digit).c_str());
    std::strcpy(alarm.ChannelGuid, ("ChannelGuid" + digit).c_str());
    std::strcpy(alarm.DeviceGuid, ("DeviceGuid" + digit).c_str());
    std::strcpy(alarm.AlarmSubTypeCode, ("AlarmSubTypeCo" + digit).c_str());
    std::strcpy(alarm.BeginTime, ("BeginTime" + digit).c_str());
    std::strcpy(alarm.EndTime, ("EndTime" + digit).c_str());
    std::strcpy(alarm.AlarmContent, ("AlarmContent" + digit).c_str());
    std::strcpy(alarm.AlarmSource, ("AlarmSource" + digit).c_str());
    std::strcpy(alarm.ConfirmMessage, ("ConfirmMessage" + digit).c_str());
    std::strcpy(alarm.Confirmer, ("Confirmer" + digit).c_str());
    std::strcpy(alarm.ConfirmTime, ("ConfirmTime" + digit).c_str());
    alarm.AlarmNo = alarm.NodeID = alarm.AlarmFlag = alarm.AlarmType = number;
    alarm.AlarmLevel = alarm.AlarmState = number;
    return alarm;
}

std::string page(const std::string& attributes, const std::string& alarms) {
    return response("0<AlarmInfos " + attributes + ">" + alarms + "</AlarmInfos>");
}

TEST(GetSearchHistoryAlarmRespDecode, ReadsTheChildrenOfEachAlarm) {
    const Answered got(page(R"(SearchCount="70" CurCount="2")", alarmXml("1") + "<Other />" + alarmXml("2")));
    ASSERT_NE(got.record, nullptr);
    EXPECT_EQ(got.record->SearchCount, 70);
    ASSERT_EQ(got.record->CurCount, 2);
    EXPECT_TRUE(sameBytes(got.record->alarms[0], alarmOf(1)));
    EXPECT_TRUE(sameBytes(got.record->alarms[1], alarmOf(2)));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "");
}

TEST(GetSearchHistoryAlarmRespDecode, ReadsNoMoreAlarmsThanTheCountSays) {
    const Answered got(page(R"(SearchCount="-1" CurCount="1")", alarmXml("1") + "<AlarmData />"));
    EXPECT_EQ(got.record->SearchCount, -1);
    ASSERT_EQ(got.record->CurCount, 1);
    EXPECT_TRUE(sameBytes(got.record->alarms[0], alarmOf(1)));
    EXPECT_EQ(got.printed, ""); // the second one would have been missed
}

TEST(GetSearchHistoryAlarmRespDecode, LeavesSlotsWithoutAnAlarmZero) {
    const Answered got(page(R"(SearchCount="3" CurCount="3")", alarmXml("1")));
    ASSERT_EQ(got.record->CurCount, 3);
    EXPECT_TRUE(sameBytes(got.record->alarms[0], alarmOf(1)));
    EXPECT_TRUE(sameBytes(got.record->alarms[1], Alarm()));
    EXPECT_TRUE(sameBytes(got.record->alarms[2], Alarm()));
    EXPECT_EQ(got.error, 0);
}

TEST(GetSearchHistoryAlarmRespDecode, HasNoArrayForACountBelowOne) {
    for (const int count : {0, -1, -2147483647 - 1}) {
        const Answered got(
            page("SearchCount=\"5\" CurCount=\"" + std::to_string(count) + "\"", alarmXml("1")));
        ASSERT_NE(got.record, nullptr);
        EXPECT_EQ(got.record->SearchCount, 5);
        EXPECT_EQ(got.record->CurCount, count);
        EXPECT_EQ(got.record->alarms, nullptr);
        EXPECT_EQ(got.error, 0);
        EXPECT_EQ(got.printed, "");
    }
}

TEST(GetSearchHistoryAlarmRespDecode, NamesTheCountsThatAreMissing) {
    const Answered got(page("", alarmXml("1")));
    EXPECT_TRUE(sameBytes(*got.record, Result()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, "xml file -..-AlarmInfos(SearchCount) element not find!\n"
                           "xml file -..-AlarmInfos(CurCount) element not find!\n");
}

const std::string linesOfAnAlarm = "xml file -..-AlarmData-AlarmGuid element not find!\n"
                                   "xml file -..-AlarmData-AlarmNo element not find!\n"
                                   "xml file -..-AlarmData-ChannelGuid element not find!\n"
                                   "xml file -..-AlarmData-DeviceGuid element not find!\n"
                                   "xml file -..-AlarmData-NodeID element not find!\n"
                                   "xml file -..-AlarmData-AlarmFlag element not find!\n"
                                   "xml file -..-AlarmData-AlarmType element not find!\n"
                                   "xml file -..-AlarmData-AlarmLevel element not find!\n"
                                   "xml file -..-AlarmData-AlarmSubTypeCode element not find!\n"
                                   "xml file -..-AlarmData-AlarmState element not find!\n"
                                   "xml file -..-AlarmData-BeginTime element not find!\n"
                                   "xml file -..-AlarmData-EndTime element not find!\n"
                                   "xml file -..-AlarmData-AlarmContent element not find!\n"
                                   "xml file -..-AlarmData-AlarmSource element not find!\n"
                                   "xml file -..-AlarmData-ConfirmMessage element not find!\n"
                                   "xml file -..-AlarmData-Confirmer element not find!\n"
                                   "xml file -..-AlarmData-ConfirmTime element not find!\n";

// The encoder's answer with a leading "0": its counts are read, the attributes of its alarms are not.
TEST(GetSearchHistoryAlarmRespDecode, ReadsNoAttributesOfAnAlarm) {
    Alarm alarms[2];
    std::memset(alarms, 'n', sizeof alarms);
    const Result found{9, 2, alarms};
    std::string xml = Received([&](char* out, int size) {
                          return GetSearchHistoryAlarmRespEncode(0, 1, &found, out, size);
                      }).body;
    const std::string tag = "<response name=\"SearchHistoryAlarm\">";
    xml.insert(xml.find(tag) + tag.size(), "0");
    const Answered got(xml);
    ASSERT_NE(got.record, nullptr);
    EXPECT_EQ(got.record->SearchCount, 9);
    ASSERT_EQ(got.record->CurCount, 2);
    EXPECT_TRUE(sameBytes(got.record->alarms[0], Alarm()));
    EXPECT_TRUE(sameBytes(got.record->alarms[1], Alarm()));
    EXPECT_EQ(got.error, 0);
    EXPECT_EQ(got.printed, linesOfAnAlarm + linesOfAnAlarm);
}

TEST(GetSearchHistoryAlarmRespDecode, GivesNothingWithoutAnErrorIfTheWayEnds) {
    for (const char* xml : {"<other><response>0</response></other>", "<servercommandservice />",
                            "<servercommandservice><request>0</request></servercommandservice>"}) {
        const Answered got(std::string{xml});
        EXPECT_EQ(got.record, nullptr) << xml;
        EXPECT_EQ(got.error, 0);
        EXPECT_EQ(got.printed, "");
    }
}

TEST(GetSearchHistoryAlarmRespDecode, RefusesANullDocumentAndTakesANullError) {
    const Document refused = parsed(response("7")),
                   whole = parsed(page(R"(SearchCount="1" CurCount="1")", ""));
    Captured captured;
    int error = 7;
    const Result* const none = GetSearchHistoryAlarmRespDecode(nullptr, &error);
    const Result* const noneAgain = GetSearchHistoryAlarmRespDecode(nullptr, nullptr);
    const Result* const notZero = GetSearchHistoryAlarmRespDecode(refused.get(), nullptr);
    Result* const got = GetSearchHistoryAlarmRespDecode(whole.get(), nullptr);
    EXPECT_EQ(captured.text(), "");
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(noneAgain, nullptr);
    EXPECT_EQ(notZero, nullptr);
    EXPECT_EQ(error, -1);
    ASSERT_NE(got, nullptr);
    EXPECT_EQ(got->CurCount, 1);
    ReleaseSearchAlarmParam(got);
}

} // namespace
