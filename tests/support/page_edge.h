// One place before a page that nobody may touch, for many inputs one after another.
#pragma once

#include "support/guarded_page.h"

#include <cstring>
#include <stdexcept>
#include <string_view>

class PageEdge {
  public:
    explicit PageEdge(std::size_t longest) : page_(longest) {}

    // A copy whose last byte is the last one that may be read. The one before it is lost.
    const char* place(std::string_view bytes) {
        if (bytes.size() > page_.size()) throw std::length_error("too long for this page");
        char* const start = page_.data() + page_.size() - bytes.size();
        if (!bytes.empty()) std::memcpy(start, bytes.data(), bytes.size());
        return start;
    }
    // The same with a NUL as the last byte.
    const char* placeText(std::string_view text) {
        char* const start = page_.data() + page_.size() - text.size() - 1;
        if (text.size() >= page_.size()) throw std::length_error("too long for this page");
        if (!text.empty()) std::memcpy(start, text.data(), text.size());
        start[text.size()] = '\0';
        return start;
    }

  private:
    GuardedPage page_;
};
