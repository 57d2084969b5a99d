#include "support/access_units.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using example::accessUnits;
using example::canBeDecodedAlone;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// A NAL unit with a start code of three bytes, or of four with `zero`.
std::string nal(char header, const std::string& payload, bool zero = false) {
    return (zero ? std::string(1, '\0') : std::string()) + std::string("\0\0\1", 3) + header + payload;
}

// The header bytes: reference 3 or 0, and the type.
constexpr char idr = 0x65;
constexpr char slice = 0x41;
constexpr char sei = 0x06;
constexpr char sps = 0x67;
constexpr char pps = 0x68;
constexpr char delimiter = 0x09;

// The first byte of a slice: ue(v) writes 0 as "1", and 1 as "010".
const std::string first = "\x88 picture";
const std::string further = "\x42 picture";

TEST(AccessUnits, EndBeforeTheNextFirstSlice) {
    const std::string a = nal(idr, first);
    const std::string b = nal(slice, first);
    const std::string c = nal(slice, first);
    EXPECT_THAT(accessUnits(a + b + c), ElementsAre(a, b, c));
}

TEST(AccessUnits, HoldAllSlicesOfAPicture) {
    const std::string a = nal(idr, first) + nal(idr, further) + nal(idr, further);
    const std::string b = nal(slice, first) + nal(slice, further);
    EXPECT_THAT(accessUnits(a + b), ElementsAre(a, b));
}

TEST(AccessUnits, BeginWithParameterSetsAndSupplementalInformation) {
    const std::string a = nal(sps, "s") + nal(pps, "p") + nal(sei, "i") + nal(idr, first);
    const std::string b = nal(sei, "i") + nal(slice, first);
    const std::string c = nal(pps, "p") + nal(slice, first);
    const std::string d = nal(sps, "s") + nal(pps, "p") + nal(idr, first);
    EXPECT_THAT(accessUnits(a + b + c + d), ElementsAre(a, b, c, d));
}

TEST(AccessUnits, BeginWithDelimiters) {
    const std::string a = nal(delimiter, "\xF0") + nal(sps, "s") + nal(pps, "p") + nal(idr, first);
    const std::string b = nal(delimiter, "\xF0") + nal(slice, first) + nal(slice, further);
    const std::string empty = nal(delimiter, "\xF0");
    EXPECT_THAT(accessUnits(a + b + empty + b), ElementsAre(a, b, empty, b));
}

TEST(AccessUnits, KeepAnEndOfSequenceWithTheirPicture) {
    const std::string a = nal(idr, first) + nal(0x0A, "");
    const std::string b = nal(idr, first);
    EXPECT_THAT(accessUnits(a + nal(0x0C, "fill") + b), ElementsAre(a + nal(0x0C, "fill"), b));
}

TEST(AccessUnits, TakeBothStartCodes) {
    const std::string a = nal(sps, "s", true) + nal(pps, "p", true) + nal(idr, first);
    const std::string b = nal(slice, first, true) + nal(slice, further);
    const std::string c = nal(slice, first);
    EXPECT_THAT(accessUnits(a + b + c), ElementsAre(a, b, c));
}

TEST(AccessUnits, DoNotTakeAnEscapedStartCodeForOne) {
    const std::string a = nal(idr, first + std::string("\0\0\3\1", 4) + "A\x88");
    EXPECT_THAT(accessUnits(a), ElementsAre(a));
}

TEST(AccessUnits, LoseNoByteOfWhatIsNoStream) {
    EXPECT_THAT(accessUnits(""), IsEmpty());
    EXPECT_THAT(accessUnits("no stream"), ElementsAre("no stream"));
    const std::string cut = nal(idr, first) + std::string("\0\0\1", 3);
    EXPECT_THAT(accessUnits(cut), ElementsAre(cut));
    const std::string a = "before" + nal(idr, first);
    const std::string b = nal(slice, first);
    const std::string delimited = "before" + nal(delimiter, "\xF0") + nal(idr, first);
    EXPECT_THAT(accessUnits(delimited), ElementsAre(delimited));
    const std::string headerAlone = nal(slice, "");
    EXPECT_THAT(accessUnits(a + b + headerAlone), ElementsAre(a, b + headerAlone));
}

TEST(CanBeDecodedAlone, IsToldByTheFirstSlice) {
    EXPECT_TRUE(canBeDecodedAlone(nal(sps, "s") + nal(pps, "p") + nal(idr, first)));
    EXPECT_FALSE(canBeDecodedAlone(nal(sps, "s") + nal(slice, first)));
    EXPECT_FALSE(canBeDecodedAlone(nal(sps, "s")));
    EXPECT_FALSE(canBeDecodedAlone(""));
}

} // namespace
