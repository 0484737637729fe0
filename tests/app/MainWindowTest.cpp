// The desktop program driven as a user would: start with a settings folder and a Desktop of
// its own, select folders in the sidebar or directly, click, stop, use the toolbar and the menu
// bar, close, and read what was saved.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QHash>
#include <QLabel>
#include <QMenu>
#include <QPalette>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSplitter>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <filesystem>
#include <fstream>
#include <functional>

#include "CameraFiles.h"
#include "ExifJpegBuilder.h"
#include "ReadBack.h"
#include "ScratchDir.h"
#include "ScriptedPrompter.h"
#include "app/App.h"
#include "browser/ExifInfoGPS.h"
#include "browser/ExportController.h"
#include "browser/MainWindow.h"
#include "browser/ScanProgressStrip.h"
#include "browser/ThumbnailCanvas.h"
#include "browser/ThumbnailCommands.h"
#include "core/PrefFile.h"
#include "prefs/PrefDlg.h"
#include "shell/MainMenuBar.h"
#include "shell/MainToolBar.h"
#include "sidebar/SidebarView.h"
#include "sidebar/VolumeWatcher.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;
using fixtures::NumberedNames;
using fixtures::WriteCameraFolder;

class MainWindowTest : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(desktop_);
        fs::create_directories(root_ / "settings");
        ::setenv("HOME", (root_ / "home").c_str(), 1);  // the sidebar lists this Desktop
        ::setenv("XDG_CONFIG_HOME", (root_ / "home" / ".config").c_str(), 1);
        app_ = std::make_unique<App>(prompter_, root_ / "settings");
    }
    void TearDown() override {
        app_.reset();
        if (!oldPath_.empty()) ::setenv("PATH", oldPath_.c_str(), 1);
    }

    MainWindow* Start() {
        app_->InitApp();
        w_ = app_->MakeWindow();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(w_));
        return w_;
    }
    bool Scan(const fs::path& dir) {
        QSignalSpy done(w_, &MainWindow::scanFinished);
        w_->SelFolder1(dir.string());
        return done.wait(20000);
    }
    // Moves the divider until the canvas is `width` pixels wide.
    void CanvasWidth(int width) {
        QSplitter* s = w_->Splitter();
        const int total = s->sizes()[0] + s->sizes()[1];
        const int extra = s->sizes()[1] - w_->Canvas()->width();
        s->setSizes({total - width - extra, width + extra});
        QCoreApplication::processEvents();
        ASSERT_EQ(w_->Canvas()->width(), width);
    }
    void Click(int item, Qt::KeyboardModifiers mods = {}, Qt::MouseButton b = Qt::LeftButton) {
        const ItemRecord& r = w_->Items()[static_cast<std::size_t>(item)];
        QTest::mouseClick(w_->Canvas(), b, mods, QPoint(r.x + 1, r.y + 1));
    }

    // A Google Earth Pro on PATH that writes down the file it is handed; the file it writes.
    fs::path FakeGoogleEarth() {
        const fs::path dir = root_ / "earth";
        fs::create_directories(dir);
        std::ofstream(dir / "googleearth-bin") << "";
        const fs::path handed = dir / "handed";
        std::ofstream(dir / "google-earth-pro")
            << "#!/bin/sh\nprintf %s \"$1\" > '" << handed.string() << "'\n";
        fs::permissions(dir / "google-earth-pro", fs::perms::owner_all, fs::perm_options::add);
        oldPath_ = ::getenv("PATH");
        ::setenv("PATH", (dir.string() + ":" + oldPath_).c_str(), 1);
        return handed;
    }
    // A folder of two: IMG_0001.JPG taken in Tokyo, IMG_0002.JPG without a position.
    fs::path GpsFolder() {
        const fs::path dir = WriteCameraFolder(root_ / "gps", {"IMG_0002.JPG"}, 100, 75);
        fixtures::ExifJpegBuilder b;
        b.Ifd0().Ascii(0x010F, "M");
        b.JpegThumbnail(100, 75);
        b.Gps().Ascii(0x0001, "N").Rational(0x0002, {{35, 1}, {40, 1}, {30, 1}});
        b.Gps().Ascii(0x0003, "E").Rational(0x0004, {{139, 1}, {45, 1}, {0, 1}});
        b.Write(dir / "IMG_0001.JPG");
        return dir;
    }

    fixtures::ScratchDir scratch_;
    std::string oldPath_;
    fs::path root_ = scratch_.path();
    fs::path desktop_ = root_ / "home" / "Desktop";
    ScriptedPrompter prompter_;
    std::unique_ptr<App> app_;
    MainWindow* w_ = nullptr;
};

