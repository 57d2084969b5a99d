// Compares a layout that came back with the one that was stored, field by field. What the wire carries is as
// it was; ownerid, which it does not carry, is the id of the record above.
#ifndef EXAMPLES_LAYOUT_COMPARISON_H
#define EXAMPLES_LAYOUT_COMPARISON_H

#include "support/comparison.h"

#include <LibVeltoProtocol.h>

#include <string>

namespace example {

// "view 1", "pane " and 0 are "view 1, pane 1".
inline std::string place(const std::string& above, const char* kind, int index) {
    return above + (above.empty() ? "" : ", ") + kind + std::to_string(index + 1);
}

inline void compare(Comparison& check, const std::string& where,
                    const veltoprotocol::__tagVtViewGroupInfo& wanted,
                    const veltoprotocol::__tagVtViewGroupInfo& found) {
    check.same(where, "ViewGroupGuid", wanted.ViewGroupGuid, found.ViewGroupGuid);
    check.same(where, "UserGuid", wanted.UserGuid, found.UserGuid);
    check.same(where, "ReadOnly", wanted.ReadOnly, found.ReadOnly);
    check.same(where, "Name", wanted.Name, found.Name);
    check.same(where, "ViewGroupType", wanted.ViewGroupType, found.ViewGroupType);
    check.same(where, "LastModifiedTime", wanted.LastModifiedTime, found.LastModifiedTime);
    check.same(where, "LastModifieduser", wanted.LastModifieduser, found.LastModifieduser);
}

inline void compare(Comparison& check, const std::string& where,
                    const veltoprotocol::__tagVtViewItemInfo& above,
                    const veltoprotocol::__tagVtCarouselItem& wanted,
                    const veltoprotocol::__tagVtCarouselItem& found) {
    check.same(where, "id", wanted.id, found.id);
    check.same(where, "ownerid", above.id, found.ownerid);
    check.same(where, "ChannelGuid", wanted.ChannelGuid, found.ChannelGuid);
    check.same(where, "ShowTime", wanted.ShowTime, found.ShowTime);
    check.same(where, "Index", wanted.Index, found.Index);
    check.same(where, "DisplayName", wanted.DisplayName, found.DisplayName);
    check.same(where, "VideoStreamType", wanted.VideoStreamType, found.VideoStreamType);
}

inline void compare(Comparison& check, const std::string& where, const veltoprotocol::__tagVtViewItem& above,
                    const veltoprotocol::__tagVtViewItemInfo& wanted,
                    const veltoprotocol::__tagVtViewItemInfo& found) {
    check.same(where, "id", wanted.id, found.id);
    check.same(where, "ownerid", above.id, found.ownerid);
    check.same(where, "cameraid", wanted.cameraid, found.cameraid);
    check.same(where, "url", wanted.url, found.url);
    check.same(where, "displayname", wanted.displayname, found.displayname);
    check.same(where, "VideoStreamType", wanted.VideoStreamType, found.VideoStreamType);
    check.same(where, "carouselcount", wanted.carouselcount, found.carouselcount);
    for (int i = 0; i < wanted.carouselcount; ++i)
        compare(check, place(where, "step ", i), wanted, wanted.carousels[i], found.carousels[i]);
}

inline void compare(Comparison& check, const std::string& where, const veltoprotocol::__tagVtViewInfo& above,
                    const veltoprotocol::__tagVtViewItem& wanted,
                    const veltoprotocol::__tagVtViewItem& found) {
    check.same(where, "id", wanted.id, found.id);
    check.same(where, "ownerid", above.id, found.ownerid);
    check.same(where, "displayname", wanted.displayname, found.displayname);
    check.same(where, "itemnumber", wanted.itemnumber, found.itemnumber);
    check.same(where, "type", wanted.type, found.type);
    compare(check, where + ", iteminfo", wanted, wanted.iteminfo, found.iteminfo);
}

inline void compare(Comparison& check, const std::string& where, const veltoprotocol::__tagVtGroupItem& above,
                    const veltoprotocol::__tagVtViewInfo& wanted,
                    const veltoprotocol::__tagVtViewInfo& found) {
    check.same(where, "id", wanted.id, found.id);
    check.same(where, "ownerid", above.id, found.ownerid);
    check.same(where, "displayname", wanted.displayname, found.displayname);
    check.same(where, "viewlayouttype", wanted.viewlayouttype, found.viewlayouttype);
    check.same(where, "viewscaletype", wanted.viewscaletype, found.viewscaletype);
    check.same(where, "showtime", wanted.showtime, found.showtime);
    check.same(where, "enablecarousel", wanted.enablecarousel, found.enablecarousel);
    check.same(where, "itemcount", wanted.itemcount, found.itemcount);
    for (int i = 0; i < wanted.itemcount; ++i)
        compare(check, place(where, "pane ", i), wanted, wanted.items[i], found.items[i]);
}

// Nothing stands above a group, so its ownerid stays empty; the group it belongs to is parentguid.
inline void compare(Comparison& check, const std::string& where,
                    const veltoprotocol::__tagVtGroupItem& wanted,
                    const veltoprotocol::__tagVtGroupItem& found) {
    check.same(where, "id", wanted.id, found.id);
    check.same(where, "ownerid", wanted.ownerid, found.ownerid);
    check.same(where, "displayname", wanted.displayname, found.displayname);
    check.same(where, "parentguid", wanted.parentguid, found.parentguid);
    check.same(where, "viewcount", wanted.viewcount, found.viewcount);
    for (int i = 0; i < wanted.viewcount; ++i)
        compare(check, place(where, "view ", i), wanted, wanted.views[i], found.views[i]);
}

inline void compare(Comparison& check, const veltoprotocol::__tagVtViewGroupData& wanted,
                    const veltoprotocol::__tagVtViewGroupData& found) {
    check.same("layout", "groupcount", wanted.groupcount, found.groupcount);
    for (int i = 0; i < wanted.groupcount; ++i)
        compare(check, place("", "group ", i), wanted.groups[i], found.groups[i]);
}

} // namespace example

#endif
