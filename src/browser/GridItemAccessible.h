#pragma once
// One thumbnail as assistive technology sees it: a list item named by its file. It holds only
// its index, so it reads the item as it is now and goes invalid when the list gets shorter.
#include <QAccessibleInterface>

namespace lumivex {

class GridAccessible;

class GridItemAccessible : public QAccessibleInterface {
  public:
    GridItemAccessible(GridAccessible* list, int index) : list_(list), index_(index) {}

    int Index() const { return index_; }
    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QString text(QAccessible::Text t) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;  // the picture, in screen coordinates
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;

  private:
    GridAccessible* list_;
    int index_;
};

}  // namespace lumivex
