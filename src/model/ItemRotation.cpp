#include "model/ItemRotation.h"

#include <utility>

namespace lumivex {

bool ItemRotation::RotateImageL(std::vector<ItemRecord>& items, int pCidxFlg, int pCidx) {
    return Rotate(items, pCidxFlg, pCidx, true);
}

bool ItemRotation::RotateImageR(std::vector<ItemRecord>& items, int pCidxFlg, int pCidx) {
    return Rotate(items, pCidxFlg, pCidx, false);
}

bool ItemRotation::Rotate(std::vector<ItemRecord>& items, int pCidxFlg, int pCidx, bool left) {
    if (pCidxFlg == 1) {
        if (pCidx < 0 || pCidx >= static_cast<int>(items.size())) return false;
        ItemRecord& item = items[static_cast<std::size_t>(pCidx)];
        left ? RotateImageLSingle(item) : RotateImageRSingle(item);
        return true;
    }
    if (pCidxFlg == 2) {
        left ? RotateImageLMulti(items) : RotateImageRMulti(items);
        return true;
    }
    return false;
}

void ItemRotation::RotateImageLMulti(std::vector<ItemRecord>& items) {
    for (auto& item : items)
        if (item.selected) RotateImageLSingle(item);
}

void ItemRotation::RotateImageRMulti(std::vector<ItemRecord>& items) {
    for (auto& item : items)
        if (item.selected) RotateImageRSingle(item);
}

void ItemRotation::RotateImageLSingle(ItemRecord& item) {
    Turn(item, -1);
}

void ItemRotation::RotateImageRSingle(ItemRecord& item) {
    Turn(item, +1);
}

void ItemRotation::Turn(ItemRecord& item, int delta) {
    if (item.thumb.IsNull()) return;
    item.rot = RotateImageCnt(item.rot, delta);
    std::swap(item.w, item.h);
}

int ItemRotation::RotateImageCnt(int value, int delta) {
    int v = value + delta;
    if (v > 3) v = 0;
    if (v < 0) v = 3;
    return v;
}

}  // namespace lumivex
