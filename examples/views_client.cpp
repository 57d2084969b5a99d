// A client of the example server: stores a view group and fetches it back, puts another one in its place, and
// does the same with electronic maps.
//
//     views_client --port N [--user U --password P] [--seed N] [--no-split] [--first-seqnum N] [--full]
//                  [--save FOLDER]
//
// Compares what comes back with what was stored, field by field, and shows the layout as a tree; ends with 0
// if everything was as it should be. The seed also names the view group, so that several clients of one user
// do not get in each other's way. The arguments are those of exchange_client.

#include "support/arguments.h"
#include "support/client_connection.h"
#include "support/comparison.h"
#include "support/conversation.h"
#include "support/encoded.h"
#include "support/layout_comparison.h"
#include "support/layout_tree.h"
#include "support/maps.h"
#include "support/received_message.h"
#include "support/sample_inventory.h"
#include "support/sample_layout.h"
#include "support/sample_maps.h"
#include "support/text_fields.h"
#include "support/transcript.h"
#include "support/view_groups.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace {

using example::expect;

class ViewsClient {
  public:
    explicit ViewsClient(example::ClientOptions options)
        : talk_(std::move(options)),
          connection_(talk_.options().port),
          user_(example::userGuid(talk_.options().user)),
          viewGroup_(example::guid('f', static_cast<int>(talk_.options().seed % 1000000000))) {}

    void run() {
        token_ = talk_.logIn(connection_);
        askForNothing();
        example::SampleLayout first = example::sampleLayout(viewGroup_, user_);
        store("A view group is stored", first);
        findInCatalogue(first);
        fetchBack(first);
        example::SampleLayout second = example::otherLayout(viewGroup_, user_);
        store("Another one takes its place", second);
        findInCatalogue(second);
        fetchBack(second);
        storeMaps();
        fetchMaps();
        talk_.logOut(connection_, token_);
    }

  private:
    // `encoder` is called with sequence number, buffer and size.
    template <class Encoder>
    example::ReceivedMessage ask(const char* name, Encoder encoder) {
        const unsigned int seqnum = talk_.nextSeqnum();
        const std::string request =
            example::encoded([&](char* out, int size) { return encoder(seqnum, out, size); });
        return talk_.exchange(connection_, request, name, seqnum);
    }

    void expectSuccess(const example::ReceivedMessage& answer) {
        expect(talk_.resultOf(answer) == 0, "result 0");
    }

    example::ReceivedMessage askForLayout(const std::string& viewGroup) {
        return ask("GetViewGroupData", [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetViewGroupDataReqEncode(example::host, token_.c_str(), seqnum,
                                                            viewGroup.c_str(), out, size);
        });
    }

    void askForNothing() {
        talk_.title("A view group that nobody has");
        const example::ReceivedMessage answer = askForLayout(example::guid('f', 1999999999));
        expect(talk_.resultOf(answer) != 0, "a result other than 0 for an unknown view group");
    }

    void store(const char* title, example::SampleLayout& layout) {
        talk_.title(title);
        const veltoprotocol::__tagVtViewGroupData data = layout.data();
        expectSuccess(ask("SetViewGroupData", [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetSetViewGroupDataReqEncode(example::host, token_.c_str(), seqnum,
                                                               &layout.info, &data, out, size);
        }));
    }

    // There may be others of the same user in it, but the one that was stored is there once.
    void findInCatalogue(const example::SampleLayout& layout) {
        talk_.title("The catalogue");
        const auto answer = ask("GetViewGroups", [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetViewGroupsReqEncode(example::host, token_.c_str(), seqnum, user_.c_str(),
                                                         out, size);
        });
        expectSuccess(answer);
        const auto catalogue = example::readCatalogue(answer.document());
        const auto isIt = [&](const auto& entry) { return example::text(entry.ViewGroupGuid) == viewGroup_; };
        expect(std::count_if(catalogue.begin(), catalogue.end(), isIt) == 1, "one entry for the view group");
        expect(std::all_of(catalogue.begin(), catalogue.end(),
                           [&](const auto& entry) { return example::text(entry.UserGuid) == user_; }),
               "the user's own view groups");
        example::Comparison check;
        compare(check, "entry", layout.info, *std::find_if(catalogue.begin(), catalogue.end(), isIt));
        talk_.tell("compared: " + example::counted(check.fields(), "field") + " of the entry " +
                   example::printable(example::text(layout.info.Name)));
    }

