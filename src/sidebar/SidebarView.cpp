#include "sidebar/SidebarView.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <QSocketNotifier>
#include <algorithm>

#include "core/Settings.h"
#include "platform/MountMonitor.h"
#include "platform/Volumes.h"
#include "sidebar/CameraSearch.h"
#include "sidebar/FolderTree.h"
#include "sidebar/SidebarDelegate.h"
#include "sidebar/SidebarModel.h"

namespace lumivex {

SidebarView::SidebarView(const Settings& prefs, QWidget* parent)
    : QTreeView(parent),
      prefs_(prefs),
      tree_(std::make_unique<FolderTree>()),
      model_(new SidebarModel(*tree_, this)),
      delegate_(new SidebarDelegate(this)) {
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setAttribute(Qt::WA_MacShowFocusRect, false);
    setIconSize(QSize(SidebarDelegate::kIconSize, SidebarDelegate::kIconSize));
    setItemDelegate(delegate_);
    setModel(model_);
    // A light selection, so that the dark and coloured names stay readable on it.
    QPalette pal = palette();
    for (auto group : {QPalette::Active, QPalette::Inactive})
        pal.setColor(group, QPalette::Highlight, QColor(204, 220, 242));
    setPalette(pal);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SidebarView::OnSelectionChanged);
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex& i) { MarkExpand(i, true); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex& i) { MarkExpand(i, false); });
    MakeTable();
    // The kernel flags a changed mount table as an exceptional condition on the file; a read
    // notifier would fire without end.
    monitor_ = std::make_unique<MountMonitor>();
    if (monitor_->Fd() >= 0) {
        lvNotif = new QSocketNotifier(monitor_->Fd(), QSocketNotifier::Exception, this);
        connect(lvNotif, &QSocketNotifier::activated, this, &SidebarView::OnMountTableChanged);
    }
}

SidebarView::~SidebarView() = default;

void SidebarView::MakeTable() {
    FolderTreeOptions options = FolderTreeOptions::FromSettings(prefs_);
    SetFolderColor(static_cast<int>(prefs_.gPref[pref::kFolderNameColor]));
    model_->Rebuild([&] {
        tree_->SetOptions(std::move(options));
        tree_->MakeTable();
    });
}

void SidebarView::RemakeTable(bool /*flag*/) {
    MakeTable();
}

std::string SidebarView::PathOfRow(int row) const {
    return IndexOfRow(row).data(SidebarModel::PathRole).toString().toStdString();
}

void SidebarView::SelectRow(int row) {
    const QModelIndex index = IndexOfRow(row);
    if (!index.isValid() || !(index.flags() & Qt::ItemIsSelectable)) {
        clearSelection();
        return;
    }
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
}

void SidebarView::SetFolderColor(int rgb) {
    delegate_->SetFolderColor(QColor::fromRgb(static_cast<QRgb>(rgb & 0xFFFFFF)));
    viewport()->update();
}

FolderTree& SidebarView::Tree() {
    return *tree_;
}

SidebarModel& SidebarView::Model() {
    return *model_;
}

int SidebarView::VisibleRowCount() const {
    int count = 0;
    for (QModelIndex i = model_->index(0, 0); i.isValid(); i = indexBelow(i))
        ++count;
    return count;
}

int SidebarView::RowOfIndex(const QModelIndex& index) const {
    if (!index.isValid()) return -1;
    int row = 0;
    for (QModelIndex i = model_->index(0, 0); i.isValid(); i = indexBelow(i), ++row)
        if (i == index) return row;
    return -1;
}

QModelIndex SidebarView::IndexOfRow(int row) const {
    if (row < 0) return {};
    QModelIndex i = model_->index(0, 0);
    for (; i.isValid() && row > 0; --row)
        i = indexBelow(i);
    return i;
}

int SidebarView::RowOfPath(const std::string& path) const {
    int row = 0;
    for (QModelIndex i = model_->index(0, 0); i.isValid(); i = indexBelow(i), ++row)
        if (SidebarModel::RowOf(i)->path == path) return row;
    return -1;
}

// ---- volume events ---------------------------------------------------------------------

void SidebarView::OnMountTableChanged() {
    const MountChanges changes = monitor_->Check();
    // The kernel reports every mount; only those the volume list would show are volumes.
    const int mode = tree_->Options().volumeMode;
    const std::string user = Volumes::CurrentUser();
    for (const MountEntry& e : changes.unmounted)
        if (Volumes::Shows(e, mode, user)) getPost(VolumeEvent::Unmount, e.mountPoint);
    for (const MountEntry& e : changes.mounted)
        if (Volumes::Shows(e, mode, user)) getPost(VolumeEvent::Mount, e.mountPoint);
}

void SidebarView::getPost(VolumeEvent event, const std::string& path) {
    RecordSelection();
    const int scrolled = verticalScrollBar()->value();
    int mode = 0;
    int index = 0;
    if (event == VolumeEvent::Mount) {
        model_->Rebuild([&] { index = tree_->InsertVolumeRow(path); });
        mode = index > 0 ? 1 : 0;
    } else {
        if (const int i = tree_->TopIndexOfPath(path); i > 0)
            DiscloseExpandLost(*tree_->DataArray()[static_cast<std::size_t>(i)],
                               RowOfIndex(model_->index(i, 0)));
        std::unique_ptr<RowRecord> removed;
        model_->Rebuild([&] { removed = tree_->RemoveRowOfPath(path, index); });
        mode = removed ? 2 : 0;
        if (selectedRow < 0) emit selectionDidChange(-1, QString());
    }
    DiscloseExpand(mode, index);
    selectedPath_.clear();
    verticalScrollBar()->setValue(scrolled);
    if (mode == 1) AutoSelect();
}

