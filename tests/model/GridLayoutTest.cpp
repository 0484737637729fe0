#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "model/GridLayout.h"

namespace lumivex {
namespace {

using Pairs = std::vector<std::pair<int, int>>;

struct FlowCase {
    int pane;
    Pairs sizes;      // w, h of each item
    Pairs positions;  // expected x, y
    int contentHeight;
};

class FlowTest : public ::testing::TestWithParam<FlowCase> {};

TEST_P(FlowTest, PlacesEveryItemToThePixel) {
    const FlowCase& c = GetParam();
    std::vector<ItemRecord> items(c.sizes.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        items[i].w = c.sizes[i].first;
        items[i].h = c.sizes[i].second;
    }
    GridLayout layout;
    layout.Flow(items, 999);  // an earlier, wider pane: Flow starts afresh
    layout.Flow(items, c.pane);
    for (std::size_t i = 0; i < items.size(); ++i)
        EXPECT_EQ(std::make_pair(items[i].x, items[i].y), c.positions[i]) << "item " << i;
    EXPECT_EQ(layout.ContentHeight(), c.contentHeight);
}

INSTANTIATE_TEST_SUITE_P(
    Grid, FlowTest,
    ::testing::Values(
        // The third item needs 215 + 100 + 5 = 320 with the right gap.
        FlowCase{320, {{100, 75}, {100, 75}, {100, 75}}, {{5, 5}, {110, 5}, {215, 5}}, 100},
        FlowCase{319, {{100, 75}, {100, 75}, {100, 75}}, {{5, 5}, {110, 5}, {5, 100}}, 195},
        // A first item wider than the pane wraps too: one gap lower, alone in its row.
        FlowCase{100, {{200, 50}, {50, 40}}, {{5, 25}, {5, 95}}, 155},
        // Rows are as high as their tallest item, each row on its own.
        FlowCase{320,
                 {{100, 50}, {100, 120}, {100, 80}, {100, 10}},
                 {{5, 5}, {110, 5}, {215, 5}, {5, 145}},
                 175},
        FlowCase{214, {{100, 75}, {100, 60}, {100, 75}}, {{5, 5}, {5, 100}, {5, 180}}, 275},
        FlowCase{320, {}, {}, 25}),
    // Names from the case's content, so that a test's name is the same in every run.
    [](const ::testing::TestParamInfo<FlowCase>& flow) {
        return "case" + std::to_string(flow.index) + "_pane" + std::to_string(flow.param.pane);
    });

TEST(GridLayoutTest, ScrollRangeAndDivider) {
    std::vector<ItemRecord> items(1);
    items[0].w = 100;
    items[0].h = 75;
    GridLayout layout;
    layout.Flow(items, 320);  // content height 100
    const ScrollRange fits = layout.Range(100);
    EXPECT_FALSE(fits.enabled);
    EXPECT_EQ(fits.maximum, 0);
    const ScrollRange scrolls = layout.Range(99);
    EXPECT_TRUE(scrolls.enabled);
    EXPECT_EQ(scrolls.maximum, 1);
    EXPECT_EQ(scrolls.pageStep, 99);

    const int limit = GridLayout::DividerLimit(725, 15);
    EXPECT_EQ(limit, 611);
    for (const auto& [left, expected] : Pairs{{50, 100}, {300, 300}, {611, 611}, {700, 611}})
        EXPECT_EQ(GridLayout::ClampDivider(left, limit), expected) << left;
    EXPECT_EQ(GridLayout::ClampDivider(50, 80), 80);  // too narrow for both: the pane wins
}

}  // namespace
}  // namespace lumivex
