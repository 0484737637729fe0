#pragma once
// The sidebar: a tree of row records (the "デスクトップ" group row, the volumes, the Desktop's
// folders) shown in a tree view with 19-pixel rows. Children load when a row is first opened.
// The window hears of a changed selection through selectionDidChange.
#include <QTreeView>
#include <memory>
#include <string>

namespace lumivex {

class Settings;
class FolderTree;
class SidebarModel;
class SidebarDelegate;

class NSOutlineView : public QTreeView {
    Q_OBJECT

  public:
    // Reads the display settings from `prefs` (which outlives the view) whenever the tree is
    // built, and builds it once.
    explicit NSOutlineView(const Settings& prefs, QWidget* parent = nullptr);
    ~NSOutlineView() override;

    // Builds the whole tree anew: every row closed, every loaded child list gone.
    void MakeTable();
    void RemakeTable(bool flag);

    // The selected row as last recorded, in display order (0 is the group row); -1 for none.
    int selectedRow = -1;
    // The "path" of the row shown at display index `row`; "" when there is none.
    std::string PathOfRow(int row) const;
    // Selects the row at display index `row` (-1 clears the selection), as a click would.
    void SelectRow(int row);

    // The colour of names of folders that hold thumbnails (pGxClr), 0xRRGGBB.
    void SetFolderColor(int rgb);

    FolderTree& Tree();
    SidebarModel& Model();
    // The number of rows shown, through every open level (the group row included).
    int VisibleRowCount() const;
    // The display index of `index`, or -1 when it is not shown.
    int RowOfIndex(const QModelIndex& index) const;
    // The index shown at display index `row`; invalid when there is none.
    QModelIndex IndexOfRow(int row) const;

  signals:
    // A row was selected (row >= 0, with its path) or the selection ended in nothing (-1, "").
    void selectionDidChange(int row, const QString& path);

  protected:
    // actionEvent: a click below the rows deselects.
    void mousePressEvent(QMouseEvent* event) override;

  private:
    void OnSelectionChanged();
    void MarkExpand(const QModelIndex& index, bool open);

    const Settings& prefs_;
    std::unique_ptr<FolderTree> tree_;
    SidebarModel* model_;
    SidebarDelegate* delegate_;
};

}  // namespace lumivex
