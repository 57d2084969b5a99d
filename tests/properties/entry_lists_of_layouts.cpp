#include "properties/entry_lists.h"

namespace entry_lists {
namespace {

using Fields = std::vector<std::string>;

// Each level inside the one entry of the level above.
struct LevelOfLayouts {
    const char* name;
    const char* wrapper;
    std::string (*list)(const std::string& count, const std::string& entries);
    std::string (*inner)(const std::string& number);
    std::string (*around)(const std::string& list);
    std::string (*read)(const layouts::Layout& layout);
};

std::string groupsAround(const std::string& group) {
    return "<ViewGroupDataXml>" + layouts::counter("GroupsCounter", "1") + layouts::wrapped("Groups", group) +
           "</ViewGroupDataXml>";
}
std::string viewsAround(const std::string& view) {
    return groupsAround(
        layouts::group("g", layouts::counter("ViewsCounter", "1") + layouts::wrapped("Views", view)));
}
std::string itemsAround(const std::string& info) {
    return viewsAround(layouts::view("v", layouts::counter("ViewitemsCounter", "1") +
                                              layouts::wrapped("Viewitems", layouts::item("i", "5", info))));
}

const __tagVtViewInfo* firstView(const layouts::Layout& layout) {
    return layout.groups && layout.groups[0].views ? layout.groups[0].views : nullptr;
}
const __tagVtViewItem* firstItem(const layouts::Layout& layout) {
    return firstView(layout) ? firstView(layout)->items : nullptr;
}

Fields ofGroup(const __tagVtGroupItem& group) { return {group.id, group.displayname, group.parentguid}; }
Fields ofView(const __tagVtViewInfo& view) {
    return {view.id, view.displayname, std::to_string(view.enablecarousel)};
}
Fields ofItem(const __tagVtViewItem& item) {
    return {item.id, item.displayname, std::to_string(item.itemnumber), item.iteminfo.id,
            std::to_string(item.iteminfo.VideoStreamType)};
}
Fields ofCarousel(const __tagVtCarouselItem& carousel) {
    return {carousel.id, carousel.ChannelGuid, std::to_string(carousel.VideoStreamType)};
}

const LevelOfLayouts levels[] = {
    {"Groups", "Groups",
     [](const std::string& count, const std::string& entries) {
         return "<ViewGroupDataXml>" + count + entries + "</ViewGroupDataXml>";
     },
     [](const std::string& n) {
         return "<Group id=\"" + n + "\" displayname=\"" + n + "\" parentguid=\"" + n + "\" />";
     },
     [](const std::string& list) { return list; },
     [](const layouts::Layout& layout) { return told(layout.groups, layout.groupcount, ofGroup); }},
    {"Views", "Views",
     [](const std::string& count, const std::string& entries) {
         return layouts::group("g", count + entries);
     },
     [](const std::string& n) {
         return "<View id=\"" + n + "\" displayname=\"" + n + "\" enablecarousel=\"" + n + "\" />";
     },
     groupsAround,
     [](const layouts::Layout& layout) {
         return layout.groups ? told(layout.groups[0].views, layout.groups[0].viewcount, ofView) : "";
     }},
    {"Viewitems", "Viewitems",
     [](const std::string& count, const std::string& entries) { return layouts::view("v", count + entries); },
     [](const std::string& n) {
         return "<Viewitem id=\"" + n + "\" displayname=\"" + n + "\" type=\"1\" itemnumber=\"" + n +
                "\"><Iteminfo id=\"" + n + "\" VideoStreamType=\"" + n + "\" /></Viewitem>";
     },
     viewsAround,
     [](const layouts::Layout& layout) {
         const __tagVtViewInfo* const view = firstView(layout);
         return view ? told(view->items, view->itemcount, ofItem) : "";
     }},
    {"Carousels", "Carousels",
     [](const std::string& count, const std::string& entries) { return layouts::info("f", count + entries); },
     [](const std::string& n) {
         return "<Carousel id=\"" + n + "\" ChannelGuid=\"" + n + "\" VideoStreamType=\"" + n + "\" />";
     },
     itemsAround,
     [](const layouts::Layout& layout) {
         const __tagVtViewItem* const item = firstItem(layout);
         return item ? told(item->iteminfo.carousels, item->iteminfo.carouselcount, ofCarousel) : "";
     }}};

std::string layoutMessage(const layouts::Decoder& decoder, const std::string& layout) {
    const std::string data = layouts::wrapped("ViewGroupData", layout);
    return &decoder == layouts::decoders ? layouts::answer("<Result>0</Result>" + data)
                                         : layouts::request(layouts::headXml + data);
}

List listOf(const layouts::Decoder& decoder, const LevelOfLayouts& level) {
    List list;
    list.name = std::string(decoder.name) + ", " + level.name;
    list.message = [&](const std::string& inside) { return layoutMessage(decoder, level.around(inside)); };
    list.list = [&](const std::string& count, const std::string& entries) {
        return level.list(count.empty() ? "" : layouts::counter(std::string(level.name) + "Counter", count),
                          entries);
    };
    list.entry = [&](const std::string& n) { return layouts::wrapped(level.wrapper, level.inner(n)); };
    list.read = [&](TiXmlDocument* doc, int* error) {
        layouts::Layout layout = decoder.decode(doc, error);
        const std::string told = level.read(layout);
        ReleaseViewGroupDataParam(&layout);
        return told;
    };
    list.wrapper = level.wrapper;
    list.needsEntry = &level != levels;
    // A missing Group is no error, a missing View or Iteminfo is one.
    if (&level - levels >= 2) list.ofNoList = "none, error -1";
    return list;
}

} // namespace

void addLayouts(std::vector<List>& lists) {
    for (const layouts::Decoder& decoder : layouts::decoders)
        for (const LevelOfLayouts& level : levels) lists.push_back(listOf(decoder, level));
}

} // namespace entry_lists
