// The decoders of ExifReader: every number and text taken out of a directory entry passes here.
#include <algorithm>
#include <array>
#include <cstring>

#include "core/Globals.h"
#include "exif/ExifReader.h"
#include "exif/TextConverter.h"

namespace lumivex {
namespace {

// A legitimate value lies inside the Exif segment, which is at most 64 KiB long; a longer
// read can only come from a damaged count, and reading on would only find more of its noise.
constexpr std::uint64_t kMaxTextBytes = 64 * 1024;

// The four bytes of a folded value field: a is bits 24-31 down to d, bits 0-7.
struct FieldBytes {
    std::uint32_t a, b, c, d;
};

FieldBytes Split(std::uint32_t v) {
    return {v >> 24, (v >> 16) & 0xFF, (v >> 8) & 0xFF, v & 0xFF};
}

// The value field's bytes in the order the file holds them.
std::array<std::uint8_t, 4> InFileOrder(std::uint32_t v, std::uint32_t code) {
    const FieldBytes f = Split(v);
    if (code == ExifReader::kLittleEndian)
        return {static_cast<std::uint8_t>(f.d), static_cast<std::uint8_t>(f.c),
                static_cast<std::uint8_t>(f.b), static_cast<std::uint8_t>(f.a)};
    return {static_cast<std::uint8_t>(f.a), static_cast<std::uint8_t>(f.b),
            static_cast<std::uint8_t>(f.c), static_cast<std::uint8_t>(f.d)};
}

std::string WithoutZeros(const std::uint8_t* p, std::size_t n) {
    std::string out;
    out.reserve(n);
    for (std::size_t i = 0; i < n; ++i)
        if (p[i] != 0) out.push_back(static_cast<char>(p[i]));
    return out;
}

std::string Lowered(std::string s) {
    for (char& c : s)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return s;
}

}  // namespace

std::int64_t ExifReader::ByteToShort(std::uint32_t value, std::uint32_t code) {
    const FieldBytes f = Split(value);
    if (code == kLittleEndian) return f.c * 256 + f.d;
    if (code == kBigEndian) return f.a * 256 + f.b;
    return 0;
}

void ExifReader::ByteToShortR(std::uint32_t value, std::uint32_t code, std::int64_t& first,
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

std::int64_t ExifReader::ByteToChar(std::uint32_t value, std::uint32_t code) {
    const FieldBytes f = Split(value);
    if (code == kLittleEndian) return f.d;
    if (code == kBigEndian) return f.a;
    return 0;
}

std::int64_t ExifReader::ByteTo3Bit(std::uint32_t value, std::uint32_t code) {
    const FieldBytes f = Split(value);
    if (code == kLittleEndian) return static_cast<std::int64_t>(gBitR(f.d, 0, 7));
    if (code == kBigEndian) return static_cast<std::int64_t>(gBitR(f.b, 0, 7));
    return 0;
}

std::int64_t ExifReader::ByteToLong(std::uint32_t value, std::uint32_t code) {
    const FieldBytes f = Split(value);
    if (code == kLittleEndian) return f.d * 1000 + f.c * 100 + f.b * 10 + f.a;
    if (code == kBigEndian) return f.a * 1000 + f.b * 100 + f.c * 10 + f.d;
    return 0;
}

std::string ExifReader::ByteToASCIIe2(std::uint32_t value, std::uint32_t code) {
    if (code != kLittleEndian && code != kBigEndian) return {};
    const auto bytes = InFileOrder(value, code);
    return std::string(bytes.begin(), bytes.end());  // zero bytes stay
}

double ExifReader::Redirected(ByteSource& s, const std::vector<DirEntry>& dir, std::size_t i,
                              std::uint64_t dist, std::uint32_t code, int size) const {
    if (i >= dir.size()) return 0;
    std::array<std::uint8_t, 4> b{};
    s.Copy(dir[i].offset + dist + offset, b.data(), static_cast<std::size_t>(size));
    return static_cast<double>(ByteOrder(code, size, b[0], b[1], b[2], b[3]));
}

double ExifReader::ByteToShort0(ByteSource& s, std::size_t i, std::uint64_t dist,
                                std::uint32_t code) const {
    return Redirected(s, IFD0_Dir, i, dist, code, 2);
}
double ExifReader::ByteToShortE(ByteSource& s, std::size_t i, std::uint64_t dist,
                                std::uint32_t code) const {
    return Redirected(s, IFDe_Dir, i, dist, code, 2);
}
double ExifReader::ByteToLong0(ByteSource& s, std::size_t i, std::uint64_t dist,
                               std::uint32_t code) const {
    return Redirected(s, IFD0_Dir, i, dist, code, 4);
}
double ExifReader::ByteToLong1(ByteSource& s, std::size_t i, std::uint64_t dist,
                               std::uint32_t code) const {
    return Redirected(s, IFD1_Dir, i, dist, code, 4);
}
double ExifReader::ByteToLongE(ByteSource& s, std::size_t i, std::uint64_t dist,
                               std::uint32_t code) const {
    return Redirected(s, IFDe_Dir, i, dist, code, 4);
}
double ExifReader::ByteToLongG(ByteSource& s, std::size_t i, std::uint64_t dist,
                               std::uint32_t code) const {
    return Redirected(s, IFDg_Dir, i, dist, code, 4);
}

// A signed rational's part: only the low three bytes count and bit 23 is the sign; a negative
// value comes back as its 32-bit two's-complement pattern (-1 gives 4294967295).
double ExifReader::ByteToLongES(ByteSource& s, std::size_t i, std::uint64_t dist,
                                std::uint32_t code) const {
    if (i >= IFDe_Dir.size()) return 0;
    std::array<std::uint8_t, 4> b{};
    s.Copy(IFDe_Dir[i].offset + dist + offset, b.data(), b.size());
    const std::uint64_t v = ByteOrderS(code, b[0], b[1], b[2], b[3]);
    return static_cast<double>((v & 0x800000) ? (v | 0xFF000000) : v);
}

std::string ExifReader::RedirectedText(ByteSource& s, const std::vector<DirEntry>& dir,
                                       std::size_t i, std::uint32_t code) const {
    if (i >= dir.size()) return {};
    const DirEntry& e = dir[i];
    if (e.count <= 4) {
        const auto bytes = InFileOrder(e.offset, code);
        return WithoutZeros(bytes.data(), e.count);
    }
    const auto block = s.Block(e.offset + offset, e.count, kMaxTextBytes);
    return WithoutZeros(block.data(), block.size());
}

std::string ExifReader::ByteToASCII0(ByteSource& s, std::size_t i, std::uint32_t code) const {
    return RedirectedText(s, IFD0_Dir, i, code);
}
std::string ExifReader::ByteToASCII1(ByteSource& s, std::size_t i, std::uint32_t code) const {
    return RedirectedText(s, IFD1_Dir, i, code);
}
std::string ExifReader::ByteToASCIIe(ByteSource& s, std::size_t i, std::uint32_t code) const {
    return RedirectedText(s, IFDe_Dir, i, code);
}
std::string ExifReader::ByteToASCIIg(ByteSource& s, std::size_t i, std::uint32_t code) const {
    return RedirectedText(s, IFDg_Dir, i, code);
}

// The user comment: an 8-byte character-code header, then the body. JIS bodies are converted
// to UTF-8; ASCII, undefined and "UNICODE" (taken as UTF-8) bodies stay; unknown codes give "".
std::string ExifReader::ByteToComment(ByteSource& s, std::size_t i) const {
    if (i >= IFDe_Dir.size()) return {};
    const DirEntry& e = IFDe_Dir[i];
    const std::uint64_t pos = e.offset + offset;
    std::array<std::uint8_t, 8> head{};
    s.Copy(pos, head.data(), head.size());
    std::string code = WithoutZeros(head.data(), head.size());
    if (code.empty()) code = "undef";
    std::string body;
    if (e.count > 8) {
        const auto block = s.Block(pos + 8, e.count - 8u, kMaxTextBytes);
        body = WithoutZeros(block.data(), block.size());
    }
    code = Lowered(std::move(code));
    if (code == "jis") {
        body = TextConverter::EncText(body, "JIS", "UTF-8");
    } else if (code == "unicode") {
        body = TextConverter::EncText(body, "UTF-8", "UTF-8");
    } else if (code != "ascii" && code != "undef") {
        body.clear();
    }
    std::string out;
    out.reserve(body.size());
    for (std::size_t k = 0; k < body.size(); ++k) {
        out.push_back(body[k]);
        if (body[k] == '\r' && k + 1 < body.size() && body[k + 1] == '\n') ++k;
    }
    return out;
}

}  // namespace lumivex
