#pragma once
// JPEG to and from a Picture, in memory, through TurboJPEG. Each thread keeps its own codec
// handles, so a scan decoding thousands of thumbnails sets the library up once per thread.
#include <cstdint>
#include <span>
#include <vector>

#include "core/Picture.h"

namespace lumivex {

class JpegCodec {
  public:
    // A null Picture for empty input, a damaged stream the library gives up on, or a frame
    // larger than Picture::kMaxPixels. A stream the library only warns about (one cut short
    // decodes grey where its data ends) still gives its picture. Nothing is printed.
    static Picture Decode(std::span<const std::uint8_t> jpeg);

    // Baseline JPEG; full-resolution chroma (4:4:4) from quality 90 up, 4:2:0 below. The
    // quality is clamped to 1..100. Empty for a null picture or when the library refuses.
    static std::vector<std::uint8_t> Encode(const Picture& pic, int quality);
};

}  // namespace lumivex
