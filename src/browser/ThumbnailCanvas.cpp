#include "browser/ThumbnailCanvas.h"

#include <QContextMenuEvent>
#include <QFontMetricsF>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <string>

#include "browser/GridAccessible.h"

namespace lumivex {
namespace {

constexpr int kFrameOut = 2;  // the selection frame's overhang around the picture
constexpr int kLabelInset = GridLayout::kLabelInset;
constexpr int kCutCover = 14;             // the end of a cut label hidden under the background
constexpr int kEllipsisLeft = 12;         // "..." starts this far left of the cell's right edge
constexpr int kStripExtra = 5;            // the cut label's strip is the font size plus this high
constexpr int kNotchDelta = 120;          // angle delta of one wheel notch
constexpr int kFocusOut = 3;              // the focus frame's distance from the picture
constexpr std::size_t kPrefetchStep = 8;  // pictures decoded per idle turn: well under a frame

// The keys the grid acts on; the others go on to the window.
bool IsGridKey(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    switch (event.key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return true;
        case Qt::Key_F10:
            return event.modifiers().testFlag(Qt::ShiftModifier);
        default:
            return false;
    }
}

QColor ColorOf(int rgb) {
    return QColor::fromRgb(static_cast<QRgb>(rgb & 0xFFFFFF));
}

// The item's thumbnail as an image over its own pixels: nothing is copied for a draw.
QImage ImageOf(const Picture& pict) {
    return QImage(pict.Pixels().data(), pict.Width(), pict.Height(), 3 * pict.Width(),
                  QImage::Format_RGB888);
}

}  // namespace

ThumbnailCanvas::ThumbnailCanvas(QWidget* parent) : QWidget(parent) {
    font_.setFamilies(
        {QStringLiteral("Hiragino Kaku Gothic Pro"), QStringLiteral("Noto Sans CJK JP")});
    font_.setPixelSize(12);
    // The tool tip needs the pointer's rest without a button held.
    setMouseTracking(true);
    // Paint covers every pixel of the area it is given.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    // Before the name: naming already asks for the interface, which is then kept.
    GridAccessible::Install();
    setAccessibleName(QStringLiteral("サムネイル一覧"));
    prefetch_.setInterval(0);
    connect(&prefetch_, &QTimer::timeout, this, &ThumbnailCanvas::PrefetchStep);
}

void ThumbnailCanvas::SetItems(const std::vector<ItemRecord>* items, const GridLayout* layout,
                               ThumbnailCache* pictures) {
    items_ = items;
    layout_ = layout;
    pictures_ = pictures;
    font_.setPixelSize(FontSize());
    update();
}

void ThumbnailCanvas::SetSelection(const ItemSelection* selection) {
    selected_ = selection;
    update();
}

const std::vector<ItemRecord>& ThumbnailCanvas::Items() const {
    static const std::vector<ItemRecord> none;
    return items_ != nullptr ? *items_ : none;
}

int ThumbnailCanvas::Current() const {
    const int count = static_cast<int>(Items().size());
    if (count == 0) return -1;
    return selected_ != nullptr ? std::clamp(selected_->pCidx, 0, count - 1) : 0;
}

void ThumbnailCanvas::SetColors(int background, int selection) {
    background_ = ColorOf(background);
    selection_ = ColorOf(selection);
    update();
}

void ThumbnailCanvas::SetFullNames(bool full) {
    fullNames_ = full;
    update();
}

void ThumbnailCanvas::SetScrollY(int y) {
    scrollY_ = y;
    update();
}

QString ThumbnailCanvas::LabelOf(const ItemRecord& item) const {
    return QString::fromStdString(item.Label(fullNames_));
}

int ThumbnailCanvas::TextWidth(const std::string& label) const {
    return static_cast<int>(QFontMetricsF(font_).horizontalAdvance(QString::fromStdString(label)));
}

void ThumbnailCanvas::paintEvent(QPaintEvent* event) {
    QPainter p(this);
    const QRect area = event->rect();
    p.fillRect(area, background_);
    if (items_ == nullptr || items_->empty()) return;
    p.translate(0, -scrollY_);
    p.setFont(font_);
    const auto [first, last] = VisibleRange(scrollY_ + area.top(), scrollY_ + area.bottom() + 1);
    for (std::size_t i = first; i < last; ++i)
        DrawCanvasDoc(p, i);
    // Selection frames lie over every thumbnail and label.
    DrawSelectItem(p, first, last);
    if (hasFocus()) DrawFocusFrame(p);
    neighbours_ = VisibleRange(scrollY_ - height(), scrollY_ + 2 * height());
    if (pictures_ != nullptr) prefetch_.start();
}

void ThumbnailCanvas::PrefetchStep() {
    if (pictures_ == nullptr || items_ == nullptr ||
        pictures_->Prefetch(*items_, neighbours_.first, neighbours_.second, kPrefetchStep) == 0)
        prefetch_.stop();
}

std::pair<std::size_t, std::size_t> ThumbnailCanvas::VisibleRange(int top, int bottom) const {
    const std::vector<ItemRecord>& items = *items_;
    const auto byY = [](const ItemRecord& item, int y) { return item.y < y; };
    // The last item that starts at or above `top` is in the row that holds it.
    auto rowEnd = std::upper_bound(items.begin(), items.end(), top,
                                   [](int y, const ItemRecord& item) { return y < item.y; });
    auto first = items.begin();
    if (rowEnd != items.begin()) {
        first = std::lower_bound(items.begin(), rowEnd, std::prev(rowEnd)->y, byY);
    }
    const auto last = std::lower_bound(first, items.end(), bottom + kFrameOut, byY);
    return {static_cast<std::size_t>(first - items.begin()),
            static_cast<std::size_t>(last - items.begin())};
}

void ThumbnailCanvas::DrawCanvasDoc(QPainter& p, std::size_t index) {
    const ItemRecord& item = (*items_)[index];
    const int fsize = FontSize();
    p.setPen(Qt::black);
    const Picture* pict =
        item.thumb.IsNull() || pictures_ == nullptr ? nullptr : &pictures_->Get(index, item);
    if (pict != nullptr && !pict->IsNull()) {
        p.drawImage(QPoint(item.x, item.y), ImageOf(*pict));
    } else {
        p.drawText(QPointF(item.x + 8, item.y + item.h / 2), QStringLiteral("No Thumbnail"));
    }
    if (item.w > 0 && item.h > 0) {
        p.setBrush(Qt::NoBrush);
        p.drawRect(QRect(item.x, item.y, item.w - 1, item.h - 1));  // covers w by h pixels
    }
    const QString label = LabelOf(item);
    if (!item.compact) {
        const int room = item.w - 2 * kLabelInset;
        const double left = (room - item.labelWidth) / 2.0 + item.x + kLabelInset;
        p.drawText(QPointF(left, item.y + item.h + fsize + 2), label);
        return;
    }
    DrawCanvasDocRect(p, label, item.x, item.y + item.h + 2, item.w);
}

void ThumbnailCanvas::DrawCanvasDocRect(QPainter& p, const QString& label, int x, int y, int w) {
    const int fsize = FontSize();
    const QRect strip(x, y, w, fsize + kStripExtra);
    p.save();
    p.setClipRect(strip, Qt::IntersectClip);
    p.fillRect(strip, background_);
    p.setPen(Qt::black);
    p.drawText(QPointF(x + kLabelInset, y + fsize), label);
    // The name runs on under the cover, so it fades by pixels, not by whole characters.
    p.fillRect(QRect(x + w - kCutCover, y, kCutCover, strip.height()), background_);
    p.drawText(QPointF(x + w - kEllipsisLeft, y + fsize), QStringLiteral("..."));
    p.restore();
}

void ThumbnailCanvas::DrawSelectItem(QPainter& p, std::size_t first, std::size_t last) {
    // A 2-pixel pen inside the rectangle (x-2, y-2, w+4, h+4): the frame leaves the picture
    // and its black frame uncovered, and frames of neighbours never touch.
    for (std::size_t i = first; i < last; ++i) {
        const ItemRecord& item = (*items_)[i];
        if (!item.selected) continue;
        const QRect outer(item.x - kFrameOut, item.y - kFrameOut, item.w + 2 * kFrameOut,
                          item.h + 2 * kFrameOut);
        p.fillRect(QRect(outer.left(), outer.top(), outer.width(), kFrameOut), selection_);
        p.fillRect(QRect(outer.left(), item.y + item.h, outer.width(), kFrameOut), selection_);
        p.fillRect(QRect(outer.left(), item.y, kFrameOut, item.h), selection_);
        p.fillRect(QRect(item.x + item.w, item.y, kFrameOut, item.h), selection_);
    }
}

void ThumbnailCanvas::DrawFocusFrame(QPainter& p) {
    const int i = Current();
    if (i < 0) return;
    const ItemRecord& item = (*items_)[static_cast<std::size_t>(i)];
    // Dark on a light ground, light on a dark one.
    QPen pen(background_.lightness() < 128 ? Qt::white : Qt::black, 1, Qt::CustomDashLine);
    pen.setDashPattern({2, 2});
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRect(item.x - kFocusOut, item.y - kFocusOut, item.w + 2 * kFocusOut - 1,
                     item.h + 2 * kFocusOut - 1));
}

void ThumbnailCanvas::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    emit pressed(at.x(), at.y(), event->button(), event->modifiers());
}

void ThumbnailCanvas::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    emit moved(at.x(), at.y());
}

void ThumbnailCanvas::wheelEvent(QWheelEvent* event) {
    event->accept();
    if (const int pixels = event->pixelDelta().y(); pixels != 0) {
        emit wheelPixels(-pixels);
        return;
    }
    // A turn away from the user (positive angle) scrolls up.
    wheelRest_ -= event->angleDelta().y();
    const int lines = wheelRest_ / kNotchDelta;
    wheelRest_ -= lines * kNotchDelta;
    if (lines != 0) emit wheelLines(lines);
}

void ThumbnailCanvas::keyPressEvent(QKeyEvent* event) {
    if (!IsGridKey(*event)) return QWidget::keyPressEvent(event);
    emit keyPressed(event->key(), event->modifiers());
}

// The platform turns the Menu key into this event (a right click comes as a press).
void ThumbnailCanvas::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() != QContextMenuEvent::Keyboard) return event->ignore();
    emit menuKeyPressed();
}

void ThumbnailCanvas::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void ThumbnailCanvas::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

}  // namespace lumivex
