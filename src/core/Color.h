#pragma once
#include <cstdint>

namespace lumivex {

// An opaque RGB colour; the settings store keeps colours as 0xRRGGBB integers.
struct Color {
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;
    friend bool operator==(const Color&, const Color&) = default;
};

}  // namespace lumivex
