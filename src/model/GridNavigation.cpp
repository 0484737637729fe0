#include "model/GridNavigation.h"

#include <algorithm>
#include <cstdlib>

namespace lumivex {
namespace {

using Items = std::vector<ItemRecord>;

// The items of a row share their top, and a later row always starts lower.
int RowFirst(const Items& items, int i) {
    while (i > 0 && items[i - 1].y == items[i].y)
        --i;
    return i;
}

int RowLast(const Items& items, int i) {
    const int last = static_cast<int>(items.size()) - 1;
    while (i < last && items[i + 1].y == items[i].y)
        ++i;
    return i;
}

// Twice the horizontal centre, to stay in whole numbers.
int Centre2(const ItemRecord& item) {
    return 2 * item.x + item.w;
}

}  // namespace

int GridNavigation::Target(const Items& items, const ItemSelection& selection, GridKey key,
                           int paneHeight) {
    if (items.empty()) return -1;
    const int last = static_cast<int>(items.size()) - 1;
    if (key == GridKey::Home) return 0;
    if (key == GridKey::End) return last;
    const int current = std::clamp(selection.pCidx, 0, last);
    if (selection.pCidxFlg == 0) return current;
    return Step(items, current, key, paneHeight);
}

int GridNavigation::Step(const Items& items, int current, GridKey key, int paneHeight) {
    const int last = static_cast<int>(items.size()) - 1;
    int first = -1;
    switch (key) {
        case GridKey::Left:
            return current > 0 ? current - 1 : -1;
        case GridKey::Right:
            return current < last ? current + 1 : -1;
        case GridKey::Up:
            first = RowAway(items, current, -1);
            break;
        case GridKey::Down:
            first = RowAway(items, current, 1);
            break;
        case GridKey::PageUp:
        case GridKey::PageDown:
            first = PageAway(items, current, paneHeight, key == GridKey::PageDown);
            break;
        case GridKey::Home:
        case GridKey::End:
            break;
    }
    return first < 0 ? -1 : NearestInRow(items, first, current);
}

int GridNavigation::RowAway(const Items& items, int current, int rows) {
    const int last = static_cast<int>(items.size()) - 1;
    int first = RowFirst(items, current);
    const int start = first;
    for (; rows < 0 && first > 0; ++rows)
        first = RowFirst(items, first - 1);
    for (; rows > 0 && RowLast(items, first) < last; --rows)
        first = RowLast(items, first) + 1;
    return first == start ? -1 : first;
}

int GridNavigation::PageAway(const Items& items, int current, int paneHeight, bool down) {
    const int top = items[current].y;
    int first = RowAway(items, current, down ? 1 : -1);
    if (first < 0) return -1;
    // Further while the next row's top is still within a pane's height of the start.
    for (int next = RowAway(items, first, down ? 1 : -1);
         next >= 0 && std::abs(items[next].y - top) <= paneHeight;
         next = RowAway(items, first, down ? 1 : -1))
        first = next;
    return first;
}

int GridNavigation::NearestInRow(const Items& items, int first, int current) {
    const int centre = Centre2(items[current]);
    int best = first;
    for (int i = first; i <= RowLast(items, first); ++i) {
        if (std::abs(Centre2(items[i]) - centre) < std::abs(Centre2(items[best]) - centre))
            best = i;
    }
    return best;
}

int GridNavigation::ScrollToShow(const ItemRecord& item, const GridLayout& layout, int scrollY,
                                 int paneHeight) {
    // The margin above a row and the gap below it, where its labels lie.
    const int top = item.y - layout.pDifX;
    const int bottom = item.y + item.h + layout.pDifY;
    if (top < scrollY) return std::max(top, 0);
    if (bottom > scrollY + paneHeight) return std::min(bottom - paneHeight, top);
    return scrollY;
}

}  // namespace lumivex
