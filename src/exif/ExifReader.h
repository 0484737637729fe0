#pragma once
// The reader of one image file: walks the JPEG markers to the Exif block, loads its four
// directories (IFD0, IFD1, Exif, GPS) and decodes the known tags into dictionaries. The object
// is short-lived or reused file after file by one thread; it never decodes image data.
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/Picture.h"
#include "exif/ByteSource.h"
#include "exif/DirEntry.h"
#include "exif/ExifDict.h"

namespace lumivex {

// A thumbnail as the file embeds it, with the name and type an export suggests for it.
struct ThumbnailBlock {
    std::vector<std::uint8_t> bytes;
    std::string suggestedName;
    std::string type;  // "image/jpeg" or "image/tiff"
};

class ExifReader {
  public:
    // The largest thumbnail block read: far above any camera's (they live in a 64 KiB
    // segment), and a bound for a damaged length of up to 4 GiB.
    static constexpr std::uint64_t kMaxThumbnailBytes = 16 * 1024 * 1024;

    // Asks where an export goes: a path, or nothing when the user cancels.
    using SaveTarget = std::function<std::optional<std::filesystem::path>(const ThumbnailBlock&)>;

    static constexpr std::uint32_t kLittleEndian = 0x4949;  // "II"
    static constexpr std::uint32_t kBigEndian = 0x4D4D;     // "MM"

    // Input: the file to read. When `fbytes` is not empty it is read instead (the bytes must
    // outlive the call); the fuzzer and the tests use that.
    std::filesystem::path fitem;
    std::span<const std::uint8_t> fbytes;

    std::vector<DirEntry> IFD0_Dir, IFD1_Dir, IFDe_Dir, IFDg_Dir;
    // File positions of the directories; 0 when the file has none.
    std::uint64_t IFD0_Offset = 0, IFD1_Offset = 0, IFDe_Offset = 0, IFDg_Offset = 0;
    // Entry counts as the file states them (the tables hold at most what the file holds).
    std::uint32_t IFD0_Max = 0, IFD1_Max = 0, IFDe_Max = 0, IFDg_Max = 0;
    std::uint64_t offset = 12;  // file position of the TIFF header
    bool ret = false;
    ExifDict IFD0, IFD1, IFDe, IFDg;

    // Set by the caller: turn thumbnails by their own orientation tag; give a file with Exif
    // but no usable thumbnail the placeholder picture.
    bool Orientation = false;
    bool NoThumb = false;
    // Off: LoadFile decodes only the thumbnail's directory, which is all a scan needs.
    bool ReadAllTags = true;
    Picture Thumbnail;
    int Rotate = 0;  // quarter turns applied to Thumbnail
    // Why the last GetThumbNail gave no picture, for commands that explain their skips.
    enum class Outcome { Thumbnail, Unreadable, NoExif, NoThumbnail };
    Outcome outcome = Outcome::Unreadable;

    void InitVal();
    bool LoadFile();
    void GetExif();

    void GetThumbNail();
    bool GetThumbNailJPEG();
    bool GetThumbNailTIFF();
    bool GetThumbNailTIFFalt(std::span<const std::uint8_t> strips);
    void GetThumbNailNoThumb();
    void GetThumbNailOrientation();

    // Writes the embedded thumbnail, bytes unchanged, where `ask` says; a cancel is a success.
    void SaveThumbNail(const SaveTarget& ask);
    bool SaveThumbNailJPEG(const SaveTarget& ask);
    bool SaveThumbNailTIFF(const SaveTarget& ask);
    // The embedded block after a successful LoadFile: the JPEG stream for "Compression" 6,
    // else the strip data. Nothing when IFD1 lacks the keys that locate it.
    std::optional<ThumbnailBlock> EmbeddedThumbnail();

    // Six report texts, lines ended by gCR.
    void GetInfo(std::string& s1, std::string& s2, std::string& s3, std::string& s4,
                 std::string& s5, std::string& s6) const;
    std::string GetInfo1() const;
    std::string GetInfo2() const;
    std::string GetInfo3() const;
    std::string GetInfo4() const;
    std::string GetInfo5() const;
    std::string GetInfo6() const;

