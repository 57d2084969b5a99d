// View groups to store: groups, views, panes and carousels, with names as they occur in the world.
#ifndef EXAMPLES_SAMPLE_LAYOUT_H
#define EXAMPLES_SAMPLE_LAYOUT_H

#include "support/sample_inventory.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>

#include <string>
#include <utility>
#include <vector>

namespace example {

// The kinds of panes; 5 is the protocol's, the others are the application's.
enum PaneType { cameraPane = 1, pagePane = 3, mapPane = 4, carouselPane = 5 };

// The library's records only point to their arrays; here is who owns them. A layout can be moved: the arrays
// stay where they are.
class SampleLayout {
  public:
    using Group = veltoprotocol::__tagVtGroupItem;
    using View = veltoprotocol::__tagVtViewInfo;
    using Pane = veltoprotocol::__tagVtViewItem;
    using Step = veltoprotocol::__tagVtCarouselItem;

    SampleLayout(const std::string& viewGroup, const std::string& user) {
        fill(info.ViewGroupGuid, viewGroup);
        fill(info.UserGuid, user);
    }
    SampleLayout(SampleLayout&&) = default;
    SampleLayout& operator=(SampleLayout&&) = default;

    Step step(const char* name, int channel, int seconds) {
        Step step = named<Step>();
        fill(step.DisplayName, name);
        fill(step.ChannelGuid, guid('c', channel));
        step.ShowTime = seconds;
        step.VideoStreamType = channel % 2;
        return step;
    }

    Pane pane(int type, const char* name, const std::string& camera, const char* url = "") {
        Pane pane = named<Pane>();
        fill(pane.displayname, name);
        pane.type = type;
        fill(pane.iteminfo.id, guid('7', ++ids_));
        fill(pane.iteminfo.displayname, std::string("▶ ") + name);
        fill(pane.iteminfo.cameraid, camera);
        fill(pane.iteminfo.url, url);
        pane.iteminfo.VideoStreamType = type - 2; // so that one is below 0
        return pane;
    }

    Pane carousel(const char* name, std::vector<Step> steps) {
        for (Step& step : steps) step.Index = static_cast<int>(&step - steps.data()) + 1;
        Pane pane = this->pane(carouselPane, name, "");
        pane.iteminfo.carouselcount = static_cast<int>(steps.size());
        pane.iteminfo.carousels = kept(steps_, std::move(steps));
        return pane;
    }

    View view(const char* name, int seconds, std::vector<Pane> panes) {
        for (Pane& pane : panes) pane.itemnumber = static_cast<int>(&pane - panes.data());
        View view = named<View>();
        fill(view.displayname, name);
        view.viewlayouttype = static_cast<int>(panes.size());
        view.viewscaletype = 2;
        view.showtime = seconds;
        view.enablecarousel = seconds > 0 ? 1 : 0;
        view.itemcount = static_cast<int>(panes.size());
        view.items = kept(panes_, std::move(panes));
        return view;
    }

    // Returns its id, for groups to stand under it.
    std::string add(const char* name, const std::string& parent, std::vector<View> views) {
        Group group = named<Group>();
        fill(group.displayname, name);
        fill(group.parentguid, parent);
        group.viewcount = static_cast<int>(views.size());
        group.views = kept(views_, std::move(views));
        groups_.push_back(group);
        return text(group.id);
    }

    veltoprotocol::__tagVtViewGroupData data() { return {groups_.data(), static_cast<int>(groups_.size())}; }

    veltoprotocol::__tagVtViewGroupInfo info = {};

  private:
    template <class Record>
    Record named() {
        Record record = {};
        fill(record.id, guid('7', ++ids_));
        return record;
    }

    template <class Record>
    static Record* kept(std::vector<std::vector<Record>>& all, std::vector<Record> records) {
        all.push_back(std::move(records));
        return all.back().data();
    }

    int ids_ = 0;
    std::vector<Group> groups_;
    std::vector<std::vector<View>> views_;
    std::vector<std::vector<Pane>> panes_;
    std::vector<std::vector<Step>> steps_;
};

// Two groups, the second under the first.
inline SampleLayout sampleLayout(const std::string& viewGroup, const std::string& user) {
    SampleLayout l(viewGroup, user);
    fill(l.info.Name, "早班 <Früh> & \"Tag\" 🌅");
    l.info.ViewGroupType = 2;
    l.info.LastModifiedTime = -1;
    fill(l.info.LastModifieduser, "O'Brien & Söhne");
    const std::string ground =
        l.add("一楼 & 大厅 🏢", "",
              {l.view("Eingang 'Nord'", 30,
                      {l.pane(cameraPane, "北门入口", guid('c', 7)),
                       l.carousel("轮巡 <夜间> 🌙", {l.step("停车场 & 车库", 8, 10), l.step("Tür <3>", 3, 15),
                                                    l.step("🅿️ \"Parkdeck\"", 16, 20)})}),
               l.view("Seiten", 0,
                      {l.pane(pagePane, "Wetter", "", "https://example.org/?ort=Süd&tag=1#<'heute'>")})});
    l.add("二楼", ground,
          {l.view("电梯 \"Aufzüge\" >1<", 0,
                  // The name fills its field to the last byte.
                  {l.pane(cameraPane, "📹📹📹📹📹📹📹📹📹📹📹📹📹📹📹📹", guid('c', 10)), l.carousel("leer", {}),
                   l.carousel("einer", {l.step("Straße", 6, 2147483647)})})});
    return l;
}

// What takes its place later, under the same GUID.
inline SampleLayout otherLayout(const std::string& viewGroup, const std::string& user) {
    SampleLayout l(viewGroup, user);
    fill(l.info.Name, "晚班 <Spät>");
    l.info.ReadOnly = true;
    l.info.LastModifiedTime = 1767225600;
    fill(l.info.LastModifieduser, "夜班经理");
    l.add("🌃", "", {l.view("Plan", 5, {l.pane(mapPane, "Lageplan & 'Hof'", "")})});
    return l;
}

} // namespace example

#endif
