#include "model/ItemRotation.h"

#include <gtest/gtest.h>

namespace lumivex {
namespace {

// A picture whose every pixel differs, so that any wrong turn shows.
ItemRecord Item(int w, int h) {
    ItemRecord item;
    item.pict = Picture::Make(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            item.pict.SetPixel(
                x, y, Color{static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 7});
    item.w = w;
    item.h = h;
    return item;
}

TEST(ItemRotation, TurnsOneItemAndBack) {
    const ItemRecord original = Item(4, 3);
    std::vector<ItemRecord> items{original};
    ASSERT_TRUE(ItemRotation::RotateImageR(items, 1, 0));
    EXPECT_EQ(items[0].rot, 1);
    EXPECT_EQ(items[0].w, 3);
    EXPECT_EQ(items[0].h, 4);
    EXPECT_EQ(items[0].pict.Width(), 3);
    // Clockwise: the top-left pixel ends top-right.
    EXPECT_EQ(items[0].pict.Pixel(2, 0), original.pict.Pixel(0, 0));
    ItemRotation::RotateImageL(items, 1, 0);
    EXPECT_EQ(items[0].rot, 0);
    EXPECT_EQ(items[0].pict, original.pict);
    EXPECT_EQ(items[0].w, 4);

    for (int i = 0; i < 3; ++i)
        ItemRotation::RotateImageR(items, 1, 0);
    EXPECT_EQ(items[0].rot, 3);
    ItemRotation::RotateImageR(items, 1, 0);
    EXPECT_EQ(items[0].rot, 0);
    EXPECT_EQ(items[0].pict, original.pict);
}

// Each selected item turns once; the others, and an item without a picture, stay as they are.
TEST(ItemRotation, SelectionTurnsEachSelectedItemOnce) {
    std::vector<ItemRecord> items{Item(4, 3), Item(4, 3), Item(4, 3), ItemRecord{}};
    items[3].w = 100;
    items[3].h = 75;
    items[0].selected = items[2].selected = items[3].selected = true;
    EXPECT_FALSE(ItemRotation::RotateImageL(items, 0, 0));
    EXPECT_EQ(items[0].rot, 0);
    ASSERT_TRUE(ItemRotation::RotateImageL(items, 2, 1));
    const std::vector<int> rot{3, 0, 3, 0};
    const std::vector<int> width{3, 4, 3, 100};
    for (std::size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(items[i].rot, rot[i]) << i;
        EXPECT_EQ(items[i].w, width[i]) << i;
    }
    EXPECT_FALSE(ItemRotation::RotateImageR(items, 1, 9));  // an index past the list
}

}  // namespace
}  // namespace lumivex
