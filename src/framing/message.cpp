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
                          envelope.name.absent() ? nullptr : text(envelope.name).c_str());
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

template <class X>
void document(X x, const Envelope& envelope, const Body& body) {
    x.declaration();
    x.element("servercommandservice", [&](auto root) {
        // kept: unsigned in every interface, signed on the wire
        root.value("seqnum", static_cast<int>(envelope.seqnum));
        root.value("version", "1.0.0");
        if (envelope.carriesToken) root.value("Token", envelope.token.text);
        if (envelope.counter > 0)
            root.element("request", attribute("name", envelope.name), attribute("Counter", envelope.counter),
                         body);
        else if (envelope.request)
            root.element("request", attribute("name", envelope.name), body);
        else
            root.element("response", attribute("name", envelope.name), body);
    });
}

} // namespace

std::size_t xmlLength(const Envelope& envelope, const Body& body) {
    Count xml;
    document(Element<Count, 0>(xml), envelope, body);
    return static_cast<std::size_t>(xml.bytes());
}

namespace {

// Where there is room for the longest message that these arguments could make, it is written without being
// measured first: the body where it stands if it is short, then the head in front of it. Nothing behind the
// message is touched.
int sendUnmeasured(const Envelope& envelope, const Head& head, const Body& body, std::uint64_t shortest,
                   char* out) {
    const std::size_t guess = head.length(static_cast<std::size_t>(shortest));
    char* const begin = out + guess;
    Write to(begin);
    document(Element<Write, 0>(to), envelope, body);
    const auto length = static_cast<std::size_t>(to.mark() - begin);
    const std::size_t headLength = head.length(length);
    if (headLength != guess) std::memmove(out + headLength, begin, length); // its length has more digits
    Write front(out);
    head.write(front, length);
    return static_cast<int>(headLength + length);
}

} // namespace

int send(const Envelope& envelope, const Head& head, const Body& body, char* out, int size) {
    if (!usable(head, out, size)) return -1;
    constexpr int hopeless = 512; // in less room than that, hardly any message could be at its longest
    if (size >= hopeless && !envelope.trace && envelope.tail.size == 0) {
        Limits limits;
        document(Element<Limits, 0>(limits), envelope, body);
        if (limits.most() + head.length(0) + Number<int>::longest <= static_cast<std::uint64_t>(size))
            return sendUnmeasured(envelope, head, body, limits.least(), out);
    }

    Count xml;
    document(Element<Count, 0>(xml), envelope, body);
    if (xml.bytes() > INT_MAX) return -1; // no line is as long as that either
    const auto length = static_cast<std::size_t>(xml.bytes());
    if (envelope.trace) {
        RenderedLine line(envelope.trace, length);
        Write to(line.xml(), xml.plain());
        document(Element<Write, 0>(to), envelope, body);
        line.print();
    }
    const auto write = [&](Write& to) {
        document(Element<Write, 0>(to), envelope, body);
        to.raw(envelope.tail);
    };
    return deliver(head, length + envelope.tail.size, write, out, size, xml.plain());
}

#endif

} // namespace veltoprotocol
