// Cuts an H.264 elementary stream (Annex B) into access units: the bytes of one picture each, with what
// belongs to it.
#ifndef EXAMPLES_ACCESS_UNITS_H
#define EXAMPLES_ACCESS_UNITS_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace example {

// One NAL unit and the start code before it, 00 00 01 or 00 00 00 01.
struct NalUnit {
    std::size_t start; // of the start code
    int type;          // 1 and 5 are slices of a picture, 5 of one that can be decoded alone
    bool firstSlice;   // a slice with which a picture begins
};

constexpr bool isSlice(int nalType) { return nalType == 1 || nalType == 5; }

inline std::vector<NalUnit> nalUnits(std::string_view stream) {
    constexpr std::string_view startCode("\0\0\1", 3);
    std::vector<NalUnit> units;
    for (std::size_t at = stream.find(startCode); at != std::string_view::npos;
         at = stream.find(startCode, at + startCode.size())) {
        const std::size_t header = at + startCode.size();
        if (header == stream.size()) break; // a start code with nothing behind it
        NalUnit unit = {at, stream[header] & 0x1F, false};
        if (at > 0 && stream[at - 1] == '\0') --unit.start;
        // A slice begins with the number of its first macroblock; 0 is written as a single 1 bit.
        if (isSlice(unit.type) && header + 1 < stream.size())
            unit.firstSlice = (static_cast<unsigned char>(stream[header + 1]) & 0x80U) != 0;
        units.push_back(unit);
    }
    return units;
}

// Whether a NAL unit begins a new access unit once the one before it has a slice. 6 is supplemental
// information, 7 and 8 are the parameter sets, 9 is the delimiter; each of them stands before its picture.
inline bool endsPicture(const NalUnit& unit) { return unit.firstSlice || (unit.type >= 6 && unit.type <= 9); }

// The access units in their order, as views into `stream`; together they are the whole stream. Bytes before
// the first start code go with the first access unit. Streams with data partitions (slices of the types 2 to
// 4) are not for this reader.
inline std::vector<std::string_view> accessUnits(std::string_view stream) {
    std::vector<std::string_view> units;
    std::size_t begin = 0;
    bool hasUnit = false; // the one that begins at `begin`
    bool hasSlice = false;
    for (const NalUnit& unit : nalUnits(stream)) {
        const bool delimiter = unit.type == 9;
        if ((hasUnit && delimiter) || (hasSlice && endsPicture(unit))) {
            units.push_back(stream.substr(begin, unit.start - begin));
            begin = unit.start;
            hasSlice = false;
        }
        hasUnit = true;
        hasSlice = hasSlice || isSlice(unit.type);
    }
    if (begin < stream.size()) units.push_back(stream.substr(begin));
    return units;
}

// Whether decoding can begin with this access unit.
inline bool canBeDecodedAlone(std::string_view accessUnit) {
    for (const NalUnit& unit : nalUnits(accessUnit))
        if (isSlice(unit.type)) return unit.type == 5;
    return false;
}

} // namespace example

#endif
