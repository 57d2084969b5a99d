// What the example server does with a request. It knows nothing of sockets: a whole message in, an answer
// out.
#ifndef EXAMPLES_MANAGEMENT_SERVER_H
#define EXAMPLES_MANAGEMENT_SERVER_H

#include "support/answer.h"
#include "support/encoded.h"
#include "support/media_server.h"
#include "support/received_message.h"
#include "support/sample_inventory.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace example {

// What the server keeps of a connection between two messages.
struct Visitor {
    std::string token; // of the last login here
};

// The users who are logged in, by their tokens. A token outlives its connection, until the logout.
class Sessions {
  public:
    std::string begin(const User& user) {
        constexpr std::size_t most = 100;
        if (order_.size() == most) end(std::string(order_.front()));
        order_.push_back(newToken());
        users_[order_.back()] = &user;
        return order_.back();
    }

    const User* find(const std::string& token) const {
        const auto found = users_.find(token);
        return found == users_.end() ? nullptr : found->second;
    }

    void end(const std::string& token) {
        users_.erase(token);
        order_.erase(std::remove(order_.begin(), order_.end(), token), order_.end());
    }

  private:
    static std::string newToken() {
        std::random_device random; // not guessable
        std::string token;
        for (int i = 0; i < 4; ++i) {
            char digits[9];
            std::snprintf(digits, sizeof digits, "%08x", random());
            token += digits;
        }
        return token;
    }

    std::map<std::string, const User*> users_;
    std::vector<std::string> order_; // the oldest first
};

class ManagementServer {
  public:
    // `mediaFolder` holds the clip and its snapshot; without it there are none.
    explicit ManagementServer(const std::string& mediaFolder) : media_(mediaFolder) {}

    // Nothing is returned for what is no command of the protocol: there is no answer then but to hang up.
    std::optional<Answer> answer(const ReceivedMessage& request, Visitor& visitor) {
        if (request.uri() != "/servercommandservice") return {};
        if (request.isMedia()) return upload(request, visitor);
        int noName = 0;
        int noNumber = 0;
        const std::string name = veltoprotocol::GetRequestNameDecode(request.document(), &noName);
        const unsigned int seqnum = veltoprotocol::GetSeqnumberDecode(request.document(), &noNumber);
        if (noName != 0 || noNumber != 0) return {};
        Answer answer = act(name, seqnum, request, visitor);
        answer.decoded = name + ", seqnum " + std::to_string(seqnum) + answer.decoded;
        return answer;
    }

  private:
    Answer act(const std::string& name, unsigned int seqnum, const ReceivedMessage& request,
               Visitor& visitor) {
        if (name == "Login") return login(request, seqnum, visitor);
        if (name == "Heartbeat") return heartbeat(seqnum);
        if (name == "Logout") return logout(request, seqnum);
        if (name == "GetAllDeviceList" || name == "GetUserDeviceList")
            return deviceList(request, seqnum, name);
        if (MediaServer::knows(name)) return media(request, seqnum, name);
        return resultOnly(unknownCommand, seqnum, name);
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

    Answer media(const ReceivedMessage& request, unsigned int seqnum, const std::string& name) const {
        const User* const user = sessions_.find(tokenOf(request));
        if (!user) return resultOnly(notLoggedIn, seqnum, name);
        return media_.act(name, seqnum, request, devicesOf(*user));
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
    Sessions sessions_;
};

} // namespace example

#endif
