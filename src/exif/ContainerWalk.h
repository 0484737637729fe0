#pragma once
// The walk from the start of a JPEG file to its TIFF header, and the loading of one tag
// directory's raw entries. Knows nothing of what a tag means.
#include <cstdint>
#include <vector>

#include "exif/ByteSource.h"
#include "exif/DirEntry.h"

namespace lumivex {

class ContainerWalk {
  public:
    // Follows the markers: APP1 first, or one APP0 and then APP1, carrying "Exif" in any
    // letter case. On success `pos` is on the byte-order mark and `tiffOffset` grew by the
    // APP0 segment, if any.
    static bool ToTiffHeader(ByteSource& s, std::uint64_t& pos, std::uint64_t& tiffOffset);

    // Loads the entries of the directory at `pos` and states its entry count in `max`.
    // Returns the position after the stated entries, where the next directory's pointer is.
    static std::uint64_t ReadDirectory(ByteSource& s, std::uint64_t pos, std::uint32_t code,
                                       std::uint32_t& max, std::vector<DirEntry>& dir);

    // Two or four bytes at `pos`, folded by the byte-order code.
    static std::uint32_t Fold(ByteSource& s, std::uint64_t pos, std::uint32_t code, int size);
    static std::uint32_t BigEndian16(ByteSource& s, std::uint64_t pos);
};

}  // namespace lumivex
