#include "exif/GpsPosition.h"

#include "exif/ExifReader.h"

namespace lumivex {

std::optional<GpsPosition> ReadGpsPosition(int count, int selected,
                                           const std::filesystem::path& file) {
    if (count == 0 || selected != 1) return std::nullopt;
    ExifReader x;
    x.fitem = file;
    x.GetExif();
    if (!x.ret || x.IFDg_Max == 0) return std::nullopt;
    const auto latitude = x.IFDg.Number("Latitude2");
    const auto longitude = x.IFDg.Number("Longitude2");
    if (!latitude || !longitude) return std::nullopt;
    return GpsPosition{*latitude, *longitude, file.filename().string()};
}

}  // namespace lumivex
