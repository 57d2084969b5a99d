// Searches for devices on the network: what is found, what is not, and how a search ends.
#ifndef EXAMPLES_SEARCH_CHECK_H
#define EXAMPLES_SEARCH_CHECK_H

#include "support/admin_comparison.h"
#include "support/administrator.h"
#include "support/conversation.h"
#include "support/device_search.h"
#include "support/text_fields.h"
#include "support/transcript.h"
#include "support/view_groups.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <cstddef>
#include <vector>

namespace example {

class SearchCheck {
  public:
    explicit SearchCheck(Administrator& admin) : admin_(admin) {}

    void run() {
        const std::vector<veltoprotocol::__tagVtDeviceNetParam> network = networkDevices();
        admin_.talk().title("A search for a vendor that nobody knows");
        expect(!find(99, 1), "no device of that vendor");
        admin_.talk().title("A search for the vendor of a new device");
        expect(find(2, 0), "a device");
        check(network[0]);
        admin_.talk().title("A search for a device that stands in another network");
        expect(!find(3, 0), "no device in the server's own network");
        admin_.talk().title("The same search in several networks");
        expect(find(3, 1), "a device in another network");
        check(network[1]);
        end();
    }

  private:
    auto stop(unsigned int search) const {
        return [search](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetStopSearchDeviceReqEncode(search, host, seqnum, out, size);
        };
    }

    void end() {
        admin_.talk().title("The searches end");
        for (const std::size_t search : {1U, 3U, 0U, 2U})
            admin_.succeed("StopSearchDevice", stop(searches_[search]));
        admin_.talk().title("The end of a search that has ended, and of one that never began");
        admin_.beRefused("StopSearchDevice", stop(searches_[1]));
        admin_.beRefused("StopSearchDevice", stop(searches_[0] - 1));
    }

    // Whether there is a device of that vendor; it is in found_ then.
    bool find(int vendor, int multiNet) {
        veltoprotocol::__tagVtDeviceParam wanted = {};
        wanted.VenderType = vendor;
        unsigned int number = 0;
        const auto answer = admin_.ask("StartSearchDevice", [&](unsigned int seqnum, char* out, int size) {
            number = seqnum;
            return veltoprotocol::GetStartSearchDeviceReqEncode(&wanted, multiNet, host, seqnum, out, size);
        });
        searches_.push_back(number);
        expect(admin_.talk().resultOf(answer) == 0, "result 0");
        TiXmlElement* const response = responseOf(answer.document());
        bool has = false;
        expect(veltoprotocol::GetBoolValue(response, "response", "HasDevice", &has) == 0, "HasDevice");
        int error = 0;
        found_ = veltoprotocol::GetDeviceNetParamDecode(response->FirstChildElement("DeviceNet"), &error);
        expect(has == (error == 0), "a device if it says so, and none if not");
        return has;
    }

    void check(const veltoprotocol::__tagVtDeviceNetParam& wanted) {
        Comparison check;
        compare(check, "found device", wanted, found_);
        admin_.talk().tell("compared: " + counted(check.fields(), "field") + " of the device " +
                           printable(text(found_.DisplayName)));
    }

    Administrator& admin_;
    std::vector<unsigned int> searches_; // by their sequence numbers
    veltoprotocol::__tagVtDeviceNetParam found_ = {};
};

} // namespace example

#endif
