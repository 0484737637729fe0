// Volumes coming and going while the sidebar is shown: rows inserted and removed, open rows
// kept, the selection kept on its folder or dropped with its volume, and a mounted camera
// card opened down to its numbered folder.
#include <gtest/gtest.h>
#include <stdlib.h>

#include "SidebarTestSupport.h"
#include "core/Settings.h"
#include "model/FolderTree.h"
#include "sidebar/SidebarModel.h"
#include "sidebar/SidebarView.h"

namespace lumivex {
namespace {

using Event = SidebarView::VolumeEvent;

class VolumeEventsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        home_.Dirs({"config", "Desktop/D1/a", "Desktop/D1/b", "Desktop/D2/c"});
        v1_.Dirs({"v1a", "v1b"});
        v2_.Dirs({"v2a"});
        card_.Dirs({"DCIM/CANONMSC", "DCIM/100CANON", "MISC"});
        card_.Picture("DCIM/100CANON/IMG_0001.JPG");
        scoped_ = std::make_unique<test::ScopedHome>(home_);
        prefs_.InitAll();
        view_ = std::make_unique<SidebarView>(prefs_);
        view_->resize(240, 600);
        view_->show();
        QObject::connect(view_.get(), &SidebarView::selectionDidChange,
                         [this](int row, const QString& path) {
                             seen_.emplace_back(row, path.toStdString());
                             autoSeen_.push_back(view_->AutoSelecting());
                         });
    }
    void TearDown() override {
        view_.reset();
        scoped_.reset();
    }
    void SetVolumes(const std::vector<std::string>& paths) {
        view_->Model().Rebuild([&] { view_->Tree().MakeTable(paths); });
    }
    void Open(const std::string& path) { view_->expand(view_->IndexOfRow(Row(path))); }
    bool IsOpen(const std::string& path) const {
        return view_->isExpanded(view_->IndexOfRow(Row(path)));
    }
    int Row(const std::string& path) const { return view_->RowOfPath(path); }
    // The folder the view shows selected (the recorded row may lag behind rows opened since).
    std::string Selected() const {
        const QModelIndexList rows = view_->selectionModel()->selectedRows();
        return rows.isEmpty() ? ""
                              : rows.front().data(SidebarModel::PathRole).toString().toStdString();
    }

    test::ScratchTree home_, v1_, v2_, v3_, card_;
    Settings prefs_;
    std::unique_ptr<SidebarView> view_;
    std::vector<std::pair<int, std::string>> seen_;
    std::vector<bool> autoSeen_;
    std::unique_ptr<test::ScopedHome> scoped_;
};

TEST_F(VolumeEventsTest, OpenRowsAndTheSelectedFolderSurviveMountsAndUnmounts) {
    SetVolumes({v1_.Str(), v2_.Str()});
    const std::string d1 = home_.Str("Desktop/D1"), d2 = home_.Str("Desktop/D2");
    const std::string c = home_.Str("Desktop/D2/c");
    ASSERT_EQ(Row(v1_.Str()), 1);
    Open(v1_.Str());  // two open rows above the selection
    Open(d1);
    Open(d2);
    view_->SelectRow(Row(c));
    Open(v2_.Str());  // an open row below the insertion point, above the selection
    const int before = Row(c);
    ASSERT_EQ(Selected(), c);
    seen_.clear();

    // A mount: the new row after the last volume, closed; the selection one row down.
    view_->getPost(Event::Mount, v3_.Str());
    EXPECT_EQ(Row(v3_.Str()), Row(v2_.Str()) + 2);
    EXPECT_FALSE(IsOpen(v3_.Str()));
    EXPECT_EQ(view_->selectedRow, before + 1);
    EXPECT_EQ(Selected(), c);
    for (const std::string& p : {v1_.Str(), v2_.Str(), d1, d2})
        EXPECT_TRUE(IsOpen(p)) << p;
    EXPECT_TRUE(seen_.empty());  // the same folder: the window is not told again
    EXPECT_EQ(view_->gFI, "");

    // The removal of an open volume above the selection moves it by more than one row.
    view_->getPost(Event::Unmount, v1_.Str());
    EXPECT_EQ(Row(v1_.Str()), -1);
    EXPECT_EQ(view_->selectedRow, before + 1 - 3);
    EXPECT_EQ(Selected(), c);
    EXPECT_TRUE(IsOpen(d1));
    // A path that is not listed changes nothing.
    view_->getPost(Event::Unmount, "/no/such/mount");
    EXPECT_EQ(Selected(), c);
    EXPECT_TRUE(seen_.empty());

    // The volume that holds the selected folder goes: no selection, and the window hears so.
    view_->SelectRow(Row(v2_.Str("v2a")));
    seen_.clear();
    view_->getPost(Event::Unmount, v2_.Str());
    EXPECT_EQ(view_->selectedRow, -1);
    EXPECT_TRUE(view_->selectionModel()->selectedRows().isEmpty());
    ASSERT_EQ(seen_.size(), 1u);
    EXPECT_EQ(seen_[0], std::make_pair(-1, std::string()));

    // Without any volume row a mount inserts nothing.
    view_->getPost(Event::Unmount, v3_.Str());
    const int rows = view_->VisibleRowCount();
    view_->getPost(Event::Mount, card_.Str());
    EXPECT_EQ(view_->VisibleRowCount(), rows);
    EXPECT_EQ(view_->gFI, "");
}

TEST_F(VolumeEventsTest, AMountedCardIsOpenedDownToItsNumberedFolderAndSelected) {
    SetVolumes({v1_.Str()});
    view_->SelectRow(Row(home_.Str("Desktop/D1")));
    seen_.clear();
    view_->getPost(Event::Mount, card_.Str());
    const std::string folder = card_.Str("DCIM/100CANON");
    ASSERT_EQ(seen_.size(), 1u);
    EXPECT_EQ(seen_[0].second, folder);
    EXPECT_TRUE(autoSeen_.back());
    EXPECT_FALSE(view_->AutoSelecting());
    EXPECT_EQ(Selected(), folder);
    EXPECT_EQ(view_->gFI, card_.Str());
    EXPECT_TRUE(IsOpen(card_.Str()));
    EXPECT_TRUE(IsOpen(card_.Str("DCIM")));
    EXPECT_FALSE(IsOpen(v1_.Str()));
    EXPECT_EQ(Row(folder), Row(card_.Str()) + 2);  // "DCIM" before "MISC", "100" first

    // The same at start: the card listed with the others is found without a mount.
    SetVolumes({v1_.Str(), card_.Str()});
    view_->selectedRow = -1;
    view_->gFI.clear();
    view_->AutoSelect();
    EXPECT_EQ(Selected(), folder);
    EXPECT_EQ(view_->gFI, card_.Str());

    // A card without a numbered folder selects nothing.
    SetVolumes({v1_.Str()});
    view_->selectedRow = -1;
    test::ScratchTree blank;
    blank.Dirs({"DCIM/MISC"});
    seen_.clear();
    view_->getPost(Event::Mount, blank.Str());
    EXPECT_GE(Row(blank.Str()), 0);
    EXPECT_TRUE(seen_.empty());
}

}  // namespace
}  // namespace lumivex
