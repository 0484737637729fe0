#include <gtest/gtest.h>

#include <set>
#include <tuple>
#include <utility>
#include <vector>

#include "model/GridLayout.h"
#include "model/GridNavigation.h"

namespace lumivex {
namespace {

using K = GridKey;

// Eleven items of mixed sizes flowed into a pane 330 wide; horizontal centres in brackets:
//   row y=5:   0 (55)  1 (170)  2 (275)
//   row y=115: 3 (85)  4 (245)
//   row y=255: 5 (35)  6 (100)  7 (165)  8 (230)  9 (295)
//   row y=320: 10 (55)
std::vector<ItemRecord> Grid(GridLayout& layout) {
    const std::pair<int, int> sizes[] = {{100, 75},  {120, 90}, {80, 60}, {160, 120},
                                         {150, 100}, {60, 45},  {60, 45}, {60, 45},
                                         {60, 45},   {60, 45},  {100, 75}};
    std::vector<ItemRecord> items;
    for (const auto& [w, h] : sizes) {
        items.emplace_back();
        std::tie(items.back().w, items.back().h) = std::tie(w, h);
    }
    layout.Flow(items, 330);
    return items;
}

TEST(GridNavigationTest, KeysMoveTheCurrentItemAndShiftAdds) {
    const struct {
        int start;  // selected by a key without shift first; -1: nothing selected, pCidx 4
        std::vector<std::pair<K, bool>> keys;
        int pane, current;
        std::set<int> selected;
    } cases[] = {
        {2, {{K::Right, false}}, 200, 3, {3}},  // the end of a row goes on to the next
        {1, {{K::Down, false}}, 200, 4, {4}},
        {2, {{K::Down, false}}, 200, 4, {4}},  // to a shorter row: its nearest, here its last
        {9, {{K::Down, false}}, 200, 10, {10}},
        {7, {{K::Up, false}}, 200, 3, {3}},  // equally near: the first
        {0, {{K::PageDown, false}}, 260, 5, {5}},
        {0, {{K::PageDown, false}}, 50, 3, {3}},  // at least a row
        {10, {{K::PageUp, false}}, 260, 3, {3}},
        {0, {{K::End, false}}, 200, 10, {10}},
        {-1, {{K::Right, false}}, 200, 4, {4}},  // nothing selected: the current item first
        {2, {{K::Down, true}}, 200, 4, {2, 3, 4}},
        {2, {{K::Down, true}, {K::Left, true}}, 200, 3, {2, 3, 4}},  // never removes
        {2, {{K::Down, true}, {K::Right, false}}, 200, 5, {5}},
        {5, {{K::Home, true}}, 200, 0, {0, 1, 2, 3, 4, 5}},
    };
    for (const auto& c : cases) {
        GridLayout layout;
        std::vector<ItemRecord> items = Grid(layout);
        ItemSelection selection;
        selection.pCidx = 4;
        if (c.start >= 0) selection.KeyMoveTo(items, c.start, false);
        for (const auto& [key, shift] : c.keys) {
            const int to = GridNavigation::Target(items, selection, key, c.pane);
            if (to >= 0) selection.KeyMoveTo(items, to, shift);
        }
        std::set<int> selected;
        for (int i = 0; i < static_cast<int>(items.size()); ++i)
            if (items[static_cast<std::size_t>(i)].selected) selected.insert(i);
        const int flag = c.selected.size() > 1 ? 2 : 1;
        EXPECT_EQ(std::tie(selection.pCidx, selection.pCidxFlg, selected),
                  std::tie(c.current, flag, c.selected))
            << "from " << c.start << ", " << c.keys.size() << " keys, last "
            << static_cast<int>(c.keys.back().first);
    }
    EXPECT_EQ(GridNavigation::Target({}, ItemSelection{}, K::End, 200), -1);
}

TEST(GridNavigationTest, TheViewScrollsJustEnoughToShowTheItemAndItsLabel) {
    GridLayout layout;
    const std::vector<ItemRecord> items = Grid(layout);
    const struct {
        int item, scrollY, pane, want;
    } cases[] = {
        {0, 0, 200, 0},       // in sight
        {3, 0, 200, 55},      // below: its bottom 115+120+20 at the pane's bottom
        {3, 200, 200, 110},   // above: its top with the margin
        {3, 0, 100, 110},     // taller than the pane: its top
        {10, 150, 200, 215},  // 320+75+20-200
    };
    for (const auto& c : cases)
        EXPECT_EQ(GridNavigation::ScrollToShow(items[static_cast<std::size_t>(c.item)], layout,
                                               c.scrollY, c.pane),
                  c.want)
            << c.item << " at " << c.scrollY;
}

}  // namespace
}  // namespace lumivex
