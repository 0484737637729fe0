// The sidebar view: 19-pixel rows, selection reported before selectedRow changes, clicks on
// the header and below the rows, and volumes coming and going: rows inserted and
// removed, open rows kept, the selection kept on its folder or dropped with its volume, and a
// mounted camera card opened down to its numbered folder; a volume that does not answer holds
// the card back until it goes, and holds neither the window, nor itself put back, nor its end.
#include <gtest/gtest.h>

#include <stdlib.h>

#include <QTest>

#include "CameraFiles.h"
#include "SidebarTestSupport.h"
#include "core/Settings.h"
#include "model/FolderTree.h"
#include "sidebar/SidebarDelegate.h"
#include "sidebar/SidebarModel.h"
#include "sidebar/SidebarView.h"

namespace lumivex {
namespace {

using Event = SidebarView::VolumeEvent;

class SidebarViewTest : public ::testing::Test {
  protected:
    void SetUp() override {
        home_.Dirs({"config", "Desktop/Alpha/One", "Desktop/Alpha/Two", "Desktop/Beta/c"});
        fixtures::WriteCamera(home_.Path("Desktop/Beta/IMG_0001.JPG"));
        v1_.Dirs({"v1a", "v1b"});
        v2_.Dirs({"v2a"});
        card_.Dirs({"DCIM/CANONMSC", "DCIM/100CANON", "MISC"});
        ::setenv("HOME", home_.Str().c_str(), 1);  // the Desktop listed is home_'s
        ::setenv("XDG_CONFIG_HOME", home_.Str("config").c_str(), 1);
        prefs_.InitAll();
        prefs_.gPref[pref::kFolderNameColor] = 0x00AA33;
        MakeView({});
    }
    void MakeView(std::shared_ptr<const FolderLister> lister) {
        view_ = std::make_unique<SidebarView>(prefs_, nullptr, std::move(lister));
        view_->resize(240, 600);
        view_->show();
        QObject::connect(
            view_.get(), &SidebarView::selectionDidChange, [this](int row, const QString& path) {
                seen_.push_back(
                    {row, path.toStdString(), view_->selectedRow, view_->AutoSelecting()});
            });
    }
    // Every loaded row has its answers, and every row asked to open has its rows.
    static bool Answered(const RowRecord::Rows& rows) {
        for (const auto& r : rows) {
            if ((!r->path.empty() && !r->marked) || (r->childrenAsked && !r->children))
                return false;
            if (r->children && !Answered(*r->children)) return false;
        }
        return true;
    }
    bool Settled() {
        return QTest::qWaitFor([&] { return Answered(view_->Tree().DataArray()); }, 10000);
    }
    void SetVolumes(const std::vector<std::string>& paths) {
        view_->Model().Rebuild([&] { view_->Tree().MakeTable(paths); });
        ASSERT_TRUE(Settled());
    }
    int Row(const std::string& path) const { return view_->RowOfPath(path); }
    void Open(const std::string& path) {
        view_->expand(view_->IndexOfRow(Row(path)));
        ASSERT_TRUE(Settled());
    }
    void ClickAt(QPoint at) { QTest::mouseClick(view_->viewport(), Qt::LeftButton, {}, at); }
    QPoint Centre(int row) const { return view_->visualRect(view_->IndexOfRow(row)).center(); }
    // The folder the view shows selected (the recorded row may lag behind rows opened since).
    std::string Selected() const {
        const QModelIndexList rows = view_->selectionModel()->selectedRows();
        return rows.isEmpty() ? ""
                              : rows.front().data(SidebarModel::PathRole).toString().toStdString();
    }

