#include "framing/message.h"

#include "veltoprotocol/framing.h"

#ifdef VELTO_THROUGH_TREE
#include <memory>
#endif

namespace veltoprotocol {

#ifdef VELTO_THROUGH_TREE

// The reference that the tests compare with: the envelope steps one after another, over the XML library's
// tree and through its printer.
int send(const Envelope& envelope, const Head& head, const Body& body, char* out, int size) {
    if (!usable(head, out, size)) return -1;
    const auto text = [](Text from) { return std::string(from.data ? from.data : "", from.size); };
    const std::unique_ptr<TiXmlDocument> doc(XmlHeaderEncode());
    auto* const root = new TiXmlElement("servercommandservice");
    doc->LinkEndChild(root);
    GetVeltoHeaderEncode(root, envelope.seqnum);
    if (envelope.carriesToken) {
        const Text token = envelope.token.text;
        SetStringValue(root, "Token", token.absent() ? nullptr : text(token).c_str());
    }
    body(TreeElement(SetStringValueAtt(root, envelope.request ? "request" : "response",
                                       envelope.name.absent() ? nullptr : text(envelope.name).c_str())));
    const std::string xml = GetXmlEncode(doc.get());
    return assemble(head, {Text{xml.data(), xml.size()}}, out, size);
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
        if (envelope.request)
            root.element("request", attribute("name", envelope.name), body);
        else
            root.element("response", attribute("name", envelope.name), body);
    });
}

} // namespace

int send(const Envelope& envelope, const Head& head, const Body& body, char* out, int size) {
    if (!usable(head, out, size)) return -1;
    Count xml;
    document(Element<Count, 0>(xml), envelope, body);
    const auto write = [&](Write& to) { document(Element<Write, 0>(to), envelope, body); };
    return deliver(head, xml.bytes(), write, out, size);
}

#endif

} // namespace veltoprotocol
