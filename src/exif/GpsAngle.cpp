#include "exif/GpsAngle.h"

#include <cmath>
#include <string>

#include "core/NumberFormat.h"

namespace lumivex {
namespace {

struct Dms {
    double d, m, s;
};

// A writer may put the whole angle in the degrees, or degrees and decimal minutes, leaving the
// rest as exactly 0/1.
Dms ToDegreesMinutesSeconds(const std::array<double, 6>& v) {
    const bool secondsUnused = v[4] == 0 && v[5] == 1;
    if (v[2] == 0 && v[3] == 1 && secondsUnused) {
        const double deg = std::floor(v[0] / v[1]);
        const double f = (v[0] / v[1] - deg) * 60.0;
        const double min = std::floor(f);
        return {deg, min, (f - min) * 60.0};
    }
    if (secondsUnused) {
        const double min = std::floor(v[2] / v[3]);
        return {v[0] / v[1], min, (v[2] / v[3] - min) * 60.0};
    }
    return {v[0] / v[1], v[2] / v[3], v[4] / v[5]};
}

bool IsLetter(const ExifValue* ref, char letter) {
    const std::string* s = ref ? std::get_if<std::string>(ref) : nullptr;
    return s && s->size() == 1 && ((*s)[0] == letter || (*s)[0] == letter - 'A' + 'a');
}

}  // namespace

void GpsAngle::Store(ExifDict& out, bool latitude, const std::array<double, 6>& parts) {
    const std::string name = latitude ? "Latitude" : "Longitude";
    for (int k = 0; k < 3; ++k) {
        out.Set(name + std::to_string(k + 1) + "A", parts[2 * k]);
        out.Set(name + std::to_string(k + 1) + "B", parts[2 * k + 1]);
    }
    const Dms a = ToDegreesMinutesSeconds(parts);
    const std::string text = Format(a.d, latitude ? "##" : "###") + "度" + Format(a.m, "##") +
                             "分" + Format(a.s, "##.##") + "秒";
    const bool positive = IsLetter(out.Find(name + "Ref"), latitude ? 'N' : 'E');
    const char* prefix = latitude ? (positive ? "北緯" : "南緯") : (positive ? "東経" : "西経");
    out.Set(name, prefix + text);
    out.Set(name + "2", ((a.m / 60.0 + a.d) + a.s / 3600.0) * (positive ? 1.0 : -1.0));
}

}  // namespace lumivex
