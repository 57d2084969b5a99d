// What the example server does with the requests of an administrator: it keeps devices, servers and what
// channels record, as long as it runs. Who asks is checked before, in management_server.h.
#ifndef EXAMPLES_ADMIN_SERVER_H
#define EXAMPLES_ADMIN_SERVER_H

#include "support/admin_log.h"
#include "support/admin_requests.h"
#include "support/answer.h"
#include "support/device_search.h"
#include "support/device_store.h"
#include "support/encoded.h"
#include "support/received_message.h"
#include "support/request.h"
#include "support/sample_inventory.h"
#include "support/store.h"
#include "support/text_fields.h"
#include "support/transcript.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace example {

class AdminServer {
  public:
    // `port` is the one that the server listens on: it is a server of the site itself.
    explicit AdminServer(unsigned short port) {
        veltoprotocol::__tagVtServerInfo self = {};
        fill(self.Guid, guid('a', 1));
        fill(self.DisplayName, "Zentrale 'Süd' <1>");
        fill(self.PrivateAddress, "127.0.0.1");
        self.PrivatePort = port;
        self.MaxClient = 1000;
        servers_.apply(Change::add, {self});
    }

    // The requests that go to the path for management.
    static bool manages(const std::string& name) {
        const std::string kind = command(name).second;
        return kind == "Device" || kind == "Storage" || kind == "Schedule" || kind == "ArchiveInfo" ||
               name == "SetServerInfo" || name == "SetSchedulesInfo" || name == "StartSearchDevice" ||
               name == "StopSearchDevice";
    }

    // `searches` are those of the connection.
    Answer manage(const std::string& name, unsigned int seqnum, const ReceivedMessage& message,
                  DeviceSearches& searches) {
        TiXmlElement* const request = requestOf(message);
        if (name == "StartSearchDevice") return searches.start(seqnum, request);
        if (name == "StopSearchDevice") return searches.stop(seqnum, request);
        std::string records;
        const int result = change(name, request, records);
        Answer answer = AdminServer::answer(result, seqnum, name);
        answer.decoded += records + "; " + kept();
        return answer;
    }

    // An answer without more than its result.
    static Answer answer(int result, unsigned int seqnum, const std::string& name) {
        if (name == "StartSearchDevice") return DeviceSearches::started(result, seqnum, {});
        Answer answer = resultOnly(result, seqnum, name);
        if (name == "SetServerInfo")
            answer.message = encoded([&](char* out, int size) {
                return veltoprotocol::GetSetServerInfoRespEncode(result, seqnum, out, size);
            });
        answer.decoded = ", result " + std::to_string(result);
        return answer;
    }

    Answer servers(unsigned int seqnum) const {
        const std::vector<veltoprotocol::__tagVtServerInfo> list = servers_.all();
        Answer answer;
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetServerInfoRespEncode(succeeded, seqnum, list.data(),
                                                          static_cast<int>(list.size()), out, size);
        });
        return answer;
    }

    const DeviceStore& devices() const { return devices_; }

  private:
    // "AddDevice" is to add a "Device"; a name that begins otherwise is nothing of that.
    static std::pair<Change, std::string> command(const std::string& name) {
        for (const auto& [change, start] :
             {std::pair(Change::add, "Add"), std::pair(Change::update, "Update"),
              std::pair(Change::remove, "Delete")})
            if (name.rfind(start, 0) == 0) return {change, name.substr(std::string(start).size())};
        return {Change::none, ""};
    }

    // `records` receives what was kept or deleted, for people.
    int change(const std::string& name, TiXmlElement* request, std::string& records) {
        if (name == "SetServerInfo") {
            TiXmlElement* const list = request->FirstChildElement("servers");
            return apply(servers_, readChange(list), readServers(list), records);
        }
        if (name == "SetSchedulesInfo") {
            TiXmlElement* const list = request->FirstChildElement("schedules");
            return apply(schedules_, readChange(list), readNamedSchedules(list), records);
        }
        const auto [change, kind] = command(name);
        if (kind == "Device") return changeDevices(change, request, records);
        if (kind == "Storage")
            return applyToChannels(storage_, change, readStorage(request, change), records);
        if (kind == "Schedule")
            return applyToChannels(channelSchedules_, change, readChannelSchedules(request, change), records);
        return apply(archives_, change, readArchives(request), records);
    }

    // Together with a device goes what its channels record.
    int changeDevices(Change change, TiXmlElement* request, std::string& records) {
        const std::optional<Inventory> wanted = readInventory(request, change);
        const int result = wanted ? devices_.apply(change, *wanted) : notWhole;
        if (result != succeeded) return result;
        for (const auto& device : wanted->devices)
            records += "; " + text(device.Guid) + (change == Change::remove ? "" : " " + describe(device));
        const auto there = [this](const std::string& channel) { return devices_.holdsChannel(channel); };
        storage_.keepOnly(there);
        channelSchedules_.keepOnly(there);
        return succeeded;
    }

    template <class Record>
    int applyToChannels(Store<Record>& store, Change change, const Records<Record>& wanted,
                        std::string& records) {
        const auto unknown = [&](const Record& record) {
            return !devices_.holdsChannel(text(record.ChannelGuid));
        };
        if (wanted && std::any_of(wanted->begin(), wanted->end(), unknown)) return noSuchThing;
        return apply(store, change, wanted, records);
    }

    template <class Record>
    static int apply(Store<Record>& store, Change change, const Records<Record>& wanted,
                     std::string& records) {
        const int result = wanted ? store.apply(change, *wanted) : notWhole;
        if (result != succeeded) return result;
        for (const Record& record : *wanted)
            records += "; " + store.keyOf(record) + (change == Change::remove ? "" : " " + describe(record));
        return succeeded;
    }

    std::string kept() const {
        return "kept: " + counted(devices_.devices(), "device") + ", " +
               counted(devices_.channels(), "channel") + ", " + counted(storage_.size(), "storage setting") +
               ", " + counted(channelSchedules_.size(), "channel schedule") + ", " +
               counted(schedules_.size(), "named schedule") + ", " + counted(archives_.size(), "archive") +
               ", " + counted(servers_.size(), "server");
    }

    template <class Record>
    static std::string channelOf(const Record& record) {
        return text(record.ChannelGuid);
    }
    template <class Record>
    static std::string guidOf(const Record& record) {
        return text(record.Guid);
    }

    static constexpr std::size_t most = 200; // so that a list still fits into a message
    DeviceStore devices_{sampleInventory()};
    Store<veltoprotocol::__tagVtStorageInfo> storage_{channelOf, most};
    Store<veltoprotocol::__tagVtChannelScheduleInfo> channelSchedules_{channelOf, most};
    Store<veltoprotocol::__tagVtSchedulesInfo> schedules_{guidOf, most};
    Store<veltoprotocol::__tagVtArchiveinfo> archives_{guidOf, most};
    Store<veltoprotocol::__tagVtServerInfo> servers_{guidOf, most};
};

} // namespace example

#endif
