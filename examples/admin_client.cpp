// A client of the example server: an administrator who searches for devices, adds devices, servers and what
// channels record, changes all of it and deletes it again.
//
//     admin_client --port N [--user U --password P] [--seed N] [--no-split] [--first-seqnum N] [--full]
//                  [--save FOLDER]
//
// Reads back what the protocol can read back, and compares it field by field; of the rest it checks what is
// done and what is refused. Ends with 0 if everything was as it should be. The seed also goes into the GUIDs,
// so that several clients at once, each with a seed of its own, do not get in each other's way. Needs two
// connections, and a server that others have left as it was: with all that its users may see. The arguments
// are those of exchange_client, but who logs in is an administrator.

#include "support/admin_comparison.h"
#include "support/administrator.h"
#include "support/arguments.h"
#include "support/conversation.h"
#include "support/device_list.h"
#include "support/recording_upkeep.h"
#include "support/sample_inventory.h"
#include "support/sample_site.h"
#include "support/search_check.h"
#include "support/server_list.h"
#include "support/transcript.h"
#include "support/user_check.h"

#include <LibVeltoProtocol.h>

#include <exception>
#include <iostream>
#include <string>
#include <utility>

namespace {

using example::Administrator;
using example::expect;
using example::Inventory;

// Somebody else on this machine: the same arguments, but for the name.
example::ClientOptions asOperator(example::ClientOptions options) {
    options.user = "operator";
    options.password = "correct horse";
    options.folder = "";
    return options;
}

class AdminClient {
  public:
    explicit AdminClient(const example::ClientOptions& options)
        : site_(options.seed),
          first_(site_.inventory(false)),
          changed_(site_.inventory(true)),
          admin_(options),
          other_(asOperator(options)) {}

    void run() {
        admin_.logIn();
        example::checkUser(admin_);
        beRefusedAsAnybody();
        takeTheWrongPath();
        example::SearchCheck(admin_).run();
        addDevices();
        example::RecordingUpkeep recording(admin_, site_);
        recording.keep();
        keepServers();
        deleteDevices();
        recording.isGone();
        admin_.logOut();
    }

  private:
    using Encode = int (*)(const veltoprotocol::__tagVtDeviceParam*, int,
                           const veltoprotocol::__tagVtChannelParam*, int, const char*, unsigned int, char*,
                           int);

    static auto request(Encode encode, Inventory list) {
        return [encode, list = std::move(list)](unsigned int seqnum, char* out, int size) {
            return encode(list.devices.data(), static_cast<int>(list.devices.size()), list.channels.data(),
                          static_cast<int>(list.channels.size()), example::host, seqnum, out, size);
        };
    }

    static auto add(const Inventory& list) { return request(veltoprotocol::GetAddDeviceReqEncode, list); }
    static auto update(const Inventory& list) {
        return request(veltoprotocol::GetUpdateDeviceReqEncode, list);
    }
    static auto remove(const Inventory& list) {
        return request(veltoprotocol::GetDeleteDeviceReqEncode, list);
    }

    // What goes to the path for management carries no token, so it is the connection that has to be the
    // administrator's. The one request with a token needs an administrator's token.
    void beRefusedAsAnybody() {
        other_.talk().title("A device is added where nobody has logged in");
        other_.beRefused("AddDevice", add(first_));
        other_.logIn();
        example::checkUser(other_);
        other_.talk().title("A device is added by who is no administrator");
        other_.beRefused("AddDevice", add(first_));
        const auto servers = example::serverRequests(other_);
        other_.talk().title("Servers are added by who is no administrator");
        other_.beRefused("SetServerInfo", servers.add(site_.servers(false)));
        other_.logOut();
    }

    void takeTheWrongPath() {
        admin_.talk().title("A device is added on the path for everybody");
        admin_.beRefusedElsewhere("AddDevice", add(first_));
        admin_.talk().title("Servers are asked for on the path for management");
        admin_.beRefusedElsewhere("GetServerInfo", example::askForServers(admin_));
    }

    void addDevices() {
        admin_.talk().title("Devices are changed before they are there");
        admin_.beRefused("UpdateDevice", update(changed_));
        admin_.talk().title("Devices are added");
        admin_.succeed("AddDevice", add(first_));
        readBack(first_);
        admin_.talk().title("Devices are added once more");
        admin_.beRefused("AddDevice", add(first_));
        admin_.talk().title("A device with fewer channels than it says");
        Inventory less = changed_;
        less.devices.front().ChannelCount = 4;
        admin_.beRefused("UpdateDevice", update(less));
        readBack(first_);
        admin_.talk().title("Devices are changed");
        admin_.succeed("UpdateDevice", update(changed_));
        readBack(changed_);
        example::checkUser(admin_, changed_.channels);
    }

    void keepServers() {
        const auto lookBack = [this](const auto& servers) { example::checkServers(admin_, site_, servers); };
        const auto requests = example::serverRequests(admin_);
        upkeep(admin_, "Servers", requests, site_.servers(false), site_.servers(true), lookBack);
        clearUp(admin_, "Servers", requests, site_.servers(true), lookBack);
        const auto nothing = example::setServers(admin_, veltoprotocol::VtDeviceReqGet);
        admin_.talk().title("Servers are set to nothing that can be done");
        admin_.beRefused(nothing.name, nothing(site_.servers(false)));
    }

    void deleteDevices() {
        admin_.talk().title("A device is deleted with some of its channels");
        Inventory some = changed_;
        some.channels.pop_back();
        admin_.beRefused("DeleteDevice", remove(some));
        readBack(changed_);
        admin_.talk().title("Devices are deleted");
        admin_.succeed("DeleteDevice", remove(changed_));
        readBack({});
        admin_.talk().title("Devices are deleted once more");
        admin_.beRefused("DeleteDevice", remove(changed_));
    }

    // Of the devices and channels that this client knows, these are there and no others.
    void readBack(const Inventory& wanted) {
        const auto answer = admin_.ask("GetAllDeviceList", [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetAllDeviceListReqEncode(example::host, admin_.token().c_str(), seqnum,
                                                            out, size);
        });
        expect(admin_.talk().resultOf(answer) == 0, "result 0");
        const example::DeviceList found = example::readDeviceList(answer.document());
        example::Comparison check;
        example::compareOwn(check, "device", wanted.devices, first_.devices, found.devices);
        example::compareOwn(check, "channel", wanted.channels, first_.channels, found.channels);
        admin_.talk().tell("compared: " + example::counted(check.fields(), "field") + " of " +
                           example::counted(wanted.devices.size(), "device") + " with " +
                           example::counted(wanted.channels.size(), "channel"));
    }

    const example::SampleSite site_;
    const Inventory first_;
    const Inventory changed_;
    Administrator admin_;
    Administrator other_; // who is none
};

} // namespace

int main(int argc, char** argv) {
    try {
        const example::User admin = example::sampleUsers().front();
        example::Arguments arguments(argc, argv);
        const example::ClientOptions options =
            example::readClientOptions(arguments, admin.name, admin.password);
        arguments.refuseTheRest();
        AdminClient(options).run();
        std::cout << "\nEverything was as it should be.\n";
        return 0;
    } catch (const std::exception& error) {
        std::cout << std::flush;
        std::cerr << "admin_client: " << error.what() << '\n';
        return 1;
    }
}
