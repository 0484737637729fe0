#pragma once
// Folding of a directory entry's bytes by the file's byte-order code, and the decoders of a
// value field that the walk already folded into one integer. Pure functions: no state, no I/O.
#include <cstdint>
#include <string>

namespace lumivex {

class ByteDecoder {
  public:
    static constexpr std::uint32_t kLittleEndian = 0x4949;  // "II"
    static constexpr std::uint32_t kBigEndian = 0x4D4D;     // "MM"

    // One to four bytes in file order; any size but 2 or 4, or an unknown code, folds to 0.
    static std::uint64_t ByteOrder(std::uint32_t code, int size, std::uint8_t b1, std::uint8_t b2,
                                   std::uint8_t b3 = 0, std::uint8_t b4 = 0);
    // ByteOrder of four bytes without the most significant one.
    static std::uint64_t ByteOrderS(std::uint32_t code, std::uint8_t b1, std::uint8_t b2,
                                    std::uint8_t b3, std::uint8_t b4);

    static std::int64_t ByteToShort(std::uint32_t value, std::uint32_t code);
    // Both 16-bit values of the field; an unknown code leaves them as given.
    static void ByteToShortR(std::uint32_t value, std::uint32_t code, std::int64_t& first,
                             std::int64_t& second);
    static std::int64_t ByteToChar(std::uint32_t value, std::uint32_t code);
    static std::int64_t ByteTo3Bit(std::uint32_t value, std::uint32_t code);
    // The field's four bytes in file order as four decimal digits (1, 2, 3, 0 give 1230).
    static std::int64_t ByteToLong(std::uint32_t value, std::uint32_t code);
    // The field's four bytes as four characters in file order, zero bytes kept.
    static std::string ByteToASCIIe2(std::uint32_t value, std::uint32_t code);
    // The field's bytes in the order the file holds them (all zero for an unknown code).
    static void InFileOrder(std::uint32_t value, std::uint32_t code, std::uint8_t out[4]);
};

}  // namespace lumivex
