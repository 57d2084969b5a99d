// What the example administrator adds to a site: devices, servers, and what channels record. Each comes in
// two states, as it is added and as it is changed.
#ifndef EXAMPLES_SAMPLE_SITE_H
#define EXAMPLES_SAMPLE_SITE_H

#include "support/sample_inventory.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>

#include <string>
#include <vector>

namespace example {

class SampleSite {
  public:
    using Device = veltoprotocol::__tagVtDeviceParam;
    using Channel = veltoprotocol::__tagVtChannelParam;
    using Storage = veltoprotocol::__tagVtStorageInfo;
    using ChannelSchedule = veltoprotocol::__tagVtChannelScheduleInfo;
    using Schedule = veltoprotocol::__tagVtSchedulesInfo;
    using Archive = veltoprotocol::__tagVtArchiveinfo;
    using Server = veltoprotocol::__tagVtServerInfo;

    // The seed goes into the GUIDs, so that several administrators do not get in each other's way.
    explicit SampleSite(unsigned int seed) : base_(1000 + static_cast<int>(seed % 20000000) * 100) {}

    // Two devices with three channels and one.
    Inventory inventory(bool changed) const {
        Inventory list;
        list.devices = {device(1, 3, changed), device(2, 1, changed)};
        for (int i = 1; i <= 4; ++i) list.channels.push_back(channel(i, i < 4 ? 1 : 2, changed));
        return list;
    }

    // For the first device's channels.
    std::vector<Storage> storage(bool changed) const { return three(&SampleSite::storageOf, changed); }
    std::vector<ChannelSchedule> channelSchedules(bool changed) const {
        return three(&SampleSite::schedulesOf, changed);
    }

    std::vector<Schedule> schedules(bool changed) const { return three(&SampleSite::namedSchedule, changed); }
    std::vector<Archive> archives(bool changed) const { return three(&SampleSite::archive, changed); }
    std::vector<Server> servers(bool changed) const { return three(&SampleSite::server, changed); }

  private:
    std::string own(char kind, int number) const { return guid(kind, base_ + number); }

    template <class Record>
    std::vector<Record> three(Record (SampleSite::*make)(int, bool) const, bool changed) const {
        return {(this->*make)(1, changed), (this->*make)(2, changed), (this->*make)(3, changed)};
    }

    Device device(int number, int channels, bool changed) const {
        Device device = {};
        fill(device.Guid, own('d', number));
        fill(device.ServerGuid, guid('a', 1));
        device.VenderType = 2;
        device.DeviceType = changed ? -2147483647 : 2147483647;
        device.DriverType = 20 + number;
        fill(device.MAC, "02:00:5E:10:00:7" + std::to_string(number));
        const char* const whole = "仓库录像机 📦📦📦📦📦📦📦📦📦📦📦📦"; // fills its field
        fill(device.DisplayName, changed ? "改名 <neu> & \"Tor\" 🚪" : whole);
        fill(device.IPAddress, changed ? "recorder-" + std::to_string(number) + ".example" : "[2001:db8::7]");
        device.DevicePort = 8000 + number;
        device.HttpPort = 80;
        device.FtpPort = 21;
        fill(device.UserName, "root & <Söhne>");
        fill(device.Password, changed ? "neu'\"<&>" : "schlüssel=🔑");
        device.State = changed ? -1 : 1;
        fill(device.Token, "session-" + std::to_string(number));
        device.ChannelCount = channels;
        device.nIndex = number;
        device.PlaybackPort = 8100 + number;
        device.res1 = -number;
        device.res2 = changed ? 5 : 0;
        return device;
    }

    Channel channel(int number, int device, bool changed) const {
        Channel channel = {};
        fill(channel.Guid, own('c', number));
        fill(channel.DeviceGuid, own('d', device));
        fill(channel.DisplayName, (changed ? "改: Kanal <" : "Kanal & '") + std::to_string(number));
        channel.Num = number;
        channel.Type = -number;
        channel.Hidden = number % 2;
        channel.Disabled = changed ? 1 : 0;
        channel.Preview = (number % 2 == 0) != changed;
        channel.LiveStreamIndex = changed ? 3 : 2;
        channel.LiveStreamSettings = 1000 + number;
        return channel;
    }

