// The fields of the records and the names that carry them, for code that uses an XML library by hand: each
// function shows `visit` the name and the member, in wire order.
#pragma once

#include "messages.h"

namespace bench::by_hand {

template <class Device, class Visit>
void deviceFields(Device& device, const Visit& visit) {
    visit("Guid", device.Guid);
    visit("ServerGuid", device.ServerGuid);
    visit("VenderType", device.VenderType);
    visit("DeviceType", device.DeviceType);
    visit("DriverType", device.DriverType);
    visit("MAC", device.MAC);
    visit("DisplayName", device.DisplayName);
    visit("IPAddress", device.IPAddress);
    visit("DevicePort", device.DevicePort);
    visit("HttpPort", device.HttpPort);
    visit("FtpPort", device.FtpPort);
    visit("UserName", device.UserName);
    visit("Password", device.Password);
    visit("State", device.State);
    visit("Token", device.Token);
    visit("ChannelCount", device.ChannelCount);
    visit("nIndex", device.nIndex);
    visit("PlaybackPort", device.PlaybackPort);
    visit("res1", device.res1);
    visit("res2", device.res2);
}

template <class Channel, class Visit>
void channelFields(Channel& channel, const Visit& visit) {
    visit("Guid", channel.Guid);
    visit("Type", channel.Type);
    visit("DisplayName", channel.DisplayName);
    visit("Num", channel.Num);
    visit("Hidden", channel.Hidden);
    visit("Disabled", channel.Disabled);
    visit("Preview", channel.Preview);
    visit("LiveStreamIndex", channel.LiveStreamIndex);
    visit("LiveStreamSettings", channel.LiveStreamSettings);
}

template <class Alarm, class Visit>
void alarmFields(Alarm& alarm, const Visit& visit) {
    visit("AlarmGuid", alarm.AlarmGuid);
    visit("AlarmNo", alarm.AlarmNo);
    visit("ChannelGuid", alarm.ChannelGuid);
    visit("DeviceGuid", alarm.DeviceGuid);
    visit("NodeID", alarm.NodeID);
    visit("AlarmFlag", alarm.AlarmFlag);
    visit("AlarmType", alarm.AlarmType);
    visit("AlarmLevel", alarm.AlarmLevel);
    visit("AlarmSubTypeCode", alarm.AlarmSubTypeCode);
    visit("AlarmState", alarm.AlarmState);
    visit("BeginTime", alarm.BeginTime);
    visit("EndTime", alarm.EndTime);
    visit("AlarmContent", alarm.AlarmContent);
    visit("AlarmSource", alarm.AlarmSource);
    visit("ConfirmMessage", alarm.ConfirmMessage);
    visit("Confirmer", alarm.Confirmer);
    visit("ConfirmTime", alarm.ConfirmTime);
}

template <class Visit>
void viewGroupInfoFields(const ViewGroupInfo& info, const Visit& visit) {
    visit("ReadOnly", info.ReadOnly);
    visit("Name", info.Name);
    visit("ViewGroupType", info.ViewGroupType);
    visit("LastModifiedTime", info.LastModifiedTime);
    visit("LastModifieduser", info.LastModifieduser);
    visit("ViewGroupGuid", info.ViewGroupGuid);
    visit("UserGuid", info.UserGuid);
}

template <class Visit>
void groupFields(const Group& group, const Visit& visit) {
    visit("id", group.id);
    visit("displayname", group.displayname);
    visit("parentguid", group.parentguid);
}

template <class Visit>
void viewFields(const View& view, const Visit& visit) {
    visit("id", view.id);
    visit("displayname", view.displayname);
    visit("viewlayouttype", view.viewlayouttype);
    visit("viewscaletype", view.viewscaletype);
    visit("showtime", view.showtime);
    visit("enablecarousel", view.enablecarousel);
}

template <class Visit>
void paneFields(const Pane& pane, const Visit& visit) {
    visit("id", pane.id);
    visit("displayname", pane.displayname);
    visit("type", pane.type);
    visit("itemnumber", pane.itemnumber);
}

template <class Visit>
void paneInfoFields(const PaneInfo& info, const Visit& visit) {
    visit("id", info.id);
    visit("cameraid", info.cameraid);
    visit("displayname", info.displayname);
    visit("url", info.url);
    visit("VideoStreamType", info.VideoStreamType);
}

template <class Visit>
void stepFields(const Step& step, const Visit& visit) {
    visit("id", step.id);
    visit("ChannelGuid", step.ChannelGuid);
    visit("ShowTime", step.ShowTime);
    visit("Index", step.Index);
    visit("DisplayName", step.DisplayName);
    visit("VideoStreamType", step.VideoStreamType);
}

} // namespace bench::by_hand
