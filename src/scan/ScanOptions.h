#pragma once
// What a folder scan needs to know of the settings, copied when the job starts so that the
// worker never reads settings that the user may change meanwhile.
#include "core/ExtensionFilter.h"

namespace lumivex {

class Settings;

struct ScanOptions {
    bool orientation = true;  // turn thumbnails by their orientation tag
    bool noThumb = false;     // a placeholder for files with Exif but no usable thumbnail
    ExtensionFilter filter;   // which names count as images
    unsigned threads = 0;     // files read and decoded at once; 0: one per core, at least 2

    static ScanOptions FromSettings(const Settings& prefs);
};

}  // namespace lumivex
