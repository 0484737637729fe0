#include "model/ItemSelection.h"

#include <algorithm>

namespace lumivex {
namespace {

// The picture's rectangle, edges included; the label below it does not count.
bool Holds(const ItemRecord& item, int px, int py) {
    return item.x <= px && px <= item.x + item.w && item.y <= py && py <= item.y + item.h;
}

int FlagOf(int count) {
    return count == 0 ? 0 : (count == 1 ? 1 : 2);
}

}  // namespace

int ItemSelection::HitIndex(const std::vector<ItemRecord>& items, int px, int py) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (Holds(items[i], px, py)) return static_cast<int>(i);
    }
    return -1;
}

int ItemSelection::CountSelected(const std::vector<ItemRecord>& items) {
    int count = 0;
    for (const ItemRecord& item : items)
        count += item.selected ? 1 : 0;
    return count;
}

int ItemSelection::ItemNoGet(std::vector<ItemRecord>& items, int px, int py, bool shift) {
    // With shift a click on the ground leaves the selection but still forgets the last hit.
    pCidx = 0;
    bool hit = false;
    for (std::size_t i = 0; i < items.size(); ++i) {
        ItemRecord& item = items[i];
        if (!shift) item.selected = false;
        if (!hit && Holds(item, px, py)) {
            pCidx = static_cast<int>(i);
            item.selected = true;
            hit = true;
            anchor_ = pCidx;
        }
    }
    pCidxFlg = FlagOf(CountSelected(items));
    return pCidxFlg;
}

bool ItemSelection::ItemClickInside(const std::vector<ItemRecord>& items, int px, int py) {
    for (const ItemRecord& item : items) {
        if (item.selected && Holds(item, px, py)) return true;
    }
    return false;
}

void ItemSelection::ItemUnselect(std::vector<ItemRecord>& items) {
    for (ItemRecord& item : items)
        item.selected = false;
    pCidx = 0;
    pCidxFlg = 0;
    anchor_ = 0;
}

void ItemSelection::SelectAll(std::vector<ItemRecord>& items) {
    // State 2 even for a single item: the commands of a full selection are those of several.
    for (ItemRecord& item : items)
        item.selected = true;
    pCidxFlg = 2;
}

int ItemSelection::KeyMoveTo(std::vector<ItemRecord>& items, int index, bool shift) {
    const int last = static_cast<int>(items.size()) - 1;
    if (index < 0 || index > last) return pCidxFlg;
    if (!shift) {
        for (ItemRecord& item : items)
            item.selected = false;
        anchor_ = index;
    }
    // The anchor may name an item of a longer list that is gone.
    const int from = std::min(anchor_, last);
    for (int i = std::min(from, index); i <= std::max(from, index); ++i)
        items[static_cast<std::size_t>(i)].selected = true;
    pCidx = index;
    pCidxFlg = FlagOf(CountSelected(items));
    return pCidxFlg;
}

}  // namespace lumivex
