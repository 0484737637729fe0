#include "exif/ExifReport.h"

#include <cmath>

#include "core/DisplayText.h"
#include "core/Globals.h"
#include "core/NumberFormat.h"
#include "exif/ExifValueTables.h"

namespace lumivex {
namespace {

void Line(std::string& out, const std::optional<std::string>& text) {
    out += text ? *text : std::string("--");
    out += gCR;
}

void Named(std::string& out, std::string_view name, const std::optional<std::string>& text) {
    out += name;
    out += '=';
    Line(out, text);
}

std::optional<std::string> Mark(const ExifDict& d, std::string_view key) {
    return d.Has(key) ? std::optional<std::string>("**") : std::nullopt;
}

std::optional<std::string> Coded(const ExifDict& d, std::string_view key,
                                 std::string_view (*table)(std::int64_t)) {
    const auto code = d.Integer(key);
    if (!code) return std::nullopt;
    return std::string(table(*code));
}

std::optional<std::string> Iso(const ExifDict& d) {
    if (d.Has("ISOSpeedRatingsM")) return "**";
    return ExifReport::Value(d, "ISOSpeedRatings");
}

// Several keys joined by ","; nothing unless all are there.
std::optional<std::string> Joined(const ExifDict& d, std::initializer_list<std::string_view> keys) {
    std::string text;
    for (std::string_view key : keys) {
        const auto v = ExifReport::Value(d, key);
        if (!v) return std::nullopt;
        if (!text.empty()) text += ',';
        text += *v;
    }
    return text;
}

std::optional<std::string> SubjectArea(const ExifDict& d) {
    if (auto v = Joined(d, {"SubjectAreaX", "SubjectAreaY", "SubjectAreaW", "SubjectAreaH"}))
        return v;
    if (auto v = Joined(d, {"SubjectAreaX", "SubjectAreaY", "SubjectAreaD"})) return v;
    return Joined(d, {"SubjectAreaX", "SubjectAreaY"});
}

std::optional<std::string> Masked(std::optional<double> q, std::string_view mask,
                                  std::string_view before = {}, std::string_view after = {}) {
    if (!q) return std::nullopt;
    return std::string(before) + Format(*q, mask) + std::string(after);
}

double FromPattern(double v) {
    return v >= 2147483648.0 ? v - 4294967296.0 : v;
}

}  // namespace

std::optional<std::string> ExifReport::Value(const ExifDict& d, std::string_view key) {
    const ExifValue* v = d.Find(key);
    if (!v) return std::nullopt;
    if (const auto* s = std::get_if<std::string>(v)) return DisplayText(*s);
    if (const auto* i = std::get_if<std::int64_t>(v)) return DefaultText(*i);
    return DefaultText(std::get<double>(*v));
}

std::optional<std::string> ExifReport::Ratio(const ExifDict& d, std::string_view key) {
    const std::string k(key);
    const auto a = Value(d, k + "A");
    const auto b = Value(d, k + "B");
    if (!a || !b) return std::nullopt;
    return *a + "/" + *b;
}

std::optional<double> ExifReport::Quotient(const ExifDict& d, std::string_view key) {
    const std::string k(key);
    const auto a = d.Number(k + "A");
    const auto b = d.Number(k + "B");
    if (!a || !b) return std::nullopt;
    return *a / *b;
}

std::optional<double> ExifReport::SignedQuotient(const ExifDict& d, std::string_view key) {
    const std::string k(key);
    const auto a = d.Number(k + "A");
    const auto b = d.Number(k + "B");
    if (!a || !b) return std::nullopt;
    return FromPattern(*a) / FromPattern(*b);
}

std::string ExifReport::DateWithSlashes(std::string text) {
    int replaced = 0;
    for (char& c : text) {
        if (c == ':' && replaced < 2) {
            c = '/';
            ++replaced;
        }
    }
    return text;
}

std::string ExifReport::GetInfo1() const {
    std::string out;
    for (const char* key : {"ImageDescription", "Make", "Model", "Software"})
        Line(out, Value(ifd0_, key));
    return out;
}

std::string ExifReport::GetInfo2() const {
    std::string out;
    const auto date = Value(ifd0_, "DateTime");
    Line(out, date ? std::optional<std::string>(DateWithSlashes(*date)) : std::nullopt);
    Line(out, Masked(Quotient(ifd0_, "XResolution"), "#", {}, " DPI"));
    Line(out, Masked(Quotient(ifd0_, "YResolution"), "#", {}, " DPI"));
    return out;
}

std::string ExifReport::GetInfo3() const {
    std::string out;
    Line(out, Masked(Quotient(ifde_, "FNumber"), "###.0", "f "));
    Line(out, Masked(Quotient(ifde_, "MaxApertureValue"), "###.0#", "f "));
    const auto a = ifde_.Number("ExposureTimeA");
    const auto b = ifde_.Number("ExposureTimeB");
    Line(out, a && b ? std::optional<std::string>("1/" + DefaultText(std::round(*b / *a)))
                     : std::nullopt);
    Line(out, Masked(SignedQuotient(ifde_, "ExposureBiasValue"), "-###.00"));
    Line(out, Coded(ifde_, "ExposureProgram", &ExifValueTables::ExposureProgram));
    Line(out, Coded(ifde_, "Flash", &ExifValueTables::Flash));
    return out;
}

std::string ExifReport::GetInfo4() const {
    std::string out;
    const auto x = Value(ifde_, "PixelXDimension");
    const auto y = Value(ifde_, "PixelYDimension");
    Line(out, x && y ? std::optional<std::string>(*x + " x " + *y) : std::nullopt);
    const auto bpp = Quotient(ifde_, "CompressedBitsPerPixel");
    Line(out, bpp ? std::optional<std::string>(DefaultText(std::floor(*bpp))) : std::nullopt);
    Line(out, Masked(Quotient(ifde_, "FocalLength"), "###.##", {}, " mm"));
    Line(out, Coded(ifde_, "MeteringMode", &ExifValueTables::MeteringMode));
    Line(out, Coded(ifde_, "LightSource", &ExifValueTables::LightSource));
    Line(out, Iso(ifde_));
    return out;
}

std::span<const ExifReport::ListingLine> ExifReport::TiffListing() {
    using F = LineForm;
    static constexpr ListingLine kLines[] = {
        {"ImageWidth", F::Value},
        {"ImageLength", F::Value},
        {"BitsPerSample", F::Bits},
        {"Compression", F::Value},
        {"PhotometricInterpretation", F::Value},
        {"Orientation", F::Value},
        {"SamplesPerPixel", F::Value},
        {"PlanarConfiguration", F::Value},
        {"YCbCrSubSampling", F::Mark},
        {"YCbCrPositioning", F::Value},
        {"XResolution", F::Ratio},
        {"YResolution", F::Ratio},
        {"ResolutionUnit", F::Value},
        {"StripOffsets", F::Mark},
        {"RowsPerStrip", F::Value},
        {"StripByteCounts", F::Mark},
        {"JPEGInterchangeFormat", F::Value},
        {"JPEGInterchangeFormatLength", F::Value},
        {"TransferFunction", F::Mark},
        {"WhitePoint", F::Mark},
        {"PrimaryChromaticities", F::Mark},
        {"YCbCrCoefficients", F::Mark},
        {"ReferenceBlackWhite", F::Mark},
        {"DateTime", F::Value},
        {"ImageDescription", F::Value},
        {"Make", F::Value},
        {"Model", F::Value},
        {"Software", F::Value},
        {"Artist", F::Value},
        {"Copyright", F::Mark},
    };
    return kLines;
}

std::span<const ExifReport::ListingLine> ExifReport::ExifListing() {
    using F = LineForm;
    static constexpr ListingLine kLines[] = {
        {"ExifVersion", F::Value},
        {"FlashPixVersion", F::Value},
        {"ColorSpace", F::Value},
        {"ComponentsConfiguration", F::Value},
        {"CompressedBitsPerPixel", F::Ratio},
        {"PixelXDimension", F::Value},
        {"PixelYDimension", F::Value},
        {"MakerNote", F::Mark},
        {"UserComment", F::Value},
        {"RelatedSoundFile", F::Value},
        {"DateTimeOriginal", F::Value},
        {"DateTimeDigitized", F::Value},
        {"SubSecTime", F::Value},
        {"SubSecTimeOriginal", F::Value},
        {"SubSecTimeDigitized", F::Value},
        {"InteroperabiliyIFDPointer", F::Value},
        {"ExposureTime", F::Ratio},
        {"FNumber", F::Ratio},
        {"ExposureProgram", F::Value},
        {"SpectralSensitivity", F::Value},
        {"ISOSpeedRatings", F::Iso},
        {"OECF", F::Mark},
        {"ShutterSpeedValue", F::Ratio},
        {"ApertureValue", F::Ratio},
        {"BrightnessValue", F::Ratio},
        {"ExposureBiasValue", F::Ratio},
        {"MaxApertureValue", F::Ratio},
        {"SubjectDistance", F::Ratio},
        {"MeteringMode", F::Value},
        {"LightSource", F::Value},
        {"Flash", F::Value},
        {"FocalLength", F::Ratio},
        {"SubjectArea", F::SubjectArea},
        {"FlashEnergy", F::Ratio},
        {"SpatialFrequencyResponse", F::Mark},
        {"FocalPlaneXResolution", F::Ratio},
        {"FocalPlaneYResolution", F::Ratio},
        {"FocalPlaneResolutionUnit", F::Value},
        {"SubjectLocation", F::SubjectLocation},
        {"ExposureIndex", F::Ratio},
        {"SensingMethod", F::Value},
        {"FileSource", F::Value},
        {"SceneType", F::Value},
        {"CFAPattern", F::Mark},
        {"CustomRendered", F::Value},
        {"ExposureMode", F::Value},
        {"WhiteBalance", F::Value},
        {"DigitalZoomRatio", F::Ratio},
        {"FocalLengthIn35mmFilm", F::Value},
        {"SceneCaptureType", F::Value},
        {"GainControl", F::Ratio},
        {"Contrast", F::Value},
        {"Saturation", F::Value},
        {"Sharpness", F::Value},
        {"DeviceSettingDescription", F::Value},
        {"SubjectDistanceRange", F::Value},
    };
    return kLines;
}

std::optional<std::string> ExifReport::Render(const ExifDict& d, const ListingLine& line) {
    switch (line.form) {
        case LineForm::Value:
            return Value(d, line.name);
        case LineForm::Ratio:
            return Ratio(d, line.name);
        case LineForm::Mark:
            return Mark(d, line.name);
        case LineForm::Bits:
            // The reader keeps the three sample sizes apart; the listing shows them together.
            return Joined(d, {"BitsPerSample1", "BitsPerSample2", "BitsPerSample3"});
        case LineForm::Iso:
            return Iso(d);
        case LineForm::SubjectArea:
            return SubjectArea(d);
        case LineForm::SubjectLocation:
            return Joined(d, {"SubjectLocationX", "SubjectLocationY"});
    }
    return std::nullopt;
}

std::string ExifReport::GetInfo5() const {
    std::string out;
    for (const ListingLine& line : TiffListing())
        Named(out, line.name, Render(ifd0_, line));
    return out;
}

std::string ExifReport::GetInfo6() const {
    std::string out;
    for (const ListingLine& line : ExifListing())
        Named(out, line.name, Render(ifde_, line));
    return out;
}

}  // namespace lumivex