// Rows opened or closed above the selection since it was made have moved it; the recorded row
// is brought up to date first.
void SidebarView::RecordSelection() {
    const QModelIndexList chosen = selectionModel()->selectedRows();
    if (!chosen.isEmpty()) {
        selectedRow = RowOfIndex(chosen.front());
        selectedPath_ = SidebarModel::RowOf(chosen.front())->path;
    } else {
        selectedPath_ = selectedRow >= 0 ? PathOfRow(selectedRow) : std::string();
    }
}

void SidebarView::RemoveObserver() {
    delete lvNotif;
    lvNotif = nullptr;
}

// ---- camera media ----------------------------------------------------------------------

bool SidebarView::AutoSelect2(std::string_view name) {
    return CameraSearch::AutoSelect2(name);
}

void SidebarView::AutoSelect() {
    const auto found = CameraSearch::Find(tree_->DataArray());
    if (!found) return;
    gFI = found->volume;
    const QModelIndex volume = ChildOfPath({}, found->volume);
    expand(volume);
    const QModelIndex dcim = ChildOfPath(volume, found->dcim);
    expand(dcim);
    const QModelIndex folder = ChildOfPath(dcim, found->folder);
    if (!folder.isValid()) return;
    autoSelecting_ = true;
    selectionModel()->setCurrentIndex(folder, QItemSelectionModel::ClearAndSelect);
    autoSelecting_ = false;
    scrollTo(folder);
}

QModelIndex SidebarView::ChildOfPath(const QModelIndex& parent, const std::string& path) const {
    if (parent.isValid() && model_->canFetchMore(parent)) model_->fetchMore(parent);
    for (int r = 0; r < model_->rowCount(parent); ++r) {
        const QModelIndex child = model_->index(r, 0, parent);
        if (SidebarModel::RowOf(child)->path == path) return child;
    }
    return {};
}

// ---- open rows and the selection across a reload --------------------------------------

// Opening a row shows its children next, so the walk reaches open rows inside open rows.
void SidebarView::DiscloseExpand(int mode, int index) {
    for (QModelIndex i = IndexOfRow(1); i.isValid(); i = indexBelow(i))
        if (SidebarModel::RowOf(i)->expand == "true") expand(i);
    DiscloseExpandSel(mode, index);
}

// The rows above the changed one are as they were, so the row count shifts by one for the
// rows after it. When open rows went with a removed volume the shift is larger; the folder's
// path then finds it.
void SidebarView::DiscloseExpandSel(int mode, int index) {
    if (selectedRow < 0) return;
    const int at = DisplayRowOfTop(index);
    int row = selectedRow;
    if (mode == 1 && selectedRow >= at) ++row;
    if (mode == 2 && selectedRow > at) --row;
    if (!selectedPath_.empty() && PathOfRow(row) != selectedPath_) {
        const int found = RowOfPath(selectedPath_);
        if (found >= 0) row = found;
    }
    RestoreSelection(row);
}

int SidebarView::DisplayRowOfTop(int index) const {
    if (index >= model_->rowCount()) return VisibleRowCount();
    return RowOfIndex(model_->index(std::max(index, 0), 0));
}

void SidebarView::RestoreSelection(int row) {
    // The same folder again: the window already shows it, and a new scan would only repeat it.
    const QModelIndex index = IndexOfRow(row);
    if (!index.isValid() || !(index.flags() & Qt::ItemIsSelectable)) {
        selectedRow = -1;
        emit selectionDidChange(-1, QString());
        return;
    }
    quiet_ = !selectedPath_.empty() && PathOfRow(row) == selectedPath_;
    SelectRow(row);
    quiet_ = false;
}

void SidebarView::DiscloseExpandLost(const RowRecord& item, int row) {
    if (row < 0 || selectedRow < 0) return;
    if (row == selectedRow) {
        selectedRow = -1;
        return;
    }
    const int n = DiscloseExpandLost2(item);
    if (selectedRow > row && selectedRow <= row + n) selectedRow = -1;
}

int SidebarView::DiscloseExpandLost2(const RowRecord& item) {
    if (!item.children || item.expand != "true") return 0;
    int n = 0;
    for (const auto& child : *item.children)
        n += 1 + DiscloseExpandLost2(*child);
    return n;
}

// The window's handler runs first and still sees the old selectedRow.
void SidebarView::OnSelectionChanged() {
    const QModelIndexList chosen = selectionModel()->selectedRows();
    const QModelIndex index = chosen.isEmpty() ? QModelIndex() : chosen.front();
    const int row = RowOfIndex(index);
    if (!quiet_)
        emit selectionDidChange(
            row, row < 0 ? QString() : index.data(SidebarModel::PathRole).toString());
    selectedRow = row;
}

void SidebarView::MarkExpand(const QModelIndex& index, bool open) {
    model_->setData(index, open, SidebarModel::ExpandRole);
}

void SidebarView::mousePressEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!index.isValid()) {
        setFocus(Qt::MouseFocusReason);
        clearSelection();
        selectedRow = -1;
        event->accept();
        return;
    }
    // The group row is a header: a click on it neither selects nor deselects.
    if (!(index.flags() & Qt::ItemIsSelectable)) {
        event->accept();
        return;
    }
    QTreeView::mousePressEvent(event);
}

}  // namespace lumivex
