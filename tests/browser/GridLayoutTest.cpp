#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "browser/GridLayout.h"
#include "browser/ItemRecord.h"

namespace lumivex {
namespace {

std::vector<ItemRecord> Sized(const std::vector<std::pair<int, int>>& sizes) {
    std::vector<ItemRecord> items;
    for (const auto& [w, h] : sizes) {
        ScanItem scanned;
        scanned.w = w;
        scanned.h = h;
        items.push_back(ItemRecord::FromScan(std::move(scanned)));
    }
    return items;
}

struct FlowCase {
    const char* name;
    int pane;
    std::vector<std::pair<int, int>> sizes;      // w, h of each item
    std::vector<std::pair<int, int>> positions;  // expected x, y
    int contentHeight;
};

class FlowTest : public ::testing::TestWithParam<FlowCase> {};

TEST_P(FlowTest, PlacesEveryItemToThePixel) {
    const FlowCase& c = GetParam();
    std::vector<ItemRecord> items = Sized(c.sizes);
    GridLayout layout;
    layout.pYmax = 999;  // left over from an earlier folder; Flow clears it
    layout.Flow(items, c.pane);
    ASSERT_EQ(items.size(), c.positions.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(items[i].x, c.positions[i].first) << "item " << i;
        EXPECT_EQ(items[i].y, c.positions[i].second) << "item " << i;
    }
    EXPECT_EQ(layout.ContentHeight(), c.contentHeight);
}

INSTANTIATE_TEST_SUITE_P(
    Grid, FlowTest,
    ::testing::Values(
        // The third item needs 215 + 100 + 5 = 320.
        FlowCase{"ThreeFitIn320",
                 320,
                 {{100, 75}, {100, 75}, {100, 75}},
                 {{5, 5}, {110, 5}, {215, 5}},
                 100},
        FlowCase{"TwoFitIn319",
                 319,
                 {{100, 75}, {100, 75}, {100, 75}},
                 {{5, 5}, {110, 5}, {5, 100}},
                 195},
        // A first item wider than the pane wraps too: one gap lower, alone in its row.
        FlowCase{"WideFirstItem", 100, {{200, 50}, {50, 40}}, {{5, 25}, {5, 95}}, 155},
        // Rows are as high as their tallest item; short ones align at the top.
        FlowCase{"RowHeightIsTallest",
                 320,
                 {{100, 50}, {100, 120}, {100, 80}, {100, 10}},
                 {{5, 5}, {110, 5}, {215, 5}, {5, 145}},
                 175},
        FlowCase{"Empty", 320, {}, {}, 25}),
    [](const auto& param) { return std::string(param.param.name); });

TEST(GridLayoutTest, ScrollRangeStartsOnePixelPastThePaneHeight) {
    std::vector<ItemRecord> items = Sized({{100, 75}});
    GridLayout layout;
    layout.Flow(items, 320);
    ASSERT_EQ(layout.ContentHeight(), 100);

    const ScrollRange fits = layout.Range(100);
    EXPECT_FALSE(fits.enabled);
    EXPECT_EQ(fits.maximum, 0);

    const ScrollRange scrolls = layout.Range(99);
    EXPECT_TRUE(scrolls.enabled);
    EXPECT_EQ(scrolls.maximum, 1);
    EXPECT_EQ(scrolls.pageStep, 99);
}

TEST(GridLayoutTest, FlowAfterANarrowerPaneWrapsAgain) {
    std::vector<ItemRecord> items = Sized({{100, 75}, {100, 60}, {100, 75}});
    GridLayout layout;
    layout.Flow(items, 320);
    ASSERT_EQ(items[2].y, 5);
    // 214 pixels hold one item a row (the second would need 215).
    layout.Flow(items, 214);
    EXPECT_EQ(items[1].x, 5);
    EXPECT_EQ(items[1].y, 100);
    EXPECT_EQ(items[2].x, 5);
    EXPECT_EQ(items[2].y, 180);  // the row of item 1 is only 60 high
    EXPECT_EQ(layout.ContentHeight(), 180 + 75 + 20);
}

TEST(GridLayoutTest, DividerKeepsBothSidesAtLeast100) {
    const int limit = GridLayout::DividerLimit(725, 15);
    EXPECT_EQ(limit, 611);
    const std::vector<std::pair<int, int>> cases{
        {50, 100}, {100, 100}, {300, 300}, {611, 611}, {700, 611}};
    for (const auto& [left, expected] : cases) {
        EXPECT_EQ(GridLayout::ClampDivider(left, limit), expected) << "left " << left;
    }
    // A window too narrow for both: the pane's minimum wins.
    EXPECT_EQ(GridLayout::ClampDivider(50, 80), 80);
}

TEST(ItemRecordTest, FromScanKeepsTheScanAndStartsUnselected) {
    ScanItem scanned;
    scanned.fname = "DSC_0001.JPG";
    scanned.path = "/media/card/DSC_0001.JPG";
    scanned.pict = Picture::Make(4, 3);
    scanned.w = 4;
    scanned.h = 3;
    scanned.rotate = 1;
    const ItemRecord item = ItemRecord::FromScan(std::move(scanned));
    EXPECT_EQ(item.fname, "DSC_0001.JPG");
    EXPECT_EQ(item.path, "/media/card/DSC_0001.JPG");
    EXPECT_EQ(item.pict.Width(), 4);
    EXPECT_EQ(item.w, 4);
    EXPECT_EQ(item.h, 3);
    EXPECT_EQ(item.rotate, 1);
    EXPECT_FALSE(item.selected);
    EXPECT_TRUE(item.ifd1);
    EXPECT_EQ(item.rot, 0);
    EXPECT_FALSE(item.compact);
}

}  // namespace
}  // namespace lumivex
