#include "exif/ExifReport.h"

#include <cmath>
#include <functional>

#include "core/DisplayText.h"
#include "core/Globals.h"
#include "core/NumberFormat.h"
#include "exif/ExifValueTables.h"

namespace lumivex {
namespace {

using Render = std::function<std::optional<std::string>(const ExifDict&, std::string_view)>;

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

std::string ExifReport::GetInfo5() const {
    static const Render value = &ExifReport::Value;
    static const Render ratio = &ExifReport::Ratio;
    static const Render mark = &Mark;
    // The reader keeps the three sample sizes apart; the listing shows them together.
    static const Render bits = [](const ExifDict& d, std::string_view) {
        return Joined(d, {"BitsPerSample1", "BitsPerSample2", "BitsPerSample3"});
    };
    static const std::pair<const char*, const Render*> kLines[] = {
        {"ImageWidth", &value},
        {"ImageLength", &value},
        {"BitsPerSample", &bits},
        {"Compression", &value},
        {"PhotometricInterpretation", &value},
        {"Orientation", &value},
        {"SamplesPerPixel", &value},
        {"PlanarConfiguration", &value},
        {"YCbCrSubSampling", &mark},
        {"YCbCrPositioning", &value},
        {"XResolution", &ratio},
        {"YResolution", &ratio},
        {"ResolutionUnit", &value},
        {"StripOffsets", &mark},
        {"RowsPerStrip", &value},
        {"StripByteCounts", &mark},
        {"JPEGInterchangeFormat", &value},
        {"JPEGInterchangeFormatLength", &value},
        {"TransferFunction", &mark},
        {"WhitePoint", &mark},
        {"PrimaryChromaticities", &mark},
        {"YCbCrCoefficients", &mark},
        {"ReferenceBlackWhite", &mark},
        {"DateTime", &value},
        {"ImageDescription", &value},
        {"Make", &value},
        {"Model", &value},
        {"Software", &value},
        {"Artist", &value},
        {"Copyright", &mark},
    };
    std::string out;
    for (const auto& [name, render] : kLines)
        Named(out, name, (*render)(ifd0_, name));
    return out;
}

std::string ExifReport::GetInfo6() const {
    static const Render value = &ExifReport::Value;
    static const Render ratio = &ExifReport::Ratio;
    static const Render mark = &Mark;
    static const Render iso = [](const ExifDict& d, std::string_view) { return Iso(d); };
    static const Render area = [](const ExifDict& d, std::string_view) { return SubjectArea(d); };
    static const Render location = [](const ExifDict& d, std::string_view) {
        return Joined(d, {"SubjectLocationX", "SubjectLocationY"});
    };
    static const std::pair<const char*, const Render*> kLines[] = {
        {"ExifVersion", &value},
        {"FlashPixVersion", &value},
        {"ColorSpace", &value},
        {"ComponentsConfiguration", &value},
        {"CompressedBitsPerPixel", &ratio},
        {"PixelXDimension", &value},
        {"PixelYDimension", &value},
        {"MakerNote", &mark},
        {"UserComment", &value},
        {"RelatedSoundFile", &value},
        {"DateTimeOriginal", &value},
        {"DateTimeDigitized", &value},
        {"SubSecTime", &value},
        {"SubSecTimeOriginal", &value},
        {"SubSecTimeDigitized", &value},
        {"InteroperabiliyIFDPointer", &value},
        {"ExposureTime", &ratio},
        {"FNumber", &ratio},
        {"ExposureProgram", &value},
        {"SpectralSensitivity", &value},
        {"ISOSpeedRatings", &iso},
        {"OECF", &mark},
        {"ShutterSpeedValue", &ratio},
        {"ApertureValue", &ratio},
        {"BrightnessValue", &ratio},
        {"ExposureBiasValue", &ratio},
        {"MaxApertureValue", &ratio},
        {"SubjectDistance", &ratio},
        {"MeteringMode", &value},
        {"LightSource", &value},
        {"Flash", &value},
        {"FocalLength", &ratio},
        {"SubjectArea", &area},
        {"FlashEnergy", &ratio},
        {"SpatialFrequencyResponse", &mark},
        {"FocalPlaneXResolution", &ratio},
        {"FocalPlaneYResolution", &ratio},
        {"FocalPlaneResolutionUnit", &value},
        {"SubjectLocation", &location},
        {"ExposureIndex", &ratio},
        {"SensingMethod", &value},
        {"FileSource", &value},
        {"SceneType", &value},
        {"CFAPattern", &mark},
        {"CustomRendered", &value},
        {"ExposureMode", &value},
        {"WhiteBalance", &value},
        {"DigitalZoomRatio", &ratio},
        {"FocalLengthIn35mmFilm", &value},
        {"SceneCaptureType", &value},
        {"GainControl", &ratio},
        {"Contrast", &value},
        {"Saturation", &value},
        {"Sharpness", &value},
        {"DeviceSettingDescription", &value},
        {"SubjectDistanceRange", &value},
    };
    std::string out;
    for (const auto& [name, render] : kLines)
        Named(out, name, (*render)(ifde_, name));
    return out;
}

}  // namespace lumivex
