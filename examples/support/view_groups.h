// View groups as they are read from messages: owned, so that nobody forgets to give the memory back.
#ifndef EXAMPLES_VIEW_GROUPS_H
#define EXAMPLES_VIEW_GROUPS_H

#include "support/device_list.h"
#include "support/whole_list.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace example {

// begin owned
struct ReleaseViewGroup {
    void operator()(veltoprotocol::__tagVtViewGroup* group) const {
        veltoprotocol::ReleaseSetViewGroupData(group); // the layout; the record is the caller's
        delete group;
    }
};
using ViewGroup = std::unique_ptr<veltoprotocol::__tagVtViewGroup, ReleaseViewGroup>;

// What a server gets to store.
inline ViewGroup readViewGroup(TiXmlDocument* request, int* error) {
    ViewGroup group(new veltoprotocol::__tagVtViewGroup());
    *group = veltoprotocol::GetSetViewGroupData(request, error);
    return group;
}
// end owned

// Everything that was counted is there, and has an id.
inline bool isWhole(const veltoprotocol::__tagVtViewGroupData& layout) {
    const auto step = [](const auto& carousel) { return carousel.id[0] != '\0'; };
    const auto item = [&](const auto& one) {
        return one.id[0] != '\0' && isWhole(one.iteminfo.carousels, one.iteminfo.carouselcount, step);
    };
    const auto view = [&](const auto& one) {
        return one.id[0] != '\0' && isWhole(one.items, one.itemcount, item);
    };
    const auto group = [&](const auto& one) {
        return one.id[0] != '\0' && isWhole(one.views, one.viewcount, view);
    };
    return isWhole(layout.groups, layout.groupcount, group);
}

inline TiXmlElement* responseOf(TiXmlDocument* document) {
    TiXmlElement* const root = document ? document->FirstChildElement("servercommandservice") : nullptr;
    TiXmlElement* const response = root ? root->FirstChildElement("response") : nullptr;
    if (!response) throw std::runtime_error("there is no response");
    return response;
}

// The answer with a layout: head and tree.
class FetchedLayout {
  public:
    explicit FetchedLayout(TiXmlDocument* document) {
        int error = -1;
        info_ = veltoprotocol::GetViewGroupInfoParamDecode(
            responseOf(document)->FirstChildElement("ViewGroupInfo"), &error);
        if (error != 0) throw std::runtime_error("the answer has no head");
        data_ = veltoprotocol::GetViewGroupDataParamDecode(document, &error);
        if (error == 0 && isWhole(data_)) return;
        veltoprotocol::ReleaseViewGroupDataParam(&data_);
        throw std::runtime_error("the layout is not whole");
    }
    ~FetchedLayout() { veltoprotocol::ReleaseViewGroupDataParam(&data_); }
    FetchedLayout(const FetchedLayout&) = delete;
    FetchedLayout& operator=(const FetchedLayout&) = delete;

    const veltoprotocol::__tagVtViewGroupInfo& info() const { return info_; }
    const veltoprotocol::__tagVtViewGroupData& data() const { return data_; }

  private:
    veltoprotocol::__tagVtViewGroupInfo info_ = {};
    veltoprotocol::__tagVtViewGroupData data_ = {};
};

// The library decodes one entry; the walk along the catalogue is the receiver's.
inline std::vector<veltoprotocol::__tagVtViewGroupInfo> readCatalogue(TiXmlDocument* document) {
    TiXmlElement* const response = responseOf(document);
    std::vector<veltoprotocol::__tagVtViewGroupInfo> catalogue;
    for (TiXmlElement* entry = response->FirstChildElement("ViewGroupInfo"); entry;
         entry = entry->NextSiblingElement("ViewGroupInfo"))
        catalogue.push_back(veltoprotocol::GetViewGroupInfoParamDecode(entry, nullptr));
    checkCounter(response, "ViewGroupInfoCounter", catalogue.size());
    return catalogue;
}

} // namespace example

#endif
