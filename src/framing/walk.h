// The way down a received document, one child at a time.
//
// Each step says what its absence means: required() prints a line and sets the error, expected() only
// prints, optional() is silent. After a failed step the rest of the way is silent.
#pragma once

#include "framing/diagnostics.h"
#include "framing/fields.h"

#include <tinyxml.h>

#include <cassert>

namespace veltoprotocol {

class Walk {
  public:
    // Sets the error to 0, or to -1 without a line if there is no document.
    Walk(TiXmlDocument* doc, int* error) : node_(doc), error_(error) { report(error, doc ? 0 : -1); }

    explicit operator bool() const { return node_ != nullptr; }
    TiXmlElement* element() const { return node_ ? node_->ToElement() : nullptr; }

    Walk required(const char* name) const { return step(name, true, -1); }
    Walk expected(const char* name) const { return step(name, true, 0); }
    Walk optional(const char* name) const { return step(name, false, 0); }

  private:
    static constexpr std::size_t deepest = 6; // the longest way of the protocol has four steps

    Walk step(const char* name, bool print, int code) const {
        Walk next = *this;
        if (!node_) return next;
        assert(depth_ < deepest);
        next.names_[next.depth_++] = name;
        next.node_ = name ? node_->FirstChildElement(name) : nullptr;
        if (next.node_) return next;
        if (print) missingPath(next.names_, next.depth_);
        if (code != 0) report(error_, code);
        return next;
    }

    TiXmlNode* node_;
    int* error_;
    const char* names_[deepest] = {};
    std::size_t depth_ = 0;
};

// The children of that name in their order, each read into its slot: at most as many as there are slots. What
// is beyond them is ignored, and slots without a child stay as they are.
template <class Entry, class Integer, class Read>
void fillFrom(TiXmlElement* parent, const char* name, Entry* slots, Integer count, const Read& read) {
    TiXmlElement* child = parent->FirstChildElement(name);
    for (Integer i = 0; child && i < count; ++i, child = child->NextSiblingElement(name))
        read(child, slots[i]);
}

} // namespace veltoprotocol
