#include "shell/ToolbarItemListWidget.h"

#include <QDropEvent>
#include <QMimeData>

namespace lumivex {

const QString ToolbarItemListWidget::kMimeType =
    QStringLiteral("application/x-lumivex-toolbar-item");

ToolbarItemListWidget::ToolbarItemListWidget(const QString& name, QWidget* parent)
    : QListWidget(parent) {
    setObjectName(name);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(true);
    setDragDropMode(QAbstractItemView::DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setIconSize(QSize(24, 24));
}

QStringList ToolbarItemListWidget::mimeTypes() const {
    return {kMimeType};
}

QMimeData* ToolbarItemListWidget::mimeData(const QList<QListWidgetItem*>& items) const {
    if (items.isEmpty()) return nullptr;
    auto* mime = new QMimeData;
    const QListWidgetItem* item = items.first();
    const QStringList parts = {objectName(), QString::number(row(item)),
                               item->data(kIdentifierRole).toString()};
    mime->setData(kMimeType, parts.join('\n').toUtf8());
    return mime;
}

void ToolbarItemListWidget::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasFormat(kMimeType)) event->acceptProposedAction();
}

void ToolbarItemListWidget::dragMoveEvent(QDragMoveEvent* event) {
    // Qt's own handling draws the drop indicator; the drop itself is ours.
    QListWidget::dragMoveEvent(event);
    if (event->mimeData()->hasFormat(kMimeType)) event->acceptProposedAction();
}

void ToolbarItemListWidget::dropEvent(QDropEvent* event) {
    const QStringList parts = QString::fromUtf8(event->mimeData()->data(kMimeType)).split('\n');
    if (parts.size() != 3) return;
    // Not Qt's move: the source list must not take the row away itself.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    emit ItemDropped(parts[0], parts[1].toInt(), parts[2], DropRow(event->position().toPoint()));
}

int ToolbarItemListWidget::DropRow(const QPoint& pos) const {
    const QModelIndex index = indexAt(pos);
    if (!index.isValid()) return count();
    const QRect rect = visualRect(index);
    return pos.y() > rect.center().y() ? index.row() + 1 : index.row();
}

}  // namespace lumivex
