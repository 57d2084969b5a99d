// Where each member of each record lies: callers fill records that were compiled elsewhere.
#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

using namespace veltoprotocol;

namespace {

template <class... Records>
constexpr bool plain = (... && (std::is_standard_layout_v<Records> && std::is_trivially_copyable_v<Records>));
static_assert(plain<__tagVtStreamHeader, __tagVtPtzParam, __tagVtAudioParam, __tagVtDataParam,
                    __tagVtSearchRecordParam, __tagVtRecordElementParam, __tagVtRecordParam,
                    __tagVtPlayBackParam, __tagVtPlayBackCtrl, __tagVtEMapInfo>);

TEST(PtzParam, KeepsItsShape) {
    using Ptz = __tagVtPtzParam;
    EXPECT_EQ(offsetof(Ptz, Control), 0u);
    EXPECT_EQ(offsetof(Ptz, Command), 4u);
    EXPECT_EQ(offsetof(Ptz, Speed), 8u);
    EXPECT_EQ(sizeof(Ptz), 12u);
}

TEST(AudioParam, BeginsWithItsThreeNumbers) {
    using Audio = __tagVtAudioParam;
    EXPECT_EQ(offsetof(Audio, AudioType), 0u);
    EXPECT_EQ(offsetof(Audio, BitRate), 4u);
    EXPECT_EQ(offsetof(Audio, SampleRate), 8u);
}

TEST(SearchRecordParam, KeepsItsShape) {
    using Search = __tagVtSearchRecordParam;
    EXPECT_EQ(offsetof(Search, StartTime), 0u);
    EXPECT_EQ(offsetof(Search, EndTime), 4u);
    EXPECT_EQ(offsetof(Search, SearchMode), 8u);
    EXPECT_EQ(offsetof(Search, RecordType), 12u);
    EXPECT_EQ(offsetof(Search, RecordMode), 16u);
    EXPECT_EQ(sizeof(Search), 52u);
}

TEST(RecordElementParam, KeepsItsShape) {
    using Element = __tagVtRecordElementParam;
    EXPECT_EQ(offsetof(Element, ChannelGuid), 0u);
    EXPECT_EQ(offsetof(Element, guid), 48u);
    EXPECT_EQ(offsetof(Element, RecordType), 96u);
    EXPECT_EQ(offsetof(Element, RecordMode), 100u);
    EXPECT_EQ(offsetof(Element, StartTime), 104u);
    EXPECT_EQ(offsetof(Element, EndTime), 108u);
    EXPECT_EQ(offsetof(Element, RecordSize), 112u);
    EXPECT_EQ(offsetof(Element, RecordName), 116u);
    EXPECT_EQ(offsetof(Element, PictureGuid), 116u + 260);
    EXPECT_EQ(offsetof(Element, PictureUrl), 116u + 260 + 48);
    EXPECT_EQ(offsetof(Element, PictureSize), 116u + 260 + 48 + 1032);
    EXPECT_EQ(offsetof(Element, reserved), 1460u);
    EXPECT_EQ(offsetof(Element, Index), 1464u);
    EXPECT_EQ(offsetof(Element, reserved2), 1468u);
    EXPECT_EQ(sizeof(Element), 1472u);
}

TEST(RecordParam, KeepsItsShape) {
    EXPECT_EQ(offsetof(__tagVtRecordParam, ChannelGuid), 0u);
    EXPECT_EQ(offsetof(__tagVtRecordParam, ResultMode), 48u);
    EXPECT_EQ(offsetof(__tagVtRecordParam, Counter), 52u);
    EXPECT_EQ(offsetof(__tagVtRecordParam, Records), 56u);
}

TEST(PlayBackParam, KeepsItsShape) {
    using Playback = __tagVtPlayBackParam;
    EXPECT_EQ(offsetof(Playback, PlaybackGuid), 0u);
    EXPECT_EQ(offsetof(Playback, PlaybackMode), 48u);
    EXPECT_EQ(offsetof(Playback, RecordType), 52u);
    EXPECT_EQ(offsetof(Playback, Speed), 56u);
    EXPECT_EQ(offsetof(Playback, StartTime), 64u);
    EXPECT_EQ(offsetof(Playback, EndTime), 68u);
    EXPECT_EQ(offsetof(Playback, RecordCounter), 72u);
    EXPECT_EQ(offsetof(Playback, Records), 80u);
}

TEST(PlayBackCtrl, KeepsItsShape) {
    using Control = __tagVtPlayBackCtrl;
    EXPECT_EQ(offsetof(Control, PlaybackGuid), 0u);
    EXPECT_EQ(offsetof(Control, Command), 48u);
    EXPECT_EQ(offsetof(Control, Speed), 52u);
    EXPECT_EQ(offsetof(Control, SessionGuid), 60u);
    EXPECT_EQ(offsetof(Control, reserved), 108u);
    EXPECT_EQ(offsetof(Control, Position), 112u);
    EXPECT_EQ(sizeof(Control), 116u);
}

TEST(EMapInfo, KeepsItsShape) {
    using Map = __tagVtEMapInfo;
    EXPECT_EQ(offsetof(Map, MapInfoGuid), 0u);
    EXPECT_EQ(offsetof(Map, reserved), 48u);
    EXPECT_EQ(offsetof(Map, ParentMapGuid), 96u);
    EXPECT_EQ(offsetof(Map, MapType), 144u);
    EXPECT_EQ(offsetof(Map, GisCenterCityName), 148u);
    EXPECT_EQ(offsetof(Map, GisPosX), 148u + 512);
    EXPECT_EQ(offsetof(Map, GisPosY), 692u);
    EXPECT_EQ(offsetof(Map, GisZoom), 724u);
    EXPECT_EQ(offsetof(Map, CustomizeImagePath), 728u);
    EXPECT_EQ(offsetof(Map, CustomizeImageSize), 728u + 1032);
    EXPECT_EQ(offsetof(Map, CustomizeImageType), 1764u);
    EXPECT_EQ(offsetof(Map, MapName), 1768u);
    EXPECT_EQ(offsetof(Map, Status), 1768u + 128);
    EXPECT_EQ(offsetof(Map, reserved2), 1900u);
    EXPECT_EQ(offsetof(Map, LastTime), 1904u);
    EXPECT_EQ(offsetof(Map, reserved3), 1908u);
    EXPECT_EQ(sizeof(Map), 1912u);
}

} // namespace
