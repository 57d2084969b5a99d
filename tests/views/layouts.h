// Layouts as they are received: XML for each level of the tree, and the two decoders that read it.
#pragma once

#include "support/read_back.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace layouts {

using namespace veltoprotocol;
using Layout = __tagVtViewGroupData;

inline std::string answer(const std::string& children) {
    return "<servercommandservice><response>" + children + "</response></servercommandservice>";
}
inline std::string request(const std::string& children) {
    return "<servercommandservice><request>" + children + "</request></servercommandservice>";
}
// The two elements around a layout, and the head of a request without which its layout is not read.
inline std::string enclosed(const std::string& layout) {
    return "<ViewGroupData><ViewGroupDataXml>" + layout + "</ViewGroupDataXml></ViewGroupData>";
}
inline const std::string headXml =
    "<ViewGroupInfo><ViewGroupGuid>g</ViewGroupGuid><LastModifieduser>l</LastModifieduser><Name>n</Name>"
    "<ReadOnly>1</ReadOnly><ViewGroupType>2</ViewGroupType><LastModifiedTime>3</LastModifiedTime>"
    "<UserGuid>u</UserGuid></ViewGroupInfo>";

// What a decoder gives for no layout. Not told by bytes: a record this small is returned without its padding.
inline bool isEmpty(const Layout& data) { return !data.groups && data.groupcount == 0; }

// One way to read a layout. The walk through it is the same in both.
struct Decoder {
    const char* name;
    std::string (*message)(const std::string& layout);
    Layout (*decode)(TiXmlDocument*, int* error);
};
inline const Decoder decoders[] = {
    {"GetViewGroupDataParamDecode",
     [](const std::string& layout) { return answer("<Result>0</Result>" + enclosed(layout)); },
     GetViewGroupDataParamDecode},
    {"GetSetViewGroupData", [](const std::string& layout) { return request(headXml + enclosed(layout)); },
     [](TiXmlDocument* doc, int* error) { return GetSetViewGroupData(doc, error).data; }}};

// A decoded layout, released at the end.
struct Tree {
    Tree(const Decoder& decoder, const std::string& layout) {
        const Document doc = parsed(decoder.message(layout));
        Captured captured;
        data = decoder.decode(doc.get(), &error);
        printed = captured.text();
    }
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;
    ~Tree() { ReleaseViewGroupDataParam(&data); }

    int error = 7;
    Layout data;
    std::string printed;
};

inline std::string counter(const std::string& name, const std::string& text) {
    return "<" + name + ">" + text + "</" + name + ">";
}
inline std::string wrapped(const std::string& wrapper, const std::string& inner) {
    return "<" + wrapper + ">" + inner + "</" + wrapper + ">";
}

// The elements with all their attributes, so that reading them prints nothing.
inline std::string group(const std::string& id,
                         const std::string& children = "<ViewsCounter>0</ViewsCounter>") {
    return "<Group id=\"" + id + R"(" displayname="" parentguid="">)" + children + "</Group>";
}
inline std::string view(const std::string& id,
                        const std::string& children = "<ViewitemsCounter>0</ViewitemsCounter>") {
    return "<View id=\"" + id +
           R"(" displayname="" viewlayouttype="0" viewscaletype="0" showtime="0" enablecarousel="0">)" +
           children + "</View>";
}
inline std::string info(const std::string& id, const std::string& children = "") {
    return "<Iteminfo id=\"" + id + R"(" cameraid="" displayname="" url="" VideoStreamType="0">)" + children +
           "</Iteminfo>";
}
inline std::string item(const std::string& id, const std::string& type, const std::string& children) {
    return "<Viewitem id=\"" + id + "\" displayname=\"\" type=\"" + type + "\" itemnumber=\"0\">" + children +
           "</Viewitem>";
}
inline std::string carousel(const std::string& id) {
    return "<Carousel id=\"" + id +
           R"(" ChannelGuid="" ShowTime="0" Index="0" DisplayName="" VideoStreamType="0" />)";
}

// Layouts that hold one entry of each level above, and `inside` in the innermost of them.
inline std::string inGroups(const std::string& inside) { return inside; }
inline std::string inGroup(const std::string& inside) {
    return counter("GroupsCounter", "1") + wrapped("Groups", group("g", inside));
}
inline std::string inView(const std::string& inside) {
    return inGroup(counter("ViewsCounter", "1") + wrapped("Views", view("v", inside)));
}
inline std::string inInfo(const std::string& inside) {
    return inView(counter("ViewitemsCounter", "1") + wrapped("Viewitems", item("i", "5", info("f", inside))));
}

// What a level's array holds, by the id of each slot; "zero" for one in which every byte is.
struct Slots {
    int count;
    bool array;
    std::vector<std::string> ids;
};
template <class Entry>
Slots slots(const Entry* array, int count) {
    Slots got{count, array != nullptr, {}};
    for (int i = 0; array && i < count; ++i)
        got.ids.push_back(sameBytes(array[i], Entry()) ? "zero" : array[i].id);
    return got;
}

struct Level {
    const char* counter;
    const char* wrapper;
    const char* label; // of the counter, in diagnostics
    std::size_t size;  // of an entry
    std::string (*inner)(const std::string& id);
    std::string (*around)(const std::string& inside);
    Slots (*slots)(const Layout&);

    // A layout that holds the counter at this level, and something behind it.
    std::string counting(const std::string& count, const std::string& behind = "") const {
        return around(layouts::counter(counter, count) + behind);
    }
    std::string entry(const std::string& id) const { return wrapped(wrapper, inner(id)); }
};
inline const Level levels[] = {
    {"GroupsCounter", "Groups", "ViewGroupDataXml", sizeof(__tagVtGroupItem),
     [](const std::string& id) { return group(id); }, inGroups,
     [](const Layout& data) { return slots(data.groups, data.groupcount); }},
    {"ViewsCounter", "Views", "Group", sizeof(__tagVtViewInfo),
     [](const std::string& id) { return view(id); }, inGroup,
     [](const Layout& data) { return slots(data.groups[0].views, data.groups[0].viewcount); }},
    {"ViewitemsCounter", "Viewitems", "View", sizeof(__tagVtViewItem),
     [](const std::string& id) { return item(id, "1", info("")); }, inView,
     [](const Layout& data) {
         return slots(data.groups[0].views[0].items, data.groups[0].views[0].itemcount);
     }},
    {"CarouselsCounter", "Carousels", "Iteminfo", sizeof(__tagVtCarouselItem),
     [](const std::string& id) { return carousel(id); }, inInfo,
     [](const Layout& data) {
         const __tagVtViewItemInfo& shown = data.groups[0].views[0].items[0].iteminfo;
         return slots(shown.carousels, shown.carouselcount);
     }}};

} // namespace layouts
