#pragma once
// What building the sidebar's tree needs of the settings, taken when it is built.
#include <filesystem>

#include "core/ExtensionFilter.h"

namespace lumivex {

class Settings;

struct FolderTreeOptions {
    int volumeMode = 0;             // which volumes are listed (see Volumes)
    bool markExif = true;           // look for pictures at all; off marks no folder
    bool noThumb = false;           // a picture with Exif but no thumbnail counts too
    ExtensionFilter filter;         // which names are pictures
    std::filesystem::path desktop;  // empty: no folder rows

    // The settings' values and the user's Desktop folder.
    static FolderTreeOptions FromSettings(const Settings& prefs);
};

}  // namespace lumivex
