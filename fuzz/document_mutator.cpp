// Changes documents where they are documents: repeats, removes, nests and multiplies whole pieces between
// angle brackets, puts oddities where the parser meets them (tests/framing/random_documents.h), and leaves
// every second change to the fuzzer's own hand. Bytes alone would hardly ever reach a limit of 128, nor keep
// a tag and its end tag together.
#include "framing/random_documents.h"
#include "fuzz/spelling.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned seed);

namespace {

class Change {
  public:
    Change(std::string text, unsigned seed) : text_(std::move(text)), random_(seed) {}

    std::string made() {
        switch (below(10)) {
        case 0: // a piece again, right behind itself, so often that a limit may be passed
            insert(pieceEnd_, repeated(piece(), 1 + below(below(8) ? 3 : 140)));
            break;
        case 1:
            piece();
            text_.erase(pieceStart_, pieceEnd_ - pieceStart_);
            break;
        case 2: { // a piece somewhere else
            const std::string copy = piece();
            insert(mark(), copy);
            break;
        }
        case 3: { // a piece inside more elements
            const unsigned levels = 1 + below(below(8) ? 3 : 140);
            piece();
            insert(pieceEnd_, repeated("</a>", levels));
            insert(pieceStart_, repeated("<a>", levels));
            break;
        }
        case 4: { // more attributes
            std::string more;
            for (unsigned i = 1 + below(below(8) ? 3 : 140); i > 0; --i)
                more += " b" + std::to_string(i) + "=\"" + std::to_string(below(1000)) + '"';
            insert(inTag(), more);
            break;
        }
        case 5: // odd attributes
            insert(inTag(), odd().attributes());
            break;
        case 6: // odd content
            insert(behindTag(), odd().content(2));
            break;
        case 7: // anything anywhere
            insert(below(text_.size() + 1), odd().soup(3));
            break;
        case 8: // what a value or a text is spelt with
            insert(inValue(), spelt());
            break;
        default: // a tag's name at its end too
            insert(pieceEnd_, "</" + name(piece()) + ">");
        }
        return text_;
    }

  private:
    unsigned below(std::size_t bound) { return static_cast<unsigned>(random_() % bound); }

    // An angle bracket that opens, or the end.
    std::size_t mark() {
        const std::size_t from = below(text_.size() + 1);
        return std::min(text_.find('<', from), text_.size());
    }
    // From one of them to another one behind it.
    std::string piece() {
        pieceStart_ = mark();
        pieceEnd_ = pieceStart_;
        for (unsigned i = 1 + below(4); i > 0 && pieceEnd_ < text_.size(); --i)
            pieceEnd_ = std::min(text_.find('<', pieceEnd_ + 1), text_.size());
        return text_.substr(pieceStart_, pieceEnd_ - pieceStart_);
    }
    // Behind a tag's name, and behind a tag.
    std::size_t inTag() { return std::min(text_.find_first_of(" />", mark() + 1), text_.size()); }
    std::size_t behindTag() {
        const std::size_t end = text_.find('>', mark());
        return end == std::string::npos ? text_.size() : end + 1;
    }
    // Behind a quote or a tag.
    std::size_t inValue() {
        const std::size_t from = below(text_.size() + 1);
        const std::size_t before = text_.find_first_of("\"'>", from);
        return before == std::string::npos ? text_.size() : before + 1;
    }
    std::string spelt() {
        std::string text;
        for (unsigned i = 1 + below(4); i > 0; --i) text += spelling::piece(below(256));
        return text;
    }
    static limits::RandomDocuments& odd() {
        static limits::RandomDocuments documents(1);
        return documents;
    }
    static std::string name(const std::string& tag) {
        return tag.empty() ? tag : tag.substr(1, tag.find_first_of(" />", 1) - 1);
    }
    static std::string repeated(const std::string& text, unsigned times) {
        std::string all;
        while (times-- > 0) all += text;
        return all;
    }
    void insert(std::size_t at, const std::string& more) { text_.insert(std::min(at, text_.size()), more); }

    std::string text_;
    std::minstd_rand random_;
    std::size_t pieceStart_ = 0, pieceEnd_ = 0;
};

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned seed) {
    if (seed % 2 == 0 || size < 4) return LLVMFuzzerMutate(data, size, most);
    const std::string text = Change({reinterpret_cast<const char*>(data), size}, seed / 2).made();
    const std::size_t length = std::min(text.size(), most);
    std::memcpy(data, text.data(), length);
    return length;
}
