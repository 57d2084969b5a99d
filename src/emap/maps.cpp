// The electronic maps of a user, and the items placed on them.
#include "framing/decoded.h"
#include "framing/message.h"
#include "framing/tree.h"
#include "framing/walk.h"
#include "veltoprotocol/emap.h"

#include <memory>

namespace veltoprotocol {
namespace {

using Map = __tagVtEMapInfo;
using MapItem = __tagVtEMapItemParam;
using UserMaps = __tagVtUserEMapInfo;
using OwnedMaps = std::unique_ptr<UserMaps, void (*)(UserMaps*)>;

// Positions are texts: what a peer wrote comes back byte for byte.
constexpr auto mapFields = elements(
    "EMapInfo", field("MapInfoGuid", &Map::MapInfoGuid), field("ParentMapGuid", &Map::ParentMapGuid),
    field("MapType", &Map::MapType), field("GisCenterCityName", &Map::GisCenterCityName),
    field("GisPosX", &Map::GisPosX), field("GisPosY", &Map::GisPosY), field("GisZoom", &Map::GisZoom),
    field("CustomizeImagePath", &Map::CustomizeImagePath).upTo(1024),
    field("CustomizeImageSize", &Map::CustomizeImageSize),
    field("CustomizeImageType", &Map::CustomizeImageType), field("MapName", &Map::MapName),
    field("Status", &Map::Status), field("LastTime", &Map::LastTime));

constexpr auto itemFields = elements(
    "EMapItem", field("MapItemGuid", &MapItem::MapItemGuid), field("MapInfoGuid", &MapItem::MapInfoGuid),
    field("ItemContentGuid", &MapItem::ItemContentGuid), field("ItemType", &MapItem::ItemType),
    field("DisplayName", &MapItem::DisplayName), field("Discription", &MapItem::Discription),
    field("PosX", &MapItem::PosX), field("PosY", &MapItem::PosY), field("Status", &MapItem::Status));

template <class X>
void writeMaps(X x, const UserMaps& user) {
    if (user.EMapInfoCount > 0)
        x.element("EMapInfos", attribute("count", user.EMapInfoCount), [&](auto list) {
            for (const auto& map : entries(user.EMapInfos, user.EMapInfoCount))
                list.element("EMapInfo", mapFields(map));
        });
    if (user.EMapItemCount > 0)
        x.element("EMapItems", attribute("count", user.EMapItemCount), [&](auto list) {
            for (const auto& item : entries(user.EMapItems, user.EMapItemCount))
                list.element("EMapItem", itemFields(item));
        });
}

// A list with its count. Both lists of a message share one budget.
template <class Entry>
void readList(const Walk& list, const char* label, const char* name, Budget& budget, int& count,
              Entry*& entries, Entry (*decode)(TiXmlElement*, int*), int* error) {
    if (!list) return;
    GetIntValueAtt(list.element(), label, "count", &count);
    if (count < 1) return;
    entries = budget.zeroed<Entry>(static_cast<unsigned int>(count));
    fillFrom(list.element(), name, entries, count,
             [&](TiXmlElement* element, Entry& entry) { entry = decode(element, error); });
}

void readMaps(const Walk& command, UserMaps& user, int* error) {
    Budget budget;
    readList(command.optional("EMapInfos"), "EMapInfos", "EMapInfo", budget, user.EMapInfoCount,
             user.EMapInfos, GetEMapInfoDecode, error);
    readList(command.optional("EMapItems"), "EMapItems", "EMapItem", budget, user.EMapItemCount,
             user.EMapItems, GetEMapItemParamDecode, error);
}

} // namespace

int GetEMapInfoReqEncode(const char* host, const char* token, unsigned int seqnum, const UserMaps* user,
                         char* out, int size) {
    if (!user) return -1;
    const auto tree = [&](auto x) { x.value("UserGuid", user->UserGuid); };
    return Request("GetEMapInfo", seqnum, Token{token}).post(commandPath, host, tree, out, size);
}

int GetEMapInfoRespEncode(int result, unsigned int seqnum, const UserMaps* user, char* out, int size) {
    const auto tree = [&](auto x) {
        x.value("Result", result);
        if (result == 0 && user) writeMaps(x, *user); // kept: the user is not named here
    };
    return Response("GetEMapInfo", seqnum).reply(tree, out, size);
}

int GetSetEMapInfoReqEncode(const UserMaps* user, const char* host, const char* token, unsigned int seqnum,
                            char* out, int size) {
    const auto tree = [&](auto x) {
        if (!user) return;
        x.value("UserGuid", user->UserGuid);
        writeMaps(x, *user);
    };
    return Request("SetEMapInfo", seqnum, Token{token}).post(commandPath, host, tree, out, size);
}

int GetSetEMapInfoRespEncode(int result, unsigned int seqnum, char* out, int size) {
    return GetRespEncode(result, seqnum, out, size, "SetEMapInfo", "keep-alive");
}

int GetEMapInfoEncode(TiXmlElement* parent, const Map* map) { return writeRecord(parent, mapFields, map); }

int GetEMapItemParamEncode(TiXmlElement* parent, const MapItem* item) {
    return writeRecord(parent, itemFields, item);
}

Map GetEMapInfoDecode(TiXmlElement* emapInfo, int* error) { return readRecord(emapInfo, mapFields, error); }

MapItem GetEMapItemParamDecode(TiXmlElement* emapItem, int* error) {
    return readRecord(emapItem, itemFields, error);
}

UserMaps* GetSetEMapInfoReqDecode(TiXmlDocument* doc, int* error) {
    const Walk request = Walk(doc, error).optional("servercommandservice").optional("request");
    if (!request) return nullptr;
    OwnedMaps user(new UserMaps(), EMapInfoDecodeRelease);
    GetStringValue(request.element(), "request", "UserGuid", user->UserGuid, sizeof user->UserGuid);
    readMaps(request, *user, error);
    return user.release();
}

UserMaps* GetEMapInfoRespDecode(TiXmlDocument* doc, int* error) {
    const Walk response = Walk(doc, error).optional("servercommandservice").optional("response");
    if (!response) return nullptr;
    OwnedMaps user(new UserMaps(), EMapInfoDecodeRelease);
    readMaps(response, *user, error);
    return user.release();
}

void EMapInfoDecodeRelease(UserMaps* user) {
    if (!user) return;
    delete[] user->EMapInfos;
    delete[] user->EMapItems;
    delete user;
}

} // namespace veltoprotocol
