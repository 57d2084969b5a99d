#include "properties/encoder_calls.h"

#include "properties/drawn_maps.h"

namespace veltoprotocol {
namespace {

struct MapArguments : Arguments {
    Array<__tagVtEMapInfo> maps = draw.array(drawnMap, 0, 2);
    Array<__tagVtEMapItemParam> items = draw.array(drawnMapItem, 0, 2);
    __tagVtEMapInfo map = drawnMap(draw);
    __tagVtEMapItemParam item = drawnMapItem(draw);
    __tagVtUserEMapInfo user = drawn(draw, &__tagVtUserEMapInfo::UserGuid);

    MapArguments(unsigned seed, Texts texts) : Arguments(seed, texts) {
        attach(maps, user.EMapInfos, user.EMapInfoCount);
        attach(items, user.EMapItems, user.EMapItemCount);
    }
};

} // namespace

void visitMaps(unsigned seed, Texts texts, const Visit& visit) {
    const MapArguments a(seed, texts);
    REQUEST(GetEMapInfoReqEncode, a.host, a.token, a.seqnum, a.orNull(a.user), out, size);
    RESPONSE(GetEMapInfoRespEncode, a.result, a.seqnum, a.orNull(a.user), out, size);
    REQUEST(GetSetEMapInfoReqEncode, a.orNull(a.user), a.host, a.token, a.seqnum, out, size);
    RESPONSE(GetSetEMapInfoRespEncode, a.result, a.seqnum, out, size);
    ELEMENT(GetEMapInfoEncode, element, a.orNull(a.map));
    ELEMENT(GetEMapItemParamEncode, element, a.orNull(a.item));
}

} // namespace veltoprotocol
