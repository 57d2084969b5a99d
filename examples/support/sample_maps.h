// Electronic maps to store: a map of the city, floor plans, and what stands on them.
#ifndef EXAMPLES_SAMPLE_MAPS_H
#define EXAMPLES_SAMPLE_MAPS_H

#include "support/sample_inventory.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>

#include <string>
#include <vector>

namespace example {

// The library's record only points to its arrays; here is who owns them.
class SampleMaps {
  public:
    explicit SampleMaps(const std::string& user) : user_(user) {
        addMap("世界 & <城市>", 0, 2, "南京 \"主城\" 🌏");
        addMap("Grundriss 'EG' 🏢", 1, 1, "");
        addMap("二楼", 1, 1, "");
        addItem("Kamera <1> & \"2\"", 1, "-118.25", "+0031.500");
        addItem("火警 🔥", 2, "0.1e2", "1,5");
        addItem("O'Brien's Tor", 2, "", "-0");
        addItem("电梯", 3, "99999999999999999999999999999999", "0"); // fills its field
    }

    veltoprotocol::__tagVtUserEMapInfo record() {
        veltoprotocol::__tagVtUserEMapInfo record = {};
        fill(record.UserGuid, user_);
        record.EMapInfoCount = static_cast<int>(maps_.size());
        record.EMapInfos = maps_.data();
        record.EMapItemCount = static_cast<int>(items_.size());
        record.EMapItems = items_.data();
        return record;
    }

  private:
    // `parent` is the number of the map that contains it, from 1; 0 for none.
    void addMap(const char* name, int parent, int type, const char* city) {
        const int number = static_cast<int>(maps_.size()) + 1;
        veltoprotocol::__tagVtEMapInfo map = {};
        fill(map.MapInfoGuid, guid('5', number));
        if (parent > 0) fill(map.ParentMapGuid, guid('5', parent));
        map.MapType = type;
        fill(map.GisCenterCityName, city);
        fill(map.GisPosX, "118.796877");
        fill(map.GisPosY, "-32.060255");
        map.GisZoom = -number;
        fill(map.CustomizeImagePath, "/maps/Plan & <" + std::to_string(number) + ">.jpg");
        map.CustomizeImageSize = 2147483647 - number;
        map.CustomizeImageType = 3;
        fill(map.MapName, name);
        map.Status = 1;
        map.LastTime = 4294967295U - static_cast<unsigned int>(number); // unsigned on the wire as well
        maps_.push_back(map);
    }

    void addItem(const char* name, int map, const char* x, const char* y) {
        const int number = static_cast<int>(items_.size()) + 1;
        veltoprotocol::__tagVtEMapItemParam item = {};
        fill(item.MapItemGuid, guid('4', number));
        fill(item.MapInfoGuid, guid('5', map));
        fill(item.ItemContentGuid, guid('c', number));
        item.ItemType = number;
        fill(item.DisplayName, name);
        fill(item.Discription, std::string("说明: ") + name);
        fill(item.PosX, x);
        fill(item.PosY, y);
        item.Status = -number;
        items_.push_back(item);
    }

    const std::string user_;
    std::vector<veltoprotocol::__tagVtEMapInfo> maps_;
    std::vector<veltoprotocol::__tagVtEMapItemParam> items_;
};

} // namespace example

#endif
