#include "browser/GridItemAccessible.h"

#include "browser/GridAccessible.h"
#include "browser/ThumbnailCanvas.h"

namespace lumivex {

bool GridItemAccessible::isValid() const {
    return list_->isValid() && index_ < list_->childCount();
}

QWindow* GridItemAccessible::window() const {
    return list_->window();
}

QAccessibleInterface* GridItemAccessible::parent() const {
    return list_;
}

QString GridItemAccessible::text(QAccessible::Text t) const {
    if (t != QAccessible::Name || !isValid()) return {};
    return QString::fromStdString(list_->Canvas()->Items()[static_cast<std::size_t>(index_)].fname);
}

QRect GridItemAccessible::rect() const {
    if (!isValid()) return {};
    const ThumbnailCanvas* canvas = list_->Canvas();
    const ItemRecord& item = canvas->Items()[static_cast<std::size_t>(index_)];
    return QRect(canvas->mapToGlobal(QPoint(item.x, item.y - canvas->ScrollY())),
                 QSize(item.w, item.h));
}

QAccessible::State GridItemAccessible::state() const {
    QAccessible::State s;
    if (!isValid()) {
        s.invalid = true;
        return s;
    }
    const ThumbnailCanvas* canvas = list_->Canvas();
    s.selectable = true;
    s.focusable = true;
    s.selected = canvas->Items()[static_cast<std::size_t>(index_)].selected;
    s.focused = canvas->hasFocus() && canvas->Current() == index_;
    s.offscreen = !canvas->rect().intersects(rect().translated(-canvas->mapToGlobal(QPoint())));
    s.invisible = !canvas->isVisible();
    return s;
}

}  // namespace lumivex
