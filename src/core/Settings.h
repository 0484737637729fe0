#pragma once
// All persistent state of the program: two flat tables addressed by index (integers and byte
// strings) and two tables of constant colours. Every reader indexes them directly, so the
// index meanings are fixed for good; see InitPref for the defaults.
#include <array>
#include <cstdint>
#include <string>

#include "core/Color.h"

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

  private:
    void InitPrefColors(std::int64_t highlight);
    void InitPrefFlags();
    void InitPrefStrings();
};

}  // namespace lumivex
