#include "exif/ByteDecoder.h"

#include "core/Globals.h"

namespace lumivex {
namespace {

// The four bytes of a folded value field: a is bits 24-31 down to d, bits 0-7.
struct FieldBytes {
    std::uint32_t a, b, c, d;
};

FieldBytes Split(std::uint32_t v) {
    return {v >> 24, (v >> 16) & 0xFF, (v >> 8) & 0xFF, v & 0xFF};
}

}  // namespace

std::uint64_t ByteDecoder::ByteOrder(std::uint32_t code, int size, std::uint8_t b1, std::uint8_t b2,
                                     std::uint8_t b3, std::uint8_t b4) {
    const std::uint64_t x1 = b1, x2 = b2, x3 = b3, x4 = b4;
    if (code == kLittleEndian) {
        if (size == 2) return x2 << 8 | x1;
        if (size == 4) return x4 << 24 | x3 << 16 | x2 << 8 | x1;
    } else if (code == kBigEndian) {
        if (size == 2) return x1 << 8 | x2;
        if (size == 4) return x1 << 24 | x2 << 16 | x3 << 8 | x4;
    }
    return 0;
}

std::uint64_t ByteDecoder::ByteOrderS(std::uint32_t code, std::uint8_t b1, std::uint8_t b2,
                                      std::uint8_t b3, std::uint8_t b4) {
    return ByteOrder(code, 4, b1, b2, b3, b4) & 0xFFFFFF;
}

std::int64_t ByteDecoder::ByteToShort(std::uint32_t value, std::uint32_t code) {
    const FieldBytes f = Split(value);
    if (code == kLittleEndian) return f.c * 256 + f.d;
    if (code == kBigEndian) return f.a * 256 + f.b;
    return 0;
}

void ByteDecoder::ByteToShortR(std::uint32_t value, std::uint32_t code, std::int64_t& first,
                               std::int64_t& second) {
    const FieldBytes f = Split(value);
    if (code == kLittleEndian) {
        first = f.c * 256 + f.d;
        second = f.a * 256 + f.b;
    } else if (code == kBigEndian) {
        first = f.a * 256 + f.b;
        second = f.c * 256 + f.d;
    }
}

std::int64_t ByteDecoder::ByteToChar(std::uint32_t value, std::uint32_t code) {
    const FieldBytes f = Split(value);
    if (code == kLittleEndian) return f.d;
    if (code == kBigEndian) return f.a;
    return 0;
}

std::int64_t ByteDecoder::ByteTo3Bit(std::uint32_t value, std::uint32_t code) {
    const FieldBytes f = Split(value);
    if (code == kLittleEndian) return static_cast<std::int64_t>(gBitR(f.d, 0, 7));
    if (code == kBigEndian) return static_cast<std::int64_t>(gBitR(f.b, 0, 7));
    return 0;
}

std::int64_t ByteDecoder::ByteToLong(std::uint32_t value, std::uint32_t code) {
    const FieldBytes f = Split(value);
    if (code == kLittleEndian) return f.d * 1000 + f.c * 100 + f.b * 10 + f.a;
    if (code == kBigEndian) return f.a * 1000 + f.b * 100 + f.c * 10 + f.d;
    return 0;
}

void ByteDecoder::InFileOrder(std::uint32_t value, std::uint32_t code, std::uint8_t out[4]) {
    const FieldBytes f = Split(value);
    const bool little = code == kLittleEndian, known = little || code == kBigEndian;
    const std::uint32_t order[4] = {f.a, f.b, f.c, f.d};
    for (int k = 0; k < 4; ++k)
        out[k] = known ? static_cast<std::uint8_t>(order[little ? 3 - k : k]) : 0;
}

std::string ByteDecoder::ByteToASCIIe2(std::uint32_t value, std::uint32_t code) {
    if (code != kLittleEndian && code != kBigEndian) return {};
    std::uint8_t bytes[4];
    InFileOrder(value, code, bytes);
    return std::string(bytes, bytes + 4);  // zero bytes stay
}

}  // namespace lumivex
