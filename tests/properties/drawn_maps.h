// Maps and their items, which pictures are asked for by as well.
#pragma once

#include "properties/drawn.h"

#include <LibVeltoProtocol.h>

namespace veltoprotocol {

inline __tagVtEMapInfo drawnMap(Draw& draw) {
    auto map = draw.noise<__tagVtEMapInfo>();
    draw.fill(map.MapInfoGuid, map.ParentMapGuid, map.MapType, map.GisCenterCityName, map.GisPosX,
              map.GisPosY, map.GisZoom, map.CustomizeImagePath, map.CustomizeImageSize,
              map.CustomizeImageType, map.MapName, map.Status, map.LastTime);
    return map;
}

inline __tagVtEMapItemParam drawnMapItem(Draw& draw) {
    auto item = draw.noise<__tagVtEMapItemParam>();
    draw.fill(item.MapItemGuid, item.MapInfoGuid, item.ItemContentGuid, item.ItemType, item.DisplayName,
              item.Discription, item.PosX, item.PosY, item.Status);
    return item;
}

} // namespace veltoprotocol
