#include "browser/RestingToolTip.h"

#include <QToolTip>

#include "browser/ThumbnailCanvas.h"
#include "model/ItemSelection.h"

namespace lumivex {

RestingToolTip::RestingToolTip(ThumbnailCanvas& canvas, const std::vector<ItemRecord>& items)
    : canvas_(canvas), items_(items) {
    timer_.setInterval(1000);
    timer_.callOnTimeout([this] { Timer1_Action(); });
    QObject::connect(&canvas_, &ThumbnailCanvas::moved, &timer_,
                     [this](int x, int y) { Canvas1_MouseMove(x, y); });
}

void RestingToolTip::Canvas1_MouseMove(int x, int y) {
    mouseX_ = x;
    mouseY_ = y;
    timer_.start();
}

void RestingToolTip::Timer1_Action() {
    ShowToolTips(mouseX_ == lastX_ && mouseY_ == lastY_);
    lastX_ = mouseX_;
    lastY_ = mouseY_;
}

void RestingToolTip::ShowToolTips(bool on) {
    const int i = on ? ItemSelection::HitIndex(items_, mouseX_, mouseY_ + canvas_.ScrollY()) : -1;
    if (on && i < 0) return;  // over the ground a shown tip stays until the pointer moves
    if (i < 0 || !items_[static_cast<std::size_t>(i)].compact) return Hide();
    const ItemRecord& item = items_[static_cast<std::size_t>(i)];
    text_ = canvas_.LabelOf(item);
    const QRect cell(item.x, item.y - canvas_.ScrollY(), item.w, item.h);
    QToolTip::showText(canvas_.mapToGlobal(QPoint(mouseX_, mouseY_)), text_, &canvas_, cell);
    timer_.stop();
}

void RestingToolTip::Hide() {
    text_.clear();
    QToolTip::hideText();
}

}  // namespace lumivex
