#include "prefs/ClrCanvas.h"

#include <QMouseEvent>
#include <QPainter>

#include "browser/Prompter.h"

namespace lumivex {

ClrCanvas::ClrCanvas(Prompter& prompter, QWidget* parent)
    : QWidget(parent), prompter_(prompter), caption_(QStringLiteral("色を指定して下さい。")) {
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::NoFocus);
}

void ClrCanvas::SetClr(std::int64_t value) {
    clr_ = value;
    update();
}

Color ClrCanvas::ClrItoC(std::int64_t value) {
    const std::int64_t red = value / 65536;
    const std::int64_t green = (value - red * 65536) / 256;
    const std::int64_t blue = value - red * 65536 - green * 256;
    return Color{static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
                 static_cast<std::uint8_t>(blue)};
}

std::int64_t ClrCanvas::ClrCtoI(Color c) {
    return std::int64_t{c.r} * 65536 + std::int64_t{c.g} * 256 + c.b;
}

void ClrCanvas::paintEvent(QPaintEvent*) {
    QPainter g(this);
    g.fillRect(rect(), Qt::black);
    const Color c = ClrItoC(clr_);
    g.fillRect(QRect(1, 1, width() - 2, height() - 2), QColor(c.r, c.g, c.b));
}

void ClrCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const Color c = ClrItoC(clr_);
    const auto chosen = prompter_.ChooseColor(this, QColor(c.r, c.g, c.b), caption_);
    if (chosen) {
        clr_ = ClrCtoI(Color{static_cast<std::uint8_t>(chosen->red()),
                             static_cast<std::uint8_t>(chosen->green()),
                             static_cast<std::uint8_t>(chosen->blue())});
        emit ClrChanged(clr_);
    }
    update();
}

}  // namespace lumivex
