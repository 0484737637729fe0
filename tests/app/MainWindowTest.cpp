// The desktop program driven as a user would: start with a settings folder of its own, select
// folders, wait for the scan, click, stop, close, and read what was saved.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSplitter>
#include <QTest>
#include <filesystem>
#include <fstream>

#include "ExifJpegBuilder.h"
#include "ScratchDir.h"
#include "ScriptedPrompter.h"
#include "app/App.h"
#include "browser/MainWindow.h"
#include "browser/ScanProgressStrip.h"
#include "browser/ThumbnailCanvas.h"
#include "core/PrefFile.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

std::vector<std::uint8_t> CameraBytes(int thumbW, int thumbH) {
    fixtures::ExifJpegBuilder b;
    b.Ifd0().Ascii(0x010F, "M");
    b.JpegThumbnail(thumbW, thumbH);
    return b.Build();
}

void WriteBytes(const fs::path& file, const std::vector<std::uint8_t>& bytes) {
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
}

class MainWindowTest : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(root_ / "home" / "Desktop");
        fs::create_directories(root_ / "settings");
        // The sidebar lists the Desktop of this home, not the tester's.
        ::setenv("HOME", (root_ / "home").c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", (root_ / "home" / ".config").c_str(), 1);
        app_ = std::make_unique<App>(prompter_, root_ / "settings");
    }
    void TearDown() override { app_.reset(); }

    MainWindow* Start() {
        app_->InitApp();
        MainWindow* w = app_->MakeWindow();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(w));
        return w;
    }
    // A folder of `count` pictures with thumbnails thumbW x thumbH, written out of name order.
    fs::path Folder(const std::string& name, int count, int thumbW = 100, int thumbH = 75) {
        const fs::path dir = root_ / name;
        fs::create_directories(dir);
        const auto bytes = CameraBytes(thumbW, thumbH);
        for (int i = count - 1; i >= 0; --i) {
            char file[32];
            std::snprintf(file, sizeof file, "IMG_%05d.JPG", i);
            WriteBytes(dir / file, bytes);
        }
        return dir;
    }
    static void WaitForScan(MainWindow* w) {
        QSignalSpy done(w, &MainWindow::scanFinished);
        if (w->ScanRunning()) {
            ASSERT_TRUE(done.wait(20000));
        }
    }
    // Moves the divider until the canvas is `width` pixels wide.
    static void CanvasWidth(MainWindow* w, int width) {
        QSplitter* s = w->Splitter();
        const int total = s->sizes()[0] + s->sizes()[1];
        const int extra = s->sizes()[1] - w->Canvas()->width();
        s->setSizes({total - width - extra, width + extra});
        QCoreApplication::processEvents();
        ASSERT_EQ(w->Canvas()->width(), width);
    }

    fixtures::ScratchDir scratch_;
    fs::path root_ = scratch_.path();
    ScriptedPrompter prompter_;
    std::unique_ptr<App> app_;
};

TEST_F(MainWindowTest, ScanShowsItemsInNameOrderAndFlowsThemToThePixel) {
    const fs::path dir = Folder("card", 7);
    std::ofstream(dir / "notes.txt") << "not a picture";
    WriteBytes(dir / "AAA_noexif.JPG", {0xFF, 0xD8, 0xFF, 0xD9});
    MainWindow* w = Start();
    CanvasWidth(w, 320);
    w->SelFolder1(dir.string());
    EXPECT_TRUE(w->ProgressStrip()->JobShown());
    WaitForScan(w);
    EXPECT_FALSE(w->ProgressStrip()->JobShown());

    const auto& items = w->Items();
    ASSERT_EQ(items.size(), 7u);
    for (std::size_t i = 0; i < items.size(); ++i) {
        char name[32];
        std::snprintf(name, sizeof name, "IMG_%05zu.JPG", i);
        EXPECT_EQ(items[i].fname, name);
        EXPECT_EQ(items[i].w, 100);
        EXPECT_EQ(items[i].h, 75);
    }
    // Three 100-pixel items fill a 320-pixel row: the third ends at 315 plus its 5-pixel gap.
    const int xs[] = {5, 110, 215, 5, 110, 215, 5};
    const int ys[] = {5, 5, 5, 100, 100, 100, 195};
    for (std::size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(items[i].x, xs[i]) << i;
        EXPECT_EQ(items[i].y, ys[i]) << i;
    }
    EXPECT_TRUE(w->Commands().Enabled(CommandState::kExportAll));

    // One pixel less and only two fit; the re-flow follows the divider at once.
    CanvasWidth(w, 319);
    EXPECT_EQ(items[2].x, 5);
    EXPECT_EQ(items[2].y, 100);
    EXPECT_EQ(items[6].y, 290);
    // Content 290 + 75 + 20 = 385 pixels high: the bar scrolls exactly the overhang.
    const int over = 385 - w->Canvas()->height();
    EXPECT_EQ(w->ScrollBar()->isEnabled(), over > 0);
    EXPECT_EQ(w->ScrollBar()->maximum(), std::max(over, 0));
}

