// Decode refuses elements that nest too deeply or carry too many attributes before the XML library's parser
// sees them. That is safe, and refuses nothing else, as long as the scan that decides it sees a text as the
// parser does: for every text both pass the same limit first, or none. What the parser passed is told by the
// tree that it leaves behind.
//
// Input: three bytes for what stands in front (a declaration, levels, attributes of a tag that is still
// open), then a text. Levels and attributes are near the limits, which a text of some hundred bytes never is.
#include "framing/parser_limits.h"
#include "fuzz/target.h"

namespace {

std::string front(Input& input) {
    static const char* const prologues[] = {"", R"(<?xml version="1.0" encoding="UTF-8" ?>)",
                                            R"(<?xml version="1.0" encoding="ISO-8859-1" ?>)",
                                            "\xEF\xBB\xBF"};
    const auto nearLimit = [&](unsigned byte) { return 124 + static_cast<int>(byte / 2 % 8); };
    std::string text = prologues[input.byte() % 4];
    const unsigned levels = input.byte(), attributes = input.byte();
    if (levels % 2) text += limits::levels(nearLimit(levels));
    if (attributes % 2) text += limits::tagWith(nearLimit(attributes));
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    std::string text = front(input);
    text += input.text();
    Exact ending(text, 4); // four NULs are what the scan asks for
    const char* const reason = veltoprotocol::exceededLimit(ending.data());
    requireSame("the limit that the scan says is passed", reason ? reason : limits::within,
                limits::parserSays(text));
    return 0;
}
