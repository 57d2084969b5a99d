// What is written of a layout that is empty somewhere.
#include "support/encoded.h"
#include "support/wire.h"

#include <LibVeltoProtocol.h>
#include <string>

using namespace veltoprotocol;

namespace {

const int lowest = -2147483647 - 1;

Encoded answer(int result, const __tagVtViewGroupInfo* info, const __tagVtViewGroupData* data) {
    return encoded(
        [&](char* out, int size) { return GetViewGroupDataRespEncode(result, 7, info, data, out, size); });
}

Encoded request(const __tagVtViewGroupInfo* info, const __tagVtViewGroupData* data) {
    return encoded([&](char* out, int size) {
        return GetSetViewGroupDataReqEncode("10.0.0.1", nullptr, 7, info, data, out, size);
    });
}

// One entry of each level, all texts empty and all numbers 0.
struct Line {
    Line() {
        item.iteminfo.carousels = &carousel;
        item.iteminfo.carouselcount = 1;
        view.items = &item;
        view.itemcount = 1;
        group.views = &view;
        group.viewcount = 1;
        layout = {&group, 1};
    }
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    __tagVtCarouselItem carousel = __tagVtCarouselItem();
    __tagVtViewItem item = __tagVtViewItem();
    __tagVtViewInfo view = __tagVtViewInfo();
    __tagVtGroupItem group = __tagVtGroupItem();
    __tagVtViewGroupInfo info = __tagVtViewGroupInfo();
    __tagVtViewGroupData layout;
};

const std::string infoXml = R"(        <ViewGroupInfo>
            <ReadOnly>0</ReadOnly>
            <Name></Name>
            <ViewGroupType>0</ViewGroupType>
            <LastModifiedTime>0</LastModifiedTime>
            <LastModifieduser></LastModifieduser>
            <ViewGroupGuid></ViewGroupGuid>
            <UserGuid></UserGuid>
        </ViewGroupInfo>
)";

std::string answerXml(int result, const std::string& behindResult) {
    return wire(responseHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <response name="GetViewGroupData">
        <Result>)" +
                std::to_string(result) + "</Result>\n" + behindResult + R"(    </response>
</servercommandservice>
)");
}

std::string requestXml(const std::string& inside) {
    return wire(requestHead + R"(<?xml version="1.0" encoding="UTF-8" ?>
<servercommandservice>
    <seqnum>7</seqnum>
    <version>1.0.0</version>
    <Token />
    <request name="SetViewGroupData">
)" + inside + R"(    </request>
</servercommandservice>
)");
}

TEST(GetViewGroupDataRespEncode, OfARefusalHoldsTheResultAlone) {
    const Line line;
    for (const int result : {-5, 1, lowest})
        EXPECT_EQ(answer(result, &line.info, &line.layout).bytes, answerXml(result, ""));
}

TEST(GetViewGroupDataRespEncode, WithoutAHeadHoldsTheResultAlone) {
    const Line line;
    EXPECT_EQ(answer(0, nullptr, &line.layout).bytes, answerXml(0, ""));
    EXPECT_EQ(answer(0, nullptr, nullptr).bytes, answerXml(0, ""));
}

TEST(Layouts, WithoutGroupsAreLeftOut) {
    Line line;
    const auto expectTheHeadAlone = [&](const __tagVtViewGroupData* data) {
        EXPECT_EQ(answer(0, &line.info, data).bytes, answerXml(0, infoXml));
        EXPECT_EQ(request(&line.info, data).bytes, requestXml(infoXml));
    };
    expectTheHeadAlone(nullptr);
    line.layout = {&line.group, 0};
    expectTheHeadAlone(&line.layout);
    line.layout = {&line.group, lowest};
    expectTheHeadAlone(&line.layout);
    line.layout = {nullptr, 1};
    expectTheHeadAlone(&line.layout);
}

std::string groupXml(const std::string& inside) {
    const std::string tag = R"(                    <Group id="" displayname="" parentguid="")";
    return infoXml + R"(        <ViewGroupData>
            <ViewGroupDataXml>
                <GroupsCounter>1</GroupsCounter>
                <Groups>
)" + (inside.empty() ? tag + " />\n" : tag + ">\n" + inside + "                    </Group>\n") +
           R"(                </Groups>
            </ViewGroupDataXml>
        </ViewGroupData>
)";
}

