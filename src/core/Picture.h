#pragma once
// An 8-bit RGB raster held in memory: what the thumbnail decoders produce, what rotation turns
// and what the exporters encode. The GUI converts it to its own image type only at its edge.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "core/Color.h"

namespace lumivex {

class Picture {
  public:
    // The largest picture this program will hold: 16 Mi pixels, 48 MiB of RGB. Thumbnails are far
    // smaller; the cap keeps a damaged header from asking for gigabytes.
    static constexpr std::int64_t kMaxPixels = 16'777'216;

    Picture() = default;
    Picture(const Picture& other);
    Picture& operator=(const Picture& other);
    Picture(Picture&& other) noexcept;
    Picture& operator=(Picture&& other) noexcept;
    ~Picture() = default;
    // Copies `rgb` as width x height pixels, three bytes each, top row first. A size that is out
    // of range or does not match the buffer gives a null picture.
    Picture(int width, int height, const std::vector<std::uint8_t>& rgb);

    // A black picture of that size; null when a side is not positive, the area is above
    // kMaxPixels or the memory cannot be had.
    static Picture Make(int width, int height);
    // Like Make, but the pixels are left as the allocator hands them out: only for a writer
    // that sets every byte before the picture is used, such as a decoder that succeeded.
    static Picture MakeUninitialized(int width, int height);
    static bool SizeAllowed(std::int64_t width, std::int64_t height);

    int Width() const { return width_; }
    int Height() const { return height_; }
    bool IsNull() const { return width_ == 0 || height_ == 0; }
    // Width x height x 3 bytes, top row first.
    std::span<const std::uint8_t> Pixels() const { return {pixels_.get(), ByteCount()}; }

    // The first byte of row y; the rows lie one after another. nullptr for a row outside.
    std::uint8_t* Row(int y);
    const std::uint8_t* Row(int y) const;

    // Reads outside the picture give black; writes outside are dropped.
    Color Pixel(int x, int y) const;
    void SetPixel(int x, int y, Color c);
    void Fill(Color c);

    friend bool operator==(const Picture& a, const Picture& b);

  private:
    bool Contains(int x, int y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }
    std::size_t Offset(int x, int y) const;
    std::size_t ByteCount() const;
    static Picture Allocate(int width, int height, bool zero);

    int width_ = 0;
    int height_ = 0;
    // A plain array rather than a vector: a decoder's buffer need not be zeroed first, and
    // copies and fills stay single memcpy and memset calls in every build.
    std::unique_ptr<std::uint8_t[]> pixels_;
};

}  // namespace lumivex
