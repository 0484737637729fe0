#include "core/Settings.h"

#include <algorithm>

#include "core/Globals.h"
#include "core/PrefTable.h"

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
    for (std::size_t i = 0; i < gPref.size(); ++i)
        gPref[i] = IntDefault(i, highlight);
    gPrefS.fill(std::string());
    for (const PrefTable::Str& row : PrefTable::Strings())
        gPrefS[row.index] = row.value;
}

void Settings::InitAll(std::int64_t highlight) {
    InitColor();
    InitColorTxt();
    InitPref(highlight);
}

std::int64_t Settings::IntDefault(std::size_t index, std::int64_t highlight) const {
    const PrefTable::Int& row = PrefTable::IntRow(index);
    switch (row.source) {
        case PrefTable::Source::Colour:
            return gClrCtoI(gClr[static_cast<std::size_t>(row.value)]);
        case PrefTable::Source::Highlight:
            return highlight;
        case PrefTable::Source::Value:
            break;
    }
    return row.value;
}

void Settings::BoundInts(std::int64_t highlight) {
    for (std::size_t i = 0; i < gPref.size(); ++i) {
        const PrefTable::Int& row = PrefTable::IntRow(i);
        if (gPref[i] < row.min || gPref[i] > row.max) gPref[i] = IntDefault(i, highlight);
    }
}

void Settings::ResetIntsNewerThan(int layout, std::int64_t highlight) {
    for (std::size_t i = 0; i < gPref.size(); ++i) {
        if (PrefTable::IntRow(i).since > layout) gPref[i] = IntDefault(i, highlight);
    }
}

}  // namespace lumivex
