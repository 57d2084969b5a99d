// The records that everything is measured with. Made in code, from fixed seeds: the same on every machine.
//
// Every text leaves room for its NUL, so that code written by hand may take a field for a C string, as most
// users do.
#pragma once

#include <LibVeltoProtocol.h>

#include <cstdio>
#include <cstring>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace bench {

using Device = veltoprotocol::__tagVtDeviceParam;
using Channel = veltoprotocol::__tagVtChannelParam;
using Alarm = veltoprotocol::__tagVtAlarmData;
using ViewGroupInfo = veltoprotocol::__tagVtViewGroupInfo;
using Layout = veltoprotocol::__tagVtViewGroupData;
using Group = veltoprotocol::__tagVtGroupItem;
using View = veltoprotocol::__tagVtViewInfo;
using Pane = veltoprotocol::__tagVtViewItem;
using PaneInfo = veltoprotocol::__tagVtViewItemInfo;
using Step = veltoprotocol::__tagVtCarouselItem;
using Record = veltoprotocol::__tagVtRecordElementParam;
using RecordList = veltoprotocol::__tagVtRecordParam;

template <std::size_t Width>
void fill(char (&field)[Width], const std::string& text) {
    if (text.size() >= Width) throw std::length_error(text);
    std::memcpy(field, text.data(), text.size());
}

// Always the same numbers; none of the library's distributions, which differ from one to another.
class Drawn {
  public:
    explicit Drawn(unsigned int seed) : random_(seed) {}
    unsigned int below(unsigned int end) { return static_cast<unsigned int>(random_() % end); }
    std::string guid() {
        char text[37];
        const unsigned int a = below(0x10000), b = below(0x10000), c = below(0x1000), d = below(0x10000000);
        std::snprintf(text, sizeof text, "%04x%04x-%04x-4%03x-8%03x-%08x%04x", a, b, a ^ b, c, c ^ 0x5a5U, d,
                      a);
        return text;
    }

  private:
    std::mt19937 random_;
};

struct Inventory {
    std::vector<Device> devices;
    std::vector<Channel> channels;
};

// So many channels, 16 to a device. With `escaped`, a quarter of the names holds characters that XML has to
// escape.
inline Inventory inventory(int channelCount, bool escaped) {
    Drawn drawn(1);
    Inventory made;
    const auto name = [&](const char* kind, int number) {
        const std::string plain = std::string(kind) + ' ' + std::to_string(number);
        return plain + (escaped && number % 4 == 0 ? " \"Nord\" <A> & 'Hof'" : ", north gate, level 2");
    };
    for (int number = 1; number * 16 <= channelCount; ++number) {
        Device device = {};
        fill(device.Guid, drawn.guid());
        fill(device.ServerGuid, "5f0c2a9e-7d31-4be2-8c11-0a4f6e2b9d70");
        device.VenderType = 2;
        device.DeviceType = 1;
        device.DriverType = 3;
        fill(device.MAC, "02:00:5E:10:00:" + std::to_string(10 + number % 90));
        fill(device.DisplayName, name("Recorder", number));
        fill(device.IPAddress, "192.0.2." + std::to_string(number % 250));
        device.DevicePort = 8000;
        device.HttpPort = 80;
        device.FtpPort = 21;
        fill(device.UserName, "recorder");
        fill(device.Password, "pass-" + std::to_string(drawn.below(1000000)));
        device.State = 1;
        fill(device.Token, drawn.guid());
        device.ChannelCount = 16;
        device.nIndex = number;
        device.PlaybackPort = 8001;
        made.devices.push_back(device);
    }
    for (int number = 1; number <= channelCount; ++number) {
        Channel channel = {};
        fill(channel.Guid, drawn.guid());
        fill(channel.DeviceGuid, made.devices[static_cast<std::size_t>((number - 1) / 16)].Guid);
        fill(channel.DisplayName, name("Camera", number));
        channel.Num = (number - 1) % 16 + 1;
        channel.Type = 1;
        channel.Hidden = number % 8 == 0 ? 1 : 0;
        channel.Preview = number % 8 != 0;
        channel.LiveStreamIndex = number % 2;
        channel.LiveStreamSettings = 4096 + number;
        made.channels.push_back(channel);
    }
    return made;
}

inline Alarm alarm() {
    Drawn drawn(2);
    Alarm made = {};
    fill(made.AlarmGuid, drawn.guid());
    made.AlarmNo = 20481;
    fill(made.ChannelGuid, drawn.guid());
    fill(made.DeviceGuid, drawn.guid());
    made.NodeID = 17;
    made.AlarmFlag = 1;
    made.AlarmType = 302;
    made.AlarmLevel = 3;
    fill(made.AlarmSubTypeCode, "MD-0007");
    made.AlarmState = 1;
    fill(made.BeginTime, "20261121143305");
    fill(made.EndTime, "20261121143342");
    fill(made.AlarmContent, "Motion in zone 3 of Camera 12, north gate");
    fill(made.AlarmSource, "Recorder 4, level 2");
    fill(made.ConfirmMessage, "Delivery, seen by the guard");
    fill(made.Confirmer, "operator");
    fill(made.ConfirmTime, "20261121143510");
    return made;
}

