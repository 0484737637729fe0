// Picture, the JPEG codec, exact rotation and the "No Thumbnail" placeholder.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <vector>

#include "JpegCache.h"
#include "core/BitmapFont.h"
#include "core/JpegCodec.h"
#include "core/NoThumbPicture.h"
#include "core/Picture.h"
#include "core/RotateImage.h"

namespace lumivex {
namespace {

// Every pixel differs from every other (up to 4096 x 4096), so a misplaced one shows.
Picture Numbered(int w, int h) {
    std::vector<std::uint8_t> rgb;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            rgb.insert(rgb.end(),
                       {std::uint8_t(x), std::uint8_t(y), std::uint8_t((x >> 8) << 4 | y >> 8)});
    return Picture(w, h, rgb);
}

bool Near(Color a, Color b, int tolerance) {
    return std::abs(a.r - b.r) <= tolerance && std::abs(a.g - b.g) <= tolerance &&
           std::abs(a.b - b.b) <= tolerance;
}

std::size_t MarkerAt(const std::vector<std::uint8_t>& jpeg, std::uint8_t marker) {
    for (std::size_t i = 2; i + 1 < jpeg.size(); ++i) {
        if (jpeg[i] == 0xFF && jpeg[i + 1] == marker) return i;
    }
    ADD_FAILURE() << "marker not found";
    return 0;
}

// Every turn of each shape, pixel by pixel; that also covers any sequence of turns. A clockwise
// quarter turn takes the top-left to the top-right, a half turn to the bottom-right, a
// counter-clockwise quarter turn to the bottom-left.
TEST(Picture, RotationMovesEachPixelToItsPlace) {
    for (const auto& [w, h] : {std::pair{7, 3}, {1, 5}, {300, 130}}) {
        const Picture src = Numbered(w, h);
        for (int turn = 1; turn <= 3; ++turn) {
            SCOPED_TRACE(testing::Message() << w << "x" << h << " turn " << turn);
            const Picture out = gRotateImage(src, turn);
            ASSERT_EQ(out.Width(), turn == 2 ? w : h);
            ASSERT_EQ(out.Height(), turn == 2 ? h : w);
            for (int y = 0; y < h; ++y) {
                for (int x = 0; x < w; ++x) {
                    const int toX = turn == 1 ? h - 1 - y : turn == 2 ? w - 1 - x : y;
                    const int toY = turn == 1 ? x : turn == 2 ? h - 1 - y : w - 1 - x;
                    ASSERT_EQ(out.Pixel(toX, toY), src.Pixel(x, y)) << x << "," << y;
                }
            }
        }
    }
    for (int turn : {0, 4, INT_MIN})
        EXPECT_EQ(gRotateImage(Numbered(7, 3), turn), Numbered(7, 3)) << turn;
}

// The pixels are held by hand, so copies, moves, comparison and the size cap are the class's
// own code.
TEST(Picture, CopiesMovesComparisonAndSizeCap) {
    const Picture src = Numbered(7, 3);
    Picture copy = src;
    copy.SetPixel(6, 2, Color{6, 2, 1});
    EXPECT_NE(copy, src);  // only the last byte differs, and the source was not shared

    const struct {
        int w, h;
        std::size_t rgbBytes;
        bool makes, takes;  // Make(w, h) and Picture(w, h, rgb) give a picture
    } sizes[] = {
        // clang-format off
        {2, 3, 18, true, true}, {2, 3, 17, true, false}, {4096, 4096, 0, true, false},
        {3, -1, 0, false, false}, {4097, 4096, 0, false, false},
        // clang-format on
    };
    for (const auto& c : sizes) {
        EXPECT_EQ(!Picture::Make(c.w, c.h).IsNull(), c.makes) << c.w << "x" << c.h;
        const Picture given(c.w, c.h, std::vector<std::uint8_t>(c.rgbBytes, 7));
        EXPECT_EQ(!given.IsNull(), c.takes) << c.w << "x" << c.h << " " << c.rgbBytes;
    }
}

TEST(JpegCodec, RoundTripAndDamagedStreams) {
    const Picture src = Numbered(37, 21);  // odd sizes: partial blocks at the edges
    const Picture back = JpegCodec::Decode(JpegCodec::Encode(src, 100));
    ASSERT_EQ(back.Width(), src.Width());
    ASSERT_EQ(back.Height(), src.Height());
    for (int y = 0; y < src.Height(); ++y)
        for (int x = 0; x < src.Width(); ++x)
            ASSERT_TRUE(Near(back.Pixel(x, y), src.Pixel(x, y), 4)) << x << "," << y;

    // Damaged streams (the fuzz tests try many more): a bad one must not spoil the codec for
    // the next file, and one cut in the scan keeps its size, flat grey where the data ran out.
    const auto good = *fixtures::JpegCache::Thumbnail(160, 120, 90, 0);
    const std::size_t sos = MarkerAt(good, 0xDA), sof = MarkerAt(good, 0xC0);
    std::vector<std::uint8_t> huge = good;
    for (std::size_t i : {sof + 5, sof + 7})  // height, then width: 60000 each
        huge[i] = 0xEA, huge[i + 1] = 0x60;
    const std::vector<std::uint8_t> cut(good.begin(), good.begin() + std::ptrdiff_t(sos / 2)),
        scanCut(good.begin(), good.begin() + std::ptrdiff_t((sos + good.size()) / 2));
    for (const auto& bad : {huge, cut}) {
        EXPECT_TRUE(JpegCodec::Decode(bad).IsNull());
        EXPECT_FALSE(JpegCodec::Decode(good).IsNull());
    }
    const Picture part = JpegCodec::Decode(scanCut);
    EXPECT_EQ(std::pair(part.Width(), part.Height()), std::pair(160, 120));
    EXPECT_TRUE(Near(part.Pixel(10, 10), Color{220, 30, 30}, 8));
    EXPECT_TRUE(Near(JpegCodec::Decode(good).Pixel(10, 110), Color{30, 40, 210}, 8));
    EXPECT_TRUE(Near(part.Pixel(10, 110), Color{128, 128, 128}, 3));
}

// Only ground and black ink, and the ink where the text belongs.
TEST(NoThumbPicture, GroundAndTextWhereExpected) {
    const Picture pic = MakeNoThumbPicture();
    ASSERT_EQ(std::pair(pic.Width(), pic.Height()), std::pair(160, 120));
    int minX = INT_MAX, maxX = -1, minY = INT_MAX, maxY = -1;
    for (int y = 0; y < pic.Height(); ++y) {
        for (int x = 0; x < pic.Width(); ++x) {
            const Color c = pic.Pixel(x, y);
            const Color ground{192, 255, 255}, ink{0, 0, 0};
            ASSERT_TRUE(c == ground || c == ink) << x << "," << y;
            if (c != ink) continue;
            minX = std::min(minX, x), maxX = std::max(maxX, x);
            minY = std::min(minY, y), maxY = std::max(maxY, y);
        }
    }
    EXPECT_EQ(std::pair(minX, maxY), std::pair(45, 60));
    EXPECT_EQ(minY, 60 - (BitmapFont::kCapHeight - 1));  // the capitals and ascenders
    EXPECT_GT(maxX, 100);                                // twelve characters of a ~12 px font
}

}  // namespace
}  // namespace lumivex
