#include "core/PrefTable.h"

#include <array>
#include <limits>
#include <string_view>
#include <utility>

namespace lumivex {
namespace {

using Source = PrefTable::Source;
constexpr std::int64_t kAnyMin = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kAnyMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kRgbMax = 0xFFFFFF;
// Far beyond any screen, yet small enough that adding two frame values never overflows.
constexpr std::int64_t kPixelMax = 100000;

// clang-format off
constexpr std::array<PrefTable::Int, 38> kInts = {{
    {0, 0, "LastIndex", Source::Value, 100, 0, 100, 1, "highest gPref slot the file stores"},
    {1, 1, "Reserved1", Source::Value, 0, kAnyMin, kAnyMax, 1, "reserved, no reader"},
    {2, 2, "KeepExpert", Source::Value, 0, 0, 1, 1, "keep the expert page of the preferences"},
    {3, 3, "Reserved3", Source::Value, 0, kAnyMin, kAnyMax, 1, "reserved, no reader"},
    {4, 4, "ThumbBackColor", Source::Colour, 28, 0, kRgbMax, 1, "thumbnail pane background"},
    {5, 5, "SelectionColor", Source::Highlight, 0, 0, kRgbMax, 2, "selection frame colour"},
    {6, 6, "FolderNameColor", Source::Colour, 5, 0, kRgbMax, 2, "names of folders with thumbnails"},
    {7, 7, "ReservedColor", Source::Colour, 1, 0, kRgbMax, 1, "reserved colour, no reader"},
    {8, 8, "ListBackColor", Source::Colour, 29, 0, kRgbMax, 4, "folder list background"},
    {9, 9, "Reserved9", Source::Value, 0, kAnyMin, kAnyMax, 1, "reserved, no reader"},
    {10, 10, "BeepOnCaution", Source::Value, 1, 0, 1, 1, "beep when a warning appears"},
    {11, 11, "ColorFolderNames", Source::Value, 1, 0, 1, 1, "colour folders holding thumbnails"},
    {12, 12, "FollowOrientation", Source::Value, 1, 0, 1, 1, "turn thumbnails by the Exif orientation"},
    {13, 19, "Reserved13", Source::Value, 1, kAnyMin, kAnyMax, 1, "reserved, no reader"},
    {20, 20, "GroupCount", Source::Value, 6, 0, 9, 1, "number of extension groups"},
    {21, 29, "GroupSwitch", Source::Value, 1, 0, 1, 1, "extension group 1 to 9 on (1) or off"},
    {30, 30, "DetectCamera", Source::Value, 0, 0, 1, 1, "show a camera's thumbnails at once"},
    {31, 31, "EjectAtQuit", Source::Value, 0, 0, 1, 1, "eject the camera at quit"},
    {32, 32, "ListNoThumb", Source::Value, 0, 0, 1, 1, "list files with Exif but no thumbnail"},
    {33, 33, "ShowExtension", Source::Value, 0, 0, 1, 1, "file names shown with their extension"},
    {34, 34, "Reserved34", Source::Value, 0, kAnyMin, kAnyMax, 1, "reserved, no reader"},
    {35, 35, "PrefsPage", Source::Value, 0, 0, 5, 1, "page last shown in the preferences"},
    {36, 36, "VolumeMode", Source::Value, 0, 0, 2, 1, "volumes listed: 0 user, 1 no system, 2 all"},
    {37, 37, "VolumeListTask", Source::Value, 0, 0, 1, 1, "how the volume list is gathered"},
    {38, 40, "Reserved38", Source::Value, 0, kAnyMin, kAnyMax, 1, "reserved, no reader"},
    {41, 41, "FrameLeft", Source::Value, 0, -kPixelMax, kPixelMax, 1, "window left; <= 0: none stored"},
    {42, 42, "FrameTop", Source::Value, 0, -kPixelMax, kPixelMax, 1, "window top; <= 0: none stored"},
    {43, 43, "FrameWidth", Source::Value, 0, 0, kPixelMax, 1, "window width; 0: none stored"},
    {44, 44, "FrameHeight", Source::Value, 0, 0, kPixelMax, 1, "window height; 0: none stored"},
    {45, 45, "DividerLeft", Source::Value, 200, 0, kPixelMax, 4, "width of the folder list"},
    {46, 49, "Unused46", Source::Value, 0, kAnyMin, kAnyMax, 1, "unused"},
    {50, 50, "GoogleEarthAllowed", Source::Value, 1, 0, 1, 3, "Google Earth may be started"},
    {51, 51, "GoogleEarthRange", Source::Value, 2000, 0, 100000000, 3, "view range, metres"},
    {52, 52, "GoogleEarthTilt", Source::Value, 0, -360, 360, 3, "view tilt, degrees"},
    {53, 53, "GoogleEarthHeading", Source::Value, 0, -360, 360, 3, "view heading, degrees"},
    {54, 54, "GoogleEarthSpeed", Source::Value, 2, 0, 60, 3, "view speed in tenths (0.1 to 6)"},
    {55, 99, "Unused55", Source::Value, 0, kAnyMin, kAnyMax, 1, "unused"},
    {100, 100, "Unused100", Source::Value, 0, kAnyMin, kAnyMax, 1, "unused, the last slot stored"},
}};

constexpr std::array<PrefTable::Str, 11> kStrings = {{
    {0, "SLastIndex", "50", "highest gPrefS slot the file stores, in decimal"},
    {1, "SGroup1", "PICT:pict;pic;pct", "extension group 1: type, ':', extensions by ';'"},
    {2, "SGroup2", "JPEG:jpe;jpeg;jpg", "extension group 2"},
    {3, "SGroup3", "GIFf:gif", "extension group 3"},
    {4, "SGroup4", "PNGf:png", "extension group 4"},
    {5, "SGroup5", "8BPS:psd", "extension group 5"},
    {6, "SGroup6", "TIFF:jfx;tif;tiff", "extension group 6"},
    {7, "SReserved7", "", "reserved"},
    {40, "SGoogleEarthOld", "", "Google Earth in an older path form, read to fill slot 41"},
    {41, "SGoogleEarthApp", "", "path of the Google Earth program"},
    {50, "SReserved50", "", "reserved, the last slot stored"},
}};
// clang-format on

constexpr bool RowsCoverEverySlot() {
    std::size_t next = 0;
    for (const PrefTable::Int& row : kInts) {
        if (row.first != next || row.last < row.first) return false;
        if (row.source == Source::Value && (row.value < row.min || row.value > row.max))
            return false;
        next = row.last + 1;
    }
    return next == 101;
}
static_assert(RowsCoverEverySlot(), "gPref rows must run 0 to 100 without gaps");

constexpr const PrefTable::Int& RowOf(std::size_t index) {
    for (const PrefTable::Int& row : kInts) {
        if (index <= row.last) return row;
    }
    return kInts.back();
}

// Each named slot must land on the row of the same name.
constexpr bool NamesMatchRows() {
    using namespace pref;
    constexpr std::pair<std::size_t, std::string_view> kNamed[] = {
        {kLastIndex, "LastIndex"},
        {kKeepExpert, "KeepExpert"},
        {kThumbBackColor, "ThumbBackColor"},
        {kSelectionColor, "SelectionColor"},
        {kFolderNameColor, "FolderNameColor"},
        {kListBackColor, "ListBackColor"},
        {kBeepOnCaution, "BeepOnCaution"},
        {kColorFolderNames, "ColorFolderNames"},
        {kFollowOrientation, "FollowOrientation"},
        {kGroupCount, "GroupCount"},
        {GroupSwitch(1), "GroupSwitch"},
        {GroupSwitch(kMaxGroups), "GroupSwitch"},
        {kDetectCamera, "DetectCamera"},
        {kEjectAtQuit, "EjectAtQuit"},
        {kListNoThumb, "ListNoThumb"},
        {kShowExtension, "ShowExtension"},
        {kPrefsPage, "PrefsPage"},
        {kVolumeMode, "VolumeMode"},
        {kVolumeListTask, "VolumeListTask"},
        {kFrameLeft, "FrameLeft"},
        {kFrameTop, "FrameTop"},
        {kFrameWidth, "FrameWidth"},
        {kFrameHeight, "FrameHeight"},
        {kDividerLeft, "DividerLeft"},
        {kGoogleEarthAllowed, "GoogleEarthAllowed"},
        {kGoogleEarthRange, "GoogleEarthRange"},
        {kGoogleEarthTilt, "GoogleEarthTilt"},
        {kGoogleEarthHeading, "GoogleEarthHeading"},
        {kGoogleEarthSpeed, "GoogleEarthSpeed"},
    };
    for (const auto& [index, name] : kNamed) {
        if (RowOf(index).name != name) return false;
    }
    return kStrings[8].index == kSGoogleEarthOld && kStrings[9].index == kSGoogleEarthApp &&
           kStrings[6].index == SGroup(6);
}
static_assert(NamesMatchRows(), "named slots must match their rows");

}  // namespace

std::span<const PrefTable::Int> PrefTable::Ints() {
    return kInts;
}

std::span<const PrefTable::Str> PrefTable::Strings() {
    return kStrings;
}

const PrefTable::Int& PrefTable::IntRow(std::size_t index) {
    return RowOf(index);
}

}  // namespace lumivex
