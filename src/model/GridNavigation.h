#pragma once
// Where the keys of the thumbnail grid move the current item, over the positions the layout
// gave the items, and how far the view scrolls to show it. Rows hold different numbers of
// items of different widths, so a move up or down picks by horizontal position. Qt-free.
#include <vector>

#include "model/GridLayout.h"
#include "model/ItemRecord.h"
#include "model/ItemSelection.h"

namespace lumivex {

enum class GridKey { Left, Right, Up, Down, PageUp, PageDown, Home, End };

class GridNavigation {
  public:
    // The item `key` makes current, from the selection's pCidx. Left and Right step in index
    // order, which is the grid's flow; Up and Down go to the previous or next row, to the item
    // whose horizontal centre is nearest; Page Up and Page Down go as many rows as fit in
    // `paneHeight`; Home and End to the first and the last item. When nothing is selected a
    // step selects the current item where it stands, as in file managers. -1 when the key
    // changes nothing: no items, or a step past an end of the grid.
    static int Target(const std::vector<ItemRecord>& items, const ItemSelection& selection,
                      GridKey key, int paneHeight);
    // The scroll position that shows `item` whole, with its label and the margins round it,
    // moving as little as it can from `scrollY`; an item taller than the pane shows its top.
    static int ScrollToShow(const ItemRecord& item, const GridLayout& layout, int scrollY,
                            int paneHeight);

  private:
    static int Step(const std::vector<ItemRecord>& items, int current, GridKey key, int paneHeight);
    // The first item of the row `rows` rows away from the row of `current` (negative: above),
    // stopping at the first and the last row; -1 when already there.
    static int RowAway(const std::vector<ItemRecord>& items, int current, int rows);
    // The first row up or down from `current` whose top lies within `paneHeight` of its top,
    // at least one row away; -1 when there is none.
    static int PageAway(const std::vector<ItemRecord>& items, int current, int paneHeight,
                        bool down);
    // From the row that starts at `first`, the item horizontally nearest to `current`.
    static int NearestInRow(const std::vector<ItemRecord>& items, int first, int current);
};

}  // namespace lumivex
