#include "model/ItemRotation.h"

#include <gtest/gtest.h>

#include <tuple>

namespace lumivex {
namespace {

// A picture whose every pixel differs, so that any wrong turn shows.
ItemRecord Item(int w, int h) {
    ItemRecord item;
    Picture pict = Picture::Make(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            pict.SetPixel(x, y,
                          Color{static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 7});
    item.thumb = StoredThumbnail::FromPixels(pict);
    item.w = w;
    item.h = h;
    return item;
}

// Each selected item turns once, its size with it; the others, and an item without a picture,
// stay as they are. A quarter turn each way brings the picture back.
TEST(ItemRotation, TurnsEachSelectedItemAndCountsQuarterTurns) {
    const ItemRecord original = Item(4, 3);
    std::vector<ItemRecord> items{original, original, original, ItemRecord{}};
    items[3].w = 100;
    items[3].h = 75;
    items[0].selected = items[2].selected = items[3].selected = true;
    EXPECT_FALSE(ItemRotation::RotateImageL(items, 0, 0));
    ASSERT_TRUE(ItemRotation::RotateImageL(items, 2, 1));
    const std::vector<int> rot{3, 0, 3, 0};
    const std::vector<int> width{3, 4, 3, 100};
    for (std::size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(items[i].rot, rot[i]) << i;
        EXPECT_EQ(items[i].w, width[i]) << i;
        EXPECT_EQ(items[i].Shown().Width(), i == 3 ? 0 : width[i]) << i;
    }
    EXPECT_FALSE(ItemRotation::RotateImageR(items, 1, 9));  // an index past the list

    ASSERT_TRUE(ItemRotation::RotateImageR(items, 1, 0));
    EXPECT_EQ(std::make_tuple(items[0].rot, items[0].w, items[0].h), std::make_tuple(0, 4, 3));
    EXPECT_EQ(items[0].Shown(), original.Shown());
    ItemRotation::RotateImageR(items, 1, 0);
    EXPECT_EQ(items[0].Shown().Pixel(2, 0), original.Shown().Pixel(0, 0));  // clockwise
    for (int turn = 0; turn < 3; ++turn)
        ItemRotation::RotateImageR(items, 1, 0);
    EXPECT_EQ(items[0].rot, 0);
}

}  // namespace
}  // namespace lumivex
