#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "browser/ItemSelection.h"

namespace lumivex {
namespace {

// Three 100x75 items in a row at x = 5, 110, 215, y = 5.
std::vector<ItemRecord> Row() {
    std::vector<ItemRecord> items(3);
    for (int i = 0; i < 3; ++i) {
        items[i].x = 5 + 105 * i;
        items[i].y = 5;
        items[i].w = 100;
        items[i].h = 75;
    }
    return items;
}

std::set<int> SelectedOf(const std::vector<ItemRecord>& items) {
    std::set<int> out;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i].selected) out.insert(static_cast<int>(i));
    }
    return out;
}

struct Click {
    int x;
    int y;
    bool shift;
};

struct ClickCase {
    const char* name;
    std::vector<Click> clicks;
    std::set<int> selected;
    int flag;
    int cidx;
};

class ClickTest : public ::testing::TestWithParam<ClickCase> {};

TEST_P(ClickTest, SelectionAfterClicks) {
    const ClickCase& c = GetParam();
    std::vector<ItemRecord> items = Row();
    ItemSelection selection;
    int flag = -1;
    for (const Click& click : c.clicks)
        flag = selection.ItemNoGet(items, click.x, click.y, click.shift);
    EXPECT_EQ(SelectedOf(items), c.selected);
    EXPECT_EQ(flag, c.flag);
    EXPECT_EQ(selection.pCidxFlg, c.flag);
    EXPECT_EQ(selection.pCidx, c.cidx);
}

INSTANTIATE_TEST_SUITE_P(
    Pointer, ClickTest,
    ::testing::Values(
        ClickCase{"ClickSelectsOne", {{150, 40, false}}, {1}, 1, 1},
        ClickCase{"TopLeftEdgeCounts", {{5, 5, false}}, {0}, 1, 0},
        ClickCase{"BottomRightEdgeCounts", {{315, 80, false}}, {2}, 1, 2},
        ClickCase{"ClickReplaces", {{150, 40, false}, {20, 20, false}}, {0}, 1, 0},
        ClickCase{"ShiftAdds", {{20, 20, false}, {250, 40, true}}, {0, 2}, 2, 2},
        ClickCase{"ShiftNeverRemoves", {{20, 20, false}, {20, 20, true}}, {0}, 1, 0},
        // The label lies below the picture and is no target.
        ClickCase{"LabelHitsNothing", {{150, 40, false}, {150, 90, false}}, {}, 0, 0},
        ClickCase{"GroundClears", {{150, 40, false}, {107, 40, false}}, {}, 0, 0},
        ClickCase{"ShiftOnGroundKeepsSelection", {{150, 40, false}, {150, 200, true}}, {1}, 1, 0}),
    [](const auto& param) { return std::string(param.param.name); });

TEST(ItemSelectionTest, FirstItemInIndexOrderWinsOnOverlap) {
    std::vector<ItemRecord> items = Row();
    items[2].x = 60;  // overlaps items 0 and 1
    ItemSelection selection;
    selection.ItemNoGet(items, 80, 40, false);
    EXPECT_EQ(SelectedOf(items), std::set<int>{0});
    EXPECT_EQ(ItemSelection::HitIndex(items, 130, 40), 1);
    EXPECT_EQ(ItemSelection::HitIndex(items, 5, 81), -1);
}

TEST(ItemSelectionTest, ClickInsideCountsSelectedItemsOnly) {
    std::vector<ItemRecord> items = Row();
    items[1].selected = true;
    EXPECT_TRUE(ItemSelection::ItemClickInside(items, 150, 40));
    EXPECT_FALSE(ItemSelection::ItemClickInside(items, 20, 40));
    EXPECT_FALSE(ItemSelection::ItemClickInside(items, 150, 81));
}

TEST(ItemSelectionTest, SelectAllIsSeveralEvenForOneItemAndUnselectClears) {
    std::vector<ItemRecord> items(1);
    items[0].w = items[0].h = 10;
    ItemSelection selection;
    selection.pCidx = 7;
    selection.SelectAll(items);
    EXPECT_EQ(selection.pCidxFlg, 2);
    EXPECT_EQ(selection.pCidx, 7);
    EXPECT_EQ(ItemSelection::CountSelected(items), 1);
    selection.ItemUnselect(items);
    EXPECT_EQ(selection.pCidxFlg, 0);
    EXPECT_EQ(selection.pCidx, 0);
    EXPECT_EQ(ItemSelection::CountSelected(items), 0);
}

}  // namespace
}  // namespace lumivex
