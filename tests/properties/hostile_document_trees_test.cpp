// Whole messages in which elements are missing, doubled and in another order, at every level.
#include "properties/changed_trees.h"
#include "properties/hostile_messages.h"
#include "support/muted.h"

#include <LibVeltoProtocol.h>

#include <map>
#include <set>

namespace {

using Names = std::set<std::string>;

// These tell the document itself.
const Names ofXml = {"GetXmlLength", "GetXmlEncode"};
// These tell a text and a result.
const Names ofTwoValues = {"GetLoginRespTokenDecode", "GetRealPlayStartRespDecode"};
// These tell records.
const Names ofRecords = {
    "GetUserInfoParamDecode",         "GetViewGroupDataParamDecode",     "GetSetViewGroupData",
    "GetSearchHistoryAlarmReqDecode", "GetSearchHistoryAlarmRespDecode", "GetSetEMapInfoReqDecode",
    "GetEMapInfoRespDecode"};

// What becomes of a list without its entries, its count or itself, and with more entries, is told elsewhere.
const Names entries = {"Groups",   "Views",    "Viewitems", "Carousels",
                       "EMapInfo", "EMapItem", "AlarmData", "ChannelGuid"};
const Names listsAndCounts = {
    "ViewGroupData", "ViewGroupDataXml", "GroupsCounter", "Group",    "ViewsCounter",
    "View",          "ViewitemsCounter", "Viewitem",      "Iteminfo", "CarouselsCounter",
    "Carousel",      "EMapInfos",        "EMapItems",     "Channels", "AlarmInfos"};

// Without one of these each gives nothing, and without the root.
const std::map<std::string, Names> ways = {
    {"GetNameDecode", {"request"}},
    {"GetRequestNameDecode", {"request"}},
    {"GetResponseNameDecode", {"response"}},
    {"GetResponseErrorcodeDecode", {"response", "Result"}},
    {"GetSeqnumberDecode", {"seqnum"}},
    {"GetVersionDecode", {"version"}},
    {"GetTokenDecode", {"Token"}},
    {"GetLogoutReqTokenDecode", {"Token"}},
    {"GetLoginRespTokenDecode", {"response"}},
    {"GetRealPlayStartReqTokenDecode", {"Token"}},
    {"GetRealPlayStartReqDeviceGuidDecode", {"request", "DeviceGuid"}},
    {"GetRealPlayStartReqChannelGuidDecode", {"request", "ChannelGuid"}},
    {"GetRealPlayStartReqStreamTypeDecode", {"request", "StreamType"}},
    {"GetPlayBackReqPlayGuidDecode", {"request", "PlaybackGuid"}},
    {"GetRealPlayStartRespDecode", {"response", "Result"}},
    {"GetUserInfoParamDecode", {"response", "Result", "UserInfo"}},
    {"GetViewGroupDataParamDecode",
     {"response", "Result", "ViewGroupData", "ViewGroupDataXml", "GroupsCounter"}},
    {"GetSetViewGroupData", {"request", "ViewGroupInfo"}},
    {"GetSearchHistoryAlarmReqDecode", {"request"}},
    {"GetSearchHistoryAlarmRespDecode", {"response"}},
    {"GetSetEMapInfoReqDecode", {"request"}},
    {"GetEMapInfoRespDecode", {"response"}}};

bool mayGiveNothing(const std::string& reader, const std::string& element) {
    return element == "servercommandservice" || ways.at(reader).count(element);
}

struct TwoValues {
    explicit TwoValues(const std::string& told)
        : text(told.substr(0, told.rfind(", "))), result(told.substr(told.rfind(", ") + 2)) {}
    std::string text, result;
};

// Each of the two is as it was, or nothing; and neither depends on the element of the other.
bool lacks(const std::string& element, const std::string& was, const std::string& is) {
    const TwoValues before(was), now(is);
    if (now.text != before.text && (now.text != "" || element == "Result")) return false;
    return now.result == before.result || (now.result == "-1" && element != "Token");
}

class Documents {
  public:
    // Calls expected(reader, element, was, is) for each document with such an edit.
    template <class Expected>
    void change(const Edit& edit, const char* what, const Expected& expected) {
        const Muted quiet;
        for (const std::string& xml : wholeDocuments()) {
            const Document doc = parsed(xml);
            for (const DocumentReader& reader : documentReaders) {
                const Told was = told(faults, reader, doc.get(), reader.name);
                made +=
                    edited(doc, edit,
                           [&](TiXmlDocument& copy, const std::string& element, const std::string& place) {
                               const std::string where = std::string(reader.name) + ", " + place;
                               const Told is = told(faults, reader, &copy, where);
                               if (is == was || ofXml.count(reader.name)) return;
                               faults.expect(expected(reader, element, was, is), where, what);
                               changed.insert(reader.name);
                           });
            }
        }
    }
    Faults faults;
    std::size_t made = 0;
    Names changed;
};

TEST(ChangedDocuments, WithoutAnElementGiveTheRestOrNothing) {
    Documents documents;
    const auto remove = [](TiXmlElement* element) { return edits::remove(element), true; };
    documents.change(
        remove, "reads something else",
        [](const DocumentReader& reader, const std::string& element, const Told& was, const Told& is) {
            int error = 7;
            if (is.text == reader.read(nullptr, &error) && mayGiveNothing(reader.name, element)) return true;
            if (ofTwoValues.count(reader.name)) return lacks(element, was.text, is.text);
            if (!ofRecords.count(reader.name)) return false;
            if (entries.count(element) || listsAndCounts.count(element)) return true;
            return is.error == was.error && onlyZeroes(was.text, is.text);
        });
    EXPECT_EQ(documents.faults.text(), "");
    EXPECT_GE(documents.made, 7000u);
    EXPECT_EQ(documents.changed.size(), documentReaders.size() - ofXml.size());
}

TEST(ChangedDocuments, WithAnElementTwiceGiveTheFirst) {
    Documents documents;
    const auto twice = [](TiXmlElement* element) { return edits::doubleWithOtherTexts(element), true; };
    documents.change(twice, "reads the second",
                     [](const DocumentReader& reader, const std::string& element, const Told&, const Told&) {
                         return ofRecords.count(reader.name) && entries.count(element);
                     });
    EXPECT_EQ(documents.faults.text(), "");
    EXPECT_GE(documents.made, 7000u);
}

TEST(ChangedDocuments, AreReadInAnyOrder) {
    Documents documents;
    const auto reverse = [](TiXmlElement* element) {
        const bool unordered = edits::holdsDifferentElements(element);
        if (unordered) edits::reverseChildren(element);
        return unordered;
    };
    const auto never = [](auto&&...) { return false; };
    documents.change(reverse, "is read by its order", never);
    EXPECT_EQ(documents.faults.text(), "");
    EXPECT_GE(documents.made, 3000u);
}

} // namespace
