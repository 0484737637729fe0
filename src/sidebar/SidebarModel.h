#pragma once
// The sidebar's tree of rows as a Qt item model. A row's children are asked for the first
// time the view opens it (canFetchMore / fetchMore). The tree's questions to the disk are
// answered on worker threads; the answers come back here, on the main thread, and the rows
// they fill or mark are announced to the views then.
#include <QAbstractItemModel>
#include <functional>
#include <memory>
#include <vector>

#include "model/FolderTree.h"

namespace lumivex {

class FolderLister;
class QuestionLanes;
struct FolderAnswer;
struct RowRecord;

class SidebarModel : public QAbstractItemModel, private FolderTree::Edits {
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

    // `tree` outlives the model. `lister` reads the disk (by default the real one).
    explicit SidebarModel(FolderTree& tree, QObject* parent = nullptr,
                          std::shared_ptr<const FolderLister> lister = {});
    ~SidebarModel() override;

    // Runs `edit` on the tree (a rebuild, a row added or removed) between the model's reset
    // signals: every view forgets its rows, and every row closes.
    void Rebuild(const std::function<void()>& edit);
    // Sends the tree's new questions to the workers.
    void Pump();
    // Forgets the questions still waiting about a volume row that went.
    void DropVolume(const RowRecord& volume);
    // A camera find that only waited for a volume now gone is announced (cameraFound).
    void OpenWaitingCamera();
    // No answer arrives after this (the window is closing); a stuck worker is left behind.
    void Close();
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

  signals:
    // A camera search found its folder; the rows on the way are loaded.
    void cameraFound(const QModelIndex& volume, const QModelIndex& dcim, const QModelIndex& folder);

  private:
    void OnAnswer(const FolderAnswer& answer);
    void Announce(const std::optional<FolderTree::CameraRows>& found);
    void WillAddChildren(RowRecord& parent, int count) override;
    void DidAddChildren(RowRecord& parent) override;
    void Marked(RowRecord& row) override;
    const std::vector<std::unique_ptr<RowRecord>>* ChildRows(const QModelIndex& parent) const;
    QModelIndex IndexOf(RowRecord* row) const;

    FolderTree& tree_;
    std::unique_ptr<QuestionLanes> lanes_;
};

}  // namespace lumivex
