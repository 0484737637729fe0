#include "scan/ScanOptions.h"

#include "core/Globals.h"
#include "core/Settings.h"

namespace lumivex {

ScanOptions ScanOptions::FromSettings(const Settings& prefs) {
    ScanOptions o;
    o.orientation = gConvIB(prefs.gPref[pref::kFollowOrientation], true);
    o.noThumb = gConvIB(prefs.gPref[pref::kListNoThumb], true);
    o.filter = ExtensionFilter(prefs);
    return o;
}

}  // namespace lumivex
