#include "fuzz/round_trip.h"

#include <deque>

using namespace veltoprotocol;

namespace {

using Info = __tagVtViewGroupInfo;
Trip<Info> info(Draw& draw) {
    Trip<Info> trip(draw);
    trip.carry(Carrier::elements, &Info::ViewGroupGuid, &Info::UserGuid, &Info::ReadOnly, &Info::Name,
               &Info::ViewGroupType, &Info::LastModifiedTime, &Info::LastModifieduser);
    return trip;
}

void catalogue(Draw& draw) {
    const auto trips = severalTrips<Info>(draw, info);
    const auto sent = sentOf(trips);
    const Arrived answer([&](char* out, int size) {
        return GetViewGroupsRespEncode(0, 1, sent.data(), static_cast<int>(sent.size()), out, size);
    });
    requireBack("a view group", answer.all({"ViewGroupInfo"}), trips, GetViewGroupInfoParamDecode);
    requireBackAlone("a view group alone", trips.front(), GetViewGroupsParamEncode,
                     GetViewGroupInfoParamDecode);
}

using Carousel = __tagVtCarouselItem;
using ItemInfo = __tagVtViewItemInfo;
using Item = __tagVtViewItem;
using View = __tagVtViewInfo;
using Group = __tagVtGroupItem;

// A layout and what comes back of it: each record with the id of the one that holds it, and with the arrays
// of its own children, one to three at each level.
class LayoutTrip {
  public:
    explicit LayoutTrip(Draw& draw) : draw_(draw) {
        several(groups_, sent.groups, back.groups, sent.groupcount,
                [&](Group& before, Group& after) { group(before, after); });
        back.groupcount = sent.groupcount;
    }

    __tagVtViewGroupData sent = {}, back = {};

  private:
    template <class Record>
    using Arrays = std::deque<std::vector<Record>>;

    template <class Record, class Fill>
    void several(Arrays<Record>& arrays, Record*& sentArray, Record*& backArray, int& count,
                 const Fill& fill) {
        count = static_cast<int>(1 + draw_.below(2));
        arrays.emplace_back(count);
        sentArray = arrays.back().data();
        arrays.emplace_back(count);
        backArray = arrays.back().data();
        Record *before = sentArray, *after = backArray;
        for (int i = 0; i < count; ++i) fill(*before++, *after++);
    }
    template <class Record, class... Members>
    void carry(Record& before, Record& after, Members Record::*... members) {
        Trip<Record> trip(draw_);
        trip.carry(Carrier::attributes, members...);
        before = trip.sent;
        after = trip.back;
    }

    void group(Group& before, Group& after) {
        carry(before, after, &Group::id, &Group::displayname, &Group::parentguid);
        several(views_, before.views, after.views, before.viewcount, [&](View& sentView, View& backView) {
            view(sentView, backView);
            std::memcpy(backView.ownerid, after.id, sizeof after.id);
        });
        after.viewcount = before.viewcount;
    }
    void view(View& before, View& after) {
        carry(before, after, &View::id, &View::displayname, &View::viewlayouttype, &View::viewscaletype,
              &View::showtime, &View::enablecarousel);
        several(items_, before.items, after.items, before.itemcount, [&](Item& sentItem, Item& backItem) {
            item(sentItem, backItem);
            std::memcpy(backItem.ownerid, after.id, sizeof after.id);
        });
        after.itemcount = before.itemcount;
    }
    void item(Item& before, Item& after) {
        carry(before, after, &Item::id, &Item::displayname, &Item::itemnumber, &Item::type);
        if (draw_.oneIn(2)) before.type = after.type = 5; // a carousel, the only kind whose steps are carried
        ItemInfo& sentInfo = before.iteminfo;
        ItemInfo& backInfo = after.iteminfo;
        carry(sentInfo, backInfo, &ItemInfo::id, &ItemInfo::cameraid, &ItemInfo::url, &ItemInfo::displayname,
              &ItemInfo::VideoStreamType);
        std::memcpy(backInfo.ownerid, after.id, sizeof after.id);
        if (before.type != 5) return;
        several(carousels_, sentInfo.carousels, backInfo.carousels, sentInfo.carouselcount,
                [&](Carousel& sentStep, Carousel& backStep) {
                    carry(sentStep, backStep, &Carousel::id, &Carousel::ChannelGuid, &Carousel::ShowTime,
                          &Carousel::Index, &Carousel::DisplayName, &Carousel::VideoStreamType);
                    std::memcpy(backStep.ownerid, backInfo.id, sizeof backInfo.id);
                });
        backInfo.carouselcount = sentInfo.carouselcount;
    }

