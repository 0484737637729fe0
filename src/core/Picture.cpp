#include "core/Picture.h"

#include <cstring>
#include <new>
#include <utility>

namespace lumivex {
namespace {

std::size_t BytesOf(int width, int height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3;
}

}  // namespace

Picture::Picture(int width, int height, const std::vector<std::uint8_t>& rgb) {
    if (!SizeAllowed(width, height) || rgb.size() != BytesOf(width, height)) return;
    *this = MakeUninitialized(width, height);
    if (!IsNull()) std::memcpy(pixels_.get(), rgb.data(), rgb.size());
}

Picture::Picture(const Picture& other) {
    if (other.IsNull()) return;
    *this = MakeUninitialized(other.width_, other.height_);
    if (!IsNull()) std::memcpy(pixels_.get(), other.pixels_.get(), ByteCount());
}

Picture& Picture::operator=(const Picture& other) {
    if (this != &other) *this = Picture(other);
    return *this;
}

Picture::Picture(Picture&& other) noexcept
    : width_(std::exchange(other.width_, 0)),
      height_(std::exchange(other.height_, 0)),
      pixels_(std::move(other.pixels_)) {}

Picture& Picture::operator=(Picture&& other) noexcept {
    width_ = std::exchange(other.width_, 0);
    height_ = std::exchange(other.height_, 0);
    pixels_ = std::move(other.pixels_);
    return *this;
}

bool operator==(const Picture& a, const Picture& b) {
    return a.width_ == b.width_ && a.height_ == b.height_ &&
           (a.ByteCount() == 0 ||
            std::memcmp(a.pixels_.get(), b.pixels_.get(), a.ByteCount()) == 0);
}

std::size_t Picture::ByteCount() const {
    return BytesOf(width_, height_);
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
    const std::size_t bytes = BytesOf(width, height);
    // new[] without "()" leaves the bytes as they come, and nothrow turns a refusal into null.
    pic.pixels_.reset(new (std::nothrow) std::uint8_t[bytes]);
    if (!pic.pixels_) return pic;
    if (zero) std::memset(pic.pixels_.get(), 0, bytes);
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
    return y >= 0 && y < height_ ? pixels_.get() + Offset(0, y) : nullptr;
}

const std::uint8_t* Picture::Row(int y) const {
    return y >= 0 && y < height_ ? pixels_.get() + Offset(0, y) : nullptr;
}

Color Picture::Pixel(int x, int y) const {
    if (!Contains(x, y)) return Color{};
    const std::uint8_t* p = pixels_.get() + Offset(x, y);
    return Color{p[0], p[1], p[2]};
}

void Picture::SetPixel(int x, int y, Color c) {
    if (!Contains(x, y)) return;
    std::uint8_t* p = pixels_.get() + Offset(x, y);
    p[0] = c.r;
    p[1] = c.g;
    p[2] = c.b;
}

void Picture::Fill(Color c) {
    const std::size_t n = ByteCount();
    for (std::size_t i = 0; i + 2 < n; i += 3) {
        pixels_[i] = c.r;
        pixels_[i + 1] = c.g;
        pixels_[i + 2] = c.b;
    }
}

}  // namespace lumivex
