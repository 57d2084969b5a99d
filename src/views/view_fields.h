// The records of view groups as the commands carry them.
#pragma once

#include "framing/fields.h"
#include "veltoprotocol/views.h"

namespace veltoprotocol {

using ViewGroupInfo = __tagVtViewGroupInfo;
using Group = __tagVtGroupItem;
using View = __tagVtViewInfo;
using ViewItem = __tagVtViewItem;
using ItemInfo = __tagVtViewItemInfo;
using Carousel = __tagVtCarouselItem;
using Layout = __tagVtViewGroupData;

// kept: this order differs from the record's
constexpr auto viewGroupInfoFields = elements(
    "ViewGroupInfo", field("ReadOnly", &ViewGroupInfo::ReadOnly), field("Name", &ViewGroupInfo::Name),
    field("ViewGroupType", &ViewGroupInfo::ViewGroupType),
    field("LastModifiedTime", &ViewGroupInfo::LastModifiedTime),
    field("LastModifieduser", &ViewGroupInfo::LastModifieduser),
    field("ViewGroupGuid", &ViewGroupInfo::ViewGroupGuid), field("UserGuid", &ViewGroupInfo::UserGuid));

constexpr int carouselPane = 5; // the type of an item that holds a carousel

constexpr auto groupFields =
    attributes("Group", field("id", &Group::id), field("displayname", &Group::displayname),
               field("parentguid", &Group::parentguid));
constexpr auto viewFields =
    attributes("View", field("id", &View::id), field("displayname", &View::displayname),
               field("viewlayouttype", &View::viewlayouttype), field("viewscaletype", &View::viewscaletype),
               field("showtime", &View::showtime), field("enablecarousel", &View::enablecarousel));
constexpr auto viewItemFields =
    attributes("Viewitem", field("id", &ViewItem::id), field("displayname", &ViewItem::displayname),
               field("type", &ViewItem::type), field("itemnumber", &ViewItem::itemnumber));
constexpr auto itemInfoFields =
    attributes("Iteminfo", field("id", &ItemInfo::id), field("cameraid", &ItemInfo::cameraid),
               field("displayname", &ItemInfo::displayname), field("url", &ItemInfo::url),
               field("VideoStreamType", &ItemInfo::VideoStreamType));
// kept: capitalised names, and the label of the last one
constexpr auto carouselFields =
    attributes("Carousel", field("id", &Carousel::id), field("ChannelGuid", &Carousel::ChannelGuid),
               field("ShowTime", &Carousel::ShowTime), field("Index", &Carousel::Index),
               field("DisplayName", &Carousel::DisplayName),
               field("VideoStreamType", &Carousel::VideoStreamType).labelled("Iteminfo"));

} // namespace veltoprotocol
