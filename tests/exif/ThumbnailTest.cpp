// Thumbnails out of IFD1: JPEG and strips in both byte orders, the size test of strips, the
// placeholder, the turn by the thumbnail's own orientation, and the export of the bytes.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "ExifTestSupport.h"

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

struct Extracted {
    bool ret;
    Picture Thumbnail;
    int Rotate;
};

Extracted Thumb(const std::vector<std::uint8_t>& bytes, bool orientation, bool noThumb) {
    exifGPS x;
    x.fbytes = bytes;
    x.Orientation = orientation;
    x.NoThumb = noThumb;
    x.GetThumbNail();
    return {x.ret, x.Thumbnail, x.Rotate};
}

TEST(Thumbnail, JpegAndStripsInBothOrders) {
    for (const auto order : BothOrders()) {
        ExifJpegBuilder jpeg(order);
        jpeg.Ifd0().Ascii(0x010F, "M");
        jpeg.App0(16).JpegThumbnail(160, 120);
        const auto x = Thumb(jpeg.Build(), true, false);
        ASSERT_TRUE(x.ret);
        EXPECT_EQ(x.Thumbnail.Width(), 160);
        EXPECT_EQ(x.Thumbnail.Height(), 120);
        EXPECT_EQ(RedCorner(x.Thumbnail), 0);

        ExifJpegBuilder strips(order);
        strips.Ifd0().Ascii(0x010F, "M");
        strips.StripThumbnail(160, 120);
        const auto s = Thumb(strips.Build(), true, false);
        ASSERT_TRUE(s.ret);
        ASSERT_EQ(s.Thumbnail.Width(), 160);
        for (const auto& [px, py] : {std::pair{0, 0}, {159, 0}, {0, 119}, {77, 55}}) {
            const auto want = fixtures::StripPixel(px, py);
            EXPECT_EQ(s.Thumbnail.Pixel(px, py), (Color{want[0], want[1], want[2]}))
                << px << "," << py;
        }
    }
}

struct RefusedCase {
    const char* name;
    std::function<void(ExifJpegBuilder&)> build;
};

TEST(Thumbnail, RefusedBlocksAndThePlaceholder) {
    // clang-format off
    const RefusedCase cases[] = {
        {"no IFD1", [](auto&) {}},
        {"strips one byte long", [](auto& b) { b.StripThumbnail(160, 120); b.Ifd1().SetLong(0x0117, 57601); }},
        {"planar strips", [](auto& b) { b.StripThumbnail(16, 8); b.Ifd1().Remove(0x011C).Short(0x011C, {2}); }},
        {"strips without width", [](auto& b) { b.StripThumbnail(16, 8); b.Ifd1().Rational(0x0100, {{16, 1}}); }},
        {"compression 7", [](auto& b) { b.JpegThumbnail(16, 8); b.Ifd1().Remove(0x0103).Short(0x0103, {7}); }},
        {"not a JPEG", [](auto& b) { b.JpegThumbnailBytes(std::vector<std::uint8_t>(500, 0x55)); }},
        {"no JPEG pointers", [](auto& b) { b.JpegThumbnail(16, 8, 85, false); b.Ifd1().Short(0x0103, {6}); }},
        {"length beyond the cap", [](auto& b) { b.JpegThumbnail(16, 8); b.Ifd1().SetLong(0x0202, 0xFFFFFFF0); }},
        {"block past the end", [](auto& b) { b.JpegThumbnail(16, 8); b.Ifd1().SetLong(0x0201, 0x7FFFFFF0); }},
    };
    // clang-format on
    for (const auto& c : cases) {
        ExifJpegBuilder b;
        b.Ifd0().Ascii(0x010F, "M");
        c.build(b);
        const auto bytes = b.Build();
        EXPECT_FALSE(Thumb(bytes, true, false).ret) << c.name;
        const auto placeholder = Thumb(bytes, true, true);
        ASSERT_TRUE(placeholder.ret) << c.name;
        EXPECT_EQ(placeholder.Thumbnail.Width(), 160) << c.name;
        EXPECT_EQ(placeholder.Thumbnail.Pixel(0, 0), (Color{192, 255, 255})) << c.name;
    }
    // A file without Exif never gets the placeholder.
    ExifJpegBuilder notExif;
    notExif.Ifd0().Ascii(0x010F, "M");
    notExif.Signature("JFIF");
    EXPECT_FALSE(Thumb(notExif.Build(), true, true).ret);
    // The placeholder turns like a thumbnail when IFD1 says so.
    ExifJpegBuilder turned;
    turned.Ifd0().Ascii(0x010F, "M");
    turned.Ifd1().Short(0x0112, {6});
    const auto t = Thumb(turned.Build(), true, true);
    ASSERT_TRUE(t.ret);
    EXPECT_EQ(t.Thumbnail.Width(), 120);
    EXPECT_EQ(t.Rotate, 1);
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
        ASSERT_TRUE(on.ret);
        EXPECT_EQ(on.Rotate, turns) << value;
        EXPECT_EQ(on.Thumbnail.Width(), turns % 2 ? 32 : 48) << value;
        EXPECT_EQ(RedCorner(on.Thumbnail), corner) << value;
        const auto off = Thumb(bytes, false, false);
        EXPECT_EQ(off.Rotate, 0);
        EXPECT_EQ(RedCorner(off.Thumbnail), 0);
    }
}