    struct Seen {
        int row;
        std::string path;
        int selectedRowThen;
        bool autoSelecting;
        bool operator==(const Seen&) const = default;
    };
    test::ScratchTree home_, v1_, v2_, v3_, card_;
    Settings prefs_;
    std::vector<Seen> seen_;
    std::unique_ptr<SidebarView> view_;  // goes first, while what it reports to is still there
    std::string alpha_ = home_.Str("Desktop/Alpha"), beta_ = home_.Str("Desktop/Beta");
};

TEST_F(SidebarViewTest, NineteenPixelRowsUnderAHeaderInTheSettingsColours) {
    ASSERT_TRUE(Settled());
    EXPECT_TRUE(view_->isHeaderHidden());
    const int alpha = Row(alpha_);
    EXPECT_EQ(view_->visualRect(view_->IndexOfRow(alpha)).height(), 19);

    // A folder with pictures in the settings' folder colour.
    auto* delegate = qobject_cast<SidebarDelegate*>(view_->itemDelegate());
    ASSERT_NE(delegate, nullptr);
    EXPECT_EQ(delegate->TextColor(view_->IndexOfRow(Row(beta_))), QColor(0x00, 0xAA, 0x33));
    EXPECT_EQ(delegate->TextColor(view_->IndexOfRow(alpha)), QColor(32, 32, 32));
    EXPECT_EQ(delegate->TextColor(view_->IndexOfRow(0)), QColor(128, 128, 128));
    view_->SetFolderColor(0x123456);
    EXPECT_EQ(delegate->TextColor(view_->IndexOfRow(Row(beta_))), QColor(0x12, 0x34, 0x56));
}

TEST_F(SidebarViewTest, SelectionIsReportedBeforeSelectedRowChangesAndClicksBelowDeselect) {
    ASSERT_TRUE(Settled());
    const int alpha = Row(alpha_), beta = Row(beta_);
    ClickAt(Centre(beta));
    view_->SelectRow(alpha);
    ClickAt(Centre(0));  // the header row takes no click
    const int below = view_->visualRect(view_->IndexOfRow(view_->VisibleRowCount() - 1)).bottom();
    ASSERT_LT(below + 30, view_->viewport()->height());
    ClickAt(QPoint(20, below + 30));
    EXPECT_EQ(seen_,
              (std::vector<Seen>{
                  {beta, beta_, -1, false}, {alpha, alpha_, beta, false}, {-1, "", alpha, false}}));
}

TEST_F(SidebarViewTest, OpenRowsAndTheSelectedFolderSurviveMountsAndUnmounts) {
    SetVolumes({v1_.Str(), v2_.Str()});
    const std::string c = home_.Str("Desktop/Beta/c");
    for (const std::string& p : {v1_.Str(), alpha_, beta_})  // open rows above the selection
        Open(p);
    view_->SelectRow(Row(c));
    Open(v2_.Str());  // below the insertion point, above the selection
    const int before = Row(c);
    seen_.clear();

    // A mount: the new row after the last volume, closed; the selection one row down.
    view_->getPost(Event::Mount, v3_.Str());
    ASSERT_TRUE(Settled());
    EXPECT_EQ(Row(v3_.Str()), Row(v2_.Str()) + 2);
    EXPECT_FALSE(view_->isExpanded(view_->IndexOfRow(Row(v3_.Str()))));
    EXPECT_EQ(view_->selectedRow, before + 1);

    // The removal of an open volume above the selection moves it by more than one row; a
    // path that is not listed changes nothing.
    view_->getPost(Event::Unmount, v1_.Str());
    view_->getPost(Event::Unmount, "/no/such/mount");
    EXPECT_EQ(view_->selectedRow, before + 1 - 3);
    EXPECT_TRUE(seen_.empty());  // the same folder: the window is not told again

    // The volume that holds the selected folder goes: no selection, and the window hears so.
    view_->SelectRow(Row(v2_.Str("v2a")));
    seen_.clear();
    view_->getPost(Event::Unmount, v2_.Str());
    EXPECT_EQ(seen_, (std::vector<Seen>{{-1, "", -1, false}}));
}

TEST_F(SidebarViewTest, AMountedCardIsOpenedDownToItsNumberedFolderAndSelected) {
    SetVolumes({v1_.Str()});
    view_->SelectRow(Row(alpha_));
    seen_.clear();
    view_->getPost(Event::Mount, card_.Str());
    const std::string folder = card_.Str("DCIM/100CANON");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !seen_.empty(); }, 10000));
    EXPECT_EQ(seen_.size(), 1u);
    EXPECT_EQ(std::tie(seen_[0].path, seen_[0].autoSelecting), std::make_tuple(folder, true));
    EXPECT_FALSE(view_->AutoSelecting());
    EXPECT_EQ(Row(folder), Row(card_.Str()) + 2);  // "DCIM" before "MISC", "100" first

    // The same at start: a card listed with the others is found without a mount.
    SetVolumes({v1_.Str(), card_.Str()});
    view_->gFI.clear();
    view_->AutoSelect();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !view_->gFI.empty(); }, 10000));
    EXPECT_EQ(std::make_pair(view_->gFI, Selected()), std::make_pair(card_.Str(), folder));
}

// A volume above a mounted card does not answer: the card's row shows at once, and its folder is
// selected only once the volume is taken away. Put back at the same place, the volume is read
// while the worker stuck in it before still waits; the view is then closed with that worker in it.
TEST_F(SidebarViewTest, AVolumeThatDoesNotAnswerHoldsTheCardBackUntilItGoes) {
    auto gate = std::make_shared<test::GateLister>(v1_.Str(), true);
    MakeView(gate);
    seen_.clear();
    view_->Model().Rebuild([&] { view_->Tree().MakeTable({v1_.Str()}); });
    view_->getPost(Event::Mount, card_.Str());
    ASSERT_TRUE(QTest::qWaitFor([&] { return gate->Waiting() && Row(card_.Str()) > 0; }, 10000));
    QTest::qWait(50);
    EXPECT_TRUE(seen_.empty());
    view_->getPost(Event::Unmount, v1_.Str());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !seen_.empty(); }, 10000));
    EXPECT_EQ(Selected(), card_.Str("DCIM/100CANON"));
    view_->getPost(Event::Mount, v1_.Str());
    EXPECT_TRUE(Settled());
    EXPECT_TRUE(gate->Waiting());
    view_.reset();
    gate->Release();
    QTest::qWait(20);
}

}  // namespace
}  // namespace lumivex
