#pragma once
// The thumbnail selection: the "selected" flag of each item is the truth, and pCidxFlg (0
// none, 1 one, 2 several) and pCidx (the item the last click hit) sum it up. Qt-free.
#include <vector>

#include "model/ItemRecord.h"

namespace lumivex {

class ItemSelection {
  public:
    // The first item whose picture rectangle (edges included) holds the point; -1 for none.
    static int HitIndex(const std::vector<ItemRecord>& items, int px, int py);
    static int CountSelected(const std::vector<ItemRecord>& items);

    // A click at content point (px, py): without shift every item is deselected first; the
    // first item hit becomes selected and pCidx. Returns and stores pCidxFlg.
    int ItemNoGet(std::vector<ItemRecord>& items, int px, int py, bool shift);
    // True when a selected item holds the point.
    static bool ItemClickInside(const std::vector<ItemRecord>& items, int px, int py);
    // Everything deselected; pCidx = 0, pCidxFlg = 0.
    void ItemUnselect(std::vector<ItemRecord>& items);
    // Everything selected; pCidxFlg = 2; pCidx untouched.
    void SelectAll(std::vector<ItemRecord>& items);
    // A key made item `index` current: without shift it alone is selected, as by a click on
    // it; with shift the items from the anchor to it are added, none removed. Returns and
    // stores pCidxFlg.
    int KeyMoveTo(std::vector<ItemRecord>& items, int index, bool shift);

    int pCidxFlg = 0;
    int pCidx = 0;

  private:
    // Where a range added with shift and a key starts: the item last clicked, or reached by a
    // key without shift.
    int anchor_ = 0;
};

}  // namespace lumivex
