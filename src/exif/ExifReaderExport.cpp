// Thumbnail writing: the embedded block exactly as the camera stored it, with no decoding,
// no re-encoding and no header, to where the caller's prompt says.
#include "core/Globals.h"
#include "core/OutputFile.h"
#include "exif/ExifReader.h"

namespace lumivex {

std::optional<ThumbnailBlock> ExifReader::ReadThumbnailBlock() {
    InitVal();
    ret = LoadFile();
    auto block = ret ? EmbeddedThumbnail() : std::nullopt;
    src_.Close();
    return block;
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
