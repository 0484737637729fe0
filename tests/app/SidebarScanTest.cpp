// From a row of the sidebar to the grid: selecting a Desktop folder scans it, a click below
// the rows empties the grid, the rested pointer names a cut label, the contextual menu follows
// the selection.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <filesystem>

#include "ExifJpegBuilder.h"
#include "ScratchDir.h"
#include "ScriptedPrompter.h"
#include "app/App.h"
#include "browser/ThumbnailCanvas.h"
#include "browser/Window1.h"
#include "sidebar/NSOutlineView.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

class SidebarScanTest : public ::testing::Test {
  protected:
    void SetUp() override {
        desktop_ = root_ / "home" / "Desktop";
        fs::create_directories(desktop_ / "Card");
        fs::create_directories(desktop_ / "tmp");  // never a row
        ::setenv("HOME", (root_ / "home").c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", (root_ / "home" / ".config").c_str(), 1);
        fixtures::ExifJpegBuilder b;
        b.Ifd0().Ascii(0x010F, "M");
        b.JpegThumbnail(160, 120);
        b.Write(desktop_ / "Card" / "DSC_0001.JPG");
        b.Write(desktop_ / "Card" / "A_very_long_file_name_that_cannot_fit.JPG");
        app_ = std::make_unique<App>(prompter_, root_ / "settings");
        app_->InitApp();
        w_ = app_->MakeWindow();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(w_));
    }
    void TearDown() override { app_.reset(); }
    int RowOf(const fs::path& path) const {
        NSOutlineView* o = w_->Outline();
        for (int r = 0; r < o->VisibleRowCount(); ++r)
            if (o->PathOfRow(r) == path.string()) return r;
        return -1;
    }

    fixtures::ScratchDir scratch_;
    fs::path root_ = scratch_.path();
    fs::path desktop_;
    ScriptedPrompter prompter_;
    std::unique_ptr<App> app_;
    Window1* w_ = nullptr;
};

TEST_F(SidebarScanTest, RowSelectionScansAndAClickBelowTheRowsClears) {
    EXPECT_EQ(RowOf(desktop_ / "tmp"), -1);
    const int row = RowOf(desktop_ / "Card");
    ASSERT_GT(row, 0);
    NSOutlineView* o = w_->Outline();
    QSignalSpy done(w_, &Window1::scanFinished);
    const QRect rect = o->visualRect(o->IndexOfRow(row));
    QTest::mouseClick(o->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    ASSERT_TRUE(done.wait(10000));
    ASSERT_EQ(w_->Items().size(), 2u);
    EXPECT_EQ(w_->Items()[0].fname, "A_very_long_file_name_that_cannot_fit.JPG");
    EXPECT_EQ(o->selectedRow, row);

    // Select a thumbnail, then click the empty sidebar: rows, grid and selection all go.
    QTest::mouseClick(w_->Canvas(), Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    EXPECT_EQ(w_->Selection().pCidxFlg, 1);
    QTest::mouseClick(o->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(20, o->viewport()->height() - 5));
    EXPECT_EQ(o->selectedRow, -1);
    EXPECT_TRUE(w_->Items().empty());
    EXPECT_EQ(w_->Selection().pCidxFlg, 0);
    EXPECT_FALSE(w_->Commands().Enabled(CommandState::kExportAll));
}

TEST_F(SidebarScanTest, RestingPointerNamesCutLabelsAndMenuFollowsSelection) {
    QSignalSpy done(w_, &Window1::scanFinished);
    w_->SelFolder1((desktop_ / "Card").string());
    ASSERT_TRUE(done.wait(10000));
    w_->Canvas()->repaint();  // painting finds which labels had to be cut
    const auto& items = w_->Items();
    ASSERT_EQ(items.size(), 2u);
    EXPECT_TRUE(items[0].compact);
    EXPECT_FALSE(items[1].compact);

    // The pointer rests for a full timer round over the cut label's picture.
    QTest::mouseMove(w_->Canvas(), QPoint(items[0].x + 20, items[0].y + 20));
    QTRY_COMPARE_WITH_TIMEOUT(w_->ToolTipText(), QString("A_very_long_file_name_that_cannot_fit"),
                              3000);
    QTest::mouseMove(w_->Canvas(), QPoint(items[1].x + 20, items[1].y + 20));
    QTRY_VERIFY_WITH_TIMEOUT(w_->ToolTipText().isEmpty(), 3000);

    EXPECT_EQ(w_->BuildContextMenu(w_), nullptr);  // nothing selected: no menu of the pane
    QTest::mouseClick(w_->Canvas(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(items[1].x + 1, items[1].y + 1));
    std::unique_ptr<QMenu> one(w_->BuildContextMenu(nullptr));
    ASSERT_NE(one, nullptr);
    QStringList texts;
    for (QAction* a : one->actions())
        texts << (a->isSeparator() ? "-" : a->text());
    EXPECT_EQ(texts, QStringList({"exif形式で書き出し...", "非圧縮jpegで書き出し...",
                                  "形式を指定して書き出し...", "-", "左に回転", "右に回転", "-",
                                  "クリップボードにコピー", "-", "Exif情報"}));
    w_->SelectAll();
    std::unique_ptr<QMenu> many(w_->BuildContextMenu(nullptr));
    ASSERT_NE(many, nullptr);
    EXPECT_EQ(many->actions().size(), 6);
}

}  // namespace
}  // namespace lumivex
