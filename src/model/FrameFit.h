#pragma once
// Where a restored window frame goes. A frame saved on a monitor that is no longer there, or
// edited by hand, would open the window out of sight; it is brought onto the screen it
// overlaps most, else onto the first (primary) one, and made no larger than that screen.
// Qt-free: the window hands in the available areas of its screens.
#include <vector>

namespace lumivex {

struct FrameRect {
    int x = 0;
    int y = 0;
    int w = 0;
    int h = 0;
    bool operator==(const FrameRect&) const = default;
};

// `screens` empty: the frame as it is.
FrameRect FitFrameOnScreens(const FrameRect& frame, const std::vector<FrameRect>& screens);

}  // namespace lumivex
