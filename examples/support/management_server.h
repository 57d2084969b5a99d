// What the example server does with a request. It knows nothing of sockets: a whole message in, an answer
// out.
#ifndef EXAMPLES_MANAGEMENT_SERVER_H
#define EXAMPLES_MANAGEMENT_SERVER_H

#include "support/answer.h"
#include "support/encoded.h"
#include "support/event_server.h"
#include "support/map_server.h"
#include "support/media_server.h"
#include "support/received_message.h"
#include "support/sample_inventory.h"
#include "support/sessions.h"
#include "support/view_server.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace example {

// What the server keeps of a connection between two messages.
struct Visitor {
    unsigned int seed = 1;                    // for the order of events
    std::string token;                        // of the last login here
    std::optional<Subscription> subscription; // once events were asked for
};

class ManagementServer {
  public:
    // `mediaFolder` holds the clip and its snapshot; without it there are none. `eventsEvery` is the time
    // between events that come by themselves; 0 for events only around answers.
    ManagementServer(const std::string& mediaFolder, std::chrono::milliseconds eventsEvery)
        : media_(mediaFolder), eventsEvery_(eventsEvery) {}

    // Nothing is returned for what is no command of the protocol: there is no answer then but to hang up.
    std::optional<Answer> answer(const ReceivedMessage& request, Visitor& visitor) {
        if (request.uri() != "/servercommandservice") return {};
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
        if (name == "Login") return login(request, seqnum, visitor);
        if (name == "Heartbeat") return heartbeat(seqnum);
        if (name == "Logout") return logout(request, seqnum);
        if (name == "GetAllDeviceList" || name == "GetUserDeviceList")
            return deviceList(request, seqnum, name);
        if (!known(name)) return resultOnly(unknownCommand, seqnum, name);
        const User* const user = sessions_.find(tokenOf(request));
        if (!user) return resultOnly(notLoggedIn, seqnum, name);
        if (MediaServer::knows(name)) return media_.act(name, seqnum, request, devicesOf(*user));
        if (ViewServer::knows(name)) return views_.act(name, seqnum, request, user->guid);
        if (MapServer::knows(name)) return maps_.act(name, seqnum, request, user->guid);
        if (name == "SearchHistoryAlarm") return searchHistory(seqnum, request, devicesOf(*user).channels);
        return subscribe(*user, request, seqnum, visitor);
    }

    static bool known(const std::string& name) {
        return MediaServer::knows(name) || ViewServer::knows(name) || MapServer::knows(name) ||
               name == "SearchHistoryAlarm" || name == "Notification";
    }

    Answer login(const ReceivedMessage& request, unsigned int seqnum, Visitor& visitor) {
        const User* const user = findUser(request.credentials());
        const std::string token = user ? sessions_.begin(*user) : std::string();
        const int result = user ? succeeded : badCredentials;
        visitor.token = token;
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
        const Inventory list = name == "GetAllDeviceList" ? inventory_ : devicesOf(*user);
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
        Answer answer = sessions_.find(visitor.token) ? media_.upload(request)
                                                      : resultOnly(notLoggedIn, 0, "UploadPicture");
        answer.decoded = "a picture";
        return answer;
    }

    // Empty, which is nobody's token, if the request carries none.
    static std::string tokenOf(const ReceivedMessage& request) {
        return veltoprotocol::GetTokenDecode(request.document(), nullptr);
    }

    const User* findUser(const std::string& credentials) const {
        const std::size_t colon = credentials.find(':');
        if (colon == std::string::npos) return nullptr;
        const auto found = std::find_if(users_.begin(), users_.end(), [&](const User& user) {
            return user.name == credentials.substr(0, colon) &&
                   user.password == credentials.substr(colon + 1);
        });
        return found == users_.end() ? nullptr : &*found;
    }

    Inventory devicesOf(const User& user) const {
        const auto allowed = [&](const std::string& device) {
            return std::find(user.devices.begin(), user.devices.end(), device) != user.devices.end();
        };
        Inventory list;
        for (const auto& device : inventory_.devices)
            if (allowed(text(device.Guid))) list.devices.push_back(device);
        for (const auto& channel : inventory_.channels)
            if (allowed(text(channel.DeviceGuid))) list.channels.push_back(channel);
        return list;
    }

    const std::vector<User> users_ = sampleUsers();
    const Inventory inventory_ = sampleInventory();
    const MediaServer media_;
    const std::chrono::milliseconds eventsEvery_;
    ViewServer views_;
    MapServer maps_;
    Sessions sessions_;
};

} // namespace example

#endif
