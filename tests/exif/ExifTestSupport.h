#pragma once
// Reads a fixture through exifGPS straight from memory, as the scan reads a file's head.
#include <cstdint>
#include <string>
#include <vector>

#include "ExifJpegBuilder.h"
#include "exif/exifGPS.h"

namespace lumivex::test {

class Loaded {
  public:
    explicit Loaded(const fixtures::ExifJpegBuilder& b) : bytes_(b.Build(&layout)) {
        x.fbytes = bytes_;
        x.GetExif();
    }
    fixtures::Layout layout;
    exifGPS x;

  private:
    std::vector<std::uint8_t> bytes_;
};

inline ExifValue I(std::int64_t v) {
    return ExifValue(v);
}
inline ExifValue D(double v) {
    return ExifValue(v);
}
inline ExifValue S(std::string v) {
    return ExifValue(std::move(v));
}

inline std::vector<fixtures::ByteOrder> BothOrders() {
    return {fixtures::ByteOrder::Little, fixtures::ByteOrder::Big};
}

}  // namespace lumivex::test
