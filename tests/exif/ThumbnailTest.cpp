// Thumbnails out of IFD1: JPEG and strips, the size test of strips, the placeholder, the turn
// by the thumbnail's own orientation, and the export of the bytes.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "ExifTestSupport.h"
#include "ReadBack.h"
#include "ScratchDir.h"

namespace lumivex::test {
namespace {

using fixtures::ExifJpegBuilder;

// Where the red quadrant of a JPEG fixture ended up: 0 top left, 1 top right, 2 bottom
// right, 3 bottom left.
int RedCorner(const Picture& p) {
    const int xs[] = {2, p.Width() - 3, p.Width() - 3, 2};
    const int ys[] = {2, 2, p.Height() - 3, p.Height() - 3};
    for (int c = 0; c < 4; ++c) {
        const Color px = p.Pixel(xs[c], ys[c]);
        if (px.r > 200 && px.g < 60 && px.b < 60) return c;
    }
    return -1;
}

// A reader after GetThumbNail; `bytes` need not outlive it.
std::unique_ptr<ExifReader> Thumb(const Bytes& bytes, bool orientation, bool noThumb) {
    auto x = std::make_unique<ExifReader>();
    x->fbytes = bytes;
    x->Orientation = orientation;
    x->NoThumb = noThumb;
    x->GetThumbNail();
    return x;
}

// JPEG thumbnails are read in the orientation and export tests; both byte orders of the strip
// tags are the directory reader's.
TEST(Thumbnail, Strips) {
    const auto s = Thumb(WithMake().StripThumbnail(160, 120).Build(), true, false);
    ASSERT_TRUE(s->ret);
    ASSERT_EQ(s->Thumbnail.Width(), 160);
    for (const auto& [px, py] : {std::pair{0, 0}, {159, 0}, {0, 119}, {77, 55}}) {
        const auto want = fixtures::StripPixel(px, py);
        EXPECT_EQ(s->Thumbnail.Pixel(px, py), (Color{want[0], want[1], want[2]}))
            << px << "," << py;
    }
}

TEST(Thumbnail, RefusedBlocksAndThePlaceholder) {
    // clang-format off
    const struct {
        const char* name;
        std::function<void(ExifJpegBuilder&)> build;
    } cases[] = {
        {"no IFD1", [](auto&) {}},
        {"strips one byte long", [](auto& b) { b.StripThumbnail(160, 120); b.Ifd1().SetLong(0x0117, 57601); }},
        {"planar strips", [](auto& b) { b.StripThumbnail(16, 8); b.Ifd1().Remove(0x011C).Short(0x011C, {2}); }},
        {"strips without width", [](auto& b) { b.StripThumbnail(16, 8); b.Ifd1().Rational(0x0100, {{16, 1}}); }},
        {"compression 7", [](auto& b) { b.JpegThumbnail(16, 8); b.Ifd1().Remove(0x0103).Short(0x0103, {7}); }},
        {"not a JPEG", [](auto& b) { b.JpegThumbnailBytes(std::vector<std::uint8_t>(500, 0x55)); }},
        {"no JPEG pointers", [](auto& b) { b.JpegThumbnail(16, 8, 85, false); b.Ifd1().Short(0x0103, {6}); }},
        {"block past the end", [](auto& b) { b.JpegThumbnail(16, 8); b.Ifd1().SetLong(0x0201, 0x7FFFFFF0); }},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ExifJpegBuilder b = WithMake();
        c.build(b);
        const Bytes bytes = b.Build();
        EXPECT_FALSE(Thumb(bytes, true, false)->ret);
        const auto placeholder = Thumb(bytes, true, true);
        ASSERT_TRUE(placeholder->ret);
        EXPECT_EQ(placeholder->Thumbnail.Width(), 160);
        EXPECT_EQ(placeholder->Thumbnail.Pixel(0, 0), (Color{192, 255, 255}));
    }
    // A file without Exif never gets the placeholder.
    EXPECT_FALSE(Thumb(WithMake().Signature("JFIF").Build(), true, true)->ret);
}

TEST(Thumbnail, OrientationOfTheThumbnailOnly) {
    // Value, quarter turns with the switch on, corner where the red quadrant lands.
    const int cases[][3] = {{1, 0, 0}, {2, 0, 0}, {3, 2, 2}, {4, 0, 0}, {5, 0, 0},
                            {6, 1, 1}, {7, 0, 0}, {8, 3, 3}, {9, 0, 0}};
    for (const auto& [value, turns, corner] : cases) {
        ExifJpegBuilder b(fixtures::ByteOrder::Big);
        b.Ifd0().Short(0x0112, {1});  // IFD0's orientation plays no part
        b.JpegThumbnail(48, 32);
        b.Ifd1().Short(0x0112, {static_cast<std::uint16_t>(value)});
        const auto bytes = b.Build();
        const auto on = Thumb(bytes, true, false);
        ASSERT_TRUE(on->ret);
        EXPECT_EQ(on->Rotate, turns) << value;
        EXPECT_EQ(RedCorner(on->Thumbnail), corner) << value;
        const auto off = Thumb(bytes, false, false);
        EXPECT_EQ(off->Rotate, 0);
        EXPECT_EQ(RedCorner(off->Thumbnail), 0);
    }
}

// What an item keeps instead of pixels gives back, turned as the scan turned it, the very
// picture the scan decoded: JPEG by its stream, strips packed without loss, the placeholder,
// which turns like a thumbnail when IFD1 says so.
TEST(Thumbnail, TheStoredFormGivesBackTheDecodedPicture) {
    using Form = StoredThumbnail::Form;
    const struct {
        const char* name;
        std::function<void(ExifJpegBuilder&)> build;
        Form form;
        int width;
    } cases[] = {
        {"jpeg 6", [](auto& b) { b.JpegThumbnail(48, 32).Ifd1().Short(0x0112, {6}); }, Form::Jpeg,
         32},
        {"jpeg 3", [](auto& b) { b.JpegThumbnail(48, 32).Ifd1().Short(0x0112, {3}); }, Form::Jpeg,
         48},
        {"strips 8", [](auto& b) { b.StripThumbnail(160, 120).Ifd1().Short(0x0112, {8}); },
         Form::Pixels, 120},
        {"placeholder 6", [](auto& b) { b.Ifd1().Short(0x0112, {6}); }, Form::Placeholder, 120},
    };
    for (const auto& c : cases) {
        ExifJpegBuilder b = WithMake();
        c.build(b);
        const auto x = Thumb(b.Build(), true, true);
        ASSERT_TRUE(x->ret) << c.name;
        EXPECT_EQ(x->Stored.Kind(), c.form) << c.name;
        EXPECT_EQ(x->Thumbnail.Width(), c.width) << c.name;
        EXPECT_EQ(x->Stored.Decode(x->Rotate), x->Thumbnail) << c.name;
        const std::size_t pixels = x->Thumbnail.Pixels().size();
        EXPECT_LT(x->Stored.ByteCount(), c.form == Form::Placeholder ? 1 : pixels / 2) << c.name;
    }
}

TEST(Thumbnail, ExportBytesNamesCancelAndSource) {
    fixtures::ScratchDir scratch("lvx-export");
    const auto& dir = scratch.path();
    const struct {
        const char* name;
        std::function<void(ExifJpegBuilder&)> build;
        const char* suggested;
        const char* type;
    } cases[] = {
        {"jpeg", [](auto& b) { b.JpegThumbnail(40, 30); }, "IMG_0001.JPG", "image/jpeg"},
        {"strips", [](auto& b) { b.StripThumbnail(10, 4); }, "IMG_0001.tiff", "image/tiff"},
        {"no IFD1: nothing is asked", [](auto&) {}, "", ""},
        {"other compression",
         [](auto& b) { b.StripThumbnail(10, 4).Ifd1().Remove(0x0103).Short(0x0103, {9}); },
         "IMG_0001.tiff", "image/tiff"},
    };
    const auto source = dir / "IMG_0001.JPG", out = dir / "out.bin", link = dir / "link.JPG";
    std::filesystem::create_symlink(source, link);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ExifJpegBuilder b = WithMake();
        c.build(b);
        const fixtures::Layout layout = b.Write(source);
        const auto sourceBytes = fixtures::ReadBytes(source);
        const auto thumbStart = sourceBytes.begin() + layout.thumbStart;
        ExifReader x;
        x.fitem = source;
        std::string suggested, type;
        x.SaveThumbNail([&](const ThumbnailBlock& block) {
            suggested = block.suggestedName;
            type = block.type;
            return std::optional(out);
        });
        EXPECT_EQ(x.ret, *c.type != '\0');
        EXPECT_EQ(suggested, c.suggested);
        EXPECT_EQ(type, c.type);
        if (!x.ret) continue;
        EXPECT_EQ(fixtures::ReadBytes(out), Bytes(thumbStart, thumbStart + layout.thumbLength));
        // The source itself, even through a link, is never a target.
        x.SaveThumbNail([&](const ThumbnailBlock&) { return std::optional(link); });
        EXPECT_FALSE(x.ret);
        EXPECT_EQ(fixtures::ReadBytes(source), sourceBytes);
        // A cancel is a success that writes nothing.
        std::filesystem::remove(out);
        x.SaveThumbNail(
            [](const ThumbnailBlock&) { return std::optional<std::filesystem::path>(); });
        EXPECT_TRUE(x.ret);
        EXPECT_FALSE(std::filesystem::exists(out));
    }
}

}  // namespace
}  // namespace lumivex::test
