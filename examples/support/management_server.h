// What the example server does with a request. It knows nothing of sockets: a whole message in, an answer
// out.
#ifndef EXAMPLES_MANAGEMENT_SERVER_H
#define EXAMPLES_MANAGEMENT_SERVER_H

#include "support/admin_server.h"
#include "support/answer.h"
#include "support/device_search.h"
#include "support/encoded.h"
#include "support/event_server.h"
#include "support/map_server.h"
#include "support/media_server.h"
#include "support/received_message.h"
#include "support/sample_inventory.h"
#include "support/sessions.h"
#include "support/user_server.h"
#include "support/view_server.h"

#include <LibVeltoProtocol.h>

#include <chrono>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace example {

// What the server keeps of a connection between two messages.
struct Visitor {
    unsigned int seed = 1;                    // for the order of events
    std::string token;                        // of the last login here
    std::optional<Subscription> subscription; // once events were asked for
    DeviceSearches searches;                  // that go on
};

class ManagementServer {
  public:
    // `mediaFolder` holds the clip and its snapshot; without it there are none. `eventsEvery` is the time
    // between events that come by themselves; 0 for events only around answers. `port` is where it listens.
    ManagementServer(const std::string& mediaFolder, std::chrono::milliseconds eventsEvery,
                     unsigned short port)
        : media_(mediaFolder), eventsEvery_(eventsEvery), admin_(port) {}

    // Nothing is returned for what is no command of the protocol: there is no answer then but to hang up.
    std::optional<Answer> answer(const ReceivedMessage& request, Visitor& visitor) {
        if (!isManaging(request) && request.uri() != "/servercommandservice") return {};
        if (request.isMedia()) return upload(request, visitor);
        int noName = 0;
        int noNumber = 0;
        const std::string name = veltoprotocol::GetRequestNameDecode(request.document(), &noName);
        const unsigned int seqnum = veltoprotocol::GetSeqnumberDecode(request.document(), &noNumber);
        if (noName != 0 || noNumber != 0) return {};
        Subscription* const before = subscriptionOf(visitor);
        std::vector<std::string> events = before ? before->beforeAnAnswer() : std::vector<std::string>();
        Answer answer = act(name, seqnum, request, visitor);
        answer.decoded = name + ", seqnum " + std::to_string(seqnum) + answer.decoded;
        answer.eventsBefore = std::move(events);
        // The request may have begun the subscription, or ended it.
        if (Subscription* const behind = subscriptionOf(visitor))
            answer.eventsBehind = behind->behindAnAnswer();
        return answer;
    }

    // How long it is until events come by themselves; nothing if none will.
    std::optional<std::chrono::milliseconds> untilEvents(Visitor& visitor) {
        Subscription* const subscription = subscriptionOf(visitor);
        return subscription ? subscription->untilEvents() : std::nullopt;
    }

    // The events that come by themselves, when it is time for them.
    std::vector<std::string> events(Visitor& visitor) {
        Subscription* const subscription = subscriptionOf(visitor);
        return subscription ? subscription->events() : std::vector<std::string>();
    }

  private:
    Answer act(const std::string& name, unsigned int seqnum, const ReceivedMessage& request,
               Visitor& visitor) {
        if (!known(name)) return resultOnly(unknownCommand, seqnum, name);
        if (AdminServer::manages(name) != isManaging(request))
            return AdminServer::answer(wrongPath, seqnum, name);
        if (name == "Login") return login(request, seqnum, visitor);
        if (name == "Heartbeat") return heartbeat(seqnum);
        if (name == "Logout") return logout(request, seqnum);
        if (name == "GetAllDeviceList" || name == "GetUserDeviceList")
            return deviceList(request, seqnum, name);
        if (AdminServer::manages(name)) return manage(name, seqnum, request, visitor);
        const User* const user = sessions_.find(tokenOf(request));
        if (!user) return resultOnly(notLoggedIn, seqnum, name);
        if (MediaServer::knows(name)) return media_.act(name, seqnum, request, devicesOf(*user));
        if (ViewServer::knows(name)) return views_.act(name, seqnum, request, user->guid);
        if (UserServer::knows(name)) return UserServer::act(name, seqnum, request, *user, devicesOf(*user));
        if (name == "GetServerInfo") return admin_.servers(seqnum);
        if (MapServer::knows(name)) return maps_.act(name, seqnum, request, user->guid);
        if (name == "SearchHistoryAlarm") return searchHistory(seqnum, request, devicesOf(*user).channels);
        return subscribe(*user, request, seqnum, visitor);
    }

    // There are two paths, and each command belongs on one of them.
    static bool isManaging(const ReceivedMessage& request) {
        return request.uri() == "/servercommandservice/manage";
    }

