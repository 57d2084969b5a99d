// Runs a message tree over all that it can be written with.
#pragma once

#include "framing/element.h"
#include "framing/tree.h"
#include "support/guarded_page.h"

#include <gtest/gtest.h>

#include <string>

// What stands inside the command element when `tree` fills it, without the indentation of that element's
// children. The sink that counts, the sink that writes and the XML library's tree must agree on it. As in
// each message, the closing tags of command and root follow.
template <class Tree>
std::string written(const Tree& tree) {
    using namespace veltoprotocol;
    const auto envelope = [&](auto root) { root.element("request", tree); };

    Count length;
    Element<Count, 0>(length).element("servercommandservice", envelope);
    Limits limits;
    Element<Limits, 0>(limits).element("servercommandservice", envelope);
    EXPECT_LE(limits.least(), length.bytes());
    EXPECT_GE(limits.most(), length.bytes());
    GuardedPage page(static_cast<std::size_t>(length.bytes()));
    Write to(page.data());
    Element<Write, 0>(to).element("servercommandservice", envelope);
    EXPECT_EQ(to.mark(), page.data() + page.size()) << "counted otherwise than written";

    TiXmlDocument doc;
    auto* const root = static_cast<TiXmlElement*>(doc.LinkEndChild(new TiXmlElement("servercommandservice")));
    TreeElement(root).add(envelope);
    TiXmlPrinter printer;
    EXPECT_TRUE(doc.Accept(&printer));
    EXPECT_EQ(page.bytes(), printer.Str()) << "written otherwise than the XML library prints it";

    const std::string text(page.bytes());
    if (text == "<servercommandservice>\n    <request />\n</servercommandservice>\n") return {};
    const std::string before = "<servercommandservice>\n    <request>\n";
    const std::string after = "    </request>\n</servercommandservice>\n";
    if (text.size() < before.size() + after.size() || text.compare(0, before.size(), before) != 0 ||
        text.compare(text.size() - after.size(), after.size(), after) != 0)
        return "no command element: " + text;

    std::string inside;
    for (std::size_t at = before.size(), end = text.size() - after.size(); at < end;) {
        const std::size_t next = text.find('\n', at) + 1;
        EXPECT_EQ(text.compare(at, 8, "        "), 0) << "not indented";
        inside += text.substr(at + 8, next - at - 8);
        at = next;
    }
    return inside;
}