TEST_F(MainWindowTest, AStopKeepsAPrefixTheGridFollowsTheDividerAndClicksSelect) {
    const fs::path big = WriteCameraFolder(root_ / "big", NumberedNames(4000), 16, 12);
    Start();
    CanvasWidth(320);
    // A stop keeps the items read so far, in name order.
    QSignalSpy done(w_, &MainWindow::scanFinished);
    w_->SelFolder1(big.string());
    auto* bar = w_->ProgressStrip()->ProgressBar1;
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar->value() > 0; }, 10000));
    QTest::mouseClick(w_->ProgressStrip()->PushButton1, Qt::LeftButton);
    ASSERT_TRUE(done.wait(20000));
    const auto& items = w_->Items();
    ASSERT_FALSE(items.empty());
    EXPECT_LT(items.size(), 4000u);
    for (std::size_t i = 0; i < items.size(); ++i)
        ASSERT_EQ(items[i].path, (big / NumberedNames(4000)[i]).string());

    w_->SelFolder1(WriteCameraFolder(root_ / "card", NumberedNames(7), 100, 75).string());
    EXPECT_TRUE(w_->ProgressStrip()->JobShown());
    ASSERT_TRUE(done.wait(20000));
    EXPECT_FALSE(w_->ProgressStrip()->JobShown());
    ASSERT_EQ(items.size(), 7u);

    // One pixel less and only two fit; content 290 + 75 + 20 pixels high.
    CanvasWidth(319);
    EXPECT_EQ(items[6].y, 290);
    const int over = 385 - w_->Canvas()->height();
    EXPECT_EQ(w_->ScrollBar()->isEnabled(), over > 0);
    EXPECT_EQ(w_->ScrollBar()->maximum(), std::max(over, 0));

    // Clicks drive the selection, the commands and the contextual menu.
    EXPECT_EQ(w_->BuildContextMenu(w_), nullptr);  // nothing selected: no menu of the pane
    Click(1);
    Click(3, Qt::ShiftModifier);
    EXPECT_EQ(w_->Selection().pCidxFlg, 2);
    EXPECT_FALSE(w_->Commands().Enabled(CommandState::kExifInfo));
    std::unique_ptr<QMenu> many(w_->BuildContextMenu(nullptr));
    EXPECT_EQ(many->actions().size(), 6);

    // A right click on one of several selected items keeps them all for the menu.
    w_->SelectAll();
    Click(2, {}, Qt::RightButton);
    EXPECT_EQ(ItemSelection::CountSelected(w_->Items()), 7);
}

