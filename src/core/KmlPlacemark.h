#pragma once
// The KML 2.2 placemark that hands a picture's position and the view of the preferences to
// Google Earth: its text, its file name by date and time, and the file in the scratch folder.
#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/GoogleEarthSettings.h"

namespace lumivex {

class KmlPlacemark {
  public:
    // Lines end with "\n", the last one with nothing. `name` goes in as it stands: Google
    // Earth shows it as the placemark's label, and the user knows the file by that text.
    static std::string Text(std::string_view name, double latitude, double longitude,
                            const GoogleEarthSettings& view);
    // "YYYYMMDDhhmmss.kml" of the local time `when`.
    static std::string FileName(std::time_t when);
    // Writes `text` as FileName(when) into `folder`; the file's path, or empty on failure.
    static std::filesystem::path Write(const std::filesystem::path& folder, std::string_view text,
                                       std::time_t when);
};

}  // namespace lumivex
