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

// Of the shapes of each encoder's messages that wholeMessages() has not, the shortest message each, unless it
// is long: refused ones, lists of none, of one and of several, elements that are there or not.
const std::vector<WholeMessage>& otherShapes();

// The XML among wholeMessages(), and what only other peers write.
const std::vector<std::string>& wholeDocuments();

// For each reader of an element one that it finds everything in, as a document of its own.
struct OwnElement {
    const ElementReader* reader;
    std::string xml;
};
const std::vector<OwnElement>& ownElements();

// Places of a text, where one out of several is meant from one on that chance decides.
class Places {
  public:
    explicit Places(unsigned seed) : random_(seed) {}
    std::vector<std::size_t> oneOf(std::size_t step, std::size_t length);
    // All of the first `dense`, then one out of 16; of either `oneOutOf`.
    std::vector<std::size_t> of(std::size_t length, std::size_t dense);

  private:
    std::mt19937 random_;
};

// In builds for debugging, which the sanitizers' are, this part of what would take minutes there; of what is
// tried at every place, the second. With other parts, chance decides otherwise than in a release build.
#ifdef NDEBUG
constexpr std::size_t oneOutOf = 1, onePlaceOutOf = 1;
#else
constexpr std::size_t oneOutOf = 4, onePlaceOutOf = 16;
#endif

// Of the places of one of otherShapes(), this part.
inline std::size_t partOf(const WholeMessage& shape) {
    return shape.bytes.size() <= 1000 ? onePlaceOutOf : 16 * onePlaceOutOf;
}