TEST_F(MainWindowTest, TheFrameIsSavedAtCloseAndComesBackAndAMissingFileIsSaid) {
    QPalette desktop = QGuiApplication::palette();  // a first start takes the desktop's highlight
    desktop.setColor(QPalette::Highlight, QColor(0x12, 0x34, 0x56));
    QGuiApplication::setPalette(desktop);
    Start();
    EXPECT_EQ(app_->Prefs().gPref[pref::kSelectionColor], 0x123456);
    // No Google Earth here: the user is told, and the scripted cancel is "利用しない".
    ASSERT_EQ(prompter_.asked, QStringList({QString::fromUtf8(PrefFile::kNoFileMessage.data(),
                                                              PrefFile::kNoFileMessage.size()),
                                            "Google Earthが見つかりませんでした。"}));
    EXPECT_EQ(app_->Prefs().gPref[pref::kGoogleEarthAllowed], 0);
    w_->resize(900, 600);
    CanvasWidth(500);
    const QPoint at = w_->pos();
    const int canvasLeft = w_->Canvas()->mapTo(w_, QPoint(0, 0)).x();
    w_->close();

    Settings saved;
    saved.InitAll();
    ASSERT_EQ(PrefFile::LoadPref(saved, root_ / "settings"), LoadResult::Loaded);
    const std::vector<std::int64_t> frame{at.x(), at.y(), 900, 600, canvasLeft};
    EXPECT_EQ(std::vector<std::int64_t>(&saved.gPref[pref::kFrameLeft],
                                        &saved.gPref[pref::kDividerLeft + 1]),
              frame);

    saved.gPref[pref::kFrameWidth] = 600;  // below the minimum width
    ASSERT_TRUE(PrefFile::SavePref(saved, root_ / "settings"));
    app_ = std::make_unique<App>(prompter_, root_ / "settings");
    Start();
    EXPECT_EQ(w_->width(), MainWindow::kMinWidth);
    EXPECT_EQ(w_->height(), 600);
    EXPECT_EQ(w_->Canvas()->mapTo(w_, QPoint(0, 0)).x(), canvasLeft);
}

TEST_F(MainWindowTest, ARowSelectionScansAClickBelowTheRowsClearsAndCutLabelsHaveATip) {
    WriteCameraFolder(desktop_ / "Card",
                      {"A_very_long_file_name_that_cannot_fit.JPG", "DSC_0001.JPG"});
    Start();
    SidebarView* o = w_->Outline();
    const int row = o->RowOfPath((desktop_ / "Card").string());
    ASSERT_GT(row, 0);
    QSignalSpy done(w_, &MainWindow::scanFinished);
    QTest::mouseClick(o->viewport(), Qt::LeftButton, {},
                      o->visualRect(o->IndexOfRow(row)).center());
    ASSERT_TRUE(done.wait(10000));
    const auto& items = w_->Items();
    ASSERT_EQ(items.size(), 2u);

    // The pointer rests for a full timer round over a picture: a cut label is named.
    for (const auto& [i, tip] :
         {std::pair{0, "A_very_long_file_name_that_cannot_fit"}, std::pair{1, ""}}) {
        QTest::mouseMove(w_->Canvas(), QPoint(items[i].x + 20, items[i].y + 20));
        ASSERT_TRUE(QTest::qWaitFor([&] { return w_->ToolTipText() == tip; }, 6000)) << i;
    }

    // Select a thumbnail, then click the empty sidebar: grid and selection go.
    Click(0);
    QTest::mouseClick(o->viewport(), Qt::LeftButton, {}, QPoint(20, o->viewport()->height() - 5));
    EXPECT_EQ(o->selectedRow, -1);
    EXPECT_TRUE(w_->Items().empty());
    EXPECT_EQ(w_->Selection().pCidxFlg, 0);
    EXPECT_FALSE(w_->Commands().Enabled(CommandState::kExportAll));
}

