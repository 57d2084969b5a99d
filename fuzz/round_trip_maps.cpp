#include "fuzz/round_trip.h"

using namespace veltoprotocol;

namespace {

using Map = __tagVtEMapInfo;
Trip<Map> map(Draw& draw) {
    Trip<Map> trip(draw);
    trip.carry(Carrier::elements, &Map::MapInfoGuid, &Map::ParentMapGuid, &Map::MapType,
               &Map::GisCenterCityName, &Map::GisPosX, &Map::GisPosY, &Map::GisZoom, &Map::CustomizeImageSize,
               &Map::CustomizeImageType, &Map::MapName, &Map::Status, &Map::LastTime);
    trip.carryUpTo(1024, Carrier::elements, &Map::CustomizeImagePath);
    return trip;
}

using Item = __tagVtEMapItemParam;
Trip<Item> item(Draw& draw) {
    Trip<Item> trip(draw);
    trip.carry(Carrier::elements, &Item::MapItemGuid, &Item::MapInfoGuid, &Item::ItemContentGuid,
               &Item::ItemType, &Item::DisplayName, &Item::Discription, &Item::PosX, &Item::PosY,
               &Item::Status);
    return trip;
}

using User = __tagVtUserEMapInfo;
using Owned = std::unique_ptr<User, void (*)(User*)>;

void requireSameUser(const Owned& got, User want, const std::vector<Trip<Map>>& maps,
                     const std::vector<Trip<Item>>& items) {
    require(got != nullptr, "no maps");
    want.EMapInfos = got->EMapInfos;
    want.EMapItems = got->EMapItems;
    requireSameRecord("a user's maps", *got, want);
    for (std::size_t i = 0; i < maps.size(); ++i) requireSameRecord("a map", got->EMapInfos[i], maps[i].back);
    for (std::size_t i = 0; i < items.size(); ++i)
        requireSameRecord("an item", got->EMapItems[i], items[i].back);
}

void userMaps(Draw& draw) {
    const auto maps = severalTrips<Map>(draw, map);
    const auto items = severalTrips<Item>(draw, item);
    auto sentMaps = sentOf(maps);
    auto sentItems = sentOf(items);
    Trip<User> user(draw);
    user.carry(Carrier::elements, &User::UserGuid);
    user.sent.EMapInfos = sentMaps.data();
    user.sent.EMapItems = sentItems.data();
    user.sent.EMapInfoCount = user.back.EMapInfoCount = static_cast<int>(maps.size());
    user.sent.EMapItemCount = user.back.EMapItemCount = static_cast<int>(items.size());
    const Arrived request(
        [&](char* out, int size) { return GetSetEMapInfoReqEncode(&user.sent, "h", "t", 1, out, size); });
    const Arrived answer(
        [&](char* out, int size) { return GetEMapInfoRespEncode(0, 1, &user.sent, out, size); });
    int error = 7;
    requireSameUser(Owned(GetSetEMapInfoReqDecode(request.doc.get(), &error), EMapInfoDecodeRelease),
                    user.back, maps, items);
    User unnamed = user.back;
    std::memset(unnamed.UserGuid, 0, sizeof unnamed.UserGuid); // the answer does not say whose they are
    requireSameUser(Owned(GetEMapInfoRespDecode(answer.doc.get(), &error), EMapInfoDecodeRelease), unnamed,
                    maps, items);
    requireBackAlone("a map alone", maps.front(), GetEMapInfoEncode, GetEMapInfoDecode);
    requireBackAlone("an item alone", items.front(), GetEMapItemParamEncode, GetEMapItemParamDecode);
}

} // namespace

std::vector<RoundTrip> mapTrips() { return {{"SetEMapInfo", userMaps}}; }
