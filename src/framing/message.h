// Encoders read as their message: guard, tree, and who it goes to.
//
//     const auto tree = [&](auto x) { x.value("ChannelGuid", channelGuid); };
//     return Request("ManualRecord", seqnum, Token{token}).post(commandPath, host, tree, out, size);
//
// The tree is run several times: for the longest that it could be, as a rule to count if that is more than
// there is room for, and to write. Arguments are therefore read more than once: a caller may share them
// between threads, but not change them during the call.
#pragma once

#include "framing/element.h"
#include "framing/http_assembly.h"

#ifdef VELTO_THROUGH_TREE
#include "framing/tree.h"
#endif

namespace veltoprotocol {

#ifdef VELTO_THROUGH_TREE
template <class Tree>
TreeElement filled(const Tree& tree, TreeElement command) {
    tree(command);
    return command;
}
#else
// A sink goes in and comes out by value, so that whoever holds it can keep it in registers.
template <class Tree, class Sink>
Sink filled(const Tree& tree, Sink sink) {
    tree(Element<Sink, 2>(sink));
    return sink;
}
#endif

// A tree, reduced to one function for each pass over it, so that the envelope is compiled once for all
// messages.
template <class Sink>
struct Pass {
    Sink (*run)(const void* tree, Sink);
};
template <class... Sinks>
class Passes {
  public:
    template <class Tree>
    explicit Passes(const Tree& tree) : tree_(&tree), passes_(passesOver<Tree>) {}

    template <class Sink>
    Sink operator()(Sink sink) const {
        return static_cast<const Pass<Sink>&>(passes_).run(tree_, sink);
    }

  private:
    struct All : Pass<Sinks>... {};

    template <class Tree, class Sink>
    static Sink run(const void* tree, Sink sink) {
        return filled(*static_cast<const Tree*>(tree), sink);
    }
    template <class Tree>
    static constexpr All passesOver = {Pass<Sinks>{run<Tree, Sinks>}...};

    const void* tree_;
    const All& passes_;
};

#ifdef VELTO_THROUGH_TREE
using Body = Passes<TreeElement>;
#else
using Body = Passes<Limits, Count, Write, WritePlain>;
#endif

// The session token of a request; a null text is an empty Token element.
struct Token {
    Text text;
};

// The name of a command. Those that stand in the sources as literals need no look for what XML escapes.
class CommandName {
  public:
    template <std::size_t N>
    CommandName(const char (&literal)[N]) : text_(literal, N - 1), isPlain_(true) {}
    template <class Pointer, class = std::enable_if_t<std::is_same_v<Pointer, const char*>>>
    CommandName(Pointer name) : text_(name) {} // of the caller's; may be null

    Text text() const { return text_; }
    bool isPlain() const { return isPlain_; }

  private:
    Text text_;
    bool isPlain_ = false;
};

struct Envelope {
    CommandName name;
    unsigned int seqnum;
    bool request;
    bool carriesToken;
    Token token;
    int counter;       // attribute Counter of the command element, if above 0
    const char* trace; // the XML is printed with these words; null for no print
    Text tail;         // bytes behind the XML
};

// Length of the XML alone.
std::size_t xmlLength(const Envelope& envelope, const Body& body);

// The caller-buffer rule for every XML message: nothing is written unless all of it fits. Allocates nothing,
// but for a printed line above some 2,000 bytes.
int send(const Envelope& envelope, const Head& head, const Body& body, char* out, int size);

class Request {
  public:
    Request(CommandName name, unsigned int seqnum)
        : envelope_{name, seqnum, true, false, {}, 0, nullptr, {}} {}
    Request(CommandName name, unsigned int seqnum, Token token)
        : envelope_{name, seqnum, true, true, token, 0, nullptr, {}} {}

    // A second attribute of the command element.
    Request counter(int count) const {
        Request request = *this;
        request.envelope_.counter = count;
        return request;
    }
    // Prints the XML, also when the message then does not fit.
    Request printedAs(const char* trace) const {
        Request request = *this;
        request.envelope_.trace = trace;
        return request;
    }

    template <class Tree>
    int post(Text path, Text host, const Tree& tree, char* out, int size, Text connection = keepAlive) const {
        return post(Head::request(path, host, connection), tree, out, size);
    }
    template <class Tree>
    int post(const Head& head, const Tree& tree, char* out, int size) const {
        return send(envelope_, head, Body(tree), out, size);
    }

  private:
    Envelope envelope_;
};

class Response {
  public:
    Response(CommandName name, unsigned int seqnum)
        : envelope_{name, seqnum, false, false, {}, 0, nullptr, {}} {}

    // Prints the XML, also when the message then does not fit.
    Response printedAs(const char* trace) const {
        Response response = *this;
        response.envelope_.trace = trace;
        return response;
    }
    // The body goes on with these bytes, right behind the XML.
    Response followedBy(Text bytes) const {
        Response response = *this;
        response.envelope_.tail = bytes;
        return response;
    }
    template <class Tree>
    std::size_t xmlLength(const Tree& tree) const {
        return veltoprotocol::xmlLength(envelope_, Body(tree));
    }

    template <class Tree>
    int reply(const Tree& tree, char* out, int size) const {
        return reply(usualAnswer, tree, out, size);
    }
    template <class Tree>
    int reply(const Tree& tree, char* out, int size, Text connection) const {
        return reply(Head::response(connection), tree, out, size);
    }
    template <class Tree>
    int reply(const Head& head, const Tree& tree, char* out, int size) const {
        return send(envelope_, head, Body(tree), out, size);
    }

  private:
    Envelope envelope_;
};

// A command element without parameters.
struct Empty {
    template <class X>
    void operator()(X) const {}
};

} // namespace veltoprotocol
