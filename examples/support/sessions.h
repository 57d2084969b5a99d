// Who is logged in at the example server.
#ifndef EXAMPLES_SESSIONS_H
#define EXAMPLES_SESSIONS_H

#include "support/sample_inventory.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace example {

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

} // namespace example

#endif
