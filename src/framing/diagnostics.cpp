#include "framing/diagnostics.h"

#include "framing/text.h"

#include <cstdio>
#include <cstring>
#include <memory>

namespace veltoprotocol {
namespace {

// Puts the pieces together and writes them by one call; lines of ordinary length need no allocation.
void line(const Text* pieces, std::size_t count) {
    std::size_t length = 1;
    for (std::size_t i = 0; i < count; ++i) length += pieces[i].size;

    char shortLine[2048];
    std::unique_ptr<char[]> longLine;
    char* const start =
        length <= sizeof shortLine ? shortLine : (longLine.reset(new char[length]), longLine.get());
    char* end = start;
    for (std::size_t i = 0; i < count; ++i) {
        if (pieces[i].size > 0) std::memcpy(end, pieces[i].data, pieces[i].size);
        end += pieces[i].size;
    }
    *end = '\n';
    std::fwrite(start, 1, length, stdout);
}

void line(std::initializer_list<Text> pieces) { line(pieces.begin(), pieces.size()); }

} // namespace

void missingElement(const char* label, const char* name) {
    line({"xml file -..-", label, "-", name, " element not find!"});
}

void tooLongElement(const char* label, const char* name) {
    line({"xml file -..-", label, "-", name, " element too long!"});
}

void missingAttribute(const char* label, const char* name) {
    line({"xml file -..-", label, "(", name, ") element not find!"});
}

void tooLongAttribute(const char* label, const char* name) {
    line({"xml file -..-", label, "(", name, ") element too long!"});
}

void missingPath(const char* const* names, std::size_t count) {
    // The deepest line of the protocol names four elements.
    constexpr std::size_t deepest = 8;
    Text pieces[2 * deepest + 1];
    std::size_t used = 0;
    pieces[used++] = "xml file ";
    for (std::size_t i = 0; i < count && i < deepest; ++i) {
        if (i > 0) pieces[used++] = "-";
        pieces[used++] = names[i];
    }
    pieces[used++] = " element not find!";
    line(pieces, used);
}

void missingCommandName(const char* kind) {
    line({"xml file servercommandservice-", kind, "(name) element not find!"});
}

void unreadable(const char* reason) {
    line({"receive xml file format error TiXmlDocument can not Parse,ErrorMsg:", reason});
}

void unprintable() { line({"TiXmlDocument::Accept error, check the TiXmlDocument(doc)"}); }

void missingUri() { line({"not found http uri!"}); }

RenderedLine::RenderedLine(const char* trace, std::size_t xmlLength) {
    static constexpr Text before{" xml str:[", 10};
    static constexpr Text after{"]\n", 2};
    const std::size_t traceLength = std::strlen(trace);
    length_ = traceLength + before.size + xmlLength + after.size;
    if (length_ > sizeof short_) long_.reset(new char[length_]);
    start_ = long_ ? long_.get() : short_;
    std::memcpy(start_, trace, traceLength);
    std::memcpy(start_ + traceLength, before.data, before.size);
    xml_ = start_ + traceLength + before.size;
    std::memcpy(xml_ + xmlLength, after.data, after.size);
}

void RenderedLine::print() const { std::fwrite(start_, 1, length_, stdout); }

} // namespace veltoprotocol
