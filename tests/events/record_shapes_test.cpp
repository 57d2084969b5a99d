// Where each member of each record lies: callers fill records that were compiled elsewhere.
#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

using namespace veltoprotocol;

namespace {

template <class... Records>
constexpr bool plain = (... && (std::is_standard_layout_v<Records> && std::is_trivially_copyable_v<Records>));
static_assert(plain<__tagVtAlarmData, __tagVtRecordStatus, __tagVtMessageParam, __tagVtSearchAlarmParam,
                    __tagVtSearchAlarmResult>);

TEST(AlarmData, KeepsItsShape) {
    using Alarm = __tagVtAlarmData;
    EXPECT_EQ(offsetof(Alarm, AlarmGuid), 0u);
    EXPECT_EQ(offsetof(Alarm, AlarmNo), 48u);
    EXPECT_EQ(offsetof(Alarm, reserved), 52u);
    EXPECT_EQ(sizeof(Alarm::reserved), 4u);
    EXPECT_EQ(offsetof(Alarm, ChannelGuid), 56u);
    EXPECT_EQ(offsetof(Alarm, DeviceGuid), 104u);
    EXPECT_EQ(offsetof(Alarm, NodeID), 152u);
    EXPECT_EQ(offsetof(Alarm, AlarmFlag), 156u);
    EXPECT_EQ(offsetof(Alarm, AlarmType), 160u);
    EXPECT_EQ(offsetof(Alarm, AlarmLevel), 164u);
    EXPECT_EQ(offsetof(Alarm, AlarmSubTypeCode), 168u);
    EXPECT_EQ(offsetof(Alarm, AlarmState), 184u);
    EXPECT_EQ(offsetof(Alarm, BeginTime), 188u);
    EXPECT_EQ(offsetof(Alarm, EndTime), 204u);
    EXPECT_EQ(offsetof(Alarm, AlarmContent), 220u);
    EXPECT_EQ(offsetof(Alarm, AlarmSource), 348u);
    EXPECT_EQ(offsetof(Alarm, ConfirmMessage), 476u);
    EXPECT_EQ(offsetof(Alarm, Confirmer), 604u);
    EXPECT_EQ(offsetof(Alarm, ConfirmTime), 636u);
    EXPECT_EQ(offsetof(Alarm, ConfirmState), 652u);
    EXPECT_EQ(offsetof(Alarm, HaveRecord), 656u);
    EXPECT_EQ(offsetof(Alarm, HaveSnapshot), 660u);
    EXPECT_EQ(sizeof(Alarm), 664u);
}

TEST(RecordStatus, KeepsItsShape) {
    using Status = __tagVtRecordStatus;
    EXPECT_EQ(offsetof(Status, StatusGuid), 0u);
    EXPECT_EQ(offsetof(Status, ChannelGuid), 48u);
    EXPECT_EQ(offsetof(Status, DeviceGuid), 96u);
    EXPECT_EQ(offsetof(Status, RecordType), 144u);
    EXPECT_EQ(offsetof(Status, OccurredTime), 148u);
    EXPECT_EQ(offsetof(Status, MessageDesc), 164u);
    EXPECT_EQ(offsetof(Status, ErrorCode), 292u);
    EXPECT_EQ(offsetof(Status, Status), 296u);
    EXPECT_EQ(sizeof(Status), 300u);
}

TEST(MessageParam, KeepsItsShape) {
    using Message = __tagVtMessageParam;
    EXPECT_EQ(offsetof(Message, MessageType), 0u);
    EXPECT_EQ(offsetof(Message, DeviceGuid), 4u);
    EXPECT_EQ(offsetof(Message, ChannelGuid), 52u);
    EXPECT_EQ(sizeof(Message), 100u);
}

TEST(SearchAlarmParam, KeepsItsShape) {
    using Search = __tagVtSearchAlarmParam;
    EXPECT_EQ(offsetof(Search, AlarmFlag), 0u);
    EXPECT_EQ(offsetof(Search, AlarmType), 4u);
    EXPECT_EQ(offsetof(Search, AlarmLevel), 8u);
    EXPECT_EQ(offsetof(Search, BeginTime), 12u);
    EXPECT_EQ(offsetof(Search, EndTime), 28u);
    EXPECT_EQ(offsetof(Search, BeginIndex), 44u);
    EXPECT_EQ(offsetof(Search, EndIndex), 48u);
    EXPECT_EQ(offsetof(Search, channels), 56u); // 4 of padding before the pointer
    EXPECT_EQ(offsetof(Search, channelcount), 64u);
    EXPECT_EQ(sizeof(Search), 72u);
}

TEST(SearchAlarmResult, KeepsItsShape) {
    using Found = __tagVtSearchAlarmResult;
    EXPECT_EQ(offsetof(Found, SearchCount), 0u);
    EXPECT_EQ(offsetof(Found, CurCount), 4u);
    EXPECT_EQ(offsetof(Found, alarms), 8u);
    EXPECT_EQ(sizeof(Found), 16u);
}

} // namespace
