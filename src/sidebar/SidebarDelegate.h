#pragma once
// Draws one sidebar row, 19 pixels high: the group row as small grey text; an item row as its
// icon and name, the name in the folder colour when the folder holds pictures.
#include <QColor>
#include <QFont>
#include <QStyledItemDelegate>

namespace lumivex {

class SidebarDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    static constexpr int kRowHeight = 19;
    static constexpr int kIconBox = 19;   // the icon's square, at the row's left
    static constexpr int kIconSize = 16;  // the picture inside it
    static constexpr int kTextLeft = 24;  // where the name starts
    static constexpr int kGroupTextSize = 10;
    static constexpr int kItemTextSize = 12;
    static const QColor kGroupColor;
    static const QColor kPlainColor;

    explicit SidebarDelegate(QObject* parent = nullptr);

    void SetFolderColor(const QColor& color) { folderColor_ = color; }
    QColor FolderColor() const { return folderColor_; }
    // The font of a row's text at `pixelSize`.
    static QFont RowFont(int pixelSize);
    // The colour a row's text is drawn in.
    QColor TextColor(const QModelIndex& index) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  private:
    void PaintText(QPainter* painter, const QRect& rect, const QString& text, int pixelSize,
                   const QColor& color) const;

    QColor folderColor_{0, 0, 255};
};

}  // namespace lumivex
