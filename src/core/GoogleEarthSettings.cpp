#include "core/GoogleEarthSettings.h"

#include "core/Settings.h"

namespace lumivex {

GoogleEarthSettings GoogleEarthSettingsFrom(const Settings& prefs) {
    GoogleEarthSettings s;
    s.use = prefs.gPref[pref::kGoogleEarthAllowed] == 1;
    s.beep = prefs.gPref[pref::kBeepOnCaution] == 1;
    s.range = prefs.gPref[pref::kGoogleEarthRange];
    s.tilt = prefs.gPref[pref::kGoogleEarthTilt];
    s.heading = prefs.gPref[pref::kGoogleEarthHeading];
    s.speedTenths = prefs.gPref[pref::kGoogleEarthSpeed];
    s.oldAppPath = prefs.gPrefS[pref::kSGoogleEarthOld];
    s.appPath = prefs.gPrefS[pref::kSGoogleEarthApp];
    return s;
}

void StoreGoogleEarthSettings(const GoogleEarthSettings& values, Settings& prefs) {
    prefs.gPref[pref::kGoogleEarthAllowed] = values.use ? 1 : 0;
    prefs.gPrefS[pref::kSGoogleEarthApp] = values.appPath;
}

}  // namespace lumivex
