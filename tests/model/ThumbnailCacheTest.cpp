// The cache of decoded pictures: what it keeps within its byte bound, what goes first, that a
// turned item never shows a stale picture; and the turns of the selected items.
#include "model/ThumbnailCache.h"

#include <gtest/gtest.h>

#include <tuple>

#include "core/RotateImage.h"
#include "model/ItemRotation.h"

namespace lumivex {
namespace {

constexpr int kW = 8, kH = 6;
constexpr std::size_t kOne = kW * kH * 3;  // bytes of one decoded picture

// A picture whose every pixel differs, tinted by `tint` so that items differ too.
Picture Pattern(int w, int h, std::uint8_t tint) {
    Picture p = Picture::Make(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            p.SetPixel(x, y,
                       Color{static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), tint});
    return p;
}

ItemRecord Item(std::uint8_t tint, int w = kW, int h = kH) {
    ItemRecord item;
    item.thumb = StoredThumbnail::FromPixels(Pattern(w, h, tint));
    item.w = w;
    item.h = h;
    return item;
}

// Room for three pictures: a fourth pushes out the one drawn longest ago, never more.
TEST(ThumbnailCache, KeepsWithinItsBoundAndDropsTheLeastRecentlyDrawn) {
    ThumbnailCache cache(3 * kOne);
    const std::vector<ItemRecord> items{Item(0), Item(1), Item(2), Item(3), Item(4)};
    const struct {
        std::size_t get;
        std::vector<std::size_t> held;  // in no order
    } steps[] = {
        {0, {0}},       {1, {0, 1}},
        {2, {0, 1, 2}}, {0, {0, 1, 2}},  // a hit makes 0 the most recent
        {3, {0, 2, 3}},                  // so 1 goes
        {4, {0, 3, 4}},                  // then 2
        {3, {0, 3, 4}},
    };
    for (const auto& s : steps) {
        EXPECT_EQ(cache.Get(s.get, items[s.get]), items[s.get].Shown()) << s.get;
        EXPECT_EQ(cache.Count(), s.held.size()) << s.get;
        for (std::size_t i : s.held)
            EXPECT_TRUE(cache.Holds(i, 0)) << "after " << s.get << ", item " << i;
    }

    // A picture beyond the bound is drawn but not kept, and pushes nothing out.
    const ItemRecord big = Item(9, 4 * kW, kH);
    EXPECT_EQ(cache.Get(7, big), big.Shown());
    EXPECT_FALSE(cache.Holds(7, 0));
    EXPECT_EQ(cache.Count(), 3u);

    cache.Clear();
    EXPECT_EQ(cache.Count() + cache.Bytes(), 0u);
}

// The band next to the shown one is filled a few pictures per call until it is complete, an
// item without a picture left out; the bound grows to twice a larger band, up to its ceiling,
// and comes back to where it started with a small band.
TEST(ThumbnailCache, PrefetchFillsANeighbouringBandAFewAtATime) {
    ThumbnailCache cache(10 * kOne, 16 * kOne);
    std::vector<ItemRecord> items;
    for (std::uint8_t i = 0; i < 8; ++i)
        items.push_back(Item(i));
    items[3].thumb = StoredThumbnail();
    cache.Get(1, items[1]);
    const struct {
        std::size_t first, last, limit, decoded, bound;
    } steps[] = {
        {0, 6, 2, 2, 10},   // 0 and 2: 1 is held already
        {0, 6, 2, 2, 10},   // 4 and 5: 3 has no picture
        {0, 6, 2, 0, 10},   // complete
        {0, 99, 9, 2, 14},  // seven pictures, to the list's end: the bound grows to 14
        {0, 2, 9, 0, 10},   // a small band: back to 10
    };
    for (const auto& s : steps) {
        EXPECT_EQ(cache.Prefetch(items, s.first, s.last, s.limit), s.decoded) << s.last;
        EXPECT_EQ(cache.MaxBytes(), s.bound * kOne) << s.last;
    }
    for (std::size_t i : {0, 1, 2, 4, 5, 6, 7})
        EXPECT_TRUE(cache.Holds(i, 0)) << i;
    EXPECT_EQ(cache.Get(5, items[5]), items[5].Shown());

    // Past the ceiling the band is left alone, and the bound shrinks to what it held.
    ThumbnailCache small(2 * kOne, 4 * kOne);
    EXPECT_EQ(small.Prefetch(items, 0, 8, 9), 0u);
    EXPECT_EQ(small.MaxBytes(), 4 * kOne);
    ThumbnailCache shrinking(kOne, 8 * kOne);
    shrinking.Prefetch(items, 0, 2, 9);
    EXPECT_EQ(shrinking.Prefetch(items, 5, 6, 9), 1u);
    EXPECT_EQ(shrinking.Count(), 2u);
}

// An item turned by its orientation tag and then by the user shows, after its picture was
// pushed out and decoded again, the very pixels it showed before, which are those the scan's
// turn followed by each of the user's quarter turns gives.
TEST(ThumbnailCache, ATurnedItemRedrawnAfterEvictionShowsTheSamePixels) {
    const Picture read = Pattern(kW, kH, 5);
    const struct {
        int rotate;
        std::vector<bool> rights;  // the user's turns: true right, false left
    } cases[] = {{0, {true}},  {1, {true}}, {1, {false, false}}, {3, {true, true, true}},
                 {2, {false}}, {1, {}}};
    for (const auto& c : cases) {
        ItemRecord item;
        item.thumb = StoredThumbnail::FromPixels(read);
        item.rotate = c.rotate;
        Picture expected = c.rotate ? gRotateImage(read, c.rotate) : read;
        item.w = expected.Width();
        item.h = expected.Height();
        ThumbnailCache cache(2 * kOne);
        cache.Get(0, item);  // drawn before the turns: must not be shown after them
        for (bool right : c.rights) {
            right ? ItemRotation::RotateImageRSingle(item) : ItemRotation::RotateImageLSingle(item);
            expected = gRotateImage(expected, right ? 1 : 3);
        }
        const Picture before = cache.Get(0, item);
        EXPECT_EQ(before, expected) << c.rotate << " " << c.rights.size();
        const ItemRecord other1 = Item(1), other2 = Item(2);
        cache.Get(1, other1);
        cache.Get(2, other2);
        ASSERT_FALSE(cache.Holds(0, item.Turns()));
        EXPECT_EQ(cache.Get(0, item), before) << c.rotate << " " << c.rights.size();
    }
}

// Each selected item turns once, its size with it; the others, and an item without a picture,
// stay as they are. A quarter turn each way brings the picture back.
TEST(ItemRotation, TurnsEachSelectedItemAndCountsQuarterTurns) {
    std::vector<ItemRecord> items{Item(7, 4, 3), Item(7, 4, 3), Item(7, 4, 3), ItemRecord{}};
    items[3].w = 100;
    items[3].h = 75;
    items[0].selected = items[2].selected = items[3].selected = true;
    EXPECT_FALSE(ItemRotation::RotateImageL(items, 0, 0));
    ASSERT_TRUE(ItemRotation::RotateImageL(items, 2, 1));
    std::vector<std::pair<int, int>> rotAndWidth;
    for (const ItemRecord& item : items)
        rotAndWidth.emplace_back(item.rot, item.w);
    EXPECT_EQ(rotAndWidth, (std::vector<std::pair<int, int>>{{3, 3}, {0, 4}, {3, 3}, {0, 100}}));
    EXPECT_FALSE(ItemRotation::RotateImageR(items, 1, 9));  // an index past the list

    ASSERT_TRUE(ItemRotation::RotateImageR(items, 1, 0));
    EXPECT_EQ(std::make_tuple(items[0].rot, items[0].w, items[0].h), std::make_tuple(0, 4, 3));
}

}  // namespace
}  // namespace lumivex
