// Thumbnail extraction and export: the small picture that IFD1 embeds, as a JPEG stream
// ("Compression" 6) or as uncompressed RGB strips ("Compression" 1). Everything is decoded
// from memory; nothing is written but what the user exports.
#include <cmath>

#include "core/Globals.h"
#include "core/JpegCodec.h"
#include "core/NoThumbPicture.h"
#include "core/OutputFile.h"
#include "core/RotateImage.h"
#include "exif/ExifReader.h"

namespace lumivex {

void ExifReader::GetThumbNail() {
    InitVal();
    ret = LoadFile();
    outcome = !src_.IsOpen() ? Outcome::Unreadable : !ret ? Outcome::NoExif : Outcome::NoThumbnail;
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
    if (!pos || !len || *pos < 0 || *len < 0 || *len > static_cast<double>(kMaxThumbnailBytes))
        return std::nullopt;
    return src_.Block(static_cast<std::uint64_t>(*pos) + offset, static_cast<std::uint64_t>(*len),
                      kMaxThumbnailBytes);
}

bool ExifReader::GetThumbNailJPEG() {
    const auto block = ReadBlock("JPEGInterchangeFormat", "JPEGInterchangeFormatLength");
    if (!block) return false;
    Picture pic = JpegCodec::Decode(*block);
    if (pic.IsNull()) return false;
    Thumbnail = std::move(pic);
    return true;
}

bool ExifReader::GetThumbNailTIFF() {
    const auto block = ReadBlock("StripOffsets", "StripByteCounts");
    if (!block) return false;
    // A decoder first, as for any picture file; bare strips have no header and fall through.
    Picture pic = JpegCodec::Decode(*block);
    if (!pic.IsNull()) {
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
    Thumbnail = std::move(pic);
    return true;
}

void ExifReader::GetThumbNailNoThumb() {
    Picture pic = MakeNoThumbPicture();
    if (pic.IsNull()) return;
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

std::optional<ThumbnailBlock> ExifReader::EmbeddedThumbnail() {
    const auto compression = IFD1.Integer("Compression");
    if (!compression) return std::nullopt;
    const bool jpeg = *compression == 6;
    auto bytes = jpeg ? ReadBlock("JPEGInterchangeFormat", "JPEGInterchangeFormatLength")
                      : ReadBlock("StripOffsets", "StripByteCounts");
    if (!bytes) return std::nullopt;
    ThumbnailBlock block;
    block.bytes = std::move(*bytes);
    const std::string name = fitem.filename().string();
    if (jpeg) {
        block.suggestedName = name;
        block.type = "image/jpeg";
    } else {
        std::string body, extn;
        gExtractBodyAndExtn(name, body, extn);
        block.suggestedName = body + ".tiff";
        block.type = "image/tiff";
    }
    return block;
}

void ExifReader::SaveThumbNail(const SaveTarget& ask) {
    InitVal();
    ret = LoadFile();
    if (ret) {
        const auto compression = IFD1.Integer("Compression");
        if (!compression) {
            ret = false;
        } else {
            ret = *compression == 6 ? SaveThumbNailJPEG(ask) : SaveThumbNailTIFF(ask);
        }
    }
    src_.Close();
}

bool ExifReader::SaveThumbNailJPEG(const SaveTarget& ask) {
    if (IFD1.Integer("Compression") != 6) return false;
    return WriteExport(EmbeddedThumbnail(), ask);
}

bool ExifReader::SaveThumbNailTIFF(const SaveTarget& ask) {
    if (IFD1.Integer("Compression") == 6) return false;
    return WriteExport(EmbeddedThumbnail(), ask);
}

// The user's answer is written in full or not at all; a target that is the source file
// itself (or a link to it) is refused, so that an export never destroys a picture.
bool ExifReader::WriteExport(const std::optional<ThumbnailBlock>& block,
                             const SaveTarget& ask) const {
    if (!block) return false;
    const auto target = ask(*block);
    if (!target) return true;
    std::error_code ec;
    if (!fitem.empty() && std::filesystem::equivalent(*target, fitem, ec)) return false;
    return OutputFile::Replace(*target, block->bytes) == OutputFile::Result::Written;
}

}  // namespace lumivex
