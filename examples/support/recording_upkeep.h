// What the example administrator does about recording: storage, schedules and archives. The protocol names no
// request that reads any of it back, so what the server answers is all there is to check.
#ifndef EXAMPLES_RECORDING_UPKEEP_H
#define EXAMPLES_RECORDING_UPKEEP_H

#include "support/administrator.h"
#include "support/conversation.h"
#include "support/sample_inventory.h"
#include "support/sample_site.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>

#include <vector>

namespace example {

class RecordingUpkeep {
  public:
    RecordingUpkeep(Administrator& admin, const SampleSite& site) : admin_(admin), site_(site) {}

    void keep() {
        keepStorage();
        keepChannelSchedules();
        upkeep(admin_, "Named schedules", named_, site_.schedules(false), site_.schedules(true), nothing);
        clearUp(admin_, "Named schedules", named_, site_.schedules(true), nothing);
        upkeep(admin_, "Archives", archives_, site_.archives(false), site_.archives(true), nothing);
        clearUp(admin_, "Archives", archives_, site_.archives(true), nothing);
    }

    // What was left for the channels of a device went with it.
    void isGone() {
        admin_.talk().title("With a device went what its channels record");
        admin_.beRefused("UpdateStorage", storage_.update({site_.storage(true).back()}));
        admin_.beRefused("DeleteSchedule", schedules_.remove({site_.channelSchedules(true).back()}));
    }

  private:
    using Storage = SampleSite::Storage;
    using ChannelSchedule = SampleSite::ChannelSchedule;
    using Schedule = SampleSite::Schedule;
    using Archive = SampleSite::Archive;

    void keepStorage() {
        admin_.talk().title("Storage of a channel that nobody knows");
        std::vector<Storage> unknown = {Storage{}};
        fill(unknown.front().ChannelGuid, guid('c', 999));
        admin_.beRefused("AddStorage", storage_.add(unknown));
        admin_.talk().title("Storage of no channel");
        admin_.beRefused("AddStorage", [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetAddStorageReqEncode(unknown.data(), 0, host, seqnum, out, size);
        });
        upkeep(admin_, "Storage", storage_, site_.storage(false), site_.storage(true), nothing);
    }

    // Each channel needs a request of its own, since one for several repeats the first channel.
    void keepChannelSchedules() {
        admin_.talk().title("Schedules of several channels in one request");
        admin_.beRefused("AddSchedule", schedules_.add(site_.channelSchedules(false)));
        upkeep(admin_, "Schedules of channels", schedules_, site_.channelSchedules(false),
               site_.channelSchedules(true), nothing);
    }

    static Request<Schedule> setSchedules(veltoprotocol::__enumVtDeviceReqType type) {
        return {"SetSchedulesInfo",
                [type](const Schedule* records, int count, unsigned int seqnum, char* out, int size) {
                    return veltoprotocol::GetSetSchedulesReqEncode(type, records, count, host, seqnum, out,
                                                                   size);
                }};
    }

    static constexpr auto nothing = [](const auto&) {}; // to look back at

    Administrator& admin_;
    const SampleSite& site_;
    const Requests<Storage> storage_ = {request("AddStorage", veltoprotocol::GetAddStorageReqEncode),
                                        request("UpdateStorage", veltoprotocol::GetUpdateStorageReqEncode),
                                        request("DeleteStorage", veltoprotocol::GetDeleteStorageReqEncode)};
    const Requests<ChannelSchedule> schedules_ = {
        request("AddSchedule", veltoprotocol::GetAddScheduleReqEncode),
        request("UpdateSchedule", veltoprotocol::GetUpdateScheduleReqEncode),
        request("DeleteSchedule", veltoprotocol::GetDeleteScheduleReqEncode), false};
    const Requests<Schedule> named_ = {setSchedules(veltoprotocol::VtDeviceReqAdd),
                                       setSchedules(veltoprotocol::VtDeviceReqUpdate),
                                       setSchedules(veltoprotocol::VtDeviceReqDelete)};
    const Requests<Archive> archives_ = {
        request("AddArchiveInfo", veltoprotocol::GetAddArchiveReqEncode),
        request("UpdateArchiveInfo", veltoprotocol::GetUpdateArchiveReqEncode),
        request("DeleteArchiveInfo", veltoprotocol::GetDeleteArchiveReqEncode)};
};

} // namespace example

#endif
