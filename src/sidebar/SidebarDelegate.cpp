#include "sidebar/SidebarDelegate.h"

#include <QApplication>
#include <QPainter>

#include "sidebar/SidebarIcons.h"
#include "sidebar/SidebarModel.h"

namespace lumivex {

const QColor SidebarDelegate::kGroupColor(128, 128, 128);
const QColor SidebarDelegate::kPlainColor(32, 32, 32);

SidebarDelegate::SidebarDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

QFont SidebarDelegate::RowFont(int pixelSize) {
    QFont font;
    font.setFamilies(
        {QStringLiteral("Hiragino Kaku Gothic Pro"), QStringLiteral("Noto Sans CJK JP")});
    // Sizes count logical pixels, as the row height does: Qt's points (1/72 inch) would make
    // 16-pixel text on a 96-dpi screen, too tall for a 19-pixel row.
    font.setPixelSize(pixelSize);
    return font;
}

QColor SidebarDelegate::TextColor(const QModelIndex& index) const {
    if (index.data(SidebarModel::KindRole).toString() == QLatin1String("group")) return kGroupColor;
    return index.data(SidebarModel::ExifRole).toString() == QLatin1String("true") ? folderColor_
                                                                                  : kPlainColor;
}

void SidebarDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    QStyleOptionViewItem opt(option);
    initStyleOption(&opt, index);
    const QWidget* widget = option.widget;
    QStyle* style = widget != nullptr ? widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &opt, painter, widget);

    const QRect r = option.rect;
    const QString text = index.data(Qt::DisplayRole).toString();
    if (index.data(SidebarModel::KindRole).toString() == QLatin1String("group")) {
        PaintText(painter, r, text, kGroupTextSize, kGroupColor);
        return;
    }
    const auto kind = SidebarIcons::KindOf(index.data(SidebarModel::VofoRole).toString(),
                                           index.data(SidebarModel::PathRole).toString());
    const bool alias = index.data(SidebarModel::AliasRole).toString() == QLatin1String("true");
    const qreal dpr = widget != nullptr ? widget->devicePixelRatioF() : 1.0;
    const QPixmap icon = SidebarIcons::RowPixmap(kind, alias, kIconSize, dpr);
    const int inset = (kIconBox - kIconSize) / 2;
    painter->drawPixmap(
        QRect(r.x() + inset, r.y() + (r.height() - kIconSize) / 2, kIconSize, kIconSize), icon);
    PaintText(painter, r.adjusted(kTextLeft, 0, -2, 0), text, kItemTextSize, TextColor(index));
}

void SidebarDelegate::PaintText(QPainter* painter, const QRect& rect, const QString& text,
                                int pixelSize, const QColor& color) const {
    const QFont font = RowFont(pixelSize);
    const QFontMetrics metrics(font);
    painter->save();
    painter->setFont(font);
    painter->setPen(color);
    painter->drawText(rect, Qt::AlignLeft | Qt::AlignVCenter,
                      metrics.elidedText(text, Qt::ElideRight, rect.width()));
    painter->restore();
}

QSize SidebarDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const {
    const int textWidth = QFontMetrics(RowFont(kItemTextSize))
                              .horizontalAdvance(index.data(Qt::DisplayRole).toString());
    return QSize(kTextLeft + textWidth + 2, kRowHeight);
}

}  // namespace lumivex
