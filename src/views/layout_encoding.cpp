// Layouts: groups hold views, views hold items, an item may hold a carousel. Each entry stands in a wrapper
// of its own.
#include "framing/message.h"
#include "framing/tree.h"
#include "views/view_fields.h"

namespace veltoprotocol {
namespace {

// kept: the answer writes the counters of views and items always, the request only where there are some
enum class Counters { always, ofEntries };

template <class Entry>
bool counts(Counters counters, const Entry* array, int count) {
    return counters == Counters::always || (array && count > 0);
}

template <class X>
void writeItem(X x, const ViewItem& item) {
    const ItemInfo& info = item.iteminfo;
    x.element("Iteminfo", itemInfoFields(info), [&](auto inside) {
        if (item.type != carouselPane) return;
        inside.value("CarouselsCounter", info.carouselcount);
        inside.list(
            "Carousels", entries(info.carousels, info.carouselcount),
            [](auto wrapper, auto& carousel) { wrapper.element("Carousel", carouselFields(carousel)); });
    });
}

template <class X>
void writeView(X x, const View& view, Counters counters) {
    if (counts(counters, view.items, view.itemcount)) x.value("ViewitemsCounter", view.itemcount);
    x.list("Viewitems", entries(view.items, view.itemcount), [](auto wrapper, auto& item) {
        wrapper.element("Viewitem", viewItemFields(item), [&](auto inside) { writeItem(inside, item); });
    });
}

template <class X>
void writeGroup(X x, const Group& group, Counters counters) {
    if (counts(counters, group.views, group.viewcount)) x.value("ViewsCounter", group.viewcount);
    x.list("Views", entries(group.views, group.viewcount), [&](auto wrapper, auto& view) {
        wrapper.element("View", viewFields(view), [&](auto inside) { writeView(inside, view, counters); });
    });
}

template <class X>
void writeLayout(X x, const Layout* data, Counters counters) {
    if (!data || !data->groups || data->groupcount < 1) return;
    x.element("ViewGroupData", [&](auto outer) {
        outer.element("ViewGroupDataXml", [&](auto inner) {
            inner.value("GroupsCounter", data->groupcount);
            inner.list("Groups", entries(data->groups, data->groupcount), [&](auto wrapper, auto& group) {
                wrapper.element("Group", groupFields(group),
                                [&](auto inside) { writeGroup(inside, group, counters); });
            });
        });
    });
}

} // namespace

int GetViewInfoEncode(TiXmlElement* element, const View* view) {
    return writeRecord(element, viewFields, view);
}

int GetViewItemEncode(TiXmlElement* element, const ViewItem* item) {
    return writeRecord(element, viewItemFields, item);
}

int GetViewItemInfoEncode(TiXmlElement* element, const ItemInfo* info) {
    return writeRecord(element, itemInfoFields, info);
}

int GetCarouselEncode(TiXmlElement* element, const Carousel* carousel) {
    return writeRecord(element, carouselFields, carousel);
}

int GetViewGroupDataReqEncode(const char* host, const char* token, unsigned int seqnum,
                              const char* viewGroupGuid, char* out, int size) {
    const auto tree = [&](auto x) { x.value("ViewGroupGuid", viewGroupGuid); };
    return Request("GetViewGroupData", seqnum, Token{token}).post(commandPath, host, tree, out, size);
}

int GetViewGroupDataRespEncode(int result, unsigned int seqnum, const ViewGroupInfo* info, const Layout* data,
                               char* out, int size) {
    const auto tree = [&](auto x) {
        x.value("Result", result);
        if (result != 0 || !info) return;
        x.element("ViewGroupInfo", viewGroupInfoFields(*info));
        writeLayout(x, data, Counters::always);
    };
    return Response("GetViewGroupData", seqnum).reply(tree, out, size);
}

int GetSetViewGroupDataReqEncode(const char* host, const char* token, unsigned int seqnum,
                                 const ViewGroupInfo* info, const Layout* data, char* out, int size) {
    if (!info) return -1;
    const auto tree = [&](auto x) {
        x.element("ViewGroupInfo", viewGroupInfoFields(*info));
        writeLayout(x, data, Counters::ofEntries);
    };
    return Request("SetViewGroupData", seqnum, Token{token}).post(commandPath, host, tree, out, size);
}

} // namespace veltoprotocol
