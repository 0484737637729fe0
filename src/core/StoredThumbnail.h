#pragma once
// A thumbnail kept in the small form it can be drawn again from: the JPEG stream as the file
// embeds it, uncompressed strip pixels packed losslessly, or only a mark for the placeholder.
// A folder of 50,000 items then holds their bytes, not 57 KB of pixels each; decoding gives
// back the very picture the scan decoded, pixel for pixel.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/Picture.h"

namespace lumivex {

class StoredThumbnail {
  public:
    enum class Form : std::uint8_t { None, Jpeg, Pixels, Placeholder };

    StoredThumbnail() = default;
    // `jpeg` must be the stream `pic` was decoded from; only its size is taken from `pic`.
    static StoredThumbnail FromJpeg(std::vector<std::uint8_t> jpeg, const Picture& pic);
    // Any picture, packed without loss; None when the packing cannot be had.
    static StoredThumbnail FromPixels(const Picture& pic);
    // The "No Thumbnail" picture, which is made anew on each decode.
    static StoredThumbnail Placeholder();

    Form Kind() const { return form_; }
    bool IsNull() const { return form_ == Form::None; }
    // The size of the decoded picture, before any turn.
    int Width() const { return width_; }
    int Height() const { return height_; }
    // What is held, for memory accounting.
    std::size_t ByteCount() const { return bytes_.size(); }

    // The picture as decoded at the scan, turned clockwise by `turns` quarters (taken mod 4).
    // Null for None, or when memory runs out.
    Picture Decode(int turns = 0) const;

  private:
    Picture Unturned() const;
    Picture Unpack() const;

    Form form_ = Form::None;
    int width_ = 0;
    int height_ = 0;
    std::vector<std::uint8_t> bytes_;
};

}  // namespace lumivex
