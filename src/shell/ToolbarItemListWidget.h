#pragma once
// One of the two lists of the toolbar customisation dialog. Items are dragged as their
// identifier with the list and row they came from; a drop does not change the list itself
// but tells the dialog what was dropped where, and the dialog applies the rules of
// ToolbarItemList and fills the lists again.
#include <QListWidget>
#include <QString>

namespace lumivex {

class ToolbarItemListWidget : public QListWidget {
    Q_OBJECT

  public:
    static constexpr int kIdentifierRole = Qt::UserRole;
    static const QString kMimeType;

    // `name` tells the lists apart in the dragged data.
    ToolbarItemListWidget(const QString& name, QWidget* parent = nullptr);

  signals:
    // An item of list `from` (its row there) was dropped before row `at` of this list.
    void ItemDropped(const QString& from, int row, const QString& identifier, int at);

  protected:
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QList<QListWidgetItem*>& items) const override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    int DropRow(const QPoint& pos) const;
};

}  // namespace lumivex
