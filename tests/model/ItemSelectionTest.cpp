#include <gtest/gtest.h>

#include <set>
#include <tuple>
#include <vector>

#include "model/ItemSelection.h"

namespace lumivex {
namespace {

using Click = std::tuple<int, int, bool>;  // x, y, shift

// Three 100x75 items at x = 5, 110, 215, y = 5.
std::vector<ItemRecord> Row() {
    std::vector<ItemRecord> items(3);
    for (int i = 0; i < 3; ++i)
        std::tie(items[i].x, items[i].y, items[i].w, items[i].h) =
            std::make_tuple(5 + 105 * i, 5, 100, 75);
    return items;
}

TEST(ItemSelectionTest, ClicksAndShiftClicks) {
    const struct {
        std::vector<Click> clicks;
        std::set<std::size_t> selected;
        int flag, cidx;
        int item2x = 215;
    } cases[] = {
        {{{150, 40, false}}, {1}, 1, 1},
        {{{5, 5, false}}, {0}, 1, 0},     // edges included
        {{{315, 80, false}}, {2}, 1, 2},  // the far corner too
        {{{150, 40, false}, {20, 20, false}}, {0}, 1, 0},
        {{{20, 20, false}, {250, 40, true}}, {0, 2}, 2, 2},  // shift adds
        {{{20, 20, false}, {20, 20, true}}, {0}, 1, 0},      // and never removes
        {{{150, 40, false}, {150, 90, false}}, {}, 0, 0},    // the label is no target
        {{{150, 40, false}, {150, 200, true}}, {1}, 1, 0},   // shift on the ground
        {{{160, 40, false}}, {1}, 1, 1, 150},  // over two: the first in index order wins
    };
    for (const auto& c : cases) {
        std::vector<ItemRecord> items = Row();
        items[2].x = c.item2x;
        ItemSelection selection;
        int flag = -1;
        for (const auto& [x, y, shift] : c.clicks)
            flag = selection.ItemNoGet(items, x, y, shift);
        std::set<std::size_t> selected;
        for (std::size_t i = 0; i < items.size(); ++i)
            if (items[i].selected) selected.insert(i);
        EXPECT_EQ(selected, c.selected) << std::get<0>(c.clicks.back());
        EXPECT_EQ(std::tie(flag, selection.pCidxFlg, selection.pCidx),
                  std::make_tuple(c.flag, c.flag, c.cidx))
            << std::get<0>(c.clicks.back());
    }
}

TEST(ItemSelectionTest, ClickInsideSelectAllAndUnselect) {
    std::vector<ItemRecord> items = Row();
    items[1].selected = true;
    EXPECT_TRUE(ItemSelection::ItemClickInside(items, 150, 40));
    EXPECT_FALSE(ItemSelection::ItemClickInside(items, 20, 40));
    ItemSelection selection;
    selection.pCidx = 1;
    items.resize(1);
    selection.SelectAll(items);  // several, even for one item; pCidx kept
    EXPECT_EQ(std::tie(selection.pCidxFlg, selection.pCidx), std::make_tuple(2, 1));
    selection.ItemUnselect(items);
    EXPECT_EQ(ItemSelection::CountSelected(items) + selection.pCidxFlg + selection.pCidx, 0);
}

}  // namespace
}  // namespace lumivex
