#include "core/GoogleEarthSettings.h"

#include "core/Settings.h"

namespace lumivex {

GoogleEarthSettings GoogleEarthSettingsFrom(const Settings& prefs) {
    GoogleEarthSettings s;
    s.use = prefs.gPref[50] == 1;
    s.beep = prefs.gPref[10] == 1;
    s.range = prefs.gPref[51];
    s.tilt = prefs.gPref[52];
    s.heading = prefs.gPref[53];
    s.speedTenths = prefs.gPref[54];
    s.oldAppPath = prefs.gPrefS[40];
    s.appPath = prefs.gPrefS[41];
    return s;
}

void StoreGoogleEarthSettings(const GoogleEarthSettings& values, Settings& prefs) {
    prefs.gPref[50] = values.use ? 1 : 0;
    prefs.gPrefS[41] = values.appPath;
}

}  // namespace lumivex
