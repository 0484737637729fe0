#pragma once
// The sidebar: a tree of row records (the "デスクトップ" group row, the volumes, the Desktop's
// folders) shown in a tree view with 19-pixel rows. Children load when a row is first opened.
// The rows show at once; their folders are read on workers, and a row takes its colour and
// its disclosure when the answer comes, so a card that stops answering never holds the window.
// The window hears of a changed selection through selectionDidChange. Told of volumes that
// come and go (getPost), the view keeps itself true and finds camera media on its own.
#include <QTreeView>
#include <memory>
#include <string>
#include <string_view>

class QMenu;

namespace lumivex {

class Settings;
class FolderLister;
class FolderTree;
struct RowRecord;
class SidebarModel;
class SidebarDelegate;
class VolumeWatcher;

class SidebarView : public QTreeView {
    Q_OBJECT

  public:
    // Reads the display settings from `prefs` (which outlives the view) whenever the tree is
    // built, and builds it once.
    // `lister` reads the disk; by default the real one.
    explicit SidebarView(const Settings& prefs, QWidget* parent = nullptr,
                         std::shared_ptr<const FolderLister> lister = {});
    ~SidebarView() override;

    // Builds the whole tree anew: every row closed, every loaded child list gone.
    void MakeTable();
    void RemakeTable(bool flag);

    // The selected row as last recorded, in display order (0 is the group row); -1 for none.
    int selectedRow = -1;
    // The "path" of the row shown at display index `row`; "" when there is none.
    std::string PathOfRow(int row) const;
    // Selects the row at display index `row` (-1 clears the selection), as a click would.
    void SelectRow(int row);

    // Volume events: a mount adds a row after the last volume row and looks for a camera on
    // it; an unmount removes the row. The open rows and the selected folder are kept.
    enum class VolumeEvent { Mount, Unmount };
    void getPost(VolumeEvent event, const std::string& path);
    // Follows the volumes that `watcher` reports, through getPost.
    void ListenTo(const VolumeWatcher& watcher);

    // Looks for the first volume with a "DCIM" folder holding a numbered folder; when the
    // answers come, opens the way to it and selects it. Nothing changes when there is none.
    void AutoSelect();
    static bool AutoSelect2(std::string_view name);
    // True while AutoSelect's own selection is being reported.
    bool AutoSelecting() const { return pAutoSelecting; }
    // The volume on which AutoSelect last found camera media; "" when it never found any.
    std::string gFI;

    // After the rows were reloaded (mode 0: no change, 1: the top-level row `index` was
    // inserted, 2: the top-level row `index` was removed): rows marked open open again, and
    // the selection goes back to the folder it was on.
    void DiscloseExpand(int mode, int index);
    void DiscloseExpandSel(int mode, int index);
    // Before a reload: forgets the selection when it was on the removed row (shown at `row`)
    // or below it.
    void DiscloseExpandLost(const RowRecord& item, int row);
    // The number of rows shown below `item` through its open levels.
    static int DiscloseExpandLost2(const RowRecord& item);

    // The colour of names of folders that hold thumbnails (pGxClr), 0xRRGGBB.
    void SetFolderColor(int rgb);
    // The list's background (pLsClr), 0xRRGGBB.
    void SetListColor(int rgb);

    FolderTree& Tree();
    SidebarModel& Model();
    // The number of rows shown, through every open level (the group row included).
    int VisibleRowCount() const;
    // The display index of the row whose "path" is `path`; -1 when it is not shown.
    int RowOfPath(const std::string& path) const;
    // The display index of `index`, or -1 when it is not shown.
    int RowOfIndex(const QModelIndex& index) const;
    // The index shown at display index `row`; invalid when there is none.
    QModelIndex IndexOfRow(int row) const;

    // The contextual menu of the row at `index`, or nullptr when the row has none. A removable
    // volume offers "取り出す", which asks for the eject through ejectRequested.
    QMenu* RowMenu(const QModelIndex& index, QWidget* parent);

  signals:
    // The user asked to eject the volume mounted at `mountPoint`.
    void ejectRequested(const QString& mountPoint);
    // A row was selected (row >= 0, with its path) or the selection ended in nothing (-1, "").
    void selectionDidChange(int row, const QString& path);

  protected:
    // A click below the rows deselects; the group row takes no click.
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void OnSelectionChanged();
    void MarkExpand(const QModelIndex& index, bool open);
    void RecordSelection();
    void OpenCamera(const QModelIndex& volume, const QModelIndex& dcim, const QModelIndex& folder);
    // The display index of the top-level row `index` (the end of the rows past the last).
    int DisplayRowOfTop(int index) const;
    // Selects `row`; when it is the folder that was selected before the reload, quietly.
    void RestoreSelection(int row);

    const Settings& pPrefs;
    std::unique_ptr<FolderTree> pTree;
    SidebarModel* pModel;
    SidebarDelegate* pDelegate;
    std::string pSelectedPath;  // the selected folder while the rows are reloaded
    bool pQuiet = false;        // a selection restored after a reload is not news
    bool pAutoSelecting = false;
};

}  // namespace lumivex
