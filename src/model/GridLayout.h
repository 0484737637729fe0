#pragma once
// The flow layout of the thumbnail grid: items keep their own sizes and flow left to right
// into rows like words into lines. Qt-free arithmetic; the scan controller owns one.
#include <vector>

#include "model/ItemRecord.h"

namespace lumivex {

// What the vertical scroll bar shows for a content height in a pane height.
struct ScrollRange {
    bool enabled = false;
    int maximum = 0;   // content height - pane height when scrolling, else 0
    int pageStep = 0;  // the pane height when scrolling
};

class GridLayout {
  public:
    // InitCanvas: the cursors back to the top left; pYmax is left as it is (the callers clear it).
    void InitCanvas();
    // SetItemPos: places one item in a pane `width` pixels wide and moves the cursors on.
    void SetItemPos(ItemRecord& item, int width);
    // InitCanvas, pYmax = 0, then SetItemPos for every item in order (the loop of ResizeTBC).
    void Flow(std::vector<ItemRecord>& items, int width);
    // The bottom of the last row plus the room of its labels: pYpos + pYmax + pDifY.
    int ContentHeight() const { return pYpos + pYmax + pDifY; }
    // The scroll bar of InitOffScreen for a pane `paneHeight` pixels high.
    ScrollRange Range(int paneHeight) const;

    // The divider rule of ResizeSeparatePos: a `left` below kMinSide becomes kMinSide, then
    // one above `limit` becomes `limit`, so in a window too narrow for both the pane wins.
    static int ClampDivider(int left, int limit);
    // That limit: the pane keeps kMinSide pixels beside its scroll bar, which overlaps the
    // canvas by one pixel.
    static int DividerLimit(int windowWidth, int scrollBarWidth) {
        return windowWidth - scrollBarWidth + 1 - kMinSide;
    }
    static constexpr int kMinSide = 100;
    // The label's margin on each side of its cell; a label that does not fit between them is
    // drawn cut short.
    static constexpr int kLabelInset = 4;
    static bool LabelCut(const ItemRecord& item) {
        return item.labelWidth >= item.w - 2 * kLabelInset;
    }

    int pDifX = 5;    // gap between items and the left margin after a wrap
    int pDifY = 20;   // gap between rows; the labels lie in it
    int pXpos = 5;    // left edge of the next item
    int pYpos = 5;    // top edge of the current row
    int pYmax = 0;    // height of the tallest item in the current row
    int pFsize = 12;  // label font size in pixels
};

}  // namespace lumivex
