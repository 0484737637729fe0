#include "sidebar/NSOutlineView.h"

#include <QMouseEvent>

#include "core/Settings.h"
#include "sidebar/FolderTree.h"
#include "sidebar/SidebarDelegate.h"
#include "sidebar/SidebarModel.h"

namespace lumivex {

NSOutlineView::NSOutlineView(const Settings& prefs, QWidget* parent)
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
            &NSOutlineView::OnSelectionChanged);
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex& i) { MarkExpand(i, true); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex& i) { MarkExpand(i, false); });
    MakeTable();
}

NSOutlineView::~NSOutlineView() = default;

void NSOutlineView::MakeTable() {
    FolderTreeOptions options = FolderTreeOptions::FromSettings(prefs_);
    SetFolderColor(static_cast<int>(prefs_.gPref[6]));
    model_->Rebuild([&] {
        tree_->SetOptions(std::move(options));
        tree_->MakeTable();
    });
}

void NSOutlineView::RemakeTable(bool /*flag*/) {
    MakeTable();
}

std::string NSOutlineView::PathOfRow(int row) const {
    return IndexOfRow(row).data(SidebarModel::PathRole).toString().toStdString();
}

void NSOutlineView::SelectRow(int row) {
    const QModelIndex index = IndexOfRow(row);
    if (!index.isValid() || !(index.flags() & Qt::ItemIsSelectable)) {
        clearSelection();
        return;
    }
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
}

void NSOutlineView::SetFolderColor(int rgb) {
    delegate_->SetFolderColor(QColor::fromRgb(static_cast<QRgb>(rgb & 0xFFFFFF)));
    viewport()->update();
}

FolderTree& NSOutlineView::Tree() {
    return *tree_;
}

SidebarModel& NSOutlineView::Model() {
    return *model_;
}

int NSOutlineView::VisibleRowCount() const {
    int count = 0;
    for (QModelIndex i = model_->index(0, 0); i.isValid(); i = indexBelow(i))
        ++count;
    return count;
}

int NSOutlineView::RowOfIndex(const QModelIndex& index) const {
    if (!index.isValid()) return -1;
    int row = 0;
    for (QModelIndex i = model_->index(0, 0); i.isValid(); i = indexBelow(i), ++row)
        if (i == index) return row;
    return -1;
}

QModelIndex NSOutlineView::IndexOfRow(int row) const {
    if (row < 0) return {};
    QModelIndex i = model_->index(0, 0);
    for (; i.isValid() && row > 0; --row)
        i = indexBelow(i);
    return i;
}

// The window's handler runs first and still sees the old selectedRow.
void NSOutlineView::OnSelectionChanged() {
    const QModelIndexList chosen = selectionModel()->selectedRows();
    const QModelIndex index = chosen.isEmpty() ? QModelIndex() : chosen.front();
    const int row = RowOfIndex(index);
    emit selectionDidChange(row,
                            row < 0 ? QString() : index.data(SidebarModel::PathRole).toString());
    selectedRow = row;
}

void NSOutlineView::MarkExpand(const QModelIndex& index, bool open) {
    model_->setData(index, open, SidebarModel::ExpandRole);
}

void NSOutlineView::mousePressEvent(QMouseEvent* event) {
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
