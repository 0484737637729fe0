#include <gtest/gtest.h>

#include <tuple>
#include <utility>
#include <vector>

#include "model/GridLayout.h"

namespace lumivex {
namespace {

using Pairs = std::vector<std::pair<int, int>>;

TEST(GridLayoutTest, FlowPlacesEveryItemToThePixel) {
    const struct {
        int pane;
        Pairs sizes;      // w, h of each item
        Pairs positions;  // expected x, y
        int contentHeight;
    } cases[] = {
        // The third item needs 215 + 100 + 5 = 320 with the right gap.
        {319, {{100, 75}, {100, 75}, {100, 75}}, {{5, 5}, {110, 5}, {5, 100}}, 195},
        // A first item wider than the pane wraps too: one gap lower, alone in its row.
        {100, {{200, 50}, {50, 40}}, {{5, 25}, {5, 95}}, 155},
        // Rows are as high as their tallest item, each row on its own.
        {320,
         {{100, 50}, {100, 120}, {100, 80}, {100, 10}},
         {{5, 5}, {110, 5}, {215, 5}, {5, 145}},
         175},
        {320, {}, {}, 25},
    };
    for (const auto& c : cases) {
        std::vector<ItemRecord> items(c.sizes.size());
        for (std::size_t i = 0; i < items.size(); ++i)
            std::tie(items[i].w, items[i].h) = c.sizes[i];
        GridLayout layout;
        layout.Flow(items, 999);  // an earlier, wider pane: Flow starts afresh
        layout.Flow(items, c.pane);
        for (std::size_t i = 0; i < items.size(); ++i)
            EXPECT_EQ(std::make_pair(items[i].x, items[i].y), c.positions[i]) << c.pane << " " << i;
        EXPECT_EQ(layout.ContentHeight(), c.contentHeight) << c.pane;
    }
}

TEST(GridLayoutTest, ScrollRangeAndDivider) {
    std::vector<ItemRecord> items(1);
    items[0].w = 100;
    items[0].h = 75;
    GridLayout layout;
    layout.Flow(items, 320);  // content height 100
    const ScrollRange fits = layout.Range(100), scrolls = layout.Range(99);
    EXPECT_EQ(std::tie(fits.enabled, fits.maximum), std::make_tuple(false, 0));
    EXPECT_EQ(std::tie(scrolls.enabled, scrolls.maximum, scrolls.pageStep),
              std::make_tuple(true, 1, 99));

    const int limit = GridLayout::DividerLimit(725, 15);
    EXPECT_EQ(limit, 611);
    for (const auto& [left, expected] : Pairs{{50, 100}, {300, 300}, {611, 611}, {700, 611}})
        EXPECT_EQ(GridLayout::ClampDivider(left, limit), expected) << left;
    EXPECT_EQ(GridLayout::ClampDivider(50, 80), 80);  // too narrow for both: the pane wins
}

}  // namespace
}  // namespace lumivex
