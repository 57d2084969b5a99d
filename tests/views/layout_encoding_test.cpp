// What the two commands that carry a layout write.
#include "support/encoded.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>

#include <cstring>

using namespace veltoprotocol;

namespace {

// Whatever is not filled in afterwards would be seen if it were written.
template <class Record>
void makeNoise(Record& record) {
    std::memset(static_cast<void*>(&record), 'n', sizeof record);
}

// Two groups, the first with two views, of which the first has two items, of which the first is a carousel.
struct Sample {
    Sample() {
        makeNoise(carousels);
        makeNoise(items);
        makeNoise(views);
        makeNoise(groups);
        makeNoise(info);
        fillCarousel(0, "k-1", "c-1", "K <1>", 61);
        fillCarousel(1, "k-2", "c-2", "", -65);
        fillItem(0, "i-1", "I 1", 41, 5);
        fillItemInfo(0, "f-1", "m-1", "http://x/?a=1&b=2", "F \"1\"", 51);
        fillItem(1, "i-2", "", -42, 4);
        fillItemInfo(1, "f-2", "m-2", "", "F 2", -52);
        fillView(0, "v-1", "V 1", 31, items, 2);
        fillView(1, "v-2", "", -35, items, 0);
        fillGroup(0, "g-1", "G 1", "p-1", views, 2);
        fillGroup(1, "g-2", "G 2", "", nullptr, 0);
        std::strcpy(info.ViewGroupGuid, "h-1");
        std::strcpy(info.UserGuid, "u-1");
        info.ReadOnly = true;
        std::strcpy(info.Name, "lobby & hall");
        info.ViewGroupType = 3;
        info.LastModifiedTime = -4;
        std::strcpy(info.LastModifieduser, "somebody");
        layout = {groups, 2};
    }
    Sample(const Sample&) = delete;
    Sample& operator=(const Sample&) = delete;

    void fillCarousel(int i, const char* id, const char* channel, const char* name, int number) {
        __tagVtCarouselItem& carousel = carousels[i];
        std::strcpy(carousel.id, id);
        std::strcpy(carousel.ChannelGuid, channel);
        std::strcpy(carousel.DisplayName, name);
        carousel.ShowTime = number;
        carousel.Index = number + 1;
        carousel.VideoStreamType = number + 2;
    }
    void fillItem(int i, const char* id, const char* name, int number, int type) {
        std::strcpy(items[i].id, id);
        std::strcpy(items[i].displayname, name);
        items[i].itemnumber = number;
        items[i].type = type;
    }
    void fillItemInfo(int i, const char* id, const char* camera, const char* url, const char* name,
                      int stream) {
        __tagVtViewItemInfo& shown = items[i].iteminfo;
        std::strcpy(shown.id, id);
        std::strcpy(shown.cameraid, camera);
        std::strcpy(shown.url, url);
        std::strcpy(shown.displayname, name);
        shown.VideoStreamType = stream;
        shown.carousels = carousels;
        shown.carouselcount = 2;
    }
    void fillView(int i, const char* id, const char* name, int number, __tagVtViewItem* array, int count) {
        std::strcpy(views[i].id, id);
        std::strcpy(views[i].displayname, name);
        views[i].viewlayouttype = number;
        views[i].viewscaletype = number + 1;
        views[i].showtime = number + 2;
        views[i].enablecarousel = number + 3;
        views[i].items = array;
        views[i].itemcount = count;
    }
    void fillGroup(int i, const char* id, const char* name, const char* parent, __tagVtViewInfo* array,
                   int count) {
        std::strcpy(groups[i].id, id);
        std::strcpy(groups[i].displayname, name);
        std::strcpy(groups[i].parentguid, parent);
        groups[i].views = array;
        groups[i].viewcount = count;
    }

