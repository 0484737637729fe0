// Positions, heights and times of the GPS directory: raw rationals, texts and signed degrees.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "ExifTestSupport.h"

namespace lumivex::test {
namespace {

using fixtures::ExifJpegBuilder;
using fixtures::Ifd;
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

TEST(GpsReader, OtherTags) {
    const struct {
        const char* name;
        std::function<void(Ifd&)> add;
        Values expect;
    } cases[] = {
        // clang-format off
        {"version", [](Ifd& d) { d.Bytes(0, fixtures::BYTE, {2, 2, 0, 0}); }, {{"VersionID", I(2200)}}},
        {"altitude", [](Ifd& d) { d.Bytes(5, fixtures::BYTE, {1}).Rational(6, {{12340, 10}}); }, {{"AltitudeRef", I(1)}, {"Altitude", S("1234 m")}, {"AltitudeA", D(12340)}}},
        {"time", [](Ifd& d) { d.Rational(7, {{12, 1}, {5, 1}, {3050, 100}}); }, {{"TimeStamp", S("12:5:31")}, {"TimeStamp3A", D(3050)}}},
        {"texts", [](Ifd& d) { d.Ascii(8, "07").Ascii(18, "WGS-84").Ascii(9, "A").Ascii(10, "3"); }, {{"Satellites", S("07")}, {"MapDatum", S("WGS-84")}, {"Status", S("A")}, {"MeasureMode", S("3")}}},
        {"measures", [](Ifd& d) { d.Rational(11, {{5, 2}}) .Rational(13, {{1234, 100}}) .Ascii(12, "K") .Rational(15, {{1, 3}}); d.Rational(17, {{90, 1}}).Rational(24, {{45, 1}}).Rational(26, {{1, 8}}); }, {{"DOP", S("2.5")}, {"Speed", S("12.34")}, {"SpeedRef", S("K")}, {"Track", S("0.3333")}, {"ImgDirection", S("90")}, {"DestBearing", S("45")}, {"DestDistance", S("0.125")}}},
        {"destination", [](Ifd& d) { d.Ascii(19, "N") .Rational(20, {{35, 1}, {39, 1}, {29, 1}}) .Rational(22, {{139, 1}, {4, 1}, {5, 1}}); }, {{"DestLatitudeRef", S("N")}, {"DestLatitude", S("35.39.29")}, {"DestLongitude", S("139.4.5")}}},
        {"reference after the angle", [](Ifd& d) { d.KeepOrder().Rational(2, {{1, 1}, {0, 1}, {0, 1}}).Ascii(1, "N"); }, {{"Latitude", S("北緯1度0分0秒")}, {"Latitude2", D(1.0)}}},
        {"zero denominators", [](Ifd& d) { d.Rational(2, {{1, 0}, {0, 0}, {0, 0}}).Rational(6, {{5, 0}}); }, {{"Latitude1B", D(0)}, {"Altitude", S("INF m")}}},
        // clang-format on
    };
    for (const auto order : BothOrders()) {
        for (const auto& c : cases) {
            ExifJpegBuilder b = WithMake(order);
            c.add(b.Gps());
            b.Gps().Short(27, {1}).Short(31, {1});  // unknown tags leave no trace
            Loaded l(b);
            ExpectValues(l.x.IFDg, c.expect, c.name);
            for (const auto& item : l.x.IFDg)
                EXPECT_EQ(item.key.find("27"), std::string::npos) << item.key;
        }
    }
}

}  // namespace
}  // namespace lumivex::test
