#pragma once
// The thumbnail pane's keys, wheel and touchpad: a key moves the current item where the grid
// navigation says and selects as a click or a shift-click would, Enter opens the information
// window, the Menu key and Shift+F10 the contextual menu at the current item; the wheel
// scrolls by lines, a touchpad by its pixels. The canvas forwards, the model decides, the
// window's commands act.
#include <QObject>

#include "model/GridNavigation.h"

class QScrollBar;

namespace lumivex {

class MainWindow;
class ScanController;
class ThumbnailCanvas;

class GridInput : public QObject {
  public:
    // What the window lends; all of it outlives this object.
    struct Window {
        MainWindow& window;
        ThumbnailCanvas& canvas;
        QScrollBar& bar;
        ScanController& scan;
        ItemSelection& selection;
    };

    explicit GridInput(const Window& window);

  private:
    void Key(int key, Qt::KeyboardModifiers modifiers);
    void Move(GridKey key, bool shift);
    void OpenInfo();
    void OpenMenu();
    void Pressed();
    void Lines(int lines);
    void Pixels(int pixels);
    // Scrolls so that the current item and its label are in sight.
    void ShowCurrent();

    Window w_;
};

}  // namespace lumivex
