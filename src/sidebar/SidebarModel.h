#pragma once
// The sidebar's tree of rows as a Qt item model. A row's children are built the first time the
// view asks to open it (canFetchMore / fetchMore), which is when the folders of that level are
// examined for subfolders and pictures.
#include <QAbstractItemModel>
#include <functional>
#include <memory>
#include <vector>

namespace lumivex {

class FolderTree;
struct RowRecord;

class SidebarModel : public QAbstractItemModel {
    Q_OBJECT

  public:
    // The row's keys for the delegate and the window.
    enum Role {
        KindRole = Qt::UserRole + 1,
        VofoRole,
        PathRole,
        ExifRole,
        AliasRole,
        ExpandRole,
    };

    // `tree` outlives the model.
    explicit SidebarModel(FolderTree& tree, QObject* parent = nullptr);

    // Runs `edit` on the tree (a rebuild, a row added or removed) between the model's reset
    // signals: every view forgets its rows, and every row closes.
    void Rebuild(const std::function<void()>& edit);
    // The row behind an index; nullptr for the invisible root.
    static RowRecord* RowOf(const QModelIndex& index);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    const std::vector<std::unique_ptr<RowRecord>>* ChildRows(const QModelIndex& parent) const;
    QModelIndex IndexOf(RowRecord* row) const;

    FolderTree& tree_;
};

}  // namespace lumivex
