#pragma once
// The reader of one image file: walks the JPEG markers to the Exif block, loads its four
// directories (IFD0, IFD1, Exif, GPS) and decodes the known tags into dictionaries. The object
// is short-lived or reused file after file by one thread; it never decodes image data. The
// work is done by small helpers: ContainerWalk finds the directories, DirectoryReader decodes
// them through ValueReader, ExifReport renders the texts.
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/Picture.h"
#include "core/StoredThumbnail.h"
#include "exif/ByteSource.h"
#include "exif/DirEntry.h"
#include "exif/ExifDict.h"

namespace lumivex {

class ValueReader;

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
    // Off: only the thumbnail's directory is decoded, which is all a scan needs.
    bool ReadAllTags = true;
    Picture Thumbnail;
    int Rotate = 0;  // quarter turns applied to Thumbnail
    // What Thumbnail was decoded from, before its turn, for keeping many thumbnails: set by
    // each GetThumbNail that sets ret.
    StoredThumbnail Stored;
    // Why the last GetThumbNail gave no picture, for commands that explain their skips.
    enum class Outcome { Thumbnail, Unreadable, NoExif, NoThumbnail };
    Outcome outcome = Outcome::Unreadable;

    void InitVal();
    void GetExif();
    void GetThumbNail();
    // Writes the embedded thumbnail, bytes unchanged, where `ask` says; a cancel is a success.
    void SaveThumbNail(const SaveTarget& ask);
    // The embedded block, bytes unchanged: the JPEG stream for "Compression" 6, else the strip
    // data. Nothing when the file has no Exif or IFD1 lacks the keys that locate it; `ret`
    // tells whether the file had Exif.
    std::optional<ThumbnailBlock> ReadThumbnailBlock();

    // Six report texts, lines ended by gCR.
    void GetInfo(std::string& s1, std::string& s2, std::string& s3, std::string& s4,
                 std::string& s5, std::string& s6) const;

    // Whether the last entry point could open its file at all.
    bool Opened() const { return opened_; }
    // Bytes fetched from files by this object so far, for scan statistics.
    std::uint64_t BytesRead() const { return src_.BytesRead(); }

  private:
    bool LoadFile();
    bool OpenSource();
    void LoadDirectories(std::uint64_t ifd0Pos);
    ValueReader Values();

    bool GetThumbNailJPEG();
    bool GetThumbNailTIFF();
    bool GetThumbNailTIFFalt(std::span<const std::uint8_t> strips);
    void GetThumbNailNoThumb();
    void GetThumbNailOrientation();

    bool SaveThumbNailJPEG(const SaveTarget& ask);
    bool SaveThumbNailTIFF(const SaveTarget& ask);
    std::optional<ThumbnailBlock> EmbeddedThumbnail();
    std::optional<std::vector<std::uint8_t>> ReadBlock(const char* start, const char* length);
    bool WriteExport(const std::optional<ThumbnailBlock>& block, const SaveTarget& ask) const;

    ByteSource src_;
    std::uint32_t code_ = 0;  // byte-order code of the last LoadFile
    bool opened_ = false;
};

}  // namespace lumivex
