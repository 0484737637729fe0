// The reader of the GPS directory. Beside the raw rationals it keeps ready-to-show texts and,
// for latitude and longitude, signed decimal degrees for the map hand-off.
#include <cmath>
#include <string>
#include <vector>

#include "core/NumberFormat.h"
#include "exif/ExifReader.h"

namespace lumivex {
namespace {

enum GpsTag : std::uint32_t {
    kVersionID = 0,
    kLatitudeRef,
    kLatitude,
    kLongitudeRef,
    kLongitude,
    kAltitudeRef,
    kAltitude,
    kTimeStamp,
    kSatellites,
    kStatus,
    kMeasureMode,
    kDOP,
    kSpeedRef,
    kSpeed,
    kTrackRef,
    kTrack,
    kImgDirectionRef,
    kImgDirection,
    kMapDatum,
    kDestLatitudeRef,
    kDestLatitude,
    kDestLongitudeRef,
    kDestLongitude,
    kDestBearingRef,
    kDestBearing,
    kDestDistanceRef,
    kDestDistance,
};

bool EqualsIgnoringCase(const std::string& s, char letter) {
    return s.size() == 1 && (s[0] == letter || s[0] == letter - 'A' + 'a');
}

struct Angle {
    double d, m, s;
};

// A writer may put the whole angle in the degrees, or degrees and decimal minutes, leaving the
// rest as exactly 0/1.
Angle ToDegreesMinutesSeconds(double dn, double dd, double mn, double md, double sn, double sd) {
    const bool secondsUnused = sn == 0 && sd == 1;
    if (mn == 0 && md == 1 && secondsUnused) {
        const double deg = std::floor(dn / dd);
        const double f = (dn / dd - deg) * 60.0;
        const double min = std::floor(f);
        return {deg, min, (f - min) * 60.0};
    }
    if (secondsUnused) {
        const double min = std::floor(mn / md);
        return {dn / dd, min, (mn / md - min) * 60.0};
    }
    return {dn / dd, mn / md, sn / sd};
}

class GpsReader {
  public:
    GpsReader(ExifReader& x, ByteSource& s, std::uint32_t code) : x_(x), s_(s), code_(code) {}

    void Apply(const DirEntry& e, std::size_t i);

  private:
    void Letter(const char* key, const DirEntry& e) {
        const auto c = ExifReader::ByteToChar(e.offset, code_);
        x_.IFDg.Set(key, c == 0 ? std::string() : std::string(1, static_cast<char>(c)));
    }
    // One rational at `dist`, stored under key+"A"/"B"; returns A / B.
    double Rational(const std::string& key, std::size_t i, std::uint64_t dist) {
        const double a = x_.ByteToLongG(s_, i, dist, code_);
        const double b = x_.ByteToLongG(s_, i, dist + 4, code_);
        x_.IFDg.Set(key + "A", a);
        x_.IFDg.Set(key + "B", b);
        return a / b;
    }
    void Measure(const std::string& key, std::size_t i) {
        x_.IFDg.Set(key, Format(Rational(key, i, 0), "#####.####"));
    }
    // Three rationals under key+"1".."3", each shown with "##" and joined by `sep`.
    void Triple(const std::string& key, std::size_t i, const char* sep) {
        std::string text;
        for (int k = 0; k < 3; ++k) {
            if (k > 0) text += sep;
            text += Format(Rational(key + std::to_string(k + 1), i, 8u * k), "##");
        }
        x_.IFDg.Set(key, text);
    }

