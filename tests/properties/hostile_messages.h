// The messages that the tests of hostile input damage: one of each kind, whole and readable.
#pragma once

#include "properties/single_readers.h"

#include <cstddef>
#include <random>
#include <string>
#include <vector>

struct WholeMessage {
    std::string name;  // of the encoder
    std::string bytes; // with its head, if it has one
    std::string body;
};

// What each encoder writes; of several messages the longest that is not long.
const std::vector<WholeMessage>& wholeMessages();

// The XML among them, and what only other peers write.
const std::vector<std::string>& wholeDocuments();

// For each reader of an element one that it finds everything in, as a document of its own.
struct OwnElement {
    const ElementReader* reader;
    std::string xml;
};
const std::vector<OwnElement>& ownElements();

// Places of a text: all of the first `dense`, then one out of several from a place on that chance decides.
class Places {
  public:
    explicit Places(unsigned seed) : random_(seed) {}
    std::vector<std::size_t> of(std::size_t length, std::size_t dense);

  private:
    std::mt19937 random_;
};

// In builds for debugging, which the sanitizers' are, this part of what would take minutes there.
#ifdef NDEBUG
constexpr std::size_t oneOutOf = 1;
#else
constexpr std::size_t oneOutOf = 4;
#endif
