#include "core/StoredThumbnail.h"

#include <zlib.h>

#include <new>
#include <utility>

#include "core/JpegCodec.h"
#include "core/NoThumbPicture.h"
#include "core/RotateImage.h"

namespace lumivex {
namespace {

// Each byte less the same channel of the pixel to its left, as PNG's "Sub" filter: a photo's
// rows change slowly, so the differences pack several times smaller than the pixels.
std::vector<std::uint8_t> RowDifferences(const Picture& pic) {
    const std::size_t rowBytes = static_cast<std::size_t>(pic.Width()) * 3;
    std::vector<std::uint8_t> out(rowBytes * static_cast<std::size_t>(pic.Height()));
    for (int y = 0; y < pic.Height(); ++y) {
        const std::uint8_t* row = pic.Row(y);
        std::uint8_t* to = out.data() + rowBytes * static_cast<std::size_t>(y);
        for (std::size_t k = 0; k < rowBytes; ++k)
            to[k] = static_cast<std::uint8_t>(row[k] - (k >= 3 ? row[k - 3] : 0));
    }
    return out;
}

void UndoRowDifferences(Picture& pic) {
    const std::size_t rowBytes = static_cast<std::size_t>(pic.Width()) * 3;
    for (int y = 0; y < pic.Height(); ++y) {
        std::uint8_t* row = pic.Row(y);
        for (std::size_t k = 3; k < rowBytes; ++k)
            row[k] = static_cast<std::uint8_t>(row[k] + row[k - 3]);
    }
}

}  // namespace

StoredThumbnail StoredThumbnail::FromJpeg(std::vector<std::uint8_t> jpeg, const Picture& pic) {
    StoredThumbnail t;
    if (jpeg.empty() || pic.IsNull()) return t;
    jpeg.shrink_to_fit();  // a block read with room to spare would keep the spare for good
    t.form_ = Form::Jpeg;
    t.width_ = pic.Width();
    t.height_ = pic.Height();
    t.bytes_ = std::move(jpeg);
    return t;
}

StoredThumbnail StoredThumbnail::FromPixels(const Picture& pic) {
    StoredThumbnail t;
    if (pic.IsNull()) return t;
    std::vector<std::uint8_t> pixels, out;
    uLongf packed = 0;
    try {
        pixels = RowDifferences(pic);
        packed = compressBound(static_cast<uLong>(pixels.size()));
        out.resize(packed);
    } catch (const std::bad_alloc&) {
        return t;
    }
    // The fastest level: strip thumbnails are rare, and a scan should not wait on them.
    if (compress2(out.data(), &packed, pixels.data(), static_cast<uLong>(pixels.size()),
                  Z_BEST_SPEED) != Z_OK)
        return t;
    out.resize(packed);
    out.shrink_to_fit();
    t.form_ = Form::Pixels;
    t.width_ = pic.Width();
    t.height_ = pic.Height();
    t.bytes_ = std::move(out);
    return t;
}

StoredThumbnail StoredThumbnail::Placeholder() {
    StoredThumbnail t;
    const Picture pic = MakeNoThumbPicture();
    if (pic.IsNull()) return t;
    t.form_ = Form::Placeholder;
    t.width_ = pic.Width();
    t.height_ = pic.Height();
    return t;
}

Picture StoredThumbnail::Decode(int turns) const {
    const int turn = ((turns % 4) + 4) % 4;
    Picture pic = Unturned();
    return turn == 0 || pic.IsNull() ? pic : gRotateImage(pic, turn);
}

Picture StoredThumbnail::Unturned() const {
    switch (form_) {
        case Form::Jpeg:
            return JpegCodec::Decode(bytes_);
        case Form::Pixels:
            return Unpack();
        case Form::Placeholder:
            return MakeNoThumbPicture();
        case Form::None:
            break;
    }
    return {};
}

Picture StoredThumbnail::Unpack() const {
    Picture pic = Picture::MakeUninitialized(width_, height_);
    if (pic.IsNull()) return pic;
    uLongf size = static_cast<uLongf>(pic.Pixels().size());
    const uLongf want = size;
    if (uncompress(pic.Row(0), &size, bytes_.data(), static_cast<uLong>(bytes_.size())) != Z_OK ||
        size != want)
        return {};
    UndoRowDifferences(pic);
    return pic;
}

}  // namespace lumivex
