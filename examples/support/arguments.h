// The command line of the example programs: "--name value" and "--flag" in any order.
#ifndef EXAMPLES_ARGUMENTS_H
#define EXAMPLES_ARGUMENTS_H

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <string>
#include <vector>

namespace example {

class Arguments {
  public:
    Arguments(int count, char** values) : left_(values + std::min(1, count), values + count) {}

    bool flag(const std::string& name) {
        const auto found = std::find(left_.begin(), left_.end(), name);
        if (found == left_.end()) return false;
        left_.erase(found);
        return true;
    }

    std::string text(const std::string& name, std::string fallback) {
        const auto found = std::find(left_.begin(), left_.end(), name);
        if (found == left_.end()) return fallback;
        if (found + 1 == left_.end()) throw std::invalid_argument(name + " needs a value");
        std::string value = *(found + 1);
        left_.erase(found, found + 2);
        return value;
    }

    // A decimal number from 0 to `largest`.
    unsigned int number(const std::string& name, unsigned int fallback, unsigned int largest) {
        const std::string value = text(name, std::to_string(fallback));
        unsigned int number = 0;
        const char* const end = value.data() + value.size();
        const auto read = std::from_chars(value.data(), end, number);
        if (read.ec != std::errc() || read.ptr != end || number > largest)
            throw std::invalid_argument(name + " needs a number up to " + std::to_string(largest));
        return number;
    }

    // To be called when everything known has been asked for.
    void refuseTheRest() const {
        if (!left_.empty()) throw std::invalid_argument("unknown argument " + left_.front());
    }

  private:
    std::vector<std::string> left_;
};

} // namespace example

#endif
