// Messages by protobuf: filled from the same records, then serialised. No head, which it does not need.
#pragma once

#include "by_hand/messages.pb.h"
#include "messages.h"

namespace bench::by_hand {

template <class To, class Message>
void fillEnvelope(To& to, const Message& message) {
    to.set_seqnum(message.seqnum);
    to.set_version("1.0.0");
    to.set_name(message.command);
}

inline void fill(proto::ResultAnswer& to, const ResultAnswer& answer) {
    fillEnvelope(to, answer);
    to.set_result(answer.result);
}

inline void fill(proto::AlarmPush& to, const AlarmPush& push) {
    fillEnvelope(to, push);
    to.set_message_type(300);
    proto::Alarm& alarm = *to.mutable_alarm();
    alarm.set_alarm_guid(push.alarm.AlarmGuid);
    alarm.set_alarm_no(push.alarm.AlarmNo);
    alarm.set_channel_guid(push.alarm.ChannelGuid);
    alarm.set_device_guid(push.alarm.DeviceGuid);
    alarm.set_node_id(push.alarm.NodeID);
    alarm.set_alarm_flag(push.alarm.AlarmFlag);
    alarm.set_alarm_type(push.alarm.AlarmType);
    alarm.set_alarm_level(push.alarm.AlarmLevel);
    alarm.set_alarm_sub_type_code(push.alarm.AlarmSubTypeCode);
    alarm.set_alarm_state(push.alarm.AlarmState);
    alarm.set_begin_time(push.alarm.BeginTime);
    alarm.set_end_time(push.alarm.EndTime);
    alarm.set_alarm_content(push.alarm.AlarmContent);
    alarm.set_alarm_source(push.alarm.AlarmSource);
    alarm.set_confirm_message(push.alarm.ConfirmMessage);
    alarm.set_confirmer(push.alarm.Confirmer);
    alarm.set_confirm_time(push.alarm.ConfirmTime);
}

inline void fill(proto::Device& to, const Device& device) {
    to.set_guid(device.Guid);
    to.set_server_guid(device.ServerGuid);
    to.set_vender_type(device.VenderType);
    to.set_device_type(device.DeviceType);
    to.set_driver_type(device.DriverType);
    to.set_mac(device.MAC);
    to.set_display_name(device.DisplayName);
    to.set_ip_address(device.IPAddress);
    to.set_device_port(device.DevicePort);
    to.set_http_port(device.HttpPort);
    to.set_ftp_port(device.FtpPort);
    to.set_user_name(device.UserName);
    to.set_password(device.Password);
    to.set_state(device.State);
    to.set_token(device.Token);
    to.set_channel_count(device.ChannelCount);
    to.set_index(device.nIndex);
    to.set_playback_port(device.PlaybackPort);
    to.set_res1(device.res1);
    to.set_res2(device.res2);
}

inline void fill(proto::Channel& to, const Channel& channel) {
    to.set_device_guid(channel.DeviceGuid);
    to.set_guid(channel.Guid);
    to.set_type(channel.Type);
    to.set_display_name(channel.DisplayName);
    to.set_num(channel.Num);
    to.set_hidden(channel.Hidden);
    to.set_disabled(channel.Disabled);
    to.set_preview(channel.Preview);
    to.set_live_stream_index(channel.LiveStreamIndex);
    to.set_live_stream_settings(channel.LiveStreamSettings);
}

inline void fill(proto::DeviceList& to, const DeviceList& list) {
    fillEnvelope(to, list);
    to.set_result(0);
    for (const Device& device : list.inventory.devices) fill(*to.add_devices(), device);
    for (const Channel& channel : list.inventory.channels) fill(*to.add_channels(), channel);
}

inline void fill(proto::Pane& to, const Pane& pane) {
    to.set_id(pane.id);
    to.set_display_name(pane.displayname);
    to.set_type(pane.type);
    to.set_item_number(pane.itemnumber);
    to.set_info_id(pane.iteminfo.id);
    to.set_camera_id(pane.iteminfo.cameraid);
    to.set_info_display_name(pane.iteminfo.displayname);
    to.set_url(pane.iteminfo.url);
    to.set_video_stream_type(pane.iteminfo.VideoStreamType);
    for (int i = 0; i < pane.iteminfo.carouselcount; ++i) {
        const Step& from = pane.iteminfo.carousels[i];
        proto::Step& step = *to.add_steps();
        step.set_id(from.id);
        step.set_channel_guid(from.ChannelGuid);
        step.set_show_time(from.ShowTime);
        step.set_index(from.Index);
        step.set_display_name(from.DisplayName);
        step.set_video_stream_type(from.VideoStreamType);
    }
}

inline void fill(proto::View& to, const View& view) {
    to.set_id(view.id);
    to.set_display_name(view.displayname);
    to.set_layout_type(view.viewlayouttype);
    to.set_scale_type(view.viewscaletype);
    to.set_show_time(view.showtime);
    to.set_enable_carousel(view.enablecarousel);
    for (int i = 0; i < view.itemcount; ++i) fill(*to.add_panes(), view.items[i]);
}

inline void fill(proto::Group& to, const Group& group) {
    to.set_id(group.id);
    to.set_display_name(group.displayname);
    to.set_parent_guid(group.parentguid);
    for (int i = 0; i < group.viewcount; ++i) fill(*to.add_views(), group.views[i]);
}

inline void fill(proto::LayoutAnswer& to, const LayoutAnswer& answer) {
    fillEnvelope(to, answer);
    to.set_result(0);
    const ViewGroupInfo& info = answer.layout.info;
    to.set_read_only(info.ReadOnly);
    to.set_group_name(info.Name);
    to.set_view_group_type(info.ViewGroupType);
    to.set_last_modified_time(info.LastModifiedTime);
    to.set_last_modified_user(info.LastModifieduser);
    to.set_view_group_guid(info.ViewGroupGuid);
    to.set_user_guid(info.UserGuid);
    const Layout& data = answer.layout.data;
    for (int i = 0; i < data.groupcount; ++i) fill(*to.add_groups(), data.groups[i]);
}

// The protobuf message of each of ours.
proto::ResultAnswer counterpart(const ResultAnswer&);
proto::AlarmPush counterpart(const AlarmPush&);
proto::DeviceList counterpart(const DeviceList&);
proto::LayoutAnswer counterpart(const LayoutAnswer&);
template <class Message>
using Proto = decltype(counterpart(std::declval<const Message&>()));

// Fills `to`, which may have been used before, and serialises it.
template <class Message>
int byProtobuf(const Message& message, Proto<Message>& to, char* out, int size) {
    to.Clear();
    fill(to, message);
    const std::size_t length = to.ByteSizeLong();
    if (length > static_cast<std::size_t>(size)) return -1;
    to.SerializeWithCachedSizesToArray(reinterpret_cast<unsigned char*>(out));
    return static_cast<int>(length);
}

} // namespace bench::by_hand
