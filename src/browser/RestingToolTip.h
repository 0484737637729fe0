#pragma once
// The tool tip of the thumbnail pane: the full name of a thumbnail whose label is cut, shown
// once the pointer has rested on its picture for a whole round of the timer (a second).
#include <QString>
#include <QTimer>
#include <vector>

#include "model/ItemRecord.h"

namespace lumivex {

class ThumbnailCanvas;

class RestingToolTip {
  public:
    // `canvas` and `items` outlive the object; the pointer's moves come from the canvas.
    RestingToolTip(ThumbnailCanvas& canvas, const std::vector<ItemRecord>& items);

    void Start() { timer_.start(); }
    void Stop() { timer_.stop(); }
    // The name the tip shows; empty when none.
    const QString& Text() const { return text_; }

  private:
    void Canvas1_MouseMove(int x, int y);
    void Timer1_Action();
    void ShowToolTips(bool on);
    void Hide();

    ThumbnailCanvas& canvas_;
    const std::vector<ItemRecord>& items_;
    QTimer timer_;
    int mouseX_ = 0, mouseY_ = 0;
    int lastX_ = -1, lastY_ = -1;  // where the pointer was one round ago
    QString text_;
};

}  // namespace lumivex