// A card's row offers the eject: the script runs with the mount path while the window goes on,
// and the row stays until the watcher sees the unmount. The quit ejects only a card still
// mounted, the watcher stopped first. A failure or a missing script is said.
TEST_F(MainWindowTest, EjectsFromTheRowAndAtTheQuitRunTheScriptAndSayWhatWentWrong) {
    // A stand-in eject script: waits for `go`, then logs its argument and fails with 3.
    const fs::path go = root_ / "go", log = root_ / "eject.log";
    std::ofstream(root_ / "eject.sh")
        << "while [ ! -e '" << go.string() << "' ]; do sleep 0.02; done\necho \"$1\" >> '"
        << log.string() << "'\nexit 3\n";
    Start();
    w_->SetEjectScript(root_ / "eject.sh");
    SidebarView* o = w_->Outline();
    const std::string card = "/media/LVX EJECT " + std::to_string(::getpid());
    o->getPost(SidebarView::VolumeEvent::Mount, card);  // nothing need be mounted for the menu
    // Which rows offer the eject is the menu model's test; here, what the eject does.
    const auto eject = [o, &card] {
        std::unique_ptr<QMenu> menu(o->RowMenu(o->IndexOfRow(o->RowOfPath(card)), o));
        ASSERT_TRUE(menu && menu->actions().size() == 1);
        EXPECT_EQ(menu->actions()[0]->text(), QStringLiteral("取り出す"));
        menu->actions()[0]->trigger();
    };
    prompter_.asked.clear();
    eject();
    std::ofstream(go) << "";  // only now: a script run in the window's thread would time out
    ASSERT_TRUE(QTest::qWaitFor([&] { return !prompter_.asked.isEmpty(); }, 10000));
    EXPECT_EQ(prompter_.asked, QStringList({"error code: 3"}));
    EXPECT_EQ(fixtures::ReadText(log), card + "\n");
    EXPECT_GT(o->RowOfPath(card), 0);
    EXPECT_TRUE(w_->Watcher()->Observing());

    // At the quit: off in the settings, the start-up disk, or the card gone: nothing runs. /proc
    // stands in for the card: every Linux system has it mounted.
    Settings& prefs = app_->Prefs();
    for (const auto& [on, volume] : {std::pair{0, std::string("/proc")},
                                     {1, std::string("/")},
                                     {1, (root_ / "gone").string()},
                                     {1, std::string("/proc")}}) {
        prefs.gPref[pref::kEjectAtQuit] = on;
        o->gFI = volume;
        w_->UnmountCam();
    }
    EXPECT_EQ(prompter_.asked, QStringList({"error code: 3", "error code: 3"}));
    EXPECT_FALSE(w_->Watcher()->Observing());
    EXPECT_EQ(fixtures::ReadText(log), card + "\n/proc\n");

    w_->SetEjectScript(root_ / "missing.sh");
    prompter_.asked.clear();
    w_->UnmountCam();
    eject();
    EXPECT_EQ(prompter_.asked, QStringList({"file not found.", "file not found."}));
}

// A card found during a scan takes over the grid; found during an export of all, it waits for
// the export's end, which is not a scan's end.
TEST_F(MainWindowTest, ACardFoundDuringAScanTakesOverAndOneDuringAnExportWaits) {
    const fs::path big = WriteCameraFolder(root_ / "big", NumberedNames(800), 16, 12);
    const fs::path card = root_ / "card";
    WriteCameraFolder(card / "DCIM" / "100TEST", {"DSC_0000.JPG"}, 16, 12);
    Start();
    w_->SelFolder1(big.string());  // not yet collected when the card's volume appears
    ASSERT_TRUE(w_->ScanRunning());
    w_->Outline()->getPost(SidebarView::VolumeEvent::Mount, card.string());
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return !w_->ScanRunning() && w_->Items().size() == 1; }, 10000));
    EXPECT_EQ(w_->Items()[0].fname, "DSC_0000.JPG");

    w_->Outline()->getPost(SidebarView::VolumeEvent::Unmount, card.string());
    ASSERT_TRUE(Scan(big));
    QSignalSpy scans(w_, &MainWindow::scanFinished);
    QSignalSpy exported(&w_->Thumbs().Exporter(), &ExportController::exportFinished);
    prompter_.files = {QString::fromStdString(root_.string())};
    w_->ExportThumbNailAll();
    ASSERT_TRUE(w_->ScanRunning());
    w_->Outline()->getPost(SidebarView::VolumeEvent::Mount, card.string());  // back: it waits
    EXPECT_EQ(w_->Items().size(), 800u);
    ASSERT_TRUE(exported.wait(20000));
    EXPECT_EQ(scans.count(), 0);
    ASSERT_TRUE(scans.wait(10000));  // then the card is read
    ASSERT_EQ(w_->Items().size(), 1u);
    EXPECT_EQ(w_->Items()[0].fname, "DSC_0000.JPG");
}

