#pragma once
// A latitude or longitude out of its three rationals: the raw parts, the text a user reads
// ("北緯35度39分29.4秒") and the signed decimal degrees for the map hand-off.
#include <array>

#include "exif/ExifDict.h"

namespace lumivex {

class GpsAngle {
  public:
    // `parts` are degrees, minutes and seconds, each numerator then denominator. The sign
    // comes from the reference letter already stored in `out` ("N" or "E" is positive, any
    // other letter or none is negative).
    static void Store(ExifDict& out, bool latitude, const std::array<double, 6>& parts);
};

}  // namespace lumivex