    // Folding of one to four bytes in file order by the byte-order code.
    static std::uint64_t ByteOrder(std::uint32_t code, int size, std::uint8_t b1, std::uint8_t b2,
                                   std::uint8_t b3 = 0, std::uint8_t b4 = 0);
    static std::uint64_t ByteOrderS(std::uint32_t code, std::uint8_t b1, std::uint8_t b2,
                                    std::uint8_t b3, std::uint8_t b4);

    // Decoders of a value field that LoadFile folded into one integer.
    static std::int64_t ByteToShort(std::uint32_t value, std::uint32_t code);
    static void ByteToShortR(std::uint32_t value, std::uint32_t code, std::int64_t& first,
                             std::int64_t& second);
    static std::int64_t ByteToChar(std::uint32_t value, std::uint32_t code);
    static std::int64_t ByteTo3Bit(std::uint32_t value, std::uint32_t code);
    static std::int64_t ByteToLong(std::uint32_t value, std::uint32_t code);
    static std::string ByteToASCIIe2(std::uint32_t value, std::uint32_t code);

    // Decoders of a value that lies at the entry's distance from the TIFF header.
    double ByteToShort0(ByteSource& s, std::size_t i, std::uint64_t dist, std::uint32_t code) const;
    double ByteToShortE(ByteSource& s, std::size_t i, std::uint64_t dist, std::uint32_t code) const;
    double ByteToLong0(ByteSource& s, std::size_t i, std::uint64_t dist, std::uint32_t code) const;
    double ByteToLong1(ByteSource& s, std::size_t i, std::uint64_t dist, std::uint32_t code) const;
    double ByteToLongE(ByteSource& s, std::size_t i, std::uint64_t dist, std::uint32_t code) const;
    double ByteToLongG(ByteSource& s, std::size_t i, std::uint64_t dist, std::uint32_t code) const;
    double ByteToLongES(ByteSource& s, std::size_t i, std::uint64_t dist, std::uint32_t code) const;
    std::string ByteToASCII0(ByteSource& s, std::size_t i, std::uint32_t code) const;
    std::string ByteToASCII1(ByteSource& s, std::size_t i, std::uint32_t code) const;
    std::string ByteToASCIIe(ByteSource& s, std::size_t i, std::uint32_t code) const;
    std::string ByteToASCIIg(ByteSource& s, std::size_t i, std::uint32_t code) const;
    std::string ByteToComment(ByteSource& s, std::size_t i) const;

    // The readers that turn each directory's entries into its dictionary.
    void LoadFileIFD0(ByteSource& s, std::uint32_t code);
    void LoadFileIFD1(ByteSource& s, std::uint32_t code);
    void LoadFileIFDexif(ByteSource& s, std::uint32_t code);
    void LoadFileIFDGPS(ByteSource& s, std::uint32_t code);
    void LoadFileIFDGPSLatitude(ByteSource& s, std::size_t i, std::uint32_t code);
    void LoadFileIFDGPSLongitude(ByteSource& s, std::size_t i, std::uint32_t code);

    // The open source of the last LoadFile, for the thumbnail methods that follow it.
    ByteSource& Source() { return src_; }

  private:
    bool OpenSource();
    bool WalkToTiffHeader(std::uint64_t& pos);
    std::uint64_t ReadDirectory(std::uint64_t pos, std::uint32_t code, std::uint32_t& max,
                                std::vector<DirEntry>& dir);
    double Redirected(ByteSource& s, const std::vector<DirEntry>& dir, std::size_t i,
                      std::uint64_t dist, std::uint32_t code, int size) const;
    std::string RedirectedText(ByteSource& s, const std::vector<DirEntry>& dir, std::size_t i,
                               std::uint32_t code) const;
    void LoadGpsAngle(ByteSource& s, std::size_t i, std::uint32_t code, bool latitude);
    std::optional<std::vector<std::uint8_t>> ReadBlock(const char* start, const char* length);
    bool WriteExport(const std::optional<ThumbnailBlock>& block, const SaveTarget& ask) const;

    ByteSource src_;
};

}  // namespace lumivex