TEST_F(MainWindowTest, KeysSelectOpenTheDialogAndTheMenuAndATouchpadScrollsByPixels) {
    Start();
    CanvasWidth(320);
    ASSERT_TRUE(Scan(WriteCameraFolder(root_ / "keys", NumberedNames(30), 100,
                                       75)));  // three a row, rows 95 apart
    ThumbnailCanvas* c = w_->Canvas();
    w_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(w_));
    c->setFocus();
    QTest::keyClick(c, Qt::Key_Right);  // nothing selected: the current item first
    QTest::keyClick(c, Qt::Key_Right);
    EXPECT_TRUE(w_->Commands().Enabled(CommandState::kExifInfo));
    // Assistive technology finds the current item, which wears the dotted frame.
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(c);
    ASSERT_NE(list->child(1), nullptr);
    EXPECT_EQ(list->focusChild(), list->child(1));
    EXPECT_TRUE(list->child(1)->state().focused);
    const QImage shot = c->grab().toImage();
    EXPECT_EQ(shot.pixel(107, 2) & 0xFFFFFF, 0u);                          // item 1 at x 110, y 5
    EXPECT_EQ(shot.pixel(2, 2) & 0xFFFFFF, shot.pixel(2, 90) & 0xFFFFFF);  // item 0: none
    QTest::keyClick(c, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(c, Qt::Key_Return);  // several: no information window
    EXPECT_EQ(w_->findChild<ExifInfoGPS*>(), nullptr);
    QTest::keyClick(c, Qt::Key_Left);
    QTest::keyClick(c, Qt::Key_Enter);
    auto* info = w_->findChild<ExifInfoGPS*>();
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->FileNameLabel()->text(), "IMG_10003.JPG");

    QTest::keyClick(c, Qt::Key_End);  // the last row comes into sight
    EXPECT_EQ(w_->ScrollBar()->value(), w_->ScrollBar()->maximum());
    QTest::keyClick(c, Qt::Key_Home);
    EXPECT_EQ(w_->ScrollBar()->value(), 0);
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(0, 0), c->mapToGlobal(QPoint()));
    QCoreApplication::sendEvent(c, &menuKey);
    QMenu* menu = w_->findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->pos(), c->mapToGlobal(QPoint(55, 42)));  // at the middle of item 0
    menu->close();

    for (const QPoint& pixels : {QPoint(0, -37), QPoint(0, 0)}) {
        QWheelEvent e(QPointF(10, 10), QPointF(10, 10), pixels, QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(c, &e);
    }
    EXPECT_EQ(w_->ScrollBar()->value(), 37 + MainWindow::kLineStep);  // a notch without pixels
}

