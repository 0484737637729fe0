#include "core/Settings.h"

#include <algorithm>

#include "core/Globals.h"

namespace lumivex {
namespace {

constexpr std::array<Color, 31> kColors = {{
    {0, 0, 0},       {0, 0, 0},       {255, 255, 255}, {255, 0, 0},     {0, 255, 0},
    {0, 0, 255},     {0, 255, 255},   {255, 0, 255},   {255, 255, 0},   {0, 0, 0},
    {127, 127, 127}, {154, 154, 154}, {191, 191, 191}, {221, 221, 221}, {0, 0, 0},
    {0, 0, 0},       {255, 200, 200}, {200, 255, 200}, {255, 255, 245}, {235, 235, 55},
    {255, 255, 204}, {221, 221, 221}, {255, 255, 255}, {153, 255, 153}, {255, 153, 204},
    {153, 204, 255}, {255, 204, 102}, {102, 204, 204}, {255, 255, 192}, {215, 221, 229},
    {0, 0, 0},
}};

constexpr std::array<Color, 9> kTextColors = {{
    {0, 0, 0},
    {255, 100, 2},
    {221, 8, 6},
    {242, 8, 132},
    {2, 171, 234},
    {0, 0, 212},
    {0, 100, 17},
    {86, 44, 5},
    {255, 255, 255},
}};

// Extension groups: a four-letter type, ":", then extensions separated by ";".
constexpr std::array<const char*, 6> kExtensionGroups = {
    "PICT:pict;pic;pct", "JPEG:jpe;jpeg;jpg", "GIFf:gif",
    "PNGf:png",          "8BPS:psd",          "TIFF:jfx;tif;tiff",
};

}  // namespace

void Settings::InitColor() {
    // Slot 0 is never used; it keeps whatever it had.
    for (std::size_t i = 1; i < gClr.size(); ++i)
        gClr[i] = kColors[i];
}

void Settings::InitColorTxt() {
    for (std::size_t i = 0; i < gClrTxt.size(); ++i)
        gClrTxt[i] = kTextColors[std::min(i, kTextColors.size() - 1)];
}

void Settings::InitPref(std::int64_t highlight) {
    gPref.fill(0);
    gPrefS.fill(std::string());
    gPref[0] = kPrefLast;
    gPrefS[0] = std::to_string(kPrefSLast);
    InitPrefColors(highlight);
    InitPrefFlags();
    InitPrefStrings();
}

void Settings::InitAll(std::int64_t highlight) {
    InitColor();
    InitColorTxt();
    InitPref(highlight);
}

void Settings::InitPrefColors(std::int64_t highlight) {
    gPref[4] = gClrCtoI(gClr[28]);  // thumbnail pane background
    gPref[5] = highlight;           // selection frame
    gPref[6] = gClrCtoI(gClr[5]);   // names of folders holding thumbnails
    gPref[7] = gClrCtoI(gClr[1]);
    gPref[8] = gClrCtoI(gClr[29]);  // list area background
}

void Settings::InitPrefFlags() {
    gPref[10] = 1;  // beep with warnings
    gPref[11] = 1;  // colour the folders holding thumbnails
    gPref[12] = 1;  // follow the Exif orientation
    for (std::size_t i = 13; i <= 19; ++i)
        gPref[i] = 1;
    gPref[20] = static_cast<std::int64_t>(kExtensionGroups.size());
    for (std::size_t i = 21; i <= 29; ++i)
        gPref[i] = 1;  // group switches
    gPref[45] = 200;   // divider position
    gPref[50] = 1;     // Google Earth allowed
    gPref[51] = 2000;  // view range, metres
    gPref[54] = 2;     // view speed in tenths
}

void Settings::InitPrefStrings() {
    for (std::size_t i = 0; i < kExtensionGroups.size(); ++i)
        gPrefS[i + 1] = kExtensionGroups[i];
}

}  // namespace lumivex
