#include "properties/encoder_calls.h"

#include <deque>

namespace veltoprotocol {
namespace {

__tagVtViewGroupInfo drawnViewGroup(Draw& draw) {
    auto info = draw.noise<__tagVtViewGroupInfo>();
    draw.fill(info.ViewGroupGuid, info.UserGuid, info.ReadOnly, info.Name, info.ViewGroupType,
              info.LastModifiedTime, info.LastModifieduser);
    return info;
}

// Layouts, and the arrays that they point to.
class Layouts {
  public:
    explicit Layouts(Draw& draw) : draw_(draw) {}

    __tagVtCarouselItem carousel() {
        auto carousel = draw_.noise<__tagVtCarouselItem>();
        draw_.fill(carousel.id, carousel.ChannelGuid, carousel.ShowTime, carousel.Index, carousel.DisplayName,
                   carousel.VideoStreamType);
        return carousel;
    }
    __tagVtViewItemInfo itemInfo() {
        auto info = draw_.noise<__tagVtViewItemInfo>();
        draw_.fill(info.id, info.cameraid, info.url, info.displayname, info.VideoStreamType);
        carousels_.push_back(draw_.array([this](Draw&) { return carousel(); }, 0, 2));
        attach(carousels_.back(), info.carousels, info.carouselcount);
        return info;
    }
    __tagVtViewItem item() {
        auto item = draw_.noise<__tagVtViewItem>();
        draw_.fill(item.id, item.displayname, item.itemnumber, item.type);
        if (draw_.oneIn(2)) item.type = 5;
        item.iteminfo = itemInfo();
        return item;
    }
    __tagVtViewInfo view() {
        auto view = draw_.noise<__tagVtViewInfo>();
        draw_.fill(view.id, view.displayname, view.viewlayouttype, view.viewscaletype, view.showtime,
                   view.enablecarousel);
        items_.push_back(draw_.array([this](Draw&) { return item(); }, 0, 2));
        attach(items_.back(), view.items, view.itemcount);
        return view;
    }
    __tagVtGroupItem group() {
        auto group = draw_.noise<__tagVtGroupItem>();
        draw_.fill(group.id, group.displayname, group.parentguid);
        views_.push_back(draw_.array([this](Draw&) { return view(); }, 0, 2));
        attach(views_.back(), group.views, group.viewcount);
        return group;
    }
    __tagVtViewGroupData layout() {
        __tagVtViewGroupData layout = {};
        groups_.push_back(draw_.array([this](Draw&) { return group(); }, 0, 2));
        attach(groups_.back(), layout.groups, layout.groupcount);
        return layout;
    }

  private:
    Draw& draw_;
    std::deque<Array<__tagVtCarouselItem>> carousels_;
    std::deque<Array<__tagVtViewItem>> items_;
    std::deque<Array<__tagVtViewInfo>> views_;
    std::deque<Array<__tagVtGroupItem>> groups_;
};

struct ViewArguments : Arguments {
    Array<__tagVtViewGroupInfo> infos = draw.array(drawnViewGroup);
    __tagVtViewGroupInfo info = drawnViewGroup(draw);
    Layouts layouts{draw};
    __tagVtViewGroupData layout = layouts.layout();
    __tagVtViewInfo view = layouts.view();
    __tagVtViewItem item = layouts.item();
    __tagVtCarouselItem carousel = layouts.carousel();
    bool layoutMissing = draw.missing();

    using Arguments::Arguments;
    const __tagVtViewGroupData* layoutOrNull() const { return layoutMissing ? nullptr : &layout; }
};

} // namespace

void visitViews(unsigned seed, Texts texts, const Visit& visit) {
    const ViewArguments a(seed, texts);
    REQUEST(GetViewGroupsReqEncode, a.host, a.token, a.seqnum, a.value, out, size);
    RESPONSE(GetViewGroupsRespEncode, a.result, a.seqnum, a.infos.data(), a.infos.count, out, size);
    ELEMENT(GetViewGroupsParamEncode, element, a.orNull(a.info));
    REQUEST(GetViewGroupDataReqEncode, a.host, a.token, a.seqnum, a.value, out, size);
    RESPONSE(GetViewGroupDataRespEncode, a.result, a.seqnum, a.orNull(a.info), a.layoutOrNull(), out, size);
    REQUEST(GetSetViewGroupDataReqEncode, a.host, a.token, a.seqnum, a.orNull(a.info), a.layoutOrNull(), out,
            size);
    RESPONSE(GetSetViewGroupDataRespEncode, a.result, a.seqnum, out, size);
    ELEMENT(GetViewInfoEncode, element, a.orNull(a.view));
    ELEMENT(GetViewItemEncode, element, a.orNull(a.item));
    ELEMENT(GetViewItemInfoEncode, element, a.orNull(a.item.iteminfo));
    ELEMENT(GetCarouselEncode, element, a.orNull(a.carousel));
}

} // namespace veltoprotocol
