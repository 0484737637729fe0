#pragma once
#include <cstdint>

namespace lumivex {

// One 12-byte directory entry, each field folded in the file's byte order. `offset` is the
// value field as one 32-bit number: the value itself, or its distance from the TIFF header.
struct DirEntry {
    std::uint32_t tag = 0;
    std::uint32_t type = 0;
    std::uint32_t count = 0;
    std::uint32_t offset = 0;
};

}  // namespace lumivex