    Storage storageOf(int number, bool changed) const {
        Storage storage = {};
        fill(storage.ChannelGuid, own('c', number));
        fill(storage.DatabasePath, changed ? "/录像/neu & alt" : "/录像/" + std::to_string(number));
        fill(storage.ArchivePath, "//archive/<1> & \"2\"");
        fill(storage.PathNonUNC, changed ? "/mnt/ö" : "/mnt/o'");
        storage.DBRepairStrategy = number;
        storage.ArchiveDb = 12;
        storage.ArchiveWhenDBFull = 13;
        storage.ArchiveMaxAge = changed ? -14 : 14;
        storage.DbSaveMode = 15;
        storage.EnableDbPreSecs = !changed;
        storage.EnableDbPostSecs = changed;
        storage.DbPreSecs = 18;
        storage.DbPostSecs = 19;
        storage.AdminDbPreSecs = 20;
        storage.AdminDbPostSecs = 21;
        storage.DbLimitType = 22;
        storage.DbLimitCount = changed ? 2147483647 : 23;
        storage.SaveOnEvent = changed;
        storage.SaveOnMotion = !changed;
        fill(storage.SaveStartEvent, "门开 <auf>");
        fill(storage.SaveStopEvent, "门关 \"zu\"");
        fill(storage.Schedules, changed ? "Mo-Fr 08:00-18:00; Sa 'früh' & <spät>; So 全天" : "24/7");
        storage.ManualRecordSecs = 600;
        storage.VideoStreamType = -1;
        return storage;
    }

    // The types of the two schedules stay 0: a channel's request does not carry them.
    ChannelSchedule schedulesOf(int number, bool changed) const {
        ChannelSchedule schedules = {};
        fill(schedules.ChannelGuid, own('c', number));
        schedules.OnlineType = changed ? 8 : 7;
        fill(schedules.Online.Guid, own('e', number));
        fill(schedules.Online.Name, changed ? "夜班 & <Nacht>" : "Tag");
        fill(schedules.Online.Schedules, "Mo 00:00-24:00 & Di");
        schedules.SpeedupType = -3;
        fill(schedules.Speedup.Guid, own('e', 10 + number));
        fill(schedules.Speedup.Name, "加速 \"schnell\"");
        fill(schedules.Speedup.Schedules, changed ? "" : "Sa <4x>");
        return schedules;
    }

    Schedule namedSchedule(int number, bool changed) const {
        Schedule schedule = {};
        fill(schedule.Guid, own('e', 20 + number));
        fill(schedule.Name, (changed ? "改 <neu> " : "计划 & 'Plan' ") + std::to_string(number));
        fill(schedule.Schedules,
             std::string(number == 3 ? 2048 : 7, changed ? '+' : '-')); // or its whole field
        schedule.SchedulesType = changed ? -number : number;
        return schedule;
    }

    Archive archive(int number, bool changed) const {
        Archive archive = {};
        fill(archive.Guid, own('6', number));
        fill(archive.ArchiveTime, changed ? "2031-01-02 03:04" : "03:3" + std::to_string(number)); // 16 bytes
        return archive;
    }

    Server server(int number, bool changed) const {
        Server server = {};
        fill(server.Guid, own('a', number));
        fill(server.DisplayName, (changed ? "Süd & <neu> " : "分站 🏭 ") + std::to_string(number));
        fill(server.PrivateAddress, "192.0.2." + std::to_string(100 + number));
        server.PrivatePort = 9000 + number;
        server.EnabledPublic = (number % 2 == 0) == changed;
        fill(server.PublicAddress, changed ? "a-name-of-thirty-two.example.org" : "203.0.113.5"); // 32 bytes
        server.PublicPort = changed ? 0 : 443;
        server.MaxClient = changed ? 2147483647 : -1;
        return server;
    }

    const int base_;
};

} // namespace example

#endif
