// The messages as a user of an XML library would build them. Each is written once, over `x`, an element of
// one of the libraries: x.element(name, inside) appends a child, x.attribute() and x.value() (a child with a
// text) take texts and ints. The wrappers in this folder are inlined and cost nothing.
#pragma once

#include "by_hand/fields.h"

namespace bench::by_hand {

template <class X>
auto attributesOf(X& x) {
    return [&x](const char* name, const auto& value) { x.attribute(name, value); };
}
template <class X>
auto valuesOf(X& x) {
    return [&x](const char* name, const auto& value) { x.value(name, value); };
}

template <class X>
void parameters(X x, const ResultAnswer& answer) {
    x.value("Result", answer.result);
}

template <class X>
void parameters(X x, const AlarmPush& push) {
    x.element("Notifications", [&](auto notifications) {
        notifications.element("MessageNotification", [&](auto notification) {
            notification.attribute("MessageType", 300);
            notification.element("AlarmData", [&](auto data) { alarmFields(push.alarm, valuesOf(data)); });
        });
    });
}

template <class X>
void parameters(X x, const DeviceList& list) {
    x.value("Result", 0);
    x.value("DeviceCounter", static_cast<int>(list.inventory.devices.size()));
    for (const Device& device : list.inventory.devices)
        x.element("Devices", [&](auto devices) {
            devices.element("Device", [&](auto one) { deviceFields(device, attributesOf(one)); });
        });
    x.value("ChannelCounter", static_cast<int>(list.inventory.channels.size()));
    for (const Channel& channel : list.inventory.channels)
        x.element("Channels", [&](auto channels) {
            channels.value("DeviceGuid", channel.DeviceGuid);
            channels.element("Video", [&](auto video) {
                video.element("Channel", [&](auto one) { channelFields(channel, attributesOf(one)); });
            });
        });
}

template <class X>
void pane(X x, const Pane& pane) {
    paneFields(pane, attributesOf(x));
    x.element("Iteminfo", [&](auto info) {
        paneInfoFields(pane.iteminfo, attributesOf(info));
        if (pane.type != 5) return;
        info.value("CarouselsCounter", pane.iteminfo.carouselcount);
        for (int i = 0; i < pane.iteminfo.carouselcount; ++i)
            info.element("Carousels", [&](auto wrapper) {
                wrapper.element("Carousel", [&](auto step) {
                    stepFields(pane.iteminfo.carousels[i], attributesOf(step));
                });
            });
    });
}

template <class X>
void view(X x, const View& view) {
    viewFields(view, attributesOf(x));
    x.value("ViewitemsCounter", view.itemcount);
    for (int i = 0; i < view.itemcount; ++i)
        x.element("Viewitems", [&](auto wrapper) {
            wrapper.element("Viewitem", [&](auto item) { pane(item, view.items[i]); });
        });
}

template <class X>
void group(X x, const Group& group) {
    groupFields(group, attributesOf(x));
    x.value("ViewsCounter", group.viewcount);
    for (int i = 0; i < group.viewcount; ++i)
        x.element("Views", [&](auto wrapper) {
            wrapper.element("View", [&](auto one) { view(one, group.views[i]); });
        });
}

template <class X>
void parameters(X x, const LayoutAnswer& answer) {
    x.value("Result", 0);
    x.element("ViewGroupInfo", [&](auto info) { viewGroupInfoFields(answer.layout.info, valuesOf(info)); });
    x.element("ViewGroupData", [&](auto outer) {
        outer.element("ViewGroupDataXml", [&](auto inner) {
            const Layout& layout = answer.layout.data;
            inner.value("GroupsCounter", layout.groupcount);
            for (int i = 0; i < layout.groupcount; ++i)
                inner.element("Groups", [&](auto wrapper) {
                    wrapper.element("Group", [&](auto one) { group(one, layout.groups[i]); });
                });
        });
    });
}

// What stands in the root element.
template <class X, class Message>
void insideRoot(X x, const Message& message) {
    x.value("seqnum", static_cast<int>(message.seqnum));
    x.value("version", "1.0.0");
    x.element("response", [&](auto response) {
        response.attribute("name", message.command);
        parameters(response, message);
    });
}

} // namespace bench::by_hand
