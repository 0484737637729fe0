#pragma once
// Whether the one selected picture carries a position that Google Earth can be shown.
#include <filesystem>
#include <optional>
#include <string>

namespace lumivex {

struct GpsPosition {
    double latitude = 0;   // decimal degrees, north positive
    double longitude = 0;  // decimal degrees, east positive
    std::string name;      // the file's name with its extension
};

// Nothing unless exactly one item is selected (`count` not 0 and `selected` 1) and `file` has
// Exif with a GPS directory holding both latitude and longitude. Several selected items cost
// no file read.
std::optional<GpsPosition> ReadGpsPosition(int count, int selected,
                                           const std::filesystem::path& file);

}  // namespace lumivex
