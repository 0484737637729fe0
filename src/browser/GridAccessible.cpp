#include "browser/GridAccessible.h"

#include "browser/GridItemAccessible.h"
#include "browser/ThumbnailCanvas.h"
#include "model/ItemSelection.h"

namespace lumivex {
namespace {

QAccessibleInterface* Factory(const QString& className, QObject* object) {
    if (className != QLatin1String(ThumbnailCanvas::staticMetaObject.className())) return nullptr;
    auto* canvas = qobject_cast<ThumbnailCanvas*>(object);
    return canvas != nullptr ? new GridAccessible(canvas) : nullptr;
}

}  // namespace

GridAccessible::GridAccessible(ThumbnailCanvas* canvas)
    : QAccessibleWidget(canvas, QAccessible::List) {}

GridAccessible::~GridAccessible() {
    for (QAccessible::Id id : children_)
        if (id != 0) QAccessible::deleteAccessibleInterface(id);
}

void GridAccessible::Install() {
    static const bool installed = (QAccessible::installFactory(Factory), true);
    (void)installed;
}

void GridAccessible::AnnounceFocus(ThumbnailCanvas* canvas, int index) {
    if (index < 0) return;
    QAccessibleEvent event(canvas, QAccessible::Focus);
    event.setChild(index);
    QAccessible::updateAccessibility(&event);
}

ThumbnailCanvas* GridAccessible::Canvas() const {
    return static_cast<ThumbnailCanvas*>(widget());
}

int GridAccessible::childCount() const {
    return static_cast<int>(Canvas()->Items().size());
}

QAccessibleInterface* GridAccessible::child(int index) const {
    if (index < 0 || index >= childCount()) return nullptr;
    const auto i = static_cast<std::size_t>(index);
    if (children_.size() <= i) children_.resize(i + 1, 0);
    if (children_[i] == 0) {
        auto* self = const_cast<GridAccessible*>(this);
        children_[i] =
            QAccessible::registerAccessibleInterface(new GridItemAccessible(self, index));
    }
    return QAccessible::accessibleInterface(children_[i]);
}

int GridAccessible::indexOfChild(const QAccessibleInterface* child) const {
    if (child == nullptr || child->role() != QAccessible::ListItem || child->parent() != this)
        return -1;
    return static_cast<const GridItemAccessible*>(child)->Index();
}

QAccessibleInterface* GridAccessible::childAt(int x, int y) const {
    const QPoint at = Canvas()->mapFromGlobal(QPoint(x, y));
    return child(ItemSelection::HitIndex(Canvas()->Items(), at.x(), at.y() + Canvas()->ScrollY()));
}

QAccessibleInterface* GridAccessible::focusChild() const {
    return Canvas()->hasFocus() ? child(Canvas()->Current()) : nullptr;
}

}  // namespace lumivex
