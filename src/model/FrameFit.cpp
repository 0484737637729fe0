#include "model/FrameFit.h"

#include <algorithm>
#include <cstdint>

namespace lumivex {
namespace {

// In 64 bits: a hand-edited frame may sit near the integer limits.
std::int64_t Overlap(const FrameRect& a, const FrameRect& b) {
    const std::int64_t left = std::max<std::int64_t>(a.x, b.x);
    const std::int64_t right =
        std::min<std::int64_t>(std::int64_t{a.x} + a.w, std::int64_t{b.x} + b.w);
    const std::int64_t top = std::max<std::int64_t>(a.y, b.y);
    const std::int64_t bottom =
        std::min<std::int64_t>(std::int64_t{a.y} + a.h, std::int64_t{b.y} + b.h);
    if (right <= left || bottom <= top) return 0;
    return (right - left) * (bottom - top);
}

int ClampEdge(int edge, int size, int areaEdge, int areaSize) {
    const std::int64_t last = std::int64_t{areaEdge} + areaSize - size;
    return static_cast<int>(
        std::clamp<std::int64_t>(edge, areaEdge, std::max<std::int64_t>(last, areaEdge)));
}

}  // namespace

FrameRect FitFrameOnScreens(const FrameRect& frame, const std::vector<FrameRect>& screens) {
    if (screens.empty()) return frame;
    const FrameRect* best = &screens.front();
    std::int64_t most = 0;
    for (const FrameRect& s : screens) {
        const std::int64_t o = Overlap(frame, s);
        if (o > most) {
            most = o;
            best = &s;
        }
    }
    FrameRect fit = frame;
    fit.w = std::min(frame.w, best->w);
    fit.h = std::min(frame.h, best->h);
    fit.x = ClampEdge(frame.x, fit.w, best->x, best->w);
    fit.y = ClampEdge(frame.y, fit.h, best->y, best->h);
    return fit;
}

}  // namespace lumivex
