#include "core/Picture.h"

#include <new>
#include <utility>

namespace lumivex {
namespace {

std::size_t ByteCount(int width, int height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3;
}

}  // namespace

Picture::Picture(int width, int height, const std::vector<std::uint8_t>& rgb) {
    if (!SizeAllowed(width, height) || rgb.size() != ByteCount(width, height)) return;
    width_ = width;
    height_ = height;
    pixels_.assign(rgb.begin(), rgb.end());
}

bool Picture::SizeAllowed(std::int64_t width, std::int64_t height) {
    return width > 0 && height > 0 && width <= kMaxPixels && height <= kMaxPixels &&
           width * height <= kMaxPixels;
}

Picture Picture::Make(int width, int height) {
    return Allocate(width, height, true);
}

Picture Picture::MakeUninitialized(int width, int height) {
    return Allocate(width, height, false);
}

Picture Picture::Allocate(int width, int height, bool zero) {
    Picture pic;
    if (!SizeAllowed(width, height)) return pic;
    try {
        if (zero) {
            pic.pixels_.assign(ByteCount(width, height), 0);
        } else {
            pic.pixels_.resize(ByteCount(width, height));
        }
    } catch (const std::bad_alloc&) {
        return Picture();
    }
    pic.width_ = width;
    pic.height_ = height;
    return pic;
}

std::size_t Picture::Offset(int x, int y) const {
    return (static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
            static_cast<std::size_t>(x)) *
           3;
}

std::uint8_t* Picture::Row(int y) {
    return y >= 0 && y < height_ ? pixels_.data() + Offset(0, y) : nullptr;
}

const std::uint8_t* Picture::Row(int y) const {
    return y >= 0 && y < height_ ? pixels_.data() + Offset(0, y) : nullptr;
}

Color Picture::Pixel(int x, int y) const {
    if (!Contains(x, y)) return Color{};
    const std::uint8_t* p = pixels_.data() + Offset(x, y);
    return Color{p[0], p[1], p[2]};
}

void Picture::SetPixel(int x, int y, Color c) {
    if (!Contains(x, y)) return;
    std::uint8_t* p = pixels_.data() + Offset(x, y);
    p[0] = c.r;
    p[1] = c.g;
    p[2] = c.b;
}

void Picture::Fill(Color c) {
    for (std::size_t i = 0; i + 2 < pixels_.size(); i += 3) {
        pixels_[i] = c.r;
        pixels_[i + 1] = c.g;
        pixels_[i + 2] = c.b;
    }
}

}  // namespace lumivex
