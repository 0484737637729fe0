// From a row of the sidebar to the grid: selecting a Desktop folder scans it, a click below
// the rows empties the grid, the rested pointer names a cut label, the contextual menu follows
// the selection.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <filesystem>
#include <fstream>

#include "ExifJpegBuilder.h"
#include "ScratchDir.h"
#include "ScriptedPrompter.h"
#include "app/App.h"
#include "browser/MainWindow.h"
#include "browser/ThumbnailCanvas.h"
#include "core/Settings.h"
#include "sidebar/SidebarView.h"

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
        SidebarView* o = w_->Outline();
        for (int r = 0; r < o->VisibleRowCount(); ++r)
            if (o->PathOfRow(r) == path.string()) return r;
        return -1;
    }

    fixtures::ScratchDir scratch_;
    fs::path root_ = scratch_.path();
    fs::path desktop_;
    ScriptedPrompter prompter_;
    std::unique_ptr<App> app_;
    MainWindow* w_ = nullptr;
};

TEST_F(SidebarScanTest, RowSelectionScansAndAClickBelowTheRowsClears) {
    EXPECT_EQ(RowOf(desktop_ / "tmp"), -1);
    const int row = RowOf(desktop_ / "Card");
    ASSERT_GT(row, 0);
    SidebarView* o = w_->Outline();
    QSignalSpy done(w_, &MainWindow::scanFinished);
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
    QSignalSpy done(w_, &MainWindow::scanFinished);
    w_->SelFolder1((desktop_ / "Card").string());
    ASSERT_TRUE(done.wait(10000));
    w_->Canvas()->repaint();  // painting finds which labels had to be cut
    const auto& items = w_->Items();
    ASSERT_EQ(items.size(), 2u);
    EXPECT_TRUE(items[0].compact);
    EXPECT_FALSE(items[1].compact);

    // The pointer rests for a full timer round over the cut label's picture.
    QTest::mouseMove(w_->Canvas(), QPoint(items[0].x + 20, items[0].y + 20));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return w_->ToolTipText() == "A_very_long_file_name_that_cannot_fit"; }, 3000))
        << w_->ToolTipText().toStdString();
    QTest::mouseMove(w_->Canvas(), QPoint(items[1].x + 20, items[1].y + 20));
    ASSERT_TRUE(QTest::qWaitFor([&] { return w_->ToolTipText().isEmpty(); }, 3000));

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

TEST_F(SidebarScanTest, ACardFoundDuringAScanTakesOverTheGrid) {
    fixtures::ExifJpegBuilder b;
    b.Ifd0().Ascii(0x010F, "M");
    b.JpegThumbnail(16, 12);
    fs::create_directories(desktop_ / "Big");
    for (int i = 0; i < 400; ++i)
        b.Write(desktop_ / "Big" / ("IMG_" + std::to_string(1000 + i) + ".JPG"));
    const fs::path card = root_ / "card";
    fs::create_directories(card / "DCIM" / "100TEST");
    for (int i = 0; i < 3; ++i)
        b.Write(card / "DCIM" / "100TEST" / ("DSC_000" + std::to_string(i) + ".JPG"));

    // The scan has started and not been collected when the card's volume appears.
    w_->SelFolder1((desktop_ / "Big").string());
    ASSERT_TRUE(w_->ScanRunning());
    w_->Outline()->getPost(SidebarView::VolumeEvent::Mount, card.string());
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return !w_->ScanRunning() && w_->Items().size() == 3; }, 10000))
        << w_->Items().size() << " items";
    EXPECT_EQ(w_->Items()[0].fname, "DSC_0000.JPG");
    SidebarView* o = w_->Outline();
    EXPECT_EQ(o->PathOfRow(o->selectedRow), (card / "DCIM" / "100TEST").string());
}

TEST_F(SidebarScanTest, TheQuitEjectsOnlyAStillMountedCardAndSaysWhatWentWrong) {
    const fs::path script = root_ / "eject.sh";
    const fs::path log = root_ / "eject.log";
    {
        std::ofstream out(script);
        out << "echo \"$1\" >> '" << log.string() << "'\nexit 3\n";
    }
    w_->SetEjectScript(script);
    SidebarView* o = w_->Outline();
    Settings& prefs = app_->Prefs();

    // Off in the settings, no card found, or the card gone: nothing runs.
    o->gFI = "/proc";  // a mount point every Linux system has, standing in for the card
    prefs.gPref[pref::kEjectAtQuit] = 0;
    w_->UnmountCam();
    prefs.gPref[pref::kEjectAtQuit] = 1;
    for (const std::string& gone : {std::string(), std::string("/"), (root_ / "gone").string()}) {
        o->gFI = gone;
        w_->UnmountCam();
    }
    EXPECT_FALSE(fs::exists(log));
    EXPECT_TRUE(prompter_.asked.isEmpty());
    EXPECT_TRUE(o->Observing());

    // The script's failure is reported with its code; the observer was removed first.
    o->gFI = "/proc";
    w_->UnmountCam();
    EXPECT_EQ(prompter_.asked, QStringList({"error code: 3"}));
    EXPECT_FALSE(o->Observing());
    std::ifstream in(log);
    std::string arg;
    std::getline(in, arg);
    EXPECT_EQ(arg, "/proc");

    w_->SetEjectScript(root_ / "missing.sh");
    w_->UnmountCam();
    EXPECT_EQ(prompter_.asked.back(), "file not found.");
}

}  // namespace
}  // namespace lumivex
