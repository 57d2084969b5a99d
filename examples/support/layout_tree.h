// Shows a layout to people, as an indented tree.
#ifndef EXAMPLES_LAYOUT_TREE_H
#define EXAMPLES_LAYOUT_TREE_H

#include "support/text_fields.h"
#include "support/transcript.h"

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

namespace example {

class LayoutTree {
  public:
    // Gives the lines of the tree to `line`.
    LayoutTree(const veltoprotocol::__tagVtViewGroupData& layout,
               std::function<void(const std::string&)> line)
        : layout_(layout), line_(std::move(line)) {}

    // Groups come one after another on the wire; parentguid says which one stands under which.
    void show() {
        showGroupsUnder(none, 1);
        // Groups that stand under each other in a circle are under none that was shown.
        for (; shown_ < layout_.groupcount; ++shown_) line_("  (a group that has no place in the tree)");
    }

  private:
    static constexpr int none = -1;

    // Each group has one parent, so none is shown twice.
    void showGroupsUnder(int parent, int depth) {
        for (int i = 0; i < layout_.groupcount; ++i) {
            if (parentOf(i) != parent) continue;
            ++shown_;
            show(layout_.groups[i], depth);
            showGroupsUnder(i, depth + 1);
        }
    }

    int parentOf(int group) const {
        for (int i = 0; i < layout_.groupcount; ++i)
            if (text(layout_.groups[i].id) == text(layout_.groups[group].parentguid)) return i;
        return none;
    }

    void show(const veltoprotocol::__tagVtGroupItem& group, int depth) {
        tell(depth, "group " + text(group.displayname));
        for (int i = 0; i < group.viewcount; ++i) show(group.views[i], depth + 1);
    }

    void show(const veltoprotocol::__tagVtViewInfo& view, int depth) {
        const bool takesTurns = view.enablecarousel != 0;
        tell(depth, "view " + text(view.displayname) +
                        (takesTurns ? ", " + std::to_string(view.showtime) + " s" : ""));
        for (int i = 0; i < view.itemcount; ++i) show(view.items[i], depth + 1);
    }

    void show(const veltoprotocol::__tagVtViewItem& pane, int depth) {
        const veltoprotocol::__tagVtViewItemInfo& info = pane.iteminfo;
        std::string shown = "pane " + std::to_string(pane.itemnumber) + ", type " +
                            std::to_string(pane.type) + ": " + text(pane.displayname);
        if (info.cameraid[0] != '\0') shown += ", camera " + text(info.cameraid);
        if (info.url[0] != '\0') shown += ", page " + text(info.url);
        tell(depth, shown);
        for (int i = 0; i < info.carouselcount; ++i) {
            const veltoprotocol::__tagVtCarouselItem& step = info.carousels[i];
            tell(depth + 1, "step " + std::to_string(step.Index) + ", " + std::to_string(step.ShowTime) +
                                " s: " + text(step.DisplayName));
        }
    }

    void tell(int depth, const std::string& shown) {
        line_(std::string(static_cast<std::size_t>(depth) * 2, ' ') + printable(shown));
    }

    const veltoprotocol::__tagVtViewGroupData& layout_;
    const std::function<void(const std::string&)> line_;
    int shown_ = 0;
};

} // namespace example

#endif
