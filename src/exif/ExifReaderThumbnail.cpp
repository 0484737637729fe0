// Thumbnail extraction: the small picture that IFD1 embeds, as a JPEG stream
// ("Compression" 6) or as uncompressed RGB strips ("Compression" 1). Everything is decoded
// from memory; nothing is written.
#include <cmath>

#include "core/Globals.h"
#include "core/JpegCodec.h"
#include "core/NoThumbPicture.h"
#include "core/OutputFile.h"
#include "core/RotateImage.h"
#include "exif/ExifReader.h"
#include "exif/ValueReader.h"

namespace lumivex {

void ExifReader::GetThumbNail() {
    InitVal();
    Stored = StoredThumbnail();
    ret = LoadFile();
    outcome = !opened_ ? Outcome::Unreadable : !ret ? Outcome::NoExif : Outcome::NoThumbnail;
    if (ret) {
        const auto compression = IFD1.Integer("Compression");
        if (!compression) {
            ret = false;
        } else if (*compression == 6) {
            ret = GetThumbNailJPEG();
        } else if (*compression == 1) {
            ret = GetThumbNailTIFF();
        } else {
            ret = false;
        }
        if (ret) outcome = Outcome::Thumbnail;
        if (!ret && NoThumb) GetThumbNailNoThumb();
        if (ret) GetThumbNailOrientation();
    }
    src_.Close();
}

// The bytes of [IFD1[start] + offset, + IFD1[length]) that the file holds, at most
// kMaxThumbnailBytes of them; nothing when a key is missing or the length is beyond the cap.
std::optional<std::vector<std::uint8_t>> ExifReader::ReadBlock(const char* start,
                                                               const char* length) {
    const auto pos = IFD1.Number(start);
    const auto len = IFD1.Number(length);
    if (!pos || !len) return std::nullopt;
    return Values().Block(*pos, *len, kMaxThumbnailBytes);
}

bool ExifReader::GetThumbNailJPEG() {
    auto block = ReadBlock("JPEGInterchangeFormat", "JPEGInterchangeFormatLength");
    if (!block) return false;
    Picture pic = JpegCodec::Decode(*block);
    if (pic.IsNull()) return false;
    Stored = StoredThumbnail::FromJpeg(std::move(*block), pic);
    Thumbnail = std::move(pic);
    return true;
}

bool ExifReader::GetThumbNailTIFF() {
    auto block = ReadBlock("StripOffsets", "StripByteCounts");
    if (!block) return false;
    // A decoder first, as for any picture file; bare strips have no header and fall through.
    Picture pic = JpegCodec::Decode(*block);
    if (!pic.IsNull()) {
        Stored = StoredThumbnail::FromJpeg(std::move(*block), pic);
        Thumbnail = std::move(pic);
        return true;
    }
    return GetThumbNailTIFFalt(*block);
}

// Bare strip data: one strip of 8-bit RGB, rows top first. Its stated size must be exactly
// width x height x 3; bytes the file does not hold read as black.
bool ExifReader::GetThumbNailTIFFalt(std::span<const std::uint8_t> strips) {
    const auto planar = IFD1.Integer("PlanarConfiguration");
    const auto w = IFD1.Number("ImageWidth");
    const auto h = IFD1.Number("ImageLength");
    const auto count = IFD1.Number("StripByteCounts");
    if (!planar || *planar != 1 || !w || !h || !count) return false;
    if (*w * *h * 3 != *count || *count > static_cast<double>(kMaxThumbnailBytes)) return false;
    // An empty block matches a width of 2^31 and a height of 0, and such a side does not fit
    // an int: refuse sizes beyond the picture cap before converting them.
    if (!Picture::SizeAllowed(SaturatingInt(*w), SaturatingInt(*h))) return false;
    Picture pic = Picture::Make(static_cast<int>(*w), static_cast<int>(*h));
    if (pic.IsNull()) return false;
    const std::size_t rowBytes = static_cast<std::size_t>(pic.Width()) * 3;
    for (int y = 0; y < pic.Height(); ++y) {
        const std::size_t from = rowBytes * static_cast<std::size_t>(y);
        std::uint8_t* row = pic.Row(y);
        for (std::size_t k = 0; k < rowBytes; ++k)
            row[k] = from + k < strips.size() ? strips[from + k] : 0;
    }
    Stored = StoredThumbnail::FromPixels(pic);
    Thumbnail = std::move(pic);
    return true;
}

void ExifReader::GetThumbNailNoThumb() {
    Picture pic = MakeNoThumbPicture();
    if (pic.IsNull()) return;
    Stored = StoredThumbnail::Placeholder();
    Thumbnail = std::move(pic);
    ret = true;
}

void ExifReader::GetThumbNailOrientation() {
    Rotate = 0;
    if (Thumbnail.IsNull() || !Orientation) return;
    const auto value = IFD1.Integer("Orientation");
    if (!value) return;
    const int turn = *value == 3 ? 2 : *value == 6 ? 1 : *value == 8 ? 3 : 0;
    if (turn == 0) return;
    Thumbnail = gRotateImage(Thumbnail, turn);
    Rotate = turn;
}

}  // namespace lumivex