    static bool known(const std::string& name) {
        static const std::set<std::string> others = {
            "Login",         "Heartbeat",          "Logout",      "GetAllDeviceList", "GetUserDeviceList",
            "GetServerInfo", "SearchHistoryAlarm", "Notification"};
        return AdminServer::manages(name) || MediaServer::knows(name) || ViewServer::knows(name) ||
               MapServer::knows(name) || UserServer::knows(name) || others.count(name) != 0;
    }

    // These requests carry no token but for one, so what counts is who has logged in on their connection.
    Answer manage(const std::string& name, unsigned int seqnum, const ReceivedMessage& request,
                  Visitor& visitor) {
        const User* const user = sessions_.find(name == "SetServerInfo" ? tokenOf(request) : visitor.token);
        if (!user) return AdminServer::answer(notLoggedIn, seqnum, name);
        if (!user->administrator) return AdminServer::answer(notAllowed, seqnum, name);
        return admin_.manage(name, seqnum, request, visitor.searches);
    }

    Answer login(const ReceivedMessage& request, unsigned int seqnum, Visitor& visitor) {
        const User* const user = users_.find(request.credentials());
        const std::string token = user ? sessions_.begin(*user) : std::string();
        const int result = user ? succeeded : badCredentials;
        visitor.token = token;
        visitor.searches = {};
        Answer answer;
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetLoginRespEncode(result, token.c_str(), seqnum, out, size);
        });
        answer.close = !user;
        return answer;
    }

    // A heartbeat carries no token, so anybody may send one.
    static Answer heartbeat(unsigned int seqnum) {
        Answer answer;
        answer.message = encoded(
            [&](char* out, int size) { return veltoprotocol::GetHeartBeatRespEncode(seqnum, out, size); });
        return answer;
    }

    Answer logout(const ReceivedMessage& request, unsigned int seqnum) {
        const std::string token = tokenOf(request);
        const bool known = sessions_.find(token) != nullptr;
        sessions_.end(token);
        const int result = known ? succeeded : notLoggedIn;
        Answer answer;
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetLogoutRespEncode(result, seqnum, out, size);
        });
        answer.close = true;
        answer.loggedOut = known;
        return answer;
    }

    Answer deviceList(const ReceivedMessage& request, unsigned int seqnum, const std::string& name) {
        const User* const user = sessions_.find(tokenOf(request));
        if (!user) return resultOnly(notLoggedIn, seqnum, name);
        const Inventory list = name == "GetAllDeviceList" ? admin_.devices().all() : devicesOf(*user);
        Answer answer;
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetDeviceListRespEncode(
                succeeded, seqnum, list.devices.data(), static_cast<int>(list.devices.size()),
                list.channels.data(), static_cast<int>(list.channels.size()), out, size, name.c_str());
        });
        return answer;
    }

    // Events are about the channels that the user may see. Who subscribes again begins anew.
    Answer subscribe(const User& user, const ReceivedMessage& request, unsigned int seqnum,
                     Visitor& visitor) const {
        visitor.subscription.emplace(tokenOf(request), devicesOf(user).channels, visitor.seed, eventsEvery_);
        Answer answer;
        answer.message = encoded([&](char* out, int size) {
            return veltoprotocol::GetNotificationRespEncode(succeeded, seqnum, out, size);
        });
        return answer;
    }

    // A subscription ends with its session, wherever the user logs out.
    Subscription* subscriptionOf(Visitor& visitor) const {
        if (visitor.subscription && !sessions_.find(visitor.subscription->token()))
            visitor.subscription.reset();
        return visitor.subscription ? &*visitor.subscription : nullptr;
    }

    // The message carries no token, so what counts is who has logged in on its connection.
    Answer upload(const ReceivedMessage& request, const Visitor& visitor) const {
        Answer answer = isManaging(request)             ? resultOnly(wrongPath, 0, "UploadPicture")
                        : sessions_.find(visitor.token) ? media_.upload(request)
                                                        : resultOnly(notLoggedIn, 0, "UploadPicture");
        answer.decoded = "a picture";
        return answer;
    }

    // Empty, which is nobody's token, if the request carries none.
    static std::string tokenOf(const ReceivedMessage& request) {
        return veltoprotocol::GetTokenDecode(request.document(), nullptr);
    }

    // What the user may see.
    Inventory devicesOf(const User& user) const { return admin_.devices().of(user); }

    const UserServer users_;
    const MediaServer media_;
    const std::chrono::milliseconds eventsEvery_;
    AdminServer admin_;
    ViewServer views_;
    MapServer maps_;
    Sessions sessions_;
};

} // namespace example

#endif
