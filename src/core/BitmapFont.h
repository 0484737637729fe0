#pragma once
// A small proportional bitmap font built into the program, in the look of a plain sans-serif
// at about 12 px, so that the core can put a line of text on a Picture without a font
// library. It covers printable ASCII.
#include <string_view>

#include "core/Color.h"
#include "core/Picture.h"

namespace lumivex {

class BitmapFont {
  public:
    static constexpr int kCapHeight = 9;  // rows of a capital letter, the baseline row included
    static constexpr int kDescent = 3;    // rows below the baseline row for g, j, p, q, y, ...

    // Draws `text` with its first glyph's left edge at x. `baseline` is the bottom row of the
    // letters without descenders: capitals take the rows baseline-8 .. baseline. Whatever falls
    // outside the picture is clipped.
    static void DrawText(Picture& pic, int x, int baseline, std::string_view text, Color color);
};

}  // namespace lumivex
