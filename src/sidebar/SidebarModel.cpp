#include "sidebar/SidebarModel.h"

#include "model/FolderLister.h"
#include "model/FolderQuestion.h"
#include "model/QuestionLanes.h"

namespace lumivex {
namespace {

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

}  // namespace

SidebarModel::SidebarModel(FolderTree& tree, QObject* parent,
                           std::shared_ptr<const FolderLister> lister)
    : QAbstractItemModel(parent), tree_(tree) {
    if (!lister) lister = std::make_shared<FolderLister>();
    // Called on a worker: the answer is only posted; the model takes it on its own thread.
    lanes_ = std::make_unique<QuestionLanes>(std::move(lister), [this](FolderAnswer answer) {
        QMetaObject::invokeMethod(
            this, [this, a = std::move(answer)] { OnAnswer(a); }, Qt::QueuedConnection);
    });
}

SidebarModel::~SidebarModel() {
    Close();
}

void SidebarModel::Close() {
    lanes_->Close();
}

void SidebarModel::Rebuild(const std::function<void()>& edit) {
    beginResetModel();
    edit();
    endResetModel();
    Pump();
}

void SidebarModel::Pump() {
    lanes_->SetRound(tree_.Round());
    lanes_->Ask(tree_.TakeQuestions());
}

void SidebarModel::DropVolume(const RowRecord& volume) {
    lanes_->DropLane(FolderTree::LaneOf(volume));
}

void SidebarModel::OnAnswer(const FolderAnswer& answer) {
    const auto found = tree_.Apply(answer, *this);
    Pump();
    Announce(found);
}

void SidebarModel::OpenWaitingCamera() {
    const auto found = tree_.TakeCameraWin(*this);
    Pump();
    Announce(found);
}

void SidebarModel::Announce(const std::optional<FolderTree::CameraRows>& found) {
    if (found)
        emit cameraFound(IndexOf(found->volume), IndexOf(found->dcim), IndexOf(found->folder));
}

void SidebarModel::WillAddChildren(RowRecord& parent, int count) {
    beginInsertRows(IndexOf(&parent), 0, count - 1);
}

void SidebarModel::DidAddChildren(RowRecord&) {
    endInsertRows();
}

void SidebarModel::Marked(RowRecord& row) {
    const QModelIndex index = IndexOf(&row);
    emit dataChanged(index, index);
}

RowRecord* SidebarModel::RowOf(const QModelIndex& index) {
    return index.isValid() ? static_cast<RowRecord*>(index.internalPointer()) : nullptr;
}

// Rows already loaded below `parent`; nullptr while they have not been asked for.
const RowRecord::Rows* SidebarModel::ChildRows(const QModelIndex& parent) const {
    RowRecord* row = RowOf(parent);
    if (row == nullptr) return &tree_.DataArray();
    return row->children ? &*row->children : nullptr;
}

QModelIndex SidebarModel::index(int row, int column, const QModelIndex& parent) const {
    const RowRecord::Rows* rows = ChildRows(parent);
    if (rows == nullptr || column != 0 || row < 0 || row >= static_cast<int>(rows->size()))
        return {};
    return createIndex(row, 0, (*rows)[static_cast<std::size_t>(row)].get());
}

QModelIndex SidebarModel::IndexOf(RowRecord* row) const {
    const RowRecord::Rows& siblings =
        row->parent == nullptr ? tree_.DataArray() : *row->parent->children;
    for (std::size_t i = 0; i < siblings.size(); ++i)
        if (siblings[i].get() == row) return createIndex(static_cast<int>(i), 0, row);
    return {};
}

QModelIndex SidebarModel::parent(const QModelIndex& child) const {
    RowRecord* row = RowOf(child);
    return row == nullptr || row->parent == nullptr ? QModelIndex() : IndexOf(row->parent);
}

int SidebarModel::rowCount(const QModelIndex& parent) const {
    if (parent.column() > 0) return 0;
    const RowRecord::Rows* rows = ChildRows(parent);
    return rows == nullptr ? 0 : static_cast<int>(rows->size());
}

int SidebarModel::columnCount(const QModelIndex&) const {
    return 1;
}

bool SidebarModel::hasChildren(const QModelIndex& parent) const {
    const RowRecord* row = RowOf(parent);
    if (row == nullptr) return !tree_.DataArray().empty();
    // The row's own mark decides, even once loaded: a folder whose only subfolders are hidden
    // by name still offers to open, and opens empty.
    return row->IsExpandable();
}

bool SidebarModel::canFetchMore(const QModelIndex& parent) const {
    const RowRecord* row = RowOf(parent);
    return row != nullptr && row->IsExpandable() && !row->children && !row->childrenAsked;
}

// The rows come with the answer; the row stays open, empty, until then.
void SidebarModel::fetchMore(const QModelIndex& parent) {
    RowRecord* row = RowOf(parent);
    if (row == nullptr || !canFetchMore(parent)) return;
    tree_.AskChildren(*row);
    Pump();
}

QVariant SidebarModel::data(const QModelIndex& index, int role) const {
    const RowRecord* row = RowOf(index);
    if (row == nullptr) return {};
    switch (role) {
        case Qt::DisplayRole:
            return Q(row->name);
        case Qt::ToolTipRole:
            return row->IsGroup() ? QVariant() : QVariant(Q(row->path));
        case KindRole:
            return Q(row->kind);
        case VofoRole:
            return Q(row->vofo);
        case PathRole:
            return Q(row->path);
        case ExifRole:
            return Q(row->exif);
        case AliasRole:
            return Q(row->alias);
        case ExpandRole:
            return Q(row->expand);
        default:
            return {};
    }
}

bool SidebarModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    RowRecord* row = RowOf(index);
    if (row == nullptr || role != ExpandRole) return false;
    row->expand = value.toBool() ? "true" : "false";
    return true;
}

Qt::ItemFlags SidebarModel::flags(const QModelIndex& index) const {
    const RowRecord* row = RowOf(index);
    // The header is neither a folder to show nor a stop for the keyboard.
    if (row == nullptr || row->IsGroup()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

}  // namespace lumivex
