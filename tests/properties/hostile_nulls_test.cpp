// No message at all, in each form that it takes, and callers who do not ask for the error.
#include "properties/hostile_messages.h"
#include "properties/steady.h"
#include "support/captured.h"
#include "support/muted.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>

#include <climits>
#include <map>
#include <set>

namespace {

using namespace veltoprotocol;

TEST(Nothing, IsAnEmptyBuffer) {
    Faults faults;
    {
        const Muted quiet;
        for (const BytesReader& reader : bytesReaders) {
            const std::string empty = steady(faults, reader.name, [&] { return reader.read("", 0); });
            const auto expectEmpty = [&](const char* buf, int len) {
                const std::string told = steady(faults, reader.name, [&] { return reader.read(buf, len); });
                faults.expect(told == empty, reader.name, "reads something");
            };
            for (const int len : {INT_MIN, -1, 0}) {
                expectEmpty("POST / HTTP/1.1\r\nContent-Length: 4\r\n\r\nbody", len);
                expectEmpty(nullptr, len);
            }
            // The text that is told is longer for the room that the decoder leaves alone.
            if (reader.name != std::string("Base64Decode")) expectEmpty(nullptr, 40);
        }
    }
    EXPECT_EQ(faults.text(), "");
}

// What readers tell of nothing: texts, numbers, and records in which every byte is zero.
using Told = std::map<std::string, std::string>;

template <class Record>
std::string zero() {
    return std::string(sizeof(Record), '\0');
}
const std::string noList = "[0 of none]";
const std::string untouched = "-1, " + std::string(48, '#');

const Told ofNoDocument = {{"GetNameDecode", ""},
                           {"GetRequestNameDecode", ""},
                           {"GetResponseNameDecode", ""},
                           {"GetResponseErrorcodeDecode", "-1"},
                           {"GetSeqnumberDecode", "0"},
                           {"GetVersionDecode", ""},
                           {"GetTokenDecode", ""},
                           {"GetLogoutReqTokenDecode", ""},
                           {"GetLoginRespTokenDecode", ", -1"},
                           {"GetRealPlayStartReqTokenDecode", ""},
                           {"GetRealPlayStartReqDeviceGuidDecode", ""},
                           {"GetRealPlayStartReqChannelGuidDecode", ""},
                           {"GetRealPlayStartReqStreamTypeDecode", "0"},
                           {"GetPlayBackReqPlayGuidDecode", ""},
                           {"GetRealPlayStartRespDecode", ", -1"},
                           {"GetUserInfoParamDecode", zero<__tagVtUserInfo>()},
                           {"GetViewGroupDataParamDecode", noList},
                           {"GetSetViewGroupData", zero<__tagVtViewGroupInfo>() + noList},
                           {"GetSearchHistoryAlarmReqDecode", "null"},
                           {"GetSearchHistoryAlarmRespDecode", "null"},
                           {"GetSetEMapInfoReqDecode", "null"},
                           {"GetEMapInfoRespDecode", "null"},
                           {"GetXmlLength", "-1"},
                           {"GetXmlEncode", ""}};

const Told ofNoElement = {{"GetDeviceParamDecode", zero<__tagVtDeviceParam>()},
                          {"GetChannelParamDecode", zero<__tagVtChannelParam>()},
                          {"GetServerParamDecode", zero<__tagVtServerInfo>()},
                          {"GetUserRightsParamDecode", zero<__tagVtUserRights>()},
                          {"GetChannelRightsInfoParamDecode", zero<__tagVtUserChannelRights>()},
                          {"GetDeviceNetParamDecode", zero<__tagVtDeviceNetParam>()},
                          {"GetStorageParamDecode", zero<__tagVtStorageInfo>()},
                          {"GetScheduleParamDecode", zero<__tagVtSchedulesInfo>()},
                          {"GetArchiveParamDecode", zero<__tagVtArchiveinfo>()},
                          {"GetPtzReqDecode", zero<__tagVtPtzParam>()},
                          {"GetStartTalkReqDecode", zero<__tagVtAudioParam>()},
                          {"GetSearchRecordDecode", zero<__tagVtSearchRecordParam>()},
                          {"GetPlayBackParamDecode", zero<__tagVtPlayBackParam>() + noList},
                          {"GetPlayBackCtrlParamDecode", zero<__tagVtPlayBackCtrl>()},
                          {"GetPictureParamDecode", zero<__tagVtRecordElementParam>()},
                          {"GetViewGroupInfoParamDecode", zero<__tagVtViewGroupInfo>()},
                          {"GetViewInfoDecode", zero<__tagVtViewInfo>() + noList},
                          {"GetViewItemDecode", zero<__tagVtViewItem>() + noList},
                          {"GetViewItemParamDecode", zero<__tagVtViewItem>() + noList},
                          {"GetViewItemInfoDecode", zero<__tagVtViewItemInfo>()},
                          {"GetCarouselDecode", zero<__tagVtCarouselItem>()},
                          {"GetAlarmDataDecode", zero<__tagVtAlarmData>()},
                          {"GetRecordStatusDecode", zero<__tagVtRecordStatus>()},
                          {"GetMessageParamDecode", zero<__tagVtMessageParam>()},
                          {"GetMessageParamDecodeChannelDisable", zero<__tagVtMessageParam>()},
                          {"GetMessageParamDecodeChannelDelete", zero<__tagVtMessageParam>()},
                          {"GetEMapInfoDecode", zero<__tagVtEMapInfo>()},
                          {"GetEMapItemParamDecode", zero<__tagVtEMapItemParam>()}};

// What each returns, and what it was given to write to.
const Told ofNoValue = {{"GetInt", "-1"},
                        {"GetUInt", "0"},
                        {"GetLong", "0"},
                        {"GetULong", "0"},
                        {"GetFloat", "-1.000000"},
                        {"GetString", ""},
                        {"GetStringValue", untouched},
                        {"GetIntValue", "-1, 0"},
                        {"GetBoolValue", "-1, 0"},
                        {"GetUIntValue", "-1, 0"},
                        {"GetStringValueAtt", untouched},
                        {"GetIntValueAtt", "-1, 0"},
                        {"GetBoolValueAtt", "-1, 0"},
                        {"GetUIntValueAtt", "0, 0"}}; // the only one that returns 0

// All of what they tell of nothing; those that have an error set it.
template <class Readers>
Told toldOfNothing(Faults& faults, const Readers& readers, std::set<std::string>& withoutError) {
    Told told;
    for (const auto& reader : readers) {
        int error = 7;
        told[reader.name] = steady(faults, reader.name, [&] { return reader.read(nullptr, &error); });
        if (error != -1) withoutError.insert(reader.name);
    }
    return told;
}

TEST(Nothing, IsAnErrorWithoutALine) {
    Captured captured;
    Faults faults;
    std::set<std::string> withoutError, values;
    const Told documents = toldOfNothing(faults, documentReaders, withoutError);
    const Told records = toldOfNothing(faults, recordReaders, withoutError);
    const Told others = toldOfNothing(faults, valueReaders, values);
    ReleaseTiXmlDocument(Decode(nullptr));
    ReleaseTiXmlDocument(nullptr);
    ReleasePlaybackParam(nullptr);
    const std::string printed = captured.text();
    EXPECT_EQ(printed, "");
    EXPECT_EQ(faults.text(), "");
    EXPECT_EQ(documents, ofNoDocument);
    EXPECT_EQ(records, ofNoElement);
    EXPECT_EQ(others, ofNoValue);
    EXPECT_EQ(withoutError, (std::set<std::string>{"GetXmlEncode", "GetXmlLength"}));
    EXPECT_EQ(values.size(), valueReaders.size()); // none of them has one
}

// What is told does not depend on it.
TEST(Nothing, IsWhereTheErrorGoes) {
    Faults faults;
    {
        const Muted quiet;
        int error = 7;
        for (const std::string& xml : wholeDocuments()) {
            const Document doc = parsed(xml);
            for (const DocumentReader& reader : documentReaders)
                faults.expect(reader.read(doc.get(), nullptr) == reader.read(doc.get(), &error), reader.name,
                              "reads something else");
        }
        for (const OwnElement& own : ownElements()) {
            const Document doc = parsed(own.xml);
            const auto& reader = *own.reader;
            faults.expect(reader.read(doc->RootElement(), nullptr) == reader.read(doc->RootElement(), &error),
                          reader.name, "reads something else");
            faults.expect(reader.read(nullptr, nullptr) == reader.read(nullptr, &error), reader.name,
                          "reads something of nothing");
        }
        for (const DocumentReader& reader : documentReaders)
            faults.expect(reader.read(nullptr, nullptr) == reader.read(nullptr, &error), reader.name,
                          "reads something of nothing");
        GetSearchRecordResultDecode("no block", 8, nullptr);
        GetSearchRecordResultDecode(nullptr, 0, nullptr);
    }
    EXPECT_EQ(faults.text(), "");
}

} // namespace
