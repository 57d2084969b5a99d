// The recording and its picture as the commands carry them.
#pragma once

#include "framing/fields.h"
#include "veltoprotocol/media.h"

namespace veltoprotocol {

using RecordElement = __tagVtRecordElementParam;

constexpr auto recordInfoFields = attributes(
    "RecordInfo", field("guid", &RecordElement::guid), field("StartTime", &RecordElement::StartTime),
    field("EndTime", &RecordElement::EndTime), field("RecordType", &RecordElement::RecordType),
    field("RecordMode", &RecordElement::RecordMode), field("RecordSize", &RecordElement::RecordSize),
    field("RecordName", &RecordElement::RecordName).upTo(256));

constexpr auto pictureInfoFields = attributes("PictureInfo", field("guid", &RecordElement::PictureGuid),
                                              field("PictureUrl", &RecordElement::PictureUrl).upTo(1024),
                                              field("PictureSize", &RecordElement::PictureSize));

// What a picture request says of a picture.
constexpr auto pictureParamFields = attributes("PictureParam", field("guid", &RecordElement::PictureGuid),
                                               field("PictureUrl", &RecordElement::PictureUrl).upTo(1024));

} // namespace veltoprotocol
