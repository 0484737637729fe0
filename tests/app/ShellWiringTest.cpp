// The toolbar and the menu bar of the running program: each item reaches the window's command,
// and the menu items are enabled by the selection and the scan.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <functional>

#include "ExifJpegBuilder.h"
#include "ScratchDir.h"
#include "ScriptedPrompter.h"
#include "app/App.h"
#include "browser/MainWindow.h"
#include "browser/ThumbnailCanvas.h"
#include "core/PrefFile.h"
#include "prefs/PrefDlg.h"
#include "shell/MainMenuBar.h"
#include "shell/MainToolBar.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

class ShellWiringTest : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(root_ / "home" / "Desktop");
        fs::create_directories(root_ / "settings");
        fs::create_directories(card_);
        ::setenv("HOME", (root_ / "home").c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", (root_ / "home" / ".config").c_str(), 1);
        fixtures::ExifJpegBuilder b;
        b.Ifd0().Ascii(0x010F, "M");
        b.JpegThumbnail(100, 75);
        for (const char* name : {"IMG_0001.JPG", "IMG_0002.JPG"})
            b.Write(card_ / name);
        app_.InitApp();
        w_ = app_.MakeWindow();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(w_));
        bar_ = qobject_cast<MainMenuBar*>(w_->menuBar());
        ASSERT_NE(bar_, nullptr);
    }
    void Click(int item) {
        const ItemRecord& r = w_->Items()[static_cast<std::size_t>(item)];
        QTest::mouseClick(w_->Canvas(), Qt::LeftButton, {}, QPoint(r.x + 1, r.y + 1));
    }
    bool Enabled(MenuItem item) {
        bar_->Event_EnableMenuItems();
        return bar_->Action(item)->isEnabled();
    }
    // The preferences dialog, once it is up, closed by its button `answer`.
    void Answer(const char* answer) {
        QTimer::singleShot(0, [this, answer] {
            auto* dlg = qobject_cast<PrefDlg*>(QApplication::activeModalWidget());
            for (QPushButton* b : dlg ? dlg->findChildren<QPushButton*>() : QList<QPushButton*>())
                if (b->text() == QString::fromUtf8(answer)) prefsShown_++, b->click();
        });
    }
    bool Saved() const { return fs::exists(root_ / "settings" / std::string(PrefFile::kFileName)); }

    fixtures::ScratchDir scratch_;
    fs::path root_ = scratch_.path();
    fs::path card_ = root_ / "card";
    ScriptedPrompter prompter_;
    App app_{prompter_, root_ / "settings"};
    MainWindow* w_ = nullptr;
    MainMenuBar* bar_ = nullptr;
    int prefsShown_ = 0;
};

TEST_F(ShellWiringTest, EachToolbarItemAndMenuItemReachesItsCommand) {
    w_->SelFolder1(card_.string());  // the end of a scan needs the event loop
    ASSERT_TRUE(QSignalSpy(w_, &MainWindow::scanFinished).wait(20000));
    Click(0);
    const auto& items = w_->Items();
    MainToolBar* tb = w_->ToolBar();
    const auto written = [this](const char* n) {
        return fs::exists(root_ / n) && fs::file_size(root_ / n) > 100;
    };
    const auto title = [this] { return bar_->Action(MenuItem::ViewAppear)->text(); };
    QGuiApplication::clipboard()->clear();
    const struct {
        QAction* act;        // triggered; Ctrl+Q pressed when null
        const char* answer;  // the file chosen, or the preferences' button
        std::function<bool()> done;
    } cases[] = {
        {tb->ActionFor(604), "", [&] { return items[0].rot == 1; }},
        {bar_->Action(MenuItem::ThmbL), "", [&] { return items[0].rot == 0; }},
        {tb->ActionFor(603), "", [&] { return items[0].rot == 3; }},
        {bar_->Action(MenuItem::ThmbR), "", [&] { return items[0].rot == 0; }},
        {tb->ExportMenu()->actions().value(0), "a.jpg", [&] { return written("a.jpg"); }},
        {bar_->Action(MenuItem::FileExportExif), "b.jpg", [&] { return written("b.jpg"); }},
        {bar_->Action(MenuItem::EditCopy), "",
         [&] { return QGuiApplication::clipboard()->image().size() == QSize(100, 75); }},
        {bar_->Action(MenuItem::EditSelectAll), "", [&] { return w_->Selection().pCidxFlg == 2; }},
        {tb->ActionFor(609), "キャンセル", [&] { return prefsShown_ == 1 && !Saved(); }},
        {bar_->Action(MenuItem::EditPref), "保存", [&] { return prefsShown_ == 2 && Saved(); }},
        {bar_->Action(MenuItem::ViewAppear), "",
         [&] { return !tb->isVisible() && title() == QString::fromUtf8("ツールバーを表示"); }},
        {bar_->Action(MenuItem::ViewAppear), "",
         [&] { return tb->isVisible() && title() == QString::fromUtf8("ツールバーを隠す"); }},
        {nullptr, "", [&] { return !w_->isVisible() && Saved(); }},
    };
    for (int row = 0; const auto& c : cases) {
        prompter_.files = {QString::fromStdString((root_ / c.answer).string())};
        Answer(c.answer);
        if (c.act != nullptr) {
            bar_->Event_EnableMenuItems();  // as the opening of a menu does
            c.act->trigger();
        } else {
            fs::remove(root_ / "settings" / std::string(PrefFile::kFileName));
            QApplication::setActiveWindow(w_);
            QTest::keyClick(w_, Qt::Key_Q, Qt::ControlModifier);
        }
        EXPECT_TRUE(QTest::qWaitFor(c.done, 5000)) << "row " << row;
        ++row;
    }
}

TEST_F(ShellWiringTest, MenuItemsFollowTheSelectionAndTheScan) {
    const struct {
        const char* what;
        std::function<void()> step;
        bool exportExif, exportAll, turn;
    } cases[] = {
        {"scan running", [&] { w_->SelFolder1(card_.string()); }, false, false, false},
        {"scan ended", [&] { ASSERT_TRUE(QSignalSpy(w_, &MainWindow::scanFinished).wait(20000)); },
         false, true, false},
        {"one selected", [&] { Click(1); }, true, true, true},
        {"none selected", [&] { w_->ItemUnselect(); }, false, true, false},
    };
    for (const auto& c : cases) {
        c.step();
        EXPECT_EQ(Enabled(MenuItem::FileExportExif), c.exportExif) << c.what;
        EXPECT_EQ(Enabled(MenuItem::FileExportJpegAll), c.exportAll) << c.what;
        EXPECT_EQ(Enabled(MenuItem::ThmbL), c.turn) << c.what;
    }
}

}  // namespace
}  // namespace lumivex