    void fetchBack(example::SampleLayout& layout) {
        talk_.title("The view group comes back");
        const example::ReceivedMessage answer = askForLayout(viewGroup_);
        expectSuccess(answer);
        const example::FetchedLayout fetched(answer.document());
        example::Comparison check;
        compare(check, "head", layout.info, fetched.info());
        compare(check, layout.data(), fetched.data());
        talk_.tell("compared: " + example::counted(check.fields(), "field") + " of head and layout");
        talk_.tell("view group " + example::printable(example::text(fetched.info().Name)) +
                   (fetched.info().ReadOnly ? ", read only" : ""));
        example::LayoutTree(fetched.data(), [&](const std::string& line) { talk_.tell(line); }).show();
    }

    void storeMaps() {
        talk_.title("Electronic maps are stored");
        example::SampleMaps maps(user_);
        const veltoprotocol::__tagVtUserEMapInfo record = maps.record();
        expectSuccess(ask("SetEMapInfo", [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetSetEMapInfoReqEncode(&record, example::host, token_.c_str(), seqnum, out,
                                                          size);
        }));
    }

    void fetchMaps() {
        talk_.title("The maps come back");
        example::SampleMaps maps(user_);
        const veltoprotocol::__tagVtUserEMapInfo wanted = maps.record();
        const auto answer = ask("GetEMapInfo", [&](unsigned int seqnum, char* out, int size) {
            return veltoprotocol::GetEMapInfoReqEncode(example::host, token_.c_str(), seqnum, &wanted, out,
                                                       size);
        });
        expectSuccess(answer);
        int error = -1;
        const example::Maps found(veltoprotocol::GetEMapInfoRespDecode(answer.document(), &error));
        expect(error == 0 && found && example::isWhole(*found), "maps and items as many as it says");
        example::Comparison check;
        compare(check, wanted, *found);
        talk_.tell("compared: " + example::counted(check.fields(), "field") + " of the maps");
        for (int i = 0; i < found->EMapInfoCount; ++i) show(found->EMapInfos[i], *found);
    }

    void show(const veltoprotocol::__tagVtEMapInfo& map, const veltoprotocol::__tagVtUserEMapInfo& all) {
        talk_.tell("  map " + example::printable(example::text(map.MapName)));
        for (int i = 0; i < all.EMapItemCount; ++i) {
            const veltoprotocol::__tagVtEMapItemParam& item = all.EMapItems[i];
            if (example::text(item.MapInfoGuid) != example::text(map.MapInfoGuid)) continue;
            talk_.tell("    " +
                       example::printable(example::text(item.DisplayName) + " at " +
                                          example::text(item.PosX) + " / " + example::text(item.PosY)));
        }
    }

    example::Conversation talk_;
    example::ClientConnection connection_;
    const std::string user_;
    const std::string viewGroup_;
    std::string token_;
};

} // namespace

int main(int argc, char** argv) {
    try {
        example::Arguments arguments(argc, argv);
        example::ClientOptions options = example::readClientOptions(arguments);
        arguments.refuseTheRest();
        ViewsClient(std::move(options)).run();
        std::cout << "\nEverything was as it should be.\n";
        return 0;
    } catch (const std::exception& error) {
        std::cout << std::flush;
        std::cerr << "views_client: " << error.what() << '\n';
        return 1;
    }
}
