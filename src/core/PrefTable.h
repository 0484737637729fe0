#pragma once
// The one list of every setting: its slot in gPref or gPrefS, its name, its default, what it
// means and, for integers, the values a settings file may hold. The start-up defaults, the
// upgrade of older files and the bounds checked at load all read this list.
#include <cstddef>
#include <cstdint>
#include <span>

namespace lumivex {

// Slots of Settings::gPref.
namespace pref {
inline constexpr std::size_t kLastIndex = 0;
inline constexpr std::size_t kKeepExpert = 2;
inline constexpr std::size_t kThumbBackColor = 4;
inline constexpr std::size_t kSelectionColor = 5;
inline constexpr std::size_t kFolderNameColor = 6;
inline constexpr std::size_t kListBackColor = 8;
inline constexpr std::size_t kBeepOnCaution = 10;
inline constexpr std::size_t kColorFolderNames = 11;
inline constexpr std::size_t kFollowOrientation = 12;
inline constexpr std::size_t kGroupCount = 20;
inline constexpr std::size_t kDetectCamera = 30;
inline constexpr std::size_t kEjectAtQuit = 31;
inline constexpr std::size_t kListNoThumb = 32;
inline constexpr std::size_t kShowExtension = 33;
inline constexpr std::size_t kPrefsPage = 35;
inline constexpr std::size_t kVolumeMode = 36;
inline constexpr std::size_t kVolumeListTask = 37;
inline constexpr std::size_t kFrameLeft = 41;
inline constexpr std::size_t kFrameTop = 42;
inline constexpr std::size_t kFrameWidth = 43;
inline constexpr std::size_t kFrameHeight = 44;
inline constexpr std::size_t kDividerLeft = 45;
inline constexpr std::size_t kGoogleEarthAllowed = 50;
inline constexpr std::size_t kGoogleEarthRange = 51;
inline constexpr std::size_t kGoogleEarthTilt = 52;
inline constexpr std::size_t kGoogleEarthHeading = 53;
inline constexpr std::size_t kGoogleEarthSpeed = 54;
// The switch of extension group n (1 to 9) sits in gPref, its text in gPrefS.
inline constexpr std::size_t kMaxGroups = 9;
constexpr std::size_t GroupSwitch(std::size_t n) {
    return kGroupCount + n;
}

// Slots of Settings::gPrefS.
inline constexpr std::size_t kSLastIndex = 0;
constexpr std::size_t SGroup(std::size_t n) {
    return n;
}
inline constexpr std::size_t kSGoogleEarthOld = 40;
inline constexpr std::size_t kSGoogleEarthApp = 41;
}  // namespace pref

class PrefTable {
  public:
    // Where an integer's default comes from.
    enum class Source : std::uint8_t {
        Value,      // `value` itself
        Colour,     // the colour table entry gClr(value)
        Highlight,  // the desktop's selection colour
    };

    // One row covers the slots first..last, which share everything.
    struct Int {
        std::size_t first, last;
        const char* name;
        Source source;
        std::int64_t value;
        std::int64_t min, max;  // a loaded value outside gets the default
        int since;              // first file layout that stores it: 1 "pref" to 4 "pref4"
        const char* meaning;
    };

    struct Str {
        std::size_t index;
        const char* name;
        const char* value;
        const char* meaning;
    };

    // Every slot of gPref appears in exactly one row, in order.
    static std::span<const Int> Ints();
    // Only the slots with a default or a reader; every other string starts empty.
    static std::span<const Str> Strings();
    // The row of gPref slot `index`; the last row for an index beyond the table.
    static const Int& IntRow(std::size_t index);
};

}  // namespace lumivex
