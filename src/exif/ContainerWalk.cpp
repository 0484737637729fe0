#include "exif/ContainerWalk.h"

#include <array>

#include "exif/ByteDecoder.h"

namespace lumivex {
namespace {

constexpr std::size_t kEntrySize = 12;

bool IsExifSignature(const std::array<std::uint8_t, 4>& b) {
    static constexpr char kWord[] = "exif";
    for (std::size_t i = 0; i < 4; ++i) {
        const auto c = static_cast<char>(b[i] >= 'A' && b[i] <= 'Z' ? b[i] - 'A' + 'a' : b[i]);
        if (c != kWord[i]) return false;
    }
    return true;
}

}  // namespace

std::uint32_t ContainerWalk::BigEndian16(ByteSource& s, std::uint64_t pos) {
    return static_cast<std::uint32_t>(s.At(pos)) << 8 | s.At(pos + 1);
}

std::uint32_t ContainerWalk::Fold(ByteSource& s, std::uint64_t pos, std::uint32_t code, int size) {
    std::array<std::uint8_t, 4> b{};
    s.Copy(pos, b.data(), static_cast<std::size_t>(size));
    return static_cast<std::uint32_t>(ByteDecoder::ByteOrder(code, size, b[0], b[1], b[2], b[3]));
}

bool ContainerWalk::ToTiffHeader(ByteSource& s, std::uint64_t& pos, std::uint64_t& tiffOffset) {
    pos = 2;  // the start-of-image bytes are not looked at
    std::uint32_t marker = BigEndian16(s, pos);
    pos += 2;
    if (marker == 0xFFE0) {
        const std::uint32_t length = BigEndian16(s, pos);
        pos += 2 + (length > 2 ? length - 2 : 0);
        tiffOffset += length + 2;
        marker = BigEndian16(s, pos);
        pos += 2;
    }
    if (marker != 0xFFE1) return false;
    // The segment's length does not decide what is read, but cameras put the directories and
    // the thumbnail inside it, so it says how much of the file the source will be asked for.
    s.Expect(pos + BigEndian16(s, pos));
    pos += 2;
    std::array<std::uint8_t, 4> signature{};
    s.Copy(pos, signature.data(), signature.size());
    pos += 6;
    return IsExifSignature(signature);
}

// Entries that lie wholly past the end of the file are all zero; they collapse into one such
// entry, which decodes exactly like the many would, so a huge count on a short file costs
// nothing.
std::uint64_t ContainerWalk::ReadDirectory(ByteSource& s, std::uint64_t pos, std::uint32_t code,
                                           std::uint32_t& max, std::vector<DirEntry>& dir) {
    max = Fold(s, pos, code, 2);
    dir.clear();
    const std::uint64_t first = pos + 2;
    for (std::uint32_t i = 0; i < max; ++i) {
        const std::uint64_t at = first + std::uint64_t{i} * kEntrySize;
        if (at >= s.Size()) {
            dir.push_back(DirEntry{});
            break;
        }
        std::array<std::uint8_t, kEntrySize> b{};
        s.Copy(at, b.data(), b.size());
        DirEntry e;
        e.tag = static_cast<std::uint32_t>(ByteDecoder::ByteOrder(code, 2, b[0], b[1]));
        e.type = static_cast<std::uint32_t>(ByteDecoder::ByteOrder(code, 2, b[2], b[3]));
        e.count =
            static_cast<std::uint32_t>(ByteDecoder::ByteOrder(code, 4, b[4], b[5], b[6], b[7]));
        e.offset =
            static_cast<std::uint32_t>(ByteDecoder::ByteOrder(code, 4, b[8], b[9], b[10], b[11]));
        dir.push_back(e);
    }
    return first + std::uint64_t{max} * kEntrySize;
}

}  // namespace lumivex
