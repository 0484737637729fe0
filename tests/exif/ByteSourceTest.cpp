// What a thumbnail read costs the device: only the head of the file, as far as the Exif
// segment reaches, whatever the segment's length field claims.
#include <gtest/gtest.h>

#include "ExifJpegBuilder.h"
#include "RealisticCamera.h"
#include "ScratchDir.h"
#include "exif/ExifReader.h"

namespace lumivex::test {
namespace {

constexpr std::size_t kFileSize = 3'000'000;

TEST(ByteSource, ReadsTheHeadAsFarAsTheThumbnailNeeds) {
    using fixtures::ByteOrder;
    using fixtures::ExifJpegBuilder;
    ExifJpegBuilder small(ByteOrder::Little);
    small.Ifd0().Ascii(0x010F, "Small");
    small.JpegThumbnail(32, 24).MainImage(kFileSize);
    const struct {
        const char* name;
        ExifJpegBuilder builder;
        int width;
        // Bytes read, given where the thumbnail ends.
        std::uint64_t (*expected)(const fixtures::Layout&);
    } cases[] = {
        // One read of two pages covers a small segment.
        {"small segment", small, 32, [](const fixtures::Layout&) { return std::uint64_t{8192}; }},
        {"camera segment", fixtures::RealisticCameraBuilder(42, kFileSize, ByteOrder::Big), 160,
         // Whole pages up to the thumbnail's end.
         [](const fixtures::Layout& l) -> std::uint64_t {
             return (l.thumbStart + l.thumbLength + 4095) / 4096 * 4096;
         }},
        // A length that ends before the directories: the head grows to its bound instead.
        {"understated length",
         fixtures::RealisticCameraBuilder(42, kFileSize, ByteOrder::Little).App1LengthOverride(100),
         160, [](const fixtures::Layout&) { return std::uint64_t{ByteSource::kHeadSize}; }},
    };
    fixtures::ScratchDir dir;
    for (const auto& c : cases) {
        const auto file = dir.path() / (std::string(c.name) + ".jpg");
        const fixtures::Layout layout = c.builder.Write(file);
        ExifReader x;
        x.ReadAllTags = false;
        x.fitem = file;
        x.GetThumbNail();
        ASSERT_TRUE(x.ret) << c.name;
        EXPECT_EQ(x.Thumbnail.Width(), c.width) << c.name;
        EXPECT_EQ(x.BytesRead(), c.expected(layout)) << c.name;
    }
}

}  // namespace
}  // namespace lumivex::test
