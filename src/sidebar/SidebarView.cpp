#include "sidebar/SidebarView.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "browser/MenuOfTexts.h"
#include "core/Settings.h"
#include "model/CameraSearch.h"
#include "model/FolderTree.h"
#include "model/SidebarMenu.h"
#include "platform/Volumes.h"
#include "sidebar/SidebarDelegate.h"
#include "sidebar/SidebarModel.h"
#include "sidebar/VolumeWatcher.h"

namespace lumivex {

SidebarView::SidebarView(const Settings& prefs, QWidget* parent,
                         std::shared_ptr<const FolderLister> lister)
    : QTreeView(parent),
      pPrefs(prefs),
      pTree(std::make_unique<FolderTree>()),
      pModel(new SidebarModel(*pTree, this, std::move(lister))),
      pDelegate(new SidebarDelegate(this)) {
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setAttribute(Qt::WA_MacShowFocusRect, false);
    setIconSize(QSize(SidebarDelegate::kIconSize, SidebarDelegate::kIconSize));
    setItemDelegate(pDelegate);
    setModel(pModel);
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
    connect(pModel, &SidebarModel::cameraFound, this, &SidebarView::OpenCamera);
    MakeTable();
}

// The workers' answers stop before the tree they name goes.
SidebarView::~SidebarView() {
    pModel->Close();
}

void SidebarView::MakeTable() {
    FolderTreeOptions options = FolderTreeOptions::FromSettings(pPrefs);
    SetFolderColor(static_cast<int>(pPrefs.gPref[pref::kFolderNameColor]));
    pModel->Rebuild([&] {
        pTree->SetOptions(std::move(options));
        pTree->MakeTable();
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
    pDelegate->SetFolderColor(QColor::fromRgb(static_cast<QRgb>(rgb & 0xFFFFFF)));
    viewport()->update();
}

void SidebarView::SetListColor(int rgb) {
    QPalette pal = palette();
    pal.setColor(QPalette::Base, QColor::fromRgb(static_cast<QRgb>(rgb & 0xFFFFFF)));
    setPalette(pal);
}

FolderTree& SidebarView::Tree() {
    return *pTree;
}

SidebarModel& SidebarView::Model() {
    return *pModel;
}

int SidebarView::VisibleRowCount() const {
    int count = 0;
    for (QModelIndex i = pModel->index(0, 0); i.isValid(); i = indexBelow(i))
        ++count;
    return count;
}

int SidebarView::RowOfIndex(const QModelIndex& index) const {
    if (!index.isValid()) return -1;
    int row = 0;
    for (QModelIndex i = pModel->index(0, 0); i.isValid(); i = indexBelow(i), ++row)
        if (i == index) return row;
    return -1;
}

QModelIndex SidebarView::IndexOfRow(int row) const {
    if (row < 0) return {};
    QModelIndex i = pModel->index(0, 0);
    for (; i.isValid() && row > 0; --row)
        i = indexBelow(i);
    return i;
}

int SidebarView::RowOfPath(const std::string& path) const {
    int row = 0;
    for (QModelIndex i = pModel->index(0, 0); i.isValid(); i = indexBelow(i), ++row)
        if (SidebarModel::RowOf(i)->path == path) return row;
    return -1;
}

// ---- volume events ---------------------------------------------------------------------

void SidebarView::getPost(VolumeEvent event, const std::string& path) {
    RecordSelection();
    const int scrolled = verticalScrollBar()->value();
    int mode = 0;
    int index = 0;
    if (event == VolumeEvent::Mount) {
        pModel->Rebuild([&] { index = pTree->InsertVolumeRow(path); });
        mode = index > 0 ? 1 : 0;
    } else {
        if (const int i = pTree->TopIndexOfPath(path); i > 0)
            DiscloseExpandLost(*pTree->DataArray()[static_cast<std::size_t>(i)],
                               RowOfIndex(pModel->index(i, 0)));
        std::unique_ptr<RowRecord> removed;
        pModel->Rebuild([&] { removed = pTree->RemoveRowOfPath(path, index); });
        if (removed) pModel->DropVolume(*removed);
        mode = removed ? 2 : 0;
        if (selectedRow < 0) emit selectionDidChange(-1, QString());
    }
    DiscloseExpand(mode, index);
    pSelectedPath.clear();
    verticalScrollBar()->setValue(scrolled);
    if (mode == 1) AutoSelect();
    if (mode == 2) pModel->OpenWaitingCamera();
}

void SidebarView::ListenTo(const VolumeWatcher& watcher) {
    connect(&watcher, &VolumeWatcher::unmounted, this,
            [this](const QString& point) { getPost(VolumeEvent::Unmount, point.toStdString()); });
    connect(&watcher, &VolumeWatcher::mounted, this,
            [this](const QString& point) { getPost(VolumeEvent::Mount, point.toStdString()); });
}

// Rows opened or closed above the selection since it was made have moved it; the recorded row
// is brought up to date first.
void SidebarView::RecordSelection() {
    const QModelIndexList chosen = selectionModel()->selectedRows();
    if (!chosen.isEmpty()) {
        selectedRow = RowOfIndex(chosen.front());
        pSelectedPath = SidebarModel::RowOf(chosen.front())->path;
    } else {
        pSelectedPath = selectedRow >= 0 ? PathOfRow(selectedRow) : std::string();
    }
}

// ---- camera media ----------------------------------------------------------------------

bool SidebarView::AutoSelect2(std::string_view name) {
    return CameraSearch::AutoSelect2(name);
}

void SidebarView::AutoSelect() {
    pTree->AskCamera();
    pModel->Pump();
}

void SidebarView::OpenCamera(const QModelIndex& volume, const QModelIndex& dcim,
                             const QModelIndex& folder) {
    gFI = SidebarModel::RowOf(volume)->path;
    expand(volume);
    expand(dcim);
    pAutoSelecting = true;
    selectionModel()->setCurrentIndex(folder, QItemSelectionModel::ClearAndSelect);
    pAutoSelecting = false;
    scrollTo(folder);
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
    if (!pSelectedPath.empty() && PathOfRow(row) != pSelectedPath) {
        const int found = RowOfPath(pSelectedPath);
        if (found >= 0) row = found;
    }
    RestoreSelection(row);
}

int SidebarView::DisplayRowOfTop(int index) const {
    if (index >= pModel->rowCount()) return VisibleRowCount();
    return RowOfIndex(pModel->index(std::max(index, 0), 0));
}

void SidebarView::RestoreSelection(int row) {
    // The same folder again: the window already shows it, and a new scan would only repeat it.
    const QModelIndex index = IndexOfRow(row);
    if (!index.isValid() || !(index.flags() & Qt::ItemIsSelectable)) {
        selectedRow = -1;
        emit selectionDidChange(-1, QString());
        return;
    }
    pQuiet = !pSelectedPath.empty() && PathOfRow(row) == pSelectedPath;
    SelectRow(row);
    pQuiet = false;
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
    if (!pQuiet)
        emit selectionDidChange(
            row, row < 0 ? QString() : index.data(SidebarModel::PathRole).toString());
    selectedRow = row;
}

void SidebarView::MarkExpand(const QModelIndex& index, bool open) {
    pModel->setData(index, open, SidebarModel::ExpandRole);
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

// ---- contextual menu -------------------------------------------------------------------

QMenu* SidebarView::RowMenu(const QModelIndex& index, QWidget* parent) {
    const RowRecord* row = SidebarModel::RowOf(index);
    if (row == nullptr) return nullptr;
    QMenu* menu = MenuOfTexts(SidebarMenu::Items(*row, Volumes::CurrentUser()), parent);
    if (menu == nullptr) return nullptr;
    const QString path = QString::fromStdString(row->path);
    connect(menu, &QMenu::triggered, this, [this, path](QAction* a) {
        if (a->text().toStdString() == SidebarMenu::kEject) emit ejectRequested(path);
    });
    return menu;
}

void SidebarView::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = RowMenu(indexAt(event->pos()), this);
    if (menu == nullptr) return;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

}  // namespace lumivex
