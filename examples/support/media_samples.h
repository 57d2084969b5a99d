// What the example server has to show: a clip, its snapshot, and any number of recordings.
#ifndef EXAMPLES_MEDIA_SAMPLES_H
#define EXAMPLES_MEDIA_SAMPLES_H

#include "support/access_units.h"
#include "support/files.h"
#include "support/sample_inventory.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace example {

// Size and rate of the clip; scripts/make_sample_media makes it so.
constexpr std::uint16_t clipWidth = 320;
constexpr std::uint16_t clipHeight = 180;
constexpr std::uint64_t clipFrameMicroseconds = 1000000 / 25;

// Without a folder there is nothing to show.
class MediaSamples {
  public:
    explicit MediaSamples(const std::string& folder) {
        if (folder.empty()) return;
        clip_ = readFile(folder + "/clip.h264");
        snapshot_ = readFile(folder + "/snapshot.jpg");
        frames_ = accessUnits(clip_);
        if (frames_.empty() || snapshot_.empty()) throw std::runtime_error("nothing to show in " + folder);
    }
    MediaSamples(const MediaSamples&) = delete; // the frames are views into the clip
    MediaSamples& operator=(const MediaSamples&) = delete;

    const std::vector<std::string_view>& frames() const { return frames_; }
    const std::string& snapshot() const { return snapshot_; }

  private:
    std::string clip_;
    std::string snapshot_;
    std::vector<std::string_view> frames_;
};

// The recordings of a channel between two times: one every five minutes, ten thousand at most.
inline std::vector<veltoprotocol::__tagVtRecordElementParam>
sampleRecords(const veltoprotocol::__tagVtSearchRecordParam& wanted) {
    constexpr std::int64_t most = 10000;
    constexpr std::int64_t length = 300;
    const std::int64_t span = std::int64_t{wanted.EndTime} - wanted.StartTime;
    const std::int64_t count = std::clamp<std::int64_t>(span / length, 0, most);
    std::vector<veltoprotocol::__tagVtRecordElementParam> records(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < records.size(); ++i) {
        const int number = static_cast<int>(i);
        auto& record = records[i];
        record.RecordType = wanted.RecordType;
        record.RecordMode = wanted.RecordMode;
        record.StartTime = wanted.StartTime + number * static_cast<int>(length);
        record.EndTime = record.StartTime + static_cast<int>(length);
        record.RecordSize = 20000000 + number * 7919 % 1000003;
        record.PictureSize = 9000 + number * 31 % 4001;
        char url[64];
        std::snprintf(url, sizeof url, "/pictures/%05d.jpg", number);
        fill(record.PictureUrl, url);
    }
    return records;
}

} // namespace example

#endif
