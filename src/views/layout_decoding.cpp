// Reading layouts. Each level's array is allocated from its counter, attached to its parent, then filled.
#include "framing/decoded.h"
#include "framing/walk.h"
#include "views/view_fields.h"

#include <cstring>

namespace veltoprotocol {
namespace {

using ViewGroup = __tagVtViewGroup;

// kept: not the order in which the same record is written, and read from a catalogue
constexpr auto layoutHeadFields = elements(
    "ViewGroupInfo", field("ViewGroupGuid", &ViewGroupInfo::ViewGroupGuid),
    field("LastModifieduser", &ViewGroupInfo::LastModifieduser), field("Name", &ViewGroupInfo::Name),
    field("ReadOnly", &ViewGroupInfo::ReadOnly), field("ViewGroupType", &ViewGroupInfo::ViewGroupType),
    field("LastModifiedTime", &ViewGroupInfo::LastModifiedTime), field("UserGuid", &ViewGroupInfo::UserGuid));

// kept: of an item on its own, only these are read, and the name of what it shows under the item's label
constexpr auto loneItemFields =
    attributes("Viewitem", field("id", &ViewItem::id), field("displayname", &ViewItem::displayname),
               field("type", &ViewItem::type));
constexpr auto loneItemInfoFields =
    attributes("Iteminfo", field("cameraid", &ItemInfo::cameraid),
               field("displayname", &ItemInfo::displayname).labelled("Viewitem"));

// A child names its parent, for those who keep the records without their nesting.
template <std::size_t N>
void link(char (&ownerid)[N], const char (&id)[N]) {
    std::memcpy(ownerid, id, N);
}

// One decode call. The record decoders all report through the one error: it tells of the last record alone.
class LayoutReader {
  public:
    explicit LayoutReader(int* error) : error_(error) {}

    void readGroups(TiXmlElement* xml, Layout& layout) {
        allocate(xml, "ViewGroupDataXml", "GroupsCounter", layout.groupcount, layout.groups);
        // kept: a missing Group is no error, since no record decoder looks for it
        each(xml, "Groups", "Group", layout.groups, layout.groupcount, [&](auto* element, Group& group) {
            readFields(element, groupFields, group);
            readViews(element, group);
        });
    }

  private:
    // kept: the count stays what the message says, also where fewer entries follow
    template <class Entry>
    void allocate(TiXmlElement* parent, const char* label, const char* counter, int& count, Entry*& array) {
        GetIntValue(parent, label, counter, &count);
        if (count > 0) array = budget_.zeroed<Entry>(static_cast<unsigned int>(count));
    }

    // The inner element of each wrapper, as long as there are slots. A wrapper without one ends the level,
    // and makes the answer false.
    template <class Entry, class Read>
    static bool each(TiXmlElement* parent, const char* wrapper, const char* inner, Entry* slots, int count,
                     const Read& read) {
        TiXmlElement* at = parent ? parent->FirstChildElement(wrapper) : nullptr;
        for (int i = 0; at && i < count; ++i, at = at->NextSiblingElement(wrapper)) {
            TiXmlElement* const element = at->FirstChildElement(inner);
            if (!element) return false;
            read(element, slots[i]);
        }
        return true;
    }

    void readViews(TiXmlElement* parent, Group& group) {
        allocate(parent, "Group", "ViewsCounter", group.viewcount, group.views);
        const auto read = [&](TiXmlElement* element, View& view) {
            view = GetViewInfoDecode(element, error_);
            link(view.ownerid, group.id);
            readItems(element, view);
        };
        if (!each(parent, "Views", "View", group.views, group.viewcount, read)) report(error_, -1);
    }

    void readItems(TiXmlElement* parent, View& view) {
        allocate(parent, "View", "ViewitemsCounter", view.itemcount, view.items);
        const auto read = [&](TiXmlElement* element, ViewItem& item) {
            item = GetViewItemDecode(element, error_);
            link(item.ownerid, view.id);
            TiXmlElement* const info = element->FirstChildElement("Iteminfo");
            item.iteminfo = GetViewItemInfoDecode(info, error_);
            if (item.type == carouselPane) readCarousels(info, item.iteminfo);
            link(item.iteminfo.ownerid, item.id);
        };
        if (!each(parent, "Viewitems", "Viewitem", view.items, view.itemcount, read)) report(error_, -1);
    }