class ExportTest : public ::testing::Test {
  protected:
    void SetUp() override {
        dir_ = std::filesystem::temp_directory_path() /
               ("lumivex-export-" + std::to_string(::getpid()));
        std::filesystem::create_directories(dir_);
    }
    void TearDown() override { std::filesystem::remove_all(dir_); }
    static std::vector<std::uint8_t> Read(const std::filesystem::path& p) {
        std::ifstream f(p, std::ios::binary);
        return {std::istreambuf_iterator<char>(f), {}};
    }
    std::filesystem::path dir_;
};

TEST_F(ExportTest, BytesNamesCancelAndSource) {
    struct Case {
        const char* name;
        std::function<void(ExifJpegBuilder&)> build;
        const char* suggested;
        const char* type;
    };
    const Case cases[] = {
        {"jpeg", [](auto& b) { b.JpegThumbnail(40, 30); }, "IMG_0001.JPG", "image/jpeg"},
        {"jpeg behind APP0", [](auto& b) { b.App0(16).JpegThumbnail(40, 30); }, "IMG_0001.JPG",
         "image/jpeg"},
        {"strips", [](auto& b) { b.StripThumbnail(10, 4); }, "IMG_0001.tiff", "image/tiff"},
        {"other compression",
         [](auto& b) {
             b.StripThumbnail(10, 4);
             b.Ifd1().Remove(0x0103).Short(0x0103, {9});
         },
         "IMG_0001.tiff", "image/tiff"},
    };
    for (const auto order : BothOrders()) {
        for (const auto& c : cases) {
            ExifJpegBuilder b(order);
            b.Ifd0().Ascii(0x010F, "M");
            c.build(b);
            const auto source = dir_ / "IMG_0001.JPG";
            const fixtures::Layout layout = b.Write(source);
            const auto sourceBytes = Read(source);
            const std::vector<std::uint8_t> expect(
                sourceBytes.begin() + layout.thumbStart,
                sourceBytes.begin() + layout.thumbStart + layout.thumbLength);
            exifGPS x;
            x.fitem = source;
            std::string suggested, type;
            x.SaveThumbNail(
                [&](const ThumbnailBlock& block) -> std::optional<std::filesystem::path> {
                    suggested = block.suggestedName;
                    type = block.type;
                    return dir_ / "out.bin";
                });
            EXPECT_TRUE(x.ret) << c.name;
            EXPECT_EQ(suggested, c.suggested) << c.name;
            EXPECT_EQ(type, c.type) << c.name;
            EXPECT_EQ(Read(dir_ / "out.bin"), expect) << c.name;

            // The source itself, even through a link, is never a target.
            std::filesystem::remove(dir_ / "link.JPG");
            std::filesystem::create_symlink(source, dir_ / "link.JPG");
            x.SaveThumbNail(
                [&](const ThumbnailBlock&) { return std::optional(dir_ / "link.JPG"); });
            EXPECT_FALSE(x.ret) << c.name;
            EXPECT_EQ(Read(source), sourceBytes) << c.name;

            // A cancel is a success that writes nothing.
            std::filesystem::remove(dir_ / "out.bin");
            x.SaveThumbNail(
                [](const ThumbnailBlock&) { return std::optional<std::filesystem::path>(); });
            EXPECT_TRUE(x.ret);
            EXPECT_FALSE(std::filesystem::exists(dir_ / "out.bin"));
        }
    }
    // Without IFD1 nothing is asked.
    ExifJpegBuilder bare;
    bare.Ifd0().Ascii(0x010F, "M");
    bare.Write(dir_ / "bare.JPG");
    exifGPS x;
    x.fitem = dir_ / "bare.JPG";
    bool asked = false;
    x.SaveThumbNail([&](const ThumbnailBlock&) {
        asked = true;
        return std::optional<std::filesystem::path>();
    });
    EXPECT_FALSE(x.ret);
    EXPECT_FALSE(asked);
}

}  // namespace
}  // namespace lumivex::test
