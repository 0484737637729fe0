#pragma once
// Reads the values that lie away from their directory entry, at a distance counted from the
// TIFF header. All position arithmetic of the engine is done here, in Position(): a distance
// that comes from the file never wraps, and a length never reaches past its cap.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "exif/ByteSource.h"
#include "exif/DirEntry.h"

namespace lumivex {

class ValueReader {
  public:
    ValueReader(ByteSource& s, std::uint32_t code, std::uint64_t tiffOffset)
        : s_(s), code_(code), tiff_(tiffOffset) {}

    std::uint32_t Code() const { return code_; }
    // The file position of a distance from the TIFF header.
    std::uint64_t Position(std::uint64_t distance) const { return tiff_ + distance; }

    // A 2- or 4-byte number at the entry's distance plus `dist`, folded in file order.
    double Number(const DirEntry& e, std::uint64_t dist, int size);
    // A signed rational's part: only the low three bytes count and bit 23 is the sign; a
    // negative value comes back as its 32-bit two's-complement pattern (-1 gives 4294967295).
    double Signed(const DirEntry& e, std::uint64_t dist);
    // ASCII text, in the value field when it fits, zero bytes dropped wherever they stand.
    std::string Text(const DirEntry& e);
    // The user comment: an 8-byte character-code header, then the body.
    std::string Comment(const DirEntry& e);
    // The bytes of [start, start + length) from the TIFF header that the file holds; nothing
    // when either is negative or the length is beyond `cap`.
    std::optional<std::vector<std::uint8_t>> Block(double start, double length, std::uint64_t cap);

  private:
    ByteSource& s_;
    std::uint32_t code_;
    std::uint64_t tiff_;
};

}  // namespace lumivex