    __tagVtCarouselItem carousels[2];
    __tagVtViewItem items[2];
    __tagVtViewInfo views[2];
    __tagVtGroupItem groups[2];
    __tagVtViewGroupInfo info;
    __tagVtViewGroupData layout;
};

Encoded answer(int result, const __tagVtViewGroupInfo* info, const __tagVtViewGroupData* data) {
    return encoded(
        [&](char* out, int size) { return GetViewGroupDataRespEncode(result, 7, info, data, out, size); });
}

Encoded request(const __tagVtViewGroupInfo* info, const __tagVtViewGroupData* data) {
    return encoded([&](char* out, int size) {
        return GetSetViewGroupDataReqEncode("10.0.0.1", "t-1", 4294967295u, info, data, out, size);
    });
}

TEST(GetViewGroupDataRespEncode, WritesEveryCounter) {
    const Sample sample;
    const Encoded got = answer(0, &sample.info, &sample.layout);
    EXPECT_EQ(got.bytes, wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="GetViewGroupData">
        <Result>0</Result>
        <ViewGroupInfo>
            <ReadOnly>1</ReadOnly>
            <Name>lobby &amp; hall</Name>
            <ViewGroupType>3</ViewGroupType>
            <LastModifiedTime>-4</LastModifiedTime>
            <LastModifieduser>somebody</LastModifieduser>
            <ViewGroupGuid>h-1</ViewGroupGuid>
            <UserGuid>u-1</UserGuid>
        </ViewGroupInfo>
        <ViewGroupData>
            <ViewGroupDataXml>
                <GroupsCounter>2</GroupsCounter>
                <Groups>
                    <Group id="g-1" displayname="G 1" parentguid="p-1">
                        <ViewsCounter>2</ViewsCounter>
                        <Views>
                            <View id="v-1" displayname="V 1" viewlayouttype="31" viewscaletype="32" showtime="33" enablecarousel="34">
                                <ViewitemsCounter>2</ViewitemsCounter>
                                <Viewitems>
                                    <Viewitem id="i-1" displayname="I 1" type="5" itemnumber="41">
                                        <Iteminfo id="f-1" cameraid="m-1" displayname='F &quot;1&quot;' url="http://x/?a=1&amp;b=2" VideoStreamType="51">
                                            <CarouselsCounter>2</CarouselsCounter>
                                            <Carousels>
                                                <Carousel id="k-1" ChannelGuid="c-1" ShowTime="61" Index="62" DisplayName="K &lt;1&gt;" VideoStreamType="63" />
                                            </Carousels>
                                            <Carousels>
                                                <Carousel id="k-2" ChannelGuid="c-2" ShowTime="-65" Index="-64" DisplayName="" VideoStreamType="-63" />
                                            </Carousels>
                                        </Iteminfo>
                                    </Viewitem>
                                </Viewitems>
                                <Viewitems>
                                    <Viewitem id="i-2" displayname="" type="4" itemnumber="-42">
                                        <Iteminfo id="f-2" cameraid="m-2" displayname="F 2" url="" VideoStreamType="-52" />
                                    </Viewitem>
                                </Viewitems>
                            </View>
                        </Views>
                        <Views>
                            <View id="v-2" displayname="" viewlayouttype="-35" viewscaletype="-34" showtime="-33" enablecarousel="-32">
                                <ViewitemsCounter>0</ViewitemsCounter>
                            </View>
                        </Views>
                    </Group>
                </Groups>
                <Groups>
                    <Group id="g-2" displayname="G 2" parentguid="">
                        <ViewsCounter>0</ViewsCounter>
                    </Group>
                </Groups>
            </ViewGroupDataXml>
        </ViewGroupData>
    </response>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

TEST(GetSetViewGroupDataReqEncode, WritesTheCountersOfViewsAndItemsWhereThereAreSome) {
    const Sample sample;
    const Encoded got = request(&sample.info, &sample.layout);
    EXPECT_EQ(got.bytes, wire(requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>-1</seqnum>
    <version>1.0.0</version>
    <Token>t-1</Token>
    <request name="SetViewGroupData">
        <ViewGroupInfo>
            <ReadOnly>1</ReadOnly>
            <Name>lobby &amp; hall</Name>
            <ViewGroupType>3</ViewGroupType>
            <LastModifiedTime>-4</LastModifiedTime>
            <LastModifieduser>somebody</LastModifieduser>
            <ViewGroupGuid>h-1</ViewGroupGuid>
            <UserGuid>u-1</UserGuid>
        </ViewGroupInfo>
        <ViewGroupData>
            <ViewGroupDataXml>
                <GroupsCounter>2</GroupsCounter>
                <Groups>
                    <Group id="g-1" displayname="G 1" parentguid="p-1">
                        <ViewsCounter>2</ViewsCounter>
                        <Views>
                            <View id="v-1" displayname="V 1" viewlayouttype="31" viewscaletype="32" showtime="33" enablecarousel="34">
                                <ViewitemsCounter>2</ViewitemsCounter>
                                <Viewitems>
                                    <Viewitem id="i-1" displayname="I 1" type="5" itemnumber="41">
                                        <Iteminfo id="f-1" cameraid="m-1" displayname='F &quot;1&quot;' url="http://x/?a=1&amp;b=2" VideoStreamType="51">
                                            <CarouselsCounter>2</CarouselsCounter>
                                            <Carousels>
                                                <Carousel id="k-1" ChannelGuid="c-1" ShowTime="61" Index="62" DisplayName="K &lt;1&gt;" VideoStreamType="63" />
                                            </Carousels>
                                            <Carousels>
                                                <Carousel id="k-2" ChannelGuid="c-2" ShowTime="-65" Index="-64" DisplayName="" VideoStreamType="-63" />
                                            </Carousels>
                                        </Iteminfo>
                                    </Viewitem>
                                </Viewitems>
                                <Viewitems>
                                    <Viewitem id="i-2" displayname="" type="4" itemnumber="-42">
                                        <Iteminfo id="f-2" cameraid="m-2" displayname="F 2" url="" VideoStreamType="-52" />
                                    </Viewitem>
                                </Viewitems>
                            </View>
                        </Views>
                        <Views>
                            <View id="v-2" displayname="" viewlayouttype="-35" viewscaletype="-34" showtime="-33" enablecarousel="-32" />
                        </Views>
                    </Group>
                </Groups>
                <Groups>
                    <Group id="g-2" displayname="G 2" parentguid="" />
                </Groups>
            </ViewGroupDataXml>
        </ViewGroupData>
    </request>
</servercommandservice>
)"));
    EXPECT_EQ(got.printed, "");
}

} // namespace