// Owns what the library's records only point to. Stays where it is.
class SampleLayout {
  public:
    SampleLayout() {
        fill(info.ViewGroupGuid, drawn_.guid());
        fill(info.UserGuid, drawn_.guid());
        fill(info.Name, "Early shift");
        info.ViewGroupType = 2;
        info.LastModifiedTime = 1763735585;
        fill(info.LastModifieduser, "shift manager");
        for (int number = 0; number < 4; ++number) groups_.push_back(group(number));
        data = {groups_.data(), static_cast<int>(groups_.size())};
    }
    SampleLayout(const SampleLayout&) = delete;
    SampleLayout& operator=(const SampleLayout&) = delete;

    ViewGroupInfo info = {};
    Layout data = {};

  private:
    // Five views of sixteen panes; each eighth pane is a carousel of six steps.
    Group group(int number) {
        Group made = {};
        fill(made.id, drawn_.guid());
        fill(made.displayname, "Floor " + std::to_string(number));
        std::vector<View> views(5);
        for (View& view : views) fillView(view);
        made.viewcount = 5;
        made.views = kept(views_, std::move(views));
        return made;
    }
    void fillView(View& view) {
        fill(view.id, drawn_.guid());
        fill(view.displayname, "Entrances and stairs");
        view.viewlayouttype = 16;
        view.viewscaletype = 2;
        view.showtime = 30;
        std::vector<Pane> panes(16);
        for (Pane& pane : panes) fillPane(pane, static_cast<int>(&pane - panes.data()));
        view.itemcount = 16;
        view.items = kept(panes_, std::move(panes));
    }
    void fillPane(Pane& pane, int number) {
        fill(pane.id, drawn_.guid());
        fill(pane.displayname, "Pane " + std::to_string(number));
        pane.itemnumber = number;
        pane.type = number % 8 == 7 ? 5 : 1;
        fill(pane.iteminfo.id, drawn_.guid());
        fill(pane.iteminfo.cameraid, drawn_.guid());
        fill(pane.iteminfo.displayname, "Camera " + std::to_string(drawn_.below(1024)));
        pane.iteminfo.VideoStreamType = 1;
        if (pane.type != 5) return;
        std::vector<Step> steps(6);
        for (Step& step : steps) fillStep(step, static_cast<int>(&step - steps.data()));
        pane.iteminfo.carouselcount = 6;
        pane.iteminfo.carousels = kept(steps_, std::move(steps));
    }
    void fillStep(Step& step, int number) {
        fill(step.id, drawn_.guid());
        fill(step.ChannelGuid, drawn_.guid());
        step.ShowTime = 15;
        step.Index = number + 1;
        fill(step.DisplayName, "Camera " + std::to_string(drawn_.below(1024)));
    }
    template <class Entry>
    static Entry* kept(std::vector<std::vector<Entry>>& all, std::vector<Entry> entries) {
        all.push_back(std::move(entries));
        return all.back().data();
    }

    Drawn drawn_{3};
    std::vector<Group> groups_;
    std::vector<std::vector<View>> views_;
    std::vector<std::vector<Pane>> panes_;
    std::vector<std::vector<Step>> steps_;
};

// Recordings of one channel, one after another, each with its picture.
inline std::vector<Record> records(int count) {
    Drawn drawn(4);
    std::vector<Record> made(static_cast<std::size_t>(count));
    int time = 1763700000;
    for (Record& record : made) {
        record.RecordType = static_cast<int>(drawn.below(4));
        record.RecordMode = 1;
        record.StartTime = time;
        record.EndTime = time += 60 + static_cast<int>(drawn.below(1200));
        record.RecordSize = static_cast<int>(drawn.below(400000000));
        char url[64];
        std::snprintf(url, sizeof url, "/pictures/2026/11/c0012/%d-%06x.jpg", record.StartTime,
                      drawn.below(0x1000000));
        fill(record.PictureUrl, url);
        record.PictureSize = 20000 + static_cast<int>(drawn.below(60000));
    }
    return made;
}

inline RecordList recordList(std::vector<Record>& of) {
    RecordList list = {};
    fill(list.ChannelGuid, "0b9f4c62-1e7a-4d85-8b3c-6f2d9e8a7c51");
    list.Counter = static_cast<unsigned int>(of.size());
    list.Records = of.data();
    return list;
}

// Bytes that look like compressed video.
inline std::string noise(std::size_t length) {
    Drawn drawn(5);
    std::string made(length, '\0');
    for (char& byte : made) byte = static_cast<char>(drawn.below(256));
    return made;
}

} // namespace bench
