// Whether the one selected picture carries a position, read from a file as the command asks.
#include <gtest/gtest.h>

#include <functional>

#include "ExifTestSupport.h"
#include "ScratchDir.h"
#include "exif/GpsPosition.h"

namespace lumivex::test {
namespace {

using fixtures::ExifJpegBuilder;
using Dms = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

void Latitude(ExifJpegBuilder& b) {
    b.Gps().Ascii(1, "S").Rational(2, Dms{{33, 1}, {30, 1}, {0, 1}});
}
void Longitude(ExifJpegBuilder& b) {
    b.Gps().Ascii(3, "E").Rational(4, Dms{{151, 1}, {15, 1}, {0, 1}});
}

TEST(GpsPosition, OneSelectedPictureWithAPosition) {
    const struct {
        const char* name;
        std::function<void(ExifJpegBuilder&)> gps;
        int count, selected;
        bool has;
    } cases[] = {
        {"latitude and longitude",
         [](auto& b) {
             Latitude(b);
             Longitude(b);
         },
         1, 1, true},
        {"latitude alone", [](auto& b) { Latitude(b); }, 1, 1, false},
        {"longitude alone", [](auto& b) { Longitude(b); }, 1, 1, false},
        {"GPS without a position", [](auto& b) { b.Gps().Ascii(18, "WGS-84"); }, 1, 1, false},
        {"no GPS", [](auto&) {}, 1, 1, false},
        {"two selected",
         [](auto& b) {
             Latitude(b);
             Longitude(b);
         },
         2, 2, false},
        {"none selected",
         [](auto& b) {
             Latitude(b);
             Longitude(b);
         },
         0, 1, false},
    };
    fixtures::ScratchDir dir;
    for (const auto& c : cases) {
        ExifJpegBuilder b = WithMake();
        c.gps(b);
        const auto file = dir.path() / "P&1.JPG";
        b.Write(file);
        const auto got = ReadGpsPosition(c.count, c.selected, file);
        ASSERT_EQ(got.has_value(), c.has) << c.name;
        if (!got) continue;
        EXPECT_NEAR(got->latitude, -33.5, 1e-9);
        EXPECT_NEAR(got->longitude, 151.25, 1e-9);
        EXPECT_EQ(got->name, "P&1.JPG");
    }
    EXPECT_FALSE(ReadGpsPosition(1, 1, dir.path() / "missing.jpg"));
    EXPECT_FALSE(ReadGpsPosition(1, 1, dir.path()));
}

}  // namespace
}  // namespace lumivex::test
