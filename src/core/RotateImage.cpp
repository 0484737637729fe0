#include "core/RotateImage.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace lumivex {
namespace {

// Quarter turns read the source down its columns. Working in square tiles keeps the source rows
// a tile touches (128 rows of up to 384 bytes) in cache on large pictures; a thumbnail is a few
// tiles, where smaller ones only add loop overhead.
constexpr int kTile = 128;

struct TileSpan {
    int x0, x1, y0, y1;  // destination columns [x0, x1) and rows [y0, y1)
};

// Copies `count` pixels to consecutive places, reading the source `step` bytes apart.
void CopyRun(std::uint8_t* out, const std::uint8_t* in, int count, std::ptrdiff_t step) {
    for (int i = 0; i < count; ++i, out += 3, in += step)
        std::memcpy(out, in, 3);
}

// Destination (x, y) of a clockwise turn comes from source (y, H-1-x); of a counter-clockwise
// turn from source (W-1-y, x). Along a destination row the source is walked up or down a column.
void CopyTile(const Picture& src, Picture& dst, const TileSpan& t, bool clockwise) {
    const int w = src.Width();
    const int h = src.Height();
    const auto stride = static_cast<std::ptrdiff_t>(w) * 3;
    for (int y = t.y0; y < t.y1; ++y) {
        std::uint8_t* out = dst.Row(y) + static_cast<std::ptrdiff_t>(t.x0) * 3;
        const std::uint8_t* in = src.Row(clockwise ? h - 1 - t.x0 : t.x0) +
                                 static_cast<std::ptrdiff_t>(clockwise ? y : w - 1 - y) * 3;
        CopyRun(out, in, t.x1 - t.x0, clockwise ? -stride : stride);
    }
}

Picture QuarterTurn(const Picture& src, bool clockwise) {
    Picture dst = Picture::Make(src.Height(), src.Width());
    if (dst.IsNull()) return src;
    for (int y0 = 0; y0 < dst.Height(); y0 += kTile) {
        for (int x0 = 0; x0 < dst.Width(); x0 += kTile) {
            const TileSpan tile{x0, std::min(x0 + kTile, dst.Width()), y0,
                                std::min(y0 + kTile, dst.Height())};
            CopyTile(src, dst, tile, clockwise);
        }
    }
    return dst;
}

// Row y of the result is source row H-1-y with its pixels in reverse order.
Picture HalfTurn(const Picture& src) {
    Picture dst = Picture::Make(src.Width(), src.Height());
    if (dst.IsNull()) return src;
    const int w = src.Width();
    for (int y = 0; y < src.Height(); ++y) {
        const std::uint8_t* last = src.Row(src.Height() - 1 - y) + std::ptrdiff_t(w - 1) * 3;
        CopyRun(dst.Row(y), last, w, -3);
    }
    return dst;
}

}  // namespace

Picture gRotateImage(const Picture& pic, int turn) {
    if (pic.IsNull()) return pic;
    switch (turn) {
        case 1:
            return QuarterTurn(pic, true);
        case 2:
            return HalfTurn(pic);
        case 3:
            return QuarterTurn(pic, false);
        default:
            return pic;
    }
}

}  // namespace lumivex
