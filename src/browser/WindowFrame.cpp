#include "browser/WindowFrame.h"

#include <QGuiApplication>
#include <QPropertyAnimation>
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

constexpr int kAnimeMs = 400;
constexpr int kResetLeft = 10;
constexpr int kResetTop = 5;

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

QRect WindowFrame::DefaultGeometry() const {
    const QScreen* screen = window_.screen() ? window_.screen() : QGuiApplication::primaryScreen();
    const QRect usable = screen->availableGeometry();
    // Qt places the frame by its outer edge but sizes it by the client area.
    const QPoint border = window_.geometry().topLeft() - window_.frameGeometry().topLeft();
    const QPoint corner = usable.topLeft() + QPoint(kResetLeft, kResetTop) + border;
    return QRect(corner, window_.size());
}

QPropertyAnimation* WindowFrame::ResetWinGeo() {
    if (anime_) anime_->stop();
    anime_ = Animate(window_, DefaultGeometry());
    return anime_;
}

bool WindowFrame::ResetWinGeoAllowed() const {
    return !(window_.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen));
}

bool WindowFrame::ResetWinGeoVisible(Qt::KeyboardModifiers modifiers) const {
    return ResetWinGeoAllowed() && (modifiers & Qt::AltModifier);
}

QPropertyAnimation* WindowFrame::DoAnime(QWidget& window, int width, int height) {
    return Animate(window, QRect(window.geometry().topLeft(), QSize(width, height)));
}

QPropertyAnimation* WindowFrame::Animate(QWidget& window, const QRect& to) {
    auto* anime = new QPropertyAnimation(&window, "geometry", &window);
    anime->setDuration(kAnimeMs);
    anime->setStartValue(window.geometry());
    anime->setEndValue(to);
    anime->start(QAbstractAnimation::DeleteWhenStopped);
    return anime;
}

void WindowFrame::Event_WindowStateChange() {
    const bool minimised = window_.isMinimized();
    if (minimised == pMinimize) return;
    pMinimize = minimised;
    if (mark_) mark_(minimised);
}

}  // namespace lumivex
