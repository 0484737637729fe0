#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "model/ItemSelection.h"

namespace lumivex {
namespace {

struct Click {
    int x, y;
    bool shift;
};

struct ClickCase {
    std::vector<Click> clicks;
    std::set<std::size_t> selected;
    int flag;
    int cidx;
};

// Three 100x75 items at x = 5, 110, 215, y = 5; item 2 moved left over item 1 when asked.
std::vector<ItemRecord> Row(bool overlap) {
    std::vector<ItemRecord> items(3);
    for (int i = 0; i < 3; ++i) {
        items[i].w = 100;
        items[i].h = 75;
        items[i].x = 5 + 105 * i;
        items[i].y = 5;
    }
    if (overlap) items[2].x = 150;
    return items;
}

void Check(const ClickCase& c, bool overlap) {
    std::vector<ItemRecord> items = Row(overlap);
    ItemSelection selection;
    int flag = -1;
    for (const Click& k : c.clicks)
        flag = selection.ItemNoGet(items, k.x, k.y, k.shift);
    std::set<std::size_t> selected;
    for (std::size_t i = 0; i < items.size(); ++i)
        if (items[i].selected) selected.insert(i);
    EXPECT_EQ(selected, c.selected);
    EXPECT_EQ(flag, c.flag);
    EXPECT_EQ(selection.pCidxFlg, c.flag);
    EXPECT_EQ(selection.pCidx, c.cidx);
}

TEST(ItemSelectionTest, ClicksAndShiftClicks) {
    const std::vector<ClickCase> cases{
        {{{150, 40, false}}, {1}, 1, 1},
        {{{5, 5, false}}, {0}, 1, 0},     // edges included
        {{{315, 80, false}}, {2}, 1, 2},  // the far corner too
        {{{150, 40, false}, {20, 20, false}}, {0}, 1, 0},
        {{{20, 20, false}, {250, 40, true}}, {0, 2}, 2, 2},  // shift adds
        {{{20, 20, false}, {20, 20, true}}, {0}, 1, 0},      // and never removes
        {{{150, 40, false}, {150, 90, false}}, {}, 0, 0},    // the label is no target
        {{{150, 40, false}, {150, 200, true}}, {1}, 1, 0},   // shift on the ground
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        Check(cases[i], false);
    }
    SCOPED_TRACE("overlap");
    Check({{{160, 40, false}}, {1}, 1, 1}, true);  // the first in index order wins
}

TEST(ItemSelectionTest, ClickInsideSelectAllAndUnselect) {
    std::vector<ItemRecord> items = Row(false);
    items[1].selected = true;
    EXPECT_TRUE(ItemSelection::ItemClickInside(items, 150, 40));
    EXPECT_FALSE(ItemSelection::ItemClickInside(items, 20, 40));
    ItemSelection selection;
    selection.pCidx = 1;
    items.resize(1);
    selection.SelectAll(items);  // several, even for one item; pCidx kept
    EXPECT_EQ(selection.pCidxFlg, 2);
    EXPECT_EQ(selection.pCidx, 1);
    selection.ItemUnselect(items);
    EXPECT_EQ(ItemSelection::CountSelected(items), 0);
    EXPECT_EQ(selection.pCidxFlg + selection.pCidx, 0);
}

}  // namespace
}  // namespace lumivex
