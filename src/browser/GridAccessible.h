#pragma once
// What assistive technology sees of the thumbnail pane: a list whose items are the
// thumbnails, each named by its file, with its place on the screen and whether it is selected
// and current. Item interfaces are made on demand and kept, as Qt's own views do.
#include <QAccessibleWidget>
#include <vector>

namespace lumivex {

class ThumbnailCanvas;

class GridAccessible : public QAccessibleWidget {
  public:
    explicit GridAccessible(ThumbnailCanvas* canvas);
    ~GridAccessible() override;

    // Installs the factory that gives every ThumbnailCanvas this interface; once per process.
    static void Install();
    // Tells assistive technology that the current item is now `index`.
    static void AnnounceFocus(ThumbnailCanvas* canvas, int index);

    ThumbnailCanvas* Canvas() const;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

  private:
    mutable std::vector<QAccessible::Id> children_;  // 0 where none was asked for yet
};

}  // namespace lumivex
