#pragma once
// The main window's frame and divider as the settings keep them: the left and top edges,
// the size, and the canvas's left edge (which places the divider). A frame below the
// minimum size comes back at the minimum, and one off every screen comes back onto one.
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

  private:
    QWidget& window_;
    QSplitter& split_;
    QWidget& canvas_;
    int scrollBarWidth_;
};

}  // namespace lumivex
