#include "framing/message.h"

#include "framing/diagnostics.h"
#include "veltoprotocol/framing.h"

#include <climits>

#ifdef VELTO_THROUGH_TREE
#include <memory>
#endif

namespace veltoprotocol {

#ifdef VELTO_THROUGH_TREE

namespace {

// The reference that the tests compare with: the envelope steps one after another, over the XML library's
// tree and through its printer.
std::string xmlOf(const Envelope& envelope, const Body& body) {
    const auto text = [](Text from) { return std::string(from.data ? from.data : "", from.size); };
    const std::unique_ptr<TiXmlDocument> doc(XmlHeaderEncode());
    auto* const root = new TiXmlElement("servercommandservice");
    doc->LinkEndChild(root);
    GetVeltoHeaderEncode(root, envelope.seqnum);
    if (envelope.carriesToken) {
        const Text token = envelope.token.text;
        SetStringValue(root, "Token", token.absent() ? nullptr : text(token).c_str());
    }
    TiXmlElement* const command =
        SetStringValueAtt(root, envelope.request ? "request" : "response",
                          envelope.name.text().absent() ? nullptr : text(envelope.name.text()).c_str());
    if (envelope.counter > 0) command->SetAttribute("Counter", ItoString(envelope.counter).c_str());
    body(TreeElement(command));
    return GetXmlEncode(doc.get());
}

} // namespace

std::size_t xmlLength(const Envelope& envelope, const Body& body) { return xmlOf(envelope, body).size(); }

int send(const Envelope& envelope, const Head& head, const Body& body, char* out, int size) {
    if (!usable(head, out, size)) return -1;
    const std::string xml = xmlOf(envelope, body);
    if (envelope.trace) {
        RenderedLine line(envelope.trace, xml.size());
        std::memcpy(line.xml(), xml.data(), xml.size());
        line.print();
    }
    return assemble(head, {Text{xml.data(), xml.size()}, envelope.tail}, out, size);
}

#else

namespace {

// The command element, and the root's end. `opening` ends with the quote of the name.
template <class Sink, std::size_t Opening, std::size_t Closing>
VELTO_INLINE Sink command(Sink to, const char (&opening)[Opening], const char (&closing)[Closing],
                          const Envelope& envelope, const Body& body) {
    to.literal(opening);
    if (envelope.name.isPlain()) {
        to.raw(envelope.name.text());
        to.literal("\"");
    } else if (envelope.name.text().absent()) {
        to.retract(sizeof " name=\"" - 1);
    } else {
        to.quoted(envelope.name.text());
    }
    if (envelope.counter > 0) {
        to.literal(" Counter=\"");
        to.quoted(shown(envelope.counter));
    }
    to.literal(">\n");
    const auto before = to.mark();
    to = body(to);
    if (to.mark() != before) {
        to.literal(closing);
    } else { // nothing came
        to.retract(sizeof ">\n" - 1);
        to.literal(" />\n</servercommandservice>\n");
    }
    return to;
}

// The envelope in long literals: in a short message it is most of the work.
template <class Sink>
Sink document(Sink to, const Envelope& envelope, const Body& body) {
    Element<Sink, 0>(to).declaration();
    to.literal("<servercommandservice>\n    <seqnum>");
    // kept: unsigned in every interface, signed on the wire
    to.put(shown(static_cast<int>(envelope.seqnum)));
    to.literal("</seqnum>\n    <version>1.0.0</version>\n");
    if (envelope.carriesToken) Element<Sink, 1>(to).value("Token", envelope.token.text);
    if (envelope.request)
        return command(to, "    <request name=\"", "    </request>\n</servercommandservice>\n", envelope,
                       body);
    return command(to, "    <response name=\"", "    </response>\n</servercommandservice>\n", envelope, body);
}

std::size_t writeDocument(char* to, const Envelope& envelope, const Body& body) {
    return static_cast<std::size_t>(document(Write(to), envelope, body).mark() - to);
}

// Where there is room for the longest message that these arguments could make, it is written without being
// measured first: the body where it stands if it is short, then the head in front of it. Nothing behind the
// message is touched.
int sendUnmeasured(const Envelope& envelope, const Head& head, std::size_t bareHead, const Body& body,
                   std::uint64_t shortest, char* out) {
    const std::size_t guess = bareHead + Head::digits(static_cast<std::size_t>(shortest));
    const std::size_t length = writeDocument(out + guess, envelope, body);
    const std::size_t headLength = bareHead + Head::digits(length);
    if (headLength != guess)
        std::memmove(out + headLength, out + guess, length); // its length has more digits
    Write front(out);
    head.write(front, length);
    return static_cast<int>(headLength + length);
}

// A body that could not be longer than this is written on the stack first: to copy it takes less than to
// measure it.
constexpr std::size_t longestShort = 8192;
int sendShort(const Envelope& envelope, const Head& head, const Body& body, char* out, int size) {
    char xml[longestShort];
    const std::size_t length = writeDocument(xml, envelope, body);
    const auto copy = [&](Write& to) { to.raw({xml, length}); };
    return deliver(head, length, copy, out, size);
}

} // namespace

std::size_t xmlLength(const Envelope& envelope, const Body& body) {
    return static_cast<std::size_t>(document(Count(), envelope, body).bytes());
}

int send(const Envelope& envelope, const Head& head, const Body& body, char* out, int size) {
    if (!usable(head, out, size)) return -1;
    if (!envelope.trace && envelope.tail.size == 0) {
        const Limits limits = document(Limits(), envelope, body);
        const std::size_t bareHead = head.bareLength();
        if (limits.most() + bareHead + Head::mostDigits <= static_cast<std::uint64_t>(size))
            return sendUnmeasured(envelope, head, bareHead, body, limits.least(), out);
        if (limits.most() <= longestShort) return sendShort(envelope, head, body, out, size);
    }

    const Count xml = document(Count(), envelope, body);
    if (xml.bytes() > INT_MAX) return -1; // no line is as long as that either
    const auto length = static_cast<std::size_t>(xml.bytes());
    const auto write = [&](char* to) {
        if (xml.plain())
            document(WritePlain(to), envelope, body);
        else
            document(Write(to), envelope, body);
    };
    if (envelope.trace) {
        RenderedLine line(envelope.trace, length);
        write(line.xml());
        line.print();
    }
    const auto writeBody = [&](Write& to) {
        write(to.mark());
        Write behind(to.mark() + length);
        behind.raw(envelope.tail);
    };
    return deliver(head, length + envelope.tail.size, writeBody, out, size);
}

#endif

} // namespace veltoprotocol
