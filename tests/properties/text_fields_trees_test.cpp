// Each writer stops at a text field's width, also in the records that hang on others.
#include "properties/full_records.h"
#include "properties/sent_fields.h"

namespace {

using namespace veltoprotocol;

const Carried ofInfo = {Carried::byElements,
                        {{"Name", 64}, {"LastModifieduser", 128}, {"ViewGroupGuid", 48}, {"UserGuid", 48}},
                        {"ViewGroupType", "LastModifiedTime"}};
const Carried ofGroup = {Carried::byAttributes, {{"id", 48}, {"displayname", 64}, {"parentguid", 48}}, {}};
const Carried ofView = {Carried::byAttributes,
                        {{"id", 48}, {"displayname", 64}},
                        {"viewlayouttype", "viewscaletype", "showtime", "enablecarousel"}};
const Carried ofItem = {Carried::byAttributes, {{"id", 48}, {"displayname", 64}}, {"type", "itemnumber"}};
const Carried ofItemInfo = {Carried::byAttributes,
                            {{"id", 48}, {"cameraid", 48}, {"displayname", 64}, {"url", 1024}},
                            {"VideoStreamType"}};
const Carried ofCarousel = {Carried::byAttributes,
                            {{"id", 48}, {"ChannelGuid", 48}, {"DisplayName", 64}},
                            {"ShowTime", "Index", "VideoStreamType"}};
const Carried ofAlarm = {Carried::byElements,
                         {{"AlarmGuid", 48},
                          {"ChannelGuid", 48},
                          {"DeviceGuid", 48},
                          {"AlarmSubTypeCode", 16},
                          {"BeginTime", 16},
                          {"EndTime", 16},
                          {"AlarmContent", 128},
                          {"AlarmSource", 128},
                          {"ConfirmMessage", 128},
                          {"Confirmer", 32},
                          {"ConfirmTime", 16}},
                         {"AlarmNo", "NodeID", "AlarmFlag", "AlarmType", "AlarmLevel", "AlarmState"}};
const Carried ofPastAlarm = {
    Carried::byAttributes,
    {{"AlarmGuid", 48},
     {"ChannelGuid", 48},
     {"BeginTime", 16},
     {"EndTime", 16},
     {"ConfirmMessage", 128},
     {"ConfirmTime", 16}},
    {"AlarmNo", "AlarmFlag", "AlarmType", "AlarmLevel", "ConfirmState", "HaveRecord", "HaveSnapshot"}};
const Carried ofRecordStatus = {
    Carried::byElements,
    {{"StatusGuid", 48}, {"ChannelGuid", 48}, {"DeviceGuid", 48}, {"OccurredTime", 16}, {"MessageDesc", 128}},
    {"RecordType", "ErrorCode", "Status"}};
const Carried ofMessage = {Carried::byElements, {{"DeviceGuid", 48}, {"ChannelGuid", 48}}, {"MessageType"}};
const Carried ofSearch = {Carried::byAttributes,
                          {{"BeginTime", 16}, {"EndTime", 16}},
                          {"AlarmFlag", "AlarmType", "AlarmLevel", "BeginIndex", "EndIndex"}};
// The path's field is wider than what its readers take.
const Carried ofMap = {
    Carried::byElements,
    {{"MapInfoGuid", 48},
     {"ParentMapGuid", 48},
     {"GisCenterCityName", 512},
     {"GisPosX", 32},
     {"GisPosY", 32},
     {"CustomizeImagePath", 1032},
     {"MapName", 128}},
    {"MapType", "GisZoom", "CustomizeImageSize", "CustomizeImageType", "Status", "LastTime"}};
const Carried ofMapItem = {Carried::byElements,
                           {{"MapItemGuid", 48},
                            {"MapInfoGuid", 48},
                            {"ItemContentGuid", 48},
                            {"DisplayName", 128},
                            {"Discription", 1024},
                            {"PosX", 32},
                            {"PosY", 32}},
                           {"ItemType", "Status"}};

TEST(TextFields, EndAtTheirWidthInWhatIsWrittenToAnElement) {
    expectFull(GetViewGroupsParamEncode, ofInfo);
    expectFull(GetViewInfoEncode, ofView);
    expectFull(GetViewItemEncode, ofItem);
    expectFull(GetViewItemInfoEncode, ofItemInfo);
    expectFull(GetCarouselEncode, ofCarousel);
    expectFull(GetEMapInfoEncode, ofMap);
    expectFull(GetEMapItemParamEncode, ofMapItem);
}

TEST(TextFields, EndAtTheirWidthInALayout) {
    FullRecords<__tagVtCarouselItem> carousels;
    FullRecords<__tagVtViewItem> items;
    FullRecords<__tagVtViewInfo> views;
    FullRecords<__tagVtGroupItem> groups;
    FullRecords<__tagVtViewGroupInfo> info;
    makeValid(*info.records());
    items.records()->type = 5;
    items.records()->iteminfo.carousels = carousels.records();
    items.records()->iteminfo.carouselcount = 1;
    views.records()->items = items.records();
    views.records()->itemcount = 1;
    groups.records()->views = views.records();
    groups.records()->viewcount = 1;
    const __tagVtViewGroupData layout = {groups.records(), 1};
    const Document doc = sent([&](char* out, int size) {
        return GetSetViewGroupDataReqEncode("h", "t", 1, info.records(), &layout, out, size);
    });
    expectFull(below(doc, {"request", "ViewGroupInfo"}), ofInfo);
    const TiXmlElement* const group =
        below(doc, {"request", "ViewGroupData", "ViewGroupDataXml", "Groups", "Group"});
    expectFull(group, ofGroup);
    const TiXmlElement* const view = group->FirstChildElement("Views")->FirstChildElement("View");
    expectFull(view, ofView);
    const TiXmlElement* const item = view->FirstChildElement("Viewitems")->FirstChildElement("Viewitem");
    const Carried withoutType = {Carried::byAttributes, ofItem.texts, {"itemnumber"}};
    expectFull(item, withoutType);
    const TiXmlElement* const itemInfo = item->FirstChildElement("Iteminfo");
    expectFull(itemInfo, ofItemInfo);
    expectFull(itemInfo->FirstChildElement("Carousels")->FirstChildElement("Carousel"), ofCarousel);
}

// A pushed event whose content is a full record.
template <class Record>
void expectFullEvent(__enumVtMessageType type, const char* name, const Carried& carried) {
    FullRecords<Record> full;
    const Document doc = sent([&](char* out, int size) {
        return GetNotificationContentReqEncode(0, 1, type, full.records(), out, size);
    });
    expectFull(below(doc, {"response", "Notifications", "MessageNotification", name}), carried);
}

TEST(TextFields, EndAtTheirWidthInAnEvent) {
    expectFullEvent<__tagVtAlarmData>(VtMessageAlarm, "AlarmData", ofAlarm);
    expectFullEvent<__tagVtRecordStatus>(VtMessageRecordStatus, "RecordingStatus", ofRecordStatus);
    expectFullEvent<__tagVtMessageParam>(VtMessageOnlineStatus, "OnlineStatus", ofMessage);
    expectFullEvent<__tagVtMessageParam>(VtMessageChannelDisabled, "ChannelDisabled", ofMessage);
    expectFullEvent<__tagVtMessageParam>(VtMessageChannelDeleted, "ChannelDeleted", ofMessage);
}

TEST(TextFields, EndAtTheirWidthInTheAlarmHistory) {
    FullRecords<__tagVtAlarmData> alarms;
    const __tagVtSearchAlarmResult found = {1, 1, alarms.records()};
    const Document answer =
        sent([&](char* out, int size) { return GetSearchHistoryAlarmRespEncode(0, 1, &found, out, size); });
    expectFull(below(answer, {"response", "AlarmInfos", "AlarmData"}), ofPastAlarm);

    FullRecords<__tagVtChannelParam> channels;
    FullRecords<__tagVtSearchAlarmParam> search;
    search.records()->channels = channels.records();
    search.records()->channelcount = 1;
    const Document request = sent([&](char* out, int size) {
        return GetSearchHistoryAlarmReqEncode("h", "t", 1, search.records(), out, size);
    });
    expectFull(below(request, {"request", "SearchParam"}), ofSearch);
    EXPECT_EQ(below(request, {"request", "Channels", "ChannelGuid"})->GetText(), std::string(48, 'x'));
}

TEST(TextFields, EndAtTheirWidthInTheMapsOfAUser) {
    FullRecords<__tagVtEMapInfo> maps;
    FullRecords<__tagVtEMapItemParam> items;
    FullRecords<__tagVtUserEMapInfo> user;
    user.records()->EMapInfos = maps.records();
    user.records()->EMapInfoCount = 1;
    user.records()->EMapItems = items.records();
    user.records()->EMapItemCount = 1;
    const Document doc = sent(
        [&](char* out, int size) { return GetSetEMapInfoReqEncode(user.records(), "h", "t", 1, out, size); });
    EXPECT_EQ(below(doc, {"request", "UserGuid"})->GetText(), std::string(48, 'x'));
    expectFull(below(doc, {"request", "EMapInfos", "EMapInfo"}), ofMap);
    expectFull(below(doc, {"request", "EMapItems", "EMapItem"}), ofMapItem);
}

} // namespace
