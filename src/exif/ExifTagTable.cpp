#include "exif/ExifTagTable.h"

#include <algorithm>

namespace lumivex {
namespace {

using R = TagRead;

constexpr TagRow kIfd0[] = {
    {0x0100, R::ShortOrLong, "ImageWidth"},
    {0x0101, R::ShortOrLong, "ImageLength"},
    {0x0102, R::Shorts3, "BitsPerSample"},
    {0x0103, R::Short, "Compression"},
    {0x0106, R::Short, "PhotometricInterpretation"},
    {0x010E, R::Text, "ImageDescription"},
    {0x010F, R::Text, "Make"},
    {0x0110, R::Text, "Model"},
    {0x0111, R::Mark, "StripOffsets"},
    {0x0112, R::Short, "Orientation"},
    {0x0115, R::Short, "SamplesPerPixel"},
    {0x0116, R::ShortOrLong, "RowsPerStrip"},
    {0x0117, R::Mark, "StripByteCounts"},
    {0x011A, R::Rational, "XResolution"},
    {0x011B, R::Rational, "YResolution"},
    {0x011C, R::Short, "PlanarConfiguration"},
    {0x0128, R::Short, "ResolutionUnit"},
    {0x012D, R::Mark, "TransferFunction"},
    {0x0131, R::Text, "Software"},
    {0x0132, R::Text, "DateTime"},
    {0x013B, R::Text, "Artist"},
    {0x013E, R::Mark, "WhitePoint"},
    {0x013F, R::Mark, "PrimaryChromaticities"},
    {0x0201, R::ValueField, "JPEGInterchangeFormat"},
    {0x0202, R::ValueField, "JPEGInterchangeFormatLength"},
    {0x0211, R::Mark, "YCbCrCoefficients"},
    {0x0212, R::Mark, "YCbCrSubSampling"},
    {0x0213, R::Short, "YCbCrPositioning"},
    {0x0214, R::Mark, "ReferenceBlackWhite"},
    {0x8298, R::Mark, "Copyright"},
};

// The thumbnail's directory reads its strip pointers for real and passes over the tables.
constexpr TagRow kIfd1[] = {
    {0x0100, R::ShortOrLong, "ImageWidth"},
    {0x0101, R::ShortOrLong, "ImageLength"},
    {0x0103, R::Short, "Compression"},
    {0x0106, R::Short, "PhotometricInterpretation"},
    {0x010E, R::Text, "ImageDescription"},
    {0x010F, R::Text, "Make"},
    {0x0110, R::Text, "Model"},
    {0x0111, R::StripField, "StripOffsets"},
    {0x0112, R::Short, "Orientation"},
    {0x0115, R::Short, "SamplesPerPixel"},
    {0x0116, R::ShortOrLong, "RowsPerStrip"},
    {0x0117, R::StripField, "StripByteCounts"},
    {0x011A, R::Rational, "XResolution"},
    {0x011B, R::Rational, "YResolution"},
    {0x011C, R::Short, "PlanarConfiguration"},
    {0x0128, R::Short, "ResolutionUnit"},
    {0x0131, R::Text, "Software"},
    {0x0132, R::Text, "DateTime"},
    {0x013B, R::Text, "Artist"},
    {0x0201, R::ValueField, "JPEGInterchangeFormat"},
    {0x0202, R::ValueField, "JPEGInterchangeFormatLength"},
    {0x0213, R::Short, "YCbCrPositioning"},
};

constexpr TagRow kExif[] = {
    {0x829A, R::Rational, "ExposureTime"},
    {0x829D, R::Rational, "FNumber"},
    {0x8822, R::Short, "ExposureProgram"},
    {0x8824, R::Text, "SpectralSensitivity"},
    {0x8827, R::Iso, "ISOSpeedRatings"},
    {0x8828, R::Mark, "OECF"},
    {0x9000, R::Chars4, "ExifVersion"},
    {0x9003, R::Text, "DateTimeOriginal"},
    {0x9004, R::Text, "DateTimeDigitized"},
    {0x9101, R::Digits4, "ComponentsConfiguration"},
    {0x9102, R::Rational, "CompressedBitsPerPixel"},
    {0x9201, R::SRational, "ShutterSpeedValue"},
    {0x9202, R::Rational, "ApertureValue"},
    {0x9203, R::SRational, "BrightnessValue"},
    {0x9204, R::SRational, "ExposureBiasValue"},
    {0x9205, R::Rational, "MaxApertureValue"},
    {0x9206, R::Rational, "SubjectDistance"},
    {0x9207, R::Short, "MeteringMode"},
    {0x9208, R::Short, "LightSource"},
    {0x9209, R::Low7Bits, "Flash"},
    {0x920A, R::Rational, "FocalLength"},
    {0x9214, R::SubjectArea, "SubjectArea"},
    {0x927C, R::Mark, "MakerNote"},
    {0x9286, R::Comment, "UserComment"},
    {0x9290, R::Text, "SubSecTime"},
    {0x9291, R::Text, "SubSecTimeOriginal"},
    {0x9292, R::Text, "SubSecTimeDigitized"},
    {0xA000, R::Chars4, "FlashPixVersion"},
    {0xA001, R::Short, "ColorSpace"},
    {0xA002, R::ShortOrLong, "PixelXDimension"},
    {0xA003, R::ShortOrLong, "PixelYDimension"},
    {0xA004, R::Text, "RelatedSoundFile"},
    {0xA005, R::ValueField, "InteroperabiliyIFDPointer"},  // sic: the name the program uses
    {0xA20B, R::Rational, "FlashEnergy"},
    {0xA20C, R::Mark, "SpatialFrequencyResponse"},
    {0xA20E, R::Rational, "FocalPlaneXResolution"},
    {0xA20F, R::Rational, "FocalPlaneYResolution"},
    {0xA210, R::Short, "FocalPlaneResolutionUnit"},
    {0xA214, R::ShortPair, "SubjectLocation"},
    {0xA215, R::Rational, "ExposureIndex"},
    {0xA217, R::Short, "SensingMethod"},
    {0xA300, R::Char, "FileSource"},
    {0xA301, R::Char, "SceneType"},
    {0xA302, R::Mark, "CFAPattern"},
    {0xA401, R::Short, "CustomRendered"},
    {0xA402, R::Short, "ExposureMode"},
    {0xA403, R::Short, "WhiteBalance"},
    {0xA404, R::Rational, "DigitalZoomRatio"},
    {0xA405, R::Short, "FocalLengthIn35mmFilm"},
    {0xA406, R::Short, "SceneCaptureType"},
    {0xA407, R::Rational, "GainControl"},
    {0xA408, R::Short, "Contrast"},
    {0xA409, R::Short, "Saturation"},
    {0xA40A, R::Short, "Sharpness"},
    {0xA40B, R::Ignore, "DeviceSettingDescription"},
    {0xA40C, R::Short, "SubjectDistanceRange"},
};

// Tag 27 and above are not read.
constexpr TagRow kGps[] = {
    {0, R::Digits4, "VersionID"},        {1, R::Letter, "LatitudeRef"},
    {2, R::Latitude, "Latitude"},        {3, R::Letter, "LongitudeRef"},
    {4, R::Longitude, "Longitude"},      {5, R::Char, "AltitudeRef"},
    {6, R::Altitude, "Altitude"},        {7, R::TimeOfDay, "TimeStamp"},
    {8, R::Text, "Satellites"},          {9, R::Letter, "Status"},
    {10, R::Letter, "MeasureMode"},      {11, R::Measure, "DOP"},
    {12, R::Letter, "SpeedRef"},         {13, R::Measure, "Speed"},
    {14, R::Letter, "TrackRef"},         {15, R::Measure, "Track"},
    {16, R::Letter, "ImgDirectionRef"},  {17, R::Measure, "ImgDirection"},
    {18, R::Text, "MapDatum"},           {19, R::Letter, "DestLatitudeRef"},
    {20, R::DestAngle, "DestLatitude"},  {21, R::Letter, "DestLongitudeRef"},
    {22, R::DestAngle, "DestLongitude"}, {23, R::Letter, "DestBearingRef"},
    {24, R::Measure, "DestBearing"},     {25, R::Letter, "DestDistanceRef"},
    {26, R::Measure, "DestDistance"},
};

constexpr bool SortedByTag(std::span<const TagRow> rows) {
    for (std::size_t i = 1; i < rows.size(); ++i)
        if (rows[i - 1].tag >= rows[i].tag) return false;
    return true;
}
static_assert(SortedByTag(kIfd0) && SortedByTag(kIfd1) && SortedByTag(kExif) && SortedByTag(kGps));

}  // namespace

std::span<const TagRow> Ifd0Rows() {
    return kIfd0;
}
std::span<const TagRow> Ifd1Rows() {
    return kIfd1;
}
std::span<const TagRow> ExifRows() {
    return kExif;
}
std::span<const TagRow> GpsRows() {
    return kGps;
}

const TagRow* FindRow(std::span<const TagRow> rows, std::uint32_t tag) {
    auto it = std::lower_bound(rows.begin(), rows.end(), tag,
                               [](const TagRow& r, std::uint32_t t) { return r.tag < t; });
    return (it != rows.end() && it->tag == tag) ? &*it : nullptr;
}

}  // namespace lumivex
