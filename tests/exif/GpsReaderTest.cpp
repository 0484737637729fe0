// Latitude and longitude: raw rationals, the text a user reads and signed degrees.
#include <gtest/gtest.h>

#include <cmath>

#include "ExifTestSupport.h"

namespace lumivex::test {
namespace {

using fixtures::ExifJpegBuilder;
using Dms = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

TEST(GpsReader, LatitudeAndLongitudeCases) {
    const struct {
        const char* name;
        bool latitude;
        const char* ref;
        Dms dms;
        const char* text;
        double decimal;
    } cases[] = {
        // clang-format off
        {"all three", true, "N", {{35, 1}, {39, 1}, {2940, 100}}, "北緯35度39分29.4秒", (39.0 / 60.0 + 35.0) + 29.4 / 3600.0},
        {"decimal minutes", false, "E", {{139, 1}, {4512, 100}, {0, 1}}, "東経139度45分7.2秒", 139.752},
        {"decimal degrees", true, "N", {{355, 10}, {0, 1}, {0, 1}}, "北緯35度30分0秒", 35.5},
        {"zero", true, "N", {{0, 1}, {0, 1}, {0, 1}}, "北緯0度0分0秒", 0.0},
        {"seconds 0/100 are real seconds", true, "N", {{35, 1}, {30, 1}, {0, 100}}, "北緯35度30分0秒", 35.5},
        {"south", true, "S", {{33, 1}, {52, 1}, {0, 1}}, "南緯33度52分0秒", -(52.0 / 60.0 + 33.0)},
        {"west, lower case ref", false, "w", {{122, 1}, {25, 1}, {0, 1}}, "西経122度25分0秒", -(25.0 / 60.0 + 122.0)},
        {"lower case north", true, "n", {{10, 1}, {0, 1}, {0, 1}}, "北緯10度0分0秒", 10.0},
        {"no reference", true, nullptr, {{10, 1}, {0, 1}, {0, 1}}, "南緯10度0分0秒", -10.0},
        // clang-format on
    };
    for (const auto order : BothOrders()) {
        for (const auto& c : cases) {
            ExifJpegBuilder b = WithMake(order);
            if (c.ref) b.Gps().Ascii(c.latitude ? 1 : 3, c.ref);
            b.Gps().Rational(c.latitude ? 2 : 4, c.dms);
            Loaded l(b);
            const std::string n = c.latitude ? "Latitude" : "Longitude";
            ExpectValues(
                l.x.IFDg,
                {{n, S(c.text)}, {n + "3B", D(c.dms[2].second)}, {n + "2A", D(c.dms[1].first)}},
                c.name);
            EXPECT_NEAR(l.x.IFDg.Number(n + "2").value_or(-1), c.decimal, 1e-9) << c.name;
        }
    }
}

}  // namespace
}  // namespace lumivex::test
