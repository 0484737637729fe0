#include "model/FolderTreeOptions.h"

#include "core/Globals.h"
#include "core/Settings.h"
#include "platform/XdgDirs.h"

namespace lumivex {

FolderTreeOptions FolderTreeOptions::FromSettings(const Settings& prefs) {
    FolderTreeOptions o;
    o.volumeMode = static_cast<int>(prefs.gPref[36]);
    o.markExif = prefs.gPref[11] != 0;
    o.noThumb = gConvIB(prefs.gPref[32], true);
    o.filter = ExtensionFilter(prefs);
    o.desktop = XdgDirs::DesktopDir();
    return o;
}

}  // namespace lumivex
