#include "model/GridLayout.h"

namespace lumivex {

void GridLayout::InitCanvas() {
    pDifX = 5;
    pDifY = 20;
    pXpos = 5;
    pYpos = 5;
    pFsize = 12;
}

void GridLayout::SetItemPos(ItemRecord& item, int width) {
    // The right gap counts: an item that would touch the pane's edge starts a new row. The
    // first item takes the same test, so one wider than the pane sits a gap lower.
    if (width < item.w + pXpos + pDifX) {
        pXpos = pDifX;
        pYpos = pYpos + pYmax + pDifY;
        pYmax = 0;
    }
    item.x = pXpos;
    item.y = pYpos;
    if (pYmax < item.h) pYmax = item.h;
    pXpos = pXpos + item.w + pDifX;
}

void GridLayout::Flow(std::vector<ItemRecord>& items, int width) {
    InitCanvas();
    pYmax = 0;
    for (ItemRecord& item : items)
        SetItemPos(item, width);
}

ScrollRange GridLayout::Range(int paneHeight) const {
    const int total = ContentHeight();
    if (total <= paneHeight) return ScrollRange{};
    return ScrollRange{true, total - paneHeight, paneHeight};
}

int GridLayout::ClampDivider(int left, int limit) {
    if (left < kMinSide) left = kMinSide;
    if (left > limit) left = limit;
    return left;
}

}  // namespace lumivex
