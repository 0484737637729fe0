#include "browser/WindowFrame.h"

#include <QSplitter>
#include <algorithm>
#include <cstdint>

#include "core/Settings.h"
#include "model/GridLayout.h"

namespace lumivex {
namespace {

// A stored edge or size of 0 or less was never set: the window keeps its own.
int Stored(std::int64_t value, int minimum, int own) {
    return value > 0 ? static_cast<int>(std::max<std::int64_t>(value, minimum)) : own;
}

}  // namespace

WindowFrame::WindowFrame(QWidget& window, QSplitter& split, QWidget& canvas, int scrollBarWidth)
    : window_(window), split_(split), canvas_(canvas), scrollBarWidth_(scrollBarWidth) {}

void WindowFrame::Restore(const Settings& prefs) {
    const auto& p = prefs.gPref;
    window_.move(Stored(p[41], 0, window_.x()), Stored(p[42], 0, window_.y()));
    const QSize least = window_.minimumSize();
    window_.resize(Stored(p[43], least.width(), window_.width()),
                   Stored(p[44], least.height(), window_.height()));
    ResizeSeparatePos(static_cast<int>(p[45]));
}

void WindowFrame::Save(Settings& prefs) const {
    auto& p = prefs.gPref;
    p[41] = window_.x();
    p[42] = window_.y();
    p[43] = window_.width();
    p[44] = window_.height();
    p[45] = CanvasLeft();
}

void WindowFrame::ResizeSeparatePos(int left) {
    left =
        GridLayout::ClampDivider(left, GridLayout::DividerLimit(window_.width(), scrollBarWidth_));
    const int total = split_.width() > 0 ? split_.width() : window_.width();
    const int sidebar = std::max(GridLayout::kMinSide, left - split_.handleWidth());
    split_.setSizes(
        {sidebar, std::max(GridLayout::kMinSide, total - sidebar - split_.handleWidth())});
}

int WindowFrame::CanvasLeft() const {
    return canvas_.mapTo(&window_, QPoint(0, 0)).x();
}

}  // namespace lumivex
