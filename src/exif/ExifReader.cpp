#include "exif/ExifReader.h"

#include <array>

namespace lumivex {
namespace {

constexpr std::uint32_t kExifPointer = 0x8769;
constexpr std::uint32_t kGpsPointer = 0x8825;
constexpr std::size_t kEntrySize = 12;

std::uint32_t BigEndian16(ByteSource& s, std::uint64_t pos) {
    return static_cast<std::uint32_t>(s.At(pos)) << 8 | s.At(pos + 1);
}

std::uint32_t Fold(ByteSource& s, std::uint64_t pos, std::uint32_t code, int size) {
    std::array<std::uint8_t, 4> b{};
    s.Copy(pos, b.data(), static_cast<std::size_t>(size));
    return static_cast<std::uint32_t>(ExifReader::ByteOrder(code, size, b[0], b[1], b[2], b[3]));
}

bool IsExifSignature(const std::array<std::uint8_t, 4>& b) {
    static constexpr char kWord[] = "exif";
    for (std::size_t i = 0; i < 4; ++i) {
        const auto c = static_cast<char>(b[i] >= 'A' && b[i] <= 'Z' ? b[i] - 'A' + 'a' : b[i]);
        if (c != kWord[i]) return false;
    }
    return true;
}

}  // namespace

std::uint64_t ExifReader::ByteOrder(std::uint32_t code, int size, std::uint8_t b1, std::uint8_t b2,
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

std::uint64_t ExifReader::ByteOrderS(std::uint32_t code, std::uint8_t b1, std::uint8_t b2,
                                     std::uint8_t b3, std::uint8_t b4) {
    return ByteOrder(code, 4, b1, b2, b3, b4) & 0xFFFFFF;
}

void ExifReader::InitVal() {
    offset = 12;
    IFD0.Clear();
    IFD1.Clear();
    IFDe.Clear();
    IFDg.Clear();
}

void ExifReader::GetExif() {
    InitVal();
    ret = LoadFile();
    src_.Close();
}

bool ExifReader::OpenSource() {
    if (!fbytes.empty()) {
        src_.OpenMemory(fbytes);
        return true;
    }
    return src_.OpenFile(fitem);
}

// Follows the markers from the start of the file to the TIFF header: APP1 first, or one APP0
// and then APP1, carrying "Exif" in any letter case. `pos` ends on the byte-order mark.
bool ExifReader::WalkToTiffHeader(std::uint64_t& pos) {
    pos = 2;  // the start-of-image bytes are not looked at
    std::uint32_t marker = BigEndian16(src_, pos);
    pos += 2;
    if (marker == 0xFFE0) {
        const std::uint32_t length = BigEndian16(src_, pos);
        pos += 2 + (length > 2 ? length - 2 : 0);
        offset += length + 2;
        marker = BigEndian16(src_, pos);
        pos += 2;
    }
    if (marker != 0xFFE1) return false;
    pos += 2;  // the APP1 length is never needed
    std::array<std::uint8_t, 4> signature{};
    src_.Copy(pos, signature.data(), signature.size());
    pos += 6;
    return IsExifSignature(signature);
}

// Loads one directory's entries. Entries that lie wholly past the end of the file are all
// zero; they collapse into one such entry, which decodes exactly like the many would, so a
// huge count on a short file costs nothing. Returns the position after the stated entries.
std::uint64_t ExifReader::ReadDirectory(std::uint64_t pos, std::uint32_t code, std::uint32_t& max,
                                        std::vector<DirEntry>& dir) {
    max = Fold(src_, pos, code, 2);
    dir.clear();
    const std::uint64_t first = pos + 2;
    for (std::uint32_t i = 0; i < max; ++i) {
        const std::uint64_t at = first + std::uint64_t{i} * kEntrySize;
        if (at >= src_.Size()) {
            dir.push_back(DirEntry{});
            break;
        }
        std::array<std::uint8_t, kEntrySize> b{};
        src_.Copy(at, b.data(), b.size());
        DirEntry e;
        e.tag = static_cast<std::uint32_t>(ByteOrder(code, 2, b[0], b[1]));
        e.type = static_cast<std::uint32_t>(ByteOrder(code, 2, b[2], b[3]));
        e.count = static_cast<std::uint32_t>(ByteOrder(code, 4, b[4], b[5], b[6], b[7]));
        e.offset = static_cast<std::uint32_t>(ByteOrder(code, 4, b[8], b[9], b[10], b[11]));
        dir.push_back(e);
    }
    return first + std::uint64_t{max} * kEntrySize;
}

bool ExifReader::LoadFile() {
    IFD0_Offset = IFD1_Offset = IFDe_Offset = IFDg_Offset = 0;
    IFD0_Max = IFD1_Max = IFDe_Max = IFDg_Max = 0;
    IFD0_Dir.clear();
    IFD1_Dir.clear();
    IFDe_Dir.clear();
    IFDg_Dir.clear();
    if (!OpenSource()) return false;

    std::uint64_t pos = 0;
    if (!WalkToTiffHeader(pos)) return false;
    const std::uint32_t code = BigEndian16(src_, pos);
    pos += 4;  // the mark and the TIFF number, which is not checked
    IFD0_Offset = Fold(src_, pos, code, 4) + offset;

    const std::uint64_t tail = ReadDirectory(IFD0_Offset, code, IFD0_Max, IFD0_Dir);
    if (IFD0_Max == 0) return false;
    for (const DirEntry& e : IFD0_Dir) {
        if (e.tag == kExifPointer) IFDe_Offset = e.offset + offset;
        if (e.tag == kGpsPointer) IFDg_Offset = e.offset + offset;
    }
    const std::uint32_t next = Fold(src_, tail, code, 4);
    IFD1_Offset = next == 0 ? 0 : next + offset;

    if (IFD1_Offset > 0) ReadDirectory(IFD1_Offset, code, IFD1_Max, IFD1_Dir);
    if (IFD1_Offset > 0) LoadFileIFD1(src_, code);
    if (!ReadAllTags) return true;

    if (IFDe_Offset > 0) ReadDirectory(IFDe_Offset, code, IFDe_Max, IFDe_Dir);
    if (IFDg_Offset > 0) ReadDirectory(IFDg_Offset, code, IFDg_Max, IFDg_Dir);
    LoadFileIFD0(src_, code);
    if (IFDe_Offset > 0) LoadFileIFDexif(src_, code);
    if (IFDg_Offset > 0) LoadFileIFDGPS(src_, code);
    return true;
}

}  // namespace lumivex