// The menu items follow the scan and the selection; each toolbar item, menu item and contextual
// menu text reaches the window's command, and so does Ctrl+Q.
TEST_F(MainWindowTest, EveryDoorReachesItsCommandAndTheMenuFollowsTheScanAndTheSelection) {
    const fs::path settings = root_ / "settings" / std::string(PrefFile::kFileName);
    const fs::path handed = FakeGoogleEarth();
    Start();  // finds the fake Google Earth and keeps its path
    auto* bar = static_cast<MainMenuBar*>(w_->menuBar());
    const auto states = [bar] {  // export one, export all, turn
        bar->Event_EnableMenuItems();
        std::string on;
        for (MenuItem item :
             {MenuItem::FileExportExif, MenuItem::FileExportJpegAll, MenuItem::ThmbL})
            on += bar->Action(item)->isEnabled() ? '1' : '0';
        return on;
    };
    QSignalSpy done(w_, &MainWindow::scanFinished);
    w_->SelFolder1(GpsFolder().string());
    EXPECT_EQ(states(), "000");  // the scan running
    ASSERT_TRUE(done.wait(20000));
    EXPECT_EQ(states(), "010");
    Click(1);  // a picture without a position
    EXPECT_EQ(states(), "111");
    EXPECT_FALSE(w_->Commands().Enabled(CommandState::kGoogleEarth));
    w_->ItemUnselect();
    EXPECT_EQ(states(), "010");
    Click(0);
    EXPECT_TRUE(w_->Commands().Enabled(CommandState::kGoogleEarth));
    EXPECT_FALSE(w_->Canvas1_ContextualMenuAction(QStringLiteral("-")));
    std::unique_ptr<QMenu> menu(w_->BuildContextMenu(nullptr));
    QHash<QString, QAction*> context;
    for (QAction* a : menu->actions())
        context[a->text()] = a;
    const auto& items = w_->Items();
    const int x1 = items[1].x;
    MainToolBar* tb = w_->ToolBar();
    const auto written = [this](const char* n) {
        return fs::exists(root_ / n) && fs::file_size(root_ / n) > 100;
    };
    const auto copied = [] {
        return QGuiApplication::clipboard()->image().size() == QSize(100, 75);
    };
    const auto title = [bar] { return bar->Action(MenuItem::ViewAppear)->text(); };
    int prefsShown = 0;
    const struct {
        QAction* act;
        const char* answer;  // the file chosen, or the preferences' button
        std::function<bool()> done;
    } cases[] = {
        {tb->ActionFor(604), "", [&] { return items[0].rot == 1; }},
        {bar->Action(MenuItem::ThmbL), "", [&] { return items[0].rot == 0; }},
        {tb->ActionFor(603), "", [&] { return items[0].rot == 3; }},
        {bar->Action(MenuItem::ThmbR), "", [&] { return items[0].rot == 0; }},
        {context.value("右に回転"), "",
         [&] { return items[0].rot == 1 && items[0].w == 75 && items[1].x == x1 - 25; }},
        {context.value("左に回転"), "",
         [&] { return items[0].rot == 0 && items[0].w == 100 && items[1].x == x1; }},
        {tb->ExportMenu()->actions().value(0), "a.jpg", [&] { return written("a.jpg"); }},
        {bar->Action(MenuItem::FileExportExif), "b.jpg", [&] { return written("b.jpg"); }},
        {context.value("exif形式で書き出し..."), "c.jpg", [&] { return written("c.jpg"); }},
        {bar->Action(MenuItem::EditCopy), "", copied},
        {context.value("クリップボードにコピー"), "", copied},
        {context.value("Google Earthを起動"), "",
         [&] {
             return fixtures::ReadText(fixtures::ReadText(handed))
                        .find("<coordinates>139.75,35.675,0") != std::string::npos;
         }},
        {context.value("Exif情報"), "",
         [&] {
             auto* d = w_->findChild<ExifInfoGPS*>();
             return d != nullptr && d->isVisible() &&
                    d->FileNameLabel()->text() == "IMG_0001.JPG" && d->close();
         }},
        {bar->Action(MenuItem::EditSelectAll), "", [&] { return w_->Selection().pCidxFlg == 2; }},
        {tb->ActionFor(602), "", [&] { return written("IMG_0002.jpg"); }},
        {tb->ActionFor(609), "キャンセル",
         [&] { return prefsShown == 1 && !fs::exists(settings); }},
        {bar->Action(MenuItem::EditPref), "保存",
         [&] { return prefsShown == 2 && fs::exists(settings); }},
        {bar->Action(MenuItem::ViewAppear), "",
         [&] { return !tb->isVisible() && title() == QString::fromUtf8("ツールバーを表示"); }},
        {bar->Action(MenuItem::ViewAppear), "",
         [&] { return tb->isVisible() && title() == QString::fromUtf8("ツールバーを隠す"); }},
    };
    for (int row = 0; const auto& c : cases) {
        ASSERT_NE(c.act, nullptr) << "row " << row;
        prompter_.files = {QString::fromStdString((root_ / c.answer).string())};
        QGuiApplication::clipboard()->clear();
        // The preferences dialog, once it is up, is closed by the button `answer`.
        QTimer::singleShot(0, [&prefsShown, answer = c.answer] {
            auto* dlg = qobject_cast<PrefDlg*>(QApplication::activeModalWidget());
            for (QPushButton* b : dlg ? dlg->findChildren<QPushButton*>() : QList<QPushButton*>())
                if (b->text() == QString::fromUtf8(answer)) prefsShown++, b->click();
        });
        bar->Event_EnableMenuItems();  // as the opening of a menu does
        c.act->trigger();
        EXPECT_TRUE(QTest::qWaitFor(c.done, 5000)) << "row " << row;
        ++row;
    }
    fs::remove(settings);
    QApplication::setActiveWindow(w_);
    QTest::keyClick(w_, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(!w_->isVisible() && fs::exists(settings));
}

}  // namespace
}  // namespace lumivex
