#pragma once
// The settings that the Google Earth hand-off reads and the two that it changes, copied out of
// the settings store so that the hand-off never depends on where the store keeps them.
#include <cstdint>
#include <string>

namespace lumivex {

class Settings;

struct GoogleEarthSettings {
    bool use = true;            // starting Google Earth is allowed
    bool beep = true;           // cautions beep
    std::int64_t range = 2000;  // distance of the view in metres
    std::int64_t tilt = 0;
    std::int64_t heading = 0;      // azimuth of the view
    std::int64_t speedTenths = 2;  // speed of the camera's move, ten times what the user sees
    std::string appPath;           // the located application
    std::string oldAppPath;        // an earlier form of that path, read only to fill appPath
};

GoogleEarthSettings GoogleEarthSettingsFrom(const Settings& prefs);
// Writes back what the search at start may change: the permission and the located path.
void StoreGoogleEarthSettings(const GoogleEarthSettings& values, Settings& prefs);

}  // namespace lumivex
