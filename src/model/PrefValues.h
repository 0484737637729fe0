#pragma once
// What the preferences dialog edits, held apart from the widgets: the values are copied out of
// the settings when the dialog opens and written back only on save. Numbers stay text while
// the user edits them, as the fields show them; nothing is validated.
#include <bitset>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/Settings.h"

namespace lumivex {

// Which settings a save changed, so that the window re-applies only those.
struct PrefChanges {
    std::bitset<Settings::kPrefLast + 1> ints;
    bool googleEarthApp = false;

    bool Changed(std::size_t slot) const { return ints.test(slot); }
    // The volume choice changed: the folder tree is built again and its rows close.
    bool RebuildTree() const { return Changed(pref::kVolumeMode); }
    bool Any() const { return ints.any() || googleEarthApp; }
};

struct PrefValues {
    // Colours as 0xRRGGBB.
    std::int64_t listBack = 0;
    std::int64_t thumbBack = 0;
    std::int64_t selection = 0;
    std::int64_t folderName = 0;
    bool colorFolderNames = false;

    bool followOrientation = false;
    bool listNoThumb = false;
    bool showExtension = false;

    bool detectCamera = false;
    bool ejectAtQuit = false;

    bool googleEarthAllowed = false;
    std::string googleEarthApp;
    std::string range, tilt, heading, speed;  // as the fields show them

    int volumeMode = 0;  // 0 without system and backups, 1 without system, 2 all
    bool beep = false;

    bool expert = false;  // the expert page is offered
    bool keepExpert = false;

    // The values of `s`. The expert page is offered when Alt is held or it was kept.
    static PrefValues From(const Settings& s, bool altHeld);
    // Writes the values into `s` and tells which slots changed. The keep-expert switch is
    // written only when its page was offered.
    PrefChanges ApplyTo(Settings& s) const;

    // The speed in tenths as the field shows it (2 -> "0.2"), and back, truncated.
    static std::string SpeedText(std::int64_t tenths);
    static std::int64_t SpeedTenths(std::string_view text);
    // A volume setting other than 1 or 2 shows as the first choice.
    static int VolumeChoice(std::int64_t stored);
};

}  // namespace lumivex
