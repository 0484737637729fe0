#pragma once
// All persistent state of the program: two flat tables addressed by index (integers and byte
// strings) and two tables of constant colours. The index meanings are fixed for good; code
// names them through pref:: (core/PrefTable.h), which also holds every default and bound.
#include <array>
#include <cstdint>
#include <string>

#include "core/Color.h"
#include "core/PrefTable.h"

namespace lumivex {

class Settings {
  public:
    static constexpr std::int64_t kPrefLast = 100;
    static constexpr std::int64_t kPrefSLast = 50;
    // A plain selection blue for when no desktop palette is known yet.
    static constexpr std::int64_t kDefaultHighlight = 0x3584E4;

    std::array<std::int64_t, kPrefLast + 1> gPref{};
    std::array<std::string, kPrefSLast + 1> gPrefS{};
    std::array<Color, 31> gClr{};
    std::array<Color, 17> gClrTxt{};

    void InitColor();
    void InitColorTxt();
    // Takes colours from gClr, so InitColor must have run.
    void InitPref(std::int64_t highlight = kDefaultHighlight);
    // InitColor, InitColorTxt and InitPref, in that order.
    void InitAll(std::int64_t highlight = kDefaultHighlight);

    // The start-up value of gPref slot `index`.
    std::int64_t IntDefault(std::size_t index, std::int64_t highlight) const;
    // Gives every integer outside its allowed range its default.
    void BoundInts(std::int64_t highlight);
    // Gives the default to every integer that files of `layout` (1 "pref" to 4 "pref4") lack.
    void ResetIntsNewerThan(int layout, std::int64_t highlight);
};

}  // namespace lumivex