    void readCarousels(TiXmlElement* parent, ItemInfo& info) {
        allocate(parent, "Iteminfo", "CarouselsCounter", info.carouselcount, info.carousels);
        const auto read = [&](TiXmlElement* element, Carousel& carousel) {
            carousel = GetCarouselDecode(element, error_);
            link(carousel.ownerid, info.id);
        };
        if (!each(parent, "Carousels", "Carousel", info.carousels, info.carouselcount, read))
            report(error_, -1);
    }

    Budget budget_;
    int* error_;
};

void releaseItems(View& view) {
    for (int i = 0; i < view.itemcount; ++i) {
        ItemInfo& info = view.items[i].iteminfo;
        if (!info.carousels) continue;
        delete[] info.carousels;
        info.carousels = nullptr;
        info.carouselcount = 0;
    }
}

void releaseViews(Group& group) {
    for (int i = 0; i < group.viewcount; ++i) {
        View& view = group.views[i];
        if (!view.items) continue;
        releaseItems(view);
        delete[] view.items;
        view.items = nullptr;
        view.itemcount = 0;
    }
}

} // namespace

View GetViewInfoDecode(TiXmlElement* view, int* error) { return readRecord(view, viewFields, error); }

ViewItem GetViewItemDecode(TiXmlElement* viewitem, int* error) {
    return readRecord(viewitem, viewItemFields, error);
}

ItemInfo GetViewItemInfoDecode(TiXmlElement* iteminfo, int* error) {
    return readRecord(iteminfo, itemInfoFields, error);
}

Carousel GetCarouselDecode(TiXmlElement* carousel, int* error) {
    return readRecord(carousel, carouselFields, error);
}

ViewItem GetViewItemParamDecode(TiXmlElement* element, int* error) {
    report(error, element ? 0 : -1);
    ViewItem item = ViewItem();
    if (!element) return item;
    if (TiXmlElement* const viewItem = element->FirstChildElement("Viewitem"))
        readFields(viewItem, loneItemFields, item);
    else
        missingElement("Viewitems", "Viewitem");
    // kept: beside the item, not inside it
    if (TiXmlElement* const info = element->FirstChildElement("Iteminfo"))
        readFields(info, loneItemInfoFields, item.iteminfo);
    else
        missingElement("Viewitems", "Iteminfo");
    return item;
}

Layout GetViewGroupDataParamDecode(TiXmlDocument* doc, int* error) {
    Decoded<Layout> layout(ReleaseViewGroupDataParam);
    const Walk response = Walk(doc, error).required("servercommandservice").required("response");
    if (!response.required("Result")) return layout.handOver();
    if (const Walk xml = response.expected("ViewGroupData").expected("ViewGroupDataXml"))
        LayoutReader(error).readGroups(xml.element(), *layout);
    return layout.handOver();
}

ViewGroup GetSetViewGroupData(TiXmlDocument* doc, int* error) {
    Decoded<ViewGroup> group(ReleaseSetViewGroupData);
    const Walk request = Walk(doc, error).required("servercommandservice").required("request");
    const Walk info = request.required("ViewGroupInfo");
    if (!info) return group.handOver();
    readFields(info.element(), layoutHeadFields, group->info);
    if (const Walk xml = request.expected("ViewGroupData").expected("ViewGroupDataXml"))
        LayoutReader(error).readGroups(xml.element(), group->data);
    return group.handOver();
}

void ReleaseViewGroupDataParam(Layout* data) {
    if (!data || !data->groups) return;
    for (int i = 0; i < data->groupcount; ++i) {
        Group& group = data->groups[i];
        if (!group.views) continue;
        releaseViews(group);
        delete[] group.views;
        group.views = nullptr;
        group.viewcount = 0;
    }
    delete[] data->groups;
    data->groups = nullptr;
    data->groupcount = 0;
}

void ReleaseSetViewGroupData(ViewGroup* group) {
    if (group) ReleaseViewGroupDataParam(&group->data);
}

} // namespace veltoprotocol
