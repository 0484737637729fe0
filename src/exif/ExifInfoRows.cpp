#include "exif/ExifInfoRows.h"

#include <cmath>
#include <optional>
#include <string_view>

#include "core/NumberFormat.h"
#include "exif/ExifReport.h"
#include "exif/ExifValueTables.h"

namespace lumivex {
namespace {

using Shown = std::optional<std::string>;

// A value that is there, even an empty one (an unknown light source), makes the row bold.
ExifInfoRow Row(std::string label, const Shown& value) {
    return {std::move(label), value.value_or(std::string()), value.has_value()};
}

ExifInfoRow Named(std::string_view name, const Shown& value) {
    return Row(std::string(name) + " ", value);
}

Shown Masked(std::optional<double> q, std::string_view mask, std::string_view before = {},
             std::string_view after = {}) {
    if (!q) return std::nullopt;
    return std::string(before) + Format(*q, mask) + std::string(after);
}

Shown Coded(const ExifDict& d, std::string_view key, std::string_view (*table)(std::int64_t)) {
    const auto code = d.Integer(key);
    if (!code) return std::nullopt;
    return std::string(table(*code));
}

Shown Date(const ExifDict& d) {
    const auto date = ExifReport::Value(d, "DateTime");
    if (!date) return std::nullopt;
    return ExifReport::DateWithSlashes(*date);
}

// Shown as the reciprocal, the way shutter speeds are spoken of.
Shown ExposureTime(const ExifDict& d) {
    const auto a = d.Number("ExposureTimeA");
    const auto b = d.Number("ExposureTimeB");
    if (!a || !b) return std::nullopt;
    return "1/" + DefaultText(std::round(*b / *a));
}

Shown ImageSize(const ExifDict& d) {
    const auto x = ExifReport::Value(d, "PixelXDimension");
    const auto y = ExifReport::Value(d, "PixelYDimension");
    if (!x || !y) return std::nullopt;
    return *x + " x " + *y;
}

Shown Floored(std::optional<double> q) {
    if (!q) return std::nullopt;
    return DefaultText(std::floor(*q));
}

// A list of speeds has no one value to show: the summary leaves the cell empty.
Shown Iso(const ExifDict& d, std::string_view multiple) {
    if (d.Has("ISOSpeedRatingsM")) return std::string(multiple);
    return ExifReport::Value(d, "ISOSpeedRatings");
}

std::string GpsNumber(const ExifDict& g, const std::string& key) {
    return Format(g.Number(key).value_or(0.0), "#####");
}

std::string GpsRational(const ExifDict& g, const std::string& key) {
    return GpsNumber(g, key + "A") + "/" + GpsNumber(g, key + "B");
}

enum class GpsForm { Text, Number, One, Three, Dop };

struct GpsLine {
    const char* name;
    GpsForm form;
};

constexpr GpsLine kGpsLines[] = {
    {"VersionID", GpsForm::Text},       {"LatitudeRef", GpsForm::Text},
    {"Latitude", GpsForm::Three},       {"LongitudeRef", GpsForm::Text},
    {"Longitude", GpsForm::Three},      {"AltitudeRef", GpsForm::Number},
    {"Altitude", GpsForm::One},         {"TimeStamp", GpsForm::Three},
    {"Satellites", GpsForm::Text},      {"Status", GpsForm::Text},
    {"MeasureMode", GpsForm::Text},     {"DOP", GpsForm::Dop},
    {"SpeedRef", GpsForm::Text},        {"Speed", GpsForm::One},
    {"TrackRef", GpsForm::Text},        {"Track", GpsForm::One},
    {"ImgDirectionRef", GpsForm::Text}, {"ImgDirection", GpsForm::One},
    {"MapDatum", GpsForm::Text},        {"DestLatitudeRef", GpsForm::Text},
    {"DestLatitude", GpsForm::Three},   {"DestLongitudeRef", GpsForm::Text},
    {"DestLongitude", GpsForm::Three},  {"DestBearingRef", GpsForm::Text},
    {"DestBearing", GpsForm::One},      {"DestDistanceRef", GpsForm::Text},
    {"DestDistance", GpsForm::One},
};

// The raw parts as stored: degrees, minutes, seconds (or hours...) are never added up.
Shown GpsValue(const ExifDict& g, const GpsLine& line) {
    const std::string key = line.name;
    // The reader files the image direction's text under its name too, but the parts decide.
    const bool there = key == "ImgDirection" ? g.Has(key + "A") && g.Has(key + "B") : g.Has(key);
    if (!there) return std::nullopt;
    switch (line.form) {
        case GpsForm::Text:
            return ExifReport::Value(g, key);
        case GpsForm::Number:
            return GpsNumber(g, key);
        case GpsForm::One:
            return GpsRational(g, key);
        case GpsForm::Three:
            return GpsRational(g, key + "1") + ", " + GpsRational(g, key + "2") + ", " +
                   GpsRational(g, key + "3");
        case GpsForm::Dop:
            return ExifReport::Value(g, "DOPA").value_or("") + "/" +
                   ExifReport::Value(g, "DOPB").value_or("");
    }
    return std::nullopt;
}

}  // namespace

ExifInfoList ExifInfoRows::SelFileExif21(const ExifReader& x) {
    const ExifDict& d0 = x.IFD0;
    const ExifDict& de = x.IFDe;
    const ExifDict& dg = x.IFDg;
    return {
        Row("タイトル ", ExifReport::Value(d0, "ImageDescription")),
        Row("メーカー ", ExifReport::Value(d0, "Make")),
        Row("モデル ", ExifReport::Value(d0, "Model")),
        Row("ソフトウェア ", ExifReport::Value(d0, "Software")),
        Row("撮影日時 ", Date(d0)),
        Row("x 解像度 ", Masked(ExifReport::Quotient(d0, "XResolution"), "#")),
        Row("y 解像度 ", Masked(ExifReport::Quotient(d0, "YResolution"), "#")),
        Row("Fナンバー ", Masked(ExifReport::Quotient(de, "FNumber"), "###.0", "F ")),
        Row("レンズ最小Ｆ値 ",
            Masked(ExifReport::Quotient(de, "MaxApertureValue"), "###.0#", "F ")),
        Row("露出時間 ", ExposureTime(de)),
        Row("露出補正値 ", Masked(ExifReport::SignedQuotient(de, "ExposureBiasValue"), "-###.00")),
        Row("露出プログラム ", Coded(de, "ExposureProgram", &ExifValueTables::ExposureProgram)),
        Row("フラッシュ ", Coded(de, "Flash", &ExifValueTables::Flash)),
        Row("画像サイズ ", ImageSize(de)),
        Row("画質モード ", Floored(ExifReport::Quotient(de, "CompressedBitsPerPixel"))),
        Row("レンズ焦点距離 ",
            Masked(ExifReport::Quotient(de, "FocalLength"), "###.##", {}, " mm")),
        Row("測光方式 ", Coded(de, "MeteringMode", &ExifValueTables::MeteringMode)),
        Row("光源 ", Coded(de, "LightSource", &ExifValueTables::LightSource)),
        Row("ISO感度 ", Iso(de, "")),
        Row("緯度 ", ExifReport::Value(dg, "Latitude")),
        Row("経度 ", ExifReport::Value(dg, "Longitude")),
        Row("高度 ", ExifReport::Value(dg, "Altitude")),
    };
}

ExifInfoList ExifInfoRows::SelFileExif22(const ExifReader& x) {
    ExifInfoList rows;
    for (const auto& line : ExifReport::TiffListing())
        rows.push_back(Named(line.name, ExifReport::Render(x.IFD0, line)));
    return rows;
}

// The listing's lines, but one row per stored part where the listing joins parts.
ExifInfoList ExifInfoRows::SelFileExif23(const ExifReader& x) {
    using Form = ExifReport::LineForm;
    const ExifDict& de = x.IFDe;
    ExifInfoList rows;
    for (const auto& line : ExifReport::ExifListing()) {
        if (line.form == Form::Iso) {
            rows.push_back(Named("ISOSpeedRatingsM", Iso(de, "**")));
        } else if (line.form == Form::SubjectArea) {
            for (const char* part : {"X", "Y", "W", "H", "D"})
                rows.push_back(Named(std::string("SubjectArea") + part,
                                     ExifReport::Value(de, std::string("SubjectArea") + part)));
        } else if (line.form == Form::SubjectLocation) {
            for (const char* part : {"SubjectLocationX", "SubjectLocationY"})
                rows.push_back(Named(part, ExifReport::Value(de, part)));
        } else {
            rows.push_back(Named(line.name, ExifReport::Render(de, line)));
        }
    }
    return rows;
}

ExifInfoList ExifInfoRows::SelFileExif24(const ExifReader& x) {
    if (x.IFDg_Max == 0) return {{"", "", false}, {"GPSデータは", "含まれていません。", false}};
    ExifInfoList rows;
    for (const GpsLine& line : kGpsLines)
        rows.push_back(Named(line.name, GpsValue(x.IFDg, line)));
    return rows;
}

std::string ExifInfoRows::CopyString2(const ExifInfoList& rows, const std::vector<bool>& selected) {
    std::string text;
    for (std::size_t i = 0; i < rows.size() && i < selected.size(); ++i) {
        if (!selected[i]) continue;
        text += rows[i].label;
        text += ':';
        text += rows[i].value;
        text += '\n';
    }
    return text;
}

}  // namespace lumivex