    ExifReader& x_;
    ByteSource& s_;
    std::uint32_t code_;
};

void GpsReader::Apply(const DirEntry& e, std::size_t i) {
    switch (e.tag) {
        case kVersionID:
            x_.IFDg.Set("VersionID", ExifReader::ByteToLong(e.offset, code_));
            break;
        case kLatitudeRef:
            Letter("LatitudeRef", e);
            break;
        case kLatitude:
            x_.LoadFileIFDGPSLatitude(s_, i, code_);
            break;
        case kLongitudeRef:
            Letter("LongitudeRef", e);
            break;
        case kLongitude:
            x_.LoadFileIFDGPSLongitude(s_, i, code_);
            break;
        case kAltitudeRef:
            x_.IFDg.Set("AltitudeRef", ExifReader::ByteToChar(e.offset, code_));
            break;
        case kAltitude:
            x_.IFDg.Set("Altitude", Format(Rational("Altitude", i, 0), "#####") + " m");
            break;
        case kTimeStamp:
            Triple("TimeStamp", i, ":");
            break;
        case kSatellites:
            x_.IFDg.Set("Satellites", x_.ByteToASCIIg(s_, i, code_));
            break;
        case kStatus:
            Letter("Status", e);
            break;
        case kMeasureMode:
            Letter("MeasureMode", e);
            break;
        case kDOP:
            Measure("DOP", i);
            break;
        case kSpeedRef:
            Letter("SpeedRef", e);
            break;
        case kSpeed:
            Measure("Speed", i);
            break;
        case kTrackRef:
            Letter("TrackRef", e);
            break;
        case kTrack:
            Measure("Track", i);
            break;
        case kImgDirectionRef:
            Letter("ImgDirectionRef", e);
            break;
        case kImgDirection:
            Measure("ImgDirection", i);
            break;
        case kMapDatum:
            x_.IFDg.Set("MapDatum", x_.ByteToASCIIg(s_, i, code_));
            break;
        case kDestLatitudeRef:
            Letter("DestLatitudeRef", e);
            break;
        case kDestLatitude:
            Triple("DestLatitude", i, ".");
            break;
        case kDestLongitudeRef:
            Letter("DestLongitudeRef", e);
            break;
        case kDestLongitude:
            Triple("DestLongitude", i, ".");
            break;
        case kDestBearingRef:
            Letter("DestBearingRef", e);
            break;
        case kDestBearing:
            Measure("DestBearing", i);
            break;
        case kDestDistanceRef:
            Letter("DestDistanceRef", e);
            break;
        case kDestDistance:
            Measure("DestDistance", i);
            break;
        default:
            break;  // tag 27 and above are not read
    }
}

bool IsText(std::uint32_t tag) {
    return tag == kSatellites || tag == kMapDatum;
}
bool IsAngle(std::uint32_t tag) {
    return tag == kLatitude || tag == kLongitude;
}

}  // namespace

// Latitude and longitude are worked out after the rest, so that their reference letters count
// wherever they stand in the directory (a writer that puts tag 2 before tag 1 still gets its
// hemisphere right). Texts that a later entry overwrites are not read at all.
void ExifReader::LoadFileIFDGPS(ByteSource& s, std::uint32_t code) {
    GpsReader reader(*this, s, code);
    std::size_t lastText[2] = {0, 0};
    for (std::size_t i = 0; i < IFDg_Dir.size(); ++i)
        if (IsText(IFDg_Dir[i].tag)) lastText[IFDg_Dir[i].tag == kMapDatum] = i;
    std::vector<std::size_t> angles;
    for (std::size_t i = 0; i < IFDg_Dir.size(); ++i) {
        const DirEntry& e = IFDg_Dir[i];
        if (IsAngle(e.tag)) {
            angles.push_back(i);
        } else if (!IsText(e.tag) || lastText[e.tag == kMapDatum] == i) {
            reader.Apply(e, i);
        }
    }
    for (const std::size_t i : angles)
        reader.Apply(IFDg_Dir[i], i);
}

void ExifReader::LoadFileIFDGPSLatitude(ByteSource& s, std::size_t i, std::uint32_t code) {
    LoadGpsAngle(s, i, code, true);
}

void ExifReader::LoadFileIFDGPSLongitude(ByteSource& s, std::size_t i, std::uint32_t code) {
    LoadGpsAngle(s, i, code, false);
}

void ExifReader::LoadGpsAngle(ByteSource& s, std::size_t i, std::uint32_t code, bool latitude) {
    const std::string name = latitude ? "Latitude" : "Longitude";
    double v[6];
    for (int k = 0; k < 6; ++k)
        v[k] = ByteToLongG(s, i, 4u * k, code);
    for (int k = 0; k < 3; ++k) {
        IFDg.Set(name + std::to_string(k + 1) + "A", v[2 * k]);
        IFDg.Set(name + std::to_string(k + 1) + "B", v[2 * k + 1]);
    }
    const Angle a = ToDegreesMinutesSeconds(v[0], v[1], v[2], v[3], v[4], v[5]);
    const std::string text = Format(a.d, latitude ? "##" : "###") + "度" + Format(a.m, "##") +
                             "分" + Format(a.s, "##.##") + "秒";
    const ExifValue* ref = IFDg.Find(latitude ? "LatitudeRef" : "LongitudeRef");
    const std::string* letter = ref ? std::get_if<std::string>(ref) : nullptr;
    const bool positive = letter && EqualsIgnoringCase(*letter, latitude ? 'N' : 'E');
    const double sign = positive ? 1.0 : -1.0;
    const char* prefix = latitude ? (positive ? "北緯" : "南緯") : (positive ? "東経" : "西経");
    IFDg.Set(name, prefix + text);
    IFDg.Set(name + "2", ((a.m / 60.0 + a.d) + a.s / 3600.0) * sign);
}

}  // namespace lumivex