TEST_F(MainWindowTest, ClickShiftClickAndGroundClickDriveSelectionAndCommands) {
    const fs::path dir = Folder("card", 4);
    MainWindow* w = Start();
    CanvasWidth(w, 320);
    w->SelFolder1(dir.string());
    WaitForScan(w);
    const auto& items = w->Items();
    ASSERT_EQ(items.size(), 4u);
    auto at = [&](std::size_t i, int dy = 1) { return QPoint(items[i].x + 1, items[i].y + dy); };
    const auto& cmd = w->Commands();

    QTest::mouseClick(w->Canvas(), Qt::LeftButton, Qt::NoModifier, at(1));
    EXPECT_TRUE(items[1].selected);
    EXPECT_EQ(w->Selection().pCidxFlg, 1);
    EXPECT_EQ(w->Selection().pCidx, 1);
    EXPECT_TRUE(cmd.Enabled(CommandState::kExifInfo));
    EXPECT_TRUE(cmd.Enabled(CommandState::kRotateLeft));

    QTest::mouseClick(w->Canvas(), Qt::LeftButton, Qt::ShiftModifier, at(3));
    EXPECT_TRUE(items[1].selected);
    EXPECT_TRUE(items[3].selected);
    EXPECT_EQ(w->Selection().pCidxFlg, 2);
    EXPECT_FALSE(cmd.Enabled(CommandState::kExifInfo));
    EXPECT_TRUE(cmd.Enabled(CommandState::kExportMenu));

    // A plain click on an item's label hits nothing and clears the selection.
    QTest::mouseClick(w->Canvas(), Qt::LeftButton, Qt::NoModifier, at(0, 75 + 8));
    EXPECT_EQ(w->Selection().pCidxFlg, 0);
    for (const auto& item : items)
        EXPECT_FALSE(item.selected);
    EXPECT_FALSE(cmd.Enabled(CommandState::kExportMenu));

    // A right click on one of several selected items keeps them all for the menu.
    w->SelectAll();
    QTest::mouseClick(w->Canvas(), Qt::RightButton, Qt::NoModifier, at(2));
    EXPECT_EQ(w->Selection().pCidxFlg, 2);
    for (const auto& item : items)
        EXPECT_TRUE(item.selected);
}

TEST_F(MainWindowTest, StopKeepsAPrefixAndASecondSelectionDuringAScanIsDropped) {
    const fs::path big = Folder("big", 4000, 16, 12);
    const fs::path other = Folder("other", 3);
    MainWindow* w = Start();
    w->SelFolder1(big.string());
    w->SelFolder1(other.string());  // dropped: one job at a time
    auto* bar = w->ProgressStrip()->ProgressBar1;
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar->value() > 0; }, 10000));
    QTest::mouseClick(w->ProgressStrip()->PushButton1, Qt::LeftButton);
    WaitForScan(w);
    const auto& items = w->Items();
    ASSERT_FALSE(items.empty());
    EXPECT_LT(items.size(), 4000u);
    for (std::size_t i = 0; i < items.size(); ++i) {
        char name[32];
        std::snprintf(name, sizeof name, "IMG_%05zu.JPG", i);
        ASSERT_EQ(items[i].fname, name);
        ASSERT_EQ(fs::path(items[i].path).parent_path(), big);
    }
    // Idle again: the next selection is taken.
    w->SelFolder1(other.string());
    WaitForScan(w);
    EXPECT_EQ(w->Items().size(), 3u);
}

TEST_F(MainWindowTest, CloseSavesTheFrameInTheCurrentLayout) {
    MainWindow* w = Start();
    w->resize(900, 600);
    QCoreApplication::processEvents();
    const QRect frame(w->x(), w->y(), w->width(), w->height());
    const int canvasLeft = w->Canvas()->mapTo(w, QPoint(0, 0)).x();
    w->close();

    const fs::path file = root_ / "settings" / "pref";
    ASSERT_TRUE(fs::exists(file));
    std::ifstream in(file, std::ios::binary);
    char head[6] = {};
    in.read(head, 6);
    EXPECT_EQ(std::string(head + 1, 5), "pref4");

    Settings saved;
    saved.InitAll();
    ASSERT_EQ(PrefFile::LoadPref(saved, root_ / "settings"), LoadResult::Loaded);
    EXPECT_EQ(saved.gPref[pref::kFrameLeft], frame.x());
    EXPECT_EQ(saved.gPref[pref::kFrameTop], frame.y());
    EXPECT_EQ(saved.gPref[pref::kFrameWidth], 900);
    EXPECT_EQ(saved.gPref[pref::kFrameHeight], 600);
    EXPECT_EQ(saved.gPref[pref::kDividerLeft], canvasLeft);
}

TEST_F(MainWindowTest, SavedFrameComesBackAndAMissingFileIsSaid) {
    // A folder without a settings file: the user is told, and the defaults hold.
    app_->InitApp();
    ASSERT_EQ(prompter_.asked.size(), 1);
    EXPECT_EQ(prompter_.asked[0].toStdString(), PrefFile::kNoFileMessage);

    Settings s;
    s.InitAll();
    s.gPref[pref::kFrameWidth] = 600;  // below the minimum width
    s.gPref[pref::kFrameHeight] = 700;
    s.gPref[pref::kDividerLeft] = 260;
    ASSERT_TRUE(PrefFile::SavePref(s, root_ / "settings"));
    app_ = std::make_unique<App>(prompter_, root_ / "settings");
    MainWindow* w = Start();
    EXPECT_EQ(w->width(), MainWindow::kMinWidth);
    EXPECT_EQ(w->height(), 700);
    EXPECT_EQ(w->Canvas()->mapTo(w, QPoint(0, 0)).x(), 260);
}

}  // namespace
}  // namespace lumivex
