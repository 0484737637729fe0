#pragma once
// The main window's frame and divider as the settings keep them: the left and top edges,
// the size, and the canvas's left edge (which places the divider). A frame below the
// minimum size comes back at the minimum, and one off every screen comes back onto one.
// It also moves the frame back to its default place on request, and follows minimising.
#include <qnamespace.h>
#include <QPointer>
#include <QRect>
#include <functional>
#include <utility>

class QPropertyAnimation;
class QSplitter;
class QWidget;

namespace lumivex {

class Settings;

class WindowFrame {
  public:
    // All three outlive the object; `canvas` lies in the right pane of `split`.
    WindowFrame(QWidget& window, QSplitter& split, QWidget& canvas, int scrollBarWidth);

    // The frame the user left, restored as it was (InitWinPos), then the divider.
    void Restore(const Settings& prefs);
    void Save(Settings& prefs) const;
    // The divider: the sidebar at least 100 pixels, the pane too; `left` is the canvas's
    // left edge in the window.
    void ResizeSeparatePos(int left);
    int CanvasLeft() const;

    // The window back at the top left of its screen's usable area, 10 pixels in from the
    // left and 5 down from the top, its size kept; animated as DoAnime. The animation is
    // the window's and deletes itself when it ends.
    QPropertyAnimation* ResetWinGeo();
    QRect DefaultGeometry() const;
    // "位置をリセット" is offered only while Alt is held, and never for a maximised or
    // full-screen frame, which has no place of its own to go back to.
    bool ResetWinGeoAllowed() const;
    bool ResetWinGeoVisible(Qt::KeyboardModifiers modifiers) const;
    // A resize to `width` by `height` that keeps the top edge where it is, over 0.4 seconds.
    static QPropertyAnimation* DoAnime(QWidget& window, int width, int height);

    // Event_Minimize and Event_Restore: call on each window state change; `mark` hears
    // true when the window is minimised and false when it comes back from that.
    void SetMinimizeMark(std::function<void(bool minimised)> mark) { mark_ = std::move(mark); }
    void Event_WindowStateChange();
    bool Minimized() const { return pMinimize; }

  private:
    static QPropertyAnimation* Animate(QWidget& window, const QRect& to);

    QWidget& window_;
    QSplitter& split_;
    QWidget& canvas_;
    int scrollBarWidth_;
    QPointer<QPropertyAnimation> anime_;
    std::function<void(bool)> mark_;
    bool pMinimize = false;
};

}  // namespace lumivex
