// Electronic maps as they are read from messages, and their comparison.
#ifndef EXAMPLES_MAPS_H
#define EXAMPLES_MAPS_H

#include "support/comparison.h"
#include "support/whole_list.h"

#include <LibVeltoProtocol.h>

#include <memory>
#include <string>

namespace example {

struct ReleaseMaps {
    void operator()(veltoprotocol::__tagVtUserEMapInfo* maps) const {
        veltoprotocol::EMapInfoDecodeRelease(maps);
    }
};
using Maps = std::unique_ptr<veltoprotocol::__tagVtUserEMapInfo, ReleaseMaps>;

// Everything that was counted is there, and has a GUID.
inline bool isWhole(const veltoprotocol::__tagVtUserEMapInfo& maps) {
    return isWhole(maps.EMapInfos, maps.EMapInfoCount,
                   [](const auto& map) { return map.MapInfoGuid[0] != '\0'; }) &&
           isWhole(maps.EMapItems, maps.EMapItemCount,
                   [](const auto& item) { return item.MapItemGuid[0] != '\0'; });
}

inline void compare(Comparison& check, const std::string& where, const veltoprotocol::__tagVtEMapInfo& wanted,
                    const veltoprotocol::__tagVtEMapInfo& found) {
    check.same(where, "MapInfoGuid", wanted.MapInfoGuid, found.MapInfoGuid);
    check.same(where, "ParentMapGuid", wanted.ParentMapGuid, found.ParentMapGuid);
    check.same(where, "MapType", wanted.MapType, found.MapType);
    check.same(where, "GisCenterCityName", wanted.GisCenterCityName, found.GisCenterCityName);
    check.same(where, "GisPosX", wanted.GisPosX, found.GisPosX);
    check.same(where, "GisPosY", wanted.GisPosY, found.GisPosY);
    check.same(where, "GisZoom", wanted.GisZoom, found.GisZoom);
    check.same(where, "CustomizeImagePath", wanted.CustomizeImagePath, found.CustomizeImagePath);
    check.same(where, "CustomizeImageSize", wanted.CustomizeImageSize, found.CustomizeImageSize);
    check.same(where, "CustomizeImageType", wanted.CustomizeImageType, found.CustomizeImageType);
    check.same(where, "MapName", wanted.MapName, found.MapName);
    check.same(where, "Status", wanted.Status, found.Status);
    check.same(where, "LastTime", wanted.LastTime, found.LastTime);
}

inline void compare(Comparison& check, const std::string& where,
                    const veltoprotocol::__tagVtEMapItemParam& wanted,
                    const veltoprotocol::__tagVtEMapItemParam& found) {
    check.same(where, "MapItemGuid", wanted.MapItemGuid, found.MapItemGuid);
    check.same(where, "MapInfoGuid", wanted.MapInfoGuid, found.MapInfoGuid);
    check.same(where, "ItemContentGuid", wanted.ItemContentGuid, found.ItemContentGuid);
    check.same(where, "ItemType", wanted.ItemType, found.ItemType);
    check.same(where, "DisplayName", wanted.DisplayName, found.DisplayName);
    check.same(where, "Discription", wanted.Discription, found.Discription);
    check.same(where, "PosX", wanted.PosX, found.PosX);
    check.same(where, "PosY", wanted.PosY, found.PosY);
    check.same(where, "Status", wanted.Status, found.Status);
}

// The user does not come back: an answer with maps does not name one.
inline void compare(Comparison& check, const veltoprotocol::__tagVtUserEMapInfo& wanted,
                    const veltoprotocol::__tagVtUserEMapInfo& found) {
    check.same("maps", "EMapInfoCount", wanted.EMapInfoCount, found.EMapInfoCount);
    check.same("maps", "EMapItemCount", wanted.EMapItemCount, found.EMapItemCount);
    for (int i = 0; i < wanted.EMapInfoCount; ++i)
        compare(check, "map " + std::to_string(i + 1), wanted.EMapInfos[i], found.EMapInfos[i]);
    for (int i = 0; i < wanted.EMapItemCount; ++i)
        compare(check, "map item " + std::to_string(i + 1), wanted.EMapItems[i], found.EMapItems[i]);
}

} // namespace example

#endif
