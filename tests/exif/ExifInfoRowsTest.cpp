// The rows of the information window: fixed rows whatever the file holds, their values and
// which of them are bold.
#include <gtest/gtest.h>

#include <algorithm>

#include "ExifTestSupport.h"
#include "RealisticCamera.h"
#include "exif/ExifInfoRows.h"

namespace lumivex::test {
namespace {

using fixtures::ByteOrder;

struct Want {
    int list;
    std::string label;
    std::string value;
    bool present;
};

void ExpectRows(const ExifReader& x, const std::vector<Want>& wants) {
    const ExifInfoList lists[] = {ExifInfoRows::SelFileExif21(x), ExifInfoRows::SelFileExif22(x),
                                  ExifInfoRows::SelFileExif23(x), ExifInfoRows::SelFileExif24(x)};
    for (const Want& w : wants) {
        const ExifInfoList& rows = lists[w.list];
        const auto row = std::find_if(rows.begin(), rows.end(),
                                      [&](const ExifInfoRow& r) { return r.label == w.label; });
        ASSERT_NE(row, rows.end()) << "list " << w.list << ": " << w.label;
        EXPECT_EQ(row->value, w.value) << w.label;
        EXPECT_EQ(row->present, w.present) << w.label;
    }
}

// The rows read stored values only; both byte orders are the directory reader's tests, the
// number and order of the rows the information window's.
TEST(ExifInfoRows, CameraFileWithGps) {
    Loaded f(fixtures::RealisticCameraBuilder(1, 0, ByteOrder::Big));
    // clang-format off
    ExpectRows(f.x, {
        {0, "タイトル ", "", false}, {0, "撮影日時 ", "2024/05/01 10:00:00", true},
        {0, "Fナンバー ", "F 2.8", true}, {0, "レンズ最小Ｆ値 ", "F 2.97", true}, {0, "露出時間 ", "1/125", true},
        {0, "露出補正値 ", "-0.67", true}, {0, "露出プログラム ", "露出優先", true}, {0, "画質モード ", "", false},
        {0, "レンズ焦点距離 ", "35 mm", true}, {0, "ISO感度 ", "200", true},
        {0, "緯度 ", "北緯35度39分29.41秒", true}, {1, "XResolution ", "72/1", true},
        {1, "ImageWidth ", "", false}, {2, "FNumber ", "28/10", true},
        {2, "ISOSpeedRatingsM ", "200", true}, {2, "MakerNote ", "**", true},
        {2, "SubjectAreaD ", "", false}, {2, "SubjectLocationX ", "", false},
        {3, "VersionID ", "2300", true}, {3, "Latitude ", "35/1, 39/1, 2941/100", true},
        {3, "AltitudeRef ", "0", true}, {3, "Altitude ", "12350/10", true}, {3, "DOP ", "", false},
    });
    // clang-format on
}

// Values that no summary can turn into words, and parts the file lacks.
TEST(ExifInfoRows, OddValues) {
    fixtures::ExifJpegBuilder b = WithMake();
    b.Exif().Short(0x8827, {100, 200}).Short(0x9208, {24}).Rational(0x829D, {{28, 0}});
    b.Exif().Short(0x9214, {10, 20, 5}).Short(0xA214, {7, 9});
    b.Gps().Rational(0x0011, {{90, 1}}).Rational(0x000B, {{25, 10}});
    Loaded f(b);
    // clang-format off
    ExpectRows(f.x, {
        {0, "ISO感度 ", "", true}, {0, "光源 ", "", true}, {0, "Fナンバー ", "F INF", true},
        {2, "ISOSpeedRatingsM ", "**", true}, {2, "SubjectAreaD ", "5", true},
        {2, "SubjectAreaW ", "", false}, {2, "SubjectLocationY ", "9", true},
        {3, "ImgDirection ", "90/1", true}, {3, "DOP ", "25/10", true}, {3, "Latitude ", "", false},
    });
    // clang-format on
}

}  // namespace
}  // namespace lumivex::test