std::string viewXml(const std::string& inside) {
    const std::string tag =
        R"(                            <View id="" displayname="" viewlayouttype="0" viewscaletype="0" showtime="0" enablecarousel="0")";
    return groupXml(R"(                        <ViewsCounter>1</ViewsCounter>
                        <Views>
)" + (inside.empty() ? tag + " />\n" : tag + ">\n" + inside + "                            </View>\n") +
                    "                        </Views>\n");
}

std::string infoElementXml(int type, const std::string& inside) {
    const std::string tag =
        R"(                                        <Iteminfo id="" cameraid="" displayname="" url="" VideoStreamType="0")";
    return viewXml(R"(                                <ViewitemsCounter>1</ViewitemsCounter>
                                <Viewitems>
                                    <Viewitem id="" displayname="" type=")" +
                   std::to_string(type) + "\" itemnumber=\"0\">\n" +
                   (inside.empty()
                        ? tag + " />\n"
                        : tag + ">\n" + inside + "                                        </Iteminfo>\n") +
                   R"(                                    </Viewitem>
                                </Viewitems>
)");
}

TEST(Layouts, CountTheViewsOfAnEmptyGroupInAnAnswerAlone) {
    Line line;
    const auto expectCounter = [&](__tagVtViewInfo* views, int count) {
        line.group.views = views;
        line.group.viewcount = count;
        const std::string counter =
            "                        <ViewsCounter>" + std::to_string(count) + "</ViewsCounter>\n";
        EXPECT_EQ(answer(0, &line.info, &line.layout).bytes, answerXml(0, groupXml(counter)));
        EXPECT_EQ(request(&line.info, &line.layout).bytes, requestXml(groupXml("")));
    };
    expectCounter(nullptr, 0);
    expectCounter(nullptr, 3); // the counter is the count field, whatever follows it
    expectCounter(&line.view, 0);
    expectCounter(&line.view, lowest);
}

TEST(Layouts, CountTheItemsOfAnEmptyViewInAnAnswerAlone) {
    Line line;
    const auto expectCounter = [&](__tagVtViewItem* items, int count) {
        line.view.items = items;
        line.view.itemcount = count;
        const std::string counter = "                                <ViewitemsCounter>" +
                                    std::to_string(count) + "</ViewitemsCounter>\n";
        EXPECT_EQ(answer(0, &line.info, &line.layout).bytes, answerXml(0, viewXml(counter)));
        EXPECT_EQ(request(&line.info, &line.layout).bytes, requestXml(viewXml("")));
    };
    expectCounter(nullptr, 0);
    expectCounter(nullptr, 3);
    expectCounter(&line.item, 0);
    expectCounter(&line.item, lowest);
}

TEST(Layouts, AlwaysCountTheStepsOfACarousel) {
    Line line;
    line.item.type = 5;
    const auto expectCounter = [&](__tagVtCarouselItem* carousels, int count) {
        line.item.iteminfo.carousels = carousels;
        line.item.iteminfo.carouselcount = count;
        const std::string counter = "                                            <CarouselsCounter>" +
                                    std::to_string(count) + "</CarouselsCounter>\n";
        EXPECT_EQ(answer(0, &line.info, &line.layout).bytes, answerXml(0, infoElementXml(5, counter)));
        EXPECT_EQ(request(&line.info, &line.layout).bytes, requestXml(infoElementXml(5, counter)));
    };
    expectCounter(nullptr, 0);
    expectCounter(nullptr, 3);
    expectCounter(&line.carousel, 0);
    expectCounter(&line.carousel, lowest);
}

TEST(Layouts, WriteNoCarouselForAnyOtherType) {
    Line line;
    for (const int type : {0, 4, 6, -5, lowest}) {
        line.item.type = type;
        EXPECT_EQ(answer(0, &line.info, &line.layout).bytes, answerXml(0, infoElementXml(type, "")));
        EXPECT_EQ(request(&line.info, &line.layout).bytes, requestXml(infoElementXml(type, "")));
    }
}

} // namespace
