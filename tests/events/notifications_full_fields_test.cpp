// Pushed records whose texts fill their fields to the last byte, without a terminator.
#include "support/received.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

using namespace veltoprotocol;

namespace {

// Reads a child of the pushed content element, of whatever kind it is.
struct Pushed : Received {
    Pushed(__enumVtMessageType type, const void* content)
        : Received([&](char* out, int size) {
              return GetNotificationContentReqEncode(0, 7, type, content, out, size);
          }) {}
    std::string text(const char* name) const {
        const TiXmlElement* const element =
            child("Notifications")->FirstChildElement()->FirstChildElement()->FirstChildElement(name);
        return element && element->GetText() ? element->GetText() : "";
    }
};

template <std::size_t N>
std::string whole(const char (&field)[N]) {
    return std::string(field, N);
}

TEST(GetNotificationContentReqEncode, StopsAtTheWidthOfEachTextOfAnAlarm) {
    __tagVtAlarmData content;
    std::memset(&content, 'n', sizeof content);
    fill(content.AlarmGuid, 'a');
    fill(content.ChannelGuid, 'b');
    fill(content.DeviceGuid, 'c');
    fill(content.AlarmSubTypeCode, 'd');
    fill(content.BeginTime, 'e');
    fill(content.EndTime, 'f');
    fill(content.AlarmContent, 'g');
    fill(content.AlarmSource, 'h');
    fill(content.ConfirmMessage, 'i');
    fill(content.Confirmer, 'j');
    fill(content.ConfirmTime, 'k');
    const Pushed got(VtMessageAlarm, &content);
    EXPECT_EQ(got.text("AlarmGuid"), whole(content.AlarmGuid));
    EXPECT_EQ(got.text("ChannelGuid"), whole(content.ChannelGuid));
    EXPECT_EQ(got.text("DeviceGuid"), whole(content.DeviceGuid));
    EXPECT_EQ(got.text("AlarmSubTypeCode"), whole(content.AlarmSubTypeCode));
    EXPECT_EQ(got.text("BeginTime"), whole(content.BeginTime));
    EXPECT_EQ(got.text("EndTime"), whole(content.EndTime));
    EXPECT_EQ(got.text("AlarmContent"), whole(content.AlarmContent));
    EXPECT_EQ(got.text("AlarmSource"), whole(content.AlarmSource));
    EXPECT_EQ(got.text("ConfirmMessage"), whole(content.ConfirmMessage));
    EXPECT_EQ(got.text("Confirmer"), whole(content.Confirmer));
    EXPECT_EQ(got.text("ConfirmTime"), whole(content.ConfirmTime));
}

TEST(GetNotificationContentReqEncode, StopsAtTheWidthOfEachTextOfTheOthers) {
    __tagVtRecordStatus status;
    std::memset(&status, 'n', sizeof status);
    fill(status.StatusGuid, 'a');
    fill(status.ChannelGuid, 'b');
    fill(status.DeviceGuid, 'c');
    fill(status.OccurredTime, 'd');
    fill(status.MessageDesc, 'e');
    const Pushed changed(VtMessageRecordStatus, &status);
    EXPECT_EQ(changed.text("StatusGuid"), whole(status.StatusGuid));
    EXPECT_EQ(changed.text("ChannelGuid"), whole(status.ChannelGuid));
    EXPECT_EQ(changed.text("DeviceGuid"), whole(status.DeviceGuid));
    EXPECT_EQ(changed.text("OccurredTime"), whole(status.OccurredTime));
    EXPECT_EQ(changed.text("MessageDesc"), whole(status.MessageDesc));

    // Its last text ends where its memory does.
    __tagVtMessageParam message{1, {}, {}};
    fill(message.DeviceGuid, 'd');
    fill(message.ChannelGuid, 'c');
    const GuardedPage content(std::string_view(reinterpret_cast<const char*>(&message), sizeof message));
    for (const auto type : {VtMessageOnlineStatus, VtMessageChannelDisabled, VtMessageChannelDeleted}) {
        const Pushed got(type, content.data());
        EXPECT_EQ(got.text("DeviceGuid"), whole(message.DeviceGuid));
        EXPECT_EQ(got.text("ChannelGuid"), whole(message.ChannelGuid));
        EXPECT_EQ(got.text("MessageType"), "1");
    }
}

} // namespace