    Draw& draw_;
    Arrays<Group> groups_;
    Arrays<View> views_;
    Arrays<Item> items_;
    Arrays<Carousel> carousels_;
};

// As bytes, but for the arrays, which lie elsewhere.
void requireSameItem(Item got, const Item& want) {
    require((got.iteminfo.carousels != nullptr) == (want.iteminfo.carousels != nullptr),
            "a pane's carousels");
    const Carousel* const steps = got.iteminfo.carousels;
    got.iteminfo.carousels = want.iteminfo.carousels;
    requireSameRecord("a pane", got, want);
    for (int i = 0; i < want.iteminfo.carouselcount; ++i)
        requireSameRecord("a carousel", steps[i], want.iteminfo.carousels[i]);
}

void requireSameView(View got, const View& want) {
    const Item* const items = got.items;
    got.items = want.items;
    requireSameRecord("a view", got, want);
    for (int i = 0; i < want.itemcount; ++i) requireSameItem(items[i], want.items[i]);
}

void requireSameLayout(const __tagVtViewGroupData& got, const __tagVtViewGroupData& want) {
    requireSame("the number of groups", got.groupcount, want.groupcount);
    for (int i = 0; i < want.groupcount; ++i) {
        Group group = got.groups[i];
        const View* const views = group.views;
        group.views = want.groups[i].views;
        requireSameRecord("a group", group, want.groups[i]);
        for (int v = 0; v < want.groups[i].viewcount; ++v) requireSameView(views[v], want.groups[i].views[v]);
    }
}

void layout(Draw& draw) {
    const Trip<Info> head = info(draw);
    const LayoutTrip trip(draw);
    const Arrived request([&](char* out, int size) {
        return GetSetViewGroupDataReqEncode("h", "t", 1, &head.sent, &trip.sent, out, size);
    });
    const Arrived answer([&](char* out, int size) {
        return GetViewGroupDataRespEncode(0, 1, &head.sent, &trip.sent, out, size);
    });
    int error = 7;
    __tagVtViewGroup atServer = GetSetViewGroupData(request.doc.get(), &error);
    requireSame("a layout, error", error, 0);
    requireSameRecord("a layout's head", atServer.info, head.back);
    requireSameLayout(atServer.data, trip.back);
    ReleaseSetViewGroupData(&atServer);
    __tagVtViewGroupData atClient = GetViewGroupDataParamDecode(answer.doc.get(), &error);
    requireSameLayout(atClient, trip.back);
    ReleaseViewGroupDataParam(&atClient);
}

// What stands in an item of its own beside it is read by fewer fields.
void loneItem(const Trip<Item>& item, const Trip<ItemInfo>& shown) {
    const Filled both([&](TiXmlElement* element) {
        const auto child = [element](const char* name) {
            return element->LinkEndChild(new TiXmlElement(name))->ToElement();
        };
        return GetViewItemEncode(child("Viewitem"), &item.sent) ||
               GetViewItemInfoEncode(child("Iteminfo"), &shown.sent);
    });
    Item want = item.back;
    want.itemnumber = 0;
    std::memcpy(want.iteminfo.cameraid, shown.back.cameraid, sizeof want.iteminfo.cameraid);
    std::memcpy(want.iteminfo.displayname, shown.back.displayname, sizeof want.iteminfo.displayname);
    int error = 7;
    requireSameRecord("an item with what it shows", GetViewItemParamDecode(both.element(), &error), want);
}

void parts(Draw& draw) {
    Trip<View> view(draw);
    view.carry(Carrier::attributes, &View::id, &View::displayname, &View::viewlayouttype,
               &View::viewscaletype, &View::showtime, &View::enablecarousel);
    Trip<Item> item(draw);
    item.carry(Carrier::attributes, &Item::id, &Item::displayname, &Item::itemnumber, &Item::type);
    Trip<ItemInfo> shown(draw);
    shown.carry(Carrier::attributes, &ItemInfo::id, &ItemInfo::cameraid, &ItemInfo::url,
                &ItemInfo::displayname, &ItemInfo::VideoStreamType);
    Trip<Carousel> step(draw);
    step.carry(Carrier::attributes, &Carousel::id, &Carousel::ChannelGuid, &Carousel::ShowTime,
               &Carousel::Index, &Carousel::DisplayName, &Carousel::VideoStreamType);
    requireBackAlone("a view alone", view, GetViewInfoEncode, GetViewInfoDecode);
    requireBackAlone("an item alone", item, GetViewItemEncode, GetViewItemDecode);
    requireBackAlone("what an item shows", shown, GetViewItemInfoEncode, GetViewItemInfoDecode);
    requireBackAlone("a carousel alone", step, GetCarouselEncode, GetCarouselDecode);
    loneItem(item, shown);
}

} // namespace

std::vector<RoundTrip> viewTrips() {
    return {{"GetViewGroups", catalogue}, {"SetViewGroupData", layout}, {"a layout's parts", parts}};
}
