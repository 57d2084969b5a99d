// Who is logged in, and what that user may do.
#include "framing/message.h"
#include "framing/walk.h"
#include "veltoprotocol/admin.h"

namespace veltoprotocol {
namespace {

using ChannelRights = __tagVtUserChannelRights;
using Rights = __tagVtUserRights;
using User = __tagVtUserInfo;

// kept: Authclass is written after SamacCountName, although it stands and is read before SId; a name is read
// to half of its field
constexpr auto userFields = elements(
    "UserInfo", field("UserGuid", &User::UserGuid), field("Id", &User::Id), field("AdsPath", &User::AdsPath),
    field("UserName", &User::UserName).upTo(80), field("Authclass", &User::Authclass).readOnly(),
    field("SId", &User::SId), field("SamacCountName", &User::SamacCountName),
    field("Authclass", &User::Authclass).writeOnly());

// kept: the label is not the element's name, UserRights
constexpr auto rightsFields = attributes(
    "userrights", field("sharedviews", &Rights::sharedviews), field("privateviews", &Rights::privateviews),
    field("viewlive", &Rights::viewlive), field("viewbrowse", &Rights::viewbrowse),
    field("viewsetup", &Rights::viewsetup), field("managementaccess", &Rights::managementaccess));

constexpr auto channelFields =
    elements("Channel", field("Guid", &ChannelRights::Guid),
             field("ChannelGuid", &ChannelRights::ChannelGuid), field("UserGuid", &ChannelRights::UserGuid));

constexpr auto channelRightsFields = attributes(
    "ChannelRights", field("access", &ChannelRights::access), field("aviexport", &ChannelRights::aviexport),
    field("jpegexport", &ChannelRights::jpegexport), field("databaseexport", &ChannelRights::databaseexport),
    field("videolive", &ChannelRights::videolive), field("videobrowse", &ChannelRights::videobrowse),
    field("ptz", &ChannelRights::ptz), field("managepresets", &ChannelRights::managepresets),
    field("outputs", &ChannelRights::outputs), field("presets", &ChannelRights::presets),
    field("events", &ChannelRights::events), field("smartsearch", &ChannelRights::smartsearch),
    field("sequences", &ChannelRights::sequences), field("startrecording", &ChannelRights::startrecording),
    field("audiolive", &ChannelRights::audiolive), field("audiobrowse", &ChannelRights::audiobrowse),
    field("speakerlive", &ChannelRights::speakerlive), field("speakerspeak", &ChannelRights::speakerspeak),
    field("subscriptionalarm", &ChannelRights::subscriptionalarm));

} // namespace

int GetUserInfoReqEncode(const char* host, const char* token, unsigned int seqnum, char* out, int size) {
    return Request("GetUserInfo", seqnum, Token{token}).post(commandPath, host, Empty(), out, size);
}

int GetUserInfoRespEncode(int result, unsigned int seqnum, const User* info, char* out, int size) {
    const auto tree = [&](auto x) {
        x.value("Result", result);
        if (result != 0 || !info) return;
        x.element("UserInfo", userFields(*info),
                  [&](auto user) { user.element("UserRights", rightsFields(info->Rights)); });
    };
    return Response("GetUserInfo", seqnum).reply(tree, out, size);
}

int GetChannelRightsInfoReqEncode(const char* host, const char* token, unsigned int seqnum,
                                  const char* userGuid, char* out, int size) {
    const auto tree = [&](auto x) { x.value("UserGuid", userGuid); };
    return Request("GetChannelRightsInfo", seqnum, Token{token}).post(commandPath, host, tree, out, size);
}

int GetChannelRightsInfoRespEncode(int result, unsigned int seqnum, const ChannelRights* rights, int count,
                                   char* out, int size) {
    const auto channels = [&](auto x) {
        for (const auto& entry : entries(rights, count))
            x.element("Channel", channelFields(entry),
                      [&](auto channel) { channel.element("ChannelRights", channelRightsFields(entry)); });
    };
    const auto tree = [&](auto x) {
        x.value("Result", result);
        if (result != 0 || !rights || count < 1) return;
        // kept: the list has the same name as the flags of each entry
        x.element("ChannelRights", [&](auto list) {
            list.value("ChannelCounter", count);
            list.element("Channels", channels);
        });
    };
    return Response("GetChannelRightsInfo", seqnum).reply(tree, out, size);
}

User GetUserInfoParamDecode(TiXmlDocument* doc, int* error) {
    User user = User();
    const Walk response = Walk(doc, error).required("servercommandservice").required("response");
    if (!response.required("Result")) return user;
    const Walk info = response.expected("UserInfo"); // kept: no error, since a refusal has none
    if (!info) return user;
    readFields(info.element(), userFields, user);
    if (const Walk rights = info.expected("UserRights"))
        user.Rights = GetUserRightsParamDecode(rights.element(), error);
    return user;
}

Rights GetUserRightsParamDecode(TiXmlElement* userRights, int* error) {
    return readRecord(userRights, rightsFields, error);
}

ChannelRights GetChannelRightsInfoParamDecode(TiXmlElement* channel, int* error) {
    ChannelRights rights = readRecord(channel, channelFields, error);
    if (TiXmlElement* const flags = channel ? channel->FirstChildElement("ChannelRights") : nullptr)
        readFields(flags, channelRightsFields, rights);
    return rights;
}

void ReleaseUserInfoParam(__tagVtSystemRightsInfo* info) {
    if (!info || !info->ChannelRights) return;
    delete[] info->ChannelRights;
    info->ChannelRights = nullptr;
    info->ChannelCounter = 0;
}

} // namespace veltoprotocol
