// Whether the one selected picture carries a position, read from a file as the command asks.
#include <gtest/gtest.h>

#include "ExifTestSupport.h"
#include "ScratchDir.h"
#include "exif/GpsPosition.h"

namespace lumivex::test {
namespace {

TEST(GpsPosition, OneSelectedPictureWithAPosition) {
    const struct {
        const char* name;
        bool latitude, longitude;
        int count, selected;
    } cases[] = {
        // clang-format off
        {"latitude and longitude", true, true, 1, 1}, {"latitude alone", true, false, 1, 1},
        {"longitude alone", false, true, 1, 1}, {"GPS without a position", false, false, 1, 1},
        {"two selected", true, true, 2, 2}, {"none selected", true, true, 0, 1},
        // clang-format on
    };
    fixtures::ScratchDir dir;
    const auto file = dir.path() / "P&1.JPG";
    for (const auto& c : cases) {
        fixtures::ExifJpegBuilder b = WithMake();
        b.Gps().Ascii(18, "WGS-84");
        if (c.latitude) b.Gps().Ascii(1, "S").Rational(2, {{33, 1}, {30, 1}, {0, 1}});
        if (c.longitude) b.Gps().Ascii(3, "E").Rational(4, {{151, 1}, {15, 1}, {0, 1}});
        b.Write(file);
        const auto got = ReadGpsPosition(c.count, c.selected, file);
        ASSERT_EQ(got.has_value(), c.latitude && c.longitude && c.count == 1) << c.name;
        if (!got) continue;
        EXPECT_NEAR(got->latitude, -33.5, 1e-9);
        EXPECT_NEAR(got->longitude, 151.25, 1e-9);
        EXPECT_EQ(got->name, "P&1.JPG");
    }
}

}  // namespace
}  // namespace lumivex::test
