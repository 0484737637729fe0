#include "browser/WindowFrame.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSplitter>
#include <algorithm>
#include <cstdint>
#include <vector>

#include "core/Settings.h"
#include "model/FrameFit.h"
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
    const QSize least = window_.minimumSize();
    const FrameRect stored{Stored(p[pref::kFrameLeft], 0, window_.x()),
                           Stored(p[pref::kFrameTop], 0, window_.y()),
                           Stored(p[pref::kFrameWidth], least.width(), window_.width()),
                           Stored(p[pref::kFrameHeight], least.height(), window_.height())};
    std::vector<FrameRect> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect a = screen->availableGeometry();
        screens.push_back({a.x(), a.y(), a.width(), a.height()});
    }
    const FrameRect frame = FitFrameOnScreens(stored, screens);
    window_.move(frame.x, frame.y);
    window_.resize(frame.w, frame.h);
    ResizeSeparatePos(static_cast<int>(p[pref::kDividerLeft]));
}

void WindowFrame::Save(Settings& prefs) const {
    auto& p = prefs.gPref;
    p[pref::kFrameLeft] = window_.x();
    p[pref::kFrameTop] = window_.y();
    p[pref::kFrameWidth] = window_.width();
    p[pref::kFrameHeight] = window_.height();
    p[pref::kDividerLeft] = CanvasLeft();
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
