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

int send(const Envelope& envelope, const Head& head, const Body& body, char* out, int size) {
    if (!usable(head, out, size)) return -1;
    Count xml;
    document(Element<Count, 0>(xml), envelope, body);
    if (xml.bytes() > INT_MAX) return -1; // no line is as long as that either
    const auto length = static_cast<std::size_t>(xml.bytes());
    if (envelope.trace) {
        RenderedLine line(envelope.trace, length);
        Write to(line.xml());
        document(Element<Write, 0>(to), envelope, body);
        line.print();
    }
    const auto write = [&](Write& to) {
        document(Element<Write, 0>(to), envelope, body);
        to.raw(envelope.tail);
    };
    return deliver(head, length + envelope.tail.size, write, out, size);
}

#endif

} // namespace veltoprotocol
